// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

class ZrSupplyDatabase;

/// The installed state in the words of the Printer MIB, RFC 3805: the rows of prtMarkerSuppliesTable and of
/// prtMarkerColorantTable, and the same as values of IPP's printer-supply. docs/status.md explains each column.
namespace ZrSupplyKit {

/// A label of one of the MIB's textual conventions and its number.
struct MibLabel
{
    QString text;
    int number = 2; ///< unknown(2) in all of them
};

constexpr int mibUnknown = -2;

struct MarkerColorant
{
    int index;    ///< From 1.
    QString name; ///< English, in lower case, as a keyword: "black", "light-blue".
};

struct ZRSUPPLYKIT_EXPORT MarkerSupply
{
    int index;   ///< 1 the roll, 2 ribbon 1, 3 ribbon 2, whatever is there.
    QString sku; ///< As the library has it.
    MibLabel type;
    QString description;
    int maxCapacity = mibUnknown; ///< Ten thousandths of inches.
    int level = mibUnknown;       ///< The same; never below 0 or above the capacity when both are known.
    QList<MarkerColorant> colorants = {};

    /// Of the only colorant, 0 when there is none or more than one.
    int colorantIndex() const { return colorants.size() == 1 ? colorants.first().index : 0; }
    /// "multi-color" for several, "unknown" for none.
    QString colorantName() const;
};

/// The roll, ribbon 1 and ribbon 2. `language` is that of the descriptions, the library's when it returns.
ZRSUPPLYKIT_EXPORT QList<MarkerSupply> markerSupplies(ZrSupplyDatabase &library, int language);

/// `inches` as capacity; unknown when they are not above 0 or more than the MIB's integers hold.
ZRSUPPLYKIT_EXPORT int mibCapacity(double inches);
/// What remains of `capacity` at the library's `fraction`, -1 unknown.
ZRSUPPLYKIT_EXPORT int mibLevel(double fraction, int capacity);
/// `name` as a keyword: lower case, anything but letters and digits a hyphen.
ZRSUPPLYKIT_EXPORT QString keywordOf(const QString &name);

/// One value of printer-supply: "type=inkRibbon;maxcapacity=47250000;…".
ZRSUPPLYKIT_EXPORT QString printerSupply(const MarkerSupply &supply);
/// Both attributes as ipptool reads them.
ZRSUPPLYKIT_EXPORT QString ippText(const QList<MarkerSupply> &supplies);

/// An object of the MIB and its value.
struct MibValue
{
    QString oid;    ///< Numeric, with a leading dot.
    QString object; ///< Name and index: "prtMarkerSuppliesLevel.1.2".
    QString text;   ///< "INTEGER: 4000", as snmpwalk prints it.
    QJsonValue value;
};
/// Both tables in the order of a walk.
ZRSUPPLYKIT_EXPORT QList<MibValue> mibValues(const QList<MarkerSupply> &supplies);
ZRSUPPLYKIT_EXPORT QString snmpText(const QList<MarkerSupply> &supplies);

ZRSUPPLYKIT_EXPORT QJsonObject statusJson(const QList<MarkerSupply> &supplies);

} // namespace ZrSupplyKit
