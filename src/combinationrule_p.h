// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "supplyconstants_p.h"

#include <array>

/// Whether two ribbons suit a roll: the rule alone, without a lookup, a signal or a text. The check reads the values
/// and announces the result, the kit tells its reasons.
namespace supply {

/// What the rule reads of a ribbon, as the lookups answer it.
struct RibbonOnRoll
{
    bool isMissing = true;
    bool isSpecial = false; ///< `isSpecialRibbon()`
    int heat = unsetInt;    ///< Of the first panel on the roll's material.
    double widthInches = unsetReal;
};

/// What the rule finds of a ribbon.
struct RibbonObjections
{
    bool hasNoHeat = false;
    bool isTooNarrow = false;
    bool isWaived = false;        ///< A special ribbon is not judged by its heat and its width ...
    bool isSecondSpecial = false; ///< ... but two of them are no pair.

    bool isBad() const { return isWaived ? isSecondSpecial : hasNoHeat || isTooNarrow; }
};

/// Deliberate: a missing ribbon, whose width lookup answers -1.0, is narrow.
inline bool isNarrowRibbon(double widthInches)
{
    return widthInches < narrowRibbonInches;
}

inline bool isWideRoll(double widthInches)
{
    return widthInches > wideRollInches;
}

inline std::array<RibbonObjections, 2> combinationObjections(const std::array<RibbonOnRoll, 2> &ribbons,
                                                             double rollWidthInches)
{
    std::array<RibbonObjections, 2> objections;
    for (size_t i = 0; i < ribbons.size(); ++i) {
        const RibbonOnRoll &ribbon = ribbons[i];
        objections[i].hasNoHeat = !ribbon.isMissing && ribbon.heat <= 0;
        objections[i].isTooNarrow = isWideRoll(rollWidthInches) && isNarrowRibbon(ribbon.widthInches);
        // Deliberate: a special ribbon clears itself in either place, but two of them together are an invalid pair.
        objections[i].isWaived = ribbon.isSpecial;
        objections[i].isSecondSpecial = ribbon.isSpecial && ribbons[1 - i].isSpecial;
    }
    return objections;
}

} // namespace supply
