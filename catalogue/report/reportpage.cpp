// SPDX-License-Identifier: LGPL-2.1-or-later
#include "report/reportpage.h"

#include "text/units.h"
#include "usekit.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QLocale>

#include <algorithm>

/// Outside any namespace: the macro declares a global function. Resources of a static library are linked in only when
/// something names them.
static void initReportResource()
{
    Q_INIT_RESOURCE(report);
}

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double shownFeedInches = 7.0; // of a web, along the roll
constexpr double widestInches = 14.0;   // anything wider is a mistake and would only push the page apart

QByteArray resource(const QString &name)
{
    QFile file(u":/report/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is not part of this program", qPrintable(name));
    return file.readAll();
}

/// `text` as content or as an attribute's value between double quotes. Names keep their own direction.
QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

QString nameText(const QString &name)
{
    return u"<bdi>"_s + escaped(name) + u"</bdi>"_s;
}

QString anchor(QLatin1StringView kind, qsizetype number)
{
    return kind + QString::number(number);
}

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

QString colorCode(const ReportColor &color)
{
    return color.rgb ? rgbText(*color.rgb) : u"none"_s;
}

QString colorText(const ReportColor &color)
{
    if (!color.rgb)
        return color.name.isEmpty() ? u"none"_s : nameText(color.name);
    const QString code = colorCode(color);
    return u"<span class=\"swatch\" style=\"background:%1\"></span>%2 <code>%1</code>"_s.arg(code,
                                                                                             nameText(color.name));
}

QString sizeText(double inches)
{
    return inches > 0.0 ? escaped(inchText(inches)) : u"none"_s;
}

QString fact(const QString &label, const QString &html)
{
    return html.isEmpty() ? QString() : u"<dt>%1</dt><dd>%2</dd>"_s.arg(label, html);
}

QString rectangle(const QString &look, double x, double y, double width, double height)
{
    return u"<rect %1 x=\"%2\" y=\"%3\" width=\"%4\" height=\"%5\"/>"_s.arg(look, number(x), number(y), number(width),
                                                                            number(height));
}

/// What lies on the liner of a die-cut roll: labels side by side and one behind the other, the last one cut off. One
/// shape for all of them, since a roll of small labels has hundreds.
QString labelShapes(const ReportRoll &roll, double width)
{
    constexpr double marginInches = 0.06;
    const int across = std::clamp(roll.across, 1, 32);
    const double lane = width / across;
    const QString height = number(std::max(lane - 2 * marginInches, 0.02));
    const double step = std::max(roll.labelLength + roll.separatorWidth, 0.05);
    QString outline;
    const int rows = int((shownFeedInches - marginInches) / step) + 1;
    for (int row = 0; row < rows; ++row) {
        const double x = marginInches + row * step;
        const QString length = number(std::min(roll.labelLength, shownFeedInches - x));
        for (int i = 0; i < across; ++i)
            outline += u"M%1 %2h%3v%4h-%3z"_s.arg(number(x), number(i * lane + marginInches), length, height);
    }
    return u"<path class=\"face\" fill=\"%1\" d=\"%2\"/>"_s.arg(colorCode(roll.color), outline);
}

QString rollDrawing(const ReportRoll &roll)
{
    const double width = std::clamp(roll.width, 0.0, widestInches);
    if (!(width > 0.0))
        return {};
    QString shapes;
    if (roll.labelLength > 0.0) {
        shapes = rectangle(u"class=\"liner\""_s, 0, 0, shownFeedInches, width) + labelShapes(roll, width);
    } else {
        shapes = rectangle(u"fill=\"%1\""_s.arg(colorCode(roll.color)), 0, 0, shownFeedInches, width);
        const double stripe = std::clamp(roll.stripeWidth, 0.0, width);
        if (stripe > 0.0)
            shapes += rectangle(u"fill=\"%1\""_s.arg(colorCode(roll.stripe)), 0, 0, shownFeedInches, stripe);
    }
    shapes += rectangle(u"class=\"edge\""_s, 0, 0, shownFeedInches, width);
    return u"<svg class=\"drawing\" viewBox=\"0 0 %1 %2\" style=\"width:calc(%1*var(--inch))\" role=\"img\""
           " aria-label=\"%3\">%4</svg>"_s.arg(
               number(shownFeedInches), number(width),
               escaped(u"%1 of the roll, %2 wide"_s.arg(inchText(shownFeedInches), inchText(roll.width))), shapes);
}

QString lengthText(const ReportRoll &roll)
{
    const QString count = QLocale::c().toString(roll.length);
    // Format 3 counts in feet though it has labels.
    return roll.labelLength > 0.0 && roll.formatId != 3 ? count + u" labels"_s : count + u" ft"_s;
}

QString printsText(const ReportData &data, const ReportRoll &roll)
{
    const QList<ReportCell> &cells = data.printings[roll.printing].cells;
    const auto prints = std::count_if(cells.begin(), cells.end(), [](const ReportCell &cell) {
        return cell.verdict == ReportCell::Verdict::Prints;
    });
    return u"<a href=\"#%1\">%2 of %3 ribbons</a>"_s.arg(anchor("printing-"_L1, roll.printing))
        .arg(prints)
        .arg(cells.size());
}

QString rollCard(const ReportData &data, qsizetype index)
{
    const ReportRoll &roll = data.rolls[index];
    QString html = u"<li class=\"card\" data-search=\"roll\" id=\"%1\"><div class=\"top\"><div><h3>%2</h3>"_s.arg(
        anchor("roll-"_L1, index), escaped(roll.sku));
    if (!roll.isOffered)
        html += u"<span class=\"badge\">not offered: family %1</span>"_s.arg(
            roll.family.isEmpty() ? u"unknown"_s : escaped(roll.family));
    html += u"</div>"_s;
    if (!roll.pictureId.isEmpty())
        html += u"<img data-picture=\"%1\" alt=\"Picture %1\">"_s.arg(escaped(roll.pictureId));
    html += u"</div>"_s + rollDrawing(roll) + u"<dl>"_s;
    html += fact(u"Material"_s, nameText(roll.material)) + fact(u"Colour"_s, colorText(roll.color));
    html += fact(u"Width"_s, sizeText(roll.width)) + fact(u"Length"_s, lengthText(roll));
    html += fact(u"Format"_s, nameText(roll.format));
    if (roll.labelLength > 0.0) {
        html += fact(u"Label"_s, u"%1, gap %2"_s.arg(sizeText(roll.labelLength), sizeText(roll.separatorWidth)));
        html += fact(u"Across"_s, QString::number(roll.across));
    }
    if (roll.stripeWidth > 0.0)
        html += fact(u"Stripe"_s, sizeText(roll.stripeWidth) + u", "_s + colorText(roll.stripe));
    html += fact(u"Turned"_s, roll.isLandscape ? u"landscape"_s : QString());
    html += fact(u"Sensor"_s, roll.sensor.isEmpty() ? u"none"_s : escaped(roll.sensor));
    html += fact(u"Supply id"_s, u"<code>%1</code>"_s.arg(escaped(roll.supplyId)));
    return html + fact(u"Prints with"_s, printsText(data, roll)) + u"</dl></li>\n"_s;
}

QString ribbonDrawing(const ReportRibbon &ribbon)
{
    const double width = std::clamp(ribbon.width, 0.0, widestInches);
    if (!(width > 0.0))
        return {};
    QString shapes;
    const double each = ribbon.panels.isEmpty() ? 0.0 : shownFeedInches / double(ribbon.panels.size());
    for (qsizetype i = 0; i < ribbon.panels.size(); ++i)
        shapes +=
            rectangle(u"fill=\"%1\""_s.arg(colorCode(ribbon.panels[i].color)), double(i) * each, 0, each, width);
    shapes += rectangle(u"class=\"edge\""_s, 0, 0, shownFeedInches, width);
    return u"<svg class=\"drawing\" viewBox=\"0 0 %1 %2\" style=\"width:calc(%1*var(--inch))\" role=\"img\""
           " aria-label=\"%3\">%4</svg>"_s.arg(number(shownFeedInches), number(width),
                                               escaped(u"The ribbon, %1 wide"_s.arg(inchText(ribbon.width))), shapes);
}

QString ribbonCard(const ReportData &data, qsizetype index)
{
    const ReportRibbon &ribbon = data.ribbons[index];
    QString html = u"<li class=\"card\" data-search=\"ribbon\" id=\"%1\"><h3>%2</h3>"_s.arg(
        anchor("ribbon-"_L1, index), escaped(ribbon.sku));
    html += ribbonDrawing(ribbon) + u"<dl>"_s;
    for (qsizetype i = 0; i < ribbon.panels.size(); ++i) {
        const ReportPanel &panel = ribbon.panels[i];
        html += fact(u"Panel %1"_s.arg(i + 1), colorText(panel.color) + u", "_s + nameText(panel.type));
    }
    if (ribbon.panels.isEmpty())
        html += fact(u"Panels"_s, u"none"_s);
    html += fact(u"Width"_s, sizeText(ribbon.width));
    html += fact(u"Length"_s, escaped(ZrSupplyKit::lengthText(ribbon.length)));
    return html + fact(u"Id"_s, escaped(ribbon.id)) + u"</dl></li>\n"_s;
}

QString cellHtml(const ReportCell &cell)
{
    struct Look
    {
        QLatin1StringView name;
        char16_t sign;
    };
    static constexpr Look looks[] = {{"ok"_L1, u'✓'}, {"heat"_L1, u'✗'}, {"narrow"_L1, u'↔'}, {"special"_L1, u'★'}};
    const Look &look = looks[size_t(cell.verdict)];
    return u"<td class=\"%1\" title=\"%2\">%3</td>"_s.arg(look.name, escaped(cell.reason), QChar(look.sign));
}

QString printingRow(const ReportData &data, qsizetype index)
{
    const ReportPrinting &printing = data.printings[index];
    QStringList rolls;
    for (const qsizetype roll : printing.rolls)
        rolls.append(u"<a href=\"#%1\">%2</a>"_s.arg(anchor("roll-"_L1, roll), escaped(data.rolls[roll].sku)));
    QString html = u"<tr data-search=\"printing\" id=\"%1\"><th scope=\"row\">%2, %3<details><summary>%4 roll%5"
                   "</summary><p>%6</p></details></th>"_s.arg(
                       anchor("printing-"_L1, index), nameText(printing.material), sizeText(printing.width),
                       QString::number(rolls.size()), rolls.size() == 1 ? QString() : u"s"_s, rolls.join(", "_L1));
    for (const ReportCell &cell : printing.cells)
        html += cellHtml(cell);
    return html + u"</tr>\n"_s;
}

QString matrixHtml(const ReportData &data)
{
    QList<qsizetype> order(data.printings.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&data](qsizetype a, qsizetype b) {
        const ReportPrinting &one = data.printings[a];
        const ReportPrinting &two = data.printings[b];
        return one.material != two.material ? one.material < two.material : one.width < two.width;
    });
    QString html = u"<table><thead><tr><th scope=\"col\">Rolls</th>"_s;
    for (qsizetype i = 0; i < data.ribbons.size(); ++i)
        html += u"<th scope=\"col\"><a href=\"#%1\">%2</a></th>"_s.arg(anchor("ribbon-"_L1, i),
                                                                       escaped(data.ribbons[i].sku));
    html += u"</tr></thead>\n<tbody>\n"_s;
    for (const qsizetype index : order)
        html += printingRow(data, index);
    return html + u"</tbody></table>\n"_s;
}

QString pictureHtml(const ReportPicture &picture)
{
    return u"<li><img data-picture-id=\"%1\" alt=\"Picture %1\" src=\"data:image/svg+xml;base64,%2\">%1</li>\n"_s.arg(
        escaped(picture.id), QString::fromLatin1(picture.svg.toBase64()));
}

QString factsText(const ReportData &data, const QString &fileName)
{
    QStringList facts{escaped(fileName)};
    if (!data.version.isEmpty())
        facts.append(u"version "_s + escaped(data.version));
    facts.append(u"%1 rolls"_s.arg(QLocale::c().toString(data.rolls.size())));
    facts.append(u"%1 ribbons"_s.arg(QLocale::c().toString(data.ribbons.size())));
    return facts.join(u" · "_s);
}

} // namespace

QByteArray reportPage(const ReportData &data, const QString &fileName)
{
    initReportResource();
    QString rolls;
    for (qsizetype i = 0; i < data.rolls.size(); ++i)
        rolls += rollCard(data, i);
    QString ribbons;
    for (qsizetype i = 0; i < data.ribbons.size(); ++i)
        ribbons += ribbonCard(data, i);
    QString pictures;
    for (const ReportPicture &picture : data.pictures)
        pictures += pictureHtml(picture);

    const QByteArray script = resource(u"report.js"_s);
    const QHash<QByteArray, QByteArray> parts = {
        {"title", escaped(data.name.isEmpty() ? fileName : data.name).toUtf8()},
        {"facts", factsText(data, fileName).toUtf8()},
        {"style", resource(u"report.css"_s)},
        {"script", script},
        {"scriptHash", QCryptographicHash::hash(script, QCryptographicHash::Sha256).toBase64()},
        {"rolls", rolls.toUtf8()},
        {"ribbons", ribbons.toUtf8()},
        {"matrix", matrixHtml(data).toUtf8()},
        {"pictures", pictures.isEmpty() ? QByteArray("<li>none</li>\n") : pictures.toUtf8()},
    };

    // Filled in one pass, so that what comes from the catalogue is never looked at again.
    const QByteArray form = resource(u"report.html"_s);
    QByteArray page;
    qsizetype end = 0;
    for (qsizetype begin = form.indexOf("{{"); begin >= 0; begin = form.indexOf("{{", end)) {
        page += QByteArrayView(form).sliced(end, begin - end);
        end = form.indexOf("}}", begin) + 2;
        const QByteArray name = form.sliced(begin + 2, end - begin - 4);
        Q_ASSERT(parts.contains(name));
        page += parts.value(name);
    }
    return page += QByteArrayView(form).sliced(end);
}

} // namespace zrsupply
