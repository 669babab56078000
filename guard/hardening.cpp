#include "hardening_p.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <iterator>
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

struct FunctionRow
{
    const char *name;
    int arguments; ///< -1: any number.
};

/// Their time grows with the square of a value's length, in one instruction, where no clock is looked at; or they
/// work on what virtual tables keep. They are replaced and not only refused while compiling: a computed column of the
/// file calls them too.
constexpr FunctionRow refusedFunctions[] = {
    {"instr", 2},     {"replace", 3},    {"trim", 2},           {"ltrim", 2},
    {"rtrim", 2},     {"json_patch", 2}, {"rtreecheck", 1},     {"rtreecheck", 2},
    {"rtreenode", 2}, {"rtreedepth", 1}, {"fts3_tokenizer", 1}, {"fts3_tokenizer", 2},
};

struct PragmaRow
{
    const char *name;
    bool mayHaveArgument; ///< The argument only says what is asked about.
};

/// What a pragma can be asked without a change of anything; Qt's driver asks those about tables.
constexpr PragmaRow readingPragmas[] = {
    {"table_info", true},      {"table_xinfo", true},     {"table_list", true},       {"index_list", true},
    {"index_info", true},      {"index_xinfo", true},     {"foreign_key_list", true}, {"application_id", false},
    {"collation_list", false}, {"data_version", false},   {"database_list", false},   {"encoding", false},
    {"freelist_count", false}, {"journal_mode", false},   {"page_count", false},      {"page_size", false},
    {"query_only", false},     {"schema_version", false}, {"temp_store", false},      {"user_version", false},
};

bool isReadingPragma(const char *name, const char *argument)
{
    return std::any_of(std::begin(readingPragmas), std::end(readingPragmas), [=](const PragmaRow &row) {
        return sqlite3_stricmp(row.name, name) == 0 && (row.mayHaveArgument || !argument);
    });
}

/// The clock itself is looked at when the statement has run for a while; most never do. A statement cannot start
/// others: that takes virtual tables or triggers.
int noteStart(unsigned, void *context, void *, void *)
{
    static_cast<Watch *>(context)->isRunning = false;
    return 0;
}

int isOverdue(void *context)
{
    auto *watch = static_cast<Watch *>(context);
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
    switch (action) {
    case SQLITE_SELECT:
        prepareToRead(*static_cast<Watch *>(context));
        return SQLITE_OK;
    case SQLITE_PRAGMA:
        prepareToRead(*static_cast<Watch *>(context));
        return isReadingPragma(first, second) ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
        return SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

void refuse(sqlite3_context *call, int, sqlite3_value **)
{
    sqlite3_result_error(call, "not available on a guarded connection", -1);
}

int setOptions(sqlite3 *connection)
{
    for (const ConfigRow &row : configRows) {
        int now = !row.isOn;
        const int code = sqlite3_db_config(connection, row.option, row.isOn, &now);
        if (code != SQLITE_OK || now != row.isOn)
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

int replaceFunctions(sqlite3 *connection)
{
    // Deterministic, so that tables whose definitions call them can be read for what else is in them.
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const FunctionRow &row : refusedFunctions) {
        const int code = sqlite3_create_function_v2(connection, row.name, row.arguments, flags, nullptr, refuse,
                                                    nullptr, nullptr, nullptr);
        if (code != SQLITE_OK)
            return code;
    }
    return SQLITE_OK;
}

/// SQLite frees what belongs to a function together with the connection: the one place for what lives as long as it.
/// Memory of SQLite's, because nothing may be thrown through it.
Watch *makeWatch(sqlite3 *connection, int milliseconds)
{
    void *memory = sqlite3_malloc64(sizeof(Watch));
    if (!memory)
        return nullptr;
    auto *watch = new (memory) Watch;
    watch->connection = connection;
    watch->longest = std::chrono::milliseconds(milliseconds);
    watch->lockMilliseconds = milliseconds;
    static_assert(std::is_trivially_destructible_v<Watch>);
    const int code = sqlite3_create_function_v2(connection, "zrsupplyguard", 0, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                                watch, refuse, nullptr, nullptr, sqlite3_free);
    return code == SQLITE_OK ? watch : nullptr; // otherwise SQLite has freed it
}

} // namespace

int harden(sqlite3 *connection, const Limits &limits)
{
    setLimits(connection, limits);
    if (const int code = setOptions(connection); code != SQLITE_OK)
        return code;
    if (const int code = replaceFunctions(connection); code != SQLITE_OK)
        return code;
    // All modules: a table of the file that is virtual can then not be read, nor one be made.
    if (const int code = sqlite3_drop_modules(connection, nullptr); code != SQLITE_OK)
        return code;

    Watch *watch = makeWatch(connection, limits.statementMilliseconds);
    if (!watch)
        return SQLITE_NOMEM;
    if (limits.statementMilliseconds > 0) {
        if (const int code = sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, noteStart, watch); code != SQLITE_OK)
            return code;
        sqlite3_progress_handler(connection, stepsBetweenLooks, isOverdue, watch);
    }
    return sqlite3_set_authorizer(connection, authorize, watch);
}

} // namespace ZrSupplyGuard
