// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/progress.h"

#include "build/interrupt.h"

#include <QtCore/QLocale>

#include <cstdio>
#include <unistd.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

Progress::Progress(bool wanted)
    : m_shown(wanted && ::isatty(STDERR_FILENO) != 0)
{
    m_sinceShown.start();
}

Progress::~Progress()
{
    clear();
}

void Progress::stage(const QString &name)
{
    InterruptGuard::check();
    m_stage = name;
    m_rows = 0;
    show();
}

void Progress::look()
{
    InterruptGuard::check();
    constexpr qint64 intervalMs = 100;
    if (m_sinceShown.elapsed() >= intervalMs)
        show();
}

void Progress::show()
{
    if (!m_shown)
        return;
    QString line = u"\r\033[K"_s + m_stage;
    if (m_rows > 0)
        line += u": %1 rows"_s.arg(QLocale::c().toString(m_rows));
    std::fputs(line.toUtf8().constData(), stderr);
    std::fflush(stderr);
    m_dirty = true;
    m_sinceShown.restart();
}

void Progress::clear()
{
    if (!m_dirty)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    m_dirty = false;
}

} // namespace zrsupply
