// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QStringList>

namespace ZrSupplyKit {

/// Insertions, deletions, replacements and swaps of neighbours that make `a` into `b`, whatever their case.
ZRSUPPLYKIT_EXPORT qsizetype editDistance(const QString &a, const QString &b);

/// The entries of `candidates` that `word` may be a misspelling of, nearest first, at most `most`.
ZRSUPPLYKIT_EXPORT QStringList nearest(const QString &word, const QStringList &candidates, qsizetype most = 3);

/// "a", "a or b", "a, b or c".
ZRSUPPLYKIT_EXPORT QString orList(const QStringList &words);

} // namespace ZrSupplyKit
