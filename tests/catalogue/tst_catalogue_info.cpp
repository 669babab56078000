// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

#include <functional>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Makes an unusable catalogue at a path where a good one lies.
using Spoil = std::function<void(const QString &)>;

Spoil rewritten(const std::function<void(QByteArray &)> &change)
{
    return [=](const QString &path) {
        QByteArray bytes = bytesOf(path);
        change(bytes);
        writeBytes(path, bytes);
    };
}

Spoil changedBy(const QString &script)
{
    return [=](const QString &path) { runOn(path, script); };
}

Spoil beside(const QString &suffix)
{
    return [=](const QString &path) { writeBytes(path + suffix, "left over"); };
}

Spoil replacedBy(const std::function<void(const QString &)> &make)
{
    return [=](const QString &path) {
        QFile::remove(path);
        make(path);
    };
}

CommandRun info(const QString &path, const QStringList &more = {})
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"info"_s, path} + more);
    run.run();
    return run;
}

QJsonObject rowNamed(const QJsonArray &table, const QString &name)
{
    for (const QJsonValue &row : table) {
        if (row[u"name"_s].toString() == name)
            return row.toObject();
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(Spoil)

/// `zrsupply catalogue info`: what is in a file, and what is wrong with one that cannot be used.
class TestCatalogueInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sample();
    void sampleForAPerson();
    void fileOfTheOtherVerbs();
    void languages();
    void verified();
    void changed();
    void withoutMeta();
    void unusable_data();
    void unusable();
    void notReadable();
    void driverMissing();
};

void TestCatalogueInfo::sample()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    CommandRun build = zrsupply({u"catalogue"_s, u"build"_s, sources.path(), u"-o"_s, file, u"--json"_s});
    build.run();
    const QJsonObject answer = info(file, {u"--json"_s}).json();
    QCOMPARE(answer[u"file"_s].toString(), file);
    QCOMPARE(answer[u"bytes"_s].toInteger(), QFileInfo(file).size());
    QCOMPARE(answer[u"schemaVersion"_s].toInt(), 1);
    QCOMPARE(answer[u"meta"_s][u"dataset_name"_s].toString(), u"Sample catalogue"_s);
    QCOMPARE(answer[u"meta"_s][u"dataset_version"_s].toString(), u"1.0.0"_s);
    QCOMPARE(answer[u"meta"_s][u"source_checksum"_s], build.json()[u"checksum"_s]);
    QCOMPARE(answer[u"rolls"_s].toObject(),
             (QJsonObject{
                 {u"all"_s, 88}, {u"offered"_s, 81}, {u"continuous"_s, 47}, {u"striped"_s, 10}, {u"dieCut"_s, 31}}));
    QCOMPARE(answer[u"ribbons"_s].toObject(), (QJsonObject{{u"all"_s, 29}, {u"severalPanels"_s, 6}}));
    const QJsonArray tables = answer[u"tables"_s].toArray();
    QCOMPARE(tables.size(), 17);
    for (const QString &name : {u"roll"_s, u"ribbon_heat"_s, u"formatTS"_s, u"background"_s})
        QCOMPARE(rowNamed(tables, name)[u"rows"_s].toInt(), int(sampleRows(name).size()));
    QVERIFY(!answer.contains(u"contentChecksum"_s));
}

void TestCatalogueInfo::sampleForAPerson()
{
    const CommandRun run = info(sampleCatalogue());
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QString());
    for (const QString &line : {u"Data set"_s, u"Schema version"_s, u"Offered"_s, u"Die-cut"_s, u"ribbon_heat"_s})
        QVERIFY2(run.out.contains(line), qPrintable(run.out));
}

void TestCatalogueInfo::fileOfTheOtherVerbs()
{
    CommandRun run = zrsupply({u"catalogue"_s, u"info"_s, u"--json"_s});
    QCOMPARE(run.run().json()[u"file"_s].toString(), sampleCatalogue());
    run.words += {u"--catalogue"_s, u"/nowhere/else.sqlite"_s};
    run.run();
    QCOMPARE(run.status, 1);
    QCOMPARE(run.error()[u"message"_s].toString(), u"there is no file /nowhere/else.sqlite"_s);
}

void TestCatalogueInfo::languages()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QFile::copy(sampleCatalogue(), file);
    runOn(file, u"DELETE FROM colorTS WHERE languageId = 3 AND colorId < 3;"
                "UPDATE materialTS SET name = '' WHERE languageId = 3 AND materialId = 1;"
                "INSERT INTO formatTS VALUES (1, 9, 'Sans fin')"_s);
    const QJsonArray languages = info(file, {u"--json"_s}).json()[u"languages"_s].toArray();
    QStringList rows;
    for (const QJsonValue &row : languages)
        rows.append(u"%1 %2 %3 %4"_s.arg(row[u"id"_s].toInt())
                        .arg(row[u"code"_s].toString())
                        .arg(row[u"names"_s].toInt())
                        .arg(row[u"missing"_s].toInt()));
    QCOMPARE(rows, (QStringList{u"0 en 56 0"_s, u"1 de 56 0"_s, u"2 fr 56 0"_s, u"3 es 53 3"_s, u"4 ja 56 0"_s,
                                u"5 ar 56 0"_s, u"9  1 55"_s}));
}

void TestCatalogueInfo::verified()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    zrsupply({u"catalogue"_s, u"build"_s, sources.path(), u"-o"_s, file}).run();
    const QJsonObject answer = info(file, {u"--verify"_s, u"--json"_s}).json();
    QCOMPARE(answer[u"contentChecksum"_s], answer[u"meta"_s][u"source_checksum"_s]);
    QVERIFY(!answer[u"contentChecksum"_s].toString().isEmpty());
}

void TestCatalogueInfo::changed()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    zrsupply({u"catalogue"_s, u"build"_s, sources.path(), u"-o"_s, file}).run();
    runOn(file, u"UPDATE roll SET nUpCount = 2 WHERE itemNum = '00143221'"_s);
    const CommandRun run = info(file, {u"--verify"_s});
    QCOMPARE(run.status, 0);
    QVERIFY2(run.out.contains(u"the file was changed after it was built"_s), qPrintable(run.out));
}

void TestCatalogueInfo::withoutMeta()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QFile::copy(sampleCatalogue(), file);
    runOn(file, u"DROP TABLE meta; PRAGMA user_version = 0"_s);
    const CommandRun run = info(file, {u"--verify"_s});
    QVERIFY2(run.status == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(u"the file does not tell the checksum of its sources"_s), qPrintable(run.out));
    QVERIFY2(run.out.contains(u"not told"_s), qPrintable(run.out));
}

void TestCatalogueInfo::unusable_data()
{
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<QString>("message"); // %1 is the file
    QTest::addColumn<QString>("remedy");

    const QString rebuild = u"zrsupply catalogue build"_s;
    const QString another = u"name a catalogue file"_s;
    QTest::newRow("missing") << replacedBy([](const QString &) {}) << u"there is no file %1"_s << another;
    QTest::newRow("link to nothing") << replacedBy([](const QString &path) { QFile::link(u"/nowhere/file"_s, path); })
                                     << u"the link %1 leads to no file"_s << another;
    QTest::newRow("folder") << replacedBy([](const QString &path) { QDir().mkdir(path); })
                            << u"%1 is a folder, not a catalogue file"_s << another;
    QTest::newRow("pipe") << replacedBy([](const QString &path) { ::mkfifo(path.toLocal8Bit().constData(), 0600); })
                          << u"%1 is not an ordinary file"_s << another;
    QTest::newRow("empty") << rewritten([](QByteArray &bytes) { bytes.clear(); }) << u"%1 is empty"_s
                           << u"rebuild the catalogue from its sources"_s;
    QTest::newRow("text") << rewritten([](QByteArray &bytes) { bytes = "itemNum,supplyId\n"; })
                          << u"%1 is not an SQLite database"_s << rebuild;
    QTest::newRow("first bytes alone") << rewritten([](QByteArray &bytes) { bytes.truncate(60); })
                                       << u"%1 is damaged: it ends after 60 bytes"_s << rebuild;
    QTest::newRow("cut short") << rewritten([](QByteArray &bytes) { bytes.truncate(50000); })
                               << u"%1 is damaged: it is cut short, 50000 of "_s << rebuild;
    QTest::newRow("page of garbage") << rewritten([](QByteArray &bytes) {
        bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, 'x'));
    }) << u"%1 is damaged: "_s << rebuild;
    QTest::newRow("write-ahead log") << changedBy(u"PRAGMA journal_mode = wal"_s)
                                     << u"%1 is in write-ahead-log mode"_s << u"PRAGMA journal_mode = DELETE"_s;
    QTest::newRow("unfinished change") << beside(u"-journal"_s)
                                       << u"%1-journal lies beside the catalogue: a change of it was not finished"_s
                                       << u"PRAGMA journal_mode = DELETE"_s;
    QTest::newRow("log beside it") << beside(u"-wal"_s)
                                   << u"%1-wal lies beside the catalogue: a change of it was not finished"_s
                                   << u"PRAGMA journal_mode = DELETE"_s;
    QTest::newRow("newer schema") << changedBy(u"PRAGMA user_version = 2"_s)
                                  << u"%1 has schema version 2, known here is 1"_s << u"install a newer zrsupply"_s;
    QTest::newRow("file format of the future")
        << rewritten([](QByteArray &bytes) { bytes[19] = 3; })
        << u"%1 has a file format that this SQLite does not know"_s << u"install a newer SQLite"_s;
    QTest::newRow("table missing") << changedBy(u"DROP TABLE ribbon_heat"_s)
                                   << u"%1 is not a supply catalogue: it lacks table ribbon_heat"_s
                                   << u"catalogue.sql"_s;
    QTest::newRow("column missing") << changedBy(u"ALTER TABLE roll DROP COLUMN landscape"_s)
                                    << u"%1 is not a supply catalogue: it lacks column roll.landscape"_s
                                    << u"catalogue.sql"_s;
}

void TestCatalogueInfo::unusable()
{
    QFETCH(Spoil, spoil);
    QFETCH(QString, message);
    QFETCH(QString, remedy);
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QFile::copy(sampleCatalogue(), file);
    spoil(file);

    const CommandRun run = info(file, {u"--json"_s});
    QCOMPARE(run.status, 1);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.error()[u"message"_s].toString().startsWith(message.arg(file)), qPrintable(run.err));
    QVERIFY2(run.error()[u"remedy"_s].toString().contains(remedy), qPrintable(run.err));
}

void TestCatalogueInfo::notReadable()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QFile::copy(sampleCatalogue(), file);
    QFile::setPermissions(file, {});
    CommandRun run = zrsupply({u"catalogue"_s, u"info"_s, file});
    run.withoutPrivilege = true;
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(file + u" cannot be read: Permission denied"_s), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"chmod +r"_s), qPrintable(run.err));
}

void TestCatalogueInfo::driverMissing()
{
    // Beside a command of its own the plugins are where qt.conf says.
    const SourceFolder sources;
    const QString command = sources.out(u"zrsupply"_s);
    QFile::copy(commandPath(), command);
    writeBytes(sources.out(u"qt.conf"_s), "[Paths]\nPlugins=/nowhere\n");
    CommandRun run = zrsupply({u"catalogue"_s, u"info"_s, sampleCatalogue()});
    run.program = command;
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(u"Qt's SQLite driver is not installed"_s), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"libqt6sql6-sqlite"_s), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(TestCatalogueInfo)
#include "tst_catalogue_info.moc"
