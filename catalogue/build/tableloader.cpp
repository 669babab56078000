// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/tableloader.h"

#include "build/numbers.h"
#include "build/sourcewriter.h"
#include "text/nearest.h"
#include "usekit.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

QString text(QByteArrayView bytes)
{
    return QString::fromUtf8(bytes);
}

/// A field in a message, cut to what a line takes.
QString quoted(QByteArrayView bytes)
{
    constexpr qsizetype shown = 40;
    const QString whole = text(bytes);
    return u'"' + (whole.size() > shown ? whole.first(shown) + u'…' : whole) + u'"';
}

/// The fields of a key as one text that no other key has, numbers by value.
QByteArray keyText(const SourceTable &table, const QList<int> &columns, const std::vector<CsvField> &fields)
{
    QByteArray key;
    for (const int column : columns) {
        const QByteArrayView field = fields[size_t(column)].text;
        qint64 number = 0;
        if (table.columns[column].type == SourceColumn::Type::Integer && readInteger(field, number))
            key += QByteArray::number(number);
        else
            key += field;
        key += '\0';
    }
    return key;
}

QString keyNames(const SourceTable &table, const QList<int> &columns)
{
    QStringList names;
    for (const int column : columns)
        names.append(text(table.columns[column].name));
    return names.join(", "_L1);
}

} // namespace

TableLoader::TableLoader(SourceReader &sources, const SourceTable &table, CatalogueWriter &writer)
    : m_sources(sources)
    , m_table(table)
    , m_writer(writer)
    , m_file(text(table.fileName()))
    , m_row(size_t(table.columns.size()))
{
}

void TableLoader::add(int line, int column, const QString &message, const QString &remedy, int otherLine)
{
    m_isComplete = false;
    if (hasRoom())
        m_sources.add({m_file, line, column, message, remedy, otherLine});
}

void TableLoader::add(const CsvField &field, const QString &message, const QString &remedy)
{
    add(field.line, field.column, message, remedy);
}

void TableLoader::missingFile()
{
    const QStringList present = QDir(m_sources.m_folder).entryList({u"*.csv"_s}, QDir::Files);
    QStringList candidates;
    for (const QString &name : present) {
        const auto &tables = SourceSchema::current().tables();
        const bool isTable = std::any_of(tables.begin(), tables.end(),
                                         [&](const SourceTable &table) { return text(table.fileName()) == name; });
        if (!isTable)
            candidates.append(name);
    }
    const QStringList near = nearest(m_file, candidates, 1);
    add(0, 0, u"the file is missing"_s,
        near.isEmpty()
            ? u"write it, if only with its first line: "_s + text(m_table.header())
            : u"rename %1 if that is it; its first line is %2"_s.arg(near.first(), text(m_table.header())));
}

void TableLoader::load()
{
    m_sources.m_usedFiles.append(m_file);
    QFile file(QDir(m_sources.m_folder).filePath(m_file));
    if (!file.exists())
        return missingFile();
    if (!file.open(QIODevice::ReadOnly))
        return add(0, 0, u"the file cannot be read: "_s + file.errorString(),
                   u"make it an ordinary file that you may read (chmod u+r)"_s);

    CsvReader csv(file);
    if (!checkHeader(csv))
        return;
    m_writer.beginTable(m_table);
    while (hasRoom() && csv.next()) {
        m_sources.m_progress.tick();
        if (csv.problem())
            add(csv.problem()->line, csv.problem()->column, csv.problem()->message, csv.problem()->remedy);
        else
            loadRow(csv);
    }
    m_writer.endTable();
    if (file.error() != QFileDevice::NoError)
        add(0, 0, u"the file cannot be read to its end: "_s + file.errorString(), u"check the disk"_s);
    nameClashes(m_clashes + uniqueClashes());
}

bool TableLoader::checkHeader(CsvReader &csv)
{
    const QString expected = text(m_table.header());
    const QString whole = u"the first line is "_s + expected;
    if (!csv.next()) {
        add(1, 1, u"the file is empty"_s, whole);
        return false;
    }
    if (csv.problem()) {
        add(csv.problem()->line, csv.problem()->column, csv.problem()->message, whole);
        return false;
    }
    const CsvField &first = csv.fields().front();
    if (csv.fields().size() == 1 && m_table.columns.size() > 1 &&
        (first.text.contains(';') || first.text.contains('\t'))) {
        add(first, u"the columns are not separated by commas"_s,
            u"save the file with commas between the fields; "_s + whole);
        return false;
    }
    QStringList columns;
    for (const SourceColumn &column : m_table.columns)
        columns.append(text(column.name));
    QStringList found;
    bool isRight = true;
    for (const CsvField &field : csv.fields()) {
        const QString name = text(field.text);
        if (found.contains(name)) {
            add(field, u"column %1 is there twice"_s.arg(name), whole);
        } else if (!columns.contains(name)) {
            const QStringList near = nearest(name, columns, 1);
            add(field, u"table %1 has no column \"%2\""_s.arg(text(m_table.name), name),
                near.isEmpty() ? whole : u"did you mean %1? "_s.arg(near.first()) + whole);
        }
        isRight = isRight && found.size() < columns.size() && columns[found.size()] == name;
        found.append(name);
    }
    bool isMissing = false;
    for (const QString &column : columns) {
        if (!found.contains(column)) {
            add(1, 1, u"column %1 is missing"_s.arg(column), whole);
            isMissing = true;
        }
    }
    if (m_isComplete && !isRight && !isMissing)
        add(1, 1, u"the columns stand in another order"_s, whole);
    return m_isComplete;
}

bool TableLoader::checkFieldCount(const CsvReader &csv)
{
    const auto count = qsizetype(csv.fields().size());
    if (count == m_table.columns.size())
        return true;
    const CsvField &last = csv.fields().back();
    if (count == 1 && last.text.isEmpty()) {
        add(csv.line(), 1, u"the line is empty"_s, u"remove it"_s);
    } else if (count < m_table.columns.size()) {
        add(last.line, last.column, u"the row ends after %1 of %2 fields"_s.arg(count).arg(m_table.columns.size()),
            u"add what is missing from %1 on; a field without a value still needs its comma"_s.arg(
                text(m_table.columns[count].name)));
    } else {
        const CsvField &extra = csv.fields()[size_t(m_table.columns.size())];
        add(extra, u"the row has %1 fields, the table %2 columns"_s.arg(count).arg(m_table.columns.size()),
            u"remove what is too much, put a text that holds a comma in quotes, and write a decimal point in numbers"_s);
    }
    return false;
}

void TableLoader::loadRow(const CsvReader &csv)
{
    if (!checkFieldCount(csv))
        return;
    bool isRight = true;
    for (int column = 0; column < m_table.columns.size(); ++column)
        isRight = convert(csv.fields()[size_t(column)], column, m_row[size_t(column)]) && isRight;
    if (!isRight)
        return;
    if (m_writer.addRow(m_row)) {
        ++m_sources.m_rowCount;
        return;
    }
    const CsvField &field = csv.fields()[size_t(m_table.key.first())];
    m_clashes.append({m_table.key, keyText(m_table, m_table.key, csv.fields()), field.line, field.column});
}

bool TableLoader::convert(const CsvField &field, int column, SqlValue &value)
{
    const SourceColumn &definition = m_table.columns[column];
    const QString name = text(definition.name);
    value = SqlValue();
    if (field.text.isEmpty()) {
        if (!definition.notNull)
            return true;
        add(field, u"%1 is empty"_s.arg(name),
            m_table.key.contains(column) ? u"write the key of the row, or remove the line"_s : u"write a value"_s);
        return false;
    }
    if (!field.text.isValidUtf8()) {
        add(field, u"%1 is not UTF-8"_s.arg(name),
            u"save the file in UTF-8 (iconv -f LATIN1 -t UTF-8 converts one, with the encoding that it has)"_s);
        return false;
    }
    switch (definition.type) {
    case SourceColumn::Type::Integer:
        if (readInteger(field.text, value.integer)) {
            value.kind = SqlValue::Kind::Integer;
            return true;
        }
        add(field, u"%1 is a whole number, not %2"_s.arg(name, quoted(field.text)), integerRemedy(field.text));
        return false;
    case SourceColumn::Type::Real:
        if (readReal(field.text, value.real)) {
            value.kind = SqlValue::Kind::Real;
            return true;
        }
        add(field, u"%1 is a number, not %2"_s.arg(name, quoted(field.text)), realRemedy(field.text));
        return false;
    case SourceColumn::Type::Text:
        return convertText(field, column, value);
    case SourceColumn::Type::Blob:
        return convertBlob(field, column, value);
    }
    return false;
}

bool TableLoader::convertText(const CsvField &field, int column, SqlValue &value)
{
    const QString name = text(m_table.columns[column].name);
    if (field.text.contains('\0')) {
        add(field, u"%1 holds a NUL character"_s.arg(name), u"remove it; a text ends there for most readers"_s);
        return false;
    }
    if (m_table.name == "meta" && column == m_table.key.first() && metakey::isAddedByBuild(field.text)) {
        add(field, u"the key %1 is added by the build"_s.arg(text(field.text)), u"remove the line"_s);
        return false;
    }
    value = SqlValue::fromText(field.text);
    return true;
}

bool TableLoader::convertBlob(const CsvField &field, int column, SqlValue &value)
{
    const QString folder = text(m_table.columns[column].name);
    if (!isPlainFileName(field.text)) {
        add(field, u"%1 is no name of a file in the folder %2"_s.arg(quoted(field.text), folder),
            u"write the name alone, without a folder and without a dot at its beginning"_s);
        return false;
    }
    const QString path = folder + u'/' + text(field.text);
    QFile file(QDir(m_sources.m_folder).filePath(path));
    if (!file.exists()) {
        const QStringList near = nearest(text(field.text), unnamedFiles(folder, column), 1);
        add(field, u"the file %1 is missing"_s.arg(path),
            near.isEmpty() ? u"add it, or leave the field empty"_s : u"did you mean %1?"_s.arg(near.first()));
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        add(field, u"the file %1 cannot be read: %2"_s.arg(path, file.errorString()),
            u"make it an ordinary file that you may read (chmod u+r)"_s);
        return false;
    }
    m_blob = file.readAll();
    m_blobName = field.text.toByteArray();
    if (!m_sources.m_usedFiles.contains(path))
        m_sources.m_usedFiles.append(path);
    value = SqlValue::fromBlob(m_blob, m_blobName);
    return true;
}

/// The files of a folder that no row names in `column`: one that is missing may lie there under another name.
QStringList TableLoader::unnamedFiles(const QString &folder, int column) const
{
    QStringList names = QDir(QDir(m_sources.m_folder).filePath(folder)).entryList(QDir::Files);
    QFile file(QDir(m_sources.m_folder).filePath(m_file));
    if (!file.open(QIODevice::ReadOnly))
        return names;
    CsvReader csv(file);
    while (csv.next()) {
        if (size_t(column) < csv.fields().size())
            names.removeAll(text(csv.fields()[size_t(column)].text));
    }
    return names;
}

QList<TableLoader::Clash> TableLoader::uniqueClashes() const
{
    QList<Clash> clashes;
    for (const SharedKey &shared : m_writer.sharedKeys(m_table)) {
        QByteArray key;
        for (const QByteArray &value : shared.values)
            key += value + '\0';
        clashes.append({shared.columns, key, 0, 0});
    }
    return clashes;
}

/// Looks up the other line of each clash in a second reading, so that keys need not be remembered in the first.
void TableLoader::nameClashes(QList<Clash> clashes)
{
    if (clashes.isEmpty())
        return;
    QFile file(QDir(m_sources.m_folder).filePath(m_file));
    if (!file.open(QIODevice::ReadOnly))
        return add(0, 0, u"the file cannot be read again: "_s + file.errorString(), u"try again"_s);

    QList<QList<int>> columnLists;
    QList<QHash<QByteArray, int>> firstLines; // per list of columns, 0 as long as the key was not met
    for (const Clash &clash : clashes) {
        if (!columnLists.contains(clash.columns)) {
            columnLists.append(clash.columns);
            firstLines.append(QHash<QByteArray, int>());
        }
        firstLines[columnLists.indexOf(clash.columns)].insert(clash.key, 0);
    }
    CsvReader csv(file);
    csv.next(); // the header
    while (hasRoom() && csv.next()) {
        if (qsizetype(csv.fields().size()) != m_table.columns.size())
            continue;
        for (qsizetype i = 0; i < columnLists.size(); ++i) {
            const auto first = firstLines[i].find(keyText(m_table, columnLists[i], csv.fields()));
            if (first == firstLines[i].end())
                continue;
            const CsvField &field = csv.fields()[size_t(columnLists[i].first())];
            if (*first == 0) {
                *first = field.line;
                continue;
            }
            add(field.line, field.column,
                u"%1 %2 is in line %3 already"_s
                    .arg(keyNames(m_table, columnLists[i]), text(first.key().chopped(1).replace('\0', ", ")))
                    .arg(*first),
                u"remove one of the two lines, or give one of them another %1"_s.arg(
                    keyNames(m_table, columnLists[i])),
                *first);
        }
    }
}

} // namespace zrsupply
