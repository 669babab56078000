// SPDX-License-Identifier: LGPL-2.1-or-later
#include "callsequence.h"

#include "slotcall.h"

#include "support/metamethods.h"
#include "support/privatemember.h"
#include "support/signallog.h"
#include "support/tagtext.h"

#include <QtCore/QDebug>
#include <QtCore/QFileInfo>
#include <QtSql/QSqlDatabase>

#include <memory>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

#define MEMBER_KEY(name) ZR_PRIVATE_MEMBER(name##Key, ZrSupplyDatabase, m_##name);
ZR_MODEL_MEMBERS(MEMBER_KEY)
#undef MEMBER_KEY

namespace {

const QString otherConnection = u"other"_s;

/// Calls back into the object when signals arrive, after the log has written them down.
class Reactor : public QObject
{
    Q_OBJECT

public:
    explicit Reactor(ZrSupplyDatabase &database)
        : m_database(database)
    {
        const QMetaMethod react = staticMetaObject.method(staticMetaObject.indexOfSlot("react()"));
        for (int signal = 0; signal < signalCount; ++signal)
            connect(&database, methodAt(signal), this, react);
    }

    QList<CallStep::Reaction> pending;
    QVariantList answers; // of the reactions, so that what the object says in the midst of an operation is seen

public Q_SLOTS:
    void react()
    {
        const int signal = senderSignalIndex() - meta.methodOffset();
        for (qsizetype i = 0; i < pending.size(); ++i) {
            if (pending.at(i).signal == signal) {
                const CallStep::Reaction reaction = pending.takeAt(i);
                const qsizetype place = answers.size();
                answers.append(QVariant());
                const QVariant answer = slotcall::byIndex(m_database, reaction.index, reaction.arguments);
                answers[place] = answer;
                return;
            }
        }
    }

private:
    ZrSupplyDatabase &m_database;
};

/// The object, what listens to it, and the model.
class World
{
public:
    explicit World(ModelCatalogue &rows)
        : m_rows(rows)
    {
        anew();
    }
    ~World()
    {
        m_database.reset();
        QSqlDatabase::removeDatabase(otherConnection);
    }
    Q_DISABLE_COPY_MOVE(World)

    /// Empty, or how the object differs from the model after the step.
    QString take(const CallStep &step)
    {
        if (step.kind == CallStep::Anew) {
            anew();
        } else if (step.kind == CallStep::Reset) {
            m_database->init();
            m_model->init();
        } else {
            m_reactor->pending = m_modelPending = step.reactions;
            const QVariant answer = slotcall::byIndex(*m_database, step.index, step.arguments);
            const std::optional<QVariant> wanted = modelled(step.index, step.arguments);
            m_reactor->pending.clear();
            m_modelPending.clear();
            QString difference = differingAnswer(answer, wanted);
            if (!difference.isEmpty())
                return difference;
        }
        const QStringList heard = m_log->take();
        const QStringList announced = m_model->takeSignals();
        if (heard != announced)
            return u"emits %1, not %2"_s.arg(heard.join(u' '), announced.join(u' '));
        const QVariantList answers = std::exchange(m_reactor->answers, {});
        const QList<std::optional<QVariant>> wanted = std::exchange(m_modelAnswers, {});
        for (qsizetype i = 0; i < answers.size(); ++i) {
            const QString difference = differingAnswer(answers.at(i), wanted.at(i));
            if (!difference.isEmpty())
                return u"meanwhile "_s + difference;
        }
        return differingMember();
    }

private:
    void anew()
    {
        m_reactor.reset();
        m_log.reset();
        m_database.reset();
        m_database = std::make_unique<ZrSupplyDatabase>();
        m_log = std::make_unique<SignalLog>(m_database.get());
        m_reactor = std::make_unique<Reactor>(*m_database);
        m_model = std::make_unique<SupplyModel>(m_rows);
        m_model->afterSignal = [this](const QByteArray &signal) { modelReacts(signal); };
    }

    std::optional<QVariant> modelled(int index, const QVariantList &arguments)
    {
        const QByteArray name = methodAt(index).name();
        if (index >= signalCount)
            return m_model->call(name, arguments);
        m_model->announce(name, arguments);
        return std::nullopt;
    }

    void modelReacts(const QByteArray &signal)
    {
        for (qsizetype i = 0; i < m_modelPending.size(); ++i) {
            if (methodAt(m_modelPending.at(i).signal).name() == signal) {
                const CallStep::Reaction reaction = m_modelPending.takeAt(i);
                const qsizetype place = m_modelAnswers.size();
                m_modelAnswers.append(std::nullopt);
                const std::optional<QVariant> answer = modelled(reaction.index, reaction.arguments);
                m_modelAnswers[place] = answer;
                return;
            }
        }
    }

    static QString told(const QVariant &value)
    {
        QString text;
        QDebug(&text).nospace() << value;
        return text;
    }

    /// A NULL of the catalogue has the type that the lookup gives it.
    static bool same(const QVariant &answer, QVariant wanted)
    {
        if (!wanted.isValid())
            return answer == QVariant(answer.metaType());
        return wanted.convert(answer.metaType()) && answer == wanted;
    }

    static QString differingAnswer(const QVariant &answer, const std::optional<QVariant> &wanted)
    {
        if (!wanted || !answer.isValid() || same(answer, *wanted))
            return QString();
        return u"answers %1, not %2"_s.arg(told(answer), told(*wanted));
    }

    QString differingMember() const
    {
        const ModelState &wanted = m_model->state();
#define COMPARE_MEMBER(name)                                                                                         \
    if (const auto &kept = (*m_database).*memberOf(name##Key{}); kept != wanted.name) {                              \
        return u"keeps %1 %2, not %3"_s.arg(u## #name##_s, told(QVariant::fromValue(kept)),                          \
                                            told(QVariant::fromValue(wanted.name)));                                 \
    }
        ZR_MODEL_MEMBERS(COMPARE_MEMBER)
#undef COMPARE_MEMBER
        return QString();
    }

    ModelCatalogue &m_rows;
    std::unique_ptr<ZrSupplyDatabase> m_database;
    std::unique_ptr<SignalLog> m_log;
    std::unique_ptr<Reactor> m_reactor;
    std::unique_ptr<SupplyModel> m_model;
    QList<CallStep::Reaction> m_modelPending;
    QList<std::optional<QVariant>> m_modelAnswers;
};

// Texts without a quote and without a percent sign: what those do is told by other tests.
const QStringList rollSkus = {u"CONT-4"_s,    u"CONT-6"_s,       u"STRIPED"_s,       u"DIECUT"_s,
                              u"DIECUT-18"_s, u"OTHER-FAMILY"_s, u"NULLS"_s,         u"DANGLING"_s,
                              u""_s,          u"-1"_s,           u"UnknownSupply"_s, u"absent"_s};
const QStringList ribbonSkus = {u"RIB-ONE"_s,       u"RIB-TWO"_s, u"RIB-THREE"_s, u"RIB-NULLS"_s, u"R4417TX"_s,
                                u"HVWA-ZEROSPOL"_s, u"R530947"_s, u"RW530947"_s,  u"-1"_s,        u""_s,
                                u"absent"_s};
const QStringList ribbonIds = {u"12"_s, u"13"_s, u"14"_s, u"15"_s, u"16"_s, u"17"_s,
                               u"18"_s, u"19"_s, u"99"_s, u"x"_s,  u""_s};
const QStringList supplyIds = {u"-1"_s,
                               u"-1 "_s,
                               u""_s,
                               u"4B000912C10404900400"_s,
                               u"SHARED-ID-0123456789"_s,
                               u"DIECUT-ID-0123456789 and more"_s,
                               u"OTHER-ID-01234567890"_s,
                               u"F"_s};
const QStringList printers = {u""_s, u"Quokka 5"_s, u"IBEX"_s, u"a marlin"_s, u"absent"_s};
const QStringList uids = {u"E2801160"_s, u""_s, u"\u00e9\u4e2d"_s};
constexpr int numbers[] = {-1, 0, 1, 2, 3, 4, 7, 254, 120015, -120015, 2147483647, -2147483647 - 1};
constexpr double fractions[] = {-1.0, 0.0, 0.5, 1.0, 1e300};

QString tag(ChoiceSource &choices)
{
    return tagText({{tagbits::mileageBaseFeet, unsigned(choices.below(512))},
                    {tagbits::flag9, unsigned(choices.below(2))},
                    {tagbits::swiftLift, unsigned(choices.below(2))},
                    {tagbits::lengthFeet, unsigned(choices.below(512))},
                    {tagbits::material, unsigned(choices.below(20))},
                    {tagbits::format, unsigned(choices.chance(50) ? choices.below(4) : choices.below(64))},
                    {tagbits::color, unsigned(choices.below(7))},
                    {tagbits::widthInches, unsigned(choices.below(9))},
                    {tagbits::revision, unsigned(choices.below(4))},
                    {tagbits::flag73, unsigned(choices.below(2))},
                    {tagbits::formatRev1, unsigned(choices.below(64))},
                    {tagbits::multiUpCountLessOne, unsigned(choices.below(32))},
                    {tagbits::typeLessOne, unsigned(choices.below(4))},
                    {{11, 14}, unsigned(choices.below(0x4000))}});
}

QStringList listOf(ChoiceSource &choices, const QStringList &entries)
{
    QStringList list;
    for (int count = choices.chance(70) ? 2 : choices.below(5); count > 0; --count)
        list.append(choices.oneOf(entries));
    return list;
}

} // namespace

QString CallStep::text() const
{
    const auto call = [](int method, const QVariantList &given) {
        QString told;
        QDebug debug(&told);
        debug.nospace().noquote() << methodAt(method).name() << '(';
        for (const QVariant &value : given)
            debug.quote() << value << ' ';
        debug << ')';
        return told;
    };
    if (kind != Method)
        return kind == Reset ? u"init()"_s : u"another object"_s;
    QString told = call(index, arguments);
    for (const Reaction &reaction : reactions)
        told += u"; at %1 %2"_s.arg(QString::fromLatin1(methodAt(reaction.signal).name()),
                                    call(reaction.index, reaction.arguments));
    return told;
}

CallSequences::CallSequences()
{
    m_otherCatalogue.run(u"UPDATE ribbon SET length=length+100, width=width-1; UPDATE color SET rgbValue=rgbValue+1;"
                         "UPDATE colorTS SET name='other '||name; UPDATE ribbon_heat SET heat=0 WHERE panel=1;"
                         "DELETE FROM roll WHERE itemNum='DIECUT'; UPDATE roll SET supplysensorId=5;"_s);
}

QVariant CallSequences::argument(ChoiceSource &choices, QMetaType type, const QByteArray &name) const
{
    if (type == QMetaType::fromType<int>())
        return choices.oneOf(numbers);
    if (type == QMetaType::fromType<bool>())
        return choices.chance(50);
    if (type == QMetaType::fromType<double>())
        return choices.oneOf(fractions);
    if (type == QMetaType::fromType<QStringList>())
        return listOf(choices, name == "ribbonIds" ? ribbonIds : ribbonSkus);
    if (name == "supplyId" || name == "trimmedId")
        return choices.chance(70) ? tag(choices) : choices.oneOf(supplyIds);
    if (name == "path") {
        const QStringList paths = {m_catalogue.path(), m_otherCatalogue.path(), m_catalogue.path() + u".absent"_s,
                                   QFileInfo(m_catalogue.path()).path()};
        return paths.at(choices.chance(80) ? choices.below(2) : choices.below(4));
    }
    if (name == "connectionName")
        return choices.chance(50) ? u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s : otherConnection;
    if (name == "printerName")
        return choices.oneOf(printers);
    if (name == "ribbonSku")
        return choices.oneOf(ribbonSkus);
    return name == "uid" ? choices.oneOf(uids) : choices.oneOf(rollSkus);
}

QVariantList CallSequences::arguments(ChoiceSource &choices, int index) const
{
    const QMetaMethod method = methodAt(index);
    const QByteArrayList names = method.parameterNames();
    QVariantList list;
    for (int i = 0; i < method.parameterCount(); ++i)
        list.append(argument(choices, method.parameterMetaType(i), names.at(i)));
    return list;
}

QList<CallStep> CallSequences::steps(ChoiceSource &choices, int length) const
{
    constexpr int firstAccessor = 23;
    constexpr int accessorCount = 16;
    constexpr int firstSetup = 110;
    constexpr int firstSetter = 112;
    // Half of the calls change something, a few open a catalogue, the rest are all methods alike.
    const auto method = [&choices]() {
        const int kind = choices.below(100);
        if (kind < 50)
            return firstSetter + choices.below(methodCount - firstSetter);
        return kind < 55 ? firstSetup + choices.below(2) : choices.below(methodCount);
    };
    QList<CallStep> list;
    for (int i = 0; i < length; ++i) {
        CallStep step;
        const int kind = choices.below(100);
        step.kind = kind < 2 ? CallStep::Reset : kind < 4 ? CallStep::Anew : CallStep::Method;
        step.index = i == 0 ? firstSetup + 1 : method();
        step.arguments = arguments(choices, step.index);
        for (int reactions = choices.chance(25) ? 1 + choices.below(2) : 0; reactions > 0; --reactions) {
            CallStep::Reaction reaction;
            reaction.signal = choices.below(signalCount);
            // Half of them look at what is installed.
            reaction.index = choices.chance(50) ? firstAccessor + choices.below(accessorCount) : method();
            reaction.arguments = arguments(choices, reaction.index);
            step.reactions.append(reaction);
        }
        list.append(step);
    }
    return list;
}

QString CallSequences::play(const QList<CallStep> &steps, qsizetype *played)
{
    World world(m_rows);
    for (qsizetype i = 0; i < steps.size(); ++i) {
        QString difference = world.take(steps.at(i));
        if (!difference.isEmpty()) {
            if (played)
                *played = i + 1;
            return difference;
        }
    }
    return QString();
}

QList<CallStep> CallSequences::shortest(QList<CallStep> steps)
{
    qsizetype played = steps.size();
    if (play(steps, &played).isEmpty())
        return {};
    steps.resize(played);
    for (qsizetype i = steps.size() - 1; i >= 0; --i) {
        QList<CallStep> fewer = steps;
        fewer.removeAt(i);
        if (!play(fewer).isEmpty())
            steps = fewer;
        else if (!steps.at(i).reactions.isEmpty()) {
            fewer = steps;
            fewer[i].reactions.clear();
            if (!play(fewer).isEmpty())
                steps = fewer;
        }
    }
    return steps;
}

#include "callsequence.moc"
