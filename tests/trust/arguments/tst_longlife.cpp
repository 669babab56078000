// SPDX-License-Identifier: LGPL-2.1-or-later
// A printer runs for years: the object asks, changes and reconnects a million times and grows by nothing.

#include "quietlog.h"
#include "randomsource.h"
#include "slotcall.h"

#include "support/fixturecatalogue.h"
#include "support/metamethods.h"
#include "support/tagtext.h"
#include "support/tier.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtSql/QSqlDatabase>
#include <QtTest/QTest>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

namespace {

/// Kilobytes that this process has written and shares with none. Pages of libraries are left out: they count as its
/// own as soon as another process that maps them ends.
qint64 privateMemory()
{
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the kernel does not tell the memory of a process");
    qint64 kilobytes = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Private_Dirty:") || line.startsWith("Swap:"))
            kilobytes += line.mid(line.indexOf(':') + 1).chopped(2).trimmed().toLongLong();
    }
    return kilobytes;
}

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

/// Does a thing often: a tenth of it to warm up, then all of it; the growth in between has to be next to nothing.
template <typename Thing>
void doOften(int times, Thing thing)
{
    for (int i = 0; i < times / 10; ++i)
        thing(i);
    const qint64 memory = privateMemory();
    const qsizetype files = openFiles();
    for (int i = 0; i < times; ++i)
        thing(i);
    const qint64 growth = privateMemory() - memory;
    qInfo("%d times: %lld kB more", times, growth);
    QVERIFY(memory > 0);
    QVERIFY2(growth < 1024, qPrintable(u"%1 kB more"_s.arg(growth)));
    QCOMPARE(openFiles(), files);
}

} // namespace

class TestLongLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growthIsSeen();
    void lookups();
    void setupAndRemove();
    void setupAgain();
    void failingSetup();
    void supplyChanges();
    void resets();

private:
    const FixtureCatalogue m_catalogue;
};

void TestLongLife::growthIsSeen()
{
    const qint64 memory = privateMemory();
    const qsizetype files = openFiles();
    const auto block = std::make_unique<QByteArray>(3'000'000, 'x');
    QFile file(m_catalogue.path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(privateMemory() - memory > 2500);
    QCOMPARE(openFiles(), files + 1);
}

void TestLongLife::lookups()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    // Every slot that answers, with texts that have rows, that have none and that break the statement.
    QList<int> asking;
    for (int index = signalCount; index < methodCount; ++index) {
        const QMetaMethod method = methodAt(index);
        if (method.returnMetaType() != QMetaType::fromType<void>() && method.name() != "setup")
            asking.append(index);
    }
    const QString texts[] = {u"CONT-4"_s, u"RIB-TWO"_s, u"DIECUT"_s,       u"absent"_s,
                             u"it's"_s,   u""_s,        u"UnknownSupply"_s};
    doOften(byTier(100'000, 1'000'000, 5'000'000), [&](int i) {
        const int index = asking.at(i % asking.size());
        const QVariantList arguments = slotcall::arguments(
            index, [&](int parameter) { return texts[size_t(i + parameter) % std::size(texts)]; });
        slotcall::byIndex(database, index, arguments);
    });
}

void TestLongLife::setupAndRemove()
{
    doOften(byTier(2'000, 20'000, 100'000), [this](int) {
        ZrSupplyDatabase database;
        if (!database.setup(m_catalogue.path()) || database.supplyMaterial(u"CONT-4"_s) != 1)
            qFatal("the catalogue does not answer");
    });
    QVERIFY(!QSqlDatabase::contains(u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s));
}

void TestLongLife::setupAgain()
{
    const QuietQt quiet;
    ZrSupplyDatabase database;
    doOften(byTier(2'000, 20'000, 100'000), [&](int) {
        if (!database.setup(m_catalogue.path()) || database.supplyMaterial(u"CONT-4"_s) != 1)
            qFatal("the catalogue does not answer");
    });
}

void TestLongLife::failingSetup()
{
    const QuietQt quietQt;
    const QuietLog quietLog;
    ZrSupplyDatabase database;
    doOften(byTier(2'000, 20'000, 100'000), [&](int) {
        if (database.setup(m_catalogue.path() + u".absent"_s) || database.supplyMaterial(u"CONT-4"_s) != -1)
            qFatal("an absent catalogue answers");
    });
}

void TestLongLife::supplyChanges()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    RandomSource choices(testSeed());
    const QStringList ribbons = {u"12"_s, u"13"_s, u"14"_s, u"absent"_s, u"it's"_s};
    doOften(byTier(20'000, 200'000, 1'000'000), [&](int i) {
        database.setLanguageId(i % 2 == 0 ? 7 : 0);
        if (i % 4 == 3) {
            database.setRibbonIds({choices.oneOf(ribbons), choices.oneOf(ribbons)});
            database.setRibbon1Mileage(i);
        } else if (i % 100 == 0) {
            // A reset lengthens the lists of the ribbons until ribbons are set again.
            database.setSupplyId(u"-1"_s);
        } else {
            database.setSupplyId(tagText({{tagbits::revision, unsigned(choices.below(4))},
                                          {tagbits::format, unsigned(choices.below(64))},
                                          {tagbits::color, unsigned(choices.below(6))},
                                          {tagbits::material, unsigned(choices.below(20))}}));
            database.setSupplyMileage(i);
        }
    });
}

void TestLongLife::resets()
{
    // Deliberate: each reset appends to the ribbon lists, and only ribbons make them short again.
    ZrSupplyDatabase database;
    const int times = byTier(1'000, 10'000, 100'000);
    for (int i = 0; i < times; ++i)
        database.setSupplyId(u"-1"_s);
    QCOMPARE(database.supplyRibbonSKUs().size(), 2 * (times + 1));
    QVERIFY(database.setup(m_catalogue.path()));
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(database.supplyRibbonSKUs().size() + database.supplyRibbon1RGBs().size(), 4);
}

QTEST_GUILESS_MAIN(TestLongLife)

#include "tst_longlife.moc"
