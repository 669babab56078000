// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tag/tagrules_p.h"

#include <QtCore/QString>

/// The words and numbers that have a meaning to hosts, to the catalogue or to the printer.
namespace supply {

using namespace Qt::Literals::StringLiterals;

// The catalogue connection. Hosts may know its name, so it is fixed; setup()'s default argument says the same.
inline QString connectionName()
{
    return QStringLiteral("SUPPLY_INFO_QT_SQL_CONNECTION_NAME");
}
inline constexpr auto driverName = "QSQLITE"_L1;
inline constexpr auto readOnlyOption = "QSQLITE_OPEN_READONLY"_L1;

// The log record of a failed open: fixed texts and a fixed line, since log filters in the field match on them.
inline constexpr const char *logFile = "zrsupplydatabase";
inline constexpr int logLine = 1569;
inline constexpr const char *logFunction = "bool ZrSupplyDatabase::setup(QString, QString)";

// Unset values; the text is `unsetString`.
inline constexpr int unsetInt = -1;
inline constexpr double unsetReal = -1.0;

// Special SKUs, compared whole and with their case.
inline constexpr auto unknownSupply = "UnknownSupply"_L1;

/// A roll that the catalogue does not know.
inline bool isUnknownSupply(const QString &sku)
{
    return sku == unknownSupply;
}

/// Whether the installed roll's tag answers in place of the catalogue.
inline bool answersFromTag(const QString &sku)
{
    return sku.isEmpty() || isUnknownSupply(sku);
}

/// A ribbon without colours and print parameters of its own.
inline bool isSpecialRibbon(const QString &sku)
{
    return sku == "R4417TX"_L1 || sku == "HVWA-ZEROSPOL"_L1;
}

/// A ribbon whose clear tail the printer has to treat.
inline bool needsClearTail(const QString &sku)
{
    return sku == "R530947"_L1 || sku == "RW530947"_L1;
}

// Units
inline constexpr double inchesPerMm = 0.0393701;
inline constexpr double inchesPerFoot = 12.0;
inline constexpr double inchesPerSixteenth = 0.0625;

// Installed supplies
inline constexpr qsizetype tagDigits = tagrules::digits;               // what the tag decoder reads of a supply id
inline constexpr qsizetype supplyIdDigits = 20;                        // what identifies a roll in the catalogue
inline constexpr int ownTypeRevision = tagrules::firstMultiUpRevision; // from here on a tag carries its own type
inline constexpr int ribbonTagLengthInches = 4725;
inline constexpr qsizetype ribbonCount = 2;
inline constexpr qsizetype listedPanelCount = 2; // what lists of one ribbon cover
inline constexpr int firstPanel = 1;
inline constexpr int secondPanel = 2;
inline constexpr int englishLanguageId = 0;

// Roll classification
inline constexpr int continuousType = 1;
inline constexpr int dieCutType = 2;
inline constexpr int specialDieCutType = 3;
inline constexpr int wideSeparatorType = 4;
inline constexpr int stripedFormat = 2;
inline constexpr double noLabelLengthInches = 1e-12; // up to here a roll counts as continuous
// Deliberate: two thresholds, one strictly above and one strictly below.
inline constexpr double wideSeparatorInches = 0.13;
inline constexpr double narrowSeparatorInches = 0.15;

// Ribbon and roll combination
inline constexpr double narrowRibbonInches = 4.5; // a ribbon below this is narrow
inline constexpr double wideRollInches = 4.0;     // a roll above this needs a ribbon that is not narrow

} // namespace supply
