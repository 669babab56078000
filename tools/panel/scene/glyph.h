// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace panel {

/// A small picture by its name, in one colour.
class Glyph : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Glyph(QQuickItem *parent = nullptr);

    QString name() const { return m_name; }
    void setName(const QString &name);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

    static QStringList names();

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

private:
    QString m_name;
    QColor m_color;
};

} // namespace panel
