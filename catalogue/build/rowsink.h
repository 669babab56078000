// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/database.h"
#include "build/schema.h"

namespace zrsupply {

/// Takes the rows of a catalogue, table by table in the order of `SourceSchema::tables()`.
class RowSink
{
public:
    RowSink() = default;
    virtual ~RowSink() = default;
    RowSink(const RowSink &) = delete;
    RowSink &operator=(const RowSink &) = delete;

    virtual void beginTable(const SourceTable &table) = 0;
    /// One value per column. False when the table has a row of this key already.
    virtual bool addRow(const Row &row) = 0;
    virtual void endTable() = 0;
};

} // namespace zrsupply
