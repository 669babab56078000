// SPDX-License-Identifier: LGPL-2.1-or-later
// The verb status: every row of the mapping that docs/status.md gives, and the three ways of writing it.

#include "support/commandrun.h"

#include <QtCore/QJsonArray>
#include <QtTest/QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString vinylTag = u"3200000C8020804041410000"_s;   // 00143465, 100 feet, full at 30480 mm
const QString unknownTag = u"3200000C8020824060000000"_s; // in no catalogue: brown vinyl, 6 inches, 100 feet
const QString secondTag = u"25880889602100C062420000"_s;  // revision 2, 75 feet, leaves the SKU as it was

constexpr int mibUnknown = -2;

enum Place { Roll, Ribbon1, Ribbon2 };

CommandRun status(const QStringList &words)
{
    return zrsupply(QStringList{u"status"_s} + words);
}

QJsonObject answered(const QStringList &words)
{
    CommandRun run = status(words + QStringList{u"--json"_s});
    if (run.run().status != 0)
        qFatal("status failed: %s", qPrintable(run.err));
    return run.json();
}

/// The pairs of one value of printer-supply.
QHash<QString, QString> pairs(const QJsonObject &answer, Place place)
{
    QHash<QString, QString> found;
    const QString value = answer[u"ipp"_s][u"printer-supply"_s][place].toString();
    for (const QString &pair : value.split(u';', Qt::SkipEmptyParts))
        found.insert(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    return found;
}

/// The value of an object of the MIB, undefined where there is no such row.
QJsonValue object(const QJsonObject &answer, const QString &name, int index)
{
    const QString whole = u"%1.1.%2"_s.arg(name).arg(index);
    for (const QJsonValue &value : answer[u"snmp"_s].toArray()) {
        if (value[u"object"_s].toString() == whole)
            return value[u"value"_s];
    }
    return QJsonValue::Undefined;
}

} // namespace

class StatusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void words_data();
    void words();
    void colorants();
    void identifiers();
    void languages();
    void texts();
    void errors_data();
    void errors();
};

void StatusTest::rows_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("typeNumber");
    QTest::addColumn<int>("maxCapacity");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("description");

    const QString reading = u"--roll-mileage"_s;
    const QString ribbonReading = u"--ribbon1-mileage"_s;
    const QString roll = u"--roll"_s;
    const QString ribbons = u"--ribbons"_s;
    const QString vinyl = u"roll: White Vinyl, 4 in wide"_s;
    const QString resin = u"ribbon 1: Black Resin, 4 1/2 in wide"_s;
    const int unknown = mibUnknown;

    QTest::newRow("known roll, full") << QStringList{roll, vinylTag, reading, u"30480"_s} << Roll << u"other"_s << 1
                                      << 12000000 << 12000000 << vinyl;
    QTest::newRow("known roll, half") << QStringList{roll, vinylTag, reading, u"15240"_s} << Roll << u"other"_s << 1
                                      << 12000000 << 6000003 << vinyl;
    QTest::newRow("known roll, low") << QStringList{roll, vinylTag, reading, u"254"_s} << Roll << u"other"_s << 1
                                     << 12000000 << 100000 << vinyl;
    QTest::newRow("known roll, empty") << QStringList{roll, vinylTag, reading, u"0"_s} << Roll << u"other"_s << 1
                                       << 12000000 << 0 << vinyl;
    QTest::newRow("known roll, read beyond its end")
        << QStringList{roll, vinylTag, reading, u"-500"_s} << Roll << u"other"_s << 1 << 12000000 << 0 << vinyl;
    QTest::newRow("known roll, more than full") << QStringList{roll, vinylTag, reading, u"60000"_s} << Roll
                                                << u"other"_s << 1 << 12000000 << 12000000 << vinyl;
    QTest::newRow("known roll, no reading")
        << QStringList{roll, vinylTag} << Roll << u"other"_s << 1 << 12000000 << unknown << vinyl;
    QTest::newRow("roll by SKU") << QStringList{roll, u"00143465"_s} << Roll << u"other"_s << 1 << 12000000 << unknown
                                 << vinyl;
    QTest::newRow("unknown roll, from its tag")
        << QStringList{roll, unknownTag, reading, u"30480"_s} << Roll << u"other"_s << 1 << 12000000 << 12000000
        << u"roll: Brown Vinyl, 6 in wide"_s;
    QTest::newRow("roll of a revision 2 tag")
        << QStringList{roll, secondTag, reading, u"22860"_s} << Roll << u"other"_s << 1 << 9000000 << 9000000
        << u"roll: Yellow Vinyl, 6 in wide, Black stripe of 1 1/4 in"_s;
    QTest::newRow("tag without a length") << QStringList{roll, u"000000000000000000000000"_s, reading, u"100"_s}
                                          << Roll << u"other"_s << 1 << unknown << unknown << QString();
    QTest::newRow("no roll") << QStringList{} << Roll << u"unknown"_s << 2 << unknown << unknown << u"no roll"_s;

    QTest::newRow("ribbon, full") << QStringList{ribbons, u"R530901"_s, ribbonReading, u"120015"_s} << Ribbon1
                                  << u"inkRibbon"_s << 7 << 47250000 << 47250000 << resin;
    QTest::newRow("ribbon, low") << QStringList{ribbons, u"R530901"_s, ribbonReading, u"254"_s} << Ribbon1
                                 << u"inkRibbon"_s << 7 << 47250000 << 100000 << resin;
    QTest::newRow("ribbon, empty") << QStringList{ribbons, u"R530901"_s, ribbonReading, u"0"_s} << Ribbon1
                                   << u"inkRibbon"_s << 7 << 47250000 << 0 << resin;
    QTest::newRow("ribbon, no reading") << QStringList{ribbons, u"R530901"_s} << Ribbon1 << u"inkRibbon"_s << 7
                                        << 47250000 << unknown << resin;
    QTest::newRow("ribbon by its id") << QStringList{ribbons, u"1"_s} << Ribbon1 << u"inkRibbon"_s << 7 << 47250000
                                      << unknown << resin;
    QTest::newRow("wax ribbon") << QStringList{ribbons, u"R530921"_s} << Ribbon1 << u"ribbonWax"_s << 13 << 47250000
                                << unknown << u"ribbon 1: Black Wax, 4 1/2 in wide"_s;
    QTest::newRow("wax-resin ribbon") << QStringList{ribbons, u"R530911"_s} << Ribbon1 << u"inkRibbon"_s << 7
                                      << 47250000 << unknown << u"ribbon 1: Black Wax-resin, 4 1/4 in wide"_s;
    QTest::newRow("special ribbon, without panels")
        << QStringList{ribbons, u"HVWA-ZEROSPOL"_s} << Ribbon1 << u"inkRibbon"_s << 7 << 6000000 << unknown
        << u"ribbon 1: special ribbon, 6 in wide"_s;
    QTest::newRow("second ribbon") << QStringList{ribbons, u"none"_s, u"RW530903"_s, u"--ribbon2-mileage"_s,
                                                  u"120015"_s}
                                   << Ribbon2 << u"inkRibbon"_s << 7 << 47205000 << 47205000
                                   << u"ribbon 2: Red Resin, 6 in wide"_s;
    QTest::newRow("no ribbon, though there is a reading")
        << QStringList{ribbonReading, u"120015"_s} << Ribbon1 << u"unknown"_s << 2 << unknown << unknown
        << u"no ribbon 1"_s;
    QTest::newRow("a ribbon id that no catalogue has")
        << QStringList{ribbons, u"99"_s} << Ribbon1 << u"unknown"_s << 2 << unknown << unknown << u"no ribbon 1"_s;
    QTest::newRow("an empty first place") << QStringList{ribbons, u"none"_s, u"R530901"_s} << Ribbon1 << u"unknown"_s
                                          << 2 << unknown << unknown << u"no ribbon 1"_s;
}

void StatusTest::rows()
{
    QFETCH(QStringList, words);
    QFETCH(Place, place);
    QFETCH(QString, type);
    QFETCH(int, typeNumber);
    QFETCH(int, maxCapacity);
    QFETCH(int, level);
    QFETCH(QString, description);

    const QJsonObject answer = answered(words);
    const int index = place + 1;
    const QHash<QString, QString> found = pairs(answer, place);
    QCOMPARE(found.value(u"index"_s), QString::number(index));
    QCOMPARE(found.value(u"type"_s), type);
    QCOMPARE(found.value(u"maxcapacity"_s), QString::number(maxCapacity));
    QCOMPARE(found.value(u"level"_s), QString::number(level));
    QCOMPARE(object(answer, u"prtMarkerSuppliesType"_s, index), QJsonValue(typeNumber));
    QCOMPARE(object(answer, u"prtMarkerSuppliesMaxCapacity"_s, index), QJsonValue(maxCapacity));
    QCOMPARE(object(answer, u"prtMarkerSuppliesLevel"_s, index), QJsonValue(level));
    if (description.isEmpty())
        return;
    QCOMPARE(answer[u"ipp"_s][u"printer-supply-description"_s][place].toString(), description);
    QCOMPARE(object(answer, u"prtMarkerSuppliesDescription"_s, index).toString(), description);
}

void StatusTest::words_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("index");

    QTest::newRow("one marker") << u"prtMarkerSuppliesMarkerIndex"_s << u"markerindex"_s << u"1"_s << QJsonValue(1)
                                << 2;
    QTest::newRow("its colorant") << u"prtMarkerSuppliesColorantIndex"_s << u"colorantindex"_s << u"1"_s
                                  << QJsonValue(1) << 2;
    QTest::newRow("consumed") << u"prtMarkerSuppliesClass"_s << u"class"_s << u"supplyThatIsConsumed"_s
                              << QJsonValue(3) << 2;
    QTest::newRow("unit") << u"prtMarkerSuppliesSupplyUnit"_s << u"unit"_s << u"tenThousandthsOfInches"_s
                          << QJsonValue(3) << 2;
    QTest::newRow("role") << u"prtMarkerColorantRole"_s << u"colorantrole"_s << u"spot"_s << QJsonValue(4) << 1;
    QTest::newRow("name") << u"prtMarkerColorantValue"_s << u"colorantname"_s << u"black"_s << QJsonValue(u"black"_s)
                          << 1;
    QTest::newRow("tonality") << u"prtMarkerColorantTonality"_s << u"coloranttonality"_s << u"2"_s << QJsonValue(2)
                              << 1;
}

void StatusTest::words()
{
    QFETCH(QString, object);
    QFETCH(QString, keyword);
    QFETCH(QString, word);
    QFETCH(QJsonValue, value);
    QFETCH(int, index);

    const QJsonObject answer = answered({u"--ribbons"_s, u"R530901"_s});
    QCOMPARE(::object(answer, object, index), value);
    QCOMPARE(pairs(answer, Ribbon1).value(keyword), word);
}

void StatusTest::colorants()
{
    // Black alone, then black and red: one row each, in the order of the panels.
    const QJsonObject answer = answered({u"--ribbons"_s, u"R530901"_s, u"R530951"_s});
    QCOMPARE(object(answer, u"prtMarkerColorantValue"_s, 1).toString(), u"black"_s);
    QCOMPARE(object(answer, u"prtMarkerColorantValue"_s, 2).toString(), u"red"_s);
    QVERIFY(object(answer, u"prtMarkerColorantValue"_s, 3).isUndefined());
    QCOMPARE(object(answer, u"prtMarkerSuppliesColorantIndex"_s, 2), QJsonValue(1));
    QCOMPARE(object(answer, u"prtMarkerSuppliesColorantIndex"_s, 3), QJsonValue(0));
    QCOMPARE(answer[u"supplies"_s][2][u"colorants"_s].toArray(),
             QJsonArray({QJsonObject{{u"index"_s, 1}, {u"name"_s, u"black"_s}},
                         QJsonObject{{u"index"_s, 2}, {u"name"_s, u"red"_s}}}));
    QCOMPARE(pairs(answer, Ribbon1).value(u"colorantname"_s), u"black"_s);
    QCOMPARE(pairs(answer, Ribbon2).value(u"colorantname"_s), u"multi-color"_s);
    QVERIFY(!pairs(answer, Ribbon2).contains(u"colorantindex"_s));
    QCOMPARE(pairs(answer, Roll).value(u"colorantname"_s), u"unknown"_s);
    QVERIFY(!pairs(answer, Roll).contains(u"colorantrole"_s));

    // A ribbon whose panels are of one colour, and a second colorant that is the only one of its ribbon.
    const QJsonObject other = answered({u"--ribbons"_s, u"R530901"_s, u"RW530903"_s});
    QCOMPARE(object(other, u"prtMarkerSuppliesColorantIndex"_s, 3), QJsonValue(2));
    QCOMPARE(pairs(other, Ribbon2).value(u"colorantindex"_s), u"2"_s);
    QCOMPARE(pairs(other, Ribbon2).value(u"colorantname"_s), u"red"_s);
}

void StatusTest::identifiers()
{
    // Each object under its table's identifier, device 1, in the order of a walk.
    const QString said = status({u"--ribbons"_s, u"R530901"_s, u"--format"_s, u"snmp"_s}).run().out;
    QStringList places;
    for (const QString &line : said.split(u'\n', Qt::SkipEmptyParts))
        places.append(line.section(u' ', 0, 0));
    QStringList expected;
    for (int column = 2; column <= 9; ++column) {
        for (int row = 1; row <= 3; ++row)
            expected.append(u".1.3.6.1.2.1.43.11.1.1.%1.1.%2"_s.arg(column).arg(row));
    }
    for (int column = 2; column <= 5; ++column)
        expected.append(u".1.3.6.1.2.1.43.12.1.1.%1.1.1"_s.arg(column));
    QCOMPARE(places, expected);
}

void StatusTest::languages()
{
    // People read descriptions in their language, programs read colorants.
    const QJsonObject answer = answered({u"--ribbons"_s, u"R530921"_s, u"--language"_s, u"1"_s});
    QCOMPARE(answer[u"ipp"_s][u"printer-supply-description"_s][Ribbon1].toString(),
             u"ribbon 1: Schwarz Wachs, 4 1/2 in wide"_s);
    QCOMPARE(pairs(answer, Ribbon1).value(u"colorantname"_s), u"black"_s);
    QCOMPARE(pairs(answer, Ribbon1).value(u"type"_s), u"ribbonWax"_s);
}

void StatusTest::texts()
{
    const QStringList loaded = {u"--roll"_s, vinylTag, u"--roll-mileage"_s, u"30480"_s, u"--ribbons"_s, u"R530901"_s};
    const QString ipp = status(loaded).run().out;
    QVERIFY(ipp.startsWith(u"ATTR octetString printer-supply\n    \"type=other;maxcapacity=12000000;level=12000000;"
                           "colorantname=unknown;index=1;markerindex=1;class=supplyThatIsConsumed;"
                           "unit=tenThousandthsOfInches;\",\n"_s));
    QVERIFY(ipp.contains(u"\nATTR text printer-supply-description\n    \"roll: White Vinyl, 4 in wide\",\n"_s));
    QCOMPARE(status(loaded + QStringList{u"--format"_s, u"ipp"_s}).run().out, ipp);

    const QString snmp = status(loaded + QStringList{u"--format"_s, u"snmp"_s}).run().out;
    QVERIFY(snmp.contains(u".1.3.6.1.2.1.43.11.1.1.7.1.1 = INTEGER: tenThousandthsOfInches(3)\n"_s));
    QVERIFY(snmp.contains(u".1.3.6.1.2.1.43.11.1.1.9.1.1 = INTEGER: 12000000\n"_s));
    QVERIFY(snmp.contains(u".1.3.6.1.2.1.43.12.1.1.4.1.1 = STRING: \"black\"\n"_s));

    CommandRun json = status(loaded + QStringList{u"--format"_s, u"json"_s});
    QCOMPARE(json.run().json(), answered(loaded));
}

void StatusTest::errors_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("says");

    QTest::newRow("a reading without a tag")
        << QStringList{u"--roll"_s, u"00143465"_s, u"--roll-mileage"_s, u"5"_s} << 2 << u"needs the roll's tag"_s;
    QTest::newRow("a reading that is no number")
        << QStringList{u"--roll"_s, vinylTag, u"--roll-mileage"_s, u"half"_s} << 2 << u"is a whole number"_s;
    QTest::newRow("a third ribbon") << QStringList{u"--ribbons"_s, u"1"_s, u"2"_s, u"3"_s} << 2
                                    << u"a printer holds two ribbons"_s;
    QTest::newRow("no such format") << QStringList{u"--format"_s, u"cups"_s} << 2
                                    << u"--format is ipp, snmp or json, not \"cups\""_s;
    QTest::newRow("no such roll") << QStringList{u"--roll"_s, u"00143466"_s} << 3 << u"the catalogue has no roll"_s;
    QTest::newRow("no such ribbon") << QStringList{u"--ribbons"_s, u"R53"_s} << 3 << u"the catalogue has no ribbon"_s;
}

void StatusTest::errors()
{
    QFETCH(QStringList, words);
    QFETCH(int, status);
    QFETCH(QString, says);

    CommandRun run = ::status(words);
    QCOMPARE(run.run().status, status);
    QVERIFY2(run.err.contains(says), qPrintable(run.err));
    QVERIFY(run.out.isEmpty());
}

QTEST_GUILESS_MAIN(StatusTest)
#include "tst_status.moc"
