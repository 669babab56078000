// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <AbstractAppender.h>
#include <Logger.h>

/// Keeps the library's log records, of every open that fails, from standard error while it lives.
class QuietLog
{
public:
    QuietLog() { Logger::globalInstance()->registerAppender(&m_appender); }
    ~QuietLog() { Logger::globalInstance()->removeAppender(&m_appender); }
    Q_DISABLE_COPY_MOVE(QuietLog)

private:
    class Appender : public AbstractAppender
    {
    protected:
        void append(const QDateTime &, Logger::LogLevel, const char *, int, const char *, const QString &,
                    const QString &) override
        {
        }
    };

    Appender m_appender;
};
