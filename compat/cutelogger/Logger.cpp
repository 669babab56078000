// SPDX-License-Identifier: LGPL-2.1-or-later
#include "Logger.h"

#include "AbstractAppender.h"
#include "ConsoleAppender.h"
#include "cutelogger_p.h"

#include <QCoreApplication>
#include <QSet>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::array levelNames = {"Trace"_L1, "Debug"_L1, "Info"_L1, "Warning"_L1, "Error"_L1, "Fatal"_L1};

struct Record
{
    const QDateTime &timeStamp;
    Logger::LogLevel level;
    const char *file;
    int line;
    const char *function;
    const QString &message;

    void writeTo(AbstractAppender &appender, const QString &category) const
    {
        appender.write(timeStamp, level, file, line, function, category, message);
    }

    void writeToStandardError(const QString &category) const
    {
        ConsoleAppender console;
        console.setDetailsLevel(Logger::Trace);
        writeTo(console, category);
    }
};

void note(const QString &text)
{
    std::cerr << (text + u'\n').toStdString();
}

} // namespace

struct Logger::Private
{
    struct Registration
    {
        AbstractAppender *appender;
        std::optional<QString> category; // none: registered for the logger as a whole
    };

    // Recursive, so that an appender may remove itself or others while it writes.
    std::recursive_mutex mutex;
    std::vector<Registration> registrations;
    QString defaultCategory;
    QSet<QString> globalCategories;
    QSet<QString> notedCategories;
    bool notedNoAppender = false;
    bool isGlobal = false;
    bool endsWithApplication = false;

    bool isRegistered(const AbstractAppender *appender) const
    {
        return std::any_of(registrations.begin(), registrations.end(),
                           [appender](const Registration &entry) { return entry.appender == appender; });
    }

    void add(AbstractAppender *appender, const std::optional<QString> &category);
    void deliver(const Record &record, const QString &category, bool fromOtherLogger);
    void deliverToNobody(const Record &record, const QString &category);
    void deleteAppenders();

    static void endGlobalInstance();
};

void Logger::Private::add(AbstractAppender *appender, const std::optional<QString> &category)
{
    if (!appender) {
        note(u"A null appender is not registered"_s);
        return;
    }
    const std::lock_guard lock(mutex);
    const bool known = std::any_of(registrations.begin(), registrations.end(), [&](const Registration &entry) {
        return entry.appender == appender && entry.category == category;
    });
    if (known) {
        note(u"The appender is registered already, the second registration is ignored"_s);
        return;
    }
    registrations.push_back({appender, category});
    // Each application runs its post routines once, so every application needs its own entry.
    if (isGlobal && !endsWithApplication) {
        qAddPostRoutine(endGlobalInstance);
        endsWithApplication = true;
    }
}

void Logger::Private::deliver(const Record &record, const QString &category, bool fromOtherLogger)
{
    if (CuteLoggerPrivate::insideAppend()) {
        record.writeToStandardError(category);
        return;
    }

    std::unique_lock lock(mutex);
    const bool linked = globalCategories.contains(category);
    const bool toAll = fromOtherLogger || category == defaultCategory || (isGlobal && linked);
    QVarLengthArray<AbstractAppender *, 8> receivers;
    for (const Registration &entry : registrations) {
        const bool meant = entry.category ? *entry.category == category : toAll;
        if (meant && !receivers.contains(entry.appender))
            receivers.append(entry.appender);
    }
    // The lock stays until all have written: who removes an appender may delete it at once.
    for (AbstractAppender *receiver : receivers) {
        if (isRegistered(receiver))
            record.writeTo(*receiver, category);
    }
    lock.unlock();

    if (linked && !isGlobal)
        globalInstance()->d->deliver(record, category, true);
    else if (receivers.isEmpty())
        deliverToNobody(record, category);
}

void Logger::Private::deliverToNobody(const Record &record, const QString &category)
{
    {
        const std::lock_guard lock(mutex);
        if (category != defaultCategory) {
            if (!notedCategories.contains(category))
                note(u"No appenders associated with category "_s + category);
            notedCategories.insert(category);
        } else if (!notedNoAppender) {
            note(u"No appenders registered with logger"_s);
            notedNoAppender = true;
        }
    }
    record.writeToStandardError(category);
}

void Logger::Private::deleteAppenders()
{
    std::vector<Registration> taken;
    {
        const std::lock_guard lock(mutex);
        taken.swap(registrations);
    }
    QSet<AbstractAppender *> appenders;
    for (const Registration &entry : taken)
        appenders.insert(entry.appender);
    // Without the lock: the end of an appender may wait for another thread that logs.
    qDeleteAll(appenders);
}

void Logger::Private::endGlobalInstance()
{
    Private &global = *globalInstance()->d;
    {
        const std::lock_guard lock(global.mutex);
        global.endsWithApplication = false;
    }
    global.deleteAppenders();
}

Logger::Logger()
    : d(std::make_unique<Private>())
{
}

Logger::Logger(const QString &defaultCategory, bool writeToGlobalInstance)
    : Logger()
{
    setDefaultCategory(defaultCategory);
    logToGlobalInstance(defaultCategory, writeToGlobalInstance);
}

Logger::~Logger()
{
    d->deleteAppenders();
}

QString Logger::levelToString(LogLevel level)
{
    return levelNames.at(static_cast<std::size_t>(level));
}

Logger::LogLevel Logger::levelFromString(const QString &name)
{
    const auto *const found = std::find_if(levelNames.begin(), levelNames.end(), [&name](QLatin1StringView known) {
        return known.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == levelNames.end() ? Debug : static_cast<LogLevel>(found - levelNames.begin());
}

Logger *Logger::globalInstance()
{
    // Never deleted: a thread or a static object may still log while the process ends.
    static Logger *const instance = [] {
        auto *made = new Logger;
        made->d->isGlobal = true;
        return made;
    }();
    return instance;
}

void Logger::registerAppender(AbstractAppender *appender)
{
    d->add(appender, std::nullopt);
}

void Logger::registerCategoryAppender(const QString &category, AbstractAppender *appender)
{
    d->add(appender, category);
}

void Logger::removeAppender(AbstractAppender *appender)
{
    const std::lock_guard lock(d->mutex);
    auto &entries = d->registrations;
    const auto isIts = [appender](const Private::Registration &entry) { return entry.appender == appender; };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isIts), entries.end());
}

void Logger::logToGlobalInstance(const QString &category, bool logToGlobal)
{
    const std::lock_guard lock(d->mutex);
    if (logToGlobal)
        d->globalCategories.insert(category);
    else
        d->globalCategories.remove(category);
}

void Logger::setDefaultCategory(const QString &category)
{
    const std::lock_guard lock(d->mutex);
    d->defaultCategory = category;
}

QString Logger::defaultCategory() const
{
    const std::lock_guard lock(d->mutex);
    return d->defaultCategory;
}

void Logger::write(const QDateTime &timeStamp, LogLevel level, const char *file, int line, const char *function,
                   const char *category, const QString &message)
{
    const Record record{timeStamp, level, file, line, function, message};
    d->deliver(record, category ? QString::fromUtf8(category) : defaultCategory(), false);
    if (level == Fatal)
        std::abort();
}

void Logger::write(LogLevel level, const char *file, int line, const char *function, const char *category,
                   const QString &message)
{
    write(QDateTime::currentDateTime(), level, file, line, function, category, message);
}

void Logger::writeAssert(const char *file, int line, const char *function, const char *condition)
{
    write(Fatal, file, line, function, nullptr, u"ASSERT: \"%1\""_s.arg(QString::fromUtf8(condition)));
}

Logger *loggerInstance()
{
    return Logger::globalInstance();
}

Logger *cuteLoggerInstance()
{
    return Logger::globalInstance();
}

CuteMessageLogger::CuteMessageLogger(Logger *target, Logger::LogLevel level, const char *file, int line,
                                     const char *function)
    : CuteMessageLogger(target, level, file, line, function, nullptr)
{
}

CuteMessageLogger::CuteMessageLogger(Logger *target, Logger::LogLevel level, const char *file, int line,
                                     const char *function, const char *category)
    : m_target(target)
    , m_level(level)
    , m_file(file)
    , m_line(line)
    , m_function(function)
    , m_category(category)
{
}

CuteMessageLogger::~CuteMessageLogger()
{
    m_target->write(m_level, m_file, m_line, m_function, m_category, m_message);
}

void CuteMessageLogger::write(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    m_message = QString::vasprintf(format, arguments);
    va_end(arguments);
}

void CuteMessageLogger::write(const QString &message)
{
    m_message = message;
}

QDebug CuteMessageLogger::write()
{
    return QDebug(&m_message);
}
