// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "allowlist_p.h"
#include "zrsupplyguard.h"

struct sqlite3;

namespace ZrSupplyGuard {

/// Hardens an open connection for good. What is needed for it is freed with the connection. Returns an SQLite result
/// code; anything but SQLITE_OK leaves a connection that runs nothing, to be closed.
int harden(sqlite3 *connection, const Limits &limits, Use use);

/// Whether `harden()` has succeeded on the connection and its limits, options, authorizer and clock are in force
/// still. Called in the thread that uses the connection; any other address than that of an open one is answered with
/// false.
bool isHardened(sqlite3 *connection);

} // namespace ZrSupplyGuard
