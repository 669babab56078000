// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/ask.h"
#include "support/fixturecatalogue.h"
#include "support/statementlist.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

/// Colours and names by the codes that a tag carries, and the table of colours.
class TestRollCodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void byCode_data();
    void byCode();
    void closedCatalogue_data();
    void closedCatalogue();
    void colorHash_data();
    void colorHash();
    void closedColorHash();

private:
    const FixtureCatalogue m_catalogue;
};

void TestRollCodes::byCode_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<int>("language");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QString>("text");

    const auto rgb = [](const char *phrase, bool isPrimary, int code, int expected) {
        const char *const operation = isPrimary ? "getColorRGBFromEnum" : "getSecColorRGBFromEnum";
        QTest::addRow("%s: %s", operation, phrase)
            << QString::fromLatin1(operation) << QVariantList{code} << 7 << QVariant(expected)
            << filled(isPrimary ? "colorRgb" : "secColorRgb", {QString::number(code)});
    };
    rgb("found", true, 2, 16711680);
    rgb("another", true, 3, 255);
    rgb("unknown code", true, 99, -1);
    rgb("code of the other numbering", true, 12, -1);
    rgb("NULL colour is 0 by code, not -1", true, 4, 0);
    rgb("colour without a name", true, 5, 32768);
    rgb("code 0", true, 0, -1);
    rgb("negative code", true, -1, -1);
    rgb("largest code", true, 2147483647, -1);
    rgb("found", false, 12, 16711680);
    rgb("unknown code", false, 99, -1);
    rgb("code of the other numbering", false, 2, -1);
    rgb("NULL colour is 0 by code, not -1", false, 14, 0);
    rgb("negative code", false, -2147483647 - 1, -1);

    const auto named = [](const char *phrase, const char *operation, const char *statement, int code,
                          const QVariantList &english, int language, const char *expected) {
        const bool isEnglish = !english.isEmpty() && english.first().toBool();
        const QStringList values = {QString::number(code), QString::number(isEnglish ? 0 : language)};
        QTest::addRow("%s: %s", operation, phrase)
            << QString::fromLatin1(operation) << QVariantList{code} + english << language
            << QVariant(QString::fromUtf8(expected)) << filled(statement, values);
    };
    const auto color = [&named](const char *phrase, int code, bool english, int language, const char *expected) {
        named(phrase, "getColorNameFromEnum", "colorName", code, {english}, language, expected);
    };
    color("English whatever the language", 2, true, 7, "Red (en)");
    color("English in English", 2, true, 0, "Red (en)");
    color("English where the language has no names", 2, true, 8, "Red (en)");
    color("language of the user", 2, false, 7, "Rot");
    color("language 0", 2, false, 0, "Red (en)");
    // Deliberate: -1 as text by code, where a SKU without a name gives an empty text.
    color("language without names is -1 as text", 2, false, 8, "-1");
    color("negative language", 2, false, -7, "-1");
    color("unknown code is -1 as text", 99, false, 7, "-1");
    color("unknown code in English is -1 as text", 99, true, 7, "-1");
    color("colour without names in any language", 5, true, 0, "-1");
    color("NULL name", 4, true, 7, "");
    color("negative code", -1, true, 0, "-1");

    const auto stripe = [&named](const char *phrase, int code, bool english, int language, const char *expected) {
        named(phrase, "getSecColorNameFromEnum", "secColorName", code, {english}, language, expected);
    };
    stripe("English whatever the language", 13, true, 7, "Blue (en)");
    stripe("language of the user", 13, false, 7, "Blau");
    stripe("language without names is -1 as text", 13, false, 8, "-1");
    stripe("English where the language has no names", 13, true, 8, "Blue (en)");
    stripe("code of the other numbering", 3, true, 0, "-1");
    stripe("unknown code is -1 as text", 99, true, 0, "-1");
    stripe("colour without names in any language", 15, false, 0, "-1");
    stripe("NULL name", 14, true, 7, "");

    const auto material = [&named](const char *phrase, int code, int language, const char *expected) {
        named(phrase, "getMaterialNameFromEnum", "materialName", code, {}, language, expected);
    };
    material("found", 5, 0, "Paper");
    material("language of the user", 5, 7, "Papier");
    material("language without names is -1 as text", 5, 8, "-1");
    material("unknown code is -1 as text", 99, 0, "-1");
    material("NULL name", 6, 0, "");
    material("NULL in English, nothing in this language", 6, 7, "-1");

    const auto format = [&named](const char *phrase, int code, int language, const char *expected) {
        named(phrase, "getFormatNameFromEnum", "formatName", code, {}, language, expected);
    };
    format("found", 9, 0, "Label");
    format("language of the user", 9, 7, "Etikett");
    format("language without names is -1 as text", 9, 8, "-1");
    format("unknown code is -1 as text", 98, 0, "-1");
    format("NULL name", 55, 0, "");
}

void TestRollCodes::byCode()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(int, language);
    QFETCH(QVariant, expected);
    QFETCH(QString, text);
    RecordedDatabase recorded(m_catalogue.path());
    recorded->setLanguageId(language);
    QVERIFY(answers(recorded, operation, arguments, expected, {text}));
}

void TestRollCodes::closedCatalogue_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("colour") << u"getColorRGBFromEnum"_s << QVariantList{1} << QVariant(-1);
    QTest::newRow("stripe colour") << u"getSecColorRGBFromEnum"_s << QVariantList{11} << QVariant(-1);
    QTest::newRow("colour name") << u"getColorNameFromEnum"_s << QVariantList{1, true} << QVariant(u"-1"_s);
    QTest::newRow("stripe colour name") << u"getSecColorNameFromEnum"_s << QVariantList{11, true}
                                        << QVariant(u"-1"_s);
    QTest::newRow("material name") << u"getMaterialNameFromEnum"_s << QVariantList{1} << QVariant(u"-1"_s);
    QTest::newRow("format name") << u"getFormatNameFromEnum"_s << QVariantList{1} << QVariant(u"-1"_s);
}

void TestRollCodes::closedCatalogue()
{
    QFETCH(QString, operation);
    QFETCH(QVariantList, arguments);
    QFETCH(QVariant, expected);
    ZrSupplyDatabase closed;
    const QVariant answer = ask::directly(closed, operation, arguments);
    QCOMPARE(answer.metaType(), expected.metaType());
    QCOMPARE(answer, expected);
}

void TestRollCodes::colorHash_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QVariantHash>("expected");

    const QString emptied = u"DELETE FROM color; "_s;
    const QString insert = u"INSERT INTO color (id, rgbValue, name) VALUES "_s;
    const QString loose = u"DROP TABLE color; CREATE TABLE color (id, secId, rgbValue, name); "_s;
    QTest::newRow("NULL colour is 0, NULL name an empty key, other languages no matter")
        << QString()
        << QVariantHash{{u"White"_s, 16777215},
                        {u"Red"_s, 16711680},
                        {u"Blue"_s, 255},
                        {u"Unmeasured"_s, 0},
                        {QString(), 32768}};
    QTest::newRow("none") << emptied << QVariantHash{};
    QTest::newRow("one") << emptied + insert + u"(9, 65280, 'Green')"_s << QVariantHash{{u"Green"_s, 65280}};
    QTest::newRow("three") << emptied + insert + u"(1, 1, 'One'), (2, 2, 'Two'), (3, 3, 'Three')"_s
                           << QVariantHash{{u"One"_s, 1}, {u"Two"_s, 2}, {u"Three"_s, 3}};
    QTest::newRow("equal names: the later row's")
        << emptied + insert + u"(1, 111, 'Grey'), (2, 222, 'White'), (3, 333, 'Grey')"_s
        << QVariantHash{{u"Grey"_s, 333}, {u"White"_s, 222}};
    QTest::newRow("equal names, the later row's NULL")
        << emptied + insert + u"(1, 111, 'Grey'), (2, NULL, 'Grey')"_s << QVariantHash{{u"Grey"_s, 0}};
    QTest::newRow("names that differ in case") << emptied + insert + u"(1, 111, 'Grey'), (2, 222, 'grey')"_s
                                               << QVariantHash{{u"Grey"_s, 111}, {u"grey"_s, 222}};
    QTest::newRow("colours that are no integers, a name that is no text")
        << loose + u"INSERT INTO color VALUES (1, 1, 'red', 'Text'), (2, 2, '12', 'Digits'), (3, 3, 2.25, 42)"_s
        << QVariantHash{{u"Text"_s, 0}, {u"Digits"_s, 12}, {u"42"_s, 2}};
    QTest::newRow("no table") << u"DROP TABLE color"_s << QVariantHash{};
    QTest::newRow("no column") << u"DROP TABLE color; CREATE TABLE color (id, name); "
                                  "INSERT INTO color VALUES (1, 'Red')"_s
                               << QVariantHash{};
}

void TestRollCodes::colorHash()
{
    QFETCH(QString, script);
    QFETCH(QVariantHash, expected);
    const FixtureCatalogue catalogue;
    catalogue.run(script);
    RecordedDatabase recorded(catalogue.path());
    recorded->setLanguageId(7);
    QVERIFY(answers(recorded, u"supplyColorHash"_s, {}, expected, {filled("colorTable")}));
    const QVariantHash colors = recorded->supplyColorHash();
    for (const QVariant &rgb : colors)
        QCOMPARE(rgb.metaType(), QMetaType::fromType<int>());
}

void TestRollCodes::closedColorHash()
{
    ZrSupplyDatabase closed;
    QCOMPARE(closed.supplyColorHash(), QVariantHash());
}

QTEST_GUILESS_MAIN(TestRollCodes)
#include "tst_rollcodes.moc"
