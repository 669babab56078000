// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/rowmodel.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>

class ZrSupplyDatabase;

namespace panel {

/// A roll or a ribbon that the catalogue offers.
struct Offer
{
    QString sku;
    QString name;        ///< "White Vinyl"; empty until it was asked for.
    QString description; ///< "4 in wide"
    QColor color;
    bool isRead = false;
};

/// The rolls or the ribbons of the catalogue, those that a search leaves.
///
/// A name costs several queries, so names are read a few rows at a time between other events; a search finds SKUs at
/// once and names as they come.
class CatalogueModel : public RowModel<Offer>
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(int found READ found NOTIFY foundChanged)
    Q_PROPERTY(int offered READ offered NOTIFY foundChanged)

public:
    enum class Kind { Rolls, Ribbons };
    enum Role { SkuRole = Qt::UserRole, NameRole, DescriptionRole, ColorRole };

    CatalogueModel(Kind kind, ZrSupplyDatabase &library, QObject *parent = nullptr);

    QHash<int, QByteArray> roleNames() const override;

    QString search() const { return m_search; }
    /// Every word has to be in the SKU, the name or the description, whatever its case.
    void setSearch(const QString &search);
    int found() const { return int(rows().size()); }
    int offered() const { return int(m_offers.size()); }
    /// Asks the catalogue anew: after another one was opened, or the language has changed.
    void reload();
    /// Whether every name has been read.
    bool isComplete() const { return m_unread == m_offers.size(); }

Q_SIGNALS:
    void searchChanged();
    void foundChanged();

protected:
    QVariant value(const Offer &offer, int role) const override;

private:
    void readSome();
    void read(Offer &offer);
    void filter();

    Kind m_kind;
    ZrSupplyDatabase &m_library;
    QList<Offer> m_offers;
    qsizetype m_unread = 0; // the first one whose name is not known yet
    QString m_search;
    QTimer m_reading;
    QElapsedTimer m_sinceFilter;
};

} // namespace panel
