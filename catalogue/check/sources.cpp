// SPDX-License-Identifier: LGPL-2.1-or-later
#include "check/sources.h"

#include "build/csv.h"
#include "build/schema.h"
#include "build/sourcereader.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

CheckedSources::CheckedSources(const QString &folder, Progress &progress)
    : m_folder(folder)
{
    if (!m_temporary.isValid()) {
        throw Failure{Status::Failed,
                      u"no temporary folder can be made: "_s + m_temporary.errorString(),
                      u"make room, or name another place for temporary files in TMPDIR"_s,
                      {}};
    }
    const QString path = m_temporary.filePath(u"catalogue.sqlite"_s);
    SourceReader reader(folder, progress);
    try {
        CatalogueWriter writer(path, progress);
        reader.readInto(writer);
        for (const SourceProblem &problem : reader.problems()) {
            m_problems.append({problem.file.chopped(problem.file.endsWith(".csv"_L1) ? 4 : 0),
                               {},
                               {{u"error"_s, problem.message}, {u"fix"_s, problem.remedy}},
                               problem.file,
                               problem.line,
                               problem.column});
        }
        if (!m_problems.isEmpty())
            return;
        writer.publish();
        for (const QString &name : reader.unusedFiles())
            m_unused.append({{}, {}, {}, name});
    } catch (const DatabaseError &error) {
        throw writingFailed(error);
    }
    m_file = path;
}

void CheckedSources::locate(QList<CheckFinding> &findings)
{
    for (CheckFinding &finding : findings) {
        if (finding.line > 0 || !QFile::exists(QDir(m_folder).filePath(finding.table + ".csv"_L1)))
            continue;
        finding.file = finding.table + ".csv"_L1;
        const QHash<QString, int> &lines = linesOf(finding.table);
        QString key = finding.key;
        finding.line = lines.value(key);
        while (finding.line == 0 && key.contains(u'/')) {
            key = key.section(u'/', 0, -2);
            finding.line = lines.value(key);
        }
    }
}

const QHash<QString, int> &CheckedSources::linesOf(const QString &table)
{
    const auto known = m_lines.constFind(table);
    if (known != m_lines.constEnd())
        return *known;

    QHash<QString, int> &lines = m_lines[table];
    for (const SourceTable &described : SourceSchema::current().tables()) {
        if (QString::fromUtf8(described.name) != table)
            continue;
        QFile csvFile(QDir(m_folder).filePath(table + ".csv"_L1));
        if (!csvFile.open(QIODevice::ReadOnly))
            break;
        CsvReader csv(csvFile);
        csv.next(); // the heading
        while (csv.next()) {
            QString key;
            for (const int column : described.key) {
                if (size_t(column) >= csv.fields().size())
                    break;
                key += (key.isEmpty() ? QString() : u"/"_s) + QString::fromUtf8(csv.fields()[size_t(column)].text);
                // The first row of each leading part stands for it.
                if (!lines.contains(key))
                    lines.insert(key, csv.line());
            }
        }
    }
    return lines;
}

} // namespace zrsupply
