// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/cells.h"
#include "cli/output.h"

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The library's list forms cover two panels, so two are shown even of a ribbon with fewer.
constexpr int leastPanels = 2;

struct Verdicts
{
    bool clearTail = false;
    bool narrow = false;
};

/// The library tells these by signals, about installed ribbons: this one is installed twice, since a missing ribbon
/// counts as narrow.
Verdicts installedVerdicts(ZrSupplyDatabase &library, const QString &sku)
{
    Verdicts verdicts;
    const QList<QMetaObject::Connection> listening = {
        QObject::connect(&library, &ZrSupplyDatabase::notifyClearTailRibbon1, &library,
                         [&verdicts](bool set) { verdicts.clearTail = set; }),
        QObject::connect(&library, &ZrSupplyDatabase::notifySupplyWidth, &library,
                         [&verdicts](bool set) { verdicts.narrow = set; }),
    };
    QMetaObject::invokeMethod(&library, "supplySetRibbonSKUs", Q_ARG(QStringList, (QStringList{sku, sku})));
    QMetaObject::invokeMethod(&library, "checkClearTail");
    QMetaObject::invokeMethod(&library, "checkRibbonWidth");
    for (const QMetaObject::Connection &connection : listening)
        QObject::disconnect(connection);
    return verdicts;
}

void addRibbon(Answer &answer, Catalogue &catalogue, const QString &sku)
{
    ZrSupplyDatabase &library = catalogue.library();
    const QString id = catalogue.ask(u"SELECT id FROM ribbon WHERE sku="_s + sqlText(sku)).toString();
    answer.addJson(u"sku"_s, sku);
    answer.add(u"id"_s, u"Ribbon id"_s, textCell(id, u"none"_s));
    answer.add(u"type"_s, u"Type"_s, textCell(library.supplyRibbonType(sku), u"none"_s));
    answer.add(u"panels"_s, u"Panels"_s, numberCell(library.supplyRibbonPanels(sku)));
    answer.add(u"widthInches"_s, u"Width"_s, widthCell(library.supplyRibbonWidth(sku)));
    answer.add(u"lengthInches"_s, u"Length"_s, lengthCell(library.supplyRibbonLength(sku)));
    const Verdicts verdicts = installedVerdicts(library, sku);
    answer.add(u"clearTail"_s, u"Clear tail"_s, yesNoCell(verdicts.clearTail));
    answer.add(u"narrow"_s, u"Narrow"_s, yesNoCell(verdicts.narrow));
}

/// The materials that the ribbon has print parameters for.
void addMaterials(Answer &answer, Catalogue &catalogue, const QString &sku)
{
    const QString codes =
        catalogue
            .ask(u"SELECT group_concat(materialId) FROM (SELECT DISTINCT ribbon_heat.materialId FROM ribbon"
                 " INNER JOIN ribbon_heat ON ribbon.id=ribbon_heat.ribbonId WHERE ribbon.sku=%1 ORDER BY 1)"_s.arg(
                     sqlText(sku)))
            .toString();
    QStringList texts;
    QJsonArray list;
    for (const QString &code : codes.split(u',', Qt::SkipEmptyParts)) {
        const QString name = catalogue.library().getMaterialNameFromEnum(code.toInt());
        // The library answers "-1" for a code without a name.
        const bool named = name != unsetString && !name.isEmpty();
        texts.append(named ? code + u' ' + name : code);
        list.append(QJsonObject{{u"material"_s, code.toInt()}, {u"name"_s, named ? name : QString()}});
    }
    answer.add(u"materials"_s, u"Prints on"_s, {list, texts.isEmpty() ? u"no material"_s : texts.join(", "_L1), {}});
}

Table panelTable(ZrSupplyDatabase &library, const QString &sku, const QString &roll)
{
    QList<Table::Column> columns = {
        {u"panel"_s, u"Panel"_s, Qt::AlignRight}, {u"colorRgb"_s, u"Colour"_s}, {u"colorName"_s, u"Name"_s}};
    if (!roll.isEmpty()) {
        columns.append({{u"heat"_s, u"Heat"_s, Qt::AlignRight},
                        {u"maxHeatOffset"_s, u"Max offset"_s, Qt::AlignRight},
                        {u"maxSpeed"_s, u"Max speed"_s, Qt::AlignRight},
                        {u"tension"_s, u"Tension"_s, Qt::AlignRight}});
    }
    Table table(columns);
    const int panels = std::max(leastPanels, library.supplyRibbonPanels(sku));
    for (int panel = 1; panel <= panels; ++panel) {
        const QString name = library.supplyRibbonColorName(sku, panel);
        QList<Cell> cells = {numberCell(panel), colorCell(library.supplyRibbonColorRGB(sku, panel), {}, u"none"_s),
                             textCell(name, u"none"_s)};
        if (!roll.isEmpty()) {
            const QString none = u"none"_s;
            cells.append({numberCell(library.supplyRibbonHeat(sku, panel, roll), none),
                          numberCell(library.supplyRibbonHeatOffset(sku, panel, roll), none),
                          numberCell(library.supplyRibbonMaxSpeed(sku, panel, roll), none),
                          numberCell(library.supplyRibbonTension(sku, panel, roll), none)});
        }
        table.addRow(cells);
    }
    return table;
}

void addRoll(Answer &answer, ZrSupplyDatabase &library, const QString &roll)
{
    answer.beginGroup(u"On roll "_s + roll, u"on"_s);
    answer.addJson(u"sku"_s, roll);
    answer.add(u"material"_s, u"Material"_s,
               codeCell(library.supplyMaterial(roll), library.supplyMaterialName(roll)));
    answer.add(u"widthInches"_s, u"Width"_s, widthCell(library.supplyWidth(roll)));
}

Status run(const Invocation &call, Output &out)
{
    Catalogue catalogue(call);
    const QString sku = call.argument(0);
    const QString roll = call.value(u"on"_s);
    catalogue.requireRibbon(sku);
    if (call.has(u"on"_s))
        catalogue.requireRoll(roll, call.has(u"any-family"_s));

    Answer answer(u"Ribbon "_s + sku);
    addRibbon(answer, catalogue, sku);
    addMaterials(answer, catalogue, sku);
    if (!roll.isEmpty())
        addRoll(answer, catalogue.library(), roll);
    answer.addTable(u"Panels"_s, u"panelList"_s, panelTable(catalogue.library(), sku, roll));
    answer.addJson(u"language"_s, call.language());
    if (const QString note = catalogue.languageNote(); !note.isEmpty())
        answer.addNote(note);
    out.write(answer);
    return Status::Ok;
}

} // namespace

Command ribbonCommand()
{
    return {
        u"ribbon"_s,
        u"Show everything that is known about a ribbon"_s,
        u"Heat, heat offset and tension are in the printer's own steps, as the catalogue has them. At least two "
        "panels are shown, since the library's lists cover two. With --json a number that is not known is -1."_s,
        {{u"SKU"_s, u"The ribbon's SKU; upper and lower case count"_s, Value::RibbonSku}},
        {{u"on"_s, u"Show the print parameters on this roll's material"_s, Value::RollSku, u"ROLL"_s},
         {u"any-family"_s, u"Take also a roll of a machine family that is not offered for this printer"_s}},
        {{u"ribbon R530951"_s, u"A ribbon of two panels."_s},
         {u"ribbon R530901 --on 00143465"_s, u"How it prints on that roll."_s}},
        {{Status::Ok, u"answered"_s},
         {Status::Failed, u"the catalogue cannot be used"_s},
         {Status::Usage, u"no SKU is given"_s},
         {Status::NotFound, u"the catalogue has no such ribbon or roll; the nearest SKUs are named"_s}},
        run,
    };
}

} // namespace zrsupply
