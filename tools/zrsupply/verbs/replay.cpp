// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/lineinput.h"
#include "cli/output.h"
#include "session/sessionhost.h"
#include "usekit.h"

#include <QtSql/QSqlDatabase>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Failure difference(const QString &path, const UnmetExpectation &unmet)
{
    return {Status::Failed,
            u"%1, line %2: recorded %3, now %4"_s.arg(path, QString::number(unmet.line), unmet.difference.expected,
                                                      unmet.difference.seen),
            unmet.remedy,
            {{u"line"_s, unmet.line},
             {u"event"_s, unmet.eventText},
             {u"recorded"_s, unmet.difference.expected},
             {u"now"_s, unmet.difference.seen}}};
}

Status run(const Invocation &call, Output &out)
{
    const QString path = call.argument(0);
    Catalogue catalogue(call);
    FileInput input(path);
    SessionHost host(catalogue.library(), catalogue.path(), path + ", "_L1, &QSqlDatabase::removeDatabase);
    try {
        for (int number = 1; !host.hasEnded(); ++number) {
            const auto line = input.next();
            if (!line)
                break;
            host.run(number, *line);
        }
    } catch (const UnmetExpectation &unmet) {
        throw difference(path, unmet);
    }
    if (host.expectations() == 0) {
        throw Failure{Status::Failed,
                      u"%1 holds nothing to compare with"_s.arg(path),
                      u"make a recording with zrsupply session --record FILE"_s,
                      {}};
    }
    if (out.json())
        out.write(QJsonObject{{u"events"_s, host.events()}, {u"compared"_s, host.expectations()}, {u"same"_s, true}});
    else
        out.write(u"%1 events, %2 values compared: all the same\n"_s.arg(host.events()).arg(host.expectations()));
    return Status::Ok;
}

} // namespace

Command replayCommand()
{
    return {
        u"replay"_s,
        u"Run a recorded session again and report the first difference"_s,
        u"A recording is a session in which everything that came back stands as an expectation behind its event."
        " Replaying it on another machine, catalogue or version of the library tells whether the library still"
        " answers and announces the same, in the same order and nothing more."_s,
        {{u"FILE"_s, u"A file that zrsupply session --record has written; - : standard input"_s, Value::File}},
        {},
        {{u"session --record monday.session"_s, u"Record at the printer."_s},
         {u"replay monday.session"_s, u"Replay at the desk."_s}},
        {{Status::Ok, u"nothing differs"_s},
         {Status::Failed, u"something differs, or a file could not be used"_s},
         {Status::Usage, u"a line is no event"_s}},
        run,
    };
}

} // namespace zrsupply
