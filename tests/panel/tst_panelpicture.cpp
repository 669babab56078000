// SPDX-License-Identifier: LGPL-2.1-or-later
// The roll's geometry, the gauges' levels, and that pictures show them.

#include "panelfixture.h"

#include "models/remaining.h"
#include "models/rollgeometry.h"
#include "scene/gauge.h"
#include "scene/glyph.h"
#include "scene/rollpicture.h"

#include <QtGui/QPainter>

#include <limits>

using namespace Qt::Literals::StringLiterals;
using panel::Remaining;
using panel::RollGeometry;
using panel::RollShape;

namespace {

constexpr QSizeF area(650.0, 600.0);

template <typename Item>
QImage imageOf(Item &item)
{
    QImage image(item.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    item.paint(&painter);
    return image;
}

QImage gaugeImage(double fraction, const QColor &ink)
{
    panel::Gauge gauge;
    gauge.setSize({80, 80});
    for (const char *name : {"ink", "accent", "warning", "problem"})
        gauge.setProperty(name, ink);
    gauge.setProperty("track", QColor(Qt::lightGray));
    gauge.setFraction(fraction);
    return imageOf(gauge);
}

} // namespace

class PanelPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levels_data();
    void levels();
    void widthsAreToScale();
    void labelsLieInRows();
    void labelsAcrossShareTheWidth();
    void stripeIsToScale();
    void headGrowsWithWhatIsLeft();
    void nothingToDraw_data();
    void nothingToDraw();
    void tinyLabelsEnd();
    void gaugesDifferWithoutColor();
    void glyphsAreAllDrawn();
    void pictureShowsColours();
};

void PanelPictureTest::levels_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<double>("share");
    QTest::newRow("unknown") << -1.0 << u"No reading"_s << u"–"_s << 0.0;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << u"No reading"_s << u"–"_s << 0.0;
    QTest::newRow("ran beyond its end") << -0.25 << u"Empty"_s << u"-25 %"_s << 0.0;
    QTest::newRow("almost exactly unknown") << -1.0001 << u"Empty"_s << u"-100 %"_s << 0.0;
    QTest::newRow("a trifle below nothing") << -0.0001 << u"Empty"_s << u"0 %"_s << 0.0;
    QTest::newRow("empty") << 0.0 << u"Empty"_s << u"0 %"_s << 0.0;
    QTest::newRow("a rest") << 0.002 << u"Low"_s << u"0.2 %"_s << 0.002;
    QTest::newRow("low at its limit") << 0.1 << u"Low"_s << u"10 %"_s << 0.1;
    QTest::newRow("just above low") << 0.1001 << u"In use"_s << u"10 %"_s << 0.1001;
    QTest::newRow("half") << 0.5 << u"In use"_s << u"50 %"_s << 0.5;
    QTest::newRow("full") << 1.0 << u"Full"_s << u"100 %"_s << 1.0;
    QTest::newRow("more than full") << 1.04 << u"Full"_s << u"104 %"_s << 1.0;
}

void PanelPictureTest::levels()
{
    QFETCH(double, fraction);
    const Remaining remaining(fraction);
    QTEST(remaining.word(), "word");
    QTEST(remaining.percent(), "percent");
    QTEST(remaining.share(), "share");
}

void PanelPictureTest::widthsAreToScale()
{
    const RollGeometry narrow = panel::rollGeometry({1.0}, area, 1.0);
    const RollGeometry wide = panel::rollGeometry({6.0}, area, 1.0);
    QCOMPARE(narrow.scale, wide.scale);
    QCOMPARE(wide.web.width(), 6.0 * narrow.web.width());
    QCOMPARE(narrow.web.width(), narrow.scale);
    QCOMPARE(narrow.web.center().x(), area.width() / 2);
    QCOMPARE(wide.rulerInches, 6);
    QVERIFY(wide.core.left() >= 0.0 && wide.core.right() <= area.width());

    // Wider than what is common: the scale gives way, the picture does not.
    const RollGeometry widest = panel::rollGeometry({12.0}, area, 1.0);
    QVERIFY(widest.scale < wide.scale);
    QVERIFY(widest.web.left() > 0.0 && widest.web.right() < area.width());
}

void PanelPictureTest::labelsLieInRows()
{
    const RollGeometry geometry = panel::rollGeometry({4.0, 1.0, 0.125}, area, 1.0);
    QVERIFY(geometry.labels.size() > 2);
    const double step = geometry.labels[1].top() - geometry.labels[0].top();
    QCOMPARE(step, 1.125 * geometry.scale);
    QCOMPARE(geometry.labels[0].height(), geometry.scale);
    QCOMPARE(geometry.labels[0].width(), geometry.web.width());
    QVERIFY(geometry.labels.last().bottom() <= geometry.web.bottom());
    QCOMPARE(geometry.pages, geometry.labels);
}

void PanelPictureTest::labelsAcrossShareTheWidth()
{
    RollShape shape{3.0, 0.5, 0.125, 4, 0.25};
    const RollGeometry geometry = panel::rollGeometry(shape, area, 1.0);
    QCOMPARE(geometry.labels[0].top(), geometry.labels[3].top());
    QCOMPARE(geometry.labels[3].right(), geometry.web.right());
    QCOMPARE(geometry.labels[0].width(), (3.0 - 3 * 0.25) / 4 * geometry.scale);
    QCOMPARE(geometry.labels[1].left() - geometry.labels[0].right(), 0.25 * geometry.scale);
    // Gaps that leave nothing for labels leave none.
    shape.gap = 2.0;
    QVERIFY(panel::rollGeometry(shape, area, 1.0).labels.isEmpty());
}

void PanelPictureTest::stripeIsToScale()
{
    RollShape shape;
    shape.width = 6.0;
    shape.stripe = 1.5;
    const RollGeometry geometry = panel::rollGeometry(shape, area, 1.0);
    QCOMPARE(geometry.stripe.width(), geometry.web.width() / 4);
    QCOMPARE(geometry.stripe.left(), geometry.web.left());
    QVERIFY(geometry.labels.isEmpty());
    // The picture of the media lies beside the stripe.
    QCOMPARE(geometry.pages[0].left(), geometry.stripe.right());
    shape.stripe = 60.0;
    QCOMPARE(panel::rollGeometry(shape, area, 1.0).stripe.width(), geometry.web.width());
}

void PanelPictureTest::headGrowsWithWhatIsLeft()
{
    double last = 0.0;
    for (const double share : {0.0, 0.1, 0.5, 1.0}) {
        const RollGeometry geometry = panel::rollGeometry({4.0}, area, share);
        QVERIFY(geometry.head.height() > last);
        last = geometry.head.height();
        // What has come off does not move while the roll gets thinner.
        QCOMPARE(geometry.web, panel::rollGeometry({4.0}, area, 1.0).web);
    }
    QCOMPARE(panel::rollGeometry({4.0}, area, 0.0).head.height(),
             panel::rollGeometry({4.0}, area, 0.0).core.height());
    QCOMPARE(panel::rollGeometry({4.0}, area, 7.0).head.height(), last);
}

void PanelPictureTest::nothingToDraw_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("no roll") << -1.0 << area;
    QTest::newRow("a tag without a width") << 0.0 << area;
    QTest::newRow("no room across") << 4.0 << QSizeF(0, 400);
    QTest::newRow("no room along") << 4.0 << QSizeF(400, 30);
}

void PanelPictureTest::nothingToDraw()
{
    QFETCH(double, width);
    QFETCH(QSizeF, size);
    const RollGeometry geometry = panel::rollGeometry({width}, size, 1.0);
    QVERIFY(geometry.web.isEmpty());
    QVERIFY(geometry.pages.isEmpty());
}

void PanelPictureTest::tinyLabelsEnd()
{
    const RollGeometry geometry = panel::rollGeometry({6.0, 0.0001, 0.0, 1000}, area, 1.0);
    QVERIFY(geometry.labels.size() >= 1000);
    QVERIFY(geometry.labels.size() <= 6000);
}

void PanelPictureTest::gaugesDifferWithoutColor()
{
    QList<QImage> images;
    for (const double fraction : {-1.0, 0.0, 0.05, 0.5, 1.0}) {
        const QImage image = gaugeImage(fraction, Qt::black).convertToFormat(QImage::Format_Grayscale8);
        for (const QImage &other : images) {
            int different = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    different += qAbs(qGray(image.pixel(x, y)) - qGray(other.pixel(x, y))) > 100 ? 1 : 0;
            }
            QVERIFY2(different > 150, qPrintable(u"%1: %2 pixels"_s.arg(fraction).arg(different)));
        }
        images.append(image);
    }
}

void PanelPictureTest::glyphsAreAllDrawn()
{
    QVERIFY(panel::Glyph::names().size() > 15);
    for (const QString &name : panel::Glyph::names()) {
        panel::Glyph glyph;
        glyph.setSize({24, 24});
        glyph.setName(name);
        glyph.setColor(Qt::red);
        const QImage image = imageOf(glyph);
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                drawn += qGreen(image.pixel(x, y)) < 100 ? 1 : 0;
        }
        QVERIFY2(drawn > 5, qPrintable(name));
    }
}

void PanelPictureTest::pictureShowsColours()
{
    PanelFixture panel;
    panel::RollPicture picture;
    picture.setSize({400, 400});
    picture.setRoll(panel->roll());
    const QImage empty = imageOf(picture);
    panel->loadRoll(u"00144523"_s); // black, 6 inches, a stripe of 9/16 inches, no picture
    const QImage striped = imageOf(picture);
    QVERIFY(striped != empty);
    const RollGeometry geometry = panel::rollGeometry(panel->roll()->shape(), picture.size(), 1.0);
    const QPoint inStripe = (geometry.stripe.bottomLeft() + QPointF(10, -30)).toPoint();
    const QPoint inMedia = (geometry.web.bottomRight() - QPointF(20, 30)).toPoint();
    QCOMPARE(striped.pixelColor(inStripe).rgb(), panel->roll()->stripeColor().rgb());
    QCOMPARE(striped.pixelColor(inMedia).rgb(), panel->roll()->color().rgb());

    panel->loadRoll(u"00144314"_s); // with a picture
    QVERIFY(!panel->roll()->background().isEmpty());
    const QImage withPicture = imageOf(picture);
    const QRectF page = panel::rollGeometry(panel->roll()->shape(), picture.size(), 1.0).pages.constFirst();
    QSet<QRgb> colours;
    for (int x = int(page.left()); x < int(page.right()); ++x)
        colours.insert(withPicture.pixel(x, int(page.top() + page.height() * 0.25)));
    QVERIFY2(colours.size() > 3, qPrintable(QString::number(colours.size())));
}

QTEST_MAIN(PanelPictureTest)
#include "tst_panelpicture.moc"
