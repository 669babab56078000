// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/numbers.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Number>
bool readWhole(QByteArrayView text, Number &number)
{
    const char *const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

/// A comma with three digits behind it is a decimal point for some and stands between thousands for others.
bool isAmbiguous(QByteArrayView text)
{
    const QByteArrayView trimmed = text.trimmed();
    const qsizetype comma = trimmed.lastIndexOf(',');
    return comma >= 0 && trimmed.size() - comma == 4;
}

/// "4" for " 4 ", "4.5" for "4,5": the number that a text was probably meant to be.
std::optional<double> meantNumber(QByteArrayView text)
{
    if (isAmbiguous(text))
        return {};
    const QByteArray repaired = text.toByteArray().trimmed().replace(',', '.');
    double number = 0.0;
    if (readReal(repaired, number))
        return number;
    return {};
}

} // namespace

bool readInteger(QByteArrayView text, qint64 &number)
{
    return readWhole(text, number);
}

bool readReal(QByteArrayView text, double &number)
{
    return readWhole(text, number) && std::isfinite(number);
}

QString integerRemedy(QByteArrayView text)
{
    constexpr double exactlyKept = 9007199254740992.0; // 2 to the power of 53
    const auto meant = meantNumber(text);
    const bool isWhole = meant && *meant == std::floor(*meant);
    if (isWhole && std::abs(*meant) < exactlyKept)
        return u"write %1"_s.arg(qint64(*meant));
    if (isWhole)
        return u"write a number of 64 bits, from -9223372036854775808 to 9223372036854775807"_s;
    if (meant)
        return u"write a number without a fraction"_s;
    return u"write digits and nothing else, or leave the field empty where there is no value"_s;
}

QString realRemedy(QByteArrayView text)
{
    if (const auto meant = meantNumber(text))
        return u"write %1"_s.arg(*meant, 0, 'g', 15);
    return u"write digits with a decimal point, such as 4.0625, or leave the field empty where there is no value"_s;
}

} // namespace zrsupply
