// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/// SQLite's way to files with faults on purpose: the default one of the process from `install` on.
namespace FaultyVfs {

void install();

/// From now on the n-th operation (from 1 on) fails, and all that follow it where `always`. 0: none fails.
void failAt(long n, bool always);
/// Operations since `failAt`.
long count();

} // namespace FaultyVfs

/// SQLite's allocator with faults on purpose. `install` comes before the first use of SQLite.
namespace FaultyMemory {

bool install();
void failAt(long n, bool always);
long count();

} // namespace FaultyMemory
