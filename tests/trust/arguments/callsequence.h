// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "randomsource.h"
#include "supplymodel.h"

#include "support/fixturecatalogue.h"

#include <QtCore/QList>
#include <QtCore/QVariant>

/// One thing that a host does, and what its slots do when signals arrive meanwhile.
struct CallStep
{
    enum Kind { Method, Reset, Anew }; ///< A slot or signal by its index, `init()`, another object in its place.

    struct Reaction
    {
        int signal; ///< At its first arrival
        int index;  ///< this method is called
        QVariantList arguments;
    };

    Kind kind = Method;
    int index = 0;
    QVariantList arguments;
    QList<Reaction> reactions;

    QString text() const;
};

/// Sequences of calls, played to an object and to the model of it at the same time.
class CallSequences
{
public:
    CallSequences();

    /// Up to `length` steps.
    QList<CallStep> steps(ChoiceSource &choices, int length) const;
    /// The first difference between object and model, empty when there is none. `played` counts the steps up to it.
    QString play(const QList<CallStep> &steps, qsizetype *played = nullptr);
    /// What is left of failing steps when all that can be left out is left out.
    QList<CallStep> shortest(QList<CallStep> steps);

private:
    QVariantList arguments(ChoiceSource &choices, int index) const;
    QVariant argument(ChoiceSource &choices, QMetaType type, const QByteArray &name) const;

    FixtureCatalogue m_catalogue;
    FixtureCatalogue m_otherCatalogue;
    ModelCatalogue m_rows;
};
