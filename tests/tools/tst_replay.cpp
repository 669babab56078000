// SPDX-License-Identifier: LGPL-2.1-or-later
// Recordings of sessions and the verb replay.

#include "support/commandrun.h"
#include "support/textfile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
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

} // namespace

class ReplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordsAndReplays();
    void recordingIsASession();
    void recordingOfEveryExample_data();
    void recordingOfEveryExample();
    void replayReportsTheFirstDifference_data();
    void replayReportsTheFirstDifference();
    void replayOfNothing();
    void recordingLosesNothing();
};

void ReplayTest::recordsAndReplays()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.session"_s);
    const CommandRun run = session({u"--record"_s, path, u"--language"_s, u"1"_s},
                                   "# at the printer\nroll " + roll.toLatin1() +
                                       "\nexpect supplyChangedSignal\ncall supplyColorName 00144463\ncheck all\n"
                                       "call supplyBackgroundImage 00144463\nshow\ncatalogue closed\n"
                                       "call supplyWidth 00144463\nhelp\n");
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    const QStringList lines = readAll(path).split(u'\n');
    QVERIFY(lines[0].startsWith(u"# Recorded by zrsupply "_s));
    QCOMPARE(lines[1], u"# Catalogue: "_s + sampleCatalogue());
    QCOMPARE(lines.mid(2, 11),
             QStringList({u"language 1"_s, u"# at the printer"_s, u"roll "_s + roll,
                          u"expect supplyChangedSignal \"00144463\""_s, u"expect supplyPercentChanged -1"_s,
                          u"expect supplyRGBChanged \"16777215\""_s, u"expect notifySupplySensor 1"_s,
                          u"expect silence"_s, u"# expect supplyChangedSignal"_s, u"call supplyColorName 00144463"_s,
                          u"expect answer \"Weiß\""_s}));

    CommandRun replay = zrsupply({u"replay"_s, path});
    QCOMPARE(replay.run().err, QString());
    QCOMPARE(replay.status, 0);
    QCOMPARE(replay.out, u"8 events, 20 values compared: all the same\n"_s);
    CommandRun json = zrsupply({u"replay"_s, path, u"--json"_s});
    QCOMPARE(json.run().json(), (QJsonObject{{u"events"_s, 8}, {u"compared"_s, 20}, {u"same"_s, true}}));
}

void ReplayTest::recordingIsASession()
{
    QTemporaryDir folder;
    const QString first = folder.filePath(u"first.session"_s);
    const QString second = folder.filePath(u"second.session"_s);
    QCOMPARE(session({u"--record"_s, first}, "roll " + roll.toLatin1() + "\nribbons 1 20\n").status, 0);
    QCOMPARE(session({first, u"--record"_s, second}, {}).status, 0);
    QCOMPARE(session({second}, {}).status, 0);
}

void ReplayTest::recordingOfEveryExample_data()
{
    QTest::addColumn<QString>("path");

    const QDir examples(sourcePath(u"tools/sessions"_s));
    const QStringList files = examples.entryList({u"*.session"_s});
    QVERIFY(files.size() >= 10);
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << examples.filePath(file);
}

void ReplayTest::recordingOfEveryExample()
{
    QFETCH(QString, path);

    QTemporaryDir folder;
    const QString recorded = folder.filePath(u"a.session"_s);
    QCOMPARE(session({path, u"--record"_s, recorded}, {}).status, 0);
    CommandRun replay = zrsupply({u"replay"_s, recorded});
    QVERIFY2(replay.run().status == 0, qPrintable(replay.err));
}

void ReplayTest::replayReportsTheFirstDifference_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("error");

    QTest::newRow("changed value") << u"expect notifySupplySensor 1"_s << u"expect notifySupplySensor 2"_s
                                   << u"line 7: recorded notifySupplySensor 2, now notifySupplySensor 1"_s;
    QTest::newRow("changed answer") << u"expect answer 6"_s << u"expect answer 5.5"_s
                                    << u"line 10: recorded answer 5.5, now answer 6"_s;
    QTest::newRow("a signal more") << u"expect notifySupplySensor 1\n"_s << QString()
                                   << u"line 7: recorded silence, now notifySupplySensor 1"_s;
    QTest::newRow("a signal less") << u"expect silence\ncall"_s << u"expect supplyRGBChanged \"0\"\ncall"_s
                                   << u"line 8: recorded supplyRGBChanged \"0\", now silence"_s;
    QTest::newRow("the first of two") << u" 1\nexpect silence\ncall supplyWidth\nexpect answer 6"_s
                                      << u" 3\nexpect silence\ncall supplyWidth\nexpect answer 7"_s
                                      << u"line 7: recorded notifySupplySensor 3, now notifySupplySensor 1"_s;
}

void ReplayTest::replayReportsTheFirstDifference()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, error);

    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.session"_s);
    QCOMPARE(session({u"--record"_s, path}, "roll " + roll.toLatin1() + "\ncall supplyWidth\n").status, 0);
    const QString recorded = readAll(path);
    QCOMPARE(recorded.count(from), 1);
    writeAll(path, QString(recorded).replace(from, to));

    CommandRun replay = zrsupply({u"replay"_s, path});
    QCOMPARE(replay.run().status, 1);
    QCOMPARE(replay.out, QString());
    QCOMPARE(replay.err.section(u'\n', 0, 0), u"zrsupply: %1, %2"_s.arg(path, error));
    CommandRun json = zrsupply({u"replay"_s, path, u"--json"_s});
    QCOMPARE(json.run().status, 1);
    QVERIFY(error.endsWith(u"now "_s + json.error().value(u"now"_s).toString()));
    QVERIFY(!json.error().value(u"event"_s).toString().isEmpty());
}

void ReplayTest::replayOfNothing()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.session"_s);
    writeAll(path, u"call ribbonTagLength\n"_s);
    CommandRun replay = zrsupply({u"replay"_s, path});
    QCOMPARE(replay.run().status, 1);
    QVERIFY(replay.err.contains(u"holds nothing to compare with"_s));
    writeAll(path, u"expect silence\nno event\n"_s);
    QCOMPARE(zrsupply({u"replay"_s, path}).run().status, 2);
}

void ReplayTest::recordingLosesNothing()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.session"_s);
    // What came before a bad line stands in the recording; the bad line does not.
    QCOMPARE(session({u"--record"_s, path}, "call ribbonTagLength\nrol 1\n").status, 2);
    const QString recorded = readAll(path);
    QVERIFY(recorded.endsWith(u"call ribbonTagLength\nexpect answer 4725\nexpect silence\n"_s));

    // A recording is not written over.
    const CommandRun again = session({u"--record"_s, path}, "call ribbonTagLength\n");
    QCOMPARE(again.status, 1);
    QVERIFY(again.err.contains(u"is there already and would be lost"_s));
    QCOMPARE(readAll(path), recorded);
}

QTEST_GUILESS_MAIN(ReplayTest)

#include "tst_replay.moc"
