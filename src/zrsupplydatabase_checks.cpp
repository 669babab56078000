// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguesql_p.h"
#include "rounding_p.h"
#include "sqltext_p.h"
#include "supplyconstants_p.h"

using namespace supply;

namespace {

/// The SKU at `index`, "-1" where there is none; further entries are not looked at.
QString ribbonAt(const QStringList &ribbonSkus, qsizetype index)
{
    return ribbonSkus.value(index, unsetString);
}

/// Deliberate: a missing ribbon, whose width lookup answers -1.0, is narrow.
bool isNarrowRibbon(double widthInches)
{
    return widthInches < narrowRibbonInches;
}

} // namespace

void ZrSupplyDatabase::checkRibbonSupplyCombo()
{
    const QString ribbon1 = ribbonAt(m_supplyRibbonSKUs, 0);
    const QString ribbon2 = ribbonAt(m_supplyRibbonSKUs, 1);
    const int heat1 = supplyRibbonHeat(ribbon1, firstPanel, m_supplySKU);
    const int heat2 = supplyRibbonHeat(ribbon2, firstPanel, m_supplySKU);
    const double width1 = supplyRibbonWidth(ribbon1);
    const double width2 = supplyRibbonWidth(ribbon2);
    const bool wideRoll = supplyWidth(m_supplySKU) > wideRollInches;

    const bool bad1 = (ribbon1 != unsetString && heat1 <= 0) || (wideRoll && isNarrowRibbon(width1));
    const bool bad2 = (ribbon2 != unsetString && heat2 <= 0) || (wideRoll && isNarrowRibbon(width2));

    // Deliberate: a special ribbon clears itself in either place, but two of them together are an invalid pair.
    const bool special1 = isSpecialRibbon(ribbon1);
    const bool special2 = isSpecialRibbon(ribbon2);
    const bool alert1 = special1 ? special2 : bad1;
    const bool alert2 = special2 ? special1 : bad2;

    if (alert1 && alert2)
        Q_EMIT alertInvalidRibbonsSupplyCombo();
    else if (alert1)
        Q_EMIT alertInvalidRibbon1SupplyCombo();
    else if (alert2)
        Q_EMIT alertInvalidRibbon2SupplyCombo();
}

void ZrSupplyDatabase::checkClearTail()
{
    const bool clearTail1 = needsClearTail(ribbonAt(m_supplyRibbonSKUs, 0));
    const bool clearTail2 = needsClearTail(ribbonAt(m_supplyRibbonSKUs, 1));
    Q_EMIT notifyClearTailRibbon1(clearTail1);
    Q_EMIT notifyClearTailRibbon2(clearTail2);
}

void ZrSupplyDatabase::checkSupplyEdgeSensor()
{
    Q_EMIT notifySupplySensor(toInt(getSingleVariantByQuery(sql::filled(sql::rollSensor, m_supplySKU), unsetInt)));
}

void ZrSupplyDatabase::checkRibbonWidth()
{
    const double width1 = supplyRibbonWidth(ribbonAt(m_supplyRibbonSKUs, 0));
    const double width2 = supplyRibbonWidth(ribbonAt(m_supplyRibbonSKUs, 1));
    Q_EMIT notifySupplyWidth(isNarrowRibbon(width1) || isNarrowRibbon(width2));
}

void ZrSupplyDatabase::checkRibbonTensions()
{
    const QString ribbon1 = ribbonAt(m_supplyRibbonSKUs, 0);
    const QString ribbon2 = ribbonAt(m_supplyRibbonSKUs, 1);
    if (ribbon1 == unsetString || ribbon2 == unsetString)
        return;
    // Deliberate: each tension is looked up twice, as the interface promises four lookups.
    const int tension1 = supplyRibbonTension(ribbon1, firstPanel, m_supplySKU);
    const int tension2 = supplyRibbonTension(ribbon1, firstPanel, m_supplySKU);
    const int tension3 = supplyRibbonTension(ribbon2, firstPanel, m_supplySKU);
    const int tension4 = supplyRibbonTension(ribbon2, firstPanel, m_supplySKU);
    Q_EMIT notifyRibbonTensions(tension1, tension2, tension3, tension4);
}
