// SPDX-License-Identifier: LGPL-2.1-or-later
#include "questions.h"

#include "support/ask.h"
#include "support/statementlist.h"

#include <QtCore/QFile>

#include <sqlite3.h>

#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

using Reading = Question::Reading;

const auto roll = u"CONT-4"_s;
const auto stripedRoll = u"STRIPED"_s;
const auto dieCutRoll = u"DIECUT"_s;
const auto ribbon = u"RIB-TWO"_s;
const auto supplyId = u"4B000912C10404900400"_s;
const auto tag = u"4B000912C100849000000000"_s;
const auto edgeSensor = u"checkSupplyEdgeSensor"_s;

/// A row about `sku` and nothing else.
Question bySku(const char *statement, const QString &operation, const QString &sku, Reading reading,
               const QVariant &absent)
{
    return {QString::fromLatin1(statement), {sku}, operation, {sku}, reading, absent};
}

/// A row about a code or SKU in English.
Question named(const char *statement, const QString &operation, const QVariant &subject, const QVariant &absent)
{
    QVariantList given{subject};
    if (operation == "getColorNameFromEnum"_L1 || operation == "getSecColorNameFromEnum"_L1)
        given.append(true);
    return {QString::fromLatin1(statement), {subject.toString(), u"0"_s}, operation, given, Reading::Text, absent};
}

Question ofPanel(const char *statement, const QString &operation)
{
    return {QString::fromLatin1(statement),
            {ribbon, u"2"_s, QString::fromLatin1(materialOfRoll)},
            operation,
            {ribbon, 2, roll},
            Reading::Int,
            -1};
}

QList<Question> everyQuestion()
{
    const QVariant none = -1;
    const QVariant unsetSize = -1.0;
    const QVariant noText = QString();
    return {
        bySku("rollMaterial", u"supplyMaterial"_s, roll, Reading::Int, none),
        bySku("rollWidth", u"supplyWidth"_s, roll, Reading::Real, unsetSize),
        bySku("rollRgb", u"supplyColorRGB"_s, roll, Reading::IntOrUnset, none),
        bySku("rollLandscape", u"supplyIsLandscape"_s, dieCutRoll, Reading::Int, none),
        bySku("rollMultiUpCount", u"supplyMultiUpCount"_s, dieCutRoll, Reading::Int, 1),
        bySku("rollLabelLength", u"supplyNonContinuousLength"_s, dieCutRoll, Reading::Real, unsetSize),
        bySku("rollLength", u"getSupplyLength"_s, roll, Reading::Int, none),
        bySku("rollBackground", u"supplyBackgroundImage"_s, roll, Reading::Bytes, QByteArray()),
        bySku("rollColorNameEn", u"supplyColorNameEn"_s, roll, Reading::Text, noText),
        bySku("rollSensor", edgeSensor, roll, Reading::Int, none),
        bySku("stripeWidth", u"supplySecColorWidth"_s, stripedRoll, Reading::Real, unsetSize),
        bySku("stripeRgb", u"supplySecColorRGB"_s, stripedRoll, Reading::IntOrUnset, none),
        bySku("stripeColorNameEn", u"supplySecColorNameEn"_s, stripedRoll, Reading::Text, noText),
        bySku("rollFormat", u"supplyFormatFromTable"_s, dieCutRoll, Reading::Int, 1),
        bySku("rollSeparatorWidth", u"supplySeparatorWidth"_s, dieCutRoll, Reading::Real, unsetSize),
        named("rollColorName", u"supplyColorName"_s, roll, noText),
        named("rollMaterialName", u"supplyMaterialName"_s, roll, noText),
        named("stripeColorName", u"supplySecColorName"_s, stripedRoll, noText),
        bySku("sensorByType", u"supplySensorId"_s, u"mark"_s, Reading::Int, none),
        {u"colorRgb"_s, {u"2"_s}, u"getColorRGBFromEnum"_s, {2}, Reading::Int, none},
        {u"secColorRgb"_s, {u"12"_s}, u"getSecColorRGBFromEnum"_s, {12}, Reading::Int, none},
        named("colorName", u"getColorNameFromEnum"_s, 2, u"-1"_s),
        named("secColorName", u"getSecColorNameFromEnum"_s, 12, u"-1"_s),
        named("materialName", u"getMaterialNameFromEnum"_s, 18, u"-1"_s),
        named("formatName", u"getFormatNameFromEnum"_s, 9, u"-1"_s),
        // An unknown roll has the format of the tag, which is 1.
        {u"formatType"_s, {u"1"_s}, u"supplyFormatType"_s, {u"UnknownSupply"_s}, Reading::Text, noText},
        {u"colorTable"_s, {}, u"supplyColorHash"_s, {}, Reading::Colors, QVariantHash()},
        {u"rollSkus"_s, {}, u"supplySKUList"_s, {}, Reading::Texts, QStringList()},
        bySku("skuBySupplyId", u"getSkuFromSupplyId"_s, supplyId, Reading::Text, noText),
        {u"countBySupplyId"_s, {tag}, u"isSupplyIdShared"_s, {}, Reading::AlwaysFalse, false},
        bySku("ribbonPanels", u"supplyRibbonPanels"_s, ribbon, Reading::Int, none),
        bySku("ribbonWidth", u"supplyRibbonWidth"_s, ribbon, Reading::Real, unsetSize),
        bySku("ribbonLength", u"supplyRibbonLength"_s, ribbon, Reading::Real, unsetSize),
        named("ribbonType", u"supplyRibbonType"_s, ribbon, noText),
        {u"ribbonPanelRgb"_s, {ribbon, u"2"_s}, u"supplyRibbonColorRGB"_s, {ribbon, 2}, Reading::Int, none},
        {u"ribbonPanelColorName"_s,
         {ribbon, u"2"_s, u"0"_s},
         u"supplyRibbonColorName"_s,
         {ribbon, 2},
         Reading::Text,
         noText},
        ofPanel("ribbonHeat", u"supplyRibbonHeat"_s),
        ofPanel("ribbonHeatOffset", u"supplyRibbonHeatOffset"_s),
        ofPanel("ribbonMaxSpeed", u"supplyRibbonMaxSpeed"_s),
        ofPanel("ribbonTension", u"supplyRibbonTension"_s),
        {u"ribbonSkuById"_s,
         {u"13"_s},
         u"getSkusFromRibbonIds"_s,
         {QStringList{u"13"_s, u"13"_s}},
         Reading::Text,
         u"-1"_s},
        {u"ribbonSkus"_s, {}, u"supplyRibbonSKUList"_s, {}, Reading::Texts, QStringList()},
        {u"ribbonColorTable"_s, {}, u"supplyRibbonColorHash"_s, {}, Reading::Colors, QVariantHash()},
    };
}

using File = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Rows = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// A value as Qt's driver hands it over.
QVariant columnValue(sqlite3_stmt *rows, int column)
{
    switch (sqlite3_column_type(rows, column)) {
    case SQLITE_INTEGER:
        return qlonglong(sqlite3_column_int64(rows, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(rows, column);
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char *>(sqlite3_column_blob(rows, column)),
                          sqlite3_column_bytes(rows, column));
    case SQLITE_NULL:
        return QVariant(QMetaType::fromType<QString>());
    default:
        break;
    }
    const void *text = sqlite3_column_text16(rows, column);
    return QString(static_cast<const QChar *>(text), sqlite3_column_bytes16(rows, column) / qsizetype(sizeof(QChar)));
}

QVariant converted(const QVariant &value, Reading reading)
{
    switch (reading) {
    case Reading::Int:
        return value.toInt();
    case Reading::IntOrUnset: {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        return isNumber ? number : -1;
    }
    case Reading::Real:
        return value.toReal();
    case Reading::Bytes:
        return value.toByteArray();
    default:
        return value.toString();
    }
}

File opened(const QString &path)
{
    sqlite3 *made = nullptr;
    const int status = sqlite3_open_v2(QFile::encodeName(path).constData(), &made, SQLITE_OPEN_READONLY, nullptr);
    File file(made, sqlite3_close);
    if (status != SQLITE_OK)
        file.reset();
    return file;
}

bool isAboutMaterial(const Question &question)
{
    return question.values.contains(QLatin1StringView(materialOfRoll));
}

Rows prepared(sqlite3 *file, const Question &question, int material)
{
    QStringList values = question.values;
    values.replaceInStrings(QString::fromLatin1(materialOfRoll), QString::number(material));
    const QByteArray text = filled(question.statement.toLatin1().constData(), values).toUtf8();
    sqlite3_stmt *made = nullptr;
    sqlite3_prepare_v2(file, text.constData(), -1, &made, nullptr);
    return {made, sqlite3_finalize};
}

QVariant answerOfFile(sqlite3 *file, const Question &question, int material)
{
    if (question.reading == Reading::AlwaysFalse || !file || (material == -1 && isAboutMaterial(question)))
        return question.absent;
    const Rows rows = prepared(file, question, material);
    QStringList texts;
    QVariantHash colors;
    while (rows && sqlite3_step(rows.get()) == SQLITE_ROW) {
        const QVariant first = columnValue(rows.get(), 0);
        if (question.reading == Reading::Texts)
            texts.append(first.toString());
        else if (question.reading == Reading::Colors)
            colors.insert(first.toString(), columnValue(rows.get(), 1).toInt());
        else
            return converted(first, question.reading);
    }
    if (question.reading == Reading::Texts)
        return texts;
    return question.reading == Reading::Colors ? QVariant(colors) : question.absent;
}

} // namespace

const QList<Question> &questions()
{
    static const QList<Question> all = everyQuestion();
    return all;
}

QVariant askOne(ZrSupplyDatabase &database, const Question &question)
{
    if (question.operation == edgeSensor) {
        // The answer of this one is a signal.
        QVariant announced;
        const auto heard = QObject::connect(&database, &ZrSupplyDatabase::notifySupplySensor, &database,
                                            [&announced](int sensor) { announced = sensor; });
        database.setSupplySKU(question.given.first().toString());
        ask::byName(database, edgeSensor, {});
        QObject::disconnect(heard);
        return announced;
    }
    const QVariant answer = ask::directly(database, question.operation, question.given);
    return question.operation == "getSkusFromRibbonIds"_L1 ? QVariant(answer.toStringList().first()) : answer;
}

QString takenInTag()
{
    return tag;
}

void takeInSupplies(ZrSupplyDatabase &database)
{
    database.setSupplyId(tag);
    database.setRibbonIds({u"12"_s, u"13"_s});
}

QVariantList askEverything(ZrSupplyDatabase &database)
{
    takeInSupplies(database);
    QVariantList answers;
    for (const Question &question : questions())
        answers.append(askOne(database, question));
    return answers;
}

QVariantList answersOfFile(const QString &path)
{
    const File file = opened(path);
    QVariantList answers;
    int material = -1;
    for (const Question &question : questions()) {
        answers.append(answerOfFile(file.get(), question, material));
        if (question.statement == "rollMaterial"_L1)
            material = answers.last().toInt();
    }
    return answers;
}

QSet<qsizetype> undecidedByFile(const QString &path)
{
    QSet<qsizetype> undecided;
    int material = -1;
    bool isMaterialUndecided = false;
    for (qsizetype i = 0; i < questions().size(); ++i) {
        const Question &question = questions()[i];
        // A connection for each: SQLite looks at the rows of a page, where it is asked to, only at first reading it.
        const File file = opened(path);
        if (!file)
            return undecided;
        if (sqlite3_exec(file.get(), "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("SQLite does not look at the rows of %s", qPrintable(path));
        const Rows rows = prepared(file.get(), question, material);
        int status = sqlite3_errcode(file.get());
        while (rows && (status = sqlite3_step(rows.get())) == SQLITE_ROW) {
            if (question.statement == "rollMaterial"_L1)
                material = columnValue(rows.get(), 0).toInt();
        }
        const bool leavesPage = status == SQLITE_CORRUPT;
        if (question.statement == "rollMaterial"_L1)
            isMaterialUndecided = leavesPage;
        if (leavesPage || (isMaterialUndecided && isAboutMaterial(question)))
            undecided.insert(i);
    }
    return undecided;
}

QVariantList defaultAnswers()
{
    QVariantList answers;
    for (const Question &question : questions())
        answers.append(question.absent);
    return answers;
}

bool isValueOrDefault(const Question &question, const QVariant &answer, const QVariant &value, Lenience lenience)
{
    if (answer.metaType() != value.metaType())
        return false;
    if (answer == value || answer == question.absent)
        return true;
    const bool mayBeEmpty = lenience == Lenience::EmptyText;
    const auto isTextOf = [mayBeEmpty](const QString &found, const QString &wanted) {
        return found == wanted || (mayBeEmpty && found.isEmpty());
    };
    switch (question.reading) {
    case Reading::Text:
        return isTextOf(answer.toString(), value.toString());
    case Reading::Bytes:
        return mayBeEmpty && answer.toByteArray().isEmpty();
    case Reading::Texts: {
        const QStringList found = answer.toStringList();
        const QStringList wanted = value.toStringList();
        return found.size() <= wanted.size() && std::equal(found.begin(), found.end(), wanted.begin(), isTextOf);
    }
    case Reading::Colors: {
        const QVariantHash found = answer.toHash();
        const QVariantHash wanted = value.toHash();
        return std::all_of(found.keyValueBegin(), found.keyValueEnd(), [&](const auto &color) {
            return (mayBeEmpty && color.first.isEmpty()) ||
                   (wanted.contains(color.first) && wanted.value(color.first) == color.second);
        });
    }
    default:
        return false;
    }
}

QString toldAnswer(const QVariant &answer)
{
    QString text;
    if (answer.metaType() == QMetaType::fromType<QVariantHash>()) {
        // In the order of the names: that of a hash differs from process to process.
        QVariantMap table;
        const QVariantHash colors = answer.toHash();
        for (auto color = colors.cbegin(); color != colors.cend(); ++color)
            table.insert(color.key(), color.value());
        QDebug(&text).nospace() << table;
    } else {
        QDebug(&text).nospace() << answer;
    }
    // One line, and no longer than a reader looks at.
    constexpr qsizetype longest = 400;
    text.replace(u'\n', u' ');
    return text.size() <= longest ? text : text.left(longest) + u" and so on, %1 characters"_s.arg(text.size());
}
