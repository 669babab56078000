// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QLatin1StringView>

#include <array>

/// Every SQL text that the library issues, whole, one constant each: spacing, quoting and trailing blanks are data.
///
/// %1, %2 and %3 take values as they stand, unescaped. "Jointly" is `text.arg(a, b)`, "in turn" is
/// `text.arg(a).arg(b)`: the two differ when a value itself holds a placeholder, so the form is part of the contract.
/// Most lookups are one value filled into %1, where there is nothing to choose.
namespace sql {

using namespace Qt::Literals::StringLiterals;

// clang-format off

// Rolls by SKU (_rolls.cpp). 1 = roll SKU
inline constexpr auto rollWidth = "SELECT materialwidth.width FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollMaterial = "SELECT materialwidth.materialId FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollRgb = "SELECT color.rgbValue FROM roll INNER JOIN color ON roll.colorId=color.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollLandscape = "SELECT landscape FROM roll WHERE itemNum='%1'"_L1;
inline constexpr auto rollMultiUpCount = "SELECT nUpCount FROM roll WHERE itemNum='%1'"_L1;
inline constexpr auto rollLabelLength = "SELECT materialwidth.nonContinuousLength FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollLength = "SELECT materialwidth.length FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollBackground = "SELECT background.svg FROM roll INNER JOIN background ON roll.backgroundId=background.id WHERE itemNum='%1'"_L1;
inline constexpr auto rollColorNameEn = "SELECT color.name FROM roll INNER JOIN color ON roll.colorId=color.id WHERE itemNum='%1'"_L1;

// Rolls by SKU, stripe of continuous media (stripeWidth also _rolltype.cpp). 1 = roll SKU
inline constexpr auto stripeWidth = "SELECT secColorWidth FROM continuousstripe WHERE itemNum='%1'"_L1;
inline constexpr auto stripeRgb = "SELECT color.rgbValue FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId WHERE itemNum='%1'"_L1;
inline constexpr auto stripeColorNameEn = "SELECT color.name FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId WHERE itemNum='%1'"_L1;

// Rolls by SKU, die-cut media (rollFormat: _rolltype.cpp). 1 = roll SKU
inline constexpr auto rollFormat = "SELECT formatId FROM noncontinuous WHERE itemNum='%1'"_L1;
inline constexpr auto rollSeparatorWidth = "SELECT separatorWidth FROM noncontinuous WHERE itemNum='%1'"_L1;

// Rolls by SKU, localised names, filled in turn. 1 = roll SKU, 2 = language
inline constexpr auto rollColorName = "SELECT colorTS.name FROM roll INNER JOIN colorTS ON roll.colorId=colorTS.colorId WHERE itemNum='%1' AND colorTS.languageId='%2'"_L1;
inline constexpr auto rollMaterialName = "SELECT materialTS.name FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id INNER JOIN materialTS ON materialwidth.materialId=materialTS.materialId WHERE itemNum='%1' AND materialTS.languageId='%2'"_L1;
inline constexpr auto stripeColorName = "SELECT colorTS.name FROM continuousstripe INNER JOIN color ON continuousstripe.secColorId=color.secId INNER JOIN colorTS ON color.id=colorTS.colorId WHERE itemNum='%1' AND colorTS.languageId='%2'"_L1;

// Sensors: by type name (_rolls.cpp), 1 = sensor type name; of a roll (_checks.cpp), 1 = roll SKU.
// Deliberate: both texts end in a blank
inline constexpr auto sensorByType = "SELECT id FROM supplysensor WHERE supplysensortype='%1' "_L1;
inline constexpr auto rollSensor = "SELECT roll.supplysensorId FROM roll INNER JOIN supplysensor ON roll.supplysensorId=supplysensor.id WHERE roll.itemNum='%1' "_L1;

// Codes to colours (_rolls.cpp). 1 = primary or secondary colour code
inline constexpr auto colorRgb = "SELECT color.rgbValue FROM color WHERE color.id='%1'"_L1;
inline constexpr auto secColorRgb = "SELECT color.rgbValue FROM color WHERE color.secId='%1'"_L1;

// Codes to localised names (_rolls.cpp; formatName also _rolltype.cpp). 1 = code, 2 = language: two numbers, so that both
// forms of filling give the same
inline constexpr auto colorName = "SELECT colorTS.name FROM colorTS WHERE colorTS.colorId='%1' AND colorTS.languageId='%2'"_L1;
inline constexpr auto secColorName = "SELECT colorTS.name FROM color INNER JOIN colorTS ON color.id=colorTS.colorId WHERE color.secId='%1' AND colorTS.languageId='%2'"_L1;
inline constexpr auto materialName = "SELECT materialTS.name FROM materialTS WHERE materialTS.materialId='%1' AND materialTS.languageId='%2'"_L1;
inline constexpr auto formatName = "SELECT formatTS.name FROM formatTS WHERE formatTS.formatId='%1' AND formatTS.languageId='%2'"_L1;

// Format type (_rolltype.cpp). 1 = format code
inline constexpr auto formatType = "SELECT format.type FROM format WHERE id='%1'"_L1;

// Roll lists (_rolls.cpp, _rolltype.cpp), nothing to fill
inline constexpr auto colorTable = "SELECT name, rgbValue FROM color"_L1;
inline constexpr auto rollSkus = "SELECT roll.itemNum FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA')"_L1;

// Rolls by supply id (_installed.cpp). 1 = supply id; the id stands alone between the two halves of the text,
// so filling it and joining the halves around it are the same
inline constexpr auto skuBySupplyId = "SELECT roll.itemNum AS SKU FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE roll.supplyId = '%1' AND materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA') ORDER BY LENGTH(SKU)"_L1;
inline constexpr auto countBySupplyId = "SELECT COUNT(*) CNT FROM roll INNER JOIN materialwidth ON roll.materialWidthId=materialwidth.id WHERE roll.supplyId = '%1' AND materialwidth.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA')"_L1;

// Ribbons by SKU (_ribbons.cpp). 1 = ribbon SKU
inline constexpr auto ribbonPanels = "SELECT panels FROM ribbon WHERE sku='%1'"_L1;
inline constexpr auto ribbonWidth = "SELECT width FROM ribbon WHERE sku='%1'"_L1;
inline constexpr auto ribbonLength = "SELECT length FROM ribbon WHERE sku='%1'"_L1;

// Ribbon type (_ribbons.cpp), filled in turn. 1 = ribbon SKU, 2 = language
inline constexpr auto ribbonType = "SELECT ribbon_typeTS.name FROM ribbon INNER JOIN ribbon_panel ON ribbon.id = ribbon_panel.ribbonId INNER JOIN ribbon_typeTS ON ribbon_panel.typeId = ribbon_typeTS.ribbon_typeId WHERE ribbon.sku = '%1' AND ribbon_typeTS.languageId = '%2'"_L1;

// Ribbon colours (_ribbons.cpp). 1 = ribbon SKU, 2 = panel, jointly; then in turn 3 = language.
// Deliberate: the panel stands bare in the first text and quoted in the second
inline constexpr auto ribbonPanelRgb = "SELECT ribbon_color.rgbValue FROM ribbon INNER JOIN ribbon_panel ON ribbon.id=ribbon_panel.ribbonId INNER JOIN ribbon_color ON ribbon_panel.colorId=ribbon_color.id WHERE ribbon.sku='%1' AND ribbon_panel.panel=%2"_L1;
inline constexpr auto ribbonPanelColorName = "SELECT ribbon_colorTS.name FROM ribbon INNER JOIN ribbon_panel ON ribbon.id=ribbon_panel.ribbonId INNER JOIN ribbon_colorTS ON ribbon_panel.colorId=ribbon_colorTS.ribbon_colorId WHERE ribbon.sku='%1' AND ribbon_panel.panel='%2' AND ribbon_colorTS.languageId='%3'"_L1;

// Print parameters (_ribbons.cpp), filled jointly. 1 = ribbon SKU, 2 = panel, 3 = material code
inline constexpr auto ribbonHeat = "SELECT ribbon_heat.heat FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='%1' AND ribbon_heat.panel=%2 AND ribbon_heat.materialId=%3"_L1;
inline constexpr auto ribbonHeatOffset = "SELECT ribbon_heat.max_offset FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='%1' AND ribbon_heat.panel=%2 AND ribbon_heat.materialId=%3"_L1;
inline constexpr auto ribbonMaxSpeed = "SELECT ribbon_heat.max_speed FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='%1' AND ribbon_heat.panel=%2 AND ribbon_heat.materialId=%3"_L1;
inline constexpr auto ribbonTension = "SELECT ribbon_heat.tension FROM ribbon INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku='%1' AND ribbon_heat.panel=%2 AND ribbon_heat.materialId=%3"_L1;

// Ribbon by id (_installed.cpp). 1 = ribbon id
inline constexpr auto ribbonSkuById = "SELECT sku FROM ribbon WHERE id='%1'"_L1;

// Ribbon lists (_ribbons.cpp), nothing to fill
inline constexpr auto ribbonSkus = "SELECT sku FROM ribbon"_L1;
inline constexpr auto ribbonColorTable = "SELECT name, rgbValue FROM ribbon_color"_L1;

// clang-format on

/// All of them, for whoever has to look at each: the tests prepare, plan and compare them.
inline constexpr std::array allStatements = {
    rollWidth,        rollMaterial,       rollRgb,         rollLandscape,    rollMultiUpCount, rollLabelLength,
    rollLength,       rollBackground,     rollColorNameEn, stripeWidth,      stripeRgb,        stripeColorNameEn,
    rollFormat,       rollSeparatorWidth, rollColorName,   rollMaterialName, stripeColorName,  sensorByType,
    rollSensor,       colorRgb,           secColorRgb,     colorName,        secColorName,     materialName,
    formatName,       formatType,         colorTable,      rollSkus,         skuBySupplyId,    countBySupplyId,
    ribbonPanels,     ribbonWidth,        ribbonLength,    ribbonType,       ribbonPanelRgb,   ribbonPanelColorName,
    ribbonHeat,       ribbonHeatOffset,   ribbonMaxSpeed,  ribbonTension,    ribbonSkuById,    ribbonSkus,
    ribbonColorTable,
};
static_assert(allStatements.size() == 43);

} // namespace sql
