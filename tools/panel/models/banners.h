// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "reasons/reasons.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

class ZrSupplyDatabase;

namespace panel {

enum class Severity { Good, Info, Warning, Problem };

/// Something that a person should know: what it is, why, and what to do about it.
struct Banner
{
    Severity severity = Severity::Info;
    QString subject; ///< "combination", "roll", "file" and so on; what it is about, for tests and for order.
    QString title;
    QString reason;
    QString remedy;

    /// Why and what to do.
    QString detail() const;
    /// All of it, as a screen reader says it.
    QString spoken() const;
};

/// What is said of what is installed. The reasons are those of `zrsupply explain`.
class Banners
{
    Q_DECLARE_TR_FUNCTIONS(Banners)
public:
    /// The worst first; never empty.
    static QList<Banner> of(ZrSupplyDatabase &library, bool isCatalogueOpen);

    static Banner ofVerdict(ZrSupplyDatabase &library, const ZrSupplyKit::Verdict &verdict,
                            const ZrSupplyKit::Facts &facts);
    /// Of something that is low or empty; nothing for what is not.
    static std::optional<Banner> ofFraction(const QString &subject, const QString &what, double fraction);
    /// Of a roll that is missing or in no catalogue; nothing for any other.
    static std::optional<Banner> ofRoll(ZrSupplyDatabase &library);
};

/// With a capital at its beginning.
QString sentence(QString text);
} // namespace panel
