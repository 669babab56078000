// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplydatabase.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>

/// Calls operations that a table of rows names.
namespace ask {

/// The answer of a public lookup, called as C++ calls it. Stops the test program on an unknown name.
QVariant directly(ZrSupplyDatabase &database, const QString &operation, const QVariantList &arguments);

/// Whether a slot of this name takes this many arguments.
bool isSlot(const QString &operation, qsizetype argumentCount);

/// The answer of a slot, public or private, called by its name as a host does.
QVariant byName(ZrSupplyDatabase &database, const QString &operation, const QVariantList &arguments);

/// Decodes a tag into the object's members, as taking in a roll does.
void takeTag(ZrSupplyDatabase &database, const QString &tagText);

} // namespace ask

/// An object whose catalogue keeps every text that it is asked.
class RecordedDatabase
{
public:
    explicit RecordedDatabase(const QString &cataloguePath);

    ZrSupplyDatabase &operator*() { return m_database; }
    ZrSupplyDatabase *operator->() { return &m_database; }
    /// What has been asked since the last take, and forgets it.
    QStringList takeTexts();

private:
    QStringList m_texts; // outlives the connection, which the database removes
    ZrSupplyDatabase m_database;
};

/// Asks directly and, where the operation is a slot, by name too: true when every answer is `expected`, in type and
/// value, and each costs exactly `texts`. Tells on stderr what differs.
bool answers(RecordedDatabase &recorded, const QString &operation, const QVariantList &arguments,
             const QVariant &expected, const QStringList &texts);
