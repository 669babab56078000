// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

/// The 96 bits of a tag. Bit 0 is the most significant bit of the first byte. Knows no field.
struct TagBits
{
    static constexpr int count = 96;

    quint64 head; // bits 0-63, bit 0 on top
    quint32 tail; // bits 64-95, bit 64 on top

    /// The unsigned big-endian number in bits `first` to `first + width - 1`; `width` is 1 to 32.
    constexpr quint32 read(int first, int width) const
    {
        const int end = first + width;
        const quint64 mask = (quint64(1) << width) - 1;
        if (end <= 64)
            return quint32((head >> (64 - end)) & mask);
        // What lies in the head moves up by the bits that follow in the tail; where none does, out of the mask.
        return quint32(((head << (end - 64)) | (tail >> (count - end))) & mask);
    }
};

// The borders of the two words. A constant may not shift by more than a word has, which a run would not notice.
static_assert(TagBits{1, 0}.read(63, 1) == 1 && TagBits{1, 0}.read(64, 1) == 0 && TagBits{0, 1}.read(95, 1) == 1);
static_assert(TagBits{1, 0x80000000}.read(63, 2) == 3 && TagBits{~quint64(0), 0}.read(64, 32) == 0);
