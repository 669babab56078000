// SPDX-License-Identifier: LGPL-2.1-or-later
// What a guarded statement may do is a list: the SQLite that runs is asked for all that it has, and everything else
// is tried and refused.

#include "guardedcatalogue.h"

#include <allowlist_p.h>

#include <QtCore/QSet>
#include <QtTest/QtTest>

#include <sqlite3.h>

#include <memory>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using ZrSupplyGuard::Use;

namespace {

struct Closer
{
    void operator()(sqlite3 *connection) const { sqlite3_close(connection); }
};
using Raw = std::unique_ptr<sqlite3, Closer>;

Raw opened(const QString &path)
{
    sqlite3 *connection = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &connection, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        qFatal("%s does not open", qPrintable(path));
    return Raw(connection);
}

bool compiles(const Raw &connection, const QString &sql)
{
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v2(connection.get(), sql.toUtf8().constData(), -1, &statement, nullptr);
    sqlite3_finalize(statement);
    return code == SQLITE_OK;
}

bool runs(const Raw &connection, const QString &sql)
{
    return sqlite3_exec(connection.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

/// The cells of a list that SQLite gives about itself.
QList<QStringList> list(const Raw &connection, const char *pragma)
{
    QList<QStringList> rows;
    sqlite3_exec(
        connection.get(), pragma,
        [](void *context, int count, char **cells, char **) {
            QStringList row;
            for (int n = 0; n < count; ++n)
                row.append(QString::fromUtf8(cells[n]));
            static_cast<QList<QStringList> *>(context)->append(row);
            return 0;
        },
        &rows, nullptr);
    return rows;
}

/// As the header of the guard promises it: name, then how many arguments, "*" for any number.
const QSet<QString> &promised()
{
    static const QSet<QString> functions = {
        u"abs 1"_s,      u"avg 1"_s,    u"char *"_s,  u"coalesce *"_s,     u"count *"_s,   u"glob 2"_s,
        u"hex 1"_s,      u"ifnull 2"_s, u"iif *"_s,   u"group_concat *"_s, u"length 1"_s,  u"like *"_s,
        u"lower 1"_s,    u"ltrim 1"_s,  u"max *"_s,   u"min *"_s,          u"nullif 2"_s,  u"quote 1"_s,
        u"random 0"_s,   u"round *"_s,  u"rtrim 1"_s, u"sign 1"_s,         u"substr *"_s,  u"substring *"_s,
        u"sum 1"_s,      u"total 1"_s,  u"trim 1"_s,  u"typeof 1"_s,       u"unicode 1"_s, u"upper 1"_s,
        u"zeroblob 1"_s,
    };
    return functions;
}

bool isPromised(const QString &name, int arguments)
{
    return promised().contains(name + u" *"_s) || promised().contains(name + u' ' + QString::number(arguments));
}

} // namespace

class TestGuardList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void functions();
    void functionsOfAFile();
    void pragmas();
    void modules();
    void actions();
    void checkAllowsTwoPragmas();

private:
    const FixtureCatalogue m_catalogue;
};

/// Compiled with the authorizer, and run without it, as an expression of the file is.
void TestGuardList::functions()
{
    const Raw bare = opened(m_catalogue.path());
    const Guarded guarded(m_catalogue.path());
    const Raw under = opened(m_catalogue.path());
    const Raw unwatched = opened(m_catalogue.path());
    sqlite3_set_authorizer(unwatched.get(), nullptr, nullptr);

    int refused = 0;
    QSet<QString> seen;
    for (const QStringList &row : list(bare, "PRAGMA function_list")) {
        const QString name = row[0];
        const int declared = row[4].toInt();
        const int least = declared >= 0 ? declared : 0;
        const int most = declared >= 0 ? declared : 3;
        for (int arguments = least; arguments <= most; ++arguments) {
            for (const QString &form : {u"SELECT \"%1\"(%2)"_s, u"SELECT \"%1\"(%2) OVER ()"_s}) {
                const QString sql = form.arg(name, QStringList(arguments, u"'1'"_s).join(u','));
                if (!compiles(bare, sql))
                    continue;
                if (isPromised(name, arguments)) {
                    QVERIFY2(compiles(under, sql) && runs(under, sql), qPrintable(sql));
                    seen.insert(name);
                    continue;
                }
                QVERIFY2(!compiles(under, sql) || !runs(under, sql), qPrintable(sql));
                QVERIFY2(!runs(unwatched, sql), qPrintable(sql));
                ++refused;
            }
        }
    }
    QVERIFY2(refused > 80, qPrintable(QString::number(refused)));
    QVERIFY2(seen.size() >= promised().size() - 2,
             qPrintable(QString::number(seen.size()))); // sign and iif are young
    // What a host registers afterwards is on no list either.
    const auto answerOne = [](sqlite3_context *context, int, sqlite3_value **) { sqlite3_result_int(context, 1); };
    for (const Raw *connection : {&bare, &under})
        sqlite3_create_function(connection->get(), "regexp", 2, SQLITE_UTF8, nullptr, answerOne, nullptr, nullptr);
    QVERIFY(runs(bare, u"SELECT 'a' REGEXP 'a'"_s));
    QVERIFY(!runs(under, u"SELECT 'a' REGEXP 'a'"_s));
}

/// The authorizer is not called for what the file's own expressions call.
void TestGuardList::functionsOfAFile()
{
    const FixtureCatalogue catalogue;
    catalogue.run(u"CREATE TABLE made (x, a AS (abs(x)), p AS (printf('%d', x)), i AS (instr(x, '2')));"
                  "INSERT INTO made VALUES (-12)"_s);
    const Raw bare = opened(catalogue.path());
    const Guarded guarded(catalogue.path());
    const Raw under = opened(catalogue.path());
    QVERIFY(runs(bare, u"SELECT x, a, p, i FROM made"_s));
    QVERIFY(runs(under, u"SELECT x, a FROM made"_s));
    QVERIFY(!runs(under, u"SELECT p FROM made"_s));
    QVERIFY(!runs(under, u"SELECT i FROM made"_s));
}

void TestGuardList::pragmas()
{
    const Raw bare = opened(m_catalogue.path());
    const Guarded guarded(m_catalogue.path());
    const Raw under = opened(m_catalogue.path());
    const Raw unwatched = opened(m_catalogue.path());
    sqlite3_set_authorizer(unwatched.get(), nullptr, nullptr);
    int tried = 0;
    for (const QStringList &row : list(bare, "PRAGMA pragma_list")) {
        const QString name = row[0];
        for (const QString &form : {u"PRAGMA %1"_s, u"PRAGMA %1 = 1"_s, u"PRAGMA %1('roll')"_s, u"PRAGMA main.%1"_s})
            QVERIFY2(!runs(under, form.arg(name)), qPrintable(form.arg(name)));
        for (const QString &form : {u"SELECT 1 FROM pragma_%1"_s, u"SELECT * FROM pragma_%1('roll')"_s}) {
            QVERIFY2(!compiles(under, form.arg(name)), qPrintable(form.arg(name)));
            QVERIFY2(!compiles(unwatched, form.arg(name)), qPrintable(form.arg(name)));
        }
        ++tried;
    }
    QVERIFY2(tried > 50, qPrintable(QString::number(tried)));
    QVERIFY(compiles(bare, u"SELECT * FROM pragma_table_info('roll')"_s));
}

void TestGuardList::modules()
{
    const Raw bare = opened(m_catalogue.path());
    // Newer SQLites make these when they are named.
    for (const auto name : {"json_each", "json_tree"})
        QVERIFY(compiles(bare, u"SELECT 1 FROM %1('[1]')"_s.arg(QLatin1StringView(name))));
    compiles(bare, u"SELECT 1 FROM jsonb_each('[1]')"_s);
    compiles(bare, u"SELECT 1 FROM jsonb_tree('[1]')"_s);
    const auto modules = list(bare, "PRAGMA module_list");
    QVERIFY2(modules.size() > 5, qPrintable(QString::number(modules.size())));

    FixtureCatalogue catalogue;
    catalogue.run(u"CREATE VIRTUAL TABLE inside USING fts5(x)"_s);
    const Guarded guarded(catalogue.path());
    const Raw under = opened(catalogue.path());
    const Raw unwatched = opened(catalogue.path());
    sqlite3_set_authorizer(unwatched.get(), nullptr, nullptr);
    for (const QStringList &row : modules) {
        for (const QString &form :
             {u"SELECT 1 FROM %1"_s, u"SELECT * FROM %1('[1]')"_s, u"CREATE VIRTUAL TABLE temp.t USING %1(x)"_s}) {
            const QString sql = form.arg(row[0]);
            QVERIFY2(!compiles(under, sql) || !runs(under, sql), qPrintable(sql));
            QVERIFY2(!compiles(unwatched, sql) || !runs(unwatched, sql), qPrintable(sql));
        }
    }
    QVERIFY(!compiles(under, u"SELECT 1 FROM inside"_s));
    QVERIFY(!compiles(unwatched, u"SELECT 1 FROM inside"_s));
}

/// Every code that SQLite's authorizer has or may get.
void TestGuardList::actions()
{
    const QSet<int> allowed = {SQLITE_SELECT, SQLITE_READ, SQLITE_RECURSIVE, SQLITE_TRANSACTION};
    for (int action = -1; action <= 1000; ++action) {
        for (const Use use : {Use::Lookups, Use::Check}) {
            if (action != SQLITE_FUNCTION)
                QCOMPARE(ZrSupplyGuard::isAllowed(action, "roll", "roll", use), allowed.contains(action));
        }
    }
    QVERIFY(ZrSupplyGuard::isAllowed(SQLITE_FUNCTION, nullptr, "LENGTH", Use::Lookups));
    QVERIFY(!ZrSupplyGuard::isAllowed(SQLITE_FUNCTION, nullptr, "lengths", Use::Lookups));
    QVERIFY(!ZrSupplyGuard::isAllowed(SQLITE_FUNCTION, nullptr, "", Use::Lookups));
}

void TestGuardList::checkAllowsTwoPragmas()
{
    int allowed = 0;
    for (const QStringList &row : list(opened(m_catalogue.path()), "PRAGMA pragma_list")) {
        const QByteArray name = row[0].toUtf8();
        QVERIFY(!ZrSupplyGuard::isAllowed(SQLITE_PRAGMA, name.constData(), nullptr, Use::Lookups));
        allowed += ZrSupplyGuard::isAllowed(SQLITE_PRAGMA, name.constData(), nullptr, Use::Check);
    }
    QCOMPARE(allowed, 2);
}

QTEST_GUILESS_MAIN(TestGuardList)
#include "tst_guardlist.moc"
