// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <tag/supplyc.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <array>

/// A tag's fields by the names of `SupplyC`, with the types, the order and the defaults that hosts rely on.
struct TagRecord
{
    int mileageBaseFeet = -1;
    bool tagFlagBit9 = false;
    bool swiftLift = false;
    int secColorWidthSixteenths = -1;
    int secColorWidthInches = -1;
    int secColorEnum = -1;
    bool tagFlagBit25 = false;
    int lengthFeet = -1;
    int materialEnum = -1;
    int formatEnum = -1;
    int colorEnum = -1;
    int widthSixteenths = -1;
    int widthInches = -1;
    int tagRevision = 0;
    bool tagFlagBit72 = false;
    bool tagFlagBit73 = true;
    int formatEnumRev1 = -1;
    int multiUpCountCode = -1;
    int multiUpGapCode = -1;
    int typeIndex = -1;
    bool tagFlagBit11 = true;
    int separatorWidthCode = -1;
    int nonContinuousLengthSixteenths = -1;
    int nonContinuousLengthInches = -1;
};

/// A tag as text, read and written slowly and in plain sight: what the decoder is held to.
///
/// Everything here works on the text of the 96 bits, a '0' or '1' each, bit 0 first, and shares nothing with the
/// decoder under test.
namespace TagReference {

/// The 96 bits of a tag's hexadecimal text: of the first 24 characters the hexadecimal digits, grouped to bytes from
/// the last one back, so that an odd count leaves its first digit a byte of its own; zero bits after the last byte.
QString bitsOf(const QString &tagHex);
/// The 24 digits, upper case, of 96 bits.
QString hexOf(const QString &bits);

/// The unsigned number in `width` bits from bit `first` on, most significant bit first.
int number(const QString &bits, int first, int width);
/// `bits` with `value` written there.
QString withNumber(const QString &bits, int first, int width, int value);

/// Fills the fields that the tag carries and leaves the others as they are in `record`.
void decode(const QString &tagHex, TagRecord &record);
/// The tag of a record: the layout its `formatEnum` and `tagRevision` choose, zeros where no field is.
QString encode(const TagRecord &record);

/// The 24 fields in declaration order, of a `TagRecord` or a `SupplyC`.
template <class Record>
std::array<int, 24> valuesOf(const Record &record)
{
    return {record.mileageBaseFeet,
            record.tagFlagBit9,
            record.swiftLift,
            record.secColorWidthSixteenths,
            record.secColorWidthInches,
            record.secColorEnum,
            record.tagFlagBit25,
            record.lengthFeet,
            record.materialEnum,
            record.formatEnum,
            record.colorEnum,
            record.widthSixteenths,
            record.widthInches,
            record.tagRevision,
            record.tagFlagBit72,
            record.tagFlagBit73,
            record.formatEnumRev1,
            record.multiUpCountCode,
            record.multiUpGapCode,
            record.typeIndex,
            record.tagFlagBit11,
            record.separatorWidthCode,
            record.nonContinuousLengthSixteenths,
            record.nonContinuousLengthInches};
}

/// The same as texts, `lengthFeet=150`, so that a failing comparison names the field.
QStringList linesOf(const std::array<int, 24> &values);

template <class Record>
QStringList linesOf(const Record &record)
{
    return linesOf(valuesOf(record));
}

} // namespace TagReference
