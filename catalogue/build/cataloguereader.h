// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/progress.h"
#include "build/rowsink.h"

namespace zrsupply {

/// Reads a whole catalogue, every table sorted by its key, without what the build adds to meta. A catalogue without a
/// table meta, which the library does not read, is read as one with an empty table.
void readCatalogue(const Database &database, RowSink &sink, Progress &progress);

/// The checksum that a catalogue says its sources had, empty when it does not say.
QString promisedChecksum(const Database &database);

} // namespace zrsupply
