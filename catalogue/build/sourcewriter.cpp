// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/sourcewriter.h"

#include "build/csv.h"

#include <QtCore/QDir>

#include <charconv>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype pendingBytes = 1 << 18;

void appendReal(QByteArray &line, double number)
{
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    const QByteArrayView digits(text, end - text);
    line.append(digits);
    // A point tells a number of inches from a count. An exponent, "inf" and "nan" say so themselves.
    if (std::all_of(digits.begin(), digits.end(), [](char c) { return c == '-' || (c >= '0' && c <= '9'); }))
        line.append(".0");
}

QByteArray sha256(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha256).toHex();
}

Failure cannotWrite(const QFile &file)
{
    return {Status::Failed,
            u"%1 cannot be written: %2"_s.arg(file.fileName(), file.errorString()),
            u"make room, or choose another place for the output"_s,
            {}};
}

} // namespace

bool isPlainFileName(QByteArrayView name)
{
    constexpr qsizetype longest = 255;
    return !name.isEmpty() && name.size() <= longest && !name.startsWith('.') && !name.contains('/') &&
           !name.contains('\0');
}

SourceWriter::SourceWriter(const QString &folder)
    : m_folder(folder)
{
}

void SourceWriter::beginTable(const SourceTable &table)
{
    m_table = &table;
    m_hash.reset();
    if (m_folder) {
        m_file = std::make_unique<QFile>(m_folder->path(QString::fromUtf8(table.fileName())));
        if (!m_file->open(QIODevice::WriteOnly | QIODevice::NewOnly))
            throw cannotWrite(*m_file);
    }
    m_pending = table.header() + '\n';
}

bool SourceWriter::addRow(const Row &row)
{
    for (qsizetype i = 0; i < m_table->columns.size(); ++i) {
        if (i > 0)
            m_pending.append(',');
        const SqlValue &value = row[size_t(i)];
        switch (value.kind) {
        case SqlValue::Kind::Null:
            break;
        case SqlValue::Kind::Integer:
            m_pending.append(QByteArray::number(value.integer));
            break;
        case SqlValue::Kind::Real:
            appendReal(m_pending, value.real);
            break;
        case SqlValue::Kind::Text:
            appendCsvField(m_pending, value.bytes);
            break;
        case SqlValue::Kind::Blob: {
            QByteArray name = value.fileName.toByteArray();
            writeBlob(m_table->columns[i], value, name);
            appendCsvField(m_pending, name);
            break;
        }
        }
    }
    m_pending.append('\n');
    if (m_pending.size() > pendingBytes)
        flush();
    return true;
}

void SourceWriter::flush()
{
    m_hash.addData(m_pending);
    if (m_file && m_file->write(m_pending) != m_pending.size())
        throw cannotWrite(*m_file);
    m_pending.clear();
}

void SourceWriter::endTable()
{
    flush();
    m_tableHashes.insert(m_table->fileName(), m_hash.result().toHex());
    if (m_file && !m_file->flush())
        throw cannotWrite(*m_file);
    m_file.reset();
}

void SourceWriter::writeBlob(const SourceColumn &column, const SqlValue &value, const QByteArray &name)
{
    const QByteArray hash = sha256(value.bytes);
    const QByteArray path = column.name + '/' + name;
    const auto known = m_blobHashes.constFind(path);
    if (known != m_blobHashes.constEnd()) {
        if (*known == hash)
            return;
        throw Failure{Status::Failed,
                      u"two pictures of table %1 are called %2 but are not the same"_s.arg(
                          QString::fromUtf8(m_table->name), QString::fromUtf8(path)),
                      u"remove the rows of table meta whose keys begin with source.%1; "
                      "the pictures are then named after their ids"_s.arg(QString::fromUtf8(m_table->name)),
                      {}};
    }
    m_blobHashes.insert(path, hash);
    if (!m_folder)
        return;
    m_folder->makeFolder(QString::fromUtf8(column.name));
    QFile file(m_folder->path(QString::fromUtf8(path)));
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                         file.write(value.bytes.data(), value.bytes.size()) == value.bytes.size() && file.flush();
    if (!written)
        throw cannotWrite(file);
}

QByteArray SourceWriter::checksum() const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const auto &hashes : {m_tableHashes, m_blobHashes}) {
        for (auto line = hashes.constKeyValueBegin(); line != hashes.constKeyValueEnd(); ++line)
            hash.addData(line->second + "  " + line->first + '\n');
    }
    return hash.result().toHex();
}

void SourceWriter::publish()
{
    m_folder->publish();
}

} // namespace zrsupply
