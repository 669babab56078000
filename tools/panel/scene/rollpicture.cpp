// SPDX-License-Identifier: LGPL-2.1-or-later
#include "scene/rollpicture.h"

#include "models/remaining.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cmath>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor linerColor(0xd9, 0xc8, 0xa6);
constexpr double labelRounding = 3.0;
constexpr int backgroundPixels = 480; // of its longer side; larger than it is ever shown on a label

/// The media as light falls on a cylinder.
QLinearGradient rounded(const QColor &color, const QRectF &head)
{
    QLinearGradient gradient(head.topLeft(), head.bottomLeft());
    gradient.setColorAt(0.0, color.darker(165));
    gradient.setColorAt(0.28, color.lighter(108));
    gradient.setColorAt(0.6, color);
    gradient.setColorAt(1.0, color.darker(190));
    return gradient;
}

/// An outline that is seen on the colour and on what is around it.
QColor edgeOf(const QColor &color)
{
    return color.lightnessF() > 0.35F ? color.darker(150) : QColor(0x77, 0x7b, 0x80);
}

double aspectOf(const QImage &picture)
{
    return picture.isNull() ? 2.0 : double(picture.width()) / picture.height();
}

} // namespace

RollPicture::RollPicture(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &RollPicture::colorsChanged, this, [this] { update(); });
}

void RollPicture::setRoll(InstalledRoll *roll)
{
    if (roll == m_roll)
        return;
    if (m_roll != nullptr)
        m_roll->disconnect(this);
    m_roll = roll;
    if (m_roll != nullptr) {
        connect(m_roll, &InstalledRoll::changed, this, [this] {
            renderBackground();
            update();
        });
        connect(m_roll, &InstalledRoll::fractionChanged, this, [this] { update(); });
        renderBackground();
    }
    Q_EMIT rollChanged();
    update();
}

void RollPicture::renderBackground()
{
    m_background = {};
    const QByteArray svg = m_roll->background();
    if (svg.isEmpty())
        return;
    QSvgRenderer renderer(svg);
    if (!renderer.isValid())
        return;
    const QSize size = renderer.defaultSize().scaled(backgroundPixels, backgroundPixels, Qt::KeepAspectRatio);
    if (size.isEmpty())
        return;
    m_background = QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_background.fill(Qt::transparent);
    QPainter painter(&m_background);
    renderer.render(&painter);
}

QColor RollPicture::mediaColor() const
{
    return m_roll->color().isValid() ? m_roll->color() : QColor(0xc4, 0xc8, 0xcc);
}

void RollPicture::paint(QPainter *painter)
{
    if (m_roll == nullptr)
        return;
    const Remaining remaining(m_roll->fraction());
    const bool isKnown = remaining.level() != Remaining::Level::Unknown;
    // Without a reading the roll is drawn full, and the gauge says that nobody knows.
    const RollGeometry geometry =
        rollGeometry(m_roll->shape(), size(), isKnown ? remaining.share() : 1.0, aspectOf(m_background));
    if (geometry.web.isEmpty()) {
        paintNothing(*painter);
        return;
    }
    paintWeb(*painter, geometry);
    paintPages(*painter, geometry);
    paintHead(*painter, geometry);
    paintRuler(*painter, geometry);
}

/// The place of a roll that is not there.
void RollPicture::paintNothing(QPainter &painter) const
{
    const RollGeometry place = rollGeometry({4.0}, size(), 1.0);
    painter.setPen(QPen(m_faint, 1.5, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place.core, 4, 4);
    painter.drawRoundedRect(place.head, 8, 8);
    painter.drawLine(QPointF(place.web.left(), place.head.bottom()), place.web.bottomLeft());
    painter.drawLine(QPointF(place.web.right(), place.head.bottom()), place.web.bottomRight());
}

void RollPicture::paintWeb(QPainter &painter, const RollGeometry &geometry) const
{
    const QColor media = mediaColor();
    const bool isDieCut = m_roll->shape().isDieCut();
    const QColor web = isDieCut ? linerColor : media;
    painter.setPen(QPen(edgeOf(web), 1));
    painter.setBrush(web);
    painter.drawRect(geometry.web);
    if (!geometry.stripe.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_roll->stripeColor().isValid() ? m_roll->stripeColor() : m_faint);
        painter.drawRect(geometry.stripe.adjusted(0.5, 0.5, 0, -0.5));
    }
    painter.setPen(QPen(edgeOf(media), 1));
    painter.setBrush(media);
    for (const QRectF &label : geometry.labels)
        painter.drawRoundedRect(label, labelRounding, labelRounding);
}

void RollPicture::paintPages(QPainter &painter, const RollGeometry &geometry) const
{
    painter.save();
    painter.setClipRect(geometry.web);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QColor media = mediaColor();
    const QColor sign = media.lightnessF() > 0.5F ? QColor(0, 0, 0, 110) : QColor(255, 255, 255, 150);
    QImage picture;
    for (const QRectF &page : geometry.pages) {
        painter.save();
        painter.translate(page.center());
        QSizeF room = page.size();
        if (m_roll->isLandscape()) {
            painter.rotate(-90);
            room.transpose();
        }
        const double margin = std::min(room.width(), room.height()) * 0.07;
        room -= QSizeF(2 * margin, 2 * margin);
        if (!m_background.isNull()) {
            QSizeF size = m_background.size();
            size.scale(room, Qt::KeepAspectRatio);
            // Made small once and well: painted down, thin lines would come and go from label to label.
            if (picture.size() != size.toSize())
                picture = m_background.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            painter.drawImage(QRectF(QPointF(-size.width() / 2, -size.height() / 2), size), picture);
        } else if (m_roll->shape().isDieCut() && std::min(room.width(), room.height()) > 7.0) {
            // A letter shows which way a label is printed.
            QFont font = painter.font();
            font.setPixelSize(int(std::clamp(std::min(room.width(), room.height()) * 0.5, 6.0, 26.0)));
            font.setBold(true);
            painter.setFont(font);
            painter.setPen(sign);
            painter.drawText(QRectF(QPointF(-room.width() / 2, -room.height() / 2), room), Qt::AlignCenter, u"A"_s);
        }
        painter.restore();
    }
    painter.restore();
}

void RollPicture::paintHead(QPainter &painter, const RollGeometry &geometry) const
{
    const QColor core(0xa8, 0x8f, 0x6a);
    painter.setPen(QPen(core.darker(150), 1));
    painter.setBrush(rounded(core, geometry.core));
    painter.drawRoundedRect(geometry.core, 4, 4);

    const QColor media = m_roll->shape().isDieCut() ? linerColor : mediaColor();
    painter.setPen(QPen(edgeOf(media), 1));
    painter.setBrush(rounded(media, geometry.head));
    painter.drawRoundedRect(geometry.head, 5, 5);
    if (!geometry.stripe.isEmpty() && m_roll->stripeColor().isValid()) {
        const QRectF stripe(geometry.stripe.left(), geometry.head.top(), geometry.stripe.width(),
                            geometry.head.height());
        painter.setPen(Qt::NoPen);
        painter.setBrush(rounded(m_roll->stripeColor(), geometry.head));
        painter.drawRoundedRect(stripe.adjusted(0.5, 0.5, 0, -0.5), 4, 4);
    }
}

void RollPicture::paintRuler(QPainter &painter, const RollGeometry &geometry) const
{
    const QRectF ruler = geometry.ruler.adjusted(0, 5, 0, 0);
    painter.setPen(QPen(m_ink, 1));
    painter.drawLine(ruler.topLeft(), ruler.topRight());
    for (int inch = 0; inch <= geometry.rulerInches; ++inch) {
        const double x = ruler.left() + inch * geometry.scale;
        painter.drawLine(QPointF(x, ruler.top()), QPointF(x, ruler.top() + 4));
    }
    painter.drawLine(ruler.topRight(), ruler.topRight() + QPointF(0, 4));
    QFont font = painter.font();
    font.setPixelSize(10);
    painter.setFont(font);
    const QString text = tr("%1 in").arg(QString::number(m_roll->shape().width, 'g', 6));
    const QRectF place = QRectF(0, ruler.top() + 4, width(), ruler.height() - 3);
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignTop, text);
}

} // namespace panel
