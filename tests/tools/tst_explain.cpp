// SPDX-License-Identifier: LGPL-2.1-or-later
// The verb explain, driven as a person drives it: rules, rows, rolls by tag, ribbons by id, errors.

#include "support/commandrun.h"

#include <QtCore/QJsonArray>
#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QJsonObject explained(const QStringList &words)
{
    CommandRun run = zrsupply(QStringList{u"explain"_s} + words + QStringList{u"--json"_s});
    if (run.run().status != 0)
        qFatal("explain failed: %s", qPrintable(run.err));
    return run.json();
}

QJsonObject check(const QJsonObject &answer, const QString &name)
{
    return answer.value(u"checks"_s)[name].toObject();
}

QJsonObject ruleOf(const QJsonObject &checked, const QString &rule, int ribbon)
{
    for (const QJsonValue &entry : checked.value(u"rules"_s).toArray()) {
        if (entry[u"rule"_s].toString() == rule && entry[u"ribbon"_s].toInt() == ribbon)
            return entry.toObject();
    }
    return {};
}

QString sourceOf(const QJsonObject &checked, const QString &name)
{
    for (const QJsonValue &entry : checked.value(u"values"_s).toArray()) {
        if (entry[u"name"_s].toString() == name)
            return entry[u"source"_s].toString();
    }
    return {};
}

} // namespace

class ExplainTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firedRules_data();
    void firedRules();
    void rows();
    void rollsByTag();
    void ribbonsById();
    void text();
    void errors_data();
    void errors();
};

void ExplainTest::firedRules_data()
{
    QTest::addColumn<QString>("roll");
    QTest::addColumn<QStringList>("ribbons");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<int>("ribbon");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<bool>("good");

    const QString paper = u"00158377"_s; // 4 1/4 inches
    const QString vinyl = u"00143465"_s; // 4 inches
    const QString wide = u"00144463"_s;  // 6 inches
    QTest::newRow("bad by heat") << paper << QStringList{u"R530901"_s, u"RW530921"_s} << u"heat"_s << 1 << u"fires"_s
                                 << false;
    QTest::newRow("good by heat") << paper << QStringList{u"R530901"_s, u"RW530921"_s} << u"heat"_s << 2
                                  << u"passes"_s << false;
    QTest::newRow("bad by width") << wide << QStringList{u"RW530901"_s, u"R530905"_s} << u"width"_s << 2 << u"fires"_s
                                  << false;
    QTest::newRow("any width on a narrow roll")
        << vinyl << QStringList{u"R530901"_s, u"R530905"_s} << u"width"_s << 2 << u"passes"_s << true;
    QTest::newRow("a missing ribbon counts as narrow")
        << wide << QStringList{u"RW530901"_s, u"none"_s} << u"width"_s << 2 << u"fires"_s << false;
    QTest::newRow("a missing ribbon has no heat")
        << wide << QStringList{u"RW530901"_s, u"none"_s} << u"heat"_s << 2 << u"not asked"_s << false;
    QTest::newRow("special ribbon waives")
        << vinyl << QStringList{u"R4417TX"_s, u"R530901"_s} << u"heat"_s << 1 << u"waived"_s << true;
    QTest::newRow("special ribbon") << vinyl << QStringList{u"R530901"_s, u"HVWA-ZEROSPOL"_s} << u"special"_s << 2
                                    << u"passes"_s << true;
    QTest::newRow("two special ribbons")
        << vinyl << QStringList{u"R4417TX"_s, u"HVWA-ZEROSPOL"_s} << u"special"_s << 1 << u"fires"_s << false;
}

void ExplainTest::firedRules()
{
    QFETCH(QString, roll);
    QFETCH(QStringList, ribbons);
    QFETCH(QString, rule);
    QFETCH(int, ribbon);
    QFETCH(QString, outcome);
    QFETCH(bool, good);

    const QJsonObject answer = explained({u"--roll"_s, roll, u"--ribbons"_s, ribbons[0], ribbons[1]});
    const QJsonObject combination = check(answer, u"combination"_s);
    QCOMPARE(combination.value(u"good"_s).toBool(), good);
    QCOMPARE(combination.value(u"signals"_s).toArray().isEmpty(), good);
    QCOMPARE(ruleOf(combination, rule, ribbon).value(u"outcome"_s).toString(), outcome);
}

void ExplainTest::rows()
{
    const QJsonObject answer = explained({u"--roll"_s, u"00158377"_s, u"--ribbons"_s, u"R530901"_s, u"RW530921"_s});
    const QJsonObject combination = check(answer, u"combination"_s);
    QCOMPARE(sourceOf(combination, u"heat of ribbon 1"_s),
             u"ribbon_heat: no row ribbonId 1, panel 1, materialId 3"_s);
    QCOMPARE(sourceOf(combination, u"heat of ribbon 2"_s), u"ribbon_heat: row ribbonId 17, panel 1, materialId 3"_s);
    QCOMPARE(sourceOf(combination, u"width of ribbon 2"_s), u"ribbon: row RW530921"_s);
    QCOMPARE(sourceOf(combination, u"width of the roll"_s), u"materialwidth: row 10, by roll 00158377"_s);
    QCOMPARE(sourceOf(check(answer, u"edge-sensor"_s), u"sensor of the roll"_s),
             u"roll: row 00158377, supplysensorId is NULL"_s);
    QCOMPARE(check(answer, u"tensions"_s).value(u"signals"_s)[0][u"arguments"_s].toArray(),
             QJsonArray({-1, -1, 8, 8}));

    const QJsonObject known = explained({u"--roll"_s, u"00144463"_s});
    QCOMPARE(sourceOf(check(known, u"edge-sensor"_s), u"sensor of the roll"_s),
             u"roll: row 00144463; supplysensor: row 1"_s);
    QVERIFY(check(known, u"tensions"_s).value(u"signals"_s).toArray().isEmpty());
}

void ExplainTest::rollsByTag()
{
    const QJsonObject known = explained({u"--roll"_s, u"32100C0C8021004060000000"_s, u"--ribbons"_s, u"14,5"_s});
    QCOMPARE(known.value(u"roll"_s).toString(), u"00144463"_s);
    QCOMPARE(check(known, u"combination"_s).value(u"signals"_s)[0][u"signal"_s].toString(),
             u"alertInvalidRibbon2SupplyCombo"_s);

    const QJsonObject unknown = explained({u"--roll"_s, u"3200000C8020824060000000"_s, u"--ribbons"_s, u"14,16"_s});
    QCOMPARE(unknown.value(u"roll"_s).toString(), u"UnknownSupply"_s);
    QCOMPARE(sourceOf(check(unknown, u"combination"_s), u"width of the roll"_s), u"the roll's tag"_s);
    QVERIFY(unknown.value(u"notes"_s)[0].toString().contains(u"read from its tag"_s));

    const QJsonObject revision2 = explained({u"--roll"_s, u"3233C08C8022804042451300"_s});
    QCOMPARE(revision2.value(u"roll"_s).toString(), u"-1"_s);
    QVERIFY(revision2.value(u"notes"_s)[0].toString().contains(u"revision 2"_s));
}

void ExplainTest::ribbonsById()
{
    const QJsonObject answer =
        explained({u"--roll"_s, u"00143465"_s, u"--ribbons"_s, u"20"_s, u"--ribbons"_s, u"99"_s});
    QCOMPARE(answer.value(u"ribbon1"_s).toString(), u"R530947"_s);
    QCOMPARE(answer.value(u"ribbon2"_s).toString(), u"-1"_s);
    QVERIFY(answer.value(u"notes"_s)[0].toString().contains(u"no ribbon has the id 99"_s));
    QCOMPARE(ruleOf(check(answer, u"clear-tail"_s), u"clear-tail"_s, 1).value(u"outcome"_s).toString(), u"fires"_s);
}

void ExplainTest::text()
{
    CommandRun run = zrsupply({u"explain"_s, u"--roll"_s, u"00158377"_s, u"--ribbons"_s, u"R530901"_s, u"17"_s});
    QCOMPARE(run.run().status, 0);
    QVERIFY2(run.out.contains(u"Combination: ribbon 1 does not suit the roll"_s), qPrintable(run.out));
    QVERIFY2(run.out.contains(u"R530901 has no heat for material 3 (Paper): it does not print on it"_s),
             qPrintable(run.out));
    QVERIFY2(run.out.contains(u"notifyRibbonTensions -1 -1 8 8"_s), qPrintable(run.out));
    QVERIFY(!run.out.contains(u'\033'));
    QVERIFY(run.err.isEmpty());
}

void ExplainTest::errors_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");

    const QString roll = u"00143465"_s;
    QTest::newRow("no roll") << QStringList{u"--ribbons"_s, u"1"_s} << 2 << u"--roll is missing"_s;
    QTest::newRow("unknown roll") << QStringList{u"--roll"_s, u"00143466"_s} << 3
                                  << u"the catalogue has no roll \"00143466\""_s;
    QTest::newRow("unknown ribbon") << QStringList{u"--roll"_s, roll, u"--ribbons"_s, u"R530991"_s} << 3
                                    << u"the catalogue has no ribbon \"R530991\""_s;
    QTest::newRow("three ribbons") << QStringList{u"--roll"_s, roll, u"--ribbons"_s, u"1"_s, u"2"_s, u"3"_s} << 2
                                   << u"a printer holds two ribbons; \"3\" is one too many"_s;
}

void ExplainTest::errors()
{
    QFETCH(QStringList, words);
    QFETCH(int, status);
    QFETCH(QString, message);

    CommandRun run = zrsupply(QStringList{u"explain"_s} + words + QStringList{u"--json"_s});
    QCOMPARE(run.run().status, status);
    QVERIFY(run.out.isEmpty());
    QCOMPARE(run.error().value(u"message"_s).toString(), message);
    QVERIFY(!run.error().value(u"remedy"_s).toString().isEmpty());
}

QTEST_GUILESS_MAIN(ExplainTest)

#include "tst_explain.moc"
