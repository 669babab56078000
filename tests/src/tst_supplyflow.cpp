// SPDX-License-Identifier: LGPL-2.1-or-later
// A roll is taken in: the tag into the members, the id into a SKU, and what is announced on the way.

#include "support/privatemember.h"
#include "support/recordingdriver.h"
#include "support/rollcatalogue.h"
#include "support/signallog.h"
#include "support/statementlist.h"

#include <zrsupplydatabase.h>

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <QtTest/QTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace rolls;

// What the object keeps of a tag without an accessor.
ZR_PRIVATE_MEMBER(TagFlagBit9, ZrSupplyDatabase, m_supplyTagFlagBit9);
ZR_PRIVATE_MEMBER(TagFlagBit25, ZrSupplyDatabase, m_supplyTagFlagBit25);
ZR_PRIVATE_MEMBER(TagFlagBit72, ZrSupplyDatabase, m_supplyTagFlagBit72);
ZR_PRIVATE_MEMBER(TagFlagBit73, ZrSupplyDatabase, m_supplyTagFlagBit73);
ZR_PRIVATE_MEMBER(LengthFeet, ZrSupplyDatabase, m_supplyLengthFeet);
ZR_PRIVATE_MEMBER(FormatName, ZrSupplyDatabase, m_supplyFormatName);

namespace {

/// What one decoded tag asks: stripe colour, material, format and roll colour, each name in its language.
QStringList tagQueries(const QString &stripe, const QString &material, const QString &format, const QString &color,
                       const QString &language)
{
    return {filled("secColorRgb", {stripe}),          filled("secColorName", {stripe, language}),
            filled("secColorName", {stripe, u"0"_s}), filled("materialName", {material, language}),
            filled("formatName", {format, language}), filled("colorRgb", {color}),
            filled("colorName", {color, language}),   filled("colorName", {color, u"0"_s})};
}

QString shortest(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

using Operation = std::function<void(ZrSupplyDatabase &)>;

} // namespace

Q_DECLARE_METATYPE(Operation)

class SupplyFlow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagFillsTheMembers_data();
    void tagFillsTheMembers();
    void keptWithoutAnAccessor();
    void namesKeepTheLanguageTheTagWasReadIn();
    void idBecomesSku_data();
    void idBecomesSku();
    void withoutASkuTheRollIsUnknown_data();
    void withoutASkuTheRollIsUnknown();
    void announced_data();
    void announced();
    void asked_data();
    void asked();
    void sharedIdIsNeverShared_data();
    void sharedIdIsNeverShared();

private:
    const RollCatalogue m_catalogue;
};

void SupplyFlow::tagFillsTheMembers_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QStringList>("answers");

    QTest::newRow("striped, revision 0, translated")
        << 7 << striped
        << QStringList{u"base 3600, length 1800, width 6.25, stripe 1.1875, label 0, separator 0.0625, gap 0.1875"_s,
                       u"across 1, landscape 1, swift 1, material 1, format 2, type 1 2"_s,
                       u"roll 255 <Blau> <Blue (en)>, stripe 16711680 <Rot> <Red (en)>"_s,
                       u"material <Folie>, announced 255"_s};
    QTest::newRow("die-cut, revision 1: format of its own, landscape not read")
        << 0 << dieCut
        << QStringList{u"base 1200, length 2400, width 3.5, stripe 0, label 4.5, separator 0.125, gap 0.0625"_s,
                       u"across 1, landscape 1, swift 0, material 5, format 9, type 3 2"_s,
                       u"roll 16711680 <Red (en)> <Red (en)>, stripe -1 <-1> <-1>"_s,
                       u"material <Paper>, announced 16711680"_s};
    QTest::newRow("die-cut, revision 2: multi-up, landscape and type of its own")
        << 7 << multiUp
        << QStringList{u"base 6132, length 900, width 8, stripe 0, label 2.125, separator 0.25, gap 0.25"_s,
                       u"across 4, landscape 0, swift 1, material 18, format 40, type 4 4"_s,
                       u"roll 16777215 <Weiß> <White (en)>, stripe -1 <-1> <-1>"_s,
                       u"material <Polyesterfolie>, announced 16777215"_s};
    QTest::newRow("continuous, revision 2")
        << 0 << longRoll
        << QStringList{u"base 1080, length 360, width 4.125, stripe 0.5, label 0, separator 0.0625, gap 0.125"_s,
                       u"across 2, landscape 1, swift 0, material 1, format 1, type 1 1"_s,
                       u"roll 16777215 <White (en)> <White (en)>, stripe 255 <Blue (en)> <Blue (en)>"_s,
                       u"material <Vinyl>, announced 16777215"_s};
    QTest::newRow("landscape, revision 3, everything else at its limits")
        << 0 << u"0091FF80205F80BC0300F800"_s
        << QStringList{u"base 12, length 12, width 0.9375, stripe 0, label 63.9375, separator 0.0625, gap 0.0625"_s,
                       u"across 32, landscape 1, swift 0, material 2, format 63, type 1 1"_s,
                       u"roll 16711680 <Red (en)> <Red (en)>, stripe -1 <-1> <-1>"_s,
                       u"material <-1>, announced 16711680"_s};
    QTest::newRow("NULL colour, NULL names")
        << 0 << u"05000F0280C0810050000000"_s
        << QStringList{u"base 120, length 240, width 5, stripe 1, label 0, separator 0.0625, gap 0.0625"_s,
                       u"across 1, landscape 1, swift 0, material 6, format 1, type 1 2"_s,
                       u"roll 0 <> <>, stripe 0 <> <>"_s, u"material <>, announced 0"_s};
    QTest::newRow("colour without a translation")
        << 0 << u"0502078280C1014051370000"_s
        << QStringList{u"base 120, length 240, width 5, stripe 0.0625, label 0, separator 0.0625, gap 0.0625"_s,
                       u"across 1, landscape 1, swift 0, material 6, format 55, type 1 2"_s,
                       u"roll 32768 <-1> <-1>, stripe 32768 <-1> <-1>"_s, u"material <>, announced 32768"_s};
    QTest::newRow("language without names")
        << 8 << striped
        << QStringList{u"base 3600, length 1800, width 6.25, stripe 1.1875, label 0, separator 0.0625, gap 0.1875"_s,
                       u"across 1, landscape 1, swift 1, material 1, format 2, type 1 2"_s,
                       u"roll 255 <-1> <Blue (en)>, stripe 16711680 <-1> <Red (en)>"_s,
                       u"material <-1>, announced 255"_s};
    QTest::newRow("every bit set")
        << 0 << u"FFFFFFFFFFFFFFFFFFFFFFFF"_s
        << QStringList{u"base 6132, length 6132, width 63.9375, stripe 0, label 63.9375, separator 0.25, gap 0.25"_s,
                       u"across 32, landscape 1, swift 1, material 255, format 63, type 4 4"_s,
                       u"roll -1 <-1> <-1>, stripe -1 <-1> <-1>"_s, u"material <-1>, announced -1"_s};
    const QStringList zeros = {u"base 0, length 0, width 0, stripe 0, label 0, separator 0.0625, gap 0.0625"_s,
                               u"across 1, landscape 1, swift 0, material 0, format 0, type 1 2"_s,
                               u"roll -1 <-1> <-1>, stripe -1 <-1> <-1>"_s, u"material <-1>, announced -1"_s};
    QTest::newRow("empty id") << 0 << QString() << zeros;
    QTest::newRow("no digit in the id") << 0 << u"no row, no roll"_s << zeros;
    QTest::newRow("minus one and a blank is not the reset")
        << 0 << u"-1 "_s
        << QStringList{u"base 24, length 0, width 0, stripe 0, label 0, separator 0.0625, gap 0.0625"_s, zeros[1],
                       zeros[2], zeros[3]};
    QTest::newRow("30 characters: the first 24 are decoded")
        << 0 << multiUp + u"FFFFFF"_s
        << QStringList{u"base 6132, length 900, width 8, stripe 0, label 2.125, separator 0.25, gap 0.25"_s,
                       u"across 4, landscape 0, swift 1, material 18, format 40, type 4 4"_s,
                       u"roll 16777215 <White (en)> <White (en)>, stripe -1 <-1> <-1>"_s,
                       u"material <Polyester>, announced 16777215"_s};
    QTest::newRow("24 characters of which six are no digits: the digits beyond are not decoded")
        << 0 << u"______"_s + striped
        << QStringList{u"base 3600, length 1800, width 6.25, stripe 1.1875, label 0, separator 0.0625, gap 0.0625"_s,
                       u"across 1, landscape 1, swift 1, material 1, format 2, type 1 2"_s,
                       u"roll 255 <Blue (en)> <Blue (en)>, stripe 16711680 <Red (en)> <Red (en)>"_s,
                       u"material <Vinyl>, announced 255"_s};
}

void SupplyFlow::tagFillsTheMembers()
{
    QFETCH(int, language);
    QFETCH(QString, id);
    QFETCH(QStringList, answers);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setLanguageId(language);
    database.setSupplyId(id);
    QCOMPARE(tagAnswers(database), answers);
    QCOMPARE(database.supplyId(), id);

    // The decoding alone fills the same members, silently; the announced colour is not one of them.
    ZrSupplyDatabase decoding;
    SignalLog log(&decoding);
    decoding.setLanguageId(language);
    decoding.setSupplySKU(database.supplySKU());
    QVERIFY(QMetaObject::invokeMethod(&decoding, "updateCachedSupplyCData", Q_ARG(QString, id.left(24))));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(tagAnswers(decoding).first(3), answers.first(3));
    QCOMPARE(identity(decoding), QStringList({database.supplySKU(), u"-1"_s}));
    QCOMPARE(decoding.supplySupplyRGB(), u"-1"_s);
}

void SupplyFlow::keptWithoutAnAccessor()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    const auto kept = [&database] {
        return u"%1%2%3%4 %5 <%6>"_s.arg(
            QString::number(database.*memberOf(TagFlagBit9{})), QString::number(database.*memberOf(TagFlagBit25{})),
            QString::number(database.*memberOf(TagFlagBit72{})), QString::number(database.*memberOf(TagFlagBit73{})),
            QString::number(database.*memberOf(LengthFeet{})), database.*memberOf(FormatName{}));
    };
    database.setSupplyId(striped);
    QCOMPARE(kept(), u"1110 150 <Striped>"_s);
    database.setSupplyId(dieCut);
    QCOMPARE(kept(), u"0001 200 <-1>"_s);
    database.setSupplyId(multiUp);
    QCOMPARE(kept(), u"1011 75 <-1>"_s);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(kept(), u"1011 75 <>"_s);
}

void SupplyFlow::namesKeepTheLanguageTheTagWasReadIn()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setLanguageId(7);
    database.setSupplyId(striped);
    database.setLanguageId(0);
    QCOMPARE(database.supplyColorName(), u"Blau"_s);
    QCOMPARE(database.supplySecColorName(), u"Rot"_s);
    QCOMPARE(database.supplyMaterialName(), u"Folie"_s);
    QCOMPARE(database.supplyColorName(u"STRIPED-ROLL"_s), u"White (en)"_s);
}

void SupplyFlow::idBecomesSku_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sku");

    QTest::newRow("one roll") << striped.left(20) << u"STRIPED-ROLL"_s;
    QTest::newRow("24 characters: the first 20 identify") << striped << u"STRIPED-ROLL"_s;
    QTest::newRow("30 characters: the first 20 identify") << striped + u"ABCDEF"_s << u"STRIPED-ROLL"_s;
    QTest::newRow("19 characters are kept whole") << u"C200000000000000000"_s << u"NINETEEN"_s;
    QTest::newRow("20 characters") << u"C2000000000000000000"_s << u"TWENTY"_s;
    QTest::newRow("revision 1") << dieCut << u"CUT-ROLL"_s;
    QTest::newRow("shared id: the shortest SKU") << u"A1000000000000000000"_s << u"SHORT"_s;
    QTest::newRow("shared with a shorter SKU of another family") << u"A2000000000000000000"_s << u"OFFERED"_s;
    QTest::newRow("family HM1 is left out") << u"B1000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family HM4 is left out") << u"B2000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family HM6 is left out") << u"B3000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family HMQ is left out") << u"B4000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family WJA is left out") << u"B5000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family HM2 is not left out") << u"B6000000000000000000"_s << u"OF-HM2"_s;
    QTest::newRow("family in lower case is not left out") << u"B7000000000000000000"_s << u"OF-hmq"_s;
    QTest::newRow("NULL family is left out") << u"B8000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("family with a blank is not left out") << u"B9000000000000000000"_s << u"OF-BLANK"_s;
    QTest::newRow("material width that is not there") << u"BA000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("empty SKU wins by length and is unknown") << u"C1000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("no row") << u"D1000000000000000000"_s << u"UnknownSupply"_s;
    QTest::newRow("lower case is another id") << striped.toLower() << u"UnknownSupply"_s;
    QTest::newRow("empty id is looked up too") << QString() << u"NO-ID"_s;
    QTest::newRow("minus one and a blank is looked up") << u"-1 "_s << u"BLANK"_s;
    QTest::newRow("placeholder in the id stays as it stands") << u"%1"_s << u"PERCENT"_s;
    QTest::newRow("quote in the id fails the statement") << u"96660E52C02'00D06089"_s << u"UnknownSupply"_s;
    QTest::newRow("quotes that keep the text whole") << u"' OR 1=1 OR ''='"_s << u"UnknownSupply"_s;
    QTest::newRow("quotes that find another id's roll") << u"x'OR nUpCount='3"_s << u"DIECUT"_s;
}

void SupplyFlow::idBecomesSku()
{
    QFETCH(QString, id);
    QFETCH(QString, sku);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    SignalLog log(&database);
    database.setSupplyId(id);
    QCOMPARE(log.take().first(), u"supplyChangedSignal(\"%1\")"_s.arg(sku));
    QCOMPARE(identity(database), QStringList({sku, id}));

    const QString sought = database.getSkuFromSupplyId(id.left(20));
    QCOMPARE(sought.isEmpty() ? u"UnknownSupply"_s : sought, sku);
    QCOMPARE(log.take(), QStringList());
}

void SupplyFlow::withoutASkuTheRollIsUnknown_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("opened");

    QTest::newRow("closed catalogue") << QString() << false;
    QTest::newRow("no roll table") << u"DROP TABLE roll"_s << true;
    QTest::newRow("NULL SKU") << u"DROP TABLE roll; CREATE TABLE roll (itemNum, supplyId, materialWidthId);"
                                 "INSERT INTO roll VALUES (NULL, '96660E52C02100D06089', 10),"
                                 " ('NAMED', '96660E52C02100D06089', 10)"_s
                              << true;
}

void SupplyFlow::withoutASkuTheRollIsUnknown()
{
    QFETCH(QString, script);
    QFETCH(bool, opened);

    const RollCatalogue own;
    own.run(script);
    ZrSupplyDatabase database;
    if (opened)
        QVERIFY(database.setup(own.path()));
    QVERIFY(database.getSkuFromSupplyId(striped.left(20)).isEmpty());
    SignalLog log(&database);
    database.setSupplyId(striped);
    QCOMPARE(log.take(), QStringList({u"supplyChangedSignal(\"UnknownSupply\")"_s, u"supplyPercentChanged(-1)"_s,
                                      opened ? u"supplyRGBChanged(\"255\")"_s : u"supplyRGBChanged(\"-1\")"_s,
                                      u"notifySupplySensor(-1)"_s}));
    QCOMPARE(identity(database), QStringList({u"UnknownSupply"_s, striped}));
    QCOMPARE(tagAnswers(database).first(),
             u"base 3600, length 1800, width 6.25, stripe 1.1875, label 0, separator 0.0625, gap 0.1875"_s);
}

void SupplyFlow::announced_data()
{
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("sku");

    // 254 mm of mileage throughout: (254 x 0.0393701 - base + length) / length.
    const QStringList stripedLines = {u"supplyChangedSignal(\"STRIPED-ROLL\")"_s,
                                      u"supplyPercentChanged("_s +
                                          shortest((254 * 0.0393701 - 3600.0 + 1800.0) / 1800.0) + u")"_s,
                                      u"supplyRGBChanged(\"255\")"_s, u"notifySupplySensor(4)"_s};
    const QString multiUpPercent =
        u"supplyPercentChanged("_s + shortest((254 * 0.0393701 - 6132.0 + 900.0) / 900.0) + u")"_s;
    QTest::newRow("revision 0: SKU, fraction, colour, sensor")
        << QStringList{striped} << stripedLines << u"STRIPED-ROLL"_s;
    QTest::newRow("the same roll again is announced again")
        << QStringList{striped, striped} << stripedLines + stripedLines << u"STRIPED-ROLL"_s;
    QTest::newRow("revision 1: SKU, fraction, colour, sensor")
        << QStringList{dieCut}
        << QStringList{u"supplyChangedSignal(\"CUT-ROLL\")"_s,
                       u"supplyPercentChanged("_s + shortest((254 * 0.0393701 - 1200.0 + 2400.0) / 2400.0) + u")"_s,
                       u"supplyRGBChanged(\"16711680\")"_s, u"notifySupplySensor(5)"_s}
        << u"CUT-ROLL"_s;
    QTest::newRow("revision 2 leaves the SKU as it was and announces none")
        << QStringList{multiUp}
        << QStringList{multiUpPercent, u"supplyRGBChanged(\"16777215\")"_s, u"notifySupplySensor(-1)"_s} << u"-1"_s;
    QTest::newRow("revision 2 after a known roll: its SKU and its sensor")
        << QStringList{striped, multiUp}
        << stripedLines + QStringList{multiUpPercent, u"supplyRGBChanged(\"16777215\")"_s, u"notifySupplySensor(4)"_s}
        << u"STRIPED-ROLL"_s;
    QTest::newRow("revision 15") << QStringList{u"FFFFFFFFFFFFFFFFFFFFFFFF"_s}
                                 << QStringList{u"supplyPercentChanged("_s +
                                                    shortest((254 * 0.0393701 - 6132.0 + 6132.0) / 6132.0) + u")"_s,
                                                u"supplyRGBChanged(\"-1\")"_s, u"notifySupplySensor(-1)"_s}
                                 << u"-1"_s;
    QTest::newRow("no length in the tag: no fraction")
        << QStringList{QString()}
        << QStringList{u"supplyChangedSignal(\"NO-ID\")"_s, u"supplyPercentChanged(-1)"_s,
                       u"supplyRGBChanged(\"-1\")"_s, u"notifySupplySensor(3)"_s}
        << u"NO-ID"_s;
    QTest::newRow("reset of a fresh object")
        << QStringList{u"-1"_s}
        << QStringList{u"supplyChangedSignal(\"-1\")"_s, u"supplyPercentChanged(-1)"_s, u"supplyRGBChanged(\"-1\")"_s,
                       u"notifySupplySensor(-1)"_s}
        << u"-1"_s;
    QTest::newRow("reset of a loaded roll; the mileage is gone with it")
        << QStringList{striped, u"-1"_s, striped}
        << stripedLines + QStringList{u"supplyChangedSignal(\"-1\")"_s,
                                      u"supplyPercentChanged(-1)"_s,
                                      u"supplyRGBChanged(\"-1\")"_s,
                                      u"notifySupplySensor(-1)"_s,
                                      u"supplyChangedSignal(\"STRIPED-ROLL\")"_s,
                                      u"supplyPercentChanged(-1)"_s,
                                      u"supplyRGBChanged(\"255\")"_s,
                                      u"notifySupplySensor(4)"_s}
        << u"STRIPED-ROLL"_s;
}

void SupplyFlow::announced()
{
    QFETCH(QStringList, ids);
    QFETCH(QStringList, lines);
    QFETCH(QString, sku);

    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplyMileage(254);
    SignalLog log(&database);
    for (const QString &id : std::as_const(ids))
        database.setSupplyId(id);
    QCOMPARE(log.take(), lines);
    QCOMPARE(identity(database), QStringList({sku, ids.last()}));

    // By its own name the update is the same without the sensor.
    ZrSupplyDatabase updated;
    updated.setSupplyMileage(254);
    SignalLog updateLog(&updated);
    for (const QString &id : std::as_const(ids))
        QVERIFY(QMetaObject::invokeMethod(&updated, "updateSupplyId", Q_ARG(QString, id)));
    lines.removeIf([](const QString &line) { return line.startsWith("notifySupplySensor"_L1); });
    QCOMPARE(updateLog.take(), lines);
    QCOMPARE(identity(updated), QStringList({sku, ids.last()}));
}

void SupplyFlow::asked_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QStringList>("texts");

    const auto setId = [](const QString &id) {
        return Operation([id](ZrSupplyDatabase &database) { database.setSupplyId(id); });
    };
    const auto call = [](const char *name) {
        return Operation([name](ZrSupplyDatabase &database) { QVERIFY(QMetaObject::invokeMethod(&database, name)); });
    };
    QTest::newRow("revision 0") << setId(striped)
                                << tagQueries(u"12"_s, u"1"_s, u"2"_s, u"3"_s, u"7"_s) +
                                       QStringList{filled("skuBySupplyId", {u"96660E52C02100D06089"_s}),
                                                   filled("rollSensor", {u"STRIPED-ROLL"_s})};
    QTest::newRow("revision 1, 30 characters")
        << setId(dieCut + u"000000"_s)
        << tagQueries(u"0"_s, u"5"_s, u"3"_s, u"2"_s, u"7"_s) +
               QStringList{filled("skuBySupplyId", {u"3203021900A180A03149"_s}),
                           filled("rollSensor", {u"CUT-ROLL"_s})};
    QTest::newRow("revision 2 asks for no SKU")
        << setId(multiUp)
        << tagQueries(u"0"_s, u"18"_s, u"40"_s, u"1"_s, u"7"_s) + QStringList{filled("rollSensor", {u"BEFORE"_s})};
    QTest::newRow("unknown id") << setId(u"D1000000000000000000"_s)
                                << tagQueries(u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"7"_s) +
                                       QStringList{filled("skuBySupplyId", {u"D1000000000000000000"_s}),
                                                   filled("rollSensor", {u"UnknownSupply"_s})};
    QTest::newRow("id with quotes") << setId(u"' OR ''='"_s)
                                    << tagQueries(u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"7"_s) +
                                           QStringList{filled("skuBySupplyId", {u"' OR ''='"_s}),
                                                       filled("rollSensor", {u"UnknownSupply"_s})};
    QTest::newRow("reset") << setId(u"-1"_s) << QStringList{filled("rollSensor", {u"-1"_s})};
    QTest::newRow("length: from the tag, not from the catalogue") << call("updateSupplyLength") << QStringList();
    QTest::newRow("colour: from the tag, not from the catalogue") << call("updateSupplyRGB") << QStringList();
    QTest::newRow("fraction") << call("updateSupplyPercent") << QStringList();
}

void SupplyFlow::asked()
{
    QFETCH(Operation, operation);
    QFETCH(QStringList, texts);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplySKU(u"BEFORE"_s);
    database.setLanguageId(7);
    operation(database);
    QCOMPARE(seen, texts);
}

void SupplyFlow::sharedIdIsNeverShared_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("rolls");

    QTest::newRow("unset") << u"-1"_s << 1;
    QTest::newRow("no roll") << u"D1000000000000000000"_s << 0;
    QTest::newRow("one roll") << striped.left(20) << 1;
    QTest::newRow("three rolls share the id") << u"A1000000000000000000"_s << 3;
    QTest::newRow("the id as it was given, uncut") << u"A1000000000000000000000000ABCD"_s << 0;
    QTest::newRow("rolls of another family are not counted") << u"A2000000000000000000"_s << 1;
    QTest::newRow("quotes in the id: every roll") << u"' OR 1=1 OR ''='"_s << -1;
    QTest::newRow("quote in the id fails the statement") << u"it's"_s << -1;
}

void SupplyFlow::sharedIdIsNeverShared()
{
    QFETCH(QString, id);
    QFETCH(int, rolls);

    QStringList seen;
    ZrSupplyDatabase database;
    QVERIFY(!database.isSupplyIdShared()); // closed
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplyId(id);
    seen.clear();
    SignalLog log(&database);
    // Deliberate: what is compared is the position of the count's column, so the answer is false on every path.
    QVERIFY(!database.isSupplyIdShared());
    QCOMPARE(seen, QStringList{filled("countBySupplyId", {id})});
    QCOMPARE(log.take(), QStringList());

    if (rolls >= 0) {
        QSqlQuery counted(filled("countBySupplyId", {id}),
                          QSqlDatabase::database(u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s));
        QVERIFY(counted.next());
        QCOMPARE(counted.value(0).toInt(), rolls);
    }
}

QTEST_GUILESS_MAIN(SupplyFlow)
#include "tst_supplyflow.moc"
