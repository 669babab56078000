// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// What SQLite does in this process, seen from its two outer edges: what statements ask to do and what reaches files.
///
/// It denies nothing. One watch at a time; it sees the connections and files that are opened while it lives.
class SqliteWatch
{
public:
    struct Counts
    {
        qint64 statements = 0;        ///< Statements that were run.
        qint64 writingStatements = 0; ///< Of these, the ones that are not read-only by SQLite's own judgement.
        qint64 reads = 0;             ///< Columns, functions and selects that statements asked to use.
        qint64 attachments = 0;       ///< ATTACH or DETACH asked for.
        qint64 pragmas = 0;           ///< PRAGMA asked for, also through its table-valued functions.
        qint64 declarations = 0;    ///< Columns of a virtual table, which SQLite declares in memory at its first use.
        qint64 otherActions = 0;    ///< Anything else asked for: all that creates, changes, drops or begins.
        qint64 catalogueOpens = 0;  ///< The catalogue, opened for reading.
        qint64 writableOpens = 0;   ///< A named file, opened for writing or to be created.
        qint64 otherOpens = 0;      ///< A named file other than the catalogue.
        qint64 temporaryOpens = 0;  ///< A file without a name, SQLite's own, which is gone once it is closed.
        qint64 writes = 0;          ///< To a named file.
        qint64 temporaryWrites = 0; ///< To a file without a name.
        qint64 truncations = 0;     ///< Of a named file.
        qint64 deletions = 0;       ///< Of a file by its name.
        qint64 libraries = 0;       ///< Shared libraries, opened for their code, found or not.
        QStringList otherNames;     ///< The other files.
    };

    explicit SqliteWatch(const QString &cataloguePath);
    ~SqliteWatch();
    Q_DISABLE_COPY_MOVE(SqliteWatch)

    const Counts &counts() const;
    void reset();
    /// Databases attached to the connection that was opened last, beside its own file and the temporary one.
    int attachedDatabases() const;
    /// What a reader of the catalogue must not do, told; empty when it did nothing of it.
    QString misdeeds() const;
};
