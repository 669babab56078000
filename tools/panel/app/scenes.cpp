// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/scenes.h"

#include "app/controller.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryFile>
#include <QtCore/QTextStream>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A state of the panel, by what a person would do to get there.
struct Scene
{
    QString name;
    int page;      ///< In a wide window.
    int smallPage; ///< Where one page is shown at a time.
    void (*act)(Controller &panel);
};

constexpr int fullRibbonMm = 120015;

void loadWideRoll(Controller &panel)
{
    panel.loadRoll(u"00144463"_s);
    panel.setRollMileage(21000);
}

void loadGoodPair(Controller &panel)
{
    loadWideRoll(panel);
    panel.loadRibbon(1, u"RW530901"_s);
    panel.loadRibbon(2, u"RW530903"_s);
    panel.setRibbonMileage(1, fullRibbonMm);
    panel.setRibbonMileage(2, 52000);
}

void loadWrongRibbon(Controller &panel)
{
    loadGoodPair(panel);
    panel.loadRibbon(2, u"R530905"_s);
}

void useUp(Controller &panel)
{
    panel.loadRoll(u"00144884"_s);
    panel.loadRibbon(1, u"R530901"_s);
    panel.loadRibbon(2, u"R530902"_s);
    panel.setRibbonMileage(1, 96000);
    panel.setRibbonMileage(2, 61000);
    panel.setRollMileage(panel.roll()->fullMileage() / 14);
}

void emptyRibbon(Controller &panel)
{
    loadGoodPair(panel);
    panel.setRibbonMileage(1, 1900); // beyond where a ribbon of 4650 inches ends
    panel.setRibbonMileage(2, 9000);
    panel.runChecks();
}

void readUnknownTag(Controller &panel)
{
    loadGoodPair(panel);
    panel.tag()->setText(u"3200000C8020824060000000"_s);
    panel.tag()->lightAll();
    panel.loadTag();
}

void takeOut(Controller &)
{
    // As it is started.
}

void openWrongFile(Controller &panel)
{
    loadGoodPair(panel);
    QTemporaryFile file(QDir::temp().filePath(u"price-list-XXXXXX.txt"_s));
    if (file.open())
        file.write("Rolls and ribbons, 2024\n");
    file.close();
    panel.openCatalogue(file.fileName());
}

void readRightToLeft(Controller &panel)
{
    panel.chooseLanguage(int(panel.languages()->rows().size()) - 1);
    panel.loadRoll(u"00144724"_s);
    panel.setRollMileage(panel.roll()->fullMileage());
    panel.loadRibbon(1, u"R530951"_s);
    panel.loadRibbon(2, u"R530961"_s);
    panel.setRibbonMileage(1, 88000);
    panel.setRibbonMileage(2, 30000);
}

const QList<Scene> &scenes()
{
    static const QList<Scene> table = {
        {u"good-pair"_s, 1, 0, loadGoodPair},
        {u"wrong-ribbon"_s, 4, 4, loadWrongRibbon},
        {u"low"_s, 2, 0, useUp},
        {u"empty"_s, 5, 5, emptyRibbon},
        {u"unknown-roll"_s, 3, 3, readUnknownTag},
        {u"nothing-loaded"_s, 1, 1, takeOut},
        {u"unusable-file"_s, 6, 6, openWrongFile},
        {u"right-to-left"_s, 1, 0, readRightToLeft},
    };
    return table;
}

const QSize sizes[] = {{480, 320}, {1024, 600}, {1440, 900}};
constexpr int smallWidth = 760;

/// Until names have come, lists are laid out and nothing moves any more.
void settle()
{
    QElapsedTimer timer;
    timer.start();
    constexpr int settlingMs = 160;
    while (timer.elapsed() < settlingMs)
        QGuiApplication::processEvents(QEventLoop::AllEvents, 20);
}

bool save(QQuickWindow &window, const QString &path)
{
    if (window.grabWindow().save(path))
        return true;
    QTextStream(stderr) << "zrsupply-panel: " << path << " cannot be written; name a folder that you may write to\n";
    return false;
}

bool takePicturesOf(const Scene &scene, const QString &catalogue, const QDir &folder)
{
    Controller controller;
    controller.openCatalogue(catalogue);
    QQmlApplicationEngine engine;
    QQuickWindow *window = showPanel(engine, controller);
    if (window == nullptr)
        return false;
    settle();
    scene.act(controller);
    bool isDone = true;
    for (const QSize &size : sizes) {
        window->resize(size);
        window->setProperty("page", size.width() < smallWidth ? scene.smallPage : scene.page);
        for (const bool dark : {false, true}) {
            controller.setAppearance(dark ? Controller::Dark : Controller::Light);
            settle();
            const QString name = u"%1-%2x%3-%4.png"_s.arg(scene.name)
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(dark ? u"dark"_s : u"light"_s);
            isDone = save(*window, folder.filePath(name)) && isDone;
        }
    }
    return isDone;
}

} // namespace

QQuickWindow *showPanel(QQmlApplicationEngine &engine, Controller &controller)
{
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties({{u"panel"_s, QVariant::fromValue(&controller)}});
    engine.load(QUrl(u"qrc:/qt/qml/ZrSupply/Panel/qml/Main.qml"_s));
    return engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
}

QStringList sceneNames()
{
    QStringList names;
    for (const Scene &scene : scenes())
        names.append(scene.name);
    return names;
}

bool takePictures(const QString &catalogue, const QString &folder)
{
    const QDir place(folder);
    if (!place.mkpath(u"."_s)) {
        QTextStream(stderr) << "zrsupply-panel: the folder " << folder << " cannot be made; name another\n";
        return false;
    }
    bool isDone = true;
    for (const Scene &scene : scenes())
        isDone = takePicturesOf(scene, catalogue, place) && isDone;
    return isDone;
}

} // namespace panel
