// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/cataloguereader.h"
#include "build/interrupt.h"
#include "build/sourcewriter.h"
#include "check/cataloguecheck.h"
#include "cli/commandline.h"
#include "cli/output.h"

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Status dump(const Invocation &call, Output &out)
{
    if (!call.has(u"output"_s))
        throw usageFailure(call.command(), u"the folder to write is not named: -o DIR"_s);
    const QString path = call.argument(0);
    const QString folder = call.value(u"output"_s);
    if (const auto problem = catalogueProblem(path))
        throw *problem;

    Progress progress(!call.json());
    SourceWriter writer(folder);
    QString promised;
    try {
        Database database = Database::readOnly(path);
        database.stopWhen([] { return InterruptGuard::isInterrupted(); });
        progress.stage(u"reading"_s);
        readCatalogue(database, writer, progress);
        promised = promisedChecksum(database);
    } catch (const DatabaseError &error) {
        InterruptGuard::check();
        throw Failure{Status::Failed,
                      u"%1 cannot be read to its end: %2"_s.arg(path, error.message),
                      u"zrsupply catalogue info tells what is wrong with it; take another copy of the file"_s,
                      {}};
    }
    writer.publish();
    progress.clear();

    const QString checksum = QString::fromLatin1(writer.checksum());
    Answer answer(folder);
    answer.addJson(u"folder"_s, folder);
    answer.add(u"checksum"_s, u"Checksum"_s, {checksum, checksum});
    if (!promised.isEmpty())
        answer.addJson(u"unchanged"_s, promised == checksum);
    if (!promised.isEmpty() && promised != checksum)
        answer.addNote(u"the file was changed after it was built: its sources had the checksum "_s + promised);
    out.write(answer);
    return Status::Ok;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return dump(call, out); });
}

} // namespace

Command catalogueDumpCommand()
{
    return {
        u"catalogue dump"_s,
        u"Give back the sources of a catalogue file"_s,
        u"Writes one CSV file per table, sorted by key, and the pictures in the folder svg. Built again they give the "
        "same file. What zrsupply catalogue build adds to table meta is left out, and so are tables and columns that "
        "catalogue.sql does not have.\n\n"
        "DIR must not exist or be an empty folder. It appears when it is complete."_s,
        {{u"FILE"_s, u"Catalogue file"_s, Value::File}},
        {{u"output"_s, u"Folder to write"_s, Value::Folder, u"DIR"_s, {}, {}, u"o"_s}},
        {{u"catalogue dump sample.sqlite -o sources"_s, u"Write sources/roll.csv and all the others."_s}},
        {{Status::Ok, u"written"_s},
         {Status::Failed, u"FILE cannot be used, or DIR cannot be written"_s},
         {Status::Usage, u"a wrong call"_s}},
        run,
    };
}

} // namespace zrsupply
