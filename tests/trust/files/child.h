// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// What the program trust_child does, one function a verb. It asks the library about files that may end it, so that
/// the test that started it is told instead of ended.
namespace child {

/// Paths come as hexadecimal UTF-8: an argument could not hold a zero byte.
inline QString pathOf(const QString &hexadecimal)
{
    return QString::fromUtf8(QByteArray::fromHex(hexadecimal.toLatin1()));
}

/// A line that the test reads at once, also when the process ends right afterwards.
[[gnu::format(printf, 1, 2)]] void tell(const char *format, ...);

/// The most memory that the process has had, in KiB.
long peakKibibytes();

/// PATH: opens the catalogue and answers the commands `setup`, `ask` and `ask STATEMENT…` from the standard input.
int serve(const QStringList &arguments);
/// PATH: holds an exclusive lock on the file until the standard input ends.
int hold(const QStringList &arguments);
/// PATH: leaves a journal beside the file, as a writer does that loses its power in the middle of a transaction.
int leaveJournal(const QStringList &arguments);
/// PATH FIRST STEP: asks everything of damaged copies of the file, every STEP-th of all damages from FIRST on.
int damage(const QStringList &arguments);
/// PATH once|forever FIRST STEP: asks everything while the n-th operation on the file fails, for every STEP-th n.
int failFiles(const QStringList &arguments);
/// The same for the n-th allocation of SQLite.
int failMemory(const QStringList &arguments);

} // namespace child
