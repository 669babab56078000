// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace zrsupply {

/// Findings that an author has looked at and accepted. A line of the file is a rule's id, or an id and a row's key;
/// what follows # is a remark.
class IgnoreList
{
public:
    /// Adds a file. Throws Failure with the line where the file names no rule of `ids`.
    void add(const QString &path, const QStringList &ids);

    bool ignores(const QString &id, const QString &key);
    /// Lines that no finding met, which have served their time.
    QStringList unused() const;

private:
    struct Line
    {
        QString place; ///< "ignore.txt, line 3: sku-quote"
        bool met = false;
    };
    QHash<std::pair<QString, QString>, Line> m_lines; // by id and key, an empty key for the whole rule
};

} // namespace zrsupply
