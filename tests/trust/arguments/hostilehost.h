// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "slotcall.h"
#include "sqlitewatch.h"

#include "support/fixturecatalogue.h"
#include "support/metamethods.h"

#include <QtCore/QTemporaryDir>

/// One parameter of one slot that carries text.
struct TextPlace
{
    int index;
    int parameter;

    QMetaMethod method() const { return metamethods::methodAt(index); }
    /// `supplyRibbonHeat.supplySku`, with the number of parameters where the slot has several forms.
    QString name() const;
};

/// A host that passes on whatever it is handed, in an empty folder of its own and under watch.
class HostileHost
{
public:
    HostileHost();
    ~HostileHost();
    Q_DISABLE_COPY_MOVE(HostileHost)

    /// Every place that takes text, but the catalogue's path and connection name, which are no SQL.
    static QList<TextPlace> places();
    /// The slots without parameters: they use what others have stored.
    static QList<int> users();

    /// Calls the slot with `text` in this place and harmless values, which have rows, in the others.
    QVariant hand(const TextPlace &place, const QString &text);

    ZrSupplyDatabase &database() { return m_database; }
    const FixtureCatalogue &catalogue() const { return m_catalogue; }
    SqliteWatch &watch() { return m_watch; }
    /// What was done to the catalogue or beside it; empty when nothing was.
    QString harm() const;

private:
    FixtureCatalogue m_catalogue;
    QTemporaryDir m_emptyFolder;
    QString m_formerFolder;
    QByteArray m_hash;
    SqliteWatch m_watch; // outlives the connection, which the database removes
    ZrSupplyDatabase m_database;
};
