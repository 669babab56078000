// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "cataloguesql_p.h"
#include "rounding_p.h"
#include "sqltext_p.h"
#include "supplyconstants_p.h"

#include <cmath>

using namespace supply;

namespace {

constexpr int wideSeparatorFormat = 3;
constexpr int quokkaFormat = 39;
constexpr int quokkaMaterial = 1;
constexpr int firstQuokkaRangeFormat = 41;
constexpr int lastQuokkaRangeFormat = 54;
constexpr int quokkaRangeMaterial = 18;
constexpr int ibexMarlinFormat = 40;

bool isModel(const QString &printerName, QLatin1StringView model)
{
    return printerName.contains(model, Qt::CaseInsensitive);
}

/// The labels that a Quokka takes for special when their separator is narrow.
bool isQuokkaLabel(int format, int material)
{
    return (format == quokkaFormat && material == quokkaMaterial) ||
           (format >= firstQuokkaRangeFormat && format <= lastQuokkaRangeFormat && material == quokkaRangeMaterial);
}

} // namespace

int ZrSupplyDatabase::supplyTypeIndex(QString sku, QString printerName)
{
    if (sku.isEmpty())
        return unsetInt;
    if (std::abs(supplyNonContinuousLength(sku)) <= noLabelLengthInches)
        return continuousType;
    if (m_supplyTagRevision >= ownTypeRevision)
        return m_supplyTypeIndex;
    if (isUnknownSupply(sku)) {
        return m_supplyTypeIndex <= dieCutType ? m_supplyTypeIndex
                                               : supplyGetTypeSpecialCase(sku, m_supplyTypeIndex, printerName);
    }
    // Deliberate: the argument has served for the label length; from here on the installed roll decides.
    return supplyGetTypeSpecialCase(m_supplySKU, supplyFormatFromTable(m_supplySKU), printerName);
}

int ZrSupplyDatabase::supplyGetTypeSpecialCase(QString sku, int format, QString printerName)
{
    if (format == wideSeparatorFormat)
        return supplySeparatorWidth(sku) > wideSeparatorInches ? wideSeparatorType : specialDieCutType;

    const int material = supplyMaterial(sku);
    if (isModel(printerName, "quokka"_L1)) {
        if (isQuokkaLabel(format, material))
            return supplySeparatorWidth(sku) < narrowSeparatorInches ? specialDieCutType : dieCutType;
    } else if (isModel(printerName, "ibex"_L1) || isModel(printerName, "marlin"_L1)) {
        if (format == ibexMarlinFormat)
            return specialDieCutType;
    }
    return format == unsetInt || material == unsetInt ? unsetInt : dieCutType;
}

int ZrSupplyDatabase::supplyFormatFromTable(QString sku)
{
    constexpr int withoutRow = 1;
    return toInt(getSingleVariantByQuery(sql::filled(sql::rollFormat, sku), withoutRow));
}

int ZrSupplyDatabase::supplyFormat(QString sku)
{
    if (!answersFromTag(sku) && m_supplyTagRevision <= 0) {
        const double stripeWidth = getSingleVariantByQuery(sql::filled(sql::stripeWidth, sku), unsetInt).toReal();
        return stripeWidth > 0.0 ? stripedFormat : supplyFormatFromTable(sku);
    }
    return m_supplyTagRevision == 1 ? m_supplyFormatRev1 : m_supplyFormat;
}

QString ZrSupplyDatabase::supplyFormatName(QString sku)
{
    const int format = supplyFormat(sku.isEmpty() ? m_supplySKU : sku);
    const QString text = sql::filled(sql::formatName, QString::number(format), QString::number(m_languageId));
    return getSingleVariantByQuery(text, QString()).toString();
}

QString ZrSupplyDatabase::supplyFormatType(QString sku)
{
    const int format = supplyFormat(sku.isEmpty() ? m_supplySKU : sku);
    return getSingleVariantByQuery(sql::filled(sql::formatType, QString::number(format)), QString()).toString();
}

double ZrSupplyDatabase::supplyLength(QString sku)
{
    if (answersFromTag(sku))
        return m_supplyCachedLength;

    const int count = getSupplyLength(sku);
    const double labelLength = supplyNonContinuousLength(sku);
    if (labelLength == 0.0)
        return feetToInches(count);
    // Deliberate: the type is asked for each of the two, as every question costs its queries.
    if (supplyTypeIndex(sku, QString()) == specialDieCutType || supplyTypeIndex(sku, QString()) == wideSeparatorType)
        return feetToInches(count);
    if (!(labelLength > 0.0))
        return unsetReal;

    const double label = supplyNonContinuousLength(sku);
    const double separator = supplySeparatorWidth(sku);
    if (roundsTo(label, unsetInt) || roundsTo(separator, unsetInt))
        return unsetReal;
    // Deliberate: die-cut media count labels, not feet.
    return (label + separator) * count;
}

QStringList ZrSupplyDatabase::supplySKUList()
{
    return textColumn(sql::rollSkus);
}
