// SPDX-License-Identifier: LGPL-2.1-or-later
#include "session/literal.h"

#include "text/failure.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLocale>
#include <QtCore/QStringConverter>

#include <cmath>

namespace ZrSupplyKit {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto base64Mark = "base64:"_L1;

QString compact(const QJsonValue &value)
{
    // A document is an array or an object, so a value is written as the only entry of one.
    const QString list = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2);
}

/// The entries of a JSON list.
std::optional<QJsonArray> jsonList(const QString &text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isArray())
        return {};
    return document.array();
}

QString numberText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

/// Bytes are text where they can be, which the pictures in a catalogue are.
QString bytesText(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return decoder.hasError() ? base64Mark + QString::fromLatin1(bytes.toBase64()) : text;
}

std::optional<QVariant> parseText(const Word &word)
{
    // Half a quoted text is a slip, not a text that begins with a quote.
    if (word.raw.startsWith(u'"') && !word.quoted)
        return {};
    return word.text;
}

std::optional<QVariant> parseTexts(const Word &word)
{
    QStringList texts;
    if (!word.raw.startsWith(u'[') && !word.raw.startsWith(u'"'))
        return word.raw.split(u',');
    const auto list = jsonList(word.raw.startsWith(u'[') ? word.raw : u'[' + word.raw + u']');
    if (!list)
        return {};
    for (const auto &entry : *list) {
        if (!entry.isString())
            return {};
        texts.append(entry.toString());
    }
    return texts;
}

std::optional<QVariant> parseBytes(const Word &word)
{
    const auto text = parseText(word);
    if (!text)
        return {};
    if (!word.text.startsWith(base64Mark))
        return word.text.toUtf8();
    const auto decoded = QByteArray::fromBase64Encoding(word.text.mid(base64Mark.size()).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return {};
    return decoded.decoded;
}

std::optional<QVariant> parseTruth(const Word &word)
{
    if (word.raw == "true"_L1 || word.raw == "false"_L1)
        return word.raw == "true"_L1;
    return {};
}

template <typename Number>
std::optional<QVariant> ifNumber(Number number, bool isNumber)
{
    return isNumber ? std::optional<QVariant>(number) : std::nullopt;
}

std::optional<QVariant> parseJson(const Word &word, QMetaType type)
{
    const auto list = jsonList(u'[' + word.raw + u']');
    if (!list || list->size() != 1)
        return {};
    const QVariant value = list->first().toVariant();
    if (type.id() == QMetaType::QVariantHash)
        return list->first().isObject() ? std::optional<QVariant>(value.toMap()) : std::nullopt;
    return list->first().isArray() ? std::optional<QVariant>(value) : std::nullopt;
}

} // namespace

QList<Word> splitWords(const QString &line)
{
    QList<Word> words;
    qsizetype at = 0;
    while (true) {
        while (at < line.size() && line[at].isSpace())
            ++at;
        if (at == line.size() || line[at] == u'#')
            return words;

        const qsizetype begin = at;
        const bool bracketed = line[at] == u'[' || line[at] == u'{';
        qsizetype depth = 0;
        bool inQuotes = false;
        for (; at < line.size() && (inQuotes || depth > 0 || !line[at].isSpace()); ++at) {
            const QChar character = line[at];
            if (inQuotes && character == u'\\')
                ++at;
            else if (character == u'"')
                inQuotes = !inQuotes;
            else if (bracketed && !inQuotes && (character == u'[' || character == u'{'))
                ++depth;
            else if (bracketed && !inQuotes && (character == u']' || character == u'}'))
                --depth;
        }
        const QString raw = line.mid(begin, at - begin);
        if (inQuotes || depth != 0) {
            throw Failure{Status::Usage,
                          u"%1 has %2 that are not closed"_s.arg(raw, inQuotes ? u"quotes"_s : u"brackets"_s),
                          u"close them; a quote inside a quoted text is written \\\""_s,
                          {}};
        }

        Word word{raw, raw, false};
        const auto text = raw.startsWith(u'"') ? jsonList(u'[' + raw + u']') : std::nullopt;
        if (text && text->size() == 1) {
            word.text = text->first().toString();
            word.quoted = true;
        }
        words.append(word);
    }
}

QJsonValue literalJson(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::UnknownType:
        return QJsonValue::Null;
    case QMetaType::Double:
        // JSON has no word for these.
        if (!std::isfinite(value.toDouble()))
            return numberText(value.toDouble());
        break;
    case QMetaType::QByteArray:
        return bytesText(value.toByteArray());
    case QMetaType::QVariantHash:
        return QJsonObject::fromVariantHash(value.toHash());
    default:
        break;
    }
    return QJsonValue::fromVariant(value);
}

QString literal(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::UnknownType:
        return u"void"_s;
    case QMetaType::Double:
        return numberText(value.toDouble());
    default:
        return compact(literalJson(value));
    }
}

QString literals(const QVariantList &values)
{
    QString text;
    for (const QVariant &value : values)
        text += u' ' + literal(value);
    return text;
}

std::optional<QVariant> parseLiteral(const Word &word, QMetaType type)
{
    bool isNumber = false;
    switch (type.id()) {
    case QMetaType::QString:
        return parseText(word);
    case QMetaType::QStringList:
        return parseTexts(word);
    case QMetaType::QByteArray:
        return parseBytes(word);
    case QMetaType::Bool:
        return parseTruth(word);
    case QMetaType::Double: {
        const double number = word.raw.toDouble(&isNumber);
        return ifNumber(number, isNumber);
    }
    case QMetaType::Int: {
        const int number = word.raw.toInt(&isNumber);
        return ifNumber(number, isNumber);
    }
    default:
        return parseJson(word, type);
    }
}

QString typeText(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::QString:
        return u"a text"_s;
    case QMetaType::QStringList:
        return u"a list of texts, written A,B or [\"A\",\"B\"]"_s;
    case QMetaType::QByteArray:
        return u"a text or base64:..."_s;
    case QMetaType::Bool:
        return u"true or false"_s;
    case QMetaType::Double:
        return u"a number"_s;
    case QMetaType::Int:
        return u"a whole number"_s;
    case QMetaType::QVariantHash:
        return u"a table, written {\"A\":1}"_s;
    default:
        return u"a list, written [1,2]"_s;
    }
}

} // namespace ZrSupplyKit
