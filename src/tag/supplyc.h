// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "../zrsupplydatabase_global.h"

#include <QtCore/QString>

/// What a media roll's tag says: 24 hexadecimal digits, 96 bits, decoded into numbers and flags.
///
/// Widths and lengths come in parts, whole inches and sixteenths of an inch. A new record holds the defaults below.
/// Decoding writes every field but one: a non-continuous tag below revision 2 leaves `tagFlagBit11` as it was, and a
/// continuous tag sets it to true.
class ZRSUPPLYDATABASE_EXPORT SupplyC
{
public:
    /// The defaults, then `decode(tagHex)`. Deliberate: not explicit, so that a text stands for its tag.
    // cppcheck-suppress noExplicitConstructor
    SupplyC(const QString &tagHex);

    /// Back to the defaults; decodes nothing.
    void clear();

    /// Fills the fields from the first 24 characters by the rules of `QByteArray::fromHex`; missing bits are zero.
    /// Resets nothing first.
    void decode(const QString &tagHex);

    int mileageBaseFeet = -1;               ///< Length that the remaining fraction counts from, feet.
    bool tagFlagBit9 = false;               ///< Carried through.
    bool swiftLift = false;                 ///< Whether the roll is a SwiftLift roll.
    int secColorWidthSixteenths = -1;       ///< Stripe width, sixteenths part; 0 unless continuous.
    int secColorWidthInches = -1;           ///< Stripe width, whole inches; 0 unless continuous.
    int secColorEnum = -1;                  ///< Secondary colour code; 0 unless continuous.
    bool tagFlagBit25 = false;              ///< Carried through.
    int lengthFeet = -1;                    ///< Roll length, feet.
    int materialEnum = -1;                  ///< Material code.
    int formatEnum = -1;                    ///< Format code; 1 and 2 are the continuous layout.
    int colorEnum = -1;                     ///< Primary colour code.
    int widthSixteenths = -1;               ///< Roll width, sixteenths part.
    int widthInches = -1;                   ///< Roll width, whole inches.
    int tagRevision = 0;                    ///< Revision of the layout; 2 or more carries multi-up and type index.
    bool tagFlagBit72 = false;              ///< Carried through.
    bool tagFlagBit73 = true;               ///< Carried through. Deliberate: true until a tag is decoded.
    int formatEnumRev1 = -1;                ///< Format code as revision 1 tags carry it.
    int multiUpCountCode = -1;              ///< Labels across, minus 1; 0 below revision 2.
    int multiUpGapCode = -1;                ///< Gap between labels across, sixteenths of an inch, minus 1.
    int typeIndex = -1;                     ///< Type index from revision 2 on, else the format code.
    bool tagFlagBit11 = true;               ///< Landscape; see above. Deliberate: true until read.
    int separatorWidthCode = -1;            ///< Gap between labels, sixteenths, minus 1; 0 if continuous.
    int nonContinuousLengthSixteenths = -1; ///< Label length, sixteenths part; 0 if continuous.
    int nonContinuousLengthInches = -1;     ///< Label length, whole inches; 0 if continuous.

private:
    SupplyC() = default;
};
