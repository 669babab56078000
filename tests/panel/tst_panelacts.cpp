// SPDX-License-Identifier: LGPL-2.1-or-later
// What a person does in the panel, and what is then shown: state, texts, banners, the log.

#include "panelfixture.h"

#include "support/textfile.h"

#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

using namespace Qt::Literals::StringLiterals;
using panel::Severity;

namespace {

QString factOf(const panel::FactsModel &facts, const QString &label)
{
    for (const panel::Fact &fact : facts.rows()) {
        if (fact.label == label)
            return fact.text;
    }
    return {};
}

} // namespace

class PanelActsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLoaded();
    void loadsARoll();
    void loadsEveryRollOfTheCatalogue();
    void loadsARollThatSharesItsId();
    void loadsDieCutLabels();
    void ribbonsThatSuit();
    void wrongRibbon();
    void wrongRibbonByHeat();
    void theWorstComesFirst();
    void takesARibbonOut();
    void lowAndEmpty();
    void mileageIsKeptAndForgotten();
    void unknownTag();
    void tagIsNotLoadedWhenWrong();
    void languageOfNames();
    void languageOfAnUnknownRoll();
    void printerDecidesTheType();
    void resetTakesEverythingOut();
    void badCatalogue_data();
    void badCatalogue();
    void badCatalogueLeavesTheGoodOne();
    void anotherCatalogue();
    void withoutACatalogue();
    void runsTheChecks();
    void noneSuits();
};

void PanelActsTest::nothingIsLoaded()
{
    PanelFixture panel;
    QVERIFY(!panel->roll()->isInstalled());
    QCOMPARE(panel->roll()->title(), u"No roll"_s);
    QCOMPARE(panel->roll()->remainingWord(), u"No reading"_s);
    QCOMPARE(panel->ribbon1()->title(), u"No ribbon"_s);
    QCOMPARE(panel->roll()->facts()->rowCount(), 0);
    QCOMPARE(panel->banners()->title(), u"No roll is loaded"_s);
    QCOMPARE(panel->banners()->alerts(), 0);
    QCOMPARE(panel->log()->events(), 0);
}

void PanelActsTest::loadsARoll()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    QCOMPARE(panel.logged(u"event"_s), QStringList{u"roll 32100C0C802100406000"_s + u"0000"_s});
    QCOMPARE(panel.signalNames(), QStringList({u"supplyChangedSignal"_s, u"supplyPercentChanged"_s,
                                               u"supplyRGBChanged"_s, u"notifySupplySensor"_s}));
    QCOMPARE(panel->roll()->sku(), u"00144463"_s);
    QCOMPARE(panel->roll()->title(), u"White Vinyl"_s);
    QCOMPARE(panel->roll()->description(), u"6 in wide, Orange stripe of 1 1/2 in"_s);
    QCOMPARE(panel->roll()->shape().width, 6.0);
    QCOMPARE(panel->roll()->shape().stripe, 1.5);
    QCOMPARE(panel->roll()->color(), QColor(Qt::white));
    QCOMPARE(panel->roll()->stripeColor(), QColor(255, 106, 19));
    QVERIFY(panel->roll()->background().startsWith("<svg"));
    QCOMPARE(factOf(*panel->roll()->facts(), u"Format"_s), u"Continuous, striped"_s);
    QCOMPARE(factOf(*panel->roll()->facts(), u"Type"_s), u"1, continuous"_s);
    QVERIFY(factOf(*panel->roll()->facts(), u"Sensor"_s).contains(u"EDGE"_s));
}

void PanelActsTest::loadsEveryRollOfTheCatalogue()
{
    PanelFixture panel;
    const QStringList skus = panel->library().supplySKUList();
    QVERIFY(skus.size() > 70);
    for (const QString &sku : skus) {
        panel->loadRoll(sku);
        QCOMPARE(panel->library().supplySKU(), sku);
        QVERIFY2(panel->roll()->shape().isDrawable(), qPrintable(sku));
        QVERIFY2(panel.banner(u"mishap"_s).title.isEmpty(), qPrintable(sku));
    }
}

void PanelActsTest::loadsARollThatSharesItsId()
{
    PanelFixture panel;
    panel->loadRoll(u"143221-EU"_s);
    QCOMPARE(panel.logged(u"event"_s), QStringList({u"roll 3220000C8020804010000000"_s,
                                                    u"call setSupplySKU 143221-EU"_s, u"check edge-sensor"_s}));
    QCOMPARE(panel->roll()->sku(), u"143221-EU"_s);
}

void PanelActsTest::loadsDieCutLabels()
{
    PanelFixture panel;
    panel->loadRoll(u"00144724"_s);
    const panel::RollShape shape = panel->roll()->shape();
    QCOMPARE(shape.across, 4);
    QCOMPARE(shape.labelLength, 0.375);
    QCOMPARE(shape.separator, 0.125);
    QVERIFY(panel->roll()->isLandscape());
    QCOMPARE(panel->roll()->description(), u"3 in wide, labels of 3/8 in, 4 across"_s);
    QCOMPARE(factOf(*panel->roll()->facts(), u"Orientation"_s), u"landscape"_s);
    panel->loadRoll(u"00144760"_s);
    QVERIFY(!panel->roll()->isLandscape());
}

void PanelActsTest::ribbonsThatSuit()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    // A single ribbon on a wide roll is an alert: the missing one counts as narrow.
    QCOMPARE(panel.banner(u"combination"_s).severity, Severity::Problem);
    panel->loadRibbon(2, u"RW530903"_s);
    QCOMPARE(panel.logged(u"event"_s).mid(1), QStringList({u"ribbons 14 -1"_s, u"ribbons 14 16"_s}));
    QCOMPARE(panel->ribbon1()->sku(), u"RW530901"_s);
    QCOMPARE(panel->ribbon2()->title(), u"Red Resin"_s);
    QCOMPARE(panel->ribbon2()->panelColors(), QVariantList{QColor(210, 38, 48)});
    QCOMPARE(panel->ribbon2()->widthShare(), 6.0 / 6.5);
    QCOMPARE(factOf(*panel->ribbon1()->facts(), u"Heat"_s), u"104"_s);
    QCOMPARE(panel->banners()->title(), u"The ribbons suit the roll"_s);
    QCOMPARE(panel->banners()->severity(), u"good"_s);
}

void PanelActsTest::wrongRibbon()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->loadRibbon(2, u"R530905"_s);
    QCOMPARE(panel.signalNames().last(), u"alertInvalidRibbon2SupplyCombo"_s);
    QCOMPARE(panel->banners()->severity(), u"problem"_s);
    QCOMPARE(panel->banners()->title(), u"Ribbon 2 does not suit the roll"_s);
    const panel::Banner banner = panel.banner(u"combination"_s);
    // The reason is that of zrsupply explain.
    const QList<ZrSupplyKit::Verdict> verdicts = ZrSupplyKit::judge(ZrSupplyKit::gatherInstalled(panel->library()));
    QStringList fired;
    for (const ZrSupplyKit::Finding &finding : verdicts.constFirst().findings) {
        if (finding.outcome == ZrSupplyKit::Outcome::Fires)
            fired.append(finding.says);
    }
    QCOMPARE(banner.reason, fired.join(u"; "_s));
    QCOMPARE(banner.reason, u"R530905 is 2 1/4 in wide, under 4 1/2 in; the roll (6 in) is over 4 in"_s);
    QCOMPARE(banner.remedy, u"Load a ribbon that suits the roll, for example R530901 or R530902."_s);
    panel->loadRibbon(2, u"R530901"_s);
    QCOMPARE(panel.banner(u"combination"_s).severity, Severity::Good);
}

void PanelActsTest::wrongRibbonByHeat()
{
    PanelFixture panel;
    panel->loadRoll(u"00158377"_s); // paper
    panel->loadRibbon(1, u"R530901"_s);
    panel->loadRibbon(2, u"RW530921"_s);
    QCOMPARE(panel->banners()->title(), u"Ribbon 1 does not suit the roll"_s);
    QVERIFY(panel.banner(u"combination"_s).reason.contains(u"has no heat for material 2 (Paper)"_s) ||
            panel.banner(u"combination"_s).reason.contains(u"it does not print on it"_s));
    QCOMPARE(factOf(*panel->ribbon1()->facts(), u"Heat"_s), u"none"_s);
}

void PanelActsTest::theWorstComesFirst()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->loadRibbon(2, u"RW530903"_s);
    panel->setRollMileage(1000);
    QCOMPARE(panel->banners()->title(), u"The roll is low"_s);
    QCOMPARE(panel->banners()->alerts(), 1);
    // A good pair is told before what is merely known.
    QCOMPARE(panel->banners()->rows().at(1).severity, Severity::Good);
    panel->loadRibbon(2, u"R530905"_s);
    QCOMPARE(panel->banners()->title(), u"Ribbon 2 does not suit the roll"_s);
    QCOMPARE(panel->banners()->rows().at(1).title, u"The roll is low"_s);
    QCOMPARE(panel->banners()->alerts(), 2);
    panel->setRibbonMileage(1, 0);
    QCOMPARE(panel->banners()->rows().at(2).severity, Severity::Warning);
}

void PanelActsTest::takesARibbonOut()
{
    PanelFixture panel;
    panel->loadRoll(u"00143465"_s);
    panel->loadRibbon(1, u"R530901"_s);
    panel->loadRibbon(2, u"R530951"_s);
    QCOMPARE(panel->ribbon2()->panelColors().size(), 2);
    panel->loadRibbon(2, {});
    QVERIFY(!panel->ribbon2()->isInstalled());
    QVERIFY(panel->ribbon1()->isInstalled());
    QCOMPARE(panel->ribbon2()->title(), u"No ribbon"_s);
}

void PanelActsTest::lowAndEmpty()
{
    PanelFixture panel;
    panel->loadRoll(u"00143465"_s);
    panel->loadRibbon(1, u"R530901"_s);
    QCOMPARE(panel->roll()->fullMileage(), 30480);
    panel->setRollMileage(30480);
    QCOMPARE(panel->roll()->remainingWord(), u"Full"_s);
    QVERIFY(panel.banner(u"roll-left"_s).title.isEmpty());
    panel->setRollMileage(2438);
    QCOMPARE(panel->roll()->remainingWord(), u"Low"_s);
    QCOMPARE(panel->roll()->remainingPercent(), u"8 %"_s);
    QCOMPARE(panel->roll()->remainingLength(), u"8 of 100 ft"_s);
    QCOMPARE(panel->banners()->title(), u"The roll is low"_s);
    QCOMPARE(panel->banners()->severity(), u"warning"_s);
    QCOMPARE(panel.banner(u"roll-left"_s).reason, u"8 % is left."_s);
    panel->setRollMileage(1524);
    QCOMPARE(panel.banner(u"roll-left"_s).reason, u"5 % is left."_s);
    panel->setRollMileage(0);
    QCOMPARE(panel->roll()->remainingWord(), u"Empty"_s);
    QCOMPARE(panel->banners()->title(), u"The roll is empty"_s);
    QCOMPARE(panel->banners()->severity(), u"problem"_s);
    panel->setRibbonMileage(1, 0);
    QCOMPARE(panel.banner(u"ribbon1-left"_s).title, u"Ribbon 1 is empty"_s);
    panel->setRollMileage(-1);
    QCOMPARE(panel->roll()->remainingWord(), u"No reading"_s);
    QVERIFY(panel.banner(u"roll-left"_s).title.isEmpty());
    QCOMPARE(panel.logged(u"signal"_s).last(), u"supplyPercentChanged -1"_s);
}

void PanelActsTest::mileageIsKeptAndForgotten()
{
    PanelFixture panel;
    QCOMPARE(panel->roll()->mileage(), -1);
    panel->setRollMileage(1000);
    panel->setRibbonMileage(1, 2000);
    panel->setRibbonMileage(2, 3000);
    QCOMPARE(panel->roll()->mileage(), 1000);
    QCOMPARE(panel->ribbon1()->mileage(), 2000);
    QCOMPARE(panel->ribbon2()->mileage(), 3000);
    QCOMPARE(panel.logged(u"event"_s),
             QStringList({u"mileage roll 1000"_s, u"mileage ribbon1 2000"_s, u"mileage ribbon2 3000"_s}));
    panel->reset();
    QCOMPARE(panel->roll()->mileage(), -1);
    QCOMPARE(panel->ribbon2()->mileage(), -1);
}

void PanelActsTest::unknownTag()
{
    PanelFixture panel;
    panel->tag()->setText(u"3200000C8020824060000000"_s);
    panel->loadTag();
    QVERIFY(panel->roll()->isInstalled());
    QVERIFY(!panel->roll()->isKnown());
    QCOMPARE(panel->roll()->title(), u"Brown Vinyl"_s);
    QCOMPARE(panel->roll()->shape().width, 6.0);
    QCOMPARE(factOf(*panel->roll()->facts(), u"SKU"_s), u"in no catalogue"_s);
    const panel::Banner banner = panel.banner(u"roll"_s);
    QCOMPARE(banner.title, u"This roll is in no catalogue"_s);
    QVERIFY(banner.reason.contains(u"3200000C802082406000"_s));
    QCOMPARE(banner.severity, Severity::Warning);
    // A tag of revision 2 says everything itself.
    panel->tag()->setText(u"3233C08C8022804042451300"_s);
    panel->loadTag();
    QCOMPARE(panel->roll()->shape().gap, 0.125);
    panel->tag()->setText({});
    panel->showInstalledTag();
    QCOMPARE(panel->tag()->text(), u"3233C08C8022804042451300"_s);
}

void PanelActsTest::tagIsNotLoadedWhenWrong()
{
    PanelFixture panel;
    panel->tag()->setText(u"32'; DROP"_s);
    panel->loadTag();
    QCOMPARE(panel->log()->events(), 0);
    QVERIFY(!panel->roll()->isInstalled());
}

void PanelActsTest::languageOfNames()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530903"_s);
    panel->chooseLanguage(1);
    QCOMPARE(panel.logged(u"event"_s).last(), u"language 1"_s);
    QCOMPARE(panel->roll()->title(), u"Weiß Vinyl"_s);
    QCOMPARE(panel->ribbon1()->title(), u"Rot Harz"_s);
    QCOMPARE(panel->languageRow(), 1);
    QVERIFY(!panel->isRightToLeft());
    panel->chooseLanguage(5);
    QVERIFY(panel->isRightToLeft());
    panel->chooseLanguage(77);
    QCOMPARE(panel->languageRow(), 5);
}

void PanelActsTest::languageOfAnUnknownRoll()
{
    PanelFixture panel;
    panel->tag()->setText(u"3200000C8020824060000000"_s);
    panel->loadTag();
    panel->chooseLanguage(1);
    QCOMPARE(panel->roll()->title(), u"Braun Vinyl"_s);
    QCOMPARE(panel.logged(u"event"_s).last(), u"roll 3200000C8020824060000000"_s);
}

void PanelActsTest::printerDecidesTheType()
{
    PanelFixture panel;
    panel->loadRoll(u"00144884"_s);
    QCOMPARE(factOf(*panel->roll()->facts(), u"Type"_s), u"2, die-cut"_s);
    panel->choosePrinter(1);
    QCOMPARE(panel.logged(u"signal"_s).last(), u"printerChangedSignal \"Quokka 200\""_s);
    QCOMPARE(panel->printerRow(), 1);
    QCOMPARE(factOf(*panel->roll()->facts(), u"Type"_s), u"3, special die-cut"_s);
    panel->choosePrinter(0);
    QCOMPARE(panel->printerRow(), 0);
    QCOMPARE(factOf(*panel->roll()->facts(), u"Type"_s), u"2, die-cut"_s);
}

void PanelActsTest::resetTakesEverythingOut()
{
    PanelFixture panel;
    panel->chooseLanguage(1);
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->setRollMileage(5000);
    panel->reset();
    QCOMPARE(panel.logged(u"event"_s).mid(4), QStringList({u"roll -1"_s, u"ribbons -1 -1"_s, u"language 1"_s}));
    QVERIFY(!panel->roll()->isInstalled());
    QVERIFY(!panel->ribbon1()->isInstalled());
    QCOMPARE(panel->roll()->remainingWord(), u"No reading"_s);
    QCOMPARE(panel->languageRow(), 1);
    QCOMPARE(panel->library().supplyRibbonSKUs(), QStringList({u"-1"_s, u"-1"_s}));
    panel->loadRibbon(1, u"RW530903"_s);
    QCOMPARE(panel->ribbon1()->title(), u"Rot Harz"_s);
}

void PanelActsTest::badCatalogue_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no file") << u"none"_s << u"There is no file"_s;
    QTest::newRow("a folder") << u"folder"_s << u"is a folder, not a catalogue file"_s;
    QTest::newRow("a text") << u"text"_s << u"is not"_s;
    QTest::newRow("nothing in it") << u"empty"_s << u"is empty"_s;
    QTest::newRow("another database") << u"database"_s << u"lacks"_s;
}

void PanelActsTest::badCatalogue()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    QString path = folder.filePath(u"file.sqlite"_s);
    if (kind == u"folder"_s)
        path = folder.path();
    else if (kind == u"text"_s)
        writeAll(path, QString(200, u'x'));
    else if (kind == u"empty"_s)
        writeAll(path, {});
    else if (kind == u"database"_s) {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
        database.setDatabaseName(path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(u"CREATE TABLE price (id INTEGER)"_s));
        database = {};
        QSqlDatabase::removeDatabase(u"other"_s);
    }
    panel::Controller panel;
    panel.openCatalogue(path);
    QCOMPARE(panel.banners()->title(), u"This file cannot be used"_s);
    const panel::Banner banner = panel.banners()->rows().constFirst();
    QVERIFY2(banner.reason.contains(reason), qPrintable(banner.reason));
    QVERIFY(!banner.remedy.isEmpty());
    QVERIFY2(!banner.remedy.contains(u"--"_s), qPrintable(banner.remedy));
    QVERIFY(panel.banners()->isDismissible());
    QCOMPARE(panel.catalogueName(), u"no catalogue"_s);
    panel.dismissMishap();
    QCOMPARE(panel.banners()->title(), u"No catalogue is open"_s);
    // The panel stays usable: a good one opens, a roll loads.
    panel.openCatalogue(sampleCatalogue());
    panel.loadRoll(u"00143465"_s);
    QCOMPARE(panel.roll()->title(), u"White Vinyl"_s);
    QCOMPARE(panel.catalogueName(), u"sample.sqlite"_s);
}

void PanelActsTest::badCatalogueLeavesTheGoodOne()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->openCatalogue(sourcePath(u"README.md"_s));
    QCOMPARE(panel->banners()->title(), u"This file cannot be used"_s);
    QCOMPARE(panel->catalogueName(), u"sample.sqlite"_s);
    QCOMPARE(panel->roll()->title(), u"White Vinyl"_s);
    QCOMPARE(panel->log()->events(), 1);
    QVERIFY(panel.logged(u"problem"_s).constLast().contains(u"README.md"_s));
    panel->loadRibbon(1, u"RW530901"_s);
    QCOMPARE(panel->ribbon1()->title(), u"Black Resin"_s);
    QCOMPARE(panel->banners()->title(), u"This file cannot be used"_s);
    panel->dismissMishap();
    QVERIFY(panel->banners()->title() != u"This file cannot be used"_s);
}

void PanelActsTest::anotherCatalogue()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"renamed colours.sqlite"_s);
    QVERIFY(QFile::copy(sampleCatalogue(), path));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"edit"_s);
        database.setDatabaseName(path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(u"UPDATE colorTS SET name='Snow' WHERE colorId=1 AND languageId=0"_s));
    }
    QSqlDatabase::removeDatabase(u"edit"_s);
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->openCatalogue(path);
    QCOMPARE(panel->catalogueName(), u"renamed colours.sqlite"_s);
    QCOMPARE(panel->roll()->title(), u"Snow Vinyl"_s);
    QCOMPARE(panel->ribbon1()->sku(), u"RW530901"_s);
    QVERIFY(panel.logged(u"event"_s).contains(u"catalogue \"%1\""_s.arg(path)));
    QTRY_COMPARE(panel->rolls()->rows().constFirst().name, u"Snow Vinyl"_s);
}

void PanelActsTest::withoutACatalogue()
{
    panel::Controller panel;
    QCOMPARE(panel.banners()->title(), u"No catalogue is open"_s);
    panel.tag()->setText(u"3200000C8020824060000000"_s);
    panel.loadTag();
    // The tag's width is known without a catalogue, its colour is not.
    QCOMPARE(panel.roll()->shape().width, 6.0);
    QVERIFY(!panel.roll()->color().isValid());
    QCOMPARE(panel.log()->rows().constFirst().text, u"catalogue closed"_s);
}

void PanelActsTest::runsTheChecks()
{
    PanelFixture panel;
    panel->loadRoll(u"00143465"_s);
    panel->loadRibbon(1, u"R530901"_s);
    panel->loadRibbon(2, u"R530947"_s);
    panel->runChecks();
    QCOMPARE(panel.logged(u"signal"_s).mid(panel.logged(u"signal"_s).size() - 5),
             QStringList({u"notifyClearTailRibbon1 false"_s, u"notifyClearTailRibbon2 true"_s,
                          u"notifySupplySensor %1"_s.arg(panel->library().supplySensorId(u"EDGE"_s)),
                          u"notifySupplyWidth false"_s, panel.logged(u"signal"_s).last()}));
    QVERIFY(panel.logged(u"signal"_s).last().startsWith(u"notifyRibbonTensions "_s));
    QCOMPARE(panel.banner(u"clear-tail"_s).title, u"Clear tail: needed for ribbon 2"_s);
    for (const ZrSupplyKit::CheckName &name : ZrSupplyKit::checkNames())
        QVERIFY2(!panel.banner(name.word).title.isEmpty(), qPrintable(name.word));
}

void PanelActsTest::noneSuits()
{
    PanelFixture panel;
    ZrSupplyKit::RollFacts roll = ZrSupplyKit::gatherRoll(panel->library(), u"00144463"_s);
    QCOMPARE(ZrSupplyKit::ribbonsThatSuit(panel->library(), roll, 2).size(), 2);
    roll.material.value = -1;
    roll.sku = u"no such roll"_s;
    QVERIFY(ZrSupplyKit::ribbonsThatSuit(panel->library(), roll, 2).isEmpty());
}

QTEST_MAIN(PanelActsTest)
#include "tst_panelacts.moc"
