// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/interrupt.h"
#include "build/sourcereader.h"
#include "cli/commandline.h"
#include "cli/output.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

#include <cstdio>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// "schema/sample/roll.csv:12:5", which editors jump to.
QString placeOf(const QString &folder, const SourceProblem &problem)
{
    QString place = folder;
    while (place.size() > 1 && place.endsWith(u'/'))
        place.chop(1);
    place += u'/' + problem.file;
    if (problem.line > 0)
        place += u":%1:%2"_s.arg(problem.line).arg(problem.column);
    return place;
}

QJsonObject toJson(const SourceProblem &problem)
{
    QJsonObject object = {{u"file"_s, problem.file}, {u"message"_s, problem.message}, {u"remedy"_s, problem.remedy}};
    if (problem.line > 0) {
        object.insert(u"line"_s, problem.line);
        object.insert(u"column"_s, problem.column);
    }
    if (problem.otherLine > 0)
        object.insert(u"otherLine"_s, problem.otherLine);
    return object;
}

Failure refusal(const QString &folder, const QString &output, const SourceReader &reader, bool json)
{
    QJsonArray list;
    for (const SourceProblem &problem : reader.problems()) {
        list.append(toJson(problem));
        if (!json) {
            const QString text = u"%1: %2\n    %3\n"_s.arg(placeOf(folder, problem), problem.message, problem.remedy);
            std::fputs(text.toUtf8().constData(), stderr);
        }
    }
    const qsizetype count = reader.problems().size();
    const QString mistakes = reader.isCutShort() ? u"%1 mistakes or more"_s.arg(count)
                             : count == 1        ? u"1 mistake"_s
                                                 : u"%1 mistakes"_s.arg(count);
    const QString kept =
        QFileInfo::exists(output) ? u"%1 is as it was"_s.arg(output) : u"%1 is not written"_s.arg(output);
    return {Status::Failed,
            u"%1 in %2; %3"_s.arg(mistakes, folder, kept),
            u"correct the sources and build again"_s,
            {{u"errors"_s, list}, {u"complete"_s, !reader.isCutShort()}}};
}

Status build(const Invocation &call, Output &out)
{
    if (!call.has(u"output"_s))
        throw usageFailure(call.command(), u"the file to write is not named: -o FILE"_s);
    const QString folder = call.argument(0);
    const QString output = call.value(u"output"_s);

    Progress progress(!call.json());
    SourceReader reader(folder, progress);
    QByteArray checksum;
    try {
        CatalogueWriter writer(output, progress);
        reader.readInto(writer);
        if (!reader.problems().isEmpty()) {
            progress.clear();
            throw refusal(folder, output, reader, call.json());
        }
        writer.publish();
        checksum = writer.checksum();
    } catch (const DatabaseError &error) {
        throw writingFailed(error);
    }
    progress.clear();

    const qint64 size = QFileInfo(output).size();
    Answer answer(output);
    answer.addJson(u"file"_s, output);
    answer.add(u"rows"_s, u"Rows"_s, {reader.rowCount(), QLocale::c().toString(reader.rowCount())});
    answer.add(u"bytes"_s, u"Size"_s, {size, u"%1 bytes"_s.arg(QLocale::c().toString(size))});
    answer.add(u"checksum"_s, u"Checksum"_s, {QString::fromLatin1(checksum), QString::fromLatin1(checksum)});
    const QStringList unused = reader.unusedFiles();
    answer.addJson(u"unusedFiles"_s, QJsonArray::fromStringList(unused));
    if (!unused.isEmpty())
        answer.addNote(
            u"not in the catalogue: %1. A CSV file there is named after its table, a picture by a row"_s.arg(
                unused.join(", "_L1)));
    out.write(answer);
    return Status::Ok;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return build(call, out); });
}

} // namespace

Command catalogueBuildCommand()
{
    return {
        u"catalogue build"_s,
        u"Make a catalogue file from its sources"_s,
        u"The sources are a folder with one CSV file per table of catalogue.sql, named after it, and the pictures in "
        "its folder svg. The first line of a file names the columns in the order of catalogue.sql, an empty field "
        "is NULL, the text is UTF-8.\n\n"
        "The same sources give the same bytes, in whatever order their lines stand. The file is made under another "
        "name beside FILE and renamed at the end, so that FILE is whole or, after an error or a signal, as it was. "
        "All mistakes of the sources are reported in one run, a hundred at most, each with its line, its column and "
        "what to do.\n\n"
        "Table meta gets the schema version, the version of this program and a checksum of the sources in the form "
        "that zrsupply catalogue dump gives them; sha256sum *.csv svg/*.svg | sha256sum prints the same there."_s,
        {{u"SOURCES"_s, u"Folder with the CSV files"_s, Value::Folder}},
        {{u"output"_s,
          u"Catalogue file to write; an older one is replaced"_s,
          Value::File,
          u"FILE"_s,
          {},
          {},
          u"o"_s}},
        {{u"catalogue build schema/sample -o sample.sqlite"_s, u"Build the sample catalogue."_s}},
        {{Status::Ok, u"built"_s},
         {Status::Failed, u"mistakes in the sources, or FILE cannot be written"_s},
         {Status::Usage, u"a wrong call"_s}},
        run,
    };
}

} // namespace zrsupply
