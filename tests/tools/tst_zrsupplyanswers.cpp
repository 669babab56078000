// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"

#include "support/fixturecatalogue.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList otherFamilies = {u"HM1"_s, u"HM4"_s, u"HM6"_s, u"HMQ"_s, u"WJA"_s};

QString nameOf(const QString &table, const QString &keyColumn, const QString &key, int language)
{
    for (const auto &row : sampleRows(table)) {
        if (row[keyColumn] == key && row[u"languageId"_s] == QString::number(language))
            return row[u"name"_s];
    }
    return {};
}

QJsonObject answer(const QStringList &words)
{
    CommandRun run = zrsupply(words + QStringList{u"--json"_s});
    run.run();
    if (run.status != 0)
        qFatal("%s: %s", qPrintable(words.join(u' ')), qPrintable(run.err));
    return run.json();
}

QString text(const QStringList &words)
{
    CommandRun run = zrsupply(words);
    run.run();
    if (run.status != 0)
        qFatal("%s: %s", qPrintable(words.join(u' ')), qPrintable(run.err));
    return run.out;
}

QStringList notes(const QJsonObject &answer)
{
    QStringList texts;
    for (const auto &note : answer[u"notes"_s].toArray())
        texts.append(note.toString());
    return texts;
}

} // namespace

/// What the verbs answer, held against the sample's text sources.
class TestZrsupplyAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRoll();
    void everyRibbon();
    void rollText();
    void typeIndex_data();
    void typeIndex();
    void rollNotes_data();
    void rollNotes();
    void rollOfNulls();
    void ribbonText();
    void ribbonOnEveryRoll();
    void lists();
    void languages();
    void decode();
    void decodeNotes_data();
    void decodeNotes();
    void encode_data();
    void encode();
    void encodeFromJson_data();
    void encodeFromJson();
};

void TestZrsupplyAnswers::everyRoll()
{
    for (const auto &roll : sampleRows(u"roll"_s)) {
        const QString sku = roll[u"itemNum"_s];
        const auto media = sampleRow(u"materialwidth"_s, u"id"_s, roll[u"materialWidthId"_s]);
        const auto color = sampleRow(u"color"_s, u"id"_s, roll[u"colorId"_s]);
        const auto stripe = sampleRow(u"continuousstripe"_s, u"itemNum"_s, sku);
        const auto dieCut = sampleRow(u"noncontinuous"_s, u"itemNum"_s, sku);
        const QString format = !stripe.isEmpty() ? u"2"_s : dieCut.value(u"formatId"_s, u"1"_s);
        const auto number = [](const QHash<QString, QString> &row, const QString &column) {
            return row.isEmpty() ? -1.0 : row[column].toDouble();
        };

        const QJsonObject says = answer({u"roll"_s, sku, u"--language"_s, u"2"_s, u"--any-family"_s});
        QCOMPARE(says[u"sku"_s].toString(), sku);
        QCOMPARE(says[u"supplyId"_s].toString(), roll[u"supplyId"_s]);
        QCOMPARE(says[u"material"_s].toInt(), media[u"materialId"_s].toInt());
        QCOMPARE(says[u"materialName"_s].toString(),
                 nameOf(u"materialTS"_s, u"materialId"_s, media[u"materialId"_s], 2));
        QCOMPARE(says[u"widthInches"_s].toDouble(), media[u"width"_s].toDouble());
        QCOMPARE(says[u"catalogueLength"_s].toInt(), media[u"length"_s].toInt());
        QCOMPARE(says[u"labelLengthInches"_s].toDouble(), media[u"nonContinuousLength"_s].toDouble());
        QCOMPARE(says[u"separatorWidthInches"_s].toDouble(), number(dieCut, u"separatorWidth"_s));
        QCOMPARE(says[u"labelsAcross"_s].toInt(), roll[u"nUpCount"_s].toInt());
        QCOMPARE(says[u"landscape"_s].toInt(), roll[u"landscape"_s].toInt());
        QCOMPARE(says[u"format"_s].toInt(), format.toInt());
        QCOMPARE(says[u"formatName"_s].toString(), nameOf(u"formatTS"_s, u"formatId"_s, format, 2));
        QCOMPARE(says[u"formatType"_s].toString(), sampleRow(u"format"_s, u"id"_s, format)[u"type"_s]);
        QCOMPARE(says[u"colorRgb"_s].toInt(), color[u"rgbValue"_s].toInt());
        QCOMPARE(says[u"colorName"_s].toString(), nameOf(u"colorTS"_s, u"colorId"_s, roll[u"colorId"_s], 2));
        QCOMPARE(says[u"colorNameEn"_s].toString(), color[u"name"_s]);
        QCOMPARE(says[u"stripeWidthInches"_s].toDouble(), number(stripe, u"secColorWidth"_s));
        if (!stripe.isEmpty()) {
            const auto stripeColor = sampleRow(u"color"_s, u"secId"_s, stripe[u"secColorId"_s]);
            QCOMPARE(says[u"stripeRgb"_s].toInt(), stripeColor[u"rgbValue"_s].toInt());
            QCOMPARE(says[u"stripeNameEn"_s].toString(), stripeColor[u"name"_s]);
        }
        const QString sensor = roll[u"supplysensorId"_s];
        QCOMPARE(says[u"sensor"_s].toInt(), sensor.isEmpty() ? -1 : sensor.toInt());
        QCOMPARE(says[u"sensorType"_s].toString(),
                 sampleRow(u"supplysensor"_s, u"id"_s, sensor)[u"supplysensortype"_s]);

        QFile picture(sourcePath(u"schema/sample/svg/"_s) +
                      sampleRow(u"background"_s, u"id"_s, roll[u"backgroundId"_s])[u"svg"_s]);
        const QByteArray bytes = picture.open(QIODevice::ReadOnly) ? picture.readAll() : QByteArray();
        QCOMPARE(says[u"backgroundSvg"_s].toString().toUtf8(), bytes);
        QCOMPARE(says[u"backgroundBytes"_s].toInt(), int(bytes.size()));
        QCOMPARE(otherFamilies.contains(media[u"machineId"_s]), says.contains(u"machineId"_s));
    }
}

void TestZrsupplyAnswers::everyRibbon()
{
    const auto panels = sampleRows(u"ribbon_panel"_s);
    for (const auto &ribbon : sampleRows(u"ribbon"_s)) {
        const QString sku = ribbon[u"sku"_s];
        const QJsonObject says = answer({u"ribbon"_s, sku, u"--language"_s, u"1"_s});
        QCOMPARE(says[u"id"_s].toString(), ribbon[u"id"_s]);
        QCOMPARE(says[u"panels"_s].toInt(), ribbon[u"panels"_s].toInt());
        QCOMPARE(says[u"widthInches"_s].toDouble(), ribbon[u"width"_s].toDouble());
        QCOMPARE(says[u"lengthInches"_s].toDouble(), ribbon[u"length"_s].toDouble());
        QCOMPARE(says[u"narrow"_s].toBool(), ribbon[u"width"_s].toDouble() < 4.5);
        QCOMPARE(says[u"clearTail"_s].toBool(), sku == "R530947"_L1 || sku == "RW530947"_L1);

        const QJsonArray list = says[u"panelList"_s].toArray();
        QCOMPARE(list.size(), qMax(2, ribbon[u"panels"_s].toInt()));
        for (const auto &panel : panels) {
            if (panel[u"ribbonId"_s] != ribbon[u"id"_s])
                continue;
            const QJsonValue shown = list[panel[u"panel"_s].toInt() - 1];
            QCOMPARE(shown[u"panel"_s].toInt(), panel[u"panel"_s].toInt());
            QCOMPARE(shown[u"colorRgb"_s].toInt(),
                     sampleRow(u"ribbon_color"_s, u"id"_s, panel[u"colorId"_s])[u"rgbValue"_s].toInt());
            QCOMPARE(shown[u"colorName"_s].toString(),
                     nameOf(u"ribbon_colorTS"_s, u"ribbon_colorId"_s, panel[u"colorId"_s], 1));
            QVERIFY(!shown.toObject().contains(u"heat"_s));
        }
        for (qsizetype beyond = ribbon[u"panels"_s].toInt(); beyond < list.size(); ++beyond)
            QCOMPARE(list[beyond][u"colorRgb"_s].toInt(), -1);
    }
}

void TestZrsupplyAnswers::rollText()
{
    const QString said = text({u"roll"_s, u"00144463"_s});
    const QStringList lines = {u"Roll 00144463"_s,
                               u"  Supply id                32100C0C802100406000"_s,
                               u"  Material                 1 Vinyl"_s,
                               u"  Width                    6 in (152.4 mm)"_s,
                               u"  Length                   1200 in (100 ft)"_s,
                               u"  Length in the catalogue  100 ft"_s,
                               u"  Label length             none, continuous"_s,
                               u"  Format                   2 Continuous, striped"_s,
                               u"  Colour                   #FFFFFF White"_s,
                               u"  Stripe                   1 1/2 in (38.1 mm)"_s,
                               u"  Stripe colour            #FF6A13 Orange"_s};
    for (const QString &line : lines)
        QVERIFY2(said.split(u'\n').contains(line), qPrintable(line + u"\nis not in\n"_s + said));
    QVERIFY(text({u"roll"_s, u"00144714"_s}).contains(u" labels\n"_s));
}

void TestZrsupplyAnswers::typeIndex_data()
{
    QTest::addColumn<QString>("sku");
    QTest::addColumn<QString>("printer");
    QTest::addColumn<int>("typeIndex");

    QTest::newRow("continuous") << u"00143465"_s << QString() << 1;
    QTest::newRow("striped") << u"00144463"_s << u"quokka"_s << 1;
    QTest::newRow("die-cut") << u"00144617"_s << QString() << 2;
    QTest::newRow("format 40 on no printer") << u"00144998"_s << QString() << 2;
    QTest::newRow("format 40 on an ibex") << u"00144998"_s << u"Ibex 4"_s << 3;
    QTest::newRow("format 40 on a marlin") << u"00144998"_s << u"MARLIN-2"_s << 3;
    QTest::newRow("format 40 on a quokka") << u"00144998"_s << u"quokka"_s << 2;
    QTest::newRow("tag") << u"00145368"_s << QString() << 3;
}

void TestZrsupplyAnswers::typeIndex()
{
    QFETCH(QString, sku);
    QFETCH(QString, printer);
    QFETCH(int, typeIndex);

    const QJsonObject says = answer({u"roll"_s, sku, u"--printer"_s, printer});
    QCOMPARE(says[u"typeIndex"_s].toInt(), typeIndex);
    QCOMPARE(says[u"printer"_s].toString(), printer);
}

void TestZrsupplyAnswers::rollNotes_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("expected");

    const QStringList none;
    QTest::newRow("nothing to remark") << QStringList{u"00143465"_s} << none;
    QTest::newRow("shared id, the shortest") << QStringList{u"143221"_s} << none;
    QTest::newRow("shared id, a longer one")
        << QStringList{u"00143221"_s}
        << QStringList{u"loading the supply id gives 143221: several rolls share it and the shortest wins."_s};
    QTest::newRow("another family") << QStringList{u"145532"_s, u"--any-family"_s}
                                    << QStringList{
                                           u"loading the supply id gives UnknownSupply: no roll on offer has it."_s,
                                           u"machine family HM1: this roll is not offered for this printer."_s};
    QTest::newRow("language without names")
        << QStringList{u"00143465"_s, u"--language"_s, u"9"_s}
        << QStringList{u"the catalogue has no names in language 9, so they are empty; it has 0, 1, 2, 3, 4, 5."_s};
}

void TestZrsupplyAnswers::rollNotes()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, expected);
    QCOMPARE(notes(answer(QStringList{u"roll"_s} + words)), expected);
}

void TestZrsupplyAnswers::rollOfNulls()
{
    const FixtureCatalogue catalogue(FixtureCatalogue::Rows::None);
    catalogue.run(u"INSERT INTO roll (itemNum, materialWidthId) VALUES ('BARE', 1), ('LOST', 2);"
                  "INSERT INTO materialwidth (id, machineId) VALUES (1, 'QKA')"_s);
    const QJsonObject says = answer({u"roll"_s, u"BARE"_s, u"--catalogue"_s, catalogue.path()});
    // NULL in a row is 0, a row that is not there is -1.
    QCOMPARE(says[u"widthInches"_s].toInt(-7), 0);
    QCOMPARE(says[u"material"_s].toInt(-7), 0);
    QCOMPARE(says[u"colorRgb"_s].toInt(-7), -1);
    QCOMPARE(says[u"supplyId"_s].toString(), QString());
    QCOMPARE(notes(says),
             QStringList{u"the catalogue has no names in language 0, so they are empty; it has no names at all."_s});

    const QString human = text({u"roll"_s, u"BARE"_s, u"--catalogue"_s, catalogue.path()});
    QVERIFY2(human.contains(u"  Supply id                none\n"_s), qPrintable(human));
    QVERIFY2(human.contains(u"  Colour                   not known\n"_s), qPrintable(human));

    CommandRun lost = zrsupply({u"roll"_s, u"LOST"_s, u"--catalogue"_s, catalogue.path()});
    lost.run();
    QCOMPARE(lost.status, 3);
    QVERIFY2(lost.err.contains(u"its row leads to no row of materialwidth"_s), qPrintable(lost.err));
}

void TestZrsupplyAnswers::ribbonText()
{
    const QString said = text({u"ribbon"_s, u"R530951"_s, u"--on"_s, u"00143465"_s});
    const QStringList lines = {u"Ribbon R530951"_s,
                               u"  Type        Resin"_s,
                               u"  Panels      2"_s,
                               u"  Width       4 1/2 in (114.3 mm)"_s,
                               u"  Length      4725 in (393.75 ft)"_s,
                               u"On roll 00143465"_s,
                               u"  Panel  Colour   Name   Heat  Max offset  Max speed  Tension"_s,
                               u"      1  #000000  Black   104          12         75        6"_s,
                               u"      2  #D22630  Red     106          12         75        7"_s};
    for (const QString &line : lines)
        QVERIFY2(said.split(u'\n').contains(line), qPrintable(line + u"\nis not in\n"_s + said));
    QVERIFY(text({u"ribbon"_s, u"R4417TX"_s}).contains(u"  Prints on   no material\n"_s));
}

void TestZrsupplyAnswers::ribbonOnEveryRoll()
{
    const auto heats = sampleRows(u"ribbon_heat"_s);
    const auto ribbon = sampleRow(u"ribbon"_s, u"sku"_s, u"R530961"_s);
    for (const auto &media : sampleRows(u"materialwidth"_s)) {
        const auto roll = sampleRow(u"roll"_s, u"materialWidthId"_s, media[u"id"_s]);
        if (roll.isEmpty())
            continue;
        const QJsonObject says =
            answer({u"ribbon"_s, u"R530961"_s, u"--on"_s, roll[u"itemNum"_s], u"--any-family"_s});
        QCOMPARE(says[u"on"_s][u"sku"_s].toString(), roll[u"itemNum"_s]);
        const QJsonArray list = says[u"panelList"_s].toArray();
        QCOMPARE(list.size(), 3);
        for (const auto &panel : list) {
            QJsonObject expected = {
                {u"heat"_s, -1}, {u"maxHeatOffset"_s, -1}, {u"maxSpeed"_s, -1}, {u"tension"_s, -1}};
            for (const auto &heat : heats) {
                const bool same = heat[u"ribbonId"_s] == ribbon[u"id"_s] &&
                                  heat[u"panel"_s].toInt() == panel[u"panel"_s].toInt() &&
                                  heat[u"materialId"_s] == media[u"materialId"_s];
                if (same) {
                    expected = {{u"heat"_s, heat[u"heat"_s].toInt()},
                                {u"maxHeatOffset"_s, heat[u"max_offset"_s].toInt()},
                                {u"maxSpeed"_s, heat[u"max_speed"_s].toInt()},
                                {u"tension"_s, heat[u"tension"_s].toInt()}};
                }
            }
            for (auto value = expected.begin(); value != expected.end(); ++value)
                QCOMPARE(panel[value.key()], value.value());
        }
    }
}

void TestZrsupplyAnswers::lists()
{
    QStringList offered;
    for (const auto &roll : sampleRows(u"roll"_s)) {
        const auto media = sampleRow(u"materialwidth"_s, u"id"_s, roll[u"materialWidthId"_s]);
        if (!otherFamilies.contains(media[u"machineId"_s]))
            offered.append(roll[u"itemNum"_s]);
    }
    QStringList plain = text({u"list"_s, u"rolls"_s, u"--plain"_s}).split(u'\n', Qt::SkipEmptyParts);
    const QJsonArray rolls = answer({u"list"_s, u"rolls"_s})[u"rolls"_s].toArray();
    QCOMPARE(rolls.size(), plain.size());
    plain.sort();
    offered.sort();
    QCOMPARE(plain, offered);
    QVERIFY(text({u"list"_s, u"rolls"_s}).contains(u"#FF6A13"_s));

    const QJsonArray ribbons = answer({u"list"_s, u"ribbons"_s})[u"ribbons"_s].toArray();
    QCOMPARE(ribbons.size(), sampleRows(u"ribbon"_s).size());
    QCOMPARE(answer({u"list"_s, u"ribbons"_s, u"--plain"_s})[u"ribbons"_s].toArray().size(), ribbons.size());

    QHash<QString, int> colors;
    for (const auto &color : answer({u"list"_s, u"colours"_s})[u"colours"_s].toArray())
        colors.insert(color[u"of"_s].toString() + u' ' + color[u"name"_s].toString(), color[u"rgb"_s].toInt());
    for (const auto &color : sampleRows(u"color"_s))
        QCOMPARE(colors.value(u"rolls "_s + color[u"name"_s], -7), color[u"rgbValue"_s].toInt());
    for (const auto &color : sampleRows(u"ribbon_color"_s))
        QCOMPARE(colors.value(u"ribbons "_s + color[u"name"_s], -7), color[u"rgbValue"_s].toInt());
}

void TestZrsupplyAnswers::languages()
{
    QCOMPARE(text({u"list"_s, u"languages"_s, u"--plain"_s}), u"0\n1\n2\n3\n4\n5\n"_s);
    const QJsonArray known = answer({u"list"_s, u"languages"_s})[u"languages"_s].toArray();
    QCOMPARE(known.size(), 6);
    QCOMPARE(known[1][u"language"_s].toString(), u"de"_s);
    QCOMPARE(known[1][u"colors"_s].toInt(), int(sampleRows(u"color"_s).size()));

    // A catalogue need not say what its languages are called, nor have all names in each.
    const FixtureCatalogue catalogue(FixtureCatalogue::Rows::None);
    catalogue.run(u"DROP TABLE meta; INSERT INTO colorTS VALUES (1, 7, 'x'), (2, 7, 'y');"
                  "INSERT INTO ribbon_typeTS VALUES (1, 3, 'z')"_s);
    const QJsonArray odd = answer({u"list"_s, u"languages"_s, u"--catalogue"_s, catalogue.path(), u"--language"_s,
                                   u"3"_s})[u"languages"_s]
                               .toArray();
    QCOMPARE(odd.size(), 2);
    QCOMPARE(odd[0][u"id"_s].toInt(), 3);
    QCOMPARE(odd[0][u"ribbonTypes"_s].toInt(), 1);
    QCOMPARE(odd[0][u"colors"_s].toInt(), 0);
    QCOMPARE(odd[1][u"colors"_s].toInt(), 2);
    QCOMPARE(odd[1][u"language"_s].toString(), QString());
}

void TestZrsupplyAnswers::decode()
{
    const QString said = text({u"tag"_s, u"decode"_s, u"3233C08C8022804042451300"_s});
    const QStringList lines = {u"  Layout         non-continuous, revision 2 or more"_s,
                               u"  Labels across  3"_s,
                               u"  Gap across     1/8 in (3.2 mm)"_s,
                               u"   Bits  Field                             Raw  Value  Meaning"_s,
                               u"    0-8  mileage-base-feet                 100    100  100 ft"_s,
                               u"  87-88  type-index                          2      3  code 3"_s,
                               u"      -  sec-color-enum                      -      0  not carried"_s};
    for (const QString &line : lines)
        QVERIFY2(said.split(u'\n').contains(line), qPrintable(line + u"\nis not in\n"_s + said));

    const QJsonObject json = answer({u"tag"_s, u"decode"_s, u"3204318C8020804041410000"_s});
    QCOMPARE(json[u"continuous"_s].toBool(), true);
    QCOMPARE(json[u"fields"_s].toArray().size(), 24);
    const QJsonValue width = json[u"fields"_s][12];
    QCOMPARE(width[u"name"_s].toString(), u"width-inches"_s);
    QCOMPARE(width[u"bits"_s].toArray(), (QJsonArray{62, 67}));
    QCOMPARE(width[u"value"_s].toInt(), 4);
    QCOMPARE(width[u"meaning"_s].toString(), u"4 in"_s);
    QCOMPARE(json[u"fields"_s][19][u"carried"_s].toBool(true), false);
    QVERIFY(json[u"fields"_s][19][u"bits"_s].isNull());
}

void TestZrsupplyAnswers::decodeNotes_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QStringList>("expected");

    const QString whole = u"3200000C8020804041410000"_s;
    const QString missing = u"a tag has 24 digits, here are %1; the missing bits at the end are read as zero."_s;
    QTest::newRow("24 digits") << whole << QStringList();
    QTest::newRow("lower case") << whole.toLower() << QStringList();
    QTest::newRow("longer") << whole + u"ABCDEF"_s << QStringList{u"only the first 24 of 30 characters are read."_s};
    QTest::newRow("short") << whole.left(20) << QStringList{missing.arg(20)};
    QTest::newRow("empty") << QString() << QStringList{missing.arg(0)};
    const QString odd = u"%1 digits are an odd number: they are read as if a 0 stood in front, so every field is "
                        "four bits off what was probably meant."_s;
    QTest::newRow("odd by one") << whole.left(23) << QStringList{odd.arg(23)};
    QTest::newRow("odd and short") << whole.left(5) << QStringList{odd.arg(5), missing.arg(5)};
    QTest::newRow("a stray letter") << u"32G0000C8020804041410000"_s
                                    << QStringList{u"not hexadecimal digits, passed over: 'G' (character 3)."_s,
                                                   odd.arg(23)};
    QTest::newRow("a foreign digit")
        << u"\u0663\u0663"_s + whole.left(22)
        << QStringList{u"not hexadecimal digits, passed over: '\u0663' (character 1), '\u0663' (character 2)."_s,
                       missing.arg(22)};
    QTest::newRow("bits that nothing reads")
        << u"32000000000000000000007F"_s
        << QStringList{u"set, but not read in this layout: bits 89-95 (binary 1111111)."_s};
}

void TestZrsupplyAnswers::decodeNotes()
{
    QFETCH(QString, tag);
    QFETCH(QStringList, expected);
    QCOMPARE(notes(answer({u"tag"_s, u"decode"_s, tag})), expected);
}

void TestZrsupplyAnswers::encode_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("tag");

    QTest::newRow("continuous") << u"--mileage-base-feet 100 --length-feet 100 --material-enum 1 --format-enum 1 "
                                   "--color-enum 1 --width-inches 4 --tag-revision 1 --tag-flag-bit73 true "
                                   "--format-enum-rev1 1"_s
                                << u"3200000C8020804041410000"_s;
    QTest::newRow("one flag") << u"--swift-lift true"_s << u"002000000000000000000000"_s;
    QTest::newRow("last value wins") << u"--width-inches 1 --width-inches 4"_s << u"000000000000000040000000"_s;
    QTest::newRow("type index 4") << u"--tag-revision 2 --type-index 4"_s << u"000000000000000002000180"_s;
}

void TestZrsupplyAnswers::encode()
{
    QFETCH(QString, fields);
    QFETCH(QString, tag);

    const QStringList words = QStringList{u"tag"_s, u"encode"_s} + fields.split(u' ');
    QCOMPARE(text(words), tag + u'\n');
    const QJsonObject json = answer(words);
    QCOMPARE(json[u"tag"_s].toString(), tag);
    QCOMPARE(json[u"supplyId"_s].toString(), tag.left(20));
}

void TestZrsupplyAnswers::encodeFromJson_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("outcome");

    const QByteArray decoded = text({u"tag"_s, u"decode"_s, u"--json"_s, u"3233C08C8022804042451300"_s}).toUtf8();
    const QStringList none;
    QTest::newRow("what decode says") << decoded << none << 0 << u"3233C08C8022804042451300\n"_s;
    QTest::newRow("what decode says, one field replaced")
        << decoded << QStringList{u"--mileage-base-feet"_s, u"0"_s} << 0 << u"0033C08C8022804042451300\n"_s;
    QTest::newRow("both spellings of names")
        << QByteArray("{\"width-inches\": 4, \"swiftLift\": true}") << none << 0 << u"002000000000000040000000\n"_s;
    QTest::newRow("flag as a number") << QByteArray("{\"swiftLift\": 1}") << none << 0
                                      << u"002000000000000000000000\n"_s;
    QTest::newRow("flag as 2") << QByteArray("{\"swiftLift\": 2}") << none << 1 << u"swift-lift is true or false"_s;
    QTest::newRow("no JSON") << QByteArray("{\"width-inches\": }") << none << 1 << u"- is not JSON: "_s;
    QTest::newRow("a list") << QByteArray("[1, 2]") << none << 1 << u"- holds no JSON object"_s;
    QTest::newRow("nothing") << QByteArray() << none << 1 << u"- is not JSON: "_s;
    QTest::newRow("empty object") << QByteArray("{}") << none << 2 << u"no field is given"_s;
    QTest::newRow("unknown field") << QByteArray("{\"widht\": 4}") << none << 1 << u"a tag has no field \"widht\""_s;
    QTest::newRow("half an inch") << QByteArray("{\"widthInches\": 4.5}") << none << 1
                                  << u"width-inches is a whole number"_s;
    QTest::newRow("text in place of a number")
        << QByteArray("{\"widthInches\": \"4\"}") << none << 1 << u"width-inches is a whole number"_s;
    QTest::newRow("out of range") << QByteArray("{\"widthInches\": 400}") << none << 2
                                  << u"width-inches is 400, but its 6 bits hold 0 to 63"_s;
}

void TestZrsupplyAnswers::encodeFromJson()
{
    QFETCH(QByteArray, input);
    QFETCH(QStringList, options);
    QFETCH(int, status);
    QFETCH(QString, outcome);

    CommandRun run = zrsupply(QStringList{u"tag"_s, u"encode"_s, u"-"_s} + options);
    run.input = input;
    run.run();
    QCOMPARE(run.status, status);
    if (status == 0)
        QCOMPARE(run.out, outcome);
    else
        QVERIFY2(run.out.isEmpty() && run.err.contains(outcome), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(TestZrsupplyAnswers)
#include "tst_zrsupplyanswers.moc"
