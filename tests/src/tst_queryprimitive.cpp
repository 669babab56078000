// SPDX-License-Identifier: LGPL-2.1-or-later
// One query's value as it stands, what comes in its place, and the conversions of lists and units.

#include "support/fixturecatalogue.h"
#include "support/recordingdriver.h"

#include <zrsupplydatabase.h>

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <QtTest/QTest>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fixedName = u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

quint64 bitsOf(double value)
{
    quint64 bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof value);
    return bits;
}

/// Equal to the last bit, zero's sign too; every NaN is the same.
bool sameBits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || bitsOf(a) == bitsOf(b);
}

QString exactly(double value)
{
    return QString::number(value, 'g', 17);
}

/// How the catalogue is when it is asked.
enum class Catalogue { Open, NeverSetUp, OtherName, Failed };

} // namespace

Q_DECLARE_METATYPE(Catalogue)

class TestQueryPrimitive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void insteadOfAValue_data();
    void insteadOfAValue();
    void closedCatalogue_data();
    void closedCatalogue();
    void nullIsNotTheDefault();
    void nullNoRowFailureAndClosedApart();
    void asksOnceAndExactly();
    void textList_data();
    void textList();
    void textListOfMany();
    void mmToInches_data();
    void mmToInches();
    void feetToInches_data();
    void feetToInches();
    void mileageToPercentage_data();
    void mileageToPercentage();
};

void TestQueryPrimitive::values_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *name, const QString &query, const QVariant &value) {
        QTest::newRow(name) << query << value;
    };
    row("integer", u"SELECT 42"_s, QVariant(qlonglong(42)));
    row("large integer", u"SELECT 9223372036854775807"_s, QVariant(std::numeric_limits<qlonglong>::max()));
    row("real", u"SELECT 0.1"_s, QVariant(0.1));
    row("text", u"SELECT 'Wei\u00DF \U0001F3F7'"_s, QVariant(u"Wei\u00DF \U0001F3F7"_s));
    row("text of digits stays text", u"SELECT '007'"_s, QVariant(u"007"_s));
    row("empty text", u"SELECT ''"_s, QVariant(u""_s));
    row("bytes", u"SELECT X'0041FF00'"_s, QVariant(QByteArray("\0A\xFF\0", 4)));
    row("column of a table", u"SELECT rgbValue FROM color WHERE id=3"_s, QVariant(qlonglong(255)));
    row("image", u"SELECT svg FROM background WHERE id=1"_s, QVariant("<svg/>"_ba));
    row("first of several columns", u"SELECT 1, 2, 3"_s, QVariant(qlonglong(1)));
    row("first of several rows", u"SELECT sku FROM ribbon ORDER BY id"_s, QVariant(u"RIB-ONE"_s));
    row("text with a semicolon behind it", u"SELECT 1;"_s, QVariant(qlonglong(1)));
    // No pragma answers under the guard: the default.
    const bool isGuarded = qEnvironmentVariableIsSet("ZRSUPPLY_TEST_GUARDED");
    row("pragma", u"PRAGMA query_only"_s, isGuarded ? QVariant(7) : QVariant(qlonglong(0)));
    row("a count of nothing", u"SELECT COUNT(*) FROM color WHERE id=-7"_s, QVariant(qlonglong(0)));
}

void TestQueryPrimitive::values()
{
    QFETCH(QString, query);
    QFETCH(QVariant, value);
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    const QVariant answer = database.getSingleVariantByQuery(query, QVariant(7));
    QCOMPARE(answer.typeId(), value.typeId());
    QCOMPARE(answer, value);
}

void TestQueryPrimitive::insteadOfAValue_data()
{
    QTest::addColumn<QString>("query");
    QTest::newRow("no row") << u"SELECT rgbValue FROM color WHERE id=-7"_s;
    QTest::newRow("no row of a real table, NULL apart") << u"SELECT rgbValue FROM color WHERE 0"_s;
    QTest::newRow("missing table") << u"SELECT x FROM missing"_s;
    QTest::newRow("missing column") << u"SELECT missing FROM color"_s;
    QTest::newRow("no SQL") << u"what is the width?"_s;
    QTest::newRow("a quote too many") << u"SELECT id FROM color WHERE name='it's'"_s;
    QTest::newRow("two statements") << u"SELECT 1; SELECT 2"_s;
    QTest::newRow("a placeholder without a value") << u"SELECT rgbValue FROM color WHERE id=?"_s;
    QTest::newRow("a writing statement") << u"UPDATE color SET rgbValue=1 RETURNING 1"_s;
    QTest::newRow("a statement without rows") << u"BEGIN"_s;
    QTest::newRow("empty text") << u""_s;
    QTest::newRow("null text") << QString();
    QTest::newRow("comment") << u"-- SELECT 1"_s;
}

void TestQueryPrimitive::insteadOfAValue()
{
    QFETCH(QString, query);
    const FixtureCatalogue catalogue;
    const QuietQt quiet;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    const QVariant defaults[] = {7, -1, -1.5, u"text"_s, QString(), QByteArray("b"), QStringList(u"x"_s), QVariant()};
    for (const QVariant &given : defaults) {
        const QVariant answer = database.getSingleVariantByQuery(query, given);
        QCOMPARE(answer.typeId(), given.typeId());
        QCOMPARE(answer, given);
    }
}

void TestQueryPrimitive::closedCatalogue_data()
{
    QTest::addColumn<Catalogue>("state");
    QTest::newRow("open") << Catalogue::Open;
    QTest::newRow("never set up") << Catalogue::NeverSetUp;
    QTest::newRow("open under another name") << Catalogue::OtherName;
    QTest::newRow("failed to open") << Catalogue::Failed;
}

void TestQueryPrimitive::closedCatalogue()
{
    QFETCH(Catalogue, state);
    const FixtureCatalogue catalogue;
    const QuietQt quiet;
    ZrSupplyDatabase database;
    if (state == Catalogue::Open)
        QVERIFY(database.setup(catalogue.path()));
    else if (state == Catalogue::OtherName)
        QVERIFY(database.setup(catalogue.path(), u"other"_s));
    else if (state == Catalogue::Failed)
        QVERIFY(!database.setup(catalogue.path() + u".missing"_s));

    const bool open = state == Catalogue::Open;
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT 1"_s, 7).toInt(), open ? 1 : 7);
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT NULL"_s, 7).isNull(), open);
    QCOMPARE(database.getSingleVariantByQuery(u"SELECT 1"_s, {}).isValid(), open);
    QCOMPARE(database.getSingleVariantByQuery(u"no SQL"_s, 7), QVariant(7));
    QSqlDatabase::removeDatabase(u"other"_s);
}

void TestQueryPrimitive::nullIsNotTheDefault()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    QVERIFY(database.setup(catalogue.path()));
    const QString queries[] = {
        u"SELECT NULL"_s, u"SELECT rgbValue FROM color WHERE id=4"_s, u"SELECT name FROM color WHERE id=5"_s,
        u"SELECT width FROM materialwidth WHERE id=15"_s, u"SELECT svg FROM background WHERE id=2"_s};
    for (const QString &text : queries) {
        const QVariant answer = database.getSingleVariantByQuery(text, 7);
        QVERIFY2(answer.isValid() && answer.isNull(), qPrintable(text));
        QCOMPARE(answer.toInt(), 0);
        QCOMPARE(answer.toDouble(), 0.0);
        QCOMPARE(answer.toString(), QString());
        // As it stands: what Qt itself gives for the same text.
        QSqlQuery query(text, QSqlDatabase::database(fixedName));
        QVERIFY(query.next());
        QCOMPARE(answer.typeId(), query.value(0).typeId());
    }
}

void TestQueryPrimitive::nullNoRowFailureAndClosedApart()
{
    const FixtureCatalogue catalogue;
    ZrSupplyDatabase database;
    // Each lookup's own default where there is no value, its converted null where the value is NULL.
    QCOMPARE(database.supplyWidth(u"NULLS"_s), -1.0);
    QVERIFY(database.setup(catalogue.path()));
    QCOMPARE(database.supplyWidth(u"NULLS"_s), 0.0);
    QCOMPARE(database.supplyWidth(u"ABSENT"_s), -1.0);
    QCOMPARE(database.supplyWidth(u"it's"_s), -1.0);
    QCOMPARE(database.supplyMultiUpCount(u"NULLS"_s), 0);
    QCOMPARE(database.supplyMultiUpCount(u"ABSENT"_s), 1);
    QCOMPARE(database.getColorRGBFromEnum(4), 0);
    QCOMPARE(database.getColorRGBFromEnum(99), -1);
    QCOMPARE(database.getColorNameFromEnum(4, true), QString());
    QCOMPARE(database.getColorNameFromEnum(99, true), u"-1"_s);

    // A missing table, then a missing column: as if no row were found.
    catalogue.run(u"ALTER TABLE color RENAME TO paint"_s);
    QCOMPARE(database.getColorRGBFromEnum(4), -1);
    catalogue.run(u"ALTER TABLE paint RENAME TO color; ALTER TABLE color RENAME COLUMN rgbValue TO rgb"_s);
    QCOMPARE(database.getColorRGBFromEnum(4), -1);
}

void TestQueryPrimitive::asksOnceAndExactly()
{
    const FixtureCatalogue catalogue;
    QStringList texts;
    ZrSupplyDatabase database;
    RecordingDriver::install(catalogue.path(), &texts);
    const QStringList queries = {u"SELECT  1 "_s, u"SELECT rgbValue FROM color WHERE id=-7"_s,
                                 u"SELECT '%1', \"%2\""_s, u"SELECT x FROM missing"_s};
    for (const QString &query : queries)
        database.getSingleVariantByQuery(query, 7);
    QCOMPARE(texts, queries);
    // The conversions ask nothing.
    database.getStringListFromVariantList({1, 2});
    database.mmToInches(1.0);
    database.feetToInches(1.0);
    database.mileageToPercentage(1, 2.0, 3.0);
    QCOMPARE(texts, queries);
}

void TestQueryPrimitive::textList_data()
{
    QTest::addColumn<QVariant>("entry");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QVariant &entry, const QString &text) {
        QTest::newRow(name) << entry << text;
    };
    row("whole number", 255, u"255"_s);
    row("zero", 0, u"0"_s);
    row("negative", -1, u"-1"_s);
    row("largest", INT_MAX, u"2147483647"_s);
    row("smallest", INT_MIN, u"-2147483648"_s);
    // Deliberate: a fraction is cut off; Qt's own conversion would round it.
    row("1.9", 1.9, u"1"_s);
    row("1.5", 1.5, u"1"_s);
    row("2.5", 2.5, u"2"_s);
    row("1.1", 1.1, u"1"_s);
    row("0.999999", 0.999999, u"0"_s);
    row("negative zero", -0.0, u"0"_s);
    row("-0.5", -0.5, u"0"_s);
    row("-0.9", -0.9, u"0"_s);
    row("-1.1", -1.1, u"-1"_s);
    row("-1.5", -1.5, u"-1"_s);
    row("-1.9", -1.9, u"-1"_s);
    row("whole real", 4711.0, u"4711"_s);
    row("real just below the largest int", 2147483646.9, u"2147483646"_s);
    row("real just above the smallest int", -2147483647.9, u"-2147483647"_s);
    row("real beyond an int keeps its low bits", 3e9, u"-1294967296"_s);
    row("real beyond 64 bits", 1e300, u"0"_s);
    row("negative real beyond 64 bits", -1e300, u"0"_s);
    row("first real beyond 64 bits", 9223372036854775808.0, u"0"_s);
    row("largest real that 64 bits hold", 9223372036854774784.0, u"-1024"_s);
    row("infinite", infinity, u"0"_s);
    row("negative infinite", -infinity, u"0"_s);
    row("NaN", std::numeric_limits<double>::quiet_NaN(), u"0"_s);
    row("real beyond 64 bits in single precision", 1e30F, u"0"_s);
    row("1.9 in single precision", 1.9F, u"1"_s);
    row("-1.9 in single precision", -1.9F, u"-1"_s);
    row("true", true, u"1"_s);
    row("false", false, u"0"_s);
    row("text of a number", u"7"_s, u"7"_s);
    row("text of a negative number", u"-7"_s, u"-7"_s);
    row("text with a sign", u"+7"_s, u"7"_s);
    row("text with leading zeros is decimal", u"010"_s, u"10"_s);
    row("text with blanks around", u" 7 "_s, u"7"_s);
    row("text of a fraction", u"1.9"_s, u"0"_s);
    row("hexadecimal text", u"0x10"_s, u"0"_s);
    row("text with a number in front", u"7abc"_s, u"0"_s);
    row("other text", u"abc"_s, u"0"_s);
    row("empty text", u""_s, u"0"_s);
    row("text beyond an int keeps its low bits", u"2147483648"_s, u"-2147483648"_s);
    row("bytes of a number", QByteArray("12"), u"12"_s);
    row("other bytes", QByteArray("x"), u"0"_s);
    row("long number", qlonglong(16777215), u"16777215"_s);
    row("long number beyond an int keeps its low bits", qlonglong(4294967297), u"1"_s);
    row("unsigned number beyond an int keeps its bits", 4294967295U, u"-1"_s);
    row("no value", QVariant(), u"0"_s);
    row("null number", QVariant(QMetaType::fromType<int>()), u"0"_s);
    row("null real", QVariant(QMetaType::fromType<double>()), u"0"_s);
    row("null text", QVariant(QMetaType::fromType<QString>()), u"0"_s);
    row("list", QVariant(QVariantList{5}), u"0"_s);
}

void TestQueryPrimitive::textList()
{
    QFETCH(QVariant, entry);
    QFETCH(QString, text);
    ZrSupplyDatabase database;
    QCOMPARE(database.getStringListFromVariantList({entry}), QStringList(text));
}

void TestQueryPrimitive::textListOfMany()
{
    ZrSupplyDatabase database;
    QCOMPARE(database.getStringListFromVariantList({}), QStringList());
    QCOMPARE(database.getStringListFromVariantList({255, u"abc"_s, 1.9}), QStringList({u"255"_s, u"0"_s, u"1"_s}));
    QCOMPARE(database.getStringListFromVariantList({3, 1, 2, 1, QVariant()}),
             QStringList({u"3"_s, u"1"_s, u"2"_s, u"1"_s, u"0"_s}));
    QVariantList many;
    QStringList texts;
    for (int i = 0; i < 1000; ++i) {
        many.append(i - 500);
        texts.append(QString::number(i - 500));
    }
    QCOMPARE(database.getStringListFromVariantList(many), texts);
}

void TestQueryPrimitive::mmToInches_data()
{
    QTest::addColumn<double>("mm");
    QTest::addColumn<double>("inches");
    // Deliberate: the factor is 0.0393701, not 1 / 25.4.
    QTest::newRow("one inch") << 25.4 << 0x1.0000090f48476p+0;
    QTest::newRow("one millimetre") << 1.0 << 0.0393701;
    QTest::newRow("a tenth") << 0.1 << 0x1.02041131ab9ebp-8;
    QTest::newRow("three") << 3.0 << 0x1.e3c7a03d21c98p-4;
    QTest::newRow("negative") << -1.0 << -0.0393701;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("negative zero") << -0.0 << -0.0;
    QTest::newRow("many") << 123456789.0 << 0x1.28a96883b20d3p+22;
    QTest::newRow("infinite") << infinity << infinity;
    QTest::newRow("not a number") << notANumber << notANumber;
}

void TestQueryPrimitive::mmToInches()
{
    QFETCH(double, mm);
    QFETCH(double, inches);
    ZrSupplyDatabase database;
    QVERIFY2(sameBits(database.mmToInches(mm), inches), qPrintable(exactly(database.mmToInches(mm))));
}

void TestQueryPrimitive::feetToInches_data()
{
    QTest::addColumn<double>("feet");
    QTest::addColumn<double>("inches");
    QTest::newRow("two") << 2.0 << 24.0;
    QTest::newRow("a tenth") << 0.1 << 0x1.3333333333334p+0;
    QTest::newRow("seven tenths") << 0.7 << 0x1.0ccccccccccccp+3;
    QTest::newRow("negative") << -1.0 << -12.0;
    QTest::newRow("negative zero") << -0.0 << -0.0;
    QTest::newRow("the longest of a tag") << 511.0 << 6132.0;
    QTest::newRow("infinite") << -infinity << -infinity;
    QTest::newRow("not a number") << notANumber << notANumber;
}

void TestQueryPrimitive::feetToInches()
{
    QFETCH(double, feet);
    QFETCH(double, inches);
    ZrSupplyDatabase database;
    QVERIFY2(sameBits(database.feetToInches(feet), inches), qPrintable(exactly(database.feetToInches(feet))));
}

void TestQueryPrimitive::mileageToPercentage_data()
{
    QTest::addColumn<int>("mileage");
    QTest::addColumn<double>("tagLength");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("fraction");
    const auto row = [](const char *name, int mileage, double tagLength, double length, double fraction) {
        QTest::newRow(name) << mileage << tagLength << length << fraction;
    };
    // Deliberate: the mileage is subtracted, and as it stands; the announced fractions add it, in inches.
    row("plain", 100, 4725.0, 5000.0, 1.925);
    row("no mileage", 0, 4725.0, 4725.0, 2.0);
    row("no tag length", 100, 0.0, 400.0, 0.75);
    row("below zero, not clamped", 1000, 0.0, 500.0, -1.0);
    row("unknown mileage is a number like any", -1, -12.0, -1.0, 12.0);
    row("first the difference, then the sum, then the quotient", 1, 0.1, 0.3, -0x1.0000000000001p+1);
    row("the difference loses the mileage", 1, 1e16, 3.0, 0x1.7af4c4a80aaadp+51);
    row("the sum is exactly nothing", 1, 1e16, -1e16, -0.0);
    row("largest mileage", INT_MAX, 1.0, 3.0, -715827881.0);
    row("smallest mileage", INT_MIN, 1.0, 3.0, 715827884.0);
    row("length 0, something left", 100, 4725.0, 0.0, infinity);
    row("length 0, less than nothing left", 4726, 4725.0, 0.0, -infinity);
    row("length 0, nothing left", 4725, 4725.0, 0.0, notANumber);
    row("length negative zero", 100, 4725.0, -0.0, -infinity);
    row("no number for a length", 100, 4725.0, notANumber, notANumber);
}

void TestQueryPrimitive::mileageToPercentage()
{
    QFETCH(int, mileage);
    QFETCH(double, tagLength);
    QFETCH(double, length);
    QFETCH(double, fraction);
    ZrSupplyDatabase database;
    const double answer = database.mileageToPercentage(mileage, tagLength, length);
    QVERIFY2(sameBits(answer, fraction), qPrintable(exactly(answer)));
}

QTEST_GUILESS_MAIN(TestQueryPrimitive)

#include "tst_queryprimitive.moc"
