// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/cells.h"
#include "cli/output.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int stripedFormat = 2;
constexpr int continuousType = 1;

void addIdentity(Answer &answer, Catalogue &catalogue, const QString &sku)
{
    ZrSupplyDatabase &library = catalogue.library();
    const QString id = catalogue.ask(u"SELECT supplyId FROM roll WHERE itemNum="_s + sqlText(sku)).toString();
    const QString loaded = id.isEmpty() ? QString() : library.getSkuFromSupplyId(id);
    answer.addJson(u"sku"_s, sku);
    answer.add(u"supplyId"_s, u"Supply id"_s, textCell(id, u"none"_s));
    answer.addJson(u"supplyIdLoads"_s, loaded);
    if (!id.isEmpty() && loaded != sku) {
        answer.addNote(
            loaded.isEmpty()
                ? u"loading the supply id gives UnknownSupply: no roll on offer has it."_s
                : u"loading the supply id gives %1: several rolls share it and the shortest wins."_s.arg(loaded));
    }
    const QString family = catalogue.otherFamily(sku);
    if (!family.isEmpty()) {
        answer.addJson(u"machineId"_s, family);
        answer.addNote(u"machine family %1: this roll is not offered for this printer."_s.arg(family));
    }
}

void addMedia(Answer &answer, ZrSupplyDatabase &library, const QString &sku, const QString &printer)
{
    const double labelLength = library.supplyNonContinuousLength(sku);
    const int typeIndex = library.supplyTypeIndex(sku, printer);
    const bool continuous = typeIndex == continuousType;
    const int count = library.getSupplyLength(sku);
    // The length is counted in feet where the roll is not made of ordinary labels, whatever the printer.
    const int typeOnAny = library.supplyTypeIndex(sku);
    const bool inFeet = continuous || typeOnAny == 3 || typeOnAny == 4;

    answer.beginGroup(u"Media"_s);
    answer.add(u"material"_s, u"Material"_s, codeCell(library.supplyMaterial(sku), library.supplyMaterialName(sku)));
    answer.addJson(u"materialName"_s, library.supplyMaterialName(sku));
    answer.add(u"widthInches"_s, u"Width"_s, widthCell(library.supplyWidth(sku)));
    answer.add(u"lengthInches"_s, u"Length"_s, lengthCell(library.supplyLength(sku)));
    answer.add(u"catalogueLength"_s, u"Length in the catalogue"_s,
               {count, count == -1 ? notKnown : u"%1 %2"_s.arg(count).arg(inFeet ? u"ft"_s : u"labels"_s), {}});
    answer.add(u"labelLengthInches"_s, u"Label length"_s,
               continuous ? Cell{labelLength, u"none, continuous"_s, {}} : widthCell(labelLength));
    answer.add(u"separatorWidthInches"_s, u"Separator"_s,
               widthCell(library.supplySeparatorWidth(sku), continuous ? u"none"_s : notKnown));
    answer.add(u"labelsAcross"_s, u"Labels across"_s, numberCell(library.supplyMultiUpCount(sku)));
    const int landscape = library.supplyIsLandscape(sku);
    answer.add(u"landscape"_s, u"Landscape"_s,
               {landscape, landscape == -1 ? notKnown : yesNoCell(landscape != 0).text, {}});

    answer.beginGroup(u"Kind"_s);
    answer.add(u"format"_s, u"Format"_s, codeCell(library.supplyFormat(sku), library.supplyFormatName(sku)));
    answer.addJson(u"formatName"_s, library.supplyFormatName(sku));
    answer.add(u"formatType"_s, u"Format type"_s, textCell(library.supplyFormatType(sku)));
    answer.add(u"typeIndex"_s, printer.isEmpty() ? u"Type index"_s : u"Type index on "_s + printer,
               numberCell(typeIndex));
    answer.addJson(u"printer"_s, printer);
}

void addColors(Answer &answer, ZrSupplyDatabase &library, const QString &sku)
{
    answer.beginGroup(u"Colour"_s);
    const int rgb = library.supplyColorRGB(sku);
    answer.add(u"colorRgb"_s, u"Colour"_s, colorCell(rgb, library.supplyColorName(sku)));
    answer.addJson(u"colorName"_s, library.supplyColorName(sku));
    answer.add(u"colorNameEn"_s, u"In English"_s, textCell(library.supplyColorNameEn(sku)));

    const bool striped = library.supplyFormat(sku) == stripedFormat;
    const double stripe = library.supplySecColorWidth(sku);
    const int stripeRgb = library.supplySecColorRGB(sku);
    answer.add(u"stripeWidthInches"_s, u"Stripe"_s, widthCell(stripe, u"none"_s));
    answer.add(u"stripeRgb"_s, striped ? u"Stripe colour"_s : QString(),
               colorCell(stripeRgb, library.supplySecColorName(sku)));
    answer.addJson(u"stripeName"_s, library.supplySecColorName(sku));
    answer.add(u"stripeNameEn"_s, striped ? u"Stripe in English"_s : QString(),
               textCell(library.supplySecColorNameEn(sku)));
}

void addHandling(Answer &answer, Catalogue &catalogue, const QString &sku)
{
    ZrSupplyDatabase &library = catalogue.library();
    // The library tells which sensor a roll needs by a signal, about the installed roll.
    int sensor = -1;
    const auto listening = QObject::connect(&library, &ZrSupplyDatabase::notifySupplySensor, &library,
                                            [&sensor](int announced) { sensor = announced; });
    QMetaObject::invokeMethod(&library, "checkSupplyEdgeSensor");
    QObject::disconnect(listening);
    const QString sensorName =
        catalogue.ask(u"SELECT supplysensortype FROM supplysensor WHERE id=%1"_s.arg(sensor)).toString();

    answer.beginGroup(u"Handling"_s);
    answer.add(u"sensor"_s, u"Media sensor"_s,
               sensor == -1 ? numberCell(-1, u"none"_s) : codeCell(sensor, sensorName));
    answer.addJson(u"sensorType"_s, sensorName);
    // Deliberate: these two are known by the tag alone, so the library answers a SKU with false and -1.
    answer.add(u"swiftLift"_s, u"SwiftLift"_s, {library.supplySwiftLift(sku), u"told by the tag only"_s, {}});
    answer.add(u"labelGapInches"_s, u"Gap across"_s,
               {library.supplyMultiUpGapSize(sku), u"told by the tag only"_s, {}});

    const QByteArray image = library.supplyBackgroundImage(sku);
    answer.add(u"backgroundBytes"_s, u"Background image"_s,
               {double(image.size()), image.isEmpty() ? u"none"_s : u"SVG, %1 bytes"_s.arg(image.size()), {}});
    answer.addJson(u"backgroundSvg"_s, QString::fromUtf8(image));
}

Status run(const Invocation &call, Output &out)
{
    Catalogue catalogue(call);
    const QString sku = call.argument(0);
    catalogue.requireRoll(sku, call.has(u"any-family"_s));

    // The type index and the length of a catalogue roll are judged by the installed roll: install this one, as a host
    // does that has just recognised it.
    catalogue.library().setSupplySKU(sku);

    Answer answer(u"Roll "_s + sku);
    addIdentity(answer, catalogue, sku);
    addMedia(answer, catalogue.library(), sku, call.printer());
    addColors(answer, catalogue.library(), sku);
    addHandling(answer, catalogue, sku);
    answer.addJson(u"language"_s, call.language());
    if (const QString note = catalogue.languageNote(); !note.isEmpty())
        answer.addNote(note);
    out.write(answer);
    return Status::Ok;
}

} // namespace

Command rollCommand()
{
    return {
        u"roll"_s,
        u"Show everything that is known about a media roll"_s,
        u"Answers come from the library, with the roll installed, so that the type index is about this roll. With "
        "--json a number that is not known is -1, as the library answers it."_s,
        {{u"SKU"_s, u"The roll's item number; upper and lower case count"_s, Value::RollSku}},
        {{u"any-family"_s, u"Show also a roll of a machine family that is not offered for this printer"_s}},
        {{u"roll 00144463"_s, u"A striped roll."_s},
         {u"roll 00145368 --printer quokka-200 --language 1"_s, u"As that printer classifies it, in German."_s}},
        {{Status::Ok, u"answered"_s},
         {Status::Failed, u"the catalogue cannot be used"_s},
         {Status::Usage, u"no SKU is given"_s},
         {Status::NotFound, u"the catalogue does not offer the roll; the nearest SKUs are named"_s}},
        run,
    };
}

} // namespace zrsupply
