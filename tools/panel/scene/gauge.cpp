// SPDX-License-Identifier: LGPL-2.1-or-later
#include "scene/gauge.h"

#include "models/remaining.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace panel {

namespace {

using Level = Remaining::Level;

constexpr int sixteenthsOfDegree = 16;
constexpr int topOfCircle = 90 * sixteenthsOfDegree;

QPen roundPen(const QColor &color, double width)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// How the ring itself looks where nothing is left on it.
QPen trackPen(Level level, const QColor &color, double width)
{
    QPen pen(color, width, Qt::SolidLine, Qt::FlatCap);
    if (level == Level::Empty) {
        pen.setDashPattern({2.2, 1.1});
    } else if (level == Level::Unknown) {
        pen.setCapStyle(Qt::RoundCap);
        pen.setWidthF(width * 0.6);
        pen.setDashPattern({0.01, 2.0});
    }
    return pen;
}

/// The mark in the middle, in a square from -1 to 1.
QPainterPath markOf(Level level)
{
    QPainterPath path;
    switch (level) {
    case Level::Full:
        path.moveTo(-0.8, 0.05);
        path.lineTo(-0.2, 0.65);
        path.lineTo(0.85, -0.6);
        break;
    case Level::Low:
        path.moveTo(0.0, -0.85);
        path.lineTo(0.95, 0.8);
        path.lineTo(-0.95, 0.8);
        path.closeSubpath();
        path.moveTo(0.0, -0.25);
        path.lineTo(0.0, 0.2);
        path.moveTo(0.0, 0.5);
        path.lineTo(0.0, 0.51);
        break;
    case Level::Empty:
        path.moveTo(-0.65, -0.65);
        path.lineTo(0.65, 0.65);
        path.moveTo(0.65, -0.65);
        path.lineTo(-0.65, 0.65);
        break;
    case Level::Unknown:
        path.moveTo(-0.5, -0.45);
        path.cubicTo(-0.5, -1.1, 0.55, -1.1, 0.5, -0.4);
        path.cubicTo(0.48, -0.05, 0.0, 0.0, 0.0, 0.4);
        path.moveTo(0.0, 0.85);
        path.lineTo(0.0, 0.86);
        break;
    case Level::Partial:
        break;
    }
    return path;
}

} // namespace

Gauge::Gauge(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &Gauge::colorsChanged, this, [this] { update(); });
}

void Gauge::setFraction(double fraction)
{
    if (fraction == m_fraction)
        return;
    m_fraction = fraction;
    Q_EMIT fractionChanged();
    update();
}

void Gauge::paint(QPainter *painter)
{
    const Remaining remaining(m_fraction);
    const Level level = remaining.level();
    const double size = std::min(width(), height());
    const double thickness = std::max(size * 0.12, 3.0);
    const QRectF ring = QRectF((width() - size) / 2, (height() - size) / 2, size, size)
                            .adjusted(thickness / 2, thickness / 2, -thickness / 2, -thickness / 2);
    QColor color = m_accent;
    if (level == Level::Low)
        color = m_warning;
    else if (level == Level::Empty)
        color = m_problem;
    else if (level == Level::Unknown)
        color = m_ink;

    painter->setBrush(Qt::NoBrush);
    const bool isHollow = level == Level::Empty || level == Level::Unknown;
    painter->setPen(trackPen(level, isHollow ? color : m_track, thickness));
    painter->drawEllipse(ring);
    if (!isHollow) {
        painter->setPen(roundPen(color, thickness));
        if (level == Level::Full)
            painter->drawEllipse(ring);
        else
            painter->drawArc(ring, topOfCircle, -int(remaining.share() * 360 * sixteenthsOfDegree));
    }

    const double mark = size * 0.19;
    painter->translate(ring.center());
    painter->scale(mark, mark);
    painter->setPen(roundPen(color, thickness * 0.5 / mark));
    painter->drawPath(markOf(level));
}

} // namespace panel
