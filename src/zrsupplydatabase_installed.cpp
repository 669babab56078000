// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "cataloguesql_p.h"
#include "rounding_p.h"
#include "sqltext_p.h"
#include "supplyconstants_p.h"
#include "tag/supplyc.h"

#include <QtSql/QSqlRecord>

using namespace supply;

namespace {

/// 1.0 is a full supply. Deliberate: not the formula of mileageToPercentage(), whose mileage has the opposite sign,
/// and neither clamped nor refused for a length that cannot be, as long as it does not round to "unset" or "nothing".
double remainingFraction(int mileageMm, double tagLengthInches, double lengthInches)
{
    if (mileageMm == unsetInt || roundsTo(lengthInches, 0) || roundsTo(lengthInches, unsetInt))
        return unsetReal;
    return (mileageMm * inchesPerMm - tagLengthInches + lengthInches) / lengthInches;
}

double inchesOf(int inches, int sixteenths)
{
    return sixteenths * inchesPerSixteenth + inches;
}

/// Gaps are carried as one less than their sixteenths.
double inchesOfGap(int code)
{
    return (code + 1) * inchesPerSixteenth;
}

} // namespace

/// What belongs to one ribbon: its place in the lists, its members and its signals.
struct ZrSupplyDatabase::RibbonSlot
{
    qsizetype index;
    double ZrSupplyDatabase::*length;
    int ZrSupplyDatabase::*mileage;
    double ZrSupplyDatabase::*percent;
    QStringList ZrSupplyDatabase::*rgbs;
    QString ZrSupplyDatabase::*type;
    void (ZrSupplyDatabase::*percentChanged)(double);
    void (ZrSupplyDatabase::*rgbsChanged)(QStringList);
    void (ZrSupplyDatabase::*typeChanged)(QString);
};

const ZrSupplyDatabase::RibbonSlot ZrSupplyDatabase::ribbonSlots[] = {
    {
        0,
        &ZrSupplyDatabase::m_ribbon1Length,
        &ZrSupplyDatabase::m_ribbon1Mileage,
        &ZrSupplyDatabase::m_supplyRibbon1Percent,
        &ZrSupplyDatabase::m_supplyRibbon1RGBs,
        &ZrSupplyDatabase::m_ribbon1Type,
        &ZrSupplyDatabase::ribbon1PercentChanged,
        &ZrSupplyDatabase::ribbon1RGBsChanged,
        &ZrSupplyDatabase::ribbon1TypeChanged,
    },
    {
        1,
        &ZrSupplyDatabase::m_ribbon2Length,
        &ZrSupplyDatabase::m_ribbon2Mileage,
        &ZrSupplyDatabase::m_supplyRibbon2Percent,
        &ZrSupplyDatabase::m_supplyRibbon2RGBs,
        &ZrSupplyDatabase::m_ribbon2Type,
        &ZrSupplyDatabase::ribbon2PercentChanged,
        &ZrSupplyDatabase::ribbon2RGBsChanged,
        &ZrSupplyDatabase::ribbon2TypeChanged,
    },
};

// The roll

void ZrSupplyDatabase::setSupplyId(QString supplyId)
{
    updateSupplyId(supplyId);
    checkSupplyEdgeSensor();
}

void ZrSupplyDatabase::updateSupplyId(QString supplyId)
{
    if (supplyId == unsetString) {
        init();
        Q_EMIT supplyChangedSignal(m_supplySKU);
    } else {
        updateCachedSupplyCData(supplyId.left(tagDigits));
        // Deliberate: a tag that carries its own type leaves the SKU as it was and announces none.
        if (m_supplyTagRevision < ownTypeRevision) {
            const QString sku = getSkuFromSupplyId(supplyId.left(supplyIdDigits));
            m_supplySKU = sku.isEmpty() ? QString(unknownSupply) : sku;
            Q_EMIT supplyChangedSignal(m_supplySKU);
        }
        m_supplyId = supplyId;
    }
    updateSupplyLength();
    updateSupplyRGB();
}

void ZrSupplyDatabase::updateCachedSupplyCData(QString trimmedId)
{
    const SupplyC tag(trimmedId);

    m_supplyTagLength = tag.mileageBaseFeet;
    m_supplyTagFlagBit9 = tag.tagFlagBit9;
    m_supplySwiftLift = tag.swiftLift;
    m_supplySecColorWidth = inchesOf(tag.secColorWidthInches, tag.secColorWidthSixteenths);
    m_supplySecColorRGB = getSecColorRGBFromEnum(tag.secColorEnum);
    m_supplySecColorName = getSecColorNameFromEnum(tag.secColorEnum, false);
    m_supplySecColorNameEn = getSecColorNameFromEnum(tag.secColorEnum, true);
    m_supplyTagFlagBit25 = tag.tagFlagBit25;
    m_supplyLengthFeet = tag.lengthFeet;
    m_supplyCachedLength = feetToInches(tag.lengthFeet);
    m_supplyMaterial = tag.materialEnum;
    m_supplyMaterialName = getMaterialNameFromEnum(tag.materialEnum);
    m_supplyFormat = tag.formatEnum;
    m_supplyFormatName = getFormatNameFromEnum(tag.formatEnum);
    m_supplyColorRGB = getColorRGBFromEnum(tag.colorEnum);
    m_supplyColorName = getColorNameFromEnum(tag.colorEnum, false);
    m_supplyColorNameEn = getColorNameFromEnum(tag.colorEnum, true);
    m_supplyWidth = inchesOf(tag.widthInches, tag.widthSixteenths);
    m_supplyTagRevision = tag.tagRevision;
    m_supplyTagFlagBit72 = tag.tagFlagBit72;
    m_supplyTagFlagBit73 = tag.tagFlagBit73;
    m_supplyFormatRev1 = tag.formatEnumRev1;
    m_supplyMultiUpCount = tag.multiUpCountCode + 1;
    m_supplyMultiUpGapSize = inchesOfGap(tag.multiUpGapCode);
    m_supplyTypeIndex = tag.typeIndex;
    m_supplyIsLandscape = tag.tagFlagBit11;
    m_supplySeparatorWidth = inchesOfGap(tag.separatorWidthCode);
    m_supplyNonContinuousLength = inchesOf(tag.nonContinuousLengthInches, tag.nonContinuousLengthSixteenths);
}

QString ZrSupplyDatabase::getSkuFromSupplyId(QString supplyId)
{
    return getSingleVariantByQuery(sql::filled(sql::skuBySupplyId, supplyId), QString()).toString();
}

bool ZrSupplyDatabase::isSupplyIdShared()
{
    const QSqlDatabase catalogue = catalogueConnection();
    if (!catalogue.isOpen())
        return false;
    const QSqlQuery query(sql::filled(sql::countBySupplyId, m_supplyId), catalogue);
    // Deliberate: the column's position, which is 0, not the count; hosts know the answer as always false.
    return query.record().indexOf("CNT"_L1) > 1;
}

void ZrSupplyDatabase::updateSupplyLength()
{
    // Deliberate: without a SKU, so that the length is the tag's also for a roll that the catalogue knows.
    m_supplyLength = supplyLength(QString());
    updateSupplyPercent();
}

void ZrSupplyDatabase::setSupplyMileage(int mileage)
{
    m_supplyMileage = mileage;
    updateSupplyPercent();
}

void ZrSupplyDatabase::updateSupplyMileage(int mileage)
{
    setSupplyMileage(mileage);
}

void ZrSupplyDatabase::updateSupplyPercent()
{
    m_supplySupplyPercent = remainingFraction(m_supplyMileage, supplyTagLength(), m_supplyLength);
    Q_EMIT supplyPercentChanged(m_supplySupplyPercent);
}

void ZrSupplyDatabase::updateSupplyRGB()
{
    m_supplySupplyRGB = QString::number(supplyColorRGB(QString()));
    Q_EMIT supplyRGBChanged(m_supplySupplyRGB);
}

// The ribbons

void ZrSupplyDatabase::setRibbonIds(QStringList ribbonIds)
{
    updateRibbonIds(ribbonIds);
}

void ZrSupplyDatabase::updateRibbonIds(QStringList ribbonIds)
{
    supplySetRibbonSKUs(getSkusFromRibbonIds(ribbonIds));
}

QList<QString> ZrSupplyDatabase::getSkusFromRibbonIds(const QList<QString> &ribbonIds)
{
    // Deliberate: one id alone makes both ribbons unknown, and an unknown ribbon is "-1", not "UnknownSupply".
    QList<QString> skus = {unsetString, unsetString};
    if (catalogueConnection().isOpen() && ribbonIds.size() == ribbonCount) {
        for (qsizetype i = 0; i < ribbonCount; ++i)
            skus[i] = getSingleVariantByQuery(sql::filled(sql::ribbonSkuById, ribbonIds[i]), unsetString).toString();
    }
    return skus;
}

void ZrSupplyDatabase::supplySetRibbonSKUs(QStringList skus)
{
    m_supplyRibbonSKUs = skus;
    Q_EMIT ribbonChangedSignal(m_supplyRibbonSKUs);
    updateRibbon1Length();
    updateRibbon2Length();
    updateRibbon1RGBs();
    updateRibbon2RGBs();
    checkRibbonSupplyCombo();
}

void ZrSupplyDatabase::setRibbonMileage(const RibbonSlot &ribbon, int mileage)
{
    this->*ribbon.mileage = mileage;
    updateRibbonPercent(ribbon);
}

void ZrSupplyDatabase::updateRibbonLength(const RibbonSlot &ribbon)
{
    this->*ribbon.length = m_supplyRibbonSKUs.size() == ribbonCount
                               ? supplyRibbonLength(m_supplyRibbonSKUs.at(ribbon.index))
                               : unsetReal;
    updateRibbonPercent(ribbon);
}

void ZrSupplyDatabase::updateRibbonPercent(const RibbonSlot &ribbon)
{
    this->*ribbon.percent = remainingFraction(this->*ribbon.mileage, ribbonTagLength(), this->*ribbon.length);
    Q_EMIT(this->*ribbon.percentChanged)(this->*ribbon.percent);
}

void ZrSupplyDatabase::updateRibbonRGBs(const RibbonSlot &ribbon)
{
    QStringList &rgbs = this->*ribbon.rgbs;
    // Deliberate: entries beyond the second stay as they were.
    while (rgbs.size() < listedPanelCount)
        rgbs.append(unsetString);
    rgbs[0] = unsetString;
    rgbs[1] = unsetString;
    if (m_supplyRibbonSKUs.size() == ribbonCount)
        rgbs = getStringListFromVariantList(supplyRibbonColorRGBs(m_supplyRibbonSKUs.at(ribbon.index)));
    Q_EMIT(this->*ribbon.rgbsChanged)(rgbs);
}

void ZrSupplyDatabase::updateRibbonType(const RibbonSlot &ribbon)
{
    if (m_supplyRibbonSKUs.size() == ribbonCount)
        this->*ribbon.type = supplyRibbonType(m_supplyRibbonSKUs.at(ribbon.index));
    Q_EMIT(this->*ribbon.typeChanged)(this->*ribbon.type);
}

void ZrSupplyDatabase::setRibbon1Mileage(int mileage)
{
    setRibbonMileage(ribbonSlots[0], mileage);
}

void ZrSupplyDatabase::setRibbon2Mileage(int mileage)
{
    setRibbonMileage(ribbonSlots[1], mileage);
}

void ZrSupplyDatabase::updateRibbon1Mileage(int mileage)
{
    setRibbonMileage(ribbonSlots[0], mileage);
}

void ZrSupplyDatabase::updateRibbon2Mileage(int mileage)
{
    setRibbonMileage(ribbonSlots[1], mileage);
}

void ZrSupplyDatabase::updateRibbon1Length()
{
    updateRibbonLength(ribbonSlots[0]);
}

void ZrSupplyDatabase::updateRibbon2Length()
{
    updateRibbonLength(ribbonSlots[1]);
}

void ZrSupplyDatabase::updateRibbon1Percent()
{
    updateRibbonPercent(ribbonSlots[0]);
}

void ZrSupplyDatabase::updateRibbon2Percent()
{
    updateRibbonPercent(ribbonSlots[1]);
}

void ZrSupplyDatabase::updateRibbon1RGBs()
{
    updateRibbonRGBs(ribbonSlots[0]);
}

void ZrSupplyDatabase::updateRibbon2RGBs()
{
    updateRibbonRGBs(ribbonSlots[1]);
}

void ZrSupplyDatabase::updateRibbon1Type()
{
    updateRibbonType(ribbonSlots[0]);
}

void ZrSupplyDatabase::updateRibbon2Type()
{
    updateRibbonType(ribbonSlots[1]);
}
