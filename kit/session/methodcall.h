// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "session/literal.h"
#include "zrsupplykit_global.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QStringList>

class QObject;

namespace ZrSupplyKit {

/// A meta-method with its arguments.
struct MethodCall
{
    QMetaMethod method;
    QVariantList arguments;

    QString name() const { return QString::fromLatin1(method.name()); }
    bool answers() const { return method.returnMetaType().id() != QMetaType::Void; }
};

/// The method of the class itself that has this name and takes these words. Throws a usage failure that names the
/// nearest methods, the parameters that are wanted, or the type that a word should have had.
ZRSUPPLYKIT_EXPORT MethodCall resolveCall(const QMetaObject &type, const QString &name, const QList<Word> &words);

/// Calls it, private slots too; invalid when it returns nothing.
ZRSUPPLYKIT_EXPORT QVariant invoke(QObject &object, const MethodCall &call);

/// The names of all methods of the class itself, each once.
ZRSUPPLYKIT_EXPORT QStringList methodNames(const QMetaObject &type);

/// "supplyRibbonHeat QString ribbonSku, int panel, QString supplySku"
ZRSUPPLYKIT_EXPORT QString signatureText(const QMetaMethod &method);

/// `words` as the method's arguments. Throws a usage failure for a word of another type.
ZRSUPPLYKIT_EXPORT QVariantList convertArguments(const QMetaMethod &method, const QList<Word> &words);

} // namespace ZrSupplyKit
