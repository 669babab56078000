// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguesql_p.h"
#include "combinationrule_p.h"
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

} // namespace

void ZrSupplyDatabase::checkRibbonSupplyCombo()
{
    const QString ribbon1 = ribbonAt(m_supplyRibbonSKUs, 0);
    const QString ribbon2 = ribbonAt(m_supplyRibbonSKUs, 1);
    const int heat1 = supplyRibbonHeat(ribbon1, firstPanel, m_supplySKU);
    const int heat2 = supplyRibbonHeat(ribbon2, firstPanel, m_supplySKU);
    const double width1 = supplyRibbonWidth(ribbon1);
    const double width2 = supplyRibbonWidth(ribbon2);
    const double rollWidth = supplyWidth(m_supplySKU);

    const auto objections =
        combinationObjections({{{ribbon1 == unsetString, isSpecialRibbon(ribbon1), heat1, width1},
                                {ribbon2 == unsetString, isSpecialRibbon(ribbon2), heat2, width2}}},
                              rollWidth);
    const bool alert1 = objections[0].isBad();
    const bool alert2 = objections[1].isBad();
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
