// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/output.h"

#include <QtCore/QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray jsonBytes(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

} // namespace

Style terminalStyle(ColorMode mode, bool onTerminal)
{
    switch (mode) {
    case ColorMode::Never:
        return {};
    case ColorMode::Always:
        return {true, true};
    case ColorMode::Auto:
        break;
    }
    if (!onTerminal || !qEnvironmentVariableIsEmpty("NO_COLOR") || qgetenv("TERM") == "dumb")
        return {};
    const QByteArray depth = qgetenv("COLORTERM");
    return {true, depth == "truecolor" || depth == "24bit" || qgetenv("TERM").endsWith("-direct")};
}

Output::Output(bool json, ColorMode mode)
    : m_json(json)
    , m_style(terminalStyle(mode, ::isatty(STDOUT_FILENO) != 0))
{
}

void Output::write(const Answer &answer)
{
    if (m_json)
        write(answer.toJson());
    else
        write(answer.toText(m_style));
}

void Output::write(const QJsonObject &object)
{
    writeBytes(jsonBytes(object));
}

void Output::writeLine(const QJsonObject &object)
{
    writeBytes(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

void Output::write(const QString &text)
{
    writeBytes(text.toUtf8());
}

void Output::writeBytes(const QByteArray &bytes)
{
    // A failure sets the stream's error mark, which flush() reads.
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
}

void Output::flush()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return;
    throw Failure{Status::Failed,
                  u"the answer could not be written: "_s + QString::fromLocal8Bit(std::strerror(errno)),
                  u"make room or choose another place for the output"_s,
                  {}};
}

int report(const Failure &failure, bool json, const Style &style)
{
    QByteArray bytes;
    if (json) {
        QJsonObject error = failure.details;
        error.insert(u"status"_s, int(failure.status));
        error.insert(u"message"_s, failure.message);
        error.insert(u"remedy"_s, failure.remedy);
        bytes = jsonBytes({{u"error"_s, error}});
    } else {
        const QString remedy = failure.remedy.isEmpty() ? QString() : u"  "_s + failure.remedy + u'\n';
        bytes = (emphasised(u"zrsupply:"_s, style) + u' ' + failure.message + u'\n' + remedy).toUtf8();
    }
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    return int(failure.status);
}

} // namespace zrsupply
