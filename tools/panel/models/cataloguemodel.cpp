// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/cataloguemodel.h"

#include "models/installedribbon.h"
#include "models/installedroll.h"

#include <zrsupplydatabase.h>

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype rowsAtOnce = 40; // about five milliseconds of questions

constexpr qint64 betweenFiltersMs = 250;

bool matches(const Offer &offer, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(), [&offer](const QString &word) {
        return offer.sku.contains(word, Qt::CaseInsensitive) || offer.name.contains(word, Qt::CaseInsensitive) ||
               offer.description.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

CatalogueModel::CatalogueModel(Kind kind, ZrSupplyDatabase &library, QObject *parent)
    : RowModel(parent)
    , m_kind(kind)
    , m_library(library)
{
    m_reading.setInterval(0);
    connect(&m_reading, &QTimer::timeout, this, &CatalogueModel::readSome);
}

QHash<int, QByteArray> CatalogueModel::roleNames() const
{
    return {{SkuRole, "sku"}, {NameRole, "name"}, {DescriptionRole, "description"}, {ColorRole, "swatch"}};
}

QVariant CatalogueModel::value(const Offer &offer, int role) const
{
    switch (role) {
    case SkuRole:
    case Qt::DisplayRole:
        return offer.sku;
    case NameRole:
        return offer.name;
    case DescriptionRole:
        return offer.description;
    case ColorRole:
        return offer.color.isValid() ? QVariant(offer.color) : QVariant(QColor(Qt::transparent));
    default:
        return {};
    }
}

void CatalogueModel::setSearch(const QString &search)
{
    if (search == m_search)
        return;
    m_search = search;
    Q_EMIT searchChanged();
    filter();
}

void CatalogueModel::reload()
{
    m_offers.clear();
    m_unread = 0;
    const QStringList skus = m_kind == Kind::Rolls ? m_library.supplySKUList() : m_library.supplyRibbonSKUList();
    for (const QString &sku : skus)
        m_offers.append({sku, {}, {}, {}, false});
    filter();
    m_reading.start();
}

void CatalogueModel::readSome()
{
    const bool isFirst = m_unread == 0; // what is looked at
    const qsizetype end = std::min(m_unread + rowsAtOnce, m_offers.size());
    for (; m_unread < end; ++m_unread)
        read(m_offers[m_unread]);
    if (isComplete())
        m_reading.stop();
    // Going through a long list for every few names would take longer than reading them.
    if (isFirst || isComplete() || m_sinceFilter.hasExpired(betweenFiltersMs))
        filter();
}

void CatalogueModel::read(Offer &offer)
{
    offer.isRead = true;
    if (m_kind == Kind::Rolls) {
        offer.name = rollName(m_library, offer.sku);
        offer.description = rollDescription(m_library, offer.sku);
        offer.color = colorOf(m_library.supplyColorRGB(offer.sku));
    } else {
        offer.name = ribbonName(m_library, offer.sku);
        offer.description = ribbonDescription(m_library, offer.sku);
        offer.color = colorOf(m_library.supplyRibbonColorRGB(offer.sku, 1));
    }
}

void CatalogueModel::filter()
{
    const QStringList words = m_search.split(u' ', Qt::SkipEmptyParts);
    QList<Offer> left;
    std::copy_if(m_offers.begin(), m_offers.end(), std::back_inserter(left),
                 [&words](const Offer &offer) { return matches(offer, words); });
    setRows(left);
    m_sinceFilter.start();
    Q_EMIT foundChanged();
}

} // namespace panel
