// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "cataloguesql_p.h"
#include "rounding_p.h"
#include "sqltext_p.h"
#include "supplyconstants_p.h"

#include <array>

using namespace supply;

enum class ZrSupplyDatabase::PrintParameter { Heat, HeatOffset, MaxSpeed, Tension };

namespace {

/// By print parameter, in the order of its enumeration.
constexpr std::array printParameterStatements = {
    sql::ribbonHeat,
    sql::ribbonHeatOffset,
    sql::ribbonMaxSpeed,
    sql::ribbonTension,
};

/// One ribbon's list. Deliberate: panels 1 and 2 and no other, however many the ribbon has.
template <typename List, typename OfPanel>
List ofBothPanels(OfPanel ofPanel)
{
    return List{ofPanel(firstPanel), ofPanel(secondPanel)};
}

/// Several ribbons' list: the entries of each in turn, flat, so that a ribbon's place follows from its position.
template <typename List, typename OfRibbon>
List ofEachRibbon(const QStringList &ribbonSkus, OfRibbon ofRibbon)
{
    List all;
    for (const QString &ribbonSku : ribbonSkus)
        all += ofRibbon(ribbonSku);
    return all;
}

} // namespace

// Geometry, type and panels

int ZrSupplyDatabase::supplyRibbonPanels(QString ribbonSku)
{
    return toInt(getSingleVariantByQuery(sql::filled(sql::ribbonPanels, ribbonSku), unsetInt));
}

double ZrSupplyDatabase::supplyRibbonWidth(QString ribbonSku)
{
    return getSingleVariantByQuery(sql::filled(sql::ribbonWidth, ribbonSku), unsetInt).toReal();
}

double ZrSupplyDatabase::supplyRibbonLength(QString ribbonSku)
{
    return getSingleVariantByQuery(sql::filled(sql::ribbonLength, ribbonSku), unsetInt).toReal();
}

QString ZrSupplyDatabase::supplyRibbonType(QString sku)
{
    const QString text = sql::filled(sql::ribbonType, sku).arg(m_languageId);
    return getSingleVariantByQuery(text, QString()).toString();
}

QString ZrSupplyDatabase::supplyRibbonColorName(QString ribbonSku, int panel)
{
    if (isSpecialRibbon(ribbonSku))
        return QString();
    const QString text = sql::filled(sql::ribbonPanelColorName, ribbonSku, QString::number(panel)).arg(m_languageId);
    return getSingleVariantByQuery(text, QString()).toString();
}

int ZrSupplyDatabase::supplyRibbonColorRGB(QString ribbonSku, int panel)
{
    if (isSpecialRibbon(ribbonSku))
        return unsetInt;
    const QString text = sql::filled(sql::ribbonPanelRgb, ribbonSku, QString::number(panel));
    return toInt(getSingleVariantByQuery(text, unsetInt));
}

// Print parameters: one body for a panel, one for a ribbon, one for several

int ZrSupplyDatabase::panelParameter(PrintParameter parameter, const QString &ribbonSku, int panel,
                                     const QString &supplySku)
{
    if (isSpecialRibbon(ribbonSku))
        return unsetInt;
    const int material = supplyMaterial(supplySku);
    if (material == unsetInt)
        return unsetInt;
    const QLatin1StringView statement = printParameterStatements[size_t(parameter)];
    const QString text = sql::filled(statement, ribbonSku, QString::number(panel), QString::number(material));
    return toInt(getSingleVariantByQuery(text, unsetInt));
}

QVariantList ZrSupplyDatabase::ribbonParameters(PrintParameter parameter, const QString &ribbonSku,
                                                const QString &supplySku)
{
    return ofBothPanels<QVariantList>(
        [&](int panel) { return panelParameter(parameter, ribbonSku, panel, supplySku); });
}

QVariantList ZrSupplyDatabase::ribbonsParameters(PrintParameter parameter, const QStringList &ribbonSkus,
                                                 const QString &supplySku)
{
    return ofEachRibbon<QVariantList>(
        ribbonSkus, [&](const QString &ribbonSku) { return ribbonParameters(parameter, ribbonSku, supplySku); });
}

int ZrSupplyDatabase::supplyRibbonHeat(QString ribbonSku, int panel, QString supplySku)
{
    return panelParameter(PrintParameter::Heat, ribbonSku, panel, supplySku);
}

int ZrSupplyDatabase::supplyRibbonHeatOffset(QString ribbonSku, int panel, QString supplySku)
{
    return panelParameter(PrintParameter::HeatOffset, ribbonSku, panel, supplySku);
}

int ZrSupplyDatabase::supplyRibbonMaxSpeed(QString ribbonSku, int panel, QString supplySku)
{
    return panelParameter(PrintParameter::MaxSpeed, ribbonSku, panel, supplySku);
}

int ZrSupplyDatabase::supplyRibbonTension(QString ribbonSku, int panel, QString supplySku)
{
    return panelParameter(PrintParameter::Tension, ribbonSku, panel, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonHeats(QString ribbonSku, QString supplySku)
{
    return ribbonParameters(PrintParameter::Heat, ribbonSku, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonHeatOffsets(QString ribbonSku, QString supplySku)
{
    return ribbonParameters(PrintParameter::HeatOffset, ribbonSku, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonMaxSpeeds(QString ribbonSku, QString supplySku)
{
    return ribbonParameters(PrintParameter::MaxSpeed, ribbonSku, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonTensions(QString ribbonSku, QString supplySku)
{
    return ribbonParameters(PrintParameter::Tension, ribbonSku, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonsHeats(QStringList ribbonSkus, QString supplySku)
{
    return ribbonsParameters(PrintParameter::Heat, ribbonSkus, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonsHeatOffsets(QStringList ribbonSkus, QString supplySku)
{
    return ribbonsParameters(PrintParameter::HeatOffset, ribbonSkus, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonsMaxSpeeds(QStringList ribbonSkus, QString supplySku)
{
    return ribbonsParameters(PrintParameter::MaxSpeed, ribbonSkus, supplySku);
}

QVariantList ZrSupplyDatabase::supplyRibbonsTensions(QStringList ribbonSkus, QString supplySku)
{
    return ribbonsParameters(PrintParameter::Tension, ribbonSkus, supplySku);
}

// Colour and type lists

QStringList ZrSupplyDatabase::supplyRibbonColorNames(QString ribbonSku)
{
    return ofBothPanels<QStringList>([&](int panel) { return supplyRibbonColorName(ribbonSku, panel); });
}

QVariantList ZrSupplyDatabase::supplyRibbonColorRGBs(QString ribbonSku)
{
    return ofBothPanels<QVariantList>([&](int panel) { return supplyRibbonColorRGB(ribbonSku, panel); });
}

QStringList ZrSupplyDatabase::supplyRibbonsColorNames(QStringList ribbonSkus)
{
    return ofEachRibbon<QStringList>(ribbonSkus,
                                     [this](const QString &ribbonSku) { return supplyRibbonColorNames(ribbonSku); });
}

QVariantList ZrSupplyDatabase::supplyRibbonsColorRGBs(QStringList ribbonSkus)
{
    return ofEachRibbon<QVariantList>(ribbonSkus,
                                      [this](const QString &ribbonSku) { return supplyRibbonColorRGBs(ribbonSku); });
}

QStringList ZrSupplyDatabase::supplyRibbonTypes(QStringList ribbonSkus)
{
    return ofEachRibbon<QStringList>(ribbonSkus,
                                     [this](const QString &ribbonSku) { return supplyRibbonType(ribbonSku); });
}

// Catalogue lists

QStringList ZrSupplyDatabase::supplyRibbonSKUList()
{
    return textColumn(sql::ribbonSkus);
}

QVariantHash ZrSupplyDatabase::supplyRibbonColorHash()
{
    return colorTable(sql::ribbonColorTable);
}
