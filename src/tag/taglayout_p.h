// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "bitreader_p.h"
#include "supplyc.h"

#include <array>

/// Where each field of a tag lies. Bits that nothing reads are rows too, so that the table can be checked for gaps.
namespace taglayout {

/// When a row applies. The layout follows from the format code, the multi-up fields from the tag's revision.
enum class When {
    Always,
    SingleUp,      // revision 0 and 1
    MultiUp,       // revision 2 and later
    Continuous,    // format code 1 or 2
    NonContinuous, // any other format code
    NonContinuousSingleUp,
    NonContinuousMultiUp,
};

/// One row: a bit range and the number or the flag it fills, or neither where the bits are not read.
struct Field
{
    constexpr Field(int firstBit, int bitCount, When when)
        : first(firstBit)
        , width(bitCount)
        , readWhen(when)
    {
    }
    constexpr Field(int firstBit, int bitCount, When when, int SupplyC::*field)
        : first(firstBit)
        , width(bitCount)
        , readWhen(when)
        , number(field)
    {
    }
    constexpr Field(int firstBit, int bitCount, When when, bool SupplyC::*field)
        : first(firstBit)
        , width(bitCount)
        , readWhen(when)
        , flag(field)
    {
    }

    int first;
    int width;
    When readWhen;
    int SupplyC::*number = nullptr;
    bool SupplyC::*flag = nullptr;
};

// clang-format off
inline constexpr std::array fields = {
    //   first width  read when                    field
    Field{  0,   9,  When::Always,                &SupplyC::mileageBaseFeet },
    Field{  9,   1,  When::Always,                &SupplyC::tagFlagBit9 },
    Field{ 10,   1,  When::Always,                &SupplyC::swiftLift },

    Field{ 11,   4,  When::Continuous,            &SupplyC::secColorWidthSixteenths },
    Field{ 15,   6,  When::Continuous,            &SupplyC::secColorWidthInches },
    Field{ 21,   4,  When::Continuous,            &SupplyC::secColorEnum },

    Field{ 11,   1,  When::NonContinuousSingleUp },
    Field{ 11,   1,  When::NonContinuousMultiUp,  &SupplyC::tagFlagBit11 },
    Field{ 12,   1,  When::NonContinuous },
    Field{ 13,   2,  When::NonContinuous,         &SupplyC::separatorWidthCode },
    Field{ 15,   4,  When::NonContinuous,         &SupplyC::nonContinuousLengthSixteenths },
    Field{ 19,   6,  When::NonContinuous,         &SupplyC::nonContinuousLengthInches },

    Field{ 25,   1,  When::Always,                &SupplyC::tagFlagBit25 },
    Field{ 26,   9,  When::Always,                &SupplyC::lengthFeet },
    Field{ 35,   8,  When::Always,                &SupplyC::materialEnum },
    Field{ 43,   6,  When::Always,                &SupplyC::formatEnum },
    Field{ 49,   9,  When::Always,                &SupplyC::colorEnum },
    Field{ 58,   4,  When::Always,                &SupplyC::widthSixteenths },
    Field{ 62,   6,  When::Always,                &SupplyC::widthInches },
    Field{ 68,   4,  When::Always,                &SupplyC::tagRevision },
    Field{ 72,   1,  When::Always,                &SupplyC::tagFlagBit72 },
    Field{ 73,   1,  When::Always,                &SupplyC::tagFlagBit73 },
    Field{ 74,   6,  When::Always,                &SupplyC::formatEnumRev1 },
    Field{ 80,   5,  When::SingleUp },
    Field{ 80,   5,  When::MultiUp,               &SupplyC::multiUpCountCode },
    Field{ 85,   2,  When::Always,                &SupplyC::multiUpGapCode },
    Field{ 87,   2,  When::SingleUp },
    Field{ 87,   2,  When::MultiUp,               &SupplyC::typeIndex }, // minus 1
    Field{ 89,   7,  When::Always },
};
// clang-format on

constexpr bool applies(When when, bool continuous, bool multiUp)
{
    switch (when) {
    case When::Always:
        return true;
    case When::SingleUp:
        return !multiUp;
    case When::MultiUp:
        return multiUp;
    case When::Continuous:
        return continuous;
    case When::NonContinuous:
        return !continuous;
    case When::NonContinuousSingleUp:
        return !continuous && !multiUp;
    case When::NonContinuousMultiUp:
        return !continuous && multiUp;
    }
    return false;
}

/// Whether the rows of one layout cover bits 0 to 95, each exactly once.
constexpr bool coversEveryBitOnce(bool continuous, bool multiUp)
{
    for (int bit = 0; bit < TagBits::count; ++bit) {
        int readers = 0;
        for (const Field &field : fields) {
            const bool covers = bit >= field.first && bit < field.first + field.width;
            if (covers && applies(field.readWhen, continuous, multiUp))
                ++readers;
        }
        if (readers != 1)
            return false;
    }
    return true;
}

/// Whether every row is a range that can be read.
constexpr bool isWithinTag()
{
    for (const Field &field : fields) {
        // cppcheck-suppress useStlAlgorithm ; the algorithms are constexpr from C++20 on
        if (field.first < 0 || field.width < 1 || field.width > 32 || field.first + field.width > TagBits::count)
            return false;
    }
    return true;
}

static_assert(isWithinTag());
static_assert(coversEveryBitOnce(true, true) && coversEveryBitOnce(true, false));
static_assert(coversEveryBitOnce(false, true) && coversEveryBitOnce(false, false));

} // namespace taglayout
