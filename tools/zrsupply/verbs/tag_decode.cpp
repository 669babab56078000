// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/cells.h"
#include "cli/commandline.h"
#include "cli/output.h"
#include "tag/tagfields.h"
#include "usekit.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype tagDigits = 24;
constexpr double inchesPerSixteenth = 0.0625;
constexpr double inchesPerFoot = 12.0;

double inches(int whole, int sixteenths)
{
    return whole + sixteenths * inchesPerSixteenth;
}

/// What the field's number says by itself.
QString meaning(const TagField &field, const SupplyC &tag)
{
    const int value = field.value(tag);
    const QString number = QString::number(value);
    if (field.flag != nullptr)
        return value != 0 ? u"yes"_s : u"no"_s;
    if (field.member.endsWith("Sixteenths"_L1))
        return number + "/16 in"_L1;
    if (field.member.endsWith("Inches"_L1))
        return number + " in"_L1;
    if (field.member.endsWith("Feet"_L1))
        return number + " ft"_L1;
    if (field.number == &SupplyC::separatorWidthCode || field.number == &SupplyC::multiUpGapCode)
        return inchText(inches(0, value + 1));
    if (field.number == &SupplyC::multiUpCountCode)
        return u"%1 across"_s.arg(value + 1);
    return field.number == &SupplyC::tagRevision ? u"revision "_s + number : u"code "_s + number;
}

QString rangeText(const TagBitRange &bits)
{
    const int last = bits.first + bits.width - 1;
    return bits.width == 1 ? QString::number(bits.first) : u"%1-%2"_s.arg(bits.first).arg(last);
}

Table fieldTable(const SupplyC &tag, const QString &text, const TagLayout &layout)
{
    Table table({{u"bits"_s, u"Bits"_s, Qt::AlignRight},
                 {u"name"_s, u"Field"_s},
                 {u"raw"_s, u"Raw"_s, Qt::AlignRight},
                 {u"value"_s, u"Value"_s, Qt::AlignRight},
                 {u"meaning"_s, u"Meaning"_s},
                 {u"carried"_s, {}},
                 {u"help"_s, {}}});
    for (const TagField &field : tagFields()) {
        const int value = field.value(tag);
        Cell range{QJsonValue::Null, u"-"_s, {}};
        Cell raw = range;
        Cell says{meaning(field, tag), u"not carried"_s, {}};
        const std::optional<TagBitRange> row = tagBitsOf(field, layout);
        if (row) {
            range = {QJsonArray{row->first, row->first + row->width - 1}, rangeText(*row), {}};
            raw = numberCell(int(tagBitsValue(text, *row)));
            says.text = meaning(field, tag);
        } else if (field.number == &SupplyC::typeIndex) {
            says.text = u"not carried, the format code"_s;
        }
        table.addRow(
            {range,
             textCell(field.name()),
             raw,
             {field.flag != nullptr ? QJsonValue(value != 0) : QJsonValue(value), QString::number(value), {}},
             says,
             {row.has_value(), {}, {}},
             {field.help, {}, {}}});
    }
    return table;
}

void addSummary(Answer &answer, const SupplyC &tag, const TagLayout &layout)
{
    answer.addJson(u"continuous"_s, layout.continuous);
    answer.addJson(u"multiUp"_s, layout.multiUp);
    answer.add(u"layout"_s, u"Layout"_s, textCell(layout.text()));
    answer.add(u"tagRevision"_s, u"Revision"_s, numberCell(tag.tagRevision));
    answer.add(u"widthInches"_s, u"Width"_s, widthCell(inches(tag.widthInches, tag.widthSixteenths)));
    answer.add(u"lengthInches"_s, u"Length"_s, lengthCell(tag.lengthFeet * inchesPerFoot));
    answer.add(u"mileageBaseInches"_s, u"Mileage base"_s, lengthCell(tag.mileageBaseFeet * inchesPerFoot));
    answer.add(u"material"_s, u"Material code"_s, numberCell(tag.materialEnum));
    answer.add(u"color"_s, u"Colour code"_s, numberCell(tag.colorEnum));
    answer.add(u"format"_s, u"Format code"_s, numberCell(tag.formatEnum));
    answer.add(u"typeIndex"_s, u"Type index"_s, numberCell(tag.typeIndex));
    if (layout.continuous) {
        const double stripe = inches(tag.secColorWidthInches, tag.secColorWidthSixteenths);
        answer.add(u"stripeWidthInches"_s, u"Stripe width"_s,
                   stripe > 0 ? widthCell(stripe) : Cell{stripe, u"none"_s, {}});
        answer.add(u"stripeColor"_s, u"Stripe colour code"_s, numberCell(tag.secColorEnum));
    } else {
        const double label = inches(tag.nonContinuousLengthInches, tag.nonContinuousLengthSixteenths);
        answer.add(u"labelLengthInches"_s, u"Label length"_s, widthCell(label));
        answer.add(u"separatorWidthInches"_s, u"Separator"_s, widthCell(inches(0, tag.separatorWidthCode + 1)));
    }
    answer.add(u"labelsAcross"_s, u"Labels across"_s, numberCell(tag.multiUpCountCode + 1));
    answer.add(u"labelGapInches"_s, u"Gap across"_s, widthCell(inches(0, tag.multiUpGapCode + 1)));
    answer.add(u"swiftLift"_s, u"SwiftLift"_s, yesNoCell(tag.swiftLift));
}

/// What to beware of in the text that was given.
void addInputNotes(Answer &answer, const QString &text)
{
    if (text.size() > tagDigits)
        answer.addNote(u"only the first %1 of %2 characters are read."_s.arg(tagDigits).arg(text.size()));

    QStringList strays;
    qsizetype digits = 0;
    const QString read = text.left(tagDigits);
    for (qsizetype i = 0; i < read.size(); ++i) {
        const ushort c = read[i].unicode();
        const bool isDigit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
        if (isDigit)
            ++digits;
        else
            strays.append(u"'%1' (character %2)"_s.arg(read[i]).arg(i + 1));
    }
    if (!strays.isEmpty())
        answer.addNote(u"not hexadecimal digits, passed over: %1."_s.arg(strays.join(", "_L1)));
    if (digits % 2 != 0) {
        answer.addNote(u"%1 digits are an odd number: they are read as if a 0 stood in front, so every field is four "
                       "bits off what was probably meant."_s.arg(digits));
    }
    if (digits + 1 < tagDigits) {
        answer.addNote(
            u"a tag has %1 digits, here are %2; the missing bits at the end are read as zero."_s.arg(tagDigits).arg(
                digits));
    }
}

/// Bits without a field decode to nothing, so that encoding cannot bring them back.
void addUnreadNote(Answer &answer, const QString &text, const TagLayout &layout)
{
    QStringList ranges;
    for (const TagBitRange &row : unreadTagBits(layout)) {
        const quint32 value = tagBitsValue(text, row);
        if (value != 0) {
            ranges.append(
                u"%1 (binary %2)"_s.arg(rangeText(row), QString::number(value, 2).rightJustified(row.width, u'0')));
        }
    }
    if (!ranges.isEmpty())
        answer.addNote(u"set, but not read in this layout: bits %1."_s.arg(ranges.join(", "_L1)));
}

Status run(const Invocation &call, Output &out)
{
    const QString text = call.argument(0);
    const SupplyC tag(text);
    const TagLayout layout(tag.formatEnum, tag.tagRevision);

    Answer answer(u"Tag "_s + text);
    answer.addJson(u"input"_s, text);
    addSummary(answer, tag, layout);
    answer.addTable(u"Fields"_s, u"fields"_s, fieldTable(tag, text, layout));
    addInputNotes(answer, text);
    addUnreadNote(answer, text, layout);
    out.write(answer);
    return Status::Ok;
}

} // namespace

Command tagDecodeCommand()
{
    return {
        u"tag decode"_s,
        u"Show what the 24 hexadecimal digits of a roll's tag say"_s,
        u"Shows the layout that the format code and the revision choose, the roll that the tag describes, and all "
        "24 fields with their bits, their raw number, and what it means. Bit 0 is the first bit of the first byte.\n\n"
        "Input that is short, odd, longer or not hexadecimal is decoded as the library decodes it, and a note says "
        "what was made of it. No catalogue is opened."_s,
        {{u"HEX"_s, u"The tag's digits, as a reader delivers them; a supply id of 20 digits will do"_s, Value::Hex}},
        {},
        {{u"tag decode 3200000C8020804041410000"_s, u"A continuous roll, 4 inches wide."_s},
         {u"tag decode --json 3200000C8020804041410000"_s, u"The same for a program."_s}},
        {{Status::Ok, u"decoded, whatever the digits say"_s}, {Status::Usage, u"no digits are given"_s}},
        run,
    };
}

} // namespace zrsupply
