// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplydatabase_global.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtCore/QVariantHash>
#include <QtCore/QVariantList>

/// "-1": the unset value of every string member and list entry, the id that resets the roll, and a missing ribbon.
extern ZRSUPPLYDATABASE_EXPORT const QString unsetString;

/// The supplies of a thermal-transfer printer: what the catalogue says of rolls and ribbons, and what is installed.
///
/// One object on one thread. `setup()` opens the catalogue; lookups then answer by SKU; `setSupplyId()`,
/// `setRibbonIds()` and the mileage setters keep the installed state, and every change and verdict is a signal.
///
/// Where things are (index range in the meta-object -> source file):
///
///     0-18     signals                                 moc
///     19-22    catalogue lists                         _rolltype.cpp, _ribbons.cpp, _rolls.cpp
///     23-38    what is installed                       zrsupplydatabase.cpp
///     39-84    roll attributes                         _rolls.cpp
///              type, format and length among them      _rolltype.cpp
///     85-109   ribbon geometry, colours, parameters    _ribbons.cpp
///     110-111  setup                                   _catalogue.cpp
///     112-121  setters that only store                 zrsupplydatabase.cpp
///              setters that announce                   _installed.cpp
///     122-139  private slots: refreshing the state     _installed.cpp
///     140-144  private slots: checks                   _checks.cpp
///
/// Hosts call by name and by index, so the order of signals and slots, their parameter names and their defaults are
/// interface: never sort, move or insert one. `tests/data/metamethods.tsv` is the list they are held to.
///
/// What holds for every lookup:
/// - It costs the stated queries afresh; nothing is cached and nothing is logged.
/// - It answers its *default* when the catalogue is closed, the statement fails or no row matches. A row that holds
///   NULL answers the converted null instead: 0, 0.0 or an empty text. "NULL:" is noted where this differs.
/// - An int of a real number in the row is the nearest whole number, halves away from zero, of which an int holds the
///   low 32 bits. Of a number that 64 bits cannot hold, infinite ones among them, it is 0.
/// - An *unknown roll* is the SKU "UnknownSupply" (this exact case). For it and for an empty SKU the roll lookups
///   answer from the installed roll's tag without a query; "Empty:" is noted where this differs.
/// - Arguments go into the SQL text as they stand, without escaping; a quote ends the value, and what follows is SQL.
/// - "Tag:" names the field of `SupplyC` that an unknown roll answers from.
class ZRSUPPLYDATABASE_EXPORT ZrSupplyDatabase : public QObject
{
    Q_OBJECT

public:
    /// Every member unset (see `init()`); opens nothing. Takes no parent: the host owns the object.
    ZrSupplyDatabase();
    /// Removes the connection "SUPPLY_INFO_QT_SQL_CONNECTION_NAME", whichever name `setup()` was given. A static
    /// object may outlive the application and Qt's registry of connections; the end of the registry has closed it
    /// then.
    ~ZrSupplyDatabase() override;

    /// Sets the members to their unset values ("-1", -1, -1.0; language 0) and emits nothing. Each call appends two
    /// more "-1" to the ribbon SKUs and to both colour lists; it does not clear them. The last tag's revision, flags,
    /// length in feet, English colour names, revision 1 format and multi-up values stay.
    void init();

    // Query primitive and conversions (_catalogue.cpp)

    /// First column of the first row of `query`, as it stands; `defaultValue` without one: a closed catalogue, a
    /// failed statement, no row.
    QVariant getSingleVariantByQuery(QString query, QVariant defaultValue);
    /// Each entry converted to int (floating point truncated toward zero), then to decimal text; "0" where it is no
    /// number. As many entries as `list`.
    QList<QString> getStringListFromVariantList(QList<QVariant> list);
    /// Millimetres to inches, by the factor 0.0393701.
    double mmToInches(double mm);
    /// Feet to inches.
    double feetToInches(double feet);
    /// (`tagLength` - `mileage` + `length`) / `length`, all in the caller's one unit; not clamped, not guarded
    /// against `length` 0. Not the fraction that the percent signals announce: that one has the opposite sign of the
    /// mileage.
    double mileageToPercentage(int mileage, double tagLength, double length);

    // Codes to names and colours (_rolls.cpp)

    /// `color.rgbValue`, packed RGB, by primary colour code; -1 when absent.
    int getColorRGBFromEnum(int colorEnum);
    /// `colorTS.name` by primary colour code, in English or in the current language; the text "-1" when absent.
    QString getColorNameFromEnum(int colorEnum, bool english);
    /// `color.rgbValue`, packed RGB, by secondary colour code; -1 when absent.
    int getSecColorRGBFromEnum(int secColorEnum);
    /// `colorTS.name` by secondary colour code, in English or in the current language; the text "-1" when absent.
    QString getSecColorNameFromEnum(int secColorEnum, bool english);
    /// `materialTS.name` in the current language; the text "-1" when absent.
    QString getMaterialNameFromEnum(int materialEnum);
    /// `formatTS.name` in the current language; the text "-1" when absent.
    QString getFormatNameFromEnum(int formatEnum);

    // Classification (_rolls.cpp, _rolltype.cpp)

    /// `materialwidth.length`: feet of continuous media, labels of die-cut media; -1 when absent. Empty and
    /// "UnknownSupply": looked up.
    int getSupplyLength(QString sku);
    /// `noncontinuous.formatId`; 1 when absent. Empty and "UnknownSupply": looked up.
    int supplyFormatFromTable(QString sku);
    /// Type index of a die-cut roll of this format: 2, or 3 and 4 by separator width and printer model; else -1 when
    /// the format or the roll's material is -1. `printerName` is searched for model names, whatever their case.
    int supplyGetTypeSpecialCase(QString sku, int format, QString printerName);

    // Supply identity (_installed.cpp)

    /// SKU of the roll with this `roll.supplyId`, the shortest of several, other machine families left out;
    /// a null text when absent.
    QString getSkuFromSupplyId(QString supplyId);
    /// Two entries: `ribbon.sku` of each id, "-1" where absent. Two "-1" for any other number of ids than two.
    QList<QString> getSkusFromRibbonIds(const QList<QString> &ribbonIds);
    /// Asks the catalogue and answers false on every path: what is compared is a column's position, not the count.
    bool isSupplyIdShared();

    // State changes are announced on every call, also when nothing changed; an alert only when something is wrong,
    // the tensions only with two ribbons. Fractions: 1.0 is a full supply, -1.0 unknown, not clamped. RGBs: decimal
    // text of a packed RGB, "-1" unknown.
Q_SIGNALS:                                          // 0-18
    void supplyPercentChanged(double percent);      ///< Remaining fraction of the roll.
    void ribbon1PercentChanged(double percent);     ///< Remaining fraction of ribbon 1.
    void ribbon2PercentChanged(double percent);     ///< Ribbon 2: the same.
    void supplyRGBChanged(QString rgb);             ///< Colour of the roll.
    void ribbon1RGBsChanged(QStringList rgbs);      ///< Panel colours of ribbon 1, panel 1 first.
    void ribbon2RGBsChanged(QStringList rgbs);      ///< Ribbon 2: the same.
    void supplyChangedSignal(QString sku);          ///< The roll's SKU, "UnknownSupply", or "-1" after a reset.
    void ribbonChangedSignal(QStringList skus);     ///< SKUs of the ribbons, ribbon 1 first, "-1" where unknown.
    void printerChangedSignal(QString printerName); ///< For hosts to emit; the library never does.
    void ribbon1TypeChanged(QString typeName);      ///< Type name of ribbon 1 in the current language.
    void ribbon2TypeChanged(QString typeName);      ///< Ribbon 2: the same.
    void alertInvalidRibbonsSupplyCombo();          ///< Neither ribbon suits the roll, or both are special ribbons.
    void alertInvalidRibbon1SupplyCombo();          ///< Ribbon 1 does not suit the roll.
    void alertInvalidRibbon2SupplyCombo();          ///< Ribbon 2 does not suit the roll.
    void notifyClearTailRibbon1(bool set);          ///< Whether ribbon 1 needs the clear-tail treatment.
    void notifyClearTailRibbon2(bool set);          ///< Ribbon 2: the same.
    void notifySupplyWidth(bool set);               ///< Whether a ribbon is narrower than 4.5 inches or missing.
    void notifySupplySensor(int sensor);            ///< `supplysensor.id` that the roll needs, -1 unknown.
    /// Tension of ribbon 1 (twice) and of ribbon 2 (twice), -1 unknown.
    void notifyRibbonTensions(int tension1, int tension2, int tension3, int tension4);

public Q_SLOTS:
    // 19-22  catalogue lists (_rolltype.cpp, _ribbons.cpp, _rolls.cpp)

    /// `roll.itemNum` of every roll, other machine families left out, in the catalogue's order; empty when closed.
    QStringList supplySKUList();
    /// `ribbon.sku` of every ribbon in the catalogue's order; empty when closed.
    QStringList supplyRibbonSKUList();
    /// `color.name` (English) to `color.rgbValue` as int; of equal names the last row's. Empty when closed.
    QVariantHash supplyColorHash();
    /// `ribbon_color.name` (English) to `ribbon_color.rgbValue` as int; of equal names the last row's.
    QVariantHash supplyRibbonColorHash();

    // 23-38  what is installed: copies of the members, no query (zrsupplydatabase.cpp)

    QString supplySKU();             ///< SKU of the roll, "UnknownSupply", or "-1" while unset.
    QStringList supplyRibbonSKUs();  ///< As last set; two "-1" at first, two more with each reset.
    int supplyTagLength();           ///< Tag: `mileageBaseFeet`, in whole inches; -12 while unset.
    int ribbonTagLength();           ///< 4725 inches, for every ribbon.
    QString supplyId();              ///< As given to `setSupplyId()`, uncut; "-1" while unset.
    QString supplyUid();             ///< As given to `setSupplyUid()`; "-1" while unset.
    QString ribbon1Uid();            ///< As given to `setRibbon1Uid()`; "-1" while unset.
    QString ribbon2Uid();            ///< Ribbon 2: the same.
    double supplySupplyPercent();    ///< Remaining fraction of the roll, 1.0 is full, not clamped; -1.0 unknown.
    double supplyRibbon1Percent();   ///< Remaining fraction of ribbon 1: the same.
    double supplyRibbon2Percent();   ///< Ribbon 2: the same.
    QString supplySupplyRGB();       ///< Colour of the roll as decimal text of its packed RGB; "-1" unknown.
    QStringList supplyRibbon1RGBs(); ///< The same for panels 1 and 2 of ribbon 1; two "-1" more with each reset.
    QStringList supplyRibbon2RGBs(); ///< Ribbon 2: the same.
    QString ribbon1Type();           ///< Type name as of the last `updateRibbon1Type()`; "-1" while unset.
    QString ribbon2Type();           ///< Ribbon 2: the same.

    // 39-84  roll attributes by SKU (_rolls.cpp; 39-41, 51-52, 57-62 _rolltype.cpp)

    /// Layout class: 1 continuous, 2 die-cut, 3 and 4 special die-cut, 0 for an unknown roll whose tag (revision 0 or
    /// 1) has format 0; -1 when it cannot be classified. Beyond the label length a catalogue roll is judged by the
    /// *installed* roll's rows. `printerName` is searched for model names, whatever their case. Empty: -1.
    int supplyTypeIndex(QString sku = QString(), QString printerName = QString());
    /// `supplysensor.id` by `supplysensortype`; -1 when absent. Empty: looked up.
    int supplySensorId(QString name);
    /// `continuousstripe.secColorWidth`, inches; -1.0 when absent. Tag: `secColorWidthInches` + sixteenths.
    double supplySecColorWidth(QString sku = QString());
    /// `color.rgbValue` of the stripe, packed RGB; -1 when absent. NULL: -1. Tag: by `secColorEnum`.
    int supplySecColorRGB(QString sku = QString());
    /// `colorTS.name` of the stripe in the current language; empty when absent. Tag: by `secColorEnum`.
    QString supplySecColorName(QString sku = QString());
    /// `color.name` (English) of the stripe; empty when absent. Tag: by `secColorEnum`.
    QString supplySecColorNameEn(QString sku = QString());
    /// Full length, inches: feet x 12 of continuous media, labels x (label + separator) of die-cut media; of types 3
    /// and 4 the count x 12. Absent: -1.0, or -12.0 where `supplyTypeIndex()` of it is 3 or 4. Tag: `lengthFeet`.
    double supplyLength(QString sku = QString());
    /// `materialwidth.materialId`; -1 when absent. Tag: `materialEnum`.
    int supplyMaterial(QString sku = QString());
    /// `materialTS.name` in the current language; empty when absent. Tag: by `materialEnum`.
    QString supplyMaterialName(QString sku = QString());
    /// Format code: 2 when striped, else `noncontinuous.formatId`, else 1. From the tag (`formatEnumRev1` at revision
    /// 1, else `formatEnum`) for an unknown roll, and for every roll once the tag's revision is 1 or more.
    int supplyFormat(QString sku = QString());
    /// `formatTS.name` of `supplyFormat()` in the current language; empty when absent. Empty: the installed SKU.
    /// "UnknownSupply": by the tag's code, which costs the query.
    QString supplyFormatName(QString sku = QString());
    /// `format.type` of `supplyFormat()`; empty when absent. Empty: the installed SKU. "UnknownSupply": as above.
    QString supplyFormatType(QString sku = QString());
    /// `color.rgbValue`, packed RGB; -1 when absent. NULL: -1. Tag: by `colorEnum`.
    int supplyColorRGB(QString sku = QString());
    /// `colorTS.name` in the current language; empty when absent. Tag: by `colorEnum`.
    QString supplyColorName(QString sku = QString());
    /// `color.name` (English); empty when absent. Tag: by `colorEnum`.
    QString supplyColorNameEn(QString sku = QString());
    /// `materialwidth.width`, inches; -1.0 when absent. Tag: `widthInches` + sixteenths.
    double supplyWidth(QString sku = QString());
    /// `roll.landscape`, as it stands: 0 no, non-zero yes; -1 when absent. Empty: tag `tagFlagBit11`.
    /// "UnknownSupply" is looked up like any SKU.
    int supplyIsLandscape(QString sku = QString());
    /// `background.svg`, the bytes as stored; empty when absent. Empty: the installed SKU.
    /// "UnknownSupply" is looked up like any SKU.
    QByteArray supplyBackgroundImage(QString sku = QString());
    /// `noncontinuous.separatorWidth`, inches; -1.0 when absent. Tag: (`separatorWidthCode` + 1) sixteenths.
    double supplySeparatorWidth(QString sku = QString());
    /// `materialwidth.nonContinuousLength`, the label length in inches, 0.0 of continuous media; -1.0 when absent.
    /// Tag: `nonContinuousLengthInches` + sixteenths.
    double supplyNonContinuousLength(QString sku = QString());
    /// Only the tag knows it: `swiftLift` for an empty SKU, false for any other. No query.
    bool supplySwiftLift(QString sku = QString());
    /// `roll.nUpCount`, labels across; 1 when absent. Tag: `multiUpCountCode` + 1.
    int supplyMultiUpCount(QString sku = QString());
    /// Only the tag knows it: (`multiUpGapCode` + 1) sixteenths of an inch for an empty SKU, -1.0 for any other.
    double supplyMultiUpGapSize(QString sku = QString());

    // 85-91  ribbon geometry and panels (_ribbons.cpp). An empty SKU is looked up like any other.

    /// `ribbon.panels`; -1 when absent.
    int supplyRibbonPanels(QString ribbonSku);
    /// `ribbon.width`, inches; -1.0 when absent.
    double supplyRibbonWidth(QString ribbonSku);
    /// `ribbon.length`, inches; -1.0 when absent.
    double supplyRibbonLength(QString ribbonSku);
    /// `ribbon_colorTS.name` of a panel (from 1) in the current language; empty when absent and, without a query, for
    /// the special ribbons.
    QString supplyRibbonColorName(QString ribbonSku, int panel = 1);
    /// `ribbon_color.rgbValue` of a panel (from 1), packed RGB; -1 when absent and, without a query, for the special
    /// ribbons.
    int supplyRibbonColorRGB(QString ribbonSku, int panel = 1);

    // 92-95  print parameters of a panel (from 1) on the roll's material, from `ribbon_heat` (_ribbons.cpp)
    //        Each costs the material's query, then its own. -1 when absent, for a special ribbon (no query), and when
    //        the material is -1. Empty supply SKU and "UnknownSupply": the tag's material, which costs no query.

    /// `ribbon_heat.heat`, in the printer's own steps.
    int supplyRibbonHeat(QString ribbonSku, int panel, QString supplySku);
    /// `ribbon_heat.max_offset`, the largest heat offset, in the printer's own steps.
    int supplyRibbonHeatOffset(QString ribbonSku, int panel, QString supplySku);
    /// `ribbon_heat.max_speed`, the fastest print speed, millimetres a second.
    int supplyRibbonMaxSpeed(QString ribbonSku, int panel, QString supplySku);
    /// `ribbon_heat.tension`, in the printer's own steps.
    int supplyRibbonTension(QString ribbonSku, int panel, QString supplySku);

    // 96-101  one ribbon: two entries, panel 1 then panel 2, however many panels it has; each as of the lookup above

    QStringList supplyRibbonColorNames(QString ribbonSku);
    QVariantList supplyRibbonColorRGBs(QString ribbonSku);
    QVariantList supplyRibbonHeats(QString ribbonSku, QString supplySku);
    QVariantList supplyRibbonHeatOffsets(QString ribbonSku, QString supplySku);
    QVariantList supplyRibbonMaxSpeeds(QString ribbonSku, QString supplySku);
    QVariantList supplyRibbonTensions(QString ribbonSku, QString supplySku);

    // 102-107  several ribbons: the two entries of each in turn, 2 x N in all, an unknown ribbon's too

    QStringList supplyRibbonsColorNames(QStringList ribbonSkus);
    QVariantList supplyRibbonsColorRGBs(QStringList ribbonSkus);
    QVariantList supplyRibbonsHeats(QStringList ribbonSkus, QString supplySku);
    QVariantList supplyRibbonsHeatOffsets(QStringList ribbonSkus, QString supplySku);
    QVariantList supplyRibbonsMaxSpeeds(QStringList ribbonSkus, QString supplySku);
    QVariantList supplyRibbonsTensions(QStringList ribbonSkus, QString supplySku);

    // 108-109  ribbon types (_ribbons.cpp)

    /// `ribbon_typeTS.name` of the ribbon's first row, in the current language; empty when absent. Empty: looked up.
    QString supplyRibbonType(QString sku);
    /// The type of each ribbon, one entry each, empty where absent.
    QStringList supplyRibbonTypes(QStringList ribbonSkus);

    // 110-111  the catalogue (_catalogue.cpp)

    /// Opens the catalogue file read-only and tells whether that succeeded; a failure is also logged. Lookups use
    /// only the default connection name: a catalogue opened under another name answers none of them. Fails without a
    /// QCoreApplication, except with Qt 6.4.
    bool setup(QString path, QString connectionName = QLatin1String("SUPPLY_INFO_QT_SQL_CONNECTION_NAME"));

    // 112-121  setters: 112, 113 and 116-118 only store (zrsupplydatabase.cpp), the others announce (_installed.cpp)

    void setLanguageId(int languageId); ///< Language of the localised names until a reset; 0 is English.
    void setSupplySKU(QString sku);     ///< Stores the roll's SKU and nothing else.
    /// Takes a roll in by the hexadecimal digits of its tag (24 are decoded, 20 identify the roll); "-1" resets.
    /// Emits `supplyChangedSignal` (not for a tag of revision 2 or more, which leaves the SKU as it was),
    /// `supplyPercentChanged`, `supplyRGBChanged`, `notifySupplySensor`.
    void setSupplyId(QString supplyId);
    /// Takes the ribbons in by their two catalogue ids; any other number of ids makes both unknown. Emits
    /// `ribbonChangedSignal`, both percents, both colour lists, then at most one alert.
    void setRibbonIds(QStringList ribbonIds);
    void setSupplyUid(QString uid);  ///< Stores the unique id of the roll's tag.
    void setRibbon1Uid(QString uid); ///< Stores the unique id of ribbon 1's tag.
    void setRibbon2Uid(QString uid); ///< Ribbon 2: the same.
    /// Takes a mileage reading in millimetres, -1 for none; emits `supplyPercentChanged`.
    void setSupplyMileage(int mileage);
    void setRibbon1Mileage(int mileage); ///< The same for ribbon 1; emits `ribbon1PercentChanged`.
    void setRibbon2Mileage(int mileage); ///< The same for ribbon 2; emits `ribbon2PercentChanged`.

private Q_SLOTS: // for hosts that call by name
    // 122-139  refreshing the installed state (_installed.cpp)

    void supplySetRibbonSKUs(QStringList skus);  ///< Stores SKUs, any number; emits as `setRibbonIds()` does.
    void updateSupplyId(QString supplyId);       ///< `setSupplyId()` without the edge sensor check.
    void updateRibbonIds(QStringList ribbonIds); ///< `setRibbonIds()`.
    void updateSupplyLength();                   ///< The roll's length from its tag; emits its percent.
    void updateRibbon1Length();                  ///< Length of ribbon 1, -1.0 unless two SKUs; emits its percent.
    void updateRibbon2Length();                  ///< Ribbon 2: the same.
    void updateSupplyMileage(int mileage);       ///< `setSupplyMileage()`.
    void updateRibbon1Mileage(int mileage);      ///< `setRibbon1Mileage()`.
    void updateRibbon2Mileage(int mileage);      ///< `setRibbon2Mileage()`.
    void updateSupplyPercent();                  ///< Recomputes and emits the roll's remaining fraction.
    void updateRibbon1Percent();                 ///< Ribbon 1: the same.
    void updateRibbon2Percent();                 ///< Ribbon 2: the same.
    void updateSupplyRGB();                      ///< The roll's colour from its tag; emits it.
    void updateRibbon1RGBs();                    ///< Panel colours of ribbon 1; its first two "-1" unless two SKUs.
    void updateRibbon2RGBs();                    ///< Ribbon 2: the same.
    void updateCachedSupplyCData(QString trimmedId); ///< Decodes a tag into the members; emits nothing.
    void updateRibbon1Type();                        ///< Type of ribbon 1, kept unless two SKUs; emits it.
    void updateRibbon2Type();                        ///< Ribbon 2: the same.

    // 140-144  checks; a verdict is a signal (_checks.cpp)

    void checkRibbonSupplyCombo(); ///< Whether the ribbons can print on the roll; at most one alert.
    void checkClearTail();         ///< Emits both clear-tail notices, also for missing ribbons.
    void checkSupplyEdgeSensor();  ///< Emits the sensor that the installed SKU's row names.
    void checkRibbonWidth();       ///< Emits whether a ribbon is narrow or missing.
    void checkRibbonTensions();    ///< Emits the tensions, or nothing unless there are two ribbons.

private:
    // Order and types are fixed.
    QString m_supplySKU;
    QList<QString> m_supplyRibbonSKUs;
    double m_supplyLength = 0.0;  // inches
    double m_ribbon1Length = 0.0; // inches
    double m_ribbon2Length = 0.0; // inches
    QString m_supplyId;
    QString m_supplyUid;
    QString m_ribbon1Uid;
    QString m_ribbon2Uid;
    int m_supplyMileage = 0;            // millimetres
    int m_ribbon1Mileage = 0;           // millimetres
    int m_ribbon2Mileage = 0;           // millimetres
    double m_supplySupplyPercent = 0.0; // fractions, 1.0 is full
    double m_supplyRibbon1Percent = 0.0;
    double m_supplyRibbon2Percent = 0.0;
    QString m_supplySupplyRGB;
    QList<QString> m_supplyRibbon1RGBs;
    QList<QString> m_supplyRibbon2RGBs;
    QString m_ribbon1Type;
    QString m_ribbon2Type;
    // From here to the label length: what the last tag says, filled by updateCachedSupplyCData().
    int m_supplyTagLength = 0; // feet
    bool m_supplyTagFlagBit9 = false;
    bool m_supplySwiftLift = false;
    double m_supplySecColorWidth = 0.0; // inches
    int m_supplySecColorRGB = 0;
    QString m_supplySecColorName;
    QString m_supplySecColorNameEn;
    bool m_supplyTagFlagBit25 = false;
    int m_supplyLengthFeet = 0;
    double m_supplyCachedLength = 0.0; // inches
    int m_supplyMaterial = 0;
    QString m_supplyMaterialName;
    int m_supplyFormat = 0;
    QString m_supplyFormatName;
    int m_supplyColorRGB = 0;
    QString m_supplyColorName;
    QString m_supplyColorNameEn;
    double m_supplyWidth = 0.0; // inches
    int m_supplyTagRevision = 0;
    bool m_supplyTagFlagBit72 = false;
    bool m_supplyTagFlagBit73 = false;
    int m_supplyFormatRev1 = 0;
    int m_supplyMultiUpCount = 0;
    double m_supplyMultiUpGapSize = 0.0; // inches
    int m_supplyTypeIndex = 0;
    bool m_supplyIsLandscape = false;
    double m_supplySeparatorWidth = 0.0;      // inches
    double m_supplyNonContinuousLength = 0.0; // inches
    // The host's
    int m_languageId = 0;

private:
    // One body for the four print parameters (_ribbons.cpp).
    enum class PrintParameter;
    int panelParameter(PrintParameter parameter, const QString &ribbonSku, int panel, const QString &supplySku);
    QVariantList ribbonParameters(PrintParameter parameter, const QString &ribbonSku, const QString &supplySku);
    QVariantList ribbonsParameters(PrintParameter parameter, const QStringList &ribbonSkus, const QString &supplySku);

    // One body for both ribbons, over what differs: a row each (_installed.cpp).
    struct RibbonSlot;
    static const RibbonSlot ribbonSlots[2];
    void setRibbonMileage(const RibbonSlot &ribbon, int mileage);
    void updateRibbonLength(const RibbonSlot &ribbon);
    void updateRibbonPercent(const RibbonSlot &ribbon);
    void updateRibbonRGBs(const RibbonSlot &ribbon);
    void updateRibbonType(const RibbonSlot &ribbon);
};
