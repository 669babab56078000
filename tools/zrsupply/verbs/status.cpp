// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/loaded.h"
#include "cli/output.h"
#include "supplies/markersupplies.h"
#include "usekit.h"

#include <QtCore/QMetaObject>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString rollMileage = u"roll-mileage"_s;
const QString ribbon1Mileage = u"ribbon1-mileage"_s;
const QString ribbon2Mileage = u"ribbon2-mileage"_s;

/// A reading from the command line; -1, unknown, where there is none.
int reading(const Invocation &call, const QString &option)
{
    return call.value(option, unsetString).toInt();
}

/// A fraction takes the mileage base, which only the tag has.
void requireTag(const Invocation &call)
{
    if (!call.has(rollMileage) || looksLikeTag(call.value(u"roll"_s)))
        return;
    Failure failure = usageFailure(call.command(), u"--roll-mileage needs the roll's tag"_s);
    failure.remedy = u"give --roll the digits of the tag: a SKU does not say what a full roll reads"_s;
    throw failure;
}

Status run(const Invocation &call, Output &out)
{
    requireTag(call);
    static_cast<void>(ribbonWords(call)); // a third one is an error before the catalogue is looked at
    Catalogue catalogue(call);
    ZrSupplyDatabase &library = catalogue.library();
    Answer notes; // the formats have no place for remarks; what is not known is -2 in them
    if (call.has(u"roll"_s))
        takeInRoll(catalogue, call.value(u"roll"_s), notes);
    QMetaObject::invokeMethod(&library, "supplySetRibbonSKUs",
                              Q_ARG(QStringList, ribbonSkus(catalogue, call, notes)));
    library.setSupplyMileage(reading(call, rollMileage));
    library.setRibbon1Mileage(reading(call, ribbon1Mileage));
    library.setRibbon2Mileage(reading(call, ribbon2Mileage));

    const QList<MarkerSupply> supplies = markerSupplies(library, call.language());
    const QString format = call.value(u"format"_s, u"ipp"_s);
    if (out.json() || format == "json"_L1)
        out.write(statusJson(supplies));
    else
        out.write(format == "snmp"_L1 ? snmpText(supplies) : ippText(supplies));
    return Status::Ok;
}

} // namespace

Command statusCommand()
{
    return {
        u"status"_s,
        u"Tell what is installed in the terms of IPP and SNMP"_s,
        u"The roll and the ribbons as a printer service publishes them: the values of IPP's printer-supply and"
        " printer-supply-description (PWG 5100.13), or the rows of prtMarkerSuppliesTable and prtMarkerColorantTable"
        " (RFC 3805). Capacity and level are ten thousandths of inches; -2 says that something is not known.\n\n"
        "The rows stay where they are: 1 is the roll, 2 and 3 are the ribbons, installed or not."_s,
        {secondRibbonArgument()},
        {rollOption(),
         ribbonsOption(),
         {rollMileage, u"The roll's reading in millimetres; with a tag only"_s, Value::Integer, u"MM"_s},
         {ribbon1Mileage, u"The reading of ribbon 1 in millimetres"_s, Value::Integer, u"MM"_s},
         {ribbon2Mileage, u"The reading of ribbon 2 in millimetres"_s, Value::Integer, u"MM"_s},
         {u"format"_s,
          u"ipp: attributes as ipptool reads them; snmp: as snmpwalk prints them; json: both. ipp when not given"_s,
          Value::Choice,
          u"FORMAT"_s,
          {u"ipp"_s, u"snmp"_s, u"json"_s}}},
        {{u"status --roll 3200000C8020804041410000 --roll-mileage 15240 --ribbons 1"_s,
          u"Half a roll, one ribbon."_s},
         {u"status --roll 00143465 --ribbons R530901 R530947 --format snmp"_s,
          u"By SKU; the levels are not known."_s},
         {u"status --roll 00143465 --json"_s, u"Everything, for programs."_s}},
        {{Status::Ok, u"told, also when nothing is installed"_s},
         {Status::Failed, u"the catalogue could not be used"_s},
         {Status::Usage, u"wrong call"_s},
         {Status::NotFound, u"no such roll or ribbon"_s}},
        run,
    };
}

} // namespace zrsupply
