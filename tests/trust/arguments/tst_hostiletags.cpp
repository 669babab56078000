// SPDX-License-Identifier: LGPL-2.1-or-later
// Tags from strangers: every bit, every layout, every length and any alphabet, against a slow reading of the text.

#include "randomsource.h"

#include "support/tagreference.h"
#include "support/tier.h"

#include <tag/supplyc.h>

#include <QtTest/QTest>

#include <array>

using namespace Qt::Literals::StringLiterals;
using TagReference::bitsOf;
using TagReference::hexOf;
using TagReference::linesOf;
using TagReference::valuesOf;
using TagReference::withNumber;

namespace {

using Values = std::array<int, 24>;

constexpr int tagBitCount = 96;

/// The fields by their place in `valuesOf`.
enum Field {
    MileageBase,
    Flag9,
    SwiftLift,
    StripeSixteenths,
    StripeInches,
    StripeColor,
    Flag25,
    Length,
    Material,
    Format,
    Color,
    WidthSixteenths,
    WidthInches,
    Revision,
    Flag72,
    Flag73,
    FormatRev1,
    MultiUpCount,
    MultiUpGap,
    Type,
    Landscape,
    Separator,
    LabelSixteenths,
    LabelInches,
    NoField
};

/// The last bit of a range of bits, and whose they are.
struct Range
{
    int last;
    Field field;
};

// Written from the description of the tag, not from the decoder's own table.
constexpr Range dieCutBlock[] = {
    {11, Landscape}, {12, NoField}, {14, Separator}, {18, LabelSixteenths}, {24, LabelInches}};
constexpr Range continuousBlock[] = {{14, StripeSixteenths}, {20, StripeInches}, {24, StripeColor}};
constexpr Range before[] = {{8, MileageBase}, {9, Flag9}, {10, SwiftLift}};
constexpr Range after[] = {{25, Flag25},          {34, Length},       {42, Material},   {48, Format}, {57, Color},
                           {61, WidthSixteenths}, {67, WidthInches},  {71, Revision},   {72, Flag72}, {73, Flag73},
                           {79, FormatRev1},      {84, MultiUpCount}, {86, MultiUpGap}, {88, Type},   {95, NoField}};

template <size_t count>
bool findOwner(const Range (&ranges)[count], int bit, Range &owner)
{
    for (const Range &range : ranges) {
        if (bit <= range.last) {
            owner = range;
            return true;
        }
    }
    return false;
}

bool isContinuous(const Values &values)
{
    return values[Format] == 1 || values[Format] == 2;
}

bool isMultiUp(const Values &values)
{
    return values[Revision] >= 2;
}

/// Whose a bit is in the layout of a tag with these values.
Range ownerOf(int bit, const Values &values)
{
    Range owner = {0, NoField};
    if (!findOwner(before, bit, owner) &&
        !(isContinuous(values) ? findOwner(continuousBlock, bit, owner) : findOwner(dieCutBlock, bit, owner)))
        findOwner(after, bit, owner);
    const bool isOfMultiUp = owner.field == MultiUpCount || owner.field == Type || owner.field == Landscape;
    if (isOfMultiUp && !isMultiUp(values))
        owner.field = NoField;
    return owner;
}

Values decoded(const QString &text)
{
    return valuesOf(SupplyC(text));
}

/// The fields that may change when the layout does; a layout is chosen by the format and by the revision.
bool mayMoveWith(Field chooser, int field, const Values &values, const Values &other)
{
    const bool continuityChanges = isContinuous(values) != isContinuous(other);
    const bool multiUpChanges = isMultiUp(values) != isMultiUp(other);
    switch (field) {
    case Type:
        return chooser == Format ? !isMultiUp(values) : multiUpChanges;
    case MultiUpCount:
        return multiUpChanges;
    case Landscape:
        return continuityChanges || multiUpChanges;
    case StripeSixteenths:
    case StripeInches:
    case StripeColor:
    case Separator:
    case LabelSixteenths:
    case LabelInches:
        return continuityChanges;
    default:
        return false;
    }
}

/// Empty where flipping this bit of `bits` moves its owner by the bit's own weight and nothing else.
QString wrongInfluence(const QString &bits, const Values &values, int bit)
{
    const bool wasSet = bits.at(bit) == u'1';
    const Values other = decoded(hexOf(withNumber(bits, bit, 1, wasSet ? 0 : 1)));
    const Range owner = ownerOf(bit, values);
    for (int field = 0; field < int(values.size()); ++field) {
        const int change = other[size_t(field)] - values[size_t(field)];
        const bool isOwner = field == owner.field;
        const bool chooses = owner.field == Format || owner.field == Revision;
        const int wanted = !isOwner ? 0 : (wasSet ? -1 : 1) * (1 << (owner.last - bit));
        if (change != wanted && !(chooses && !isOwner && mayMoveWith(owner.field, field, values, other)))
            return u"bit %1 of %2 moves %3 by %4, not by %5"_s.arg(QString::number(bit), hexOf(bits),
                                                                   linesOf(values).at(field), QString::number(change),
                                                                   QString::number(wanted));
    }
    return QString();
}

QString randomBits(ChoiceSource &choices)
{
    QString bits;
    for (int i = 0; i < tagBitCount; ++i)
        bits += choices.chance(50) ? u'1' : u'0';
    // Random formats are seldom continuous and random revisions seldom below 2.
    if (choices.chance(50))
        bits = withNumber(bits, 43, 6, choices.below(4));
    return choices.chance(50) ? withNumber(bits, 68, 4, choices.below(4)) : bits;
}

/// Empty where the decoder agrees with the reference on a new record and on one that has been used, and reads no more
/// than 24 characters.
QString disagreement(const QString &text, SupplyC &used, TagRecord &usedReference)
{
    TagRecord reference;
    TagReference::decode(text, reference);
    const SupplyC fresh(text);
    used.decode(text);
    // As the reference does, but for what a used record keeps.
    const bool keeps = !(reference.formatEnum == 1 || reference.formatEnum == 2) && reference.tagRevision < 2;
    const bool kept = usedReference.tagFlagBit11;
    usedReference = reference;
    if (keeps)
        usedReference.tagFlagBit11 = kept;
    const auto told = [&text](const char *what, const QStringList &lines) {
        return u"%1 of %2: %3"_s.arg(QString::fromLatin1(what), QString::fromLatin1(text.toUtf8().toHex(' ')),
                                     lines.join(u' '));
    };
    if (valuesOf(fresh) != valuesOf(reference))
        return told("a new record", linesOf(fresh)) + u", not "_s + linesOf(reference).join(u' ');
    if (valuesOf(used) != valuesOf(usedReference))
        return told("a used record", linesOf(used)) + u", not "_s + linesOf(usedReference).join(u' ');
    if (text.size() > 24 && decoded(text.left(24)) != valuesOf(fresh))
        return told("more than 24 characters", linesOf(fresh));
    return QString();
}

/// Tags by the hundred thousand, each against the reference.
class Comparison
{
public:
    QString of(const QString &text) { return disagreement(text, m_used, m_usedReference); }

private:
    SupplyC m_used{QString()};
    TagRecord m_usedReference = TagRecord(ofNothing());
    static TagRecord ofNothing()
    {
        TagRecord record;
        TagReference::decode(QString(), record);
        return record;
    }
};

struct Alphabet
{
    const char *name;
    char16_t first;
    char16_t last;
};

constexpr Alphabet alphabets[] = {
    {"control characters and NUL", 0x0000, 0x001F},
    {"ASCII", 0x0020, 0x007E},
    {"Latin-1", 0x0080, 0x00FF},
    {"low bytes of digits", 0x0130, 0x0146},
    {"Greek", 0x0391, 0x03C9},
    {"Cyrillic", 0x0410, 0x044F},
    {"Arabic digits", 0x0660, 0x0669},
    {"Devanagari", 0x0966, 0x096F},
    {"CJK", 0x4E00, 0x4EFF},
    {"high surrogates", 0xD800, 0xDBFF},
    {"low surrogates", 0xDC00, 0xDFFF},
    {"private use", 0xE000, 0xE0FF},
    {"full-width", 0xFF10, 0xFF46},
    {"byte order and no characters", 0xFEFF, 0xFFFF},
    {"digits alone", u'0', u'9'},
    {"letters of digits", u'a', u'f'},
};

constexpr QLatin1StringView hexDigits = "0123456789ABCDEFabcdef"_L1;

} // namespace

class TestHostileTags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void influenceOfEveryBit();
    void everyLayout();
    void everyLengthAndAlphabet_data();
    void everyLengthAndAlphabet();
    void randomTags();
};

void TestHostileTags::influenceOfEveryBit()
{
    RandomSource choices(testSeed());
    constexpr int bases = 1000;
    std::array<int, tagBitCount> moving = {};
    for (int base = 0; base < bases; ++base) {
        const QString bits = randomBits(choices);
        const Values values = decoded(hexOf(bits));
        for (int bit = 0; bit < tagBitCount; ++bit) {
            const QString wrong = wrongInfluence(bits, values, bit);
            QVERIFY2(wrong.isEmpty(), qPrintable(u"ZR_SEED=%1: %2"_s.arg(QString::number(testSeed()), wrong)));
            moving[size_t(bit)] += ownerOf(bit, values).field != NoField;
        }
    }
    // Each bit but the last seven has an owner in some layout.
    for (int bit = 0; bit < tagBitCount; ++bit)
        QCOMPARE(moving[size_t(bit)] > 0, bit < 89);
    qInfo("%d bits of each of %d bases", tagBitCount, bases);
}

void TestHostileTags::everyLayout()
{
    RandomSource choices(testSeed());
    Comparison comparison;
    QStringList grounds = {QString(tagBitCount, u'0'), QString(tagBitCount, u'1')};
    for (int i = byTier(2, 20, 50); i > 0; --i)
        grounds.append(randomBits(choices));
    for (const QString &ground : std::as_const(grounds)) {
        for (int format = 0; format < 64; ++format) {
            for (int revision = 0; revision < 16; ++revision) {
                for (int landscape = 0; landscape < 2; ++landscape) {
                    const QString ofLayout = withNumber(withNumber(ground, 43, 6, format), 68, 4, revision);
                    const QString wrong = comparison.of(hexOf(withNumber(ofLayout, 11, 1, landscape)));
                    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
                }
            }
        }
    }
    qInfo("64 formats, 16 revisions, both values of bit 11 on %lld grounds", qlonglong(grounds.size()));
}

void TestHostileTags::everyLengthAndAlphabet_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    for (const Alphabet &alphabet : alphabets)
        QTest::newRow(alphabet.name) << int(alphabet.first) << int(alphabet.last);
}

void TestHostileTags::everyLengthAndAlphabet()
{
    QFETCH(int, first);
    QFETCH(int, last);
    RandomSource choices(testSeed());
    Comparison comparison;
    for (int length = 0; length <= 30; ++length) {
        // From all foreign to all digits: odd counts of digits come with every length.
        for (int i = 0; i < byTier(40, 400, 4000); ++i) {
            const int digits = choices.below(5) * 25;
            QString text;
            while (text.size() < length) {
                text += choices.chance(digits) ? QChar(hexDigits.at(choices.below(int(hexDigits.size()))))
                                               : QChar(char16_t(first + choices.below(last - first + 1)));
            }
            const QString wrong = comparison.of(text);
            QVERIFY2(wrong.isEmpty(), qPrintable(u"ZR_SEED=%1: %2"_s.arg(QString::number(testSeed()), wrong)));
        }
    }
}

void TestHostileTags::randomTags()
{
    RandomSource choices(testSeed());
    Comparison comparison;
    const int count = byTier(200'000, 2'000'000, 10'000'000);
    int longer = 0;
    for (int i = 0; i < count; ++i) {
        QString text = i % 2 == 0 ? hexOf(randomBits(choices)) : QString();
        while (text.size() < 24)
            text += hexDigits.at(choices.below(int(hexDigits.size())));
        if (choices.chance(25)) {
            for (int strays = choices.below(4); strays > 0; --strays)
                text[choices.below(int(text.size()))] =
                    QChar(char16_t(choices.below(choices.chance(50) ? 256 : 65536)));
            text.truncate(choices.below(25));
        }
        if (choices.chance(10)) {
            text += text;
            longer += text.size() > 24;
        }
        const QString wrong = comparison.of(text);
        QVERIFY2(wrong.isEmpty(), qPrintable(u"ZR_SEED=%1: %2"_s.arg(QString::number(testSeed()), wrong)));
    }
    QVERIFY(longer > count / 20);
    qInfo("%d tags equal to the reference", count);
}

QTEST_GUILESS_MAIN(TestHostileTags)

#include "tst_hostiletags.moc"
