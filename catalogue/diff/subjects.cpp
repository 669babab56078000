// SPDX-License-Identifier: LGPL-2.1-or-later
#include "diff/subjects.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

const QList<DiffSubject> &diffSubjects()
{
    static const QList<DiffSubject> subjects = {
        {"rolls"_L1,
         "Rolls"_L1,
         "roll"_L1,
         R"(
            SELECT roll.itemNum AS "key", roll.supplyId AS supplyId, materialwidth.materialId AS material,
                   materialwidth.width AS width, materialwidth.length AS length,
                   materialwidth.nonContinuousLength AS labelLength, materialwidth.machineId AS family,
                   roll.colorId AS colour, noncontinuous.formatId AS format,
                   noncontinuous.separatorWidth AS separatorWidth, continuousstripe.secColorWidth AS stripeWidth,
                   continuousstripe.secColorId AS stripeColour, roll.landscape AS landscape,
                   roll.nUpCount AS labelsAcross, roll.supplysensorId AS sensor, roll.backgroundId AS picture
            FROM {db}.roll
            LEFT JOIN {db}.materialwidth ON materialwidth.id = roll.materialWidthId
            LEFT JOIN {db}.noncontinuous ON noncontinuous.itemNum = roll.itemNum
            LEFT JOIN {db}.continuousstripe ON continuousstripe.itemNum = roll.itemNum)"_L1,
         "supplyId"_L1,
         {{"material"_L1, "SELECT materialId, name FROM {db}.materialTS WHERE languageId = 0"_L1},
          {"colour"_L1, "SELECT id, name FROM {db}.color"_L1},
          {"stripeColour"_L1, "SELECT secId, name FROM {db}.color"_L1},
          {"format"_L1, "SELECT formatId, name FROM {db}.formatTS WHERE languageId = 0"_L1},
          {"sensor"_L1, "SELECT id, supplysensortype FROM {db}.supplysensor"_L1}}},
        {"ribbons"_L1, "Ribbons"_L1, "ribbon"_L1, R"(
            SELECT sku AS "key", id, panels, width, length FROM {db}.ribbon)"_L1,
         "id"_L1},
        {"ribbonPanels"_L1,
         "Ribbon panels"_L1,
         "panel"_L1,
         R"(
            SELECT ribbon.sku || ', panel ' || ribbon_panel.panel AS "key", ribbon_panel.typeId AS type,
                   ribbon_panel.colorId AS colour
            FROM {db}.ribbon JOIN {db}.ribbon_panel ON ribbon_panel.ribbonId = ribbon.id)"_L1,
         {},
         {{"type"_L1, "SELECT ribbon_typeId, name FROM {db}.ribbon_typeTS WHERE languageId = 0"_L1},
          {"colour"_L1, "SELECT id, name FROM {db}.ribbon_color"_L1}}},
        {"ribbonHeats"_L1,
         "Print parameters"_L1,
         "row"_L1,
         R"(
            SELECT ribbon.sku || ', panel ' || ribbon_heat.panel || ', material ' || ribbon_heat.materialId AS "key",
                   heat, max_offset AS maxOffset, max_speed AS maxSpeed, tension
            FROM {db}.ribbon JOIN {db}.ribbon_heat ON ribbon_heat.ribbonId = ribbon.id)"_L1,
         {}},
        {"colours"_L1, "Colours"_L1, "colour"_L1, R"(
            SELECT id AS "key", name, secId AS stripeCode, rgbValue AS rgb FROM {db}.color)"_L1,
         "stripeCode"_L1},
        {"ribbonColours"_L1,
         "Ribbon colours"_L1,
         "ribbon colour"_L1,
         R"(
            SELECT id AS "key", name, rgbValue AS rgb FROM {db}.ribbon_color)"_L1,
         {}},
        {"formats"_L1, "Formats"_L1, "format"_L1, R"(SELECT id AS "key", type FROM {db}.format)"_L1, {}},
        {"sensors"_L1, "Sensors"_L1, "sensor"_L1, R"(
            SELECT id AS "key", supplysensortype AS type FROM {db}.supplysensor)"_L1,
         "type"_L1},
        {"pictures"_L1,
         "Pictures"_L1,
         "picture"_L1,
         R"(
            SELECT id AS "key", svg FROM {db}.background)"_L1,
         {}},
        {"names"_L1,
         "Names"_L1,
         "name"_L1,
         R"(
            SELECT 'colour ' || colorId || ', language ' || languageId AS "key", name FROM {db}.colorTS
            UNION ALL SELECT 'material ' || materialId || ', language ' || languageId, name FROM {db}.materialTS
            UNION ALL SELECT 'format ' || formatId || ', language ' || languageId, name FROM {db}.formatTS
            UNION ALL SELECT 'ribbon type ' || ribbon_typeId || ', language ' || languageId, name FROM {db}.ribbon_typeTS
            UNION ALL SELECT 'ribbon colour ' || ribbon_colorId || ', language ' || languageId, name
                FROM {db}.ribbon_colorTS)"_L1,
         {}},
        {"meta"_L1, "About the file"_L1, "entry"_L1, R"(SELECT key AS "key", value FROM {db}.meta)"_L1, {}},
    };
    return subjects;
}

} // namespace zrsupply
