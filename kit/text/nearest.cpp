// SPDX-License-Identifier: LGPL-2.1-or-later
#include "text/nearest.h"

#include <algorithm>
#include <vector>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

qsizetype editDistance(const QString &a, const QString &b)
{
    const QString from = a.toCaseFolded();
    const QString to = b.toCaseFolded();
    const auto columns = size_t(to.size()) + 1;
    std::vector<qsizetype> beforeLast(columns);
    std::vector<qsizetype> last(columns);
    std::vector<qsizetype> current(columns);
    for (size_t column = 0; column < columns; ++column)
        last[column] = qsizetype(column);

    for (qsizetype row = 1; row <= from.size(); ++row) {
        current[0] = row;
        for (size_t column = 1; column < columns; ++column) {
            const auto right = qsizetype(column);
            const bool same = from[row - 1] == to[right - 1];
            current[column] =
                std::min({last[column] + 1, current[column - 1] + 1, last[column - 1] + (same ? 0 : 1)});
            const bool swapped =
                row > 1 && right > 1 && from[row - 1] == to[right - 2] && from[row - 2] == to[right - 1];
            if (swapped)
                current[column] = std::min(current[column], beforeLast[column - 2] + 1);
        }
        beforeLast.swap(last);
        last.swap(current);
    }
    return last[columns - 1];
}

QStringList nearest(const QString &word, const QStringList &candidates, qsizetype most)
{
    struct Match
    {
        qsizetype distance;
        QString text;
    };
    // A third of the letters may be wrong; what begins with the word is offered too.
    const qsizetype limit = std::max<qsizetype>(2, word.size() / 3);
    std::vector<Match> matches;
    for (const QString &candidate : candidates) {
        // The lengths alone tell most candidates apart, which matters for a catalogue of a million rolls.
        const bool prefix = !word.isEmpty() && candidate.startsWith(word, Qt::CaseInsensitive);
        if (!prefix && std::abs(candidate.size() - word.size()) > limit)
            continue;
        const qsizetype edits = editDistance(word, candidate);
        const qsizetype distance = prefix ? std::min<qsizetype>(edits, 1) : edits;
        if (distance <= limit && distance < std::max(word.size(), candidate.size()))
            matches.push_back({distance, candidate});
    }
    std::stable_sort(matches.begin(), matches.end(),
                     [](const Match &a, const Match &b) { return a.distance < b.distance; });
    QStringList texts;
    for (const Match &match : matches) {
        // Far worse than the best is no help.
        if (texts.size() == most || match.distance > matches.front().distance + 1)
            break;
        texts.append(match.text);
    }
    return texts;
}

QString orList(const QStringList &words)
{
    if (words.size() < 2)
        return words.join(QString());
    return words.mid(0, words.size() - 1).join(", "_L1) + " or "_L1 + words.last();
}

} // namespace ZrSupplyKit
