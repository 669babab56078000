#pragma once

#include <QtCore/QtGlobal>

#include <cmath>

/// Whether `value` rounded to the nearest whole number, halves away from zero, is `whole`. A value that no int holds
/// is told apart before it is rounded, where the conversion would be undefined; NaN rounds to nothing.
inline bool roundsTo(double value, int whole)
{
    return std::abs(value - whole) <= 1.0 && qRound(value) == whole;
}
