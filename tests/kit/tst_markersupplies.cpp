// SPDX-License-Identifier: LGPL-2.1-or-later
// The numbers, words and texts of the Printer MIB, without a catalogue.

#include "supplies/markersupplies.h"

#include <QtTest/QTest>

#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace ZrSupplyKit;

class MarkerSuppliesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void capacities_data();
    void capacities();
    void levels_data();
    void levels();
    void keywords_data();
    void keywords();
    void oddDescription();
};

void MarkerSuppliesTest::capacities_data()
{
    QTest::addColumn<double>("inches");
    QTest::addColumn<int>("capacity");

    QTest::newRow("feet of a tag") << 1200.0 << 12000000;
    QTest::newRow("a fraction of an inch") << 4720.5 << 47205000;
    QTest::newRow("rounded") << 0.00016 << 2;
    QTest::newRow("unknown") << -1.0 << mibUnknown;
    QTest::newRow("a type's minus one foot") << -12.0 << mibUnknown;
    QTest::newRow("nothing") << 0.0 << mibUnknown;
    QTest::newRow("the largest") << 214748.3647 << std::numeric_limits<int>::max();
    QTest::newRow("more than the MIB holds") << 214748.3648 << mibUnknown;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << mibUnknown;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << mibUnknown;
}

void MarkerSuppliesTest::capacities()
{
    QFETCH(double, inches);
    QTEST(mibCapacity(inches), "capacity");
}

void MarkerSuppliesTest::levels_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<int>("capacity");
    QTest::addColumn<int>("level");

    QTest::newRow("full") << 1.0 << 1000 << 1000;
    QTest::newRow("rounded") << 0.0006 << 1000 << 1;
    QTest::newRow("empty") << 0.0 << 1000 << 0;
    QTest::newRow("below empty") << -0.3 << 1000 << 0;
    QTest::newRow("just not the unknown fraction") << -1.0000001 << 1000 << 0;
    QTest::newRow("above full") << 1.7 << 1000 << 1000;
    QTest::newRow("unknown fraction") << -1.0 << 1000 << mibUnknown;
    QTest::newRow("unknown capacity") << 0.5 << mibUnknown << mibUnknown;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 1000 << mibUnknown;
}

void MarkerSuppliesTest::levels()
{
    QFETCH(double, fraction);
    QFETCH(int, capacity);
    QTEST(mibLevel(fraction, capacity), "level");
}

void MarkerSuppliesTest::keywords_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("keyword");

    QTest::newRow("a word") << u"Black"_s << u"black"_s;
    QTest::newRow("two words") << u"Light Blue"_s << u"light-blue"_s;
    QTest::newRow("what ends a pair") << u"a;b=c"_s << u"a-b-c"_s;
    QTest::newRow("signs at both ends") << u"(Clear)"_s << u"clear"_s;
    QTest::newRow("no name") << QString() << QString();
    QTest::newRow("signs alone") << u"--;"_s << QString();
}

void MarkerSuppliesTest::keywords()
{
    QFETCH(QString, name);
    QTEST(keywordOf(name), "keyword");
}

void MarkerSuppliesTest::oddDescription()
{
    // A description may hold what ends a text.
    const MarkerSupply odd{1, u"X"_s, {u"other"_s, 1}, u"12\" \\ wide"_s};
    QVERIFY(ippText({odd}).endsWith(u"    \"12\\\" \\\\ wide\"\n"_s));
    QVERIFY(snmpText({odd}).contains(u".6.1.1 = STRING: \"12\\\" \\\\ wide\"\n"_s));
}

QTEST_GUILESS_MAIN(MarkerSuppliesTest)
#include "tst_markersupplies.moc"
