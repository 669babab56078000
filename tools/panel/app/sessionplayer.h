// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QTimer>

namespace panel {

/// Hands out the lines of a session one after another, at the pace that the session tells: a line "# after 1.25 s" is
/// a pause, and an event without one comes a moment after the event before it.
class SessionPlayer : public QObject
{
    Q_OBJECT
public:
    static constexpr qint64 usualPauseMs = 700;

    explicit SessionPlayer(QObject *parent = nullptr);

    /// `speed`: 2 is twice as fast, 0 does not wait at all.
    void play(const QString &session, double speed);
    void stop();

    bool isPlaying() const { return m_next < m_lines.size(); }
    /// Share of the lines that are done, 0 to 1.
    double progress() const;

Q_SIGNALS:
    void line(const QString &text, int number);
    void playingChanged();
    void progressChanged();

private:
    void step();
    void schedule();

    QStringList m_lines;
    qsizetype m_next = 0;
    bool m_hasPaused = false; // since the last event
    double m_speed = 1.0;
    QTimer m_timer;
};

} // namespace panel
