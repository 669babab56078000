// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/commandline.h"

#include <zrsupplydatabase.h>

namespace zrsupply {

/// The catalogue file that an invocation names: --catalogue, ZRSUPPLY_CATALOGUE, else the sample beside the command.
QString cataloguePath(const Invocation &call);

/// The library with the catalogue of an invocation open and its language set.
class Catalogue
{
public:
    /// Throws when the file cannot be used, with the reason and what to do.
    explicit Catalogue(const Invocation &call);

    ZrSupplyDatabase &library() { return m_library; }
    QString path() const { return m_path; }

    /// One value for a question that the library has no lookup for; the texts in it are quoted by `sqlText()`.
    QVariant ask(const QString &query, const QVariant &otherwise = {});

    /// Language ids with any name in the catalogue, ascending.
    QList<int> languages();
    /// What the catalogue calls a language ("de"), empty where it does not say.
    QString languageCode(int language);
    /// A remark when the catalogue has no names in the language of the invocation, else empty.
    QString languageNote();

    /// Throws when the catalogue does not offer the roll, with the nearest SKUs. `anyFamily`: a roll that belongs to
    /// another machine family will do.
    void requireRoll(const QString &sku, bool anyFamily = false);
    void requireRibbon(const QString &sku);

    /// "" for a roll that is offered, else the machine family that keeps it from being offered ("?" when unknown).
    QString otherFamily(const QString &sku);

private:
    QString m_path;
    int m_language;
    ZrSupplyDatabase m_library;
};

/// `text` as an SQL literal, quotes included.
QString sqlText(const QString &text);

} // namespace zrsupply
