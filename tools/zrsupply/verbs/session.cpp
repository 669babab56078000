// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/catalogue.h"
#include "cli/lineinput.h"
#include "cli/sessionhelp.h"
#include "cli/transcripts.h"

#include <unistd.h>

#include <QtSql/QSqlDatabase>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

std::unique_ptr<LineInput> openInput(const QString &path, bool terminal, const QMetaObject &library)
{
    if (!terminal)
        return std::make_unique<FileInput>(path);
    return std::make_unique<TerminalInput>(
        [&library](const QString &line) { return sessionCompletions(line, library); });
}

std::unique_ptr<Transcript> openTranscript(Output &out, bool terminal)
{
    if (out.json())
        return std::make_unique<JsonTranscript>(out);
    return std::make_unique<TextTranscript>(out, !terminal);
}

void writeTotals(Output &out, const SessionHost &host)
{
    if (out.json()) {
        out.writeLine(
            {{u"type"_s, u"end"_s}, {u"events"_s, host.events()}, {u"expectationsMet"_s, host.expectations()}});
        return;
    }
    out.write(u"%1 events, %2 expectations met\n"_s.arg(host.events()).arg(host.expectations()));
}

/// A person who mistypes goes on; what went wrong is remembered for the exit status.
Status runTerminal(LineInput &input, SessionHost &host, Output &out)
{
    Status status = Status::Ok;
    const Style style = terminalStyle(ColorMode::Auto, ::isatty(STDERR_FILENO) != 0);
    for (int number = 1; !host.hasEnded(); ++number) {
        const auto line = input.next();
        if (!line)
            break;
        try {
            host.run(number, *line);
        } catch (const UnmetExpectation &failure) {
            out.flush();
            report(failure, false, style);
            status = Status::Failed;
        } catch (const Failure &failure) {
            out.flush();
            report(failure, false, style);
        }
        out.flush();
    }
    return status;
}

/// The first thing that goes wrong ends it.
void runLines(LineInput &input, SessionHost &host, Output &out)
{
    for (int number = 1; !host.hasEnded(); ++number) {
        const auto line = input.next();
        if (!line)
            break;
        try {
            host.run(number, *line);
        } catch (const Failure &) {
            // What came before stands before the error.
            out.flush();
            throw;
        }
        out.flush();
    }
    writeTotals(out, host);
}

Status run(const Invocation &call, Output &out)
{
    const QString path = call.argument(0);
    // A program that types has no use for a prompt.
    const bool terminal = isTerminalInput(path) && !out.json();
    Catalogue catalogue(call);
    const auto input = openInput(path, terminal, *catalogue.library().metaObject());
    const auto transcript = openTranscript(out, terminal);
    std::unique_ptr<Recording> recording;

    SessionHost host(catalogue.library(), catalogue.path(), terminal || path.isEmpty() ? QString() : path + ", "_L1,
                     &QSqlDatabase::removeDatabase);
    host.addTranscript(*transcript);
    if (call.has(u"record"_s)) {
        recording = std::make_unique<Recording>(call.value(u"record"_s), catalogue.path(), call.language());
        host.addTranscript(*recording);
    }
    if (!terminal) {
        runLines(*input, host, out);
        return Status::Ok;
    }
    out.write(u"Catalogue: %1\nhelp lists the events, the tab key completes, Ctrl-D ends.\n"_s.arg(catalogue.path()));
    out.flush();
    return runTerminal(*input, host, out);
}

} // namespace

Command sessionCommand()
{
    return {
        u"session"_s,
        u"Play a host: events in, calls, answers and signals out"_s,
        u"Opens the catalogue and reads one event a line from a file, from a pipe or from a terminal, where lines are"
        " edited, remembered and completed. Each call to the library is printed with its answer and every signal in"
        " the order of arrival.\n\n"_s +
            eventParagraphs() +
            u"\n\nWords are separated by blanks; a word with blanks in it stands in quotes, as in JSON. A list is one"
            " word: A,B or [\"A\",\"B\"]. Behind a # is a comment.\n\n"
            "Each event begins a new list of signals. expect SIGNAL takes the next one from the list and demands that"
            " it is this one, with these values where any are given; _ stands for a value that may be anything and"
            " ~0.81 for a number that rounds to 0.81. expect silence demands that none is left, so a sequence is"
            " demanded whole by one line for each signal and silence at the end. expect answer VALUE demands what the"
            " last call returned, void where it returns nothing, and behind show what was shown. What is printed of a"
            " signal can be pasted behind expect as it stands. The first expectation that is not met ends the session"
            " with status 1; at a terminal it is told and the session goes on.\n\n"
            "With --json each event, call, answer, signal and met expectation is an object on a line of its own."_s,
        {{u"FILE"_s, u"Session file; - or nothing: standard input"_s, Value::File, Need::Optional}},
        {{u"record"_s, u"Keep every event and all that came back in a new file, for zrsupply replay"_s, Value::File,
          u"FILE"_s}},
        {{u"session"_s, u"Events from the keyboard."_s},
         {u"session tools/sessions/good-roll.session"_s, u"A session from a file."_s},
         {u"session --record monday.session"_s, u"Keep what happens at a printer for a desk."_s}},
        {{Status::Ok, u"the session came to its end"_s},
         {Status::Failed, u"an expectation was not met, or a file could not be used"_s},
         {Status::Usage, u"a line is no event"_s}},
        run,
    };
}

} // namespace zrsupply
