// SPDX-License-Identifier: LGPL-2.1-or-later
#include "panelwindow.h"

#include <QtQml/qqmlextensionplugin.h>

#include <algorithm>

Q_IMPORT_QML_PLUGIN(ZrSupply_PanelPlugin)

using namespace Qt::Literals::StringLiterals;

namespace {

void gather(QQuickItem *item, QList<QQuickItem *> &found)
{
    if (!item->isVisible() || item->opacity() == 0.0)
        return;
    found.append(item);
    for (QQuickItem *child : item->childItems())
        gather(child, found);
}

} // namespace

PanelWindow::PanelWindow(QSize size, bool withCatalogue)
{
    if (withCatalogue)
        m_panel.openCatalogue(sampleCatalogue());
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.setInitialProperties({{u"panel"_s, QVariant::fromValue(&m_panel)}});
    m_engine.load(QUrl(u"qrc:/qt/qml/ZrSupply/Panel/qml/Main.qml"_s));
    if (m_engine.rootObjects().isEmpty())
        qFatal("the window does not load");
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
    m_window->requestActivate();
    if (!QTest::qWaitForWindowActive(m_window))
        qFatal("the window does not become active");
    resize(size);
}

QList<QQuickItem *> PanelWindow::visibleItems()
{
    QList<QQuickItem *> found;
    gather(m_window->contentItem(), found);
    return found;
}

QList<QQuickItem *> PanelWindow::controls()
{
    QList<QQuickItem *> found;
    for (QQuickItem *item : visibleItems()) {
        if (item->activeFocusOnTab() && item->isEnabled())
            found.append(item);
    }
    return found;
}

QQuickItem *PanelWindow::item(const QString &name)
{
    for (QQuickItem *item : visibleItems()) {
        if (item->objectName() == name)
            return item;
    }
    return nullptr;
}

QString PanelWindow::text(const QString &name)
{
    const QQuickItem *found = item(name);
    return found == nullptr ? u"(no item %1)"_s.arg(name) : found->property("text").toString();
}

bool PanelWindow::visibleText(const QString &text)
{
    const QList<QQuickItem *> items = visibleItems();
    return std::any_of(items.begin(), items.end(),
                       [&text](const QQuickItem *item) { return item->property("text").toString() == text; });
}

void PanelWindow::click(const QString &name)
{
    QQuickItem *found = item(name);
    if (found == nullptr)
        qFatal("there is no item %s to click at", qPrintable(name));
    const QPointF middle = found->mapToScene(QPointF(found->width() / 2, found->height() / 2));
    QTest::mouseClick(m_window, Qt::LeftButton, {}, middle.toPoint());
}

void PanelWindow::focus(const QString &name)
{
    QQuickItem *found = item(name);
    if (found == nullptr)
        qFatal("there is no item %s to type at", qPrintable(name));
    found->forceActiveFocus(Qt::TabFocusReason);
}

void PanelWindow::key(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, Qt::Key(key), modifiers);
}

void PanelWindow::type(const QString &text)
{
    for (const QChar letter : text)
        QTest::keyClick(m_window, letter.toLatin1());
}

void PanelWindow::page(int number)
{
    key(Qt::Key_0 + number, Qt::ControlModifier);
}

void PanelWindow::resize(QSize size)
{
    m_window->resize(size);
    if (!QTest::qWaitFor([this, size] { return m_window->contentItem()->size() == QSizeF(size); }))
        qFatal("the window does not take its size");
    // Layouts polish before the next frame.
    m_window->grabWindow();
}
