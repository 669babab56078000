// SPDX-License-Identifier: LGPL-2.1-or-later
#include "support/sourcefolder.h"

#include "support/commandrun.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A connection that is gone at the end of the block.
class Connection
{
public:
    explicit Connection(const QString &file)
        : m_name(QUuid::createUuid().toString())
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
        database.setDatabaseName(file);
        if (!database.open())
            qFatal("cannot open %s", qPrintable(file));
    }
    ~Connection() { QSqlDatabase::removeDatabase(m_name); }
    Q_DISABLE_COPY_MOVE(Connection)

    QSqlQuery run(const QString &text) const
    {
        QSqlQuery query(QSqlDatabase::database(m_name));
        if (!query.exec(text))
            qFatal("%s: %s", qPrintable(text), qPrintable(query.lastError().text()));
        return query;
    }

private:
    QString m_name;
};

} // namespace

SourceFolder::SourceFolder()
{
    QDir folder(m_folder.path());
    if (!folder.mkpath(u"sources/svg"_s) || !folder.mkpath(u"out"_s))
        qFatal("cannot make %s", qPrintable(m_folder.path()));
    const QMap<QString, QByteArray> files = filesBelow(sourcePath(u"schema/sample"_s));
    for (auto file = files.constKeyValueBegin(); file != files.constKeyValueEnd(); ++file)
        write(file->first, file->second);
}

QStringList SourceFolder::outNames() const
{
    return QDir(m_folder.filePath(u"out"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QByteArray SourceFolder::read(const QString &name) const
{
    return bytesOf(path() + u'/' + name);
}

void SourceFolder::write(const QString &name, const QByteArray &bytes) const
{
    writeBytes(path() + u'/' + name, bytes);
}

void SourceFolder::edit(const QString &name, int line, const QByteArray &before, const QByteArray &after) const
{
    QList<QByteArray> lines = read(name).split('\n');
    QByteArray &edited = lines[line - 1];
    const qsizetype place = edited.indexOf(before);
    if (place < 0)
        qFatal("line %d of %s does not hold %s", line, qPrintable(name), before.constData());
    edited.replace(place, before.size(), after);
    write(name, lines.join('\n'));
}

void SourceFolder::append(const QString &name, const QByteArray &bytes) const
{
    write(name, read(name) + bytes);
}

void SourceFolder::remove(const QString &name) const
{
    if (!QFile::remove(path() + u'/' + name))
        qFatal("cannot remove %s", qPrintable(name));
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QMap<QString, QByteArray> filesBelow(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        files.insert(QDir(folder).relativeFilePath(path), bytesOf(path));
    }
    return files;
}

QStringList rowsOf(const QString &file, const QString &query)
{
    const Connection connection(file);
    QSqlQuery result = connection.run(query);
    QStringList rows;
    while (result.next()) {
        QStringList fields;
        for (int i = 0; i < result.record().count(); ++i)
            fields.append(result.isNull(i) ? u"NULL"_s : result.value(i).toString());
        rows.append(fields.join(u'|'));
    }
    return rows;
}

void runOn(const QString &file, const QString &script)
{
    const Connection connection(file);
    for (const QString &statement : script.split(u';', Qt::SkipEmptyParts))
        connection.run(statement);
}
