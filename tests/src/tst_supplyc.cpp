// SPDX-License-Identifier: LGPL-2.1-or-later
// The tag decoder: each bit's place, both layouts, every revision, and whatever text a host may hand in.

#include "support/tagreference.h"

#include <tag/supplyc.h>

#include <QtTest/QTest>

#include <cstddef>
#include <random>
#include <type_traits>

using namespace Qt::Literals::StringLiterals;
using TagReference::linesOf;
using TagReference::valuesOf;

// Hosts that are compiled against the class read its fields by their place: type, order and nothing besides.
#define SAME_FIELD(name)                                                                                             \
    static_assert(std::is_same_v<decltype(SupplyC::name), decltype(TagRecord::name)> &&                              \
                  offsetof(SupplyC, name) == offsetof(TagRecord, name))
SAME_FIELD(mileageBaseFeet);
SAME_FIELD(tagFlagBit9);
SAME_FIELD(swiftLift);
SAME_FIELD(secColorWidthSixteenths);
SAME_FIELD(secColorWidthInches);
SAME_FIELD(secColorEnum);
SAME_FIELD(tagFlagBit25);
SAME_FIELD(lengthFeet);
SAME_FIELD(materialEnum);
SAME_FIELD(formatEnum);
SAME_FIELD(colorEnum);
SAME_FIELD(widthSixteenths);
SAME_FIELD(widthInches);
SAME_FIELD(tagRevision);
SAME_FIELD(tagFlagBit72);
SAME_FIELD(tagFlagBit73);
SAME_FIELD(formatEnumRev1);
SAME_FIELD(multiUpCountCode);
SAME_FIELD(multiUpGapCode);
SAME_FIELD(typeIndex);
SAME_FIELD(tagFlagBit11);
SAME_FIELD(separatorWidthCode);
SAME_FIELD(nonContinuousLengthSixteenths);
SAME_FIELD(nonContinuousLengthInches);
#undef SAME_FIELD
static_assert(sizeof(SupplyC) == sizeof(TagRecord) && sizeof(int) == 4);
static_assert(!std::is_polymorphic_v<SupplyC> && std::is_standard_layout_v<SupplyC>);
static_assert(std::is_copy_constructible_v<SupplyC> && std::is_copy_assignable_v<SupplyC>);
static_assert(std::is_constructible_v<SupplyC, const QString &>);

namespace {

const QString allOnes = u"FFFFFFFFFFFFFFFFFFFFFFFF"_s;

/// The fields of a tag of zeros, with what `differences` ("lengthFeet=511 typeIndex=4") says otherwise.
QStringList zeroTagBut(const QString &differences)
{
    TagRecord zeros;
    zeros = {0, false, false, 0, 0, 0, false, 0, 0, 0, 0, 0, 0, 0, false, false, 0, 0, 0, 0, true, 0, 0, 0};
    QStringList lines = linesOf(zeros);
    for (const QString &difference : differences.split(u' ', Qt::SkipEmptyParts)) {
        const QString name = difference.left(difference.indexOf(u'=') + 1);
        qsizetype changed = 0;
        for (QString &line : lines) {
            if (line.startsWith(name)) {
                line = difference;
                ++changed;
            }
        }
        if (changed != 1)
            qFatal("no field in \"%s\"", qPrintable(difference));
    }
    return lines;
}

/// What a new record holds after this tag, by the reference.
TagRecord referenceOf(const QString &tagHex)
{
    TagRecord record;
    TagReference::decode(tagHex, record);
    return record;
}

/// A tag of this format and revision, and nothing else in it.
QString tagOf(int formatEnum, int tagRevision)
{
    const QString zeros(96, u'0');
    return TagReference::hexOf(
        TagReference::withNumber(TagReference::withNumber(zeros, 43, 6, formatEnum), 68, 4, tagRevision));
}

/// The same numbers in every run and on every machine.
class Random
{
public:
    int below(int limit) { return int(m_engine() % unsigned(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    QString hexDigits(qsizetype count)
    {
        QString text;
        for (qsizetype i = 0; i < count; ++i)
            text.append(u"0123456789ABCDEFabcdef"_s.at(below(22)));
        return text;
    }
    /// Any length around 24, mostly digits, with foreign characters between them.
    QString garbage()
    {
        QString text;
        const int length = below(41);
        for (int i = 0; i < length; ++i)
            text.append(chance(70) ? hexDigits(1) : QString(QChar(char16_t(below(0x10000)))));
        return text;
    }

private:
    std::mt19937 m_engine{20240229};
};

} // namespace

class TestSupplyC : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults_data();
    void defaults();
    void fields_data();
    void fields();
    void everySingleBit_data();
    void everySingleBit();
    void everyFormatAndRevision();
    void texts_data();
    void texts();
    void strayCharacterAtEveryPlace_data();
    void strayCharacterAtEveryPlace();
    void keptField_data();
    void keptField();
    void everyOtherFieldIsWritten_data();
    void everyOtherFieldIsWritten();
    void referenceReadsDigitsAsQtDoes();
    void randomTags();
    void randomRecordsReadBack();
};

void TestSupplyC::defaults_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");

    // Deliberate: three fields differ from the pattern that numbers are -1 and flags are false.
    const std::pair<QString, int> rows[] = {
        {u"mileageBaseFeet"_s, -1},
        {u"tagFlagBit9"_s, 0},
        {u"swiftLift"_s, 0},
        {u"secColorWidthSixteenths"_s, -1},
        {u"secColorWidthInches"_s, -1},
        {u"secColorEnum"_s, -1},
        {u"tagFlagBit25"_s, 0},
        {u"lengthFeet"_s, -1},
        {u"materialEnum"_s, -1},
        {u"formatEnum"_s, -1},
        {u"colorEnum"_s, -1},
        {u"widthSixteenths"_s, -1},
        {u"widthInches"_s, -1},
        {u"tagRevision"_s, 0},
        {u"tagFlagBit72"_s, 0},
        {u"tagFlagBit73"_s, 1},
        {u"formatEnumRev1"_s, -1},
        {u"multiUpCountCode"_s, -1},
        {u"multiUpGapCode"_s, -1},
        {u"typeIndex"_s, -1},
        {u"tagFlagBit11"_s, 1},
        {u"separatorWidthCode"_s, -1},
        {u"nonContinuousLengthSixteenths"_s, -1},
        {u"nonContinuousLengthInches"_s, -1},
    };
    for (const auto &[name, value] : rows)
        QTest::newRow(qPrintable(name)) << name << value;
}

void TestSupplyC::defaults()
{
    QFETCH(QString, name);
    QFETCH(int, value);
    // From a tag that sets every bit, from one that sets none, and from a striped one.
    for (const QString &tagHex : {allOnes, QString(), tagOf(2, 3)}) {
        SupplyC tag(tagHex);
        tag.clear();
        QVERIFY2(linesOf(tag).contains(name + u'=' + QString::number(value)), qPrintable(linesOf(tag).join(u' ')));
    }
}

void TestSupplyC::fields_data()
{
    QTest::addColumn<QString>("tagHex");
    QTest::addColumn<QString>("differences");

    const auto row = [](const char *name, const QString &tagHex, const QString &differences) {
        QTest::newRow(name) << tagHex << differences;
    };
    row("no bit", u"000000000000000000000000"_s, {});
    row("mileage base", u"FF8000000000000000000000"_s, u"mileageBaseFeet=511"_s);
    row("flag of bit 9", u"004000000000000000000000"_s, u"tagFlagBit9=1"_s);
    row("SwiftLift", u"002000000000000000000000"_s, u"swiftLift=1"_s);
    row("flag of bit 25", u"000000400000000000000000"_s, u"tagFlagBit25=1"_s);
    row("roll length", u"0000003FE000000000000000"_s, u"lengthFeet=511"_s);
    row("material", u"000000001FE0000000000000"_s, u"materialEnum=255"_s);
    row("format, also the type", u"00000000001F800000000000"_s, u"formatEnum=63 typeIndex=63"_s);
    row("colour", u"0000000000007FC000000000"_s, u"colorEnum=511"_s);
    row("width, sixteenths", u"000000000000003C00000000"_s, u"widthSixteenths=15"_s);
    row("width, inches", u"0000000000000003F0000000"_s, u"widthInches=63"_s);
    row("revision 1", u"000000000000000001000000"_s, u"tagRevision=1"_s);
    row("revision 2: landscape is read", u"000000000000000002000000"_s,
        u"tagRevision=2 typeIndex=1 tagFlagBit11=0"_s);
    row("revision 15", u"00000000000000000F000000"_s, u"tagRevision=15 typeIndex=1 tagFlagBit11=0"_s);
    row("flag of bit 72", u"000000000000000000800000"_s, u"tagFlagBit72=1"_s);
    row("flag of bit 73", u"000000000000000000400000"_s, u"tagFlagBit73=1"_s);
    row("format of revision 1", u"0000000000000000003F0000"_s, u"formatEnumRev1=63"_s);
    row("labels across, revision 0", u"00000000000000000000F800"_s, {});
    row("labels across, revision 1", u"00000000000000000100F800"_s, u"tagRevision=1"_s);
    row("labels across, revision 2", u"00000000000000000200F800"_s,
        u"tagRevision=2 typeIndex=1 tagFlagBit11=0 multiUpCountCode=31"_s);
    row("gap across, whatever the revision", u"000000000000000000000600"_s, u"multiUpGapCode=3"_s);
    row("type bits, revision 0", u"000000000000000000000180"_s, {});
    row("type bits, revision 1", u"000000000000000001000180"_s, u"tagRevision=1"_s);
    row("type bits, revision 2", u"000000000000000002000180"_s, u"tagRevision=2 typeIndex=4 tagFlagBit11=0"_s);
    row("last seven bits, revision 0", u"00000000000000000000007F"_s, {});
    row("last seven bits, revision 2", u"00000000000000000200007F"_s, u"tagRevision=2 typeIndex=1 tagFlagBit11=0"_s);
    row("landscape, revision 1", u"001000000000000001000000"_s, u"tagRevision=1"_s);
    row("landscape, revision 2", u"001000000000000002000000"_s, u"tagRevision=2 typeIndex=1"_s);
    row("bit 12 of a die-cut tag", u"000800000000000000000000"_s, {});
    row("separator", u"000600000000000000000000"_s, u"separatorWidthCode=3"_s);
    row("label length, sixteenths", u"0001E0000000000000000000"_s, u"nonContinuousLengthSixteenths=15"_s);
    row("label length, inches", u"00001F800000000000000000"_s, u"nonContinuousLengthInches=63"_s);
    row("stripe width, sixteenths", u"001E00000000800000000000"_s,
        u"formatEnum=1 typeIndex=1 secColorWidthSixteenths=15"_s);
    row("stripe width, inches", u"0001F8000000800000000000"_s, u"formatEnum=1 typeIndex=1 secColorWidthInches=63"_s);
    row("stripe colour", u"000007800001000000000000"_s, u"formatEnum=2 typeIndex=2 secColorEnum=15"_s);
    row("striped, revision 3: type from its own bits", u"000000000001000003000180"_s,
        u"formatEnum=2 tagRevision=3 typeIndex=4"_s);
    row("striped, revision 3: type bits zero", u"000000000001000003000000"_s,
        u"formatEnum=2 tagRevision=3 typeIndex=1"_s);
    row("shared block, continuous", u"001FFF800000800000000000"_s,
        u"formatEnum=1 typeIndex=1 secColorWidthSixteenths=15 secColorWidthInches=63 secColorEnum=15"_s);
    row("shared block, die-cut", u"001FFF800001800002000000"_s,
        u"formatEnum=3 tagRevision=2 typeIndex=1 separatorWidthCode=3 nonContinuousLengthSixteenths=15 "
        "nonContinuousLengthInches=63"_s);
    row("every bit", allOnes,
        u"mileageBaseFeet=511 tagFlagBit9=1 swiftLift=1 tagFlagBit25=1 lengthFeet=511 materialEnum=255 formatEnum=63 "
        "colorEnum=511 widthSixteenths=15 widthInches=63 tagRevision=15 tagFlagBit72=1 tagFlagBit73=1 "
        "formatEnumRev1=63 multiUpCountCode=31 multiUpGapCode=3 typeIndex=4 separatorWidthCode=3 "
        "nonContinuousLengthSixteenths=15 nonContinuousLengthInches=63"_s);
}

void TestSupplyC::fields()
{
    QFETCH(QString, tagHex);
    QFETCH(QString, differences);
    QCOMPARE(linesOf(SupplyC(tagHex)), zeroTagBut(differences));
    QCOMPARE(linesOf(referenceOf(tagHex)), zeroTagBut(differences));
}

void TestSupplyC::everySingleBit_data()
{
    QTest::addColumn<int>("formatEnum");
    QTest::addColumn<int>("tagRevision");
    for (int revision = 0; revision <= 15; ++revision) {
        QTest::addRow("continuous, revision %d", revision) << 1 << revision;
        QTest::addRow("striped, revision %d", revision) << 2 << revision;
        QTest::addRow("die-cut, revision %d", revision) << 40 << revision;
    }
}

void TestSupplyC::everySingleBit()
{
    QFETCH(int, formatEnum);
    QFETCH(int, tagRevision);
    const QString ground = TagReference::bitsOf(tagOf(formatEnum, tagRevision));
    for (int bit = 0; bit < 96; ++bit) {
        const int other = 1 - TagReference::number(ground, bit, 1);
        const QString tagHex = TagReference::hexOf(TagReference::withNumber(ground, bit, 1, other));
        QCOMPARE(linesOf(SupplyC(tagHex)), linesOf(referenceOf(tagHex)));
    }
}

void TestSupplyC::everyFormatAndRevision()
{
    for (int format = 0; format < 64; ++format) {
        for (int revision = 0; revision < 16; ++revision) {
            // The block that both layouts share has a bit set in each of its fields.
            const QString tagHex = TagReference::hexOf(
                TagReference::withNumber(TagReference::bitsOf(tagOf(format, revision)), 11, 14, 0b00'1010'0101'1011));
            const SupplyC tag(tagHex);
            const bool continuous = format == 1 || format == 2;
            QCOMPARE(tag.formatEnum, format);
            QCOMPARE(tag.tagRevision, revision);
            QCOMPARE(tag.typeIndex, revision > 1 ? 1 : format);
            QCOMPARE(tag.secColorWidthSixteenths, continuous ? 0b0010 : 0);
            QCOMPARE(tag.secColorWidthInches, continuous ? 0b100101 : 0);
            QCOMPARE(tag.secColorEnum, continuous ? 0b1011 : 0);
            QCOMPARE(tag.tagFlagBit11, continuous || revision < 2);
            QCOMPARE(tag.separatorWidthCode, continuous ? 0 : 0b10);
            QCOMPARE(tag.nonContinuousLengthSixteenths, continuous ? 0 : 0b1001);
            QCOMPARE(tag.nonContinuousLengthInches, continuous ? 0 : 0b011011);
        }
    }
}

void TestSupplyC::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sameAs");

    const QString zeros = u"000000000000000000000000"_s;
    const auto row = [](const char *name, const QString &text, const QString &sameAs) {
        QTest::newRow(name) << text << sameAs;
    };
    row("null text", QString(), zeros);
    row("empty text", u""_s, zeros);
    row("one digit: a byte of its own", u"F"_s, u"0F0000000000000000000000"_s);
    row("two digits", u"F8"_s, u"F80000000000000000000000"_s);
    row("three digits: the first a byte of its own", u"F81"_s, u"0F8100000000000000000000"_s);
    row("22 digits", u"123456789ABCDEF0123456"_s, u"123456789ABCDEF012345600"_s);
    row("23 digits", u"123456789ABCDEF01234567"_s, u"0123456789ABCDEF01234567"_s);
    row("24 digits", u"123456789ABCDEF012345678"_s, u"123456789ABCDEF012345678"_s);
    row("25 digits", u"123456789ABCDEF012345678F"_s, u"123456789ABCDEF012345678"_s);
    row("30 digits", u"123456789ABCDEF012345678FFFFFF"_s, u"123456789ABCDEF012345678"_s);
    row("10,000 digits", u"123456789ABCDEF012345678"_s + QString(9976, u'F'), u"123456789ABCDEF012345678"_s);
    row("lower case", u"123456789abcdef012345678"_s, u"123456789ABCDEF012345678"_s);
    row("mixed case", u"123456789aBcDeF012345678"_s, u"123456789ABCDEF012345678"_s);
    row("the unset text", u"-1"_s, u"010000000000000000000000"_s);
    row("the unset text and a blank", u"-1 "_s, u"010000000000000000000000"_s);
    row("no digit at all", u"xyz -+.:;?@G`g/~"_s, zeros);
    row("neighbours of the digits", u"/:@G`g"_s, zeros);
    row("24 foreign characters, digits behind them", QString(24, u'x') + allOnes, zeros);
    row("a foreign character at the start", u"x23456789ABCDEF0123456789"_s, u"023456789ABCDEF012345678"_s);
    row("a foreign character at the end", u"123456789ABCDEF01234567x"_s, u"0123456789ABCDEF01234567"_s);
    row("a foreign character in the middle", u"123456789ABxDEF012345678"_s, u"0123456789ABDEF012345678"_s);
    row("two foreign characters in the middle", u"1234567890xxDEF012345678"_s, u"1234567890DEF01234567800"_s);
    row("a 25th character does not replace a foreign one", u"1234567890x1DEF0123456789"_s,
        u"012345678901DEF012345678"_s);
    row("0x in front", u"0x123456789ABCDEF01234567"_s, u"00123456789ABCDEF0123456"_s);
    row("blanks between the bytes", u"12 34 56 78 9A BC DE F0 12 34 56 78"_s, u"123456789ABCDEF000000000"_s);
    row("blank and tab around", u"\t 12345678 \r\n"_s, u"123456780000000000000000"_s);
    row("a zero character inside", u"12"_s + QChar(u'\0') + u"3456"_s, u"123456000000000000000000"_s);
    row("a Latin-1 letter", u"12\u00E934"_s, u"123400000000000000000000"_s);
    row("letters whose low byte is a digit's", u"\u0131\u0141\u0161\u0139\u0430\uFF41"_s, zeros);
    row("full-width digits", u"\uFF11\uFF12\uFF13\uFF21"_s, zeros);
    row("digits of another script", u"\u0661\u0662\u0663"_s, zeros);
    row("a character of two units counts as two", u"\U0001F3F7"_s + u"1234567890123456789012FF"_s,
        u"123456789012345678901200"_s);
    row("a character of two units, cut in its middle", u"12345678901234567890123"_s + u"\U0001F3F7"_s + u"FF"_s,
        u"012345678901234567890123"_s);
    row("half a character of two units", u"12"_s + QChar(char16_t(0xD83C)) + u"34"_s, u"123400000000000000000000"_s);
    row("the other half", u"12"_s + QChar(char16_t(0xDC41)) + u"34"_s, u"123400000000000000000000"_s);
}

void TestSupplyC::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, sameAs);
    QCOMPARE(TagReference::hexOf(TagReference::bitsOf(text)), sameAs);
    QCOMPARE(linesOf(SupplyC(text)), linesOf(referenceOf(sameAs)));
}

void TestSupplyC::strayCharacterAtEveryPlace_data()
{
    QTest::addColumn<QChar>("stray");
    QTest::newRow("zero character") << QChar(u'\0');
    QTest::newRow("blank") << QChar(u' ');
    QTest::newRow("before 0") << QChar(u'/');
    QTest::newRow("after 9") << QChar(u':');
    QTest::newRow("before A") << QChar(u'@');
    QTest::newRow("after F") << QChar(u'G');
    QTest::newRow("before a") << QChar(u'`');
    QTest::newRow("after f") << QChar(u'g');
    QTest::newRow("a Latin-1 letter") << QChar(u'\u00E9');
    QTest::newRow("low byte of a digit") << QChar(u'\u0131');
    QTest::newRow("low byte of a capital") << QChar(u'\u0141');
    QTest::newRow("low byte of a small letter") << QChar(u'\u0461');
    QTest::newRow("full-width digit") << QChar(u'\uFF11');
    QTest::newRow("half a character") << QChar(char16_t(0xD830));
}

void TestSupplyC::strayCharacterAtEveryPlace()
{
    QFETCH(QChar, stray);
    for (int place = 0; place < 26; ++place) {
        QString text = u"123456789ABCDEF0fedcba9876"_s;
        text[place] = stray;
        QCOMPARE(linesOf(SupplyC(text)), linesOf(referenceOf(text)));
        QString digits = text.left(24).remove(stray);
        if (digits.size() % 2 != 0)
            digits.prepend(u'0');
        QCOMPARE(linesOf(SupplyC(text)), linesOf(SupplyC(digits.leftJustified(24, u'0'))));
    }
}

void TestSupplyC::keptField_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("tagHex");
    QTest::addColumn<bool>("landscape");

    const QString dieCut0 = tagOf(9, 0);
    const QString dieCut1 = tagOf(9, 1);
    const QString dieCut2 = tagOf(9, 2);
    const QString ones1 = u"001000000004800001000000"_s; // die-cut, revision 1, bit 11 set
    const QString ones2 = u"001000000004800002000000"_s; // die-cut, revision 2, bit 11 set
    const QString striped0 = tagOf(2, 0);
    const QString striped3 = tagOf(2, 3);
    const auto row = [](const char *name, const QString &before, const QString &tagHex, bool landscape) {
        QTest::newRow(name) << before << tagHex << landscape;
    };
    // Deliberate: a die-cut tag below revision 2 does not carry the flag, so the record keeps the one it had.
    row("false kept by revision 0", dieCut2, dieCut0, false);
    row("false kept by revision 1", dieCut2, dieCut1, false);
    row("false kept by revision 1, bit 11 set", dieCut2, ones1, false);
    row("false kept by an empty text", dieCut2, QString(), false);
    row("true kept by revision 0", ones2, dieCut0, true);
    row("true kept by revision 1", ones2, dieCut1, true);
    row("a continuous tag before leaves true", striped3, dieCut0, true);
    row("read at revision 2, set", dieCut2, ones2, true);
    row("read at revision 2, clear", ones2, dieCut2, false);
    row("true after a continuous tag, revision 0", dieCut2, striped0, true);
    row("true after a continuous tag, revision 3", dieCut2, striped3, true);
}

void TestSupplyC::keptField()
{
    QFETCH(QString, before);
    QFETCH(QString, tagHex);
    QFETCH(bool, landscape);
    SupplyC tag(before);
    tag.decode(tagHex);
    QCOMPARE(tag.tagFlagBit11, landscape);

    tag.clear();
    tag.decode(tagHex);
    QCOMPARE(linesOf(tag), linesOf(SupplyC(tagHex)));
}

void TestSupplyC::everyOtherFieldIsWritten_data()
{
    QTest::addColumn<QString>("tagHex");
    QTest::newRow("empty") << QString();
    QTest::newRow("die-cut, revision 1") << tagOf(40, 1);
    QTest::newRow("die-cut, revision 2") << tagOf(40, 2);
    QTest::newRow("continuous, revision 0") << tagOf(1, 0);
    QTest::newRow("striped, revision 3") << tagOf(2, 3);
}

void TestSupplyC::everyOtherFieldIsWritten()
{
    QFETCH(QString, tagHex);
    SupplyC tag = SupplyC(QString());
    tag.mileageBaseFeet = tag.secColorWidthSixteenths = tag.secColorWidthInches = tag.secColorEnum = 77;
    tag.lengthFeet = tag.materialEnum = tag.formatEnum = tag.colorEnum = tag.widthSixteenths = tag.widthInches = 77;
    tag.tagRevision = tag.formatEnumRev1 = tag.multiUpCountCode = tag.multiUpGapCode = tag.typeIndex = 77;
    tag.separatorWidthCode = tag.nonContinuousLengthSixteenths = tag.nonContinuousLengthInches = 77;
    tag.tagFlagBit9 = tag.swiftLift = tag.tagFlagBit25 = tag.tagFlagBit72 = tag.tagFlagBit73 = true;
    tag.decode(tagHex);
    QCOMPARE(linesOf(tag), linesOf(referenceOf(tagHex)));
}

void TestSupplyC::referenceReadsDigitsAsQtDoes()
{
    // The reference has its own idea of what digits a text holds; Qt's is the one that tags are read by.
    Random random;
    for (int i = 0; i < 20'000; ++i) {
        const QString text = random.garbage();
        const QByteArray bytes = QByteArray::fromHex(text.left(24).toLatin1());
        QCOMPARE(TagReference::hexOf(TagReference::bitsOf(text)),
                 QString::fromLatin1(bytes.leftJustified(12, '\0').toHex().toUpper()));
    }
}

void TestSupplyC::randomTags()
{
    Random random;
    SupplyC used(QString{});
    TagRecord usedReference = referenceOf(QString());
    int kept = 0;
    for (int i = 0; i < 100'000; ++i) {
        QString text;
        if (random.chance(25))
            text = random.garbage();
        else
            text = random.hexDigits(24);
        // Random formats are seldom continuous and random revisions seldom below 2.
        if (random.chance(50) && text.size() == 24) {
            const QString bits = TagReference::withNumber(TagReference::bitsOf(text), 43, 6, random.below(4));
            text = TagReference::hexOf(TagReference::withNumber(bits, 68, 4, random.below(4)));
        }

        const SupplyC tag(text);
        const TagRecord reference = referenceOf(text);
        if (valuesOf(tag) != valuesOf(reference))
            QFAIL(qPrintable(u"%1\n%2\n%3"_s.arg(text, linesOf(tag).join(u' '), linesOf(reference).join(u' '))));

        // The same record over and over, never cleared.
        used.decode(text);
        TagReference::decode(text, usedReference);
        if (valuesOf(used) != valuesOf(usedReference))
            QFAIL(qPrintable(u"%1\n%2\n%3"_s.arg(text, linesOf(used).join(u' '), linesOf(usedReference).join(u' '))));
        kept += usedReference.tagFlagBit11 != reference.tagFlagBit11;
    }
    QVERIFY2(kept > 1000, "the texts hardly ever meet the field that is kept");
}

void TestSupplyC::randomRecordsReadBack()
{
    Random random;
    for (int i = 0; i < 10'000; ++i) {
        TagRecord record;
        const bool continuous = random.chance(50);
        record.formatEnum = continuous ? 1 + random.below(2) : 3 + random.below(61);
        record.tagRevision = random.below(16);
        const bool multiUp = record.tagRevision > 1;
        record.mileageBaseFeet = random.below(512);
        record.tagFlagBit9 = random.chance(50);
        record.swiftLift = random.chance(50);
        record.tagFlagBit25 = random.chance(50);
        record.lengthFeet = random.below(512);
        record.materialEnum = random.below(256);
        record.colorEnum = random.below(512);
        record.widthSixteenths = random.below(16);
        record.widthInches = random.below(64);
        record.tagFlagBit72 = random.chance(50);
        record.tagFlagBit73 = random.chance(50);
        record.formatEnumRev1 = random.below(64);
        record.multiUpGapCode = random.below(4);
        record.multiUpCountCode = multiUp ? random.below(32) : 0;
        record.typeIndex = multiUp ? 1 + random.below(4) : record.formatEnum;
        record.secColorWidthSixteenths = continuous ? random.below(16) : 0;
        record.secColorWidthInches = continuous ? random.below(64) : 0;
        record.secColorEnum = continuous ? random.below(16) : 0;
        record.tagFlagBit11 = continuous || !multiUp || random.chance(50);
        record.separatorWidthCode = continuous ? 0 : random.below(4);
        record.nonContinuousLengthSixteenths = continuous ? 0 : random.below(16);
        record.nonContinuousLengthInches = continuous ? 0 : random.below(64);

        const QString tagHex = TagReference::encode(record);
        QCOMPARE(tagHex.size(), 24);
        QCOMPARE(linesOf(SupplyC(tagHex)), linesOf(record));
    }
}

QTEST_GUILESS_MAIN(TestSupplyC)

#include "tst_supplyc.moc"
