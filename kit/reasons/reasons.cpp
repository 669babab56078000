// SPDX-License-Identifier: LGPL-2.1-or-later
#include "reasons/reasons.h"

#include "text/units.h"

#include <zrsupplydatabase.h>

// The rule of the combination, the special SKUs and the thresholds are written down once, for the checks and for
// their reasons.
#include <combinationrule_p.h>
#include <supplyconstants_p.h>

#include <QtCore/QCoreApplication>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A text that a translation of the kit replaces.
QString tr(const char *text)
{
    return QCoreApplication::translate("ZrSupplyKit", text);
}

bool isMissing(const RibbonFacts &ribbon)
{
    return ribbon.sku == unsetString;
}

QString place(size_t index)
{
    return tr("ribbon %1").arg(index + 1);
}

Reading ofRibbon(Reading reading, size_t index)
{
    reading.name += u" of ribbon %1"_s.arg(index + 1);
    return reading;
}

Finding noRibbonFinding(size_t index, const QString &rule)
{
    return {int(index) + 1,
            rule,
            Outcome::NotAsked,
            ReasonCode::NoRibbon,
            {},
            tr("no ribbon"),
            tr("No %1 is loaded.").arg(place(index))};
}

/// How a ribbon's width stands to the limit.
Finding narrowness(const RibbonFacts &ribbon, size_t index)
{
    const double width = ribbon.width.value.toDouble();
    const bool isNarrow = supply::isNarrowRibbon(width);
    const QString limit = inchText(supply::narrowRibbonInches);
    Finding finding{int(index) + 1, u"narrow"_s, isNarrow ? Outcome::Fires : Outcome::Passes};
    finding.values.ribbonWidthInches = width;
    finding.values.narrowRibbonInches = supply::narrowRibbonInches;
    if (isMissing(ribbon)) {
        finding.code = ReasonCode::MissingRibbonIsNarrow;
        finding.says = tr("a missing ribbon counts as narrow");
        finding.technician = tr("Load %1.").arg(place(index));
    } else if (width == supply::unsetReal) {
        finding.code = ReasonCode::UnknownWidthIsNarrow;
        finding.says = tr("the width of %1 is not known, which counts as narrow").arg(ribbon.sku);
        finding.technician = tr("The catalogue has no width of %1: use another ribbon.").arg(ribbon.sku);
    } else if (isNarrow) {
        finding.code = ReasonCode::RibbonIsNarrow;
        finding.says = tr("%1 is %2 wide, under %3").arg(ribbon.sku, ribbon.width.text, limit);
        finding.technician = tr("%1 is narrow: a wide roll needs a ribbon of %2 or more.").arg(ribbon.sku, limit);
    } else {
        finding.code = ReasonCode::RibbonIsWide;
        finding.says = tr("%1 is %2 wide, not under %3").arg(ribbon.sku, ribbon.width.text, limit);
        finding.technician = tr("%1 is wide enough for every roll.").arg(ribbon.sku);
    }
    return finding;
}

Finding heatFinding(const Facts &facts, size_t index, const supply::RibbonObjections &objections)
{
    const RibbonFacts &ribbon = facts.ribbons[index];
    const int heat = facts.pairs[index].heat.value.toInt();
    Finding finding{int(index) + 1, u"heat"_s, Outcome::Passes, ReasonCode::RibbonPrints};
    finding.values.heat = heat;
    finding.values.material = facts.roll.material.value.toInt();
    if (isMissing(ribbon)) {
        finding.outcome = Outcome::NotAsked;
        finding.code = ReasonCode::NoRibbonToPrint;
        finding.says = tr("no ribbon, no heat to judge");
        finding.technician = tr("No %1 is loaded.").arg(place(index));
        return finding;
    }
    if (!objections.hasNoHeat) {
        finding.says = tr("%1 prints on %2 with heat %3").arg(ribbon.sku, facts.roll.materialText).arg(heat);
        finding.technician = tr("%1 prints on this roll.").arg(ribbon.sku);
        return finding;
    }
    finding.outcome = Outcome::Fires;
    finding.technician = tr("%1 does not print on this roll: use another ribbon or another roll.").arg(ribbon.sku);
    if (heat == supply::unsetInt) {
        finding.code = ReasonCode::RibbonHasNoHeat;
        finding.says = tr("%1 has no heat for %2: it does not print on it").arg(ribbon.sku, facts.roll.materialText);
    } else {
        finding.code = ReasonCode::RibbonHeatNotPositive;
        finding.says =
            tr("the heat of %1 on %2 is %3, not above 0").arg(ribbon.sku, facts.roll.materialText).arg(heat);
    }
    return finding;
}

Finding widthFinding(const Facts &facts, size_t index, const supply::RibbonObjections &objections)
{
    const double rollWidth = facts.roll.width.value.toDouble();
    const QString limit = inchText(supply::wideRollInches);
    Finding finding = narrowness(facts.ribbons[index], index);
    finding.rule = u"width"_s;
    finding.outcome = objections.isTooNarrow ? Outcome::Fires : Outcome::Passes;
    finding.values.rollWidthInches = rollWidth;
    finding.values.wideRollInches = supply::wideRollInches;
    if (supply::isWideRoll(rollWidth)) {
        finding.says = tr("%1; the roll (%2) is over %3").arg(finding.says, facts.roll.width.text, limit);
    } else {
        finding.code = ReasonCode::RollIsNotWide;
        finding.says = tr("the roll (%1) is not over %2, so any width will do").arg(facts.roll.width.text, limit);
        finding.technician = tr("A ribbon of any width suits this roll.");
    }
    return finding;
}

/// What overrules the rules of a special ribbon, if it is one.
void addSpecialFinding(QList<Finding> &findings, const QString &sku, size_t index,
                       const supply::RibbonObjections &objections)
{
    if (!objections.isWaived)
        return;
    for (Finding &finding : findings) {
        if (finding.ribbon == int(index) + 1 && finding.outcome == Outcome::Fires)
            finding.outcome = Outcome::Waived;
    }
    Finding finding{int(index) + 1, u"special"_s, Outcome::Passes, ReasonCode::SpecialIsNotJudged};
    if (objections.isSecondSpecial) {
        finding.outcome = Outcome::Fires;
        finding.code = ReasonCode::TwoSpecialsAreNoPair;
        finding.says = tr("%1 is a special ribbon, and two of them are no pair").arg(sku);
        finding.technician = tr("Two special ribbons are loaded: replace one of them.");
    } else {
        finding.says = tr("%1 is a special ribbon, which is not judged").arg(sku);
        finding.technician = tr("%1 suits every roll.").arg(sku);
    }
    findings.append(finding);
}

supply::RibbonOnRoll valuesOf(const Facts &facts, size_t index)
{
    const RibbonFacts &ribbon = facts.ribbons[index];
    return {isMissing(ribbon), supply::isSpecialRibbon(ribbon.sku), facts.pairs[index].heat.value.toInt(),
            ribbon.width.value.toDouble()};
}

Verdict judgeCombination(const Facts &facts)
{
    Verdict verdict{Check::Combination, true, {}, {}, {}, {}};
    const auto objections =
        supply::combinationObjections({{valuesOf(facts, 0), valuesOf(facts, 1)}}, facts.roll.width.value.toDouble());
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        verdict.findings += {heatFinding(facts, i, objections[i]), widthFinding(facts, i, objections[i])};
        addSpecialFinding(verdict.findings, facts.ribbons[i].sku, i, objections[i]);
        verdict.readings += {ofRibbon(facts.pairs[i].heat, i), ofRibbon(facts.ribbons[i].width, i)};
    }
    verdict.readings += {facts.roll.material, facts.roll.width};

    const bool bad1 = objections[0].isBad();
    const bool bad2 = objections[1].isBad();
    verdict.good = !bad1 && !bad2;
    if (bad1 && bad2) {
        verdict.summary = objections[0].isSecondSpecial ? tr("two special ribbons are no pair")
                                                        : tr("neither ribbon suits the roll");
        verdict.announcements = {{u"alertInvalidRibbonsSupplyCombo"_s, {}}};
    } else if (bad1) {
        verdict.summary = tr("ribbon 1 does not suit the roll");
        verdict.announcements = {{u"alertInvalidRibbon1SupplyCombo"_s, {}}};
    } else if (bad2) {
        verdict.summary = tr("ribbon 2 does not suit the roll");
        verdict.announcements = {{u"alertInvalidRibbon2SupplyCombo"_s, {}}};
    } else {
        const bool none = isMissing(facts.ribbons[0]) && isMissing(facts.ribbons[1]);
        verdict.summary = none ? tr("no ribbons, nothing to object to") : tr("the ribbons suit the roll");
    }
    return verdict;
}

Verdict judgeClearTail(const Facts &facts)
{
    Verdict verdict{Check::ClearTail, true, {}, {}, {}, {}};
    QStringList which;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        const QString &sku = facts.ribbons[i].sku;
        const bool clearTail = supply::needsClearTail(sku);
        if (clearTail)
            which.append(place(i));
        Finding finding{int(i) + 1, u"clear-tail"_s, Outcome::Passes, ReasonCode::RibbonNeedsNoClearTail};
        if (isMissing(facts.ribbons[i])) {
            finding = noRibbonFinding(i, finding.rule);
        } else if (clearTail) {
            finding.outcome = Outcome::Fires;
            finding.code = ReasonCode::RibbonNeedsClearTail;
            finding.says = tr("%1 is a clear-tail ribbon").arg(sku);
            finding.technician = tr("The printer treats the clear tail of %1.").arg(sku);
        } else {
            finding.says = tr("%1 is not a clear-tail ribbon").arg(sku);
            finding.technician = tr("%1 has no clear tail.").arg(sku);
        }
        verdict.findings.append(finding);
        verdict.announcements.append({u"notifyClearTailRibbon%1"_s.arg(i + 1), {clearTail}});
    }
    verdict.summary = which.isEmpty() ? tr("not needed") : tr("needed for %1").arg(which.join(tr(" and ")));
    return verdict;
}

Verdict judgeEdgeSensor(const Facts &facts)
{
    const int sensor = facts.roll.sensor.value.toInt();
    const bool known = sensor != supply::unsetInt;
    Finding finding{0, u"sensor"_s, known ? Outcome::Fires : Outcome::Passes,
                    known ? ReasonCode::RollNeedsSensor : ReasonCode::RollNeedsNoSensor};
    finding.values.sensor = sensor;
    finding.says = facts.roll.sensorText;
    finding.technician = known ? tr("The printer finds the labels of this roll with sensor %1.").arg(sensor)
                               : tr("No media sensor is known for this roll.");
    return {Check::EdgeSensor,
            true,
            known ? tr("sensor %1").arg(sensor) : tr("no sensor"),
            {finding},
            {facts.roll.sensor},
            {{u"notifySupplySensor"_s, {sensor}}}};
}

Verdict judgeRibbonWidth(const Facts &facts)
{
    Verdict verdict{Check::RibbonWidth, true, {}, {}, {}, {}};
    bool narrow = false;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        verdict.findings.append(narrowness(facts.ribbons[i], i));
        narrow = narrow || verdict.findings.constLast().outcome == Outcome::Fires;
        verdict.readings.append(ofRibbon(facts.ribbons[i].width, i));
    }
    verdict.summary = narrow ? tr("a ribbon is narrow or missing") : tr("no ribbon is narrow");
    verdict.announcements = {{u"notifySupplyWidth"_s, {narrow}}};
    return verdict;
}

Finding tensionFinding(const Facts &facts, size_t index)
{
    const QString &sku = facts.ribbons[index].sku;
    const Reading &tension = facts.pairs[index].tension;
    Finding finding{int(index) + 1, u"tension"_s, Outcome::Fires, ReasonCode::RibbonHasTension};
    finding.values.tension = tension.value.toInt();
    finding.values.material = facts.roll.material.value.toInt();
    if (*finding.values.tension == supply::unsetInt) {
        finding.outcome = Outcome::Passes;
        finding.code = ReasonCode::RibbonHasNoTension;
        finding.says = tr("%1 has no tension for %2").arg(sku, facts.roll.materialText);
        finding.technician = tr("The catalogue has no tension of %1 for this roll.").arg(sku);
    } else {
        finding.says = tr("%1 runs on %2 with tension %3").arg(sku, facts.roll.materialText, tension.text);
        finding.technician = tr("The printer runs %1 with tension %2.").arg(sku, tension.text);
    }
    return finding;
}

Verdict judgeRibbonTensions(const Facts &facts)
{
    Verdict verdict{Check::RibbonTensions, true, {}, {}, {}, {}};
    bool both = true;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        if (isMissing(facts.ribbons[i])) {
            both = false;
            verdict.findings.append(noRibbonFinding(i, u"tension"_s));
            continue;
        }
        verdict.findings.append(tensionFinding(facts, i));
        verdict.readings.append(ofRibbon(facts.pairs[i].tension, i));
    }
    if (!both) {
        verdict.summary = tr("nothing is announced without two ribbons");
        return verdict;
    }
    const QVariant tension1 = facts.pairs[0].tension.value;
    const QVariant tension2 = facts.pairs[1].tension.value;
    verdict.summary = tr("%1 and %2").arg(facts.pairs[0].tension.text, facts.pairs[1].tension.text);
    verdict.announcements = {{u"notifyRibbonTensions"_s, {tension1, tension1, tension2, tension2}}};
    return verdict;
}

} // namespace

const std::array<CheckName, 5> &checkNames()
{
    static const std::array<CheckName, 5> names = {{
        {Check::Combination, u"combination"_s, u"checkRibbonSupplyCombo"_s, u"Combination"_s},
        {Check::ClearTail, u"clear-tail"_s, u"checkClearTail"_s, u"Clear tail"_s},
        {Check::EdgeSensor, u"edge-sensor"_s, u"checkSupplyEdgeSensor"_s, u"Edge sensor"_s},
        {Check::RibbonWidth, u"ribbon-width"_s, u"checkRibbonWidth"_s, u"Ribbon width"_s},
        {Check::RibbonTensions, u"tensions"_s, u"checkRibbonTensions"_s, u"Tensions"_s},
    }};
    return names;
}

const CheckName &nameOf(Check check)
{
    return checkNames().at(size_t(check));
}

Verdict judge(Check check, const Facts &facts)
{
    switch (check) {
    case Check::Combination:
        return judgeCombination(facts);
    case Check::ClearTail:
        return judgeClearTail(facts);
    case Check::EdgeSensor:
        return judgeEdgeSensor(facts);
    case Check::RibbonWidth:
        return judgeRibbonWidth(facts);
    case Check::RibbonTensions:
        return judgeRibbonTensions(facts);
    }
    return {};
}

QList<Verdict> judge(const Facts &facts)
{
    QList<Verdict> verdicts;
    for (const CheckName &name : checkNames())
        verdicts.append(judge(name.check, facts));
    return verdicts;
}

QList<Verdict> installedVerdicts(ZrSupplyDatabase &library)
{
    return judge(gatherInstalled(library));
}

QStringList ribbonsThatSuit(ZrSupplyDatabase &library, const RollFacts &roll, qsizetype mostFound,
                            qsizetype mostTried)
{
    QStringList found;
    Facts facts;
    facts.roll = roll;
    const QStringList all = library.supplyRibbonSKUList();
    for (const QString &sku : all.mid(0, mostTried)) {
        if (found.size() >= mostFound)
            break;
        if (supply::isSpecialRibbon(sku))
            continue;
        facts.ribbons.fill(gatherRibbon(library, sku));
        facts.pairs.fill(gatherPair(library, facts.ribbons[0], roll));
        if (judgeCombination(facts).good)
            found.append(sku);
    }
    return found;
}

QStringList ribbonsThatSuit(ZrSupplyDatabase &library, const QString &rollSku, qsizetype mostFound,
                            qsizetype mostTried)
{
    return ribbonsThatSuit(library, gatherRoll(library, rollSku), mostFound, mostTried);
}

} // namespace ZrSupplyKit
