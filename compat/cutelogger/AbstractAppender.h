// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "Logger.h"

#include <atomic>
#include <mutex>

// Where records go. write() may be called from any thread; append() runs for one record at a time.
class CUTELOGGERSHARED_EXPORT AbstractAppender
{
public:
    AbstractAppender();
    virtual ~AbstractAppender();

    // Records below this level are dropped. Debug unless set, so Trace records are dropped.
    Logger::LogLevel detailsLevel() const;
    void setDetailsLevel(Logger::LogLevel level);
    void setDetailsLevel(const QString &level);

    void write(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line, const char *function,
               const QString &category, const QString &message);

protected:
    // The three texts may be null. A record logged in here goes to standard error, see Logger.
    virtual void append(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line,
                        const char *function, const QString &category, const QString &message) = 0;

private:
    Q_DISABLE_COPY_MOVE(AbstractAppender)

    std::mutex m_mutex;
    std::atomic<Logger::LogLevel> m_detailsLevel = Logger::Debug;
};
