// SPDX-License-Identifier: LGPL-2.1-or-later
#include "text/units.h"

#include <cmath>
#include <numeric>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double mmPerInch = 25.4;
constexpr double inchesPerFoot = 12.0;
constexpr int sixteenthsPerInch = 16;
constexpr double largestWithFractions = 1000.0;

/// The library's unset number.
bool isUnset(double value)
{
    return value == -1.0;
}

} // namespace

QString decimalText(double value, int decimals)
{
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(u'.')) {
        while (text.endsWith(u'0'))
            text.chop(1);
        if (text.endsWith(u'.'))
            text.chop(1);
    }
    return text;
}

QString inchText(double inches)
{
    const double sixteenths = inches * sixteenthsPerInch;
    const bool isFraction =
        std::abs(inches) < largestWithFractions && sixteenths == std::floor(sixteenths) && inches >= 0;
    if (!isFraction)
        return decimalText(inches, 4) + " in"_L1;
    const int whole = int(inches);
    const int part = int(sixteenths) - whole * sixteenthsPerInch;
    if (part == 0)
        return u"%1 in"_s.arg(whole);
    const int divisor = std::gcd(part, sixteenthsPerInch);
    const QString fraction = u"%1/%2 in"_s.arg(part / divisor).arg(sixteenthsPerInch / divisor);
    return whole == 0 ? fraction : u"%1 %2"_s.arg(whole).arg(fraction);
}

QString widthText(double inches, const QString &absent)
{
    return isUnset(inches) ? absent : u"%1 (%2 mm)"_s.arg(inchText(inches), decimalText(inches * mmPerInch, 1));
}

QString lengthText(double inches, const QString &absent)
{
    return isUnset(inches) ? absent
                           : u"%1 in (%2 ft)"_s.arg(decimalText(inches, 4), decimalText(inches / inchesPerFoot, 2));
}

QString numberText(int number, const QString &absent)
{
    return number == -1 ? absent : QString::number(number);
}

QString codeText(int code, const QString &name)
{
    if (code == -1)
        return notKnown;
    return name.isEmpty() ? QString::number(code) : u"%1 %2"_s.arg(QString::number(code), name);
}

QString rgbText(int rgb)
{
    return u"#%1"_s.arg(quint32(rgb) & 0xffffffU, 6, 16, QChar(u'0')).toUpper();
}

} // namespace ZrSupplyKit
