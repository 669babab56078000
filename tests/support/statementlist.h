// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

/// A row of tests/data/statements.tsv: a text that the library may ask the catalogue, and how it comes to be asked.
struct Statement
{
    QString name;
    QString text;
    int placeholders;
    QString fillForm; ///< "none", "one", "in turn", "jointly", "jointly then in turn", "numbers" or "joined"
    QStringList issuedBy;
};

/// Every row of the list, in its order.
const QList<Statement> &statementList();

/// The text of this name with %1, %2 and %3 replaced at once, each by the value that is to stand there.
QString filled(const char *name, const QStringList &values = {});
