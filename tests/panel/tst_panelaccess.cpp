// SPDX-License-Identifier: LGPL-2.1-or-later
// For whom does not use a mouse, does not see the screen, or does not read English.

#include "panelwindow.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTranslator>
#include <QtGui/QAccessible>
#include <QtQml/QQmlComponent>

#include <cmath>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pages = 7;

/// Whatever is asked for, between marks.
class MarkingTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return u'⟦' + QString::fromUtf8(text) + u'⟧';
    }
};

QString describe(const QQuickItem *item)
{
    return u"%1 “%2” %3"_s.arg(QString::fromLatin1(item->metaObject()->className()), item->objectName(),
                               item->property("text").toString());
}

bool isInside(const QQuickItem *item, const QStringList &names)
{
    for (; item != nullptr; item = item->parentItem()) {
        if (names.contains(item->objectName()))
            return true;
    }
    return false;
}

} // namespace

class PanelAccessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasAName_data();
    void everyControlHasAName();
    void tabReachesEveryControl_data();
    void tabReachesEveryControl();
    void everyTextCanBeTranslated();
    void colorsHaveContrast();
};

void PanelAccessTest::everyControlHasAName_data()
{
    QTest::addColumn<int>("page");
    for (int page = 1; page <= pages; ++page)
        QTest::newRow(qPrintable(u"page %1"_s.arg(page))) << page;
}

void PanelAccessTest::everyControlHasAName()
{
    QFETCH(int, page);
    PanelWindow window({1280, 800});
    window->loadRoll(u"00144463"_s);
    window.page(page);
    QVERIFY(window.controls().size() > 5);
    QAccessible::setActive(true);
    for (QQuickItem *control : window.controls()) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(control);
        QVERIFY2(interface != nullptr, qPrintable(describe(control)));
        QVERIFY2(!interface->text(QAccessible::Name).isEmpty(), qPrintable(describe(control)));
    }
}

void PanelAccessTest::tabReachesEveryControl_data()
{
    everyControlHasAName_data();
}

void PanelAccessTest::tabReachesEveryControl()
{
    QFETCH(int, page);
    for (const QSize size : {QSize(1280, 800), QSize(480, 320)}) {
        PanelWindow window(size);
        window->loadRoll(u"00144463"_s);
        window->loadRibbon(1, u"RW530901"_s);
        window.page(page);
        window.resize(size);
        const QList<QQuickItem *> controls = window.controls();
        QSet<QQuickItem *> reached;
        for (qsizetype step = 0; step < 3 * controls.size() + 3; ++step) {
            window.key(Qt::Key_Tab);
            for (QQuickItem *item = window.window().activeFocusItem(); item != nullptr; item = item->parentItem())
                reached.insert(item);
        }
        for (QQuickItem *control : controls)
            QVERIFY2(reached.contains(control), qPrintable(describe(control)));
    }
}

void PanelAccessTest::everyTextCanBeTranslated()
{
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    PanelWindow window({1280, 800}, false);
    static const QRegularExpression letter(u"\\p{L}"_s);
    // The library's reasons and the names of a tag's fields come in English, as the command has them.
    const QStringList data = {u"banners"_s, u"tagFields"_s, u"bit0"_s};
    int seen = 0;
    for (int page = 1; page <= pages; ++page) {
        window.page(page);
        for (const QQuickItem *item : window.visibleItems()) {
            const QString text = item->property("text").toString();
            if (!text.contains(letter) || text == u"English"_s || isInside(item, data))
                continue;
            ++seen;
            QVERIFY2(text.contains(u'⟦'), qPrintable(describe(item)));
        }
    }
    QVERIFY(seen > 60);
    QCoreApplication::removeTranslator(&translator);
}

void PanelAccessTest::colorsHaveContrast()
{
    PanelWindow window;
    QQmlComponent component(qmlEngine(window.item(u"rollTitle"_s)));
    component.setData("import QtQuick; import ZrSupply.Panel; QtObject { property var theme: Theme }", {});
    const std::unique_ptr<QObject> holder(component.create());
    QVERIFY2(holder != nullptr, qPrintable(component.errorString()));
    QObject *theme = holder->property("theme").value<QObject *>();
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const QList<std::pair<QByteArray, QByteArray>> pairs = {
        {"ink", "window"},          {"ink", "surface"},       {"ink", "raised"},          {"muted", "surface"},
        {"muted", "window"},        {"muted", "warningWash"}, {"muted", "problemWash"},   {"muted", "accentWash"},
        {"accent", "surface"},      {"accentInk", "accent"},  {"accent", "accentWash"},   {"warning", "surface"},
        {"warning", "warningWash"}, {"problem", "surface"},   {"problem", "problemWash"}, {"ink", "problemWash"},
    };
    for (const int appearance : {panel::Controller::Light, panel::Controller::Dark}) {
        window->setAppearance(appearance);
        for (const auto &[front, back] : pairs) {
            const double one = luminance(theme->property(front).value<QColor>());
            const double other = luminance(theme->property(back).value<QColor>());
            const double contrast = (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
            QVERIFY2(contrast >= 4.5,
                     qPrintable(
                         u"%1 on %2: %3"_s.arg(QString::fromLatin1(front), QString::fromLatin1(back)).arg(contrast)));
        }
    }
}

QTEST_MAIN(PanelAccessTest)
#include "tst_panelaccess.moc"
