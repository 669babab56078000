// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplyguard.h"

#include <optional>

/// The two halves of a preflight. Nothing is found where all is well.
namespace ZrSupplyGuard {

using Problem = std::optional<Preflight>;

/// What the file system and the first hundred bytes say. SQLite is not asked.
Problem fileProblem(const QString &path);
/// What SQLite says of a file that `fileProblem` finds nothing in.
Problem databaseProblem(const QString &path, Depth depth);

/// What both halves may come upon: the version stands in the header and in a table.
Preflight unknownVersion(const QString &path, const QString &version);

inline const QString rebuildAdvice =
    QStringLiteral("build it again from its sources (zrsupply catalogue build), or take another copy");

} // namespace ZrSupplyGuard
