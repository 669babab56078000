// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "session/literal.h"
#include "session/signalrecorder.h"
#include "zrsupplykit_global.h"

#include <QtCore/QMetaMethod>

#include <optional>

namespace ZrSupplyKit {

/// What has come back from the last event and was not expected yet.
struct Arrivals
{
    QList<SignalRecord> waiting;
    std::optional<QVariant> answer; ///< An invalid value for a call that returns nothing; unset without a call.
};

/// What an `expect` line demands.
class ZRSUPPLYKIT_EXPORT Expectation
{
public:
    /// `words` behind `expect`. Throws a usage failure for an unknown signal, a wrong number of arguments or an
    /// argument of another type.
    Expectation(const QMetaObject &type, const QList<Word> &words);

    struct Difference
    {
        QString expected;
        QString seen;
    };
    /// Whether the demand is met; a signal that was expected is taken from what is waiting.
    std::optional<Difference> meet(Arrivals &arrivals) const;

    /// As a line says it, without `expect`.
    QString text() const;

    // Lines that demand what has come back.
    static QString lineFor(const SignalRecord &record);
    static QString lineForAnswer(const QVariant &answer);
    static QString lineForSilence();

private:
    enum class Kind { Signal, Answer, Silence };

    std::optional<Difference> meetSignal(Arrivals &arrivals) const;
    std::optional<Difference> meetAnswer(const Arrivals &arrivals) const;

    Kind m_kind = Kind::Silence;
    QMetaMethod m_signal;
    QList<Word> m_values; // literals, `anything`, or a number after `about`
};

/// "supplyChangedSignal "00143465""
ZRSUPPLYKIT_EXPORT QString signalText(const SignalRecord &record);

} // namespace ZrSupplyKit
