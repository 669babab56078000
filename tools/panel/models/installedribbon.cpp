// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/installedribbon.h"

#include "models/installedroll.h"
#include "models/remaining.h"

#include "supplies/installed.h"
#include "text/units.h"
#include <zrsupplydatabase.h>

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A print parameter of the ribbon's panels on the installed roll: "104", "104 and 98".
QString parameterText(const QVariantList &values, int panels)
{
    QStringList texts;
    for (const QVariant &value : values.mid(0, std::clamp(panels, 1, 2)))
        texts.append(ZrSupplyKit::numberText(value.toInt(), InstalledRibbon::tr("none")));
    texts.removeDuplicates();
    return texts.join(u" · "_s);
}

} // namespace

QString ribbonName(ZrSupplyDatabase &library, const QString &sku)
{
    if (ZrSupplyKit::isSpecialRibbon(sku))
        return InstalledRibbon::tr("Special ribbon");
    QStringList words = library.supplyRibbonColorNames(sku);
    words.removeAll(QString());
    const QString colours = words.join(u" + "_s);
    return QStringList({colours, library.supplyRibbonType(sku)}).join(u' ').trimmed();
}

QString ribbonDescription(ZrSupplyDatabase &library, const QString &sku)
{
    QStringList parts;
    if (const double width = library.supplyRibbonWidth(sku); width > 0.0)
        parts.append(InstalledRibbon::tr("%1 wide").arg(ZrSupplyKit::inchText(width)));
    if (const int panels = library.supplyRibbonPanels(sku); panels > 1)
        parts.append(InstalledRibbon::tr("%1 panels").arg(panels));
    return parts.join(", "_L1);
}

InstalledRibbon::InstalledRibbon(int station, QObject *parent)
    : QObject(parent)
    , m_station(station)
{
}

void InstalledRibbon::refresh(ZrSupplyDatabase &library)
{
    m_sku = library.supplyRibbonSKUs().value(m_station - 1, unsetString);
    m_installed = m_sku != unsetString;
    m_title = m_installed ? ribbonName(library, m_sku) : tr("No ribbon");
    if (m_title.isEmpty())
        m_title = tr("Unnamed ribbon");
    m_description = m_installed ? ribbonDescription(library, m_sku) : tr("Load one for this station");
    m_widthShare =
        m_installed ? std::clamp(library.supplyRibbonWidth(m_sku) / RollGeometry::commonInches, 0.0, 1.0) : 0.0;
    m_panelColors.clear();
    const int panels = m_installed ? std::max(library.supplyRibbonPanels(m_sku), 0) : 0;
    for (int panel = 1; panel <= panels; ++panel)
        m_panelColors.append(colorOf(library.supplyRibbonColorRGB(m_sku, panel)));
    m_fullMileage = m_installed ? fullMileageOf(library, library.ribbonTagLength()) : 0;
    refreshFacts(library);
    Q_EMIT changed();
}

void InstalledRibbon::refreshFraction(ZrSupplyDatabase &library, int mileage)
{
    m_mileage = mileage;
    m_fraction = m_station == 1 ? library.supplyRibbon1Percent() : library.supplyRibbon2Percent();
    Q_EMIT fractionChanged();
}

void InstalledRibbon::refreshFacts(ZrSupplyDatabase &library)
{
    if (!m_installed) {
        m_facts.setRows({});
        return;
    }
    const QString roll = library.supplySKU();
    const int panels = library.supplyRibbonPanels(m_sku);
    m_facts.setRows({
        {tr("SKU"), m_sku},
        {tr("Heat"), parameterText(library.supplyRibbonHeats(m_sku, roll), panels)},
        {tr("Speed"), parameterText(library.supplyRibbonMaxSpeeds(m_sku, roll), panels)},
        {tr("Tension"), parameterText(library.supplyRibbonTensions(m_sku, roll), panels)},
    });
}

QString InstalledRibbon::remainingWord() const
{
    return Remaining(m_fraction).word();
}

QString InstalledRibbon::remainingPercent() const
{
    return Remaining(m_fraction).percent();
}

} // namespace panel
