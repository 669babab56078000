// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/sourcereader.h"

#include "build/tableloader.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <tuple>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

SourceReader::SourceReader(const QString &folder, Progress &progress)
    : m_folder(folder)
    , m_progress(progress)
{
    const QFileInfo info(folder);
    if (!info.exists())
        throw Failure{
            Status::Failed,
            u"there is no folder %1"_s.arg(folder),
            u"name the folder that holds the CSV files; zrsupply catalogue dump makes one from a catalogue"_s,
            {}};
    if (!info.isDir())
        throw Failure{Status::Failed,
                      u"%1 is a file, not a folder of sources"_s.arg(folder),
                      u"name the folder that holds the CSV files"_s,
                      {}};
    if (!info.isReadable() || !info.isExecutable())
        throw Failure{Status::Failed,
                      u"the folder %1 cannot be read: permission denied"_s.arg(folder),
                      u"give yourself permission to read it (chmod u+rx)"_s,
                      {}};
}

void SourceReader::add(const SourceProblem &problem)
{
    m_problems.append(problem);
}

void SourceReader::readInto(CatalogueWriter &writer)
{
    for (const SourceTable &table : SourceSchema::current().tables()) {
        if (isCutShort())
            break;
        m_progress.stage(QString::fromUtf8(table.fileName()));
        TableLoader(*this, table, writer).load();
    }
    std::stable_sort(m_problems.begin(), m_problems.end(), [](const SourceProblem &a, const SourceProblem &b) {
        return std::tie(a.file, a.line, a.column) < std::tie(b.file, b.line, b.column);
    });
}

QStringList SourceReader::unusedFiles() const
{
    QStringList unused;
    const QDir folder(m_folder);
    for (const QString &name : folder.entryList({u"*.csv"_s}, QDir::Files, QDir::Name)) {
        if (!m_usedFiles.contains(name))
            unused.append(name);
    }
    for (const SourceTable &table : SourceSchema::current().tables()) {
        for (const SourceColumn &column : table.columns) {
            if (column.type != SourceColumn::Type::Blob)
                continue;
            const QString name = QString::fromUtf8(column.name);
            for (const QString &file : QDir(folder.filePath(name)).entryList(QDir::Files, QDir::Name)) {
                if (!m_usedFiles.contains(name + u'/' + file))
                    unused.append(name + u'/' + file);
            }
        }
    }
    return unused;
}

} // namespace zrsupply
