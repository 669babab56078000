// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "session/expectation.h"
#include "session/methodcall.h"
#include "zrsupplykit_global.h"

#include "text/failure.h"

#include <functional>
#include <memory>
#include <vector>

class ZrSupplyDatabase;

namespace ZrSupplyKit {

struct Installed;

/// One line of a session that asks for something.
struct SessionEvent
{
    int line = 0;
    QString text; ///< As it stands, without blanks around it.
    QString word; ///< The event's name.
    QList<Word> arguments;
};

/// What a kind of event is called and what it takes: help and completion read these rows.
struct EventKind
{
    QString word;
    QString usage; ///< What follows the word.
    QString help;
};

/// Every kind, in the order of the help.
ZRSUPPLYKIT_EXPORT const QList<EventKind> &eventKinds();
/// "mileage roll|ribbon1|ribbon2 MM"
ZRSUPPLYKIT_EXPORT QString usageText(const EventKind &kind);
/// What `mileage` and `check` take as their first word.
ZRSUPPLYKIT_EXPORT QStringList mileagePlaces();
ZRSUPPLYKIT_EXPORT QStringList checkWords();

/// Who is told what happens in a session.
class ZRSUPPLYKIT_EXPORT Transcript
{
public:
    Transcript() = default;
    virtual ~Transcript() = default;
    Q_DISABLE_COPY_MOVE(Transcript)

    virtual void comment(const QString & /*text*/) {}
    virtual void begin(const SessionEvent & /*event*/) {}
    virtual void call(const MethodCall & /*call*/) {}
    virtual void answer(const QVariant & /*answer*/) {}
    virtual void signal(const SignalRecord & /*record*/) {}
    /// A call that returns nothing has announced nothing.
    virtual void silence() {}
    virtual void met(const Expectation & /*expectation*/) {}
    /// What `show` reads; `state` is what an expectation compares it with.
    virtual void shown(const Installed & /*installed*/, const QVariant & /*state*/) {}
    /// `help` was typed: `about` is empty, "methods" or "signals".
    virtual void help(const QString & /*about*/) {}
    /// A text for a person: what happens outside the library.
    virtual void note(const QString & /*text*/) {}
    /// The event is over, also when it failed.
    virtual void end(const SessionEvent & /*event*/) {}
};

/// An expectation that was not met.
struct ZRSUPPLYKIT_EXPORT UnmetExpectation : Failure
{
    Expectation::Difference difference;
    QString eventText; ///< The event that it was about.
    int line = 0;      ///< Of the expectation.
};

/// Plays a host: carries out the lines of a session on the library and tells its transcripts.
class ZRSUPPLYKIT_EXPORT SessionHost
{
public:
    /// `catalogue`: the file that is open, for "catalogue start". `source`: what the lines come from, for errors.
    /// `closeConnection`: closes the connection of this name, `QSqlDatabase::removeDatabase` as a rule; without it
    /// the event "catalogue closed" fails.
    SessionHost(ZrSupplyDatabase &library, QString catalogue, QString source = {},
                std::function<void(const QString &name)> closeConnection = {});

    void addTranscript(Transcript &transcript) { m_transcripts.push_back(&transcript); }

    /// Carries out one line. Throws a usage failure with the line's number when it is no event, before anything is
    /// called, and `UnmetExpectation`.
    void run(int number, const QString &line);

    static QList<EventKind> kindsOfTable();

    bool hasEnded() const { return m_ended; }
    int events() const { return m_events; }
    int expectations() const { return m_expectations; }

private:
    using Handler = void (SessionHost::*)(const SessionEvent &);
    struct HandlerRow;

    void dispatch(const SessionEvent &event);
    void begin(const SessionEvent &event);
    void runCalls(const SessionEvent &event, const QList<MethodCall> &calls);
    MethodCall callTo(const QString &method, const QList<Word> &words) const;

    void roll(const SessionEvent &event);
    void ribbons(const SessionEvent &event);
    void mileage(const SessionEvent &event);
    void language(const SessionEvent &event);
    void check(const SessionEvent &event);
    void callMethod(const SessionEvent &event);
    void expect(const SessionEvent &event);
    void show(const SessionEvent &event);
    void catalogue(const SessionEvent &event);
    void help(const SessionEvent &event);
    void quit(const SessionEvent &event);

    template <typename Told, typename... Arguments>
    void tell(Told told, const Arguments &...arguments)
    {
        for (Transcript *transcript : m_transcripts)
            (transcript->*told)(arguments...);
    }

    ZrSupplyDatabase &m_library;
    QString m_startCatalogue;
    QString m_source;
    std::function<void(const QString &)> m_closeConnection;
    SignalRecorder m_recorder;
    std::vector<Transcript *> m_transcripts;
    Arrivals m_arrivals;
    QString m_lastEvent; // the one that expectations are about
    int m_events = 0;
    int m_expectations = 0;
    bool m_ended = false;
};

} // namespace ZrSupplyKit
