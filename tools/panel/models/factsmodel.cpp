// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/factsmodel.h"

namespace panel {

QHash<int, QByteArray> FactsModel::roleNames() const
{
    return {{LabelRole, "label"}, {TextRole, "text"}};
}

QVariant FactsModel::value(const Fact &fact, int role) const
{
    switch (role) {
    case LabelRole:
        return fact.label;
    case TextRole:
    case Qt::DisplayRole:
        return fact.text;
    default:
        return {};
    }
}

} // namespace panel
