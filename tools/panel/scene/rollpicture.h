// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "models/installedroll.h"

#include <QtGui/QPixmap>
#include <QtQuick/QQuickPaintedItem>

namespace panel {

/// The roll, drawn to scale: what is wound up, what has come off, its labels, its stripe and its printed picture.
class RollPicture : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(panel::InstalledRoll *roll READ roll WRITE setRoll NOTIFY rollChanged)
    Q_PROPERTY(QColor ink MEMBER m_ink NOTIFY colorsChanged)
    Q_PROPERTY(QColor faint MEMBER m_faint NOTIFY colorsChanged)

public:
    explicit RollPicture(QQuickItem *parent = nullptr);

    InstalledRoll *roll() const { return m_roll; }
    void setRoll(InstalledRoll *roll);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void rollChanged();
    void colorsChanged();

private:
    void paintNothing(QPainter &painter) const;
    void paintWeb(QPainter &painter, const RollGeometry &geometry) const;
    void paintPages(QPainter &painter, const RollGeometry &geometry) const;
    void paintHead(QPainter &painter, const RollGeometry &geometry) const;
    void paintRuler(QPainter &painter, const RollGeometry &geometry) const;
    void renderBackground();
    QColor mediaColor() const;

    InstalledRoll *m_roll = nullptr;
    QImage m_background; // rendered once, painted on every label
    QColor m_ink;
    QColor m_faint;
};

} // namespace panel
