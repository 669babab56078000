// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tag/tagfields.h"

#include <tag/taglayout_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QJsonArray>
#include <QtCore/QtEndian>

#include <algorithm>
#include <cstring>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int multiUpRevision = 2;

/// Why a value cannot be written.
struct Refusal
{
    QString message;
    QString remedy;
    QJsonObject details;
};

QString valueText(const TagField &field, int value)
{
    if (field.flag == nullptr)
        return QString::number(value);
    return value != 0 ? u"true"_s : u"false"_s;
}

std::optional<Refusal> rangeRefusal(const TagField &field, const TagBitRange &bits, int value)
{
    const int smallest = smallestValue(field);
    const int largest = largestValue(field, bits);
    if (value >= smallest && value <= largest)
        return {};
    return Refusal{
        u"%1 is %2, but its %3 bits hold %4 to %5"_s.arg(field.name())
            .arg(value)
            .arg(bits.width)
            .arg(smallest)
            .arg(largest),
        u"give --%1 a number from %2 to %3"_s.arg(field.name()).arg(smallest).arg(largest),
        {{u"field"_s, field.name()}, {u"value"_s, value}, {u"smallest"_s, smallest}, {u"largest"_s, largest}}};
}

std::optional<Refusal> layoutRefusal(const TagField &field, const TagLayout &layout, int formatEnum, int value)
{
    const int fixed = valueWhenNotCarried(field, layout, formatEnum);
    if (value == fixed)
        return {};
    return Refusal{u"%1 is %2, but the layout (%3) does not carry it; it always reads %4"_s.arg(
                       field.name(), valueText(field, value), layout.text(), valueText(field, fixed)),
                   u"leave it out, or choose the layout that carries it with --format-enum and --tag-revision"_s,
                   {{u"field"_s, field.name()}, {u"value"_s, value}, {u"reads"_s, fixed}}};
}

Failure refusalFailure(const QList<Refusal> &refusals)
{
    if (refusals.size() == 1)
        return {Status::Usage,
                refusals.first().message,
                refusals.first().remedy,
                {{u"fields"_s, QJsonArray{refusals.first().details}}}};
    QStringList messages;
    QJsonArray fields;
    for (const Refusal &refusal : refusals) {
        messages.append(u"\n  - "_s + refusal.message + u": "_s + refusal.remedy);
        fields.append(refusal.details);
    }
    return {Status::Usage,
            u"%1 fields cannot be written"_s.arg(refusals.size()) + messages.join(QString()),
            u"correct these fields"_s,
            {{u"fields"_s, fields}}};
}

/// The bits of a tag while it is written. The opposite of `TagBits::read`.
class TagWriter
{
public:
    void write(const TagBitRange &bits, quint32 value)
    {
        for (int i = 0; i < bits.width; ++i) {
            const int place = bits.first + i;
            if (((value >> (bits.width - 1 - i)) & 1U) != 0)
                m_bytes[place / 8] = char(uchar(m_bytes[place / 8]) | (0x80U >> (place % 8)));
        }
    }

    QString text() const { return QString::fromLatin1(m_bytes.toHex()).toUpper(); }

private:
    QByteArray m_bytes = QByteArray(tagDigitCount / 2, '\0');
};

} // namespace

QString TagField::name() const
{
    QString text;
    for (const QChar letter : member) {
        if (letter.isUpper())
            text += u'-';
        text += letter.toLower();
    }
    return text;
}

int TagField::value(const SupplyC &tag) const
{
    return number != nullptr ? tag.*number : int(tag.*flag);
}

const QList<TagField> &tagFields()
{
    static const QList<TagField> fields = {
        {u"mileageBaseFeet"_s, u"Length that the remaining fraction counts from, feet"_s, &SupplyC::mileageBaseFeet},
        {u"tagFlagBit9"_s, u"Flag, carried through"_s, nullptr, &SupplyC::tagFlagBit9},
        {u"swiftLift"_s, u"Whether the roll is a SwiftLift roll"_s, nullptr, &SupplyC::swiftLift},
        {u"secColorWidthSixteenths"_s, u"Stripe width, the sixteenths of an inch"_s,
         &SupplyC::secColorWidthSixteenths},
        {u"secColorWidthInches"_s, u"Stripe width, the whole inches"_s, &SupplyC::secColorWidthInches},
        {u"secColorEnum"_s, u"Stripe colour code"_s, &SupplyC::secColorEnum},
        {u"tagFlagBit25"_s, u"Flag, carried through"_s, nullptr, &SupplyC::tagFlagBit25},
        {u"lengthFeet"_s, u"Roll length, feet"_s, &SupplyC::lengthFeet},
        {u"materialEnum"_s, u"Material code"_s, &SupplyC::materialEnum},
        {u"formatEnum"_s, u"Format code; 1 and 2 choose the continuous layout"_s, &SupplyC::formatEnum},
        {u"colorEnum"_s, u"Roll colour code"_s, &SupplyC::colorEnum},
        {u"widthSixteenths"_s, u"Roll width, the sixteenths of an inch"_s, &SupplyC::widthSixteenths},
        {u"widthInches"_s, u"Roll width, the whole inches"_s, &SupplyC::widthInches},
        {u"tagRevision"_s, u"Revision of the layout; 2 or more carries labels across and type index"_s,
         &SupplyC::tagRevision},
        {u"tagFlagBit72"_s, u"Flag, carried through"_s, nullptr, &SupplyC::tagFlagBit72},
        {u"tagFlagBit73"_s, u"Flag, carried through"_s, nullptr, &SupplyC::tagFlagBit73},
        {u"formatEnumRev1"_s, u"Format code as tags of revision 1 carry it"_s, &SupplyC::formatEnumRev1},
        {u"multiUpCountCode"_s, u"Labels across, minus 1"_s, &SupplyC::multiUpCountCode},
        {u"multiUpGapCode"_s, u"Gap between labels across, sixteenths of an inch, minus 1"_s,
         &SupplyC::multiUpGapCode},
        {u"typeIndex"_s, u"Type index"_s, &SupplyC::typeIndex},
        {u"tagFlagBit11"_s, u"Whether labels are in landscape"_s, nullptr, &SupplyC::tagFlagBit11},
        {u"separatorWidthCode"_s, u"Gap between labels along the roll, sixteenths of an inch, minus 1"_s,
         &SupplyC::separatorWidthCode},
        {u"nonContinuousLengthSixteenths"_s, u"Label length, the sixteenths of an inch"_s,
         &SupplyC::nonContinuousLengthSixteenths},
        {u"nonContinuousLengthInches"_s, u"Label length, the whole inches"_s, &SupplyC::nonContinuousLengthInches},
    };
    return fields;
}

const TagField *findTagField(const QString &name)
{
    const auto row = std::find_if(tagFields().begin(), tagFields().end(), [&name](const TagField &field) {
        return field.member == name || field.name() == name;
    });
    return row == tagFields().end() ? nullptr : &*row;
}

TagLayout::TagLayout(int formatEnum, int tagRevision)
    : continuous(formatEnum == 1 || formatEnum == 2)
    , multiUp(tagRevision >= multiUpRevision)
{
}

QString TagLayout::text() const
{
    return (continuous ? u"continuous"_s : u"non-continuous"_s) +
           (multiUp ? u", revision 2 or more"_s : u", revision 0 or 1"_s);
}

std::optional<TagBitRange> tagBitsOf(const TagField &field, const TagLayout &layout)
{
    for (const taglayout::Field &row : taglayout::fields) {
        const bool same =
            field.number != nullptr ? row.number == field.number : row.flag != nullptr && row.flag == field.flag;
        if (same && taglayout::applies(row.readWhen, layout.continuous, layout.multiUp))
            return TagBitRange{row.first, row.width};
    }
    return {};
}

int smallestValue(const TagField &field)
{
    return field.number == &SupplyC::typeIndex ? 1 : 0;
}

int largestValue(const TagField &field, const TagBitRange &bits)
{
    return (1 << bits.width) - 1 + smallestValue(field);
}

int valueWhenNotCarried(const TagField &field, const TagLayout &layout, int formatEnum)
{
    if (field.number == &SupplyC::typeIndex && !layout.multiUp)
        return formatEnum;
    return field.flag == &SupplyC::tagFlagBit11 ? 1 : 0;
}

QList<TagBitRange> unreadTagBits(const TagLayout &layout)
{
    QList<TagBitRange> unread;
    for (const taglayout::Field &row : taglayout::fields) {
        const bool isField = row.number != nullptr || row.flag != nullptr;
        if (!isField && taglayout::applies(row.readWhen, layout.continuous, layout.multiUp))
            unread.append({row.first, row.width});
    }
    return unread;
}

quint32 tagBitsValue(const QString &tag, const TagBitRange &bits)
{
    const QByteArray bytes =
        QByteArray::fromHex(tag.left(tagDigitCount).toLatin1()).leftJustified(tagDigitCount / 2, '\0');
    const TagBits all{qFromBigEndian<quint64>(bytes.constData()),
                      qFromBigEndian<quint32>(bytes.constData() + sizeof(quint64))};
    return all.read(bits.first, bits.width);
}

QString encodeTag(const TagValues &values)
{
    const int formatEnum = values.value(u"formatEnum"_s, 0);
    const TagLayout layout(formatEnum, values.value(u"tagRevision"_s, 0));
    TagWriter writer;
    QList<Refusal> refusals;
    for (const TagField &field : tagFields()) {
        const std::optional<TagBitRange> bits = tagBitsOf(field, layout);
        const int value =
            values.value(field.member, bits ? smallestValue(field) : valueWhenNotCarried(field, layout, formatEnum));
        const auto refusal =
            bits ? rangeRefusal(field, *bits, value) : layoutRefusal(field, layout, formatEnum, value);
        if (refusal)
            refusals.append(*refusal);
        else if (bits)
            writer.write(*bits, quint32(value - smallestValue(field)));
    }
    if (!refusals.isEmpty())
        throw refusalFailure(refusals);
    return writer.text();
}

} // namespace ZrSupplyKit
