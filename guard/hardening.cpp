// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hardening_p.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <mutex>
#include <new>
#include <type_traits>
#include <utility>

namespace ZrSupplyGuard {

namespace {

using Clock = std::chrono::steady_clock;

/// Instructions between two looks at the clock: a look costs as much as two instructions, and an instruction that
/// handles a value of the greatest length takes up to milliseconds.
constexpr int stepsBetweenLooks = 100;

/// What is kept for one connection, for as long as SQLite keeps it.
struct Watch
{
    sqlite3 *connection = nullptr;
    Watch *next = nullptr; ///< Of those that are open.
    Limits limits;
    Use use = Use::Lookups;
    // While the guard looks whether it is still in charge: what was called, and that the clock is to end a statement.
    bool isTried = false;
    bool wasAuthorized = false;
    bool wasStarted = false;
    bool wasLookedAt = false;
    bool isRunning = false; ///< Since the last start the clock was looked at, and said `started`.
    Clock::time_point started;
    Clock::duration longest;
    int lockMilliseconds = 0; ///< 0 once SQLite knows.
};

struct ConfigRow
{
    int option;
    int isOn;
};

constexpr ConfigRow configRows[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
    {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0},
    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
};

struct LimitRow
{
    int category;
    int Limits::*limit;
};

constexpr LimitRow limitRows[] = {
    {SQLITE_LIMIT_LENGTH, &Limits::valueBytes},
    {SQLITE_LIMIT_SQL_LENGTH, &Limits::statementBytes},
    {SQLITE_LIMIT_COMPOUND_SELECT, &Limits::compoundSelects},
    {SQLITE_LIMIT_EXPR_DEPTH, &Limits::expressionDepth},
    {SQLITE_LIMIT_VDBE_OP, &Limits::programSteps},
    {SQLITE_LIMIT_COLUMN, &Limits::columns},
    {SQLITE_LIMIT_FUNCTION_ARG, &Limits::functionArguments},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, &Limits::patternBytes},
    {SQLITE_LIMIT_VARIABLE_NUMBER, &Limits::boundValues},
};

/// Nothing that only reads has a use for any of these.
constexpr int closedCategories[] = {SQLITE_LIMIT_ATTACHED, SQLITE_LIMIT_TRIGGER_DEPTH, SQLITE_LIMIT_WORKER_THREADS};

/// The clock itself is looked at when the statement has run for a while; most never do. A statement cannot start
/// others: that takes virtual tables or triggers.
int noteStart(unsigned, void *context, void *, void *)
{
    auto *watch = static_cast<Watch *>(context);
    watch->isRunning = false;
    watch->wasStarted = true;
    return 0;
}

int isOverdue(void *context)
{
    auto *watch = static_cast<Watch *>(context);
    watch->wasLookedAt = true;
    if (watch->isTried)
        return 1;
    const Clock::time_point now = Clock::now();
    if (!std::exchange(watch->isRunning, true))
        watch->started = now;
    return now - watch->started > watch->longest;
}

/// What comes before SQLite reads the tables' definitions, a statement of its own that is not told of, and before it
/// takes the lock for that.
void prepareToRead(Watch &watch)
{
    watch.isRunning = false;
    // Qt sets a wait of five seconds right after opening.
    if (watch.lockMilliseconds > 0)
        sqlite3_busy_timeout(watch.connection, std::exchange(watch.lockMilliseconds, 0));
}

int authorize(void *context, int action, const char *first, const char *second, const char *, const char *)
{
    auto *watch = static_cast<Watch *>(context);
    watch->wasAuthorized = true;
    if (action == SQLITE_SELECT || action == SQLITE_PRAGMA)
        prepareToRead(*watch);
    return isAllowed(action, first, second, watch->use) ? SQLITE_OK : SQLITE_DENY;
}

int refuseEverything(void *, int, const char *, const char *, const char *, const char *)
{
    return SQLITE_DENY;
}

bool hasOption(sqlite3 *connection, const ConfigRow &row)
{
    int now = !row.isOn;
    return sqlite3_db_config(connection, row.option, -1, &now) == SQLITE_OK && now == row.isOn;
}

int setOptions(sqlite3 *connection)
{
    for (const ConfigRow &row : configRows) {
        const int code = sqlite3_db_config(connection, row.option, row.isOn, nullptr);
        if (code != SQLITE_OK || !hasOption(connection, row))
            return SQLITE_ERROR;
    }
    return sqlite3_exec(connection, "PRAGMA temp_store=MEMORY; PRAGMA mmap_size=0; PRAGMA cell_size_check=ON",
                        nullptr, nullptr, nullptr);
}

void setLimits(sqlite3 *connection, const Limits &limits)
{
    for (const LimitRow &row : limitRows) {
        if (limits.*row.limit > 0)
            sqlite3_limit(connection, row.category, limits.*row.limit);
    }
    for (const int category : closedCategories)
        sqlite3_limit(connection, category, 0);
}

bool hasLimits(sqlite3 *connection, const Limits &limits)
{
    const auto now = [connection](int category) { return sqlite3_limit(connection, category, -1); };
    return std::all_of(std::begin(limitRows), std::end(limitRows),
                       [&](const LimitRow &row) {
                           const int wanted = limits.*row.limit;
                           return wanted <= 0 || now(row.category) <= wanted;
                       }) &&
           std::all_of(std::begin(closedCategories), std::end(closedCategories),
                       [&](int category) { return now(category) == 0; });
}

/// The connections that are hardened. Nothing else may be asked of an address: that of a connection of another copy
/// of SQLite means nothing to this one.
struct Hardened
{
    std::mutex mutex;
    Watch *first = nullptr;
};

/// Never destroyed: connections may be closed while the process ends.
Hardened &hardened()
{
    static auto *const only = new Hardened;
    return *only;
}

Watch *watchOf(const sqlite3 *connection)
{
    const std::lock_guard lock(hardened().mutex);
    Watch *watch = hardened().first;
    while (watch && watch->connection != connection)
        watch = watch->next;
    return watch;
}

void forget(void *memory)
{
    auto *gone = static_cast<Watch *>(memory);
    {
        const std::lock_guard lock(hardened().mutex);
        Watch **link = &hardened().first;
        while (*link && *link != gone)
            link = &(*link)->next;
        if (*link)
            *link = gone->next;
    }
    sqlite3_free(gone);
}

void refuseCall(sqlite3_context *call, int, sqlite3_value **)
{
    sqlite3_result_error(call, "not available on a guarded connection", -1);
}

/// SQLite frees what belongs to a function together with the connection: the one place for what lives as long as it.
/// Memory of SQLite's, because nothing may be thrown through it.
Watch *makeWatch(sqlite3 *connection, const Limits &limits, Use use)
{
    void *memory = sqlite3_malloc64(sizeof(Watch));
    if (!memory)
        return nullptr;
    auto *watch = new (memory) Watch;
    watch->connection = connection;
    watch->limits = limits;
    watch->use = use;
    watch->longest = std::chrono::milliseconds(limits.statementMilliseconds);
    watch->lockMilliseconds = limits.statementMilliseconds;
    static_assert(std::is_trivially_destructible_v<Watch>);
    const int code = sqlite3_create_function_v2(connection, "zrsupplyguard", 0, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                                watch, refuseCall, nullptr, nullptr, forget);
    return code == SQLITE_OK ? watch : nullptr; // otherwise SQLite has freed it
}

int hardenWhole(sqlite3 *connection, const Limits &limits, Use use)
{
    setLimits(connection, limits);
    if (const int code = setOptions(connection); code != SQLITE_OK)
        return code;
    if (const int code = refuseOtherFunctions(connection, use); code != SQLITE_OK)
        return code;
    if (const int code = refuseModules(connection); code != SQLITE_OK)
        return code;

    Watch *watch = makeWatch(connection, limits, use);
    if (!watch)
        return SQLITE_NOMEM;
    if (limits.statementMilliseconds > 0) {
        if (const int code = sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, noteStart, watch); code != SQLITE_OK)
            return code;
        sqlite3_progress_handler(connection, stepsBetweenLooks, isOverdue, watch);
    }
    if (const int code = sqlite3_set_authorizer(connection, authorize, watch); code != SQLITE_OK)
        return code;

    const std::lock_guard lock(hardened().mutex);
    watch->next = hardened().first;
    hardened().first = watch;
    return SQLITE_OK;
}

/// What compiling and running a text comes to.
int run(sqlite3 *connection, const char *sql)
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
}

} // namespace

int harden(sqlite3 *connection, const Limits &limits, Use use)
{
    const int code = hardenWhole(connection, limits, use);
    // Opening fails then; whoever goes on with what is left of the connection gets nothing from it.
    if (code != SQLITE_OK)
        sqlite3_set_authorizer(connection, refuseEverything, nullptr);
    return code;
}

bool isHardened(sqlite3 *connection)
{
    Watch *watch = watchOf(connection);
    if (!watch || !hasLimits(connection, watch->limits) ||
        !std::all_of(std::begin(configRows), std::end(configRows),
                     [=](const ConfigRow &row) { return hasOption(connection, row); }))
        return false;

    // SQLite tells neither the authorizer nor the clock of a connection, so both are tried. Neither text reads the
    // file.
    watch->wasAuthorized = false;
    if (run(connection, "PRAGMA user_version") != SQLITE_AUTH || !watch->wasAuthorized)
        return false;
    if (watch->limits.statementMilliseconds <= 0)
        return true;
    sqlite3_stmt *trial = nullptr;
    const int compiled =
        sqlite3_prepare_v2(connection,
                           "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n LIMIT 1000)"
                           " SELECT count(*) FROM n",
                           -1, &trial, nullptr);
    // Newer SQLites look at the clock while they compile as well, before the statement starts.
    watch->wasStarted = watch->wasLookedAt = false;
    watch->isTried = true;
    const int ended = compiled == SQLITE_OK ? sqlite3_step(trial) : compiled;
    watch->isTried = false;
    sqlite3_finalize(trial);
    return ended == SQLITE_INTERRUPT && watch->wasStarted && watch->wasLookedAt;
}

} // namespace ZrSupplyGuard
