// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QStringList>

namespace zrsupply {

/// Insertions, deletions, replacements and swaps of neighbours that make `a` into `b`, whatever their case.
qsizetype editDistance(const QString &a, const QString &b);

/// The entries of `candidates` that `word` may be a misspelling of, nearest first, at most `most`.
QStringList nearest(const QString &word, const QStringList &candidates, qsizetype most = 3);

/// "a", "a or b", "a, b or c".
QString orList(const QStringList &words);

} // namespace zrsupply
