// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/rollrows.h"

#include <QtTest/QtTest>

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace rollrows;

/// How long a roll is, and which rolls there are.
class TestRollLength : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_catalogue.run(u"BEGIN;"_s + rollScript() + u"COMMIT;"_s); }

    void fromTheTag_data();
    void fromTheTag();
    void fromTheCatalogue_data();
    void fromTheCatalogue();
    void closedCatalogue_data();
    void closedCatalogue();
    void skuList_data();
    void skuList();

private:
    const FixtureCatalogue m_catalogue;
};

void TestRollLength::fromTheTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<double>("expected");
    QTest::newRow("no tag") << QString() << -1.0;
    QTest::newRow("die-cut") << dieCutTag(0, 9) << 1800.0;
    QTest::newRow("continuous") << continuousTag(2) << 1800.0;
    QTest::newRow("no length") << QString(24, u'0') << 0.0;
    QTest::newRow("longest") << QString(24, u'F') << 6132.0;
}

void TestRollLength::fromTheTag()
{
    QFETCH(QString, tag);
    QFETCH(double, expected);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setSupplySKU(u"die-cut"_s);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    for (const QString &sku : {QString(), u""_s, u"UnknownSupply"_s})
        QVERIFY(answers(recorded, u"supplyLength"_s, {sku}, expected, {}));
    QCOMPARE(ask::byName(*recorded, u"supplyLength"_s, {}), expected);
    QCOMPARE(recorded.takeTexts(), QStringList());
}

void TestRollLength::fromTheCatalogue_data()
{
    QTest::addColumn<QString>("tag"); // "" is none
    QTest::addColumn<QString>("installed");
    QTest::addColumn<QString>("sku");
    QTest::addColumn<double>("expected");
    QTest::addColumn<QStringList>("texts");

    const auto row = [](const char *phrase, const QString &tag, const char *installed, const char *sku,
                        double expected, const QStringList &readList) {
        QTest::newRow(phrase) << tag << text(installed) << text(sku) << expected << textsOf(readList);
    };
    const QString none;
    // The type costs its questions twice unless it is 3 at once: label of the roll, then the installed roll's.
    const auto twice = [](const QStringList &once) { return once + once; };
    const auto typed = [&twice](const char *sku, const char *installed) {
        return reads("count label", sku) + twice(reads("label", sku) + reads("format material", installed));
    };
    const auto dieCut = [&typed](const char *sku, const char *installed) {
        return typed(sku, installed) + reads("label separator", sku);
    };

    row("continuous: feet", none, "type 4", "continuous", 1800.0, reads("count label", "continuous"));
    row("continuous of type 3", none, "continuous of type 3", "continuous of type 3", 6000.0,
        reads("count label", "continuous of type 3"));
    row("continuous, a tag with a type", dieCutTag(2, 9, 2, 2), "type 4", "continuous", 1800.0,
        reads("count label", "continuous"));
    row("NULL label length", none, "type 4", "label NULL", 1800.0, reads("count label", "label NULL"));
    row("longer than an int of inches", none, "type 4", "long", 25769803764.0, reads("count label", "long"));
    row("count below zero", none, "type 4", "count below zero", -84.0, reads("count label", "count below zero"));

    // Deliberate: die-cut media count labels, each with its separator; the count is not feet.
    row("die-cut", none, "die-cut", "die-cut", 2062.5, dieCut("die-cut", "die-cut"));
    row("die-cut, none installed", none, "-1", "die-cut", 2062.5, dieCut("die-cut", "-1"));
    row("die-cut, count NULL", none, "die-cut", "count NULL", 0.0, dieCut("count NULL", "die-cut"));
    row("type 3", none, "type 3", "type 3", 6000.0,
        reads("count label", "type 3") + reads("label format separator", "type 3"));
    row("type 4", none, "type 4", "type 4", 6000.0,
        reads("count label", "type 4") + twice(reads("label format separator", "type 4")));
    row("installed roll is of type 3", none, "type 3", "die-cut", 6000.0,
        reads("count label label", "die-cut") + reads("format separator", "type 3"));
    row("installed roll is of type 4", none, "type 4", "die-cut", 6000.0,
        reads("count label", "die-cut") + twice(reads("label", "die-cut") + reads("format separator", "type 4")));
    row("type 3, but installed is another", none, "die-cut", "type 3", 2062.5, dieCut("type 3", "die-cut"));
    row("no printer is taken to be a Quokka", none, "narrow quokka label", "narrow quokka label", 2050.0,
        dieCut("narrow quokka label", "narrow quokka label"));
    row("no printer is taken to be an Ibex", none, "marker", "marker", 2062.5, dieCut("marker", "marker"));
    row("tag of revision 2, type 3", dieCutTag(2, 9, 2, 3), "die-cut", "die-cut", 6000.0,
        reads("count label label", "die-cut"));
    row("tag of revision 2, type 4", dieCutTag(2, 9, 2, 4), "die-cut", "die-cut", 6000.0,
        reads("count label label label", "die-cut"));
    row("tag of revision 2, type 2", dieCutTag(2, 9, 2, 2), "type 3", "die-cut", 2062.5,
        reads("count label label label label separator", "die-cut"));

    row("SKU unknown to the catalogue", none, "die-cut", "no such roll", -1.0, typed("no such roll", "die-cut"));
    row("nothing known", none, "-1", "no such roll", -1.0, typed("no such roll", "-1"));
    row("SKU unknown, installed roll is of type 3", none, "type 3", "no such roll", -12.0,
        reads("count label label", "no such roll") + reads("format separator", "type 3"));
    row("SKU unknown, installed roll is of type 4", none, "type 4", "no such roll", -12.0,
        reads("count label", "no such roll") +
            twice(reads("label", "no such roll") + reads("format separator", "type 4")));
    row("unknown supply in another case", none, "die-cut", "unknownsupply", -1.0, typed("unknownsupply", "die-cut"));

    row("label length -1", none, "die-cut", "label -1", -1.0, typed("label -1", "die-cut"));
    row("label length not a number", none, "die-cut", "label not a number", -1.0,
        typed("label not a number", "die-cut"));
    row("label under minus a hair", none, "die-cut", "label under minus a hair", -1.0,
        typed("label under minus a hair", "die-cut"));
    // Deliberate: up to 1e-12 is continuous to the type, but only exactly 0.0 is to the length.
    const QStringList byAHair = {u"label under a hair"_s, u"label of a hair"_s};
    for (const QString &sku : byAHair) {
        const QByteArray name = sku.toLatin1();
        row(name.constData(), none, "type 3", name.constData(), 62.5000000005,
            reads("count label label label label separator", name.constData()));
    }
    row("label over a hair", none, "die-cut", "label over a hair", 62.5000000005,
        dieCut("label over a hair", "die-cut"));
    row("label minus a hair", none, "type 3", "label minus a hair", -1.0,
        reads("count label label label", "label minus a hair"));

    for (const char *sku : {"no separator row", "separator -0.5", "separator -1", "separator -1.49"})
        row(sku, none, "die-cut", sku, -1.0, dieCut(sku, "die-cut"));
    row("separator NULL", none, "die-cut", "separator NULL", 2000.0, dieCut("separator NULL", "die-cut"));
    row("separator -0.49", none, "die-cut", "separator -0.49", 1755.0, dieCut("separator -0.49", "die-cut"));
    row("separator -1.5", none, "die-cut", "separator -1.5", 1250.0, dieCut("separator -1.5", "die-cut"));
    row("separator not a number", none, "die-cut", "separator not a number", std::numeric_limits<double>::quiet_NaN(),
        dieCut("separator not a number", "die-cut"));
    row("separator endless", none, "die-cut", "separator endless", std::numeric_limits<double>::infinity(),
        dieCut("separator endless", "die-cut"));
}

void TestRollLength::fromTheCatalogue()
{
    QFETCH(QString, tag);
    QFETCH(QString, installed);
    QFETCH(QString, sku);
    QFETCH(double, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setSupplySKU(installed);
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    recorded.takeTexts();
    const QVariant directly = ask::directly(*recorded, u"supplyLength"_s, {sku});
    QCOMPARE(recorded.takeTexts(), texts);
    const QVariant byName = ask::byName(*recorded, u"supplyLength"_s, {sku});
    QCOMPARE(recorded.takeTexts(), texts);
    // QCOMPARE takes two NaN, and two numbers that differ in the last places, as equal.
    QCOMPARE(directly.toDouble(), expected);
    QCOMPARE(byName.toDouble(), expected);
}

void TestRollLength::closedCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *phrase, const char *operation, const QVariantList &arguments,
                        const QVariant &expected) {
        QTest::addRow("%s: %s", operation, phrase) << text(operation) << arguments << expected;
    };
    row("a SKU", "supplyTypeIndex", {u"continuous"_s, u"quokka"_s}, -1);
    row("unknown supply", "supplyTypeIndex", {u"UnknownSupply"_s, QString()}, 4);
    row("format 3", "supplyGetTypeSpecialCase", {u"type 4"_s, 3, QString()}, 3);
    row("format 9", "supplyGetTypeSpecialCase", {u"type 4"_s, 9, QString()}, -1);
    row("an Ibex", "supplyGetTypeSpecialCase", {u"type 4"_s, 40, u"ibex"_s}, 3);
    row("a SKU", "supplyFormat", {u"striped"_s}, 1);
    row("unknown supply", "supplyFormat", {u"UnknownSupply"_s}, 3);
    row("a SKU", "supplyFormatFromTable", {u"die-cut"_s}, 1);
    row("a SKU", "supplyFormatName", {u"die-cut"_s}, QString());
    row("a SKU", "supplyFormatType", {u"die-cut"_s}, QString());
    row("a SKU", "supplyLength", {u"die-cut"_s}, -1.0);
    row("unknown supply", "supplyLength", {u"UnknownSupply"_s}, 1800.0);
    row("no argument", "supplySKUList", {}, QStringList());
}

void TestRollLength::closedCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, expected);
    ZrSupplyDatabase closed;
    ask::takeTag(closed, dieCutTag(0, 3, 3));
    const QVariant answer = ask::directly(closed, operation, arguments);
    QCOMPARE(answer.metaType(), expected.metaType());
    QCOMPARE(answer, expected);
}

void TestRollLength::skuList_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("expected");

    const QString loose =
        u"DROP TABLE roll; CREATE TABLE roll (itemNum, materialWidthId);"
        "DROP TABLE materialwidth; CREATE TABLE materialwidth (id, machineId);"
        "INSERT INTO materialwidth VALUES (1, 'FAM'), (2, 'HM1'), (3, 'HM4'), (4, 'HM6'), (5, 'HMQ'), (6, 'WJA'),"
        " (7, NULL), (8, 'hmq'), (9, 'HM10'), (10, ''), (11, 'HM2'), (12, 'HMQ ');"_s;
    const QString insert = u"INSERT INTO roll VALUES "_s;
    QTest::newRow("none") << loose << QStringList{};
    QTest::newRow("one") << loose + insert + u"('A', 1)"_s << QStringList{u"A"_s};
    QTest::newRow("three, in the catalogue's order")
        << loose + insert + u"('C', 1), ('A', 8), ('B', 9)"_s << QStringList{u"C"_s, u"A"_s, u"B"_s};
    QTest::newRow("a SKU twice") << loose + insert + u"('A', 1), ('B', 8), ('A', 9)"_s
                                 << QStringList{u"A"_s, u"B"_s, u"A"_s};
    QTest::newRow("a width row twice") << loose + u"INSERT INTO materialwidth VALUES (1, 'FAM'); "_s + insert +
                                              u"('A', 1)"_s
                                       << QStringList{u"A"_s, u"A"_s};
    QTest::newRow("one width row of two is of this family")
        << loose + u"INSERT INTO materialwidth VALUES (5, 'FAM'); "_s + insert + u"('A', 5)"_s << QStringList{u"A"_s};
    for (int family = 2; family <= 7; ++family) {
        QTest::addRow("family of width row %d is left out", family)
            << loose + insert + u"('A', %1), ('B', 1)"_s.arg(family) << QStringList{u"B"_s};
    }
    for (int family = 8; family <= 12; ++family) {
        QTest::addRow("family of width row %d is not left out", family)
            << loose + insert + u"('A', %1)"_s.arg(family) << QStringList{u"A"_s};
    }
    QTest::newRow("no width row") << loose + insert + u"('A', 99), ('B', 1)"_s << QStringList{u"B"_s};
    QTest::newRow("NULL is an empty text, a number its digits")
        << loose + insert + u"(NULL, 1), (7, 1)"_s << QStringList{QString(), u"7"_s};
    QTest::newRow("no table") << u"DROP TABLE roll"_s << QStringList{};
    QTest::newRow("no column") << u"DROP TABLE materialwidth; CREATE TABLE materialwidth (id)"_s << QStringList{};
}

void TestRollLength::skuList()
{
    QFETCH(QString, script);
    QFETCH(QStringList, expected);
    const FixtureCatalogue catalogue;
    catalogue.run(script);
    RecordedDatabase recorded(catalogue.path());
    QVERIFY(answers(recorded, u"supplySKUList"_s, {}, expected, {filled("rollSkus")}));
}

QTEST_GUILESS_MAIN(TestRollLength)
#include "tst_rolllength.moc"
