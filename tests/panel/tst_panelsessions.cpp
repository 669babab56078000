// SPDX-License-Identifier: LGPL-2.1-or-later
// Sessions: what the panel saves replays with the command, and what the command plays the panel plays.

#include "panelfixture.h"

#include "support/textfile.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Run
{
    int status = -1;
    QString out;
    QString err;
};

Run command(const QStringList &words)
{
    QProcess process;
    process.start(qEnvironmentVariable("ZRSUPPLY_TEST_COMMAND"), words);
    if (!process.waitForFinished())
        qFatal("zrsupply does not end");
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Run replay(const QString &path)
{
    return command({u"replay"_s, path, u"--catalogue"_s, sampleCatalogue()});
}

} // namespace

class PanelSessionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedSessionReplays();
    void savedSessionOfABadStartReplays();
    void savedSessionIsPlayedAgain();
    void differenceIsFound();
    void notSaved();
    void playsEveryExample_data();
    void playsEveryExample();
    void playsAtItsPace();
    void stopsAtTheFirstDifference();
    void stopsWhenTold();
    void quitEndsASession();
    void notPlayed();
    void droppedFiles();
};

void PanelSessionsTest::savedSessionReplays()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"monday.session"_s);
    PanelFixture panel;
    panel->chooseLanguage(1);
    panel->loadRoll(u"143221-EU"_s);
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->loadRibbon(2, u"R530905"_s);
    panel->choosePrinter(2);
    QTest::qWait(80);
    for (int mm = 30000; mm > 0; mm -= 4321) {
        panel->setRollMileage(mm);
        panel->setRibbonMileage(2, mm);
    }
    panel->runChecks();
    panel->openCatalogue(sampleCatalogue());
    panel->tag()->setText(u"3233C08C8022804042451300"_s);
    panel->loadTag();
    panel->reset();
    panel->loadRoll(u"00144724"_s);
    panel->openCatalogue(u"/no/such/file"_s);
    panel->saveSession(path);
    QCOMPARE(panel->banners()->title(), u"The log is saved"_s);

    const QString text = readAll(path);
    QVERIFY(text.startsWith(u"# Saved by zrsupply-panel "_s));
    QVERIFY(text.contains(u"# Catalogue: "_s + sampleCatalogue()));
    QVERIFY2(text.contains(QRegularExpression(u"\n# after 0\\.\\d\\d s\nmileage roll 30000\n"_s)), qPrintable(text));
    QVERIFY(text.contains(u"expect alertInvalidRibbon2SupplyCombo\nexpect silence\n"_s));
    QVERIFY(!text.contains(u"/no/such/file"_s));
    const Run run = replay(path);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    QVERIFY2(run.out.contains(u"all the same"_s), qPrintable(run.out));
}

void PanelSessionsTest::savedSessionOfABadStartReplays()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bad start.session"_s);
    panel::Controller panel;
    panel.openCatalogue(folder.path());
    panel.tag()->setText(u"3200000C8020824060000000"_s);
    panel.loadTag();
    panel.openCatalogue(sampleCatalogue());
    panel.loadRibbon(1, u"R530901"_s);
    panel.saveSession(path);
    const Run run = replay(path);
    QVERIFY2(run.status == 0, qPrintable(run.err + readAll(path)));
}

void PanelSessionsTest::savedSessionIsPlayedAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"again.session"_s);
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->loadRibbon(1, u"RW530901"_s);
    panel->setRollMileage(15240);
    panel->saveSession(path);
    panel->reset();
    panel->setSpeed(0.0);
    panel->playSession(path);
    QTRY_VERIFY(!panel->isPlaying());
    QVERIFY2(panel.banner(u"mishap"_s).title.isEmpty(), qPrintable(panel.banner(u"mishap"_s).reason));
    QCOMPARE(panel->roll()->sku(), u"00144463"_s);
    QCOMPARE(panel->roll()->remainingPercent(), u"50 %"_s);
    QVERIFY(panel.logged(u"met"_s).contains(u"ribbonChangedSignal [\"RW530901\",\"-1\"]"_s));
    // The whole of it, the playing included, is a session too.
    panel->saveSession(path);
    const Run run = replay(path);
    QVERIFY2(run.status == 0, qPrintable(run.err));
}

void PanelSessionsTest::differenceIsFound()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"changed.session"_s);
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->saveSession(path);
    QString text = readAll(path);
    text.replace(u"\"00144463\""_s, u"\"00143465\""_s);
    writeAll(path, text);
    QCOMPARE(replay(path).status, 1);
}

void PanelSessionsTest::notSaved()
{
    PanelFixture panel;
    panel->saveSession(u"/no/such/folder/a.session"_s);
    QCOMPARE(panel->banners()->title(), u"The log is not saved"_s);
    QVERIFY(panel.banner(u"mishap"_s).reason.contains(u"/no/such/folder/a.session"_s));
    QVERIFY(panel.banner(u"mishap"_s).remedy.contains(u"folder"_s));
}

void PanelSessionsTest::playsEveryExample_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(sourcePath(u"tools/sessions"_s));
    for (const QString &name : folder.entryList({u"*.session"_s}))
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

void PanelSessionsTest::playsEveryExample()
{
    QFETCH(QString, path);
    PanelFixture panel;
    // Something was done before: a session begins with a printer that knows nothing all the same.
    panel->loadRoll(u"00144884"_s);
    panel->setRollMileage(500);
    panel->setRibbonMileage(1, 500);
    panel->loadRibbon(2, u"R530951"_s);
    panel->setSpeed(0.0);
    panel->playSession(path);
    QVERIFY(panel->isPlaying());
    QTRY_VERIFY_WITH_TIMEOUT(!panel->isPlaying(), 20000);
    QVERIFY2(panel.banner(u"mishap"_s).title.isEmpty(), qPrintable(panel.banner(u"mishap"_s).reason));
    QVERIFY(panel.logged(u"met"_s).size() > 3);
    QCOMPARE(panel->progress(), 1.0);
}

void PanelSessionsTest::playsAtItsPace()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"slow.session"_s);
    writeAll(path, u"# a remark\nroll 3200000C8020804041410000\nexpect supplyChangedSignal\n"
                   "# after 0.60 s\nmileage roll 15240\n# after 0.60 s\nmileage roll 0\n"_s);
    PanelFixture panel;
    QElapsedTimer timer;
    timer.start();
    panel->playSession(path);
    QTRY_COMPARE(panel->roll()->sku(), u"00143465"_s);
    QVERIFY(panel->isPlaying()); // the pauses are still to come
    QTRY_COMPARE(panel->roll()->remainingWord(), u"Empty"_s);
    QVERIFY2(timer.elapsed() >= 1190, qPrintable(QString::number(timer.elapsed())));
    QTRY_VERIFY(!panel->isPlaying());

    timer.start();
    panel->setSpeed(4.0);
    panel->playSession(path);
    QTRY_COMPARE(panel->roll()->remainingWord(), u"Empty"_s);
    QVERIFY2(timer.elapsed() >= 290, qPrintable(QString::number(timer.elapsed())));
}

void PanelSessionsTest::stopsAtTheFirstDifference()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"wrong.session"_s);
    writeAll(path, u"roll 3200000C8020804041410000\nexpect supplyChangedSignal \"other\"\nmileage roll 0\n"_s);
    PanelFixture panel;
    panel->setSpeed(0.0);
    panel->playSession(path);
    QTRY_VERIFY(!panel->isPlaying());
    QCOMPARE(panel->banners()->title(), u"The session stopped"_s);
    QVERIFY2(panel.banner(u"mishap"_s).reason.startsWith(u"Line 2: expected"_s),
             qPrintable(panel.banner(u"mishap"_s).reason));
    QCOMPARE(panel->roll()->remainingWord(), u"No reading"_s);
    writeAll(path, u"rol 3200\n"_s);
    panel->playSession(path);
    QTRY_VERIFY(!panel->isPlaying());
    QVERIFY(panel.banner(u"mishap"_s).reason.contains(u"there is no event \"rol\""_s));
    QVERIFY(panel.banner(u"mishap"_s).remedy.contains(u"Did you mean roll"_s));
}

void PanelSessionsTest::stopsWhenTold()
{
    PanelFixture panel;
    QSignalSpy changes(&*panel, &panel::Controller::playingChanged);
    panel->playSession(sourcePath(u"tools/sessions/good-roll.session"_s));
    QVERIFY(panel->isPlaying());
    panel->stopPlaying();
    QVERIFY(!panel->isPlaying());
    QCOMPARE(changes.size(), 2);
    const int events = panel->log()->events();
    QTest::qWait(50);
    QCOMPARE(panel->log()->events(), events);
}

void PanelSessionsTest::quitEndsASession()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"quit.session"_s);
    writeAll(path, u"roll 3200000C8020804041410000\nquit\nroll -1\n"_s);
    PanelFixture panel;
    panel->setSpeed(0.0);
    for (int time = 0; time < 2; ++time) {
        panel->playSession(path);
        QTRY_VERIFY(!panel->isPlaying());
        QCOMPARE(panel->roll()->sku(), u"00143465"_s);
    }
}

void PanelSessionsTest::notPlayed()
{
    PanelFixture panel;
    panel->loadRoll(u"00144463"_s);
    panel->playSession(u"/no/such.session"_s);
    QCOMPARE(panel->banners()->title(), u"This session cannot be played"_s);
    QVERIFY(!panel->isPlaying());
    QCOMPARE(panel->roll()->sku(), u"00144463"_s);
}

void PanelSessionsTest::droppedFiles()
{
    PanelFixture panel;
    panel->setSpeed(0.0);
    panel->takeFile(QUrl::fromLocalFile(sourcePath(u"tools/sessions/good-roll.session"_s)));
    QVERIFY(panel->isPlaying());
    QTRY_VERIFY(!panel->isPlaying());
    panel->takeFile(QUrl::fromLocalFile(sourcePath(u"README.md"_s)));
    QCOMPARE(panel->banners()->title(), u"This file cannot be used"_s);
    panel->takeFile(QUrl::fromLocalFile(sampleCatalogue()));
    QVERIFY(panel.banner(u"mishap"_s).title.isEmpty());
}

QTEST_MAIN(PanelSessionsTest)
#include "tst_panelsessions.moc"
