// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace panel {

/// What is left of a supply, as a ring. Each level has a shape of its own, so that they are told apart without
/// colour: full is a closed ring with a tick, partial an open one, low a short arc with a triangle, empty a dashed
/// ring with a cross, and unknown a dotted ring with a question mark.
class Gauge : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double fraction READ fraction WRITE setFraction NOTIFY fractionChanged)
    Q_PROPERTY(QColor ink MEMBER m_ink NOTIFY colorsChanged)
    Q_PROPERTY(QColor track MEMBER m_track NOTIFY colorsChanged)
    Q_PROPERTY(QColor accent MEMBER m_accent NOTIFY colorsChanged)
    Q_PROPERTY(QColor warning MEMBER m_warning NOTIFY colorsChanged)
    Q_PROPERTY(QColor problem MEMBER m_problem NOTIFY colorsChanged)

public:
    explicit Gauge(QQuickItem *parent = nullptr);

    double fraction() const { return m_fraction; }
    void setFraction(double fraction);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void fractionChanged();
    void colorsChanged();

private:
    double m_fraction = -1.0;
    QColor m_ink;
    QColor m_track;
    QColor m_accent;
    QColor m_warning;
    QColor m_problem;
};

} // namespace panel
