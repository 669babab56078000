// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/cataloguewriter.h"

#include <QtCore/QStringList>

namespace zrsupply {

/// One mistake in the sources.
struct SourceProblem
{
    QString file;   ///< Within the sources.
    int line = 0;   ///< 0: the file as a whole.
    int column = 0; ///< In characters, from 1.
    QString message;
    QString remedy;
    int otherLine = 0; ///< The line that this one clashes with, 0 without one.
};

/// Reads sources into a catalogue and gathers what is wrong with them, all of it as far as `mostProblems`.
class SourceReader
{
public:
    static constexpr qsizetype mostProblems = 100;

    /// Throws Failure when `folder` is none.
    SourceReader(const QString &folder, Progress &progress);

    void readInto(CatalogueWriter &writer);

    /// Sorted by file, line and column. Empty: the sources are in the writer, whole.
    const QList<SourceProblem> &problems() const { return m_problems; }
    bool isCutShort() const { return m_problems.size() >= mostProblems; }
    /// Files in the folder that the catalogue has no place for.
    QStringList unusedFiles() const;
    qint64 rowCount() const { return m_rowCount; }

private:
    friend class TableLoader;

    void add(const SourceProblem &problem);

    QString m_folder;
    Progress &m_progress;
    QList<SourceProblem> m_problems;
    QStringList m_usedFiles;
    qint64 m_rowCount = 0;
};

} // namespace zrsupply
