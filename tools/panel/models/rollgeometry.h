// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>

namespace panel {

/// What of a roll can be seen, in inches, as the library answers it.
struct RollShape
{
    double width = -1.0;
    double labelLength = 0.0; ///< 0 of continuous media.
    double separator = 0.0;   ///< Between two labels along the roll.
    int across = 1;           ///< Labels side by side.
    double gap = 0.0;         ///< Between labels side by side.
    double stripe = 0.0;      ///< Along one edge; 0 without one.

    bool isDrawable() const { return width > 0.0; }
    bool isDieCut() const { return labelLength > 0.0; }
};

/// Where its parts lie in a picture. Widths and lengths of the web are to scale, one scale for every roll, so that
/// rolls can be compared by eye; only a roll over `commonInches` is drawn to a smaller one.
struct RollGeometry
{
    static constexpr double commonInches = 6.5;

    double scale = 0.0;   ///< Pixels an inch.
    QRectF head;          ///< The wound roll, seen from the front; higher the more of it is left.
    QRectF core;          ///< Its core, which sticks out at both sides.
    QRectF web;           ///< What has come off, down to the tear edge.
    QRectF stripe;        ///< Empty without one.
    QList<QRectF> labels; ///< Of die-cut media, the last ones cut off by the tear edge.
    QList<QRectF> pages;  ///< Where a picture of the media goes: the labels, else stretches of the web.
    QRectF ruler;         ///< As wide as the web, below it.
    int rulerInches = 0;  ///< Whole inches on it.
};

/// `share`: what is left of the roll, 0 to 1. `pageAspect`: width by height of the picture that goes on the media.
RollGeometry rollGeometry(const RollShape &shape, const QSizeF &area, double share, double pageAspect = 2.0);

} // namespace panel
