// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/rowsink.h"

namespace zrsupply {

struct GeneratorSettings
{
    static constexpr int mostRolls = 1000000;
    static constexpr int mostRibbons = 100000;
    static constexpr int mostLanguages = 100;

    qint64 rolls = 1000;
    int ribbons = 30;
    int languages = 6;
    quint64 seed = 1;
};

/// Gives the rows of an invented catalogue to `sink`. The same settings give the same rows. Nothing is kept in
/// memory: every row follows from its number, so that a million of them cost no more than one.
void generateCatalogue(const GeneratorSettings &settings, RowSink &sink);

} // namespace zrsupply
