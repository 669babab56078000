// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/cataloguereader.h"

#include "build/sourcewriter.h"

#include <QtCore/QHash>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

bool hasTable(const Database &database, const QByteArray &name)
{
    Statement statement =
        database.prepare("SELECT 1 FROM sqlite_schema WHERE type IN ('table', 'view') AND lower(name) = lower(?1)");
    statement.bind(1, SqlValue::fromText(name));
    return statement.step();
}

/// File names of pictures by their key in meta, as far as the catalogue tells them.
QHash<QByteArray, QByteArray> fileNames(const Database &database)
{
    QHash<QByteArray, QByteArray> names;
    if (!hasTable(database, "meta"))
        return names;
    Statement statement = database.prepare("SELECT key, value FROM meta WHERE key GLOB 'source.*'");
    while (statement.step())
        names.insert(statement.text(0), statement.text(1));
    return names;
}

class TableReader
{
public:
    TableReader(const Database &database, const SourceTable &table, const QHash<QByteArray, QByteArray> &names)
        : m_table(table)
        , m_names(names)
        , m_statement(database.prepare("SELECT " + table.columnList() + " FROM " + sqlName(table.name) +
                                       " ORDER BY " + table.keyList()))
        , m_row(size_t(table.columns.size()))
    {
    }

    bool next()
    {
        if (!m_statement.step())
            return false;
        for (size_t i = 0; i < m_row.size(); ++i)
            m_row[i] = m_statement.value(int(i));
        for (size_t i = 0; i < m_row.size(); ++i)
            nameFile(m_row[i], m_table.columns[qsizetype(i)]);
        return true;
    }

    const Row &row() const { return m_row; }

private:
    /// A catalogue without names of its files gets pictures that are named after their ids.
    void nameFile(SqlValue &value, const SourceColumn &column)
    {
        if (column.type == SourceColumn::Type::Blob && value.kind == SqlValue::Kind::Text)
            value.kind = SqlValue::Kind::Blob; // an SVG is text to a catalogue that is not strict
        if (value.kind != SqlValue::Kind::Blob)
            return;
        const SqlValue &key = m_row[size_t(m_table.key.first())];
        if (column.type != SourceColumn::Type::Blob) {
            throw Failure{
                Status::Failed,
                u"%1.%2 holds bytes that are no text"_s.arg(QString::fromUtf8(m_table.name),
                                                            QString::fromUtf8(column.name)),
                u"correct the value in the catalogue; %1 tells its type"_s.arg(u"SELECT typeof(%1) FROM %2"_s.arg(
                    QString::fromUtf8(column.name), QString::fromUtf8(m_table.name))),
                {}};
        }
        m_fileName = m_names.value(metakey::fileName(m_table, column, key.integer));
        if (!isPlainFileName(m_fileName))
            m_fileName = QByteArray::number(key.integer) + '.' + column.name;
        value.fileName = m_fileName;
    }

    const SourceTable &m_table;
    const QHash<QByteArray, QByteArray> &m_names;
    Statement m_statement;
    Row m_row;
    QByteArray m_fileName;
};

} // namespace

QString promisedChecksum(const Database &database)
{
    if (!hasTable(database, "meta"))
        return {};
    Statement statement = database.prepare("SELECT value FROM meta WHERE key = ?1");
    statement.bind(1, SqlValue::fromText(metakey::sourceChecksum));
    return statement.step() ? QString::fromUtf8(statement.text(0)) : QString();
}

void readCatalogue(const Database &database, RowSink &sink, Progress &progress)
{
    const QHash<QByteArray, QByteArray> names = fileNames(database);
    for (const SourceTable &table : SourceSchema::current().tables()) {
        const bool isMeta = table.name == "meta";
        sink.beginTable(table);
        if (!isMeta || hasTable(database, table.name)) {
            TableReader reader(database, table, names);
            while (reader.next()) {
                progress.tick();
                if (!isMeta || !metakey::isAddedByBuild(reader.row().front().bytes))
                    sink.addRow(reader.row());
            }
        }
        sink.endTable();
    }
}

} // namespace zrsupply
