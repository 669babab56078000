// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QStringList>

/// One run of the command `zrsupply`: what it was given and what came back.
struct CommandRun
{
    QStringList words;
    QHash<QString, QString> environment; ///< Beside a clean one; an empty value takes the variable away.
    QByteArray input;
    QString program = {};          ///< Another file than the built command.
    QString terminal = {};         ///< A device that stdout goes to; `out` then stays empty.
    bool withoutPrivilege = false; ///< Without the right to read what file permissions forbid.

    int status = -1;
    QString out;
    QString err;

    /// Runs the command; returns itself for reading. A run that does not end fails the test program.
    CommandRun &run();
    QJsonObject json() const;
    /// The member `error` of stderr.
    QJsonObject error() const;
};

/// With the sample catalogue.
CommandRun zrsupply(const QStringList &words);

QString commandPath();
QString sampleCatalogue();
QString sourcePath(const QString &relative);

/// The rows of a table of the sample, as its text sources have them, each by column name. For files whose fields
/// hold no line breaks.
QList<QHash<QString, QString>> sampleRows(const QString &table);
/// The row whose `column` is `value`.
QHash<QString, QString> sampleRow(const QString &table, const QString &column, const QString &value);
