// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guardedcatalogue.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtTest/QtTest>

#include <sqlite3.h>

#include <atomic>
#include <memory>
#include <vector>

#include <time.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using ZrSupplyGuard::Limits;

Q_DECLARE_METATYPE(Limits)

namespace {

const QVariant refused(u"default"_s);

/// `count` times `part`, separated.
QString repeated(const QString &part, int count, const QString &separator)
{
    return QStringList(count, part).join(separator);
}

/// Counts to `rows` and takes the time for it.
QString counting(qint64 rows)
{
    return u"SELECT count(*) FROM (WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n LIMIT %1)"
           " SELECT x FROM n)"_s.arg(rows);
}

/// Each name stands for two queries of the one before it, so that SQLite expands 2^`doublings` queries while it
/// compiles. Joined tables would not do: SQLite 3.46 rejects more than 200 of them.
QString doubling(int doublings)
{
    QString text = u"SELECT (WITH c0(x) AS (SELECT 1)"_s;
    for (int n = 1; n <= doublings; ++n)
        text += u", c%1(x) AS (SELECT (SELECT x FROM c%2) | (SELECT x FROM c%2))"_s.arg(n).arg(n - 1);
    return text + u" SELECT x FROM c%1)"_s.arg(doublings);
}

struct Closer
{
    void operator()(sqlite3 *connection) const { sqlite3_close(connection); }
};
using Raw = std::unique_ptr<sqlite3, Closer>;

Raw opened(const QString &path, int flags = SQLITE_OPEN_READONLY)
{
    sqlite3 *connection = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &connection, flags, nullptr) != SQLITE_OK)
        qFatal("%s does not open", qPrintable(path));
    return Raw(connection);
}

bool runs(const Raw &connection, const char *sql)
{
    return sqlite3_exec(connection.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

/// Of this thread: what other programs leave of the machine does not count.
qint64 processorMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

int raiseThreads(sqlite3 *connection, char **, const void *)
{
    sqlite3_limit(connection, SQLITE_LIMIT_WORKER_THREADS, 4);
    return SQLITE_OK;
}

/// A guarded connection is told by what it refuses.
bool isGuarded(const QString &path)
{
    return !runs(opened(path), "CREATE TEMP TABLE t (x)");
}

} // namespace

class TestGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bounds_data();
    void bounds();
    void limitsAreSet_data();
    void limitsAreSet();
    void boundsCanBeLeftOut();
    void refusedStatements_data();
    void refusedStatements();
    void allowedStatements_data();
    void allowedStatements();
    void hostileFiles_data();
    void hostileFiles();
    void virtualTablesHaveNoModule();
    void options_data();
    void options();
    void endlessQuestions_data();
    void endlessQuestions();
    void pragmas_data();
    void pragmas();
    void clockStartsAnew();
    void foreignLock();
    void memoryIsBoundedAndReleased();
    void connectionsOfOneFile();
    void writersAreLeftAlone();
    void uriIsRefused();
    void nothingIsKept();
    void threads();
    void threadsThatInstall();
    void nothingIsMapped();
    void noConnectionIsHalfHardened();
};

void TestGuard::bounds_data()
{
    QTest::addColumn<QString>("question");
    QTest::addColumn<QVariant>("bare");
    QTest::addColumn<Limits>("limits");

    const Limits usual;
    Limits few = usual;
    few.statementMilliseconds = 5;
    Limits little = usual;
    little.processHeapBytes = qint64(8) << 20;
    QTest::newRow("time") << counting(2'000'000) << QVariant(2'000'000) << few;
    QTest::newRow("value") << u"SELECT length(hex(zeroblob(600000)))"_s << QVariant(1'200'000) << usual;
    QTest::newRow("statement") << u"SELECT 1 "_s + QString(1 << 16, u' ') + u"+ 1"_s << QVariant(2) << usual;
    QTest::newRow("compound") << repeated(u"SELECT 7"_s, 21, u" UNION ALL "_s) << QVariant(7) << usual;
    QTest::newRow("expression") << u"SELECT "_s + repeated(u"1"_s, 102, u"+"_s) << QVariant(102) << usual;
    QTest::newRow("program") << u"SELECT 1 IN ("_s + repeated(u"random()"_s, 7200, u","_s) + u')' << QVariant(0)
                             << usual;
    QTest::newRow("columns") << u"SELECT "_s + repeated(u"3"_s, 101, u","_s) << QVariant(3) << usual;
    QTest::newRow("arguments") << u"SELECT max("_s + repeated(u"4"_s, 17, u","_s) + u')' << QVariant(4) << usual;
    QTest::newRow("pattern") << u"SELECT 'aa' LIKE '%1'"_s.arg(QString(65, u'%')) << QVariant(1) << usual;
    QTest::newRow("memory while compiling") << doubling(13) << QVariant(1) << little;
}

/// Each bound bites, and nothing but the guard is what bites.
void TestGuard::bounds()
{
    QFETCH(QString, question);
    QFETCH(QVariant, bare);
    QFETCH(Limits, limits);
    const FixtureCatalogue catalogue;
    QCOMPARE(answer(catalogue.path(), question), bare);
    QCOMPARE(guardedAnswer(catalogue.path(), question, limits), refused);
    QCOMPARE(answer(catalogue.path(), question), bare);
}

void TestGuard::limitsAreSet_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("limit");
    QTest::newRow("value") << SQLITE_LIMIT_LENGTH << (1 << 20);
    QTest::newRow("statement") << SQLITE_LIMIT_SQL_LENGTH << (1 << 16);
    QTest::newRow("columns") << SQLITE_LIMIT_COLUMN << 100;
    QTest::newRow("depth") << SQLITE_LIMIT_EXPR_DEPTH << 100;
    QTest::newRow("compound") << SQLITE_LIMIT_COMPOUND_SELECT << 20;
    QTest::newRow("program") << SQLITE_LIMIT_VDBE_OP << 25000;
    QTest::newRow("arguments") << SQLITE_LIMIT_FUNCTION_ARG << 16;
    QTest::newRow("attached") << SQLITE_LIMIT_ATTACHED << 0;
    QTest::newRow("pattern") << SQLITE_LIMIT_LIKE_PATTERN_LENGTH << 64;
    QTest::newRow("bound values") << SQLITE_LIMIT_VARIABLE_NUMBER << 100;
    QTest::newRow("triggers in triggers") << SQLITE_LIMIT_TRIGGER_DEPTH << 0;
    QTest::newRow("threads") << SQLITE_LIMIT_WORKER_THREADS << 0;
}

/// All that SQLite has.
void TestGuard::limitsAreSet()
{
    QFETCH(int, category);
    QFETCH(int, limit);
    const FixtureCatalogue catalogue;
    // SQLite starts without threads, unless something that opens connections wants them.
    const auto wantThreads = reinterpret_cast<void (*)()>(raiseThreads);
    sqlite3_auto_extension(wantThreads);
    const auto owner = qScopeGuard([&] { sqlite3_cancel_auto_extension(wantThreads); });
    const Raw bare = opened(catalogue.path());
    const Guarded guarded;
    QCOMPARE(sqlite3_limit(opened(catalogue.path()).get(), category, -1), limit);
    QVERIFY(sqlite3_limit(bare.get(), category, -1) > limit);
}

void TestGuard::boundsCanBeLeftOut()
{
    const FixtureCatalogue catalogue;
    Limits none;
    for (int Limits::*bound :
         {&Limits::statementMilliseconds, &Limits::valueBytes, &Limits::statementBytes, &Limits::compoundSelects,
          &Limits::expressionDepth, &Limits::programSteps, &Limits::columns, &Limits::functionArguments,
          &Limits::patternBytes, &Limits::boundValues})
        none.*bound = 0;
    none.processHeapBytes = 0;
    const Guarded guarded(catalogue.path(), none);
    const Raw connection = opened(catalogue.path());
    QVERIFY(!runs(connection, "CREATE TEMP TABLE t (x)"));
    QCOMPARE(sqlite3_hard_heap_limit64(-1), 0);
    QCOMPARE(sqlite3_limit(connection.get(), SQLITE_LIMIT_COLUMN, -1), 2000);
    QCOMPARE(sqlite3_limit(connection.get(), SQLITE_LIMIT_ATTACHED, -1), 0);
    QVERIFY(runs(connection, "SELECT length(hex(zeroblob(600000)))"));
}

void TestGuard::refusedStatements_data()
{
    QTest::addColumn<QString>("statement");
    for (const auto statement : {"CREATE TEMP TABLE t (x)",
                                 "CREATE TEMP VIEW v AS SELECT 1",
                                 "ATTACH ':memory:' AS other",
                                 "CREATE VIRTUAL TABLE temp.f USING fts5(x)",
                                 "PRAGMA case_sensitive_like = ON",
                                 "PRAGMA cache_size = 1",
                                 "PRAGMA integrity_check",
                                 "PRAGMA temp_store_directory = '/'",
                                 "PRAGMA query_only = OFF",
                                 "PRAGMA trusted_schema = ON",
                                 "SELECT instr('ab', 'b')",
                                 "SELECT replace('ab', 'b', 'c')",
                                 "SELECT trim('ab', 'b')",
                                 "SELECT ltrim('ab', 'b')",
                                 "SELECT rtrim('ab', 'b')",
                                 "SELECT json_patch('{}', '{}')",
                                 "SELECT * FROM sqlite_stmt",
                                 "SELECT * FROM dbstat",
                                 "SELECT ?101",
                                 "SELECT fts3_tokenizer('simple')",
                                 "SELECT fts3_tokenizer('mine', fts3_tokenizer('simple'))",
                                 "SELECT token FROM fts3tokenize WHERE input='a b'",
                                 "SELECT name FROM pragma_table_info('roll')",
                                 "SELECT 1 FROM pragma_table_info('roll')",
                                 "PRAGMA table_info(roll)",
                                 "PRAGMA index_list(roll)",
                                 "PRAGMA user_version",
                                 "PRAGMA journal_mode",
                                 "PRAGMA journal_mode = MEMORY",
                                 "SAVEPOINT s",
                                 "SELECT value FROM json_each('[1]')"}) {
        QTest::newRow(statement) << QString::fromLatin1(statement);
    }
}

void TestGuard::refusedStatements()
{
    QFETCH(QString, statement);
    const FixtureCatalogue catalogue;
    const QByteArray text = statement.toUtf8();
    const Guarded guarded;
    QVERIFY(!runs(opened(catalogue.path()), text.constData()));
    ZrSupplyGuard::remove();
    const bool runsBare = runs(opened(catalogue.path()), text.constData());
    if (!runsBare && text.startsWith("SELECT fts3_tokenizer('mine'"))
        QSKIP("this SQLite refuses to set a tokenizer by itself");
    QVERIFY(runsBare);
}

void TestGuard::allowedStatements_data()
{
    QTest::addColumn<QString>("statement");
    for (const auto statement :
         {"SELECT name FROM sqlite_schema", "BEGIN; SELECT count(*) FROM roll; COMMIT",
          "SELECT trim(' a ') || upper('b') || group_concat(itemNum) FROM roll",
          "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n LIMIT 50) SELECT sum(x) FROM n",
          "EXPLAIN QUERY PLAN SELECT width FROM materialwidth ORDER BY width"}) {
        QTest::newRow(statement) << QString::fromLatin1(statement);
    }
}

void TestGuard::allowedStatements()
{
    QFETCH(QString, statement);
    const FixtureCatalogue catalogue;
    const Guarded guarded;
    const Raw connection = opened(catalogue.path());
    QVERIFY2(runs(connection, statement.toUtf8().constData()), sqlite3_errmsg(connection.get()));
}

void TestGuard::hostileFiles_data()
{
    QTest::addColumn<QString>("hostile");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QVariant>("bare");

    const QString landscape = u"SELECT landscape FROM roll LIMIT 1"_s;
    const QString computed = u"DROP TABLE roll; CREATE TABLE roll (itemNum TEXT, landscape AS (%1));"
                             "INSERT INTO roll (itemNum) VALUES ('a')"_s;
    QTest::newRow("view") << u"DROP TABLE roll; CREATE VIEW roll AS SELECT 'a' AS itemNum, 1 AS landscape"_s
                          << landscape << QVariant(1);
    QTest::newRow("virtual table") << u"DROP TABLE roll; CREATE VIRTUAL TABLE roll USING fts5(itemNum, landscape);"
                                      "INSERT INTO roll VALUES ('a', 1)"_s
                                   << landscape << QVariant(1);
    QTest::newRow("giant row") << u"DROP TABLE roll; CREATE TABLE roll (itemNum, landscape);"
                                  "INSERT INTO roll VALUES (zeroblob(2000000), 1)"_s
                               << u"SELECT length(hex(itemNum)) + landscape FROM roll"_s << QVariant(4'000'001);
    QTest::newRow("giant computed value")
        << computed.arg(u"length(hex(zeroblob(600000)))"_s) << landscape << QVariant(1'200'000);
    QTest::newRow("slow function in a computed column")
        << computed.arg(u"length(trim(hex(zeroblob(50)), '01'))"_s) << landscape << QVariant(0);
    QTest::newRow("many columns") << u"DROP TABLE roll; CREATE TABLE roll (itemNum, landscape, c%1);"
                                     "INSERT INTO roll (itemNum, landscape) VALUES ('a', 1)"_s.arg([] {
                                         QStringList names;
                                         for (int n = 0; n < 100; ++n)
                                             names.append(QString::number(n));
                                         return names.join(u", c"_s);
                                     }())
                                  << landscape << QVariant(1);
}

void TestGuard::hostileFiles()
{
    QFETCH(QString, hostile);
    QFETCH(QString, question);
    QFETCH(QVariant, bare);
    const FixtureCatalogue catalogue;
    catalogue.run(hostile);
    QCOMPARE(answer(catalogue.path(), question), bare);
    QCOMPARE(guardedAnswer(catalogue.path(), question), refused);
}

/// A connection that lost its authorizer still runs no virtual table's code.
void TestGuard::virtualTablesHaveNoModule()
{
    const FixtureCatalogue catalogue;
    catalogue.run(u"CREATE VIRTUAL TABLE f USING fts5(x)"_s);
    const auto reads = [&] {
        const Raw connection = opened(catalogue.path());
        sqlite3_set_authorizer(connection.get(), nullptr, nullptr);
        return runs(connection, "SELECT x FROM f");
    };
    QVERIFY(reads());
    const Guarded guarded;
    QVERIFY(!reads());
}

void TestGuard::options_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<int>("guarded");
    QTest::newRow("defensive") << SQLITE_DBCONFIG_DEFENSIVE << 1;
    QTest::newRow("trusted schema") << SQLITE_DBCONFIG_TRUSTED_SCHEMA << 0;
    QTest::newRow("views") << SQLITE_DBCONFIG_ENABLE_VIEW << 0;
    QTest::newRow("triggers") << SQLITE_DBCONFIG_ENABLE_TRIGGER << 0;
    QTest::newRow("tokenizer") << SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER << 0;
    QTest::newRow("extensions") << SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION << 0;
}

void TestGuard::options()
{
    QFETCH(int, option);
    QFETCH(int, guarded);
    const FixtureCatalogue catalogue;
    const auto isOn = [&] {
        int value = -1;
        sqlite3_db_config(opened(catalogue.path()).get(), option, -1, &value);
        return value;
    };
    const int bare = isOn();
    const Guarded guard;
    QCOMPARE(isOn(), guarded);
    // Two of them are SQLite's own choice in this build; the guard does not depend on that.
    if (option != SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION && option != SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER)
        QVERIFY(bare != guarded);
}

void TestGuard::endlessQuestions_data()
{
    QTest::addColumn<QString>("question");
    const QString endless = u"WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) "_s;
    QTest::newRow("recursion") << endless + u"SELECT count(*) FROM n"_s;
    QTest::newRow("growing memory")
        << u"WITH RECURSIVE n(x) AS (SELECT hex(zeroblob(500000)) UNION ALL SELECT x FROM n) SELECT count(*) FROM n"_s;
    QTest::newRow("sorting") << endless + u"SELECT x FROM n ORDER BY -x"_s;
    QTest::newRow("slow patterns")
        << endless + u"SELECT count(*) FROM n WHERE hex(zeroblob(500000)) || x LIKE '%_%1a'"_s.arg(QString(55, u'0'));
    QTest::newRow("joins") << u"SELECT count(*) FROM "_s + repeated(u"ribbon_heat"_s, 20, u" JOIN "_s);
    QTest::newRow("doubled while compiling") << doubling(25);
    QTest::newRow("doubled rows") << u"WITH a(x) AS (VALUES (1),(1)) SELECT count(*) FROM "_s +
                                         repeated(u"a"_s, 40, u" JOIN "_s);
}

/// Without the guard none of these ends in this world.
void TestGuard::endlessQuestions()
{
    QFETCH(QString, question);
    const FixtureCatalogue catalogue;
    const qint64 started = processorMilliseconds();
    QCOMPARE(guardedAnswer(catalogue.path(), question), refused);
    // 250 by the clock, and what a text that doubles itself takes until it fills the memory.
    const qint64 used = processorMilliseconds() - started;
    QVERIFY2(used < 2'500, qPrintable(u"%1 ms"_s.arg(used)));
}

/// What SQLite would put into files of its own stays in memory, and it reads the catalogue without mapping it.
void TestGuard::pragmas_data()
{
    QTest::addColumn<QByteArray>("pragma");
    QTest::addColumn<int>("guarded");
    QTest::newRow("temporary storage in memory") << QByteArray("PRAGMA temp_store") << 2;
    QTest::newRow("no mapped file") << QByteArray("PRAGMA mmap_size") << 0;
    QTest::newRow("cells are checked") << QByteArray("PRAGMA cell_size_check") << 1;
}

void TestGuard::pragmas()
{
    QFETCH(QByteArray, pragma);
    QFETCH(int, guarded);
    const FixtureCatalogue catalogue;
    const Guarded guard;
    const Raw connection = opened(catalogue.path());
    sqlite3_set_authorizer(connection.get(), nullptr, nullptr); // asking is refused, too
    sqlite3_stmt *statement = nullptr;
    QCOMPARE(sqlite3_prepare_v2(connection.get(), pragma.constData(), -1, &statement, nullptr), SQLITE_OK);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> owner(statement, sqlite3_finalize);
    // Without a mapping there is no row to tell its size.
    QCOMPARE(sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0, guarded);
}

/// The clock starts anew with each statement, also with one that was compiled before.
void TestGuard::clockStartsAnew()
{
    const FixtureCatalogue catalogue;
    Limits limits;
    limits.statementMilliseconds = 300;
    const Guarded guarded({}, limits);
    const Raw connection = opened(catalogue.path());
    const QByteArray brief = counting(5'000).toUtf8();
    sqlite3_stmt *compiled = nullptr;
    sqlite3_prepare_v2(connection.get(), brief.constData(), -1, &compiled, nullptr);
    for (int turn = 0; turn < 2; ++turn) {
        QVERIFY(!runs(connection, counting(1'000'000'000).toUtf8().constData()));
        QCOMPARE(sqlite3_step(compiled), SQLITE_ROW);
        sqlite3_reset(compiled);
    }
    QVERIFY(!runs(connection, counting(1'000'000'000).toUtf8().constData()));
    QVERIFY(runs(connection, brief.constData()));
    sqlite3_finalize(compiled);

    // Also for the tables' definitions, which SQLite reads by a statement that it does not tell of.
    QVERIFY(!runs(connection, counting(1'000'000'000).toUtf8().constData()));
    catalogue.run(u"CREATE TABLE fresh (x)"_s);
    QVERIFY2(runs(connection, "SELECT count(*) FROM fresh"), sqlite3_errmsg(connection.get()));
}

/// Qt waits five seconds for a lock; the guard no longer than for a statement.
void TestGuard::foreignLock()
{
    const FixtureCatalogue catalogue;
    const Guarded guarded(catalogue.path());
    const Raw writer = opened(catalogue.path(), SQLITE_OPEN_READWRITE);
    const QString question = u"SELECT 1 FROM roll"_s;
    ZrSupplyDatabase library;
    QVERIFY(library.setup(catalogue.path()));

    QVERIFY(runs(writer, "BEGIN EXCLUSIVE"));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(library.getSingleVariantByQuery(question, refused), refused);
    QCOMPARE(library.getSingleVariantByQuery(question, refused), refused);
    QVERIFY2(timer.elapsed() < 4'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(runs(writer, "COMMIT"));
    QCOMPARE(library.getSingleVariantByQuery(question, refused), QVariant(1));
}

void TestGuard::memoryIsBoundedAndReleased()
{
    sqlite3_hard_heap_limit64(qint64(1) << 30);
    sqlite3_soft_heap_limit64(qint64(1) << 29);
    {
        const Guarded guarded;
        QCOMPARE(sqlite3_hard_heap_limit64(-1), Limits().processHeapBytes);
        Limits other;
        other.processHeapBytes = qint64(1) << 25;
        QVERIFY(ZrSupplyGuard::install({}, other));
        QCOMPARE(sqlite3_hard_heap_limit64(-1), qint64(1) << 25);
        other.processHeapBytes = qint64(1) << 31;
        QVERIFY(ZrSupplyGuard::install({}, other));
        QCOMPARE(sqlite3_hard_heap_limit64(-1), qint64(1) << 30);
    }
    QCOMPARE(sqlite3_hard_heap_limit64(-1), qint64(1) << 30);
    QCOMPARE(sqlite3_soft_heap_limit64(-1), qint64(1) << 29);
    sqlite3_hard_heap_limit64(0);
    sqlite3_soft_heap_limit64(0);
}

void TestGuard::connectionsOfOneFile()
{
    const FixtureCatalogue catalogue;
    const FixtureCatalogue other;
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"link"_s);
    const QString hardLink = QFileInfo(catalogue.path()).dir().filePath(u"other-name"_s);
    QVERIFY(QFile::link(catalogue.path(), link));
    QCOMPARE(::link(qPrintable(catalogue.path()), qPrintable(hardLink)), 0);
    const QString relative = QDir::current().relativeFilePath(catalogue.path());

    for (const QString &named : {catalogue.path(), link, hardLink, relative}) {
        const Guarded guarded(named);
        for (const QString &path : {catalogue.path(), link, hardLink, relative})
            QVERIFY2(isGuarded(path), qPrintable(named + u" as "_s + path));
        QVERIFY(!isGuarded(other.path()));
        QVERIFY(runs(opened(u":memory:"_s, SQLITE_OPEN_READWRITE), "CREATE TABLE t (x)"));
    }
    QVERIFY(!isGuarded(catalogue.path()));

    const Guarded guarded;
    QVERIFY(isGuarded(catalogue.path()));
    QVERIFY(isGuarded(other.path()));
    // A connection that is open stays as it is, whatever comes after.
    const Raw kept = opened(catalogue.path());
    ZrSupplyGuard::remove();
    const Raw bare = opened(catalogue.path());
    QVERIFY(ZrSupplyGuard::install());
    QVERIFY(!runs(kept, "CREATE TEMP TABLE t (x)"));
    QVERIFY(runs(bare, "CREATE TEMP TABLE t (x)"));
}

void TestGuard::writersAreLeftAlone()
{
    const FixtureCatalogue catalogue;
    Limits limits;
    {
        const Guarded guarded({}, limits);
        const Raw writer = opened(catalogue.path(), SQLITE_OPEN_READWRITE);
        QVERIFY(runs(writer, "DELETE FROM background"));
        QVERIFY(runs(writer, "ATTACH ':memory:' AS other"));
        QVERIFY(runs(writer, "SELECT length(hex(zeroblob(600000)))"));
    }
    limits.writableToo = true;
    const Guarded guarded({}, limits);
    const Raw writer = opened(catalogue.path(), SQLITE_OPEN_READWRITE);
    QVERIFY(runs(writer, "SELECT count(*) FROM color"));
    QVERIFY(!runs(writer, "DELETE FROM color"));
    QVERIFY(!runs(writer, "PRAGMA user_version = 9"));
    QVERIFY(!runs(writer, "ATTACH ':memory:' AS other"));
}

void TestGuard::uriIsRefused()
{
    const FixtureCatalogue catalogue;
    QVERIFY(!ZrSupplyGuard::install(u"file:"_s + catalogue.path()));
    QVERIFY(!isGuarded(catalogue.path()));
    QVERIFY(ZrSupplyGuard::install());
    QVERIFY(!ZrSupplyGuard::install(u"FILE:x"_s));
    QVERIFY(!isGuarded(catalogue.path()));
    QCOMPARE(sqlite3_hard_heap_limit64(-1), 0);
    ZrSupplyGuard::remove();
}

void TestGuard::nothingIsKept()
{
    const FixtureCatalogue catalogue;
    const Guarded guarded;
    opened(catalogue.path());
    const qint64 before = sqlite3_memory_used();
    for (int n = 0; n < 200; ++n)
        runs(opened(catalogue.path()), "SELECT count(*) FROM roll");
    QCOMPARE(sqlite3_memory_used(), before);
}

/// Connections are opened while the guard comes and goes: each is whole, guarded or bare.
void TestGuard::threads()
{
    const FixtureCatalogue catalogue;
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> right = 0;
    constexpr int each = 100;
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back(QThread::create([&] {
            for (int turn = 0; turn < each; ++turn) {
                const Raw connection = opened(catalogue.path());
                const bool isBare = runs(connection, "CREATE TEMP TABLE t (x)");
                if (runs(connection, "SELECT trim('ab', 'b'), instr('ab', 'b')") == isBare)
                    ++right;
            }
        }));
        threads.back()->start();
    }
    for (int turn = 0; turn < each; ++turn) {
        QVERIFY(ZrSupplyGuard::install());
        ZrSupplyGuard::remove();
    }
    for (const auto &thread : threads)
        thread->wait();
    QCOMPARE(right.load(), int(threads.size()) * each);
}

/// One thread's trial of Qt's driver does not end that of another one.
void TestGuard::threadsThatInstall()
{
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> installed = 0;
    constexpr int each = 100;
    for (int n = 0; n < 4; ++n) {
        threads.emplace_back(QThread::create([&] {
            for (int turn = 0; turn < each; ++turn)
                installed += ZrSupplyGuard::install() ? 1 : 0;
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads)
        thread->wait();
    ZrSupplyGuard::remove();
    QCOMPARE(installed.load(), int(threads.size()) * each);
}

namespace {

/// SQLite configured anew while it lives, for what holds for the whole process. No connection may be open.
template <typename... Values>
class Configured
{
public:
    explicit Configured(Values... values)
    {
        sqlite3_shutdown();
        if (sqlite3_config(values...) != SQLITE_OK || sqlite3_initialize() != SQLITE_OK)
            qFatal("SQLite cannot be configured");
    }
};

sqlite3_mem_methods usualMemory;
int allocationsLeft = -1; ///< Before the one that fails; negative: none fails.

bool fails()
{
    return allocationsLeft >= 0 && allocationsLeft-- == 0;
}

void *allocateOrFail(int bytes)
{
    return fails() ? nullptr : usualMemory.xMalloc(bytes);
}

void *reallocateOrFail(void *memory, int bytes)
{
    return fails() ? nullptr : usualMemory.xRealloc(memory, bytes);
}

} // namespace

/// Also where SQLite maps files by default, as it does where a distribution or a host has it so.
void TestGuard::nothingIsMapped()
{
    const FixtureCatalogue catalogue;
    const auto mapped = [&] {
        const Raw connection = opened(catalogue.path());
        sqlite3_set_authorizer(connection.get(), nullptr, nullptr);
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(connection.get(), "PRAGMA mmap_size", -1, &statement, nullptr);
        const qint64 size = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
        sqlite3_finalize(statement);
        return size;
    };
    constexpr sqlite3_int64 size = 1 << 20;
    const Configured mapping(SQLITE_CONFIG_MMAP_SIZE, size, size);
    QCOMPARE(mapped(), size);
    {
        const Guarded guarded;
        QCOMPARE(mapped(), 0);
    }
    const Configured usual(SQLITE_CONFIG_MMAP_SIZE, sqlite3_int64(0), sqlite3_int64(-1));
    QCOMPARE(mapped(), 0);
}

/// Memory ends at each allocation of opening in turn: what opens is guarded, and what did not open runs nothing.
void TestGuard::noConnectionIsHalfHardened()
{
    const FixtureCatalogue catalogue;
    const QByteArray path = QFile::encodeName(catalogue.path());
    sqlite3_shutdown();
    QCOMPARE(sqlite3_config(SQLITE_CONFIG_GETMALLOC, &usualMemory), SQLITE_OK);
    sqlite3_mem_methods failing = usualMemory;
    failing.xMalloc = allocateOrFail;
    failing.xRealloc = reallocateOrFail;
    {
        const Configured memory(SQLITE_CONFIG_MALLOC, &failing);
        const Guarded guarded;
        int failed = 0;
        for (int allocation = 0;; ++allocation) {
            sqlite3 *connection = nullptr;
            allocationsLeft = allocation;
            const int code = sqlite3_open_v2(path.constData(), &connection, SQLITE_OPEN_READONLY, nullptr);
            const bool wasReached = allocationsLeft < 0;
            allocationsLeft = -1;
            const Raw owner(connection);
            if (code != SQLITE_OK) {
                ++failed;
                QVERIFY2(!connection || !runs(owner, "SELECT 1"), qPrintable(QString::number(allocation)));
                continue;
            }
            QVERIFY2(runs(owner, "SELECT count(*) FROM roll"), qPrintable(QString::number(allocation)));
            for (const char *refused : {"PRAGMA user_version", "SELECT trim('ab', 'b')", "SELECT printf('a')"})
                QVERIFY2(!runs(owner, refused), qPrintable(QString::number(allocation)));
            sqlite3_set_authorizer(connection, nullptr, nullptr);
            for (const char *refused : {"SELECT trim('ab', 'b')", "SELECT printf('a')",
                                        "SELECT 1 FROM json_each('[1]')", "SELECT 1 FROM pragma_user_version"})
                QVERIFY2(!runs(owner, refused), qPrintable(QString::number(allocation)));
            if (!wasReached)
                break;
        }
        QVERIFY2(failed > 100, qPrintable(QString::number(failed)));
    }
    const Configured usual(SQLITE_CONFIG_MALLOC, &usualMemory);
    QVERIFY(runs(opened(catalogue.path()), "SELECT 1"));
}

QTEST_GUILESS_MAIN(TestGuard)
#include "tst_guard.moc"
