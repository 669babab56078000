// SPDX-License-Identifier: LGPL-2.1-or-later
// Where Qt's driver carries a SQLite of its own the guard cannot reach it, and says so.

#include "guardedcatalogue.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>
#include <QtTest/QtTest>

#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;

class TestGuardOwnDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void installSaysThatItCannot();
    void aConnectionIsNotGuarding();
};

void TestGuardOwnDriver::initTestCase()
{
    QCoreApplication::setLibraryPaths({QStringLiteral(ZR_OWN_DRIVER_FOLDER)});
    QVERIFY(QSqlDatabase::isDriverAvailable(u"QSQLITE"_s));
}

void TestGuardOwnDriver::installSaysThatItCannot()
{
    const FixtureCatalogue catalogue;
    QVERIFY(!ZrSupplyGuard::install());
    QVERIFY(!ZrSupplyGuard::install(catalogue.path()));
    // Nothing is guarded and nothing is bounded then.
    QCOMPARE(sqlite3_hard_heap_limit64(-1), 0);
    sqlite3 *connection = nullptr;
    QCOMPARE(
        sqlite3_open_v2(QFile::encodeName(catalogue.path()).constData(), &connection, SQLITE_OPEN_READONLY, nullptr),
        SQLITE_OK);
    QCOMPARE(sqlite3_exec(connection, "PRAGMA user_version", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
}

void TestGuardOwnDriver::aConnectionIsNotGuarding()
{
    const FixtureCatalogue catalogue;
    {
        QSqlDatabase opened = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"own"_s);
        opened.setDatabaseName(catalogue.path());
        QVERIFY(opened.open());
        QCOMPARE(opened.driver()->handle().typeName(), "sqlite3*");
        QVERIFY(!ZrSupplyGuard::isGuarding(u"own"_s));
    }
    QSqlDatabase::removeDatabase(u"own"_s);
}

QTEST_GUILESS_MAIN(TestGuardOwnDriver)
#include "tst_guardowndriver.moc"
