// SPDX-License-Identifier: LGPL-2.1-or-later
#include "zrsupplydatabase.h"

#include "cataloguequery_p.h"
#include "cataloguesql_p.h"
#include "rounding_p.h"
#include "sqltext_p.h"
#include "supplyconstants_p.h"

using namespace supply;

namespace {

int toIntOrZero(const QVariant &value)
{
    return toInt(value);
}

int toIntOrUnset(const QVariant &value)
{
    bool isNumber = false;
    const int number = toInt(value, &isNumber);
    return isNumber ? number : unsetInt;
}

double toReal(const QVariant &value)
{
    return value.toReal();
}

QString toText(const QVariant &value)
{
    return value.toString();
}

/// A statement that also asks for a language.
struct Localised
{
    QLatin1StringView statement;
    int languageId;
};

QString filled(QLatin1StringView statement, const QString &sku)
{
    return sql::filled(statement, sku);
}

QString filled(const Localised &localised, const QString &sku)
{
    return sql::filled(localised.statement, sku).arg(localised.languageId);
}

/// The roll rule: the installed roll's tag answers for an empty SKU and for an unknown roll, else the catalogue does.
template <typename Statement, typename Result>
Result rollAttribute(ZrSupplyDatabase &database, const QString &sku, const Statement &statement,
                     const QVariant &absent, Result (*convert)(const QVariant &), const Result &fromTag)
{
    if (answersFromTag(sku))
        return fromTag;
    return convert(database.getSingleVariantByQuery(filled(statement, sku), absent));
}

int colorByCode(ZrSupplyDatabase &database, QLatin1StringView statement, int code)
{
    return toInt(database.getSingleVariantByQuery(sql::filled(statement, QString::number(code)), unsetInt));
}

/// Deliberate: a code without a row yields the text "-1", where a SKU without one yields an empty name.
QString nameByCode(ZrSupplyDatabase &database, QLatin1StringView statement, int code, int languageId)
{
    const QString text = sql::filled(statement, QString::number(code), QString::number(languageId));
    return database.getSingleVariantByQuery(text, unsetInt).toString();
}

} // namespace

double ZrSupplyDatabase::supplySecColorWidth(QString sku)
{
    return rollAttribute(*this, sku, sql::stripeWidth, unsetInt, toReal, m_supplySecColorWidth);
}

int ZrSupplyDatabase::supplySecColorRGB(QString sku)
{
    return rollAttribute(*this, sku, sql::stripeRgb, unsetInt, toIntOrUnset, m_supplySecColorRGB);
}

QString ZrSupplyDatabase::supplySecColorName(QString sku)
{
    const Localised statement = {sql::stripeColorName, m_languageId};
    return rollAttribute(*this, sku, statement, QString(), toText, m_supplySecColorName);
}

QString ZrSupplyDatabase::supplySecColorNameEn(QString sku)
{
    return rollAttribute(*this, sku, sql::stripeColorNameEn, QString(), toText, m_supplySecColorNameEn);
}

int ZrSupplyDatabase::supplyMaterial(QString sku)
{
    return rollAttribute(*this, sku, sql::rollMaterial, unsetInt, toIntOrZero, m_supplyMaterial);
}

QString ZrSupplyDatabase::supplyMaterialName(QString sku)
{
    const Localised statement = {sql::rollMaterialName, m_languageId};
    return rollAttribute(*this, sku, statement, QString(), toText, m_supplyMaterialName);
}

int ZrSupplyDatabase::supplyColorRGB(QString sku)
{
    return rollAttribute(*this, sku, sql::rollRgb, unsetInt, toIntOrUnset, m_supplyColorRGB);
}

QString ZrSupplyDatabase::supplyColorName(QString sku)
{
    const Localised statement = {sql::rollColorName, m_languageId};
    return rollAttribute(*this, sku, statement, QString(), toText, m_supplyColorName);
}

QString ZrSupplyDatabase::supplyColorNameEn(QString sku)
{
    return rollAttribute(*this, sku, sql::rollColorNameEn, QString(), toText, m_supplyColorNameEn);
}

double ZrSupplyDatabase::supplyWidth(QString sku)
{
    return rollAttribute(*this, sku, sql::rollWidth, unsetInt, toReal, m_supplyWidth);
}

double ZrSupplyDatabase::supplySeparatorWidth(QString sku)
{
    return rollAttribute(*this, sku, sql::rollSeparatorWidth, unsetInt, toReal, m_supplySeparatorWidth);
}

double ZrSupplyDatabase::supplyNonContinuousLength(QString sku)
{
    return rollAttribute(*this, sku, sql::rollLabelLength, unsetInt, toReal, m_supplyNonContinuousLength);
}

int ZrSupplyDatabase::supplyMultiUpCount(QString sku)
{
    return rollAttribute(*this, sku, sql::rollMultiUpCount, 1, toIntOrZero, m_supplyMultiUpCount);
}

// From here on, lookups that depart from the roll rule.

int ZrSupplyDatabase::supplySensorId(QString name)
{
    return toInt(getSingleVariantByQuery(sql::filled(sql::sensorByType, name), unsetInt));
}

int ZrSupplyDatabase::supplyIsLandscape(QString sku)
{
    // Deliberate: "UnknownSupply" is looked up like any SKU.
    if (sku.isEmpty())
        return m_supplyIsLandscape;
    return toInt(getSingleVariantByQuery(sql::filled(sql::rollLandscape, sku), unsetInt));
}

QByteArray ZrSupplyDatabase::supplyBackgroundImage(QString sku)
{
    // Deliberate: an empty SKU means the installed roll's row, and "UnknownSupply" is looked up like any SKU.
    const QString &rollSku = sku.isEmpty() ? m_supplySKU : sku;
    return getSingleVariantByQuery(sql::filled(sql::rollBackground, rollSku), QByteArray()).toByteArray();
}

bool ZrSupplyDatabase::supplySwiftLift(QString sku)
{
    return sku.isEmpty() && m_supplySwiftLift;
}

double ZrSupplyDatabase::supplyMultiUpGapSize(QString sku)
{
    return sku.isEmpty() ? m_supplyMultiUpGapSize : unsetReal;
}

int ZrSupplyDatabase::getSupplyLength(QString sku)
{
    return toInt(getSingleVariantByQuery(sql::filled(sql::rollLength, sku), unsetInt));
}

// Codes to colours and names

int ZrSupplyDatabase::getColorRGBFromEnum(int colorEnum)
{
    return colorByCode(*this, sql::colorRgb, colorEnum);
}

QString ZrSupplyDatabase::getColorNameFromEnum(int colorEnum, bool english)
{
    return nameByCode(*this, sql::colorName, colorEnum, english ? englishLanguageId : m_languageId);
}

int ZrSupplyDatabase::getSecColorRGBFromEnum(int secColorEnum)
{
    return colorByCode(*this, sql::secColorRgb, secColorEnum);
}

QString ZrSupplyDatabase::getSecColorNameFromEnum(int secColorEnum, bool english)
{
    return nameByCode(*this, sql::secColorName, secColorEnum, english ? englishLanguageId : m_languageId);
}

QString ZrSupplyDatabase::getMaterialNameFromEnum(int materialEnum)
{
    return nameByCode(*this, sql::materialName, materialEnum, m_languageId);
}

QString ZrSupplyDatabase::getFormatNameFromEnum(int formatEnum)
{
    return nameByCode(*this, sql::formatName, formatEnum, m_languageId);
}

QVariantHash ZrSupplyDatabase::supplyColorHash()
{
    return colorTable(sql::colorTable);
}
