// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/sourcefolder.h"

#include <tag/supplyc.h>

#include <QtCore/QJsonArray>
#include <QtCore/QSet>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CommandRun generate(const QString &output, const QStringList &more)
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"generate"_s, u"-o"_s, output, u"--json"_s} + more);
    run.run();
    return run;
}

QStringList size(int rolls, int ribbons, int languages, int seed = 1)
{
    return {u"--rolls"_s,     QString::number(rolls),     u"--ribbons"_s, QString::number(ribbons),
            u"--languages"_s, QString::number(languages), u"--seed"_s,    QString::number(seed)};
}

} // namespace

/// Invented catalogues: `zrsupply catalogue generate`.
class TestCatalogueGenerate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameOptionsSameCatalogue();
    void folderAndFileHoldTheSame();
    void sizes_data();
    void sizes();
    void tagsSayWhatTheRowsSay();
    void skusAndTagsAreUnique();
    void everyKindOfRoll();
    void everyRollHasARibbon_data();
    void everyRollHasARibbon();
    void ribbonsAreComplete();
    void joinsAndNamesAreComplete();
    void namesAreWords();
    void colorsLookAsTheyAreCalled();
    void usage_data();
    void usage();
};

void TestCatalogueGenerate::sameOptionsSameCatalogue()
{
    const SourceFolder place;
    QCOMPARE(generate(place.out(u"a.sqlite"_s), size(500, 20, 3, 7)).status, 0);
    QCOMPARE(generate(place.out(u"b.sqlite"_s), size(500, 20, 3, 7)).status, 0);
    QCOMPARE(generate(place.out(u"c.sqlite"_s), size(500, 20, 3, 8)).status, 0);
    QCOMPARE(bytesOf(place.out(u"a.sqlite"_s)), bytesOf(place.out(u"b.sqlite"_s)));
    const QString ids = u"SELECT supplyId FROM roll ORDER BY itemNum"_s;
    QVERIFY(rowsOf(place.out(u"a.sqlite"_s), ids) != rowsOf(place.out(u"c.sqlite"_s), ids));
}

void TestCatalogueGenerate::folderAndFileHoldTheSame()
{
    const SourceFolder place;
    const QJsonObject file = generate(place.out(u"a.sqlite"_s), size(700, 12, 11)).json();
    const QJsonObject folder = generate(place.out(u"sources"_s), size(700, 12, 11)).json();
    QCOMPARE(file[u"rows"_s], folder[u"rows"_s]);
    QCOMPARE(file[u"checksum"_s], folder[u"checksum"_s]);
    zrsupply({u"catalogue"_s, u"build"_s, place.out(u"sources"_s), u"-o"_s, place.out(u"b.sqlite"_s)}).run();
    QCOMPARE(bytesOf(place.out(u"b.sqlite"_s)), bytesOf(place.out(u"a.sqlite"_s)));
    // The folder is in the form that a dump has, so its lines are sorted.
    zrsupply({u"catalogue"_s, u"dump"_s, place.out(u"a.sqlite"_s), u"-o"_s, place.out(u"dump"_s)}).run();
    QCOMPARE(filesBelow(place.out(u"dump"_s)), filesBelow(place.out(u"sources"_s)));
}

void TestCatalogueGenerate::sizes_data()
{
    QTest::addColumn<int>("rolls");
    QTest::addColumn<int>("ribbons");
    QTest::addColumn<int>("languages");
    QTest::newRow("the least") << 1 << 1 << 1;
    QTest::newRow("two") << 2 << 2 << 2;
    QTest::newRow("within a block of products") << 31 << 9 << 6;
    QTest::newRow("a block") << 32 << 10 << 10;
    QTest::newRow("a block and a bit") << 33 << 11 << 11;
    QTest::newRow("more languages than are known") << 10 << 3 << 40;
    QTest::newRow("more ribbons than rolls") << 10 << 2000 << 1;
}

void TestCatalogueGenerate::sizes()
{
    QFETCH(int, rolls);
    QFETCH(int, ribbons);
    QFETCH(int, languages);
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(rolls, ribbons, languages)).status, 0);
    QCOMPARE(rowsOf(file,
                    u"SELECT (SELECT count(*) FROM roll), (SELECT count(*) FROM ribbon),"
                    " (SELECT count(DISTINCT languageId) FROM colorTS),"
                    " (SELECT count(DISTINCT value) FROM meta WHERE key GLOB 'language.*'),"
                    " (SELECT count(*) FROM materialwidth WHERE id NOT IN (SELECT materialWidthId FROM roll))"_s),
             QStringList{u"%1|%2|%3|%3|0"_s.arg(rolls).arg(ribbons).arg(languages)});
}

/// Decoded by the library's own decoder.
void TestCatalogueGenerate::tagsSayWhatTheRowsSay()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(5000, 5, 1)).status, 0);
    const QStringList rows = rowsOf(
        file, u"SELECT supplyId, width * 16, materialId, colorId,"
              " coalesce(formatId, CASE WHEN secColorWidth > 0 THEN 2 ELSE 1 END),"
              " CASE WHEN nonContinuousLength = 0 OR formatId = 3 THEN length * 1.0"
              "      ELSE length * (nonContinuousLength + separatorWidth) / 12 END,"
              " coalesce(secColorWidth, 0) * 16, coalesce(secColorId, 0), coalesce(separatorWidth, 0.0625) * 16 - 1,"
              " nonContinuousLength * 16"
              " FROM roll JOIN materialwidth ON materialwidth.id = materialWidthId"
              " LEFT JOIN continuousstripe USING (itemNum) LEFT JOIN noncontinuous USING (itemNum)"_s);
    QCOMPARE(rows.size(), 5000);
    for (const QString &row : rows) {
        const QString id = row.section(u'|', 0, 0);
        QCOMPARE(id.size(), 20);
        QCOMPARE(id, id.toUpper());
        const SupplyC tag(id + u"0000"_s);
        QVERIFY(tag.tagRevision == 0 || tag.tagRevision == 1);
        QVERIFY(tag.mileageBaseFeet >= tag.lengthFeet);
        QCOMPARE(tag.formatEnumRev1, tag.tagRevision == 1 ? tag.formatEnum : 0);
        const QList<double> found = {double(tag.widthInches * 16 + tag.widthSixteenths),
                                     double(tag.materialEnum),
                                     double(tag.colorEnum),
                                     double(tag.formatEnum),
                                     double(tag.lengthFeet),
                                     double(tag.secColorWidthInches * 16 + tag.secColorWidthSixteenths),
                                     double(tag.secColorEnum),
                                     double(tag.separatorWidthCode),
                                     double(tag.nonContinuousLengthInches * 16 + tag.nonContinuousLengthSixteenths)};
        QList<double> expected;
        for (const QString &number : row.section(u'|', 1).split(u'|'))
            expected.append(number.toDouble());
        QCOMPARE(found, expected);
    }
}

void TestCatalogueGenerate::skusAndTagsAreUnique()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(200000, 5, 1)).status, 0);
    QCOMPARE(rowsOf(file, u"SELECT count(DISTINCT itemNum), count(DISTINCT supplyId), min(length(supplyId)),"
                          " max(length(supplyId)) FROM roll"_s),
             QStringList{u"200000|200000|20|20"_s});
}

void TestCatalogueGenerate::everyKindOfRoll()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(20000, 30, 1)).status, 0);
    QCOMPARE(rowsOf(file, u"SELECT count(DISTINCT formatId) FROM noncontinuous"_s), QStringList{u"19"_s});
    const QStringList shares = rowsOf(file, u"SELECT 100 * (SELECT count(*) FROM noncontinuous) / count(*),"
                                            " 100 * (SELECT count(*) FROM continuousstripe) / count(*) FROM roll"_s);
    QCOMPARE(shares.size(), 1);
    const int dieCut = shares.first().section(u'|', 0, 0).toInt();
    const int striped = shares.first().section(u'|', 1, 1).toInt();
    QVERIFY2(dieCut > 25 && dieCut < 45, qPrintable(shares.first()));
    QVERIFY2(striped > 5 && striped < 15, qPrintable(shares.first()));
    QCOMPARE(rowsOf(file, u"SELECT count(DISTINCT machineId) FROM materialwidth"_s), QStringList{u"9"_s});
    QCOMPARE(rowsOf(file, u"SELECT count(*) FROM roll JOIN continuousstripe USING (itemNum)"
                          " JOIN color ON color.secId = secColorId WHERE color.id = colorId"_s),
             QStringList{u"0"_s});
}

void TestCatalogueGenerate::everyRollHasARibbon_data()
{
    QTest::addColumn<int>("ribbons");
    QTest::newRow("one") << 1;
    QTest::newRow("nine") << 9;
    QTest::newRow("ten, four of them special") << 10;
    QTest::newRow("thirty") << 30;
}

void TestCatalogueGenerate::everyRollHasARibbon()
{
    QFETCH(int, ribbons);
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(2000, ribbons, 1)).status, 0);
    QCOMPARE(rowsOf(file, u"SELECT id FROM materialwidth WHERE NOT EXISTS (SELECT 1 FROM ribbon JOIN ribbon_heat"
                          " ON ribbonId = ribbon.id AND panel = 1 WHERE ribbon_heat.materialId ="
                          " materialwidth.materialId AND ribbon.width >= materialwidth.width AND heat > 0"
                          " AND NOT (ribbon.width < 4.5 AND materialwidth.width > 4.0))"_s),
             QStringList());
}

void TestCatalogueGenerate::ribbonsAreComplete()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(100, 500, 1)).status, 0);
    QCOMPARE(rowsOf(file, u"SELECT sku FROM ribbon LEFT JOIN ribbon_panel ON ribbonId = id GROUP BY id"
                          " HAVING count(panel) <> panels OR coalesce(max(panel), 0) <> panels"_s),
             QStringList());
    QCOMPARE(rowsOf(file, u"SELECT sku FROM ribbon JOIN ribbon_heat ON ribbonId = id GROUP BY id, materialId"
                          " HAVING count(*) <> panels OR min(heat) <= 0 OR min(max_speed) <= 0"
                          " OR min(tension) <= 0"_s),
             QStringList());
    QCOMPARE(
        rowsOf(file, u"SELECT sku FROM ribbon WHERE panels = 0 OR sku IN ('R530947', 'RW530947') ORDER BY sku"_s),
        (QStringList{u"HVWA-ZEROSPOL"_s, u"R4417TX"_s, u"R530947"_s, u"RW530947"_s}));
    QCOMPARE(rowsOf(file, u"SELECT DISTINCT panels FROM ribbon ORDER BY 1"_s),
             (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s}));
    QCOMPARE(
        rowsOf(file, u"SELECT sku FROM ribbon WHERE panels > 0 AND id NOT IN (SELECT ribbonId FROM ribbon_heat)"_s),
        QStringList());
}

void TestCatalogueGenerate::joinsAndNamesAreComplete()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(3000, 40, 10)).status, 0);
    const QStringList joins = {
        u"roll.materialWidthId materialwidth.id"_s,
        u"roll.colorId color.id"_s,
        u"roll.supplysensorId supplysensor.id"_s,
        u"roll.backgroundId background.id"_s,
        u"continuousstripe.itemNum roll.itemNum"_s,
        u"continuousstripe.secColorId color.secId"_s,
        u"noncontinuous.itemNum roll.itemNum"_s,
        u"noncontinuous.formatId format.id"_s,
        u"ribbon_panel.ribbonId ribbon.id"_s,
        u"ribbon_panel.colorId ribbon_color.id"_s,
        u"ribbon_panel.typeId ribbon_typeTS.ribbon_typeId"_s,
        u"ribbon_heat.materialId materialTS.materialId"_s,
        u"materialwidth.materialId materialTS.materialId"_s,
    };
    for (const QString &join : joins) {
        const QString from = join.section(u' ', 0, 0);
        const QString to = join.section(u' ', 1, 1);
        QCOMPARE(
            rowsOf(file, u"SELECT count(*) > 0, sum(%1 NOT IN (SELECT %2 FROM %3 WHERE %2 IS NOT NULL)) FROM %4"
                         " WHERE %1 IS NOT NULL"_s.arg(from, to, to.section(u'.', 0, 0), from.section(u'.', 0, 0))),
            QStringList{u"1|0"_s});
    }
    const QStringList names = {u"colorTS colorId color.id"_s, u"formatTS formatId format.id"_s,
                               u"ribbon_colorTS ribbon_colorId ribbon_color.id"_s};
    for (const QString &name : names) {
        const QString entity = name.section(u' ', 2);
        QCOMPARE(rowsOf(file,
                        u"SELECT %1 FROM %2 WHERE (SELECT count(*) FROM %3 WHERE %4 = %1 AND name <> '') <> 10"_s.arg(
                            entity, entity.section(u'.', 0, 0), name.section(u' ', 0, 0), name.section(u' ', 1, 1))),
                 QStringList());
    }
    QCOMPARE(rowsOf(file, u"SELECT color.name FROM color JOIN colorTS ON colorId = id AND languageId = 0"
                          " WHERE color.name <> colorTS.name"_s),
             QStringList());
}

void TestCatalogueGenerate::namesAreWords()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(100, 10, 11)).status, 0);
    const QString tables[] = {u"colorTS"_s, u"materialTS"_s, u"formatTS"_s, u"ribbon_typeTS"_s, u"ribbon_colorTS"_s};
    for (const QString &table : tables) {
        // Wraps are many, and told apart by their codes.
        const QString digits = u"SELECT name FROM %1 WHERE name GLOB '*[0-9]*'"_s.arg(table) +
                               (table == "formatTS"_L1 ? u" AND formatId NOT BETWEEN 41 AND 53"_s : QString());
        QCOMPARE(rowsOf(file, digits), QStringList());
        QCOMPARE(rowsOf(file, u"SELECT languageId, name FROM %1 GROUP BY 1, 2 HAVING count(*) > 1"_s.arg(table)),
                 QStringList());
    }
    const QString brown =
        u"SELECT group_concat(name, ', ') FROM (SELECT colorTS.name FROM colorTS JOIN color ON id = colorId"
        " WHERE color.name = 'Dark brown' ORDER BY languageId)"_s;
    QCOMPARE(rowsOf(file, brown),
             QStringList{u"Dark brown, Dunkelbraun, Marron foncé, Marrón oscuro, 暗い茶, بني داكن, "
                         "Marrone scuro, Donkerbruin, Ciemnobrązowy, Mörkbrun, Dark brown (qaa)"_s});
    QCOMPARE(rowsOf(file, u"SELECT DISTINCT name FROM materialTS WHERE languageId = 1 AND name LIKE 'Nylon%'"_s),
             (QStringList{u"Nylon"_s, u"Nylon, glänzend"_s, u"Nylon, matt"_s}));
}

void TestCatalogueGenerate::colorsLookAsTheyAreCalled()
{
    const SourceFolder place;
    const QString file = place.out(u"a.sqlite"_s);
    QCOMPARE(generate(file, size(10, 3, 1)).status, 0);
    for (const QString &table : {u"color"_s, u"ribbon_color"_s}) {
        const QString rgb = u"SELECT rgbValue FROM %1 WHERE name = '%2'"_s;
        QCOMPARE(rowsOf(file, rgb.arg(table, u"White"_s)), QStringList{u"16777215"_s});
        QCOMPARE(rowsOf(file, rgb.arg(table, u"Black"_s)), QStringList{u"0"_s});
        QCOMPARE(rowsOf(file, rgb.arg(table, u"Yellow"_s)), QStringList{u"16765184"_s});
    }
    const QString brightness = u"SELECT (rgbValue >> 16) + (rgbValue >> 8 & 255) + (rgbValue & 255) FROM color"
                               " WHERE name LIKE '%yellow' ORDER BY name = 'Yellow', name"_s;
    const QStringList found = rowsOf(file, brightness); // dark, light, plain
    QCOMPARE(found.size(), 3);
    QVERIFY(found[0].toInt() < found[2].toInt() && found[2].toInt() < found[1].toInt());
}

void TestCatalogueGenerate::usage_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("message");
    QTest::newRow("no number") << QStringList{u"-o"_s, u"x.sqlite"_s} << u"--rolls N"_s;
    QTest::newRow("no output") << QStringList{u"--rolls"_s, u"1"_s} << u"-o FILE or -o DIR"_s;
    QTest::newRow("no rolls") << QStringList{u"--rolls"_s, u"0"_s} << u"--rolls is 1 to 1000000, not 0"_s;
    QTest::newRow("too many rolls") << QStringList{u"--rolls"_s, u"1000001"_s}
                                    << u"--rolls is 1 to 1000000, not 1000001"_s;
    QTest::newRow("no ribbons") << QStringList{u"--rolls"_s, u"1"_s, u"--ribbons"_s, u"0"_s}
                                << u"--ribbons is 1 to 100000, not 0"_s;
    QTest::newRow("no languages") << QStringList{u"--rolls"_s, u"1"_s, u"--languages"_s, u"0"_s}
                                  << u"--languages is 1 to 100, not 0"_s;
    QTest::newRow("negative seed") << QStringList{u"--rolls"_s, u"1"_s, u"--seed=-1"_s} << u"--seed is 0 to "_s;
    QTest::newRow("word for a number") << QStringList{u"--rolls"_s, u"many"_s}
                                       << u"--rolls is a whole number, not \"many\""_s;
}

void TestCatalogueGenerate::usage()
{
    QFETCH(QStringList, words);
    QFETCH(QString, message);
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"generate"_s} + words);
    run.run();
    QCOMPARE(run.status, 2);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(TestCatalogueGenerate)
#include "tst_catalogue_generate.moc"
