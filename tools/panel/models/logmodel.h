// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/rowmodel.h"

#include "session/sessionhost.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>
#include <QtQml/qqmlregistration.h>

namespace panel {

/// One line of the log.
struct LogRow
{
    QString kind; ///< "event", "signal", "answer", "met", "note" or "problem".
    QString text; ///< As a session writes it.
};

/// Every act and all that came back, in the order of arrival; also as a session that replays.
class LogModel : public QAbstractListModel, public ZrSupplyKit::Transcript
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(int events READ events NOTIFY eventsChanged)

public:
    enum Role { KindRole = Qt::UserRole, TextRole };

    static constexpr int mostRows = 4000; ///< That can be seen; a session holds all.

    explicit LogModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int events() const { return m_events; }
    const QList<LogRow> &rows() const { return m_rows; }
    /// For a person: what went wrong. Not part of the session.
    void addProblem(const QString &text);
    /// The text of a session file: what happened, how long it took, and what came back as expectations.
    QString session() const;

    void begin(const ZrSupplyKit::SessionEvent &event) override;
    void answer(const QVariant &answer) override;
    void signal(const ZrSupplyKit::SignalRecord &record) override;
    void met(const ZrSupplyKit::Expectation &expectation) override;
    void shown(const ZrSupplyKit::Installed &installed, const QVariant &state) override;
    void note(const QString &text) override;
    void end(const ZrSupplyKit::SessionEvent &event) override;

Q_SIGNALS:
    void eventsChanged();

private:
    void add(const QString &kind, const QString &text);

    QList<LogRow> m_rows;
    QStringList m_session;
    QString m_answer; // the line that expects it, empty without one
    QStringList m_signals;
    QElapsedTimer m_sinceEvent;
    int m_events = 0;
};

/// The line of a session that tells how long to wait before the next event; empty for a moment too short to notice.
QString pauseLine(qint64 milliseconds);
/// What such a line says, -1 for any other line.
qint64 pauseOf(const QString &line);

} // namespace panel
