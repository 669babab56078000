// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplies/installed.h"

#include "session/literal.h"
#include "text/units.h"

#include <supplyconstants_p.h>
#include <zrsupplydatabase.h>

#include <QtCore/QJsonArray>

#include <algorithm>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

InstalledSupply roll(ZrSupplyDatabase &library)
{
    const QString sku = library.supplySKU();
    return {sku,
            sku == unsetString ? QString() : rollText(library),
            library.supplySupplyPercent(),
            {library.supplySupplyRGB()},
            {library.supplyColorName(QString())}};
}

InstalledSupply ribbon(ZrSupplyDatabase &library, qsizetype index, double fraction, const QStringList &rgbs)
{
    const QString sku = library.supplyRibbonSKUs().value(index, unsetString);
    InstalledSupply supply{sku, sku == unsetString ? QString() : ribbonText(library, sku), fraction, rgbs};
    const int panels = std::clamp(library.supplyRibbonPanels(sku), 1, 2);
    for (int panel = 1; panel <= panels; ++panel)
        supply.colorNames.append(library.supplyRibbonColorName(sku, panel));
    return supply;
}

QJsonObject supplyJson(const InstalledSupply &supply)
{
    QJsonObject object{{u"sku"_s, supply.sku}, {u"remaining"_s, supply.remainingFraction}};
    if (supply.sku != unsetString)
        object.insert(u"is"_s, supply.description);
    return object;
}

} // namespace

bool isUnknownRoll(const QString &sku)
{
    return supply::isUnknownSupply(sku);
}

bool answersFromTag(const QString &sku)
{
    return supply::answersFromTag(sku);
}

bool isSpecialRibbon(const QString &sku)
{
    return supply::isSpecialRibbon(sku);
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

Installed installedSupplies(ZrSupplyDatabase &library)
{
    return {roll(library),
            library.supplyId(),
            {ribbon(library, 0, library.supplyRibbon1Percent(), library.supplyRibbon1RGBs()),
             ribbon(library, 1, library.supplyRibbon2Percent(), library.supplyRibbon2RGBs())},
            installedVerdicts(library)};
}

QJsonObject toJson(const Installed &installed)
{
    QJsonObject object;
    QJsonObject roll = supplyJson(installed.roll);
    roll.insert(u"rgb"_s, installed.roll.rgbs.value(0));
    if (installed.roll.sku != unsetString)
        roll.insert(u"supplyId"_s, installed.supplyId);
    object.insert(u"roll"_s, roll);
    for (size_t i = 0; i < installed.ribbons.size(); ++i) {
        QJsonObject ribbon = supplyJson(installed.ribbons[i]);
        ribbon.insert(u"rgbs"_s, QJsonArray::fromStringList(installed.ribbons[i].rgbs));
        object.insert(u"ribbon%1"_s.arg(i + 1), ribbon);
    }
    QJsonObject verdicts;
    for (const Verdict &verdict : installed.verdicts)
        verdicts.insert(nameOf(verdict.check).word, verdictText(verdict));
    object.insert(u"verdicts"_s, verdicts);
    return object;
}

} // namespace ZrSupplyKit
