// SPDX-License-Identifier: LGPL-2.1-or-later
#include "diff/comparison.h"

#include "check/cataloguecheck.h"

#include <QtCore/QDir>
#include <QtCore/QUrl>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlField>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>

#include <algorithm>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

const auto connectionName = "zrsupply-catalogue-diff"_L1;

/// Both files, read only, in one connection: "before" and "after".
class AttachedPair
{
public:
    AttachedPair(const QString &oldPath, const QString &newPath);
    ~AttachedPair();
    AttachedPair(const AttachedPair &) = delete;
    AttachedPair &operator=(const AttachedPair &) = delete;

    SubjectDiff compare(const DiffSubject &subject);

private:
    void attach(const QString &path, const QString &name);
    QSqlQuery ask(const QString &text);
    QString store(const DiffSubject &subject, const QString &name);
    void addMissing(SubjectDiff &diff, DiffChange::Kind kind);
    void addChanged(SubjectDiff &diff, const QString &field);
    QHash<QString, QString> names(const DiffSubject &subject, const QString &field, const QString &database);

    QSqlDatabase m_database;
};

AttachedPair::AttachedPair(const QString &oldPath, const QString &newPath)
    : m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName))
{
    m_database.setConnectOptions(u"QSQLITE_OPEN_URI"_s);
    // A database without a name is private and grows on disk, where the rows that are compared are kept.
    m_database.setDatabaseName(u"file:?mode=rwc"_s);
    if (!m_database.open()) {
        throw Failure{Status::Failed,
                      u"no temporary database can be made: "_s + m_database.lastError().databaseText(),
                      u"make room, or name another place for temporary files in TMPDIR"_s,
                      {}};
    }
    attach(oldPath, u"before"_s);
    attach(newPath, u"after"_s);
}

AttachedPair::~AttachedPair()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

void AttachedPair::attach(const QString &path, const QString &name)
{
    const QUrl url = QUrl::fromLocalFile(QDir::current().absoluteFilePath(path));
    ask(u"ATTACH '%1?mode=ro' AS %2"_s.arg(url.toString(QUrl::FullyEncoded).replace(u'\'', "%27"_L1), name));
}

QSqlQuery AttachedPair::ask(const QString &text)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(text)) {
        throw Failure{Status::Failed,
                      u"the catalogues cannot be compared: "_s + query.lastError().databaseText(),
                      u"zrsupply catalogue check says what is wrong with each"_s,
                      {}};
    }
    return query;
}

/// Keeps what a subject selects in one catalogue under its key; of rows with one key the first. The name of the
/// catalogue when it has no such tables.
QString AttachedPair::store(const DiffSubject &subject, const QString &name)
{
    const QString select = QString(subject.select).replace("{db}"_L1, name);
    if (!QSqlQuery(m_database).exec(u"EXPLAIN "_s + select))
        return name;
    ask(u"DROP TABLE IF EXISTS temp.%1_rows"_s.arg(name));
    ask(u"CREATE TEMP TABLE %1_rows AS SELECT CAST(\"key\" AS TEXT) AS rowKey, * FROM (%2) GROUP BY \"key\""_s.arg(
        name, select));
    ask(u"CREATE UNIQUE INDEX temp.%1_key ON %1_rows (rowKey)"_s.arg(name));
    return {};
}

void AttachedPair::addMissing(SubjectDiff &diff, DiffChange::Kind kind)
{
    const bool removed = kind == DiffChange::Kind::Removed;
    QSqlQuery rows = ask(u"SELECT rowKey FROM temp.%1_rows EXCEPT SELECT rowKey FROM temp.%2_rows ORDER BY 1"_s.arg(
        removed ? u"before"_s : u"after"_s, removed ? u"after"_s : u"before"_s));
    while (rows.next()) {
        DiffChange change{kind, rows.value(0).toString(), {}, {}, {}, {}};
        if (removed)
            change.breaks = u"whoever asks for this %1 is no longer answered"_s.arg(diff.subject.one);
        diff.changes.append(change);
    }
}

void AttachedPair::addChanged(SubjectDiff &diff, const QString &field)
{
    QSqlQuery rows =
        ask(u"SELECT before_rows.rowKey, before_rows.\"%1\", after_rows.\"%1\" FROM temp.before_rows JOIN"
            " temp.after_rows ON after_rows.rowKey = before_rows.rowKey"
            " WHERE before_rows.\"%1\" IS NOT after_rows.\"%1\" ORDER BY 1"_s.arg(field));
    while (rows.next()) {
        DiffChange change{
            DiffChange::Kind::Changed, rows.value(0).toString(), field, rows.value(1), rows.value(2), {}};
        if (field == diff.subject.identity && !change.before.isNull())
            change.breaks = u"the %1 is no longer found by its old %2"_s.arg(diff.subject.one, field);
        diff.changes.append(change);
    }

    const auto beforeNames = names(diff.subject, field, u"before"_s);
    const auto afterNames = names(diff.subject, field, u"after"_s);
    for (DiffChange &change : diff.changes) {
        if (change.field == field) {
            change.beforeName = beforeNames.value(change.before.toString());
            change.afterName = afterNames.value(change.after.toString());
        }
    }
}

/// By code; empty for a field that holds none.
QHash<QString, QString> AttachedPair::names(const DiffSubject &subject, const QString &field, const QString &database)
{
    QHash<QString, QString> names;
    for (const DiffNames &named : subject.names) {
        if (named.field != field)
            continue;
        QSqlQuery rows = ask(QString(named.select).replace("{db}"_L1, database));
        while (rows.next())
            names.insert(rows.value(0).toString(), rows.value(1).toString());
    }
    return names;
}

/// A removed and an added thing that have one identity are one thing with another key.
void findRenamed(SubjectDiff &diff, QSqlQuery pairs)
{
    while (pairs.next()) {
        for (DiffChange &change : diff.changes) {
            if (change.kind == DiffChange::Kind::Removed && change.key == pairs.value(0).toString()) {
                change.breaks = u"it is now called %1: the same %2 %3"_s.arg(
                    pairs.value(1).toString(), diff.subject.identity, pairs.value(2).toString());
            }
        }
    }
}

SubjectDiff AttachedPair::compare(const DiffSubject &subject)
{
    SubjectDiff diff{subject, {}, {}};
    for (const QString &name : {u"before"_s, u"after"_s}) {
        diff.missingIn = store(subject, name);
        if (!diff.missingIn.isEmpty())
            return diff;
    }
    addMissing(diff, DiffChange::Kind::Removed);
    addMissing(diff, DiffChange::Kind::Added);
    const QSqlRecord columns = ask(u"SELECT * FROM temp.before_rows LIMIT 0"_s).record();
    for (int column = 2; column < columns.count(); ++column) // after rowKey and key
        addChanged(diff, columns.fieldName(column));
    if (!subject.identity.isEmpty()) {
        findRenamed(diff, ask(u"SELECT old.rowKey, min(new.rowKey), old.\"%1\" FROM temp.before_rows AS old JOIN"
                              " temp.after_rows AS new ON new.\"%1\" = old.\"%1\" WHERE"
                              " old.rowKey NOT IN (SELECT rowKey FROM temp.after_rows) AND"
                              " new.rowKey NOT IN (SELECT rowKey FROM temp.before_rows) GROUP BY old.rowKey"_s.arg(
                                  subject.identity)));
    }
    std::stable_sort(diff.changes.begin(), diff.changes.end(), [](const DiffChange &a, const DiffChange &b) {
        return a.kind != b.kind ? a.kind < b.kind : a.key < b.key;
    });
    return diff;
}

void requireCatalogue(const QString &path)
{
    if (const auto problem = catalogueProblem(path))
        throw *problem;
}

} // namespace

QList<SubjectDiff> compareCatalogues(const QString &oldPath, const QString &newPath)
{
    requireCatalogue(oldPath);
    requireCatalogue(newPath);
    AttachedPair pair(oldPath, newPath);
    QList<SubjectDiff> diffs;
    for (const DiffSubject &subject : diffSubjects())
        diffs.append(pair.compare(subject));
    return diffs;
}

} // namespace zrsupply
