// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "text/failure.h"
#include "zrsupplykit_global.h"

#include <tag/supplyc.h>

#include <QtCore/QHash>
#include <QtCore/QList>

#include <optional>

namespace ZrSupplyKit {

/// One of the 24 fields of a tag.
struct ZRSUPPLYKIT_EXPORT TagField
{
    QString member; ///< As `SupplyC` spells it.
    QString help;
    int SupplyC::*number = nullptr;
    bool SupplyC::*flag = nullptr;

    /// As options spell it: "width-inches".
    QString name() const;
    int value(const SupplyC &tag) const;
};

/// In the order of `SupplyC`.
ZRSUPPLYKIT_EXPORT const QList<TagField> &tagFields();
/// By either spelling; nullptr when there is none.
ZRSUPPLYKIT_EXPORT const TagField *findTagField(const QString &name);

/// What decides where the fields lie.
struct ZRSUPPLYKIT_EXPORT TagLayout
{
    bool continuous = false; ///< Format code 1 or 2.
    bool multiUp = false;    ///< Revision 2 or more.

    TagLayout(int formatEnum, int tagRevision);
    /// "continuous, revision 2 or more"
    QString text() const;
};

/// The digits of a tag, and its bits; bit 0 is the first bit of the first byte.
constexpr int tagDigitCount = 24;
constexpr int tagBitCount = 96;

/// Bits of a tag, the first one the most significant.
struct TagBitRange
{
    int first = 0; ///< 0 to 95
    int width = 1; ///< In bits.
};

/// The bits of a field in a layout; nothing when the layout does not carry it.
ZRSUPPLYKIT_EXPORT std::optional<TagBitRange> tagBitsOf(const TagField &field, const TagLayout &layout);
/// The bits that the layout assigns to no field.
ZRSUPPLYKIT_EXPORT QList<TagBitRange> unreadTagBits(const TagLayout &layout);
/// The number that these bits of a tag hold, as the decoder sees the text: missing digits are 0.
ZRSUPPLYKIT_EXPORT quint32 tagBitsValue(const QString &tag, const TagBitRange &bits);
/// The numbers that these bits can say: the type index counts from 1, everything else from 0.
ZRSUPPLYKIT_EXPORT int smallestValue(const TagField &field);
ZRSUPPLYKIT_EXPORT int largestValue(const TagField &field, const TagBitRange &bits);
/// What decoding gives a field that the layout does not carry.
ZRSUPPLYKIT_EXPORT int valueWhenNotCarried(const TagField &field, const TagLayout &layout, int formatEnum);

/// Field values by `TagField::member`; flags are 0 and 1.
using TagValues = QHash<QString, int>;

/// The 24 hexadecimal digits of a tag with these values; what is not given is what zero bits say. Throws when a value
/// is out of range, or belongs to a field that the layout does not carry.
ZRSUPPLYKIT_EXPORT QString encodeTag(const TagValues &values);

} // namespace ZrSupplyKit
