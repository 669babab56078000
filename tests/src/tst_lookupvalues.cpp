// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"

#include <QtTest/QtTest>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

/// How a lookup reads its column.
enum class Reading { Int, IntOrUnset, Real, Text, Bytes };

struct Lookup
{
    const char *operation;
    Reading reading;
    QVariantList arguments; ///< an empty text stands for the SKU of the odd row, code 0 for its code
};

const QList<Lookup> &lookups()
{
    const QString sku;
    static const QList<Lookup> all = {
        {"supplySecColorWidth", Reading::Real, {sku}},
        {"supplySecColorRGB", Reading::IntOrUnset, {sku}},
        {"supplyMaterial", Reading::Int, {sku}},
        {"supplyColorRGB", Reading::IntOrUnset, {sku}},
        {"supplyWidth", Reading::Real, {sku}},
        {"supplySeparatorWidth", Reading::Real, {sku}},
        {"supplyNonContinuousLength", Reading::Real, {sku}},
        {"supplyMultiUpCount", Reading::Int, {sku}},
        {"supplySecColorName", Reading::Text, {sku}},
        {"supplySecColorNameEn", Reading::Text, {sku}},
        {"supplyMaterialName", Reading::Text, {sku}},
        {"supplyColorName", Reading::Text, {sku}},
        {"supplyColorNameEn", Reading::Text, {sku}},
        {"supplyIsLandscape", Reading::Int, {sku}},
        {"supplyBackgroundImage", Reading::Bytes, {sku}},
        {"supplySensorId", Reading::Int, {sku}},
        {"getSupplyLength", Reading::Int, {sku}},
        {"supplyFormatFromTable", Reading::Int, {sku}},
        {"getColorRGBFromEnum", Reading::Int, {0}},
        {"getColorNameFromEnum", Reading::Text, {0, true}},
        {"getSecColorRGBFromEnum", Reading::Int, {0}},
        {"getSecColorNameFromEnum", Reading::Text, {0, true}},
        {"getMaterialNameFromEnum", Reading::Text, {0}},
        {"getFormatNameFromEnum", Reading::Text, {0}},
        {"supplyRibbonPanels", Reading::Int, {sku}},
        {"supplyRibbonWidth", Reading::Real, {sku}},
        {"supplyRibbonLength", Reading::Real, {sku}},
        {"supplyRibbonType", Reading::Text, {sku}},
        {"supplyRibbonColorRGB", Reading::Int, {sku, 1}},
        {"supplyRibbonColorName", Reading::Text, {sku, 1}},
        {"supplyRibbonHeat", Reading::Int, {sku, 1, u"PLAIN"_s}},
        {"supplyRibbonHeatOffset", Reading::Int, {sku, 1, u"PLAIN"_s}},
        {"supplyRibbonMaxSpeed", Reading::Int, {sku, 1, u"PLAIN"_s}},
        {"supplyRibbonTension", Reading::Int, {sku, 1, u"PLAIN"_s}},
    };
    return all;
}

/// A value as SQL, and what each reading makes of it.
struct Odd
{
    const char *phrase;
    const char *sql;
    QVariant asInt;
    QVariant asIntOrUnset;
    QVariant asReal;
    QVariant asText;
    QByteArray asBytes;

    QVariant as(Reading reading) const
    {
        switch (reading) {
        case Reading::Int:
            return asInt;
        case Reading::IntOrUnset:
            return asIntOrUnset;
        case Reading::Real:
            return asReal;
        case Reading::Text:
            return asText;
        case Reading::Bytes:
            return asBytes;
        }
        return {};
    }
};

constexpr double endless = std::numeric_limits<double>::infinity();

/// A real number, whose text is Qt's own.
Odd real(const char *phrase, const char *sql, double value, int asInt)
{
    const QString text = QVariant(value).toString();
    return {phrase, sql, asInt, asInt, value, text, text.toLatin1()};
}

const QList<Odd> &oddValues()
{
    static const QList<Odd> all = {
        {"integer", "-7", -7, -7, -7.0, u"-7"_s, "-7"},
        {"zero", "0", 0, 0, 0.0, u"0"_s, "0"},
        {"real", "2.25", 2, 2, 2.25, u"2.25"_s, "2.25"},
        real("real beyond an int keeps its low bits", "3000000000.0", 3e9, -1294967296),
        real("largest real that 64 bits hold", "9223372036854774784.0", 9223372036854774784.0, -1024),
        real("smallest real that 64 bits hold", "-9223372036854775808.0", -9223372036854775808.0, 0),
        real("first real beyond 64 bits", "9223372036854775808.0", 9223372036854775808.0, 0),
        real("real beyond 64 bits", "1e300", 1e300, 0),
        real("negative real beyond 64 bits", "-1e300", -1e300, 0),
        real("infinite real", "9e999", endless, 0),
        real("negative infinite real", "-9e999", -endless, 0),
        {"text that is no number", "'abc'", 0, -1, 0.0, u"abc"_s, "abc"},
        {"text that starts with a number", "'12abc'", 0, -1, 0.0, u"12abc"_s, "12abc"},
        {"text that is an integer", "'12'", 12, 12, 12.0, u"12"_s, "12"},
        {"text that is a real", "'1.9'", 0, -1, 1.9, u"1.9"_s, "1.9"},
        {"empty text", "''", 0, -1, 0.0, QString(), ""},
        {"bytes that are no number", "X'7879'", 0, -1, 0.0, u"xy"_s, "xy"},
        {"bytes that are a number", "X'3132'", 12, 12, 12.0, u"12"_s, "12"},
        {"NULL", "NULL", 0, -1, 0.0, QString(), ""},
    };
    return all;
}

/// The tables without types and keys, so that any value may stand anywhere, twice.
QString looseTables()
{
    return u"DROP TABLE roll; CREATE TABLE roll"
           " (itemNum, supplyId, materialWidthId, colorId, landscape, nUpCount, supplysensorId, backgroundId);"
           "DROP TABLE materialwidth; CREATE TABLE materialwidth"
           " (id, materialId, width, length, nonContinuousLength, machineId);"
           "DROP TABLE continuousstripe; CREATE TABLE continuousstripe (itemNum, secColorWidth, secColorId);"
           "DROP TABLE noncontinuous; CREATE TABLE noncontinuous (itemNum, formatId, separatorWidth);"
           "DROP TABLE color; CREATE TABLE color (id INTEGER, secId INTEGER, rgbValue, name);"
           "DROP TABLE supplysensor; CREATE TABLE supplysensor (id, supplysensortype);"
           "DROP TABLE background; CREATE TABLE background (id, svg);"
           "DROP TABLE colorTS; CREATE TABLE colorTS (colorId INTEGER, languageId INTEGER, name);"
           "DROP TABLE materialTS; CREATE TABLE materialTS (materialId INTEGER, languageId INTEGER, name);"
           "DROP TABLE formatTS; CREATE TABLE formatTS (formatId INTEGER, languageId INTEGER, name);"
           "DROP TABLE ribbon; CREATE TABLE ribbon (id, sku, panels, width, length);"
           "DROP TABLE ribbon_panel; CREATE TABLE ribbon_panel (ribbonId, panel INTEGER, typeId, colorId);"
           "DROP TABLE ribbon_color; CREATE TABLE ribbon_color (id, rgbValue, name);"
           "DROP TABLE ribbon_typeTS; CREATE TABLE ribbon_typeTS (ribbon_typeId, languageId INTEGER, name);"
           "DROP TABLE ribbon_colorTS; CREATE TABLE ribbon_colorTS (ribbon_colorId, languageId INTEGER, name);"
           "DROP TABLE ribbon_heat; CREATE TABLE ribbon_heat"
           " (ribbonId, panel, materialId, heat, max_offset, max_speed, tension);"
           "INSERT INTO roll (itemNum, materialWidthId) VALUES ('PLAIN', 1);"
           "INSERT INTO materialwidth (id, materialId) VALUES (1, 7);"_s;
}

QString oddSku(int code)
{
    return u"ODD-%1"_s.arg(code);
}

/// Rows of the SKU of `code` in every table, with `value` in every column that a lookup answers from.
QString oddRows(int code, const char *value)
{
    // %1 = code, %2 = value, %3 = SKU. A second roll has the code for its material, so that it has a name.
    return u"INSERT INTO roll VALUES ('%3', NULL, %1, %1, %2, %2, %2, %1);"
           "INSERT INTO materialwidth VALUES (%1, %2, %2, %2, %2, 'FAM');"
           "INSERT INTO roll (itemNum, materialWidthId) VALUES ('%3-material', 1%1);"
           "INSERT INTO materialwidth (id, materialId) VALUES (1%1, %1);"
           "INSERT INTO continuousstripe VALUES ('%3', %2, %1);"
           "INSERT INTO noncontinuous VALUES ('%3', %2, %2);"
           "INSERT INTO color VALUES (%1, %1, %2, %2);"
           "INSERT INTO supplysensor VALUES (%2, '%3');"
           "INSERT INTO background VALUES (%1, %2);"
           "INSERT INTO colorTS VALUES (%1, 0, %2);"
           "INSERT INTO materialTS VALUES (%1, 0, %2);"
           "INSERT INTO formatTS VALUES (%1, 0, %2);"
           "INSERT INTO ribbon VALUES (%1, '%3', %2, %2, %2);"
           "INSERT INTO ribbon_panel VALUES (%1, 1, %1, %1);"
           "INSERT INTO ribbon_color VALUES (%1, %2, %2);"
           "INSERT INTO ribbon_typeTS VALUES (%1, 0, %2);"
           "INSERT INTO ribbon_colorTS VALUES (%1, 0, %2);"
           "INSERT INTO ribbon_heat VALUES (%1, 1, 7, %2, %2, %2, %2);"_s.arg(
               QString::number(code), QString::fromLatin1(value), oddSku(code));
}

constexpr int firstCode = 100;
constexpr int twiceCode = 200;
constexpr int nullThenValueCode = 300;

} // namespace

/// What a lookup makes of a value that the schema would refuse, and of several rows where it allows one.
class TestLookupValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void conversion_data();
    void conversion();
    void firstRowCounts_data();
    void firstRowCounts();

private:
    static QVariantList argumentsFor(const Lookup &lookup, int code);

    const FixtureCatalogue m_catalogue{FixtureCatalogue::Rows::None};
};

void TestLookupValues::initTestCase()
{
    QString script = u"BEGIN;"_s + looseTables();
    for (int i = 0; i < int(oddValues().size()); ++i)
        script += oddRows(firstCode + i, oddValues().at(i).sql);
    script += oddRows(twiceCode, "31") + oddRows(twiceCode, "32");
    script += oddRows(nullThenValueCode, "NULL") + oddRows(nullThenValueCode, "33");
    m_catalogue.run(script + u"COMMIT;"_s);
}

QVariantList TestLookupValues::argumentsFor(const Lookup &lookup, int code)
{
    QVariantList arguments = lookup.arguments;
    // A material's name is read by way of its code, which therefore cannot be the odd value.
    const bool isMaterialName = qstrcmp(lookup.operation, "supplyMaterialName") == 0;
    if (arguments.first().metaType() == QMetaType::fromType<int>())
        arguments.first() = code;
    else
        arguments.first() = oddSku(code) + (isMaterialName ? u"-material"_s : QString());
    return arguments;
}

void TestLookupValues::conversion_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    for (const Lookup &lookup : lookups()) {
        for (int i = 0; i < int(oddValues().size()); ++i) {
            const Odd &odd = oddValues().at(i);
            QTest::addRow("%s: %s", lookup.operation, odd.phrase)
                << QString::fromLatin1(lookup.operation) << argumentsFor(lookup, firstCode + i)
                << odd.as(lookup.reading);
        }
    }
}

void TestLookupValues::conversion()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, expected);
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    const QVariant answer = ask::directly(database, operation, arguments);
    QCOMPARE(answer.metaType(), expected.metaType());
    QCOMPARE(answer, expected);
}

void TestLookupValues::firstRowCounts_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    const Odd first{"", "", 31, 31, 31.0, u"31"_s, "31"};
    const Odd null = oddValues().last();
    for (const Lookup &lookup : lookups()) {
        QTest::addRow("%s: two rows", lookup.operation)
            << QString::fromLatin1(lookup.operation) << argumentsFor(lookup, twiceCode) << first.as(lookup.reading);
        QTest::addRow("%s: NULL, then a value", lookup.operation)
            << QString::fromLatin1(lookup.operation) << argumentsFor(lookup, nullThenValueCode)
            << null.as(lookup.reading);
    }
}

void TestLookupValues::firstRowCounts()
{
    conversion();
}

QTEST_GUILESS_MAIN(TestLookupValues)
#include "tst_lookupvalues.moc"
