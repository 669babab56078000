// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/logmodel.h"

#include "session/expectation.h"

#include <QtCore/QRegularExpression>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 shortestPauseMs = 50;
constexpr int rowsDroppedAtOnce = 500;
constexpr qsizetype longestValue = 400; // a picture or the list of all SKUs; the session keeps the whole

bool isAbout(const ZrSupplyKit::SessionEvent &event, QLatin1StringView word)
{
    return event.word == word;
}

QString shortened(const QString &text)
{
    return text.size() <= longestValue ? text : text.left(longestValue) + u'…';
}

} // namespace

QString pauseLine(qint64 milliseconds)
{
    if (milliseconds < shortestPauseMs)
        return {};
    return u"# after %1 s"_s.arg(double(milliseconds) / 1000.0, 0, 'f', 2);
}

qint64 pauseOf(const QString &line)
{
    static const QRegularExpression pattern(u"^\\s*#\\s*after\\s+(\\d+(?:\\.\\d+)?)\\s*s\\s*$"_s);
    const QRegularExpressionMatch match = pattern.match(line);
    return match.hasMatch() ? qRound64(match.captured(1).toDouble() * 1000.0) : -1;
}

LogModel::LogModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

int LogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const LogRow &row = m_rows.at(index.row());
    switch (role) {
    case KindRole:
        return row.kind;
    case TextRole:
    case Qt::DisplayRole:
        return row.text;
    default:
        return {};
    }
}

QHash<int, QByteArray> LogModel::roleNames() const
{
    return {{KindRole, "kind"}, {TextRole, "text"}};
}

void LogModel::add(const QString &kind, const QString &text)
{
    if (m_rows.size() >= mostRows) {
        beginRemoveRows({}, 0, rowsDroppedAtOnce - 1);
        m_rows.remove(0, rowsDroppedAtOnce);
        endRemoveRows();
    }
    const int row = int(m_rows.size());
    beginInsertRows({}, row, row);
    m_rows.append({kind, shortened(text)});
    endInsertRows();
}

void LogModel::addProblem(const QString &text)
{
    add(u"problem"_s, text);
}

QString LogModel::session() const
{
    return m_session.isEmpty() ? QString() : m_session.join(u'\n') + u'\n';
}

void LogModel::begin(const ZrSupplyKit::SessionEvent &event)
{
    if (isAbout(event, "expect"_L1))
        return;
    if (m_sinceEvent.isValid()) {
        const QString pause = pauseLine(m_sinceEvent.elapsed());
        if (!pause.isEmpty())
            m_session.append(pause);
    }
    m_sinceEvent.start();
    m_session.append(event.text);
    add(u"event"_s, event.text);
    ++m_events;
    Q_EMIT eventsChanged();
}

void LogModel::answer(const QVariant &answer)
{
    // Of an event that calls several methods the last answer can be expected.
    m_answer = ZrSupplyKit::Expectation::lineForAnswer(answer);
    add(u"answer"_s, ZrSupplyKit::literal(answer));
}

void LogModel::signal(const ZrSupplyKit::SignalRecord &record)
{
    m_signals.append(ZrSupplyKit::Expectation::lineFor(record));
    add(u"signal"_s, ZrSupplyKit::signalText(record));
}

void LogModel::met(const ZrSupplyKit::Expectation &expectation)
{
    add(u"met"_s, expectation.text());
}

void LogModel::shown(const ZrSupplyKit::Installed &, const QVariant &state)
{
    m_answer = ZrSupplyKit::Expectation::lineForAnswer(state);
}

void LogModel::note(const QString &text)
{
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts))
        add(u"note"_s, line);
}

void LogModel::end(const ZrSupplyKit::SessionEvent &event)
{
    if (isAbout(event, "expect"_L1) || isAbout(event, "help"_L1))
        return;
    if (!m_answer.isEmpty())
        m_session.append(m_answer);
    m_session.append(m_signals);
    m_session.append(ZrSupplyKit::Expectation::lineForSilence());
    m_answer.clear();
    m_signals.clear();
}

} // namespace panel
