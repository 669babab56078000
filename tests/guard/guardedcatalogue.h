// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "support/fixturecatalogue.h"

#include <zrsupplydatabase.h>
#include <zrsupplyguard.h>

#include <QtCore/QVariant>

/// Guards what is opened while it lives.
class Guarded
{
public:
    explicit Guarded(const QString &onlyThisFile = {}, const ZrSupplyGuard::Limits &limits = {})
    {
        if (!ZrSupplyGuard::install(onlyThisFile, limits))
            qFatal("the guard cannot be installed");
    }
    ~Guarded() { ZrSupplyGuard::remove(); }
    Q_DISABLE_COPY_MOVE(Guarded)
};

/// What the library answers to a question of its own: opened anew, asked, closed. The default is the text "default".
inline QVariant answer(const QString &path, const QString &question)
{
    const QuietQt quiet;
    ZrSupplyDatabase library;
    library.setup(path);
    return library.getSingleVariantByQuery(question, QStringLiteral("default"));
}

/// The same under the guard.
inline QVariant guardedAnswer(const QString &path, const QString &question, const ZrSupplyGuard::Limits &limits = {})
{
    const Guarded guarded(path, limits);
    return answer(path, question);
}
