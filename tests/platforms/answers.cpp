// SPDX-License-Identifier: LGPL-2.1-or-later
// Writes what each of the 145 methods answers and emits, called by index as hosts without C++ call them, over the
// sample catalogue, the tests' fixture and a catalogue of odd values. The same bytes come out on every platform: the
// digest of each method's rows is committed.
//
//     answers SAMPLE OUTPUT DIGESTS            write the rows to OUTPUT, compare their digests with the file DIGESTS
//     answers --accept SAMPLE OUTPUT DIGESTS   write DIGESTS anew instead

#include "support/fixturecatalogue.h"
#include "support/metamethods.h"
#include "support/rollcatalogue.h"
#include "support/signallog.h"
#include "trust/arguments/slotcall.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QTextStream>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include <sqlite3.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

namespace {

#ifdef __clang__
constexpr const char *compilerName = "clang++ " QT_STRINGIFY(__clang_major__);
#else
constexpr const char *compilerName = "g++ " QT_STRINGIFY(__GNUC__);
#endif

QString written(const QVariant &value);

QString quoted(const QString &text)
{
    QString plain;
    for (const QChar c : text) {
        const bool isPrinted = c > u' ' && c != u'"' && c != u'\\' && c != QChar(0x7f);
        plain += isPrinted || c == u' ' ? QString(c) : u"\\u%1"_s.arg(uint(c.unicode()), 4, 16, QLatin1Char('0'));
    }
    return u'"' + plain + u'"';
}

QString writtenList(const QVariantList &list)
{
    QStringList texts;
    for (const QVariant &entry : list)
        texts.append(written(entry));
    return u'[' + texts.join(u", "_s) + u']';
}

/// Type and value. A real number reads back exactly; a hash is sorted.
QString written(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return u"-"_s;
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (std::isnan(number))
            return u"nan"_s;
        return (std::signbit(number) ? u"-"_s : QString()) +
               QString::number(std::abs(number), 'g', QLocale::FloatingPointShortest) + u'r';
    }
    case QMetaType::QString:
        return quoted(value.toString());
    case QMetaType::QByteArray:
        return u'<' + QString::fromLatin1(value.toByteArray().toHex()) + u'>';
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return writtenList(value.toList());
    case QMetaType::QVariantHash: {
        QStringList rows;
        const QVariantHash hash = value.toHash();
        for (auto row = hash.cbegin(); row != hash.cend(); ++row)
            rows.append(quoted(row.key()) + u": "_s + written(row.value()));
        std::sort(rows.begin(), rows.end());
        return u'{' + rows.join(u", "_s) + u'}';
    }
    default:
        return value.toString();
    }
}

/// The rows of all catalogues, and a digest for each catalogue and method.
class Rows
{
public:
    explicit Rows(const QString &path)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            qFatal("answers: cannot write %s: %s", qPrintable(path), qPrintable(m_file.errorString()));
    }

    void add(const QString &catalogue, int index, const QVariantList &arguments, const QVariant &answer,
             const QStringList &signalLines)
    {
        const QString key = catalogue + u'\t' + QString::fromLatin1(methodAt(index).methodSignature());
        QStringList emitted;
        for (const QString &line : signalLines)
            emitted.append(quoted(line));
        const QByteArray row =
            QStringList{key, writtenList(arguments), written(answer), emitted.join(u' ')}.join(u'\t').toUtf8() + '\n';
        m_file.write(row);
        if (!m_digests.contains(key)) {
            m_keys.append(key);
            m_digests.insert(key, std::make_shared<QCryptographicHash>(QCryptographicHash::Sha256));
        }
        m_digests[key]->addData(row);
        ++m_count;
    }

    /// A line for each catalogue and method: digest, catalogue, signature.
    QStringList digests() const
    {
        QStringList lines;
        for (const QString &key : m_keys)
            lines.append(QString::fromLatin1(m_digests[key]->result().toHex().first(16)) + u'\t' + key);
        return lines;
    }

    int count() const { return m_count; }

private:
    QFile m_file;
    QStringList m_keys;
    QHash<QString, std::shared_ptr<QCryptographicHash>> m_digests;
    int m_count = 0;
};

/// Every value for every parameter, the later parameters turning fastest.
void forEachCombination(const QList<QVariantList> &values, QVariantList &chosen,
                        const std::function<void(const QVariantList &)> &call)
{
    if (chosen.size() == values.size()) {
        call(chosen);
        return;
    }
    for (const QVariant &value : values[chosen.size()]) {
        chosen.append(value);
        forEachCombination(values, chosen, call);
        chosen.removeLast();
    }
}

/// One catalogue, asked everything.
class Interview
{
public:
    Interview(Rows &rows, const QString &name, const QString &path)
        : m_rows(rows)
        , m_name(name)
        , m_path(path)
        , m_log(&m_library)
    {
        m_rolls = column(u"SELECT itemNum FROM roll ORDER BY itemNum"_s) + oddTexts();
        m_ribbons = column(u"SELECT sku FROM ribbon ORDER BY sku"_s) + oddTexts();
        // One roll of each material, of which the edges have one only that their ribbons print on.
        m_materialRolls = column(u"SELECT min(itemNum) FROM roll JOIN materialwidth m ON m.id = materialWidthId"
                                 " GROUP BY materialId HAVING materialId BETWEEN 1 AND 100"
                                 " ORDER BY 1"_s) +
                          QVariantList{u""_s, u"UnknownSupply"_s, u"no such"_s};
        m_rollIds = column(u"SELECT DISTINCT supplyId FROM roll ORDER BY supplyId"_s);
        m_ribbonIds = column(u"SELECT id FROM ribbon ORDER BY id"_s);
        m_sensors = column(u"SELECT supplysensortype FROM supplysensor ORDER BY 1"_s) + oddTexts();
    }

    void run()
    {
        everyMethodOf([](const QMetaMethod &m) { return m.methodType() == QMetaMethod::Signal; });
        askInstalled();
        call("setup(QString)", {m_path + u".absent"_s});
        call("setup(QString,QString)", {m_path, u"another name"_s});
        call("setup(QString,QString)", {m_path, u"SUPPLY_INFO_QT_SQL_CONNECTION_NAME"_s});
        call("setup(QString)", {m_path});
        for (const int language : {7, -1, INT_MAX, 0}) {
            call("setLanguageId(int)", {language});
            everyMethodOf([](const QMetaMethod &m) { return m.name().endsWith("Name") && m.parameterCount() == 1; });
        }
        askAll();
        loadRolls();
        loadRibbons();
    }

private:
    static QVariantList printers() { return {u""_s, u"my QUOKKA 4"_s, u"ibex"_s, u"Marlin"_s}; }

    /// Not a text that matches several rows: SQLite decides which of them comes first.
    static QVariantList oddTexts()
    {
        return {u""_s,
                u"-1"_s,
                u"UnknownSupply"_s,
                u"unknownsupply"_s,
                u"no such"_s,
                u"it's"_s,
                u"x' OR itemNum='00143221"_s,
                u"%1"_s,
                u"%2"_s,
                u"Ä 🖨"_s,
                u"a\tb"_s,
                QString(QChar(0)) + u'x',
                u"7"_s,
                u"R4417TX"_s,
                u"R530947"_s};
    }

    QVariantList column(const QString &statement) const
    {
        QVariantList values;
        {
            QSqlDatabase own = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"answers"_s);
            own.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
            own.setDatabaseName(m_path);
            if (!own.open())
                qFatal("answers: cannot open %s", qPrintable(m_path));
            for (QSqlQuery query(statement, own); query.next();)
                values.append(query.value(0).toString());
        }
        QSqlDatabase::removeDatabase(u"answers"_s);
        if (values.isEmpty())
            qFatal("answers: no rows of %s", qPrintable(statement));
        return values;
    }

    QVariantList valuesOf(const QMetaMethod &method, int parameter) const
    {
        const QByteArray name = method.parameterNames().at(parameter);
        switch (method.parameterType(parameter)) {
        case QMetaType::Double:
            return {-1.0, 0.0, 0.5, 1e300};
        case QMetaType::Bool:
            return {false, true};
        case QMetaType::Int:
            if (name.endsWith("ileage"))
                return {-1, 0, 1, 254, 100000, 120015, INT_MAX, INT_MIN};
            return method.parameterCount() > 2 ? QVariantList{1, 2} : QVariantList{-1, 0, 1, 2, INT_MAX};
        case QMetaType::QStringList:
            if (method.parameterCount() == 2) // beside a roll
                return lists(everyNth(m_ribbons, 15));
            return lists(method.name().endsWith("RibbonIds") ? m_ribbonIds : m_ribbons);
        default:
            break;
        }
        if (name == "printerName")
            return printers();
        if (name == "supplySku") // beside a ribbon
            return m_materialRolls;
        if (name == "trimmedId" || name == "supplyId")
            return m_rollIds + oddIds();
        if (name == "name")
            return m_sensors;
        return name.contains("ibbon") ? m_ribbons : m_rolls;
    }

    static QVariantList everyNth(const QVariantList &values, int n)
    {
        QVariantList chosen;
        for (qsizetype i = 0; i < values.size(); i += n)
            chosen.append(values[i]);
        return chosen;
    }

    static QVariantList oddIds()
    {
        const QString digits = rolls::multiUp;
        return {u""_s,
                u"-1"_s,
                rolls::striped,
                rolls::dieCut,
                rolls::multiUp,
                rolls::longRoll,
                digits.toLower(),
                digits.first(23),
                digits.first(1),
                digits + digits,
                u' ' + digits,
                digits.first(7) + u"Ä🖨"_s + digits,
                u"0x"_s + digits,
                u"zz"_s + digits,
                QString(QChar(0)) + digits,
                u"FFFFFFFFFFFFFFFFFFFFFFFF"_s,
                u"000000000000000000000000"_s,
                u"4B000912C10404900400 OR"_s,
                u"it's %1 %2"_s};
    }

    /// No ribbon, one, each beside its neighbour, and too many.
    static QVariantList lists(const QVariantList &values)
    {
        QVariantList all = {QStringList(), QStringList{u"-1"_s}, QStringList{u"-1"_s, u"-1"_s},
                            QStringList{u""_s, u"no such"_s}, QStringList{u"it's"_s, u"%1"_s}};
        for (qsizetype i = 0; i < values.size(); ++i) {
            const QString text = values[i].toString();
            all.append(QVariant(QStringList{text}));
            all.append(QVariant(QStringList{text, values[(i + 1) % values.size()].toString()}));
        }
        all.append(QVariant(QStringList{values[0].toString(), values[1].toString(), values[0].toString()}));
        return all;
    }

    void call(int index, const QVariantList &arguments)
    {
        const QVariant answer = slotcall::byIndex(m_library, index, arguments);
        QVariantList shown = arguments;
        for (QVariant &argument : shown) {
            if (argument.toString().startsWith(m_path)) // a temporary folder, another one each time
                argument = argument.toString().replace(m_path, u"catalogue"_s);
        }
        m_rows.add(m_name, index, shown, answer, m_log.take());
    }

    void call(const char *signature, const QVariantList &arguments)
    {
        const int index = meta.indexOfMethod(signature) - meta.methodOffset();
        if (index < 0)
            qFatal("answers: no method %s", signature);
        call(index, arguments);
    }

    template <typename Chosen>
    void everyMethodOf(Chosen chosen)
    {
        for (int index = 0; index < methodCount; ++index) {
            const QMetaMethod method = methodAt(index);
            if (!chosen(method))
                continue;
            QList<QVariantList> values;
            for (int i = 0; i < method.parameterCount(); ++i)
                values.append(valuesOf(method, i));
            QVariantList arguments;
            forEachCombination(values, arguments, [&](const QVariantList &given) { call(index, given); });
        }
    }

    /// The lookups with every value.
    void askAll()
    {
        everyMethodOf([](const QMetaMethod &m) { return m.returnType() != QMetaType::Void && m.name() != "setup"; });
    }

    /// What is installed: the methods without a parameter, those that emit at last.
    void askInstalled()
    {
        everyMethodOf([](const QMetaMethod &m) {
            return m.methodType() != QMetaMethod::Signal && m.parameterCount() == 0 && !m.name().endsWith("List") &&
                   !m.name().endsWith("Hash");
        });
    }

    void loadRolls()
    {
        for (const QVariant &id : everyNth(m_rollIds, 3) + oddIds()) {
            call("setSupplyId(QString)", {id});
            call("setSupplyUid(QString)", {id});
            call("updateCachedSupplyCData(QString)", {id.toString() + u"8080"_s});
            call("setSupplyMileage(int)", {100000});
            askInstalled();
        }
        for (const QVariant &sku : m_rolls) { // the type and the length of a roll depend on the installed one
            call("setSupplySKU(QString)", {sku});
            call("supplyLength(QString)", {sku});
            for (const QVariant &printer : printers())
                call("supplyTypeIndex(QString,QString)", {sku, printer});
        }
        for (const QVariant &sku : everyNth(m_rolls, 5)) {
            call("setSupplySKU(QString)", {sku});
            askInstalled();
        }
    }

    void loadRibbons()
    {
        call("setSupplyId(QString)", {rolls::dieCut});
        for (const QVariant &ids : lists(everyNth(m_ribbonIds, 5))) {
            call("setRibbonIds(QStringList)", {ids});
            call("setRibbon1Uid(QString)", {ids.toStringList().value(0)});
            call("setRibbon2Uid(QString)", {ids.toStringList().value(1)});
            call("setRibbon1Mileage(int)", {100000});
            call("setRibbon2Mileage(int)", {254});
            askInstalled();
        }
        // The remaining setters and what refreshes and checks, with every value.
        everyMethodOf([](const QMetaMethod &m) {
            return m.methodType() == QMetaMethod::Slot && m.returnType() == QMetaType::Void &&
                   m.name() != "setLanguageId";
        });
    }

    Rows &m_rows;
    QString m_name;
    QString m_path;
    ZrSupplyDatabase m_library;
    SignalLog m_log;
    QVariantList m_rolls, m_materialRolls, m_ribbons, m_rollIds, m_ribbonIds, m_sensors;
};

QString textOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("answers: cannot read %s: %s", qPrintable(path), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

int compare(const QStringList &digests, const QStringList &expected, const QString &output)
{
    QTextStream errors(stderr);
    for (const QString &line : digests) {
        if (!expected.contains(line))
            errors << "answers: other rows than those accepted: " << line.section(u'\t', 1) << '\n';
    }
    if (digests.size() != expected.size())
        errors << "answers: " << digests.size() << " groups of rows, not " << expected.size() << '\n';
    if (digests == expected)
        return 0;
    errors << "answers: the rows are in " << output << "; compare them with those of a build that passes\n";
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().sliced(1);
    const bool isAccepting = arguments.removeAll(u"--accept"_s) > 0;
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: answers [--accept] SAMPLE OUTPUT DIGESTS\n";
        return 2;
    }
    const QuietQt quiet;
    Rows rows(arguments[1]);
    const FixtureCatalogue fixture;
    const FixtureCatalogue edges(FixtureCatalogue::Rows::None);
    edges.run(textOf(QStringLiteral(ZR_SOURCE_DIR "/tests/platforms/edges.sql")));
    Interview(rows, u"sample"_s, arguments[0]).run();
    Interview(rows, u"fixture"_s, fixture.path()).run();
    Interview(rows, u"edges"_s, edges.path()).run();

    const QStringList digests = rows.digests();
    const QByteArray digest =
        QCryptographicHash::hash(digests.join(u'\n').toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    QTextStream(stdout) << "answers: Qt " << qVersion() << ", SQLite " << sqlite3_libversion() << ", " << compilerName
                        << ' ' << QSysInfo::buildCpuArchitecture() << ", " << rows.count() << " answers, " << digest
                        << '\n';
    if (digests.size() != 3 * methodCount) {
        QTextStream(stderr) << "answers: " << digests.size() << " of " << 3 * methodCount << " methods were called\n";
        return 1;
    }
    if (!isAccepting)
        return compare(digests, textOf(arguments[2]).split(u'\n', Qt::SkipEmptyParts), arguments[1]);
    QFile file(arguments[2]);
    if (!file.open(QIODevice::WriteOnly) || file.write(digests.join(u'\n').toUtf8() + '\n') < 0)
        qFatal("answers: cannot write %s", qPrintable(arguments[2]));
    return 0;
}
