// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/outputplace.h"
#include "build/rowsink.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QMap>

#include <memory>
#include <optional>

namespace zrsupply {

/// Writes rows as sources in their normal form: sorted as they come, numbers as short as they can be read back,
/// quotes where they are needed. What it writes has a checksum; without a folder that is all it makes.
class SourceWriter : public RowSink
{
public:
    /// For the checksum alone.
    SourceWriter() = default;
    /// Into a folder that `publish()` puts in its place.
    explicit SourceWriter(const QString &folder);

    void beginTable(const SourceTable &table) override;
    bool addRow(const Row &row) override;
    void endTable() override;

    /// SHA-256 of the lines "<SHA-256 of the file>  <its name>", first the tables, then the pictures, each sorted by
    /// name: what `sha256sum *.csv svg/*.svg | sha256sum` prints in the sources.
    QByteArray checksum() const;
    void publish();

private:
    void writeBlob(const SourceColumn &column, const SqlValue &value, const QByteArray &name);
    void flush();

    std::optional<OutputFolder> m_folder;
    const SourceTable *m_table = nullptr;
    std::unique_ptr<QFile> m_file;
    QByteArray m_pending;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    QMap<QByteArray, QByteArray> m_tableHashes; // by file name
    QMap<QByteArray, QByteArray> m_blobHashes;
};

/// A file name that stays within its folder: no slash, not hidden, not too long.
bool isPlainFileName(QByteArrayView name);

} // namespace zrsupply
