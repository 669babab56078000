// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

/// The rows of tests/data/`name`, a file of tab-separated columns with a heading line, which is left out. Ends the
/// program if the file cannot be read or a row has another number of columns.
QList<QStringList> dataTable(const char *name, qsizetype columns);
