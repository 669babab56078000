// SPDX-License-Identifier: LGPL-2.1-or-later
#include "reasons/reasons.h"
#include "text/units.h"

#include <zrsupplydatabase.h>

// The special SKUs and the thresholds are written down once, for the checks and for their reasons.
#include <supplyconstants_p.h>

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isMissing(const RibbonFacts &ribbon)
{
    return ribbon.sku == unsetString;
}

QString place(size_t index)
{
    return u"ribbon %1"_s.arg(index + 1);
}

Reading ofRibbon(Reading reading, size_t index)
{
    reading.name += u" of "_s + place(index);
    return reading;
}

bool isNarrow(const RibbonFacts &ribbon)
{
    return ribbon.width.value.toDouble() < supply::narrowRibbonInches;
}

bool isWide(const RollFacts &roll)
{
    return roll.width.value.toDouble() > supply::wideRollInches;
}

/// How a ribbon's width stands to the limit.
QString narrownessText(const RibbonFacts &ribbon)
{
    if (isMissing(ribbon))
        return u"a missing ribbon counts as narrow"_s;
    if (ribbon.width.value.toDouble() == supply::unsetReal)
        return u"the width of %1 is not known, which counts as narrow"_s.arg(ribbon.sku);
    const QString limit = inchText(supply::narrowRibbonInches);
    return isNarrow(ribbon) ? u"%1 is %2 wide, under %3"_s.arg(ribbon.sku, ribbon.width.text, limit)
                            : u"%1 is %2 wide, not under %3"_s.arg(ribbon.sku, ribbon.width.text, limit);
}

Finding heatFinding(const Facts &facts, size_t index)
{
    const RibbonFacts &ribbon = facts.ribbons[index];
    const int heat = facts.pairs[index].heat.value.toInt();
    Finding finding{int(index) + 1, u"heat"_s, Outcome::Passes, {}};
    if (isMissing(ribbon)) {
        finding.outcome = Outcome::NotAsked;
        finding.says = u"no ribbon, no heat to judge"_s;
    } else if (heat > 0) {
        finding.says = u"%1 prints on %2 with heat %3"_s.arg(ribbon.sku, facts.roll.materialText).arg(heat);
    } else {
        finding.outcome = Outcome::Fires;
        finding.says =
            heat == supply::unsetInt
                ? u"%1 has no heat for %2: it does not print on it"_s.arg(ribbon.sku, facts.roll.materialText)
                : u"the heat of %1 on %2 is %3, not above 0"_s.arg(ribbon.sku, facts.roll.materialText).arg(heat);
    }
    return finding;
}

Finding widthFinding(const Facts &facts, size_t index)
{
    const RibbonFacts &ribbon = facts.ribbons[index];
    Finding finding{int(index) + 1, u"width"_s, Outcome::Passes, {}};
    if (!isWide(facts.roll)) {
        finding.says = u"the roll (%1) is not over %2, so any width will do"_s.arg(facts.roll.width.text,
                                                                                   inchText(supply::wideRollInches));
    } else {
        finding.outcome = isNarrow(ribbon) ? Outcome::Fires : Outcome::Passes;
        finding.says = u"%1; the roll (%2) is over %3"_s.arg(narrownessText(ribbon), facts.roll.width.text,
                                                             inchText(supply::wideRollInches));
    }
    return finding;
}

/// What overrules the rules of a special ribbon, if it is one.
void addSpecialFinding(QList<Finding> &findings, const Facts &facts, size_t index, bool otherIsSpecial)
{
    const RibbonFacts &ribbon = facts.ribbons[index];
    if (!supply::isSpecialRibbon(ribbon.sku))
        return;
    for (Finding &finding : findings) {
        if (finding.ribbon == int(index) + 1 && finding.outcome == Outcome::Fires)
            finding.outcome = Outcome::Waived;
    }
    findings.append({int(index) + 1, u"special"_s, otherIsSpecial ? Outcome::Fires : Outcome::Passes,
                     otherIsSpecial ? u"%1 is a special ribbon, and two of them are no pair"_s.arg(ribbon.sku)
                                    : u"%1 is a special ribbon, which is not judged"_s.arg(ribbon.sku)});
}

bool objectsTo(const QList<Finding> &findings, int ribbon)
{
    return std::any_of(findings.begin(), findings.end(), [ribbon](const Finding &finding) {
        return finding.ribbon == ribbon && finding.outcome == Outcome::Fires;
    });
}

Verdict judgeCombination(const Facts &facts)
{
    Verdict verdict{Check::Combination, true, {}, {}, {}, {}};
    const bool special1 = supply::isSpecialRibbon(facts.ribbons[0].sku);
    const bool special2 = supply::isSpecialRibbon(facts.ribbons[1].sku);
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        verdict.findings += {heatFinding(facts, i), widthFinding(facts, i)};
        addSpecialFinding(verdict.findings, facts, i, i == 0 ? special2 : special1);
        verdict.readings += {ofRibbon(facts.pairs[i].heat, i), ofRibbon(facts.ribbons[i].width, i)};
    }
    verdict.readings += {facts.roll.material, facts.roll.width};

    const bool bad1 = objectsTo(verdict.findings, 1);
    const bool bad2 = objectsTo(verdict.findings, 2);
    verdict.good = !bad1 && !bad2;
    if (bad1 && bad2) {
        verdict.summary =
            special1 && special2 ? u"two special ribbons are no pair"_s : u"neither ribbon suits the roll"_s;
        verdict.announcements = {{u"alertInvalidRibbonsSupplyCombo"_s, {}}};
    } else if (bad1) {
        verdict.summary = u"ribbon 1 does not suit the roll"_s;
        verdict.announcements = {{u"alertInvalidRibbon1SupplyCombo"_s, {}}};
    } else if (bad2) {
        verdict.summary = u"ribbon 2 does not suit the roll"_s;
        verdict.announcements = {{u"alertInvalidRibbon2SupplyCombo"_s, {}}};
    } else {
        const bool none = isMissing(facts.ribbons[0]) && isMissing(facts.ribbons[1]);
        verdict.summary = none ? u"no ribbons, nothing to object to"_s : u"the ribbons suit the roll"_s;
    }
    return verdict;
}

Verdict judgeClearTail(const Facts &facts)
{
    Verdict verdict{Check::ClearTail, true, {}, {}, {}, {}};
    QStringList which;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        const RibbonFacts &ribbon = facts.ribbons[i];
        const bool clearTail = supply::needsClearTail(ribbon.sku);
        if (clearTail)
            which.append(place(i));
        verdict.findings.append({int(i) + 1, u"clear-tail"_s,
                                 isMissing(ribbon) ? Outcome::NotAsked
                                 : clearTail       ? Outcome::Fires
                                                   : Outcome::Passes,
                                 isMissing(ribbon) ? u"no ribbon"_s
                                 : clearTail       ? u"%1 is a clear-tail ribbon"_s.arg(ribbon.sku)
                                                   : u"%1 is not a clear-tail ribbon"_s.arg(ribbon.sku)});
        verdict.announcements.append({u"notifyClearTailRibbon%1"_s.arg(i + 1), {clearTail}});
    }
    verdict.summary = which.isEmpty() ? u"not needed"_s : u"needed for "_s + which.join(" and "_L1);
    return verdict;
}

Verdict judgeEdgeSensor(const Facts &facts)
{
    const int sensor = facts.roll.sensor.value.toInt();
    const bool known = sensor != supply::unsetInt;
    return {Check::EdgeSensor,
            true,
            known ? u"sensor %1"_s.arg(sensor) : u"no sensor"_s,
            {{0, u"sensor"_s, known ? Outcome::Fires : Outcome::Passes, facts.roll.sensorText}},
            {facts.roll.sensor},
            {{u"notifySupplySensor"_s, {sensor}}}};
}

Verdict judgeRibbonWidth(const Facts &facts)
{
    Verdict verdict{Check::RibbonWidth, true, {}, {}, {}, {}};
    bool narrow = false;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        const RibbonFacts &ribbon = facts.ribbons[i];
        narrow = narrow || isNarrow(ribbon);
        verdict.findings.append(
            {int(i) + 1, u"narrow"_s, isNarrow(ribbon) ? Outcome::Fires : Outcome::Passes, narrownessText(ribbon)});
        verdict.readings.append(ofRibbon(ribbon.width, i));
    }
    verdict.summary = narrow ? u"a ribbon is narrow or missing"_s : u"no ribbon is narrow"_s;
    verdict.announcements = {{u"notifySupplyWidth"_s, {narrow}}};
    return verdict;
}

Verdict judgeRibbonTensions(const Facts &facts)
{
    Verdict verdict{Check::RibbonTensions, true, {}, {}, {}, {}};
    bool both = true;
    for (size_t i = 0; i < facts.ribbons.size(); ++i) {
        const RibbonFacts &ribbon = facts.ribbons[i];
        if (isMissing(ribbon)) {
            both = false;
            verdict.findings.append({int(i) + 1, u"tension"_s, Outcome::NotAsked, u"no ribbon"_s});
            continue;
        }
        const Reading &tension = facts.pairs[i].tension;
        const bool known = tension.value.toInt() != supply::unsetInt;
        verdict.findings.append(
            {int(i) + 1, u"tension"_s, known ? Outcome::Fires : Outcome::Passes,
             known ? u"%1 runs on %2 with tension %3"_s.arg(ribbon.sku, facts.roll.materialText, tension.text)
                   : u"%1 has no tension for %2"_s.arg(ribbon.sku, facts.roll.materialText)});
        verdict.readings.append(ofRibbon(tension, i));
    }
    if (!both) {
        verdict.summary = u"nothing is announced without two ribbons"_s;
        return verdict;
    }
    const QVariant tension1 = facts.pairs[0].tension.value;
    const QVariant tension2 = facts.pairs[1].tension.value;
    verdict.summary = u"%1 and %2"_s.arg(facts.pairs[0].tension.text, facts.pairs[1].tension.text);
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

} // namespace zrsupply
