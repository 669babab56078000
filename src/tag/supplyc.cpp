// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplyc.h"

#include "taglayout_p.h"
#include "tagrules_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

#include <cstring>
#include <utility>

namespace {

constexpr int tagBytes = 12;
static_assert(TagBits::count == 8 * tagBytes && tagrules::digits == qsizetype(2) * tagBytes);

constexpr int firstContinuousFormat = 1;
constexpr int lastContinuousFormat = 2;

constexpr quint32 notADigit = 0x80;

struct DigitTable
{
    quint8 value[256];
};

constexpr DigitTable makeDigitTable()
{
    DigitTable table{};
    for (int c = 0; c < 256; ++c) {
        table.value[c] = c >= '0' && c <= '9'   ? quint8(c - '0')
                         : c >= 'A' && c <= 'F' ? quint8(c - 'A' + 10)
                         : c >= 'a' && c <= 'f' ? quint8(c - 'a' + 10)
                                                : quint8(notADigit);
    }
    return table;
}

constexpr DigitTable digits = makeDigitTable();

// A digit left out would be read the general way: slower, and no answer would show it.
static_assert(digits.value[u'0'] == 0 && digits.value[u'9'] == 9);
static_assert(digits.value[u'A'] == 10 && digits.value[u'F'] == 15);
static_assert(digits.value[u'a'] == 10 && digits.value[u'f'] == 15);

/// Sixteen (or eight) digits as a number. `strays` collects a bit wherever a character is no digit.
template <typename Word>
Word parseDigits(const QChar *text, quint32 &strays)
{
    Word word = 0;
    for (size_t i = 0; i < 2 * sizeof(Word); ++i) {
        const ushort character = text[i].unicode();
        const quint32 digit = digits.value[character & 0xff] | (character > 0xff ? notADigit : 0);
        strays |= digit;
        word = Word((word << 4) | digit);
    }
    return word;
}

/// The general case: odd, short, foreign or misplaced characters, by Qt's rules; missing bytes are zero.
TagBits bitsFromHex(const QString &tagHex)
{
    const QByteArray bytes = QByteArray::fromHex(tagHex.left(tagrules::digits).toLatin1());
    uchar padded[tagBytes] = {};
    std::memcpy(padded, bytes.constData(), size_t(qMin<qsizetype>(bytes.size(), tagBytes)));
    return {qFromBigEndian<quint64>(padded), qFromBigEndian<quint32>(padded + sizeof(quint64))};
}

/// What a reader delivers is 24 digits, and these need no intermediate text.
TagBits tagBits(const QString &tagHex)
{
    if (tagHex.size() >= tagrules::digits) {
        quint32 strays = 0;
        const auto head = parseDigits<quint64>(tagHex.constData(), strays);
        const auto tail = parseDigits<quint32>(tagHex.constData() + 2 * sizeof(quint64), strays);
        if (!(strays & notADigit))
            return {head, tail};
    }
    return bitsFromHex(tagHex);
}

/// Reads row `Row` of the layout table, where it belongs to `when`. The table is constant, so that what is left of a
/// row at run time is a shift and a mask.
template <taglayout::When when, size_t Row>
void readRow([[maybe_unused]] SupplyC &tag, [[maybe_unused]] TagBits bits)
{
    constexpr taglayout::Field field = taglayout::fields[Row];
    if constexpr (field.readWhen == when && field.number != nullptr)
        tag.*field.number = int(bits.read(field.first, field.width));
    else if constexpr (field.readWhen == when && field.flag != nullptr)
        tag.*field.flag = bits.read(field.first, field.width) != 0;
}

template <taglayout::When when, size_t... Rows>
void readRows(SupplyC &tag, TagBits bits, std::index_sequence<Rows...>)
{
    (readRow<when, Rows>(tag, bits), ...);
}

/// Reads all rows of the layout table that belong to `when`.
template <taglayout::When when>
void readFields(SupplyC &tag, TagBits bits)
{
    readRows<when>(tag, bits, std::make_index_sequence<taglayout::fields.size()>());
}

} // namespace

SupplyC::SupplyC(const QString &tagHex)
{
    decode(tagHex);
}

void SupplyC::clear()
{
    *this = SupplyC();
}

void SupplyC::decode(const QString &tagHex)
{
    using taglayout::When;

    const TagBits bits = tagBits(tagHex);
    readFields<When::Always>(*this, bits);

    const bool multiUp = tagRevision >= tagrules::firstMultiUpRevision;
    if (multiUp) {
        readFields<When::MultiUp>(*this, bits);
        ++typeIndex; // carried minus 1
    } else {
        multiUpCountCode = 0;
        typeIndex = formatEnum;
    }

    if (formatEnum >= firstContinuousFormat && formatEnum <= lastContinuousFormat) {
        readFields<When::Continuous>(*this, bits);
        tagFlagBit11 = true;
        separatorWidthCode = 0;
        nonContinuousLengthSixteenths = 0;
        nonContinuousLengthInches = 0;
    } else {
        // Deliberate: an earlier tag's bit 11 stays where this revision does not carry it.
        if (multiUp)
            readFields<When::NonContinuousMultiUp>(*this, bits);
        readFields<When::NonContinuous>(*this, bits);
        secColorWidthSixteenths = 0;
        secColorWidthInches = 0;
        secColorEnum = 0;
    }
}
