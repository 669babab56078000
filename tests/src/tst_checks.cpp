// SPDX-License-Identifier: LGPL-2.1-or-later
// The checks: which ribbons suit which roll, clear tail, edge sensor, ribbon width and ribbon tensions.

#include "support/fixturecatalogue.h"
#include "support/recordingdriver.h"
#include "support/signallog.h"
#include "support/statementlist.h"
#include "support/tagtext.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The fixture, and ribbons and rolls at the edges of each rule. Rolls are of material 1.
class EdgeCatalogue : public FixtureCatalogue
{
public:
    EdgeCatalogue()
    {
        run(QStringLiteral(
            "INSERT INTO ribbon (id, sku, panels, width, length) VALUES"
            " (101, 'GOOD', 1, 6.0, 4725.0), (102, 'GOOD-4.5', 1, 4.5, 4725.0), (103, 'NARROW', 1, 4.499999, 4725.0),"
            " (104, 'COLD', 1, 6.0, 4725.0), (105, 'COLD-NARROW', 1, 4.499999, 4725.0), (106, 'HEAT-0', 1, 6.0, 1.0),"
            " (107, 'HEAT-NULL', 1, 6.0, 1.0), (108, 'HEAT-NEGATIVE', 1, 6.0, 1.0), (109, 'NO-WIDTH', 1, NULL, 1.0),"
            " (110, 'PANEL-2', 2, 6.0, 1.0);"
            "INSERT INTO ribbon_heat (ribbonId, panel, materialId, heat, tension) VALUES"
            " (101, 1, 1, 500, 51), (102, 1, 1, 1, 52), (103, 1, 1, 500, 53), (106, 1, 1, 0, 0),"
            " (107, 1, 1, NULL, NULL), (108, 1, 1, -5, -7), (109, 1, 1, 500, 59), (110, 2, 1, 500, 60);"
            "INSERT INTO materialwidth (id, materialId, width, length, nonContinuousLength, machineId) VALUES"
            " (31, 1, 4.0000001, 10, 0.0, 'FAM'), (32, 1, 3.9999999, 10, 0.0, 'FAM'), (33, 1, NULL, 10, 0.0, 'FAM');"
            "INSERT INTO roll (itemNum, materialWidthId) VALUES"
            " ('JUST-OVER-4', 31), ('JUST-UNDER-4', 32), ('NO-WIDTH-ROLL', 33);"));
    }
};

/// A ribbon, and whether it is bad by itself: by heat or by width on a narrow roll, on a roll wider than 4 inches,
/// and on a roll that names no material.
struct Ribbon
{
    const char *name;
    QString sku;
    bool special;
    bool badOnNarrowRoll;
    bool badOnWideRoll;
    bool badWithoutMaterial;
};

const Ribbon ribbons[] = {
    // A missing ribbon has no heat to be wrong, but counts as narrow.
    {"missing", u"-1"_s, false, false, true, false},
    {"good", u"GOOD"_s, false, false, false, true},
    {"exactly 4.5 inches wide", u"GOOD-4.5"_s, false, false, false, true},
    {"just under 4.5 inches wide", u"NARROW"_s, false, false, true, true},
    {"without a heat row", u"COLD"_s, false, true, true, true},
    {"without a heat row and narrow", u"COLD-NARROW"_s, false, true, true, true},
    {"heat 0", u"HEAT-0"_s, false, true, true, true},
    {"heat NULL", u"HEAT-NULL"_s, false, true, true, true},
    {"heat below 0", u"HEAT-NEGATIVE"_s, false, true, true, true},
    {"heat of panel 2 only", u"PANEL-2"_s, false, true, true, true},
    {"without a width", u"NO-WIDTH"_s, false, false, true, true},
    {"unknown", u"NONE"_s, false, true, true, true},
    {"with an empty SKU", QString(), false, true, true, true},
    {"special, in lower case", u"r4417tx"_s, false, true, true, true},
    // A special ribbon is never bad by itself.
    {"special and wide", u"R4417TX"_s, true, false, false, false},
    {"special and narrow", u"HVWA-ZEROSPOL"_s, true, false, false, false},
};

enum class RollKind { Narrow, Wide, WithoutMaterial };

/// A roll: its SKU and, where the tag answers for it, the sixteenths of an inch and the material of the tag.
struct Roll
{
    const char *name;
    QString sku;
    unsigned tagSixteenths;
    unsigned tagMaterial;
    RollKind kind;
};

const Roll rollsOfEveryKind[] = {
    {"a 4 inch roll", u"CONT-4"_s, 128, 1, RollKind::Narrow},
    {"a roll just under 4 inches", u"JUST-UNDER-4"_s, 128, 1, RollKind::Narrow},
    {"a roll just over 4 inches", u"JUST-OVER-4"_s, 16, 1, RollKind::Wide},
    {"a wide roll", u"CONT-6"_s, 16, 1, RollKind::Wide},
    {"a roll without a width", u"NO-WIDTH-ROLL"_s, 128, 1, RollKind::Narrow},
    {"an unknown roll, by its tag 4 inches wide", u"UnknownSupply"_s, 64, 1, RollKind::Narrow},
    {"an unknown roll, by its tag 4 1/16 inches wide", u"UnknownSupply"_s, 65, 1, RollKind::Wide},
    {"a roll without a SKU, by its tag wide", QString(), 65, 1, RollKind::Wide},
    {"a roll that no row knows", u"NO-SUCH-ROLL"_s, 128, 1, RollKind::WithoutMaterial},
    {"no roll", u"-1"_s, 128, 1, RollKind::WithoutMaterial},
    {"an unknown roll of a material that no ribbon prints on", u"UnknownSupply"_s, 64, 77, RollKind::WithoutMaterial},
};

enum class Is { No, Yes, Any };

/// One line of the table of verdicts. Deliberate: a special ribbon in the second place has no verdict of its own, two
/// are an invalid pair, and one in the first place clears only the first verdict.
struct Verdict
{
    Is special2;
    Is special1;
    Is bad1;
    Is bad2;
    const char *signal;
};

const Verdict verdicts[] = {
    {Is::Yes, Is::Yes, Is::Any, Is::Any, "alertInvalidRibbonsSupplyCombo()"},
    {Is::Yes, Is::No, Is::Yes, Is::Any, "alertInvalidRibbon1SupplyCombo()"},
    {Is::Yes, Is::No, Is::No, Is::Any, nullptr},
    {Is::No, Is::Any, Is::Yes, Is::Yes, "alertInvalidRibbonsSupplyCombo()"},
    {Is::No, Is::Any, Is::Yes, Is::No, "alertInvalidRibbon1SupplyCombo()"},
    {Is::No, Is::Any, Is::No, Is::Yes, "alertInvalidRibbon2SupplyCombo()"},
    {Is::No, Is::Any, Is::No, Is::No, nullptr},
};

bool matches(Is wanted, bool is)
{
    return wanted == Is::Any || (wanted == Is::Yes) == is;
}

bool isBad(const Ribbon &ribbon, RollKind roll)
{
    switch (roll) {
    case RollKind::Narrow:
        return ribbon.badOnNarrowRoll;
    case RollKind::Wide:
        return ribbon.badOnWideRoll;
    case RollKind::WithoutMaterial:
        break;
    }
    return ribbon.badWithoutMaterial;
}

/// The one line of the table that tells of these ribbons on this roll.
const Verdict &verdictOf(const Ribbon &ribbon1, const Ribbon &ribbon2, RollKind roll)
{
    const Verdict *found = nullptr;
    for (const Verdict &verdict : verdicts) {
        if (matches(verdict.special2, ribbon2.special) && matches(verdict.special1, ribbon1.special) &&
            matches(verdict.bad1, isBad(ribbon1, roll)) && matches(verdict.bad2, isBad(ribbon2, roll))) {
            if (found)
                qFatal("two verdicts for one pair of ribbons");
            found = &verdict;
        }
    }
    if (!found)
        qFatal("no verdict for a pair of ribbons");
    return *found;
}

/// Lists in which these two ribbons are ribbon 1 and ribbon 2, as far as a check can see.
QList<QStringList> listsOf(const QString &ribbon1, const QString &ribbon2)
{
    QList<QStringList> lists = {
        {ribbon1, ribbon2}, {ribbon1, ribbon2, u"-1"_s, u"-1"_s}, {ribbon1, ribbon2, u"R4417TX"_s}};
    if (ribbon2 == u"-1"_s)
        lists.append(QStringList{ribbon1});
    if (ribbon2 == u"-1"_s && ribbon1 == u"-1"_s)
        lists.append(QStringList());
    return lists;
}

bool setSkus(ZrSupplyDatabase &database, const QStringList &skus)
{
    return QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Q_ARG(QStringList, skus));
}

bool call(ZrSupplyDatabase &database, const char *slot)
{
    return QMetaObject::invokeMethod(&database, slot);
}

bool takeTag(ZrSupplyDatabase &database, unsigned sixteenths, unsigned material)
{
    const QString tag = tagText({{tagbits::widthInches, sixteenths / 16},
                                 {tagbits::widthSixteenths, sixteenths % 16},
                                 {tagbits::material, material}});
    return QMetaObject::invokeMethod(&database, "updateCachedSupplyCData", Q_ARG(QString, tag));
}

} // namespace

class Checks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void combination_data();
    void combination();
    void everyVerdictIsReached();
    void combinationOnAClosedCatalogue_data();
    void combinationOnAClosedCatalogue();
    void combinationAsks_data();
    void combinationAsks();
    void clearTail_data();
    void clearTail();
    void edgeSensor_data();
    void edgeSensor();
    void edgeSensorIsNoNumber();
    void ribbonWidth_data();
    void ribbonWidth();
    void ribbonTensions_data();
    void ribbonTensions();
    void onAClosedCatalogue();

private:
    const EdgeCatalogue m_catalogue;
};

void Checks::combination_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<unsigned>("tagSixteenths");
    QTest::addColumn<unsigned>("tagMaterial");
    QTest::addColumn<QString>("ribbon1");
    QTest::addColumn<QString>("ribbon2");
    QTest::addColumn<QStringList>("lines");

    for (const Roll &roll : rollsOfEveryKind) {
        for (const Ribbon &ribbon1 : ribbons) {
            for (const Ribbon &ribbon2 : ribbons) {
                const Verdict &verdict = verdictOf(ribbon1, ribbon2, roll.kind);
                QTest::addRow("ribbon 1 %s, ribbon 2 %s, on %s", ribbon1.name, ribbon2.name, roll.name)
                    << roll.sku << roll.tagSixteenths << roll.tagMaterial << ribbon1.sku << ribbon2.sku
                    << (verdict.signal ? QStringList{QString::fromLatin1(verdict.signal)} : QStringList());
            }
        }
    }
}

void Checks::combination()
{
    QFETCH(QString, roll);
    QFETCH(unsigned, tagSixteenths);
    QFETCH(unsigned, tagMaterial);
    QFETCH(QString, ribbon1);
    QFETCH(QString, ribbon2);
    QFETCH(QStringList, lines);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    QVERIFY(takeTag(database, tagSixteenths, tagMaterial));
    database.setSupplySKU(roll);
    SignalLog log(&database);
    for (const QStringList &skus : listsOf(ribbon1, ribbon2)) {
        QVERIFY(setSkus(database, skus));
        QCOMPARE(log.take().sliced(5), lines); // after the five signals of the change itself
        QVERIFY(call(database, "checkRibbonSupplyCombo"));
        QCOMPARE(log.take(), lines);
        QCOMPARE(database.supplyRibbonSKUs(), skus);
    }
}

void Checks::everyVerdictIsReached()
{
    QList<const Verdict *> reached;
    for (const Roll &roll : rollsOfEveryKind) {
        for (const Ribbon &ribbon1 : ribbons) {
            for (const Ribbon &ribbon2 : ribbons)
                reached.append(&verdictOf(ribbon1, ribbon2, roll.kind));
        }
    }
    for (const Verdict &verdict : verdicts)
        QVERIFY(reached.contains(&verdict));
}

void Checks::combinationOnAClosedCatalogue_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<unsigned>("tagSixteenths");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("lines");

    const QStringList both = {u"alertInvalidRibbonsSupplyCombo()"_s};
    const QStringList first = {u"alertInvalidRibbon1SupplyCombo()"_s};
    const QStringList second = {u"alertInvalidRibbon2SupplyCombo()"_s};
    QTest::newRow("two ribbons: bad by heat") << u"CONT-4"_s << 128u << QStringList{u"GOOD"_s, u"GOOD"_s} << both;
    QTest::newRow("ribbon 1 alone") << u"CONT-4"_s << 128u << QStringList{u"GOOD"_s} << first;
    QTest::newRow("ribbon 2 alone") << u"CONT-4"_s << 128u << QStringList{u"-1"_s, u"GOOD"_s} << second;
    QTest::newRow("no ribbon: the roll has no width") << u"CONT-6"_s << 128u << QStringList() << QStringList();
    QTest::newRow("ribbon 1 special") << u"CONT-6"_s << 128u << QStringList{u"R4417TX"_s, u"GOOD"_s} << second;
    QTest::newRow("ribbon 2 special") << u"CONT-6"_s << 128u << QStringList{u"GOOD"_s, u"R4417TX"_s} << first;
    QTest::newRow("two special ribbons")
        << u"CONT-6"_s << 128u << QStringList{u"HVWA-ZEROSPOL"_s, u"R4417TX"_s} << both;
    QTest::newRow("no ribbon on an unknown roll, by its tag wide")
        << u"UnknownSupply"_s << 65u << QStringList() << both;
    QTest::newRow("no ribbon on an unknown roll, by its tag not wide")
        << u"UnknownSupply"_s << 64u << QStringList() << QStringList();
    QTest::newRow("ribbon 1 special, ribbon 2 missing, roll by its tag wide")
        << u"UnknownSupply"_s << 65u << QStringList{u"R4417TX"_s} << second;
}

void Checks::combinationOnAClosedCatalogue()
{
    QFETCH(QString, roll);
    QFETCH(unsigned, tagSixteenths);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, lines);

    ZrSupplyDatabase database;
    QVERIFY(takeTag(database, tagSixteenths, 1));
    database.setSupplySKU(roll);
    SignalLog log(&database);
    QVERIFY(setSkus(database, skus));
    QCOMPARE(log.take().sliced(5), lines);
}

void Checks::combinationAsks_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("texts");

    const auto heat = [](const QString &sku) { return filled("ribbonHeat", {sku, u"1"_s, u"1"_s}); };
    const auto width = [](const QString &sku) { return filled("ribbonWidth", {sku}); };
    const QString material = filled("rollMaterial", {u"CONT-6"_s});
    const QString rollWidth = filled("rollWidth", {u"CONT-6"_s});
    QTest::newRow("two ribbons") << u"CONT-6"_s << QStringList{u"NARROW"_s, u"GOOD"_s}
                                 << QStringList{material,           heat(u"NARROW"_s), material, heat(u"GOOD"_s),
                                                width(u"NARROW"_s), width(u"GOOD"_s),  rollWidth};
    QTest::newRow("missing ribbons are asked for too")
        << u"CONT-6"_s << QStringList()
        << QStringList{material, heat(u"-1"_s), material, heat(u"-1"_s), width(u"-1"_s), width(u"-1"_s), rollWidth};
    QTest::newRow("special ribbon 1 costs its width only")
        << u"CONT-6"_s << QStringList{u"R4417TX"_s, u"GOOD"_s}
        << QStringList{material, heat(u"GOOD"_s), width(u"R4417TX"_s), width(u"GOOD"_s), rollWidth};
    QTest::newRow("special ribbon 2 costs its width only")
        << u"CONT-6"_s << QStringList{u"GOOD"_s, u"HVWA-ZEROSPOL"_s}
        << QStringList{material, heat(u"GOOD"_s), width(u"GOOD"_s), width(u"HVWA-ZEROSPOL"_s), rollWidth};
    QTest::newRow("unknown roll: material and width from its tag")
        << u"UnknownSupply"_s << QStringList{u"GOOD"_s, u"COLD"_s}
        << QStringList{heat(u"GOOD"_s), heat(u"COLD"_s), width(u"GOOD"_s), width(u"COLD"_s)};
    QTest::newRow("roll without a row: no heat to ask for")
        << u"NO-SUCH"_s << QStringList{u"GOOD"_s, u"COLD"_s}
        << QStringList{filled("rollMaterial", {u"NO-SUCH"_s}), filled("rollMaterial", {u"NO-SUCH"_s}),
                       width(u"GOOD"_s), width(u"COLD"_s), filled("rollWidth", {u"NO-SUCH"_s})};
}

void Checks::combinationAsks()
{
    QFETCH(QString, roll);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, texts);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    QVERIFY(takeTag(database, 64, 1));
    database.setSupplySKU(roll);
    QVERIFY(setSkus(database, skus));
    seen.clear();
    QVERIFY(call(database, "checkRibbonSupplyCombo"));
    QCOMPARE(seen, texts);
}

void Checks::clearTail_data()
{
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<bool>("set1");
    QTest::addColumn<bool>("set2");

    QTest::newRow("no ribbon") << QStringList() << false << false;
    QTest::newRow("two missing ribbons") << QStringList{u"-1"_s, u"-1"_s} << false << false;
    QTest::newRow("neither") << QStringList{u"GOOD"_s, u"COLD"_s} << false << false;
    QTest::newRow("ribbon 1 alone") << QStringList{u"R530947"_s} << true << false;
    QTest::newRow("ribbon 1") << QStringList{u"RW530947"_s, u"GOOD"_s} << true << false;
    QTest::newRow("ribbon 2") << QStringList{u"GOOD"_s, u"R530947"_s} << false << true;
    QTest::newRow("both") << QStringList{u"R530947"_s, u"RW530947"_s} << true << true;
    QTest::newRow("both, the other way round") << QStringList{u"RW530947"_s, u"R530947"_s} << true << true;
    QTest::newRow("case matters") << QStringList{u"rw530947"_s, u"RW530947"_s} << false << true;
    QTest::newRow("case matters for the other SKU") << QStringList{u"R530947"_s, u"r530947"_s} << true << false;
    QTest::newRow("the whole SKU counts") << QStringList{u"R530947 "_s, u"R5309470"_s} << false << false;
    QTest::newRow("first two of a longer list")
        << QStringList{u"GOOD"_s, u"R530947"_s, u"R530947"_s} << false << true;
    QTest::newRow("not the third of a longer list")
        << QStringList{u"GOOD"_s, u"-1"_s, u"R530947"_s, u"R530947"_s} << false << false;
}

void Checks::clearTail()
{
    QFETCH(QStringList, skus);
    QFETCH(bool, set1);
    QFETCH(bool, set2);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplySKU(u"R530947"_s); // the roll's SKU plays no part
    QVERIFY(setSkus(database, skus));
    seen.clear();
    SignalLog log(&database);
    QVERIFY(call(database, "checkClearTail"));
    QCOMPARE(log.take(), QStringList({u"notifyClearTailRibbon1(%1)"_s.arg(set1 ? u"true"_s : u"false"_s),
                                      u"notifyClearTailRibbon2(%1)"_s.arg(set2 ? u"true"_s : u"false"_s)}));
    QCOMPARE(seen, QStringList());
}

void Checks::edgeSensor_data()
{
    QTest::addColumn<QString>("sku");
    QTest::addColumn<int>("sensor");

    QTest::newRow("known roll") << u"CONT-4"_s << 3;
    QTest::newRow("another known roll") << u"CONT-6"_s << 4;
    QTest::newRow("another family's roll") << u"OTHER-FAMILY"_s << 3;
    QTest::newRow("roll without a material width") << u"DANGLING"_s << 3;
    QTest::newRow("unknown SKU") << u"NONE"_s << -1;
    QTest::newRow("no roll") << u"-1"_s << -1;
    QTest::newRow("unknown roll is looked up like any SKU") << u"UnknownSupply"_s << -1;
    QTest::newRow("empty SKU is looked up") << QString() << -1;
    QTest::newRow("NULL sensor") << u"NULLS"_s << -1;
    QTest::newRow("sensor without a row") << u"DIECUT-18"_s << -1;
    QTest::newRow("quote in the SKU") << u"CONT'4"_s << -1;
    QTest::newRow("quotes go into the text as they stand") << u"x' OR roll.itemNum='STRIPED"_s << 5;
    QTest::newRow("placeholder in the SKU") << u"%1%2"_s << -1;
}

void Checks::edgeSensor()
{
    QFETCH(QString, sku);
    QFETCH(int, sensor);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplySKU(sku);
    SignalLog log(&database);
    QVERIFY(call(database, "checkSupplyEdgeSensor"));
    QCOMPARE(log.take(), QStringList{u"notifySupplySensor(%1)"_s.arg(sensor)});
    QCOMPARE(seen, QStringList{filled("rollSensor", {sku})});
    QVERIFY(seen.first().endsWith(u"' "_s)); // Deliberate: the text ends in a blank
}

void Checks::edgeSensorIsNoNumber()
{
    const FixtureCatalogue own;
    own.run(u"DROP TABLE supplysensor; CREATE TABLE supplysensor (id, supplysensortype); DROP TABLE roll;"
            "CREATE TABLE roll (itemNum, supplysensorId);"
            "INSERT INTO supplysensor VALUES ('gap', 'g'), (0, 'z'), ('12', 't'), (2.6, 'f');"
            "INSERT INTO roll VALUES ('TEXT', 'gap'), ('ZERO', 0), ('DIGITS', '12'), ('FRACTION', 2.6)"_s);
    ZrSupplyDatabase database;
    QVERIFY(database.setup(own.path()));
    SignalLog log(&database);
    for (const QString &sku : {u"TEXT"_s, u"ZERO"_s, u"DIGITS"_s, u"FRACTION"_s}) {
        database.setSupplySKU(sku);
        QVERIFY(call(database, "checkSupplyEdgeSensor"));
    }
    QCOMPARE(log.take(), QStringList({u"notifySupplySensor(0)"_s, u"notifySupplySensor(0)"_s,
                                      u"notifySupplySensor(12)"_s, u"notifySupplySensor(3)"_s}));
}

void Checks::ribbonWidth_data()
{
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<bool>("narrow");

    QTest::newRow("two wide ribbons") << QStringList{u"GOOD"_s, u"COLD"_s} << false;
    QTest::newRow("exactly 4.5 inches is not narrow") << QStringList{u"GOOD-4.5"_s, u"GOOD-4.5"_s} << false;
    QTest::newRow("ribbon 1 just under 4.5 inches") << QStringList{u"NARROW"_s, u"GOOD"_s} << true;
    QTest::newRow("ribbon 2 just under 4.5 inches") << QStringList{u"GOOD"_s, u"NARROW"_s} << true;
    QTest::newRow("both narrow") << QStringList{u"NARROW"_s, u"NARROW"_s} << true;
    QTest::newRow("no ribbon") << QStringList() << true;
    QTest::newRow("one ribbon: a missing one is narrow") << QStringList{u"GOOD"_s} << true;
    QTest::newRow("ribbon 1 missing") << QStringList{u"-1"_s, u"GOOD"_s} << true;
    QTest::newRow("unknown ribbon") << QStringList{u"GOOD"_s, u"NONE"_s} << true;
    QTest::newRow("NULL width") << QStringList{u"NO-WIDTH"_s, u"GOOD"_s} << true;
    QTest::newRow("special ribbons have a width") << QStringList{u"R4417TX"_s, u"GOOD"_s} << false;
    QTest::newRow("narrow special ribbon") << QStringList{u"GOOD"_s, u"HVWA-ZEROSPOL"_s} << true;
    QTest::newRow("not the third of a longer list") << QStringList{u"GOOD"_s, u"GOOD"_s, u"NARROW"_s} << false;
    QTest::newRow("first two of a longer list") << QStringList{u"GOOD"_s, u"-1"_s, u"GOOD"_s, u"GOOD"_s} << true;
}

void Checks::ribbonWidth()
{
    QFETCH(QStringList, skus);
    QFETCH(bool, narrow);

    for (const QString &roll : {u"CONT-4"_s, u"CONT-6"_s, u"-1"_s}) { // the roll plays no part
        QStringList seen;
        ZrSupplyDatabase database;
        RecordingDriver::install(m_catalogue.path(), &seen);
        database.setSupplySKU(roll);
        QVERIFY(setSkus(database, skus));
        seen.clear();
        SignalLog log(&database);
        QVERIFY(call(database, "checkRibbonWidth"));
        QCOMPARE(log.take(), QStringList{narrow ? u"notifySupplyWidth(true)"_s : u"notifySupplyWidth(false)"_s});
        QCOMPARE(seen, QStringList({filled("ribbonWidth", {skus.value(0, u"-1"_s)}),
                                    filled("ribbonWidth", {skus.value(1, u"-1"_s)})}));
    }
}

void Checks::ribbonTensions_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("texts");

    const auto tension = [](const QString &sku) { return filled("ribbonTension", {sku, u"1"_s, u"1"_s}); };
    const QString material = filled("rollMaterial", {u"CONT-4"_s});
    const auto notice = [](const char *tensions) {
        return QStringList{u"notifyRibbonTensions(%1)"_s.arg(QLatin1StringView(tensions))};
    };
    const QStringList silent;

    // Deliberate: each tension is looked up twice.
    const QStringList fourLookups = {material, tension(u"RIB-ONE"_s), material, tension(u"RIB-ONE"_s),
                                     material, tension(u"RIB-TWO"_s), material, tension(u"RIB-TWO"_s)};
    QTest::newRow("two ribbons: panel 1 of each, twice")
        << u"CONT-4"_s << QStringList{u"RIB-ONE"_s, u"RIB-TWO"_s} << notice("1214, 1214, 1314, 1314") << fourLookups;
    QTest::newRow("first two of a longer list") << u"CONT-4"_s << QStringList{u"RIB-ONE"_s, u"RIB-TWO"_s, u"GOOD"_s}
                                                << notice("1214, 1214, 1314, 1314") << fourLookups;
    QTest::newRow("no ribbon") << u"CONT-4"_s << QStringList() << silent << silent;
    QTest::newRow("one ribbon") << u"CONT-4"_s << QStringList{u"RIB-ONE"_s} << silent << silent;
    QTest::newRow("ribbon 1 missing") << u"CONT-4"_s << QStringList{u"-1"_s, u"RIB-TWO"_s} << silent << silent;
    QTest::newRow("ribbon 2 missing") << u"CONT-4"_s << QStringList{u"RIB-ONE"_s, u"-1"_s} << silent << silent;
    QTest::newRow("both missing, further entries do not count")
        << u"CONT-4"_s << QStringList{u"-1"_s, u"-1"_s, u"RIB-ONE"_s, u"RIB-TWO"_s} << silent << silent;
    QTest::newRow("two unknown ribbons") << u"CONT-4"_s << QStringList{u"A"_s, u"B"_s} << notice("-1, -1, -1, -1")
                                         << QStringList{material, tension(u"A"_s), material, tension(u"A"_s),
                                                        material, tension(u"B"_s), material, tension(u"B"_s)};
    QTest::newRow("special ribbons have no tension and are not looked up")
        << u"CONT-4"_s << QStringList{u"R4417TX"_s, u"HVWA-ZEROSPOL"_s} << notice("-1, -1, -1, -1") << silent;
    QTest::newRow("special ribbon 1") << u"CONT-4"_s << QStringList{u"R4417TX"_s, u"GOOD"_s}
                                      << notice("-1, -1, 51, 51")
                                      << QStringList{material, tension(u"GOOD"_s), material, tension(u"GOOD"_s)};
    QTest::newRow("NULL tension is 0, a negative one stays")
        << u"CONT-4"_s << QStringList{u"HEAT-NULL"_s, u"HEAT-NEGATIVE"_s} << notice("0, 0, -7, -7")
        << QStringList{material, tension(u"HEAT-NULL"_s),     material, tension(u"HEAT-NULL"_s),
                       material, tension(u"HEAT-NEGATIVE"_s), material, tension(u"HEAT-NEGATIVE"_s)};
    QTest::newRow("tension of panel 2 only")
        << u"CONT-4"_s << QStringList{u"PANEL-2"_s, u"GOOD"_s} << notice("-1, -1, 51, 51")
        << QStringList{material, tension(u"PANEL-2"_s), material, tension(u"PANEL-2"_s),
                       material, tension(u"GOOD"_s),    material, tension(u"GOOD"_s)};
    QTest::newRow("unknown roll: the material of its tag")
        << u"UnknownSupply"_s << QStringList{u"GOOD"_s, u"GOOD-4.5"_s} << notice("51, 51, 52, 52")
        << QStringList{tension(u"GOOD"_s), tension(u"GOOD"_s), tension(u"GOOD-4.5"_s), tension(u"GOOD-4.5"_s)};
    const QString noMaterial = filled("rollMaterial", {u"NONE"_s});
    QTest::newRow("roll without a row") << u"NONE"_s << QStringList{u"GOOD"_s, u"GOOD"_s} << notice("-1, -1, -1, -1")
                                        << QStringList{noMaterial, noMaterial, noMaterial, noMaterial};
}

void Checks::ribbonTensions()
{
    QFETCH(QString, roll);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, texts);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    QVERIFY(takeTag(database, 64, 1));
    database.setSupplySKU(roll);
    QVERIFY(setSkus(database, skus));
    SignalLog log(&database);
    for (int round = 0; round < 2; ++round) {
        seen.clear();
        QVERIFY(call(database, "checkRibbonTensions"));
        QCOMPARE(log.take(), lines);
        QCOMPARE(seen, texts);
    }
}

void Checks::onAClosedCatalogue()
{
    ZrSupplyDatabase database;
    database.setSupplySKU(u"CONT-4"_s);
    QVERIFY(setSkus(database, {u"R530947"_s, u"GOOD"_s}));
    SignalLog log(&database);
    QVERIFY(call(database, "checkClearTail"));
    QVERIFY(call(database, "checkSupplyEdgeSensor"));
    QVERIFY(call(database, "checkRibbonWidth"));
    QVERIFY(call(database, "checkRibbonTensions"));
    QCOMPARE(log.take(), QStringList({u"notifyClearTailRibbon1(true)"_s, u"notifyClearTailRibbon2(false)"_s,
                                      u"notifySupplySensor(-1)"_s, u"notifySupplyWidth(true)"_s,
                                      u"notifyRibbonTensions(-1, -1, -1, -1)"_s}));
}

QTEST_GUILESS_MAIN(Checks)
#include "tst_checks.moc"
