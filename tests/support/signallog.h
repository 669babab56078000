// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

class ZrSupplyDatabase;

/// Every signal of a database in arrival order, one line each: `name(argument, argument)`.
///
/// Numbers are written so that they read back exactly (-1.0 as "-1", 0.5 as "0.5"), truth values as true and false,
/// texts in double quotes, lists in brackets: `ribbonChangedSignal(["A", "B"])`.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    explicit SignalLog(ZrSupplyDatabase *database);

    /// What has arrived since the last take, and forgets it.
    QStringList take();

private:
    void add(const char *signal, const QStringList &arguments);

    QStringList m_lines;
};
