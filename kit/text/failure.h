// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace zrsupply {

/// Exit status of the command.
enum class Status { Ok = 0, Failed = 1, Usage = 2, NotFound = 3 };

/// Ends a verb with an error on stderr. Thrown from anywhere below `Command::run`.
struct Failure
{
    Status status = Status::Failed;
    QString message;     ///< What is wrong, one sentence without a full stop.
    QString remedy;      ///< What to do about it, one sentence without a full stop.
    QJsonObject details; ///< Further members of the error object with --json.
};

} // namespace zrsupply
