// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/banners.h"
#include "models/rowmodel.h"

#include <QtQml/qqmlregistration.h>

namespace panel {

/// Banners for views, the worst first.
class BannerModel : public RowModel<Banner>
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString severity READ severity NOTIFY firstChanged)
    Q_PROPERTY(QString title READ title NOTIFY firstChanged)
    Q_PROPERTY(QString detail READ detail NOTIFY firstChanged)
    Q_PROPERTY(QString spoken READ spoken NOTIFY firstChanged)
    Q_PROPERTY(bool dismissible READ isDismissible NOTIFY firstChanged)
    Q_PROPERTY(int alerts READ alerts NOTIFY firstChanged)

public:
    enum Role { SeverityRole = Qt::UserRole, TitleRole, ReasonRole, RemedyRole, SubjectRole, SpokenRole };
    using RowModel::RowModel;

    QHash<int, QByteArray> roleNames() const override;

    /// Of something that a person did and that did not work: first of all until it is dismissed.
    void setMishap(const Banner &banner);
    void dismissMishap();
    bool isDismissible() const { return m_mishap.has_value(); }
    void setBanners(const QList<Banner> &banners);

    // The first one
    QString severity() const;
    QString title() const;
    QString detail() const;
    QString spoken() const;
    /// How many are warnings or problems.
    int alerts() const;

Q_SIGNALS:
    void firstChanged();

protected:
    QVariant value(const Banner &banner, int role) const override;

private:
    void update();
    Banner first() const;

    std::optional<Banner> m_mishap;
    QList<Banner> m_banners;
};

} // namespace panel
