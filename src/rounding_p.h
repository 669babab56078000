// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QVariant>
#include <QtCore/QtGlobal>

#include <cmath>

/// Whether `value` rounded to the nearest whole number, halves away from zero, is `whole`. A value that no int holds
/// is told apart before it is rounded, where the conversion would be undefined; NaN rounds to nothing.
inline bool roundsTo(double value, int whole)
{
    return std::abs(value - whole) <= 1.0 && qRound(value) == whole;
}

/// What Qt makes an int of, with 0 for a real number that 64 bits cannot hold: Qt leaves that conversion to the
/// processor, which answers 0, 1 or -1. `isNumber` is true for such a number, as it is in Qt.
inline int toInt(const QVariant &value, bool *isNumber = nullptr)
{
    constexpr double limit = 9223372036854775808.0; // 2^63, the first real number above the 64-bit integers
    if (value.typeId() == QMetaType::Double) {
        const double real = value.toDouble();
        if (!(real >= -limit && real < limit)) { // also NaN
            if (isNumber)
                *isNumber = true;
            return 0;
        }
    }
    return value.toInt(isNumber);
}
