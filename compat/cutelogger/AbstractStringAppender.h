// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "AbstractAppender.h"

// An appender that writes each record as text. The format knows
//   %{time} %{time:FORMAT}        ISO with milliseconds, or a QDateTime format
//   %{type} %{file} %{line} %{function} %{category} %{message}
//   %{if-debug} %{if-info} %{if-warning} %{if-critical} %{if-fatal} %{if-category} ... %{endif}
// Every value but the time takes a width: %{type:7} aligns right, %{type:-7} left. Anything else stays as it
// is.
class CUTELOGGERSHARED_EXPORT AbstractStringAppender : public AbstractAppender
{
public:
    AbstractStringAppender();

    virtual QString format() const;
    void setFormat(const QString &format);

    // The qualified name alone: "bool Roll::load(int)" gives "Roll::load".
    static QString stripFunctionName(const char *function);

protected:
    // Ends in a line end only if the format does.
    QString formattedString(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line,
                            const char *function, const QString &category, const QString &message) const;

private:
    mutable std::mutex m_formatMutex;
    QString m_format;
};
