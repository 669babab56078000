// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/rowmodel.h"

#include <QtQml/qqmlregistration.h>

class ZrSupplyDatabase;

namespace panel {

/// A language in which the catalogue has names.
struct Language
{
    int id = 0;
    QString code; ///< "de"; empty where the catalogue does not say.
    QString name; ///< As its speakers call it.
};

class LanguageModel : public RowModel<Language>
{
    Q_OBJECT
    QML_ANONYMOUS
public:
    enum Role { IdRole = Qt::UserRole, NameRole };
    using RowModel::RowModel;

    QHash<int, QByteArray> roleNames() const override;
    /// Its row, -1 for a language without names.
    int rowOf(int id) const;
    bool isRightToLeft(int id) const;

protected:
    QVariant value(const Language &language, int role) const override;
};

/// Those of the catalogue, by id; English alone without one.
QList<Language> languagesOf(ZrSupplyDatabase &library);

} // namespace panel
