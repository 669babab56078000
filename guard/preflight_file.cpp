// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cataloguekeys_p.h"
#include "preflight_p.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZrSupplyGuard {

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

constexpr int rollbackFormat = 1;
constexpr int writeAheadFormat = 2;

quint32 number(const QByteArray &header, qsizetype offset)
{
    return qFromBigEndian<quint32>(header.constData() + offset);
}

int pageSize(const QByteArray &header)
{
    const int size = qFromBigEndian<quint16>(header.constData() + pageSizeAt);
    return size == 1 ? 65536 : size; // the largest does not fit the field
}

struct FirstBytes
{
    QByteArray header;
    qint64 fileSize = 0;
};

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

class Descriptor
{
public:
    // A pipe that was put in the file's place since it was looked at must not keep anybody waiting.
    explicit Descriptor(const QByteArray &path)
        : m_number(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    int number() const { return m_number; }

private:
    int m_number;
};

Preflight unreadable(const QString &path)
{
    return {Finding::NoPermission,
            u"%1 cannot be read: %2"_s.arg(path, systemError()),
            u"give yourself permission to read it (chmod +r), or run as a user who has it"_s,
            {}};
}

/// What is no regular file is never opened: opening alone waits for ever with a pipe, and does things to devices.
Problem kindProblem(const QString &path, mode_t mode)
{
    const QString advice = u"name a catalogue file"_s;
    if (S_ISDIR(mode))
        return Preflight{Finding::NotAFile, u"%1 is a folder, not a catalogue file"_s.arg(path), advice, {}};
    if (!S_ISREG(mode))
        return Preflight{Finding::NotAFile, u"%1 is not an ordinary file"_s.arg(path), advice, {}};
    return {};
}

Problem readFirstBytes(const QString &path, FirstBytes &first)
{
    const QByteArray encoded = QFile::encodeName(path);
    struct stat there = {};
    const bool isName = !encoded.contains('\0'); // the system would read another one
    if (!isName || ::stat(encoded.constData(), &there) != 0) {
        if (isName && errno == EACCES)
            return unreadable(path);
        const bool isLink = isName && QFileInfo(path).isSymLink();
        return Preflight{Finding::Missing,
                         (isLink ? u"the link %1 leads to no file"_s : u"there is no file %1"_s).arg(path),
                         u"name a catalogue file"_s,
                         {}};
    }
    if (auto problem = kindProblem(path, there.st_mode))
        return problem;

    const Descriptor file(encoded);
    if (file.number() < 0 || ::fstat(file.number(), &there) != 0)
        return unreadable(path);
    if (auto problem = kindProblem(path, there.st_mode))
        return problem;
    first.header.resize(headerBytes);
    const ssize_t count = ::read(file.number(), first.header.data(), size_t(headerBytes));
    if (count < 0)
        return unreadable(path);
    first.header.truncate(count);
    first.fileSize = there.st_size;
    return {};
}

Preflight torn(const QString &path, const QString &how)
{
    return {Finding::Torn, u"%1 is damaged: %2"_s.arg(path, how), rebuildAdvice, {}};
}

Problem startProblem(const QString &path, const FirstBytes &first)
{
    if (first.fileSize == 0)
        return Preflight{Finding::Empty,
                         u"%1 is empty"_s.arg(path),
                         u"rebuild the catalogue from its sources, or take another copy of the file"_s,
                         {}};
    if (!first.header.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return Preflight{Finding::NotADatabase,
                         u"%1 is not an SQLite database"_s.arg(path),
                         u"name a catalogue file; zrsupply catalogue build makes one"_s,
                         {}};
    if (first.header.size() < headerBytes)
        return torn(path, u"it ends after %1 bytes"_s.arg(first.header.size()));
    return {};
}

/// How long the file has to be by what it says itself.
Problem lengthProblem(const QString &path, const FirstBytes &first)
{
    const int page = pageSize(first.header);
    if (page < 512 || (page & (page - 1)) != 0)
        return torn(path, u"it has pages of %1 bytes, which SQLite has not"_s.arg(page));
    // The count of pages holds where the change that wrote it was the last one.
    if (number(first.header, changeCounterAt) == number(first.header, countValidForAt)) {
        const qint64 expected = qint64(page) * number(first.header, pageCountAt);
        if (first.fileSize < expected)
            return torn(path, u"it is cut short, %1 of %2 bytes are there"_s.arg(first.fileSize).arg(expected));
    }
    if (first.fileSize % page != 0)
        return torn(path, u"it ends in the middle of a page of %1 bytes"_s.arg(page));
    return {};
}

QString journalAdvice(const QString &path)
{
    return u"sqlite3 %1 'PRAGMA journal_mode = DELETE'"_s.arg(path);
}

Problem formatProblem(const QString &path, const QByteArray &header)
{
    const int writing = quint8(header[writeVersionAt]);
    const int reading = quint8(header[readVersionAt]);
    if (writing > writeAheadFormat || reading > writeAheadFormat)
        return Preflight{Finding::UnknownFormat,
                         u"%1 has a file format that this SQLite does not know"_s.arg(path),
                         u"install a newer SQLite, or build the catalogue again"_s,
                         {}};
    if (writing != rollbackFormat || reading != rollbackFormat)
        return Preflight{Finding::NotRollbackJournal,
                         u"%1 is in write-ahead-log mode, which a catalogue that is only read cannot be"_s.arg(path),
                         u"put it in rollback mode: "_s + journalAdvice(path),
                         {}};
    return {};
}

/// A journal or log of SQLite's beside the file, with bytes in it or not: somebody writes there, or wrote and broke
/// off.
Problem sideProblem(const QString &path)
{
    // SQLite puts them beside the file itself, wherever the link to it lies.
    const QString file = QFileInfo(path).canonicalFilePath();
    constexpr std::array suffixes = {"-journal"_L1, "-wal"_L1, "-shm"_L1};
    const auto found = std::find_if(suffixes.begin(), suffixes.end(),
                                    [&file](QLatin1StringView suffix) { return QFileInfo::exists(file + suffix); });
    if (found != suffixes.end())
        return Preflight{Finding::SideFiles,
                         u"%1 lies beside the catalogue: a change of it was not finished"_s.arg(path + *found),
                         u"finish or undo the change: %1; or build the catalogue again"_s.arg(journalAdvice(path)),
                         {}};
    return {};
}

Problem versionProblem(const QString &path, const QByteArray &header)
{
    const auto version = qint32(number(header, userVersionAt));
    if (version == knownSchemaVersion || version == 0)
        return {};
    return unknownVersion(path, QString::number(version));
}

} // namespace

Preflight unknownVersion(const QString &path, const QString &version)
{
    return {Finding::SchemaVersion,
            u"%1 has schema version %2, known here is %3"_s.arg(path, version).arg(knownSchemaVersion),
            u"install a newer zrsupply and its libraries, or build the catalogue with this one"_s,
            {}};
}

Problem fileProblem(const QString &path)
{
    FirstBytes first;
    if (auto problem = readFirstBytes(path, first))
        return problem;
    if (auto problem = startProblem(path, first))
        return problem;
    if (auto problem = formatProblem(path, first.header))
        return problem;
    if (auto problem = sideProblem(path))
        return problem;
    if (auto problem = lengthProblem(path, first))
        return problem;
    return versionProblem(path, first.header);
}

} // namespace ZrSupplyGuard
