// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <initializer_list>
#include <utility>

/// Where a field stands in the 96 bits of a roll's tag: bit 0 is the first bit of the first byte.
struct TagBits
{
    int first;
    int width;
};

namespace tagbits {

inline constexpr TagBits mileageBaseFeet{0, 9};
inline constexpr TagBits flag9{9, 1};
inline constexpr TagBits swiftLift{10, 1};
inline constexpr TagBits flag25{25, 1};
inline constexpr TagBits lengthFeet{26, 9};
inline constexpr TagBits material{35, 8};
inline constexpr TagBits format{43, 6};
inline constexpr TagBits color{49, 9};
inline constexpr TagBits widthSixteenths{58, 4};
inline constexpr TagBits widthInches{62, 6};
inline constexpr TagBits revision{68, 4};
inline constexpr TagBits flag72{72, 1};
inline constexpr TagBits flag73{73, 1};
inline constexpr TagBits formatRev1{74, 6};
inline constexpr TagBits multiUpCountLessOne{80, 5};
inline constexpr TagBits multiUpGapLessOne{85, 2};
inline constexpr TagBits typeLessOne{87, 2};

// Only when the format is 1 or 2
inline constexpr TagBits stripeWidthSixteenths{11, 4};
inline constexpr TagBits stripeWidthInches{15, 6};
inline constexpr TagBits stripeColor{21, 4};

// Only when the format is another
inline constexpr TagBits landscape{11, 1};
inline constexpr TagBits separatorSixteenthsLessOne{13, 2};
inline constexpr TagBits labelSixteenths{15, 4};
inline constexpr TagBits labelInches{19, 6};

} // namespace tagbits

/// The 24 hexadecimal digits of a tag with these bit ranges set and every other bit 0.
inline QString tagText(std::initializer_list<std::pair<TagBits, unsigned>> fields)
{
    QByteArray bytes(12, '\0');
    for (const auto &[bits, value] : fields) {
        if (value >> bits.width)
            qFatal("%u does not fit into the %d bits of the tag from bit %d on", value, bits.width, bits.first);
        for (int i = 0; i < bits.width; ++i) {
            const int position = bits.first + i;
            const unsigned bit = (value >> (bits.width - 1 - i)) & 1u;
            bytes[position / 8] = char(uchar(bytes.at(position / 8)) | (bit << (7 - position % 8)));
        }
    }
    return QString::fromLatin1(bytes.toHex().toUpper());
}
