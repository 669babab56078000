// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/statementlist.h"
#include "support/tagtext.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The four families of print parameters; the fixture's values end in `digit`.
struct Parameter
{
    const char *single;
    const char *ofRibbon;
    const char *ofRibbons;
    const char *statement;
    int digit;
};

constexpr Parameter parameters[] = {
    {"supplyRibbonHeat", "supplyRibbonHeats", "supplyRibbonsHeats", "ribbonHeat", 1},
    {"supplyRibbonHeatOffset", "supplyRibbonHeatOffsets", "supplyRibbonsHeatOffsets", "ribbonHeatOffset", 2},
    {"supplyRibbonMaxSpeed", "supplyRibbonMaxSpeeds", "supplyRibbonsMaxSpeeds", "ribbonMaxSpeed", 3},
    {"supplyRibbonTension", "supplyRibbonTensions", "supplyRibbonsTensions", "ribbonTension", 4},
};

/// Materials that no tag carries, and special-looking SKUs with values of their own.
constexpr auto furtherRows = R"(
    INSERT INTO materialwidth (id, materialId) VALUES (50, -1), (51, -2), (52, 0);
    INSERT INTO roll (itemNum, materialWidthId) VALUES
        ('MATERIAL -1', 50), ('MATERIAL -2', 51), ('MATERIAL 0', 52), ('MATERIAL NULL', 16);
    INSERT INTO ribbon (id, sku) VALUES
        (30, 'r4417tx'), (31, 'R4417TX '), (32, 'Hvwa-Zerospol'), (33, ''), (34, 'ODD'), (35, 'UnknownSupply');
    INSERT INTO ribbon_heat (ribbonId, panel, materialId, heat, max_offset, max_speed, tension) VALUES
        (30, 1, 1, 3011, 3012, 3013, 3014), (31, 1, 1, 3111, 3112, 3113, 3114), (32, 1, 1, 3211, 3212, 3213, 3214),
        (33, 1, 1, 3311, 3312, 3313, 3314), (34, 1, -1, 3411, 3412, 3413, 3414), (34, 1, -2, 3421, 3422, 3423, 3424),
        (34, 1, 0, 3431, 3432, 3433, 3434), (34, 0, 1, 3441, 3442, 3443, 3444), (34, -1, 1, 3451, 3452, 3453, 3454),
        (35, 1, 1, 3511, 3512, 3513, 3514);
)"_L1;

QString tagOfMaterial(unsigned code)
{
    return tagText({{tagbits::material, code}, {tagbits::format, 9}});
}

QString text(const char *word)
{
    return QString::fromLatin1(word);
}

/// -1 and 0 stand for themselves, any other for the fixture's value without its last digit.
int valueOf(const Parameter &parameter, int value)
{
    return value == -1 || value == 0 ? value : value * 10 + parameter.digit;
}

/// What is asked of a ribbon: on a roll that the catalogue is asked for, or with a material that is known already.
struct Asked
{
    QString ribbon;
    int panel;
    QString roll;     ///< "" costs no query for the material
    QString material; ///< "" costs no query for the parameter
};

QStringList textsOf(const Parameter &parameter, const QList<Asked> &askedList)
{
    QStringList texts;
    for (const Asked &asked : askedList) {
        if (!asked.roll.isEmpty())
            texts << filled("rollMaterial", {asked.roll});
        if (!asked.material.isEmpty())
            texts << filled(parameter.statement, {asked.ribbon, QString::number(asked.panel), asked.material});
    }
    return texts;
}

} // namespace

/// Heat, heat offset, speed and tension of a panel on a material: one, of one ribbon, of several.
class TestRibbonParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_catalogue.run(QString(furtherRows)); }

    void single_data();
    void single();
    void ofRibbon_data();
    void ofRibbon();
    void ofRibbons_data();
    void ofRibbons();
    void materialIsNotKept();
    void closedCatalogue_data();
    void closedCatalogue();

private:
    static void addColumns();
    void check();

    const FixtureCatalogue m_catalogue;
};

void TestRibbonParameters::addColumns()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("tag"); // "" is none
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QStringList>("texts");
}

void TestRibbonParameters::check()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QString, tag);
    QFETCH(QVariant, expected);
    QFETCH(QStringList, texts);
    RecordedDatabase recorded(m_catalogue.path());
    if (!tag.isEmpty())
        ask::takeTag(*recorded, tag);
    // Neither the installed roll's SKU nor the language takes part.
    recorded->setSupplySKU(u"DIECUT-18"_s);
    recorded->setLanguageId(7);
    QVERIFY(answers(recorded, operation, arguments, expected, texts));
}

void TestRibbonParameters::single_data()
{
    addColumns();
    for (const Parameter &parameter : parameters) {
        const auto row = [&parameter](const char *phrase, const char *ribbon, int panel, const char *roll,
                                      const QString &tag, int value, const QList<Asked> &asked) {
            QTest::addRow("%s: %s", parameter.single, phrase)
                << text(parameter.single) << QVariantList{text(ribbon), panel, text(roll)} << tag
                << QVariant(valueOf(parameter, value)) << textsOf(parameter, asked);
        };
        // With a material from the catalogue: its query, then the parameter's
        const auto onRoll = [&row](const char *phrase, const char *ribbon, int panel, const char *roll,
                                   const char *material, int value) {
            row(phrase, ribbon, panel, roll, tagOfMaterial(18), value,
                {{text(ribbon), panel, text(roll), text(material)}});
        };
        onRoll("found", "RIB-ONE", 1, "CONT-4", "1", 121);
        onRoll("another material", "RIB-ONE", 1, "DIECUT", "5", 125);
        onRoll("panel 2", "RIB-TWO", 2, "CONT-4", "1", 132);
        onRoll("panel 3", "RIB-THREE", 3, "CONT-4", "1", 143);
        onRoll("panel that the ribbon does not have", "RIB-ONE", 2, "CONT-4", "1", -1);
        onRoll("panel 0 that has a row", "ODD", 0, "CONT-4", "1", 344);
        onRoll("negative panel that has a row", "ODD", -1, "CONT-4", "1", 345);
        onRoll("material without a row", "RIB-TWO", 1, "DIECUT", "5", -1);
        onRoll("roll of another machine family", "RIB-ONE", 1, "OTHER-FAMILY", "1", 121);
        onRoll("NULL value is 0", "RIB-NULLS", 1, "CONT-4", "1", 0);
        onRoll("value 0", "RIB-NULLS", 2, "CONT-4", "1", 0);
        onRoll("unknown ribbon", "NOSUCH", 1, "CONT-4", "1", -1);
        onRoll("empty ribbon SKU is looked up", "", 1, "CONT-4", "1", 331);
        onRoll("unknown supply as a ribbon is looked up", "UnknownSupply", 1, "CONT-4", "1", 351);
        onRoll("ribbon in another case", "rib-one", 1, "CONT-4", "1", -1);
        onRoll("ribbon with a quote", "RIB'ONE", 1, "CONT-4", "1", -1);
        onRoll("special ribbon in another case", "r4417tx", 1, "CONT-4", "1", 301);
        onRoll("special ribbon and a blank", "R4417TX ", 1, "CONT-4", "1", 311);
        onRoll("other special ribbon in another case", "Hvwa-Zerospol", 1, "CONT-4", "1", 321);
        onRoll("clear tail ribbon is not special", "R530947", 2, "CONT-4", "1", 182);
        onRoll("material -2", "ODD", 1, "MATERIAL -2", "-2", 342);
        onRoll("material 0", "ODD", 1, "MATERIAL 0", "0", 343);
        onRoll("NULL material is 0", "ODD", 1, "MATERIAL NULL", "0", 343);
        // Filled at once: placeholders in the ribbon's SKU stay as they are.
        for (const char *ribbon : {"A%1B", "A%2B", "A%3B", "A%L1B", "A%1%2%3B"})
            onRoll(ribbon, ribbon, 1, "CONT-4", "1", -1);

        // No material: its query alone
        const auto noMaterial = [&row](const char *phrase, const char *roll) {
            row(phrase, "ODD", 1, roll, tagOfMaterial(1), -1, {{u"ODD"_s, 1, text(roll), {}}});
        };
        noMaterial("material -1", "MATERIAL -1");
        noMaterial("unknown roll", "NOSUCH");
        noMaterial("unknown supply in another case", "unknownsupply");
        noMaterial("roll without its width row", "DANGLING");
        noMaterial("roll with a quote", "CONT'4");
        noMaterial("roll with a placeholder", "A%1B");

        // The tag's material: the parameter's query alone
        const QList<Asked> ofTag = {{u"RIB-ONE"_s, 1, {}, u"5"_s}};
        row("unknown supply, material of the tag", "RIB-ONE", 1, "UnknownSupply", tagOfMaterial(5), 125, ofTag);
        row("empty roll SKU, material of the tag", "RIB-ONE", 1, "", tagOfMaterial(5), 125, ofTag);
        row("unknown supply, material 255", "RIB-ONE", 1, "UnknownSupply", tagOfMaterial(255), -1,
            {{u"RIB-ONE"_s, 1, {}, u"255"_s}});
        row("unknown supply, material 0", "ODD", 1, "UnknownSupply", tagOfMaterial(0), 343,
            {{u"ODD"_s, 1, {}, u"0"_s}});
        row("unknown supply without a tag", "ODD", 1, "UnknownSupply", {}, -1, {});
        row("empty roll SKU without a tag", "ODD", 1, "", {}, -1, {});

        // The special ribbons cost nothing, whatever the panel and the roll.
        for (const char *ribbon : {"R4417TX", "HVWA-ZEROSPOL"}) {
            for (const char *roll : {"CONT-4", "", "UnknownSupply", "NOSUCH"}) {
                for (const int panel : {1, 2}) {
                    const QByteArray phrase =
                        QByteArray(ribbon) + " panel " + QByteArray::number(panel) + " on '" + roll + '\'';
                    row(phrase.constData(), ribbon, panel, roll, tagOfMaterial(1), -1, {});
                }
            }
        }
    }
}

void TestRibbonParameters::single()
{
    check();
}

void TestRibbonParameters::ofRibbon_data()
{
    addColumns();
    for (const Parameter &parameter : parameters) {
        const auto row = [&parameter](const char *phrase, const char *ribbon, const char *roll, const QString &tag,
                                      int first, int second, const Asked &once) {
            Asked again = once;
            again.panel = 2;
            QTest::addRow("%s: %s", parameter.ofRibbon, phrase)
                << text(parameter.ofRibbon) << QVariantList{text(ribbon), text(roll)} << tag
                << QVariant(QVariantList{valueOf(parameter, first), valueOf(parameter, second)})
                << textsOf(parameter, {once, again});
        };
        const auto onRoll = [&row](const char *phrase, const char *ribbon, int first, int second) {
            row(phrase, ribbon, "CONT-4", tagOfMaterial(5), first, second, {text(ribbon), 1, u"CONT-4"_s, u"1"_s});
        };
        // Deliberate: panels 1 and 2 and no other, however many the ribbon has.
        onRoll("one panel", "RIB-ONE", 121, -1);
        onRoll("two panels", "RIB-TWO", 131, 132);
        onRoll("three panels", "RIB-THREE", 141, 142);
        onRoll("NULL and 0", "RIB-NULLS", 0, 0);
        onRoll("unknown ribbon", "NOSUCH", -1, -1);
        onRoll("empty SKU", "", 331, -1);
        row("unknown roll", "RIB-TWO", "NOSUCH", tagOfMaterial(1), -1, -1, {u"RIB-TWO"_s, 1, u"NOSUCH"_s, {}});
        row("unknown supply", "RIB-TWO", "UnknownSupply", tagOfMaterial(1), 131, 132, {u"RIB-TWO"_s, 1, {}, u"1"_s});
        row("empty roll SKU", "RIB-TWO", "", tagOfMaterial(1), 131, 132, {u"RIB-TWO"_s, 1, {}, u"1"_s});
        row("unknown supply without a tag", "RIB-TWO", "UnknownSupply", {}, -1, -1, {});
        row("R4417TX", "R4417TX", "CONT-4", tagOfMaterial(1), -1, -1, {});
        row("HVWA-ZEROSPOL", "HVWA-ZEROSPOL", "CONT-4", tagOfMaterial(1), -1, -1, {});
    }
}

void TestRibbonParameters::ofRibbon()
{
    check();
}

void TestRibbonParameters::ofRibbons_data()
{
    addColumns();
    for (const Parameter &parameter : parameters) {
        const auto row = [&parameter](const char *phrase, const QStringList &ribbons, const char *roll,
                                      const QList<int> &values, const QStringList &askedRibbons,
                                      const char *askedRoll, const char *material) {
            QList<Asked> asked;
            for (const QString &ribbon : askedRibbons) {
                for (const int panel : {1, 2})
                    asked.append({ribbon, panel, text(askedRoll), text(material)});
            }
            QVariantList expected;
            for (const int value : values)
                expected.append(valueOf(parameter, value));
            QTest::addRow("%s: %s", parameter.ofRibbons, phrase)
                << text(parameter.ofRibbons) << QVariantList{ribbons, text(roll)} << tagOfMaterial(1)
                << QVariant(expected) << textsOf(parameter, asked);
        };
        const QString one = u"RIB-ONE"_s;
        const QString two = u"RIB-TWO"_s;
        const QString three = u"RIB-THREE"_s;
        const QString special = u"HVWA-ZEROSPOL"_s;
        const QString missing = u"NOSUCH"_s;
        row("none", {}, "CONT-4", {}, {}, "", "");
        row("one", {two}, "CONT-4", {131, 132}, {two}, "CONT-4", "1");
        row("three in their order", {three, one, two}, "CONT-4", {141, 142, 121, -1, 131, 132}, {three, one, two},
            "CONT-4", "1");
        row("the same twice", {one, one}, "CONT-4", {121, -1, 121, -1}, {one, one}, "CONT-4", "1");
        row("unknown in the middle", {one, missing, two}, "CONT-4", {121, -1, -1, -1, 131, 132}, {one, missing, two},
            "CONT-4", "1");
        row("special in the middle", {one, special, two}, "CONT-4", {121, -1, -1, -1, 131, 132}, {one, two}, "CONT-4",
            "1");
        row("special ones alone", {special, u"R4417TX"_s}, "CONT-4", {-1, -1, -1, -1}, {}, "", "");
        row("unset SKU", {u"-1"_s, one}, "CONT-4", {-1, -1, 121, -1}, {u"-1"_s, one}, "CONT-4", "1");
        row("unknown supply", {one, two}, "UnknownSupply", {121, -1, 131, 132}, {one, two}, "", "1");
        row("empty roll SKU", {one, two}, "", {121, -1, 131, 132}, {one, two}, "", "1");
        row("unknown roll", {one, two}, "NOSUCH", {-1, -1, -1, -1}, {one, two}, "NOSUCH", "");
    }
}

void TestRibbonParameters::ofRibbons()
{
    check();
    QFETCH(QVariant, expected);
    for (const QVariant &entry : expected.toList())
        QCOMPARE(entry.metaType(), QMetaType::fromType<int>());
}

/// An empty SKU among ribbons keeps its two places, also where the catalogue has no ribbon without a SKU.
void TestRibbonParameters::materialIsNotKept()
{
    const FixtureCatalogue catalogue;
    RecordedDatabase recorded(catalogue.path());
    const QVariantList middleUnset = {1214, -1, -1, -1, 1314, 1324};
    QCOMPARE(recorded->supplyRibbonsTensions({u"RIB-ONE"_s, QString(), u"RIB-TWO"_s}, u"CONT-4"_s), middleUnset);

    // Found anew on every call: the file and the tag may change in between.
    QCOMPARE(recorded->supplyRibbonHeat(u"RIB-ONE"_s, 1, u"CONT-4"_s), 1211);
    catalogue.run(u"UPDATE materialwidth SET materialId = 5 WHERE id = 10"_s);
    QCOMPARE(recorded->supplyRibbonHeat(u"RIB-ONE"_s, 1, u"CONT-4"_s), 1251);
    ask::takeTag(*recorded, tagOfMaterial(1));
    QCOMPARE(recorded->supplyRibbonHeat(u"RIB-ONE"_s, 1, u"UnknownSupply"_s), 1211);
    ask::takeTag(*recorded, tagOfMaterial(5));
    QCOMPARE(recorded->supplyRibbonHeat(u"RIB-ONE"_s, 1, u"UnknownSupply"_s), 1251);
}

void TestRibbonParameters::closedCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    for (const QString &roll : {u"CONT-4"_s, u"UnknownSupply"_s, QString()}) {
        for (const Parameter &parameter : parameters) {
            const QString ribbon = u"RIB-TWO"_s;
            QTest::addRow("%s on '%s'", parameter.single, qPrintable(roll))
                << text(parameter.single) << QVariantList{ribbon, 1, roll} << QVariant(-1);
            QTest::addRow("%s on '%s'", parameter.ofRibbon, qPrintable(roll))
                << text(parameter.ofRibbon) << QVariantList{ribbon, roll} << QVariant(QVariantList{-1, -1});
            QTest::addRow("%s on '%s'", parameter.ofRibbons, qPrintable(roll))
                << text(parameter.ofRibbons) << QVariantList{QStringList{ribbon}, roll}
                << QVariant(QVariantList{-1, -1});
        }
    }
}

/// Alike when the parameters' table is missing.
void TestRibbonParameters::closedCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, expected);
    const FixtureCatalogue withoutTable;
    withoutTable.run(u"DROP TABLE ribbon_heat"_s);
    for (const bool isOpen : {false, true}) {
        ZrSupplyDatabase database;
        ask::takeTag(database, tagOfMaterial(1));
        if (isOpen)
            QVERIFY(database.setup(withoutTable.path()));
        QCOMPARE(ask::directly(database, operation, arguments), expected);
    }
}

QTEST_GUILESS_MAIN(TestRibbonParameters)
#include "tst_ribbonparameters.moc"
