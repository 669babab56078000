// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

CommandRun catalogue(const QStringList &words, const QHash<QString, QString> &environment = {})
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s} + words);
    run.environment.insert(environment);
    run.run();
    if (run.status != 0)
        qWarning("%s", qPrintable(run.err));
    return run;
}

/// The lines of `sha256sum *.csv svg/*.svg`, hashed once more.
QString checksumOf(const QString &folder)
{
    const QMap<QString, QByteArray> files = filesBelow(folder);
    QByteArray tables;
    QByteArray pictures;
    for (auto file = files.constKeyValueBegin(); file != files.constKeyValueEnd(); ++file) {
        const QByteArray hash = QCryptographicHash::hash(file->second, QCryptographicHash::Sha256).toHex();
        (file->first.contains(u'/') ? pictures : tables) += hash + "  " + file->first.toUtf8() + '\n';
    }
    const QByteArray hash = QCryptographicHash::hash(tables + pictures, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex());
}

} // namespace

/// Sources to a file and back: `zrsupply catalogue build` and `zrsupply catalogue dump`.
class TestCatalogueRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sampleComesBackByteForByte();
    void sameSourcesSameBytes();
    void sameAsTheScript();
    void fileIsWhatACatalogueShouldBe();
    void meta();
    void oddValuesComeBack();
    void dumpOfTheScriptsFile();
    void dumpOfAnotherMakersFile();
    void fileNamesThatLeadAstray();
    void changedAfterTheBuild();
    void dumpWritesOverNothing();
    void dumpThatFailsLeavesNothing();
};

void TestCatalogueRoundTrip::sampleComesBackByteForByte()
{
    const SourceFolder sources;
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, sources.out(u"a.sqlite"_s)}).status, 0);
    QCOMPARE(catalogue({u"dump"_s, sources.out(u"a.sqlite"_s), u"-o"_s, sources.out(u"dump"_s)}).status, 0);
    QCOMPARE(filesBelow(sources.out(u"dump"_s)), filesBelow(sourcePath(u"schema/sample"_s)));
    QCOMPARE(catalogue({u"build"_s, sources.out(u"dump"_s), u"-o"_s, sources.out(u"b.sqlite"_s)}).status, 0);
    QCOMPARE(bytesOf(sources.out(u"b.sqlite"_s)), bytesOf(sources.out(u"a.sqlite"_s)));
}

/// Another folder, time zone, locale, home, order of lines, ends of lines.
void TestCatalogueRoundTrip::sameSourcesSameBytes()
{
    const SourceFolder first;
    QCOMPARE(catalogue({u"build"_s, first.path(), u"-o"_s, first.out(u"a.sqlite"_s)}).status, 0);

    const SourceFolder second;
    for (const QString &name : QDir(second.path()).entryList({u"*.csv"_s})) {
        QList<QByteArray> lines = second.read(name).trimmed().split('\n');
        std::reverse(lines.begin() + 1, lines.end());
        second.write(name, "\xEF\xBB\xBF" + lines.join("\r\n"));
    }
    const QHash<QString, QString> elsewhere = {{u"TZ"_s, u"Pacific/Auckland"_s},
                                               {u"LC_ALL"_s, u"C"_s},
                                               {u"HOME"_s, second.out(QString())},
                                               {u"SQLITE_TMPDIR"_s, second.out(QString())}};
    writeBytes(second.out(u".sqliterc"_s), "PRAGMA page_size = 8192;\n");
    QCOMPARE(catalogue({u"build"_s, second.path(), u"-o"_s, second.out(u"another.name"_s)}, elsewhere).status, 0);
    QCOMPARE(bytesOf(second.out(u"another.name"_s)), bytesOf(first.out(u"a.sqlite"_s)));
    QCOMPARE(second.outNames(), (QStringList{u".sqliterc"_s, u"another.name"_s}));
}

/// schema/build-catalogue needs no compiler; what it makes differs in what the command tells about its sources.
void TestCatalogueRoundTrip::sameAsTheScript()
{
    const SourceFolder sources;
    const QString ours = sources.out(u"command.sqlite"_s);
    const QString scripts = sources.out(u"script.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, ours}).status, 0);
    QCOMPARE(QProcess::execute(sourcePath(u"schema/build-catalogue"_s), {sources.path(), scripts}), 0);

    const QString schema = u"SELECT type, name, tbl_name, sql FROM sqlite_schema ORDER BY type, name"_s;
    QCOMPARE(rowsOf(ours, schema), rowsOf(scripts, schema));
    for (const QString &table : rowsOf(ours, u"SELECT name FROM sqlite_schema WHERE type = 'table'"_s)) {
        const QString added = u" WHERE key NOT IN ('source_checksum', 'tool_version') AND key NOT GLOB 'source.*'"_s;
        const QString rows = u"SELECT * FROM "_s + table + (table == "meta"_L1 ? added : QString());
        QVERIFY2(!rowsOf(ours, rows).isEmpty(), qPrintable(table));
        QCOMPARE(rowsOf(ours, rows), rowsOf(scripts, rows));
    }
    for (const QString &pragma : {u"page_size"_s, u"encoding"_s, u"user_version"_s, u"application_id"_s})
        QCOMPARE(rowsOf(ours, u"PRAGMA "_s + pragma), rowsOf(scripts, u"PRAGMA "_s + pragma));
    QCOMPARE(rowsOf(ours, u"SELECT id, hex(svg) FROM background"_s),
             rowsOf(scripts, u"SELECT id, hex(svg) FROM background"_s));
}

void TestCatalogueRoundTrip::fileIsWhatACatalogueShouldBe()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    QCOMPARE(rowsOf(file, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    QCOMPARE(rowsOf(file, u"PRAGMA page_size"_s), QStringList{u"4096"_s});
    QCOMPARE(rowsOf(file, u"PRAGMA journal_mode"_s), QStringList{u"delete"_s});
    QCOMPARE(rowsOf(file, u"PRAGMA freelist_count"_s), QStringList{u"0"_s});
    QCOMPARE(rowsOf(file, u"SELECT DISTINCT tbl FROM sqlite_stat1 ORDER BY 1"_s),
             (QStringList{u"materialwidth"_s, u"roll"_s}));
    QCOMPARE(rowsOf(file, u"SELECT idx FROM sqlite_stat1 WHERE tbl = 'roll'"_s),
             QStringList{u"roll_materialWidthId"_s});
    // The release in the header is that of the oldest SQLite that reads the file, on every machine.
    QCOMPARE(bytesOf(file).mid(96, 4), QByteArray::fromHex("002e5748"));
    QCOMPARE(sources.outNames(), QStringList{u"a.sqlite"_s});
}

void TestCatalogueRoundTrip::meta()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    const CommandRun run = catalogue({u"build"_s, sources.path(), u"-o"_s, file, u"--json"_s});
    const QString checksum = checksumOf(sourcePath(u"schema/sample"_s));
    QCOMPARE(run.json()[u"checksum"_s].toString(), checksum);
    CommandRun version = zrsupply({u"--version"_s, u"--json"_s});
    QCOMPARE(rowsOf(file, u"SELECT key, value FROM meta WHERE key NOT GLOB 'language.*' ORDER BY key"_s),
             (QStringList{u"dataset_name|Sample catalogue"_s, u"dataset_version|1.0.0"_s, u"schema_version|1"_s,
                          u"source.background.svg.1|safety-header.svg"_s, u"source.background.svg.2|panel-grid.svg"_s,
                          u"source.background.svg.3|wrap-label.svg"_s, u"source.background.svg.4|hang-tag.svg"_s,
                          u"source.background.svg.5|chevrons.svg"_s, u"source.background.svg.6|exit-arrow.svg"_s,
                          u"source_checksum|"_s + checksum,
                          u"tool_version|"_s + version.run().json()[u"version"_s].toString()}));
}

void TestCatalogueRoundTrip::oddValuesComeBack()
{
    const SourceFolder sources;
    sources.append(u"format.csv"_s, "60,\"a, \"\"b\"\" and\r\nc\"\n61, blanks \n62,\n9223372036854775807,𝔘\n");
    sources.append(u"materialwidth.csv"_s,
                   "60,,0.1,-3,1e+300,\n61,1,4.0625,,0.0,x'y\n62,1,123456789.0,0,5e-324,%1\n");
    const QString file = sources.out(u"a.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    QCOMPARE(catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"dump"_s)}).status, 0);
    QCOMPARE(filesBelow(sources.out(u"dump"_s)), filesBelow(sources.path()));
}

/// The script does not keep the names of the pictures.
void TestCatalogueRoundTrip::dumpOfTheScriptsFile()
{
    const SourceFolder sources;
    const QString file = sources.out(u"script.sqlite"_s);
    QCOMPARE(QProcess::execute(sourcePath(u"schema/build-catalogue"_s), {sources.path(), file}), 0);
    QCOMPARE(catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"dump"_s)}).status, 0);
    const QMap<QString, QByteArray> dumped = filesBelow(sources.out(u"dump"_s));
    QCOMPARE(dumped[u"svg/5.svg"_s], sources.read(u"svg/chevrons.svg"_s));
    QCOMPARE(dumped[u"background.csv"_s],
             QByteArray("id,svg\n1,1.svg\n2,2.svg\n3,3.svg\n4,4.svg\n5,5.svg\n6,6.svg\n"));
    for (const QString &name : QDir(sources.path()).entryList({u"*.csv"_s})) {
        if (name != "background.csv"_L1)
            QCOMPARE(dumped[name], sources.read(name));
    }
}

/// Without keys, types and meta, rows out of order, a table and a column more.
void TestCatalogueRoundTrip::dumpOfAnotherMakersFile()
{
    const SourceFolder sources;
    const QString file = sources.out(u"other.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    runOn(file, u"DROP TABLE meta; DROP TABLE format; CREATE TABLE format (type, id, note);"
                "INSERT INTO format VALUES ('Tag', 3, 'x'), ('Continuous', 1, 'y'), (NULL, 2, NULL);"
                "CREATE TABLE prices (sku, price); DROP TABLE background; CREATE TABLE background (id, svg);"
                "INSERT INTO background VALUES (2, '<svg/>'), (1, NULL)"_s);
    QCOMPARE(catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"dump"_s)}).status, 0);
    const QMap<QString, QByteArray> dumped = filesBelow(sources.out(u"dump"_s));
    QCOMPARE(dumped[u"format.csv"_s], QByteArray("id,type\n1,Continuous\n2,\n3,Tag\n"));
    QCOMPARE(dumped[u"meta.csv"_s], QByteArray("key,value\n"));
    QCOMPARE(dumped[u"background.csv"_s], QByteArray("id,svg\n1,\n2,2.svg\n"));
    QCOMPARE(dumped[u"svg/2.svg"_s], QByteArray("<svg/>"));
    QVERIFY(!dumped.contains(u"prices.csv"_s));
}

/// A catalogue comes from anybody: a name in it must not lead out of the folder.
void TestCatalogueRoundTrip::fileNamesThatLeadAstray()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    runOn(file, u"UPDATE meta SET value = '../../escaped.svg' WHERE key = 'source.background.svg.1';"
                "UPDATE meta SET value = '/escaped.svg' WHERE key = 'source.background.svg.2';"
                "UPDATE meta SET value = '..' WHERE key = 'source.background.svg.3';"
                "UPDATE meta SET value = '' WHERE key = 'source.background.svg.4'"_s);
    QCOMPARE(catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"dump"_s)}).status, 0);
    QCOMPARE(QDir(sources.out(u"dump/svg"_s)).entryList(QDir::Files | QDir::Hidden),
             (QStringList{u"1.svg"_s, u"2.svg"_s, u"3.svg"_s, u"4.svg"_s, u"chevrons.svg"_s, u"exit-arrow.svg"_s}));
    QVERIFY(!QFileInfo::exists(sources.out(u"escaped.svg"_s)));

    runOn(file, u"UPDATE meta SET value = 'chevrons.svg' WHERE key = 'source.background.svg.1'"_s);
    CommandRun run = zrsupply({u"catalogue"_s, u"dump"_s, file, u"-o"_s, sources.out(u"again"_s)});
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(u"svg/chevrons.svg but are not the same"_s), qPrintable(run.err));
    QVERIFY(!QFileInfo::exists(sources.out(u"again"_s)));
}

void TestCatalogueRoundTrip::changedAfterTheBuild()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    CommandRun run = catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"before"_s), u"--json"_s});
    QCOMPARE(run.json()[u"unchanged"_s].toBool(), true);
    runOn(file, u"UPDATE color SET rgbValue = 1 WHERE id = 1"_s);
    run = catalogue({u"dump"_s, file, u"-o"_s, sources.out(u"after"_s), u"--json"_s});
    QCOMPARE(run.json()[u"unchanged"_s].toBool(true), false);
    QCOMPARE(run.json()[u"checksum"_s].toString(), checksumOf(sources.out(u"after"_s)));
}

void TestCatalogueRoundTrip::dumpWritesOverNothing()
{
    const SourceFolder sources;
    CommandRun run = zrsupply({u"catalogue"_s, u"dump"_s, sampleCatalogue(), u"-o"_s, sources.path()});
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(u"is not empty"_s), qPrintable(run.err));
    QCOMPARE(filesBelow(sources.path()), filesBelow(sourcePath(u"schema/sample"_s)));

    run.words.last() = sources.path() + u"/roll.csv"_s;
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(u"is a file, not a folder"_s), qPrintable(run.err));

    // An empty folder will do, with a slash behind it or not.
    QDir().mkpath(sources.out(u"empty"_s));
    QCOMPARE(catalogue({u"dump"_s, sampleCatalogue(), u"-o"_s, sources.out(u"empty/"_s)}).status, 0);
    QCOMPARE(filesBelow(sources.out(u"empty"_s)).size(), 24);
    QCOMPARE(sources.outNames(), QStringList{u"empty"_s});
}

void TestCatalogueRoundTrip::dumpThatFailsLeavesNothing()
{
    const SourceFolder sources;
    const QString file = sources.out(u"a.sqlite"_s);
    QCOMPARE(catalogue({u"build"_s, sources.path(), u"-o"_s, file}).status, 0);
    // The tables are all there, but the page that the rolls begin on is not.
    const qsizetype page = rowsOf(file, u"SELECT rootpage FROM sqlite_schema WHERE name = 'roll'"_s).first().toInt();
    QByteArray bytes = bytesOf(file);
    bytes.replace((page - 1) * 4096, 4096, QByteArray(4096, 'x'));
    writeBytes(file, bytes);
    CommandRun run = zrsupply({u"catalogue"_s, u"dump"_s, file, u"-o"_s, sources.out(u"dump"_s)});
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(u"cannot be read to its end"_s), qPrintable(run.err));
    QCOMPARE(sources.outNames(), QStringList{u"a.sqlite"_s});
}

QTEST_GUILESS_MAIN(TestCatalogueRoundTrip)
#include "tst_catalogue_roundtrip.moc"
