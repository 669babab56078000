// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/output.h"
#include "session/sessionhost.h"
#include "usekit.h"

#include <QtCore/QFile>

namespace zrsupply {

/// A session as a person reads it. What is printed of a signal or an answer can be pasted behind `expect`.
class TextTranscript : public Transcript
{
public:
    /// `echo`: whether the events are printed too, which a person at a terminal has just typed.
    TextTranscript(Output &out, bool echo);

    void comment(const QString &text) override;
    void begin(const SessionEvent &event) override;
    void call(const MethodCall &call) override;
    void answer(const QVariant &answer) override;
    void signal(const SignalRecord &record) override;
    void silence() override;
    void met(const Expectation &expectation) override;
    void shown(const Installed &installed, const QVariant &state) override;
    void help(const QString &about) override;
    void note(const QString &text) override;

private:
    void line(const QString &label, const QString &text);

    Output &m_out;
    bool m_echo;
};

/// A session for programs: an object a line.
class JsonTranscript : public Transcript
{
public:
    explicit JsonTranscript(Output &out);

    void begin(const SessionEvent &event) override;
    void call(const MethodCall &call) override;
    void answer(const QVariant &answer) override;
    void signal(const SignalRecord &record) override;
    void met(const Expectation &expectation) override;
    void shown(const Installed &installed, const QVariant &state) override;
    void help(const QString &about) override;
    void note(const QString &text) override;

private:
    void write(QLatin1StringView type, QJsonObject object);

    Output &m_out;
    int m_line = 0;
};

/// A session as a session: every event, and everything that came back as expectations behind it. A line is on disk
/// before the next event begins.
class Recording : public Transcript
{
public:
    /// Throws when the file cannot be written, or holds something already.
    Recording(const QString &path, const QString &catalogue, int language);

    void comment(const QString &text) override;
    void begin(const SessionEvent &event) override;
    void answer(const QVariant &answer) override;
    void signal(const SignalRecord &record) override;
    void shown(const Installed &installed, const QVariant &state) override;
    void end(const SessionEvent &event) override;

private:
    void write(const QString &line);

    QFile m_file;
    QString m_answer; // the line that expects it, empty without one
    QStringList m_signals;
};

} // namespace zrsupply
