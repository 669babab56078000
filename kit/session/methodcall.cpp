// SPDX-License-Identifier: LGPL-2.1-or-later
#include "session/methodcall.h"

#include "text/failure.h"
#include "text/nearest.h"

#include <QtCore/QJsonArray>
#include <QtCore/QObject>

#include <algorithm>
#include <iterator>
#include <vector>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

QList<QMetaMethod> methodsOf(const QMetaObject &type, const QString &name)
{
    QList<QMetaMethod> found;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index) {
        if (QString::fromLatin1(type.method(index).name()) == name)
            found.append(type.method(index));
    }
    return found;
}

Failure unknownMethod(const QMetaObject &type, const QString &name)
{
    const QStringList near = nearest(name, methodNames(type));
    return {Status::Usage,
            u"there is no method \"%1\""_s.arg(name),
            near.isEmpty() ? u"help methods lists them"_s : u"did you mean %1?"_s.arg(orList(near)),
            {{u"nearest"_s, QJsonArray::fromStringList(near)}}};
}

} // namespace

QStringList methodNames(const QMetaObject &type)
{
    QStringList names;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index) {
        const QString name = QString::fromLatin1(type.method(index).name());
        if (!names.contains(name))
            names.append(name);
    }
    return names;
}

QString signatureText(const QMetaMethod &method)
{
    QStringList parameters;
    for (int parameter = 0; parameter < method.parameterCount(); ++parameter) {
        parameters.append(QString::fromLatin1(method.parameterTypeName(parameter)) + u' ' +
                          QString::fromLatin1(method.parameterNames().at(parameter)));
    }
    const QString name = QString::fromLatin1(method.name());
    return parameters.isEmpty() ? name : name + u' ' + parameters.join(", "_L1);
}

QVariantList convertArguments(const QMetaMethod &method, const QList<Word> &words)
{
    QVariantList arguments;
    for (qsizetype parameter = 0; parameter < words.size(); ++parameter) {
        const QMetaType type = method.parameterMetaType(int(parameter));
        const auto value = parseLiteral(words[parameter], type);
        if (!value) {
            throw Failure{Status::Usage,
                          u"%1 of %2 is %3, not %4"_s.arg(QString::fromLatin1(method.parameterNames().at(parameter)),
                                                          QString::fromLatin1(method.name()), typeText(type),
                                                          words[parameter].raw),
                          u"it takes: %1"_s.arg(signatureText(method)),
                          {}};
        }
        arguments.append(*value);
    }
    return arguments;
}

MethodCall resolveCall(const QMetaObject &type, const QString &name, const QList<Word> &words)
{
    const QList<QMetaMethod> methods = methodsOf(type, name);
    if (methods.isEmpty())
        throw unknownMethod(type, name);
    // A method that has defaults is there once for each number of arguments.
    QStringList signatures;
    for (const QMetaMethod &method : methods) {
        if (method.parameterCount() == words.size())
            return {method, convertArguments(method, words)};
        signatures.append(signatureText(method));
    }
    throw Failure{Status::Usage,
                  words.size() == 1 ? u"%1 does not take 1 argument"_s.arg(name)
                                    : u"%1 does not take %2 arguments"_s.arg(name).arg(words.size()),
                  u"it takes: %1"_s.arg(orList(signatures)),
                  {}};
}

QVariant invoke(QObject &object, const MethodCall &call)
{
    QVariant result;
    if (call.answers())
        result = QVariant(call.method.returnMetaType());
    QVariantList values = call.arguments;
    std::vector<void *> places = {call.answers() ? result.data() : nullptr};
    std::transform(values.begin(), values.end(), std::back_inserter(places),
                   [](QVariant &value) { return value.data(); });
    QMetaObject::metacall(&object, QMetaObject::InvokeMetaMethod, call.method.methodIndex(), places.data());
    return result;
}

} // namespace ZrSupplyKit
