// SPDX-License-Identifier: LGPL-2.1-or-later
// The models hold what a model has to hold, whatever is done to them.

#include "panelfixture.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using Mode = QAbstractItemModelTester::FailureReportingMode;

namespace {

QVariant at(const QAbstractItemModel &model, int row, const QByteArray &role)
{
    return model.data(model.index(row, 0), model.roleNames().key(role));
}

void readAllNames(panel::CatalogueModel &model)
{
    QTRY_VERIFY(model.isComplete());
}

} // namespace

class PanelModelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyModelKeepsTheRules();
    void rowsStayWhereTheyAre();
    void searchFinds_data();
    void searchFinds();
    void offersFollowTheLanguage();
    void offersWithoutACatalogue();
    void tagOfARoll();
    void tagLightsFieldByField();
    void tagRemarks_data();
    void tagRemarks();
    void tagBitsHaveTheirFields();
    void logIsCutOffNotTheSession();
    void languagesOfTheCatalogue();
    void pauses_data();
    void pauses();
};

void PanelModelsTest::everyModelKeepsTheRules()
{
    PanelFixture panel;
    const QList<QAbstractItemModel *> models = {
        panel->rolls(),       panel->ribbons(),       panel->languages(),        panel->log(),
        panel->banners(),     panel->roll()->facts(), panel->ribbon1()->facts(), panel->ribbon2()->facts(),
        panel->tag()->bits(), panel->tag()->fields()};
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    for (QAbstractItemModel *model : models)
        testers.push_back(std::make_unique<QAbstractItemModelTester>(model, Mode::QtTest));
    readAllNames(*panel->rolls());
    panel->rolls()->setSearch(u"white"_s);
    panel->rolls()->setSearch(u"nothing like it"_s);
    panel->rolls()->setSearch({});
    panel->ribbons()->setSearch(u"r53"_s);
    panel->loadRoll(u"00144724"_s);
    panel->loadRibbon(1, u"R530951"_s);
    panel->loadRibbon(2, u"R530905"_s);
    panel->setRollMileage(100);
    panel->tag()->setText(u"25880889602100C062420000"_s);
    panel->tag()->lightAll();
    panel->tag()->setText(u"no"_s);
    panel->chooseLanguage(1);
    panel->openCatalogue(u"/no/such/file"_s);
    panel->dismissMishap();
    panel->reset();
    for (const QAbstractItemModel *model : models) {
        QCOMPARE(model->rowCount(model->index(0, 0)), 0);
        QCOMPARE(model->data(model->index(model->rowCount(), 0)), QVariant());
        QVERIFY(!model->roleNames().isEmpty());
    }
}

void PanelModelsTest::rowsStayWhereTheyAre()
{
    panel::FactsModel model;
    const QAbstractItemModelTester tester(&model, Mode::QtTest);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setRows({{u"Width"_s, u"4 in"_s}, {u"Type"_s, u"1"_s}});
    QCOMPARE(inserted.size(), 1);
    model.setRows({{u"Width"_s, u"6 in"_s}, {u"Type"_s, u"1"_s}, {u"Sensor"_s, u"2"_s}});
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(at(model, 0, "text").toString(), u"6 in"_s);
    model.setRows({{u"Width"_s, u"1 in"_s}});
    QCOMPARE(removed.size(), 1);
    QCOMPARE(resets.size(), 0);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(at(model, 0, "text").toString(), u"1 in"_s);
}

void PanelModelsTest::searchFinds_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("skus");
    QTest::newRow("a SKU") << u"00144463"_s << QStringList{u"00144463"_s};
    QTest::newRow("a piece of one") << u"143221"_s << QStringList{u"00143221"_s, u"143221"_s, u"143221-EU"_s};
    QTest::newRow("words in any order and case") << u"wide FLUORESCENT 6 vinyl in"_s << QStringList{u"00143641"_s};
    QTest::newRow("a stripe") << u"stripe 1 1/16"_s << QStringList{u"00144501"_s};
    QTest::newRow("labels across") << u"across 144724"_s << QStringList{u"00144724"_s};
    QTest::newRow("nothing") << u"marzipan"_s << QStringList{};
    QTest::newRow("another family is not offered") << u"145532"_s << QStringList{};
}

void PanelModelsTest::searchFinds()
{
    QFETCH(QString, search);
    PanelFixture panel;
    readAllNames(*panel->rolls());
    QCOMPARE(panel->rolls()->offered(), int(panel->library().supplySKUList().size()));
    panel->rolls()->setSearch(search);
    QStringList skus;
    for (const panel::Offer &offer : panel->rolls()->rows())
        skus.append(offer.sku);
    skus.sort();
    QTEST(skus, "skus");
    QCOMPARE(panel->rolls()->found(), int(skus.size()));
}

void PanelModelsTest::offersFollowTheLanguage()
{
    PanelFixture panel;
    panel->ribbons()->setSearch(u"RW530903"_s);
    readAllNames(*panel->ribbons());
    QCOMPARE(at(*panel->ribbons(), 0, "name").toString(), u"Red Resin"_s);
    QCOMPARE(at(*panel->ribbons(), 0, "swatch").value<QColor>(), QColor(210, 38, 48));
    panel->chooseLanguage(1);
    readAllNames(*panel->ribbons());
    QCOMPARE(at(*panel->ribbons(), 0, "name").toString(), u"Rot Harz"_s);
}

void PanelModelsTest::offersWithoutACatalogue()
{
    panel::Controller panel;
    QCOMPARE(panel.rolls()->offered(), 0);
    QCOMPARE(panel.rolls()->found(), 0);
    QCOMPARE(panel.languages()->rowCount(), 1);
}

void PanelModelsTest::tagOfARoll()
{
    panel::TagReader tag;
    tag.setText(u" 3210:0c0c-8021 0040 6000 0000\n"_s);
    QCOMPARE(tag.text(), u"32100C0C8021004060000000"_s);
    QVERIFY(tag.isLoadable());
    QCOMPARE(tag.layout(), u"continuous, revision 0 or 1"_s);
    QCOMPARE(tag.bits()->rowCount(), 96);
    // 0x32 is 0011 0010.
    QString bits;
    for (int bit = 0; bit < 8; ++bit)
        bits += tag.bits()->data(tag.bits()->index(bit), Qt::DisplayRole).toString();
    QCOMPARE(bits, u"00110010"_s);
    QCOMPARE(at(*tag.fields(), 0, "name").toString(), u"mileage-base-feet"_s);
    QCOMPARE(at(*tag.fields(), 0, "range").toString(), u"0–8"_s);
    QCOMPARE(at(*tag.fields(), 0, "value").toString(), u"100"_s);
}

void PanelModelsTest::tagLightsFieldByField()
{
    panel::TagReader tag;
    tag.setText(u"32100C0C8021004060000000"_s);
    QCOMPARE(tag.lit(), 0);
    QVERIFY(!at(*tag.bits(), 0, "isLit").toBool());
    QTRY_COMPARE(tag.lit(), 1);
    QVERIFY(at(*tag.bits(), 0, "isLit").toBool());
    QVERIFY(at(*tag.bits(), 8, "isLit").toBool());
    QVERIFY(!at(*tag.bits(), 9, "isLit").toBool());
    QTRY_COMPARE_WITH_TIMEOUT(tag.lit(), tag.fields()->rowCount(), 10000);
    // Bits that nothing reads stay dark.
    QVERIFY(!at(*tag.bits(), 95, "isLit").toBool());
    tag.setText({});
    QCOMPARE(tag.lit(), 0);
}

void PanelModelsTest::tagRemarks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("loadable");
    QTest::addColumn<QString>("says");
    QTest::newRow("nothing yet") << u""_s << false << u"Type or paste"_s;
    QTest::newRow("a letter") << u"32X0"_s << false << u"“X” at place 3 is no hexadecimal digit"_s;
    QTest::newRow("a quote") << u"3200'"_s << false << u"“'” at place 5"_s;
    QTest::newRow("another script's digit") << u"٣200"_s << false << u"at place 1"_s;
    QTest::newRow("too short") << u"3200"_s << true << u"4 of 24 digits"_s;
    QTest::newRow("too long") << u"3200000C8020804041410000FF"_s << true << u"26 digits"_s;
    QTest::newRow("whole") << u"3200000C8020804041410000"_s << true << u"A whole tag: continuous"_s;
}

void PanelModelsTest::tagRemarks()
{
    QFETCH(QString, text);
    QFETCH(QString, says);
    panel::TagReader tag;
    tag.setText(text);
    QTEST(tag.isLoadable(), "loadable");
    QVERIFY2(tag.remark().contains(says), qPrintable(tag.remark()));
}

void PanelModelsTest::tagBitsHaveTheirFields()
{
    panel::TagReader tag;
    tag.setText(u"3233C08C8022804042451300"_s); // die-cut, revision 2
    QCOMPARE(tag.layout(), u"non-continuous, revision 2 or more"_s);
    int covered = 0;
    for (const panel::TagFieldRow &field : tag.fields()->rows())
        covered += field.width;
    int read = 0;
    for (const panel::TagBit &bit : tag.bits()->rows())
        read += bit.field >= 0 ? 1 : 0;
    QCOMPARE(read, covered);
    tag.setChosen(0);
    QVERIFY(at(*tag.bits(), 8, "isChosen").toBool());
    QVERIFY(!at(*tag.bits(), 9, "isChosen").toBool());
    tag.setChosen(-1);
    QVERIFY(!at(*tag.bits(), 8, "isChosen").toBool());
}

void PanelModelsTest::logIsCutOffNotTheSession()
{
    PanelFixture panel;
    panel->loadRoll(u"00143465"_s);
    constexpr int readings = 40;
    for (int mm = 0; mm < readings; ++mm)
        panel->setRollMileage(mm);
    while (panel->log()->rowCount() < panel::LogModel::mostRows)
        panel->log()->addProblem(u"a line"_s);
    QCOMPARE(panel->log()->rows().constFirst().text, u"roll 3200000C8020804041410000"_s);
    const QAbstractItemModelTester tester(panel->log(), Mode::QtTest);
    panel->log()->addProblem(u"one too many"_s);
    QVERIFY(panel->log()->rowCount() < panel::LogModel::mostRows);
    QCOMPARE(panel->log()->rows().constFirst().text, u"a line"_s);
    QCOMPARE(panel->log()->rows().constLast().text, u"one too many"_s);
    QCOMPARE(panel->log()->events(), readings + 1);
    QCOMPARE(panel->log()->session().count(u"mileage roll"_s), readings);
}

void PanelModelsTest::languagesOfTheCatalogue()
{
    PanelFixture panel;
    QStringList names;
    for (const panel::Language &language : panel->languages()->rows())
        names.append(language.name);
    QCOMPARE(names.mid(0, 4), QStringList({u"English"_s, u"Deutsch"_s, u"Français"_s, u"Español"_s}));
    QCOMPARE(panel->languages()->rowOf(5), 5);
    QCOMPARE(panel->languages()->rowOf(77), -1);
    QVERIFY(panel->languages()->isRightToLeft(5));
    QVERIFY(!panel->languages()->isRightToLeft(0));
    QVERIFY(!panel->languages()->isRightToLeft(77));
}

void PanelModelsTest::pauses_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<QString>("line");
    QTest::newRow("too short to notice") << qint64(49) << QString();
    QTest::newRow("a moment") << qint64(50) << u"# after 0.05 s"_s;
    QTest::newRow("seconds") << qint64(12340) << u"# after 12.34 s"_s;
}

void PanelModelsTest::pauses()
{
    QFETCH(qint64, ms);
    QFETCH(QString, line);
    QCOMPARE(panel::pauseLine(ms), line);
    if (!line.isEmpty())
        QCOMPARE(panel::pauseOf(line), ms);
    for (const QString &other : {u"# after lunch"_s, u"roll -1"_s, u"# after 1 s of silence"_s, u"after 1 s"_s})
        QCOMPARE(panel::pauseOf(other), -1);
}

QTEST_MAIN(PanelModelsTest)
#include "tst_panelmodels.moc"
