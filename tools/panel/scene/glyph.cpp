// SPDX-License-Identifier: LGPL-2.1-or-later
#include "scene/glyph.h"

#include <QtCore/QHash>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Outlines in a square of 24, as SVG paths.
const QHash<QString, QString> &outlines()
{
    static const QHash<QString, QString> table = {
        {u"supplies"_s, u"M12 3a9 9 0 1 0 9 9V3z M12 9a3 3 0 1 0 3 3"_s},
        {u"choose"_s, u"M7 10l5 5 5-5"_s},
        {u"load"_s, u"M12 3v11 M7 9l5 5 5-5 M4 20h16"_s},
        {u"mileage"_s, u"M3 17a9 9 0 1 1 18 0 M12 17l4-6 M3 20h18"_s},
        {u"tag"_s, u"M3 12V4a1 1 0 0 1 1-1h8l9 9-9 9z M8 8h.01"_s},
        {u"checks"_s, u"M4 6l2 2 3-4 M4 17l2 2 3-4 M13 6h8 M13 17h8"_s},
        {u"log"_s, u"M5 3h14v18H5z M9 8h6 M9 12h6 M9 16h4"_s},
        {u"setup"_s, u"M4 7h9 M17 7h3 M4 17h3 M11 17h9 M15 5v4 M9 15v4"_s},
        {u"good"_s, u"M12 3a9 9 0 1 0 .01 0z M8 12l3 3 5-6"_s},
        {u"info"_s, u"M12 3a9 9 0 1 0 .01 0z M12 11v6 M12 7.5v.01"_s},
        {u"warning"_s, u"M12 3.5L22 20.5H2z M12 10v5 M12 17.8v.01"_s},
        {u"problem"_s, u"M8 3h8l5 5v8l-5 5H8l-5-5V8z M9 9l6 6 M15 9l-6 6"_s},
        {u"close"_s, u"M6 6l12 12 M18 6L6 18"_s},
        {u"search"_s, u"M10.5 4a6.5 6.5 0 1 0 .01 0z M15.5 15.5L21 21"_s},
        {u"open"_s, u"M3 19V5h6l2 3h10v11z"_s},
        {u"save"_s, u"M5 3h11l4 4v14H4V3z M8 3v5h7V3 M8 21v-7h8v7"_s},
        {u"play"_s, u"M7 4l13 8-13 8z"_s},
        {u"stop"_s, u"M6 6h12v12H6z"_s},
        {u"reset"_s, u"M4 4v6h6 M4.6 10a8 8 0 1 1-.4 5"_s},
        {u"clear"_s, u"M4 7h16 M9 7V4h6v3 M6 7l1 13h10l1-13"_s},
        {u"event"_s, u"M5 12h13 M13 7l5 5-5 5"_s},
        {u"signal"_s, u"M12 12v.01 M8.5 8.5a5 5 0 0 0 0 7 M15.5 8.5a5 5 0 0 1 0 7 M5.5 5.5a9 9 0 0 0 0 13"
                      " M18.5 5.5a9 9 0 0 1 0 13"_s},
        {u"answer"_s, u"M5 10h14 M5 15h14"_s},
        {u"met"_s, u"M5 12l5 5 9-10"_s},
        {u"note"_s, u"M8 12h8"_s},
    };
    return table;
}

} // namespace

Glyph::Glyph(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void Glyph::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    Q_EMIT nameChanged();
    update();
}

void Glyph::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    Q_EMIT colorChanged();
    update();
}

void Glyph::paint(QPainter *painter)
{
    const QString outline = outlines().value(m_name);
    if (outline.isEmpty())
        return;
    const QString svg = u"<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='%1' fill='none'"
                        " stroke='%2' stroke-width='2' stroke-linecap='round' stroke-linejoin='round'/></svg>"_s;
    QSvgRenderer renderer(svg.arg(outline, m_color.name()).toUtf8());
    painter->setOpacity(m_color.alphaF());
    renderer.render(painter, boundingRect());
}

QStringList Glyph::names()
{
    return outlines().keys();
}

} // namespace panel
