// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/remaining.h"

#include <QtCore/QLocale>

#include <algorithm>
#include <cmath>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

Remaining::Level levelOf(double fraction)
{
    // The library says exactly -1.0; a fraction below 0 is a roll that ran beyond its end.
    if (fraction == -1.0 || std::isnan(fraction))
        return Remaining::Level::Unknown;
    if (fraction <= 0.0)
        return Remaining::Level::Empty;
    if (fraction <= Remaining::lowFraction)
        return Remaining::Level::Low;
    return fraction < Remaining::fullFraction ? Remaining::Level::Partial : Remaining::Level::Full;
}

} // namespace

Remaining::Remaining(double fraction)
    : m_fraction(fraction)
    , m_level(levelOf(fraction))
{
}

double Remaining::share() const
{
    return m_level == Level::Unknown ? 0.0 : std::clamp(m_fraction, 0.0, 1.0);
}

QString Remaining::word() const
{
    switch (m_level) {
    case Level::Unknown:
        return tr("No reading");
    case Level::Empty:
        return tr("Empty");
    case Level::Low:
        return tr("Low");
    case Level::Partial:
        return tr("In use");
    case Level::Full:
        return tr("Full");
    }
    return {};
}

QString Remaining::percent() const
{
    if (m_level == Level::Unknown)
        return u"–"_s;
    // A trifle below nothing is not told as -0.
    const double percent = std::abs(m_fraction) < 0.005 && m_fraction < 0.0 ? 0.0 : m_fraction * 100.0;
    // What is left is not rounded away, and what is used up is not rounded to something.
    if (m_level == Level::Low && percent < 0.1)
        return tr("under 0.1 %");
    const bool fine = m_level == Level::Low && percent < 1.0;
    return tr("%1 %").arg(QLocale().toString(percent, 'f', fine ? 1 : 0));
}

} // namespace panel
