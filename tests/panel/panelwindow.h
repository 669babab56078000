// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "panelfixture.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

/// A panel in its window, driven by keys and clicks.
class PanelWindow
{
public:
    /// Ends the test program when the window does not come.
    explicit PanelWindow(QSize size = {1280, 800}, bool withCatalogue = true);

    panel::Controller *operator->() { return &m_panel; }
    QQuickWindow &window() { return *m_window; }

    /// The visible item of this name, nullptr without one.
    QQuickItem *item(const QString &name);
    QString text(const QString &name);
    /// Whether some item shows this text.
    bool visibleText(const QString &text);
    /// Every item that can be seen, in no particular order.
    QList<QQuickItem *> visibleItems();
    /// Those of them that the keyboard is to reach.
    QList<QQuickItem *> controls();

    void click(const QString &name);
    void focus(const QString &name);
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    void page(int number); ///< By its shortcut; 1 is the overview.
    void resize(QSize size);

private:
    panel::Controller m_panel;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
};
