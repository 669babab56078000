// SPDX-License-Identifier: LGPL-2.1-or-later
#include "keyedlookups.h"

#include "cataloguesql_p.h"

#include <benchmark/benchmark.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int panel = 1;

const QString &nth(const QStringList &keys, size_t n)
{
    return keys[qsizetype(n) % keys.size()];
}

int nth(const std::vector<int> &keys, size_t n)
{
    return keys[n % keys.size()];
}

/// The values of a statement that may also ask for a language.
QStringList withLanguage(QLatin1StringView statement, const QString &key)
{
    return statement.contains("%2"_L1) ? QStringList{key, u"0"_s} : QStringList{key};
}

using Keys = QStringList Catalogue::*;
using Codes = std::vector<int> Catalogue::*;

/// A slot that takes a SKU and issues `statement`, in the current language where the text asks for one.
template <typename Slot>
KeyedLookup bySku(const char *name, QLatin1StringView statement, Keys keys, Slot slot)
{
    return {name,
            [=](const Catalogue &c, size_t n) {
                return Question{{statement, withLanguage(statement, nth(c.*keys, n))}};
            },
            [=](ZrSupplyDatabase &db, const Catalogue &c, size_t n) {
                auto answer = (db.*slot)(nth(c.*keys, n));
                benchmark::DoNotOptimize(answer);
            }};
}

/// A code-keyed operation.
template <typename Ask>
KeyedLookup byCode(const char *name, QLatin1StringView statement, Codes codes, Ask ask)
{
    return {name,
            [=](const Catalogue &c, size_t n) {
                return Question{{statement, withLanguage(statement, QString::number(nth(c.*codes, n)))}};
            },
            [=](ZrSupplyDatabase &db, const Catalogue &c, size_t n) {
                auto answer = ask(db, nth(c.*codes, n));
                benchmark::DoNotOptimize(answer);
            }};
}

/// The material comes from the tag of the roll that bench_lookups has loaded, so that one text is left.
template <typename Slot>
KeyedLookup parameter(const char *name, QLatin1StringView statement, Slot slot)
{
    return {name,
            [=](const Catalogue &c, size_t n) {
                return Question{
                    {statement, {nth(c.ribbons, n), QString::number(panel), QString::number(c.materials.front())}}};
            },
            [=](ZrSupplyDatabase &db, const Catalogue &c, size_t n) {
                auto answer = (db.*slot)(nth(c.ribbons, n), panel, u"UnknownSupply"_s);
                benchmark::DoNotOptimize(answer);
            }};
}

std::vector<KeyedLookup> makeLookups()
{
    using Db = ZrSupplyDatabase;
    std::vector<KeyedLookup> all = {
        bySku("sensorByType", sql::sensorByType, &Catalogue::sensors, &Db::supplySensorId),
        bySku("stripeWidth", sql::stripeWidth, &Catalogue::stripedRolls, &Db::supplySecColorWidth),
        bySku("stripeRgb", sql::stripeRgb, &Catalogue::stripedRolls, &Db::supplySecColorRGB),
        bySku("stripeColorName", sql::stripeColorName, &Catalogue::stripedRolls, &Db::supplySecColorName),
        bySku("stripeColorNameEn", sql::stripeColorNameEn, &Catalogue::stripedRolls, &Db::supplySecColorNameEn),
        bySku("rollMaterial", sql::rollMaterial, &Catalogue::rolls, &Db::supplyMaterial),
        bySku("rollMaterialName", sql::rollMaterialName, &Catalogue::rolls, &Db::supplyMaterialName),
        bySku("rollFormat", sql::rollFormat, &Catalogue::dieCutRolls, &Db::supplyFormatFromTable),
        bySku("rollRgb", sql::rollRgb, &Catalogue::rolls, &Db::supplyColorRGB),
        bySku("rollColorName", sql::rollColorName, &Catalogue::rolls, &Db::supplyColorName),
        bySku("rollColorNameEn", sql::rollColorNameEn, &Catalogue::rolls, &Db::supplyColorNameEn),
        bySku("rollWidth", sql::rollWidth, &Catalogue::rolls, &Db::supplyWidth),
        bySku("rollLandscape", sql::rollLandscape, &Catalogue::rolls, &Db::supplyIsLandscape),
        bySku("rollSeparatorWidth", sql::rollSeparatorWidth, &Catalogue::dieCutRolls, &Db::supplySeparatorWidth),
        bySku("rollLabelLength", sql::rollLabelLength, &Catalogue::rolls, &Db::supplyNonContinuousLength),
        bySku("rollMultiUpCount", sql::rollMultiUpCount, &Catalogue::rolls, &Db::supplyMultiUpCount),
        bySku("rollLength", sql::rollLength, &Catalogue::rolls, &Db::getSupplyLength),
        bySku("rollBackground", sql::rollBackground, &Catalogue::imagedRolls, &Db::supplyBackgroundImage),
        bySku("skuBySupplyId", sql::skuBySupplyId, &Catalogue::supplyIds, &Db::getSkuFromSupplyId),
        bySku("ribbonPanels", sql::ribbonPanels, &Catalogue::ribbons, &Db::supplyRibbonPanels),
        bySku("ribbonWidth", sql::ribbonWidth, &Catalogue::ribbons, &Db::supplyRibbonWidth),
        bySku("ribbonLength", sql::ribbonLength, &Catalogue::ribbons, &Db::supplyRibbonLength),
        bySku("ribbonType", sql::ribbonType, &Catalogue::ribbons, &Db::supplyRibbonType),
        byCode("colorRgb", sql::colorRgb, &Catalogue::colors,
               [](Db &db, int code) { return db.getColorRGBFromEnum(code); }),
        byCode("colorName", sql::colorName, &Catalogue::colors,
               [](Db &db, int code) { return db.getColorNameFromEnum(code, false); }),
        byCode("secColorRgb", sql::secColorRgb, &Catalogue::stripeColors,
               [](Db &db, int code) { return db.getSecColorRGBFromEnum(code); }),
        byCode("secColorName", sql::secColorName, &Catalogue::stripeColors,
               [](Db &db, int code) { return db.getSecColorNameFromEnum(code, false); }),
        byCode("materialName", sql::materialName, &Catalogue::materials,
               [](Db &db, int code) { return db.getMaterialNameFromEnum(code); }),
        byCode("formatName", sql::formatName, &Catalogue::formats,
               [](Db &db, int code) { return db.getFormatNameFromEnum(code); }),
        parameter("ribbonHeat", sql::ribbonHeat, &Db::supplyRibbonHeat),
        parameter("ribbonHeatOffset", sql::ribbonHeatOffset, &Db::supplyRibbonHeatOffset),
        parameter("ribbonMaxSpeed", sql::ribbonMaxSpeed, &Db::supplyRibbonMaxSpeed),
        parameter("ribbonTension", sql::ribbonTension, &Db::supplyRibbonTension),
    };

    // The rest have shapes of their own.
    all.push_back({"formatType",
                   [](const Catalogue &, size_t) {
                       return Question{{sql::formatType, {u"1"_s}}};
                   },
                   [](Db &db, const Catalogue &, size_t) {
                       auto answer = db.supplyFormatType(u"UnknownSupply"_s); // the loaded tag's format: continuous
                       benchmark::DoNotOptimize(answer);
                   }});
    all.push_back({"rollSensor",
                   [](const Catalogue &c, size_t n) {
                       return Question{{sql::rollSensor, {nth(c.rolls, n)}}};
                   },
                   [](Db &db, const Catalogue &c, size_t n) {
                       db.setSupplySKU(nth(c.rolls, n));
                       static const int check = Db::staticMetaObject.indexOfMethod("checkSupplyEdgeSensor()");
                       void *arguments[] = {nullptr};
                       QMetaObject::metacall(&db, QMetaObject::InvokeMetaMethod, check, arguments);
                   }});
    all.push_back({"countBySupplyId",
                   [](const Catalogue &, size_t) {
                       return Question{{sql::countBySupplyId, {u"-1"_s}}};
                   },
                   [](Db &db, const Catalogue &, size_t) {
                       auto answer = db.isSupplyIdShared(); // no id has been set, only a tag
                       benchmark::DoNotOptimize(answer);
                   }});
    all.push_back({"ribbonPanelRgb",
                   [](const Catalogue &c, size_t n) {
                       return Question{{sql::ribbonPanelRgb, {nth(c.ribbons, n), QString::number(panel)}}};
                   },
                   [](Db &db, const Catalogue &c, size_t n) {
                       auto answer = db.supplyRibbonColorRGB(nth(c.ribbons, n), panel);
                       benchmark::DoNotOptimize(answer);
                   }});
    all.push_back(
        {"ribbonPanelColorName",
         [](const Catalogue &c, size_t n) {
             return Question{{sql::ribbonPanelColorName, {nth(c.ribbons, n), QString::number(panel), u"0"_s}}};
         },
         [](Db &db, const Catalogue &c, size_t n) {
             auto answer = db.supplyRibbonColorName(nth(c.ribbons, n), panel);
             benchmark::DoNotOptimize(answer);
         }});
    all.push_back({"ribbonSkuById", // two ids, two texts: fewer are not asked
                   [](const Catalogue &c, size_t n) {
                       return Question{{sql::ribbonSkuById, {nth(c.ribbonIds, n)}},
                                       {sql::ribbonSkuById, {nth(c.ribbonIds, n + 1)}}};
                   },
                   [](Db &db, const Catalogue &c, size_t n) {
                       auto answer = db.getSkusFromRibbonIds({nth(c.ribbonIds, n), nth(c.ribbonIds, n + 1)});
                       benchmark::DoNotOptimize(answer);
                   }});
    return all;
}

} // namespace

const std::vector<KeyedLookup> &keyedLookups()
{
    static const std::vector<KeyedLookup> all = makeLookups();
    return all;
}
