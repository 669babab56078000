// SPDX-License-Identifier: LGPL-2.1-or-later
// The window, driven by keys and clicks alone: what is shown afterwards.

#include "panelwindow.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What must not move, whatever the state.
QList<QRectF> frame(PanelWindow &window)
{
    QList<QRectF> places;
    for (const QString &name : {u"stripTitle"_s, u"rollPicture"_s, u"rollGauge"_s, u"ribbonGauge1"_s,
                                u"ribbonGauge2"_s, u"nav1"_s, u"nav6"_s, u"stripAll"_s, u"openCatalogue"_s}) {
        const QQuickItem *item = window.item(name);
        places.append(item == nullptr ? QRectF() : QRectF(item->mapToScene({}), QSizeF(1, item->height())));
    }
    return places;
}

void drop(QQuickWindow &window, const QString &path)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPoint place(200, 200);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &dropped);
}

} // namespace

class PanelWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithNothing();
    void loadsARollByTyping();
    void loadsRibbonsByClicking();
    void dragsTheMileage();
    void readsATag();
    void wrongTagIsNotLoaded();
    void choosesALanguage();
    void choosesAPrinter();
    void resets();
    void showsVerdicts();
    void droppedFileThatCannotBeUsed();
    void droppedSessionPlays();
    void asksForFiles();
    void switchesToDark();
    void nothingJumps();
    void oneAtATimeOnASmallScreen();
    void textsStayInside_data();
    void textsStayInside();
};

void PanelWindowTest::startsWithNothing()
{
    PanelWindow window;
    QCOMPARE(window.text(u"rollTitle"_s), u"No roll"_s);
    QCOMPARE(window.text(u"ribbonTitle1"_s), u"No ribbon"_s);
    QCOMPARE(window.text(u"stripTitle"_s), u"No roll is loaded"_s);
    QCOMPARE(window.text(u"catalogueName"_s), u"sample.sqlite"_s);
    QVERIFY(window.window().title().contains(u"sample.sqlite"_s));
}

void PanelWindowTest::loadsARollByTyping()
{
    PanelWindow window;
    window.key(Qt::Key_F, Qt::ControlModifier);
    window.type(u"00144463"_s);
    QTRY_COMPARE(window->rolls()->found(), 1);
    window.key(Qt::Key_Return);
    window.key(Qt::Key_Return);
    QCOMPARE(window.text(u"rollTitle"_s), u"White Vinyl"_s);
    QCOMPARE(window.text(u"rollDescription"_s), u"6 in wide, Orange stripe of 1 1/2 in"_s);
    QCOMPARE(window.text(u"rollLevel"_s), u"No reading"_s);
    QCOMPARE(window->roll()->sku(), u"00144463"_s);
}

void PanelWindowTest::loadsRibbonsByClicking()
{
    PanelWindow window;
    window->loadRoll(u"00144463"_s);
    window.page(2);
    window.focus(u"place0"_s);
    window.key(Qt::Key_Right);
    window.focus(u"search"_s);
    window.type(u"R530905"_s);
    QTRY_COMPARE(window->ribbons()->found(), 1);
    QQuickItem *offers = window.item(u"offers"_s);
    QVERIFY(offers != nullptr);
    QTest::mouseClick(&window.window(), Qt::LeftButton, {}, offers->mapToScene({60, 15}).toPoint());
    QCOMPARE(window.text(u"ribbonTitle1"_s), u"Green Resin"_s);
    QCOMPARE(window.text(u"stripTitle"_s), u"Neither ribbon suits the roll"_s);
    window.click(u"takeOut"_s);
    QCOMPARE(window.text(u"ribbonTitle1"_s), u"No ribbon"_s);
}

void PanelWindowTest::dragsTheMileage()
{
    PanelWindow window;
    window->loadRoll(u"00143465"_s);
    window.page(3);
    window.focus(u"rollMileage"_s);
    window.key(Qt::Key_End);
    QCOMPARE(window.text(u"rollLevel"_s), u"Full"_s);
    QQuickItem *slider = window.item(u"rollMileage"_s);
    const auto at = [slider](double share) {
        return slider->mapToScene({slider->width() * share, slider->height() / 2}).toPoint();
    };
    QTest::mousePress(&window.window(), Qt::LeftButton, {}, at(0.98));
    for (const double share : {0.8, 0.6, 0.4, 0.2, 0.07})
        QTest::mouseMove(&window.window(), at(share));
    QTest::mouseRelease(&window.window(), Qt::LeftButton, {}, at(0.07));
    QCOMPARE(window.text(u"rollLevel"_s), u"Low"_s);
    QCOMPARE(window.text(u"stripTitle"_s), u"The roll is low"_s);
    QVERIFY(window->log()->events() > 5);
    window.key(Qt::Key_Home);
    QCOMPARE(window.text(u"rollLevel"_s), u"Empty"_s);
    window.click(u"rollMileageNone"_s);
    QCOMPARE(window.text(u"rollLevel"_s), u"No reading"_s);
}

void PanelWindowTest::readsATag()
{
    PanelWindow window;
    window->loadRibbon(1, u"RW530901"_s);
    window->loadRibbon(2, u"RW530903"_s);
    window.page(4);
    window.focus(u"tagField"_s);
    window.type(u"3200000c8020824060000000"_s);
    QCOMPARE(window->tag()->text(), u"3200000C8020824060000000"_s);
    QTRY_VERIFY(window->tag()->lit() > 2);
    QQuickItem *bit = window.item(u"bit2"_s);
    QVERIFY(bit != nullptr);
    QVERIFY(bit->property("isLit").toBool());
    window.click(u"bit2"_s);
    QCOMPARE(window->tag()->chosen(), 0);
    window.focus(u"tagField"_s);
    window.key(Qt::Key_Return);
    QCOMPARE(window.text(u"rollTitle"_s), u"Brown Vinyl"_s);
    QCOMPARE(window.text(u"stripTitle"_s), u"This roll is in no catalogue"_s);
}

void PanelWindowTest::wrongTagIsNotLoaded()
{
    PanelWindow window;
    window.page(4);
    window.focus(u"tagField"_s);
    window.type(u"32q"_s);
    QVERIFY(window.text(u"tagRemark"_s).contains(u"no hexadecimal digit"_s));
    QVERIFY(!window.item(u"loadTag"_s)->isEnabled());
    window.key(Qt::Key_Return);
    QCOMPARE(window.text(u"rollTitle"_s), u"No roll"_s);
}

void PanelWindowTest::choosesALanguage()
{
    PanelWindow window;
    window->loadRoll(u"00144463"_s);
    window.page(7);
    window.focus(u"language"_s);
    window.key(Qt::Key_Down);
    QCOMPARE(window.text(u"rollTitle"_s), u"Weiß Vinyl"_s);
    const double left = window.item(u"rollPicture"_s)->mapToScene({}).x();
    for (int step = 0; step < 4; ++step)
        window.key(Qt::Key_Down);
    QCOMPARE(window->languageRow(), 5);
    // The whole window is mirrored.
    QTRY_VERIFY(window.item(u"rollPicture"_s)->mapToScene({}).x() > left + 300);
    QVERIFY(window.item(u"nav1"_s)->mapToScene({}).x() > window.item(u"nav6"_s)->mapToScene({}).x());
}

void PanelWindowTest::choosesAPrinter()
{
    PanelWindow window;
    window.page(7);
    window.focus(u"printer"_s);
    window.key(Qt::Key_Down);
    QCOMPARE(window->log()->rows().constLast().text, u"printerChangedSignal \"Quokka 200\""_s);
    // From the list that drops down.
    window.key(Qt::Key_Space);
    QTRY_VERIFY(window.visibleText(u"Ibex 5"_s));
    window.key(Qt::Key_Down);
    window.key(Qt::Key_Return);
    QCOMPARE(window->printerRow(), 2);
}

void PanelWindowTest::resets()
{
    PanelWindow window;
    window->loadRoll(u"00144463"_s);
    window->loadRibbon(1, u"RW530901"_s);
    QCOMPARE(window.text(u"ribbonTitle1"_s), u"Black Resin"_s);
    window.key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(window.text(u"rollTitle"_s), u"No roll"_s);
    QCOMPARE(window.text(u"ribbonTitle1"_s), u"No ribbon"_s);
    window->loadRoll(u"00144463"_s);
    window.click(u"reset"_s);
    QCOMPARE(window.text(u"rollTitle"_s), u"No roll"_s);
}

void PanelWindowTest::showsVerdicts()
{
    PanelWindow window;
    window->loadRoll(u"00144463"_s);
    window->loadRibbon(1, u"RW530901"_s);
    window->loadRibbon(2, u"R530905"_s);
    QCOMPARE(window.text(u"stripTitle"_s), u"Ribbon 2 does not suit the roll"_s);
    QVERIFY(window.text(u"stripReason"_s).contains(u"under 4 1/2 in"_s));
    window.click(u"stripAll"_s);
    QVERIFY(window.item(u"banners"_s) != nullptr);
    const int events = window->log()->events();
    window.key(Qt::Key_F5);
    QCOMPARE(window->log()->events(), events + 1);
    window.click(u"runChecks"_s);
    QCOMPARE(window->log()->events(), events + 2);
}

void PanelWindowTest::droppedFileThatCannotBeUsed()
{
    PanelWindow window;
    window->loadRoll(u"00144463"_s);
    drop(window.window(), sourcePath(u"README.md"_s));
    QCOMPARE(window.text(u"stripTitle"_s), u"This file cannot be used"_s);
    QVERIFY(window.text(u"stripReason"_s).contains(u"README.md"_s));
    QCOMPARE(window.text(u"rollTitle"_s), u"White Vinyl"_s);
    window.click(u"stripDismiss"_s);
    QVERIFY(window.text(u"stripTitle"_s) != u"This file cannot be used"_s);
    QCOMPARE(window.item(u"stripDismiss"_s), nullptr);
    drop(window.window(), sourcePath(u"README.md"_s));
    window.key(Qt::Key_Escape);
    QVERIFY(window.text(u"stripTitle"_s) != u"This file cannot be used"_s);
    drop(window.window(), sampleCatalogue());
    QCOMPARE(window.text(u"catalogueName"_s), u"sample.sqlite"_s);
}

void PanelWindowTest::droppedSessionPlays()
{
    PanelWindow window;
    window.page(6);
    window.focus(u"speed0"_s);
    window.key(Qt::Key_Right);
    QCOMPARE(window->speed(), 4.0);
    window.click(u"speed2"_s);
    QCOMPARE(window->speed(), 0.0);
    drop(window.window(), sourcePath(u"tools/sessions/good-roll.session"_s));
    QVERIFY(window->isPlaying());
    QTRY_VERIFY(!window->isPlaying());
    QCOMPARE(window.text(u"rollTitle"_s), u"White Vinyl"_s);
    QCOMPARE(window.item(u"log"_s)->property("count").toInt(), window->log()->rowCount());
}

void PanelWindowTest::asksForFiles()
{
    PanelWindow window;
    const struct
    {
        Qt::Key key;
        const char *dialog;
    } rows[] = {{Qt::Key_O, "catalogueDialog"}, {Qt::Key_S, "saveDialog"}, {Qt::Key_P, "playDialog"}};
    for (const auto &row : rows) {
        window.key(row.key, Qt::ControlModifier);
        QObject *dialog = window.window().findChild<QObject *>(QString::fromLatin1(row.dialog));
        QVERIFY2(dialog != nullptr, row.dialog);
        QTRY_VERIFY2(dialog->property("visible").toBool(), row.dialog);
        QMetaObject::invokeMethod(dialog, "close");
        QTRY_VERIFY2(!dialog->property("visible").toBool(), row.dialog);
    }
}

void PanelWindowTest::switchesToDark()
{
    PanelWindow window;
    window->setAppearance(panel::Controller::Light);
    const QRgb light = window.window().grabWindow().pixel(3, 400);
    window.key(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(window->isDark());
    const QRgb dark = window.window().grabWindow().pixel(3, 400);
    QVERIFY(qGray(light) > 200);
    QVERIFY(qGray(dark) < 60);
}

void PanelWindowTest::nothingJumps()
{
    for (const QSize size : {QSize(1280, 800), QSize(800, 480)}) {
        PanelWindow window(size);
        const QList<QRectF> before = frame(window);
        QVERIFY(!before.contains(QRectF()));
        window->loadRoll(u"00144463"_s);
        window.resize(size);
        QCOMPARE(frame(window), before);
        window->loadRibbon(1, u"RW530901"_s);
        window->loadRibbon(2, u"R530963"_s);
        window->setRollMileage(100);
        window.resize(size);
        QCOMPARE(frame(window), before);
        window->openCatalogue(u"/no/such/file"_s);
        window.resize(size);
        QCOMPARE(frame(window), before);
        window->loadRoll(u"00144724"_s);
        window.resize(size);
        QCOMPARE(frame(window), before);
    }
}

void PanelWindowTest::oneAtATimeOnASmallScreen()
{
    PanelWindow window({480, 320});
    QVERIFY(window.item(u"rollPicture"_s) != nullptr);
    QCOMPARE(window.item(u"search"_s), nullptr);
    const QStringList marks = {u"search"_s, u"rollMileage"_s, u"tagField"_s, u"banners"_s, u"log"_s, u"language"_s};
    for (int page = 0; page < marks.size(); ++page) {
        window.click(u"nav%1"_s.arg(page + 1));
        QVERIFY2(window.item(marks[page]) != nullptr, qPrintable(marks[page]));
        QCOMPARE(window.item(u"rollPicture"_s), nullptr);
    }
    window.click(u"nav0"_s);
    QVERIFY(window.item(u"rollPicture"_s) != nullptr);
}

void PanelWindowTest::textsStayInside_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("a printer's own screen") << QSize(480, 320);
    QTest::newRow("upright") << QSize(480, 800);
    QTest::newRow("the first with two halves") << QSize(760, 480);
    QTest::newRow("small desktop") << QSize(1024, 600);
    QTest::newRow("desktop") << QSize(1440, 900);
}

void PanelWindowTest::textsStayInside()
{
    QFETCH(QSize, size);
    PanelWindow window(size);
    window->loadRoll(u"00144724"_s);
    window->setRollMileage(1000);
    window->loadRibbon(1, u"R530963"_s);
    window->loadRibbon(2, u"R530905"_s);
    window->tag()->setText(u"3233C08C8022804042451300"_s);
    for (int page = 1; page <= 7; ++page) {
        window.page(page);
        window.resize(size);
        for (const QQuickItem *item : window.visibleItems()) {
            if (item->property("text").toString().isEmpty())
                continue;
            const double left = item->mapToScene({}).x();
            QVERIFY2(left >= -0.5 && left + item->width() <= size.width() + 0.5,
                     qPrintable(u"page %1: “%2” from %3 to %4"_s.arg(page)
                                    .arg(item->property("text").toString())
                                    .arg(left)
                                    .arg(left + item->width())));
        }
    }
}

QTEST_MAIN(PanelWindowTest)
#include "tst_panelwindow.moc"
