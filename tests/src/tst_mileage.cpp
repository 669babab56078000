// SPDX-License-Identifier: LGPL-2.1-or-later
// Mileage readings become remaining fractions, and what makes a length.

#include "support/fixturecatalogue.h"
#include "support/privatemember.h"
#include "support/recordingdriver.h"
#include "support/signallog.h"
#include "support/statementlist.h"
#include "support/tagtext.h"

#include <zrsupplydatabase.h>

#include <QtTest/QTest>

#include <limits>

using namespace Qt::Literals::StringLiterals;

// A tag holds whole feet only; other lengths of a roll are put in here.
ZR_PRIVATE_MEMBER(RollLength, ZrSupplyDatabase, m_supplyLength);

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

/// The fixture and a ribbon of each length that a row asks for, whose SKU is the length's text.
class LengthCatalogue : public FixtureCatalogue
{
public:
    int ribbon(const QString &length)
    {
        if (!m_lengths.contains(length)) {
            m_lengths.append(length);
            run(u"INSERT INTO ribbon (id, sku, panels, width, length) VALUES (%1, '%2', 1, 6.0, %2)"_s
                    .arg(firstId + m_lengths.size() - 1)
                    .arg(length));
        }
        return firstId + int(m_lengths.indexOf(length));
    }

private:
    static constexpr int firstId = 1000;
    QStringList m_lengths;
};

/// Reads back exactly.
QString written(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

bool call(ZrSupplyDatabase &database, const QString &slot)
{
    return QMetaObject::invokeMethod(&database, slot.toLatin1().constData());
}

bool call(ZrSupplyDatabase &database, const QString &slot, int mileage)
{
    return QMetaObject::invokeMethod(&database, slot.toLatin1().constData(), Q_ARG(int, mileage));
}

bool setSkus(ZrSupplyDatabase &database, const QStringList &skus)
{
    return QMetaObject::invokeMethod(&database, "supplySetRibbonSKUs", Q_ARG(QStringList, skus));
}

QString tagOf(unsigned baseFeet, unsigned lengthFeet)
{
    return tagText({{tagbits::mileageBaseFeet, baseFeet}, {tagbits::lengthFeet, lengthFeet}, {tagbits::format, 1}});
}

QStringList fractions(ZrSupplyDatabase &database)
{
    return {written(database.supplySupplyPercent()), written(database.supplyRibbon1Percent()),
            written(database.supplyRibbon2Percent())};
}

} // namespace

class Mileage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ribbonFraction_data();
    void ribbonFraction();
    void rollFraction_data();
    void rollFraction();
    void setters_data();
    void setters();
    void rollLengthIsTheTags();
    void ribbonLength_data();
    void ribbonLength();
    void resetForgetsReadings();

private:
    LengthCatalogue m_catalogue;
};

void Mileage::ribbonFraction_data()
{
    QTest::addColumn<QString>("length"); // as the catalogue's file is written
    QTest::addColumn<int>("mileage");
    QTest::addColumn<QString>("fraction");

    // (mileage x 0.0393701 - 4725 + length) / length, in this order, written so that it reads back exactly
    QTest::newRow("no reading") << u"4725.0"_s << -1 << u"-1"_s;
    QTest::newRow("no reading of an unknown length") << u"-1.0"_s << -1 << u"-1"_s;
    QTest::newRow("no reading of an endless ribbon") << u"9e999"_s << -1 << u"-1"_s;
    QTest::newRow("new ribbon") << u"4725.0"_s << 0 << u"0"_s;
    QTest::newRow("used up and beyond: not clamped to 1") << u"4725.0"_s << 120015 << u"1.00000054"_s;
    QTest::newRow("below 0: not clamped") << u"4000.0"_s << 0 << u"-0.18125"_s;
    QTest::newRow("length off the tag length, one millimetre: the order of the steps counts")
        << u"4800.0"_s << 1 << u"0.015633202104166723"_s;
    QTest::newRow("short, 873 mm: the order of the steps counts") << u"0.7"_s << 873 << u"-6699.899861000002"_s;
    QTest::newRow("254 mm") << u"4800.0"_s << 254 << u"0.017708334458333374"_s;
    QTest::newRow("reading below no reading is used") << u"4725.0"_s << -2 << u"-1.6664592592514096e-05"_s;
    QTest::newRow("largest reading") << u"4725.0"_s << 2147483647 << u"17893.47003825496"_s;
    QTest::newRow("smallest reading") << u"4725.0"_s << std::numeric_limits<int>::min() << u"-17893.47004658726"_s;
    QTest::newRow("NULL length is no length") << u"NULL"_s << 254 << u"-1"_s;
    QTest::newRow("length 0") << u"0.0"_s << 254 << u"-1"_s;
    QTest::newRow("length 0.3 rounds to 0") << u"0.3"_s << 254 << u"-1"_s;
    QTest::newRow("length 0.4 rounds to 0") << u"0.4"_s << 254 << u"-1"_s;
    QTest::newRow("length just below 0.5 rounds to 0") << u"0.4999999"_s << 254 << u"-1"_s;
    QTest::newRow("length 0.5 rounds to 1 and is used") << u"0.5"_s << 254 << u"-9428.9999892"_s;
    QTest::newRow("length 0.6 is used") << u"0.6"_s << 254 << u"-7857.333324333333"_s;
    QTest::newRow("length 1") << u"1.0"_s << 254 << u"-4713.9999946"_s;
    QTest::newRow("length -0.3 rounds to 0") << u"-0.3"_s << 254 << u"-1"_s;
    QTest::newRow("length -0.4999999 rounds to 0") << u"-0.4999999"_s << 254 << u"-1"_s;
    QTest::newRow("length -0.5 rounds to -1") << u"-0.5"_s << 254 << u"-1"_s;
    QTest::newRow("length -1 is unknown") << u"-1.0"_s << 254 << u"-1"_s;
    QTest::newRow("length -1.4 rounds to -1") << u"-1.4"_s << 254 << u"-1"_s;
    QTest::newRow("length -1.4999999 rounds to -1") << u"-1.4999999"_s << 254 << u"-1"_s;
    QTest::newRow("length -1.5 rounds to -2 and is used") << u"-1.5"_s << 254 << u"3144.3333297333334"_s;
    QTest::newRow("length -1.6 is used") << u"-1.6"_s << 254 << u"2947.8749966249998"_s;
    QTest::newRow("length -2") << u"-2.0"_s << 254 << u"2358.4999973"_s;
    QTest::newRow("length -3 is not rejected") << u"-3.0"_s << 254 << u"1572.6666648666667"_s;
    QTest::newRow("length beyond int") << u"2147483648.0"_s << 254 << u"0.9999978044070329"_s;
    QTest::newRow("length below int") << u"-2147483649.0"_s << 254 << u"1.000002195592966"_s;
    QTest::newRow("length that is -1 in 32 bits") << u"4294967295.0"_s << 254 << u"0.9999989022035162"_s;
    QTest::newRow("length that is 0 in 32 bits") << u"4294967296.0"_s << 254 << u"0.9999989022035164"_s;
    QTest::newRow("length that is -1 in 64 bits") << u"18446744073709551615.0"_s << 254 << u"0.9999999999999998"_s;
    QTest::newRow("huge length") << u"1e300"_s << 254 << u"1"_s;
    QTest::newRow("huge negative length") << u"-1e300"_s << 254 << u"1"_s;
    QTest::newRow("endless") << u"9e999"_s << 254 << u"nan"_s;
    QTest::newRow("endless below") << u"-9e999"_s << 254 << u"nan"_s;
}

void Mileage::ribbonFraction()
{
    QFETCH(QString, length);
    QFETCH(int, mileage);
    QFETCH(QString, fraction);

    const QString id = QString::number(m_catalogue.ribbon(length));
    for (const int ribbon : {1, 2}) {
        ZrSupplyDatabase database;
        QVERIFY(database.setup(m_catalogue.path()));
        const QString line = u"ribbon%1PercentChanged(%2)"_s.arg(ribbon).arg(fraction);
        const QString other = u"ribbon%1PercentChanged(-1)"_s.arg(3 - ribbon);
        SignalLog log(&database);
        database.setRibbonIds(ribbon == 1 ? QStringList{id, u"12"_s} : QStringList{u"12"_s, id});
        QVERIFY(log.take().contains(u"ribbon%1PercentChanged(-1)"_s.arg(ribbon)));
        QVERIFY(call(database, u"setRibbon%1Mileage"_s.arg(ribbon), mileage));
        QCOMPARE(log.take(), QStringList{line});
        QVERIFY(call(database, u"updateRibbon%1Length"_s.arg(ribbon)));
        QCOMPARE(log.take(), QStringList{line});
        QVERIFY(call(database, u"updateRibbon%1Percent"_s.arg(ribbon)));
        QCOMPARE(log.take(), QStringList{line});
        QVERIFY(call(database, u"updateRibbon%1Percent"_s.arg(3 - ribbon)));
        QCOMPARE(log.take(), QStringList{other});
        QCOMPARE(fractions(database),
                 ribbon == 1 ? QStringList({u"-1"_s, fraction, u"-1"_s}) : QStringList({u"-1"_s, u"-1"_s, fraction}));
    }
}

void Mileage::rollFraction_data()
{
    QTest::addColumn<int>("baseFeet"); // -1: no tag
    QTest::addColumn<double>("length");
    QTest::addColumn<int>("mileage");
    QTest::addColumn<QString>("fraction");

    // (mileage x 0.0393701 - base x 12 + length) / length, in this order
    QTest::newRow("no reading") << 3 << 600.0 << -1 << u"-1"_s;
    QTest::newRow("3 feet of base, 50 feet of roll, 10 inches") << 3 << 600.0 << 254 << u"0.9566666756666666"_s;
    QTest::newRow("3 feet of base, 4 mm: the order of the steps counts")
        << 3 << 600.0 << 4 << u"0.9402624673333332"_s;
    QTest::newRow("no base") << 0 << 600.0 << 254 << u"1.0166666756666667"_s;
    QTest::newRow("largest base") << 511 << 600.0 << 254 << u"-9.203333324333332"_s;
    QTest::newRow("no tag yet: a base of -12 inches") << -1 << 600.0 << 254 << u"1.0366666756666667"_s;
    QTest::newRow("length 0") << 3 << 0.0 << 254 << u"-1"_s;
    QTest::newRow("length 0.3 rounds to 0") << 3 << 0.3 << 254 << u"-1"_s;
    QTest::newRow("length 0.4 rounds to 0") << 3 << 0.4 << 254 << u"-1"_s;
    QTest::newRow("length 0.5 rounds to 1 and is used") << 3 << 0.5 << 254 << u"-50.9999892"_s;
    QTest::newRow("length 0.6 is used") << 3 << 0.6 << 254 << u"-42.33332433333334"_s;
    QTest::newRow("length -0.5 rounds to -1") << 3 << -0.5 << 254 << u"-1"_s;
    QTest::newRow("length -1 is unknown") << 3 << -1.0 << 254 << u"-1"_s;
    QTest::newRow("length -1.4 rounds to -1") << 3 << -1.4 << 254 << u"-1"_s;
    QTest::newRow("length -1.5 rounds to -2 and is used") << 3 << -1.5 << 254 << u"18.333329733333333"_s;
    QTest::newRow("length -3 is not rejected") << 3 << -3.0 << 254 << u"9.666664866666666"_s;
    QTest::newRow("length that is -1 in 32 bits") << 3 << 4294967295.0 << 254 << u"0.9999999939464045"_s;
    QTest::newRow("huge length") << 3 << 1e300 << 254 << u"1"_s;
    QTest::newRow("endless") << 3 << endless << 254 << u"nan"_s;
    QTest::newRow("largest reading") << 3 << 600.0 << 2147483647 << u"140912.0165512578"_s;
    QTest::newRow("reading below no reading is used") << 3 << 600.0 << -2 << u"0.9398687663333334"_s;
}

void Mileage::rollFraction()
{
    QFETCH(int, baseFeet);
    QFETCH(double, length);
    QFETCH(int, mileage);
    QFETCH(QString, fraction);

    ZrSupplyDatabase database;
    if (baseFeet >= 0)
        database.setSupplyId(tagOf(unsigned(baseFeet), 50));
    database.*memberOf(RollLength{}) = length;
    const QStringList line = {u"supplyPercentChanged(%1)"_s.arg(fraction)};
    SignalLog log(&database);
    database.setSupplyMileage(mileage);
    QCOMPARE(log.take(), line);
    QVERIFY(call(database, u"updateSupplyPercent"_s));
    QCOMPARE(log.take(), line);
    QCOMPARE(fractions(database), QStringList({fraction, u"-1"_s, u"-1"_s}));
    if (length == 600.0 && baseFeet >= 0) {
        // The length that the tag's 50 feet are.
        QVERIFY(call(database, u"updateSupplyLength"_s));
        QCOMPARE(log.take(), line);
    }
}

void Mileage::setters_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QStringList>("fractionsAfter");

    // Roll: base 36 inches, length 600; ribbons: lengths 4725 and 4800; readings 254 mm, the other ones 0.
    const QStringList roll = {u"0.9566666756666666"_s, u"0"_s, u"0.015625"_s};
    const QStringList ribbon1 = {u"0.94"_s, u"0.0021164032592592996"_s, u"0.015625"_s};
    const QStringList ribbon2 = {u"0.94"_s, u"0"_s, u"0.017708334458333374"_s};
    QTest::newRow("roll") << u"setSupplyMileage"_s << u"supplyPercentChanged"_s << roll;
    QTest::newRow("roll, update") << u"updateSupplyMileage"_s << u"supplyPercentChanged"_s << roll;
    QTest::newRow("ribbon 1") << u"setRibbon1Mileage"_s << u"ribbon1PercentChanged"_s << ribbon1;
    QTest::newRow("ribbon 1, update") << u"updateRibbon1Mileage"_s << u"ribbon1PercentChanged"_s << ribbon1;
    QTest::newRow("ribbon 2") << u"setRibbon2Mileage"_s << u"ribbon2PercentChanged"_s << ribbon2;
    QTest::newRow("ribbon 2, update") << u"updateRibbon2Mileage"_s << u"ribbon2PercentChanged"_s << ribbon2;
}

void Mileage::setters()
{
    QFETCH(QString, slot);
    QFETCH(QString, signal);
    QFETCH(QStringList, fractionsAfter);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setSupplyId(tagOf(3, 50));
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setSupplyMileage(0);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    const QStringList before = {u"0.94"_s, u"0"_s, u"0.015625"_s};
    QCOMPARE(fractions(database), before);
    seen.clear();
    SignalLog log(&database);
    QString fraction;
    for (qsizetype i = 0; i < before.size(); ++i) {
        if (fractionsAfter[i] != before[i])
            fraction = fractionsAfter[i];
    }
    // Announced on every call, also when nothing changed, and never without a call of its own.
    for (int round = 0; round < 3; ++round) {
        QVERIFY(call(database, slot, 254));
        QCOMPARE(log.take(), QStringList{signal + u'(' + fraction + u')'});
        QCOMPARE(fractions(database), fractionsAfter);
    }
    QVERIFY(call(database, slot, -1));
    QCOMPARE(log.take(), QStringList{signal + u"(-1)"_s});
    QCOMPARE(seen, QStringList());
}

void Mileage::rollLengthIsTheTags()
{
    const FixtureCatalogue own;
    own.run(u"INSERT INTO roll (itemNum, supplyId, materialWidthId) VALUES ('KNOWN', '%1', 11)"_s.arg(
        tagOf(3, 50).left(20)));
    ZrSupplyDatabase database;
    QVERIFY(database.setup(own.path()));
    database.setSupplyMileage(0);
    SignalLog log(&database);
    QVERIFY(call(database, u"updateSupplyLength"_s));
    QCOMPARE(log.take(), QStringList{u"supplyPercentChanged(-1)"_s}); // no tag: no length
    database.setSupplyId(tagOf(3, 50));
    QCOMPARE(database.supplySKU(), u"KNOWN"_s);
    QCOMPARE(database.supplyLength(u"KNOWN"_s), 1200.0);
    // 50 feet of the tag, not 100 feet of the catalogue.
    QCOMPARE(log.take().at(1), u"supplyPercentChanged(0.94)"_s);
    QVERIFY(call(database, u"updateSupplyLength"_s));
    QCOMPARE(log.take(), QStringList{u"supplyPercentChanged(0.94)"_s});
    // The tag alone changes no length until it is refreshed; the base counts at once: 600 of 600 inches.
    QVERIFY(QMetaObject::invokeMethod(&database, "updateCachedSupplyCData", Q_ARG(QString, tagOf(50, 100))));
    QVERIFY(call(database, u"updateSupplyPercent"_s));
    QCOMPARE(log.take(), QStringList{u"supplyPercentChanged(0)"_s});
    QVERIFY(call(database, u"updateSupplyLength"_s));
    QCOMPARE(log.take(), QStringList{u"supplyPercentChanged(0.5)"_s});
}

void Mileage::ribbonLength_data()
{
    QTest::addColumn<QStringList>("skus");
    QTest::addColumn<QStringList>("fractionsAfter"); // of ribbon 1 and ribbon 2, mileage 0

    QTest::newRow("no SKU") << QStringList() << QStringList{u"-1"_s, u"-1"_s};
    QTest::newRow("one SKU") << QStringList{u"RIB-TWO"_s} << QStringList{u"-1"_s, u"-1"_s};
    QTest::newRow("two SKUs") << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s} << QStringList{u"0.015625"_s, u"0"_s};
    QTest::newRow("two SKUs, the first unknown")
        << QStringList{u"NONE"_s, u"RIB-TWO"_s} << QStringList{u"-1"_s, u"0.015625"_s};
    QTest::newRow("two SKUs of minus one are looked up")
        << QStringList{u"-1"_s, u"-1"_s} << QStringList{u"-1"_s, u"-1"_s};
    QTest::newRow("three SKUs") << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s, u"C"_s} << QStringList{u"-1"_s, u"-1"_s};
    QTest::newRow("four SKUs, as after a reset")
        << QStringList{u"RIB-TWO"_s, u"RIB-ONE"_s, u"-1"_s, u"-1"_s} << QStringList{u"-1"_s, u"-1"_s};
}

void Mileage::ribbonLength()
{
    QFETCH(QStringList, skus);
    QFETCH(QStringList, fractionsAfter);

    QStringList seen;
    ZrSupplyDatabase database;
    RecordingDriver::install(m_catalogue.path(), &seen);
    database.setRibbonIds({u"12"_s, u"14"_s});
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    QVERIFY(setSkus(database, skus));
    SignalLog log(&database);
    for (const int ribbon : {1, 2}) {
        seen.clear();
        QVERIFY(call(database, u"updateRibbon%1Length"_s.arg(ribbon)));
        QCOMPARE(log.take(),
                 QStringList{u"ribbon%1PercentChanged(%2)"_s.arg(ribbon).arg(fractionsAfter[ribbon - 1])});
        QCOMPARE(seen, skus.size() == 2 ? QStringList{filled("ribbonLength", {skus[ribbon - 1]})} : QStringList());
    }
    QCOMPARE(fractions(database), QStringList{u"-1"_s} + fractionsAfter);
}

void Mileage::resetForgetsReadings()
{
    ZrSupplyDatabase database;
    QVERIFY(database.setup(m_catalogue.path()));
    database.setSupplyId(tagOf(3, 50));
    database.setRibbonIds({u"12"_s, u"13"_s});
    database.setSupplyMileage(0);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    database.setSupplyId(u"-1"_s);
    QCOMPARE(fractions(database), QStringList({u"-1"_s, u"-1"_s, u"-1"_s}));
    SignalLog log(&database);
    // Neither readings nor lengths are left.
    database.setSupplyId(tagOf(3, 50));
    database.setRibbonIds({u"12"_s, u"13"_s});
    QCOMPARE(fractions(database), QStringList({u"-1"_s, u"-1"_s, u"-1"_s}));
    database.setSupplyId(u"-1"_s);
    log.take();
    database.setSupplyMileage(0);
    database.setRibbon1Mileage(0);
    database.setRibbon2Mileage(0);
    QCOMPARE(log.take(), QStringList({u"supplyPercentChanged(-1)"_s, u"ribbon1PercentChanged(-1)"_s,
                                      u"ribbon2PercentChanged(-1)"_s}));
}

QTEST_GUILESS_MAIN(Mileage)
#include "tst_mileage.moc"
