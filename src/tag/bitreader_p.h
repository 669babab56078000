#pragma once

#include <QtCore/qglobal.h>

/// The 96 bits of a tag. Bit 0 is the most significant bit of the first byte. Knows no field.
struct TagBits
{
    static constexpr int count = 96;

    quint64 head; // bits 0-63, bit 0 on top
    quint32 tail; // bits 64-95, bit 64 on top

    /// The unsigned big-endian number in bits `first` to `first + width - 1`; `width` is at most 32.
    constexpr quint32 read(int first, int width) const
    {
        const int end = first + width;
        const quint64 mask = (quint64(1) << width) - 1;
        if (end <= 64)
            return quint32((head >> (64 - end)) & mask);
        // A range across the border: what lies in the head moves up by the bits that follow in the tail.
        const quint64 upper = first < 64 ? head << (end - 64) : 0;
        return quint32((upper | (tail >> (count - end))) & mask);
    }
};
