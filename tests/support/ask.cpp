// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ask.h"

#include "support/recordingdriver.h"

#include <QtCore/QDebug>
#include <QtCore/QHash>
#include <QtCore/QMetaMethod>

#include <functional>
#include <type_traits>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

using Operation = std::function<QVariant(ZrSupplyDatabase &, const QVariantList &)>;

template <typename Result, typename... Arguments, size_t... Index>
Operation operation(Result (ZrSupplyDatabase::*method)(Arguments...), std::index_sequence<Index...>)
{
    return [method](ZrSupplyDatabase &database, [[maybe_unused]] const QVariantList &arguments) {
        if (arguments.size() != qsizetype(sizeof...(Arguments)))
            qFatal("a row with %d arguments", int(arguments.size()));
        return QVariant::fromValue(
            (database.*method)(arguments.at(Index).value<std::remove_cv_t<std::remove_reference_t<Arguments>>>()...));
    };
}

template <typename Result, typename... Arguments>
Operation operation(Result (ZrSupplyDatabase::*method)(Arguments...))
{
    return operation(method, std::index_sequence_for<Arguments...>{});
}

const QHash<QString, Operation> &operations()
{
#define OPERATION(name)                                                                                              \
    {                                                                                                                \
        u## #name##_s, operation(&ZrSupplyDatabase::name)                                                            \
    }
    static const QHash<QString, Operation> all = {
        OPERATION(getColorNameFromEnum),
        OPERATION(getColorRGBFromEnum),
        OPERATION(getFormatNameFromEnum),
        OPERATION(getMaterialNameFromEnum),
        OPERATION(getSecColorNameFromEnum),
        OPERATION(getSecColorRGBFromEnum),
        OPERATION(getSkuFromSupplyId),
        OPERATION(getSkusFromRibbonIds),
        OPERATION(getSupplyLength),
        OPERATION(isSupplyIdShared),
        OPERATION(supplyBackgroundImage),
        OPERATION(supplyColorHash),
        OPERATION(supplyColorName),
        OPERATION(supplyColorNameEn),
        OPERATION(supplyColorRGB),
        OPERATION(supplyFormat),
        OPERATION(supplyFormatFromTable),
        OPERATION(supplyFormatName),
        OPERATION(supplyFormatType),
        OPERATION(supplyGetTypeSpecialCase),
        OPERATION(supplyIsLandscape),
        OPERATION(supplyLength),
        OPERATION(supplyMaterial),
        OPERATION(supplyMaterialName),
        OPERATION(supplyMultiUpCount),
        OPERATION(supplyMultiUpGapSize),
        OPERATION(supplyNonContinuousLength),
        OPERATION(supplyRibbonColorHash),
        OPERATION(supplyRibbonColorName),
        OPERATION(supplyRibbonColorNames),
        OPERATION(supplyRibbonColorRGB),
        OPERATION(supplyRibbonColorRGBs),
        OPERATION(supplyRibbonHeat),
        OPERATION(supplyRibbonHeatOffset),
        OPERATION(supplyRibbonHeatOffsets),
        OPERATION(supplyRibbonHeats),
        OPERATION(supplyRibbonLength),
        OPERATION(supplyRibbonMaxSpeed),
        OPERATION(supplyRibbonMaxSpeeds),
        OPERATION(supplyRibbonPanels),
        OPERATION(supplyRibbonSKUList),
        OPERATION(supplyRibbonTension),
        OPERATION(supplyRibbonTensions),
        OPERATION(supplyRibbonType),
        OPERATION(supplyRibbonTypes),
        OPERATION(supplyRibbonWidth),
        OPERATION(supplyRibbonsColorNames),
        OPERATION(supplyRibbonsColorRGBs),
        OPERATION(supplyRibbonsHeatOffsets),
        OPERATION(supplyRibbonsHeats),
        OPERATION(supplyRibbonsMaxSpeeds),
        OPERATION(supplyRibbonsTensions),
        OPERATION(supplySKUList),
        OPERATION(supplySecColorName),
        OPERATION(supplySecColorNameEn),
        OPERATION(supplySecColorRGB),
        OPERATION(supplySecColorWidth),
        OPERATION(supplySensorId),
        OPERATION(supplySeparatorWidth),
        OPERATION(supplySwiftLift),
        OPERATION(supplyTypeIndex),
        OPERATION(supplyWidth),
    };
#undef OPERATION
    return all;
}

QMetaMethod slotNamed(const QString &operation, qsizetype argumentCount)
{
    const QMetaObject &meta = ZrSupplyDatabase::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.name() == operation.toLatin1() && method.parameterCount() == argumentCount)
            return method;
    }
    return {};
}

/// Told as a row of a test log shows it.
QString told(const QVariant &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

} // namespace

namespace ask {

QVariant directly(ZrSupplyDatabase &database, const QString &operation, const QVariantList &arguments)
{
    const auto found = operations().constFind(operation);
    if (found == operations().constEnd())
        qFatal("no operation is called %s", qPrintable(operation));
    return (*found)(database, arguments);
}

bool isSlot(const QString &operation, qsizetype argumentCount)
{
    return slotNamed(operation, argumentCount).isValid();
}

QVariant byName(ZrSupplyDatabase &database, const QString &operation, const QVariantList &arguments)
{
    const QMetaMethod method = slotNamed(operation, arguments.size());
    QGenericArgument given[3];
    if (!method.isValid() || arguments.size() > qsizetype(std::size(given)))
        qFatal("no slot %s takes %d arguments", qPrintable(operation), int(arguments.size()));
    QVariantList converted = arguments;
    for (qsizetype i = 0; i < converted.size(); ++i) {
        converted[i].convert(method.parameterMetaType(int(i)));
        given[i] = QGenericArgument(method.parameterMetaType(int(i)).name(), converted.at(i).constData());
    }
    QVariant answer(method.returnMetaType());
    const bool invoked =
        method.invoke(&database, Qt::DirectConnection, QGenericReturnArgument(method.typeName(), answer.data()),
                      given[0], given[1], given[2]);
    if (!invoked)
        qFatal("%s cannot be called by name", qPrintable(operation));
    return answer;
}

void takeTag(ZrSupplyDatabase &database, const QString &tagText)
{
    if (!QMetaObject::invokeMethod(&database, "updateCachedSupplyCData", Q_ARG(QString, tagText)))
        qFatal("updateCachedSupplyCData cannot be called by name");
}

} // namespace ask

RecordedDatabase::RecordedDatabase(const QString &cataloguePath)
{
    RecordingDriver::install(cataloguePath, &m_texts);
}

QStringList RecordedDatabase::takeTexts()
{
    return std::exchange(m_texts, {});
}

bool answers(RecordedDatabase &recorded, const QString &operation, const QVariantList &arguments,
             const QVariant &expected, const QStringList &texts)
{
    const auto agrees = [&](const char *way, const QVariant &answer) {
        const QStringList asked = recorded.takeTexts();
        const bool same = answer.metaType() == expected.metaType() && answer == expected && asked == texts;
        if (!same) {
            qWarning().noquote().nospace()
                << operation << told(arguments) << ' ' << way << "\n  answered " << told(answer) << "\n  expected "
                << told(expected) << "\n  asked    " << asked.join(u"\n           "_s) << "\n  expected "
                << texts.join(u"\n           "_s);
        }
        return same;
    };
    recorded.takeTexts();
    const bool direct = agrees("directly", ask::directly(*recorded, operation, arguments));
    const bool named =
        !ask::isSlot(operation, arguments.size()) || agrees("by name", ask::byName(*recorded, operation, arguments));
    return direct && named;
}
