// SPDX-License-Identifier: LGPL-2.1-or-later
// CuteLogger stand-in of ZrSupplyDatabase: cmake/FindCuteLogger.cmake knows an installed one by these words.
#pragma once

#include "CuteLogger_global.h"

#include <QDateTime>
#include <QDebug>
#include <QString>

#include <memory>

class AbstractAppender;

// Hands records to its appenders. Every member may be called from any thread.
//
// A record without a category, or of the default category, goes to the appenders of registerAppender(); a
// record of another category goes to the appenders of that category. A record that no appender is registered
// for goes to standard error, so nothing is lost. A record logged from inside an appender's append() goes to
// standard error too: handing it to appenders that are already writing would never come back.
//
// This header defines no macros beyond the export macro, and no Qt message handler is installed.
class CUTELOGGERSHARED_EXPORT Logger
{
public:
    enum LogLevel { Trace, Debug, Info, Warning, Error, Fatal };

    Logger();
    explicit Logger(const QString &defaultCategory, bool writeToGlobalInstance = false);
    // Deletes the registered appenders.
    ~Logger();

    static QString levelToString(LogLevel level);
    // Case does not matter; an unknown name is Debug.
    static LogLevel levelFromString(const QString &name);

    // Made by the first call, the same object for every thread, and valid until the process has ended. The
    // end of a QCoreApplication deletes its appenders; without one they are never deleted.
    static Logger *globalInstance();

    // The logger owns the appender from here on. An appender belongs to one logger only; it may be registered
    // there for several categories.
    void registerAppender(AbstractAppender *appender);
    void registerCategoryAppender(const QString &category, AbstractAppender *appender);
    // Takes back every registration of the appender: the caller owns it again, and no other thread is still
    // writing to it.
    void removeAppender(AbstractAppender *appender);

    // With true, records of this category also go to the global logger's appenders of registerAppender().
    void logToGlobalInstance(const QString &category, bool logToGlobal = false);

    // The category of the records that name none. Empty unless set.
    void setDefaultCategory(const QString &category);
    QString defaultCategory() const;

    // A Fatal record ends the process with abort() once it is written.
    void write(const QDateTime &timeStamp, LogLevel level, const char *file, int line, const char *function,
               const char *category, const QString &message);
    void write(LogLevel level, const char *file, int line, const char *function, const char *category,
               const QString &message);
    // A Fatal record that names the condition.
    void writeAssert(const char *file, int line, const char *function, const char *condition);

private:
    Q_DISABLE_COPY_MOVE(Logger)

    struct Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> d;
};

// Two names for Logger::globalInstance(): the earlier and the later one.
CUTELOGGERSHARED_EXPORT Logger *loggerInstance();
CUTELOGGERSHARED_EXPORT Logger *cuteLoggerInstance();

// One record: write() fills the message, the destructor logs it, exactly once, also when nothing was written.
// The three texts are kept, not copied, so they must outlive the object.
class CUTELOGGERSHARED_EXPORT CuteMessageLogger
{
public:
    CuteMessageLogger(Logger *target, Logger::LogLevel level, const char *file, int line, const char *function);
    CuteMessageLogger(Logger *target, Logger::LogLevel level, const char *file, int line, const char *function,
                      const char *category);
    ~CuteMessageLogger();

    void write(const char *format, ...) Q_ATTRIBUTE_FORMAT_PRINTF(2, 3);
    void write(const QString &message);
    // The stream adds to the message and must not outlive this object.
    QDebug write();

private:
    Q_DISABLE_COPY_MOVE(CuteMessageLogger)

    Logger *m_target;
    Logger::LogLevel m_level;
    const char *m_file;
    int m_line;
    const char *m_function;
    const char *m_category;
    QString m_message;
};
