// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/outputplace.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Of this process, so that two runs at a time do not meet.
QString partPathOf(const QString &path)
{
    return path + u".part."_s + QString::number(::getpid());
}

Failure cannotWrite(const QString &path, const QString &reason)
{
    return {Status::Failed,
            u"%1 cannot be written: %2"_s.arg(path, reason),
            u"give yourself permission to write in its folder, make room, or choose another place for the output"_s,
            {}};
}

void requireFolderOf(const QString &path)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    if (!folder.isDir()) {
        throw Failure{Status::Failed,
                      u"the folder %1 does not exist"_s.arg(folder.filePath()),
                      u"make it first (mkdir -p), or choose another place for the output"_s,
                      {}};
    }
}

/// Makes sure that what was written, and a rename, outlive a loss of power. `name` is a file or a folder.
void sync(const QString &name)
{
    const int descriptor = ::open(QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        throw cannotWrite(name, systemError());
    const int result = ::fsync(descriptor);
    const QString reason = systemError();
    ::close(descriptor);
    if (result != 0)
        throw cannotWrite(name, reason);
}

void rename(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw cannotWrite(to, systemError());
    sync(QFileInfo(to).absolutePath());
}

} // namespace

OutputFile::OutputFile(const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_part(partPathOf(m_path))
{
    const QFileInfo info(m_path);
    if (info.isDir() || path.endsWith(u'/')) {
        throw Failure{Status::Failed, u"%1 is a folder"_s.arg(path), u"name a file in it"_s, {}};
    }
    if (info.exists() && !info.isFile()) {
        throw Failure{
            Status::Failed, u"%1 is not an ordinary file"_s.arg(path), u"choose another place for the output"_s, {}};
    }
    requireFolderOf(m_path);
    for (const QString &side : {m_path + u"-journal"_s, m_path + u"-wal"_s}) {
        if (QFileInfo::exists(side)) {
            throw Failure{Status::Failed,
                          u"%1 lies beside the output and would be applied to it as soon as it is opened"_s.arg(side),
                          u"make sure that no program uses the old file, then remove %1"_s.arg(side),
                          {}};
        }
    }
    const int descriptor =
        ::open(QFile::encodeName(m_part).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        const Failure failure = cannotWrite(path, systemError());
        m_part.clear();
        throw failure;
    }
    ::close(descriptor);
}

OutputFile::~OutputFile()
{
    if (!m_part.isEmpty())
        QFile::remove(m_part);
}

void OutputFile::publish()
{
    sync(m_part);
    rename(m_part, m_path);
    m_part.clear();
}

OutputFolder::OutputFolder(const QString &path)
    : m_path(QFileInfo(QDir::cleanPath(path)).absoluteFilePath())
    , m_part(partPathOf(m_path))
{
    const QFileInfo info(m_path);
    if (info.exists() && !info.isDir()) {
        throw Failure{Status::Failed, u"%1 is a file, not a folder"_s.arg(path), u"name a new folder"_s, {}};
    }
    if (info.isDir() && !QDir(m_path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        throw Failure{Status::Failed,
                      u"the folder %1 is not empty"_s.arg(path),
                      u"name a new folder; nothing is written over"_s,
                      {}};
    }
    requireFolderOf(m_path);
    if (!QDir().mkdir(m_part))
        throw cannotWrite(path, systemError());
}

OutputFolder::~OutputFolder()
{
    if (!m_part.isEmpty())
        QDir(m_part).removeRecursively();
}

void OutputFolder::makeFolder(const QString &name)
{
    if (!QDir(m_part).mkpath(name))
        throw cannotWrite(path(name), systemError());
}

void OutputFolder::publish()
{
    const QDir::Filters all = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot;
    const QDir part(m_part);
    for (const QFileInfo &entry : part.entryInfoList(all)) {
        if (entry.isDir()) {
            for (const QFileInfo &inner : QDir(entry.filePath()).entryInfoList(QDir::Files))
                sync(inner.filePath());
        }
        sync(entry.filePath());
    }
    rename(m_part, m_path);
    m_part.clear();
}

} // namespace zrsupply
