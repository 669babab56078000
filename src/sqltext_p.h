// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cataloguesql_p.h"

#include <QtCore/QString>

#include <array>

namespace sql {

/// Whether every `%` of `statement` begins one of the marks %1, %2 and %3, and these begin at %1 without a gap:
/// `QString::arg()` would close it.
constexpr bool hasOnlyMarks(QLatin1StringView statement)
{
    bool has1 = false, has2 = false, has3 = false;
    for (qsizetype i = 0; i < statement.size(); ++i) {
        if (statement.data()[i] != '%')
            continue;
        switch (++i < statement.size() ? statement.data()[i] : '%') {
        case '1':
            has1 = true;
            break;
        case '2':
            has2 = true;
            break;
        case '3':
            has3 = true;
            break;
        default:
            return false;
        }
    }
    return (has1 || !has2) && (has2 || !has3);
}
static_assert(hasOnlyMarks(""_L1) && hasOnlyMarks("%1"_L1) && hasOnlyMarks("%2,%1"_L1) && hasOnlyMarks("%3%1%2"_L1));
static_assert(!hasOnlyMarks("%"_L1) && !hasOnlyMarks("%4"_L1) && !hasOnlyMarks("%2"_L1) && !hasOnlyMarks("%1%3"_L1));

constexpr bool allHaveOnlyMarks()
{
    for (const QLatin1StringView statement : allStatements) {
        // cppcheck-suppress useStlAlgorithm ; the algorithms are constexpr from C++20 on
        if (!hasOnlyMarks(statement))
            return false;
    }
    return true;
}
static_assert(allHaveOnlyMarks());

/// `statement` with its marks filled in jointly, as `statement.arg(values...)` does it, but in one allocation and
/// without a search for other forms of marks. A mark without a value stays.
template <typename... Values>
QString filled(QLatin1StringView statement, const Values &...values)
{
    const std::array<const QString *, sizeof...(Values)> list = {&values...};
    QString text;
    text.reserve(statement.size() + (values.size() + ...));
    qsizetype copied = 0;
    for (qsizetype mark = statement.indexOf('%'_L1); mark >= 0; mark = statement.indexOf('%'_L1, mark + 1)) {
        const auto number = size_t(statement[mark + 1].toLatin1() - '1');
        if (number >= list.size())
            continue;
        text.append(statement.sliced(copied, mark - copied)).append(*list[number]);
        copied = mark + 2;
    }
    return text.append(statement.sliced(copied));
}

} // namespace sql
