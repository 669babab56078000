// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplyguard_global.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The companion of the supply library for hosts that trust neither the catalogue file nor what is pasted into its
/// questions: `preflight()` and `install()` come before `ZrSupplyDatabase::setup()`, README.md beside this header
/// shows how.
///
/// The library itself is not touched and does not know. SQLite calls the guard for each connection as it is opened,
/// so what is guarded is what is opened after `install()`, by whatever part of the process. This needs Qt's SQLite
/// driver and the guard to use one and the same SQLite, as they do where Qt is built with the system's. Qt's own
/// builds and many firmware images carry another copy, which the guard cannot reach: `install()` returns false there.
///
/// A guarded connection reads tables and does nothing else. What a statement may do is a list, and everything that is
/// not on it is refused, on every SQLite from 3.37 on:
///
/// - SELECT, with recursion, and transactions that read;
/// - the functions abs, avg, char, coalesce, count, glob, group_concat, hex, ifnull, iif, length, like, lower, max,
///   min, nullif, quote, random, round, sign, substr, substring, sum, total, typeof, unicode, upper, zeroblob, and
///   with one argument trim, ltrim and rtrim;
/// - no pragma, no table-valued function, no virtual table, no view, no trigger, no extension.
///
/// It keeps to `Limits` and has temporary tables in memory. What is refused fails, and the library answers its
/// default. A connection that cannot be hardened does not open.
///
/// All functions may be called from any thread at any time.
namespace ZrSupplyGuard {

/// Bounds on a guarded connection. 0 leaves a bound as SQLite has it.
struct Limits
{
    /// Longest time of one statement in milliseconds, pauses between its rows included. A statement that runs longer
    /// ends as interrupted; rows that it gave by then were given, so a list of the library can be cut short. It is as
    /// well the longest wait for a lock that another process holds. The list of 100,000 rolls takes a seventh of the
    /// default on a desktop of two cores.
    int statementMilliseconds = 250;
    /// Longest text or blob in bytes. Pictures of rolls are the longest values of a catalogue, a few kilobytes.
    int valueBytes = 1 << 20;
    /// Longest statement in bytes, also of those in the file that create its tables. The library's are below 400.
    int statementBytes = 1 << 16;
    /// SELECTs joined by UNION and the like in one statement. The library's have one.
    int compoundSelects = 20;
    /// Depth of an expression. The library's have 3.
    int expressionDepth = 100;
    /// Instructions of a compiled statement. The library's have below 100.
    int programSteps = 25000;
    /// Columns of a table, an index or an answer. The widest of a catalogue has 8.
    int columns = 100;
    /// Arguments of a function. The library's have one.
    int functionArguments = 16;
    /// Bytes of a LIKE or GLOB pattern; time grows with the pattern times the value.
    int patternBytes = 64;
    /// Values that are bound to a statement. The library binds none.
    int boundValues = 100;
    /// Memory of SQLite in the whole process, over all connections, guarded or not, in bytes: what keeps a statement
    /// from doubling itself while it is compiled, which no other bound sees. A lower bound that the host has set
    /// stays.
    qint64 processHeapBytes = qint64(64) << 20;
    /// Guards connections that are opened for writing as well; they can then only read. False leaves such connections
    /// alone: the library opens its catalogue read-only, and a host's databases of its own go on as they were.
    bool writableToo = false;
};

/// Guards every SQLite connection that is opened from now on: those of one file, whatever the path that leads to it,
/// or, when `onlyThisFile` is empty, all. Connections that are open already stay as they are. A second call replaces
/// the file and the limits.
///
/// A guarded connection has its authorizer, progress handler and trace taken by the guard; a host that sets its own
/// on such a connection takes that protection away. `sqlite3_reset_auto_extension()` ends the guard as `remove()`
/// does.
///
/// False when SQLite refuses, when Qt's SQLite driver carries a SQLite of its own, which is tried with a connection
/// in memory, or when `onlyThisFile` is a `file:` URI, because the guard cannot know which file it names. Nothing is
/// guarded then. Create the application first: without it Qt loads no driver that could be tried, and `isGuarding()`
/// is the only answer that counts.
ZRSUPPLYGUARD_EXPORT bool install(const QString &onlyThisFile = {}, const Limits &limits = {});

/// Whether a connection of Qt's is guarded, here and now: its limits and switches are read back from SQLite, and its
/// authorizer and its clock are tried with a statement each, which does not touch the file. Called in the thread of
/// the connection. False for a connection that is not open, was opened before `install()`, lost a part of its guard,
/// or belongs to a driver with a SQLite of its own.
ZRSUPPLYGUARD_EXPORT bool isGuarding(const QString &connectionName);

/// Connections that are opened from now on are bare again, and SQLite's memory has the bound that it had. Guarded
/// ones stay guarded until they are closed.
ZRSUPPLYGUARD_EXPORT void remove();

/// What a preflight found, the first of these that applies. The library answers nothing, or not for long, with those
/// up to `Lacking`; it would use a file with those below, at its peril.
enum class Finding {
    Usable,             ///< Nothing speaks against it.
    Missing,            ///< There is no such file, or a link leads to none.
    NotAFile,           ///< A folder, a pipe, a device: it is not opened.
    NoPermission,       ///< It cannot be read.
    Empty,              ///< It has no bytes.
    NotADatabase,       ///< It does not start as SQLite's files do.
    Torn,               ///< It ends too early, or in the middle of a page.
    UnknownFormat,      ///< A later SQLite wrote it.
    NotRollbackJournal, ///< It is in write-ahead-log mode, which needs files to be written beside it.
    SideFiles,          ///< A journal or log lies beside it: a change was not finished, or is being made.
    SchemaVersion,      ///< Its tables are of a version that this library does not know.
    Unreadable,         ///< SQLite cannot read its tables' definitions.
    Lacking,            ///< Tables or columns that the library reads are missing; `Preflight::missing` lists them.
    NotATable,          ///< A view or a virtual table stands where the library reads a table.
    ComputedColumn,     ///< A column that the library reads is computed and not stored.
    HasTrigger,         ///< A table that the library reads has a trigger.
    UntypedKey,         ///< A column that is compared with a quoted value has a type with which that cannot be equal.
    GiantValue,         ///< A value is longer than the default of `Limits::valueBytes`.
    TooSlow,            ///< It cannot be checked in a minute.
    Damaged,            ///< SQLite's check of its pages or rows found an error.
};

/// The code of a finding as text ("not-a-table"), the same in every version.
ZRSUPPLYGUARD_EXPORT QString name(Finding finding);

/// What is wrong with a file, if anything.
struct Preflight
{
    Finding finding = Finding::Usable; ///< The first that applies.
    QString message;                   ///< What is wrong, one sentence without a full stop; empty for a usable file.
    QString advice;                    ///< What to do about it, likewise.
    QStringList missing;               ///< "table roll", "column roll.landscape".
};

/// How far a preflight goes.
enum class Depth {
    Tables, ///< The file, its first bytes and its tables' definitions: milliseconds, whatever the size.
    Content ///< Every value and page too: two seconds for 100 MB.
};

/// Whether a file can be handed to `setup()`. Links are followed, as `setup()` follows them. What is no regular file
/// is not opened; what is, is read without waiting, and by SQLite only once its first bytes are in order, read-only,
/// without locks or journal, and guarded.
///
/// The answer holds for as long as nobody replaces the file: it belongs in a folder that only root writes.
ZRSUPPLYGUARD_EXPORT Preflight preflight(const QString &path, Depth depth = Depth::Content);

} // namespace ZrSupplyGuard
