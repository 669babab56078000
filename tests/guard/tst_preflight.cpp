// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guardedcatalogue.h"

#include <cataloguekeys_p.h>
#include <fileidentity_p.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <sqlite3.h>

#include <cstdarg>
#include <functional>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using ZrSupplyGuard::Finding;
using ZrSupplyGuard::preflight;

Q_DECLARE_METATYPE(Finding)

namespace {

/// Does something to the good catalogue at a path.
using Spoil = std::function<void(const FixtureCatalogue &)>;

Spoil byScript(const QString &script)
{
    return [=](const FixtureCatalogue &catalogue) { catalogue.run(script); };
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

Spoil byBytes(const std::function<void(QByteArray &)> &change)
{
    return [=](const FixtureCatalogue &catalogue) {
        QByteArray bytes = catalogue.bytes();
        change(bytes);
        write(catalogue.path(), bytes);
    };
}

Spoil instead(const std::function<void(const QByteArray &)> &make)
{
    return [=](const FixtureCatalogue &catalogue) {
        QFile::remove(catalogue.path());
        make(QFile::encodeName(catalogue.path()));
    };
}

Spoil beside(const QString &suffix, const QByteArray &bytes)
{
    return [=](const FixtureCatalogue &catalogue) { write(catalogue.path() + suffix, bytes); };
}

/// A table made anew by other words: `from` in its definition is replaced.
Spoil byDefinition(const QString &table, const QString &from, const QString &to)
{
    return byScript(
        u"PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = replace(sql, '%2', '%3') WHERE name = '%1'"_s
            .arg(table, from, to));
}

void put32(QByteArray &bytes, qsizetype at, quint32 value)
{
    qToBigEndian(value, bytes.data() + at);
}

/// Stands in for SQLite's lower(): ends the statement as the clock of the guard would.
void endStatement(sqlite3_context *context, int, sqlite3_value **)
{
    sqlite3_interrupt(sqlite3_context_db_handle(context));
    sqlite3_result_null(context);
}

int endStatementsOf(sqlite3 *connection, char **, const void *)
{
    return sqlite3_create_function(connection, "lower", 1, SQLITE_UTF8, nullptr, endStatement, nullptr, nullptr);
}

/// What the next open() of a path does before it opens: the file becomes a pipe. A writer holds it open, so that a
/// reader that would wait for one comes back as well.
struct Swap
{
    QByteArray path; ///< Empty once it is done.
    int flags = 0;
    int writer = -1;
} pending;

int openAfterSwap(const char *name, const char *path, int flags, mode_t mode)
{
    if (!pending.path.isEmpty() && pending.path == path) {
        pending.path.clear();
        pending.flags = flags;
        if (::unlink(path) != 0 || ::mkfifo(path, 0600) != 0)
            qFatal("no pipe in place of %s", path);
        pending.writer = openAfterSwap(name, path, O_RDWR | O_NONBLOCK, 0);
    }
    const auto real = reinterpret_cast<int (*)(const char *, int, ...)>(::dlsym(RTLD_NEXT, name));
    return real(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

// The guard's calls of the system's open(), under both of its names, come here first.
extern "C" Q_DECL_EXPORT int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAfterSwap("open", path, flags, mode);
}

extern "C" Q_DECL_EXPORT int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAfterSwap("open64", path, flags, mode);
}

class TestPreflight : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void usable_data();
    void usable();
    void findings_data();
    void findings();
    void everyValueIsRead_data();
    void everyValueIsRead();
    void aLockIsNotAsked();
    void aPipeInPlaceOfTheFile();
    void sameFile();
    void noPermission();
    void lackingIsListed();
    void tooSlow();
    void nothingIsWritten();
    void codes();
};

void TestPreflight::usable_data()
{
    QTest::addColumn<Spoil>("change");
    QTest::newRow("as it is built") << Spoil([](const FixtureCatalogue &) {});
    QTest::newRow("schema version not told") << byScript(u"PRAGMA user_version = 0"_s);
    QTest::newRow("schema version told in meta")
        << byScript(u"INSERT OR REPLACE INTO meta VALUES ('schema_version', '1')"_s);
    QTest::newRow("without meta") << byScript(u"DROP TABLE meta"_s);
    QTest::newRow("a table more, with a trigger")
        << byScript(u"CREATE TABLE other (x); CREATE TRIGGER t AFTER INSERT ON other BEGIN SELECT 1; END"_s);
    QTest::newRow("a view more") << byScript(u"CREATE VIEW v AS SELECT 1"_s);
    QTest::newRow("keys of other words")
        << byScript(u"DROP TABLE color; CREATE TABLE Color (ID BIGINT, secid NUMERIC, rgbValue, name VARCHAR(20))"_s);
    QTest::newRow("large pages") << byScript(u"PRAGMA page_size = 65536; VACUUM"_s);
    QTest::newRow("the longest row") << byScript(u"INSERT INTO background (id, svg) VALUES (999, zeroblob(%1))"_s.arg(
        ZrSupplyGuard::Limits().valueBytes - 100));
}

void TestPreflight::usable()
{
    QFETCH(Spoil, change);
    const FixtureCatalogue catalogue;
    change(catalogue);
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"a name? with #odd %letters' ü"_s);
    QVERIFY(QFile::link(catalogue.path(), link));
    for (const QString &path : {catalogue.path(), QDir::current().relativeFilePath(catalogue.path()), link}) {
        const auto verdict = preflight(path);
        QVERIFY2(verdict.finding == Finding::Usable, qPrintable(verdict.message));
        QCOMPARE(verdict.message + verdict.advice, QString());
    }
}

void TestPreflight::findings_data()
{
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<Finding>("finding");
    QTest::addColumn<QString>("message"); // %1 is the file
    QTest::addColumn<QString>("advice");

    const auto row = [](const char *name, const Spoil &spoil, Finding finding, const QString &message,
                        const QString &advice) { QTest::newRow(name) << spoil << finding << message << advice; };
    const QString another = u"name a catalogue file"_s;
    const QString rebuild = u"zrsupply catalogue build"_s;
    const QString rollback = u"PRAGMA journal_mode = DELETE"_s;

    row("missing", instead([](const QByteArray &) {}), Finding::Missing, u"there is no file %1"_s, another);
    row("link to nothing", instead([](const QByteArray &path) { QVERIFY(::symlink("/nowhere/x", path) == 0); }),
        Finding::Missing, u"the link %1 leads to no file"_s, another);
    row("link to itself", instead([](const QByteArray &path) { QVERIFY(::symlink(path, path) == 0); }),
        Finding::Missing, u"the link %1 leads to no file"_s, another);
    row("folder", instead([](const QByteArray &path) { QVERIFY(::mkdir(path, 0700) == 0); }), Finding::NotAFile,
        u"%1 is a folder"_s, another);
    row("pipe", instead([](const QByteArray &path) { QVERIFY(::mkfifo(path, 0600) == 0); }), Finding::NotAFile,
        u"%1 is not an ordinary file"_s, another);
    row("device", instead([](const QByteArray &path) { QVERIFY(::symlink("/dev/zero", path) == 0); }),
        Finding::NotAFile, u"%1 is not an ordinary file"_s, another);
    row("empty", byBytes([](QByteArray &bytes) { bytes.clear(); }), Finding::Empty, u"%1 is empty"_s, u"rebuild"_s);
    row("text", byBytes([](QByteArray &bytes) { bytes = "itemNum,supplyId\n"; }), Finding::NotADatabase,
        u"%1 is not an SQLite database"_s, another);
    row("first bytes alone", byBytes([](QByteArray &bytes) { bytes.truncate(60); }), Finding::Torn,
        u"%1 is damaged: it ends after 60 bytes"_s, rebuild);
    row("cut short", byBytes([](QByteArray &bytes) { bytes.chop(4096); }), Finding::Torn,
        u"%1 is damaged: it is cut short"_s, rebuild);
    row("a page and a bit", byBytes([](QByteArray &bytes) { bytes.append("more"); }), Finding::Torn,
        u"%1 is damaged: it ends in the middle of a page of 4096 bytes"_s, rebuild);
    row("cut in a page, count of pages unknown", byBytes([](QByteArray &bytes) {
            put32(bytes, 92, 12345);
            bytes.chop(100);
        }),
        Finding::Torn, u"%1 is damaged: it ends in the middle of a page"_s, rebuild);
    for (const int size : {0, 3, 256}) {
        const auto bytes = [size](QByteArray &changed) {
            changed[16] = char(size >> 8);
            changed[17] = char(size);
        };
        row(qPrintable(u"pages of %1 bytes"_s.arg(size)), byBytes(bytes), Finding::Torn,
            u"%1 is damaged: it has pages of "_s + QString::number(size), rebuild);
    }
    row("format of the future", byBytes([](QByteArray &bytes) { bytes[19] = 3; }), Finding::UnknownFormat,
        u"%1 has a file format"_s, u"install a newer SQLite"_s);
    row("write-ahead log", byScript(u"PRAGMA journal_mode = wal"_s), Finding::NotRollbackJournal,
        u"%1 is in write-ahead-log mode"_s, rollback);
    row("write-ahead log for writing alone", byBytes([](QByteArray &bytes) { bytes[18] = 2; }),
        Finding::NotRollbackJournal, u"%1 is in write-ahead-log mode"_s, rollback);
    row("write-ahead log for reading alone", byBytes([](QByteArray &bytes) { bytes[19] = 2; }),
        Finding::NotRollbackJournal, u"%1 is in write-ahead-log mode"_s, rollback);
    row("journal", beside(u"-journal"_s, "left over"), Finding::SideFiles, u"%1-journal lies beside"_s, rollback);
    row("empty journal", beside(u"-journal"_s, {}), Finding::SideFiles, u"%1-journal lies beside"_s, rollback);
    row("log", beside(u"-wal"_s, "left over"), Finding::SideFiles, u"%1-wal lies beside"_s, rollback);
    row("shared memory", beside(u"-shm"_s, "left over"), Finding::SideFiles, u"%1-shm lies beside"_s, rollback);
    row("newer schema", byScript(u"PRAGMA user_version = 2"_s), Finding::SchemaVersion, u"%1 has schema version 2"_s,
        u"newer"_s);
    row("newer schema by meta", byScript(u"INSERT OR REPLACE INTO meta VALUES ('schema_version', '7')"_s),
        Finding::SchemaVersion, u"%1 has schema version 7"_s, u"newer"_s);
    row("older schema by meta", byScript(u"INSERT OR REPLACE INTO meta VALUES ('schema_version', '0')"_s),
        Finding::SchemaVersion, u"%1 has schema version 0"_s, u"newer"_s);
    row("schema version by meta is no number",
        byScript(u"INSERT OR REPLACE INTO meta VALUES ('schema_version', '1x')"_s), Finding::SchemaVersion,
        u"%1 has schema version 1x"_s, u"newer"_s);
    row("negative schema version", byScript(u"PRAGMA user_version = -1"_s), Finding::SchemaVersion,
        u"%1 has schema version -1"_s, u"newer"_s);
    row("first page overwritten", byBytes([](QByteArray &bytes) { bytes.replace(100, 2000, QByteArray(2000, 'x')); }),
        Finding::Unreadable, u"%1 cannot be read as a database: "_s, rebuild);
    row("a definition that is none", byDefinition(u"color"_s, u"CREATE TABLE"_s, u"CREATE NONSENSE"_s),
        Finding::Unreadable, u"%1 cannot be read as a database: malformed database schema"_s, rebuild);
    row("table missing", byScript(u"DROP TABLE ribbon_heat"_s), Finding::Lacking,
        u"%1 is not a supply catalogue: it lacks table ribbon_heat"_s, u"catalogue.sql"_s);
    row("view", byScript(u"ALTER TABLE color RENAME TO c; CREATE VIEW color AS SELECT * FROM c"_s),
        Finding::NotATable, u"%1: color is not a table"_s, u"catalogue.sql"_s);
    row("endless view",
        byScript(u"DROP TABLE format; CREATE VIEW format AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL"
                 " SELECT x FROM n) SELECT x AS id, x AS type FROM n"_s),
        Finding::NotATable, u"%1: format is not a table"_s, u"catalogue.sql"_s);
    row("virtual table", byScript(u"DROP TABLE format; CREATE VIRTUAL TABLE format USING fts5(id, type)"_s),
        Finding::NotATable, u"%1: format is not a table"_s, u"catalogue.sql"_s);
    row("computed column",
        byScript(u"DROP TABLE format; CREATE TABLE format (id INTEGER, type AS (zeroblob(900000000)))"_s),
        Finding::ComputedColumn, u"%1: format.type is computed"_s, u"catalogue.sql"_s);
    row("trigger", byScript(u"CREATE TRIGGER t AFTER INSERT ON Roll BEGIN SELECT 1; END"_s), Finding::HasTrigger,
        u"%1: roll has a trigger"_s, u"catalogue.sql"_s);
    row("key without a type", byScript(u"DROP TABLE format; CREATE TABLE format (id, type)"_s), Finding::UntypedKey,
        u"%1: format.id is declared without a type; it is compared as a number"_s, u"catalogue.sql"_s);
    row("SKU as a number",
        byScript(u"DROP TABLE noncontinuous; CREATE TABLE noncontinuous"
                 " (itemNum INTEGER, formatId, separatorWidth)"_s),
        Finding::UntypedKey, u"%1: noncontinuous.itemNum is declared INTEGER; it is compared as text"_s,
        u"catalogue.sql"_s);
    row("giant value", byScript(u"INSERT INTO background (id, svg) VALUES (999, zeroblob(2000000))"_s),
        Finding::GiantValue, u"%1 has a value of more than 1048576 bytes"_s, u"smaller"_s);
    row("a page of garbage",
        byBytes([](QByteArray &bytes) { bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, 'x')); }),
        Finding::Damaged, u"%1 is damaged: "_s, rebuild);
}

void TestPreflight::findings()
{
    QFETCH(Spoil, spoil);
    QFETCH(Finding, finding);
    QFETCH(QString, message);
    QFETCH(QString, advice);
    const FixtureCatalogue catalogue;
    QCOMPARE(preflight(catalogue.path()).finding, Finding::Usable);
    spoil(catalogue);
    const auto verdict = preflight(catalogue.path());
    QVERIFY2(verdict.finding == finding,
             qPrintable(ZrSupplyGuard::name(verdict.finding) + u": "_s + verdict.message));
    QVERIFY2(verdict.message.startsWith(message.arg(catalogue.path())), qPrintable(verdict.message));
    QVERIFY2(verdict.advice.contains(advice), qPrintable(verdict.advice));
}

void TestPreflight::everyValueIsRead_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    for (const auto &column : ZrSupplyGuard::catalogueColumns)
        QTest::addRow("%s.%s", column.table.data(), column.column.data())
            << QString(column.table) << QString(column.column);
}

/// A giant value is found in whatever column it hides.
void TestPreflight::everyValueIsRead()
{
    QFETCH(QString, table);
    QFETCH(QString, column);
    QStringList columns;
    for (const auto &each : ZrSupplyGuard::catalogueColumns) {
        if (each.table == table)
            columns.append(QString(each.column) +
                           (each.key == ZrSupplyGuard::Key::Number ? u" INTEGER"_s : u" TEXT"_s));
    }
    const FixtureCatalogue catalogue;
    catalogue.run(u"PRAGMA foreign_keys = OFF; DROP TABLE \"%1\"; CREATE TABLE \"%1\" (%2)"_s.arg(
        table, columns.join(u", "_s)));
    QVERIFY2(preflight(catalogue.path()).finding == Finding::Usable, qPrintable(preflight(catalogue.path()).message));
    catalogue.run(u"INSERT INTO \"%1\" (\"%2\") VALUES (zeroblob(2000000))"_s.arg(table, column));
    const auto verdict = preflight(catalogue.path());
    QVERIFY2(verdict.finding == Finding::GiantValue, qPrintable(verdict.message));
    QVERIFY(preflight(catalogue.path(), ZrSupplyGuard::Depth::Tables).finding == Finding::Usable);
}

/// A preflight takes no lock and waits for none.
void TestPreflight::aLockIsNotAsked()
{
    const FixtureCatalogue catalogue;
    sqlite3 *writer = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(catalogue.path()).constData(), &writer), SQLITE_OK);
    QCOMPARE(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto verdict = preflight(catalogue.path());
    QVERIFY2(verdict.finding == Finding::Usable, qPrintable(verdict.message));
    sqlite3_close(writer);
}

/// The file becomes a pipe after it was looked at and before it is opened: nobody waits for a writer.
void TestPreflight::aPipeInPlaceOfTheFile()
{
    const FixtureCatalogue catalogue;
    pending.path = QFile::encodeName(catalogue.path());
    const auto verdict = preflight(catalogue.path());
    QVERIFY2(pending.path.isEmpty(), "the preflight opened the file by another call than open()");
    QVERIFY(pending.flags & O_NONBLOCK);
    QVERIFY2(verdict.finding == Finding::NotAFile, qPrintable(verdict.message));
}

void TestPreflight::sameFile()
{
    struct stat file = {};
    file.st_dev = 1;
    file.st_ino = 2;
    struct stat other = file;
    QVERIFY(ZrSupplyGuard::isSame(file, other));
    other.st_ino = 3;
    QVERIFY(!ZrSupplyGuard::isSame(file, other));
    other = file;
    other.st_dev = 3;
    QVERIFY(!ZrSupplyGuard::isSame(file, other));
}

void TestPreflight::noPermission()
{
    const FixtureCatalogue catalogue;
    const QByteArray file = QFile::encodeName(catalogue.path());
    const QByteArray folder = QFile::encodeName(QFileInfo(catalogue.path()).path());
    // Root may read everything, so the effective user steps down for the question.
    const bool isRoot = ::geteuid() == 0;
    const auto ask = [&](mode_t folderMode, mode_t fileMode) {
        if (::chmod(file, fileMode) != 0 || ::chmod(folder, folderMode) != 0 || (isRoot && ::seteuid(65534) != 0))
            qFatal("the permissions cannot be changed");
        const auto verdict = preflight(catalogue.path());
        if ((isRoot && ::seteuid(0) != 0) || ::chmod(folder, 0700) != 0)
            qFatal("the permissions cannot be changed back");
        return verdict;
    };
    for (const auto &verdict : {ask(0755, 0), ask(0, 0644)}) {
        QCOMPARE(verdict.finding, Finding::NoPermission);
        QVERIFY2(verdict.message.contains(u"Permission denied"_s), qPrintable(verdict.message));
        QVERIFY2(verdict.advice.contains(u"chmod +r"_s), qPrintable(verdict.advice));
    }
}

void TestPreflight::lackingIsListed()
{
    const FixtureCatalogue catalogue;
    catalogue.run(u"DROP TABLE color; ALTER TABLE roll DROP COLUMN landscape"_s);
    const auto verdict = preflight(catalogue.path());
    QCOMPARE(verdict.missing, (QStringList{u"column roll.landscape"_s, u"table color"_s}));
}

void TestPreflight::tooSlow()
{
    const FixtureCatalogue catalogue;
    const auto entryPoint = reinterpret_cast<void (*)()>(endStatementsOf);
    QCOMPARE(sqlite3_auto_extension(entryPoint), SQLITE_OK);
    const auto verdict = preflight(catalogue.path());
    QCOMPARE(sqlite3_cancel_auto_extension(entryPoint), 1);
    QCOMPARE(verdict.finding, Finding::TooSlow);
    QCOMPARE(verdict.message, u"%1 could not be checked within 60 seconds"_s.arg(catalogue.path()));
    QVERIFY2(verdict.advice.contains(u"zrsupply catalogue build"_s), qPrintable(verdict.advice));
    QCOMPARE(preflight(catalogue.path()).finding, Finding::Usable);
}

void TestPreflight::nothingIsWritten()
{
    const FixtureCatalogue catalogue;
    const QByteArray before = catalogue.bytes();
    preflight(catalogue.path());
    QCOMPARE(catalogue.bytes(), before);
    QCOMPARE(QFileInfo(catalogue.path()).dir().entryList(QDir::Files).size(), 1);
    // A name that the system would cut off is no name.
    QCOMPARE(preflight(catalogue.path() + QChar(u'\0') + u".txt"_s).finding, Finding::Missing);
    QCOMPARE(preflight({}).finding, Finding::Missing);
    QCOMPARE(preflight(QString(10'000, u'x')).finding, Finding::Missing);
}

void TestPreflight::codes()
{
    QSet<QString> codes;
    for (int number = 0; number <= int(Finding::Damaged); ++number) {
        const QString code = ZrSupplyGuard::name(Finding(number));
        QVERIFY(!code.isEmpty());
        codes.insert(code);
    }
    QCOMPARE(codes.size(), int(Finding::Damaged) + 1);
    QCOMPARE(ZrSupplyGuard::name(Finding::NotATable), u"not-a-table"_s);
}

QTEST_GUILESS_MAIN(TestPreflight)
#include "tst_preflight.moc"
