// SPDX-License-Identifier: LGPL-2.1-or-later
#include "allowlist_p.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>

namespace ZrSupplyGuard {

namespace {

struct FunctionRow
{
    const char *name;
    int arguments; ///< -1: any number.
};

/// What the library's texts call, and what reads and formats values in a time that grows with their length.
constexpr FunctionRow allowedFunctions[] = {
    {"count", -1}, {"length", 1}, // the library's
    {"abs", 1},    {"avg", 1},    {"char", -1},   {"coalesce", -1},  {"glob", 2},     {"group_concat", -1},
    {"hex", 1},    {"ifnull", 2}, {"iif", -1},    {"like", -1},      {"lower", 1},    {"ltrim", 1},
    {"max", -1},   {"min", -1},   {"nullif", 2},  {"quote", 1},      {"random", 0},   {"round", -1},
    {"rtrim", 1},  {"sign", 1},   {"substr", -1}, {"substring", -1}, {"sum", 1},      {"total", 1},
    {"trim", 1},   {"typeof", 1}, {"unicode", 1}, {"upper", 1},      {"zeroblob", 1},
};

/// Their time grows with the square of a value's length, in one instruction, where no clock is looked at; or they
/// work on what virtual tables keep.
constexpr FunctionRow slowFunctions[] = {
    {"instr", 2},       {"replace", 3},     {"trim", 2},       {"ltrim", 2},       {"rtrim", 2},
    {"json_patch", -1}, {"rtreecheck", -1}, {"rtreenode", -1}, {"rtreedepth", -1}, {"fts3_tokenizer", -1},
};

/// What the preflight asks.
constexpr const char *checkPragmas[] = {"table_xinfo", "quick_check"};

/// Modules that SQLite makes when a statement names them, so that no list shows them before.
constexpr const char *lateModules[] = {"json_each", "json_tree", "jsonb_each", "jsonb_tree"};

template <std::size_t Size>
bool holds(const FunctionRow (&rows)[Size], const char *name, int arguments)
{
    return std::any_of(std::begin(rows), std::end(rows), [=](const FunctionRow &row) {
        return sqlite3_stricmp(row.name, name) == 0 && (row.arguments == -1 || row.arguments == arguments);
    });
}

/// SQLite tells the authorizer a function's name and not how it is called; `refuseOtherFunctions` looks at that.
bool isListedFunction(const char *name)
{
    return std::any_of(std::begin(allowedFunctions), std::end(allowedFunctions),
                       [=](const FunctionRow &row) { return sqlite3_stricmp(row.name, name) == 0; });
}

bool isCheckPragma(const char *name)
{
    return std::any_of(std::begin(checkPragmas), std::end(checkPragmas),
                       [=](const char *listed) { return sqlite3_stricmp(listed, name) == 0; });
}

constexpr const char *refusal = "not available on a guarded connection";

void refuseCall(sqlite3_context *call, int, sqlite3_value **)
{
    sqlite3_result_error(call, refusal, -1);
}

int refuseTable(sqlite3 *, void *, int, const char *const *, sqlite3_vtab **, char **message)
{
    *message = sqlite3_mprintf("%s", refusal);
    return SQLITE_ERROR;
}

/// What SQLite holds as a module of this name it does not make itself.
constexpr sqlite3_module makeClosedModule()
{
    sqlite3_module module = {};
    module.xCreate = refuseTable;
    module.xConnect = refuseTable;
    return module;
}
constexpr sqlite3_module closedModule = makeClosedModule();

/// The rows of a list that SQLite gives about itself, kept in memory of SQLite's: what they describe may be changed
/// while they are looked through.
class List
{
public:
    List(sqlite3 *connection, const char *pragma)
    {
        m_code = sqlite3_get_table(connection, pragma, &m_cells, &m_rows, &m_columns, nullptr);
    }
    ~List() { sqlite3_free_table(m_cells); }
    List(const List &) = delete;
    List &operator=(const List &) = delete;

    /// A list without a row is one that this SQLite does not give.
    int code() const { return m_code == SQLITE_OK && m_rows == 0 ? SQLITE_ERROR : m_code; }

    /// Calls `visit` with the cells of each row until it returns an error.
    template <typename Visit>
    int forEach(Visit visit) const
    {
        int code = this->code();
        for (int row = 1; code == SQLITE_OK && row <= m_rows; ++row) // row 0 holds the columns' names
            code = visit(m_cells + row * m_columns);
        return code;
    }

private:
    char **m_cells = nullptr;
    int m_rows = 0;
    int m_columns = 0;
    int m_code = SQLITE_OK;
};

int encodingOf(const char *name)
{
    if (sqlite3_stricmp(name, "utf16le") == 0)
        return SQLITE_UTF16LE;
    return sqlite3_stricmp(name, "utf16be") == 0 ? SQLITE_UTF16BE : SQLITE_UTF8;
}

int closeModule(sqlite3 *connection, const char *name)
{
    return sqlite3_create_module_v2(connection, name, &closedModule, nullptr, nullptr);
}

} // namespace

bool isAllowed(int action, const char *first, const char *second, Use use)
{
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ: // a column; of what table, `refuseModules` and the switch for views decide
    case SQLITE_RECURSIVE:
    case SQLITE_TRANSACTION: // one that only reads
        return true;
    case SQLITE_FUNCTION:
        return isListedFunction(second);
    case SQLITE_PRAGMA:
        return use == Use::Check && isCheckPragma(first);
    default:
        return false;
    }
}

int refuseOtherFunctions(sqlite3 *connection, Use use)
{
    // Deterministic, so that tables whose definitions call them can be read for what else is in them.
    constexpr int flags = SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    return List(connection, "PRAGMA function_list").forEach([=](char **row) {
        enum { Name = 0, Encoding = 3, Arguments = 4 };
        const int arguments = std::max(std::atoi(row[Arguments]), -1); // below -1: so many or more
        const bool isFine = use == Use::Lookups ? holds(allowedFunctions, row[Name], arguments)
                                                : !holds(slowFunctions, row[Name], arguments);
        if (isFine)
            return SQLITE_OK;
        return sqlite3_create_function_v2(connection, row[Name], arguments, encodingOf(row[Encoding]) | flags,
                                          nullptr, refuseCall, nullptr, nullptr, nullptr);
    });
}

int refuseModules(sqlite3 *connection)
{
    const List modules(connection, "PRAGMA module_list");
    const List pragmas(connection, "PRAGMA pragma_list");
    if (modules.code() != SQLITE_OK || pragmas.code() != SQLITE_OK)
        return SQLITE_ERROR;
    int code = sqlite3_drop_modules(connection, nullptr);
    if (code == SQLITE_OK)
        code = modules.forEach([=](char **row) { return closeModule(connection, row[0]); });
    if (code == SQLITE_OK) {
        code = pragmas.forEach([=](char **row) {
            const std::unique_ptr<char, void (*)(void *)> name(sqlite3_mprintf("pragma_%s", row[0]), sqlite3_free);
            return name ? closeModule(connection, name.get()) : SQLITE_NOMEM;
        });
    }
    for (const char *name : lateModules) {
        if (code == SQLITE_OK)
            code = closeModule(connection, name);
    }
    return code;
}

} // namespace ZrSupplyGuard
