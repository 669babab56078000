// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace zrsupply {

/// A column of catalogue.sql.
struct SourceColumn
{
    enum class Type { Integer, Real, Text, Blob };

    QByteArray name;
    Type type = Type::Text;
    bool notNull = false;
};

/// A table of catalogue.sql: columns are numbered as they stand there, from 0.
struct SourceTable
{
    QByteArray name;
    QList<SourceColumn> columns;
    QList<int> key;            ///< Columns of the primary key.
    QList<QList<int>> uniques; ///< Columns of each further unique index.

    QByteArray fileName() const { return name + ".csv"; }
    /// The first line of its file, without the line's end.
    QByteArray header() const;
    /// "itemNum, supplyId" as SQL, every name in quotes.
    QByteArray columnList() const;
    QByteArray keyList() const;
};

/// catalogue.sql, the one place where tables and columns are defined. The text is part of the program.
class SourceSchema
{
public:
    static const SourceSchema &current();

    int version() const { return m_version; }
    /// In the order of their names' bytes.
    const QList<SourceTable> &tables() const { return m_tables; }
    /// What to run before the rows are loaded, and after.
    const QByteArray &tablesScript() const { return m_tablesScript; }
    const QByteArray &indexesScript() const { return m_indexesScript; }

private:
    SourceSchema();

    QByteArray m_tablesScript;
    QByteArray m_indexesScript;
    int m_version = 0;
    QList<SourceTable> m_tables;
};

/// Keys of the table meta that the build adds and a dump leaves out, so that they are no part of the sources.
namespace metakey {
inline const QByteArray schemaVersion = QByteArrayLiteral("schema_version");
inline const QByteArray sourceChecksum = QByteArrayLiteral("source_checksum");
inline const QByteArray toolVersion = QByteArrayLiteral("tool_version");

bool isAddedByBuild(QByteArrayView key);
/// "source.background.svg.1": the key under which the file name of a picture is kept.
QByteArray fileName(const SourceTable &table, const SourceColumn &column, qint64 rowKey);
} // namespace metakey

} // namespace zrsupply
