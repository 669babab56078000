// SPDX-License-Identifier: LGPL-2.1-or-later
// What the guide for hosts promises of threads, of a failed setup() and of a new catalogue.

#include "support/fixturecatalogue.h"

#include <zrsupplydatabase.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtTest/QTest>

#include <cstdio>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString connection = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;

// The guide quotes what stands between the marks.
//! [upgrade]
bool upgrade(ZrSupplyDatabase &supplies, const QString &installed, const QString &delivered)
{
    const QString name = QStringLiteral("SUPPLY_INFO_QT_SQL_CONNECTION_NAME");
    const QString previous = installed + QStringLiteral(".previous");
    QFile::remove(previous);
    // A rename replaces the file in one step. Both names have to be on one file system.
    if (!QFile::copy(installed, previous) ||
        std::rename(QFile::encodeName(delivered), QFile::encodeName(installed)) != 0)
        return false;
    QSqlDatabase::removeDatabase(name); // otherwise Qt prints a warning
    if (supplies.setup(installed) && !supplies.supplySKUList().isEmpty())
        return true;
    std::rename(QFile::encodeName(previous), QFile::encodeName(installed));
    QSqlDatabase::removeDatabase(name);
    supplies.setup(installed);
    return false;
}
//! [upgrade]

} // namespace

class TestHostGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void setupBelongsToItsThread();
    void setupAfterFork();
    void reasonWithoutLogger();
    void secondSetup_data();
    void secondSetup();
    void footprint();
    void upgradeTakesEffect();
    void upgradeGoesBack_data();
    void upgradeGoesBack();

private:
    std::unique_ptr<FixtureCatalogue> m_catalogue;
};

void TestHostGuide::init()
{
    m_catalogue = std::make_unique<FixtureCatalogue>();
}

void TestHostGuide::setupBelongsToItsThread()
{
    const QString path = m_catalogue->path();
    QThread thread;
    auto *supplies = new ZrSupplyDatabase;
    connect(&thread, &QThread::finished, supplies, &QObject::deleteLater);
    QVERIFY(supplies->setup(path));
    supplies->moveToThread(&thread);
    thread.start();
    int before = 0;
    int after = 0;
    QMetaObject::invokeMethod(
        supplies,
        [&] {
            const QuietQt quiet; // Qt warns of a connection of another thread
            before = supplies->getColorRGBFromEnum(1);
            supplies->setup(path);
            after = supplies->getColorRGBFromEnum(1);
        },
        Qt::BlockingQueuedConnection);
    thread.quit();
    QVERIFY(thread.wait());
    QCOMPARE(before, -1);
    QCOMPARE(after, 16777215);
    QVERIFY(!QSqlDatabase::contains(connection));
}

void TestHostGuide::setupAfterFork()
{
    const pid_t child = fork();
    ZrSupplyDatabase supplies;
    const bool answers = supplies.setup(m_catalogue->path()) && supplies.getColorRGBFromEnum(1) == 16777215;
    if (child == 0)
        _exit(answers ? 0 : 1);
    int status = -1;
    QCOMPARE(waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
    QVERIFY(answers);
    QCOMPARE(supplies.getColorRGBFromEnum(1), 16777215);
}

void TestHostGuide::reasonWithoutLogger()
{
    ZrSupplyDatabase supplies;
    {
        const QuietQt quiet;
        QVERIFY(!supplies.setup(u"/nowhere/catalogue.sqlite"_s));
    }
    QCOMPARE(QSqlDatabase::database(connection, false).lastError().text(),
             u"unable to open database file Error opening database"_s);
    QVERIFY(supplies.setup(m_catalogue->path()));
    QVERIFY(!QSqlDatabase::database(connection, false).lastError().isValid());
}

void TestHostGuide::secondSetup_data()
{
    QTest::addColumn<bool>("removed");
    QTest::newRow("connection removed first: silent") << true;
    QTest::newRow("connection not removed: Qt warns") << false;
}

void TestHostGuide::secondSetup()
{
    QFETCH(const bool, removed);
    QTest::failOnWarning(QRegularExpression(u"."_s));
    ZrSupplyDatabase supplies;
    QVERIFY(supplies.setup(m_catalogue->path()));
    if (removed)
        QSqlDatabase::removeDatabase(connection);
    else
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"duplicate connection name '%1'"_s.arg(connection)));
    QVERIFY(supplies.setup(m_catalogue->path()));
    QCOMPARE(supplies.getColorRGBFromEnum(1), 16777215);
}

void TestHostGuide::footprint()
{
#ifndef NDEBUG
    QSKIP("a build for debugging, for coverage or with a sanitizer");
#endif
    const QTemporaryDir folder;
    const QString stripped = folder.filePath(u"library"_s);
    QCOMPARE(QProcess::execute(u"strip"_s, {u"-o"_s, stripped, QStringLiteral(ZR_LIBRARY)}), 0);
    const qint64 size = QFileInfo(stripped).size();
    QVERIFY2(size > 0 && size < 200000, QByteArray::number(size).constData());
}

void TestHostGuide::upgradeTakesEffect()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    ZrSupplyDatabase supplies;
    QVERIFY(supplies.setup(m_catalogue->path()));
    const FixtureCatalogue delivered;
    delivered.run(u"UPDATE color SET rgbValue = 7 WHERE id = 1"_s);
    QVERIFY(upgrade(supplies, m_catalogue->path(), delivered.path()));
    QCOMPARE(supplies.getColorRGBFromEnum(1), 7);
    QVERIFY(QFile::exists(m_catalogue->path() + u".previous"_s));
    QVERIFY(!QFile::exists(delivered.path()));
}

void TestHostGuide::upgradeGoesBack_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no database") << QByteArray("a text");
    QTest::newRow("empty file") << QByteArray();
}

void TestHostGuide::upgradeGoesBack()
{
    QFETCH(const QByteArray, content);
    ZrSupplyDatabase supplies;
    QVERIFY(supplies.setup(m_catalogue->path()));
    const QTemporaryDir folder;
    QFile delivered(folder.filePath(u"delivered"_s));
    QVERIFY(delivered.open(QIODevice::WriteOnly));
    delivered.write(content);
    delivered.close();
    QVERIFY(!upgrade(supplies, m_catalogue->path(), delivered.fileName()));
    QCOMPARE(supplies.getColorRGBFromEnum(1), 16777215);
    QVERIFY(!upgrade(supplies, m_catalogue->path(), u"/nowhere/catalogue.sqlite"_s));
    QCOMPARE(supplies.getColorRGBFromEnum(1), 16777215);
}

QTEST_GUILESS_MAIN(TestHostGuide)

#include "tst_hostguide.moc"
