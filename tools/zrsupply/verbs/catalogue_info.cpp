// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/cataloguereader.h"
#include "build/interrupt.h"
#include "build/sourcewriter.h"
#include "check/cataloguecheck.h"
#include "cli/catalogue.h"
#include "cli/commandline.h"
#include "cli/output.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QMap>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

Cell countCell(qint64 number)
{
    return {number, QLocale::c().toString(number)};
}

Cell plainCell(const QString &text)
{
    return {text, text};
}

class Describer
{
public:
    Describer(const Database &database, const QString &path)
        : m_database(database)
        , m_answer(path)
        , m_path(path)
    {
        readMeta();
    }

    void describeFile();
    void describeRows();
    void describeLanguages();
    void verify(Progress &progress);
    const Answer &answer() const { return m_answer; }

private:
    void readMeta();
    void addMeta(const QByteArray &key, const QString &label);
    qint64 count(const QByteArray &from) const { return m_database.number("SELECT count(*) FROM " + from); }

    const Database &m_database;
    Answer m_answer;
    QString m_path;
    QMap<QString, QString> m_meta;
};

void Describer::readMeta()
{
    if (count("sqlite_schema WHERE name = 'meta'") == 0)
        return;
    Statement statement = m_database.prepare("SELECT key, value FROM meta");
    while (statement.step())
        m_meta.insert(QString::fromUtf8(statement.text(0)), QString::fromUtf8(statement.text(1)));
}

void Describer::addMeta(const QByteArray &key, const QString &label)
{
    const QString name = QString::fromUtf8(key);
    if (m_meta.contains(name))
        m_answer.add({}, label, plainCell(m_meta.value(name)));
}

void Describer::describeFile()
{
    const qint64 size = QFileInfo(m_path).size();
    const auto version = int(m_database.number("PRAGMA user_version"));
    m_answer.addJson(u"file"_s, m_path);
    m_answer.add(u"bytes"_s, u"Size"_s, {size, u"%1 bytes"_s.arg(QLocale::c().toString(size))});
    m_answer.add(u"schemaVersion"_s, u"Schema version"_s,
                 {version, version > 0 ? QString::number(version) : u"not told"_s});
    addMeta("dataset_name", u"Data set"_s);
    addMeta("dataset_version", u"Data set version"_s);
    addMeta(metakey::toolVersion, u"Built by zrsupply"_s);
    addMeta(metakey::sourceChecksum, u"Source checksum"_s);
    QJsonObject meta;
    for (auto fact = m_meta.constKeyValueBegin(); fact != m_meta.constKeyValueEnd(); ++fact)
        meta.insert(fact->first, fact->second);
    m_answer.addJson(u"meta"_s, meta);
}

void Describer::describeRows()
{
    const QByteArray isDieCut = "itemNum IN (SELECT itemNum FROM noncontinuous)";
    const QByteArray isStriped = "itemNum IN (SELECT itemNum FROM continuousstripe WHERE secColorWidth > 0.0)";
    const QByteArray offered = '(' + offeredRollsQuery() + ')';
    const qint64 rolls = count("roll");
    const qint64 dieCut = count("roll WHERE " + isDieCut);
    const qint64 striped = count("roll WHERE NOT " + isDieCut + " AND " + isStriped);
    m_answer.beginGroup(u"Rolls"_s, u"rolls"_s);
    m_answer.add(u"all"_s, u"All"_s, countCell(rolls));
    m_answer.add(u"offered"_s, u"Offered"_s, countCell(count(offered)));
    m_answer.add(u"continuous"_s, u"Continuous"_s, countCell(rolls - dieCut - striped));
    m_answer.add(u"striped"_s, u"Striped"_s, countCell(striped));
    m_answer.add(u"dieCut"_s, u"Die-cut"_s, countCell(dieCut));

    m_answer.beginGroup(u"Ribbons"_s, u"ribbons"_s);
    m_answer.add(u"all"_s, u"All"_s, countCell(count("ribbon")));
    m_answer.add(u"severalPanels"_s, u"Of several panels"_s, countCell(count("ribbon WHERE panels > 1")));

    Table tables({{u"name"_s, u"Table"_s}, {u"rows"_s, u"Rows"_s, Qt::AlignRight}});
    for (const CatalogueTable &table : catalogueTables())
        tables.addRow({plainCell(table.name), countCell(count(sqlName(table.name.toUtf8())))});
    m_answer.addTable(u"Tables"_s, u"tables"_s, tables);
}

void Describer::describeLanguages()
{
    Statement statement = m_database.prepare(
        "WITH named(code, languageId, name) AS (SELECT 'c' || colorId, languageId, name FROM colorTS"
        " UNION ALL SELECT 'm' || materialId, languageId, name FROM materialTS"
        " UNION ALL SELECT 'f' || formatId, languageId, name FROM formatTS"
        " UNION ALL SELECT 't' || ribbon_typeId, languageId, name FROM ribbon_typeTS"
        " UNION ALL SELECT 'r' || ribbon_colorId, languageId, name FROM ribbon_colorTS)"
        " SELECT languageId, count(DISTINCT code), (SELECT count(DISTINCT code) FROM named)"
        " FROM named WHERE name <> '' GROUP BY languageId ORDER BY languageId");
    Table languages({{u"id"_s, u"Language"_s, Qt::AlignRight},
                     {u"code"_s, u"Code"_s},
                     {u"names"_s, u"Names"_s, Qt::AlignRight},
                     {u"missing"_s, u"Missing"_s, Qt::AlignRight}});
    while (statement.step()) {
        const qint64 id = statement.integer(0);
        const qint64 names = statement.integer(1);
        languages.addRow({countCell(id), plainCell(m_meta.value(u"language.%1"_s.arg(id))), countCell(names),
                          countCell(statement.integer(2) - names)});
    }
    m_answer.addTable(u"Languages"_s, u"languages"_s, languages);
}

void Describer::verify(Progress &progress)
{
    progress.stage(u"checksum"_s);
    SourceWriter sources;
    readCatalogue(m_database, sources, progress);
    const QString found = QString::fromLatin1(sources.checksum());
    const QString promised = promisedChecksum(m_database);
    m_answer.addJson(u"contentChecksum"_s, found);
    if (promised.isEmpty())
        m_answer.addNote(u"the file does not tell the checksum of its sources; what is in it has "_s + found);
    else if (promised == found)
        m_answer.addNote(u"what is in the file has the checksum of its sources"_s);
    else
        m_answer.addNote(u"the file was changed after it was built: what is in it has the checksum "_s + found);
}

/// What SQLite itself says of the file's structure. The tables can be all there and a page of one be unreadable.
void requireSound(const Database &database)
{
    Statement check = database.prepare("PRAGMA quick_check(1)");
    const QByteArray verdict = check.step() ? check.text(0) : QByteArray("no answer");
    if (verdict != "ok")
        throw DatabaseError{0, QString::fromUtf8(verdict).simplified()};
}

Status describe(const Invocation &call, Output &out)
{
    const QString path = call.arguments().isEmpty() ? cataloguePath(call) : call.argument(0);
    if (const auto problem = catalogueProblem(path, call.has(u"no-guard"_s) ? Use::Author : Use::Lookups))
        throw *problem;
    Progress progress(!call.json());
    try {
        Database database = Database::readOnly(path);
        database.stopWhen([] { return InterruptGuard::isInterrupted(); });
        progress.stage(u"structure"_s);
        requireSound(database);
        progress.stage(u"rows"_s);
        Describer describer(database, path);
        describer.describeFile();
        if (call.has(u"verify"_s))
            describer.verify(progress);
        describer.describeRows();
        describer.describeLanguages();
        progress.clear();
        out.write(describer.answer());
    } catch (const DatabaseError &error) {
        InterruptGuard::check();
        throw Failure{Status::Failed,
                      u"%1 is damaged: %2"_s.arg(path, error.message),
                      u"build it again from its sources (zrsupply catalogue build), or take another copy"_s,
                      {}};
    }
    return Status::Ok;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return describe(call, out); });
}

} // namespace

Command catalogueInfoCommand()
{
    return {
        u"catalogue info"_s,
        u"Tell what is in a catalogue file, or why it cannot be used"_s,
        u"Versions, checksum, counts and languages. A file that cannot be used gives an error that says exactly what "
        "is wrong with it and what to do: missing, a folder, not a database, empty, damaged, of a newer schema, in "
        "write-ahead-log mode, without a table or a column, without permission, or without Qt's SQLite driver.\n\n"
        "With --verify the checksum of what is in the file is compared with that of the sources it was built from."_s,
        {{u"FILE"_s, u"Catalogue file; the one that other verbs would use when it is left out"_s, Value::File,
          Need::Optional}},
        {{u"verify"_s, u"Compare the content with the checksum of the sources"_s}},
        {{u"catalogue info"_s, u"The sample catalogue."_s},
         {u"catalogue info new.sqlite --verify --json"_s, u"A file, with its checksum, for a program."_s}},
        {{Status::Ok, u"the file can be used"_s},
         {Status::Failed, u"it cannot"_s},
         {Status::Usage, u"a wrong call"_s}},
        run,
    };
}

} // namespace zrsupply
