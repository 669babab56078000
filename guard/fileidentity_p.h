// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <sys/stat.h>

namespace ZrSupplyGuard {

/// Whether both are the same file: a file's number is its own on its device alone.
inline bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace ZrSupplyGuard
