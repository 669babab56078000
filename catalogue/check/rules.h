// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// The rules that a catalogue is checked by, as checks.sql tells them. The head of that file describes the form.
namespace zrsupply {

enum class Severity { Hint, Warning, Error };

QString severityName(Severity severity);

struct CheckRule
{
    QString id;
    Severity severity = Severity::Error;
    QString title;
    QString message; ///< With {column} for columns of the SELECT.
    QString because;
    QString remedy;
    QString select; ///< Empty for a rule that is not SQL.
    QString code;   ///< Of such a rule: the function's name.
};

class CheckRules
{
public:
    /// The rules of schema/checks.sql, which is part of the program.
    static CheckRules standard();

    /// Reads the text of a rule file. Throws Failure with `fileName` and the line of what is wrong.
    static CheckRules parse(const QString &text, const QString &fileName);

    /// Adds the rules of another file. A rule whose id is there already takes that one's place.
    void add(const CheckRules &others);

    /// Statements to run before the first rule.
    const QStringList &preparation() const { return m_preparation; }
    const QList<CheckRule> &rules() const { return m_rules; }
    QStringList ids() const;
    /// Null when there is none.
    const CheckRule *find(const QString &id) const;

private:
    QStringList m_preparation;
    QList<CheckRule> m_rules;
};

} // namespace zrsupply
