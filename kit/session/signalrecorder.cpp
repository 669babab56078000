// SPDX-License-Identifier: LGPL-2.1-or-later
#include "session/signalrecorder.h"

#include <utility>

namespace ZrSupplyKit {

QList<QMetaMethod> ownSignals(const QMetaObject &type)
{
    QList<QMetaMethod> found;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index) {
        if (type.method(index).methodType() == QMetaMethod::Signal)
            found.append(type.method(index));
    }
    return found;
}

SignalRecorder::SignalRecorder(const QObject &sender)
    : m_signals(ownSignals(*sender.metaObject()))
{
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (qsizetype number = 0; number < m_signals.size(); ++number) {
        QMetaObject::connect(&sender, m_signals[number].methodIndex(), this, firstSlot + int(number),
                             Qt::DirectConnection);
    }
}

QList<SignalRecord> SignalRecorder::take()
{
    return std::exchange(m_arrived, {});
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    const int number = QObject::qt_metacall(call, id, arguments);
    if (number < 0 || call != QMetaObject::InvokeMetaMethod)
        return number;
    if (number < m_signals.size()) {
        SignalRecord record{m_signals[number], {}};
        for (int parameter = 0; parameter < record.signal.parameterCount(); ++parameter)
            record.arguments.append(QVariant(record.signal.parameterMetaType(parameter), arguments[parameter + 1]));
        m_arrived.append(record);
    }
    return number - int(m_signals.size());
}

} // namespace ZrSupplyKit
