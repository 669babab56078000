// SPDX-License-Identifier: LGPL-2.1-or-later
#include "AbstractAppender.h"
#include "cutelogger_p.h"

namespace {

thread_local int appendDepth = 0;

struct AppendScope
{
    AppendScope() { ++appendDepth; }
    ~AppendScope() { --appendDepth; }
    Q_DISABLE_COPY_MOVE(AppendScope)
};

} // namespace

bool CuteLoggerPrivate::insideAppend()
{
    return appendDepth > 0;
}

AbstractAppender::AbstractAppender() = default;

AbstractAppender::~AbstractAppender() = default;

Logger::LogLevel AbstractAppender::detailsLevel() const
{
    return m_detailsLevel;
}

void AbstractAppender::setDetailsLevel(Logger::LogLevel level)
{
    m_detailsLevel = level;
}

void AbstractAppender::setDetailsLevel(const QString &level)
{
    setDetailsLevel(Logger::levelFromString(level));
}

void AbstractAppender::write(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line,
                             const char *function, const QString &category, const QString &message)
{
    if (level < detailsLevel())
        return;
    const std::lock_guard lock(m_mutex);
    const AppendScope scope;
    append(timeStamp, level, file, line, function, category, message);
}
