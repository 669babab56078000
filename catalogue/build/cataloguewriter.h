// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/outputplace.h"
#include "build/progress.h"
#include "build/rowsink.h"

#include <optional>

namespace zrsupply {

/// A key that several rows of a table share.
struct SharedKey
{
    QList<int> columns;
    QList<QByteArray> values; ///< As text, one per column.
};

/// Writes rows into a new catalogue file. The same rows give the same bytes in whatever order they come.
class CatalogueWriter : public RowSink
{
public:
    /// Throws Failure when `path` cannot be written.
    CatalogueWriter(const QString &path, Progress &progress);

    void beginTable(const SourceTable &table) override;
    bool addRow(const Row &row) override;
    void endTable() override;

    /// Keys that break a unique index of the table, which must be complete.
    QList<SharedKey> sharedKeys(const SourceTable &table) const;

    /// Adds what the file says about itself, makes the indexes and puts the file in its place.
    void publish();
    /// Of the sources in their normal form; once published.
    QByteArray checksum() const { return m_checksum; }

private:
    void addMeta(const QByteArray &key, const QByteArray &value);
    void addFileNames();

    OutputFile m_output;
    Progress &m_progress;
    Database m_database;
    const SourceTable *m_table = nullptr;
    std::optional<Statement> m_insert;
    QList<QPair<QByteArray, QByteArray>> m_fileNames; // key and value in meta
    QByteArray m_checksum;
};

/// A complaint of SQLite about writing as what a person can do about it.
Failure writingFailed(const DatabaseError &error);

} // namespace zrsupply
