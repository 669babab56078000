// SPDX-License-Identifier: LGPL-2.1-or-later
#include "signallog.h"

#include <zrsupplydatabase.h>

#include <QtCore/QLocale>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

QString written(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString written(int number)
{
    return QString::number(number);
}

QString written(bool truth)
{
    return truth ? u"true"_s : u"false"_s;
}

QString written(const QString &text)
{
    return u'"' + text + u'"';
}

QString written(const QStringList &texts)
{
    QStringList quoted;
    for (const QString &text : texts)
        quoted.append(written(text));
    return u'[' + quoted.join(", "_L1) + u']';
}

} // namespace

SignalLog::SignalLog(ZrSupplyDatabase *database)
{
    // One connection a signal, so that a signal without a line here is one that the tests cannot see.
#define LOG_SIGNAL(name)                                                                                             \
    connect(database, &ZrSupplyDatabase::name, this,                                                                 \
            [this](const auto &...arguments) { add(#name, {written(arguments)...}); })
    LOG_SIGNAL(supplyPercentChanged);
    LOG_SIGNAL(ribbon1PercentChanged);
    LOG_SIGNAL(ribbon2PercentChanged);
    LOG_SIGNAL(supplyRGBChanged);
    LOG_SIGNAL(ribbon1RGBsChanged);
    LOG_SIGNAL(ribbon2RGBsChanged);
    LOG_SIGNAL(supplyChangedSignal);
    LOG_SIGNAL(ribbonChangedSignal);
    LOG_SIGNAL(printerChangedSignal);
    LOG_SIGNAL(ribbon1TypeChanged);
    LOG_SIGNAL(ribbon2TypeChanged);
    LOG_SIGNAL(alertInvalidRibbonsSupplyCombo);
    LOG_SIGNAL(alertInvalidRibbon1SupplyCombo);
    LOG_SIGNAL(alertInvalidRibbon2SupplyCombo);
    LOG_SIGNAL(notifyClearTailRibbon1);
    LOG_SIGNAL(notifyClearTailRibbon2);
    LOG_SIGNAL(notifySupplyWidth);
    LOG_SIGNAL(notifySupplySensor);
    LOG_SIGNAL(notifyRibbonTensions);
#undef LOG_SIGNAL
}

QStringList SignalLog::take()
{
    return std::exchange(m_lines, {});
}

void SignalLog::add(const char *signal, const QStringList &arguments)
{
    m_lines.append(u"%1(%2)"_s.arg(QString::fromLatin1(signal), arguments.join(", "_L1)));
}
