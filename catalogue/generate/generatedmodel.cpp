// SPDX-License-Identifier: LGPL-2.1-or-later
#include "generate/generatedmodel.h"

#include <tag/supplyc.h>
#include <tag/taglayout_p.h>

#include <algorithm>
#include <numeric>

namespace zrsupply {

namespace {

/// What a number is drawn for, so that two draws for one row have nothing to do with each other.
enum What : quint64 {
    Scatter = 1,
    Family,
    FirstColor,
    Sku,
    Suffix,
    Stripe,
    Landscape,
    Across,
    Sensor,
    Background,
    Length,
    RibbonWidth,
    RibbonLength,
    RibbonType,
    RibbonPanels,
    RibbonColor,
};

/// Rolls of a kind come in few colours or in many: four products with 32 rolls between them, again and again.
constexpr std::array rollsOfProduct = {1, 3, 8, 20};
constexpr int rollsPerBlock = 32;
static_assert(rollsOfProduct[0] + rollsOfProduct[1] + rollsOfProduct[2] + rollsOfProduct[3] == rollsPerBlock);

constexpr quint64 mostProducts = quint64(GeneratorSettings::mostRolls) / rollsPerBlock * rollsOfProduct.size();

/// Twenty products in a row: how often each kind of media comes.
enum class Kind { Plain, Striped, DieCut, Tag, Wrap, Other };
constexpr std::array kinds = {
    Kind::Plain, Kind::DieCut, Kind::Plain,   Kind::Plain, Kind::Striped, Kind::Plain,  Kind::DieCut,
    Kind::Plain, Kind::Plain,  Kind::Wrap,    Kind::Plain, Kind::Tag,     Kind::Plain,  Kind::DieCut,
    Kind::Plain, Kind::Plain,  Kind::Striped, Kind::Other, Kind::Plain,   Kind::DieCut,
};

constexpr std::array widths = {8,  12, 16, 18, 20, 24, 28, 30, 32, 36, 40, 44,
                               48, 52, 56, 60, 64, 65, 68, 72, 80, 84, 88, 96};
constexpr std::array feet = {25,  30,  35,  40,  50,  60,  65,  70,  75,  80,  90,  100, 110, 120, 125,
                             140, 150, 160, 175, 180, 200, 225, 240, 250, 275, 300, 350, 400, 450, 500};
constexpr std::array labelSixteenths = {6,  7,  8,  10, 11, 12, 14, 15, 16,  20,  22,  23, 24, 28,
                                        30, 31, 32, 36, 40, 44, 46, 47, 48,  56,  60,  61, 62, 64,
                                        72, 76, 79, 80, 92, 94, 95, 96, 112, 128, 144, 190};
constexpr std::array surplusFeet = {0, 4, 8};
constexpr std::array wrapFormats = {41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54};
constexpr std::array otherFormats = {39, 40, 55};
constexpr std::array offeredFamilies = {"QKA", "IBX", "MRL", "ZRA"};
constexpr std::array otherFamilies = {"HM1", "HM4", "HM6", "HMQ", "WJA"};
constexpr int tagFeetLimit = 511;

struct NamedRibbon
{
    const char *sku;
    int panels;
    double width;
    double length;
};

/// Ribbons that have rules of their own, in the order of their SKUs. Small catalogues do without.
constexpr std::array namedRibbons = {
    NamedRibbon{"HVWA-ZEROSPOL", 0, 6.0, 600.0},
    NamedRibbon{"R4417TX", 0, 4.5, 4725.0},
    NamedRibbon{"R530947", 1, 4.5, 4700.0},
    NamedRibbon{"RW530947", 1, 6.0, 4700.0},
};
constexpr int fewestRibbonsWithNamed = 10;

constexpr double widestInches = widths.back() / 16.0;
constexpr std::array narrowWidths = {2.25, 4.0, 4.25, 4.375, 4.5, 4.5, 4.5, 4.5};
constexpr std::array ribbonLengths = {4725.0, 4725.0, 4725.0, 4800.0, 4650.0, 2360.0};
/// The ribbon type that prints on everything.
constexpr int allMaterials = 1;

/// Takes the next digit of a number whose digits have different bases.
template <size_t size>
int pick(const std::array<int, size> &values, quint64 &place)
{
    const int value = values[place % size];
    place /= size;
    return value;
}

int take(int base, quint64 &place)
{
    const int digit = int(place % quint64(base));
    place /= quint64(base);
    return digit;
}

/// A die-cut roll ends after a whole label and its tag tells whole feet: the number of feet nearest to what is wanted
/// for which both hold.
int wholeFeet(int wanted, int pitchSixteenths)
{
    constexpr int sixteenthsPerFoot = 192;
    const int unit = std::max(1, std::lcm(pitchSixteenths, sixteenthsPerFoot) / sixteenthsPerFoot);
    return std::max(1, std::min(wanted, tagFeetLimit) / unit) * unit;
}

} // namespace

GeneratedModel::GeneratedModel(const GeneratorSettings &settings)
    : m_settings(settings)
{
}

quint64 GeneratedModel::chance(quint64 what, quint64 number) const
{
    // A multiply and shift mixer: every bit of the input moves about half of the output's.
    quint64 mixed = number + 0x9E3779B97F4A7C15U * (what + 1) + m_settings.seed * 0xD1342543DE82EF95U;
    for (int round = 0; round < 2; ++round) {
        mixed ^= mixed >> 32;
        mixed *= 0xD6E8FEB86659FD93U;
    }
    return mixed ^ (mixed >> 32);
}

/// Another number below `space` for every number below it, so that products of a kind lie scattered over all that is
/// possible and no two are alike.
quint64 GeneratedModel::scattered(quint64 number, quint64 space) const
{
    quint64 factor = chance(Scatter, space) % space;
    while (std::gcd(factor, space) != 1)
        ++factor;
    return (number * factor + chance(Scatter, space + 1)) % space;
}

int GeneratedModel::colorId(int number)
{
    return 1 + 7 * number;
}

int GeneratedModel::materialId(int number)
{
    return 1 + 9 * number;
}

qint64 GeneratedModel::products() const
{
    const qint64 blocks = m_settings.rolls / rollsPerBlock;
    qint64 count = blocks * qint64(rollsOfProduct.size());
    qint64 rest = m_settings.rolls % rollsPerBlock;
    for (size_t i = 0; rest > 0; ++i) {
        rest -= rollsOfProduct[i];
        ++count;
    }
    return count;
}

GeneratedProduct GeneratedModel::product(qint64 number) const
{
    GeneratedProduct product;
    product.id = number + 1;
    const auto size = qint64(rollsOfProduct.size());
    product.firstRoll = number / size * rollsPerBlock;
    for (qint64 i = 0; i < number % size; ++i)
        product.firstRoll += rollsOfProduct[size_t(i)];
    product.rolls =
        int(std::min<qint64>(rollsOfProduct[size_t(number % size)], m_settings.rolls - product.firstRoll));

    // Every group of products holds each entry of `kinds` once, turned by one from group to group. So the place among
    // the products of a kind is known without counting them.
    const auto groupSize = qint64(kinds.size());
    const qint64 group = number / groupSize;
    const auto place = size_t((number + group) % groupSize);
    const Kind kind = kinds[place];
    const auto ofKind = quint64(std::count(kinds.begin(), kinds.end(), kind));
    const auto before = quint64(std::count(kinds.begin(), kinds.begin() + qptrdiff(place), kind));
    const quint64 rank = quint64(group) * ofKind + before;

    product.formatId = kind == Kind::Plain ? 1 : kind == Kind::Striped ? 2 : kind == Kind::DieCut ? 5 : 3;
    if (kind == Kind::Wrap)
        product.formatId = wrapFormats[chance(Scatter, rank) % wrapFormats.size()];
    if (kind == Kind::Other)
        product.formatId = otherFormats[chance(Scatter, rank) % otherFormats.size()];
    if (product.isDieCut())
        layOutDieCut(product, rank);
    else
        layOutContinuous(product, rank);

    const auto id = quint64(product.id);
    constexpr int perHundredOfOtherFamilies = 3;
    product.machineId = chanceBelow(100, Family, id) < perHundredOfOtherFamilies
                            ? otherFamilies[chance(Family, id) / 100 % otherFamilies.size()]
                            : offeredFamilies[chance(Family, id) / 100 % offeredFamilies.size()];
    return product;
}

void GeneratedModel::layOutContinuous(GeneratedProduct &product, quint64 place) const
{
    constexpr quint64 space = widths.size() * quint64(materials) * feet.size() * surplusFeet.size() * 4;
    static_assert(space > mostProducts);
    quint64 rest = scattered(place, space);
    product.widthSixteenths = pick(widths, rest);
    product.materialId = materialId(take(materials, rest));
    product.lengthFeet = pick(feet, rest);
    product.mileageBaseFeet = product.lengthFeet + pick(surplusFeet, rest);
    product.tagRevision = take(2, rest);
    product.swiftLift = take(2, rest) != 0;
    if (product.isStriped()) {
        const int eighths = 1 + chanceBelow(4, Stripe, quint64(product.id));
        product.stripeSixteenths = product.widthSixteenths * eighths / 8;
    }
}

void GeneratedModel::layOutDieCut(GeneratedProduct &product, quint64 place) const
{
    constexpr quint64 space = widths.size() * quint64(materials) * labelSixteenths.size() * 4 * 4;
    static_assert(space > mostProducts);
    quint64 rest = scattered(place, space);
    product.widthSixteenths = pick(widths, rest);
    product.materialId = materialId(take(materials, rest));
    product.labelSixteenths = pick(labelSixteenths, rest);
    product.separatorSixteenths = 1 + take(4, rest);
    product.tagRevision = take(2, rest);
    product.swiftLift = take(2, rest) != 0;
    const int pitch = product.labelSixteenths + product.separatorSixteenths;
    product.lengthFeet = wholeFeet(feet[chance(Length, quint64(product.id)) % feet.size()], pitch);
    product.labels = product.lengthFeet * 192 / pitch;
    product.mileageBaseFeet = product.lengthFeet;
}

GeneratedRoll GeneratedModel::roll(const GeneratedProduct &product, int variant) const
{
    const auto number = quint64(product.firstRoll + variant);
    GeneratedRoll roll;
    // Numbers rise by 7 and less than 7 more: sorted, none twice, with gaps of different sizes.
    constexpr quint64 firstNumber = 200000;
    constexpr quint64 stride = 7;
    const quint64 sku = firstNumber + number * stride + chance(Sku, number) % stride;
    roll.itemNum = QByteArray::number(sku).rightJustified(8, '0');
    const int suffix = chanceBelow(100, Suffix, number);
    if (suffix < 3)
        roll.itemNum += suffix == 0 ? "-EU" : "-LT";

    const int color = (chanceBelow(colors, FirstColor, quint64(product.id)) + variant) % colors;
    roll.colorId = colorId(color);
    if (product.isStriped()) {
        const int stripe = chanceBelow(stripeColors, Stripe, number);
        roll.stripeColor = 1 + (stripe == color ? (stripe + 1) % stripeColors : stripe); // another than the roll's
    }
    roll.supplyId = generatedSupplyId(product, roll.colorId, roll.stripeColor);
    roll.landscape = chanceBelow(10, Landscape, number) == 0;
    if (product.isDieCut() && product.widthSixteenths >= 32)
        roll.nUpCount = 1 + std::max(0, chanceBelow(8, Across, number) - 4);
    if (chanceBelow(25, Sensor, quint64(product.id)) > 0)
        roll.sensorId = product.formatId == 3 ? 3 : product.formatId > 40 ? 4 : product.isDieCut() ? 2 : 1;
    roll.backgroundId = std::max(0, chanceBelow(2 * backgrounds, Background, number) - backgrounds + 1);
    return roll;
}

bool GeneratedModel::hasNamedRibbons() const
{
    return m_settings.ribbons >= fewestRibbonsWithNamed;
}

GeneratedRibbon GeneratedModel::ribbon(int number) const
{
    GeneratedRibbon ribbon;
    ribbon.id = number + 1;
    const quint64 id = quint64(ribbon.id);
    const int ordinary = m_settings.ribbons - (hasNamedRibbons() ? int(namedRibbons.size()) : 0);
    const int wide = std::max(1, ordinary * 2 / 5);
    const int narrow = ordinary - wide;
    const int names = hasNamedRibbons() ? 1 : 0;
    // In the order of the SKUs' bytes: two special ribbons, a narrow one with a clear tail, the narrow ones, the wide
    // one with a clear tail, the wide ones.
    const int firstNarrow = 3 * names;
    const int wideClearTail = firstNarrow + narrow;
    const int firstWide = wideClearTail + names;
    ribbon.typeId = 1 + chanceBelow(ribbonTypes, RibbonType, id);
    const bool isWideClearTail = number >= wideClearTail && number < firstWide;
    if (number < firstNarrow || isWideClearTail) {
        const NamedRibbon &named = namedRibbons[size_t(number < firstNarrow ? number : firstNarrow)];
        ribbon.sku = named.sku;
        ribbon.panels = named.panels;
        ribbon.width = named.width;
        ribbon.length = named.length;
        return ribbon;
    }
    const bool isWide = number >= firstWide;
    const int serial = number - (isWide ? firstWide : firstNarrow);
    ribbon.sku = (isWide ? "RW" : "R") + QByteArray::number(600000 + serial);
    ribbon.width = isWide ? widestInches : narrowWidths[chance(RibbonWidth, id) % narrowWidths.size()];
    ribbon.length = ribbonLengths[chance(RibbonLength, id) % ribbonLengths.size()];
    const int panels = chanceBelow(100, RibbonPanels, id);
    ribbon.panels = panels < 75 ? 1 : panels < 92 ? 2 : 3;
    if (isWide && serial == 0)
        ribbon.typeId = allMaterials;
    return ribbon;
}

int GeneratedModel::panelColor(const GeneratedRibbon &ribbon, int panel) const
{
    return 1 + (chanceBelow(ribbonColors, RibbonColor, quint64(ribbon.id)) + 5 * panel) % ribbonColors;
}

bool GeneratedModel::prints(const GeneratedRibbon &ribbon, int materialId) const
{
    return ribbon.typeId == allMaterials || (materialId + 2 * ribbon.typeId) % 5 < 3;
}

QByteArray generatedSupplyId(const GeneratedProduct &product, int colorId, int stripeColor)
{
    SupplyC tag{QString()};
    tag.mileageBaseFeet = product.mileageBaseFeet;
    tag.swiftLift = product.swiftLift;
    tag.secColorWidthInches = product.stripeSixteenths / 16;
    tag.secColorWidthSixteenths = product.stripeSixteenths % 16;
    tag.secColorEnum = stripeColor;
    tag.lengthFeet = product.lengthFeet;
    tag.materialEnum = product.materialId;
    tag.formatEnum = product.formatId;
    tag.colorEnum = colorId;
    tag.widthInches = product.widthSixteenths / 16;
    tag.widthSixteenths = product.widthSixteenths % 16;
    tag.tagRevision = product.tagRevision;
    tag.formatEnumRev1 = product.tagRevision > 0 ? product.formatId : 0;
    tag.separatorWidthCode = std::max(0, product.separatorSixteenths - 1);
    tag.nonContinuousLengthInches = product.labelSixteenths / 16;
    tag.nonContinuousLengthSixteenths = product.labelSixteenths % 16;

    // The digits are written by the table that the decoder reads tags by.
    constexpr int digits = 20;
    std::array<int, TagBits::count> bits = {};
    for (const taglayout::Field &field : taglayout::fields) {
        if (!taglayout::applies(field.readWhen, !product.isDieCut(), false))
            continue;
        const int value = field.number != nullptr ? tag.*field.number : field.flag != nullptr && tag.*field.flag;
        auto bit = bits.begin() + field.first;
        for (int place = field.width - 1; place >= 0; --place)
            *bit++ = value >> place & 1;
    }
    QByteArray text(digits, '0');
    auto bit = bits.begin();
    for (char &digit : text) {
        int value = 0;
        for (int place = 0; place < 4; ++place)
            value = value * 2 + *bit++;
        digit = "0123456789ABCDEF"[value];
    }
    return text;
}

} // namespace zrsupply
