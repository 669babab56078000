// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/rollrows.h"

#include <QtTest/QtTest>

#include <limits>

using namespace Qt::Literals::StringLiterals;

using namespace rollrows;

/// What class of roll it is, its format and its length, and which rolls there are.
class TestRollType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_catalogue.run(u"BEGIN;"_s + rollScript() + u"COMMIT;"_s); }

    void specialCase_data();
    void specialCase();
    void specialCaseFromTheTag_data();
    void specialCaseFromTheTag();
    void typeIndex_data();
    void typeIndex();
    void format_data();
    void format();

private:
    const FixtureCatalogue m_catalogue;
};

void TestRollType::specialCase_data()
{
    QTest::addColumn<QString>("sku");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("printer");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QStringList>("texts");

    const auto row = [](const char *sku, int format, const char *printer, int expected, const char *read) {
        QTest::addRow("%s, format %d, printer '%s'", sku, format, printer)
            << text(sku) << format << text(printer) << expected << textsOf(reads(read, sku));
    };

    // Format 3: by the separator alone, strictly above 0.13 inch
    row("m5 s0.1", 3, "", 3, "separator");
    row("m5 s0.125", 3, "", 3, "separator");
    row("m5 s0.1299999999", 3, "", 3, "separator");
    row("m5 s0.13", 3, "", 3, "separator");
    row("m5 s0.1300000001", 3, "", 4, "separator");
    row("m5 s0.1499999999", 3, "", 4, "separator");
    row("m5 s0.1875", 3, "", 4, "separator");
    row("m5 snan", 3, "", 3, "separator");
    row("m5 sNULL", 3, "", 3, "separator");
    row("no such roll", 3, "", 3, "separator");
    row("m-1 s0.13", 3, "", 3, "separator");
    row("m-1 s0.1875", 3, "", 4, "separator");
    for (const char *printer : {"quokka", "ibex", "marlin", "wombat"}) {
        row("m18 s0.13", 3, printer, 3, "separator");
        row("m1 s0.1300000001", 3, printer, 4, "separator");
    }

    // A Quokka with format 39 on material 1: strictly below 0.15 inch
    row("m1 s0.1", 39, "quokka", 3, "material separator");
    row("m1 s0.13", 39, "quokka", 3, "material separator");
    row("m1 s0.1499999999", 39, "quokka", 3, "material separator");
    row("m1 s0.15", 39, "quokka", 2, "material separator");
    row("m1 s0.1500000001", 39, "quokka", 2, "material separator");
    row("m1 s0.1875", 39, "quokka", 2, "material separator");
    row("m1 snan", 39, "quokka", 2, "material separator");
    row("m1 sNULL", 39, "quokka", 3, "material separator");
    row("m5 s0.1", 39, "quokka", 2, "material");
    row("m18 s0.1", 39, "quokka", 2, "material");
    row("mNULL s0.1", 39, "quokka", 2, "material");
    row("m-1 s0.1", 39, "quokka", -1, "material");
    row("no such roll", 39, "quokka", -1, "material");
    row("m1 s0.1", 38, "quokka", 2, "material");
    row("m1 s0.1", 40, "quokka", 2, "material");
    // and with formats 41 to 54 on material 18
    for (int format = 41; format <= 54; ++format) {
        row("m18 s0.1", format, "quokka", 3, "material separator");
        row("m1 s0.1", format, "quokka", 2, "material");
    }
    for (const int format : {41, 54}) {
        row("m18 s0.1499999999", format, "quokka", 3, "material separator");
        row("m18 s0.15", format, "quokka", 2, "material separator");
        row("m18 s0.1500000001", format, "quokka", 2, "material separator");
        row("m18 snan", format, "quokka", 2, "material separator");
        row("m5 s0.1", format, "quokka", 2, "material");
        row("m-1 s0.1", format, "quokka", -1, "material");
    }
    row("m18 s0.1", 40, "quokka", 2, "material");
    row("m18 s0.1", 55, "quokka", 2, "material");
    row("m18 s0.1", -1, "quokka", -1, "material");

    // An Ibex or a Marlin with format 40
    for (const char *printer : {"ibex", "marlin"}) {
        row("m5 s0.1875", 40, printer, 3, "material");
        row("m-1 s0.1", 40, printer, 3, "material");
        row("no such roll", 40, printer, 3, "material");
        row("m1 s0.1", 39, printer, 2, "material");
        row("m18 s0.1", 41, printer, 2, "material");
        row("m5 s0.1", -1, printer, -1, "material");
        row("m-1 s0.1", 41, printer, -1, "material");
    }
    row("m-1 s0.1", 40, "quokka", -1, "material");

    // Names in any case, within longer names, and several in one
    for (const char *printer : {"Quokka-200", "QUOKKA", "my qUoKkA", "xquokkax", "quokka ibex", "marlin/quokka"}) {
        row("m1 s0.1", 39, printer, 3, "material separator");
        row("m5 s0.1", 40, printer, 2, "material");
    }
    for (const char *printer : {"IBEX-9", "the Ibex", "MARLIN", "Blue-MaRlIn-2", "marlinibex"}) {
        row("m5 s0.1", 40, printer, 3, "material");
        row("m1 s0.1", 39, printer, 2, "material");
    }
    for (const char *printer : {"", "quok ka", "quoka", "ibe", "marli n", "wombat"}) {
        row("m1 s0.1", 39, printer, 2, "material");
        row("m18 s0.1", 41, printer, 2, "material");
        row("m5 s0.1", 40, printer, 2, "material");
    }

    // Any other
    row("m5 s0.1", 9, "", 2, "material");
    row("m5 s0.1", 0, "", 2, "material");
    row("m5 s0.1", 2, "", 2, "material");
    row("m5 s0.1", 4, "", 2, "material");
    row("m5 s0.1", -2, "", 2, "material");
    row("m5 s0.1", std::numeric_limits<int>::max(), "", 2, "material");
    row("m5 s0.1", -1, "", -1, "material");
    row("m-1 s0.1", 9, "", -1, "material");
    row("mNULL s0.1", 9, "", 2, "material");
    row("no such roll", 9, "", -1, "material");
}

void TestRollType::specialCase()
{
    QFETCH(QString, sku);
    QFETCH(int, format);
    QFETCH(QString, printer);
    QFETCH(int, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    QVERIFY(answers(recorded, u"supplyGetTypeSpecialCase"_s, {sku, format, printer}, expected, texts));
}

void TestRollType::specialCaseFromTheTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("printer");
    QTest::addColumn<int>("expected");
    QTest::newRow("no tag: no material") << QString() << 9 << QString() << -1;
    QTest::newRow("no tag: no separator") << QString() << 3 << QString() << 3;
    QTest::newRow("separator 0.125") << dieCutTag(0, 9, 2) << 3 << QString() << 3;
    QTest::newRow("separator 0.1875") << dieCutTag(0, 9, 3) << 3 << QString() << 4;
    QTest::newRow("material 1, narrow, Quokka") << dieCutTag(0, 9, 2) << 39 << u"Quokka"_s << 3;
    QTest::newRow("material 1, wide, Quokka") << dieCutTag(0, 9, 3) << 39 << u"Quokka"_s << 2;
    QTest::newRow("marker, Ibex") << dieCutTag(0, 9, 3) << 40 << u"Ibex"_s << 3;
}

void TestRollType::specialCaseFromTheTag()
{
    QFETCH(QString, tag);
    QFETCH(int, format);
    QFETCH(QString, printer);
    QFETCH(int, expected);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setSupplySKU(u"type 4"_s);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    for (const QString &sku : {QString(), u"UnknownSupply"_s})
        QVERIFY(answers(recorded, u"supplyGetTypeSpecialCase"_s, {sku, format, printer}, expected, {}));
}

void TestRollType::typeIndex_data()
{
    QTest::addColumn<QString>("tag");       // "" is none
    QTest::addColumn<QString>("installed"); // "-1" is none
    QTest::addColumn<QString>("sku");
    QTest::addColumn<QString>("printer");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QStringList>("texts");

    const auto row = [](const char *phrase, const QString &tag, const char *installed, const char *sku,
                        const char *printer, int expected, const QStringList &readList) {
        QTest::newRow(phrase) << tag << text(installed) << text(sku) << text(printer) << expected
                              << textsOf(readList);
    };
    const QString none;
    row("empty SKU", none, "die-cut", "", "", -1, {});
    row("empty SKU, a printer", none, "type 4", "", "quokka", -1, {});
    row("empty SKU, a tag with a type", dieCutTag(2, 9, 2, 4), "die-cut", "", "ibex", -1, {});

    for (const char *printer : {"", "quokka", "ibex", "marlin"}) {
        const QByteArray phrase = QByteArray("continuous, printer '") + printer + '\'';
        row(phrase.constData(), none, "type 4", "continuous", printer, 1, reads("label", "continuous"));
    }
    row("continuous, a tag with another type", dieCutTag(2, 9, 2, 4), "type 4", "continuous", "", 1,
        reads("label", "continuous"));
    row("continuous although of format 3", none, "continuous of type 3", "continuous of type 3", "", 1,
        reads("label", "continuous of type 3"));
    row("NULL label length", none, "type 4", "label NULL", "", 1, reads("label", "label NULL"));
    for (const char *sku : {"label under a hair", "label of a hair", "label minus a hair"})
        row(sku, none, "type 4", sku, "", 1, reads("label", sku));
    for (const char *sku : {"label over a hair", "label under minus a hair", "label not a number"})
        row(sku, none, "type 4", sku, "", 4, reads("label", sku) + reads("format separator", "type 4"));

    row("tag of revision 2", dieCutTag(2, 9, 2, 4), "type 3", "die-cut", "", 4, reads("label", "die-cut"));
    row("tag of revision 2, type 1", dieCutTag(2, 9, 2, 1), "type 3", "die-cut", "", 1, reads("label", "die-cut"));
    row("tag of revision 15", dieCutTag(15, 9, 2, 3), "die-cut", "die-cut", "", 3, reads("label", "die-cut"));
    row("tag of revision 2, continuous", continuousTag(2, 3), "die-cut", "die-cut", "", 3, reads("label", "die-cut"));
    row("tag of revision 2, SKU unknown to the catalogue", dieCutTag(2, 9, 2, 4), "die-cut", "no such roll", "", 4,
        reads("label", "no such roll"));
    row("tag of revision 1 has no type", dieCutTag(1, 9, 2, 4), "type 3", "die-cut", "", 3,
        reads("label", "die-cut") + reads("format separator", "type 3"));

    row("unknown supply without a tag", none, "type 4", "UnknownSupply", "", -1, {});
    row("unknown supply, continuous tag", continuousTag(0), "type 4", "UnknownSupply", "", 1, {});
    row("unknown supply, continuous tag of revision 2", continuousTag(2, 4), "type 4", "UnknownSupply", "", 1, {});
    row("unknown supply, no label length", dieCutTag(0, 3, 3, 1, 0), "type 4", "UnknownSupply", "", 1, {});
    row("unknown supply, tag of revision 2", dieCutTag(2, 3, 2, 2), "type 4", "UnknownSupply", "quokka", 2, {});
    row("unknown supply, format 0", dieCutTag(0, 0), "type 4", "UnknownSupply", "", 0, {});
    row("unknown supply, format 3, separator 0.1875", dieCutTag(0, 3, 3), "die-cut", "UnknownSupply", "", 4, {});
    row("unknown supply, format 3, separator 0.125", dieCutTag(0, 3, 2), "die-cut", "UnknownSupply", "", 3, {});
    row("unknown supply, revision 1, format 3", dieCutTag(1, 3, 4), "die-cut", "UnknownSupply", "", 4, {});
    row("unknown supply, format 9", dieCutTag(0, 9), "type 4", "UnknownSupply", "", 2, {});
    row("unknown supply, format 39, Quokka", dieCutTag(0, 39, 2), "type 4", "UnknownSupply", "a QUOKKA", 3, {});
    row("unknown supply, format 39, wide, Quokka", dieCutTag(0, 39, 3), "type 4", "UnknownSupply", "quokka", 2, {});
    row("unknown supply, format 40, Marlin", dieCutTag(1, 40), "type 4", "UnknownSupply", "Marlin", 3, {});
    row("unknown supply, format 40, no printer", dieCutTag(1, 40), "type 4", "UnknownSupply", "", 2, {});
    row("unknown supply in another case is looked up", dieCutTag(0, 3, 3), "die-cut", "unknownsupply", "", 2,
        reads("label", "unknownsupply") + reads("format material", "die-cut"));

    // Deliberate: beyond the label length the installed roll decides, not the one that is asked for.
    row("installed roll in place of the argument, type 4", none, "type 4", "die-cut", "", 4,
        reads("label", "die-cut") + reads("format separator", "type 4"));
    row("installed roll in place of the argument, type 2", none, "die-cut", "type 4", "", 2,
        reads("label", "type 4") + reads("format material", "die-cut"));
    row("installed roll itself", none, "type 3", "type 3", "", 3, reads("label format separator", "type 3"));
    row("installed roll is continuous, which is not looked at", none, "continuous", "die-cut", "", 2,
        reads("label", "die-cut") + reads("format material", "continuous"));
    row("no installed roll", none, "-1", "type 4", "", -1, reads("label", "type 4") + reads("format material", "-1"));
    row("installed roll is unknown, no tag", none, "UnknownSupply", "type 4", "", -1,
        reads("label", "type 4") + reads("format", "UnknownSupply"));
    row("installed roll is unknown, material from its tag", dieCutTag(0, 3, 3), "UnknownSupply", "type 4", "", 2,
        reads("label", "type 4") + reads("format", "UnknownSupply"));
    row("installed SKU is empty, material from its tag", dieCutTag(0, 3, 3), "", "type 4", "", 2,
        reads("label", "type 4") + reads("format", ""));
    row("SKU unknown to the catalogue", none, "die-cut", "no such roll", "", 2,
        reads("label", "no such roll") + reads("format material", "die-cut"));
    row("both unknown to the catalogue", none, "no such roll", "no such roll", "", -1,
        reads("label format material", "no such roll"));
    row("installed format unknown", none, "format unknown", "die-cut", "", -1,
        reads("label", "die-cut") + reads("format material", "format unknown"));
    row("printer of the installed roll", none, "narrow quokka label", "die-cut", "Quokka-200", 3,
        reads("label", "die-cut") + reads("format material separator", "narrow quokka label"));
    row("no printer", none, "narrow quokka label", "die-cut", "", 2,
        reads("label", "die-cut") + reads("format material", "narrow quokka label"));
    row("marker on an Ibex", none, "marker", "die-cut", "ibex", 3,
        reads("label", "die-cut") + reads("format material", "marker"));
}

void TestRollType::typeIndex()
{
    QFETCH(QString, tag);
    QFETCH(QString, installed);
    QFETCH(QString, sku);
    QFETCH(QString, printer);
    QFETCH(int, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setSupplySKU(installed);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    QVERIFY(answers(recorded, u"supplyTypeIndex"_s, {sku, printer}, expected, texts));
    if (printer.isEmpty()) {
        QCOMPARE(ask::byName(*recorded, u"supplyTypeIndex"_s, {sku}), expected);
        QCOMPARE(recorded.takeTexts(), texts);
    }
    QCOMPARE(ask::byName(*recorded, u"supplyTypeIndex"_s, {}), -1);
    QCOMPARE(recorded.takeTexts(), QStringList());
}

void TestRollType::format_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("installed");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<int>("language");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QStringList>("texts");

    const QString none;
    const auto format = [](const char *phrase, const QString &tag, const char *sku, int expected,
                           const QStringList &readList) {
        QTest::addRow("format: %s", phrase)
            << u"supplyFormat"_s << tag << u"striped"_s << text(sku) << 0 << QVariant(expected) << textsOf(readList);
    };
    format("no tag, empty SKU", none, "", -1, {});
    format("no tag, unknown supply", none, "UnknownSupply", -1, {});
    format("no tag, striped", none, "striped", 2, reads("stripe", "striped"));
    format("empty SKU", dieCutTag(0, 9), "", 9, {});
    format("unknown supply", dieCutTag(0, 9), "UnknownSupply", 9, {});
    format("striped", dieCutTag(0, 9), "striped", 2, reads("stripe", "striped"));
    format("striped by a hair", dieCutTag(0, 9), "striped by a hair", 2, reads("stripe", "striped by a hair"));
    for (const char *sku : {"stripe of zero width", "stripe below zero", "stripe NULL"})
        format(sku, dieCutTag(0, 40), sku, 9, reads("stripe format", sku));
    format("continuous", dieCutTag(0, 9), "continuous", 1, reads("stripe format", "continuous"));
    format("die-cut", dieCutTag(0, 40), "die-cut", 9, reads("stripe format", "die-cut"));
    format("SKU unknown to the catalogue", dieCutTag(0, 9), "no such roll", 1,
           reads("stripe format", "no such roll"));
    format("unknown supply in another case", dieCutTag(0, 9), "UNKNOWNSUPPLY", 1,
           reads("stripe format", "UNKNOWNSUPPLY"));
    for (const char *sku : {"", "UnknownSupply", "striped", "die-cut", "no such roll"}) {
        const auto phrase = [sku](const char *words) { return QByteArray(words) + " '" + sku + '\''; };
        format(phrase("tag of revision 1,").constData(), dieCutTag(1, 9), sku, 33, {});
        format(phrase("tag of revision 2,").constData(), dieCutTag(2, 40), sku, 40, {});
        format(phrase("tag of revision 15,").constData(), dieCutTag(15, 40), sku, 40, {});
    }

    const auto named = [](const char *phrase, const char *operation, const QString &tag, const char *installed,
                          const char *sku, int language, const char *expected, const QStringList &readList) {
        QTest::addRow("%s: %s", operation, phrase) << text(operation) << tag << text(installed) << text(sku)
                                                   << language << QVariant(text(expected)) << textsOf(readList);
    };
    const auto name = [&named](const char *phrase, const QString &tag, const char *installed, const char *sku,
                               int language, const char *expected, const QStringList &readList) {
        named(phrase, "supplyFormatName", tag, installed, sku, language, expected, readList);
    };
    name("striped", none, "die-cut", "striped", 0, "Striped",
         reads("stripe", "striped") + QStringList{u"name 0:2"_s});
    name("language 7", none, "die-cut", "striped", 7, "Gestreift",
         reads("stripe", "striped") + QStringList{u"name 7:2"_s});
    name("language without names is empty, not -1", none, "die-cut", "striped", 8, "",
         reads("stripe", "striped") + QStringList{u"name 8:2"_s});
    name("NULL name", none, "", "format 55", 0, "",
         reads("stripe format", "format 55") + QStringList{u"name 0:55"_s});
    name("format without a name", none, "", "format 77", 0, "",
         reads("stripe format", "format 77") + QStringList{u"name 0:77"_s});
    name("SKU unknown to the catalogue", none, "striped", "no such roll", 0, "Continuous",
         reads("stripe format", "no such roll") + QStringList{u"name 0:1"_s});
    name("empty SKU is the installed roll", dieCutTag(0, 1), "die-cut", "", 7, "Etikett",
         reads("stripe format", "die-cut") + QStringList{u"name 7:9"_s});
    name("empty SKU, unknown roll installed", dieCutTag(0, 9), "UnknownSupply", "", 7, "Etikett", {u"name 7:9"_s});
    name("empty SKU, none installed", dieCutTag(0, 9), "", "", 7, "Etikett", {u"name 7:9"_s});
    name("empty SKU, unset SKU installed", none, "-1", "", 0, "Continuous",
         reads("stripe format", "-1") + QStringList{u"name 0:1"_s});
    name("unknown supply without a tag", none, "die-cut", "UnknownSupply", 0, "", {u"name 0:-1"_s});
    name("unknown supply", continuousTag(0), "die-cut", "UnknownSupply", 7, "Endlos", {u"name 7:1"_s});
    name("tag of revision 2", dieCutTag(2, 9), "striped", "striped", 0, "Label", {u"name 0:9"_s});

    const auto type = [&named](const char *phrase, const QString &tag, const char *installed, const char *sku,
                               const char *expected, const QStringList &readList) {
        named(phrase, "supplyFormatType", tag, installed, sku, 8, expected, readList);
    };
    type("striped", none, "die-cut", "striped", "striped", reads("stripe", "striped") + QStringList{u"type:2"_s});
    type("die-cut", none, "striped", "die-cut", "label",
         reads("stripe format", "die-cut") + QStringList{u"type:9"_s});
    type("NULL type", none, "", "format 55", "", reads("stripe format", "format 55") + QStringList{u"type:55"_s});
    type("format without a row", none, "", "format 77", "",
         reads("stripe format", "format 77") + QStringList{u"type:77"_s});
    type("empty SKU is the installed roll", dieCutTag(0, 1), "die-cut", "", "label",
         reads("stripe format", "die-cut") + QStringList{u"type:9"_s});
    type("empty SKU, unknown roll installed", dieCutTag(0, 40), "UnknownSupply", "", "panel", {u"type:40"_s});
    type("empty SKU, none installed", dieCutTag(0, 40), "", "", "panel", {u"type:40"_s});
    type("unknown supply without a tag", none, "die-cut", "UnknownSupply", "", {u"type:-1"_s});
    type("tag of revision 1", dieCutTag(1, 9), "striped", "striped", "", {u"type:33"_s});
}

void TestRollType::format()
{
    QFETCH(QString, operation);
    QFETCH(QString, tag);
    QFETCH(QString, installed);
    QFETCH(QString, sku);
    QFETCH(int, language);
    QFETCH(QVariant, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setSupplySKU(installed);
    recorded->setLanguageId(language);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    QVERIFY(answers(recorded, operation, {sku}, expected, texts));
    if (sku.isEmpty()) {
        QCOMPARE(ask::byName(*recorded, operation, {}), expected);
        QCOMPARE(recorded.takeTexts(), texts);
    }
}

QTEST_GUILESS_MAIN(TestRollType)
#include "tst_rolltype.moc"
