// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "diff/subjects.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace zrsupply {

struct DiffChange
{
    enum class Kind { Removed, Added, Changed };

    Kind kind = Kind::Changed;
    QString key;
    QString field;   ///< Of a change.
    QVariant before; ///< Of a change.
    QVariant after;
    /// Why who has the old catalogue, or supplies of it, will notice: empty for a harmless change.
    QString breaks;
    QString beforeName = {}; ///< What the value means where it is a code.
    QString afterName = {};
};

struct SubjectDiff
{
    DiffSubject subject;
    QList<DiffChange> changes; ///< Removed, added, changed, each sorted by key.
    QString missingIn;         ///< The catalogue that has no such tables: nothing is compared.
};

/// Compares two catalogue files. SQLite does the work: both are attached to one connection, every difference is the
/// answer of a SELECT. Throws Failure for a file that is no catalogue.
QList<SubjectDiff> compareCatalogues(const QString &oldPath, const QString &newPath);

} // namespace zrsupply
