// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"

#include "support/fixturecatalogue.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray sampleBytes()
{
    QFile file(sampleCatalogue());
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

} // namespace

/// Which catalogue is used, and what is said of one that cannot be.
class TestZrsupplyCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choice();
    void sampleBesideTheCommand();
    void unusable_data();
    void unusable();
    void tableMissing_data();
    void tableMissing();
    void notReadable();
    void driverMissing();
    void oddNames_data();
    void oddNames();
    void refusedUnlessBare_data();
    void refusedUnlessBare();
    void lookupsAreGuarded();
    void neverWritten();
    void everyVerbThatNeedsOne();
};

void TestZrsupplyCatalogue::choice()
{
    const FixtureCatalogue other(FixtureCatalogue::Rows::None);
    other.run(u"INSERT INTO ribbon (id, sku) VALUES (1, 'ONLY-ONE')"_s);
    const QStringList words = {u"list"_s, u"ribbons"_s, u"--plain"_s};

    CommandRun byEnvironment = zrsupply(words);
    byEnvironment.environment.insert(u"ZRSUPPLY_CATALOGUE"_s, other.path());
    QCOMPARE(byEnvironment.run().out, u"ONLY-ONE\n"_s);

    CommandRun byOption = zrsupply(words + QStringList{u"--catalogue"_s, other.path()});
    QCOMPARE(byOption.run().out, u"ONLY-ONE\n"_s);

    CommandRun last = zrsupply(words + QStringList{u"--catalogue=nowhere"_s, u"--catalogue"_s, other.path()});
    QCOMPARE(last.run().out, u"ONLY-ONE\n"_s);
}

void TestZrsupplyCatalogue::sampleBesideTheCommand()
{
    CommandRun run = zrsupply({u"list"_s, u"ribbons"_s, u"--plain"_s});
    const QString expected = run.run().out;
    QVERIFY(expected.contains(u"R530901\n"_s));
    run.environment.insert(u"ZRSUPPLY_CATALOGUE"_s, QString());
    QCOMPARE(run.run().out, expected);

    // Moved as a whole, and called through a link.
    const QTemporaryDir prefix;
    QDir(prefix.path()).mkpath(u"bin"_s);
    QFile::copy(commandPath(), prefix.filePath(u"bin/zrsupply"_s));
    run.program = prefix.filePath(u"bin/zrsupply"_s);
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(prefix.filePath(u"share/zrsupplydatabase/sample.sqlite"_s)), qPrintable(run.err));

    QDir(prefix.path()).mkpath(u"share/zrsupplydatabase"_s);
    QFile::copy(sampleCatalogue(), prefix.filePath(u"share/zrsupplydatabase/sample.sqlite"_s));
    QFile::link(prefix.filePath(u"bin/zrsupply"_s), prefix.filePath(u"link"_s));
    run.program = prefix.filePath(u"link"_s);
    QCOMPARE(run.run().out, expected);
}

void TestZrsupplyCatalogue::unusable_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("remedy");

    const QString another = u"name a catalogue file"_s;
    const QString restore = u"from its sources"_s;
    QTest::newRow("empty") << QByteArray() << u"is empty"_s << restore;
    QTest::newRow("text") << QByteArray("itemNum,supplyId\n") << u"is not an SQLite database"_s << another;
    QTest::newRow("short") << QByteArray("SQLite") << u"is not an SQLite database"_s << another;
    QTest::newRow("header alone") << sampleBytes().left(100) << u"is damaged: it is cut short"_s << restore;
    QTest::newRow("torn in the middle") << sampleBytes().left(6000) << u"is damaged: it is cut short"_s << restore;
    QByteArray overwritten = sampleBytes();
    overwritten.replace(100, 2000, QByteArray(2000, 'x'));
    QTest::newRow("overwritten") << overwritten << u"cannot be read as a database: "_s << restore;
}

void TestZrsupplyCatalogue::unusable()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(QString, remedy);

    const QTemporaryDir folder;
    const QString path = folder.filePath(u"catalogue.sqlite"_s);
    write(path, bytes);
    CommandRun run = zrsupply({u"list"_s, u"rolls"_s, u"--json"_s, u"--catalogue"_s, path});
    run.run();
    QCOMPARE(run.status, 1);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.error()[u"message"_s].toString().startsWith(path + u' ' + message), qPrintable(run.err));
    QVERIFY2(run.error()[u"remedy"_s].toString().contains(remedy), qPrintable(run.err));
}

void TestZrsupplyCatalogue::tableMissing_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("missing");

    QTest::newRow("a table") << u"DROP TABLE ribbon_heat"_s << QStringList{u"table ribbon_heat"_s};
    QTest::newRow("a column") << u"ALTER TABLE roll DROP COLUMN landscape"_s
                              << QStringList{u"column roll.landscape"_s};
    QTest::newRow("several") << u"DROP TABLE format; ALTER TABLE ribbon_heat DROP COLUMN max_speed"_s
                             << QStringList{u"table format"_s, u"column ribbon_heat.max_speed"_s};
}

void TestZrsupplyCatalogue::tableMissing()
{
    QFETCH(QString, sql);
    QFETCH(QStringList, missing);

    const FixtureCatalogue catalogue;
    catalogue.run(sql);
    CommandRun run = zrsupply({u"list"_s, u"rolls"_s, u"--json"_s, u"--catalogue"_s, catalogue.path()});
    run.run();
    QCOMPARE(run.status, 1);
    QCOMPARE(run.error()[u"message"_s].toString(),
             u"%1 is not a supply catalogue: it lacks %2"_s.arg(catalogue.path(), missing.join(u", "_s)));
    QCOMPARE(run.error()[u"missing"_s].toArray(), QJsonArray::fromStringList(missing));
}

void TestZrsupplyCatalogue::notReadable()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"catalogue.sqlite"_s);
    write(path, sampleBytes());
    QFile::setPermissions(path, {});
    CommandRun run = zrsupply({u"list"_s, u"rolls"_s, u"--catalogue"_s, path});
    run.withoutPrivilege = true;
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(path + u" cannot be read: Permission denied"_s), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"chmod +r"_s), qPrintable(run.err));

    // Reading is all it takes.
    QFile::setPermissions(path, QFile::ReadOwner);
    QCOMPARE(run.run().status, 0);
}

void TestZrsupplyCatalogue::driverMissing()
{
    // Qt looks for its plugins where a qt.conf beside the program says.
    const QTemporaryDir folder;
    QFile::copy(commandPath(), folder.filePath(u"zrsupply"_s));
    write(folder.filePath(u"qt.conf"_s), "[Paths]\nPlugins = nowhere\n");
    CommandRun run = zrsupply({u"list"_s, u"rolls"_s});
    run.program = folder.filePath(u"zrsupply"_s);
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.startsWith(u"zrsupply: Qt's SQLite driver is not installed\n"_s), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"apt install libqt6sql6-sqlite"_s), qPrintable(run.err));

    // What needs no catalogue works without.
    run.words = QStringList{u"tag"_s, u"decode"_s, u"00"_s};
    QCOMPARE(run.run().status, 0);
}

void TestZrsupplyCatalogue::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");

    QTest::newRow("a folder") << u"folder"_s << u" is a folder, not a catalogue file"_s;
    QTest::newRow("a link to nothing") << u"dangling"_s << u" leads to no file"_s;
    QTest::newRow("a device") << u"/dev/null"_s << u" is not an ordinary file"_s;
    QTest::newRow("blanks and letters") << u"Größe 1'.sqlite"_s << QString();
    QTest::newRow("a link") << u"link"_s << QString();
}

void TestZrsupplyCatalogue::oddNames()
{
    QFETCH(QString, name);
    QFETCH(QString, message);

    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(u"folder"_s);
    write(folder.filePath(u"Größe 1'.sqlite"_s), sampleBytes());
    QFile::link(folder.filePath(u"Größe 1'.sqlite"_s), folder.filePath(u"link"_s));
    QFile::link(folder.filePath(u"gone"_s), folder.filePath(u"dangling"_s));

    CommandRun run =
        zrsupply({u"list"_s, u"ribbons"_s, u"--plain"_s, u"--catalogue"_s, QDir(folder.path()).filePath(name)});
    run.run();
    QCOMPARE(run.status, message.isEmpty() ? 0 : 1);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QCOMPARE(run.out.isEmpty(), !message.isEmpty());
}

void TestZrsupplyCatalogue::refusedUnlessBare_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("finding");

    QTest::newRow("view") << u"ALTER TABLE ribbon RENAME TO r; CREATE VIEW ribbon AS SELECT * FROM r"_s
                          << u"not-a-table"_s;
    QTest::newRow("trigger") << u"CREATE TRIGGER t AFTER INSERT ON roll BEGIN SELECT 1; END"_s << u"has-trigger"_s;
    QTest::newRow("giant value") << u"INSERT INTO background (id, svg) VALUES (999, zeroblob(2000000))"_s
                                 << u"giant-value"_s;
}

/// What the library itself would take is refused for what it may do to the library.
void TestZrsupplyCatalogue::refusedUnlessBare()
{
    QFETCH(QString, change);
    QFETCH(QString, finding);
    const FixtureCatalogue catalogue;
    const QStringList words = {u"list"_s,   u"ribbons"_s,     u"--plain"_s,
                               u"--json"_s, u"--catalogue"_s, catalogue.path()};
    const QString expected = zrsupply(words).run().out;
    catalogue.run(change);
    CommandRun guarded = zrsupply(words);
    guarded.run();
    QCOMPARE(guarded.status, 1);
    QCOMPARE(guarded.out, QString());
    QCOMPARE(guarded.error()[u"finding"_s].toString(), finding);
    QVERIFY(!guarded.error()[u"remedy"_s].toString().isEmpty());
    CommandRun bare = zrsupply(words + QStringList{u"--no-guard"_s});
    QCOMPARE(bare.run().out, expected);
    QCOMPARE(bare.status, 0);
}

void TestZrsupplyCatalogue::lookupsAreGuarded()
{
    // What follows the quote is asked as it stands; trim() with two arguments is what a guarded connection refuses.
    const QTemporaryDir folder;
    const QString session = folder.filePath(u"ask.session"_s);
    write(session, "call supplyWidth \"x' UNION SELECT length(trim('xax', 'x')) --\"\n");
    CommandRun run = zrsupply({u"session"_s, session});
    QVERIFY2(run.run().out.contains(u"answer  -1\n"_s), qPrintable(run.out + run.err));
    run.words.append(u"--no-guard"_s);
    QVERIFY2(run.run().out.contains(u"answer  1\n"_s), qPrintable(run.out + run.err));
}

void TestZrsupplyCatalogue::neverWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"catalogue.sqlite"_s);
    write(path, sampleBytes());
    for (const QStringList &words : {QStringList{u"list"_s, u"rolls"_s}, QStringList{u"roll"_s, u"00144463"_s},
                                     QStringList{u"ribbon"_s, u"R530951"_s}}) {
        CommandRun run = zrsupply(words + QStringList{u"--catalogue"_s, path});
        QCOMPARE(run.run().status, 0);
    }
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), sampleBytes());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"catalogue.sqlite"_s});
}

void TestZrsupplyCatalogue::everyVerbThatNeedsOne()
{
    const QString nowhere = u"nowhere.sqlite"_s;
    for (const QStringList &words : {QStringList{u"list"_s, u"languages"_s}, QStringList{u"roll"_s, u"00144463"_s},
                                     QStringList{u"ribbon"_s, u"R530951"_s}}) {
        CommandRun run = zrsupply(words + QStringList{u"--catalogue"_s, nowhere});
        run.run();
        QCOMPARE(run.status, 1);
        // The error alone: the library's own record of a failed open does not get in between.
        QCOMPARE(run.err, u"zrsupply: there is no file nowhere.sqlite\n"
                          "  name a catalogue file with --catalogue FILE or in ZRSUPPLY_CATALOGUE\n"_s);
    }
}

QTEST_GUILESS_MAIN(TestZrsupplyCatalogue)
#include "tst_zrsupplycatalogue.moc"
