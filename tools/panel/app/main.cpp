// SPDX-License-Identifier: LGPL-2.1-or-later
// The panel: the supplies of a printer in a window.

#include "app/commandline.h"
#include "app/controller.h"
#include "app/measure.h"
#include "app/scenes.h"

#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtQml/QQmlApplicationEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuick/QQuickWindow>

Q_IMPORT_QML_PLUGIN(ZrSupply_PanelPlugin)

using namespace Qt::Literals::StringLiterals;

namespace {

/// The first of these that is installed; else whatever the system takes.
void chooseFont()
{
    const QStringList installed = QFontDatabase::families();
    for (const QString &family : {u"Inter"_s, u"Noto Sans"_s, u"Liberation Sans"_s}) {
        if (installed.contains(family)) {
            QGuiApplication::setFont(QFont(family));
            return;
        }
    }
}

int run(const Start &start)
{
    if (!start.screenshots.isEmpty())
        return panel::takePictures(start.catalogue, start.screenshots) ? 0 : 1;

    panel::Controller controller;
    controller.setAppearance(start.appearance);
    controller.setSpeed(start.speed);
    controller.openCatalogue(start.catalogue);
    QQmlApplicationEngine engine;
    QQuickWindow *window = panel::showPanel(engine, controller);
    if (window == nullptr)
        return 1;
    window->setProperty("page", start.page);
    if (start.size.isValid())
        window->resize(start.size);
    if (!start.session.isEmpty())
        controller.playSession(start.session);
    if (start.measure || start.smoke) {
        QObject::connect(
            window, &QQuickWindow::frameSwapped, window,
            [controller = &controller, window, measure = start.measure] {
                const double startMs = panel::processAgeMs();
                QTimer::singleShot(0, window, [controller, window, measure, startMs] {
                    if (measure)
                        panel::measureFrames(*controller, *window, startMs);
                    QCoreApplication::quit();
                });
            },
            Qt::SingleShotConnection);
    }
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"zrsupply-panel"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ZR_VERSION));
    QGuiApplication::setDesktopFileName(u"zrsupply-panel"_s);
    QGuiApplication::setWindowIcon(QIcon::fromTheme(u"zrsupply-panel"_s));
    Start start;
    if (const auto stop = readCommandLine(QCoreApplication::arguments(), start)) {
        QTextStream(stop->status == 0 ? stdout : stderr) << stop->text;
        return stop->status;
    }
    chooseFont();
    // A language is added by a file: zrsupply-panel_de.qm, made with Qt's lupdate and lrelease.
    QTranslator translator;
    const QDir programFolder(QCoreApplication::applicationDirPath());
    if (translator.load(QLocale(), u"zrsupply-panel"_s, u"_"_s,
                        programFolder.filePath(u"../share/zrsupplydatabase/translations"_s)))
        QCoreApplication::installTranslator(&translator);
    return run(start);
}
