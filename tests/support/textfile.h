// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

/// The whole text of a file; empty where it cannot be read.
inline QString readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Makes a file of this text, or ends the test program.
inline void writeAll(const QString &path, const QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(path));
}
