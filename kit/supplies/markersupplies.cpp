// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplies/markersupplies.h"

#include "supplies/installed.h"

#include <zrsupplydatabase.h>

#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QMetaObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double unitsPerInch = 10000.0;
constexpr int deviceIndex = 1; // hrDeviceIndex of the printer
constexpr int markerIndex = 1; // what prints is one marker, with up to two ribbons
constexpr int tonality = 2;    // a dot is printed or not

const MibLabel consumed = {u"supplyThatIsConsumed"_s, 3};
const MibLabel tenThousandthsOfInches = {u"tenThousandthsOfInches"_s, 3};
const MibLabel spot = {u"spot"_s, 4}; // each ribbon prints its own colour, none are mixed
const MibLabel typeOther = {u"other"_s, 1};
const MibLabel typeUnknown = {u"unknown"_s, 2};
const MibLabel typeInkRibbon = {u"inkRibbon"_s, 7};
const MibLabel typeRibbonWax = {u"ribbonWax"_s, 13};

/// What a column holds: a number, a label with its number, or a text.
struct MibCell
{
    explicit MibCell(int number)
        : value(number)
        , word(QString::number(number))
        , walked(u"INTEGER: "_s + word)
    {
    }
    explicit MibCell(const MibLabel &label)
        : value(label.number)
        , word(label.text)
        , walked(u"INTEGER: %1(%2)"_s.arg(label.text).arg(label.number))
    {
    }
    explicit MibCell(const QString &text)
        : value(text)
        , word(text)
        , walked(u"STRING: \"%1\""_s.arg(QString(text).replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1)))
    {
    }

    QJsonValue value;
    QString word; ///< In printer-supply.
    QString walked;
};

template <typename Row>
struct Column
{
    int number;
    QString object;
    QString keyword; ///< In printer-supply; empty: not there.
    MibCell (*cell)(const Row &row);
};

template <typename Row>
struct MibTable
{
    QString entry; ///< OID of a row without its index.
    QList<Column<Row>> columns;
};

const MibTable<MarkerSupply> &supplyTable()
{
    using Row = MarkerSupply;
    static const MibTable<Row> table = {
        u".1.3.6.1.2.1.43.11.1.1"_s,
        {{2, u"prtMarkerSuppliesMarkerIndex"_s, u"markerindex"_s, [](const Row &) { return MibCell(markerIndex); }},
         {3, u"prtMarkerSuppliesColorantIndex"_s, u"colorantindex"_s,
          [](const Row &supply) { return MibCell(supply.colorantIndex()); }},
         {4, u"prtMarkerSuppliesClass"_s, u"class"_s, [](const Row &) { return MibCell(consumed); }},
         {5, u"prtMarkerSuppliesType"_s, u"type"_s, [](const Row &supply) { return MibCell(supply.type); }},
         {6, u"prtMarkerSuppliesDescription"_s, {}, [](const Row &supply) { return MibCell(supply.description); }},
         {7, u"prtMarkerSuppliesSupplyUnit"_s, u"unit"_s,
          [](const Row &) { return MibCell(tenThousandthsOfInches); }},
         {8, u"prtMarkerSuppliesMaxCapacity"_s, u"maxcapacity"_s,
          [](const Row &supply) { return MibCell(supply.maxCapacity); }},
         {9, u"prtMarkerSuppliesLevel"_s, u"level"_s, [](const Row &supply) { return MibCell(supply.level); }}}};
    return table;
}

const MibTable<MarkerColorant> &colorantTable()
{
    using Row = MarkerColorant;
    static const MibTable<Row> table = {
        u".1.3.6.1.2.1.43.12.1.1"_s,
        {{2, u"prtMarkerColorantMarkerIndex"_s, {}, [](const Row &) { return MibCell(markerIndex); }},
         {3, u"prtMarkerColorantRole"_s, u"colorantrole"_s, [](const Row &) { return MibCell(spot); }},
         {4, u"prtMarkerColorantValue"_s, {}, [](const Row &colorant) { return MibCell(colorant.name); }},
         {5, u"prtMarkerColorantTonality"_s, u"coloranttonality"_s, [](const Row &) { return MibCell(tonality); }}}};
    return table;
}

/// Column after column, each through all rows: the order of a walk.
template <typename Row>
void addValues(QList<MibValue> &values, const MibTable<Row> &table, const QList<Row> &rows)
{
    for (const Column<Row> &column : table.columns) {
        for (const Row &row : rows) {
            const MibCell cell = column.cell(row);
            const QString place = u".%1.%2"_s.arg(deviceIndex).arg(row.index);
            values.append({u"%1.%2%3"_s.arg(table.entry, QString::number(column.number), place),
                           column.object + place, cell.walked, cell.value});
        }
    }
}

template <typename Row>
void addWords(QHash<QString, QString> &words, const MibTable<Row> &table, const Row &row)
{
    for (const Column<Row> &column : table.columns) {
        if (!column.keyword.isEmpty())
            words.insert(column.keyword, column.cell(row).word);
    }
}

QList<MarkerColorant> colorantsOf(const QList<MarkerSupply> &supplies)
{
    QList<MarkerColorant> all;
    for (const MarkerSupply &supply : supplies) {
        for (const MarkerColorant &colorant : supply.colorants) {
            if (colorant.index > all.size())
                all.append(colorant);
        }
    }
    return all;
}

MarkerSupply rollSupply(ZrSupplyDatabase &library)
{
    MarkerSupply roll{1, library.supplySKU(), typeOther, {}};
    const bool byTag = library.supplyId() != unsetString;
    if (!byTag && roll.sku == unsetString) {
        roll.type = typeUnknown;
        roll.description = u"no roll"_s;
        return roll;
    }
    // A fraction belongs to the tag's length, so the capacity does too. A tag of revision 2 or more leaves no SKU.
    const QString subject = roll.sku == unsetString ? QString() : roll.sku;
    roll.maxCapacity = mibCapacity(library.supplyLength(byTag ? QString() : subject));
    roll.level = mibLevel(library.supplySupplyPercent(), roll.maxCapacity);
    roll.description = u"roll: "_s + rollText(library, subject);
    return roll;
}

MibLabel ribbonType(ZrSupplyDatabase &library, const QString &sku)
{
    if (library.supplyRibbonPanels(sku) == -1)
        return typeUnknown;
    return library.supplyRibbonType(sku).compare("wax"_L1, Qt::CaseInsensitive) == 0 ? typeRibbonWax : typeInkRibbon;
}

/// With the language set to English, in which the MIB's names are; `names` are the colorants so far.
MarkerSupply ribbonSupply(ZrSupplyDatabase &library, int ribbon, double fraction, QStringList &names)
{
    const QString sku = library.supplyRibbonSKUs().value(ribbon - 1, unsetString);
    MarkerSupply supply{ribbon + 1, sku, ribbonType(library, sku), {}};
    supply.maxCapacity = mibCapacity(library.supplyRibbonLength(sku));
    supply.level = mibLevel(fraction, supply.maxCapacity);
    for (int panel = 1; panel <= library.supplyRibbonPanels(sku); ++panel) {
        const QString name = keywordOf(library.supplyRibbonColorName(sku, panel));
        if (name.isEmpty())
            continue;
        if (!names.contains(name))
            names.append(name);
        const MarkerColorant colorant{int(names.indexOf(name)) + 1, name};
        const auto same = [&colorant](const MarkerColorant &other) { return other.index == colorant.index; };
        if (std::none_of(supply.colorants.begin(), supply.colorants.end(), same))
            supply.colorants.append(colorant);
    }
    return supply;
}

QString quoted(const QStringList &values)
{
    QStringList texts;
    for (QString value : values)
        texts.append(u'"' + value.replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1) + u'"');
    return texts.join(",\n    "_L1);
}

QStringList printerSupplies(const QList<MarkerSupply> &supplies)
{
    QStringList values;
    for (const MarkerSupply &supply : supplies)
        values.append(printerSupply(supply));
    return values;
}

QStringList descriptions(const QList<MarkerSupply> &supplies)
{
    QStringList texts;
    for (const MarkerSupply &supply : supplies)
        texts.append(supply.description);
    return texts;
}

} // namespace

QString MarkerSupply::colorantName() const
{
    if (colorants.isEmpty())
        return u"unknown"_s;
    return colorants.size() == 1 ? colorants.first().name : u"multi-color"_s;
}

int mibCapacity(double inches)
{
    const double units = std::round(inches * unitsPerInch);
    return units > 0.0 && units <= std::numeric_limits<int>::max() ? int(units) : mibUnknown;
}

int mibLevel(double fraction, int capacity)
{
    if (fraction == -1.0 || std::isnan(fraction) || capacity == mibUnknown)
        return mibUnknown;
    return int(std::lround(std::clamp(fraction, 0.0, 1.0) * capacity));
}

QString keywordOf(const QString &name)
{
    const QString lower = name.toLower();
    QString word;
    for (const QChar character : lower) {
        if (character.isLetterOrNumber())
            word += character;
        else if (!word.isEmpty() && !word.endsWith(u'-'))
            word += u'-';
    }
    if (word.endsWith(u'-'))
        word.chop(1);
    return word;
}

QList<MarkerSupply> markerSupplies(ZrSupplyDatabase &library, int language)
{
    constexpr int english = 0;
    QStringList names;
    library.setLanguageId(english);
    MarkerSupply ribbon1 = ribbonSupply(library, 1, library.supplyRibbon1Percent(), names);
    MarkerSupply ribbon2 = ribbonSupply(library, 2, library.supplyRibbon2Percent(), names);
    library.setLanguageId(language);
    for (MarkerSupply *ribbon : {&ribbon1, &ribbon2}) {
        const QString place = u"ribbon %1"_s.arg(ribbon->index - 1);
        ribbon->description = ribbon->type.number == typeUnknown.number
                                  ? u"no "_s + place
                                  : place + u": "_s + ribbonText(library, ribbon->sku);
    }
    return {rollSupply(library), ribbon1, ribbon2};
}

QString printerSupply(const MarkerSupply &supply)
{
    // What every value has comes first, the rest in the order of the tables.
    static const QStringList order = {u"type"_s,          u"maxcapacity"_s,  u"level"_s,           u"colorantname"_s,
                                      u"index"_s,         u"markerindex"_s,  u"class"_s,           u"unit"_s,
                                      u"colorantindex"_s, u"colorantrole"_s, u"coloranttonality"_s};
    QHash<QString, QString> words;
    addWords(words, supplyTable(), supply);
    words.insert(u"index"_s, QString::number(supply.index));
    words.insert(u"colorantname"_s, supply.colorantName());
    if (supply.colorantIndex() == 0)
        words.remove(u"colorantindex"_s);
    else
        addWords(words, colorantTable(), supply.colorants.first());
    QString value;
    for (const QString &keyword : order) {
        if (words.contains(keyword))
            value += keyword + u'=' + words.value(keyword) + u';';
    }
    return value;
}

QString ippText(const QList<MarkerSupply> &supplies)
{
    return u"ATTR octetString printer-supply\n    %1\nATTR text printer-supply-description\n    %2\n"_s.arg(
        quoted(printerSupplies(supplies)), quoted(descriptions(supplies)));
}

QList<MibValue> mibValues(const QList<MarkerSupply> &supplies)
{
    QList<MibValue> values;
    addValues(values, supplyTable(), supplies);
    addValues(values, colorantTable(), colorantsOf(supplies));
    return values;
}

QString snmpText(const QList<MarkerSupply> &supplies)
{
    QString text;
    for (const MibValue &value : mibValues(supplies))
        text += value.oid + u" = "_s + value.text + u'\n';
    return text;
}

QJsonObject statusJson(const QList<MarkerSupply> &supplies)
{
    QJsonArray list;
    for (const MarkerSupply &supply : supplies) {
        QJsonArray colorants;
        for (const MarkerColorant &colorant : supply.colorants)
            colorants.append(QJsonObject{{u"index"_s, colorant.index}, {u"name"_s, colorant.name}});
        list.append(QJsonObject{{u"index"_s, supply.index},
                                {u"sku"_s, supply.sku},
                                {u"type"_s, supply.type.text},
                                {u"description"_s, supply.description},
                                {u"unit"_s, tenThousandthsOfInches.text},
                                {u"maxCapacity"_s, supply.maxCapacity},
                                {u"level"_s, supply.level},
                                {u"colorants"_s, colorants}});
    }
    QJsonArray values;
    for (const MibValue &value : mibValues(supplies))
        values.append(QJsonObject{{u"oid"_s, value.oid}, {u"object"_s, value.object}, {u"value"_s, value.value}});
    return {{u"supplies"_s, list},
            {u"ipp"_s,
             QJsonObject{{u"printer-supply"_s, QJsonArray::fromStringList(printerSupplies(supplies))},
                         {u"printer-supply-description"_s, QJsonArray::fromStringList(descriptions(supplies))}}},
            {u"snmp"_s, values}};
}

} // namespace ZrSupplyKit
