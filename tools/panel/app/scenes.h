// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

class QQmlApplicationEngine;
class QQuickWindow;

namespace panel {

class Controller;

/// The window of a panel; nullptr when its QML does not load.
QQuickWindow *showPanel(QQmlApplicationEngine &engine, Controller &controller);

/// Names of the states that pictures are made of.
QStringList sceneNames();

/// Pictures of every state at three sizes, light and dark. False when one cannot be written; stderr says which.
bool takePictures(const QString &catalogue, const QString &folder);

} // namespace panel
