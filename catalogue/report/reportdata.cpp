// SPDX-License-Identifier: LGPL-2.1-or-later
#include "report/reportdata.h"

#include "check/cataloguecheck.h"
#include "reasons/reasons.h"
#include "usekit.h"

#include <QtCore/QHash>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <supplyconstants_p.h>
#include <zrsupplydatabase.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

const auto connectionName = "zrsupply-report"_L1;

/// The rows, over a connection that is gone when they are read.
class ReportReader
{
public:
    ReportReader(const QString &path, int language);
    ~ReportReader();
    ReportReader(const ReportReader &) = delete;
    ReportReader &operator=(const ReportReader &) = delete;

    void read(ReportData &data);

private:
    QSqlQuery ask(QLatin1StringView text, bool isOptional = false);
    void readMeta(ReportData &data);
    void readRolls(ReportData &data);
    void readRibbons(ReportData &data);
    void readPictures(ReportData &data);

    QSqlDatabase m_database;
    QString m_language;
};

ReportReader::ReportReader(const QString &path, int language)
    : m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName))
    , m_language(QString::number(language))
{
    m_database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    m_database.setDatabaseName(path);
    // What does not open fails with its first statement, which says so.
    [[maybe_unused]] const bool isOpen = m_database.open();
}

ReportReader::~ReportReader()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

/// `{language}` in the text stands for the language.
QSqlQuery ReportReader::ask(QLatin1StringView text, bool isOptional)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(QString(text).replace("{language}"_L1, m_language)) && !isOptional) {
        throw Failure{Status::Failed,
                      u"the catalogue cannot be read: "_s + query.lastError().databaseText(),
                      u"zrsupply catalogue check says what is wrong with it"_s,
                      {}};
    }
    return query;
}

std::optional<int> rgbOf(const QVariant &value)
{
    bool isNumber = false;
    const int rgb = value.toInt(&isNumber);
    if (!isNumber || value.isNull() || rgb < 0 || rgb > 0xffffff)
        return {};
    return rgb;
}

void ReportReader::readMeta(ReportData &data)
{
    // Catalogues from elsewhere need not have the table.
    QSqlQuery rows = ask("SELECT key, value FROM meta WHERE key IN ('dataset_name', 'dataset_version')"_L1, true);
    while (rows.next())
        (rows.value(0) == u"dataset_name"_s ? data.name : data.version) = rows.value(1).toString();
}

void ReportReader::readRolls(ReportData &data)
{
    QSqlQuery rows = ask(R"(
        SELECT roll.itemNum, roll.supplyId, materialwidth.materialId, coalesce(mine.name, english.name),
               materialwidth.width, materialwidth.length, materialwidth.nonContinuousLength, materialwidth.machineId,
               coalesce(colorTS.name, color.name), color.rgbValue,
               continuousstripe.secColorWidth, coalesce(stripeTS.name, stripe.name), stripe.rgbValue,
               noncontinuous.formatId, noncontinuous.separatorWidth, roll.landscape, roll.nUpCount,
               supplysensor.supplysensortype, roll.backgroundId,
               coalesce(materialwidth.machineId NOT IN ('HM1', 'HM4', 'HM6', 'HMQ', 'WJA'), 0)
        FROM roll
        LEFT JOIN materialwidth ON materialwidth.id = roll.materialWidthId
        LEFT JOIN materialTS AS mine ON mine.materialId = materialwidth.materialId AND mine.languageId = {language}
        LEFT JOIN materialTS AS english ON english.materialId = materialwidth.materialId AND english.languageId = 0
        LEFT JOIN color ON color.id = roll.colorId
        LEFT JOIN colorTS ON colorTS.colorId = roll.colorId AND colorTS.languageId = {language}
        LEFT JOIN continuousstripe ON continuousstripe.itemNum = roll.itemNum
        LEFT JOIN color AS stripe ON stripe.secId = continuousstripe.secColorId
        LEFT JOIN colorTS AS stripeTS ON stripeTS.colorId = stripe.id AND stripeTS.languageId = {language}
        LEFT JOIN noncontinuous ON noncontinuous.itemNum = roll.itemNum
        LEFT JOIN supplysensor ON supplysensor.id = roll.supplysensorId
        ORDER BY roll.itemNum)"_L1);
    while (rows.next()) {
        ReportRoll roll;
        roll.sku = rows.value(0).toString();
        roll.supplyId = rows.value(1).toString();
        roll.materialId = rows.value(2).isNull() ? supply::unsetInt : rows.value(2).toInt();
        roll.material = u"%1 (%2)"_s.arg(rows.value(3).toString(), rows.value(2).toString()).trimmed();
        roll.width = rows.value(4).toDouble();
        roll.length = rows.value(5).toInt();
        roll.labelLength = rows.value(6).toDouble();
        roll.family = rows.value(7).toString();
        roll.color = {rows.value(8).toString(), rgbOf(rows.value(9))};
        roll.stripeWidth = rows.value(10).toDouble();
        roll.stripe = {rows.value(11).toString(), rgbOf(rows.value(12))};
        roll.formatId =
            rows.value(13).isNull() ? (roll.stripeWidth > 0.0 ? supply::stripedFormat : 1) : rows.value(13).toInt();
        roll.separatorWidth = rows.value(14).toDouble();
        roll.isLandscape = rows.value(15).toInt() != 0;
        roll.across = rows.value(16).toInt();
        roll.sensor = rows.value(17).toString();
        roll.pictureId = rows.value(18).toString();
        roll.isOffered = rows.value(19).toBool();
        data.rolls.append(roll);
    }

    QHash<int, QString> formats;
    QSqlQuery names = ask("SELECT formatId, name FROM formatTS WHERE languageId IN (0, {language})"
                          " ORDER BY formatId, languageId = {language}"_L1);
    while (names.next())
        formats.insert(names.value(0).toInt(), names.value(1).toString());
    for (ReportRoll &roll : data.rolls)
        roll.format = u"%1 (%2)"_s.arg(formats.value(roll.formatId)).arg(roll.formatId).trimmed();
}

void ReportReader::readRibbons(ReportData &data)
{
    QHash<QString, QList<ReportPanel>> panels;
    QSqlQuery rows = ask(R"(
        SELECT ribbon_panel.ribbonId, coalesce(mine.name, english.name), coalesce(colorTS.name, ribbon_color.name),
               ribbon_color.rgbValue
        FROM ribbon_panel
        LEFT JOIN ribbon_typeTS AS mine ON mine.ribbon_typeId = ribbon_panel.typeId AND mine.languageId = {language}
        LEFT JOIN ribbon_typeTS AS english ON english.ribbon_typeId = ribbon_panel.typeId AND english.languageId = 0
        LEFT JOIN ribbon_color ON ribbon_color.id = ribbon_panel.colorId
        LEFT JOIN ribbon_colorTS AS colorTS
            ON colorTS.ribbon_colorId = ribbon_panel.colorId AND colorTS.languageId = {language}
        ORDER BY ribbon_panel.ribbonId, ribbon_panel.panel)"_L1);
    while (rows.next()) {
        panels[rows.value(0).toString()].append(
            {rows.value(1).toString(), {rows.value(2).toString(), rgbOf(rows.value(3))}});
    }
    rows = ask("SELECT id, sku, width, length FROM ribbon ORDER BY sku"_L1);
    while (rows.next()) {
        const QString id = rows.value(0).toString();
        data.ribbons.append(
            {id, rows.value(1).toString(), rows.value(2).toDouble(), rows.value(3).toDouble(), panels.value(id)});
    }
}

void ReportReader::readPictures(ReportData &data)
{
    QSqlQuery rows = ask("SELECT id, svg FROM background ORDER BY id"_L1);
    while (rows.next())
        data.pictures.append({rows.value(0).toString(), rows.value(1).toByteArray()});
}

void ReportReader::read(ReportData &data)
{
    readMeta(data);
    readRolls(data);
    readRibbons(data);
    readPictures(data);
}

/// The ribbon alone, in the first position: what is said of the empty second one is of no interest here.
ReportCell cellOf(const Facts &facts)
{
    ReportCell cell{supply::isSpecialRibbon(facts.ribbons[0].sku) ? ReportCell::Verdict::Special
                                                                  : ReportCell::Verdict::Prints,
                    {}};
    QStringList says;
    for (const Finding &finding : judge(Check::Combination, facts).findings) {
        if (finding.ribbon != 1)
            continue;
        if (finding.outcome == Outcome::Fires && cell.verdict == ReportCell::Verdict::Prints)
            cell.verdict = finding.rule == "width"_L1 ? ReportCell::Verdict::TooNarrow : ReportCell::Verdict::NoHeat;
        if (finding.outcome == Outcome::Fires || finding.rule == "special"_L1 ||
            (finding.rule == "heat"_L1 && finding.outcome == Outcome::Passes))
            says.append(finding.says);
    }
    cell.reason = says.join("; "_L1);
    return cell;
}

void judgePrintings(ReportData &data, const QString &path, int language)
{
    ZrSupplyDatabase library;
    library.setup(path);
    library.setLanguageId(language);

    QHash<std::pair<int, double>, qsizetype> known;
    for (qsizetype i = 0; i < data.rolls.size(); ++i) {
        ReportRoll &roll = data.rolls[i];
        const std::pair<int, double> decides{roll.materialId, roll.width};
        if (!known.contains(decides)) {
            known.insert(decides, data.printings.size());
            data.printings.append({roll.material, roll.width, {}, {}});
        }
        roll.printing = known.value(decides);
        data.printings[roll.printing].rolls.append(i);
    }

    QList<RibbonFacts> ribbons;
    for (const ReportRibbon &ribbon : data.ribbons)
        ribbons.append(gatherRibbon(library, ribbon.sku));
    Facts facts;
    facts.ribbons[1] = gatherRibbon(library, unsetString);
    for (ReportPrinting &printing : data.printings) {
        facts.roll = gatherRoll(library, data.rolls[printing.rolls.first()].sku);
        facts.pairs[1] = gatherPair(library, facts.ribbons[1], facts.roll);
        for (const RibbonFacts &ribbon : ribbons) {
            facts.ribbons[0] = ribbon;
            facts.pairs[0] = gatherPair(library, ribbon, facts.roll);
            printing.cells.append(cellOf(facts));
        }
    }
}

} // namespace

ReportData readReportData(const QString &path, int language)
{
    if (const auto problem = catalogueProblem(path))
        throw *problem;
    ReportData data;
    ReportReader(path, language).read(data);
    judgePrintings(data, path, language);
    return data;
}

} // namespace zrsupply
