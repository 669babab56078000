// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

namespace zrsupply {

/// One row that breaks a rule.
struct CheckFinding
{
    QString table;
    QString key;        ///< Key columns of the row, joined by '/'.
    QJsonObject values; ///< What the rule's message is made of, by column.
    QString file = {};  ///< Of sources: the file's name and the line, 0 where no line is known.
    int line = 0;
    int column = 0; ///< In characters, 0 where the whole line is meant.
};

} // namespace zrsupply
