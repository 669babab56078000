// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/rowmodel.h"

#include <QtQml/qqmlregistration.h>

namespace panel {

/// A label and what it says: "Width", "4 in".
struct Fact
{
    QString label;
    QString text;
    bool operator==(const Fact &other) const { return label == other.label && text == other.text; }
};

class FactsModel : public RowModel<Fact>
{
    Q_OBJECT
    QML_ANONYMOUS
public:
    enum Role { LabelRole = Qt::UserRole, TextRole };
    using RowModel::RowModel;

    QHash<int, QByteArray> roleNames() const override;

protected:
    QVariant value(const Fact &fact, int role) const override;
};

} // namespace panel
