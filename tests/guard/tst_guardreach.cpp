// SPDX-License-Identifier: LGPL-2.1-or-later
// The guard says of a connection whether it guards it, and looks each time.

#include "guardedcatalogue.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlDriver>
#include <QtTest/QtTest>

#include <sqlite3.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using ZrSupplyGuard::isGuarding;

namespace {

const QString catalogueName = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;

using Take = std::function<void(sqlite3 *)>;

sqlite3 *handle(const QString &name)
{
    const QVariant handle = QSqlDatabase::database(name).driver()->handle();
    return *static_cast<sqlite3 *const *>(handle.constData());
}

Take raise(int limit)
{
    return [=](sqlite3 *connection) { sqlite3_limit(connection, limit, 2'000'000); };
}

Take turn(int option, int isOn)
{
    return [=](sqlite3 *connection) { sqlite3_db_config(connection, option, isOn, nullptr); };
}

int allowAll(void *, int, const char *, const char *, const char *, const char *)
{
    return SQLITE_OK;
}

int denyAll(void *, int, const char *, const char *, const char *, const char *)
{
    return SQLITE_DENY;
}

} // namespace

Q_DECLARE_METATYPE(Take)

class TestGuardReach : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatWasOpenedUnderTheGuard();
    void whatIsTakenAwayIsNoticed_data();
    void whatIsTakenAwayIsNoticed();
    void theFileIsNotAsked();
    void nothingIsLeftOver();
    void otherConnections();
    void withoutAClock();
};

void TestGuardReach::onlyWhatWasOpenedUnderTheGuard()
{
    const FixtureCatalogue catalogue;
    const QuietQt quiet;
    ZrSupplyDatabase library;
    QVERIFY(!isGuarding(catalogueName));
    QVERIFY(library.setup(catalogue.path()));
    QVERIFY(!isGuarding(catalogueName));
    {
        const Guarded guarded(catalogue.path());
        QVERIFY(!isGuarding(catalogueName)); // open before
        QVERIFY(library.setup(catalogue.path()));
        QVERIFY(isGuarding(catalogueName));
        QVERIFY(isGuarding(catalogueName));
    }
    // The guard is gone, the connection stays guarded until it is closed.
    QVERIFY(isGuarding(catalogueName));
    QCOMPARE(library.supplyMaterial(u"CONT-4"_s), 1);
    QVERIFY(library.setup(catalogue.path()));
    QVERIFY(!isGuarding(catalogueName));
}

void TestGuardReach::whatIsTakenAwayIsNoticed_data()
{
    QTest::addColumn<Take>("take");
    QTest::newRow("nothing") << Take([](sqlite3 *) {});
    QTest::newRow("length") << raise(SQLITE_LIMIT_LENGTH);
    QTest::newRow("statement") << raise(SQLITE_LIMIT_SQL_LENGTH);
    QTest::newRow("compound") << raise(SQLITE_LIMIT_COMPOUND_SELECT);
    QTest::newRow("depth") << raise(SQLITE_LIMIT_EXPR_DEPTH);
    QTest::newRow("program") << raise(SQLITE_LIMIT_VDBE_OP);
    QTest::newRow("columns") << raise(SQLITE_LIMIT_COLUMN);
    QTest::newRow("arguments") << raise(SQLITE_LIMIT_FUNCTION_ARG);
    QTest::newRow("pattern") << raise(SQLITE_LIMIT_LIKE_PATTERN_LENGTH);
    QTest::newRow("bound values") << raise(SQLITE_LIMIT_VARIABLE_NUMBER);
    QTest::newRow("attached") << raise(SQLITE_LIMIT_ATTACHED);
    QTest::newRow("trigger depth") << raise(SQLITE_LIMIT_TRIGGER_DEPTH);
    QTest::newRow("worker threads") << raise(SQLITE_LIMIT_WORKER_THREADS);
    QTest::newRow("defensive") << turn(SQLITE_DBCONFIG_DEFENSIVE, 0);
    QTest::newRow("trusted schema") << turn(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 1);
    QTest::newRow("views") << turn(SQLITE_DBCONFIG_ENABLE_VIEW, 1);
    QTest::newRow("triggers") << turn(SQLITE_DBCONFIG_ENABLE_TRIGGER, 1);
    QTest::newRow("tokenizer") << turn(SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 1);
    QTest::newRow("extensions") << turn(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 1);
    QTest::newRow("authorizer") << Take([](sqlite3 *c) { sqlite3_set_authorizer(c, nullptr, nullptr); });
    QTest::newRow("another authorizer") << Take([](sqlite3 *c) { sqlite3_set_authorizer(c, allowAll, nullptr); });
    QTest::newRow("a strict authorizer") << Take([](sqlite3 *c) { sqlite3_set_authorizer(c, denyAll, nullptr); });
    QTest::newRow("clock") << Take([](sqlite3 *c) { sqlite3_progress_handler(c, 0, nullptr, nullptr); });
    QTest::newRow("another clock") << Take([](sqlite3 *c) {
        sqlite3_progress_handler(
            c, 100, [](void *) { return 1; }, nullptr);
    });
    QTest::newRow("start of the clock") << Take([](sqlite3 *c) { sqlite3_trace_v2(c, 0, nullptr, nullptr); });
}

void TestGuardReach::whatIsTakenAwayIsNoticed()
{
    QFETCH(Take, take);
    const FixtureCatalogue catalogue;
    const Guarded guarded(catalogue.path());
    ZrSupplyDatabase library;
    QVERIFY(library.setup(catalogue.path()));
    QVERIFY(isGuarding(catalogueName));
    take(handle(catalogueName));
    QCOMPARE(isGuarding(catalogueName), qstrcmp(QTest::currentDataTag(), "nothing") == 0);
}

/// A lock on the file, or its end, changes nothing of the answer and keeps nobody waiting.
void TestGuardReach::theFileIsNotAsked()
{
    const FixtureCatalogue catalogue;
    const Guarded guarded(catalogue.path());
    ZrSupplyDatabase library;
    QVERIFY(library.setup(catalogue.path()));
    sqlite3 *writer = nullptr;
    sqlite3_open(QFile::encodeName(catalogue.path()).constData(), &writer);
    QCOMPARE(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    QVERIFY(isGuarding(catalogueName));
    sqlite3_close(writer);
    QFile::resize(catalogue.path(), 0);
    QVERIFY(isGuarding(catalogueName));
}

/// Being asked changes nothing for the statements that follow.
void TestGuardReach::nothingIsLeftOver()
{
    const FixtureCatalogue catalogue;
    const Guarded guarded(catalogue.path());
    ZrSupplyDatabase library;
    QVERIFY(library.setup(catalogue.path()));
    for (int turn = 0; turn < 3; ++turn) {
        QVERIFY(isGuarding(catalogueName));
        QCOMPARE(library.supplyMaterial(u"CONT-4"_s), 1);
        QCOMPARE(library.getSingleVariantByQuery(
                     u"WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n LIMIT 5000)"
                     " SELECT count(*) FROM n"_s,
                     u"default"_s),
                 QVariant(5000));
    }
}

void TestGuardReach::otherConnections()
{
    const Guarded guarded;
    QVERIFY(!isGuarding(u"no such name"_s));
    QVERIFY(!isGuarding({}));
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"closed"_s);
        QVERIFY(!isGuarding(u"closed"_s));
        const QuietQt quiet;
        const QSqlDatabase none = QSqlDatabase::addDatabase(u"no such driver"_s, u"none"_s);
        QVERIFY(!isGuarding(u"none"_s));
    }
    {
        // Of the host itself, and not read-only: left alone.
        QSqlDatabase own = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"own"_s);
        own.setDatabaseName(u":memory:"_s);
        QVERIFY(own.open());
        QVERIFY(!isGuarding(u"own"_s));
    }
    for (const QString &name : {u"closed"_s, u"none"_s, u"own"_s})
        QSqlDatabase::removeDatabase(name);
    // Looking for a driver in reach leaves no connection behind.
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

void TestGuardReach::withoutAClock()
{
    const FixtureCatalogue catalogue;
    ZrSupplyGuard::Limits limits;
    limits.statementMilliseconds = 0;
    const Guarded guarded(catalogue.path(), limits);
    ZrSupplyDatabase library;
    QVERIFY(library.setup(catalogue.path()));
    QVERIFY(isGuarding(catalogueName));
    sqlite3_set_authorizer(handle(catalogueName), nullptr, nullptr);
    QVERIFY(!isGuarding(catalogueName));
}

QTEST_GUILESS_MAIN(TestGuardReach)
#include "tst_guardreach.moc"
