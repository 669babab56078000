// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/commandline.h"

#include "app/controller.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

Stop badWord(const QString &text)
{
    return {2, u"zrsupply-panel: "_s + text + u"\nzrsupply-panel --help tells how it is called\n"_s};
}

/// The catalogue that the command `zrsupply` would take, so that both show the same.
QString usualCatalogue()
{
    QString fromEnvironment = qEnvironmentVariable("ZRSUPPLY_CATALOGUE");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QDir programFolder(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(programFolder.filePath(u"../share/zrsupplydatabase/sample.sqlite"_s));
}

std::optional<Stop> readSize(const QString &text, QSize &size)
{
    static const QRegularExpression pattern(u"^(\\d{3,5})x(\\d{3,5})$"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return badWord(u"--size %1 is no size; write for example --size 480x320"_s.arg(text));
    size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    return {};
}

} // namespace

std::optional<Stop> readCommandLine(const QStringList &words, Start &start)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Shows the supplies of a label printer in a window: what is loaded, what is left,"
        " and whether it suits each other."_s);
    parser.addPositionalArgument(u"CATALOGUE"_s,
                                 u"Catalogue file; without one ZRSUPPLY_CATALOGUE, else the sample catalogue."_s,
                                 u"[CATALOGUE]"_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Show this help."_s);
    const QCommandLineOption version(u"version"_s, u"Show the version."_s);
    const QCommandLineOption session(u"session"_s, u"Play this session at once."_s, u"FILE"_s);
    const QCommandLineOption speed(u"speed"_s, u"Pace of sessions: 2 is twice as fast, 0 does not wait."_s, u"N"_s,
                                   u"1"_s);
    const QCommandLineOption theme(u"theme"_s, u"system, light or dark."_s, u"NAME"_s, u"system"_s);
    const QCommandLineOption size(u"size"_s, u"Size of the window, for example 480x320."_s, u"WxH"_s);
    const QCommandLineOption page(u"page"_s, u"Page to begin with, 1 to 7 from the left."_s, u"N"_s, u"1"_s);
    const QCommandLineOption screenshots(
        u"screenshots"_s, u"Write pictures of eight states at three sizes, light and dark, into FOLDER, and end."_s,
        u"FOLDER"_s);
    const QCommandLineOption measure(
        u"measure"_s, u"Show one frame, move the mileage, print how long both took as JSON, and end."_s);
    const QCommandLineOption smoke(u"smoke"_s, u"Show one frame, and end."_s);
    parser.addOptions({session, speed, theme, size, page, screenshots, measure, smoke, help, version});

    if (!parser.parse(words))
        return badWord(parser.errorText());
    if (parser.isSet(help))
        return Stop{0, parser.helpText()};
    if (parser.isSet(version))
        return Stop{0, u"zrsupply-panel %1\n"_s.arg(QCoreApplication::applicationVersion())};
    if (parser.positionalArguments().size() > 1)
        return badWord(
            u"one catalogue at a time; \"%1\" is one word too many"_s.arg(parser.positionalArguments().at(1)));

    const QStringList themes = {u"system"_s, u"light"_s, u"dark"_s};
    start.appearance = int(themes.indexOf(parser.value(theme)));
    if (start.appearance < 0)
        return badWord(u"there is no theme \"%1\"; it is system, light or dark"_s.arg(parser.value(theme)));
    bool isNumber = false;
    start.speed = parser.value(speed).toDouble(&isNumber);
    if (!isNumber || start.speed < 0.0)
        return badWord(u"--speed %1 is no pace; 1 is as recorded, 0 does not wait"_s.arg(parser.value(speed)));
    constexpr int pages = 7;
    start.page = parser.value(page).toInt(&isNumber) - 1;
    if (!isNumber || start.page < 0 || start.page >= pages)
        return badWord(u"there is no page %1; they are 1 to 7"_s.arg(parser.value(page)));
    if (parser.isSet(size)) {
        if (auto stop = readSize(parser.value(size), start.size))
            return stop;
    }
    start.catalogue = parser.positionalArguments().value(0, usualCatalogue());
    start.session = parser.value(session);
    start.screenshots = parser.value(screenshots);
    start.measure = parser.isSet(measure);
    start.smoke = parser.isSet(smoke);
    return {};
}
