// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/cataloguecheck.h"

#include <cataloguekeys_p.h>
#include <cataloguesql_p.h>
#include <zrsupplyguard.h>

#include <QtCore/QJsonArray>
#include <QtSql/QSqlDatabase>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;
using ZrSupplyGuard::Depth;
using ZrSupplyGuard::Finding;

namespace {

QList<CatalogueTable> readTables()
{
    QList<CatalogueTable> tables;
    for (const ZrSupplyGuard::CatalogueColumn &column : ZrSupplyGuard::catalogueColumns) {
        if (tables.isEmpty() || tables.last().name != column.table)
            tables.append({column.table, {}});
        tables.last().columns.append(column.column);
    }
    return tables;
}

/// A finding after these is of a file that can be read for what is in it.
bool matters(Finding finding, Use use)
{
    return finding != Finding::Usable && (use == Use::Lookups || finding <= Finding::Lacking);
}

/// The advice, in terms of the command where it has a word of its own.
QString remedy(const ZrSupplyGuard::Preflight &verdict)
{
    switch (verdict.finding) {
    case Finding::Missing:
    case Finding::NotAFile:
        return u"name a catalogue file with --catalogue FILE or in ZRSUPPLY_CATALOGUE"_s;
    case Finding::Lacking:
        return verdict.advice + u" with --catalogue"_s;
    default:
        return verdict.advice;
    }
}

} // namespace

const QList<CatalogueTable> &catalogueTables()
{
    static const QList<CatalogueTable> tables = readTables();
    return tables;
}

QByteArray offeredRollsQuery()
{
    return QByteArray(sql::rollSkus.data(), sql::rollSkus.size());
}

std::optional<Failure> catalogueProblem(const QString &path, Use use)
{
    const auto verdict = ZrSupplyGuard::preflight(path, use == Use::Lookups ? Depth::Content : Depth::Tables);
    if (matters(verdict.finding, use)) {
        Failure failure{
            Status::Failed, verdict.message, remedy(verdict), {{u"finding"_s, ZrSupplyGuard::name(verdict.finding)}}};
        if (!verdict.missing.isEmpty())
            failure.details.insert(u"missing"_s, QJsonArray::fromStringList(verdict.missing));
        return failure;
    }
    if (!QSqlDatabase::isDriverAvailable(u"QSQLITE"_s)) {
        return Failure{Status::Failed,
                       u"Qt's SQLite driver is not installed"_s,
                       u"install it (Debian: apt install libqt6sql6-sqlite), or set QT_PLUGIN_PATH to its folder"_s,
                       {}};
    }
    return {};
}

} // namespace zrsupply
