// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A catalogue of the fixture's rows in as few bytes as possible, so that each of them can be changed.
struct SmallCatalogue
{
    QByteArray encoding = "UTF-8";
    int pageSize = 512;

    /// Makes the file; stops the test program where it cannot.
    void make(const QString &path) const;
    QByteArray bytes() const;
};

/// Runs a script on the file over a connection of its own; what SQLite complains about, empty when it ran.
QString runSql(const QString &path, const QByteArray &script);
/// The same where nothing may go wrong.
void mustRunSql(const QString &path, const QByteArray &script);

QByteArray bytesOfFile(const QString &path);
/// Replaces what the file holds, in place.
void writeFile(const QString &path, const QByteArray &bytes);
