// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "check/finding.h"

#include <QtSql/QSqlDatabase>

namespace zrsupply {

/// What a rule that is not SQL looks at.
struct CheckSubject
{
    QString path;                ///< The catalogue file, empty where the sources made none.
    QSqlDatabase database;       ///< Open on that file, read only; invalid without one.
    QList<CheckFinding> sources; ///< What is wrong with the form of the sources.
    QList<CheckFinding> unused;  ///< Files of the sources that no catalogue gets.
};

using CodeRule = QList<CheckFinding> (*)(const CheckSubject &subject);

/// The function that a rule's heading names; null when there is none.
CodeRule codeRule(const QString &name);

} // namespace zrsupply
