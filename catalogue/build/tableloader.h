// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/csv.h"
#include "build/sourcereader.h"

#include <QtCore/QHash>

namespace zrsupply {

/// Loads the file of one table.
class TableLoader
{
public:
    TableLoader(SourceReader &sources, const SourceTable &table, CatalogueWriter &writer);
    void load();

private:
    /// A row that has a key which other rows have.
    struct Clash
    {
        QList<int> columns;
        QByteArray key;
        int line;
        int column;
    };

    bool hasRoom() const { return !m_sources.isCutShort(); }
    void add(int line, int column, const QString &message, const QString &remedy, int otherLine = 0);
    void add(const CsvField &field, const QString &message, const QString &remedy);
    void missingFile();
    bool checkHeader(CsvReader &csv);
    void loadRow(const CsvReader &csv);
    bool checkFieldCount(const CsvReader &csv);
    bool convert(const CsvField &field, int column, SqlValue &value);
    bool convertText(const CsvField &field, int column, SqlValue &value);
    bool convertBlob(const CsvField &field, int column, SqlValue &value);
    QStringList unnamedFiles(const QString &folder, int column) const;
    void nameClashes(QList<Clash> clashes);
    QList<Clash> uniqueClashes() const;

    SourceReader &m_sources;
    const SourceTable &m_table;
    CatalogueWriter &m_writer;
    QString m_file;
    Row m_row;
    QByteArray m_blob;
    QByteArray m_blobName;
    QList<Clash> m_clashes;
    bool m_isComplete = true; // every row is in the catalogue
};

} // namespace zrsupply
