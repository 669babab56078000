// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include "reasons/reasons.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <array>

class ZrSupplyDatabase;

namespace ZrSupplyKit {

/// What is installed in a place: the roll, or a ribbon.
struct InstalledSupply
{
    QString sku;                     ///< As the library has it; "-1" for an empty place.
    QString description;             ///< What it is, for a person; empty for an empty place.
    double remainingFraction = -1.0; ///< 0 to 1, not clamped; -1 when it is not known.
    QStringList rgbs = {};           ///< Packed RGB as decimal texts, "-1" unknown: one of a roll, two of a ribbon.
    QStringList colorNames = {};     ///< In the library's language: one of a roll, one a panel of a ribbon.
};

/// What is installed, and the verdicts of the checks on it.
struct Installed
{
    InstalledSupply roll;
    QString supplyId; ///< The roll's tag, "-1" without one.
    std::array<InstalledSupply, 2> ribbons;
    QList<Verdict> verdicts; ///< In the order of `Check`.
};

/// In one call what is installed. It reads lookups and members only, so that the library emits nothing.
ZRSUPPLYKIT_EXPORT Installed installedSupplies(ZrSupplyDatabase &library);
/// The members "roll", "ribbon1", "ribbon2" and "verdicts".
ZRSUPPLYKIT_EXPORT QJsonObject toJson(const Installed &installed);

/// "White Vinyl, 4 in wide, 100 ft" of the installed roll.
ZRSUPPLYKIT_EXPORT QString rollText(ZrSupplyDatabase &library);
/// The same of the roll `sku`; of the last tag for an empty text.
ZRSUPPLYKIT_EXPORT QString rollText(ZrSupplyDatabase &library, const QString &sku);
/// "Black Resin, 4 1/2 in wide, prints on …" of a ribbon; "in no catalogue" for an unknown one.
ZRSUPPLYKIT_EXPORT QString ribbonText(ZrSupplyDatabase &library, const QString &sku);

/// "ribbon 1 does not suit the roll: R530901 has no heat for material 3 (Paper)": the summary and what fired.
ZRSUPPLYKIT_EXPORT QString verdictText(const Verdict &verdict);

/// The signal that a verdict is announced by, as a session writes it; "silence" without one.
ZRSUPPLYKIT_EXPORT QString announcementText(const Verdict &verdict);

/// Whether the catalogue does not know the installed roll, so that its tag answers.
ZRSUPPLYKIT_EXPORT bool isUnknownRoll(const QString &sku);
/// Whether the lookups of this SKU answer from the tag of the installed roll.
ZRSUPPLYKIT_EXPORT bool answersFromTag(const QString &sku);
/// A ribbon without colours and print parameters of its own.
ZRSUPPLYKIT_EXPORT bool isSpecialRibbon(const QString &sku);

} // namespace ZrSupplyKit
