// SPDX-License-Identifier: LGPL-2.1-or-later
#include "sqlitewatch.h"

#include <QtCore/QFile>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <list>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The methods of an open file with some of them replaced; stands where SQLite keeps the original ones.
struct WatchedMethods
{
    sqlite3_io_methods methods;
    const sqlite3_io_methods *original;
};

struct State
{
    SqliteWatch::Counts counts;
    QByteArray cataloguePath;
    sqlite3 *connection = nullptr;
    sqlite3_vfs *original = nullptr;
    sqlite3_vfs watching = {};
    std::list<WatchedMethods> named; // SQLite keeps pointers to them
    std::list<WatchedMethods> temporary;
};

State *state = nullptr;

const sqlite3_io_methods *originalMethods(const sqlite3_file *file)
{
    return reinterpret_cast<const WatchedMethods *>(file->pMethods)->original;
}

template <qint64 SqliteWatch::Counts::*counter>
int countedWrite(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset)
{
    ++(state->counts.*counter);
    return originalMethods(file)->xWrite(file, bytes, count, offset);
}

int countedTruncate(sqlite3_file *file, sqlite3_int64 size)
{
    ++state->counts.truncations;
    return originalMethods(file)->xTruncate(file, size);
}

const sqlite3_io_methods *watched(const sqlite3_io_methods *original, bool isNamed)
{
    std::list<WatchedMethods> &known = isNamed ? state->named : state->temporary;
    const auto found = std::find_if(known.begin(), known.end(), [original](const WatchedMethods &methods) {
        return methods.original == original;
    });
    if (found != known.end())
        return &found->methods;
    WatchedMethods &added = known.emplace_back(WatchedMethods{*original, original});
    added.methods.xWrite =
        isNamed ? countedWrite<&SqliteWatch::Counts::writes> : countedWrite<&SqliteWatch::Counts::temporaryWrites>;
    if (isNamed)
        added.methods.xTruncate = countedTruncate;
    return &added.methods;
}

int countedOpen(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    SqliteWatch::Counts &counts = state->counts;
    if (name == nullptr) {
        ++counts.temporaryOpens;
    } else {
        if (name == state->cataloguePath)
            ++counts.catalogueOpens;
        else {
            ++counts.otherOpens;
            counts.otherNames.append(QFile::decodeName(name));
        }
        if ((flags & (SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) != 0)
            ++counts.writableOpens;
    }
    const int code = state->original->xOpen(state->original, name, file, flags, outFlags);
    if (code == SQLITE_OK && file->pMethods != nullptr)
        file->pMethods = watched(file->pMethods, name != nullptr);
    return code;
}

int countedDelete(sqlite3_vfs *, const char *name, int syncFolder)
{
    ++state->counts.deletions;
    return state->original->xDelete(state->original, name, syncFolder);
}

void *countedLibrary(sqlite3_vfs *, const char *name)
{
    ++state->counts.libraries;
    return state->original->xDlOpen(state->original, name);
}

int countedAction(void *, int action, const char *table, const char *, const char *, const char *)
{
    SqliteWatch::Counts &counts = state->counts;
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
        ++counts.reads;
        break;
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
        ++counts.attachments;
        break;
    case SQLITE_PRAGMA:
        ++counts.pragmas;
        break;
    case SQLITE_UPDATE:
        if (std::strcmp(table, "sqlite_master") == 0) {
            ++counts.declarations;
            break;
        }
        [[fallthrough]];
    default:
        ++counts.otherActions;
    }
    return SQLITE_OK;
}

/// What the table-valued function of a pragma asks in turn; without a value it changes nothing, but SQLite does not
/// call the question for the journal mode read-only.
bool isPragmaQuestion(const char *text)
{
    return std::strncmp(text, "-- PRAGMA ", 10) == 0 && std::strchr(text, '=') == nullptr;
}

int countedStatement(unsigned, void *, void *statement, void *text)
{
    ++state->counts.statements;
    if (!sqlite3_stmt_readonly(static_cast<sqlite3_stmt *>(statement)) &&
        !isPragmaQuestion(static_cast<const char *>(text)))
        ++state->counts.writingStatements;
    return 0;
}

int watchConnection(sqlite3 *connection, char **, const void *)
{
    state->connection = connection;
    sqlite3_set_authorizer(connection, countedAction, nullptr);
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, countedStatement, nullptr);
}

void (*const entryPoint)() = reinterpret_cast<void (*)()>(watchConnection);

} // namespace

SqliteWatch::SqliteWatch(const QString &cataloguePath)
{
    if (state)
        qFatal("a second watch");
    state = new State;
    state->cataloguePath = QFile::encodeName(cataloguePath);
    state->original = sqlite3_vfs_find(nullptr);
    state->watching = *state->original;
    state->watching.zName = "watching";
    state->watching.pNext = nullptr;
    state->watching.xOpen = countedOpen;
    state->watching.xDelete = countedDelete;
    state->watching.xDlOpen = countedLibrary;
    if (sqlite3_vfs_register(&state->watching, 1) != SQLITE_OK || sqlite3_auto_extension(entryPoint) != SQLITE_OK)
        qFatal("SQLite cannot be watched");
}

SqliteWatch::~SqliteWatch()
{
    sqlite3_cancel_auto_extension(entryPoint);
    sqlite3_vfs_register(state->original, 1);
    sqlite3_vfs_unregister(&state->watching);
    delete state;
    state = nullptr;
}

const SqliteWatch::Counts &SqliteWatch::counts() const
{
    return state->counts;
}

void SqliteWatch::reset()
{
    state->counts = {};
}

int SqliteWatch::attachedDatabases() const
{
    int first = 2; // 0 is the file, 1 the temporary database
    while (sqlite3_db_name(state->connection, first) != nullptr)
        ++first;
    return first - 2;
}

QString SqliteWatch::misdeeds() const
{
    const Counts &counts = state->counts;
    const std::pair<QLatin1StringView, qint64> forbidden[] = {
        {"writing statements"_L1, counts.writingStatements},
        {"attachments asked for"_L1, counts.attachments},
        {"actions that are no reading"_L1, counts.otherActions},
        {"attached databases"_L1, attachedDatabases()},
        {"files opened for writing"_L1, counts.writableOpens},
        {"other files opened"_L1, counts.otherOpens},
        {"temporary files"_L1, counts.temporaryOpens},
        {"writes"_L1, counts.writes + counts.temporaryWrites},
        {"truncations"_L1, counts.truncations},
        {"deletions"_L1, counts.deletions},
        {"shared libraries opened"_L1, counts.libraries},
    };
    QStringList told;
    for (const auto &[what, count] : forbidden) {
        if (count != 0)
            told.append(u"%1 %2"_s.arg(count).arg(what));
    }
    return told.join(u", "_s) + counts.otherNames.join(u' ');
}
