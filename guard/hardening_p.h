#pragma once

#include "zrsupplyguard.h"

struct sqlite3;

namespace ZrSupplyGuard {

/// Hardens an open connection for good. What is needed for it is freed with the connection. Returns an SQLite result
/// code; anything but SQLITE_OK leaves the connection half done, to be closed.
int harden(sqlite3 *connection, const Limits &limits);

} // namespace ZrSupplyGuard
