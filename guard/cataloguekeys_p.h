// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QLatin1StringView>

/// What the library reads of a catalogue. zrsupply shares these facts.
namespace ZrSupplyGuard {

using namespace Qt::Literals::StringLiterals;

/// How a column takes part in the library's questions.
enum class Key {
    None,   ///< It is only read.
    Number, ///< Compared with a quoted number or joined: the type must turn the text into a number.
    Text    ///< Compared with a quoted text, leading zeros included.
};

struct CatalogueColumn
{
    QLatin1StringView table;
    QLatin1StringView column;
    Key key;
};

/// Columns of a table stand together.
inline constexpr CatalogueColumn catalogueColumns[] = {
    {"roll"_L1, "itemNum"_L1, Key::Text},
    {"roll"_L1, "supplyId"_L1, Key::Text},
    {"roll"_L1, "materialWidthId"_L1, Key::Number},
    {"roll"_L1, "colorId"_L1, Key::Number},
    {"roll"_L1, "landscape"_L1, Key::None},
    {"roll"_L1, "nUpCount"_L1, Key::None},
    {"roll"_L1, "supplysensorId"_L1, Key::Number},
    {"roll"_L1, "backgroundId"_L1, Key::Number},
    {"materialwidth"_L1, "id"_L1, Key::Number},
    {"materialwidth"_L1, "materialId"_L1, Key::Number},
    {"materialwidth"_L1, "width"_L1, Key::None},
    {"materialwidth"_L1, "length"_L1, Key::None},
    {"materialwidth"_L1, "nonContinuousLength"_L1, Key::None},
    {"materialwidth"_L1, "machineId"_L1, Key::Text},
    {"continuousstripe"_L1, "itemNum"_L1, Key::Text},
    {"continuousstripe"_L1, "secColorWidth"_L1, Key::None},
    {"continuousstripe"_L1, "secColorId"_L1, Key::Number},
    {"noncontinuous"_L1, "itemNum"_L1, Key::Text},
    {"noncontinuous"_L1, "formatId"_L1, Key::None},
    {"noncontinuous"_L1, "separatorWidth"_L1, Key::None},
    {"color"_L1, "id"_L1, Key::Number},
    {"color"_L1, "secId"_L1, Key::Number},
    {"color"_L1, "rgbValue"_L1, Key::None},
    {"color"_L1, "name"_L1, Key::None},
    {"format"_L1, "id"_L1, Key::Number},
    {"format"_L1, "type"_L1, Key::None},
    {"supplysensor"_L1, "id"_L1, Key::Number},
    {"supplysensor"_L1, "supplysensortype"_L1, Key::Text},
    {"background"_L1, "id"_L1, Key::Number},
    {"background"_L1, "svg"_L1, Key::None},
    {"ribbon"_L1, "id"_L1, Key::Number},
    {"ribbon"_L1, "sku"_L1, Key::Text},
    {"ribbon"_L1, "panels"_L1, Key::None},
    {"ribbon"_L1, "width"_L1, Key::None},
    {"ribbon"_L1, "length"_L1, Key::None},
    {"ribbon_panel"_L1, "ribbonId"_L1, Key::Number},
    {"ribbon_panel"_L1, "panel"_L1, Key::Number},
    {"ribbon_panel"_L1, "typeId"_L1, Key::Number},
    {"ribbon_panel"_L1, "colorId"_L1, Key::Number},
    {"ribbon_color"_L1, "id"_L1, Key::Number},
    {"ribbon_color"_L1, "rgbValue"_L1, Key::None},
    {"ribbon_color"_L1, "name"_L1, Key::None},
    {"ribbon_heat"_L1, "ribbonId"_L1, Key::Number},
    {"ribbon_heat"_L1, "panel"_L1, Key::Number},
    {"ribbon_heat"_L1, "materialId"_L1, Key::Number},
    {"ribbon_heat"_L1, "heat"_L1, Key::None},
    {"ribbon_heat"_L1, "max_offset"_L1, Key::None},
    {"ribbon_heat"_L1, "max_speed"_L1, Key::None},
    {"ribbon_heat"_L1, "tension"_L1, Key::None},
    {"colorTS"_L1, "colorId"_L1, Key::Number},
    {"colorTS"_L1, "languageId"_L1, Key::Number},
    {"colorTS"_L1, "name"_L1, Key::None},
    {"materialTS"_L1, "materialId"_L1, Key::Number},
    {"materialTS"_L1, "languageId"_L1, Key::Number},
    {"materialTS"_L1, "name"_L1, Key::None},
    {"formatTS"_L1, "formatId"_L1, Key::Number},
    {"formatTS"_L1, "languageId"_L1, Key::Number},
    {"formatTS"_L1, "name"_L1, Key::None},
    {"ribbon_typeTS"_L1, "ribbon_typeId"_L1, Key::Number},
    {"ribbon_typeTS"_L1, "languageId"_L1, Key::Number},
    {"ribbon_typeTS"_L1, "name"_L1, Key::None},
    {"ribbon_colorTS"_L1, "ribbon_colorId"_L1, Key::Number},
    {"ribbon_colorTS"_L1, "languageId"_L1, Key::Number},
    {"ribbon_colorTS"_L1, "name"_L1, Key::None},
};

/// The version of schema/catalogue.sql that these are of; 0, not told, is taken as well.
inline constexpr qint64 knownSchemaVersion = 1;

} // namespace ZrSupplyGuard
