// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/rowmodel.h"

#include <QtQml/qqmlregistration.h>

namespace panel {

/// One of the 96 bits of a tag.
struct TagBit
{
    int bit = 0;
    bool isSet = false;
    int field = -1;     ///< Row of its field, -1 where nothing reads the bit.
    bool isLit = false; ///< Whether its field has been reached.
    bool isChosen = false;
};

/// A field of a tag, in the order of the bits.
struct TagFieldRow
{
    QString name; ///< "width-inches"
    QString help;
    int first = 0;
    int width = 0;
    QString value;
    bool isLit = false;
};

class TagBitModel : public RowModel<TagBit>
{
    Q_OBJECT
    QML_ANONYMOUS
public:
    enum Role { BitRole = Qt::UserRole, SetRole, FieldRole, LitRole, ChosenRole };
    using RowModel::RowModel;
    QHash<int, QByteArray> roleNames() const override;

protected:
    QVariant value(const TagBit &bit, int role) const override;
};

class TagFieldModel : public RowModel<TagFieldRow>
{
    Q_OBJECT
    QML_ANONYMOUS
public:
    enum Role { NameRole = Qt::UserRole, HelpRole, RangeRole, ValueRole, LitRole };
    using RowModel::RowModel;
    QHash<int, QByteArray> roleNames() const override;

protected:
    QVariant value(const TagFieldRow &field, int role) const override;
};

} // namespace panel
