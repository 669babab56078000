// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "AbstractStringAppender.h"

// Writes each record to standard error as "[Debug  ] <Roll::load> text", one line each.
class CUTELOGGERSHARED_EXPORT ConsoleAppender : public AbstractStringAppender
{
public:
    ConsoleAppender();

    // The environment variable QT_MESSAGE_PATTERN wins where it is set and not ignored; a line end is added
    // to it.
    QString format() const override;
    void ignoreEnvironmentPattern(bool ignore);

protected:
    void append(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line, const char *function,
                const QString &category, const QString &message) override;

private:
    std::atomic<bool> m_ignoresEnvironment = false;
};
