// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/commandrun.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

#include <linux/capability.h>
#include <sys/prctl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A comma between quotes belongs to the field, two quotes there stand for one.
QStringList lineFields(const QString &line)
{
    QStringList fields = {QString()};
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool twoQuotes = quoted && line.mid(i, 2) == "\"\""_L1;
        if (twoQuotes)
            fields.last() += line[i++];
        else if (line[i] == u'"')
            quoted = !quoted;
        else if (line[i] == u',' && !quoted)
            fields.append(QString());
        else
            fields.last() += line[i];
    }
    return fields;
}

} // namespace

CommandRun &CommandRun::run()
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"NO_COLOR"_s, u"COLORTERM"_s, u"TERM"_s, u"QT_PLUGIN_PATH"_s})
        variables.remove(name);
    for (auto variable = environment.cbegin(); variable != environment.cend(); ++variable) {
        if (variable.value().isEmpty())
            variables.remove(variable.key());
        else
            variables.insert(variable.key(), variable.value());
    }

    QProcess process;
    process.setProcessEnvironment(variables);
    if (!terminal.isEmpty())
        process.setStandardOutputFile(terminal);
    if (withoutPrivilege) {
        // Takes effect when the program is loaded, and only for a superuser: everyone else lacks it already.
        process.setChildProcessModifier([] {
            ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
            ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
        });
    }
    process.start(program.isEmpty() ? commandPath() : program, words);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        qFatal("zrsupply %s did not end: %s", qPrintable(words.join(u' ')), qPrintable(process.errorString()));
    status = process.exitCode();
    out = QString::fromUtf8(process.readAllStandardOutput());
    err = QString::fromUtf8(process.readAllStandardError());
    return *this;
}

QJsonObject CommandRun::json() const
{
    return QJsonDocument::fromJson(out.toUtf8()).object();
}

QJsonObject CommandRun::error() const
{
    return QJsonDocument::fromJson(err.toUtf8()).object().value(u"error"_s).toObject();
}

CommandRun zrsupply(const QStringList &words)
{
    CommandRun run;
    run.words = words;
    run.environment = {{u"ZRSUPPLY_CATALOGUE"_s, sampleCatalogue()}};
    return run;
}

QString commandPath()
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_COMMAND");
}

QString sampleCatalogue()
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_CATALOGUE");
}

QString sourcePath(const QString &relative)
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_SOURCES") + u'/' + relative;
}

QList<QHash<QString, QString>> sampleRows(const QString &table)
{
    QFile file(sourcePath(u"schema/sample/%1.csv"_s.arg(table)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList columns = lines.takeFirst().split(u',');
    QList<QHash<QString, QString>> rows;
    for (const QString &line : lines) {
        const QStringList fields = lineFields(line);
        if (fields.size() != columns.size())
            qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(line));
        QHash<QString, QString> row;
        for (qsizetype i = 0; i < columns.size(); ++i)
            row.insert(columns[i], fields[i]);
        rows.append(row);
    }
    return rows;
}

QHash<QString, QString> sampleRow(const QString &table, const QString &column, const QString &value)
{
    for (const auto &row : sampleRows(table)) {
        if (row.value(column) == value)
            return row;
    }
    return {};
}
