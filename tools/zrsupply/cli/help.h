// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/answer.h"
#include "cli/command.h"

namespace zrsupply {

/// Every verb with its summary, and the options that all take.
QString overviewText(const Style &style);
/// The verbs that begin with the word `group`.
QString groupText(const QString &group, const Style &style);
QString commandText(const Command &command, const Style &style);

/// "zrsupply roll SKU [options]"
QString usageLine(const Command &command);

/// The command table for programs: man pages and completions are made from it.
QJsonObject tableJson();
QJsonObject commandJson(const Command &command);

} // namespace zrsupply
