// SPDX-License-Identifier: LGPL-2.1-or-later
#include "slotcall.h"

#include "support/metamethods.h"

#include <algorithm>

using namespace metamethods;

namespace slotcall {

QVariant byIndex(ZrSupplyDatabase &database, int index, QVariantList arguments)
{
    const QMetaMethod method = methodAt(index);
    if (arguments.size() != method.parameterCount())
        qFatal("%s is given %d arguments", method.methodSignature().constData(), int(arguments.size()));
    const QMetaType type = method.returnMetaType();
    QVariant answer = type == QMetaType::fromType<void>() ? QVariant() : QVariant(type);
    QList<void *> pointers = {answer.isValid() ? answer.data() : nullptr};
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i].metaType() != method.parameterMetaType(int(i)))
            qFatal("%s is given an argument of another type", method.methodSignature().constData());
        pointers.append(arguments[i].data());
    }
    QMetaObject::metacall(&database, QMetaObject::InvokeMetaMethod, meta.methodOffset() + index, pointers.data());
    return answer;
}

bool carriesText(QMetaType type)
{
    static const QMetaType types[] = {QMetaType::fromType<QString>(),      QMetaType::fromType<QStringList>(),
                                      QMetaType::fromType<QByteArray>(),   QMetaType::fromType<QVariant>(),
                                      QMetaType::fromType<QVariantList>(), QMetaType::fromType<QVariantMap>(),
                                      QMetaType::fromType<QVariantHash>()};
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

QList<int> takingText()
{
    QList<int> indices;
    for (int index = signalCount; index < methodCount; ++index) {
        const QMetaMethod method = methodAt(index);
        for (int i = 0; i < method.parameterCount(); ++i) {
            if (carriesText(method.parameterMetaType(i))) {
                indices.append(index);
                break;
            }
        }
    }
    return indices;
}

QVariantList arguments(int index, const std::function<QString(int parameter)> &textOf)
{
    const QMetaMethod method = methodAt(index);
    QVariantList list;
    for (int parameter = 0; parameter < method.parameterCount(); ++parameter) {
        const QMetaType type = method.parameterMetaType(parameter);
        QVariant argument = 1;
        if (type == QMetaType::fromType<QStringList>())
            argument = QStringList{textOf(parameter), textOf(parameter)};
        else if (carriesText(type))
            argument = textOf(parameter);
        if (!argument.convert(type))
            qFatal("%s takes another argument", method.methodSignature().constData());
        list.append(argument);
    }
    return list;
}

} // namespace slotcall
