// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/measure.h"

#include "app/controller.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTextStream>
#include <QtQuick/QQuickWindow>

#include <algorithm>
#include <ctime>
#include <unistd.h>

namespace panel {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int frames = 240;
constexpr double lateMs = 1000.0 / 60.0;

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double rounded(double ms)
{
    return double(qRound64(ms * 100.0)) / 100.0;
}

} // namespace

double processAgeMs()
{
    QFile stat(u"/proc/self/stat"_s);
    if (!stat.open(QIODevice::ReadOnly))
        return -1.0;
    // The program's name, in brackets, may hold blanks; the start is the twentieth number behind it.
    const QByteArray text = stat.readAll();
    const QList<QByteArray> numbers = text.mid(text.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype startTime = 19;
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double ticks = numbers.value(startTime).toDouble() / double(sysconf(_SC_CLK_TCK));
    return (double(now.tv_sec) + double(now.tv_nsec) / 1e9 - ticks) * 1000.0;
}

void measureFrames(Controller &controller, QQuickWindow &window, double startMs)
{
    controller.loadRoll(controller.library().supplySKUList().value(0));
    const int full = controller.roll()->fullMileage();
    QList<double> taken;
    QElapsedTimer whole;
    whole.start();
    for (int frame = 0; frame < frames; ++frame) {
        QElapsedTimer one;
        QEventLoop loop;
        QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
        one.start();
        controller.setRollMileage(full - full * frame / frames);
        window.update();
        loop.exec();
        taken.append(double(one.nsecsElapsed()) / 1e6);
    }
    const double seconds = double(whole.nsecsElapsed()) / 1e9;
    const auto late = std::count_if(taken.begin(), taken.end(), [](double ms) { return ms > lateMs; });
    const QJsonObject answer{{u"startMs"_s, rounded(startMs)},
                             {u"frames"_s, frames},
                             {u"framesPerSecond"_s, rounded(frames / seconds)},
                             {u"medianMs"_s, rounded(median(taken))},
                             {u"worstMs"_s, rounded(*std::max_element(taken.begin(), taken.end()))},
                             {u"later than 1/60 s"_s, qint64(late)}};
    QTextStream(stdout) << QJsonDocument(answer).toJson();
}

} // namespace panel
