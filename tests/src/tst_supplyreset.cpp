// SPDX-License-Identifier: LGPL-2.1-or-later
// The reset id: what is unset, what is kept, and the lists that grow.

#include "support/rollcatalogue.h"
#include "support/signallog.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;
using namespace rolls;

class SupplyReset : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resetClearsTheRoll();
    void resetForgetsAStripe();
    void unsetWithoutAReset();
    void resetAppendsToTheLists();
    void revisionSurvivesAReset();
    void plainSettersAreSilent();

private:
    const RollCatalogue m_catalogue;
};

void SupplyReset::resetClearsTheRoll()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setLanguageId(7);
    database.setSupplyUid(u"uid"_s);
    database.setRibbon1Uid(u"uid 1"_s);
    database.setRibbon2Uid(u"uid 2"_s);
    database.setSupplyMileage(254);
    database.setSupplyId(multiUp);
    database.setSupplyId(u"-1"_s);

    // What the tag alone knows keeps the last tag's values: gap, count, landscape, swift lift and the English names.
    QCOMPARE(tagAnswers(database),
             QStringList({u"base -12, length -1, width -1, stripe -1, label -1, separator -1, gap 0.25"_s,
                          u"across 4, landscape 0, swift 1, material -1, format -1, type -1 -1"_s,
                          u"roll -1 <> <White (en)>, stripe -1 <> <-1>"_s, u"material <>, announced -1"_s}));
    QVERIFY(database.supplyColorName().isNull());
    QVERIFY(database.supplySecColorName().isNull());
    QVERIFY(database.supplyMaterialName().isNull());
    QCOMPARE(identity(database), QStringList({u"-1"_s, u"-1"_s}));
    QCOMPARE(QStringList({database.supplyUid(), database.ribbon1Uid(), database.ribbon2Uid()}),
             QStringList({u"-1"_s, u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplySupplyPercent(), -1.0);
    // The language is back to English.
    QCOMPARE(database.supplyColorName(u"CONT-4"_s), u"White (en)"_s);
}

void SupplyReset::resetForgetsAStripe()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplyId(striped);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(tagAnswers(database),
             QStringList({u"base -12, length -1, width -1, stripe -1, label -1, separator -1, gap 0.1875"_s,
                          u"across 1, landscape 1, swift 1, material -1, format -1, type -1 -1"_s,
                          u"roll -1 <> <Blue (en)>, stripe -1 <> <Red (en)>"_s, u"material <>, announced -1"_s}));
}

void SupplyReset::unsetWithoutAReset()
{
    // A reset reads the length again; by itself init() has to unset it, or a reading would count against a gone roll.
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplyId(striped);
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.init();
    SignalLog log(&database);
    database.setSupplyMileage(0);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    QCOMPARE(log.take(), QStringList({u"supplyPercentChanged(-1)"_s, u"ribbon1PercentChanged(-1)"_s,
                                      u"ribbon2PercentChanged(-1)"_s}));
}

void SupplyReset::resetAppendsToTheLists()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    SignalLog log(&database);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(log.take(), QStringList({u"supplyChangedSignal(\"-1\")"_s, u"supplyPercentChanged(-1)"_s,
                                      u"supplyRGBChanged(\"-1\")"_s, u"notifySupplySensor(-1)"_s}));
    QCOMPARE(database.supplyRibbonSKUs(), QStringList({u"RIB-ONE"_s, u"RIB-TWO"_s, u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplyRibbon1RGBs(), QStringList({u"0"_s, u"-1"_s, u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplyRibbon2RGBs(), QStringList({u"0"_s, u"16711680"_s, u"-1"_s, u"-1"_s}));
    QCOMPARE(database.supplyRibbon1Percent(), -1.0);
    QCOMPARE(database.supplyRibbon2Percent(), -1.0);
    QCOMPARE(database.ribbon1Type(), u"-1"_s);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyRibbonSKUs(),
             QStringList({u"RIB-ONE"_s, u"RIB-TWO"_s, u"-1"_s, u"-1"_s, u"-1"_s, u"-1"_s}));
}

void SupplyReset::revisionSurvivesAReset()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));

    // Revision 0: the catalogue's format and type.
    database.setSupplyId(striped);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyFormat(u"STRIPED"_s), 2);
    QCOMPARE(database.supplyFormat(u"DIECUT"_s), 9);
    // Revision 1: the format that only such a tag carries.
    database.setSupplyId(dieCut);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyFormat(u"STRIPED"_s), 9);
    QCOMPARE(database.supplyFormat(), 9);
    // Revision 2: the format and the type of the tag, which are unset by now.
    database.setSupplyId(multiUp);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyFormat(u"STRIPED"_s), -1);
    QCOMPARE(database.supplyTypeIndex(u"DIECUT"_s), -1);
}

void SupplyReset::plainSettersAreSilent()
{
    ZrSupplyDatabase database;
    SignalLog log(&database);
    database.setSupplySKU(u"X"_s);
    database.setSupplyUid(u"U"_s);
    database.setLanguageId(3);
    database.init();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(database.supplySKU(), u"-1"_s);
    QVERIFY(QMetaObject::invokeMethod(&database, "updateSupplyRGB"));
    QVERIFY(QMetaObject::invokeMethod(&database, "updateSupplyLength"));
    QCOMPARE(log.take(), QStringList({u"supplyRGBChanged(\"-1\")"_s, u"supplyPercentChanged(-1)"_s}));
}

QTEST_GUILESS_MAIN(SupplyReset)
#include "tst_supplyreset.moc"
