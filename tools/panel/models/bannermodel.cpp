// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/bannermodel.h"

#include <algorithm>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

QString severityWord(Severity severity)
{
    switch (severity) {
    case Severity::Good:
        return u"good"_s;
    case Severity::Info:
        return u"info"_s;
    case Severity::Warning:
        return u"warning"_s;
    case Severity::Problem:
        return u"problem"_s;
    }
    return {};
}

} // namespace

QHash<int, QByteArray> BannerModel::roleNames() const
{
    return {{SeverityRole, "severity"}, {TitleRole, "title"},     {ReasonRole, "reason"},
            {RemedyRole, "remedy"},     {SubjectRole, "subject"}, {SpokenRole, "spoken"}};
}

QVariant BannerModel::value(const Banner &banner, int role) const
{
    switch (role) {
    case SeverityRole:
        return severityWord(banner.severity);
    case TitleRole:
    case Qt::DisplayRole:
        return banner.title;
    case ReasonRole:
        return banner.reason;
    case RemedyRole:
        return banner.remedy;
    case SubjectRole:
        return banner.subject;
    case SpokenRole:
        return banner.spoken();
    default:
        return {};
    }
}

void BannerModel::setMishap(const Banner &banner)
{
    m_mishap = banner;
    update();
}

void BannerModel::dismissMishap()
{
    m_mishap.reset();
    update();
}

void BannerModel::setBanners(const QList<Banner> &banners)
{
    m_banners = banners;
    update();
}

void BannerModel::update()
{
    QList<Banner> all = m_banners;
    if (m_mishap)
        all.prepend(*m_mishap);
    setRows(all);
    Q_EMIT firstChanged();
}

Banner BannerModel::first() const
{
    return rows().isEmpty() ? Banner() : rows().constFirst();
}

QString BannerModel::severity() const
{
    return severityWord(first().severity);
}

QString BannerModel::title() const
{
    return first().title;
}

QString BannerModel::detail() const
{
    return first().detail();
}

QString BannerModel::spoken() const
{
    return first().spoken();
}

int BannerModel::alerts() const
{
    return int(std::count_if(rows().begin(), rows().end(),
                             [](const Banner &banner) { return banner.severity >= Severity::Warning; }));
}

} // namespace panel
