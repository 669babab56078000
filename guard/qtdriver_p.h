// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>

struct sqlite3;

/// What the guard has to know of Qt SQL.
namespace ZrSupplyGuard {

/// False when Qt's SQLite driver opens its connections by another copy of SQLite than the guard's, tried with one in
/// memory. True as well where that cannot be tried: before the application object exists, or without a driver.
bool qtDriverIsInReach();

/// The SQLite connection behind an open connection of Qt's, of whatever copy of SQLite, or null.
sqlite3 *qtConnection(const QString &connectionName);

} // namespace ZrSupplyGuard
