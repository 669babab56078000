// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QAbstractListModel>

#include <utility>

namespace panel {

/// A list of rows of one struct, replaced as a whole: rows that stay at their place are told as changed, so that a
/// view keeps its position and its delegates.
template <typename Row>
class RowModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid() || index.row() >= m_rows.size())
            return {};
        return value(m_rows.at(index.row()), role);
    }

    const QList<Row> &rows() const { return m_rows; }

    void setRows(QList<Row> rows)
    {
        const int before = int(m_rows.size());
        const int after = int(rows.size());
        if (after < before) {
            beginRemoveRows({}, after, before - 1);
            m_rows.resize(after);
            endRemoveRows();
        }
        if (after > before) {
            beginInsertRows({}, before, after - 1);
            m_rows.append(rows.mid(before));
            endInsertRows();
        }
        m_rows = std::move(rows);
        const int kept = qMin(before, after);
        if (kept > 0)
            Q_EMIT dataChanged(index(0), index(kept - 1));
    }

protected:
    virtual QVariant value(const Row &row, int role) const = 0;

private:
    QList<Row> m_rows;
};

} // namespace panel
