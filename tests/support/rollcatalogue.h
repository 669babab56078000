// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "fixturecatalogue.h"

#include <zrsupplydatabase.h>

#include <QtCore/QStringList>

namespace rolls {

using namespace Qt::Literals::StringLiterals;

// Tags of 24 digits; the first 20 are the id in the catalogue. What they hold stands in tst_supplyflow.cpp,
// tagFillsTheMembers_data().
inline const QString striped = u"96660E52C02100D060892D80"_s;  // revision 0
inline const QString dieCut = u"3203021900A180A031493880"_s;   // revision 1
inline const QString multiUp = u"FFE641096254004082E91F80"_s;  // revision 2, die-cut
inline const QString longRoll = u"2D100683C020804842400A00"_s; // revision 2, continuous

/// What the object answers of the installed roll without its SKU, in four lines. The second type index is that of a
/// die-cut roll of the catalogue, which a tag of revision 2 or more answers in its place.
inline QStringList tagAnswers(ZrSupplyDatabase &database)
{
    return {
        u"base %1, length %2, width %3, stripe %4, label %5, separator %6, gap %7"_s.arg(database.supplyTagLength())
            .arg(database.supplyLength())
            .arg(database.supplyWidth())
            .arg(database.supplySecColorWidth())
            .arg(database.supplyNonContinuousLength())
            .arg(database.supplySeparatorWidth())
            .arg(database.supplyMultiUpGapSize()),
        u"across %1, landscape %2, swift %3, material %4, format %5, type %6 %7"_s.arg(database.supplyMultiUpCount())
            .arg(database.supplyIsLandscape())
            .arg(int(database.supplySwiftLift()))
            .arg(database.supplyMaterial())
            .arg(database.supplyFormat())
            .arg(database.supplyTypeIndex(u"UnknownSupply"_s))
            .arg(database.supplyTypeIndex(u"DIECUT"_s)),
        u"roll %1 <%2> <%3>, stripe %4 <%5> <%6>"_s.arg(
            QString::number(database.supplyColorRGB()), database.supplyColorName(), database.supplyColorNameEn(),
            QString::number(database.supplySecColorRGB()), database.supplySecColorName(),
            database.supplySecColorNameEn()),
        u"material <%1>, announced %2"_s.arg(database.supplyMaterialName(), database.supplySupplyRGB())};
}

/// What the roll is known by.
inline QStringList identity(ZrSupplyDatabase &database)
{
    return {database.supplySKU(), database.supplyId()};
}

} // namespace rolls

/// The fixture and the rolls of the tags above. What the catalogue says of them differs from what their tags say.
class RollCatalogue : public FixtureCatalogue
{
public:
    RollCatalogue()
    {
        run(QStringLiteral(
            "INSERT INTO materialwidth (id, materialId, width, length, nonContinuousLength, machineId) VALUES"
            " (21, 1, 4.0, 10, 0.0, 'HM1'), (22, 1, 4.0, 10, 0.0, 'HM4'), (23, 1, 4.0, 10, 0.0, 'HM6'),"
            " (24, 1, 4.0, 10, 0.0, 'HMQ'), (25, 1, 4.0, 10, 0.0, 'WJA'), (26, 1, 4.0, 10, 0.0, 'HM2'),"
            " (27, 1, 4.0, 10, 0.0, 'hmq'), (28, 1, 4.0, 10, 0.0, NULL), (29, 1, 4.0, 10, 0.0, ' HMQ');"
            "INSERT INTO roll (itemNum, supplyId, materialWidthId, colorId, supplysensorId) VALUES"
            " ('STRIPED-ROLL', '96660E52C02100D06089', 10, 1, 4), ('CUT-ROLL', '3203021900A180A03149', 12, 1, 5),"
            " ('LONGEST-SKU', 'A1000000000000000000', 10, 1, 3), ('MID-SKU', 'A1000000000000000000', 10, 1, 3),"
            " ('SHORT', 'A1000000000000000000', 10, 1, 3),"
            " ('S', 'A2000000000000000000', 24, 1, 3), ('OFFERED', 'A2000000000000000000', 10, 1, 3),"
            " ('OF-HM1', 'B1000000000000000000', 21, 1, 3), ('OF-HM4', 'B2000000000000000000', 22, 1, 3),"
            " ('OF-HM6', 'B3000000000000000000', 23, 1, 3), ('OF-HMQ', 'B4000000000000000000', 24, 1, 3),"
            " ('OF-WJA', 'B5000000000000000000', 25, 1, 3), ('OF-HM2', 'B6000000000000000000', 26, 1, 3),"
            " ('OF-hmq', 'B7000000000000000000', 27, 1, 3), ('OF-NULL', 'B8000000000000000000', 28, 1, 3),"
            " ('OF-BLANK', 'B9000000000000000000', 29, 1, 3), ('NOWHERE', 'BA000000000000000000', 999, 1, 3),"
            " ('', 'C1000000000000000000', 10, 1, 3), ('NAMED', 'C1000000000000000000', 10, 1, 3),"
            " ('NINETEEN', 'C200000000000000000', 10, 1, 3), ('TWENTY', 'C2000000000000000000', 10, 1, 3),"
            " ('NO-ID', '', 10, 1, 3), ('PERCENT', '%1', 10, 1, 3), ('BLANK', '-1 ', 10, 1, 3),"
            " ('MINUS', '-1', 10, 1, 3);"
            "UPDATE roll SET backgroundId=1 WHERE itemNum='CUT-ROLL';"
            "INSERT INTO noncontinuous (itemNum, formatId, separatorWidth) VALUES ('CUT-ROLL', 40, 0.125);"));
    }
};
