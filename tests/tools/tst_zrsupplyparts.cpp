// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/command.h"
#include "cli/output.h"
#include "tag/tagfields.h"

#include "cli/answer.h"
#include "cli/cells.h"
#include "text/nearest.h"
#include <tag/taglayout_p.h>

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace zrsupply;
using namespace ZrSupplyKit;

/// What the verbs are made of.
class TestZrsupplyParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void distance_data();
    void distance();
    void nearestWords_data();
    void nearestWords();
    void inchTexts_data();
    void inchTexts();
    void widths_data();
    void widths();
    void tablesAlign();
    void answersAsJson();
    void wrapping();
    void commandTableIsSound();
    void tagFieldsAreTheTags();
};

void TestZrsupplyParts::distance_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("edits");

    QTest::newRow("equal") << u"roll"_s << u"roll"_s << 0;
    QTest::newRow("other case") << u"R530901"_s << u"r530901"_s << 0;
    QTest::newRow("one missing") << u"rol"_s << u"roll"_s << 1;
    QTest::newRow("one too many") << u"rolll"_s << u"roll"_s << 1;
    QTest::newRow("one other") << u"rall"_s << u"roll"_s << 1;
    QTest::newRow("neighbours swapped") << u"orll"_s << u"roll"_s << 1;
    QTest::newRow("swapped at the end") << u"00143456"_s << u"00143465"_s << 1;
    QTest::newRow("from nothing") << QString() << u"roll"_s << 4;
    QTest::newRow("to nothing") << u"roll"_s << QString() << 4;
    QTest::newRow("nothing in common") << u"abc"_s << u"xyz"_s << 3;
    QTest::newRow("several") << u"kitten"_s << u"sitting"_s << 3;
}

void TestZrsupplyParts::distance()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, edits);
    QCOMPARE(editDistance(a, b), edits);
    QCOMPARE(editDistance(b, a), edits);
}

void TestZrsupplyParts::nearestWords_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QStringList>("candidates");
    QTest::addColumn<QStringList>("near");

    const QStringList skus = {u"R530901"_s, u"R530902"_s, u"R530951"_s, u"RW530901"_s, u"HVWA-ZEROSPOL"_s};
    QTest::newRow("other case comes first") << u"r530951"_s << skus << QStringList{u"R530951"_s, u"R530901"_s};
    QTest::newRow("beginning of a word") << u"HVWA"_s << skus << QStringList{u"HVWA-ZEROSPOL"_s};
    QTest::newRow("nothing like it") << u"banana"_s << skus << QStringList();
    QTest::newRow("no candidates") << u"R530901"_s << QStringList() << QStringList();
    QTest::newRow("nothing typed") << QString() << skus << QStringList();
    QTest::newRow("at most three") << u"R53090"_s
                                   << QStringList{u"R530901"_s, u"R530902"_s, u"R530903"_s, u"R530904"_s}
                                   << QStringList{u"R530901"_s, u"R530902"_s, u"R530903"_s};
    QTest::newRow("far worse ones are left out")
        << u"tag decod"_s << QStringList{u"tag encode"_s, u"tag decode"_s} << QStringList{u"tag decode"_s};
}

void TestZrsupplyParts::nearestWords()
{
    QFETCH(QString, word);
    QFETCH(QStringList, candidates);
    QFETCH(QStringList, near);
    QCOMPARE(nearest(word, candidates), near);
}

void TestZrsupplyParts::inchTexts_data()
{
    QTest::addColumn<double>("inches");
    QTest::addColumn<QString>("text");

    QTest::newRow("whole") << 4.0 << u"4 in"_s;
    QTest::newRow("zero") << 0.0 << u"0 in"_s;
    QTest::newRow("sixteenths") << 4.1875 << u"4 3/16 in"_s;
    QTest::newRow("shortened fraction") << 4.5 << u"4 1/2 in"_s;
    QTest::newRow("under an inch") << 0.0625 << u"1/16 in"_s;
    QTest::newRow("no sixteenth") << 0.1 << u"0.1 in"_s;
    QTest::newRow("long") << 4720.5 << u"4720.5 in"_s;
    QTest::newRow("negative") << -2.5 << u"-2.5 in"_s;
}

void TestZrsupplyParts::inchTexts()
{
    QFETCH(double, inches);
    QFETCH(QString, text);
    QCOMPARE(inchText(inches), text);
}

void TestZrsupplyParts::widths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");

    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("Latin") << u"Weiß"_s << 4;
    QTest::newRow("Japanese") << u"ビニール"_s << 8;
    QTest::newRow("Arabic") << u"أبيض"_s << 4;
    QTest::newRow("combining accent") << u"e\u0301"_s << 1;
    QTest::newRow("beyond the first plane") << u"\U0001F5A8"_s << 1;
}

void TestZrsupplyParts::widths()
{
    QFETCH(QString, text);
    QFETCH(int, columns);
    QCOMPARE(displayWidth(text), columns);
    QCOMPARE(displayWidth(padded(text, 12)), 12);
    QCOMPARE(displayWidth(padded(text, 12, Qt::AlignRight)), 12);
    QVERIFY(padded(text, 12).startsWith(text));
    QVERIFY(padded(text, 12, Qt::AlignRight).endsWith(text));
    QCOMPARE(padded(text, 0), text);
}

void TestZrsupplyParts::tablesAlign()
{
    Table table({{u"n"_s, u"N"_s, Qt::AlignRight}, {u"hidden"_s, {}}, {u"name"_s, u"Name"_s}, {u"x"_s, u"X"_s}});
    table.addRow({numberCell(7), numberCell(1), textCell(u"白"_s), textCell(u"a"_s)});
    table.addRow({numberCell(10), numberCell(2), textCell(u"White"_s), textCell(u"b"_s)});
    QCOMPARE(table.toText({}), u" N  Name   X\n 7  白     a\n10  White  b\n"_s);
    QCOMPARE(table.toJson().first()[u"hidden"_s].toInt(), 1);

    Table colors({{u"rgb"_s, u"Colour"_s}, {u"of"_s, u"Of"_s}});
    colors.addRow({colorCell(0xffd100), textCell(u"roll"_s)});
    colors.addRow({colorCell(-1), textCell(u"ribbon"_s)});
    // The patch takes the place of four blanks.
    QCOMPARE(colors.toText({false, true}), u"Colour       Of\n"
                                           "\033[48;2;255;209;0m   \033[0m #FFD100  roll\n"
                                           "not known    ribbon\n"_s);
}

void TestZrsupplyParts::answersAsJson()
{
    Answer answer(u"Title"_s);
    answer.add(u"a"_s, u"A"_s, numberCell(-1));
    answer.beginGroup(u"Group"_s, u"group"_s);
    answer.add(u"b"_s, u"Longer label"_s, yesNoCell(true));
    answer.addJson(u"c"_s, 3);
    answer.add({}, u"D"_s, textCell(u"for people"_s));
    answer.addNote(u"beware."_s);
    const QJsonObject expected = {
        {u"a"_s, -1}, {u"group"_s, QJsonObject{{u"b"_s, true}, {u"c"_s, 3}}}, {u"notes"_s, QJsonArray{u"beware."_s}}};
    QCOMPARE(answer.toJson(), expected);
    QCOMPARE(answer.toText({}), u"Title\n"
                                "  A             not known\n"
                                "\nGroup\n"
                                "  Longer label  yes\n"
                                "  D             for people\n"
                                "\nNote: beware.\n"_s);
}

void TestZrsupplyParts::wrapping()
{
    QCOMPARE(wrapped(u"one two  three\nfour"_s, 9, 2), u"  one two\n  three\n  four"_s);
    QCOMPARE(wrapped(u"averylongword b"_s, 4), u"averylongword\nb"_s);
    QCOMPARE(orList({}), QString());
    QCOMPARE(orList({u"a"_s}), u"a"_s);
    QCOMPARE(orList({u"a"_s, u"b"_s, u"c"_s}), u"a, b or c"_s);
}

void TestZrsupplyParts::commandTableIsSound()
{
    QStringList paths;
    for (const Command &command : commandTable()) {
        QVERIFY2(!paths.contains(command.path), qPrintable(command.path));
        paths.append(command.path);
        QVERIFY2(command.run != nullptr, qPrintable(command.path));
        QVERIFY2(!command.summary.isEmpty() && !command.summary.endsWith(u'.'), qPrintable(command.path));
        QVERIFY2(!command.examples.isEmpty(), qPrintable(command.path));
        QVERIFY2(!command.statuses.isEmpty(), qPrintable(command.path));
        const QString group = command.path.section(u' ', 0, 0);
        QVERIFY2(group == command.path || !groupSummary(group).isEmpty(), qPrintable(group));

        QStringList names;
        for (const Option &option : command.options + globalOptions()) {
            QVERIFY2(!names.contains(option.name), qPrintable(option.name));
            names.append(option.name);
            QVERIFY2((option.value == Value::None) == option.valueName.isEmpty(), qPrintable(option.name));
            QVERIFY2((option.value == Value::Choice) != option.choices.isEmpty(), qPrintable(option.name));
            QVERIFY2(!option.help.isEmpty(), qPrintable(option.name));
        }
        // Only the last argument may be left out or repeated, or words could not be told apart.
        for (qsizetype i = 0; i + 1 < command.arguments.size(); ++i)
            QCOMPARE(command.arguments[i].need, Need::Required);
    }
}

void TestZrsupplyParts::tagFieldsAreTheTags()
{
    QCOMPARE(tagFields().size(), 24);
    int rowsWithField = 0;
    for (const taglayout::Field &row : taglayout::fields) {
        if (row.number == nullptr && row.flag == nullptr)
            continue;
        ++rowsWithField;
        int owners = 0;
        for (const TagField &field : tagFields()) {
            const bool owns = (row.number != nullptr && row.number == field.number) ||
                              (row.flag != nullptr && row.flag == field.flag);
            owners += owns ? 1 : 0;
        }
        QCOMPARE(owners, 1);
    }
    QCOMPARE(rowsWithField, 24);
    QCOMPARE(findTagField(u"non-continuous-length-inches"_s), findTagField(u"nonContinuousLengthInches"_s));
    QCOMPARE(findTagField(u"tag-flag-bit9"_s)->member, u"tagFlagBit9"_s);
    QVERIFY(findTagField(u"no-such-field"_s) == nullptr);
}

QTEST_GUILESS_MAIN(TestZrsupplyParts)
#include "tst_zrsupplyparts.moc"
