// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplies/installed.h"

#include "session/literal.h"
#include "text/units.h"

#include <zrsupplydatabase.h>

#include <algorithm>
#include <cmath>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int barColumns = 20;

/// A fraction as the library keeps it, -1 unknown.
bool isKnown(double fraction)
{
    return fraction != -1.0;
}

Cell barCell(double fraction)
{
    return {fraction, barText(fraction), {}};
}

/// Colours come as decimal texts, "-1" unknown.
Cell rgbCell(const QString &rgb, const QString &name)
{
    Cell cell = colorCell(rgb.toInt(), name, u"not known"_s);
    cell.value = rgb;
    return cell;
}

void addRoll(Answer &answer, ZrSupplyDatabase &library)
{
    const QString sku = library.supplySKU();
    answer.beginGroup(u"Roll"_s, u"roll"_s);
    answer.add(u"sku"_s, u"SKU"_s, textCell(sku));
    if (sku != unsetString) {
        answer.add(u"is"_s, u"Is"_s, textCell(rollText(library)));
        answer.addJson(u"supplyId"_s, library.supplyId());
    }
    answer.add(u"remaining"_s, u"Remaining"_s, barCell(library.supplySupplyPercent()));
    answer.add(u"rgb"_s, u"Colour"_s, rgbCell(library.supplySupplyRGB(), library.supplyColorName(QString())));
}

void addRibbon(Answer &answer, ZrSupplyDatabase &library, qsizetype index, double fraction, const QStringList &rgbs)
{
    const QString sku = library.supplyRibbonSKUs().value(index, unsetString);
    answer.beginGroup(u"Ribbon %1"_s.arg(index + 1), u"ribbon%1"_s.arg(index + 1));
    answer.add(u"sku"_s, u"SKU"_s, textCell(sku));
    if (sku != unsetString)
        answer.add(u"is"_s, u"Is"_s, textCell(ribbonText(library, sku)));
    answer.add(u"remaining"_s, u"Remaining"_s, barCell(fraction));
    answer.addJson(u"rgbs"_s, QJsonArray::fromStringList(rgbs));
    const int panels = std::clamp(library.supplyRibbonPanels(sku), 1, 2);
    for (int panel = 1; panel <= panels; ++panel) {
        answer.add({}, panels == 1 ? u"Colour"_s : u"Panel %1"_s.arg(panel),
                   rgbCell(rgbs.value(panel - 1, unsetString), library.supplyRibbonColorName(sku, panel)));
    }
}

} // namespace

QString barText(double fraction)
{
    if (!isKnown(fraction) || std::isnan(fraction))
        return QString(barColumns, u'·') + u"  not known"_s;
    const int full = int(std::lround(std::clamp(fraction, 0.0, 1.0) * barColumns));
    return QString(full, u'█') + QString(barColumns - full, u'░') + u"  %1 %"_s.arg(fraction * 100, 0, 'f', 1);
}

QString rollText(ZrSupplyDatabase &library)
{
    return rollText(library, library.supplySKU());
}

QString rollText(ZrSupplyDatabase &library, const QString &sku)
{
    const QString what = QStringList{library.supplyColorName(sku), library.supplyMaterialName(sku)}.join(u' ');
    const double labelLength = library.supplyNonContinuousLength(sku);
    QStringList parts = {what.trimmed()};
    parts.append(inchText(library.supplyWidth(sku)) + u" wide"_s);
    if (labelLength > 0.0)
        parts.append(u"labels of "_s + inchText(labelLength));
    if (library.supplySecColorWidth(sku) > 0.0)
        parts.append(
            u"%1 stripe of %2"_s.arg(library.supplySecColorName(sku), inchText(library.supplySecColorWidth(sku))));
    parts.removeAll(QString());
    return parts.join(", "_L1);
}

QString ribbonText(ZrSupplyDatabase &library, const QString &sku)
{
    const int panels = library.supplyRibbonPanels(sku);
    if (panels == -1)
        return u"in no catalogue"_s;
    QStringList colours = library.supplyRibbonColorNames(sku);
    colours.removeAll(QString());
    const QString what = QStringList{colours.join(" and "_L1), library.supplyRibbonType(sku)}.join(u' ').trimmed();
    QStringList parts = {what.isEmpty() ? u"special ribbon"_s : what,
                         inchText(library.supplyRibbonWidth(sku)) + u" wide"_s};
    if (panels > 1)
        parts.append(u"%1 panels"_s.arg(panels));
    return parts.join(", "_L1);
}

QString verdictText(const Verdict &verdict)
{
    QStringList reasons;
    for (const Finding &finding : verdict.findings) {
        if (finding.outcome == Outcome::Fires && !verdict.good && !reasons.contains(finding.says))
            reasons.append(finding.says);
    }
    return reasons.isEmpty() ? verdict.summary : verdict.summary + u": "_s + reasons.join("; "_L1);
}

QString announcementText(const Verdict &verdict)
{
    QStringList texts;
    for (const Announcement &announcement : verdict.announcements)
        texts.append(announcement.signal + literals(announcement.arguments));
    return texts.isEmpty() ? u"silence"_s : texts.join(", "_L1);
}

Answer installedAnswer(ZrSupplyDatabase &library)
{
    Answer answer;
    addRoll(answer, library);
    addRibbon(answer, library, 0, library.supplyRibbon1Percent(), library.supplyRibbon1RGBs());
    addRibbon(answer, library, 1, library.supplyRibbon2Percent(), library.supplyRibbon2RGBs());
    answer.beginGroup(u"Verdicts"_s, u"verdicts"_s);
    for (const Verdict &verdict : judge(gatherInstalled(library))) {
        const CheckName &name = nameOf(verdict.check);
        answer.add(name.word, name.title, textCell(verdictText(verdict)));
    }
    return answer;
}

} // namespace zrsupply
