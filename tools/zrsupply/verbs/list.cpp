// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/cells.h"
#include "cli/output.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// One SKU, name or number a line: for completions and loops.
void writePlain(Output &out, const QString &key, const QStringList &names)
{
    if (out.json())
        out.write(QJsonObject{{key, QJsonArray::fromStringList(names)}});
    else
        out.write(names.isEmpty() ? QString() : names.join(u'\n') + u'\n');
}

void writeTable(Output &out, Catalogue &catalogue, const QString &key, const Table &table)
{
    Answer answer;
    answer.addTable({}, key, table);
    if (const QString note = catalogue.languageNote(); !note.isEmpty())
        answer.addNote(note);
    out.write(answer);
}

Table rollTable(ZrSupplyDatabase &library)
{
    Table table({{u"sku"_s, u"Roll"_s},
                 {u"widthInches"_s, u"Width"_s, Qt::AlignRight},
                 {u"material"_s, u"Material"_s},
                 {u"format"_s, u"Format"_s},
                 {u"colorRgb"_s, u"Colour"_s}});
    for (const QString &sku : library.supplySKUList()) {
        const double width = library.supplyWidth(sku);
        table.addRow({textCell(sku),
                      {width, inchText(width), {}},
                      codeCell(library.supplyMaterial(sku), library.supplyMaterialName(sku)),
                      codeCell(library.supplyFormat(sku), library.supplyFormatName(sku)),
                      colorCell(library.supplyColorRGB(sku), library.supplyColorName(sku))});
    }
    return table;
}

Table ribbonTable(ZrSupplyDatabase &library)
{
    Table table({{u"sku"_s, u"Ribbon"_s},
                 {u"widthInches"_s, u"Width"_s, Qt::AlignRight},
                 {u"type"_s, u"Type"_s},
                 {u"panels"_s, u"Panels"_s, Qt::AlignRight},
                 {u"colorRgb1"_s, u"Panel 1"_s},
                 {u"colorRgb2"_s, u"Panel 2"_s}});
    for (const QString &sku : library.supplyRibbonSKUList()) {
        const double width = library.supplyRibbonWidth(sku);
        table.addRow(
            {textCell(sku),
             {width, inchText(width), {}},
             textCell(library.supplyRibbonType(sku), u"-"_s),
             numberCell(library.supplyRibbonPanels(sku)),
             colorCell(library.supplyRibbonColorRGB(sku, 1), library.supplyRibbonColorName(sku, 1), u"-"_s),
             colorCell(library.supplyRibbonColorRGB(sku, 2), library.supplyRibbonColorName(sku, 2), u"-"_s)});
    }
    return table;
}

Table colorTable(ZrSupplyDatabase &library)
{
    Table table({{u"of"_s, u"Of"_s}, {u"rgb"_s, u"Colour"_s}, {u"name"_s, u"Name"_s}});
    const auto addColors = [&table](const QString &of, const QVariantHash &colors) {
        QStringList names = colors.keys();
        names.sort();
        for (const QString &name : names)
            table.addRow({textCell(of), colorCell(colors.value(name).toInt()), textCell(name, u"without a name"_s)});
    };
    addColors(u"rolls"_s, library.supplyColorHash());
    addColors(u"ribbons"_s, library.supplyRibbonColorHash());
    return table;
}

Table languageTable(Catalogue &catalogue)
{
    struct Kind
    {
        QString key;
        QString label;
        QString table;
    };
    const QList<Kind> kinds = {{u"colors"_s, u"Colours"_s, u"colorTS"_s},
                               {u"materials"_s, u"Materials"_s, u"materialTS"_s},
                               {u"formats"_s, u"Formats"_s, u"formatTS"_s},
                               {u"ribbonTypes"_s, u"Ribbon types"_s, u"ribbon_typeTS"_s},
                               {u"ribbonColors"_s, u"Ribbon colours"_s, u"ribbon_colorTS"_s}};
    QList<Table::Column> columns = {{u"id"_s, u"Id"_s, Qt::AlignRight}, {u"language"_s, u"Language"_s}};
    for (const Kind &kind : kinds)
        columns.append({kind.key, kind.label, Qt::AlignRight});

    Table table(columns);
    for (const int language : catalogue.languages()) {
        QList<Cell> cells = {numberCell(language), textCell(catalogue.languageCode(language), u"-"_s)};
        for (const Kind &kind : kinds) {
            const QString query = u"SELECT count(*) FROM %1 WHERE languageId=%2"_s.arg(kind.table).arg(language);
            cells.append(numberCell(catalogue.ask(query, 0).toInt()));
        }
        table.addRow(cells);
    }
    return table;
}

QStringList languageIds(Catalogue &catalogue)
{
    QStringList ids;
    for (const int language : catalogue.languages())
        ids.append(QString::number(language));
    return ids;
}

QStringList colorNames(ZrSupplyDatabase &library)
{
    QStringList names = library.supplyColorHash().keys() + library.supplyRibbonColorHash().keys();
    names.sort();
    names.removeDuplicates();
    return names;
}

QStringList namesOf(Catalogue &catalogue, const QString &word)
{
    if (word == "rolls"_L1)
        return catalogue.library().supplySKUList();
    if (word == "ribbons"_L1)
        return catalogue.library().supplyRibbonSKUList();
    return word == "colours"_L1 ? colorNames(catalogue.library()) : languageIds(catalogue);
}

Table tableOf(Catalogue &catalogue, const QString &word)
{
    if (word == "rolls"_L1)
        return rollTable(catalogue.library());
    if (word == "ribbons"_L1)
        return ribbonTable(catalogue.library());
    return word == "colours"_L1 ? colorTable(catalogue.library()) : languageTable(catalogue);
}

Status run(const Invocation &call, Output &out)
{
    const QString word = call.argument(0);
    Catalogue catalogue(call);
    if (call.has(u"plain"_s))
        writePlain(out, word, namesOf(catalogue, word));
    else
        writeTable(out, catalogue, word, tableOf(catalogue, word));
    return Status::Ok;
}

} // namespace

Command listCommand()
{
    return {
        u"list"_s,
        u"List the rolls, ribbons, colours or languages of the catalogue"_s,
        u"Rolls of machine families that are not offered for this printer are left out. Colours are listed by their "
        "English names; of equal names the catalogue's last one is the library's."_s,
        {{u"WHAT"_s,
          u"What to list"_s,
          Value::Choice,
          Need::Required,
          {u"rolls"_s, u"ribbons"_s, u"colours"_s, u"languages"_s}}},
        {{u"plain"_s, u"Only SKUs, names or language ids, one a line"_s}},
        {{u"list rolls --language 1"_s, u"All rolls, names in German."_s},
         {u"list ribbons --plain"_s, u"The ribbon SKUs, for a loop."_s}},
        {{Status::Ok, u"listed, also when the list is empty"_s},
         {Status::Failed, u"the catalogue cannot be used"_s},
         {Status::Usage, u"not something that can be listed"_s}},
        run,
    };
}

} // namespace zrsupply
