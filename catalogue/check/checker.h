// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "build/progress.h"
#include "check/coderules.h"
#include "check/ignorelist.h"
#include "check/rules.h"

namespace zrsupply {

/// What came of one rule.
struct RuleResult
{
    CheckRule rule;
    QList<CheckFinding> findings;
    qsizetype ignored = 0;
    QString error; ///< Why the rule could not be asked, empty when it was.

    QString message(const CheckFinding &finding) const;
};

/// Asks every rule of `ids`, in their order in `rules`. A subject without a database is asked by rules in code only.
/// Throws Interrupted after a signal.
QList<RuleResult> askRules(const CheckRules &rules, const QStringList &ids, const CheckSubject &subject,
                           IgnoreList &ignored, Progress &progress);

/// A catalogue file that is open for checking, over a connection of its own and read only.
class CheckedFile
{
public:
    /// Throws Failure when the file is none, or does not open.
    explicit CheckedFile(const QString &path);
    ~CheckedFile();
    CheckedFile(const CheckedFile &) = delete;
    CheckedFile &operator=(const CheckedFile &) = delete;

    QSqlDatabase database() const { return m_database; }

private:
    QSqlDatabase m_database;
};

} // namespace zrsupply
