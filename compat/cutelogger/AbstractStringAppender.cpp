// SPDX-License-Identifier: LGPL-2.1-or-later
#include "AbstractStringAppender.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// A name in a pattern condition, for each level: Qt's names, which have no trace and say critical for an
// error.
QLatin1StringView conditionName(Logger::LogLevel level)
{
    switch (level) {
    case Logger::Trace:
    case Logger::Debug:
        return "debug"_L1;
    case Logger::Info:
        return "info"_L1;
    case Logger::Warning:
        return "warning"_L1;
    case Logger::Error:
        return "critical"_L1;
    case Logger::Fatal:
        return "fatal"_L1;
    }
    return {};
}

QString padded(const QString &value, QStringView width)
{
    const int columns = width.toInt();
    return columns < 0 ? value.leftJustified(-columns) : value.rightJustified(columns);
}

// Index of the parenthesis that opens the argument list, or the text's length where there is none.
qsizetype argumentListStart(QStringView text)
{
    const qsizetype close = text.lastIndexOf(u')');
    // A parenthesis inside a closing angle bracket belongs to a type or a lambda, not to the argument list.
    if (close < 0 || text.mid(close).contains(u'>'))
        return text.size();
    int depth = 0;
    for (qsizetype i = close; i >= 0; --i) {
        if (text[i] == u')')
            ++depth;
        else if (text[i] == u'(' && --depth == 0)
            return i;
    }
    return text.size();
}

// Index of the first character after the return type.
qsizetype nameStart(QStringView text)
{
    // The name of an operator may hold blanks and brackets of its own: it is not searched.
    const qsizetype operatorAt = text.lastIndexOf("operator"_L1);
    int depth = 0;
    for (qsizetype i = (operatorAt < 0 ? text.size() : operatorAt) - 1; i >= 0; --i) {
        if (text[i] == u'>' || text[i] == u')')
            ++depth;
        else if (text[i] == u'<' || text[i] == u'(')
            --depth;
        else if (depth == 0 && (text[i] == u' ' || text[i] == u'*' || text[i] == u'&'))
            return i + 1;
    }
    return 0;
}

} // namespace

AbstractStringAppender::AbstractStringAppender()
    : m_format(u"%{time} [%{type:-7}] <%{function}> %{message}"_s)
{
}

QString AbstractStringAppender::format() const
{
    const std::lock_guard lock(m_formatMutex);
    return m_format;
}

void AbstractStringAppender::setFormat(const QString &format)
{
    const std::lock_guard lock(m_formatMutex);
    m_format = format;
}

QString AbstractStringAppender::stripFunctionName(const char *function)
{
    const QString text = QString::fromUtf8(function);
    QStringView name = text;
    // A compiler may append the template arguments: "T f(T) [with T = int]".
    if (const qsizetype arguments = name.indexOf(" ["_L1); arguments >= 0)
        name = name.left(arguments);
    name = name.left(argumentListStart(name));
    return name.mid(nameStart(name)).toString();
}

QString AbstractStringAppender::formattedString(const QDateTime &timeStamp, Logger::LogLevel level, const char *file,
                                                int line, const char *function, const QString &category,
                                                const QString &message) const
{
    const QString pattern = format();
    QString result;
    bool shown = true;
    const auto add = [&result, &shown](const QString &text) {
        if (shown)
            result += text;
    };

    // One pass: a placeholder inside a message or a name is plain text.
    qsizetype position = 0;
    while (position < pattern.size()) {
        const qsizetype open = pattern.indexOf("%{"_L1, position);
        const qsizetype close = open < 0 ? -1 : pattern.indexOf(u'}', open);
        if (close < 0) {
            add(pattern.mid(position));
            break;
        }
        add(pattern.mid(position, open - position));
        position = close + 1;

        const QString token = pattern.mid(open + 2, close - open - 2);
        const qsizetype colon = token.indexOf(u':');
        const QString name = token.left(colon);
        const QString option = colon < 0 ? QString() : token.mid(colon + 1);
        if (name == "time"_L1)
            add(option.isEmpty() ? timeStamp.toString(Qt::ISODateWithMs) : timeStamp.toString(option));
        else if (name == "type"_L1)
            add(padded(Logger::levelToString(level), option));
        else if (name == "file"_L1)
            add(padded(QString::fromUtf8(file), option));
        else if (name == "line"_L1)
            add(padded(QString::number(line), option));
        else if (name == "function"_L1)
            add(padded(stripFunctionName(function), option));
        else if (name == "category"_L1)
            add(padded(category, option));
        else if (name == "message"_L1)
            add(padded(message, option));
        else if (name == "endif"_L1)
            shown = true;
        else if (name == "if-category"_L1)
            shown = !category.isEmpty();
        else if (name.startsWith("if-"_L1))
            shown = QStringView(name).mid(3) == conditionName(level);
        else
            add("%{"_L1 + token + u'}');
    }
    return result;
}
