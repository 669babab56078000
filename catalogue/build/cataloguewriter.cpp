// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/cataloguewriter.h"

#include "build/cataloguereader.h"
#include "build/interrupt.h"
#include "build/sourcewriter.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The oldest SQLite release that reads the file, the first with STRICT tables. The header names the release that
/// wrote the file, the one thing that would differ from machine to machine, so this stands in its place.
constexpr quint32 oldestReader = 3037000;

/// The change counter tells whoever has a file open that it is no longer what was read before. SQLite counts writes,
/// which are as many for each release, so that a release copied over another would go unseen and be mixed with it.
/// So it is made of what is in the file.
constexpr qint64 changeCounterOffset = 24;
constexpr qint64 countValidForOffset = 92; // the change counter that the number of pages in the header belongs to
constexpr qint64 writerReleaseOffset = 96;

/// Sets a number of the header: four bytes, big-endian.
bool setNumber(QFile &file, qint64 offset, quint32 number)
{
    const quint32 bigEndian = qToBigEndian(number);
    return file.seek(offset) && file.write(reinterpret_cast<const char *>(&bigEndian), 4) == 4;
}

/// The bytes of a page that hold nothing: the gap between the list of cells and the cells, and the inside of what was
/// freed between these. Each release of SQLite leaves other bytes of its work in them.
void zeroUnused(uchar *page, qsizetype size, qsizetype header)
{
    const auto number = [page](qsizetype offset) { return qsizetype(qFromBigEndian<quint16>(page + offset)); };
    const auto zero = [page, size](qsizetype begin, qsizetype end) {
        if (begin >= 0 && begin < end && end <= size)
            std::fill(page + begin, page + end, uchar(0));
    };
    constexpr uchar leaves[] = {10, 13};
    constexpr uchar inner[] = {2, 5};
    const uchar kind = page[header];
    const bool isLeaf = std::find(std::begin(leaves), std::end(leaves), kind) != std::end(leaves);
    if (!isLeaf && std::find(std::begin(inner), std::end(inner), kind) == std::end(inner))
        return; // no page of a tree: the rest of a long value, whose unused end SQLite zeroes
    const qsizetype cells = header + (isLeaf ? 8 : 12);
    zero(cells + 2 * number(header + 3), number(header + 5));
    for (qsizetype free = number(header + 1); free > 0 && free + 4 <= size; free = number(free)) {
        zero(free + 4, free + number(free + 2));
        if (number(free) <= free)
            break; // the last one
    }
}

bool zeroUnused(QFile &file)
{
    constexpr qint64 pageSizeOffset = 16;
    constexpr qsizetype fileHeader = 100; // before the header of the first page
    uchar *bytes = file.map(0, file.size());
    if (!bytes)
        return false;
    const auto pageSize = qsizetype(qFromBigEndian<quint16>(bytes + pageSizeOffset));
    for (qint64 page = 0; page + pageSize <= file.size(); page += pageSize)
        zeroUnused(bytes + page, pageSize, page == 0 ? fileHeader : 0);
    return file.unmap(bytes);
}

bool setHeader(QFile &file)
{
    if (!file.open(QIODevice::ReadWrite) || !zeroUnused(file) ||
        !setNumber(file, writerReleaseOffset, oldestReader) || !setNumber(file, changeCounterOffset, 0) ||
        !setNumber(file, countValidForOffset, 0))
        return false;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.seek(0) || !hash.addData(&file))
        return false;
    const auto counter = qFromBigEndian<quint32>(hash.result().constData());
    return setNumber(file, changeCounterOffset, counter) && setNumber(file, countValidForOffset, counter) &&
           file.flush();
}

} // namespace

Failure writingFailed(const DatabaseError &error)
{
    InterruptGuard::check();
    QString remedy = u"try again; if it stays so, check the disk"_s;
    if ((error.code & 0xff) == SQLITE_FULL)
        remedy = u"make room on the disk of the output and on that of temporary files (TMPDIR names another)"_s;
    return {Status::Failed, u"the catalogue cannot be written: "_s + error.message, remedy, {}};
}

CatalogueWriter::CatalogueWriter(const QString &path, Progress &progress)
    : m_output(path)
    , m_progress(progress)
    , m_database(Database::temporary())
{
    m_database.run(SourceSchema::current().tablesScript());
    // Rows are collected in a private database, which nobody reads before it is complete and nobody misses after an
    // error, and are written out once, in order. Freed bytes are zeroed, so that no garbage gets into the file.
    m_database.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
                   "PRAGMA cache_size = -24576; PRAGMA secure_delete = ON; BEGIN");
    m_database.stopWhen([] { return InterruptGuard::isInterrupted(); });
}

void CatalogueWriter::beginTable(const SourceTable &table)
{
    m_table = &table;
    const QByteArray places = QByteArrayLiteral(", ?").repeated(table.columns.size()).sliced(2);
    m_insert.emplace(m_database.prepare("INSERT INTO " + sqlName(table.name) + " (" + table.columnList() +
                                        ") VALUES (" + places + ")"));
}

bool CatalogueWriter::addRow(const Row &row)
{
    if (!m_insert->insert(row))
        return false;
    for (qsizetype i = 0; i < m_table->columns.size(); ++i) {
        const SqlValue &value = row[size_t(i)];
        if (value.kind == SqlValue::Kind::Blob) {
            const qint64 key = row[size_t(m_table->key.first())].integer;
            m_fileNames.append({metakey::fileName(*m_table, m_table->columns[i], key), value.fileName.toByteArray()});
        }
    }
    return true;
}

void CatalogueWriter::endTable()
{
    m_insert.reset();
}

QList<SharedKey> CatalogueWriter::sharedKeys(const SourceTable &table) const
{
    QList<SharedKey> shared;
    for (const QList<int> &columns : table.uniques) {
        QByteArrayList names;
        QByteArrayList filled;
        for (const int column : columns) {
            names.append(sqlName(table.columns[column].name));
            filled.append(names.last() + " IS NOT NULL"); // NULL is no value and is never twice
        }
        Statement statement =
            m_database.prepare("SELECT " + names.join(", ") + " FROM " + sqlName(table.name) + " WHERE " +
                               filled.join(" AND ") + " GROUP BY " + names.join(", ") + " HAVING count(*) > 1");
        while (statement.step()) {
            SharedKey key{columns, {}};
            for (int i = 0; i < columns.size(); ++i)
                key.values.append(statement.text(i));
            shared.append(key);
        }
    }
    return shared;
}

void CatalogueWriter::addMeta(const QByteArray &key, const QByteArray &value)
{
    if (!m_insert->insert({SqlValue::fromText(key), SqlValue::fromText(value)}))
        throw Failure{Status::Failed,
                      u"table meta has the key %1 already"_s.arg(QString::fromUtf8(key)),
                      u"remove it; the build adds it"_s,
                      {}};
}

void CatalogueWriter::addFileNames()
{
    for (const auto &[key, name] : m_fileNames)
        addMeta(key, name);
}

void CatalogueWriter::publish()
{
    try {
        const SourceSchema &schema = SourceSchema::current();
        m_insert.emplace(m_database.prepare("INSERT INTO meta (key, value) VALUES (?, ?)"));
        addFileNames();
        m_progress.stage(u"checksum"_s);
        SourceWriter sources;
        readCatalogue(m_database, sources, m_progress);
        m_checksum = sources.checksum();
        addMeta(metakey::sourceChecksum, m_checksum);
        addMeta(metakey::schemaVersion, QByteArray::number(schema.version()));
        addMeta(metakey::toolVersion, QCoreApplication::applicationVersion().toUtf8());
        m_insert.reset();
        m_database.run("COMMIT");

        m_progress.stage(u"indexes"_s);
        m_database.run(schema.indexesScript());
        // Only the list of SKUs needs statistics. With those of roll_supplyId, whose ids are nearly all unique, the
        // planner holds sorting one row for free and no longer takes the order from the index.
        m_database.run("ANALYZE materialwidth; ANALYZE roll_materialWidthId");

        m_progress.stage(u"writing"_s);
        const QByteArray part = QFile::encodeName(m_output.partPath());
        Statement vacuum = m_database.prepare("VACUUM INTO ?1");
        vacuum.bind(1, SqlValue::fromText(part));
        vacuum.step();
    } catch (const DatabaseError &error) {
        throw writingFailed(error);
    }
    QFile file(m_output.partPath());
    if (!setHeader(file))
        throw writingFailed({SQLITE_IOERR, file.errorString()});
    file.close();
    InterruptGuard::check();
    m_output.publish();
}

} // namespace zrsupply
