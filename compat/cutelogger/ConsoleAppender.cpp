// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ConsoleAppender.h"

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

ConsoleAppender::ConsoleAppender()
{
    setFormat(u"[%{type:-7}] <%{function}> %{message}\n"_s);
}

QString ConsoleAppender::format() const
{
    const QString pattern = m_ignoresEnvironment ? QString() : qEnvironmentVariable("QT_MESSAGE_PATTERN");
    return pattern.isEmpty() ? AbstractStringAppender::format() : pattern + u'\n';
}

void ConsoleAppender::ignoreEnvironmentPattern(bool ignore)
{
    m_ignoresEnvironment = ignore;
}

void ConsoleAppender::append(const QDateTime &timeStamp, Logger::LogLevel level, const char *file, int line,
                             const char *function, const QString &category, const QString &message)
{
    // One text, one call: lines of several threads do not mix.
    const QByteArray text = formattedString(timeStamp, level, file, line, function, category, message).toUtf8();
    std::fwrite(text.constData(), 1, size_t(text.size()), stderr);
}
