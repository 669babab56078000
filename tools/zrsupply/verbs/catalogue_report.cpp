// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/interrupt.h"
#include "build/outputplace.h"
#include "cli/catalogue.h"
#include "cli/output.h"
#include "report/reportpage.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Status report(const Invocation &call, Output &out)
{
    if (!call.has(u"output"_s))
        throw usageFailure(call.command(), u"--output is missing: the page to write"_s);
    const QString path = call.argument(0).isEmpty() ? cataloguePath(call) : call.argument(0);
    const ReportData data = readReportData(path, call.language());
    InterruptGuard::check();

    OutputFile page(call.value(u"output"_s));
    QFile file(page.partPath());
    const QByteArray bytes = reportPage(data, QFileInfo(path).fileName());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw Failure{Status::Failed,
                      u"%1 cannot be written: %2"_s.arg(page.path(), file.errorString()),
                      u"make room, or choose another place for the output"_s,
                      {}};
    }
    file.close();
    page.publish();

    Answer answer(call.value(u"output"_s));
    answer.addJson(u"file"_s, call.value(u"output"_s));
    answer.add(u"rolls"_s, u"Rolls"_s, {data.rolls.size(), QString::number(data.rolls.size())});
    answer.add(u"ribbons"_s, u"Ribbons"_s, {data.ribbons.size(), QString::number(data.ribbons.size())});
    answer.add(u"bytes"_s, u"Size"_s, {bytes.size(), u"%1 KiB"_s.arg((bytes.size() + 1023) / 1024)});
    constexpr qsizetype comfortableRolls = 10000;
    if (data.rolls.size() > comfortableRolls)
        answer.addNote(u"a browser takes a while to open so many rolls."_s);
    out.write(answer);
    return Status::Ok;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return report(call, out); });
}

} // namespace

Command catalogueReportCommand()
{
    return {
        u"catalogue report"_s,
        u"Make a page to look at: every roll, every ribbon, and which prints on which"_s,
        u"One HTML file that needs nothing else and no network: rolls and ribbons drawn to scale in their colours, "
        "pictures, and a matrix with the reason for every verdict. It can be searched, and read on a phone, in the "
        "dark and without a mouse. The same catalogue gives the same bytes.\n\n"
        "Names are in the language of --language, in English where that has none."_s,
        {{u"FILE"_s, u"Catalogue file; the catalogue of --catalogue when it is left out"_s, Value::File,
          Need::Optional}},
        {{u"output"_s, u"Page to write; an older one is replaced"_s, Value::File, u"FILE"_s, {}, {}, u"o"_s}},
        {{u"catalogue report sample.sqlite -o report.html"_s, u"Make the page, then open it in a browser."_s}},
        {{Status::Ok, u"written"_s},
         {Status::Failed, u"the catalogue cannot be read, or FILE cannot be written"_s},
         {Status::Usage, u"a wrong call"_s}},
        run,
    };
}

} // namespace zrsupply
