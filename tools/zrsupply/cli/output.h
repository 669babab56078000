// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/answer.h"
#include "cli/command.h"

#include <QtCore/QByteArray>

namespace zrsupply {

enum class ColorMode { Auto, Always, Never };

/// What a terminal shows, by --color, NO_COLOR, TERM and COLORTERM; `onTerminal`: whether it is one.
Style terminalStyle(ColorMode mode, bool onTerminal);

/// stdout: the answer and nothing else.
class Output
{
public:
    Output(bool json, ColorMode mode);

    bool json() const { return m_json; }
    const Style &style() const { return m_style; }

    /// Writes the answer as --json says.
    void write(const Answer &answer);
    /// Writes one JSON document, indented.
    void write(const QJsonObject &object);
    /// Writes one JSON document on one line: for answers that come one after another.
    void writeLine(const QJsonObject &object);
    /// Writes text as it stands.
    void write(const QString &text);
    /// Throws when stdout did not take everything.
    void flush();

private:
    void writeBytes(const QByteArray &bytes);

    bool m_json;
    Style m_style;
};

/// Writes the error to stderr, as JSON where `json` says so, and returns its status as a number.
int report(const Failure &failure, bool json, const Style &style);

} // namespace zrsupply
