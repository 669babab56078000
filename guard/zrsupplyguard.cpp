// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplyguard.h"

#include "fileidentity_p.h"
#include "hardening_p.h"
#include "qtdriver_p.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <sqlite3.h>

#include <algorithm>
#include <mutex>
#include <optional>

#include <sys/stat.h>

namespace ZrSupplyGuard {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Settings
{
    QByteArray path; ///< Absolute, as the system encodes it; empty for all files.
    Limits limits;
};

/// Bounds on SQLite's memory as they were before the first `install()`.
struct HeapBounds
{
    // cppcheck-suppress unusedStructMember ; it is read through an optional
    qint64 soft;
    qint64 hard;
};

struct State
{
    std::mutex mutex;
    std::optional<Settings> settings;
    std::optional<HeapBounds> bounds;
};

/// Never destroyed: connections may be opened while the process ends.
State &state()
{
    static auto *const only = new State;
    return *only;
}

bool isSameFile(const char *opened, const QByteArray &wanted)
{
    if (!opened || *opened == '\0')
        return false; // in memory, or temporary
    if (wanted == opened)
        return true;
    struct stat a = {};
    struct stat b = {};
    return ::stat(opened, &a) == 0 && ::stat(wanted.constData(), &b) == 0 && isSame(a, b);
}

bool isMeant(sqlite3 *connection, const Settings &settings)
{
    if (!settings.limits.writableToo && sqlite3_db_readonly(connection, "main") != 1)
        return false;
    return settings.path.isEmpty() || isSameFile(sqlite3_db_filename(connection, "main"), settings.path);
}

/// SQLite calls this for every connection when it is opened. Any other answer than SQLITE_OK makes opening fail: a
/// connection that should be guarded and cannot be is not to be had.
int onOpened(sqlite3 *connection, char **, const void *)
{
    std::optional<Settings> settings;
    {
        const std::lock_guard lock(state().mutex);
        settings = state().settings;
    }
    if (!settings || !isMeant(connection, *settings))
        return SQLITE_OK;
    return harden(connection, settings->limits, Use::Lookups);
}

using EntryPoint = void (*)();

/// The type that SQLite gives entry points, whatever they take.
EntryPoint entryPoint()
{
    return reinterpret_cast<EntryPoint>(onOpened);
}

void restoreHeap(State &held)
{
    if (!held.bounds)
        return;
    sqlite3_hard_heap_limit64(held.bounds->hard);
    sqlite3_soft_heap_limit64(held.bounds->soft);
    held.bounds.reset();
}

void boundHeap(State &held, qint64 bytes)
{
    restoreHeap(held);
    const HeapBounds before = {sqlite3_soft_heap_limit64(-1), sqlite3_hard_heap_limit64(-1)};
    if (bytes <= 0 || (before.hard > 0 && before.hard <= bytes))
        return;
    held.bounds = before;
    sqlite3_hard_heap_limit64(bytes);
}

} // namespace

bool install(const QString &onlyThisFile, const Limits &limits)
{
    const bool isInReach = qtDriverIsInReach(); // opens a connection, so the lock comes after it
    State &held = state();
    const std::lock_guard lock(held.mutex);
    held.settings.reset();
    if (!isInReach || onlyThisFile.startsWith("file:"_L1, Qt::CaseInsensitive) ||
        sqlite3_auto_extension(entryPoint()) != SQLITE_OK) {
        restoreHeap(held);
        return false;
    }
    QByteArray path;
    if (!onlyThisFile.isEmpty())
        path = QFile::encodeName(QDir::cleanPath(QDir::current().absoluteFilePath(onlyThisFile)));
    held.settings = Settings{path, limits};
    boundHeap(held, limits.processHeapBytes);
    return true;
}

void remove()
{
    State &held = state();
    const std::lock_guard lock(held.mutex);
    sqlite3_cancel_auto_extension(entryPoint());
    held.settings.reset();
    restoreHeap(held);
}

bool isGuarding(const QString &connectionName)
{
    sqlite3 *const connection = qtConnection(connectionName);
    return connection && isHardened(connection);
}

} // namespace ZrSupplyGuard
