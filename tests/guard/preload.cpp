// SPDX-License-Identifier: LGPL-2.1-or-later
#include <zrsupplyguard.h>

#include <cstdlib>

namespace {

/// Linked into a test of the library, it puts every catalogue of that test under guard before anything else happens.
const struct GuardFromTheStart
{
    GuardFromTheStart()
    {
        if (!ZrSupplyGuard::install())
            std::abort();
    }
} guard;

} // namespace
