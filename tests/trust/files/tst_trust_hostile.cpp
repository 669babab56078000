// SPDX-License-Identifier: LGPL-2.1-or-later
// Hostile catalogues: files that SQLite takes for sound and that somebody made to harm who reads them. Each has its
// stated class, bare and with the guard in place.

#include "childrun.h"
#include "questions.h"
#include "smallcatalogue.h"

#include "support/statementlist.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

enum class Class {
    Value,   ///< Answered like any catalogue, with what stands there.
    Default, ///< The statement fails.
    Limit,   ///< Known limit: only the bounds of the process on time, memory or disk end it, if it has any.
};

struct Hostile
{
    const char *name;
    QByteArray script; ///< What is done to a sound catalogue.
    const char *asked; ///< The statement that meets it.
    Class bare;
    Class guarded;
    QVariant value = {}; ///< The value where it is another than that of the sound catalogue.
};

/// The table's rows stay, under another name, and `select` computes what is read in its place.
QByteArray viewInPlaceOf(const QByteArray &table, const QByteArray &select)
{
    return "ALTER TABLE " + table + " RENAME TO stored; CREATE VIEW " + table + " AS " + select + ";";
}

/// Text in place of what created a table or view.
QByteArray schemaText(const QByteArray &table, const QByteArray &sql)
{
    return "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = '" + sql + "' WHERE name = '" + table + "';";
}

/// The table with the same rows and other definitions of its columns.
QByteArray recreated(const QByteArray &table, const QByteArray &columns)
{
    return "CREATE TABLE other (" + columns + "); INSERT INTO other SELECT * FROM " + table + "; DROP TABLE " +
           table + "; ALTER TABLE other RENAME TO " + table + ";";
}

/// Views of which each reads the one before twice.
QByteArray doublingViews(int count, const QByteArray &twice)
{
    QByteArray script = "ALTER TABLE ribbon RENAME TO stored; CREATE VIEW twice0 AS SELECT * FROM stored;";
    for (int i = 1; i <= count; ++i) {
        script += "CREATE VIEW twice" + QByteArray::number(i) + " AS " +
                  QByteArray(twice).replace("?", "twice" + QByteArray::number(i - 1)) + ";";
    }
    return script + "CREATE VIEW ribbon AS SELECT * FROM twice" + QByteArray::number(count) + ";";
}

QByteArray manyTables(int count)
{
    QByteArray script = "BEGIN;";
    for (int i = 0; i < count; ++i)
        script += "CREATE TABLE extra" + QByteArray::number(i) + " (a, b);";
    return script + "COMMIT;";
}

QByteArray wideTable(int columns)
{
    QByteArray script = "BEGIN;";
    for (int i = 0; i < columns; ++i)
        script += "ALTER TABLE ribbon ADD COLUMN extra" + QByteArray::number(i) + " TEXT;";
    return script + "COMMIT;";
}

const QByteArray endlessNumbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) ";
/// One call of a function whose time is the product of the lengths of what it is given.
const QByteArray slowStep = "(instr(zeroblob(100000000), CAST(zeroblob(50000000) || 'x' AS BLOB)))";

QList<Hostile> hostileCatalogues()
{
    constexpr Class value = Class::Value;
    constexpr Class absent = Class::Default;
    constexpr Class limit = Class::Limit;
    return {
        {"a view that never ends",
         viewInPlaceOf("ribbon", endlessNumbers +
                                     "SELECT i AS id, 'none' || i AS sku, 1 AS panels, 1.0 AS width, 1.0 AS"
                                     " length FROM n"),
         "ribbonWidth", limit, absent},
        {"a list that never ends",
         viewInPlaceOf("ribbon", endlessNumbers + "SELECT i AS id, 'sku' || i AS sku FROM n"), "ribbonSkus", limit,
         absent},
        {"a sorted list that never ends",
         viewInPlaceOf("ribbon", endlessNumbers + "SELECT i AS id, hex(randomblob(500)) AS sku FROM n ORDER BY sku"),
         "ribbonSkus", limit, absent},
        // SQLite has bounds of its own for these: terms, tables of a join, and, after seconds, references to a table.
        {"views that double their rows", doublingViews(40, "SELECT * FROM ? UNION ALL SELECT * FROM ?"),
         "ribbonWidth", absent, absent},
        {"views that double their joins", doublingViews(8, "SELECT a.* FROM ? AS a JOIN ? AS b"), "ribbonWidth",
         absent, absent},
        {"views that double while they are compiled",
         doublingViews(40, "SELECT * FROM ? UNION ALL SELECT * FROM ? LIMIT 1000000"), "ribbonWidth", absent, absent},
        {"a text of 900 MB, computed",
         viewInPlaceOf("color", "SELECT id, secId, rgbValue, printf('%.900000000c', 'x') AS name FROM stored"),
         "rollColorNameEn", limit, absent},
        {"a picture of 900 MB, computed",
         viewInPlaceOf("background", "SELECT id, zeroblob(900000000) AS svg FROM stored"), "rollBackground", limit,
         absent},
        {"a picture of 900 MB of zeros, stored in few bytes",
         "UPDATE background SET svg = NULL;" +
             recreated("background", "id INTEGER PRIMARY KEY, svg BLOB GENERATED ALWAYS AS (zeroblob(900000000))")
                 .replace("SELECT *", "SELECT id"),
         "rollBackground", limit, absent},
        {"a text of 8 MB, stored", "UPDATE color SET name = printf('%.8000000c', 'x') WHERE id = 1;",
         "rollColorNameEn", value, absent, QString(8'000'000, u'x')},
        {"a computed column that never ends",
         // Added with another expression, because SQLite 3.46 computes the column of each row when it is added.
         "ALTER TABLE ribbon RENAME COLUMN width TO stored; ALTER TABLE ribbon ADD COLUMN width REAL AS (0.0);"
         "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = replace(sql, '(0.0)', '" +
             QByteArray(slowStep).replace("'", "''") + "') WHERE name = 'ribbon';",
         "ribbonWidth", limit, absent},
        {"a view with one step that never ends",
         viewInPlaceOf("ribbon", "SELECT id, sku, " + slowStep + " AS width FROM stored"), "ribbonWidth", limit,
         absent},
        {"a view", viewInPlaceOf("ribbon", "SELECT * FROM stored"), "ribbonWidth", value, absent},
        {"a view that reads the path of the file",
         viewInPlaceOf("color", "SELECT id, secId, rgbValue, (SELECT name FROM pragma_database_list) AS name FROM"
                                " stored"),
         "rollColorNameEn", value, absent, u"main"_s},
        {"a view that loads code",
         viewInPlaceOf("color", "SELECT id, secId, rgbValue, load_extension('nothing') AS name FROM stored"),
         "rollColorNameEn", absent, absent},
        {"a view that looks for an address in memory",
         viewInPlaceOf("color", "SELECT id, secId, rgbValue, fts3_tokenizer('simple') AS name FROM stored"),
         "rollColorNameEn", absent, absent},
        {"views that read each other",
         "ALTER TABLE ribbon RENAME TO stored; CREATE VIEW ribbon AS SELECT * FROM mirror;"
         "CREATE VIEW mirror AS SELECT * FROM ribbon;",
         "ribbonWidth", absent, absent},
        {"a trigger on every table",
         "CREATE TRIGGER one BEFORE DELETE ON ribbon BEGIN DELETE FROM roll; END;"
         "CREATE TRIGGER two AFTER INSERT ON roll BEGIN DELETE FROM ribbon; END;",
         "ribbonWidth", value, value},
        {"a virtual table of a module that is there",
         "ALTER TABLE ribbon RENAME TO stored; CREATE VIRTUAL TABLE ribbon USING fts5(id, sku, panels, width, length);"
         "INSERT INTO ribbon SELECT * FROM stored;",
         "ribbonPanels", value, absent},
        {"a virtual table of an unknown module",
         "ALTER TABLE ribbon RENAME TO stored; PRAGMA writable_schema = ON; INSERT INTO sqlite_schema VALUES ('table',"
         " 'ribbon', 'ribbon', 0, 'CREATE VIRTUAL TABLE ribbon USING no_such_module(a)');",
         "ribbonWidth", absent, absent},
        {"a schema row that is no SQL", schemaText("ribbon", "CREATE TABLE ribbon ("), "ribbonWidth", absent, absent},
        {"a schema row of another table", schemaText("ribbon", "CREATE TABLE roll (a)"), "ribbonWidth", absent,
         absent},
        {"a table whose rows are another's",
         "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET rootpage = (SELECT rootpage FROM sqlite_schema WHERE"
         " name = 'color') WHERE name = 'ribbon';",
         "ribbonWidth", absent, absent},
        {"a table whose rows are nowhere",
         "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET rootpage = 99999 WHERE name = 'ribbon';"
         "",
         "ribbonWidth", absent, absent},
        {"a schema text of 4,000 brackets",
         schemaText("ribbon", "CREATE VIEW ribbon AS SELECT " + QByteArray(4000, '(') + "1" + QByteArray(4000, ')')),
         "ribbonWidth", absent, absent},
        {"a schema text of 600 SELECTs",
         schemaText("ribbon", "CREATE VIEW ribbon AS SELECT 1" + QByteArray(" UNION SELECT 1").repeated(600)),
         "ribbonWidth", absent, absent},
        {"5,000 extra tables", manyTables(5000), "ribbonWidth", value, value},
        {"90 extra columns", wideTable(90), "ribbonWidth", value, value},
        {"300 extra columns", wideTable(300), "ribbonWidth", value, absent},
        {"keys without types", recreated("ribbon", "id, sku, panels, width, length"), "ribbonWidth", value, value},
        {"numeric keys without types", recreated("ribbon", "id, sku, panels, width, length"), "ribbonSkuById", absent,
         absent},
        {"a key compared in an unknown order",
         recreated("ribbon", "id INTEGER, sku TEXT, panels INTEGER, width REAL, length REAL") +
             "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET"
             " sql = replace(sql, 'sku TEXT', 'sku TEXT COLLATE no_such_order') WHERE name = 'ribbon';",
         "ribbonWidth", absent, absent},
        {"a number beyond 32 bits", "UPDATE color SET rgbValue = 4294967297 WHERE id = 1;", "rollRgb", value, value,
         1},
        {"a size without end", "UPDATE ribbon SET width = 9e999;", "ribbonWidth", value, value, qInf()},
        {"a text with a zero byte", "UPDATE color SET name = 'a' || char(0) || 'b' WHERE id = 1;", "rollColorNameEn",
         value, value, u"a\0b"_s},
        {"a text that is no UTF-8", "UPDATE color SET name = CAST(x'61FF62' AS TEXT) WHERE id = 1;",
         "rollColorNameEn", value, value, u"a\uFFFDb"_s},
        {"statistics that lie",
         "ANALYZE; UPDATE sqlite_stat1 SET stat = '999999999999999999999 0 -1 unordered sz=x noskipscan';",
         "ribbonWidth", value, value},
        {"pages that move", "PRAGMA auto_vacuum = INCREMENTAL; VACUUM;", "ribbonWidth", value, value},
        {"pages of 64 KiB", "PRAGMA page_size = 65536; VACUUM;", "ribbonWidth", value, value},
    };
}

/// The first column that a statement reads belongs to the hostile table; whether another statement reads that table.
bool readsWhatIsHostile(const QString &asked, const QString &other)
{
    const auto textOf = [](const QString &name) {
        for (const Statement &statement : statementList()) {
            if (statement.name == name)
                return statement.text;
        }
        qFatal("no statement is called %s", qPrintable(name));
    };
    static const QRegularExpression column(u"^SELECT (\\w+)\\."_s);
    static const QRegularExpression from(u"FROM (\\w+)"_s);
    const QString text = textOf(asked);
    const auto named = column.match(text);
    const QString table = (named.hasMatch() ? named : from.match(text)).captured(1);
    return textOf(other).contains(QRegularExpression(u"\\b%1\\b"_s.arg(table)));
}

/// What is known not to end is not waited for; everything else has time enough, also under a sanitizer.
ChildLimits limitsFor(Class stated)
{
    ChildLimits limits;
    limits.seconds = stated == Class::Limit ? 2 : 20;
    limits.memoryMebibytes = 1024;
    limits.fileMebibytes = 64;
    return limits;
}

} // namespace

Q_DECLARE_METATYPE(Class)

class TestTrustHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hostile_data();
    void hostile();

private:
    QVariant soundValue(const QString &statement) const;

    QVariantList m_values;
};

void TestTrustHostile::initTestCase()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"sound.sqlite"_s);
    SmallCatalogue().make(path);
    m_values = answersOfFile(path);
}

QVariant TestTrustHostile::soundValue(const QString &statement) const
{
    for (qsizetype i = 0; i < questions().size(); ++i) {
        if (questions()[i].statement == statement)
            return m_values[i];
    }
    qFatal("no statement is called %s", qPrintable(statement));
}

void TestTrustHostile::hostile_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<Class>("stated");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("options");
    for (const Hostile &row : hostileCatalogues()) {
        const QString asked = QString::fromLatin1(row.asked);
        const QVariant value = row.value.isValid() ? row.value : soundValue(asked);
        QTest::addRow("%s", row.name) << row.script << asked << row.bare << value << QStringList();
        QTest::addRow("%s, guarded", row.name)
            << row.script << asked << row.guarded << value << QStringList{u"--guard"_s};
    }
}

void TestTrustHostile::hostile()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, asked);
    QFETCH(Class, stated);
    QFETCH(QVariant, value);
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"hostile.sqlite"_s);
    SmallCatalogue().make(path);
    mustRunSql(path, "PRAGMA synchronous = OFF; PRAGMA legacy_alter_table = ON;" + script);
    const QByteArray bytes = bytesOfFile(path);

    const ChildLimits limits = limitsFor(stated);
    Server server(path, options, limits);
    QVERIFY(server.opened());
    const Server::Answers answers = server.ask({asked});
    QCOMPARE(bytesOfFile(path), bytes);
    if (stated == Class::Limit) {
        const bool ranIntoMemory = answers.contains(asked) && Child::isMemoryLimited() &&
                                   server.peakMebibytes() > limits.memoryMebibytes / 2;
        const ChildEnd end = server.child().end();
        QVERIFY2(ranIntoMemory || end == ChildEnd::OutOfTime || end == ChildEnd::OutOfMemory ||
                     end == ChildEnd::OutOfDisk,
                 qPrintable(answers.value(asked).told));
        return;
    }
    QVERIFY2(answers.contains(asked), "the question is answered");
    if (options.contains(u"--guard"_s)) {
        // The guard's own bound is a quarter of a second; a busy machine is allowed ten times that.
        const qint64 milliseconds = answers.value(asked).milliseconds;
        QVERIFY2(milliseconds < 2500, qPrintable(QString::number(milliseconds)));
    }
    for (const Question &question : questions()) {
        if (question.statement == asked)
            QCOMPARE(answers.value(asked).told, toldAnswer(stated == Class::Value ? value : question.absent));
    }
    // What reads other tables is answered as ever, or with the default where the whole file fails.
    QStringList others;
    for (const Question &question : questions()) {
        if (!readsWhatIsHostile(asked, question.statement))
            others.append(question.statement);
    }
    QVERIFY(others.size() > 10);
    const Server::Answers further = server.ask(others);
    QCOMPARE(further.size(), others.size());
    for (const Question &question : questions()) {
        if (!others.contains(question.statement))
            continue;
        const QString told = further.value(question.statement).told;
        QVERIFY2(told == toldAnswer(soundValue(question.statement)) || told == toldAnswer(question.absent),
                 qPrintable(question.statement + u" answers "_s + told));
    }
    QCOMPARE(server.child().end(), ChildEnd::Exited);
    QCOMPARE(server.child().exitStatus(), 0);
}

QTEST_GUILESS_MAIN(TestTrustHostile)
#include "tst_trust_hostile.moc"
