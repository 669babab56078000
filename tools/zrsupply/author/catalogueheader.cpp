#include "author/catalogueheader.h"

#include "author/schema.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QtEndian>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype headerBytes = 100;

// Byte offsets in the header of an SQLite file.
constexpr qsizetype pageSizeAt = 16;
constexpr qsizetype writeVersionAt = 18;
constexpr qsizetype readVersionAt = 19;
constexpr qsizetype changeCounterAt = 24;
constexpr qsizetype pageCountAt = 28;
constexpr qsizetype userVersionAt = 60;
constexpr qsizetype countValidForAt = 92;

Failure failed(const QString &message, const QString &remedy)
{
    return {Status::Failed, message, remedy, {}};
}

quint32 number(const QByteArray &header, qsizetype offset)
{
    return qFromBigEndian<quint32>(header.constData() + offset);
}

/// Bytes that the file has to have, 0 when the header does not say.
qint64 expectedSize(const QByteArray &header)
{
    if (number(header, changeCounterAt) != number(header, countValidForAt))
        return 0;
    const int pageSize = qFromBigEndian<quint16>(header.constData() + pageSizeAt);
    constexpr qint64 largestPage = 65536; // does not fit the field, which then holds 1
    return (pageSize == 1 ? largestPage : pageSize) * qint64(number(header, pageCountAt));
}

std::optional<Failure> journalProblem(const QString &path, const QByteArray &header)
{
    const QString repair = u"sqlite3 %1 'PRAGMA journal_mode = DELETE'"_s.arg(path);
    constexpr char wal = 2;
    if (header[writeVersionAt] > wal || header[readVersionAt] > wal)
        return failed(u"%1 has a file format that this SQLite does not know"_s.arg(path),
                      u"install a newer SQLite, or build the catalogue again"_s);
    if (header[writeVersionAt] == wal || header[readVersionAt] == wal)
        return failed(u"%1 is in write-ahead-log mode, which a catalogue that is only read cannot be"_s.arg(path),
                      u"put it in rollback mode: "_s + repair);
    for (const QString &side : {path + u"-journal"_s, path + u"-wal"_s}) {
        if (QFileInfo(side).size() > 0)
            return failed(u"%1 lies beside the catalogue: a change of it was not finished"_s.arg(side),
                          u"finish or undo the change: %1; or build the catalogue again"_s.arg(repair));
    }
    return {};
}

} // namespace

std::optional<Failure> headerProblem(const QString &path)
{
    const QString rebuild = u"build it again from its sources (zrsupply catalogue build), or take another copy"_s;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return failed(u"%1 cannot be read: %2"_s.arg(path, file.errorString()), rebuild);
    const QByteArray header = file.read(headerBytes);
    if (!header.startsWith(QByteArray("SQLite format 3\0", 16)))
        return failed(u"%1 is not an SQLite database"_s.arg(path),
                      u"name a catalogue file; zrsupply catalogue build makes one"_s);
    if (header.size() < headerBytes)
        return failed(u"%1 is damaged: it ends after %2 bytes"_s.arg(path).arg(header.size()), rebuild);
    if (auto problem = journalProblem(path, header))
        return problem;
    const qint64 expected = expectedSize(header);
    if (file.size() < expected)
        return failed(
            u"%1 is damaged: it is cut short, %2 of %3 bytes are there"_s.arg(path).arg(file.size()).arg(expected),
            rebuild);
    const auto version = qint64(qint32(number(header, userVersionAt)));
    const int known = SourceSchema::current().version();
    if (version > known)
        return failed(u"%1 has schema version %2, this zrsupply knows %3"_s.arg(path).arg(version).arg(known),
                      u"install a newer zrsupply, or build the catalogue with this one"_s);
    return {};
}

} // namespace zrsupply
