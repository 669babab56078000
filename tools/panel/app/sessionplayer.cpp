// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/sessionplayer.h"

#include "models/logmodel.h"

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isRemark(const QString &line)
{
    return line.isEmpty() || line.startsWith(u'#');
}

/// What comes back belongs to the event before it and is compared at once.
bool waits(const QString &line)
{
    return !isRemark(line) && !line.startsWith("expect"_L1);
}

} // namespace

SessionPlayer::SessionPlayer(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // a coarse one may be early
    connect(&m_timer, &QTimer::timeout, this, &SessionPlayer::step);
}

void SessionPlayer::play(const QString &session, double speed)
{
    m_lines = session.split(u'\n');
    if (m_lines.constLast().isEmpty())
        m_lines.removeLast();
    m_next = 0;
    m_speed = speed;
    m_hasPaused = true; // the first event does not wait
    Q_EMIT playingChanged();
    Q_EMIT progressChanged();
    schedule();
}

void SessionPlayer::stop()
{
    m_timer.stop();
    if (!isPlaying())
        return;
    m_lines.clear();
    m_next = 0;
    Q_EMIT playingChanged();
    Q_EMIT progressChanged();
}

double SessionPlayer::progress() const
{
    return m_lines.isEmpty() ? 0.0 : double(m_next) / double(m_lines.size());
}

void SessionPlayer::schedule()
{
    if (!isPlaying())
        return;
    const QString next = m_lines.at(m_next).trimmed();
    qint64 wait = pauseOf(next);
    if (wait < 0)
        wait = waits(next) && !m_hasPaused ? usualPauseMs : 0;
    m_timer.start(m_speed > 0.0 ? int(double(wait) / m_speed) : 0);
}

void SessionPlayer::step()
{
    const QString text = m_lines.at(m_next).trimmed();
    const int number = int(m_next) + 1;
    ++m_next;
    if (pauseOf(text) >= 0)
        m_hasPaused = true;
    else if (waits(text))
        m_hasPaused = false;
    // Whoever hears the line may stop the player.
    if (!isRemark(text))
        Q_EMIT line(text, number);
    Q_EMIT progressChanged();
    if (m_lines.isEmpty())
        return;
    if (isPlaying())
        schedule();
    else
        Q_EMIT playingChanged();
}

} // namespace panel
