// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <cstdint>

/// What the targets share.
namespace fuzzhost {

/// The application that Qt's driver is loaded through; no message of Qt or of the logger is written.
void start(int *argc, char **argv);

/// Ends every statement of connections that are opened from now on after some steps of SQLite's machine, keeps its
/// values small, and takes the function away by which SQL names an address to call: arguments and files without end,
/// and a stranger's tokenizer, are known limits and not what a target looks for.
void boundStatements();

/// Text from bytes: as UTF-16 where the first byte is 0xFF, so that lone surrogates come too, else as UTF-8.
QString textOf(const std::uint8_t *data, std::size_t size);

/// Ends the process with this message unless it is empty.
void require(const QString &broken);

} // namespace fuzzhost
