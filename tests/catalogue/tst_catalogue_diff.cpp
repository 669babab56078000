// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/scriptrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CommandRun diff(const QStringList &words)
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"diff"_s} + words);
    run.run();
    return run;
}

/// All differences as lines: "rolls removed 00143228!", with a mark for one that breaks something.
QStringList linesOf(const QJsonObject &report)
{
    QStringList lines;
    const QJsonObject subjects = report[u"changes"_s].toObject();
    for (const QString &subject : subjects.keys()) {
        for (const QString &kind : {u"removed"_s, u"added"_s, u"changed"_s}) {
            for (const QJsonValue &change : subjects[subject][kind].toArray()) {
                QString line = subject + u' ' + kind + u' ' + change[u"key"_s].toString();
                if (kind == "changed"_L1) {
                    line += u": %1 %2 -> %3"_s.arg(change[u"field"_s].toString(),
                                                   change[u"before"_s].toVariant().toString(),
                                                   change[u"after"_s].toVariant().toString());
                }
                lines.append(line + (change[u"breaks"_s].isUndefined() ? u""_s : u"!"_s));
            }
        }
    }
    return lines;
}

} // namespace

/// `zrsupply catalogue diff`: what differs, no more and no less, and what of it breaks who has the old catalogue.
class TestCatalogueDiff : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differences_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("lines");

        const auto row = [](const char *name, const QString &script, const QStringList &lines) {
            QTest::newRow(name) << script << lines;
        };
        row("nothing", u""_s, {});
        row("a new roll",
            u"INSERT INTO roll SELECT '00149999', '3220000C802080807FFF', materialWidthId, colorId, landscape, nUpCount,"
            " supplysensorId, backgroundId FROM roll WHERE itemNum = '00143228';"_s,
            {u"rolls added 00149999"_s});
        row("a roll that is gone", u"DELETE FROM roll WHERE itemNum = '00143228';"_s, {u"rolls removed 00143228!"_s});
        row("a roll with another SKU", u"UPDATE roll SET itemNum = '00149999' WHERE itemNum = '00143228';"_s,
            {u"rolls removed 00143228!"_s, u"rolls added 00149999"_s});
        row("another colour", u"UPDATE roll SET colorId = 4 WHERE itemNum = '00143228';"_s,
            {u"rolls changed 00143228: colour 2 -> 4"_s});
        row("another supply id", u"UPDATE roll SET supplyId = '3220000C802080807FFF' WHERE itemNum = '00143228';"_s,
            {u"rolls changed 00143228: supplyId 3220000C802080801000 -> 3220000C802080807FFF!"_s});
        row("a sensor no longer needed", u"UPDATE roll SET supplysensorId = NULL WHERE itemNum = '00143228';"_s,
            {u"rolls changed 00143228: sensor 1 -> "_s});
        row("a width, by the row that rolls share", u"UPDATE materialwidth SET width = 1.5 WHERE id = 13;"_s,
            {u"rolls changed 144251: width 0.75 -> 1.5"_s, u"rolls changed 144285: width 0.75 -> 1.5"_s,
             u"rolls changed 144305: width 0.75 -> 1.5"_s});
        row("a stripe", u"UPDATE continuousstripe SET secColorWidth = 0.5 WHERE itemNum = '00144314';"_s,
            {u"rolls changed 00144314: stripeWidth 0.25 -> 0.5"_s});
        row("a separator", u"UPDATE noncontinuous SET separatorWidth = 0.125 WHERE itemNum = '00144617';"_s,
            {u"rolls changed 00144617: separatorWidth 0.0625 -> 0.125"_s});
        row("a material by another name",
            u"UPDATE materialTS SET name = 'PVC' WHERE materialId = 1 AND languageId = 0;"_s,
            {u"names changed material 1, language 0: name Vinyl -> PVC"_s});
        row("a name that is gone", u"DELETE FROM formatTS WHERE formatId = 5 AND languageId = 4;"_s,
            {u"names removed format 5, language 4!"_s});
        row("a ribbon's length", u"UPDATE ribbon SET length = 9450.0 WHERE id = 1;"_s,
            {u"ribbons changed R530901: length 4725 -> 9450"_s});
        row("a heat", u"UPDATE ribbon_heat SET heat = 99, max_speed = 80 WHERE ribbonId = 1 AND materialId = 1;"_s,
            {u"ribbonHeats changed R530901, panel 1, material 1: heat 104 -> 99"_s,
             u"ribbonHeats changed R530901, panel 1, material 1: maxSpeed 75 -> 80"_s});
        row("a panel's colour", u"UPDATE ribbon_panel SET colorId = 5 WHERE ribbonId = 22 AND panel = 2;"_s,
            {u"ribbonPanels changed R530951, panel 2: colour 3 -> 5"_s});
        row("a ribbon with another id",
            u"UPDATE ribbon SET id = 99 WHERE id = 18; UPDATE ribbon_panel SET ribbonId = 99 WHERE ribbonId = 18;"
            " UPDATE ribbon_heat SET ribbonId = 99 WHERE ribbonId = 18;"_s,
            {u"ribbons changed R530941: id 18 -> 99!"_s});
        row("a stripe code", u"UPDATE color SET secId = NULL WHERE id = 10;"_s,
            {u"colours changed 10: stripeCode 10 -> !"_s});
        row("an RGB value", u"UPDATE ribbon_color SET rgbValue = 1 WHERE id = 3;"_s,
            {u"ribbonColours changed 3: rgb 13772336 -> 1"_s});
        row("a format's type", u"UPDATE format SET type = 'Label' WHERE id = 5;"_s,
            {u"formats changed 5: type DieCut -> Label"_s});
        row("a sensor's name", u"UPDATE supplysensor SET supplysensortype = 'HOLE' WHERE id = 4;"_s,
            {u"sensors changed 4: type NOTCH -> HOLE!"_s});
        row("a picture", u"UPDATE background SET svg = CAST(CAST(svg AS TEXT) || ' ' AS BLOB) WHERE id = 1;"_s,
            {u"pictures changed 1: svg 613 bytes -> 614 bytes"_s});
        row("a version", u"UPDATE meta SET value = '9.9.9' WHERE key = 'dataset_version';"_s,
            {u"meta changed dataset_version: value 1.0.0 -> 9.9.9"_s});
    }

    void differences()
    {
        QFETCH(QString, script);
        QFETCH(QStringList, lines);
        const QString file = newFile(script);
        const CommandRun run = diff({sampleCatalogue(), file, u"--json"_s});
        QCOMPARE(run.status, 0);
        const QJsonObject report = run.json();
        QCOMPARE(linesOf(report), lines);
        QCOMPARE(report[u"same"_s].toBool(), lines.isEmpty());
        QCOMPARE(report[u"breaking"_s].toInt(), lines.filter(u"!"_s).size());

        const QString text = diff({sampleCatalogue(), file}).out;
        QCOMPARE(text.contains("say the same"_L1), lines.isEmpty());
        QCOMPARE(text.count("(! "_L1), lines.filter(u"!"_s).size());
    }

    void bothWays()
    {
        const QString file = newFile(u"DELETE FROM roll WHERE itemNum = '00143228';"_s);
        QCOMPARE(linesOf(diff({file, sampleCatalogue(), u"--json"_s}).json()),
                 QStringList{u"rolls added 00143228"_s});
    }

    void whatItBreaks()
    {
        const QString file = newFile(u"UPDATE roll SET itemNum = '00149999' WHERE itemNum = '00143228';"
                                     " UPDATE roll SET colorId = 4 WHERE itemNum = '00143465';"_s);
        const QString text = diff({sampleCatalogue(), file}).out;
        QVERIFY2(
            text.contains("- 00143228  (! it is now called 00149999: the same supplyId 3220000C802080801000)"_L1),
            qPrintable(text));
        QVERIFY(text.contains("Rolls: 1 removed, 1 added, 1 changed"_L1));
        QVERIFY2(text.contains("00143465: colour 1 (White) -> 4 (Red)"_L1), qPrintable(text));
    }

    void limit()
    {
        const QString file = newFile(u"DELETE FROM roll;"_s);
        const qsizetype rolls = sampleRows(u"roll"_s).size();
        const auto removed = [&](const QStringList &more) {
            return diff(QStringList{sampleCatalogue(), file} + more).out.count("no longer answered"_L1);
        };
        QCOMPARE(removed({}), 50);
        QCOMPARE(removed({u"--limit"_s, u"4"_s}), 4);
        QCOMPARE(removed({u"--limit"_s, u"0"_s}), rolls);
    }

    void awkwardNames()
    {
        for (const QString &name :
             {u"it's new.sqlite"_s, u"a?mode=rw.sqlite"_s, u"50%20#1.sqlite"_s, u"ü \"x\".sqlite"_s}) {
            const QString path = m_folder.filePath(name);
            copySample(path);
            QVERIFY2(diff({sampleCatalogue(), path}).out.contains("say the same"_L1), qPrintable(name));
            QFile::remove(path);
        }
    }

    void catalogueWithoutMeta()
    {
        const QString file = newFile(u"DROP TABLE meta;"_s);
        const CommandRun run = diff({sampleCatalogue(), file});
        QCOMPARE(run.status, 0);
        QVERIFY2(
            run.out.contains(u"Note: %1 has no tables for this, so it is not compared: about the file"_s.arg(file)),
            qPrintable(run.out));
    }

    void sharedChangeCounter()
    {
        const auto told = [](const QString &newer) {
            const bool noted = diff({sampleCatalogue(), newer})
                                   .out.contains("Note: both files have the same change counter and size"_L1);
            const QJsonObject report = diff({sampleCatalogue(), newer, u"--json"_s}).json();
            return std::pair(noted, report[u"sharedChangeCounter"_s].toBool());
        };
        const QString file = newFile(u"DELETE FROM roll WHERE itemNum = '00143228';"_s);
        QCOMPARE(told(file), std::pair(false, false));
        QByteArray bytes = bytesOf(file);
        bytes.replace(24, 16, bytesOf(sampleCatalogue()).mid(24, 16));
        writeBytes(file, bytes);
        QCOMPARE(told(file), std::pair(true, true));
        // The same content may well have the same counter.
        QCOMPARE(told(sampleCatalogue()), std::pair(false, false));
    }

    void noCatalogue()
    {
        const QString path = m_folder.filePath(u"text"_s);
        writeBytes(path, "no database");
        for (const QStringList &words :
             {QStringList{sampleCatalogue(), path}, QStringList{path, sampleCatalogue()}}) {
            const CommandRun run = diff(words);
            QCOMPARE(run.status, 1);
            QVERIFY2(run.err.contains(path) && run.err.contains("not an SQLite database"_L1), qPrintable(run.err));
        }
    }

    void nothingIsWritten()
    {
        const QString file = newFile(u""_s);
        const QByteArray before = bytesOf(file);
        diff({file, sampleCatalogue()});
        QCOMPARE(bytesOf(file), before);
    }

private:
    QString newFile(const QString &script) const
    {
        const QString path = m_folder.filePath(u"new.sqlite"_s);
        copySample(path);
        const QString complaint = runScript(path, script);
        if (!complaint.isEmpty())
            qFatal("%s: %s", qPrintable(script), qPrintable(complaint));
        return path;
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestCatalogueDiff)
#include "tst_catalogue_diff.moc"
