// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "supplyconstants_p.h"

#include <utility>

using namespace supply;

const QString unsetString = QString::number(-1);

ZrSupplyDatabase::ZrSupplyDatabase()
{
    init();
}

ZrSupplyDatabase::~ZrSupplyDatabase()
{
    // Deliberate: the fixed name, whatever setup() was given; a connection of another name is its host's to remove.
    removeCatalogueConnection();
}

void ZrSupplyDatabase::init()
{
    // Made here: where the library is static, an object of the host may be made before `unsetString` is.
    const QString unset = QString::number(unsetInt);
    // Deliberate: the three lists grow with every call, and the members left out keep the last tag's values.
    const QStringList unsetRibbons = {unset, unset};

    m_supplySKU = unset;
    m_supplyRibbonSKUs += unsetRibbons;
    m_supplyLength = unsetReal;
    m_ribbon1Length = unsetReal;
    m_ribbon2Length = unsetReal;
    m_supplyId = unset;
    m_supplyUid = unset;
    m_ribbon1Uid = unset;
    m_ribbon2Uid = unset;
    m_supplyMileage = unsetInt;
    m_ribbon1Mileage = unsetInt;
    m_ribbon2Mileage = unsetInt;
    m_supplySupplyPercent = unsetReal;
    m_supplyRibbon1Percent = unsetReal;
    m_supplyRibbon2Percent = unsetReal;
    m_supplySupplyRGB = unset;
    m_supplyRibbon1RGBs += unsetRibbons;
    m_supplyRibbon2RGBs += unsetRibbons;
    m_ribbon1Type = unset;
    m_ribbon2Type = unset;
    m_supplyTagLength = unsetInt;
    m_supplySecColorWidth = unsetReal;
    m_supplySecColorRGB = unsetInt;
    m_supplySecColorName = QString();
    m_supplyCachedLength = unsetReal;
    m_supplyMaterial = unsetInt;
    m_supplyMaterialName = QString();
    m_supplyFormat = unsetInt;
    m_supplyFormatName = QString();
    m_supplyColorRGB = unsetInt;
    m_supplyColorName = QString();
    m_supplyWidth = unsetReal;
    m_supplyTypeIndex = unsetInt;
    m_supplySeparatorWidth = unsetReal;
    m_supplyNonContinuousLength = unsetReal;
    m_languageId = englishLanguageId;
}

QString ZrSupplyDatabase::supplySKU()
{
    return m_supplySKU;
}

QStringList ZrSupplyDatabase::supplyRibbonSKUs()
{
    return m_supplyRibbonSKUs;
}

int ZrSupplyDatabase::supplyTagLength()
{
    return int(feetToInches(m_supplyTagLength));
}

int ZrSupplyDatabase::ribbonTagLength()
{
    return ribbonTagLengthInches;
}

QString ZrSupplyDatabase::supplyId()
{
    return m_supplyId;
}

QString ZrSupplyDatabase::supplyUid()
{
    return m_supplyUid;
}

QString ZrSupplyDatabase::ribbon1Uid()
{
    return m_ribbon1Uid;
}

QString ZrSupplyDatabase::ribbon2Uid()
{
    return m_ribbon2Uid;
}

double ZrSupplyDatabase::supplySupplyPercent()
{
    return m_supplySupplyPercent;
}

double ZrSupplyDatabase::supplyRibbon1Percent()
{
    return m_supplyRibbon1Percent;
}

double ZrSupplyDatabase::supplyRibbon2Percent()
{
    return m_supplyRibbon2Percent;
}

QString ZrSupplyDatabase::supplySupplyRGB()
{
    return m_supplySupplyRGB;
}

QStringList ZrSupplyDatabase::supplyRibbon1RGBs()
{
    return m_supplyRibbon1RGBs;
}

QStringList ZrSupplyDatabase::supplyRibbon2RGBs()
{
    return m_supplyRibbon2RGBs;
}

QString ZrSupplyDatabase::ribbon1Type()
{
    return m_ribbon1Type;
}

QString ZrSupplyDatabase::ribbon2Type()
{
    return m_ribbon2Type;
}

void ZrSupplyDatabase::setLanguageId(int languageId)
{
    m_languageId = languageId;
}

void ZrSupplyDatabase::setSupplySKU(QString sku)
{
    m_supplySKU = std::move(sku);
}

void ZrSupplyDatabase::setSupplyUid(QString uid)
{
    m_supplyUid = std::move(uid);
}

void ZrSupplyDatabase::setRibbon1Uid(QString uid)
{
    m_ribbon1Uid = std::move(uid);
}

void ZrSupplyDatabase::setRibbon2Uid(QString uid)
{
    m_ribbon2Uid = std::move(uid);
}
