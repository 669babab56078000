// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/progress.h"
#include "check/finding.h"

#include <QtCore/QTemporaryDir>

namespace zrsupply {

/// Sources on their way through a check: built into a file that is gone afterwards.
class CheckedSources
{
public:
    /// Throws Failure when the folder cannot be read at all.
    CheckedSources(const QString &folder, Progress &progress);

    /// The catalogue file; empty when the sources do not make one.
    QString file() const { return m_file; }
    /// Why not.
    const QList<CheckFinding> &problems() const { return m_problems; }
    /// Files of the folder that the catalogue has no place for.
    const QList<CheckFinding> &unused() const { return m_unused; }

    /// Says for each finding which line of which file its row comes from. A row that is missing gets the line of the
    /// first one with the same leading part of the key, where there is one.
    void locate(QList<CheckFinding> &findings);

private:
    const QHash<QString, int> &linesOf(const QString &table);

    QString m_folder;
    QTemporaryDir m_temporary;
    QString m_file;
    QList<CheckFinding> m_problems;
    QList<CheckFinding> m_unused;
    QHash<QString, QHash<QString, int>> m_lines; // table, then key
};

} // namespace zrsupply
