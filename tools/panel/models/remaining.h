// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

namespace panel {

/// How much of a supply is left, as a person is told it.
///
/// The library's fraction is -1.0 when it is not known, and otherwise neither cut off at 0 nor at 1.
class Remaining
{
    Q_DECLARE_TR_FUNCTIONS(Remaining)
public:
    enum class Level { Unknown, Empty, Low, Partial, Full };

    static constexpr double lowFraction = 0.1;    ///< Up to here a supply is low.
    static constexpr double fullFraction = 0.995; ///< From here on it rounds to full.

    explicit Remaining(double fraction = -1.0);

    Level level() const { return m_level; }
    /// 0 to 1, for drawing; 0 when it is not known.
    double share() const;
    /// "Low"
    QString word() const;
    /// "8 %"; a dash when it is not known. What lies outside 0 and 100 is told as it is.
    QString percent() const;

private:
    double m_fraction;
    Level m_level;
};

} // namespace panel
