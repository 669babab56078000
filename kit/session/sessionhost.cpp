// SPDX-License-Identifier: LGPL-2.1-or-later
#include "session/sessionhost.h"

#include "supplies/installed.h"
#include "text/nearest.h"

#include <supplyconstants_p.h>
#include <zrsupplydatabase.h>

#include <QtCore/QJsonArray>

#include <algorithm>
#include <utility>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Whose mileage it is, and the method that takes it.
using MileageRow = std::pair<QString, QString>;

const QList<MileageRow> &mileageRows()
{
    static const QList<MileageRow> rows = {
        {u"roll"_s, u"setSupplyMileage"_s},
        {u"ribbon1"_s, u"setRibbon1Mileage"_s},
        {u"ribbon2"_s, u"setRibbon2Mileage"_s},
    };
    return rows;
}

constexpr auto allChecks = "all"_L1;

Word wordOf(const QString &text)
{
    return {literal(text), text, true};
}

QString usageOf(const QString &word)
{
    const QList<EventKind> &kinds = eventKinds();
    const auto kind =
        std::find_if(kinds.begin(), kinds.end(), [&](const EventKind &row) { return row.word == word; });
    return kind == kinds.end() ? QString() : usageText(*kind);
}

Failure badEvent(const SessionEvent &event, const QString &message)
{
    return {Status::Usage, message, u"write: %1"_s.arg(usageOf(event.word)), {{u"usage"_s, usageOf(event.word)}}};
}

void requireWords(const SessionEvent &event, qsizetype least, qsizetype most)
{
    if (event.arguments.size() < least)
        throw badEvent(event, u"%1 needs more words"_s.arg(event.word));
    if (event.arguments.size() > most)
        throw badEvent(event, u"\"%1\" is one word too many"_s.arg(event.arguments[most].raw));
}

Failure noSuchWord(const SessionEvent &event, const QString &what, const QString &word, const QStringList &known)
{
    const QStringList near = nearest(word, known);
    return {Status::Usage,
            u"there is no %1 \"%2\""_s.arg(what, word),
            near.isEmpty() ? u"write: %1"_s.arg(usageOf(event.word)) : u"did you mean %1?"_s.arg(orList(near)),
            {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

} // namespace

QString usageText(const EventKind &kind)
{
    return kind.usage.isEmpty() ? kind.word : kind.word + u' ' + kind.usage;
}

QStringList mileagePlaces()
{
    QStringList places;
    for (const MileageRow &row : mileageRows())
        places.append(row.first);
    return places;
}

QStringList checkWords()
{
    QStringList words;
    for (const CheckName &name : checkNames())
        words.append(name.word);
    return words << allChecks;
}

/// A kind of event: what it is called and who carries it out.
struct SessionHost::HandlerRow
{
    EventKind kind;
    Handler run;

    static const QList<HandlerRow> &table();
};

const QList<SessionHost::HandlerRow> &SessionHost::HandlerRow::table()
{
    static const QList<HandlerRow> rows = {
        {{u"roll"_s, u"ID"_s, u"A roll is loaded: the digits of its tag, or -1 for a reset."_s}, &SessionHost::roll},
        {{u"ribbons"_s, u"ID [ID]"_s, u"Ribbons are loaded: their catalogue ids, ribbon 1 first."_s},
         &SessionHost::ribbons},
        {{u"mileage"_s, u"roll|ribbon1|ribbon2 MM"_s, u"A mileage reading in millimetres, -1 for none."_s},
         &SessionHost::mileage},
        {{u"language"_s, u"N"_s, u"The user chooses the language of the names; 0 is English."_s},
         &SessionHost::language},
        {{u"check"_s, u"NAME"_s,
          u"Run a check: combination, clear-tail, edge-sensor, ribbon-width, tensions or all."_s},
         &SessionHost::check},
        {{u"call"_s, u"METHOD [ARGUMENT...]"_s,
          u"Call any method by name, private slots too; help methods lists them."_s},
         &SessionHost::callMethod},
        {{u"expect"_s, u"SIGNAL [VALUE...] | answer VALUE | silence"_s,
          u"Demand what comes back next; the session fails when it does not."_s},
         &SessionHost::expect},
        {{u"show"_s, {}, u"Show what is installed, what is left of it and the verdicts."_s}, &SessionHost::show},
        {{u"catalogue"_s, u"FILE|closed|start"_s,
          u"Open another catalogue, close it, or open the one of the start again."_s},
         &SessionHost::catalogue},
        {{u"help"_s, u"[methods|signals]"_s, u"List the events, the methods or the signals."_s}, &SessionHost::help},
        {{u"quit"_s, {}, u"End the session; so does the end of the input."_s}, &SessionHost::quit},
    };
    return rows;
}

const QList<EventKind> &eventKinds()
{
    static const QList<EventKind> kinds = SessionHost::kindsOfTable();
    return kinds;
}

QList<EventKind> SessionHost::kindsOfTable()
{
    QList<EventKind> all;
    for (const HandlerRow &row : HandlerRow::table())
        all.append(row.kind);
    return all;
}

SessionHost::SessionHost(ZrSupplyDatabase &library, QString catalogue, QString source,
                         std::function<void(const QString &name)> closeConnection)
    : m_library(library)
    , m_startCatalogue(std::move(catalogue))
    , m_source(std::move(source))
    , m_closeConnection(std::move(closeConnection))
    , m_recorder(library)
{
}

void SessionHost::run(int number, const QString &line)
{
    const QString text = line.trimmed();
    if (text.isEmpty() || text.startsWith(u'#')) {
        tell(&Transcript::comment, text);
        return;
    }
    try {
        const QList<Word> words = splitWords(text);
        dispatch({number, text, words.first().raw, words.mid(1)});
    } catch (UnmetExpectation &) {
        throw;
    } catch (Failure &failure) {
        failure.message = u"%1line %2: %3"_s.arg(m_source, QString::number(number), failure.message);
        failure.details.insert(u"line"_s, number);
        throw;
    }
}

void SessionHost::dispatch(const SessionEvent &event)
{
    QStringList words;
    for (const HandlerRow &row : HandlerRow::table()) {
        if (row.kind.word == event.word) {
            (this->*row.run)(event);
            return;
        }
        words.append(row.kind.word);
    }
    Failure failure = noSuchWord(event, u"event"_s, event.word, words);
    if (failure.details.value(u"nearest"_s).toArray().isEmpty())
        failure.remedy = u"the events are %1"_s.arg(orList(words));
    throw failure;
}

MethodCall SessionHost::callTo(const QString &method, const QList<Word> &words) const
{
    return resolveCall(*m_library.metaObject(), method, words);
}

void SessionHost::begin(const SessionEvent &event)
{
    ++m_events;
    m_lastEvent = event.text;
    m_arrivals = {};
    tell(&Transcript::begin, event);
}

void SessionHost::runCalls(const SessionEvent &event, const QList<MethodCall> &calls)
{
    begin(event);
    for (const MethodCall &call : calls) {
        tell(&Transcript::call, call);
        const QVariant answer = invoke(m_library, call);
        m_arrivals.answer = answer;
        if (call.answers())
            tell(&Transcript::answer, answer);
        const QList<SignalRecord> records = m_recorder.take();
        if (records.isEmpty() && !call.answers())
            tell(&Transcript::silence);
        for (const SignalRecord &record : records) {
            tell(&Transcript::signal, record);
            m_arrivals.waiting.append(record);
        }
    }
    tell(&Transcript::end, event);
}

void SessionHost::roll(const SessionEvent &event)
{
    requireWords(event, 1, 1);
    runCalls(event, {callTo(u"setSupplyId"_s, event.arguments)});
}

void SessionHost::ribbons(const SessionEvent &event)
{
    // One ribbon alone is something that hosts report, and the library has an answer of its own for it.
    requireWords(event, 1, 2);
    QStringList ids;
    for (const Word &word : event.arguments)
        ids.append(word.text);
    const QString list = literal(ids);
    runCalls(event, {callTo(u"setRibbonIds"_s, {{list, list, false}})});
}

void SessionHost::mileage(const SessionEvent &event)
{
    requireWords(event, 2, 2);
    const QString place = event.arguments.first().raw;
    const QList<MileageRow> &rows = mileageRows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const MileageRow &one) { return one.first == place; });
    if (row == rows.end())
        throw noSuchWord(event, u"mileage"_s, place, mileagePlaces());
    runCalls(event, {callTo(row->second, event.arguments.mid(1))});
}

void SessionHost::language(const SessionEvent &event)
{
    requireWords(event, 1, 1);
    runCalls(event, {callTo(u"setLanguageId"_s, event.arguments)});
}

void SessionHost::check(const SessionEvent &event)
{
    requireWords(event, 1, 1);
    const QString wanted = event.arguments.first().raw;
    QList<MethodCall> calls;
    for (const CheckName &name : checkNames()) {
        if (wanted == name.word || wanted == name.slot || wanted == allChecks)
            calls.append(callTo(name.slot, {}));
    }
    if (calls.isEmpty())
        throw noSuchWord(event, u"check"_s, wanted, checkWords());
    runCalls(event, calls);
}

void SessionHost::callMethod(const SessionEvent &event)
{
    if (event.arguments.isEmpty())
        throw badEvent(event, u"call does not say what"_s);
    runCalls(event, {callTo(event.arguments.first().raw, event.arguments.mid(1))});
}

void SessionHost::expect(const SessionEvent &event)
{
    const Expectation expectation(*m_library.metaObject(), event.arguments);
    ++m_expectations;
    tell(&Transcript::begin, event);
    const auto difference = expectation.meet(m_arrivals);
    if (!difference)
        tell(&Transcript::met, expectation);
    tell(&Transcript::end, event);
    if (!difference)
        return;

    UnmetExpectation failure;
    failure.message = u"%1line %2: expected %3, seen %4"_s.arg(m_source, QString::number(event.line),
                                                               difference->expected, difference->seen);
    failure.remedy = m_lastEvent.isEmpty() ? u"no event stands before it"_s : u"after the event: "_s + m_lastEvent;
    failure.details = {{u"line"_s, event.line},
                       {u"expected"_s, difference->expected},
                       {u"seen"_s, difference->seen},
                       {u"event"_s, m_lastEvent}};
    failure.difference = *difference;
    failure.eventText = m_lastEvent;
    failure.line = event.line;
    throw failure;
}

void SessionHost::show(const SessionEvent &event)
{
    requireWords(event, 0, 0);
    // Looking takes nothing away: what the event before it announced can still be expected.
    ++m_events;
    tell(&Transcript::begin, event);
    const Installed installed = installedSupplies(m_library);
    const QVariant state = toJson(installed).toVariantHash();
    m_arrivals.answer = state;
    tell(&Transcript::shown, installed, state);
    tell(&Transcript::end, event);
}

void SessionHost::catalogue(const SessionEvent &event)
{
    requireWords(event, 1, 1);
    const Word which = event.arguments.first();
    if (which.raw != "closed"_L1) {
        runCalls(event, {callTo(u"setup"_s, {which.raw == "start"_L1 ? wordOf(m_startCatalogue) : which})});
        return;
    }
    if (!m_closeConnection)
        throw badEvent(event, u"this host cannot close the catalogue"_s);
    // The library holds no handle: without its connection every lookup finds the catalogue closed.
    begin(event);
    m_closeConnection(supply::connectionName());
    tell(&Transcript::note, u"the catalogue is closed"_s);
    tell(&Transcript::end, event);
}

void SessionHost::help(const SessionEvent &event)
{
    requireWords(event, 0, 1);
    const QString about = event.arguments.isEmpty() ? QString() : event.arguments.first().raw;
    if (!about.isEmpty() && about != "methods"_L1 && about != "signals"_L1)
        throw noSuchWord(event, u"help about"_s, about, {u"methods"_s, u"signals"_s});
    tell(&Transcript::begin, event);
    tell(&Transcript::help, about);
    tell(&Transcript::end, event);
}

void SessionHost::quit(const SessionEvent &event)
{
    requireWords(event, 0, 0);
    m_ended = true;
}

} // namespace ZrSupplyKit
