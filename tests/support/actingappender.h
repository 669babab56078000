// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <AbstractAppender.h>
#include <Logger.h>

/// Calls a function for each record.
template <class Action>
class ActingAppender : public AbstractAppender
{
public:
    explicit ActingAppender(Action action)
        : m_action(action)
    {
    }

protected:
    void append(const QDateTime &, Logger::LogLevel, const char *, int, const char *, const QString &,
                const QString &message) override
    {
        m_action(message);
    }

private:
    Action m_action;
};

inline void log(Logger &target, const QString &message, const char *category = nullptr,
                Logger::LogLevel level = Logger::Debug)
{
    target.write(level, "roll.cpp", 12, "bool Roll::load(int)", category, message);
}
