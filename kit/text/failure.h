// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ZrSupplyKit {

/// How something ended; the numbers are the exit statuses of the command.
enum class Status {
    Ok = 0,
    Failed = 1,  ///< A file or the catalogue cannot be used.
    Usage = 2,   ///< What was given is wrong.
    NotFound = 3 ///< There is no such roll or ribbon.
};

/// Thrown by what takes texts of a person: sessions and the writing of tags.
struct ZRSUPPLYKIT_EXPORT Failure
{
    Status status = Status::Failed;
    QString message;     ///< What is wrong, one sentence without a full stop.
    QString remedy;      ///< What to do about it, one sentence without a full stop.
    QJsonObject details; ///< The same for programs: members of a JSON object.
};

} // namespace ZrSupplyKit
