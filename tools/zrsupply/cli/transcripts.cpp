// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/transcripts.h"

#include "cli/installedtext.h"
#include "cli/sessionhelp.h"

#include <zrsupplydatabase.h>

#include <QtCore/QCoreApplication>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype labelColumns = 8;
constexpr qsizetype longestValue = 2000; // a picture or the list of all SKUs; --json and --record keep the whole

QString shortened(const QString &text)
{
    if (text.size() <= longestValue)
        return text;
    return text.left(longestValue) + u"... (%1 characters)"_s.arg(text.size());
}

/// The colours that a signal carries as decimal texts, as patches.
QString patches(const SignalRecord &record, const Style &style)
{
    if (!record.name().contains("RGB"_L1))
        return {};
    QString text;
    for (const QVariant &argument : record.arguments) {
        for (const QString &rgb : argument.toStringList()) {
            if (rgb.toInt() >= 0)
                text += u"  "_s + swatch(rgb.toInt(), style);
        }
    }
    return text.trimmed().isEmpty() ? QString() : text;
}

bool isAbout(const SessionEvent &event, QLatin1StringView word)
{
    return event.word == word;
}

QJsonArray valuesJson(const QVariantList &values)
{
    QJsonArray list;
    for (const QVariant &value : values)
        list.append(literalJson(value));
    return list;
}

} // namespace

TextTranscript::TextTranscript(Output &out, bool echo)
    : m_out(out)
    , m_echo(echo)
{
}

void TextTranscript::line(const QString &label, const QString &text)
{
    m_out.write(u"  "_s + (text.isEmpty() ? label : padded(label, labelColumns) + text) + u'\n');
}

void TextTranscript::comment(const QString &text)
{
    if (m_echo)
        m_out.write(text + u'\n');
}

void TextTranscript::begin(const SessionEvent &event)
{
    if (m_echo && !isAbout(event, "expect"_L1))
        m_out.write(emphasised(event.text, m_out.style()) + u'\n');
}

void TextTranscript::call(const MethodCall &call)
{
    line(u"call"_s, call.name() + literals(call.arguments));
}

void TextTranscript::answer(const QVariant &answer)
{
    line(u"answer"_s, shortened(literal(answer)));
}

void TextTranscript::signal(const SignalRecord &record)
{
    line(u"signal"_s, signalText(record) + patches(record, m_out.style()));
}

void TextTranscript::silence()
{
    line(u"silence"_s, {});
}

void TextTranscript::met(const Expectation &expectation)
{
    line(u"ok"_s, shortened(expectation.text()));
}

void TextTranscript::shown(const Installed &installed, const QVariant &)
{
    m_out.write(installedAnswer(installed));
}

void TextTranscript::help(const QString &about)
{
    note(sessionHelp(about, ZrSupplyDatabase::staticMetaObject));
}

void TextTranscript::note(const QString &text)
{
    for (const QString &row : text.split(u'\n', Qt::SkipEmptyParts))
        m_out.write(u"  "_s + row + u'\n');
}

JsonTranscript::JsonTranscript(Output &out)
    : m_out(out)
{
}

void JsonTranscript::write(QLatin1StringView type, QJsonObject object)
{
    object.insert(u"type"_s, type);
    object.insert(u"line"_s, m_line);
    m_out.writeLine(object);
}

void JsonTranscript::begin(const SessionEvent &event)
{
    m_line = event.line;
    if (!isAbout(event, "expect"_L1))
        write("event"_L1, {{u"event"_s, event.word}, {u"text"_s, event.text}});
}

void JsonTranscript::call(const MethodCall &call)
{
    write("call"_L1, {{u"method"_s, call.name()}, {u"arguments"_s, valuesJson(call.arguments)}});
}

void JsonTranscript::answer(const QVariant &answer)
{
    write("answer"_L1, {{u"value"_s, literalJson(answer)}, {u"of"_s, QString::fromLatin1(answer.metaType().name())}});
}

void JsonTranscript::signal(const SignalRecord &record)
{
    QJsonArray names;
    for (const QByteArray &name : record.signal.parameterNames())
        names.append(QString::fromLatin1(name));
    write("signal"_L1,
          {{u"signal"_s, record.name()}, {u"arguments"_s, valuesJson(record.arguments)}, {u"names"_s, names}});
}

void JsonTranscript::met(const Expectation &expectation)
{
    write("met"_L1, {{u"expected"_s, expectation.text()}});
}

void JsonTranscript::shown(const Installed &installed, const QVariant &)
{
    write("show"_L1, toJson(installed));
}

void JsonTranscript::help(const QString &about)
{
    note(sessionHelp(about, ZrSupplyDatabase::staticMetaObject));
}

void JsonTranscript::note(const QString &text)
{
    write("note"_L1, {{u"text"_s, text}});
}

Recording::Recording(const QString &path, const QString &catalogue, int language)
    : m_file(path)
{
    if (m_file.exists() && m_file.size() > 0) {
        throw Failure{Status::Failed,
                      u"%1 is there already and would be lost"_s.arg(path),
                      u"give --record another name, or move that file away"_s,
                      {}};
    }
    if (!m_file.open(QIODevice::WriteOnly)) {
        throw Failure{Status::Failed,
                      u"%1 cannot be written: %2"_s.arg(path, m_file.errorString()),
                      u"give --record a file in a folder that you may write to"_s,
                      {}};
    }
    write(u"# Recorded by zrsupply %1; zrsupply replay runs it again."_s.arg(QCoreApplication::applicationVersion()));
    write(u"# Catalogue: %1"_s.arg(catalogue));
    if (language != 0)
        write(u"language %1"_s.arg(language));
}

void Recording::write(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (m_file.write(bytes) == bytes.size() && m_file.flush())
        return;
    throw Failure{Status::Failed,
                  u"%1 cannot be written: %2"_s.arg(m_file.fileName(), m_file.errorString()),
                  u"make room; what stands in the file so far is whole"_s,
                  {}};
}

void Recording::comment(const QString &text)
{
    write(text);
}

void Recording::begin(const SessionEvent &event)
{
    // What was expected while recording is remembered as a remark; what came back is expected by the recording
    // itself.
    write(isAbout(event, "expect"_L1) ? u"# "_s + event.text : event.text);
}

void Recording::answer(const QVariant &answer)
{
    // Of an event that calls several methods the last answer can be expected.
    m_answer = Expectation::lineForAnswer(answer);
}

void Recording::signal(const SignalRecord &record)
{
    m_signals.append(Expectation::lineFor(record));
}

void Recording::shown(const Installed &, const QVariant &state)
{
    m_answer = Expectation::lineForAnswer(state);
}

void Recording::end(const SessionEvent &event)
{
    if (isAbout(event, "expect"_L1) || isAbout(event, "help"_L1))
        return;
    if (!m_answer.isEmpty())
        write(m_answer);
    for (const QString &line : m_signals)
        write(line);
    write(Expectation::lineForSilence());
    m_answer.clear();
    m_signals.clear();
}

} // namespace zrsupply
