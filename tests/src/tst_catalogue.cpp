// SPDX-License-Identifier: LGPL-2.1-or-later
// The catalogue's connection: opening it, the one log record, and that nothing can be written through it.

#include "support/fixturecatalogue.h"

#include <AbstractAppender.h>
#include <Logger.h>

#include <zrsupplydatabase.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtTest/QTest>

#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fixedName = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;
const QString otherName = u"another connection"_s;
const QString anyRoll = u"SELECT itemNum FROM roll"_s;

struct Record
{
    Logger::LogLevel level;
    QByteArray file;
    int line;
    QByteArray function;
    QString category;
    QString message;
};

/// Keeps the records of the library while it lives. A CuteLogger that sends Qt's own warnings the same way gives
/// them no file.
///
/// Made under a QuietQt: the first use of the global logger may put a message handler of its own in place.
class LibraryLog
{
public:
    LibraryLog()
        : m_appender(this)
    {
        m_appender.setDetailsLevel(Logger::Trace);
        Logger::globalInstance()->registerAppender(&m_appender);
    }
    ~LibraryLog()
    {
        // The logger deletes the appenders that it still has.
        Logger::globalInstance()->removeAppender(&m_appender);
    }
    Q_DISABLE_COPY_MOVE(LibraryLog)

    std::vector<Record> take() { return std::exchange(m_records, {}); }

private:
    class Appender : public AbstractAppender
    {
    public:
        explicit Appender(LibraryLog *log)
            : m_log(log)
        {
        }

    protected:
        void append(const QDateTime &, Logger::LogLevel level, const char *file, int line, const char *function,
                    const QString &category, const QString &message) override
        {
            if (file)
                m_log->m_records.push_back({level, file, line, function, category, message});
        }

    private:
        LibraryLog *m_log;
    };

    std::vector<Record> m_records;
    Appender m_appender;
};

/// A file or folder of the test's own.
class Place
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString file(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }
    QString folder(const QString &name) const
    {
        if (!QDir(m_folder.path()).mkdir(name))
            qFatal("cannot make %s", qPrintable(path(name)));
        return path(name);
    }
    QStringList entries() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

QStringList filesBeside(const FixtureCatalogue &catalogue)
{
    return QFileInfo(catalogue.path())
        .dir()
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void opens_data();
    void opens();
    void failsToOpen_data();
    void failsToOpen();
    void logsOneRecordAFailure();
    void opensLazily_data();
    void opensLazily();
    void emptyPathIsAnEmptyDatabase();
    void settings_data();
    void settings();
    void connectionNames_data();
    void connectionNames();
    void secondSetupReplacesTheFirst();
    void failedSetupReplacesAWorkingOne();
    void reopens();
    void opensWhatWasMissing();
    void seesWhatAnotherProgramChanged();
    void writesFail_data();
    void writesFail();
    void lookupsWriteNothing();
};

void TestCatalogue::cleanup()
{
    for (const QString &name : QSqlDatabase::connectionNames())
        QSqlDatabase::removeDatabase(name);
}

void TestCatalogue::opens_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"catalogue.sqlite"_s;
    QTest::newRow("no suffix") << u"catalogue"_s;
    QTest::newRow("blanks") << u"a printer's catalogue"_s;
    QTest::newRow("other scripts") << u"K\u00E4t\u4E2D.sqlite"_s;
    QTest::newRow("signs of a query") << u"a?mode=rwc&b#c"_s;
    QTest::newRow("percent signs") << u"%20%1.sqlite"_s;
    QTest::newRow("option text") << u"QSQLITE_OPEN_URI;b"_s;
}

void TestCatalogue::opens()
{
    QFETCH(QString, name);
    const FixtureCatalogue catalogue;
    const Place place;
    const QString path = place.file(name, catalogue.bytes());
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(path));
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT rgbValue FROM color WHERE id=3"_s, -1).toInt(), 255);
    database.getSingleVariantByQuery(u"no statement"_s, -1);
    QVERIFY2(log.take().empty(), "neither success nor a failing statement is logged");
}

void TestCatalogue::failsToOpen_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("driverText");
    const QString text = u"unable to open database file Error opening database"_s;
    const Place gone;
    QTest::newRow("a file that does not exist") << gone.path(u"missing.sqlite"_s) << text;
    QTest::newRow("a folder that does not exist") << gone.path(u"missing/catalogue.sqlite"_s) << text;
    QTest::newRow("a directory") << QDir::rootPath() << text;
    QTest::newRow("a file taken for a folder") << QCoreApplication::applicationFilePath() + u"/catalogue"_s << text;
    QTest::newRow("the unset text") << u"-1"_s << text;
    // An SQLite that reads addresses refuses this one for its mode, another has no such file: each in its own words.
    QTest::newRow("an address that asks to write")
        << u"file:"_s + QCoreApplication::applicationFilePath() + u"?mode=rwc"_s << QString();
}

void TestCatalogue::failsToOpen()
{
    QFETCH(QString, path);
    QFETCH(QString, driverText);
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    const bool existed = QFileInfo::exists(path);
    QCOMPARE(database.setup(path), false);
    QVERIFY2(QFileInfo::exists(path) == existed, "opening does not make the file");

    const std::vector<Record> records = log.take();
    QCOMPARE(records.size(), std::size_t(1));
    const Record &record = records.front();
    QCOMPARE(record.level, Logger::Debug);
    QCOMPARE(int(record.level), 1);
    QCOMPARE(record.file, "zrsupplydatabase"_ba);
    QCOMPARE(record.line, 1569);
    QCOMPARE(record.function, "bool ZrSupplyDatabase::setup(QString, QString)"_ba);
    QCOMPARE(record.category, QString());
    const QString lastError = QSqlDatabase::database(fixedName, false).lastError().text();
    QVERIFY2(lastError == driverText || driverText.isNull(), qPrintable(lastError));
    // Spacing and quotes are those of a debug stream.
    QCOMPARE(record.message, u"Database Opening Error:  \"%1\" "_s.arg(lastError));

    // The object stays usable: defaults, and not a word more in the log.
    QCOMPARE(database.getSingleVariantByQuery(anyRoll, 7), QVariant(7));
    QCOMPARE(database.supplyWidth(u"CONT-4"_s), -1.0);
    QCOMPARE(database.supplyMultiUpCount(u"CONT-4"_s), 1);
    QCOMPARE(database.supplySKUList(), QStringList());
    QVERIFY(log.take().empty());
}

void TestCatalogue::logsOneRecordAFailure()
{
    const Place place;
    const FixtureCatalogue catalogue;
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!database.setup(place.path(u"missing"_s), i == 1 ? otherName : fixedName));
        QCOMPARE(log.take().size(), std::size_t(1));
    }
    QVERIFY(database.setup(catalogue.path()));
    QVERIFY(log.take().empty());
}

void TestCatalogue::opensLazily_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("a text") << "width,length\n4.0,150\n"_ba.repeated(100);
    QTest::newRow("a header and nothing behind it") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("a header and noise") << QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\x5A');
}

void TestCatalogue::opensLazily()
{
    // SQLite reads the file with the first statement, not when it is opened: such a file is taken, and each statement
    // fails like one on a missing table.
    QFETCH(QByteArray, content);
    const Place place;
    const QString path = place.file(u"catalogue.sqlite"_s, content);
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(path));
    QCOMPARE(database.getSingleVariantByQuery(anyRoll, 7), QVariant(7));
    QCOMPARE(database.supplyWidth(u"CONT-4"_s), -1.0);
    QCOMPARE(database.supplySKUList(), QStringList());
    QVERIFY(log.take().empty());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
    QCOMPARE(place.entries(), QStringList(u"catalogue.sqlite"_s));
}

void TestCatalogue::emptyPathIsAnEmptyDatabase()
{
    // SQLite takes an empty name for a private temporary database, which opens, is empty, and stays so.
    for (const QString &path : {QString(), u""_s, u":memory:"_s}) {
        const QuietQt quiet;
        LibraryLog log;
        ZrSupplyDatabase database;
        QVERIFY(database.setup(path));
        QVERIFY(log.take().empty());
        QCOMPARE(database.getSingleVariantByQuery(u"SELECT COUNT(*) FROM sqlite_master"_s, -1).toInt(), 0);
        QCOMPARE(database.getSingleVariantByQuery(anyRoll, 7), QVariant(7));
    }
}

void TestCatalogue::settings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");
    for (const bool exists : {true, false}) {
        QTest::addRow("default name, %s", exists ? "opened" : "failed") << fixedName << exists;
        QTest::addRow("another name, %s", exists ? "opened" : "failed") << otherName << exists;
    }
}

void TestCatalogue::settings()
{
    QFETCH(QString, name);
    QFETCH(bool, exists);
    const FixtureCatalogue catalogue;
    const Place place;
    const QString path = exists ? catalogue.path() : place.path(u"missing"_s);
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    QCOMPARE(database.setup(path, name), exists);
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList(name));
    const QSqlDatabase connection = QSqlDatabase::database(name, false);
    QCOMPARE(connection.driverName(), u"QSQLITE"_s);
    QCOMPARE(connection.connectOptions(), u"QSQLITE_OPEN_READONLY"_s);
    QCOMPARE(connection.databaseName(), path);
    QCOMPARE(connection.isOpen(), exists);
    QCOMPARE(connection.isOpenError(), !exists);
    QCOMPARE(connection.userName() + connection.password() + connection.hostName(), QString());
    QCOMPARE(connection.port(), -1);
}

void TestCatalogue::connectionNames_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("answers");
    QTest::newRow("never set up") << QStringList() << false;
    QTest::newRow("default name") << QStringList(fixedName) << true;
    // Deliberate: a connection under another name is opened and used by no lookup.
    QTest::newRow("another name") << QStringList(otherName) << false;
    QTest::newRow("name in lower case") << QStringList(fixedName.toLower()) << false;
    QTest::newRow("empty name") << QStringList(u""_s) << false;
    QTest::newRow("both names") << QStringList({fixedName, otherName}) << true;
    QTest::newRow("both names, default last") << QStringList({otherName, fixedName}) << true;
}

void TestCatalogue::connectionNames()
{
    QFETCH(QStringList, names);
    QFETCH(bool, answers);
    QTest::failOnWarning(QRegularExpression(u"."_s));
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    for (const QString &name : names) {
        QVERIFY(name == fixedName ? database.setup(catalogue.path()) : database.setup(catalogue.path(), name));
        QVERIFY(QSqlDatabase::database(name, false).isOpen());
    }
    QCOMPARE(QSqlDatabase::connectionNames().size(), names.size());
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT 1"_s, 7).toInt(), answers ? 1 : 7);
    QCOMPARE(database.supplyWidth(u"CONT-4"_s), answers ? 4.0 : -1.0);
    QCOMPARE(database.getColorRGBFromEnum(3), answers ? 255 : -1);
    QCOMPARE(database.supplySKUList().isEmpty(), !answers);
    QCOMPARE(database.supplyRibbonSKUList().isEmpty(), !answers);
    QCOMPARE(database.supplyColorHash().isEmpty(), !answers);
    QCOMPARE(database.getSkuFromSupplyId(u"4B000912C10404900400"_s), answers ? u"CONT-4"_s : QString());
}

void TestCatalogue::secondSetupReplacesTheFirst()
{
    const FixtureCatalogue first;
    const FixtureCatalogue second;
    second.run(u"UPDATE color SET rgbValue=4711 WHERE id=3"_s);
    ZrSupplyDatabase database;
    QVERIFY(database.setup(first.path()));
    QCOMPARE(database.getColorRGBFromEnum(3), 255);
    // Qt's own word; the library does not remove the earlier connection before it registers the next.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"duplicate connection name '%1'"_s.arg(fixedName)));
    QVERIFY(database.setup(second.path()));
    QCOMPARE(database.getColorRGBFromEnum(3), 4711);
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList(fixedName));
}

void TestCatalogue::failedSetupReplacesAWorkingOne()
{
    const FixtureCatalogue catalogue;
    const Place place;
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    QVERIFY(!database.setup(place.path(u"missing"_s)));
    QCOMPARE(database.getColorRGBFromEnum(3), -1);
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.getColorRGBFromEnum(3), 255);
}

void TestCatalogue::reopens()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    using Lookup = bool (*)(ZrSupplyDatabase &);
    const Lookup lookups[] = {
        [](ZrSupplyDatabase &d) { return d.getSingleVariantByQuery(u"SELECT 1"_s, 7) == QVariant(1); },
        [](ZrSupplyDatabase &d) { return d.supplyWidth(u"CONT-4"_s) == 4.0; },
        [](ZrSupplyDatabase &d) { return d.supplySKUList().contains(u"CONT-4"_s); },
        [](ZrSupplyDatabase &d) { return d.supplyColorHash().contains(u"Red"_s); },
        [](ZrSupplyDatabase &d) { return d.getSkuFromSupplyId(u"4B000912C10404900400"_s) == u"CONT-4"_s; },
    };
    for (const Lookup lookup : lookups) {
        QSqlDatabase::database(fixedName, false).close();
        QVERIFY(!QSqlDatabase::database(fixedName, false).isOpen());
        QVERIFY(lookup(database));
        QVERIFY(QSqlDatabase::database(fixedName, false).isOpen());
    }
    // Opened again as it was opened first.
    database.getSingleVariantByQuery(u"DELETE FROM roll"_s, {});
    QVERIFY(database.getSingleVariantByQuery(anyRoll, {}).isValid());
}

void TestCatalogue::opensWhatWasMissing()
{
    const FixtureCatalogue catalogue;
    const Place place;
    const QString path = place.path(u"late.sqlite"_s);
    const QuietQt quiet;
    LibraryLog log;
    ZrSupplyDatabase database;
    QVERIFY(!database.setup(path));
    QCOMPARE(database.getColorRGBFromEnum(3), -1);
    place.file(u"late.sqlite"_s, catalogue.bytes());
    QCOMPARE(database.getColorRGBFromEnum(3), 255);

    QSqlDatabase::database(fixedName, false).close();
    QVERIFY(QFile::remove(path));
    QCOMPARE(database.getColorRGBFromEnum(3), -1);
    QVERIFY(!QFileInfo::exists(path));
    QCOMPARE(log.take().size(), std::size_t(1));
}

void TestCatalogue::seesWhatAnotherProgramChanged()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.supplyWidth(u"CONT-4"_s), 4.0);
    // More rows than the one that is taken: a query left open would keep the file locked.
    QVERIFY(database.getSingleVariantByQuery(anyRoll, {}).isValid());
    catalogue.run(u"UPDATE materialwidth SET width=4.5 WHERE id=10"_s);
    QCOMPARE(database.supplyWidth(u"CONT-4"_s), 4.5);
}

void TestCatalogue::writesFail_data()
{
    QTest::addColumn<QString>("statement");
    const auto row = [](const char *name, const QString &statement) { QTest::newRow(name) << statement; };
    row("insert", u"INSERT INTO color (id, secId, rgbValue, name) VALUES (99, 99, 1, 'x') RETURNING id"_s);
    row("replace", u"REPLACE INTO format (id, type) VALUES (1, 'x') RETURNING id"_s);
    row("update", u"UPDATE color SET rgbValue=1 RETURNING id"_s);
    row("update of no row", u"UPDATE color SET rgbValue=1 WHERE id=-7 RETURNING id"_s);
    row("delete", u"DELETE FROM roll RETURNING itemNum"_s);
    row("create table", u"CREATE TABLE added (id INTEGER)"_s);
    row("create table from rows", u"CREATE TABLE added AS SELECT * FROM color"_s);
    row("create index", u"CREATE INDEX added ON color (name)"_s);
    row("create view", u"CREATE VIEW added AS SELECT 1"_s);
    row("alter table", u"ALTER TABLE color ADD COLUMN added INTEGER"_s);
    row("drop table", u"DROP TABLE color"_s);
    row("reindex", u"REINDEX"_s);
    row("analyze", u"ANALYZE"_s);
    row("vacuum", u"VACUUM"_s);
    row("attach a new file", u"ATTACH '%1' AS added"_s);
}

void TestCatalogue::writesFail()
{
    QFETCH(QString, statement);
    const FixtureCatalogue catalogue;
    const QByteArray bytes = catalogue.bytes();
    const Place place;
    if (statement.contains("%1"_L1))
        statement = statement.arg(place.path(u"new.sqlite"_s));
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.getSingleVariantByQuery(statement, 7), QVariant(7));
    {
        QSqlQuery query(statement, QSqlDatabase::database(fixedName));
        QVERIFY2(query.lastError().isValid(), "the statement was carried out");
    }
    // The file's own permissions do not forbid it: the same statement runs on an ordinary connection.
    QVERIFY(QFileInfo(catalogue.path()).isWritable());
    QCOMPARE(catalogue.bytes(), bytes);
    QCOMPARE(filesBeside(catalogue), QStringList(u"catalogue.sqlite"_s));
    QCOMPARE(place.entries(), QStringList());
    catalogue.run(statement.section(u" RETURNING"_s, 0, 0));
}

void TestCatalogue::lookupsWriteNothing()
{
    // Statements that SQLite accepts on a connection that reads only, and what the library asks itself.
    const FixtureCatalogue catalogue;
    const FixtureCatalogue attached;
    const QByteArray bytes = catalogue.bytes();
    {
        ZrSupplyDatabase database;
        QVERIFY(database.setup(catalogue.path()));
        for (const QString &statement :
             {u"PRAGMA journal_mode=WAL"_s, u"PRAGMA user_version=5"_s, u"PRAGMA application_id=5"_s,
              u"PRAGMA auto_vacuum=1"_s, u"PRAGMA writable_schema=1"_s, u"PRAGMA query_only=0"_s,
              u"UPDATE sqlite_schema SET sql=''"_s, u"BEGIN IMMEDIATE"_s, u"BEGIN"_s, u"COMMIT"_s,
              u"ATTACH '%1' AS other"_s.arg(attached.path()), u"DELETE FROM other.roll"_s,
              u"CREATE TABLE other.added (id INTEGER)"_s}) {
            database.getSingleVariantByQuery(statement, {});
        }
        // Under guard nothing is attached, and that is the one answer that differs.
        const int attachedRolls = qEnvironmentVariableIsSet("ZRSUPPLY_TEST_GUARDED") ? -1 : 11;
        QCOMPARE(database.getSingleVariantByQuery(u"SELECT COUNT(*) FROM other.roll"_s, -1).toInt(), attachedRolls);
        database.setSupplyId(u"4B000912C10404900400FFFF"_s);
        database.setRibbonIds({u"12"_s, u"13"_s});
        database.setLanguageId(7);
        for (const QString &sku : database.supplySKUList()) {
            database.supplyLength(sku);
            database.supplyColorName(sku);
            database.supplyRibbonHeats(u"RIB-ONE"_s, sku);
        }
        QCOMPARE(filesBeside(catalogue), QStringList(u"catalogue.sqlite"_s));
    }
    QCOMPARE(catalogue.bytes(), bytes);
    QCOMPARE(attached.bytes(), bytes);
    QCOMPARE(filesBeside(catalogue), QStringList(u"catalogue.sqlite"_s));
    QCOMPARE(filesBeside(attached), QStringList(u"catalogue.sqlite"_s));
}

QTEST_GUILESS_MAIN(TestCatalogue)

#include "tst_catalogue.moc"
