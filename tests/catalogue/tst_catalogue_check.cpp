// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"
#include "support/scriptrun.h"
#include "support/sourcefolder.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using Words = QSet<QString>;

CommandRun check(const QStringList &words)
{
    CommandRun run = zrsupply(QStringList{u"catalogue"_s, u"check"_s} + words);
    run.run();
    return run;
}

QString textOf(const QString &path)
{
    return QString::fromUtf8(bytesOf(path));
}

QString fixtureFolder()
{
    return sourcePath(u"tests/data/checks"_s);
}

/// The ids of all rules, with their severities.
QMap<QString, QString> allRules()
{
    QMap<QString, QString> rules;
    for (const QJsonValue &rule : check({u"--list"_s, u"--json"_s}).json()[u"rules"_s].toArray())
        rules.insert(rule[u"id"_s].toString(), rule[u"severity"_s].toString());
    return rules;
}

/// What a check found: rule, key and message of each finding.
QSet<QStringList> findingsOf(const QJsonObject &report)
{
    QSet<QStringList> findings;
    for (const QJsonValue &rule : report[u"rules"_s].toArray()) {
        for (const QJsonValue &finding : rule[u"findings"_s].toArray())
            findings.insert(
                {rule[u"id"_s].toString(), finding[u"key"_s].toString(), finding[u"message"_s].toString()});
    }
    return findings;
}

Words rulesOf(const QSet<QStringList> &findings)
{
    Words rules;
    for (const QStringList &finding : findings)
        rules.insert(finding.first());
    return rules;
}

/// The sources of the sample with those of a fixture in their place, built by nobody.
void overlay(const SourceFolder &sources, const QString &folder)
{
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        sources.write(name, bytesOf(folder + u'/' + name));
}

/// The sample as a file from elsewhere has it: no types, no keys, no indexes.
QString looseScript()
{
    QString script;
    for (const QString &table : rowsOf(sampleCatalogue(), u"SELECT name FROM sqlite_schema WHERE type = 'table' AND"
                                                          " name NOT LIKE 'sqlite%'"_s)) {
        const QString columns =
            rowsOf(sampleCatalogue(), u"SELECT group_concat(name) FROM pragma_table_info('%1')"_s.arg(table)).first();
        script += u"CREATE TABLE loose (%2); INSERT INTO loose SELECT * FROM %1; DROP TABLE %1;"
                  " ALTER TABLE loose RENAME TO %1;\n"_s.arg(table, columns);
    }
    return script;
}

} // namespace

/// `zrsupply catalogue check`: every rule fires on its fixture and nowhere else, and the author is told where and
/// what.
class TestCatalogueCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        m_rules = allRules();
        m_sample = findingsOf(check({sampleCatalogue(), u"--json"_s}).json());
    }

    void sampleIsSilent()
    {
        const CommandRun file = check({sampleCatalogue(), u"--json"_s});
        QCOMPARE(file.status, 0);
        const QJsonObject report = file.json();
        QCOMPARE(report[u"errors"_s].toInt(-1), 0);
        QCOMPARE(report[u"warnings"_s].toInt(-1), 0);
        QVERIFY(report[u"hints"_s].toInt() > 0);
        QVERIFY(report[u"notAsked"_s].toArray().isEmpty());
        QVERIFY(report[u"clean"_s].toBool());

        const CommandRun sources = check({sourcePath(u"schema/sample"_s), u"--json"_s});
        QCOMPARE(sources.status, 0);
        QCOMPARE(findingsOf(sources.json()), m_sample);
        QCOMPARE(check({sampleCatalogue(), u"--strict"_s}).status, 1);
    }

    void everyRuleHasAFixture()
    {
        Words fixtures;
        for (const QString &name : QDir(fixtureFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
            fixtures.insert(name.section(u'.', 0, 0));
        const QStringList rules = m_rules.keys();
        QCOMPARE(fixtures, Words(rules.begin(), rules.end()));
        QVERIFY(rules.size() > 60);
    }

    void fixture_data()
    {
        QTest::addColumn<QString>("id");
        for (auto rule = m_rules.keyBegin(); rule != m_rules.keyEnd(); ++rule)
            QTest::addRow("%s", qPrintable(*rule)) << *rule;
    }

    void fixture()
    {
        QFETCH(QString, id);
        const QString path = fixtureFolder() + u'/' + id;
        Words stated{id};
        CommandRun run;
        if (QFileInfo(path).isDir()) {
            const SourceFolder sources;
            overlay(sources, path);
            run = check({sources.path(), u"--json"_s});
        } else {
            const QString script = textOf(path + u".sql"_s);
            const QString heading = script.section(u'\n', 0, 0);
            QVERIFY2(heading.startsWith("-- fires: "_L1), "the first line states the rules that fire");
            const QStringList words = heading.mid(10).split(u' ');
            stated = Words(words.begin(), words.end());
            const QString file = m_folder.filePath(id + u".sqlite"_s);
            copySample(file);
            QCOMPARE(runScript(file, script), QString());
            run = check({file, u"--json"_s});
        }
        QVERIFY2(stated.contains(id), "a fixture is named after a rule that it breaks");

        const QSet<QStringList> found = findingsOf(run.json()) - m_sample;
        Words fired;
        for (const QStringList &finding : found) {
            QVERIFY2(!finding.last().contains(u'{') && !finding.last().trimmed().isEmpty(),
                     qPrintable(finding.last()));
            if (m_rules[finding.first()] != "hint"_L1 || stated.contains(finding.first()))
                fired.insert(finding.first());
        }
        QCOMPARE(fired, stated);
        QCOMPARE(run.status, m_rules[id] == "hint"_L1 ? 0 : 1);
    }

    void everyRuleIsExplained_data() { fixture_data(); }

    void everyRuleIsExplained()
    {
        QFETCH(QString, id);
        const QJsonObject rule = check({u"--explain"_s, id, u"--json"_s}).json();
        QCOMPARE(rule[u"id"_s].toString(), id);
        for (const QString &field : {u"title"_s, u"because"_s, u"remedy"_s})
            QVERIFY2(rule[field].toString().size() > 3, qPrintable(field));
        const QString text = check({u"--explain"_s, id}).out;
        QVERIFY(text.contains(rule[u"remedy"_s].toString()));
        const bool isSql = rule.contains(u"select"_s);
        QVERIFY(isSql ? text.contains(rule[u"select"_s].toString()) : text.contains("not SQL"_L1));
    }

    void rulesRunInTheShellToo()
    {
        const QString file = m_folder.filePath(u"shell.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, textOf(sourcePath(u"schema/checks.sql"_s))), QString());
    }

    void fileFromElsewhere()
    {
        const QString file = m_folder.filePath(u"loose.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, looseScript()), QString());
        const CommandRun run = check({file, u"--json"_s});
        QVERIFY(run.json()[u"notAsked"_s].toArray().isEmpty());
        QCOMPARE(rulesOf(findingsOf(run.json()) - m_sample), (Words{u"key-untyped"_s, u"statement-scans"_s}));
    }

    /// Statistics of a table with one row let the planner read it whole, and that is no slower than its key.
    void tableOfOneRow()
    {
        const QString file = m_folder.filePath(u"one.sqlite"_s);
        CommandRun generate = zrsupply({u"catalogue"_s, u"generate"_s, u"--rolls"_s, u"1"_s, u"-o"_s, file});
        QCOMPARE(generate.run().status, 0);
        QCOMPARE(rowsOf(file, u"SELECT stat FROM sqlite_stat1 WHERE tbl = 'materialwidth'"_s), QStringList{u"1"_s});
        QCOMPARE(check({file, u"--only"_s, u"statement-scans"_s}).status, 0);
        QCOMPARE(runScript(file, u"DROP INDEX roll_supplyId;"_s), QString());
        const CommandRun run = check({file, u"--only"_s, u"statement-scans"_s, u"--json"_s});
        QVERIFY2(run.out.contains("SCAN roll"_L1), qPrintable(run.out));
    }

    void whatIsSaidOfARow_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QStringList>("messages");

        QTest::newRow("first of two panels missing")
            << u"DELETE FROM ribbon_panel WHERE ribbonId = 22 AND panel = 1;"_s << u"ribbon-panels"_s
            << QStringList{u"ribbon.panels is 2, the panels with a row in ribbon_panel: 2"_s};
        QTest::newRow("no panel") << u"DELETE FROM ribbon_panel WHERE ribbonId = 1;"_s << u"ribbon-panels"_s
                                  << QStringList{
                                         u"ribbon.panels is 1, the panels with a row in ribbon_panel: none"_s};
        QTest::newRow("ribbon without heats")
            << u"DELETE FROM ribbon_heat WHERE ribbonId = 1;"_s << u"ribbon-prints-nothing"_s
            << QStringList{u"It has no row in ribbon_heat"_s};
        QTest::newRow("ribbon for a material that no roll has")
            << u"DELETE FROM ribbon_heat WHERE ribbonId = 1;"
               "INSERT INTO ribbon_heat VALUES (1, 1, 250, 90, 9, 90, 5);"_s
            << u"ribbon-prints-nothing"_s << QStringList{u"It prints on material 250, which no roll has"_s};
        QTest::newRow("stripe without a colour")
            << u"UPDATE continuousstripe SET secColorId = NULL WHERE itemNum = '00144463';"_s << u"tag-stripe"_s
            << QStringList{u"The tag says 1.5 inches of colour 8, the rows say 1.5 inches of no colour"_s};
        QTest::newRow("stripe in the tag alone")
            << u"DELETE FROM continuousstripe WHERE itemNum = '00144463';"_s << u"tag-stripe"_s
            << QStringList{u"The tag says 1.5 inches of colour 8, the rows say no stripe"_s};
        QTest::newRow("stripe wider than a negative width")
            << u"UPDATE materialwidth SET width = -1 WHERE id ="
               " (SELECT materialWidthId FROM roll WHERE itemNum = '00144463');"_s
            << u"size-absurd"_s << QStringList();
        QTest::newRow("language without a name")
            << u"INSERT INTO meta VALUES ('language.6', 'it'); DELETE FROM formatTS WHERE formatId <> 5;"
               "DELETE FROM format WHERE id <> 5;"_s
            << u"name-untranslated"_s << QStringList{u"format 5 has no name in language 6"_s};
        QTest::newRow("names of a language that is not listed")
            << u"INSERT INTO colorTS VALUES (1, 9, 'Blanko');"_s << u"name-untranslated"_s << QStringList();
        QTest::newRow("no list of languages")
            << u"DROP TABLE meta; DELETE FROM formatTS WHERE formatId = 5 AND languageId = 4;"_s
            << u"name-untranslated"_s << QStringList{u"format 5 has no name in language 4"_s};
    }

    void whatIsSaidOfARow()
    {
        QFETCH(QString, script);
        QFETCH(QString, rule);
        QFETCH(QStringList, messages);
        const QString file = m_folder.filePath(u"said.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, script), QString());
        const QJsonObject report = check({file, u"--only"_s, rule, u"--json"_s}).json();
        QVERIFY(report[u"notAsked"_s].toArray().isEmpty());
        QStringList said;
        for (const QStringList &finding : findingsOf(report)) {
            if (rule != "name-untranslated"_L1 || finding.last().startsWith("format"_L1))
                said.append(finding.last());
        }
        QCOMPARE(said, messages);
    }

    void lineOfSources_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("line");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<int>("column");

        const auto row = [](const char *name, const QString &file, int line, const QByteArray &before,
                            const QByteArray &after, const QString &rule, int column = 0) {
            QTest::newRow(name) << file << line << before << after << rule << column;
        };
        // Mistakes that only the rules see, then those that keep the sources from being built.
        row("small letter in a supply id", u"roll.csv"_s, 3, "3220000C", "3220000c", u"supply-id-form"_s);
        row("colour that is not there", u"roll.csv"_s, 3, ",1,2,0,", ",1,999,0,", u"dangling-color"_s);
        row("quote in a SKU", u"roll.csv"_s, 3, "00143228", "00143'28", u"sku-quote"_s);
        row("negative width", u"materialwidth.csv"_s, 2, "1.0", "-1.0", u"size-not-positive"_s);
        row("separator in another unit", u"noncontinuous.csv"_s, 2, "0.0625", "1.5875", u"size-absurd"_s);
        row("colour with an opacity", u"color.csv"_s, 3, ",1,0,", ",1,4278190080,", u"integer-value"_s);
        row("heat 0", u"ribbon_heat.csv"_s, 2, "104", "0", u"ribbon-heat-zero"_s);
        row("one panel too many", u"ribbon.csv"_s, 4, ",1,4.5", ",2,4.5", u"ribbon-panels"_s);
        row("stripe without a colour", u"continuousstripe.csv"_s, 2, "0.25,2", "0.25,", u"stripe-incomplete"_s);
        row("empty name", u"materialTS.csv"_s, 3, "Vinyl", " ", u"name-empty"_s);
        row("text for a number", u"roll.csv"_s, 3, ",1,2,0,", ",one,2,0,", u"sources-fail"_s, 31);
        row("key twice", u"color.csv"_s, 3, "2,1,0,", "1,1,0,", u"sources-fail"_s, 1);
        row("field too many", u"format.csv"_s, 2, "1,", "1,,", u"sources-fail"_s, -1);
    }

    void lineOfSources()
    {
        QFETCH(QString, file);
        QFETCH(int, line);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        QFETCH(QString, rule);
        QFETCH(int, column);
        const SourceFolder sources;
        sources.edit(file, line, before, after);
        const CommandRun run = check({sources.path(), u"--json"_s});
        QCOMPARE(run.status, 1);
        bool isTold = false;
        for (const QJsonValue &fired : run.json()[u"rules"_s].toArray()) {
            for (const QJsonValue &finding : fired[u"findings"_s].toArray()) {
                isTold = isTold || (fired[u"id"_s] == rule && finding[u"line"_s] == line &&
                                    finding[u"file"_s] == sources.path() + u'/' + file &&
                                    (column < 0 || finding[u"column"_s].toInt() == column));
            }
        }
        QVERIFY2(isTold, qPrintable(run.out));
        const QString text = check({sources.path()}).out;
        QVERIFY2(text.contains(u"%1/%2:%3"_s.arg(sources.path(), file).arg(line)), qPrintable(text));
        QVERIFY(text.contains("Remedy: "_L1));
    }

    void missingRowHasTheLineOfItsNeighbours()
    {
        const SourceFolder sources;
        sources.edit(u"materialTS.csv"_s, 9, "2,1,Polyester", "1,9,Polyester");
        const QJsonArray rules =
            check({sources.path(), u"--only"_s, u"name-untranslated"_s, u"--json"_s}).json()[u"rules"_s].toArray();
        QHash<QString, int> lines;
        for (const QJsonValue &finding : rules.first()[u"findings"_s].toArray())
            lines.insert(finding[u"key"_s].toString(), finding[u"line"_s].toInt());
        QCOMPARE(lines.value(u"2/1"_s), 8); // the material's first name
    }

    void only()
    {
        const QString file = m_folder.filePath(u"only.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, u"UPDATE roll SET colorId = 3, landscape = 7 WHERE itemNum = '00143228';"_s),
                 QString());
        const CommandRun one = check({file, u"--only"_s, u"tag-color"_s, u"--json"_s});
        QCOMPARE(rulesOf(findingsOf(one.json())), Words{u"tag-color"_s});
        const CommandRun two = check({file, u"--only"_s, u"tag-color,landscape-value"_s, u"--json"_s});
        QCOMPARE(rulesOf(findingsOf(two.json())), (Words{u"tag-color"_s, u"landscape-value"_s}));
        QCOMPARE(check({file, u"--only"_s, u"tag-width"_s}).status, 0);

        const CommandRun wrong = check({file, u"--only"_s, u"tag-colour"_s, u"--json"_s});
        QCOMPARE(wrong.status, 2);
        QCOMPARE(wrong.error()[u"nearest"_s].toArray().first().toString(), u"tag-color"_s);
    }

    void ignored()
    {
        const QString file = m_folder.filePath(u"ignored.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, u"UPDATE roll SET colorId = 3 WHERE itemNum IN ('00143228', '00143292');"_s),
                 QString());
        const auto withList = [&](const QByteArray &list) {
            const QString path = m_folder.filePath(u"ignore.txt"_s);
            writeBytes(path, list);
            return check({file, u"--ignore"_s, path, u"--json"_s});
        };
        const CommandRun byRule = withList("# accepted\ntag-color # all of them\n\n");
        QCOMPARE(byRule.status, 0);
        QCOMPARE(byRule.json()[u"ignored"_s].toInt(), 2);

        const CommandRun byKey = withList("tag-color 00143228\ntag-color 99\n");
        QCOMPARE(byKey.status, 1);
        QCOMPARE(byKey.json()[u"ignored"_s].toInt(), 1);
        QCOMPARE(byKey.json()[u"errors"_s].toInt(), 1);
        const QJsonArray unused = byKey.json()[u"unusedIgnores"_s].toArray();
        QCOMPARE(unused.size(), 1);
        QVERIFY(unused.first().toString().endsWith("line 2: tag-color 99"_L1));

        const CommandRun wrong = withList("\ntag-colour\n");
        QCOMPARE(wrong.status, 1);
        QVERIFY2(wrong.err.contains("line 2"_L1) && wrong.err.contains("tag-color"_L1), qPrintable(wrong.err));
        QCOMPARE(check({file, u"--ignore"_s, m_folder.filePath(u"none.txt"_s)}).status, 1);
    }

    void limit()
    {
        const QString file = m_folder.filePath(u"limit.sqlite"_s);
        copySample(file);
        QCOMPARE(runScript(file, u"UPDATE roll SET landscape = 7;"_s), QString());
        const qsizetype rolls = sampleRows(u"roll"_s).size();
        const auto lines = [&](const QStringList &more) {
            return check(QStringList{file} + more).out.count("landscape is 7"_L1);
        };
        QCOMPARE(lines({}), 20);
        QCOMPARE(lines({u"--limit"_s, u"3"_s}), 3);
        QCOMPARE(lines({u"--limit"_s, u"0"_s}), rolls);
        QVERIFY(check({file}).out.contains(u"and %1 more"_s.arg(rolls - 20)));
        const QJsonObject report = check({file, u"--json"_s}).json();
        QCOMPARE(report[u"warnings"_s].toInt(), rolls);
        QCOMPARE(report[u"rules"_s].toArray().first()[u"findings"_s].toArray().size(), rolls);
    }

    void hintsInText()
    {
        const QString brief = check({sampleCatalogue()}).out;
        QVERIFY(brief.contains("supply-id-shared: Several rolls have one supply id (2)"_L1));
        QVERIFY(!brief.contains("the shortest SKU"_L1));
        QVERIFY(
            check({sampleCatalogue(), u"--strict"_s}).out.contains("the tag answers 143221, the shortest SKU"_L1));
    }

    void rulesOfOnesOwn()
    {
        const QString path = m_folder.filePath(u"own.sql"_s);
        writeBytes(path, "CREATE TEMP TABLE check_big AS SELECT itemNum FROM main.roll WHERE nUpCount > 1;\n\n"
                         "-- rule: many-across\n-- severity: warning\n-- title: Many labels\n"
                         "-- message: {key} has {n} across,\n--    in {table}\n-- because: b\n-- remedy: r\n"
                         "SELECT 'roll' AS \"table\", itemNum AS \"key\", nUpCount AS n FROM roll\n"
                         "WHERE itemNum IN (SELECT itemNum FROM check_big) AND nUpCount = 4;\n");
        const CommandRun run = check({sampleCatalogue(), u"--rules"_s, path, u"--json"_s});
        QCOMPARE(run.status, 1);
        QCOMPARE(findingsOf(run.json()) - m_sample,
                 (QSet<QStringList>{{u"many-across"_s, u"00144724"_s, u"00144724 has 4 across, in roll"_s}}));
    }

    void ruleReplacesAnother()
    {
        const QString path = m_folder.filePath(u"replace.sql"_s);
        writeBytes(path, "-- rule: supply-id-shared\n-- severity: error\n-- title: t\n-- message: m\n-- because: b\n"
                         "-- remedy: r\nSELECT 'roll' AS \"table\", 'x' AS \"key\" WHERE 1;\n");
        const QJsonObject report = check({sampleCatalogue(), u"--rules"_s, path, u"--json"_s}).json();
        QCOMPARE(report[u"errors"_s].toInt(), 1);
    }

    void brokenRules_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("complaint");
        const QByteArray fields = "-- title: t\n-- message: m\n-- because: b\n-- remedy: r\n";
        QTest::newRow("severity") << "-- rule: one\n-- severity: fatal\n" + fields + "SELECT 1;\n"
                                  << u"line 2: \"fatal\" is no severity"_s;
        QTest::newRow("field") << "-- rule: one\n-- colour: red\n" + fields + "SELECT 1;\n"
                               << u"there is no field \"colour\""_s;
        QTest::newRow("no field") << "-- rule: one\n-- just words\n" + fields + "SELECT 1;\n"
                                  << u"line 2: a heading holds a line that is no field"_s;
        QTest::newRow("id") << "-- rule: One Two\n" + fields + "SELECT 1;\n" << u"\"One Two\" is no rule id"_s;
        QTest::newRow("no end") << "-- rule: one\n" + fields + "SELECT 1\n" << u"has no end"_s;
        QTest::newRow("no remedy") << "-- rule: one\n-- title: t\nSELECT 1;\n"_ba << u"rule one is not complete"_s;
        QTest::newRow("twice") << "-- rule: one\n" + fields + "SELECT 1;\n-- rule: one\n" + fields + "SELECT 1;\n"
                               << u"two rules one"_s;
        QTest::newRow("function") << "-- rule: one\n" + fields + "-- code: dance\n" << u"no function \"dance\""_s;
    }

    void brokenRules()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, complaint);
        const QString path = m_folder.filePath(u"broken.sql"_s);
        writeBytes(path, text);
        const CommandRun run = check({sampleCatalogue(), u"--rules"_s, path});
        QCOMPARE(run.status, 1);
        QVERIFY2(run.err.contains(complaint), qPrintable(run.err));
    }

    void ruleThatDoesNotRun_data()
    {
        QTest::addColumn<QByteArray>("select");
        QTest::addColumn<QString>("error");
        QTest::newRow("no such column") << "SELECT 'roll' AS \"table\", size AS \"key\" FROM roll;"_ba
                                        << u"no such column: size"_s;
        QTest::newRow("no key") << "SELECT itemNum FROM roll;"_ba
                                << u"the SELECT has no columns \"table\" and \"key\""_s;
    }

    void ruleThatDoesNotRun()
    {
        QFETCH(QByteArray, select);
        QFETCH(QString, error);
        const QString path = m_folder.filePath(u"fails.sql"_s);
        writeBytes(path, "-- rule: one\n-- title: t\n-- message: m\n-- because: b\n-- remedy: r\n" + select + '\n');
        const CommandRun run = check({sampleCatalogue(), u"--rules"_s, path, u"--only"_s, u"one"_s, u"--json"_s});
        QCOMPARE(run.status, 1); // what was not asked is not clean
        QCOMPARE(run.json()[u"notAsked"_s].toArray().first()[u"error"_s].toString(), error);
        QVERIFY(check({sampleCatalogue(), u"--rules"_s, path}).out.contains("Not asked: one"_L1));
    }

    void noCatalogue_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("complaint");
        QTest::newRow("text") << QByteArray(100, 'x') << u"is not an SQLite database"_s;
        QTest::newRow("empty") << ""_ba << u"is empty"_s;
    }

    void noCatalogue()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, complaint);
        const QString path = m_folder.filePath(u"none.sqlite"_s);
        writeBytes(path, bytes);
        const CommandRun run = check({path});
        QCOMPARE(run.status, 1);
        QVERIFY2(run.err.contains(complaint), qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
    }

    void missingFile()
    {
        const CommandRun run = check({m_folder.filePath(u"nothing.sqlite"_s)});
        QCOMPARE(run.status, 1);
        QVERIFY(run.err.contains("there is no file"_L1));
    }

    void catalogueOfTheOption()
    {
        CommandRun run = zrsupply({u"catalogue"_s, u"check"_s, u"--json"_s});
        QCOMPARE(run.run().status, 0);
        QCOMPARE(run.json()[u"catalogue"_s].toString(), sampleCatalogue());
    }

private:
    QTemporaryDir m_folder;
    QMap<QString, QString> m_rules;
    QSet<QStringList> m_sample;
};

QTEST_GUILESS_MAIN(TestCatalogueCheck)
#include "tst_catalogue_check.moc"
