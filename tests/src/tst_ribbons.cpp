// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/statementlist.h"
#include "support/tagtext.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString none;

/// Rows beyond the fixture's: types that differ from panel to panel, SKUs that are nearly special.
constexpr auto furtherRows = R"(
    INSERT INTO ribbon (id, sku, panels, width, length) VALUES
        (30, 'MIXED', 2, 1.0, 2.0), (31, 'NULL-FIRST', 2, 1.0, 2.0), (32, 'r4417tx', 1, 1.0, 2.0),
        (33, 'R4417TX ', 1, 1.0, 2.0), (34, 'hvwa-zerospol', 1, 1.0, 2.0), (35, 'HVWA-ZEROSPOLE', 1, 1.0, 2.0),
        (36, '', 5, 5.5, 55.5), (37, 'UnknownSupply', 6, 6.5, 66.5), (38, 'PANEL-0', 1, 1.0, 2.0),
        (39, 'PANEL-2', 1, 1.0, 2.0);
    INSERT INTO ribbon_panel (ribbonId, panel, typeId, colorId) VALUES
        (30, 1, 2, 2), (30, 2, 1, 1), (31, 1, 3, 4), (31, 2, 1, 1), (32, 1, 1, 2), (33, 1, 1, 2), (34, 1, 1, 2),
        (35, 1, 1, 2), (36, 1, 1, 3), (37, 1, 2, 3), (38, 0, 1, 2), (38, -1, 1, 3), (39, 2, 2, 3);
)"_L1;

QString rgbText(const QString &sku, const QString &panel)
{
    return filled("ribbonPanelRgb", {sku, panel});
}

QString nameText(const QString &sku, const QString &panel, int language)
{
    return filled("ribbonPanelColorName", {sku, panel, QString::number(language)});
}

QStringList rgbTexts(const QStringList &skus)
{
    QStringList texts;
    for (const QString &sku : skus)
        texts << rgbText(sku, u"1"_s) << rgbText(sku, u"2"_s);
    return texts;
}

QStringList nameTexts(const QStringList &skus, int language)
{
    QStringList texts;
    for (const QString &sku : skus)
        texts << nameText(sku, u"1"_s, language) << nameText(sku, u"2"_s, language);
    return texts;
}

QString typeText(const QString &sku, int language)
{
    return filled("ribbonType", {sku, QString::number(language)});
}

} // namespace

/// Geometry, types and panel colours of ribbons, one by one and as lists, and the lists of all of them.
class TestRibbons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_catalogue.run(QString(furtherRows)); }

    void lookup_data();
    void lookup();
    void placeholdersInTheSku_data();
    void placeholdersInTheSku();
    void panelIsTheFirstUnlessGiven();
    void lists_data();
    void lists();
    void closedCatalogue_data();
    void closedCatalogue();
    void wholeTables_data();
    void wholeTables();

private:
    const FixtureCatalogue m_catalogue;
};

void TestRibbons::lookup_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<int>("language");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QStringList>("texts");

    struct Geometry
    {
        const char *operation;
        const char *statement;
        QVariant absent;
        QVariant null;
        QVariant two; ///< of RIB-TWO
        QVariant three;
        QVariant special;
        QVariant emptySku;
        QVariant unknownSupply;
    };
    const Geometry geometries[] = {
        {"supplyRibbonPanels", "ribbonPanels", -1, 0, 2, 3, 1, 5, 6},
        {"supplyRibbonWidth", "ribbonWidth", -1.0, 0.0, 4.5, 4.25, 6.5, 5.5, 6.5},
        {"supplyRibbonLength", "ribbonLength", -1.0, 0.0, 4800.0, 4000.0, 1200.0, 55.5, 66.5},
    };
    for (const Geometry &geometry : geometries) {
        const auto row = [&geometry](const char *phrase, const QString &sku, const QVariant &expected) {
            QTest::addRow("%s: %s", geometry.operation, phrase)
                << QString::fromLatin1(geometry.operation) << QVariantList{sku} << 7 << expected
                << QStringList{filled(geometry.statement, {sku})};
        };
        row("found", u"RIB-TWO"_s, geometry.two);
        row("another", u"RIB-THREE"_s, geometry.three);
        row("unknown SKU", u"NOSUCH"_s, geometry.absent);
        row("NULL", u"RIB-NULLS"_s, geometry.null);
        row("special ribbon", u"R4417TX"_s, geometry.special);
        row("empty SKU is looked up", none, geometry.emptySku);
        row("unknown supply is looked up", u"UnknownSupply"_s, geometry.unknownSupply);
        row("wrong case", u"rib-two"_s, geometry.absent);
        row("SKU with a blank at the end", u"RIB-TWO "_s, geometry.absent);
        row("SKU with a quote", u"RIB'TWO"_s, geometry.absent);
        row("found through an unescaped quote", u"x' OR sku='RIB-TWO"_s, geometry.two);
    }

    const auto type = [](const char *phrase, const char *sku, int language, const char *expected) {
        const QString ribbon = QString::fromLatin1(sku);
        QTest::addRow("type: %s", phrase)
            << u"supplyRibbonType"_s << QVariantList{ribbon} << language << QVariant(QString::fromLatin1(expected))
            << QStringList{typeText(ribbon, language)};
    };
    type("found", "RIB-TWO", 0, "Wax");
    type("language 7", "RIB-TWO", 7, "Wachs");
    type("language without names", "RIB-TWO", 8, "");
    type("negative language", "RIB-TWO", -1, "");
    type("unknown SKU", "NOSUCH", 0, "");
    type("first panel's of two", "MIXED", 0, "Wax");
    type("first panel's is NULL", "NULL-FIRST", 0, "");
    type("first panel has none in this language", "NULL-FIRST", 7, "Harz");
    type("special ribbon is looked up", "R4417TX", 0, "Resin");
    type("other special ribbon is looked up", "HVWA-ZEROSPOL", 7, "Harz");
    type("ribbon without panels", "RW530947", 0, "");
    type("empty SKU", "", 0, "Resin");
    type("wrong case", "rib-two", 0, "");
    type("SKU with a quote", "RIB'TWO", 0, "");

    const auto rgb = [](const char *phrase, const char *sku, int panel, int expected, bool isAsked = true) {
        const QString ribbon = QString::fromLatin1(sku);
        QStringList texts;
        if (isAsked)
            texts << rgbText(ribbon, QString::number(panel));
        QTest::addRow("colour: %s", phrase)
            << u"supplyRibbonColorRGB"_s << QVariantList{ribbon, panel} << 7 << QVariant(expected) << texts;
    };
    rgb("panel 1", "RIB-THREE", 1, 0);
    rgb("panel 2", "RIB-THREE", 2, 16711680);
    rgb("panel 3", "RIB-THREE", 3, 65280);
    rgb("panel 4 of three", "RIB-THREE", 4, -1);
    rgb("panel 0", "RIB-THREE", 0, -1);
    rgb("panel 0 that has a row", "PANEL-0", 0, 16711680);
    rgb("negative panel that has a row", "PANEL-0", -1, 65280);
    rgb("unknown SKU", "NOSUCH", 1, -1);
    rgb("NULL colour", "RIB-NULLS", 1, 0);
    rgb("panel without a colour", "RIB-NULLS", 2, -1);
    rgb("empty SKU", "", 1, 65280);
    rgb("unknown supply", "UnknownSupply", 1, 65280);
    rgb("SKU with a quote", "RIB'TWO", 1, -1);
    // The special ribbons have rows, which must not be answered.
    for (const int panel : {1, 2, 7, 0, -1}) {
        const QByteArray phrase = QByteArray("panel ") + QByteArray::number(panel) + " of ";
        rgb((phrase + "R4417TX").constData(), "R4417TX", panel, -1, false);
        rgb((phrase + "HVWA-ZEROSPOL").constData(), "HVWA-ZEROSPOL", panel, -1, false);
    }
    for (const char *sku : {"r4417tx", "R4417TX ", "hvwa-zerospol", "HVWA-ZEROSPOLE"})
        rgb(sku, sku, 1, 16711680);
    rgb("clear tail ribbon is not special", "R530947", 1, 0);

    const auto name = [](const char *phrase, const char *sku, int panel, int language, const char *expected,
                         bool isAsked = true) {
        const QString ribbon = QString::fromLatin1(sku);
        QStringList texts;
        if (isAsked)
            texts << nameText(ribbon, QString::number(panel), language);
        QTest::addRow("colour name: %s", phrase) << u"supplyRibbonColorName"_s << QVariantList{ribbon, panel}
                                                 << language << QVariant(QString::fromLatin1(expected)) << texts;
    };
    name("panel 1", "RIB-THREE", 1, 0, "Black (en)");
    name("panel 2", "RIB-THREE", 2, 0, "Scarlet (en)");
    name("panel 3", "RIB-THREE", 3, 0, "Lime (en)");
    name("language 7", "RIB-THREE", 2, 7, "Scharlach");
    name("colour without a name in this language", "RIB-THREE", 3, 7, "");
    name("language without names", "RIB-THREE", 1, 8, "");
    name("panel 4 of three", "RIB-THREE", 4, 0, "");
    name("panel 0 that has a row", "PANEL-0", 0, 0, "Scarlet (en)");
    name("negative panel that has a row", "PANEL-0", -1, 0, "Lime (en)");
    name("unknown SKU", "NOSUCH", 1, 0, "");
    name("NULL name", "RIB-NULLS", 1, 0, "");
    name("panel without a colour", "RIB-NULLS", 2, 0, "");
    name("SKU with a quote", "RIB'TWO", 1, 0, "");
    for (const int panel : {1, 2, 7}) {
        const QByteArray phrase = QByteArray("panel ") + QByteArray::number(panel) + " of ";
        name((phrase + "R4417TX").constData(), "R4417TX", panel, 0, "", false);
        name((phrase + "HVWA-ZEROSPOL").constData(), "HVWA-ZEROSPOL", panel, 0, "", false);
    }
    for (const char *sku : {"r4417tx", "R4417TX ", "hvwa-zerospol", "HVWA-ZEROSPOLE"})
        name(sku, sku, 1, 7, "Scharlach");
}

void TestRibbons::lookup()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(int, language);
    QFETCH(QVariant, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    // An installed roll takes no part.
    ask::takeTag(*recorded, QString(24, u'F'));
    recorded->setLanguageId(language);
    QVERIFY(answers(recorded, operation, arguments, expected, texts));
}

void TestRibbons::placeholdersInTheSku_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("absent");
    QTest::addColumn<QString>("text");

    // How the SKU and the rest of the text come out, panel 5 and language 77
    struct Sku
    {
        QString sku;
        QString typeSku; ///< after SKU, then language
        QString typeLanguage;
        QString nameSku; ///< after SKU and panel at once, then language
        QString nameLanguage;
    };
    const Sku skus[] = {
        {u"A%1B"_s, u"A77B"_s, u"%2"_s, u"A77B"_s, u"%3"_s},
        {u"A%L1B"_s, u"A77B"_s, u"%2"_s, u"A77B"_s, u"%3"_s},
        {u"A%2B"_s, u"A77B"_s, u"77"_s, u"A77B"_s, u"%3"_s},
        {u"A%3B"_s, u"A%3B"_s, u"77"_s, u"A77B"_s, u"77"_s},
        {u"A%4B"_s, u"A%4B"_s, u"77"_s, u"A%4B"_s, u"77"_s},
        {u"A%1%2B"_s, u"A77%2B"_s, u"%2"_s, u"A77%2B"_s, u"%3"_s},
    };
    for (const Sku &sku : skus) {
        const auto row = [&sku](const char *operation, const QVariantList &further, const QVariant &absent,
                                const QString &text) {
            QTest::addRow("%s: %s", operation, qPrintable(sku.sku))
                << QString::fromLatin1(operation) << QVariantList{sku.sku} + further << absent << text;
        };
        row("supplyRibbonPanels", {}, -1, filled("ribbonPanels", {sku.sku}));
        row("supplyRibbonWidth", {}, -1.0, filled("ribbonWidth", {sku.sku}));
        row("supplyRibbonLength", {}, -1.0, filled("ribbonLength", {sku.sku}));
        row("supplyRibbonType", {}, none, filled("ribbonType", {sku.typeSku, sku.typeLanguage}));
        row("supplyRibbonColorRGB", {5}, -1, filled("ribbonPanelRgb", {sku.sku, u"5"_s}));
        row("supplyRibbonColorName", {5}, none,
            filled("ribbonPanelColorName", {sku.nameSku, u"5"_s, sku.nameLanguage}));
    }
}

void TestRibbons::placeholdersInTheSku()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, absent);
    QFETCH(QString, text);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(77);
    QVERIFY(answers(recorded, operation, arguments, absent, {text}));
}

void TestRibbons::panelIsTheFirstUnlessGiven()
{
    RecordedDatabase recorded(m_catalogue.path());
    QCOMPARE(recorded->supplyRibbonColorRGB(u"MIXED"_s), 16711680);
    QCOMPARE(recorded->supplyRibbonColorName(u"MIXED"_s), u"Scarlet (en)"_s);
    QCOMPARE(ask::byName(*recorded, u"supplyRibbonColorRGB"_s, {u"MIXED"_s}), 16711680);
    QCOMPARE(ask::byName(*recorded, u"supplyRibbonColorName"_s, {u"MIXED"_s}), u"Scarlet (en)"_s);
    const QStringList texts = {rgbText(u"MIXED"_s, u"1"_s), nameText(u"MIXED"_s, u"1"_s, 0)};
    QCOMPARE(recorded.takeTexts(), texts + texts);
}

void TestRibbons::lists_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<int>("language");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QStringList>("texts");

    const auto one = [](const char *phrase, const QString &sku, const QVariantList &rgbs, const QStringList &names,
                        bool isAsked = true) {
        const QStringList asked = isAsked ? QStringList{sku} : QStringList();
        QTest::addRow("one ribbon, colours: %s", phrase)
            << u"supplyRibbonColorRGBs"_s << QVariantList{sku} << 0 << QVariant(rgbs) << rgbTexts(asked);
        QTest::addRow("one ribbon, colour names: %s", phrase)
            << u"supplyRibbonColorNames"_s << QVariantList{sku} << 0 << QVariant(names) << nameTexts(asked, 0);
    };
    const QVariantList noColors = {-1, -1};
    const QStringList noNames = {none, none};
    // Deliberate: panels 1 and 2 and no other, however many the ribbon has.
    one("one panel", u"RIB-ONE"_s, {0, -1}, {u"Black (en)"_s, none});
    one("two panels", u"RIB-TWO"_s, {0, 16711680}, {u"Black (en)"_s, u"Scarlet (en)"_s});
    one("three panels", u"RIB-THREE"_s, {0, 16711680}, {u"Black (en)"_s, u"Scarlet (en)"_s});
    one("panel 2 alone", u"PANEL-2"_s, {-1, 65280}, {none, u"Lime (en)"_s});
    one("NULL colour, no colour", u"RIB-NULLS"_s, {0, -1}, noNames);
    one("unknown SKU", u"NOSUCH"_s, noColors, noNames);
    one("R4417TX", u"R4417TX"_s, noColors, noNames, false);
    one("HVWA-ZEROSPOL", u"HVWA-ZEROSPOL"_s, noColors, noNames, false);
    one("special in another case", u"r4417tx"_s, {16711680, -1}, {u"Scarlet (en)"_s, none});
    one("SKU with a quote", u"RIB'TWO"_s, noColors, noNames);

    const auto several = [](const char *phrase, const QStringList &skus, int language, const QVariantList &rgbs,
                            const QStringList &names, const QStringList &types, const QStringList &asked) {
        QStringList typeTexts;
        for (const QString &sku : skus)
            typeTexts << typeText(sku, language);
        QTest::addRow("several ribbons, colours: %s", phrase)
            << u"supplyRibbonsColorRGBs"_s << QVariantList{skus} << language << QVariant(rgbs) << rgbTexts(asked);
        QTest::addRow("several ribbons, colour names: %s", phrase)
            << u"supplyRibbonsColorNames"_s << QVariantList{skus} << language << QVariant(names)
            << nameTexts(asked, language);
        QTest::addRow("several ribbons, types: %s", phrase)
            << u"supplyRibbonTypes"_s << QVariantList{skus} << language << QVariant(types) << typeTexts;
    };
    const QString rib1 = u"RIB-ONE"_s;
    const QString rib2 = u"RIB-TWO"_s;
    const QString rib3 = u"RIB-THREE"_s;
    const QString missing = u"NOSUCH"_s;
    const QString special = u"R4417TX"_s;
    several("none", {}, 0, {}, {}, {}, {});
    several("one", {rib2}, 0, {0, 16711680}, {u"Black (en)"_s, u"Scarlet (en)"_s}, {u"Wax"_s}, {rib2});
    several("three in their order", {rib2, u"MIXED"_s, rib1}, 0, {0, 16711680, 16711680, 0, 0, -1},
            {u"Black (en)"_s, u"Scarlet (en)"_s, u"Scarlet (en)"_s, u"Black (en)"_s, u"Black (en)"_s, none},
            {u"Wax"_s, u"Wax"_s, u"Resin"_s}, {rib2, u"MIXED"_s, rib1});
    several("language 7", {rib1, rib2}, 7, {0, -1, 0, 16711680}, {u"Schwarz"_s, none, u"Schwarz"_s, u"Scharlach"_s},
            {u"Harz"_s, u"Wachs"_s}, {rib1, rib2});
    several("language without names", {rib1}, 8, {0, -1}, {none, none}, {none}, {rib1});
    several("unknown in the middle", {rib1, missing, rib2}, 0, {0, -1, -1, -1, 0, 16711680},
            {u"Black (en)"_s, none, none, none, u"Black (en)"_s, u"Scarlet (en)"_s}, {u"Resin"_s, none, u"Wax"_s},
            {rib1, missing, rib2});
    several("special in the middle", {rib1, special, rib2}, 0, {0, -1, -1, -1, 0, 16711680},
            {u"Black (en)"_s, none, none, none, u"Black (en)"_s, u"Scarlet (en)"_s},
            {u"Resin"_s, u"Resin"_s, u"Wax"_s}, {rib1, rib2});
    several("special alone", {special}, 0, {-1, -1}, {none, none}, {u"Resin"_s}, {});
    several("the same twice", {rib3, rib3}, 0, {0, 16711680, 0, 16711680},
            {u"Black (en)"_s, u"Scarlet (en)"_s, u"Black (en)"_s, u"Scarlet (en)"_s}, {u"Resin"_s, u"Resin"_s},
            {rib3, rib3});
    several("unset SKU at the end", {rib1, u"-1"_s}, 0, {0, -1, -1, -1}, {u"Black (en)"_s, none, none, none},
            {u"Resin"_s, none}, {rib1, u"-1"_s});
}

void TestRibbons::lists()
{
    QFETCH(QVariant, expected);
    lookup();
    if (expected.metaType() == QMetaType::fromType<QVariantList>()) {
        for (const QVariant &entry : expected.toList())
            QCOMPARE(entry.metaType(), QMetaType::fromType<int>());
    }
}

void TestRibbons::closedCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *operation, const QVariantList &arguments, const QVariant &expected) {
        QTest::newRow(operation) << QString::fromLatin1(operation) << arguments << expected;
    };
    const QString sku = u"RIB-TWO"_s;
    row("supplyRibbonPanels", {sku}, -1);
    row("supplyRibbonWidth", {sku}, -1.0);
    row("supplyRibbonLength", {sku}, -1.0);
    row("supplyRibbonType", {sku}, none);
    row("supplyRibbonColorRGB", {sku, 1}, -1);
    row("supplyRibbonColorName", {sku, 1}, none);
    row("supplyRibbonColorRGBs", {sku}, QVariantList{-1, -1});
    row("supplyRibbonColorNames", {sku}, QStringList{none, none});
    row("supplyRibbonTypes", {QStringList{sku, sku}}, QStringList{none, none});
    row("supplyRibbonsColorRGBs", {QStringList{sku, sku}}, QVariantList{-1, -1, -1, -1});
    row("supplyRibbonsColorNames", {QStringList{sku, sku}}, QStringList{none, none, none, none});
    row("supplyRibbonSKUList", {}, QStringList());
    row("supplyRibbonColorHash", {}, QVariantHash());
}

void TestRibbons::closedCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, expected);
    const FixtureCatalogue withoutTables(FixtureCatalogue::Rows::None);
    withoutTables.run(u"DROP TABLE ribbon; DROP TABLE ribbon_color;"_s);
    for (const bool isOpen : {false, true}) {
        ZrSupplyDatabase database;
        if (isOpen)
            QVERIFY(database.setup(withoutTables.path()));
        const QVariant answer = ask::directly(database, operation, arguments);
        QCOMPARE(answer.metaType(), expected.metaType());
        QCOMPARE(answer, expected);
    }
}

void TestRibbons::wholeTables_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QVariant>("skus");
    QTest::addColumn<QVariant>("colors");

    const QString loose = u"DROP TABLE ribbon; CREATE TABLE ribbon (id, sku);"
                          "DROP TABLE ribbon_color; CREATE TABLE ribbon_color (id, rgbValue, name);"_s;
    const QString sku = u"INSERT INTO ribbon (sku) VALUES "_s;
    const QString color = u"; INSERT INTO ribbon_color (rgbValue, name) VALUES "_s;
    const auto row = [](const char *phrase, const QString &script, const QStringList &skus,
                        const QVariantHash &colors) {
        QTest::newRow(phrase) << script << QVariant(skus) << QVariant(colors);
    };
    row("fixture, English names, NULL colour is 0", none,
        {u"RIB-ONE"_s, u"RIB-TWO"_s, u"RIB-THREE"_s, u"RIB-NULLS"_s, u"R4417TX"_s, u"HVWA-ZEROSPOL"_s, u"R530947"_s,
         u"RW530947"_s},
        {{u"Black"_s, 0}, {u"Scarlet"_s, 16711680}, {u"Lime"_s, 65280}, {u"Clear"_s, 0}});
    row("none", loose, {}, {});
    row("one", loose + sku + u"('A')"_s + color + u"(1, 'One')"_s, {u"A"_s}, {{u"One"_s, 1}});
    row("three in the catalogue's order",
        loose + sku + u"('C'), ('A'), ('B')"_s + color + u"(1, 'One'), (2, 'Two'), (3, 'Three')"_s,
        {u"C"_s, u"A"_s, u"B"_s}, {{u"One"_s, 1}, {u"Two"_s, 2}, {u"Three"_s, 3}});
    row("equal ones: each SKU, the later colour",
        loose + sku + u"('A'), ('B'), ('A')"_s + color + u"(1, 'Grey'), (2, 'White'), (3, 'Grey')"_s,
        {u"A"_s, u"B"_s, u"A"_s}, {{u"Grey"_s, 3}, {u"White"_s, 2}});
    row("NULL is an empty text", loose + sku + u"('A'), (NULL), ('B')"_s + color + u"(5, NULL), (NULL, 'Grey')"_s,
        {u"A"_s, none, u"B"_s}, {{none, 5}, {u"Grey"_s, 0}});
    row("equal names, the later row's NULL", loose + color.mid(1) + u"(1, 'Grey'), (NULL, 'Grey')"_s, {},
        {{u"Grey"_s, 0}});
    row("values of other types",
        loose + sku + u"(7), (2.5)"_s + color + u"('red', 'Text'), ('12', 'Digits'), (3, 42)"_s, {u"7"_s, u"2.5"_s},
        {{u"Text"_s, 0}, {u"Digits"_s, 12}, {u"42"_s, 3}});
    row("no tables", u"DROP TABLE ribbon; DROP TABLE ribbon_color"_s, {}, {});
    row("no columns",
        u"DROP TABLE ribbon; CREATE TABLE ribbon (id); INSERT INTO ribbon VALUES (1);"
        "DROP TABLE ribbon_color; CREATE TABLE ribbon_color (name); INSERT INTO ribbon_color VALUES ('Red')"_s,
        {}, {});
}

void TestRibbons::wholeTables()
{
    QFETCH(QString, script);
    QFETCH(QVariant, skus);
    QFETCH(QVariant, colors);
    const FixtureCatalogue catalogue;
    catalogue.run(script);
    RecordedDatabase recorded(catalogue.path());
    recorded->setLanguageId(7);
    QVERIFY(answers(recorded, u"supplyRibbonSKUList"_s, {}, skus, {filled("ribbonSkus")}));
    QVERIFY(answers(recorded, u"supplyRibbonColorHash"_s, {}, colors, {filled("ribbonColorTable")}));
    const QVariantHash table = recorded->supplyRibbonColorHash();
    for (const QVariant &rgb : table)
        QCOMPARE(rgb.metaType(), QMetaType::fromType<int>());
}

QTEST_GUILESS_MAIN(TestRibbons)
#include "tst_ribbons.moc"
