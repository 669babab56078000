// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "rounding_p.h"
#include "supplyconstants_p.h"

#include <QtCore/QStringList>
#include <QtCore/QVariantHash>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

/// A fresh handle to the catalogue, opened once more where it is registered but closed. None is kept between calls.
inline QSqlDatabase catalogueConnection()
{
    return QSqlDatabase::database(supply::connectionName(), true);
}

/// Removes it from Qt's registry, where there still is one.
void removeCatalogueConnection();

/// Runs `statement` and hands every row to `visit`, in the catalogue's order; no row when the catalogue is closed.
template <typename Visit>
void forEachCatalogueRow(QLatin1StringView statement, Visit visit)
{
    const QSqlDatabase catalogue = catalogueConnection();
    if (!catalogue.isOpen())
        return;
    QSqlQuery query(statement, catalogue);
    while (query.next())
        visit(query);
}

/// The first column of every row as text.
inline QStringList textColumn(QLatin1StringView statement)
{
    QStringList texts;
    forEachCatalogueRow(statement, [&texts](const QSqlQuery &row) { texts.append(row.value(0).toString()); });
    return texts;
}

/// Rows of (name, packed RGB) as a table from name to int; of equal names the last row's.
inline QVariantHash colorTable(QLatin1StringView statement)
{
    QVariantHash colors;
    forEachCatalogueRow(
        statement, [&colors](const QSqlQuery &row) { colors.insert(row.value(0).toString(), toInt(row.value(1))); });
    return colors;
}
