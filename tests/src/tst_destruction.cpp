// SPDX-License-Identifier: LGPL-2.1-or-later
// What an object takes with it, and what it holds on to: the connection of the fixed name, and nothing.

#include "support/fixturecatalogue.h"

#include <zrsupplydatabase.h>

#include <QtCore/QRegularExpression>
#include <QtSql/QSqlDatabase>
#include <QtTest/QTest>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fixedName = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;
const QString otherName = u"another connection"_s;

} // namespace

class TestDestruction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void destruction_data();
    void destruction();
    void destructionTakesTheConnectionOfOthers();
    void keepsNoHandle();
};

void TestDestruction::cleanup()
{
    QSqlDatabase::removeDatabase(otherName);
    QVERIFY2(QSqlDatabase::connectionNames().isEmpty(), "a connection was left behind");
}

void TestDestruction::destruction_data()
{
    QTest::addColumn<QStringList>("setupNames");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("never set up") << QStringList() << QStringList();
    QTest::newRow("default name") << QStringList(fixedName) << QStringList();
    QTest::newRow("another name only") << QStringList(otherName) << QStringList(otherName);
    QTest::newRow("both names") << QStringList({fixedName, otherName}) << QStringList(otherName);
    QTest::newRow("both names, default last") << QStringList({otherName, fixedName}) << QStringList(otherName);
}

void TestDestruction::destruction()
{
    QFETCH(QStringList, setupNames);
    QFETCH(QStringList, left);
    // Qt warns of a connection that is removed while a handle or a query is alive.
    QTest::failOnWarning(QRegularExpression(u"."_s));
    const FixtureCatalogue catalogue;
    {
        ZrSupplyDatabase database;
        for (const QString &name : setupNames)
            QVERIFY(database.setup(catalogue.path(), name));
        database.setSupplyId(u"4B000912C10404900400"_s);
        database.setRibbonIds({u"12"_s, u"13"_s});
        database.supplySKUList();
        database.supplyColorHash();
        database.isSupplyIdShared();
        QStringList registered = QSqlDatabase::connectionNames();
        registered.sort();
        setupNames.sort();
        QCOMPARE(registered, setupNames);
    }
    QCOMPARE(QSqlDatabase::connectionNames(), left);
    for (const QString &name : left)
        QVERIFY(QSqlDatabase::database(name, false).isOpen());
}

void TestDestruction::destructionTakesTheConnectionOfOthers()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase staying;
    QVERIFY(staying.setup(catalogue.path()));
    QCOMPARE(staying.getColorRGBFromEnum(1), 16777215);
    // Deliberate: the name is fixed, so an object that was never set up takes the connection with it too.
    auto leaving = std::make_unique<ZrSupplyDatabase>();
    QCOMPARE(leaving->getColorRGBFromEnum(1), 16777215);
    leaving.reset();
    QVERIFY(!QSqlDatabase::contains(fixedName));
    QCOMPARE(staying.getColorRGBFromEnum(1), -1);
}

void TestDestruction::keepsNoHandle()
{
    // Qt warns when a connection goes while a handle or a query of it is alive.
    QTest::failOnWarning(QRegularExpression(u"."_s));
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    const QVariant value = database.getSingleVariantByQuery(u"SELECT itemNum FROM roll"_s, {});
    QVERIFY(value.isValid());
    database.supplyColorHash();
    QSqlDatabase::removeDatabase(fixedName);
    QVERIFY(!QSqlDatabase::contains(fixedName));
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT itemNum FROM roll"_s, 7), QVariant(7));
}

QTEST_GUILESS_MAIN(TestDestruction)

#include "tst_destruction.moc"
