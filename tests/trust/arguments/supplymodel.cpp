// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplymodel.h"

#include "support/tagreference.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

#include <sqlite3.h>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

/// A lookup by the roll's SKU that follows the common rule.
struct SupplyModel::RollLookup
{
    const char *method;
    const char *sql;
    QVariant absent;
    bool hasLanguage;
    QVariant (*fromTag)(const ModelState &);
};

namespace {

QString written(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<double>())
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    if (value.metaType() == QMetaType::fromType<QString>())
        return u'"' + value.toString() + u'"';
    if (value.metaType() == QMetaType::fromType<QStringList>()) {
        QStringList quoted;
        for (const QString &text : value.toStringList())
            quoted.append(written(text));
        return u'[' + quoted.join(u", "_s) + u']';
    }
    return value.toString();
}

/// What remains of a supply: 1.0 when it is full.
double fraction(int mileageMm, int tagLengthInches, double lengthInches)
{
    const int rounded = qRound(lengthInches);
    if (mileageMm == -1 || rounded == 0 || rounded == -1)
        return -1.0;
    return ((mileageMm * 0.0393701) - tagLengthInches + lengthInches) / lengthInches;
}

bool isSpecial(const QString &ribbonSku)
{
    return ribbonSku == u"R4417TX" || ribbonSku == u"HVWA-ZEROSPOL";
}

bool isOfTag(const QString &sku)
{
    return sku.isEmpty() || sku == u"UnknownSupply";
}

#define FROM_TAG(member) [](const ModelState &state) { return QVariant(state.member); }

using RollLookup = SupplyModel::RollLookup;

const QList<RollLookup> &rollLookups()
{
    static const QList<RollLookup> lookups = {
        {"supplySecColorWidth", "SELECT secColorWidth FROM continuousstripe WHERE itemNum=?1", -1.0, false,
         FROM_TAG(supplySecColorWidth)},
        {"supplySecColorName",
         "SELECT t.name FROM continuousstripe s, color c, colorTS t WHERE s.secColorId=c.secId AND t.colorId=c.id AND "
         "s.itemNum=?1 AND t.languageId=?2",
         QString(), true, FROM_TAG(supplySecColorName)},
        {"supplySecColorNameEn",
         "SELECT c.name FROM continuousstripe s, color c WHERE s.secColorId=c.secId AND s.itemNum=?1", QString(),
         false, FROM_TAG(supplySecColorNameEn)},
        {"supplyMaterial",
         "SELECT w.materialId FROM roll r, materialwidth w WHERE r.materialWidthId=w.id AND r.itemNum=?1", -1, false,
         FROM_TAG(supplyMaterial)},
        {"supplyMaterialName",
         "SELECT t.name FROM roll r, materialwidth w, materialTS t WHERE r.materialWidthId=w.id AND "
         "t.materialId=w.materialId AND r.itemNum=?1 AND t.languageId=?2",
         QString(), true, FROM_TAG(supplyMaterialName)},
        {"supplyColorName",
         "SELECT t.name FROM roll r, colorTS t WHERE t.colorId=r.colorId AND r.itemNum=?1 AND t.languageId=?2",
         QString(), true, FROM_TAG(supplyColorName)},
        {"supplyColorNameEn", "SELECT c.name FROM roll r, color c WHERE r.colorId=c.id AND r.itemNum=?1", QString(),
         false, FROM_TAG(supplyColorNameEn)},
        {"supplyWidth", "SELECT w.width FROM roll r, materialwidth w WHERE r.materialWidthId=w.id AND r.itemNum=?1",
         -1.0, false, FROM_TAG(supplyWidth)},
        {"supplySeparatorWidth", "SELECT separatorWidth FROM noncontinuous WHERE itemNum=?1", -1.0, false,
         FROM_TAG(supplySeparatorWidth)},
        {"supplyNonContinuousLength",
         "SELECT w.nonContinuousLength FROM roll r, materialwidth w WHERE r.materialWidthId=w.id AND r.itemNum=?1",
         -1.0, false, FROM_TAG(supplyNonContinuousLength)},
        {"supplyMultiUpCount", "SELECT nUpCount FROM roll WHERE itemNum=?1", 1, false, FROM_TAG(supplyMultiUpCount)},
    };
    return lookups;
}

#undef FROM_TAG

/// Null where the method is no such lookup.
const RollLookup *rollLookup(const QByteArray &method)
{
    const auto found = std::find_if(rollLookups().begin(), rollLookups().end(),
                                    [&method](const RollLookup &lookup) { return method == lookup.method; });
    return found == rollLookups().end() ? nullptr : &*found;
}

/// A lookup by a ribbon's SKU.
const QHash<QByteArray, const char *> ribbonLookups = {
    {"supplyRibbonPanels", "SELECT panels FROM ribbon WHERE sku=?1"},
    {"supplyRibbonWidth", "SELECT width FROM ribbon WHERE sku=?1"},
    {"supplyRibbonLength", "SELECT length FROM ribbon WHERE sku=?1"},
};

constexpr const char *ribbonTypeSql =
    "SELECT t.name FROM ribbon r, ribbon_panel p, ribbon_typeTS t WHERE r.id=p.ribbonId"
    " AND p.typeId=t.ribbon_typeId AND r.sku=?1 AND t.languageId=?2";
constexpr const char *heatSql = "SELECT h.heat FROM ribbon r, ribbon_heat h WHERE r.id=h.ribbonId AND r.sku=?1 AND"
                                " h.panel=1 AND h.materialId=?2+0";
constexpr const char *tensionSql =
    "SELECT h.tension FROM ribbon r, ribbon_heat h WHERE r.id=h.ribbonId AND r.sku=?1 AND"
    " h.panel=1 AND h.materialId=?2+0";

} // namespace

QVariant ModelCatalogue::first(const QString &path, const char *sql, const QStringList &values,
                               const QVariant &absent)
{
    if (path.isEmpty())
        return absent;
    const QString key = path + u'\n' + QString::fromLatin1(sql) + u'\n' + values.join(u'\n');
    auto known = m_answers.constFind(key);
    if (known == m_answers.constEnd()) {
        sqlite3 *file = nullptr;
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_open_v2(QFile::encodeName(path).constData(), &file, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK ||
            sqlite3_prepare_v2(file, sql, -1, &statement, nullptr) != SQLITE_OK)
            qFatal("the model asks %s: %s", sql, sqlite3_errmsg(file));
        for (qsizetype i = 0; i < values.size(); ++i)
            sqlite3_bind_text(statement, int(i + 1), values.at(i).toUtf8().constData(), -1, SQLITE_TRANSIENT);
        std::optional<QVariant> answer;
        if (sqlite3_step(statement) == SQLITE_ROW) {
            const int type = sqlite3_column_type(statement, 0);
            if (type == SQLITE_INTEGER)
                answer = sqlite3_column_int64(statement, 0);
            else if (type == SQLITE_FLOAT)
                answer = sqlite3_column_double(statement, 0);
            else if (type == SQLITE_NULL)
                answer = QVariant();
            else
                answer = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)));
        }
        sqlite3_finalize(statement);
        sqlite3_close(file);
        known = m_answers.insert(key, answer);
    }
    return known->value_or(absent);
}

SupplyModel::SupplyModel(ModelCatalogue &catalogue)
    : m_catalogue(catalogue)
{
    init();
}

void SupplyModel::init()
{
    const QString unset = u"-1"_s;
    m.supplySKU = m.supplyId = m.supplyUid = m.ribbon1Uid = m.ribbon2Uid = m.supplySupplyRGB = unset;
    m.ribbon1Type = m.ribbon2Type = unset;
    for (QStringList *list : {&m.supplyRibbonSKUs, &m.supplyRibbon1RGBs, &m.supplyRibbon2RGBs})
        list->append({unset, unset});
    for (double *number :
         {&m.supplyLength, &m.ribbon1Length, &m.ribbon2Length, &m.supplySupplyPercent, &m.supplyRibbon1Percent,
          &m.supplyRibbon2Percent, &m.supplySecColorWidth, &m.supplyCachedLength, &m.supplyWidth,
          &m.supplySeparatorWidth, &m.supplyNonContinuousLength})
        *number = -1.0;
    for (int *number :
         {&m.supplyMileage, &m.ribbon1Mileage, &m.ribbon2Mileage, &m.supplyTagLength, &m.supplySecColorRGB,
          &m.supplyMaterial, &m.supplyFormat, &m.supplyColorRGB, &m.supplyTypeIndex})
        *number = -1;
    m.supplySecColorName = m.supplyMaterialName = m.supplyFormatName = m.supplyColorName = QString();
    m.languageId = 0;
}

QStringList SupplyModel::takeSignals()
{
    return std::exchange(m_lines, {});
}

void SupplyModel::announce(const QByteArray &signal, const QVariantList &arguments)
{
    QStringList texts;
    for (const QVariant &argument : arguments)
        texts.append(written(argument));
    m_lines.append(u"%1(%2)"_s.arg(QString::fromLatin1(signal), texts.join(u", "_s)));
    if (afterSignal)
        afterSignal(signal);
}

QVariant SupplyModel::ask(const char *sql, const QStringList &values, const QVariant &absent)
{
    return m_catalogue.first(m_path, sql, values, absent);
}

QVariant SupplyModel::ofRoll(const QString &sku, const RollLookup &lookup)
{
    if (isOfTag(sku))
        return lookup.fromTag(m);
    QStringList values = {sku};
    if (lookup.hasLanguage)
        values.append(QString::number(m.languageId));
    return ask(lookup.sql, values, lookup.absent);
}

double SupplyModel::rollWidth()
{
    return ofRoll(m.supplySKU, *rollLookup("supplyWidth")).toDouble();
}

int SupplyModel::printParameter(const char *sql, const QString &sku)
{
    if (isSpecial(sku))
        return -1;
    const int material = ofRoll(m.supplySKU, *rollLookup("supplyMaterial")).toInt();
    return material == -1 ? -1 : ask(sql, {sku, QString::number(material)}).toInt();
}

double SupplyModel::ribbonWidth(const QString &sku)
{
    return ask(ribbonLookups["supplyRibbonWidth"], {sku}).toDouble();
}

int SupplyModel::ribbonRgb(const QString &sku, int panel)
{
    if (isSpecial(sku))
        return -1;
    return ask("SELECT c.rgbValue FROM ribbon r, ribbon_panel p, ribbon_color c WHERE r.id=p.ribbonId AND "
               "p.colorId=c.id AND r.sku=?1 AND p.panel=?2+0",
               {sku, QString::number(panel)})
        .toInt();
}

/// "-1" where there is none.
QString SupplyModel::ribbonSku(qsizetype place) const
{
    return m.supplyRibbonSKUs.value(place, u"-1"_s);
}

void SupplyModel::takeTag(const QString &text)
{
    TagRecord tag;
    TagReference::decode(text, tag);
    const auto number = [this](const char *sql, int code) { return ask(sql, {QString::number(code)}).toInt(); };
    const auto name = [this](const char *sql, int code, int language) {
        return ask(sql, {QString::number(code), QString::number(language)}).toString();
    };
    constexpr const char *rgb = "SELECT rgbValue FROM color WHERE id=?1";
    constexpr const char *secRgb = "SELECT rgbValue FROM color WHERE secId=?1";
    constexpr const char *colorName = "SELECT name FROM colorTS WHERE colorId=?1 AND languageId=?2";
    constexpr const char *secColorName =
        "SELECT t.name FROM color c, colorTS t WHERE c.id=t.colorId AND c.secId=?1 AND t.languageId=?2";

    m.supplyTagLength = tag.mileageBaseFeet;
    m.supplyTagFlagBit9 = tag.tagFlagBit9;
    m.supplySwiftLift = tag.swiftLift;
    m.supplySecColorWidth = tag.secColorWidthSixteenths * 0.0625 + tag.secColorWidthInches;
    m.supplySecColorRGB = number(secRgb, tag.secColorEnum);
    m.supplySecColorName = name(secColorName, tag.secColorEnum, m.languageId);
    m.supplySecColorNameEn = name(secColorName, tag.secColorEnum, 0);
    m.supplyTagFlagBit25 = tag.tagFlagBit25;
    m.supplyLengthFeet = tag.lengthFeet;
    m.supplyCachedLength = tag.lengthFeet * 12.0;
    m.supplyMaterial = tag.materialEnum;
    m.supplyMaterialName =
        name("SELECT name FROM materialTS WHERE materialId=?1 AND languageId=?2", tag.materialEnum, m.languageId);
    m.supplyFormat = tag.formatEnum;
    m.supplyFormatName =
        name("SELECT name FROM formatTS WHERE formatId=?1 AND languageId=?2", tag.formatEnum, m.languageId);
    m.supplyColorRGB = number(rgb, tag.colorEnum);
    m.supplyColorName = name(colorName, tag.colorEnum, m.languageId);
    m.supplyColorNameEn = name(colorName, tag.colorEnum, 0);
    m.supplyWidth = tag.widthSixteenths * 0.0625 + tag.widthInches;
    m.supplyTagRevision = tag.tagRevision;
    m.supplyTagFlagBit72 = tag.tagFlagBit72;
    m.supplyTagFlagBit73 = tag.tagFlagBit73;
    m.supplyFormatRev1 = tag.formatEnumRev1;
    m.supplyMultiUpCount = tag.multiUpCountCode + 1;
    m.supplyMultiUpGapSize = (tag.multiUpGapCode + 1) * 0.0625;
    m.supplyTypeIndex = tag.typeIndex;
    m.supplyIsLandscape = tag.tagFlagBit11;
    m.supplySeparatorWidth = (tag.separatorWidthCode + 1) * 0.0625;
    m.supplyNonContinuousLength = tag.nonContinuousLengthSixteenths * 0.0625 + tag.nonContinuousLengthInches;
}

void SupplyModel::takeSupplyId(const QString &id)
{
    if (id == u"-1") {
        init();
        announce("supplyChangedSignal", {m.supplySKU});
    } else {
        takeTag(id.left(24));
        if (m.supplyTagRevision < 2) {
            const QString sku = ask("SELECT r.itemNum FROM roll r, materialwidth w WHERE r.materialWidthId=w.id AND "
                                    "r.supplyId=?1 AND w.machineId NOT IN ('HM1','HM4','HM6','HMQ','WJA') "
                                    "ORDER BY length(r.itemNum)",
                                    {id.left(20)}, QString())
                                    .toString();
            m.supplySKU = sku.isEmpty() ? u"UnknownSupply"_s : sku;
            announce("supplyChangedSignal", {m.supplySKU});
        }
        m.supplyId = id;
    }
    m.supplyLength = m.supplyCachedLength;
    supplyPercent();
    supplyRgb();
}

void SupplyModel::supplyRgb()
{
    m.supplySupplyRGB = QString::number(m.supplyColorRGB);
    announce("supplyRGBChanged", {m.supplySupplyRGB});
}

void SupplyModel::supplyPercent()
{
    m.supplySupplyPercent = fraction(m.supplyMileage, int(m.supplyTagLength * 12.0), m.supplyLength);
    announce("supplyPercentChanged", {m.supplySupplyPercent});
}

QStringList SupplyModel::ribbonsOf(const QStringList &ids)
{
    QStringList skus = {u"-1"_s, u"-1"_s};
    for (qsizetype i = 0; ids.size() == 2 && i < 2; ++i)
        skus[i] = ask("SELECT sku FROM ribbon WHERE id=?1", {ids.at(i)}).toString();
    return skus;
}

void SupplyModel::takeRibbons(const QStringList &skus)
{
    m.supplyRibbonSKUs = skus;
    announce("ribbonChangedSignal", {m.supplyRibbonSKUs});
    ribbonLength(1);
    ribbonLength(2);
    ribbonRgbs(1);
    ribbonRgbs(2);
    combination();
}

void SupplyModel::ribbonLength(int number)
{
    double &length = number == 1 ? m.ribbon1Length : m.ribbon2Length;
    length = -1.0;
    if (m.supplyRibbonSKUs.size() == 2)
        length = ask(ribbonLookups["supplyRibbonLength"], {ribbonSku(number - 1)}).toDouble();
    ribbonPercent(number);
}

void SupplyModel::ribbonPercent(int number)
{
    double &percent = number == 1 ? m.supplyRibbon1Percent : m.supplyRibbon2Percent;
    percent = number == 1 ? fraction(m.ribbon1Mileage, 4725, m.ribbon1Length)
                          : fraction(m.ribbon2Mileage, 4725, m.ribbon2Length);
    announce(number == 1 ? "ribbon1PercentChanged" : "ribbon2PercentChanged", {percent});
}

void SupplyModel::ribbonRgbs(int number)
{
    QStringList &rgbs = number == 1 ? m.supplyRibbon1RGBs : m.supplyRibbon2RGBs;
    if (m.supplyRibbonSKUs.size() == 2) {
        const QString sku = ribbonSku(number - 1);
        rgbs = {QString::number(ribbonRgb(sku, 1)), QString::number(ribbonRgb(sku, 2))};
    } else {
        rgbs[0] = rgbs[1] = u"-1"_s;
    }
    announce(number == 1 ? "ribbon1RGBsChanged" : "ribbon2RGBsChanged", {rgbs});
}

void SupplyModel::ribbonType(int number)
{
    QString &type = number == 1 ? m.ribbon1Type : m.ribbon2Type;
    if (m.supplyRibbonSKUs.size() == 2)
        type = ask(ribbonTypeSql, {ribbonSku(number - 1), QString::number(m.languageId)}, QString()).toString();
    announce(number == 1 ? "ribbon1TypeChanged" : "ribbon2TypeChanged", {type});
}

void SupplyModel::combination()
{
    const QString ribbon1 = ribbonSku(0);
    const QString ribbon2 = ribbonSku(1);
    const bool wide = rollWidth() > 4.0;
    bool bad1 = (ribbon1 != u"-1" && printParameter(heatSql, ribbon1) <= 0) || (wide && ribbonWidth(ribbon1) < 4.5);
    const bool bad2 =
        (ribbon2 != u"-1" && printParameter(heatSql, ribbon2) <= 0) || (wide && ribbonWidth(ribbon2) < 4.5);
    if (isSpecial(ribbon1))
        bad1 = false;

    // The table of verdicts: a special second ribbon is never bad by itself, but two special ones are a bad pair.
    const bool secondIsSpecial = isSpecial(ribbon2);
    if (secondIsSpecial && isSpecial(ribbon1))
        announce("alertInvalidRibbonsSupplyCombo");
    else if (bad1 && bad2 && !secondIsSpecial)
        announce("alertInvalidRibbonsSupplyCombo");
    else if (bad1)
        announce("alertInvalidRibbon1SupplyCombo");
    else if (bad2 && !secondIsSpecial)
        announce("alertInvalidRibbon2SupplyCombo");
}

void SupplyModel::sensor()
{
    const QVariant id =
        ask("SELECT s.id FROM roll r, supplysensor s WHERE r.supplysensorId=s.id AND r.itemNum=?1", {m.supplySKU});
    announce("notifySupplySensor", {id.toInt()});
}

void SupplyModel::tensions()
{
    if (ribbonSku(0) == u"-1" || ribbonSku(1) == u"-1")
        return;
    const int first = printParameter(tensionSql, ribbonSku(0));
    const int second = printParameter(tensionSql, ribbonSku(1));
    announce("notifyRibbonTensions", {first, first, second, second});
}

void SupplyModel::close()
{
    m_path.clear();
}

std::optional<QVariant> SupplyModel::call(const QByteArray &method, const QVariantList &arguments)
{
    const QVariant argument = arguments.value(0);
    using Model = SupplyModel;
    static const QHash<QByteArray, std::function<void(Model &, const QVariant &)>> deeds = {
        {"setLanguageId", [](Model &model, const QVariant &id) { model.m.languageId = id.toInt(); }},
        {"setSupplySKU", [](Model &model, const QVariant &sku) { model.m.supplySKU = sku.toString(); }},
        {"setSupplyUid", [](Model &model, const QVariant &uid) { model.m.supplyUid = uid.toString(); }},
        {"setRibbon1Uid", [](Model &model, const QVariant &uid) { model.m.ribbon1Uid = uid.toString(); }},
        {"setRibbon2Uid", [](Model &model, const QVariant &uid) { model.m.ribbon2Uid = uid.toString(); }},
        {"setSupplyId",
         [](Model &model, const QVariant &id) {
             model.takeSupplyId(id.toString());
             model.sensor();
         }},
        {"updateSupplyId", [](Model &model, const QVariant &id) { model.takeSupplyId(id.toString()); }},
        {"updateCachedSupplyCData", [](Model &model, const QVariant &tag) { model.takeTag(tag.toString()); }},
        {"supplySetRibbonSKUs", [](Model &model, const QVariant &skus) { model.takeRibbons(skus.toStringList()); }},
        {"updateSupplyLength",
         [](Model &model, const QVariant &) {
             model.m.supplyLength = model.m.supplyCachedLength;
             model.supplyPercent();
         }},
        {"updateRibbon1Length", [](Model &model, const QVariant &) { model.ribbonLength(1); }},
        {"updateRibbon2Length", [](Model &model, const QVariant &) { model.ribbonLength(2); }},
        {"updateSupplyPercent", [](Model &model, const QVariant &) { model.supplyPercent(); }},
        {"updateRibbon1Percent", [](Model &model, const QVariant &) { model.ribbonPercent(1); }},
        {"updateRibbon2Percent", [](Model &model, const QVariant &) { model.ribbonPercent(2); }},
        {"updateSupplyRGB", [](Model &model, const QVariant &) { model.supplyRgb(); }},
        {"updateRibbon1RGBs", [](Model &model, const QVariant &) { model.ribbonRgbs(1); }},
        {"updateRibbon2RGBs", [](Model &model, const QVariant &) { model.ribbonRgbs(2); }},
        {"updateRibbon1Type", [](Model &model, const QVariant &) { model.ribbonType(1); }},
        {"updateRibbon2Type", [](Model &model, const QVariant &) { model.ribbonType(2); }},
        {"checkRibbonSupplyCombo", [](Model &model, const QVariant &) { model.combination(); }},
        {"checkSupplyEdgeSensor", [](Model &model, const QVariant &) { model.sensor(); }},
        {"checkRibbonTensions", [](Model &model, const QVariant &) { model.tensions(); }},
        {"checkClearTail",
         [](Model &model, const QVariant &) {
             const QStringList treated = {u"R530947"_s, u"RW530947"_s};
             const bool second = treated.contains(model.ribbonSku(1));
             model.announce("notifyClearTailRibbon1", {treated.contains(model.ribbonSku(0))});
             model.announce("notifyClearTailRibbon2", {second});
         }},
        {"checkRibbonWidth",
         [](Model &model, const QVariant &) {
             const bool narrow = model.ribbonWidth(model.ribbonSku(0)) < 4.5;
             model.announce("notifySupplyWidth", {narrow || model.ribbonWidth(model.ribbonSku(1)) < 4.5});
         }},
    };
    const auto deed = deeds.constFind(method);
    if (deed != deeds.constEnd()) {
        (*deed)(*this, argument);
    } else if (method == "setRibbonIds" || method == "updateRibbonIds") {
        takeRibbons(ribbonsOf(argument.toStringList()));
    } else if (method == "setSupplyMileage" || method == "updateSupplyMileage") {
        m.supplyMileage = argument.toInt();
        supplyPercent();
    } else if (method == "setRibbon1Mileage" || method == "updateRibbon1Mileage") {
        m.ribbon1Mileage = argument.toInt();
        ribbonPercent(1);
    } else if (method == "setRibbon2Mileage" || method == "updateRibbon2Mileage") {
        m.ribbon2Mileage = argument.toInt();
        ribbonPercent(2);
    } else if (method == "setup") {
        const bool opens = QFileInfo(argument.toString()).isFile();
        const bool isCatalogue =
            arguments.size() == 1 || arguments.at(1).toString() == u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME";
        if (isCatalogue)
            m_path = opens ? argument.toString() : QString();
        return opens;
    } else {
        return answer(method, arguments);
    }
    return std::nullopt;
}

std::optional<QVariant> SupplyModel::answer(const QByteArray &method, const QVariantList &arguments)
{
    static const QHash<QByteArray, QVariant (*)(const ModelState &)> kept = {
        {"supplySKU", [](const ModelState &state) { return QVariant(state.supplySKU); }},
        {"supplyRibbonSKUs", [](const ModelState &state) { return QVariant(state.supplyRibbonSKUs); }},
        {"supplyTagLength", [](const ModelState &state) { return QVariant(int(state.supplyTagLength * 12.0)); }},
        {"ribbonTagLength", [](const ModelState &) { return QVariant(4725); }},
        {"supplyId", [](const ModelState &state) { return QVariant(state.supplyId); }},
        {"supplyUid", [](const ModelState &state) { return QVariant(state.supplyUid); }},
        {"ribbon1Uid", [](const ModelState &state) { return QVariant(state.ribbon1Uid); }},
        {"ribbon2Uid", [](const ModelState &state) { return QVariant(state.ribbon2Uid); }},
        {"supplySupplyPercent", [](const ModelState &state) { return QVariant(state.supplySupplyPercent); }},
        {"supplyRibbon1Percent", [](const ModelState &state) { return QVariant(state.supplyRibbon1Percent); }},
        {"supplyRibbon2Percent", [](const ModelState &state) { return QVariant(state.supplyRibbon2Percent); }},
        {"supplySupplyRGB", [](const ModelState &state) { return QVariant(state.supplySupplyRGB); }},
        {"supplyRibbon1RGBs", [](const ModelState &state) { return QVariant(state.supplyRibbon1RGBs); }},
        {"supplyRibbon2RGBs", [](const ModelState &state) { return QVariant(state.supplyRibbon2RGBs); }},
        {"ribbon1Type", [](const ModelState &state) { return QVariant(state.ribbon1Type); }},
        {"ribbon2Type", [](const ModelState &state) { return QVariant(state.ribbon2Type); }},
    };
    const QString sku = arguments.value(0).toString();
    if (const auto member = kept.constFind(method); member != kept.constEnd())
        return (*member)(m);
    if (ribbonLookups.contains(method))
        return ask(ribbonLookups[method], {sku});
    if (method == "supplyRibbonType")
        return ask(ribbonTypeSql, {sku, QString::number(m.languageId)}, QString());
    if (const RollLookup *lookup = rollLookup(method))
        return ofRoll(sku, *lookup);
    return std::nullopt;
}
