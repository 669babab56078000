#include "cataloguecheck.h"

#include "author/catalogueheader.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString checkConnection = u"zrsupply-check"_s;
const QString restore = u"rebuild the catalogue from its sources, or take another copy of the file"_s;
const QString chooseAnother = u"name a catalogue file with --catalogue FILE or in ZRSUPPLY_CATALOGUE"_s;

Failure failed(const QString &message, const QString &remedy)
{
    return {Status::Failed, message, remedy, {}};
}

/// What the file system says.
std::optional<Failure> fileProblem(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        const QString what = info.isSymLink() ? u"the link %1 leads to no file"_s : u"there is no file %1"_s;
        return failed(what.arg(path), chooseAnother);
    }
    if (info.isDir())
        return failed(u"%1 is a folder, not a catalogue file"_s.arg(path), chooseAnother);
    if (!info.isFile())
        return failed(u"%1 is not an ordinary file"_s.arg(path), chooseAnother);

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return failed(u"%1 cannot be read: %2"_s.arg(path, file.errorString()),
                      u"give yourself permission to read it (chmod +r), or run as a user who has it"_s);
    }
    if (file.size() == 0)
        return failed(u"%1 is empty"_s.arg(path), restore);
    return headerProblem(path);
}

std::optional<Failure> damaged(const QString &path, const QSqlError &error)
{
    return failed(u"%1 cannot be read as a database: %2"_s.arg(path, error.databaseText()), restore);
}

/// The first column of each row; nothing when the statement fails.
std::optional<QStringList> textRows(QSqlQuery &query, const QString &text)
{
    if (!query.exec(text))
        return {};
    QStringList rows;
    while (query.next())
        rows.append(query.value(0).toString());
    if (query.lastError().isValid())
        return {};
    return rows;
}

/// What the database says, over a connection that is open.
std::optional<Failure> tableProblem(const QString &path, const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const auto names = textRows(query, u"SELECT name FROM sqlite_master WHERE type IN ('table', 'view')"_s);
    if (!names)
        return damaged(path, query.lastError());

    QStringList missing;
    for (const CatalogueTable &table : catalogueTables()) {
        if (!names->contains(table.name, Qt::CaseInsensitive)) {
            missing.append(u"table "_s + table.name);
            continue;
        }
        const auto columns = textRows(query, u"SELECT name FROM pragma_table_info('%1')"_s.arg(table.name));
        if (!columns)
            return damaged(path, query.lastError());
        for (const QString &column : table.columns) {
            if (!columns->contains(column, Qt::CaseInsensitive))
                missing.append(u"column %1.%2"_s.arg(table.name, column));
        }
    }
    if (missing.isEmpty())
        return {};
    constexpr qsizetype shown = 4;
    QString list = missing.mid(0, shown).join(", "_L1);
    if (missing.size() > shown)
        list += u" and %1 more"_s.arg(missing.size() - shown);
    Failure failure = failed(u"%1 is not a supply catalogue: it lacks %2"_s.arg(path, list),
                             u"build it with the tables of catalogue.sql, or name another file with --catalogue"_s);
    failure.details.insert(u"missing"_s, QJsonArray::fromStringList(missing));
    return failure;
}

std::optional<Failure> databaseProblem(const QString &path)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, checkConnection);
    database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    database.setDatabaseName(path);
    if (!database.open())
        return damaged(path, database.lastError());
    return tableProblem(path, database);
}

} // namespace

const QList<CatalogueTable> &catalogueTables()
{
    static const QList<CatalogueTable> tables = {
        {u"roll"_s,
         {u"itemNum"_s, u"supplyId"_s, u"materialWidthId"_s, u"colorId"_s, u"landscape"_s, u"nUpCount"_s,
          u"supplysensorId"_s, u"backgroundId"_s}},
        {u"materialwidth"_s,
         {u"id"_s, u"materialId"_s, u"width"_s, u"length"_s, u"nonContinuousLength"_s, u"machineId"_s}},
        {u"continuousstripe"_s, {u"itemNum"_s, u"secColorWidth"_s, u"secColorId"_s}},
        {u"noncontinuous"_s, {u"itemNum"_s, u"formatId"_s, u"separatorWidth"_s}},
        {u"color"_s, {u"id"_s, u"secId"_s, u"rgbValue"_s, u"name"_s}},
        {u"format"_s, {u"id"_s, u"type"_s}},
        {u"supplysensor"_s, {u"id"_s, u"supplysensortype"_s}},
        {u"background"_s, {u"id"_s, u"svg"_s}},
        {u"ribbon"_s, {u"id"_s, u"sku"_s, u"panels"_s, u"width"_s, u"length"_s}},
        {u"ribbon_panel"_s, {u"ribbonId"_s, u"panel"_s, u"typeId"_s, u"colorId"_s}},
        {u"ribbon_color"_s, {u"id"_s, u"rgbValue"_s, u"name"_s}},
        {u"ribbon_heat"_s,
         {u"ribbonId"_s, u"panel"_s, u"materialId"_s, u"heat"_s, u"max_offset"_s, u"max_speed"_s, u"tension"_s}},
        {u"colorTS"_s, {u"colorId"_s, u"languageId"_s, u"name"_s}},
        {u"materialTS"_s, {u"materialId"_s, u"languageId"_s, u"name"_s}},
        {u"formatTS"_s, {u"formatId"_s, u"languageId"_s, u"name"_s}},
        {u"ribbon_typeTS"_s, {u"ribbon_typeId"_s, u"languageId"_s, u"name"_s}},
        {u"ribbon_colorTS"_s, {u"ribbon_colorId"_s, u"languageId"_s, u"name"_s}},
    };
    return tables;
}

std::optional<Failure> catalogueProblem(const QString &path)
{
    if (auto problem = fileProblem(path))
        return problem;
    if (!QSqlDatabase::isDriverAvailable(u"QSQLITE"_s)) {
        return failed(u"Qt's SQLite driver is not installed"_s,
                      u"install it (Debian: apt install libqt6sql6-sqlite), or set QT_PLUGIN_PATH to its folder"_s);
    }
    auto problem = databaseProblem(path);
    QSqlDatabase::removeDatabase(checkConnection);
    return problem;
}

} // namespace zrsupply
