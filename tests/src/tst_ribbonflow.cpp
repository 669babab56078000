// SPDX-License-Identifier: LGPL-2.1-or-later
// Ribbons are taken in: ids into SKUs, then lengths, fractions, colours and the combination check.

#include "support/fixturecatalogue.h"
#include "support/privatemember.h"
#include "support/recordingdriver.h"
#include "support/signallog.h"
#include "support/statementlist.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

// No call leaves a colour list shorter than two, since a lookup answers two panels.
ZR_PRIVATE_MEMBER(Ribbon1Rgbs, ZrSupplyDatabase, m_supplyRibbon1RGBs);
ZR_PRIVATE_MEMBER(Ribbon2Rgbs, ZrSupplyDatabase, m_supplyRibbon2RGBs);

namespace {

/// The fixture and ribbons under ids that are no numbers.
class RibbonCatalogue : public FixtureCatalogue
{
public:
    RibbonCatalogue()
    {
        run(u"ALTER TABLE ribbon RENAME TO strict_ribbon;"
            "CREATE TABLE ribbon (id, sku, panels, width, length);"
            "INSERT INTO ribbon SELECT CAST(id AS TEXT), sku, panels, width, length FROM strict_ribbon;"
            "INSERT INTO ribbon VALUES ('%1', 'RIB-PERCENT', 1, 6.0, 1000.0), ('no-sku', NULL, 1, 6.0, 1000.0),"
            " ('', 'RIB-EMPTY-ID', 1, 6.0, 1000.0), ('-1', '-1', 1, 3.0, 2000.0)"_s);
    }
};

/// What taking ribbons in announces, without the verdict of the combination check.
QStringList announcement(const QString &skus, const QString &percent1, const QString &percent2, const QString &rgbs1,
                         const QString &rgbs2)
{
    return {u"ribbonChangedSignal([%1])"_s.arg(skus), u"ribbon1PercentChanged(%1)"_s.arg(percent1),
            u"ribbon2PercentChanged(%1)"_s.arg(percent2), u"ribbon1RGBsChanged([%1])"_s.arg(rgbs1),
            u"ribbon2RGBsChanged([%1])"_s.arg(rgbs2)};
}

const QString noRgbs = uR"("-1", "-1")"_s;
const QString alertBoth = u"alertInvalidRibbonsSupplyCombo()"_s;
const QString alert1 = u"alertInvalidRibbon1SupplyCombo()"_s;
const QString alert2 = u"alertInvalidRibbon2SupplyCombo()"_s;

bool call(ZrSupplyDatabase &database, const char *slot)
{
    return QMetaObject::invokeMethod(&database, slot);
}

bool setSkus(ZrSupplyDatabase &database, const QStringList &skus)
{
    return QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Q_ARG(QStringList, skus));
}

} // namespace

class RibbonFlow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void idsBecomeSkus_data();
    void idsBecomeSkus();
    void closedCatalogue();
    void announced_data();
    void announced();
    void asked_data();
    void asked();
    void refreshed_data();
    void refreshed();
    void typesAreLeftToTheHost();
    void typeNeedsTwoSkus_data();
    void typeNeedsTwoSkus();
    void coloursNeedTwoSkus_data();
    void coloursNeedTwoSkus();
    void shortColourListGrows();
    void fractionsFollowTheRibbons();

private:
    const RibbonCatalogue m_catalogue;
};

void RibbonFlow::idsBecomeSkus_data()
{
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("asked");

    const auto two = [](const QString &first, const QString &second) {
        return QStringList{filled("ribbonSkuById", {first}), filled("ribbonSkuById", {second})};
    };
    QTest::newRow("two known ids") << QStringList{u"12"_s, u"13"_s} << QStringList{u"RIB-ONE"_s, u"RIB-TWO"_s}
                                   << two(u"12"_s, u"13"_s);
    QTest::newRow("the other way round")
        << QStringList{u"13"_s, u"12"_s} << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s} << two(u"13"_s, u"12"_s);
    QTest::newRow("the same ribbon twice")
        << QStringList{u"12"_s, u"12"_s} << QStringList{u"RIB-ONE"_s, u"RIB-ONE"_s} << two(u"12"_s, u"12"_s);
    QTest::newRow("unknown first id is minus one, not UnknownSupply")
        << QStringList{u"99"_s, u"13"_s} << QStringList{u"-1"_s, u"RIB-TWO"_s} << two(u"99"_s, u"13"_s);
    QTest::newRow("unknown second id") << QStringList{u"12"_s, u"99"_s} << QStringList{u"RIB-ONE"_s, u"-1"_s}
                                       << two(u"12"_s, u"99"_s);
    QTest::newRow("two unknown ids") << QStringList{u"98"_s, u"99"_s} << QStringList{u"-1"_s, u"-1"_s}
                                     << two(u"98"_s, u"99"_s);
    QTest::newRow("no id") << QStringList() << QStringList{u"-1"_s, u"-1"_s} << QStringList();
    QTest::newRow("one id makes both unknown")
        << QStringList{u"12"_s} << QStringList{u"-1"_s, u"-1"_s} << QStringList();
    QTest::newRow("three ids make both unknown")
        << QStringList{u"12"_s, u"13"_s, u"14"_s} << QStringList{u"-1"_s, u"-1"_s} << QStringList();
    QTest::newRow("special ribbons have SKUs")
        << QStringList{u"16"_s, u"17"_s} << QStringList{u"R4417TX"_s, u"HVWA-ZEROSPOL"_s} << two(u"16"_s, u"17"_s);
    QTest::newRow("leading zero is another id")
        << QStringList{u"012"_s, u"13"_s} << QStringList{u"-1"_s, u"RIB-TWO"_s} << two(u"012"_s, u"13"_s);
    QTest::newRow("empty ids are looked up")
        << QStringList{QString(), u"12"_s} << QStringList{u"RIB-EMPTY-ID"_s, u"RIB-ONE"_s} << two(QString(), u"12"_s);
    QTest::newRow("quote in an id fails its statement alone")
        << QStringList{u"1'2"_s, u"13"_s} << QStringList{u"-1"_s, u"RIB-TWO"_s} << two(u"1'2"_s, u"13"_s);
    QTest::newRow("quotes in an id go into the text as they stand")
        << QStringList{u"' OR sku='RIB-THREE"_s, u"12"_s} << QStringList{u"RIB-THREE"_s, u"RIB-ONE"_s}
        << two(u"' OR sku='RIB-THREE"_s, u"12"_s);
    QTest::newRow("placeholder in an id stays as it stands")
        << QStringList{u"%1"_s, u"%1"_s} << QStringList{u"RIB-PERCENT"_s, u"RIB-PERCENT"_s} << two(u"%1"_s, u"%1"_s);
    QTest::newRow("NULL SKU is an empty text, not the default")
        << QStringList{u"no-sku"_s, u"12"_s} << QStringList{QString(), u"RIB-ONE"_s} << two(u"no-sku"_s, u"12"_s);
}

void RibbonFlow::idsBecomeSkus()
{
    QFETCH(QStringList, ids);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, asked);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    SignalLog log(&database);
    QCOMPARE(database.getSkusFromRibbonIds(ids), skus);
    QCOMPARE(seen, asked);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(database.supplyRibbonSKUs(), QStringList({u"-1"_s, u"-1"_s}));

    database.setRibbonIds(ids);
    QCOMPARE(database.supplyRibbonSKUs(), skus);
    const QStringList lines = log.take();
    ZrSupplyDatabase updated;
    SignalLog updateLog(&updated);
    QVERIFY(QMetaObject::invokeMethod(&updated, "updateRibbonIds", Q_ARG(QStringList, ids)));
    QCOMPARE(updated.supplyRibbonSKUs(), skus);
    QCOMPARE(updateLog.take(), lines);
    QCOMPARE(lines.first(), u"ribbonChangedSignal([\"%1\"])"_s.arg(skus.join("\", \""_L1)));
}

void RibbonFlow::closedCatalogue()
{
    ZrSupplyDatabase database;
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    SignalLog log(&database);
    QCOMPARE(database.getSkusFromRibbonIds({u"12"_s, u"13"_s}), QStringList({u"-1"_s, u"-1"_s}));
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(log.take(), announcement(uR"("-1", "-1")"_s, u"-1"_s, u"-1"_s, noRgbs, noRgbs));
    QVERIFY(setSkus(database, {u"RIB-ONE"_s, u"RIB-TWO"_s}));
    QCOMPARE(log.take(),
             announcement(uR"("RIB-ONE", "RIB-TWO")"_s, u"-1"_s, u"-1"_s, noRgbs, noRgbs) + QStringList{alertBoth});
    QVERIFY(call(database, "updateRibbon1Type") && call(database, "updateRibbon2Type"));
    QCOMPARE(log.take(), QStringList({uR"(ribbon1TypeChanged(""))"_s, uR"(ribbon2TypeChanged(""))"_s}));
}

void RibbonFlow::announced_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QStringList>("lines");

    // Mileage 0 of both: (0 - 4725 + length) / length.
    const QString fraction1 = u"0"_s;                                            // length 4725
    const QString fraction2 = QString::number((0.0 - 4725.0 + 4800.0) / 4800.0); // length 4800
    QTest::newRow("both suit the roll") << u"CONT-4"_s << QStringList{u"12"_s, u"13"_s}
                                        << announcement(uR"("RIB-ONE", "RIB-TWO")"_s, fraction1, fraction2,
                                                        uR"("0", "-1")"_s, uR"("0", "16711680")"_s);
    QTest::newRow("swapped: each ribbon has its own place")
        << u"CONT-4"_s << QStringList{u"13"_s, u"12"_s}
        << announcement(uR"("RIB-TWO", "RIB-ONE")"_s, fraction2, fraction1, uR"("0", "16711680")"_s,
                        uR"("0", "-1")"_s);
    QTest::newRow("second ribbon does not print on the material")
        << u"DIECUT"_s << QStringList{u"12"_s, u"13"_s}
        << announcement(uR"("RIB-ONE", "RIB-TWO")"_s, fraction1, fraction2, uR"("0", "-1")"_s,
                        uR"("0", "16711680")"_s) +
               QStringList{alert2};
    QTest::newRow("no roll: neither has a material to print on")
        << u"-1"_s << QStringList{u"12"_s, u"13"_s}
        << announcement(uR"("RIB-ONE", "RIB-TWO")"_s, fraction1, fraction2, uR"("0", "-1")"_s,
                        uR"("0", "16711680")"_s) +
               QStringList{alertBoth};
    QTest::newRow("three panels: the first two colours, and narrow for the roll")
        << u"CONT-6"_s << QStringList{u"14"_s, u"12"_s}
        << announcement(uR"("RIB-THREE", "RIB-ONE")"_s, QString::number((0.0 - 4725.0 + 4000.0) / 4000.0), fraction1,
                        uR"("0", "16711680")"_s, uR"("0", "-1")"_s) +
               QStringList{alert1};
    QTest::newRow("special ribbons have no colours")
        << u"CONT-4"_s << QStringList{u"16"_s, u"17"_s}
        << announcement(uR"("R4417TX", "HVWA-ZEROSPOL")"_s, QString::number((0.0 - 4725.0 + 1200.0) / 1200.0),
                        QString::number((0.0 - 4725.0 + 1300.0) / 1300.0, 'g', QLocale::FloatingPointShortest),
                        noRgbs, noRgbs) +
               QStringList{alertBoth};
    QTest::newRow("NULL length is no length, NULL colour is 0")
        << u"CONT-4"_s << QStringList{u"15"_s, u"12"_s}
        << announcement(uR"("RIB-NULLS", "RIB-ONE")"_s, u"-1"_s, fraction1, uR"("0", "-1")"_s, uR"("0", "-1")"_s) +
               QStringList{alert1};
    QTest::newRow("two SKUs of minus one are two entries and are looked up")
        << u"CONT-4"_s << QStringList{u"98"_s, u"99"_s}
        << announcement(uR"("-1", "-1")"_s, QString::number((0.0 - 4725.0 + 2000.0) / 2000.0),
                        QString::number((0.0 - 4725.0 + 2000.0) / 2000.0), noRgbs, noRgbs);
    QTest::newRow("one id on a wide roll: both count as missing, and as narrow")
        << u"CONT-6"_s << QStringList{u"12"_s}
        << announcement(uR"("-1", "-1")"_s, QString::number((0.0 - 4725.0 + 2000.0) / 2000.0),
                        QString::number((0.0 - 4725.0 + 2000.0) / 2000.0), noRgbs, noRgbs) +
               QStringList{alertBoth};
}

void RibbonFlow::announced()
{
    QFETCH(QString, roll);
    QFETCH(QStringList, ids);
    QFETCH(QStringList, lines);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplySKU(roll);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    SignalLog log(&database);
    database.setRibbonIds(ids);
    QCOMPARE(log.take(), lines);
    // The same ribbons again are announced again.
    database.setRibbonIds(ids);
    QCOMPARE(log.take(), lines);
}

void RibbonFlow::asked_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("two ribbons") << u"CONT-4"_s << QStringList{u"RIB-ONE"_s, u"RIB-TWO"_s}
                                 << QStringList{filled("ribbonLength", {u"RIB-ONE"_s}),
                                                filled("ribbonLength", {u"RIB-TWO"_s}),
                                                filled("ribbonPanelRgb", {u"RIB-ONE"_s, u"1"_s}),
                                                filled("ribbonPanelRgb", {u"RIB-ONE"_s, u"2"_s}),
                                                filled("ribbonPanelRgb", {u"RIB-TWO"_s, u"1"_s}),
                                                filled("ribbonPanelRgb", {u"RIB-TWO"_s, u"2"_s}),
                                                filled("rollMaterial", {u"CONT-4"_s}),
                                                filled("ribbonHeat", {u"RIB-ONE"_s, u"1"_s, u"1"_s}),
                                                filled("rollMaterial", {u"CONT-4"_s}),
                                                filled("ribbonHeat", {u"RIB-TWO"_s, u"1"_s, u"1"_s}),
                                                filled("ribbonWidth", {u"RIB-ONE"_s}),
                                                filled("ribbonWidth", {u"RIB-TWO"_s}),
                                                filled("rollWidth", {u"CONT-4"_s})};
    QTest::newRow("missing ribbons are looked up by their minus one")
        << u"NO-SUCH-ROLL"_s << QStringList{u"-1"_s, u"-1"_s}
        << QStringList{filled("ribbonLength", {u"-1"_s}),
                       filled("ribbonLength", {u"-1"_s}),
                       filled("ribbonPanelRgb", {u"-1"_s, u"1"_s}),
                       filled("ribbonPanelRgb", {u"-1"_s, u"2"_s}),
                       filled("ribbonPanelRgb", {u"-1"_s, u"1"_s}),
                       filled("ribbonPanelRgb", {u"-1"_s, u"2"_s}),
                       filled("rollMaterial", {u"NO-SUCH-ROLL"_s}),
                       filled("rollMaterial", {u"NO-SUCH-ROLL"_s}),
                       filled("ribbonWidth", {u"-1"_s}),
                       filled("ribbonWidth", {u"-1"_s}),
                       filled("rollWidth", {u"NO-SUCH-ROLL"_s})};
    QTest::newRow("special ribbons cost lengths and widths only")
        << u"CONT-4"_s << QStringList{u"R4417TX"_s, u"HVWA-ZEROSPOL"_s}
        << QStringList{filled("ribbonLength", {u"R4417TX"_s}), filled("ribbonLength", {u"HVWA-ZEROSPOL"_s}),
                       filled("ribbonWidth", {u"R4417TX"_s}), filled("ribbonWidth", {u"HVWA-ZEROSPOL"_s}),
                       filled("rollWidth", {u"CONT-4"_s})};
    QTest::newRow("three SKUs: no lookup but the check's, of the first two")
        << u"UnknownSupply"_s << QStringList{u"A"_s, u"B"_s, u"C"_s}
        << QStringList{filled("ribbonWidth", {u"A"_s}), filled("ribbonWidth", {u"B"_s})};
    QTest::newRow("one SKU: no lookup but the check's")
        << u"UnknownSupply"_s << QStringList{u"A"_s}
        << QStringList{filled("ribbonWidth", {u"A"_s}), filled("ribbonWidth", {u"-1"_s})};
    QTest::newRow("no SKU: no lookup but the check's")
        << u"UnknownSupply"_s << QStringList()
        << QStringList{filled("ribbonWidth", {u"-1"_s}), filled("ribbonWidth", {u"-1"_s})};
}

void RibbonFlow::asked()
{
    QFETCH(QString, roll);
    QFETCH(QStringList, skus);
    QFETCH(QStringList, texts);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplySKU(roll);
    QVERIFY(setSkus(database, skus));
    QCOMPARE(seen, texts);
    QCOMPARE(database.supplyRibbonSKUs(), skus);
}

void RibbonFlow::refreshed_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("length of ribbon 1") << "updateRibbon1Length"_ba << QStringList{u"ribbon1PercentChanged(0)"_s}
                                        << QStringList{filled("ribbonLength", {u"RIB-ONE"_s})};
    QTest::newRow("length of ribbon 2") << "updateRibbon2Length"_ba << QStringList{u"ribbon2PercentChanged(-1)"_s}
                                        << QStringList{filled("ribbonLength", {u"RIB-TWO"_s})};
    QTest::newRow("colours of ribbon 1")
        << "updateRibbon1RGBs"_ba << QStringList{uR"(ribbon1RGBsChanged(["0", "-1"]))"_s}
        << QStringList{filled("ribbonPanelRgb", {u"RIB-ONE"_s, u"1"_s}),
                       filled("ribbonPanelRgb", {u"RIB-ONE"_s, u"2"_s})};
    QTest::newRow("colours of ribbon 2")
        << "updateRibbon2RGBs"_ba << QStringList{uR"(ribbon2RGBsChanged(["0", "16711680"]))"_s}
        << QStringList{filled("ribbonPanelRgb", {u"RIB-TWO"_s, u"1"_s}),
                       filled("ribbonPanelRgb", {u"RIB-TWO"_s, u"2"_s})};
    QTest::newRow("type of ribbon 1") << "updateRibbon1Type"_ba << QStringList{uR"(ribbon1TypeChanged("Harz"))"_s}
                                      << QStringList{filled("ribbonType", {u"RIB-ONE"_s, u"7"_s})};
    QTest::newRow("type of ribbon 2") << "updateRibbon2Type"_ba << QStringList{uR"(ribbon2TypeChanged("Wachs"))"_s}
                                      << QStringList{filled("ribbonType", {u"RIB-TWO"_s, u"7"_s})};
}

void RibbonFlow::refreshed()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, texts);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setLanguageId(7);
    QVERIFY(setSkus(database, {u"RIB-ONE"_s, u"RIB-TWO"_s}));
    database.setRibbon1Mileage(0);
    SignalLog log(&database);
    for (int round = 0; round < 2; ++round) {
        seen.clear();
        QVERIFY(call(database, slot.constData()));
        QCOMPARE(log.take(), lines);
        QCOMPARE(seen, texts);
    }
}

void RibbonFlow::typesAreLeftToTheHost()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({u"-1"_s, u"-1"_s}));
    QVERIFY(call(database, "updateRibbon1Type") && call(database, "updateRibbon2Type"));
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({u"Resin"_s, u"Wax"_s}));
    database.setLanguageId(7);
    QVERIFY(call(database, "updateRibbon2Type"));
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({u"Resin"_s, u"Wachs"_s}));
    database.setRibbonIds({u"99"_s, u"99"_s});
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({u"Resin"_s, u"Wachs"_s}));
    QVERIFY(call(database, "updateRibbon1Type") && call(database, "updateRibbon2Type"));
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({QString(), QString()}));
}

void RibbonFlow::typeNeedsTwoSkus_data()
{
    QTest::addColumn<QStringList>("skus");
    QTest::newRow("no SKU") << QStringList();
    QTest::newRow("one SKU") << QStringList{u"RIB-TWO"_s};
    QTest::newRow("three SKUs") << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s, u"RIB-ONE"_s};
    QTest::newRow("four SKUs") << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s, u"-1"_s, u"-1"_s};
}

void RibbonFlow::typeNeedsTwoSkus()
{
    QFETCH(QStringList, skus);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setRibbonIds({u"12"_s, u"13"_s});
    QVERIFY(call(database, "updateRibbon1Type") && call(database, "updateRibbon2Type"));
    QVERIFY(setSkus(database, skus));
    SignalLog log(&database);
    seen.clear();
    // The previous type is announced once more.
    QVERIFY(call(database, "updateRibbon1Type") && call(database, "updateRibbon2Type"));
    QCOMPARE(log.take(), QStringList({uR"(ribbon1TypeChanged("Resin"))"_s, uR"(ribbon2TypeChanged("Wax"))"_s}));
    QCOMPARE(QStringList({database.ribbon1Type(), database.ribbon2Type()}), QStringList({u"Resin"_s, u"Wax"_s}));
    QCOMPARE(seen, QStringList());
}

void RibbonFlow::coloursNeedTwoSkus_data()
{
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QString>("skuTexts");

    QTest::newRow("no SKU") << QStringList() << QString();
    QTest::newRow("one SKU") << QStringList{u"R4417TX"_s} << uR"("R4417TX")"_s;
    QTest::newRow("three SKUs") << QStringList{u"R4417TX"_s, u"RIB-ONE"_s, u"C"_s}
                                << uR"("R4417TX", "RIB-ONE", "C")"_s;
}

void RibbonFlow::coloursNeedTwoSkus()
{
    QFETCH(QStringList, skus);
    QFETCH(QString, skuTexts);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplySKU(u"DIECUT"_s); // paper, on which RIB-ONE prints
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    database.setRibbonIds({u"13"_s, u"14"_s});
    SignalLog log(&database);
    QVERIFY(setSkus(database, skus));
    QCOMPARE(log.take(), announcement(skuTexts, u"-1"_s, u"-1"_s, noRgbs, noRgbs));
    QCOMPARE(database.supplyRibbon1RGBs(), QStringList({u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplyRibbon2RGBs(), QStringList({u"-1"_s, u"-1"_s}));

    // Deliberate: entries beyond the second stay as they were. A reset makes such entries.
    database.setRibbonIds({u"13"_s, u"14"_s});
    database.init();
    (database.*memberOf(Ribbon1Rgbs{}))[2] = u"third"_s;
    (database.*memberOf(Ribbon2Rgbs{}))[3] = u"fourth"_s;
    log.take();
    QVERIFY(call(database, "updateRibbon1RGBs") && call(database, "updateRibbon2RGBs"));
    QCOMPARE(log.take(), QStringList({uR"(ribbon1RGBsChanged(["-1", "-1", "third", "-1"]))"_s,
                                      uR"(ribbon2RGBsChanged(["-1", "-1", "-1", "fourth"]))"_s}));
    // Two SKUs replace the whole list.
    database.setRibbonIds({u"13"_s, u"12"_s});
    QCOMPARE(database.supplyRibbon1RGBs(), QStringList({u"0"_s, u"16711680"_s}));
    QCOMPARE(database.supplyRibbon2RGBs(), QStringList({u"0"_s, u"-1"_s}));
}

void RibbonFlow::shortColourListGrows()
{
    ZrSupplyDatabase database;
    SignalLog log(&database);
    QVERIFY(setSkus(database, {u"RIB-ONE"_s}));
    for (const QStringList &shortList : {QStringList(), QStringList{u"255"_s}}) {
        database.*memberOf(Ribbon1Rgbs{}) = shortList;
        database.*memberOf(Ribbon2Rgbs{}) = shortList;
        log.take();
        QVERIFY(call(database, "updateRibbon1RGBs") && call(database, "updateRibbon2RGBs"));
        QCOMPARE(log.take(),
                 QStringList({uR"(ribbon1RGBsChanged(["-1", "-1"]))"_s, uR"(ribbon2RGBsChanged(["-1", "-1"]))"_s}));
    }
}

void RibbonFlow::fractionsFollowTheRibbons()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setRibbon1Mileage(120015);
    database.setRibbon2Mileage(0);
    QCOMPARE(database.supplyRibbon1Percent(), -1.0);
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(database.supplyRibbon1Percent(), (120015 * 0.0393701 - 4725.0 + 4725.0) / 4725.0);
    QCOMPARE(database.supplyRibbon2Percent(), 0.015625);
    QVERIFY(setSkus(database, {u"RIB-ONE"_s, u"RIB-TWO"_s, u"RIB-TWO"_s}));
    QCOMPARE(database.supplyRibbon1Percent(), -1.0);
    QCOMPARE(database.supplyRibbon2Percent(), -1.0);
}

QTEST_GUILESS_MAIN(RibbonFlow)
#include "tst_ribbonflow.moc"
