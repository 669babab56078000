// SPDX-License-Identifier: LGPL-2.1-or-later
#include "session/expectation.h"

#include "session/methodcall.h"
#include "text/failure.h"
#include "text/nearest.h"

#include <QtCore/QJsonArray>

#include <cmath>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto answerWord = "answer"_L1;
constexpr auto silenceWord = "silence"_L1;
constexpr auto voidWord = "void"_L1;
constexpr auto anything = "_"_L1;
constexpr auto about = "~"_L1;

bool isAnything(const Word &word)
{
    return word.raw == anything;
}

/// "~0.81" is met by every number that 0.81 is when it is written with as many decimals.
bool isAbout(const Word &word)
{
    return word.raw.startsWith(about);
}

bool isNumber(const QString &text)
{
    bool number = false;
    const double value = text.toDouble(&number);
    return number && std::isfinite(value);
}

bool matches(const Word &word, const QVariant &value)
{
    if (isAnything(word))
        return true;
    if (isAbout(word) && value.metaType().id() == QMetaType::Double) {
        const QString wanted = word.raw.mid(1);
        const qsizetype point = wanted.indexOf(u'.');
        const int decimals = point < 0 ? 0 : int(wanted.size() - point - 1);
        return QString::number(value.toDouble(), 'f', decimals) == QString::number(wanted.toDouble(), 'f', decimals);
    }
    if (word.raw == voidWord)
        return !value.isValid();
    if (!value.isValid())
        return false;
    const auto wanted = parseLiteral(word, value.metaType());
    // By what is written, so that what is printed is what matches.
    return wanted && literal(*wanted) == literal(value);
}

Failure unknownSignal(const QList<QMetaMethod> &known, const QString &name)
{
    QStringList names = {answerWord, silenceWord};
    for (const QMetaMethod &signal : known)
        names.append(QString::fromLatin1(signal.name()));
    const QStringList near = nearest(name, names);
    return {Status::Usage,
            u"there is no signal \"%1\""_s.arg(name),
            near.isEmpty() ? u"expect a signal by its name, \"answer\" or \"silence\""_s
                           : u"did you mean %1?"_s.arg(orList(near)),
            {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

/// A value has to be one that the signal can carry, so that a slip is told from a difference.
void checkValues(const QMetaMethod &signal, const QList<Word> &values)
{
    if (values.isEmpty())
        return;
    if (values.size() != signal.parameterCount()) {
        throw Failure{
            Status::Usage,
            u"%1 carries %2, not %3"_s.arg(QString::fromLatin1(signal.name()),
                                           signal.parameterCount() == 1 ? u"1 value"_s
                                                                        : u"%1 values"_s.arg(signal.parameterCount()),
                                           QString::number(values.size())),
            u"give all of them, none, or %1 for one that may be anything: %2"_s.arg(anything, signatureText(signal)),
            {}};
    }
    for (int parameter = 0; parameter < signal.parameterCount(); ++parameter) {
        const Word &word = values[parameter];
        const QMetaType type = signal.parameterMetaType(parameter);
        const bool aboutNumber = type.id() == QMetaType::Double && isAbout(word) && isNumber(word.raw.mid(1));
        if (isAnything(word) || aboutNumber || parseLiteral(word, type))
            continue;
        throw Failure{Status::Usage,
                      u"%1 of %2 is %3, not %4"_s.arg(QString::fromLatin1(signal.parameterNames().at(parameter)),
                                                      QString::fromLatin1(signal.name()), typeText(type), word.raw),
                      u"it carries: %1"_s.arg(signatureText(signal)),
                      {}};
    }
}

QString wordsText(const QList<Word> &words)
{
    QString text;
    for (const Word &word : words)
        text += u' ' + word.raw;
    return text;
}

/// What is waiting, for the text of a difference.
QString waitingText(const QList<SignalRecord> &waiting)
{
    if (waiting.isEmpty())
        return silenceWord;
    const QString first = signalText(waiting.first());
    return waiting.size() == 1 ? first : u"%1 (and %2 more)"_s.arg(first).arg(waiting.size() - 1);
}

} // namespace

QString signalText(const SignalRecord &record)
{
    return record.name() + literals(record.arguments);
}

QString Expectation::lineFor(const SignalRecord &record)
{
    return u"expect "_s + signalText(record);
}

QString Expectation::lineForAnswer(const QVariant &answer)
{
    return u"expect answer "_s + literal(answer);
}

QString Expectation::lineForSilence()
{
    return u"expect silence"_s;
}

Expectation::Expectation(const QMetaObject &type, const QList<Word> &words)
    : m_values(words.mid(1))
{
    if (words.isEmpty()) {
        throw Failure{Status::Usage,
                      u"expect does not say what"_s,
                      u"expect a signal by its name, \"answer VALUE\" or \"silence\""_s,
                      {}};
    }
    const QString what = words.first().raw;
    if (what == silenceWord || what == answerWord) {
        m_kind = what == silenceWord ? Kind::Silence : Kind::Answer;
        const qsizetype wanted = m_kind == Kind::Silence ? 0 : 1;
        if (m_values.size() != wanted) {
            throw Failure{Status::Usage,
                          u"expect %1 takes %2, not %3"_s.arg(what, wanted == 0 ? u"nothing more"_s : u"one value"_s)
                              .arg(m_values.size()),
                          u"write expect silence, or expect answer VALUE; a call that returns nothing answers void"_s,
                          {}};
        }
        return;
    }
    m_kind = Kind::Signal;
    const QList<QMetaMethod> known = ownSignals(type);
    for (const QMetaMethod &signal : known) {
        if (QString::fromLatin1(signal.name()) == what)
            m_signal = signal;
    }
    if (!m_signal.isValid())
        throw unknownSignal(known, what);
    checkValues(m_signal, m_values);
}

QString Expectation::text() const
{
    switch (m_kind) {
    case Kind::Silence:
        return silenceWord;
    case Kind::Answer:
        return answerWord + wordsText(m_values);
    case Kind::Signal:
        break;
    }
    return QString::fromLatin1(m_signal.name()) + wordsText(m_values);
}

std::optional<Expectation::Difference> Expectation::meet(Arrivals &arrivals) const
{
    switch (m_kind) {
    case Kind::Silence:
        if (arrivals.waiting.isEmpty())
            return {};
        return Difference{text(), waitingText(arrivals.waiting)};
    case Kind::Answer:
        return meetAnswer(arrivals);
    case Kind::Signal:
        break;
    }
    return meetSignal(arrivals);
}

std::optional<Expectation::Difference> Expectation::meetSignal(Arrivals &arrivals) const
{
    if (arrivals.waiting.isEmpty())
        return Difference{text(), silenceWord};
    const SignalRecord &next = arrivals.waiting.first();
    bool same = next.signal == m_signal;
    for (qsizetype i = 0; same && i < m_values.size(); ++i)
        same = matches(m_values[i], next.arguments[i]);
    if (!same)
        return Difference{text(), signalText(next)};
    arrivals.waiting.removeFirst();
    return {};
}

std::optional<Expectation::Difference> Expectation::meetAnswer(const Arrivals &arrivals) const
{
    if (!arrivals.answer)
        return Difference{text(), u"no call to answer"_s};
    if (matches(m_values.first(), *arrivals.answer))
        return {};
    return Difference{text(), answerWord + u' ' + literal(*arrivals.answer)};
}

} // namespace ZrSupplyKit
