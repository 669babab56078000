// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "text/failure.h"
#include "usekit.h"

#include <QtCore/QByteArray>

#include <optional>

namespace zrsupply {

struct CatalogueTable
{
    QString name;
    QStringList columns;
};

/// The tables and columns that the library reads.
const QList<CatalogueTable> &catalogueTables();

/// The library's own query for the rolls that it offers.
QByteArray offeredRollsQuery();

/// What a catalogue is wanted for.
enum class Use {
    Author, ///< To be read whole by the author's verbs, which cope with what is odd in it.
    Lookups ///< To be asked by the library under guard.
};

/// Why the file cannot serve as a catalogue, and what to do about it; nothing when it can.
///
/// To be asked before the library opens the file: the library answers a failed open with a log record and every
/// failed statement with a default, neither of which tells a person what is wrong.
std::optional<Failure> catalogueProblem(const QString &path, Use use = Use::Author);

} // namespace zrsupply
