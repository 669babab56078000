// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "zrsupplykit_global.h"

#include <QtCore/QList>
#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QVariant>

namespace ZrSupplyKit {

/// A signal that has arrived.
struct SignalRecord
{
    QMetaMethod signal;
    QVariantList arguments;

    QString name() const { return QString::fromLatin1(signal.name()); }
};

/// Every signal that an object's own class declares, in arrival order. It goes by the meta-object alone, so a signal
/// that the class gains is heard without a line here.
class ZRSUPPLYKIT_EXPORT SignalRecorder : public QObject
{
    // Without Q_OBJECT: qt_metacall() is written by hand, a numbered slot for each signal.
public:
    explicit SignalRecorder(const QObject &sender);

    /// What has arrived since the last take, and forgets it.
    QList<SignalRecord> take();

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QList<QMetaMethod> m_signals; // by number
    QList<SignalRecord> m_arrived;
};

/// The signals that a class itself declares, in their order.
ZRSUPPLYKIT_EXPORT QList<QMetaMethod> ownSignals(const QMetaObject &type);

} // namespace ZrSupplyKit
