// SPDX-License-Identifier: LGPL-2.1-or-later
// A CuteLogger of its own kind, in place of the one that is built here: the same functions, and what the upstream
// library does to a process. The first access installs a message handler of Qt's, and a routine for the application's
// end.

#include <Logger.h>

#include <QtCore/QCoreApplication>

#include <cstdio>

namespace {

void writeLine(const char *level, const char *function, const QString &message)
{
    std::fprintf(stderr, "[%s] <%s> %s\n", level, function ? function : "", qPrintable(message));
}

void handle(QtMsgType, const QMessageLogContext &, const QString &message)
{
    writeLine("Warning", nullptr, message);
}

} // namespace

struct Logger::Private
{
};

Logger::Logger()
    : d(std::make_unique<Private>())
{
}

Logger::~Logger() = default;

Logger *Logger::globalInstance()
{
    static Logger *const global = [] {
        qInstallMessageHandler(handle);
        qAddPostRoutine([] { writeLine("Debug", "Logger::end", QStringLiteral("the application ends")); });
        return new Logger; // NOLINT(cppcoreguidelines-owning-memory)
    }();
    return global;
}

Logger *loggerInstance()
{
    return Logger::globalInstance();
}

CuteMessageLogger::CuteMessageLogger(Logger *target, Logger::LogLevel level, const char *file, int line,
                                     const char *function)
    : m_target(target)
    , m_level(level)
    , m_file(file)
    , m_line(line)
    , m_function(function)
    , m_category(nullptr)
{
}

CuteMessageLogger::~CuteMessageLogger()
{
    writeLine("Debug", m_function, m_message);
}

QDebug CuteMessageLogger::write()
{
    return QDebug(&m_message);
}
