// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cataloguekeys_p.h"
#include "hardening_p.h"
#include "preflight_p.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QUrl>

#include <sqlite3.h>

#include <memory>
#include <utility>

namespace ZrSupplyGuard {

namespace {

constexpr int checkMilliseconds = 60'000;

/// The bounds of lookups, but for what the whole file and all of its tables take to look through.
Limits checkLimits()
{
    Limits limits;
    limits.statementMilliseconds = checkMilliseconds;
    limits.programSteps = 0;
    return limits;
}

/// What SQLite answered instead of rows, on its way to where it is known what it means.
struct SqliteError
{
    int code;
    QString text;
};

class Connection
{
public:
    explicit Connection(const QString &path)
    {
        // Immutable: SQLite takes no lock and looks at no journal, so nothing beside the file is opened or made.
        const QByteArray uri = QUrl::fromLocalFile(QDir::current().absoluteFilePath(path)).toEncoded() +
                               QByteArrayLiteral("?mode=ro&immutable=1");
        sqlite3 *opened = nullptr;
        int code = sqlite3_open_v2(uri.constData(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
        m_connection.reset(opened);
        if (code == SQLITE_OK)
            code = harden(opened, checkLimits(), Use::Check);
        if (code != SQLITE_OK)
            throw SqliteError{code, QString::fromUtf8(opened ? sqlite3_errmsg(opened) : sqlite3_errstr(code))};
    }

    /// Calls `visit` with the statement for each row.
    template <typename Visit>
    void ask(const QByteArray &sql, Visit visit)
    {
        sqlite3_stmt *made = nullptr;
        int code = sqlite3_prepare_v2(m_connection.get(), sql.constData(), int(sql.size()), &made, nullptr);
        const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> statement(made, sqlite3_finalize);
        while (code == SQLITE_OK || code == SQLITE_ROW) {
            code = sqlite3_step(made);
            if (code == SQLITE_ROW)
                visit(made);
        }
        if (code != SQLITE_DONE)
            throw SqliteError{code & 0xff, QString::fromUtf8(sqlite3_errmsg(m_connection.get()))};
    }

private:
    struct Closer
    {
        void operator()(sqlite3 *connection) const { sqlite3_close(connection); }
    };
    std::unique_ptr<sqlite3, Closer> m_connection;
};

QString text(sqlite3_stmt *row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)));
}

struct ColumnFacts
{
    // cppcheck-suppress unusedStructMember ; it is read through a map's entry
    QString type;
    bool isComputed = false;
};

struct TableFacts
{
    bool isTable = false;
    bool hasTrigger = false;
    QHash<QString, ColumnFacts> columns; ///< By name in small letters.
};

/// The file's objects as its first table lists them, by name in small letters. Columns are asked for tables alone: to
/// know a view's, SQLite has to follow it.
QHash<QString, TableFacts> readTables(Connection &connection)
{
    QHash<QString, TableFacts> tables;
    QStringList triggered;
    connection.ask("SELECT type, lower(name), lower(tbl_name), rootpage FROM sqlite_schema"_ba,
                   [&](sqlite3_stmt *row) {
                       const QString type = text(row, 0);
                       if (type == "table"_L1 || type == "view"_L1)
                           tables[text(row, 1)].isTable = type == "table"_L1 && sqlite3_column_int(row, 3) > 0;
                       else if (type == "trigger"_L1)
                           triggered.append(text(row, 2));
                   });
    for (const QString &table : std::as_const(triggered))
        tables[table].hasTrigger = true;
    return tables;
}

void readColumns(Connection &connection, QLatin1StringView name, TableFacts &facts)
{
    connection.ask("PRAGMA table_xinfo(\"" + QByteArray(name.data(), name.size()) + "\")", [&](sqlite3_stmt *row) {
        constexpr int hiddenBySqlite = 1; // 0: ordinary, 2 and 3: computed
        facts.columns.insert(text(row, 1).toLower(), {text(row, 2), sqlite3_column_int(row, 6) > hiddenBySqlite});
    });
}

/// The rules by which SQLite reads a declared type, in its order.
Key comparesAs(const QString &type)
{
    const auto holds = [&type](QLatin1StringView part) { return type.contains(part, Qt::CaseInsensitive); };
    if (holds("INT"_L1))
        return Key::Number;
    if (holds("CHAR"_L1) || holds("CLOB"_L1) || holds("TEXT"_L1))
        return Key::Text;
    if (holds("BLOB"_L1) || type.isEmpty() || type.compare("ANY"_L1, Qt::CaseInsensitive) == 0)
        return Key::None;
    return Key::Number;
}

QString columnName(const CatalogueColumn &column)
{
    return column.table + u'.' + column.column;
}

/// Looks through all columns that the library reads; the file's tables stay as they were read.
class TableCheck
{
public:
    TableCheck(QString path, QHash<QString, TableFacts> tables)
        : m_path(std::move(path))
        , m_tables(std::move(tables))
    {
    }

    Problem lacking() const
    {
        QStringList missing;
        QLatin1StringView absent;
        for (const CatalogueColumn &column : catalogueColumns) {
            if (column.table == absent)
                continue;
            const TableFacts *facts = table(column);
            if (!facts) {
                absent = column.table;
                missing.append(u"table "_s + column.table);
            } else if (facts->isTable && !facts->columns.contains(QString(column.column).toLower())) {
                missing.append(u"column "_s + columnName(column));
            }
        }
        if (missing.isEmpty())
            return {};
        constexpr qsizetype shown = 4;
        QString list = missing.mid(0, shown).join(", "_L1);
        if (missing.size() > shown)
            list += u" and %1 more"_s.arg(missing.size() - shown);
        return Preflight{Finding::Lacking, u"%1 is not a supply catalogue: it lacks %2"_s.arg(m_path, list),
                         u"build it with the tables of catalogue.sql, or name another file"_s, missing};
    }

    /// The first column of which `tell` says anything.
    template <typename Tell>
    Problem first(Finding finding, Tell tell) const
    {
        for (const CatalogueColumn &column : catalogueColumns) {
            const QString said = tell(column, *table(column));
            if (!said.isEmpty())
                return Preflight{finding,
                                 m_path + ": "_L1 + said,
                                 u"build the catalogue with the tables of catalogue.sql (zrsupply catalogue build)"_s,
                                 {}};
        }
        return {};
    }

private:
    const TableFacts *table(const CatalogueColumn &column) const
    {
        const auto found = m_tables.constFind(QString(column.table).toLower());
        return found == m_tables.constEnd() ? nullptr : &*found;
    }

    QString m_path;
    QHash<QString, TableFacts> m_tables;
};

Problem tableProblem(const QString &path, QHash<QString, TableFacts> tables)
{
    const TableCheck check(path, std::move(tables));
    if (auto problem = check.lacking())
        return problem;
    const auto facts = [](const CatalogueColumn &column, const TableFacts &table) {
        return table.columns.value(QString(column.column).toLower());
    };
    if (auto problem = check.first(Finding::NotATable, [](const CatalogueColumn &column, const TableFacts &table) {
            return table.isTable ? QString() : column.table + " is not a table but a view or a virtual one"_L1;
        }))
        return problem;
    if (auto problem = check.first(Finding::ComputedColumn, [&](const auto &column, const TableFacts &table) {
            return facts(column, table).isComputed ? columnName(column) + " is computed and not stored"_L1
                                                   : QString();
        }))
        return problem;
    if (auto problem = check.first(Finding::HasTrigger, [](const CatalogueColumn &column, const TableFacts &table) {
            return table.hasTrigger ? column.table + " has a trigger"_L1 : QString();
        }))
        return problem;
    return check.first(Finding::UntypedKey, [&](const auto &column, const TableFacts &table) {
        const QString type = facts(column, table).type;
        if (column.key == Key::None || comparesAs(type) == column.key)
            return QString();
        return u"%1 is declared %2; it is compared as %3"_s.arg(columnName(column),
                                                                type.isEmpty() ? u"without a type"_s : type,
                                                                column.key == Key::Text ? u"text"_s : u"a number"_s);
    });
}

/// The version that the table of facts tells, where there is one; the header's was looked at before.
Problem metaProblem(const QString &path, Connection &connection)
{
    Problem problem;
    connection.ask("SELECT value FROM meta WHERE key='schema_version'"_ba, [&](sqlite3_stmt *row) {
        const QString version = text(row, 0);
        if (version != QString::number(knownSchemaVersion))
            problem = unknownVersion(path, version);
    });
    return problem;
}

/// Reads every value: SQLite fails at one that is longer than the connection's bound.
void readValues(Connection &connection)
{
    QByteArray sql;
    QLatin1StringView table;
    const auto ask = [&] {
        if (!sql.isEmpty())
            connection.ask(sql + ')', [](sqlite3_stmt *) {});
    };
    for (const CatalogueColumn &column : catalogueColumns) {
        const QByteArray test = '"' + QByteArray(column.column.data(), column.column.size()) + "\" IS 'x'";
        if (column.table == table) {
            sql += " OR " + test;
            continue;
        }
        ask();
        table = column.table;
        sql = "SELECT 1 FROM \"" + QByteArray(table.data(), table.size()) + "\" WHERE 0 IS (" + test;
    }
    ask();
}

Problem damageProblem(const QString &path, Connection &connection)
{
    QString verdict;
    connection.ask("PRAGMA quick_check(1)"_ba, [&](sqlite3_stmt *row) { verdict = text(row, 0); });
    if (verdict == "ok"_L1)
        return {};
    return Preflight{Finding::Damaged, u"%1 is damaged: %2"_s.arg(path, verdict.simplified()), rebuildAdvice, {}};
}

Preflight failed(const QString &path, const SqliteError &error, Finding otherwise)
{
    switch (error.code) {
    case SQLITE_TOOBIG:
        return {Finding::GiantValue,
                u"%1 has a value of more than %2 bytes"_s.arg(path).arg(Limits().valueBytes),
                u"make its texts and pictures smaller; zrsupply catalogue check names them"_s,
                {}};
    case SQLITE_INTERRUPT:
        return {Finding::TooSlow,
                u"%1 could not be checked within %2 seconds"_s.arg(path).arg(checkMilliseconds / 1000),
                rebuildAdvice,
                {}};
    default:
        return {otherwise,
                (otherwise == Finding::Damaged ? u"%1 is damaged: %2"_s : u"%1 cannot be read as a database: %2"_s)
                    .arg(path, error.text),
                u"rebuild the catalogue from its sources (zrsupply catalogue build), or take another copy"_s,
                {}};
    }
}

} // namespace

Problem databaseProblem(const QString &path, Depth depth)
{
    Finding meaning = Finding::Unreadable;
    try {
        Connection connection(path);
        QHash<QString, TableFacts> tables = readTables(connection);
        QLatin1StringView previous;
        for (const CatalogueColumn &column : catalogueColumns) {
            TableFacts *facts = nullptr;
            if (const auto found = tables.find(QString(column.table).toLower()); found != tables.end())
                facts = &*found;
            if (facts && facts->isTable && column.table != previous)
                readColumns(connection, column.table, *facts);
            previous = column.table;
        }
        const bool tellsVersion = tables.value(u"meta"_s).isTable;
        if (tellsVersion) {
            if (auto problem = metaProblem(path, connection))
                return problem;
        }
        if (auto problem = tableProblem(path, std::move(tables)))
            return problem;
        if (depth == Depth::Tables)
            return {};
        meaning = Finding::Damaged;
        readValues(connection);
        return damageProblem(path, connection);
    } catch (const SqliteError &error) {
        return failed(path, error, meaning);
    }
}

} // namespace ZrSupplyGuard
