// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// The sources of the sample in a folder of their own, to be changed at will, and room for what is made of them.
class SourceFolder
{
public:
    SourceFolder();

    QString path() const { return m_folder.filePath(QStringLiteral("sources")); }
    /// A path for output; nothing is there yet.
    QString out(const QString &name) const { return m_folder.filePath(QStringLiteral("out/") + name); }
    /// What is in the folder of the output.
    QStringList outNames() const;

    QByteArray read(const QString &name) const;
    void write(const QString &name, const QByteArray &bytes) const;
    /// Replaces the text in line `line`, which has to hold it.
    void edit(const QString &name, int line, const QByteArray &before, const QByteArray &after) const;
    void append(const QString &name, const QByteArray &bytes) const;
    void remove(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

QByteArray bytesOf(const QString &path);
void writeBytes(const QString &path, const QByteArray &bytes);
/// All files below a folder, by their names in it.
QMap<QString, QByteArray> filesBelow(const QString &folder);
/// The rows that a query gives on a file, fields joined by "|", NULL as "NULL".
QStringList rowsOf(const QString &file, const QString &query);
/// Runs statements, separated by semicolons, on a file.
void runOn(const QString &file, const QString &script);
