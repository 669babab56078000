// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/sourcefolder.h"

#include "zrsupplydatabase.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

#include <csignal>
#include <functional>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Change = std::function<void(const SourceFolder &)>;

CommandRun build(const SourceFolder &sources, const QString &output, const QStringList &more = {})
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"build"_s, sources.path(), u"-o"_s, output} + more);
    run.run();
    return run;
}

Change edit(const QString &name, int line, const QByteArray &before, const QByteArray &after)
{
    return [=](const SourceFolder &sources) { sources.edit(name, line, before, after); };
}

Change append(const QString &name, const QByteArray &bytes)
{
    return [=](const SourceFolder &sources) { sources.append(name, bytes); };
}

Change remove(const QString &name)
{
    return [=](const SourceFolder &sources) { sources.remove(name); };
}

} // namespace

Q_DECLARE_METATYPE(Change)

/// Mistakes in the sources and in the call, and what is left behind: `zrsupply catalogue build`.
class TestCatalogueBuild : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mistakes_data();
    void mistakes();
    void allMistakesInOneRun();
    void aHundredMistakesAtMost();
    void accepted_data();
    void accepted();
    void unusedFiles();
    void sourcesThatAreNone_data();
    void sourcesThatAreNone();
    void outputThatCannotBe_data();
    void outputThatCannotBe();
    void olderFileIsReplaced();
    void sameBytesWithEveryRelease();
    void releaseCopiedOverAnotherIsNoticed();
    void signalLeavesNothing_data();
    void signalLeavesNothing();
    void noProgressWithoutTerminal();
    void usage_data();
    void usage();
};

void TestCatalogueBuild::mistakes_data()
{
    QTest::addColumn<Change>("breakIt");
    QTest::addColumn<QString>("place"); // "file:line:column: message", without a line for a whole file
    QTest::addColumn<QString>("remedy");
    QTest::addColumn<int>("otherLine");

    const QString ribbonColors = u"the first line is id,rgbValue,name"_s;
    QTest::newRow("unknown column") << edit(u"color.csv"_s, 1, "name", "name,hue")
                                    << u"color.csv:1:24: table color has no column \"hue\""_s
                                    << u"the first line is id,secId,rgbValue,name"_s << 0;
    QTest::newRow("missing column") << edit(u"ribbon_color.csv"_s, 1, "rgbValue,", "")
                                    << u"ribbon_color.csv:1:1: column rgbValue is missing"_s << ribbonColors << 0;
    QTest::newRow("column twice") << edit(u"ribbon_color.csv"_s, 1, "name", "name,id")
                                  << u"ribbon_color.csv:1:18: column id is there twice"_s << ribbonColors << 0;
    QTest::newRow("columns in another order")
        << edit(u"ribbon_color.csv"_s, 1, "id,rgbValue", "rgbValue,id")
        << u"ribbon_color.csv:1:1: the columns stand in another order"_s << ribbonColors << 0;
    QTest::newRow("semicolons between the columns")
        << Change([](const SourceFolder &sources) { sources.write(u"format.csv"_s, "id;type\n1;Continuous\n"); })
        << u"format.csv:1:1: the columns are not separated by commas"_s
        << u"save the file with commas between the fields; the first line is id,type"_s << 0;
    QTest::newRow("empty file") << Change([](const SourceFolder &sources) { sources.write(u"format.csv"_s, {}); })
                                << u"format.csv:1:1: the file is empty"_s << u"the first line is id,type"_s << 0;
    QTest::newRow("word for a whole number")
        << edit(u"roll.csv"_s, 2, ",1,1,0,", ",1,white,0,")
        << u"roll.csv:2:33: colorId is a whole number, not \"white\""_s << u"write digits and nothing else"_s << 0;
    QTest::newRow("whole number with a point")
        << edit(u"roll.csv"_s, 2, ",1,1,0,", ",1.0,1,0,")
        << u"roll.csv:2:31: materialWidthId is a whole number, not \"1.0\""_s << u"write 1"_s << 0;
    QTest::newRow("fraction for a whole number")
        << edit(u"roll.csv"_s, 2, ",0,1,1,", ",0,1.5,1,")
        << u"roll.csv:2:37: nUpCount is a whole number, not \"1.5\""_s << u"without a fraction"_s << 0;
    QTest::newRow("number beyond 64 bits")
        << edit(u"color.csv"_s, 2, "16777215", "9223372036854775808")
        << u"color.csv:2:5: rgbValue is a whole number, not \"9223372036854775808\""_s
        << u"write a number of 64 bits"_s << 0;
    QTest::newRow("hexadecimal number") << edit(u"color.csv"_s, 2, "16777215", "0xFFFFFF")
                                        << u"color.csv:2:5: rgbValue is a whole number, not \"0xFFFFFF\""_s
                                        << u"write digits and nothing else"_s << 0;
    QTest::newRow("word for a size") << edit(u"materialwidth.csv"_s, 2, "1.0", "wide")
                                     << u"materialwidth.csv:2:5: width is a number, not \"wide\""_s
                                     << u"with a decimal point"_s << 0;
    QTest::newRow("decimal comma in quotes")
        << edit(u"materialwidth.csv"_s, 3, "2.25", "\"2,25\"")
        << u"materialwidth.csv:3:5: width is a number, not \"2,25\""_s << u"write 2.25"_s << 0;
    QTest::newRow("comma that may stand between thousands")
        << edit(u"materialwidth.csv"_s, 3, "2.25", "\"2,250\"")
        << u"materialwidth.csv:3:5: width is a number, not \"2,250\""_s << u"with a decimal point"_s << 0;
    QTest::newRow("endless size") << edit(u"materialwidth.csv"_s, 3, "2.25", "inf")
                                  << u"materialwidth.csv:3:5: width is a number, not \"inf\""_s
                                  << u"with a decimal point"_s << 0;
    QTest::newRow("blank before a number")
        << edit(u"format.csv"_s, 4, "3,", " 3,") << u"format.csv:4:1: id is a whole number, not \" 3\""_s
        << u"write 3"_s << 0;
    QTest::newRow("roll twice") << append(u"roll.csv"_s, "00143221,,,,,,,\n")
                                << u"roll.csv:90:1: itemNum 00143221 is in line 2 already"_s
                                << u"remove one of the two lines"_s << 2;
    QTest::newRow("number twice, written in two ways")
        << append(u"format.csv"_s, "03,Tag\n") << u"format.csv:13:1: id 3 is in line 4 already"_s
        << u"remove one of the two lines"_s << 4;
    QTest::newRow("key of several columns twice")
        << append(u"ribbon_heat.csv"_s, "1,1,18,1,1,1,1\n")
        << u"ribbon_heat.csv:148:1: ribbonId, panel, materialId 1, 1, 18 is in line 6 already"_s
        << u"remove one of the two lines"_s << 6;
    QTest::newRow("ribbon id twice") << append(u"ribbon.csv"_s, "5,ZZ,1,4.5,4725.0\n")
                                     << u"ribbon.csv:31:1: id 5 is in line 8 already"_s
                                     << u"give one of them another id"_s << 8;
    QTest::newRow("sensor type twice") << append(u"supplysensor.csv"_s, "9,EDGE\n")
                                       << u"supplysensor.csv:6:3: supplysensortype EDGE is in line 2 already"_s
                                       << u"give one of them another supplysensortype"_s << 2;
    QTest::newRow("roll without a SKU") << edit(u"roll.csv"_s, 3, "00143228", "")
                                        << u"roll.csv:3:1: itemNum is empty"_s << u"write the key of the row"_s << 0;
    QTest::newRow("Latin-1 letter") << edit(u"colorTS.csv"_s, 3, "Wei\u00DF", "Wei\xDF")
                                    << u"colorTS.csv:3:5: name is not UTF-8"_s << u"save the file in UTF-8"_s << 0;
    QTest::newRow("NUL character") << edit(u"format.csv"_s, 4, "Tag", QByteArray("T\0g", 3))
                                   << u"format.csv:4:3: type holds a NUL character"_s << u"remove it"_s << 0;
    QTest::newRow("open quote") << edit(u"formatTS.csv"_s, 2, "Continuous", "\"Continuous")
                                << u"formatTS.csv:8:6: text follows the quote that closes the field, "
                                   "which is opened in line 2, column 5"_s
                                << u"close that field where it ends"_s << 0;
    QTest::newRow("open quote up to the end")
        << edit(u"colorTS.csv"_s, 2, "White", "\"White")
        << u"colorTS.csv:2:5: the quote that opens here is never closed"_s << u"close the field with a quote"_s << 0;
    QTest::newRow("too few fields") << edit(u"format.csv"_s, 5, ",DieCut", "")
                                    << u"format.csv:5:1: the row ends after 1 of 2 fields"_s
                                    << u"add what is missing from type on"_s << 0;
    QTest::newRow("too many fields") << edit(u"format.csv"_s, 5, "DieCut", "Die,Cut")
                                     << u"format.csv:5:7: the row has 3 fields, the table 2 columns"_s
                                     << u"put a text that holds a comma in quotes"_s << 0;
    QTest::newRow("empty line") << append(u"format.csv"_s, "\n") << u"format.csv:13:1: the line is empty"_s
                                << u"remove it"_s << 0;
    QTest::newRow("missing table") << remove(u"format.csv"_s) << u"format.csv: the file is missing"_s << u"id,type"_s
                                   << 0;
    QTest::newRow("table under another name")
        << Change([](const SourceFolder &sources) { QDir(sources.path()).rename(u"color.csv"_s, u"colour.csv"_s); })
        << u"color.csv: the file is missing"_s << u"rename colour.csv"_s << 0;
    QTest::newRow("table that is a folder") << Change([](const SourceFolder &sources) {
        sources.remove(u"color.csv"_s);
        QDir(sources.path()).mkdir(u"color.csv"_s);
    }) << u"color.csv: the file cannot be read: "_s
                                            << u"make it an ordinary file"_s << 0;
    QTest::newRow("missing picture") << remove(u"svg/hang-tag.svg"_s)
                                     << u"background.csv:5:3: the file svg/hang-tag.svg is missing"_s
                                     << u"add it, or leave the field empty"_s << 0;
    QTest::newRow("misspelt picture") << edit(u"background.csv"_s, 5, "hang-tag", "hang-tags")
                                      << u"background.csv:5:3: the file svg/hang-tags.svg is missing"_s
                                      << u"did you mean hang-tag.svg?"_s << 0;
    QTest::newRow("misspelt picture that looks like one of another row")
        << edit(u"background.csv"_s, 5, "hang-tag", "chevron")
        << u"background.csv:5:3: the file svg/chevron.svg is missing"_s << u"add it, or leave the field empty"_s << 0;
    QTest::newRow("picture outside its folder")
        << edit(u"background.csv"_s, 5, "hang-tag.svg", "../meta.csv")
        << u"background.csv:5:3: \"../meta.csv\" is no name of a file in the folder svg"_s
        << u"write the name alone"_s << 0;
    QTest::newRow("schema version in the sources")
        << append(u"meta.csv"_s, "schema_version,9\n")
        << u"meta.csv:10:1: the key schema_version is added by the build"_s << u"remove the line"_s << 0;
    QTest::newRow("name of a picture in the sources")
        << append(u"meta.csv"_s, "source.background.svg.1,x\n")
        << u"meta.csv:10:1: the key source.background.svg.1 is added by the build"_s << u"remove the line"_s << 0;
}

void TestCatalogueBuild::mistakes()
{
    QFETCH(Change, breakIt);
    QFETCH(QString, place);
    QFETCH(QString, remedy);
    QFETCH(int, otherLine);

    const SourceFolder sources;
    breakIt(sources);
    const QString output = sources.out(u"catalogue.sqlite"_s);
    writeBytes(output, "older\n");

    CommandRun run = build(sources, output);
    QCOMPARE(run.status, 1);
    QCOMPARE(run.out, QString());
    const QStringList lines = run.err.split(u'\n');
    QVERIFY2(lines.first().startsWith(sources.path() + u'/' + place), qPrintable(run.err));
    QVERIFY2(lines.value(1).contains(remedy), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"1 mistake in %1; %2 is as it was\n"_s.arg(sources.path(), output)),
             qPrintable(run.err));
    QCOMPARE(bytesOf(output), QByteArray("older\n"));
    QCOMPARE(sources.outNames(), QStringList{u"catalogue.sqlite"_s});

    run = build(sources, output, {u"--json"_s});
    const QJsonArray errors = run.error()[u"errors"_s].toArray();
    QCOMPARE(errors.size(), 1);
    const QJsonObject error = errors.first().toObject();
    const int line = error[u"line"_s].toInt();
    const QString position = line > 0 ? u":%1:%2"_s.arg(line).arg(error[u"column"_s].toInt()) : QString();
    QVERIFY2(
        u"%1%2: %3"_s.arg(error[u"file"_s].toString(), position, error[u"message"_s].toString()).startsWith(place),
        qPrintable(run.err));
    QVERIFY(error[u"remedy"_s].toString().contains(remedy));
    QCOMPARE(error[u"otherLine"_s].toInt(), otherLine);
    QCOMPARE(run.error()[u"complete"_s].toBool(), true);
}

void TestCatalogueBuild::allMistakesInOneRun()
{
    const SourceFolder sources;
    sources.edit(u"roll.csv"_s, 5, "00143292", "");
    sources.edit(u"roll.csv"_s, 3, ",0,1,1,", ",0,one,first,");
    sources.edit(u"roll.csv"_s, 7, "00143312", "00143221");
    sources.edit(u"color.csv"_s, 1, "rgbValue", "rgb");
    sources.remove(u"ribbon.csv"_s);
    sources.remove(u"svg/chevrons.svg"_s);

    CommandRun run = build(sources, sources.out(u"new.sqlite"_s), {u"--json"_s});
    QCOMPARE(run.status, 1);
    QStringList places;
    for (const QJsonValue &value : run.error()[u"errors"_s].toArray())
        places.append(u"%1:%2"_s.arg(value[u"file"_s].toString()).arg(value[u"line"_s].toInt()));
    QCOMPARE(places, (QStringList{u"background.csv:6"_s, u"color.csv:1"_s, u"color.csv:1"_s, u"ribbon.csv:0"_s,
                                  u"roll.csv:3"_s, u"roll.csv:3"_s, u"roll.csv:5"_s, u"roll.csv:7"_s}));
    QVERIFY(run.error()[u"message"_s].toString().startsWith(u"8 mistakes in "_s));
    QVERIFY(run.error()[u"message"_s].toString().endsWith(u"new.sqlite is not written"_s));
    QCOMPARE(sources.outNames(), QStringList());
}

void TestCatalogueBuild::aHundredMistakesAtMost()
{
    const SourceFolder sources;
    sources.append(u"format.csv"_s, QByteArray("x,y\n").repeated(500));
    sources.append(u"roll.csv"_s, "00143221,,,,,,,\n");
    CommandRun run = build(sources, sources.out(u"new.sqlite"_s), {u"--json"_s});
    QCOMPARE(run.status, 1);
    QCOMPARE(run.error()[u"errors"_s].toArray().size(), 100);
    QCOMPARE(run.error()[u"complete"_s].toBool(), false);
    QVERIFY(run.error()[u"message"_s].toString().startsWith(u"100 mistakes or more in "_s));
}

void TestCatalogueBuild::accepted_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("row");

    QTest::newRow("empty field is NULL")
        << append(u"roll.csv"_s, "X1,,,,,,,\n") << u"SELECT * FROM roll WHERE itemNum = 'X1'"_s
        << u"X1|NULL|NULL|NULL|NULL|NULL|NULL|NULL"_s;
    QTest::newRow("quotes around nothing are NULL")
        << append(u"format.csv"_s, "60,\"\"\n") << u"SELECT * FROM format WHERE id = 60"_s << u"60|NULL"_s;
    QTest::newRow("whole number for a size")
        << append(u"materialwidth.csv"_s, "900,1,4,100,0,QKA\n")
        << u"SELECT width, typeof(width) FROM materialwidth WHERE id = 900"_s << u"4|real"_s;
    QTest::newRow("exponent") << append(u"materialwidth.csv"_s, "900,1,4e-1,100,0,QKA\n")
                              << u"SELECT width FROM materialwidth WHERE id = 900"_s << u"0.4"_s;
    QTest::newRow("leading zeros stay in a SKU and not in a number")
        << append(u"continuousstripe.csv"_s, "007,00.5,005\n")
        << u"SELECT * FROM continuousstripe WHERE itemNum = '007'"_s << u"007|0.5|5"_s;
    QTest::newRow("blanks stay in a text") << append(u"format.csv"_s, "60, two words \n")
                                           << u"SELECT type FROM format WHERE id = 60"_s << u" two words "_s;
    QTest::newRow("line break in quotes") << append(u"format.csv"_s, "60,\"two\nlines\"\n")
                                          << u"SELECT type FROM format WHERE id = 60"_s << u"two\nlines"_s;
    QTest::newRow("negative number") << append(u"color.csv"_s, "-5,,-1,None\n")
                                     << u"SELECT rgbValue FROM color WHERE id = -5"_s << u"-1"_s;
    QTest::newRow("byte order mark and CR LF") << Change([](const SourceFolder &sources) {
        sources.write(u"format.csv"_s, "\xEF\xBB\xBF" + sources.read(u"format.csv"_s).replace("\n", "\r\n"));
    }) << u"SELECT type FROM format WHERE id = 3"_s
                                               << u"Tag"_s;
    QTest::newRow("no end of line at the end")
        << append(u"format.csv"_s, "60,Last") << u"SELECT type FROM format WHERE id = 60"_s << u"Last"_s;
    QTest::newRow("two rows with one picture")
        << append(u"background.csv"_s, "7,chevrons.svg\n")
        << u"SELECT count(*) FROM background AS a, background AS b WHERE a.id = 5 AND b.id = 7 AND a.svg = b.svg"_s
        << u"1"_s;
    QTest::newRow("row without a picture")
        << append(u"background.csv"_s, "7,\n") << u"SELECT svg FROM background WHERE id = 7"_s << u"NULL"_s;
    QTest::newRow("empty picture") << Change([](const SourceFolder &sources) {
        sources.append(u"background.csv"_s, "7,empty.svg\n");
        sources.write(u"svg/empty.svg"_s, {});
    }) << u"SELECT typeof(svg), length(svg) FROM background WHERE id = 7"_s
                                   << u"blob|0"_s;
    QTest::newRow("two colours that are no stripes")
        << append(u"color.csv"_s, "400,,1,A\n401,,2,B\n") << u"SELECT count(*) FROM color WHERE id IN (400, 401)"_s
        << u"2"_s;
}

void TestCatalogueBuild::accepted()
{
    QFETCH(Change, change);
    QFETCH(QString, query);
    QFETCH(QString, row);
    const SourceFolder sources;
    change(sources);
    const QString output = sources.out(u"new.sqlite"_s);
    const CommandRun run = build(sources, output);
    QVERIFY2(run.status == 0, qPrintable(run.err));
    QCOMPARE(rowsOf(output, query), QStringList{row});
}

void TestCatalogueBuild::unusedFiles()
{
    const SourceFolder sources;
    sources.write(u"colours.csv"_s, "id\n1\n");
    sources.write(u"svg/spare.svg"_s, "<svg/>");
    const CommandRun run = build(sources, sources.out(u"new.sqlite"_s), {u"--json"_s});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.json()[u"unusedFiles"_s].toArray(), (QJsonArray{u"colours.csv"_s, u"svg/spare.svg"_s}));
}

void TestCatalogueBuild::sourcesThatAreNone_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << u"/nowhere/sources"_s << u"there is no folder /nowhere/sources"_s;
    QTest::newRow("file") << sampleCatalogue() << u"is a file, not a folder of sources"_s;
}

void TestCatalogueBuild::sourcesThatAreNone()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    const SourceFolder sources;
    CommandRun run = zrsupply({u"catalogue"_s, u"build"_s, path, u"-o"_s, sources.out(u"new.sqlite"_s)});
    run.run();
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QCOMPARE(sources.outNames(), QStringList());
}

void TestCatalogueBuild::outputThatCannotBe_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("folder") << u"folder"_s << u"is a folder"_s;
    QTest::newRow("in no folder") << u"nowhere/new.sqlite"_s << u"does not exist"_s;
    QTest::newRow("beside a journal") << u"journal.sqlite"_s << u"journal.sqlite-journal lies beside the output"_s;
    QTest::newRow("beside a log") << u"log.sqlite"_s << u"log.sqlite-wal lies beside the output"_s;
    QTest::newRow("pipe") << u"pipe"_s << u"is not an ordinary file"_s;
}

void TestCatalogueBuild::outputThatCannotBe()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    const SourceFolder sources;
    QDir(sources.path()).mkdir(sources.out(u"folder"_s));
    writeBytes(sources.out(u"journal.sqlite-journal"_s), "x");
    writeBytes(sources.out(u"log.sqlite-wal"_s), {});
    QCOMPARE(::mkfifo(sources.out(u"pipe"_s).toLocal8Bit().constData(), 0600), 0);
    const QStringList before = sources.outNames();

    const CommandRun run = build(sources, sources.out(name));
    QCOMPARE(run.status, 1);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QCOMPARE(sources.outNames(), before);
}

void TestCatalogueBuild::olderFileIsReplaced()
{
    const SourceFolder sources;
    const QString output = sources.out(u"it's a \"catalogue\" %1.sqlite"_s);
    writeBytes(output, QByteArray(500000, 'x'));
    const CommandRun run = build(sources, output);
    QVERIFY2(run.status == 0, qPrintable(run.err));
    QCOMPARE(rowsOf(output, u"SELECT count(*) FROM roll"_s), QStringList{u"88"_s});
    QCOMPARE(sources.outNames().size(), 1);
}

void TestCatalogueBuild::sameBytesWithEveryRelease()
{
    // The sample as it was built with SQLite 3.40 and 3.46. Another sample, schema or version of the command has
    // another.
    const SourceFolder sources;
    const QString output = sources.out(u"sample.sqlite"_s);
    QCOMPARE(build(sources, output).status, 0);
    QCOMPARE(QCryptographicHash::hash(bytesOf(output), QCryptographicHash::Sha256).toHex(),
             QByteArray("a9278b8347bde453ec4605eaaae6ed5458127b405697fe725944a6304cda3189"));
}

void TestCatalogueBuild::releaseCopiedOverAnotherIsNoticed()
{
    const auto changeCounter = [](const QByteArray &file) { return file.mid(24, 4); };
    const SourceFolder sources;
    const QString installed = sources.out(u"installed.sqlite"_s);
    const QString next = sources.out(u"next.sqlite"_s);
    const QString again = sources.out(u"again.sqlite"_s);
    QCOMPARE(build(sources, installed).status, 0);
    QCOMPARE(build(sources, again).status, 0);
    const QByteArray before = bytesOf(installed);
    QCOMPARE(bytesOf(again), before);

    // The shortest of changes: neither the file's size nor its number of pages differs.
    sources.edit(u"color.csv"_s, 2, "16777215", "16777214");
    QCOMPARE(build(sources, next).status, 0);
    const QByteArray after = bytesOf(next);
    QCOMPARE(after.size(), before.size());
    QVERIFY(changeCounter(after) != changeCounter(before));
    QCOMPARE(after.mid(92, 4), changeCounter(after));
    QCOMPARE(rowsOf(next, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});

    ZrSupplyDatabase database;
    QVERIFY(database.setup(installed));
    QCOMPARE(database.supplyColorRGB(u"00143221"_s), 16777215);
    writeBytes(installed, after);
    QCOMPARE(database.supplyColorRGB(u"00143221"_s), 16777214);
}

void TestCatalogueBuild::signalLeavesNothing_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("name");
    QTest::newRow("SIGINT, a file") << SIGINT << u"new.sqlite"_s;
    QTest::newRow("SIGTERM, a file") << SIGTERM << u"new.sqlite"_s;
    QTest::newRow("SIGHUP, a file") << SIGHUP << u"new.sqlite"_s;
    QTest::newRow("SIGTERM, a folder") << SIGTERM << u"folder"_s;
}

/// A million rolls take seconds, so that the signal comes in the middle of the work.
void TestCatalogueBuild::signalLeavesNothing()
{
    QFETCH(int, signal);
    QFETCH(QString, name);
    const SourceFolder sources;
    QProcess process;
    process.start(commandPath(),
                  {u"catalogue"_s, u"generate"_s, u"--rolls"_s, u"1000000"_s, u"-o"_s, sources.out(name)});
    QVERIFY(QTest::qWaitFor([&] { return sources.outNames().size() == 1; }));
    QVERIFY(sources.outNames().first().contains(u".part."_s));
    QCOMPARE(::kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), signal);
    QCOMPARE(sources.outNames(), QStringList());
}

void TestCatalogueBuild::noProgressWithoutTerminal()
{
    const SourceFolder sources;
    const CommandRun run = build(sources, sources.out(u"new.sqlite"_s));
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QString());
}

void TestCatalogueBuild::usage_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("message");
    QTest::newRow("no output") << QStringList{u"schema/sample"_s} << u"the file to write is not named: -o FILE"_s;
    QTest::newRow("no sources") << QStringList{u"-o"_s, u"x.sqlite"_s} << u"SOURCES is missing"_s;
}

void TestCatalogueBuild::usage()
{
    QFETCH(QStringList, words);
    QFETCH(QString, message);
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"build"_s} + words);
    run.run();
    QCOMPARE(run.status, 2);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(TestCatalogueBuild)
#include "tst_catalogue_build.moc"
