// SPDX-License-Identifier: LGPL-2.1-or-later
// The verb session, driven as a person or a program drives it.

#include "support/commandrun.h"
#include "support/textfile.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString roll = u"32100C0C8021004060000000"_s;

CommandRun session(const QStringList &words, const QByteArray &lines)
{
    CommandRun run = zrsupply(QStringList{u"session"_s} + words);
    run.input = lines;
    run.run();
    return run;
}

QList<QJsonObject> jsonLines(const QString &text)
{
    QList<QJsonObject> objects;
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8(), &error);
        if (error.error != QJsonParseError::NoError || !document.isObject())
            qFatal("no JSON object: %s", qPrintable(line));
        objects.append(document.object());
    }
    return objects;
}

/// What a member says in each object of one type.
QStringList said(const QList<QJsonObject> &objects, const QString &type, const QString &member)
{
    QStringList texts;
    for (const QJsonObject &object : objects) {
        if (object.value(u"type"_s) == type)
            texts.append(object.value(member).toVariant().toString());
    }
    return texts;
}

} // namespace

class SessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printsCallAnswerAndSignals();
    void readsAFile();
    void endsAtQuit();
    void answersLineByLine();
    void jsonObjects();
    void jsonErrors();
    void eventCalls_data();
    void eventCalls();
    void unmetExpectations_data();
    void unmetExpectations();
    void badLines_data();
    void badLines();
    void unusableFiles_data();
    void unusableFiles();
    void show();
    void showAnswers();
    void help();
    void terminal();
    void terminalGoesOnAfterErrors();
    void terminalHistory();
};

void SessionTest::printsCallAnswerAndSignals()
{
    const CommandRun run = session({}, "roll 32100C0C8021004060000000 # wide\ncall supplyWidth\ncheck combination\n");
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    // Two missing ribbons on a wide roll are an alert.
    QCOMPARE(run.out, u"roll 32100C0C8021004060000000 # wide\n"
                      "  call    setSupplyId \"32100C0C8021004060000000\"\n"
                      "  signal  supplyChangedSignal \"00144463\"\n"
                      "  signal  supplyPercentChanged -1\n"
                      "  signal  supplyRGBChanged \"16777215\"\n"
                      "  signal  notifySupplySensor 1\n"
                      "call supplyWidth\n"
                      "  call    supplyWidth\n"
                      "  answer  6\n"
                      "check combination\n"
                      "  call    checkRibbonSupplyCombo\n"
                      "  signal  alertInvalidRibbonsSupplyCombo\n"
                      "3 events, 0 expectations met\n"_s);
}

void SessionTest::readsAFile()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.session"_s);
    writeAll(path, u"# comment\r\n\r\ncall ribbonTagLength\r\nexpect answer 4725"_s); // no line end at the end
    const CommandRun run = session({path}, {});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out, u"# comment\n\ncall ribbonTagLength\n  call    ribbonTagLength\n  answer  4725\n"
                      "  ok      answer 4725\n1 events, 1 expectations met\n"_s);
    QCOMPARE(session({u"-"_s}, "call ribbonTagLength\n").status, 0);
}

void SessionTest::endsAtQuit()
{
    const CommandRun run = session({}, "call ribbonTagLength\nquit\nno event\n");
    QCOMPARE(run.status, 0);
    QVERIFY(run.out.endsWith(u"1 events, 0 expectations met\n"_s));
}

void SessionTest::answersLineByLine()
{
    // A program that plays the host reads the answer before it writes the next event.
    QProcess process;
    process.start(commandPath(), {u"session"_s, u"--catalogue"_s, sampleCatalogue()});
    for (const char *word : {"4725", "4725"}) {
        process.write("call ribbonTagLength\n");
        QByteArray seen;
        while (!seen.contains(word)) {
            QVERIFY2(process.waitForReadyRead(30000), seen.constData());
            seen += process.readAllStandardOutput();
        }
    }
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitCode(), 0);
}

void SessionTest::jsonObjects()
{
    const CommandRun run = session({u"--json"_s}, "# comment\nroll " + roll.toLatin1() +
                                                      "\nexpect supplyChangedSignal\ncall supplyRibbonsHeats 1,2 x\n"
                                                      "catalogue closed\nshow\n");
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    const QList<QJsonObject> objects = jsonLines(run.out);
    QCOMPARE(said(objects, u"event"_s, u"text"_s),
             QStringList({u"roll "_s + roll, u"call supplyRibbonsHeats 1,2 x"_s, u"catalogue closed"_s, u"show"_s}));
    QCOMPARE(said(objects, u"event"_s, u"line"_s), QStringList({u"2"_s, u"4"_s, u"5"_s, u"6"_s}));
    QCOMPARE(said(objects, u"call"_s, u"method"_s), QStringList({u"setSupplyId"_s, u"supplyRibbonsHeats"_s}));
    QCOMPARE(said(objects, u"signal"_s, u"signal"_s),
             QStringList({u"supplyChangedSignal"_s, u"supplyPercentChanged"_s, u"supplyRGBChanged"_s,
                          u"notifySupplySensor"_s}));
    QCOMPARE(said(objects, u"met"_s, u"expected"_s), QStringList{u"supplyChangedSignal"_s});
    for (const QJsonObject &object : objects) {
        if (object.value(u"signal"_s) == u"supplyChangedSignal"_s) {
            QCOMPARE(object.value(u"arguments"_s).toArray(), QJsonArray{u"00144463"_s});
            QCOMPARE(object.value(u"names"_s).toArray(), QJsonArray{u"sku"_s});
        }
        if (object.value(u"type"_s) == u"answer"_s)
            QCOMPARE(object.value(u"value"_s).toArray(), QJsonArray({-1, -1, -1, -1}));
        if (object.value(u"method"_s) == u"supplyRibbonsHeats"_s)
            QCOMPARE(object.value(u"arguments"_s).toArray(), QJsonArray({QJsonArray{u"1"_s, u"2"_s}, u"x"_s}));
        if (object.value(u"type"_s) == u"show"_s)
            QCOMPARE(object.value(u"roll"_s)[u"sku"_s].toString(), u"00144463"_s);
    }
    QCOMPARE(objects.last().value(u"type"_s).toString(), u"end"_s);
    QCOMPARE(objects.last().value(u"events"_s).toInt(), 4);
    QCOMPARE(objects.last().value(u"expectationsMet"_s).toInt(), 1);
}

void SessionTest::jsonErrors()
{
    const CommandRun run = session({u"--json"_s}, "mileage ribbon1 5\nexpect ribbon1PercentChanged 1\n");
    QCOMPARE(run.status, 1);
    QCOMPARE(run.error().value(u"line"_s).toInt(), 2);
    QCOMPARE(run.error().value(u"expected"_s).toString(), u"ribbon1PercentChanged 1"_s);
    QCOMPARE(run.error().value(u"seen"_s).toString(), u"ribbon1PercentChanged -1"_s);
    QCOMPARE(run.error().value(u"event"_s).toString(), u"mileage ribbon1 5"_s);
    QCOMPARE(jsonLines(run.out).size(), 3); // event, call, signal
}

void SessionTest::eventCalls_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("calls");

    QTest::newRow("roll") << QByteArray("roll AB") << QStringList{u"setSupplyId \"AB\""_s};
    QTest::newRow("quoted roll") << QByteArray("roll \"-1 \"") << QStringList{u"setSupplyId \"-1 \""_s};
    QTest::newRow("two ribbons") << QByteArray("ribbons 1 \"2,3\"") << QStringList{u"setRibbonIds [\"1\",\"2,3\"]"_s};
    QTest::newRow("one ribbon") << QByteArray("ribbons 1") << QStringList{u"setRibbonIds [\"1\"]"_s};
    QTest::newRow("roll mileage") << QByteArray("mileage roll 12") << QStringList{u"setSupplyMileage 12"_s};
    QTest::newRow("ribbon 1 mileage") << QByteArray("mileage ribbon1 -1") << QStringList{u"setRibbon1Mileage -1"_s};
    QTest::newRow("ribbon 2 mileage") << QByteArray("mileage ribbon2 0") << QStringList{u"setRibbon2Mileage 0"_s};
    QTest::newRow("language") << QByteArray("language 2") << QStringList{u"setLanguageId 2"_s};
    QTest::newRow("combination") << QByteArray("check combination") << QStringList{u"checkRibbonSupplyCombo"_s};
    QTest::newRow("clear tail") << QByteArray("check clear-tail") << QStringList{u"checkClearTail"_s};
    QTest::newRow("edge sensor") << QByteArray("check edge-sensor") << QStringList{u"checkSupplyEdgeSensor"_s};
    QTest::newRow("ribbon width") << QByteArray("check ribbon-width") << QStringList{u"checkRibbonWidth"_s};
    QTest::newRow("tensions") << QByteArray("check tensions") << QStringList{u"checkRibbonTensions"_s};
    QTest::newRow("check by its slot") << QByteArray("check checkClearTail") << QStringList{u"checkClearTail"_s};
    QTest::newRow("all checks") << QByteArray("check all")
                                << QStringList{u"checkRibbonSupplyCombo"_s, u"checkClearTail"_s,
                                               u"checkSupplyEdgeSensor"_s, u"checkRibbonWidth"_s,
                                               u"checkRibbonTensions"_s};
    QTest::newRow("call with a list") << QByteArray("call supplySetRibbonSKUs A,B,C")
                                      << QStringList{u"supplySetRibbonSKUs [\"A\",\"B\",\"C\"]"_s};
    QTest::newRow("call with defaults") << QByteArray("call supplyTypeIndex") << QStringList{u"supplyTypeIndex"_s};
    QTest::newRow("another catalogue") << QByteArray("catalogue none.sqlite")
                                       << QStringList{u"setup \"none.sqlite\""_s};
    QTest::newRow("closed catalogue") << QByteArray("catalogue closed") << QStringList();
    QTest::newRow("catalogue of the start")
        << QByteArray("catalogue start") << QStringList{u"setup \"%1\""_s.arg(sampleCatalogue())};
}

void SessionTest::eventCalls()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, calls);

    const CommandRun run = session({}, line + '\n');
    QCOMPARE(run.status, 0);
    QStringList found;
    for (const QString &row : run.out.split(u'\n')) {
        if (row.startsWith(u"  call    "_s))
            found.append(row.mid(10));
    }
    QCOMPARE(found, calls);
}

void SessionTest::unmetExpectations_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("error");

    QTest::newRow("another value")
        << QByteArray("roll " + roll.toLatin1() + "\n\nexpect supplyChangedSignal \"X\"\n")
        << u"zrsupply: line 3: expected supplyChangedSignal \"X\", seen supplyChangedSignal "
           "\"00144463\"\n  after the event: roll %1\n"_s.arg(roll);
    QTest::newRow("another signal") << QByteArray("mileage roll 5\nexpect supplyRGBChanged\n")
                                    << u"zrsupply: line 2: expected supplyRGBChanged, seen supplyPercentChanged -1\n"
                                       "  after the event: mileage roll 5\n"_s;
    QTest::newRow("silence")
        << QByteArray("check clear-tail\nexpect silence\n")
        << u"zrsupply: line 2: expected silence, seen notifyClearTailRibbon1 false (and 1 more)\n"
           "  after the event: check clear-tail\n"_s;
    QTest::newRow("a signal that did not come")
        << QByteArray("mileage roll 5\nexpect supplyPercentChanged\nexpect supplyPercentChanged\n")
        << u"zrsupply: line 3: expected supplyPercentChanged, seen silence\n  after the event: mileage roll 5\n"_s;
    QTest::newRow("signals of an earlier event are gone")
        << QByteArray("mileage roll 5\nlanguage 1\nexpect supplyPercentChanged\n")
        << u"zrsupply: line 3: expected supplyPercentChanged, seen silence\n  after the event: language 1\n"_s;
    QTest::newRow("answer") << QByteArray("call ribbonTagLength\nexpect answer 4724\n")
                            << u"zrsupply: line 2: expected answer 4724, seen answer 4725\n"
                               "  after the event: call ribbonTagLength\n"_s;
    QTest::newRow("before any event") << QByteArray("expect supplyPercentChanged\n")
                                      << u"zrsupply: line 1: expected supplyPercentChanged, seen silence\n"
                                         "  no event stands before it\n"_s;
}

void SessionTest::unmetExpectations()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, error);

    const CommandRun run = session({}, lines + "call ribbonTagLength\n");
    QCOMPARE(run.err, error);
    QCOMPARE(run.status, 1);
    QVERIFY(!run.out.contains(u"events, "_s)); // it ends there
}

void SessionTest::badLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("remedy");

    QTest::newRow("unknown event") << QByteArray("rol 1") << u"there is no event \"rol\""_s
                                   << u"did you mean roll?"_s;
    QTest::newRow("nothing like an event")
        << QByteArray("xyzzyx") << u"there is no event \"xyzzyx\""_s << u"the events are roll, ribbons"_s;
    QTest::newRow("roll without an id") << QByteArray("roll") << u"roll needs more words"_s << u"write: roll ID"_s;
    QTest::newRow("three ribbons") << QByteArray("ribbons 1 2 3") << u"\"3\" is one word too many"_s
                                   << u"write: ribbons ID [ID]"_s;
    QTest::newRow("unknown mileage") << QByteArray("mileage ribbon3 1") << u"there is no mileage \"ribbon3\""_s
                                     << u"did you mean ribbon1 or ribbon2?"_s;
    QTest::newRow("mileage that is no number")
        << QByteArray("mileage roll x") << u"mileage of setSupplyMileage is a whole number, not x"_s
        << u"it takes: setSupplyMileage int mileage"_s;
    QTest::newRow("unknown check") << QByteArray("check tension") << u"there is no check \"tension\""_s
                                   << u"did you mean tensions?"_s;
    QTest::newRow("unknown method") << QByteArray("call setRibbonId 1") << u"there is no method \"setRibbonId\""_s
                                    << u"did you mean setRibbonIds"_s;
    QTest::newRow("wrong number of arguments")
        << QByteArray("call setSupplyId") << u"setSupplyId does not take 0 arguments"_s
        << u"it takes: setSupplyId QString supplyId"_s;
    QTest::newRow("call of nothing") << QByteArray("call") << u"call does not say what"_s << u"write: call METHOD"_s;
    QTest::newRow("unknown signal") << QByteArray("expect supplyChanged") << u"there is no signal \"supplyChanged\""_s
                                    << u"did you mean"_s;
    QTest::newRow("open quotes") << QByteArray("roll \"12") << u"\"12 has quotes that are not closed"_s
                                 << u"close them"_s;
    QTest::newRow("help about what is not there")
        << QByteArray("help slots") << u"there is no help about \"slots\""_s << u"write: help [methods|signals]"_s;
}

void SessionTest::badLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, message);
    QFETCH(QString, remedy);

    const CommandRun run = session({u"--json"_s}, "call ribbonTagLength\n\n" + line + "\ncall ribbonTagLength\n");
    QCOMPARE(run.status, 2);
    QCOMPARE(run.error().value(u"message"_s).toString(), u"line 3: "_s + message);
    QVERIFY2(run.error().value(u"remedy"_s).toString().startsWith(remedy), qPrintable(run.err));
    QCOMPARE(run.error().value(u"line"_s).toInt(), 3);
    QCOMPARE(jsonLines(run.out).size(), 3); // only the first line's event, call and answer
}

void SessionTest::unusableFiles_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("message");

    QTest::newRow("no such session") << QStringList{u"session"_s, u"none.session"_s}
                                     << u"none.session cannot be read: No such file or directory"_s;
    QTest::newRow("a folder") << QStringList{u"session"_s, u"/"_s} << u"/ is a folder, not a session file"_s;
    QTest::newRow("no such recording") << QStringList{u"replay"_s, u"none.session"_s}
                                       << u"none.session cannot be read: No such file or directory"_s;
    QTest::newRow("recording into no folder") << QStringList{u"session"_s, u"--record"_s, u"/none/x.session"_s}
                                              << u"/none/x.session cannot be written: No such file or directory"_s;
    QTest::newRow("no catalogue") << QStringList{u"session"_s, u"--catalogue"_s, u"none.sqlite"_s}
                                  << u"there is no file none.sqlite"_s;
}

void SessionTest::unusableFiles()
{
    QFETCH(QStringList, words);
    QFETCH(QString, message);

    CommandRun run = zrsupply(words + QStringList{u"--json"_s});
    QCOMPARE(run.run().status, 1);
    QCOMPARE(run.error().value(u"message"_s).toString(), message);
    QVERIFY(!run.error().value(u"remedy"_s).toString().isEmpty());
}

void SessionTest::show()
{
    const CommandRun run = session({}, "roll " + roll.toLatin1() + "\nribbons 14 5\nmileage roll 18288\nshow\n");
    QCOMPARE(run.status, 0);
    const QString shown = run.out.mid(run.out.indexOf(u"\nshow\n"_s));
    for (const QString &part :
         {u"00144463"_s, u"White Vinyl, 6 in wide, Orange stripe of 1 1/2 in"_s, u"████████████░░░░░░░░  60.0 %"_s,
          u"#FFFFFF White"_s, u"RW530901"_s, u"Green Resin, 2 1/4 in wide"_s, u"····················  not known"_s,
          u"ribbon 2 does not suit the roll: R530905 is 2 1/4 in wide, under 4 1/2 in"_s, u"8 and 5"_s})
        QVERIFY2(shown.contains(part), qPrintable(part + u"\n"_s + shown));
    QVERIFY(!shown.contains(u"signal"_s)); // looking announces nothing
}

void SessionTest::showAnswers()
{
    // Showing leaves what the event before it announced, and can itself be expected.
    const CommandRun seen = session({u"--json"_s}, "show\n");
    QJsonObject state = jsonLines(seen.out).at(1);
    state.remove(u"type"_s);
    state.remove(u"line"_s);
    const QByteArray text = QJsonDocument(state).toJson(QJsonDocument::Compact);
    const CommandRun run =
        session({}, "mileage roll 5\nshow\nexpect supplyPercentChanged\nexpect answer " + text + '\n');
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    QCOMPARE(session({}, "show\nexpect answer {}\n").status, 1);
}

void SessionTest::help()
{
    const CommandRun events = session({}, "help\n");
    for (const QString &word : {u"roll ID"_s, u"expect SIGNAL"_s, u"catalogue FILE"_s, u"quit"_s})
        QVERIFY2(events.out.contains(word), qPrintable(word));
    const CommandRun methods = session({}, "help methods\n");
    QVERIFY(methods.out.contains(u"  supplyRibbonHeat QString ribbonSku, int panel, QString supplySku -> int\n"_s));
    QVERIFY(methods.out.contains(u"  checkRibbonTensions\n"_s));
    QCOMPARE(methods.out.count(u"supplyTypeIndex "_s), 1);
    const CommandRun known = session({}, "help signals\n");
    QCOMPARE(known.out.count(u"\n  "_s), 19);
}

namespace {

struct TerminalRun
{
    int status = -1;
    QString out;
};

/// A session at a terminal of its own; each entry of `typed` is typed when the prompt stands there, then Ctrl-D.
TerminalRun atTerminal(const QString &home, const QByteArrayList &typed)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TERM"_s, u"xterm"_s);
    environment.insert(u"HOME"_s, home);
    environment.insert(u"ZRSUPPLY_CATALOGUE"_s, sampleCatalogue());
    environment.remove(u"XDG_STATE_HOME"_s);
    process.setProcessEnvironment(environment);
    process.start(u"script"_s, {u"-qec"_s, commandPath() + u" session"_s, u"/dev/null"_s});

    QByteArray seen;
    for (const QByteArray &line : typed) {
        const QByteArray sofar = seen;
        while (!seen.mid(sofar.size()).contains("zrsupply> ")) {
            if (!process.waitForReadyRead(30000))
                qFatal("no prompt: %s", seen.constData());
            seen += process.readAllStandardOutput();
        }
        process.write(line);
    }
    // The prompt is there a moment before the terminal hands over single keys, and a Ctrl-D in between is lost.
    for (int attempt = 0; attempt < 100 && !process.waitForFinished(300); ++attempt)
        process.write("\x04");
    if (process.state() != QProcess::NotRunning)
        qFatal("the session does not end: %s", seen.constData());
    return {process.exitCode(), QString::fromUtf8(seen + process.readAllStandardOutput())};
}

} // namespace

void SessionTest::terminal()
{
    QTemporaryDir home;
    // The tab key completes the event and the method.
    const TerminalRun run = atTerminal(home.path(), {"cal\tribbonTagL\t\n"});
    QCOMPARE(run.status, 0);
    QVERIFY2(run.out.contains(u"zrsupply> "_s), qPrintable(run.out));
    QVERIFY2(run.out.contains(u"\n  call    ribbonTagLength\r\n"_s), qPrintable(run.out));
    QVERIFY2(run.out.contains(u"  answer  4725\r\n"_s), qPrintable(run.out));
}

void SessionTest::terminalGoesOnAfterErrors()
{
    QTemporaryDir home;
    const TerminalRun mistyped = atTerminal(home.path(), {"rol 1\n", "call ribbonTagLength\n"});
    QCOMPARE(mistyped.status, 0);
    QVERIFY2(mistyped.out.contains(u"did you mean roll?"_s), qPrintable(mistyped.out));
    QVERIFY2(mistyped.out.contains(u"  answer  4725\r\n"_s), qPrintable(mistyped.out));

    const TerminalRun unmet =
        atTerminal(home.path(), {"expect supplyPercentChanged\n", "call ribbonTagLength\n", "quit\n"});
    QCOMPARE(unmet.status, 1);
    QVERIFY2(unmet.out.contains(u"seen silence"_s), qPrintable(unmet.out));
    QVERIFY2(unmet.out.contains(u"  answer  4725\r\n"_s), qPrintable(unmet.out));
}

void SessionTest::terminalHistory()
{
    QTemporaryDir home;
    atTerminal(home.path(), {"call ribbonTagLength\n"});
    QVERIFY(readAll(home.filePath(u".local/state/zrsupply/history"_s)).contains(u"ribbonTagLength"_s));
    // Another session, the line before by ^P.
    const TerminalRun run = atTerminal(home.path(), {"\x10\n"});
    QVERIFY2(run.out.contains(u"  answer  4725\r\n"_s), qPrintable(run.out));
}

QTEST_GUILESS_MAIN(SessionTest)

#include "tst_session.moc"
