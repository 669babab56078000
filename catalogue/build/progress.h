// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

namespace zrsupply {

/// What a long verb is at: one line on stderr that is written over and removed at the end. Shown on a terminal only.
/// Also where a long loop hears of a signal.
class Progress
{
public:
    /// `wanted`: false keeps the line off a terminal too, as for --json.
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// Begins another stage: "roll.csv".
    void stage(const QString &name);
    /// One row more. Throws Interrupted after a signal.
    void tick()
    {
        if ((++m_rows & 0x3ff) == 0)
            look();
    }
    void clear();

private:
    void look();
    void show();

    bool m_shown;
    bool m_dirty = false;
    QString m_stage;
    qint64 m_rows = 0;
    QElapsedTimer m_sinceShown;
};

} // namespace zrsupply
