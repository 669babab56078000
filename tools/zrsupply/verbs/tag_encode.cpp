// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/commandline.h"
#include "cli/output.h"
#include "tag/tagfields.h"
#include "usekit.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <cmath>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype supplyIdDigits = 20;

Failure fileFailure(const QString &message, const QString &remedy)
{
    return {Status::Failed, message, remedy, {}};
}

QByteArray inputBytes(const QString &name)
{
    QFile file(name);
    const bool opened = name == "-"_L1 ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) {
        throw fileFailure(u"%1 cannot be read: %2"_s.arg(name, file.errorString()),
                          u"name a JSON file with the fields, or - for standard input"_s);
    }
    return file.readAll();
}

int jsonNumber(const TagField &field, const QJsonValue &value)
{
    const double number = value.toDouble(std::nan(""));
    const bool isWhole = value.isDouble() && number == std::trunc(number) && std::abs(number) <= 1e9;
    if (value.isBool() && field.flag != nullptr)
        return value.toBool() ? 1 : 0;
    if (isWhole && (field.flag == nullptr || number == 0 || number == 1))
        return int(number);
    const QString wanted = field.flag != nullptr ? u"true or false"_s : u"a whole number"_s;
    throw fileFailure(u"%1 is %2, not what the file says"_s.arg(field.name(), wanted),
                      u"give %1 %2"_s.arg(field.name(), wanted));
}

void insertField(TagValues &values, const QString &name, const QJsonValue &value)
{
    const TagField *field = findTagField(name);
    if (field == nullptr) {
        throw fileFailure(u"a tag has no field \"%1\""_s.arg(name), u"zrsupply tag encode --help lists the fields"_s);
    }
    values.insert(field->member, jsonNumber(*field, value));
}

/// An object with a member per field, or the answer of `tag decode --json`, of which the fields that its layout
/// carries are taken.
TagValues valuesFromJson(const QString &name)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(inputBytes(name), &error);
    if (error.error != QJsonParseError::NoError) {
        throw fileFailure(u"%1 is not JSON: %2 at byte %3"_s.arg(name, error.errorString()).arg(error.offset),
                          u"correct the file, or begin with what zrsupply tag decode --json says"_s);
    }
    if (!document.isObject()) {
        throw fileFailure(u"%1 holds no JSON object"_s.arg(name),
                          u"write the fields as {\"width-inches\": 4, ...}"_s);
    }
    const QJsonObject object = document.object();
    TagValues values;
    if (object.value(u"fields"_s).isArray()) {
        const QJsonArray fields = object.value(u"fields"_s).toArray();
        for (const auto &entry : fields) {
            if (entry[u"carried"_s].toBool(true))
                insertField(values, entry[u"name"_s].toString(), entry[u"value"_s]);
        }
        return values;
    }
    for (auto member = object.begin(); member != object.end(); ++member)
        insertField(values, member.key(), member.value());
    return values;
}

Status run(const Invocation &call, Output &out)
{
    TagValues values;
    if (!call.arguments().isEmpty())
        values = valuesFromJson(call.argument(0));
    bool given = !values.isEmpty();
    for (const TagField &field : tagFields()) {
        if (!call.has(field.name()))
            continue;
        const QString text = call.value(field.name());
        values.insert(field.member, field.flag != nullptr ? int(text == "true"_L1) : text.toInt());
        given = true;
    }
    if (!given)
        throw usageFailure(call.command(), u"no field is given"_s);

    const QString tag = encodeTag(values);
    if (!out.json()) {
        out.write(tag + u'\n');
        return Status::Ok;
    }
    const TagLayout layout(values.value(u"formatEnum"_s), values.value(u"tagRevision"_s));
    out.write(QJsonObject{{u"tag"_s, tag}, {u"supplyId"_s, tag.left(supplyIdDigits)}, {u"layout"_s, layout.text()}});
    return Status::Ok;
}

/// Where the field is carried, and what it can hold there.
QString rangeHelp(const TagField &field)
{
    for (const int format : {1, 0}) {
        for (const int revision : {0, 2}) {
            const std::optional<TagBitRange> bits = tagBitsOf(field, TagLayout(format, revision));
            if (bits)
                return u"%1 to %2"_s.arg(smallestValue(field)).arg(largestValue(field, *bits));
        }
    }
    return {};
}

/// The heading of --help that a field stands under: the layouts that carry it.
QString layoutHeading(const TagField &field)
{
    const bool continuous = tagBitsOf(field, TagLayout(1, 2)).has_value();
    const bool nonContinuous = tagBitsOf(field, TagLayout(0, 2)).has_value();
    const bool early = tagBitsOf(field, TagLayout(continuous ? 1 : 0, 0)).has_value();
    QString heading = continuous && nonContinuous ? u"Fields of every tag"_s
                      : continuous                ? u"Fields of continuous media, format 1 or 2"_s
                                                  : u"Fields of any other format"_s;
    if (!early)
        heading += u", revision 2 or more"_s;
    return heading;
}

QList<Option> fieldOptions()
{
    const QStringList headings = {u"Fields of every tag"_s, u"Fields of every tag, revision 2 or more"_s,
                                  u"Fields of continuous media, format 1 or 2"_s, u"Fields of any other format"_s,
                                  u"Fields of any other format, revision 2 or more"_s};
    QList<Option> options;
    for (const QString &heading : headings) {
        for (const TagField &field : tagFields()) {
            if (layoutHeading(field) != heading)
                continue;
            if (field.flag != nullptr) {
                options.append(
                    {field.name(), field.help, Value::Choice, u"true|false"_s, {u"true"_s, u"false"_s}, heading});
            } else {
                options.append(
                    {field.name(), field.help + u", "_s + rangeHelp(field), Value::Integer, u"N"_s, {}, heading});
            }
        }
    }
    return options;
}

} // namespace

Command tagEncodeCommand()
{
    return {
        u"tag encode"_s,
        u"Write the 24 hexadecimal digits of a tag from its fields"_s,
        u"The fields come from options, from a JSON file, or from both, where the options win. A field that is not "
        "given is what zero bits say: 0, false, type index 1. The digits decode to the same fields again.\n\n"
        "The format code and the revision choose the layout. A field that the layout does not carry may be left out or "
        "given the value that it always reads; anything else is refused, as is a number that its bits cannot hold."_s,
        {{u"FILE"_s,
          u"JSON object with a member per field, or what zrsupply tag decode --json printed; - for standard input"_s,
          Value::File, Need::Optional}},
        fieldOptions(),
        {{u"tag encode --format-enum 1 --material-enum 1 --width-inches 4 --length-feet 100 --mileage-base-feet 100"_s,
          u"A continuous roll, 4 inches wide and 100 feet long."_s},
         {u"tag decode --json 3200000C8020804041410000 | zrsupply tag encode - --color-enum 2"_s,
          u"The same roll in another colour."_s}},
        {{Status::Ok, u"written"_s},
         {Status::Failed, u"the file cannot be read or is not JSON of fields"_s},
         {Status::Usage, u"a field is unknown, out of range, or not in the layout"_s}},
        run,
    };
}

} // namespace zrsupply
