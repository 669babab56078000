// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "cli/command.h"

#include <QtCore/QMultiHash>

namespace zrsupply {

/// One run of a verb: its row and the words given, checked against the row.
class Invocation
{
public:
    const Command &command() const { return *m_command; }

    QStringList arguments() const { return m_arguments; }
    /// The argument at `index`, an empty text when it was not given.
    QString argument(qsizetype index) const { return m_arguments.value(index); }

    /// Of an option of the verb or of `globalOptions()`.
    bool has(const QString &option) const { return m_options.contains(option); }
    /// The value given last; `otherwise` when the option was not given.
    QString value(const QString &option, const QString &otherwise = {}) const;
    /// All values given, in their order.
    QStringList values(const QString &option) const { return m_options.value(option); }

    bool json() const;
    /// --language; 0 when not given.
    int language() const;
    /// --printer; empty when not given.
    QString printer() const;

private:
    friend class CommandLine;

    const Command *m_command = nullptr;
    QStringList m_arguments;
    QHash<QString, QStringList> m_options;
};

/// Parses and runs a whole command line, `words` without the program's name. Writes the answer to stdout and an error
/// to stderr; returns the exit status.
int runCommandLine(const QStringList &words);

/// A usage error with the usage line of the verb as remedy.
Failure usageFailure(const Command &command, const QString &message);

} // namespace zrsupply
