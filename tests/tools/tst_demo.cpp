// SPDX-License-Identifier: LGPL-2.1-or-later
// The verb demo: a tour that a person can watch and a program can read.

#include "support/commandrun.h"

#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

class DemoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheWholeJob_data();
    void tellsTheWholeJob();
    void fitsTwoScreens();
    void showsColoursOnRequest();
    void speaksJson();
    void speaksOtherLanguages();
    void needsTheSample();
};

void DemoTest::tellsTheWholeJob_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("start") << u"81 rolls and 29 ribbons on offer"_s;
    QTest::newRow("tag") << u"Orange, 1 1/2 in wide"_s;
    QTest::newRow("roll") << u"> supplyChangedSignal \"00144463\""_s;
    QTest::newRow("sensor") << u"roll 00144463 needs sensor 1 (EDGE)"_s;
    QTest::newRow("ribbons") << u"> ribbonChangedSignal [\"RW530901\",\"RW530903\"]"_s;
    QTest::newRow("full roll") << u"████████████████████ 100.0 %"_s;
    QTest::newRow("low roll") << u"8.0 % low"_s;
    QTest::newRow("wrong ribbon") << u"> alertInvalidRibbon2SupplyCombo"_s;
    QTest::newRow("why it is wrong") << u"R530905 is 2 1/4 in wide, under 4 1/2 in;"_s;
    QTest::newRow("where that stands") << u"ribbon: row R530905"_s;
    QTest::newRow("unknown roll") << u"> supplyChangedSignal \"UnknownSupply\""_s;
    QTest::newRow("answered from its tag") << u"in no catalogue: Brown Vinyl, 6 in wide"_s;
    QTest::newRow("reset") << u"> supplyChangedSignal \"-1\""_s;
}

void DemoTest::tellsTheWholeJob()
{
    QFETCH(QString, text);

    static const QString out = zrsupply({u"demo"_s}).run().out;
    QVERIFY2(out.contains(text), qPrintable(out));
}

void DemoTest::fitsTwoScreens()
{
    CommandRun run = zrsupply({u"demo"_s});
    QCOMPARE(run.run().status, 0);
    QVERIFY(run.err.isEmpty());
    QVERIFY(!run.out.contains(u'\033'));
    const QStringList lines = run.out.split(u'\n');
    QVERIFY(lines.size() <= 80);
    for (const QString &line : lines) {
        const bool isPath = line.contains(sampleCatalogue());
        QVERIFY2(isPath || line.size() <= 110, qPrintable(line));
        QVERIFY2(!line.endsWith(u' '), qPrintable(line));
    }
}

void DemoTest::showsColoursOnRequest()
{
    CommandRun run = zrsupply({u"demo"_s, u"--color"_s, u"always"_s});
    QCOMPARE(run.run().status, 0);
    QVERIFY(run.out.contains(u"\033[48;2;255;106;19m"_s)); // the stripe's orange, #FF6A13
}

void DemoTest::speaksJson()
{
    CommandRun run = zrsupply({u"demo"_s, u"--json"_s});
    QCOMPARE(run.run().status, 0);
    const QJsonArray steps = run.json().value(u"steps"_s).toArray();
    QCOMPARE(steps.size(), 8);
    for (const QJsonValue &step : steps) {
        QVERIFY(!step[u"title"_s].toString().isEmpty());
        QVERIFY(!step[u"rows"_s].toArray().isEmpty());
    }
}

void DemoTest::speaksOtherLanguages()
{
    CommandRun run = zrsupply({u"demo"_s, u"--language"_s, u"1"_s});
    QCOMPARE(run.run().status, 0);
    QVERIFY(run.out.contains(u"Weiß"_s));
}

void DemoTest::needsTheSample()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"other.sqlite"_s);
    QVERIFY(QFile::copy(sampleCatalogue(), path));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    QProcess sqlite;
    sqlite.start(u"sqlite3"_s, {path, u"DELETE FROM roll WHERE itemNum='00144463'"_s});
    QVERIFY(sqlite.waitForFinished());
    QCOMPARE(sqlite.exitCode(), 0);

    CommandRun run = zrsupply({u"demo"_s, u"--catalogue"_s, path, u"--json"_s});
    QCOMPARE(run.run().status, 1);
    QVERIFY(run.out.isEmpty());
    QVERIFY(run.error()
                .value(u"message"_s)
                .toString()
                .endsWith(u"is not the sample catalogue, which the demo is about"_s));
}

QTEST_GUILESS_MAIN(DemoTest)

#include "tst_demo.moc"
