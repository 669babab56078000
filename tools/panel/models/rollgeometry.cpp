// SPDX-License-Identifier: LGPL-2.1-or-later
#include "models/rollgeometry.h"

#include <algorithm>
#include <cmath>

namespace panel {

namespace {

constexpr double sideShare = 0.07;  // of the width, for the ends of the core
constexpr double headShare = 0.36;  // of the height, for a full roll
constexpr double coreOfHead = 0.34; // an empty roll is its core
constexpr double rulerPixels = 22.0;
constexpr int mostLabels = 4000; // a label of a hair's length would make pages of them

/// The wound area grows with what is left, its height with the root of that.
double headHeight(double full, double share)
{
    const double core = full * coreOfHead;
    return std::sqrt(core * core + std::clamp(share, 0.0, 1.0) * (full * full - core * core));
}

QList<QRectF> labelRects(const RollShape &shape, const QRectF &web, double scale)
{
    QList<QRectF> labels;
    const int across = std::max(shape.across, 1);
    const double gap = across > 1 ? std::max(shape.gap, 0.0) * scale : 0.0;
    const double width = (web.width() - gap * (across - 1)) / across;
    const double length = shape.labelLength * scale;
    const double step = length + std::max(shape.separator, 0.0) * scale;
    if (width <= 0.0)
        return labels;
    for (double top = web.top() + (step - length) / 2; top < web.bottom() && labels.size() < mostLabels;
         top += step) {
        for (int column = 0; column < across; ++column) {
            const QRectF label(web.left() + column * (width + gap), top, width, length);
            labels.append(label.intersected(web));
        }
    }
    return labels;
}

/// Stretches of the web that is not striped, each as high as the picture wants it.
QList<QRectF> pageRects(const QRectF &web, const QRectF &stripe, double aspect)
{
    QList<QRectF> pages;
    const double left = stripe.isEmpty() ? web.left() : stripe.right();
    const double width = web.right() - left;
    const double height = width / std::max(aspect, 0.05);
    if (width <= 1.0)
        return pages;
    for (double top = web.top(); top < web.bottom() && pages.size() < mostLabels; top += height)
        pages.append(QRectF(left, top, width, height));
    return pages;
}

} // namespace

RollGeometry rollGeometry(const RollShape &shape, const QSizeF &area, double share, double pageAspect)
{
    RollGeometry geometry;
    const double usable = area.width() * (1.0 - 2.0 * sideShare);
    if (!shape.isDrawable() || usable <= 0.0 || area.height() <= 2 * rulerPixels)
        return geometry;

    geometry.scale = usable / std::max(RollGeometry::commonInches, shape.width);
    const double width = shape.width * geometry.scale;
    const double left = (area.width() - width) / 2;
    const double fullHead = std::min(area.height() * headShare, area.width() * 0.5);
    const double head = headHeight(fullHead, share);
    constexpr double outline = 1.0; // is not to be cut off at the top
    const double middle = fullHead / 2 + outline;
    const double core = fullHead * coreOfHead;
    const double overhang = area.width() * sideShare * 0.6;

    geometry.head = QRectF(left, middle - head / 2, width, head);
    geometry.core = QRectF(left - overhang, middle - core / 2, width + 2 * overhang, core);
    geometry.web = QRectF(left, middle, width, area.height() - rulerPixels - middle);
    geometry.ruler = QRectF(left, area.height() - rulerPixels, width, rulerPixels);
    geometry.rulerInches = int(std::floor(shape.width));

    if (shape.stripe > 0.0)
        geometry.stripe = QRectF(left, geometry.web.top(), std::min(shape.stripe, shape.width) * geometry.scale,
                                 geometry.web.height());
    // What is still behind the wound roll cannot be seen.
    const QRectF visible = geometry.web.adjusted(0, fullHead / 2, 0, 0);
    if (shape.isDieCut())
        geometry.labels = labelRects(shape, visible, geometry.scale);
    geometry.pages = shape.isDieCut() ? geometry.labels : pageRects(visible, geometry.stripe, pageAspect);
    return geometry;
}

} // namespace panel
