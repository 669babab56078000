// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "catalogues.h"
#include "ways.h"

#include <zrsupplydatabase.h>

#include <functional>

/// One keyed statement of the library: how a host asks it, and the texts that the question comes down to.
struct KeyedLookup
{
    const char *name;
    /// The texts of the n-th question.
    std::function<Question(const Catalogue &, size_t n)> texts;
    /// The n-th question, through the library.
    std::function<void(ZrSupplyDatabase &, const Catalogue &, size_t n)> ask;
};

/// All 39 of them. Each question issues exactly the texts of its row, which bench_lookups verifies before it
/// measures.
const std::vector<KeyedLookup> &keyedLookups();
