// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tagreference.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int tagBits = 96;
constexpr int tagCharacters = 24;

const QStringList fourBits = {u"0000"_s, u"0001"_s, u"0010"_s, u"0011"_s, u"0100"_s, u"0101"_s, u"0110"_s, u"0111"_s,
                              u"1000"_s, u"1001"_s, u"1010"_s, u"1011"_s, u"1100"_s, u"1101"_s, u"1110"_s, u"1111"_s};

bool isContinuous(const TagRecord &record)
{
    return record.formatEnum == 1 || record.formatEnum == 2;
}

bool carriesMultiUp(const TagRecord &record)
{
    return record.tagRevision > 1;
}

bool flag(const QString &bits, int position)
{
    return bits.at(position) == u'1';
}

} // namespace

QString TagReference::bitsOf(const QString &tagHex)
{
    QString digits;
    for (const QChar character : tagHex.left(tagCharacters)) {
        if (u"0123456789ABCDEFabcdef"_s.contains(character))
            digits.append(character);
    }
    if (digits.size() % 2 != 0)
        digits.prepend(u'0');

    QString bits;
    for (const QChar digit : digits)
        bits.append(fourBits.at(QString(digit).toInt(nullptr, 16)));
    return bits.leftJustified(tagBits, u'0');
}

QString TagReference::hexOf(const QString &bits)
{
    QString digits;
    for (int first = 0; first < tagBits; first += 4)
        digits.append(QString::number(bits.mid(first, 4).toInt(nullptr, 2), 16).toUpper());
    return digits;
}

int TagReference::number(const QString &bits, int first, int width)
{
    return QStringView(bits).mid(first, width).toInt(nullptr, 2);
}

QString TagReference::withNumber(const QString &bits, int first, int width, int value)
{
    const QString text = u"%1"_s.arg(value, width, 2, QChar(u'0'));
    Q_ASSERT(value >= 0 && text.size() == width);
    return bits.left(first) + text + bits.mid(first + width);
}

void TagReference::decode(const QString &tagHex, TagRecord &record)
{
    const QString bits = bitsOf(tagHex);
    record.mileageBaseFeet = number(bits, 0, 9);
    record.tagFlagBit9 = flag(bits, 9);
    record.swiftLift = flag(bits, 10);
    record.tagFlagBit25 = flag(bits, 25);
    record.lengthFeet = number(bits, 26, 9);
    record.materialEnum = number(bits, 35, 8);
    record.formatEnum = number(bits, 43, 6);
    record.colorEnum = number(bits, 49, 9);
    record.widthSixteenths = number(bits, 58, 4);
    record.widthInches = number(bits, 62, 6);
    record.tagRevision = number(bits, 68, 4);
    record.tagFlagBit72 = flag(bits, 72);
    record.tagFlagBit73 = flag(bits, 73);
    record.formatEnumRev1 = number(bits, 74, 6);
    record.multiUpCountCode = carriesMultiUp(record) ? number(bits, 80, 5) : 0;
    record.multiUpGapCode = number(bits, 85, 2);
    record.typeIndex = carriesMultiUp(record) ? number(bits, 87, 2) + 1 : record.formatEnum;

    if (isContinuous(record)) {
        record.secColorWidthSixteenths = number(bits, 11, 4);
        record.secColorWidthInches = number(bits, 15, 6);
        record.secColorEnum = number(bits, 21, 4);
        record.tagFlagBit11 = true;
        record.separatorWidthCode = 0;
        record.nonContinuousLengthSixteenths = 0;
        record.nonContinuousLengthInches = 0;
    } else {
        // Below revision 2 the tag has no such flag: the record keeps the one it had.
        if (carriesMultiUp(record))
            record.tagFlagBit11 = flag(bits, 11);
        record.separatorWidthCode = number(bits, 13, 2);
        record.nonContinuousLengthSixteenths = number(bits, 15, 4);
        record.nonContinuousLengthInches = number(bits, 19, 6);
        record.secColorWidthSixteenths = 0;
        record.secColorWidthInches = 0;
        record.secColorEnum = 0;
    }
}

QString TagReference::encode(const TagRecord &record)
{
    QString bits(tagBits, u'0');
    const auto put = [&bits](int first, int width, int value) { bits = withNumber(bits, first, width, value); };

    put(0, 9, record.mileageBaseFeet);
    put(9, 1, record.tagFlagBit9);
    put(10, 1, record.swiftLift);
    put(25, 1, record.tagFlagBit25);
    put(26, 9, record.lengthFeet);
    put(35, 8, record.materialEnum);
    put(43, 6, record.formatEnum);
    put(49, 9, record.colorEnum);
    put(58, 4, record.widthSixteenths);
    put(62, 6, record.widthInches);
    put(68, 4, record.tagRevision);
    put(72, 1, record.tagFlagBit72);
    put(73, 1, record.tagFlagBit73);
    put(74, 6, record.formatEnumRev1);
    put(85, 2, record.multiUpGapCode);
    if (carriesMultiUp(record)) {
        put(80, 5, record.multiUpCountCode);
        put(87, 2, record.typeIndex - 1);
    }
    if (isContinuous(record)) {
        put(11, 4, record.secColorWidthSixteenths);
        put(15, 6, record.secColorWidthInches);
        put(21, 4, record.secColorEnum);
    } else {
        if (carriesMultiUp(record))
            put(11, 1, record.tagFlagBit11);
        put(13, 2, record.separatorWidthCode);
        put(15, 4, record.nonContinuousLengthSixteenths);
        put(19, 6, record.nonContinuousLengthInches);
    }
    return hexOf(bits);
}

QStringList TagReference::linesOf(const std::array<int, 24> &values)
{
    static const std::array<QString, 24> names = {
        u"mileageBaseFeet"_s,
        u"tagFlagBit9"_s,
        u"swiftLift"_s,
        u"secColorWidthSixteenths"_s,
        u"secColorWidthInches"_s,
        u"secColorEnum"_s,
        u"tagFlagBit25"_s,
        u"lengthFeet"_s,
        u"materialEnum"_s,
        u"formatEnum"_s,
        u"colorEnum"_s,
        u"widthSixteenths"_s,
        u"widthInches"_s,
        u"tagRevision"_s,
        u"tagFlagBit72"_s,
        u"tagFlagBit73"_s,
        u"formatEnumRev1"_s,
        u"multiUpCountCode"_s,
        u"multiUpGapCode"_s,
        u"typeIndex"_s,
        u"tagFlagBit11"_s,
        u"separatorWidthCode"_s,
        u"nonContinuousLengthSixteenths"_s,
        u"nonContinuousLengthInches"_s,
    };
    QStringList lines;
    for (std::size_t field = 0; field < values.size(); ++field)
        lines.append(names[field] + u'=' + QString::number(values[field]));
    return lines;
}
