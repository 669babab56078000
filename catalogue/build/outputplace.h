// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "text/failure.h"
#include "usekit.h"

namespace zrsupply {

/// A file that appears whole or not at all: it is made under another name beside its place, synced and renamed. What
/// stood there before stays until then, and stays after an error.
class OutputFile
{
public:
    /// Makes the empty file beside `path`. Throws Failure when nothing can be written there.
    explicit OutputFile(const QString &path);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    QString path() const { return m_path; }
    /// Where to write, absolute.
    QString partPath() const { return m_part; }
    void publish();

private:
    QString m_path;
    QString m_part;
};

/// The same for a folder. Its place must be free or an empty folder.
class OutputFolder
{
public:
    explicit OutputFolder(const QString &path);
    ~OutputFolder();
    OutputFolder(const OutputFolder &) = delete;
    OutputFolder &operator=(const OutputFolder &) = delete;

    /// Where to write the file `name`.
    QString path(const QString &name) const { return m_part + u'/' + name; }
    void makeFolder(const QString &name);
    void publish();

private:
    QString m_path;
    QString m_part;
};

} // namespace zrsupply
