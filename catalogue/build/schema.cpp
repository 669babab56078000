// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/schema.h"

#include "build/database.h"

#include <QtCore/QFile>

/// Outside any namespace, even an unnamed one: the macro declares a global function. Resources of a static library
/// are linked in only when something names them.
static void initResource()
{
    Q_INIT_RESOURCE(schema);
}

namespace zrsupply {

namespace {

SourceColumn::Type columnType(const QByteArray &declared)
{
    if (declared == "INTEGER")
        return SourceColumn::Type::Integer;
    if (declared == "REAL")
        return SourceColumn::Type::Real;
    return declared == "BLOB" ? SourceColumn::Type::Blob : SourceColumn::Type::Text;
}

SourceTable describe(const Database &database, const QByteArray &name)
{
    SourceTable table;
    table.name = name;
    Statement columns =
        database.prepare("SELECT name, type, \"notnull\", pk FROM pragma_table_info(?1) ORDER BY cid");
    columns.bind(1, SqlValue::fromText(name));
    QList<QPair<qint64, int>> key;
    while (columns.step()) {
        if (columns.integer(3) > 0)
            key.append({columns.integer(3), int(table.columns.size())});
        table.columns.append({columns.text(0), columnType(columns.text(1)), columns.integer(2) != 0});
    }
    std::sort(key.begin(), key.end());
    for (const auto &[place, column] : key)
        table.key.append(column);

    Statement uniques =
        database.prepare("SELECT list.name, info.cid FROM pragma_index_list(?1) AS list"
                         " JOIN pragma_index_info(list.name) AS info"
                         " WHERE list.\"unique\" AND list.origin = 'c' ORDER BY list.name, info.seqno");
    uniques.bind(1, SqlValue::fromText(name));
    QByteArray index;
    while (uniques.step()) {
        if (uniques.text(0) != index) {
            index = uniques.text(0);
            table.uniques.append(QList<int>());
        }
        table.uniques.last().append(int(uniques.integer(1)));
    }
    return table;
}

QByteArray joined(const SourceTable &table, const QList<int> &columns)
{
    QByteArrayList names;
    for (const int column : columns)
        names.append(sqlName(table.columns[column].name));
    return names.join(", ");
}

} // namespace

QByteArray SourceTable::header() const
{
    QByteArrayList names;
    for (const SourceColumn &column : columns)
        names.append(column.name);
    return names.join(',');
}

QByteArray SourceTable::columnList() const
{
    QList<int> all;
    for (int column = 0; column < columns.size(); ++column)
        all.append(column);
    return joined(*this, all);
}

QByteArray SourceTable::keyList() const
{
    return joined(*this, key);
}

SourceSchema::SourceSchema()
{
    initResource();
    QFile file(QStringLiteral(":/schema/catalogue.sql"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("catalogue.sql is not part of this program");
    const QByteArray script = file.readAll();
    const qsizetype indexes = script.indexOf("\n-- Indexes\n") + 1;
    Q_ASSERT(indexes > 0);
    m_tablesScript = script.first(indexes);
    m_indexesScript = script.sliced(indexes);

    Database database = Database::temporary();
    database.run(script);
    m_version = int(database.number("PRAGMA user_version"));
    Statement names = database.prepare("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name");
    while (names.step())
        m_tables.append(describe(database, names.text(0)));
}

const SourceSchema &SourceSchema::current()
{
    static const SourceSchema schema;
    return schema;
}

namespace metakey {

bool isAddedByBuild(QByteArrayView key)
{
    return key == schemaVersion || key == sourceChecksum || key == toolVersion || key.startsWith("source.");
}

QByteArray fileName(const SourceTable &table, const SourceColumn &column, qint64 rowKey)
{
    return "source." + table.name + '.' + column.name + '.' + QByteArray::number(rowKey);
}

} // namespace metakey

} // namespace zrsupply
