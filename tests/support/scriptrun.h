// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>

/// Runs a script of SQL on a file as the sqlite3 shell would: whole, triggers and comments included. What it
/// complains about, empty when it ran.
QString runScript(const QString &file, const QString &script);

/// A copy of the sample catalogue at `path`.
void copySample(const QString &path);
