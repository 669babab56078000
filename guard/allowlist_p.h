// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

struct sqlite3;

namespace ZrSupplyGuard {

/// Who runs statements on a hardened connection.
enum class Use {
    Lookups, ///< The library and its host.
    Check    ///< The preflight: two pragmas, and the file's own constraints may call any function but slow ones.
};

/// Whether a statement may do this, as SQLite's authorizer names it. What is not listed is refused.
bool isAllowed(int action, const char *first, const char *second, Use use);

/// Replaces each function of this SQLite that is not listed by one that fails: an expression of the file calls
/// functions without the authorizer. Fails where SQLite cannot list its functions.
int refuseOtherFunctions(sqlite3 *connection, Use use);

/// Takes away all virtual tables and table-valued functions, those that SQLite makes at their first use as well.
int refuseModules(sqlite3 *connection);

} // namespace ZrSupplyGuard
