// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/tagmodel.h"

namespace panel {

using namespace Qt::Literals::StringLiterals;

QHash<int, QByteArray> TagBitModel::roleNames() const
{
    return {{BitRole, "bit"}, {SetRole, "isSet"}, {FieldRole, "field"}, {LitRole, "isLit"}, {ChosenRole, "isChosen"}};
}

QVariant TagBitModel::value(const TagBit &bit, int role) const
{
    switch (role) {
    case BitRole:
        return bit.bit;
    case SetRole:
        return bit.isSet;
    case FieldRole:
        return bit.field;
    case LitRole:
        return bit.isLit;
    case ChosenRole:
        return bit.isChosen;
    case Qt::DisplayRole:
        return bit.isSet ? u"1"_s : u"0"_s;
    default:
        return {};
    }
}

QHash<int, QByteArray> TagFieldModel::roleNames() const
{
    return {{NameRole, "name"}, {HelpRole, "help"}, {RangeRole, "range"}, {ValueRole, "value"}, {LitRole, "isLit"}};
}

QVariant TagFieldModel::value(const TagFieldRow &field, int role) const
{
    switch (role) {
    case NameRole:
    case Qt::DisplayRole:
        return field.name;
    case HelpRole:
        return field.help;
    case RangeRole:
        return field.width == 1 ? QString::number(field.first)
                                : u"%1–%2"_s.arg(field.first).arg(field.first + field.width - 1);
    case ValueRole:
        return field.value;
    case LitRole:
        return field.isLit;
    default:
        return {};
    }
}

} // namespace panel
