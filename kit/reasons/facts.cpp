// SPDX-License-Identifier: LGPL-2.1-or-later
#include "reasons/reasons.h"
#include "text/units.h"

#include <supplyconstants_p.h>
#include <zrsupplydatabase.h>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What a question of our own answers, an empty text without a row. The SKU goes in as it does in the library's
/// texts.
QString ask(ZrSupplyDatabase &library, QLatin1StringView query, const QStringList &values)
{
    QString text = query;
    for (const QString &value : values)
        text = text.arg(value);
    return library.getSingleVariantByQuery(text, QString()).toString();
}

bool isOpen(ZrSupplyDatabase &library)
{
    return ask(library, "SELECT 'open'"_L1, {}) == "open"_L1;
}

/// Where a value of a roll was read: the tag for an unknown roll, else the row that `found` describes.
QString rollSource(ZrSupplyDatabase &library, const QString &sku, const QString &materialWidthId)
{
    if (supply::answersFromTag(sku))
        return u"the roll's tag"_s;
    if (!isOpen(library))
        return u"the catalogue is closed"_s;
    if (materialWidthId.isEmpty())
        return u"roll: no row %1 with a row of materialwidth"_s.arg(sku);
    return u"materialwidth: row %1, by roll %2"_s.arg(materialWidthId, sku);
}

/// The library has no lookup for a roll's sensor: the check reads it, and it is read the same way here.
void gatherSensor(ZrSupplyDatabase &library, RollFacts &roll)
{
    const QString column =
        ask(library, "SELECT ifnull(supplysensorId, 'NULL') FROM roll WHERE itemNum='%1'"_L1, {roll.sku});
    const QString id = column == "NULL"_L1 ? QString() : column;
    const QString type =
        id.isEmpty()
            ? QString()
            : ask(library, "SELECT ifnull(supplysensortype, 'without a name') FROM supplysensor WHERE id='%1'"_L1,
                  {id});
    const int sensor = type.isEmpty() ? supply::unsetInt : id.toInt();
    roll.sensor = {u"sensor of the roll"_s, sensor, numberText(sensor, u"none"_s), {}};
    if (!isOpen(library)) {
        roll.sensor.source = u"the catalogue is closed"_s;
        roll.sensorText = u"the catalogue is closed"_s;
    } else if (column.isEmpty()) {
        roll.sensor.source = u"roll: no row %1"_s.arg(roll.sku);
        roll.sensorText =
            roll.sku == unsetString ? u"no roll is loaded"_s : u"the catalogue has no roll %1"_s.arg(roll.sku);
    } else if (id.isEmpty()) {
        roll.sensor.source = u"roll: row %1, supplysensorId is NULL"_s.arg(roll.sku);
        roll.sensorText = u"roll %1 needs no media sensor"_s.arg(roll.sku);
    } else if (type.isEmpty()) {
        roll.sensor.source = u"roll: row %1; supplysensor: no row %2"_s.arg(roll.sku, id);
        roll.sensorText = u"roll %1 names sensor %2, which the catalogue does not have"_s.arg(roll.sku, id);
    } else {
        roll.sensor.source = u"roll: row %1; supplysensor: row %2"_s.arg(roll.sku, id);
        roll.sensorText = u"roll %1 needs sensor %2 (%3)"_s.arg(roll.sku, id, type);
    }
}

QString pairSource(ZrSupplyDatabase &library, const RibbonFacts &ribbon, const RollFacts &roll)
{
    const int material = roll.material.value.toInt();
    if (ribbon.sku == unsetString)
        return u"no ribbon"_s;
    if (!isOpen(library))
        return u"the catalogue is closed"_s;
    if (ribbon.id.isEmpty())
        return u"ribbon: no row %1"_s.arg(ribbon.sku);
    if (material == supply::unsetInt)
        return u"not read: the roll's material is not known"_s;
    const QString row = u"ribbonId %1, panel 1, materialId %2"_s.arg(ribbon.id, QString::number(material));
    const bool found =
        !ask(library, "SELECT panel FROM ribbon_heat WHERE ribbonId='%1' AND panel=1 AND materialId='%2'"_L1,
             {ribbon.id, QString::number(material)})
             .isEmpty();
    return found ? u"ribbon_heat: row "_s + row : u"ribbon_heat: no row "_s + row;
}

} // namespace

RollFacts gatherRoll(ZrSupplyDatabase &library, const QString &sku)
{
    RollFacts roll;
    roll.sku = sku;
    const QString materialWidthId = ask(library,
                                        "SELECT materialwidth.id FROM roll INNER JOIN materialwidth ON"
                                        " roll.materialWidthId=materialwidth.id WHERE itemNum='%1'"_L1,
                                        {sku});
    const QString source = rollSource(library, sku, materialWidthId);

    const double width = library.supplyWidth(sku);
    roll.width = {u"width of the roll"_s, width, width == supply::unsetReal ? notKnown : inchText(width), source};

    const int material = library.supplyMaterial(sku);
    const QString name = library.supplyMaterialName(sku);
    roll.material = {u"material of the roll"_s, material, codeText(material, name), source};
    roll.materialText = material == supply::unsetInt ? u"an unknown material"_s
                        : name.isEmpty()             ? u"material %1"_s.arg(material)
                                                     : u"material %1 (%2)"_s.arg(QString::number(material), name);
    gatherSensor(library, roll);
    return roll;
}

RibbonFacts gatherRibbon(ZrSupplyDatabase &library, const QString &sku)
{
    RibbonFacts ribbon;
    ribbon.sku = sku;
    ribbon.id = ask(library, "SELECT id FROM ribbon WHERE sku='%1'"_L1, {sku});
    const double width = library.supplyRibbonWidth(sku);
    const QString source = sku == unsetString    ? u"no ribbon"_s
                           : !isOpen(library)    ? u"the catalogue is closed"_s
                           : ribbon.id.isEmpty() ? u"ribbon: no row %1"_s.arg(sku)
                                                 : u"ribbon: row %1"_s.arg(sku);
    ribbon.width = {u"width"_s, width, width == supply::unsetReal ? notKnown : inchText(width), source};
    return ribbon;
}

PairFacts gatherPair(ZrSupplyDatabase &library, const RibbonFacts &ribbon, const RollFacts &roll)
{
    const QString source = pairSource(library, ribbon, roll);
    const int heat = library.supplyRibbonHeat(ribbon.sku, supply::firstPanel, roll.sku);
    const int tension = library.supplyRibbonTension(ribbon.sku, supply::firstPanel, roll.sku);
    return {{u"heat"_s, heat, numberText(heat, u"none"_s), source},
            {u"tension"_s, tension, numberText(tension, u"none"_s), source}};
}

Facts gatherFacts(ZrSupplyDatabase &library, const QString &rollSku, const QStringList &ribbonSkus)
{
    Facts facts;
    facts.roll = gatherRoll(library, rollSku);
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        facts.ribbons[i] = gatherRibbon(library, ribbonSkus.value(qsizetype(i), unsetString));
        facts.pairs[i] = gatherPair(library, facts.ribbons[i], facts.roll);
    }
    return facts;
}

Facts gatherInstalled(ZrSupplyDatabase &library)
{
    return gatherFacts(library, library.supplySKU(), library.supplyRibbonSKUs());
}

} // namespace ZrSupplyKit
