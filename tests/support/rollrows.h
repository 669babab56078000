// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "support/statementlist.h"
#include "support/tagtext.h"

#include <QtCore/QHash>

/// Rolls and tags that the tests of classification, format and length share, and the texts that they lead to.
namespace rollrows {

using namespace Qt::Literals::StringLiterals;

/// A roll of the test's own, each value as SQL; no format: no die-cut row, no stripe: no stripe row.
struct Roll
{
    const char *sku;
    const char *material;
    const char *label;
    const char *count;
    const char *format = nullptr;
    const char *separator = "NULL";
    const char *stripe = nullptr;
};

inline constexpr Roll rolls[] = {
    {"continuous", "1", "0.0", "150"},
    {"label NULL", "1", "NULL", "150", "9", "0.125"},
    {"label under a hair", "1", "9.9e-13", "500", "9", "0.125"},
    {"label of a hair", "1", "1e-12", "500", "9", "0.125"},
    {"label over a hair", "1", "1.01e-12", "500", "9", "0.125"},
    {"label minus a hair", "1", "-1e-12", "500", "9", "0.125"},
    {"label under minus a hair", "1", "-1.01e-12", "500", "9", "0.125"},
    {"label not a number", "5", "'nan'", "500", "9", "0.125"},
    {"continuous of type 3", "5", "0.0", "500", "3", "0.125"},
    {"long", "1", "0.0", "2147483647"},
    {"count below zero", "1", "0.0", "-7"},
    {"die-cut", "5", "4.0", "500", "9", "0.125"},
    {"type 3", "5", "4.0", "500", "3", "0.125"},
    {"type 4", "5", "4.0", "500", "3", "0.1875"},
    {"narrow quokka label", "1", "4.0", "500", "39", "0.1"},
    {"marker", "5", "4.0", "500", "40", "0.125"},
    {"count NULL", "5", "4.0", "NULL", "9", "0.125"},
    {"no separator row", "5", "4.0", "500"},
    {"separator NULL", "5", "4.0", "500", "9", "NULL"},
    {"separator not a number", "5", "4.0", "500", "9", "'nan'"},
    {"separator endless", "5", "4.0", "500", "9", "'inf'"},
    {"separator -0.49", "5", "4.0", "500", "9", "-0.49"},
    {"separator -0.5", "5", "4.0", "500", "9", "-0.5"},
    {"separator -1", "5", "4.0", "500", "9", "-1.0"},
    {"separator -1.49", "5", "4.0", "500", "9", "-1.49"},
    {"separator -1.5", "5", "4.0", "500", "9", "-1.5"},
    {"label -1", "5", "-1.0", "500", "9", "0.125"},
    {"format unknown", "5", "4.0", "500", "-1", "0.125"},
    {"striped", "1", "0.0", "150", nullptr, "NULL", "0.25"},
    {"striped by a hair", "1", "0.0", "150", "9", "NULL", "1e-300"},
    {"stripe of zero width", "1", "0.0", "150", "9", "NULL", "0.0"},
    {"stripe below zero", "1", "0.0", "150", "9", "NULL", "-0.25"},
    {"stripe NULL", "1", "0.0", "150", "9", "NULL", "NULL"},
    {"format 55", "5", "4.0", "500", "55", "0.125"},
    {"format 77", "5", "4.0", "500", "77", "0.125"},
};

inline constexpr const char *separators[] = {"0.1",          "0.125",        "0.1299999999", "0.13",
                                             "0.1300000001", "0.1499999999", "0.15",         "0.1500000001",
                                             "0.1875",       "'nan'",        "NULL"};
inline constexpr const char *materials[] = {"1", "5", "18", "-1", "NULL"};

inline QString text(const char *word)
{
    return QString::fromLatin1(word);
}

/// The rolls above, and one of each material with each separator: "m18 s0.15".
inline QString rollScript()
{
    QString script =
        u"DROP TABLE noncontinuous; CREATE TABLE noncontinuous (itemNum PRIMARY KEY, formatId, separatorWidth);"
        "DROP TABLE materialwidth; CREATE TABLE materialwidth"
        " (id INTEGER PRIMARY KEY, materialId, width, length, nonContinuousLength, machineId);"_s;
    int id = 1000;
    const auto add = [&script, &id](const QString &sku, const Roll &roll) {
        script += u"INSERT INTO materialwidth VALUES (%1, %2, NULL, %3, %4, 'FAM');"
                  "INSERT INTO roll (itemNum, materialWidthId) VALUES ('%5', %1);"_s.arg(
                      QString::number(++id), text(roll.material), text(roll.count), text(roll.label), sku);
        if (roll.format) {
            script += u"INSERT INTO noncontinuous VALUES ('%1', %2, %3);"_s.arg(sku, text(roll.format),
                                                                                text(roll.separator));
        }
        if (roll.stripe)
            script += u"INSERT INTO continuousstripe VALUES ('%1', %2, NULL);"_s.arg(sku, text(roll.stripe));
    };
    for (const Roll &roll : rolls)
        add(text(roll.sku), roll);
    for (const char *material : materials) {
        for (const char *separator : separators) {
            const QString sku = u"m%1 s%2"_s.arg(text(material), text(separator).remove(u'\''));
            add(sku, {"", material, "4.0", "500", "9", separator});
        }
    }
    return script;
}

/// A die-cut tag: label 4 inches, 150 feet, material 1.
inline QString dieCutTag(unsigned tagRevision, unsigned tagFormat, unsigned separatorSixteenths = 2,
                         unsigned type = 1, unsigned inches = 4)
{
    using namespace tagbits;
    return tagText({{revision, tagRevision},
                    {format, tagFormat},
                    {formatRev1, 33},
                    {separatorSixteenthsLessOne, separatorSixteenths - 1},
                    {typeLessOne, type - 1},
                    {labelInches, inches},
                    {material, 1},
                    {lengthFeet, 150}});
}

inline QString continuousTag(unsigned tagRevision, unsigned type = 1)
{
    using namespace tagbits;
    return tagText({{revision, tagRevision}, {format, 1}, {typeLessOne, type - 1}, {lengthFeet, 150}});
}

/// The texts of a row, told shortly: "label:SKU" and so on.
inline QStringList textsOf(const QStringList &reads)
{
    const QHash<QString, const char *> names = {
        {u"label"_s, "rollLabelLength"}, {u"format"_s, "rollFormat"}, {u"separator"_s, "rollSeparatorWidth"},
        {u"material"_s, "rollMaterial"}, {u"count"_s, "rollLength"},  {u"stripe"_s, "stripeWidth"},
        {u"name 0"_s, "formatName"},     {u"name 7"_s, "formatName"}, {u"name 8"_s, "formatName"},
        {u"type"_s, "formatType"},
    };
    QStringList texts;
    for (const QString &read : reads) {
        const QString what = read.section(u':', 0, 0);
        const QString value = read.section(u':', 1);
        texts += filled(names.value(what),
                        what.startsWith(u"name"_s) ? QStringList{value, what.last(1)} : QStringList{value});
    }
    return texts;
}

/// Reads in words: "label format" of one roll.
inline QStringList reads(const char *words, const char *sku)
{
    QStringList all;
    const QStringList list = text(words).split(u' ', Qt::SkipEmptyParts);
    for (const QString &word : list)
        all += word + u':' + text(sku);
    return all;
}

} // namespace rollrows
