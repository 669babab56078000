// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/database.h"

#include <QtCore/QFile>

#include <sqlite3.h>

namespace zrsupply {

namespace {

DatabaseError errorOf(sqlite3 *database, int code)
{
    if (database == nullptr)
        return {code, QString::fromUtf8(sqlite3_errstr(code))};
    return {sqlite3_extended_errcode(database), QString::fromUtf8(sqlite3_errmsg(database))};
}

} // namespace

void Statement::Finalizer::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3 *database, QByteArrayView sql)
{
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v2(database, sql.data(), int(sql.size()), &statement, nullptr);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        throw errorOf(database, code);
}

void Statement::bind(int placeholder, const SqlValue &value)
{
    sqlite3_stmt *statement = m_statement.get();
    const auto size = sqlite3_uint64(value.bytes.size());
    int code = SQLITE_OK;
    switch (value.kind) {
    case SqlValue::Kind::Null:
        code = sqlite3_bind_null(statement, placeholder);
        break;
    case SqlValue::Kind::Integer:
        code = sqlite3_bind_int64(statement, placeholder, value.integer);
        break;
    case SqlValue::Kind::Real:
        code = sqlite3_bind_double(statement, placeholder, value.real);
        break;
    case SqlValue::Kind::Text:
        code = sqlite3_bind_text64(statement, placeholder, value.bytes.data(), size, SQLITE_STATIC, SQLITE_UTF8);
        break;
    case SqlValue::Kind::Blob:
        // A view without bytes may have no address, which would bind NULL.
        code = size == 0 ? sqlite3_bind_zeroblob(statement, placeholder, 0)
                         : sqlite3_bind_blob64(statement, placeholder, value.bytes.data(), size, SQLITE_STATIC);
        break;
    }
    if (code != SQLITE_OK)
        throw errorOf(sqlite3_db_handle(statement), code);
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    throw errorOf(sqlite3_db_handle(m_statement.get()), code);
}

void Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

bool Statement::insert(const Row &row)
{
    for (size_t i = 0; i < row.size(); ++i)
        bind(int(i) + 1, row[i]);
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_DONE) {
        sqlite3_reset(m_statement.get());
        return true;
    }
    const DatabaseError error = errorOf(sqlite3_db_handle(m_statement.get()), code);
    sqlite3_reset(m_statement.get());
    if (error.code == SQLITE_CONSTRAINT_PRIMARYKEY || error.code == SQLITE_CONSTRAINT_ROWID)
        return false;
    throw error;
}

SqlValue Statement::value(int column) const
{
    sqlite3_stmt *statement = m_statement.get();
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return SqlValue::fromInteger(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return SqlValue::fromReal(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const bool isText = sqlite3_column_type(statement, column) == SQLITE_TEXT;
    const void *const bytes =
        isText ? sqlite3_column_text(statement, column) : sqlite3_column_blob(statement, column);
    const QByteArrayView view(static_cast<const char *>(bytes), sqlite3_column_bytes(statement, column));
    return isText ? SqlValue::fromText(view) : SqlValue::fromBlob(view, {});
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

QByteArray Statement::text(int column) const
{
    const auto *const text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    return {text, sqlite3_column_bytes(m_statement.get(), column)};
}

void Database::Closer::operator()(sqlite3 *database) const
{
    sqlite3_close_v2(database);
}

Database::Database(const QByteArray &name, int flags)
{
    sqlite3 *database = nullptr;
    const int code = sqlite3_open_v2(name.constData(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK)
        throw errorOf(database, code);
    sqlite3_extended_result_codes(database, 1);
}

Database Database::temporary()
{
    return {QByteArray(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
}

Database Database::readOnly(const QString &path)
{
    // A name that begins with "file:" would be taken for a URI.
    const QString name = path.startsWith(u'/') ? path : QStringLiteral("./") + path;
    return {QFile::encodeName(name), SQLITE_OPEN_READONLY};
}

void Database::run(const QByteArray &script)
{
    const int code = sqlite3_exec(m_database.get(), script.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw errorOf(m_database.get(), code);
}

qint64 Database::number(QByteArrayView sql) const
{
    Statement statement = prepare(sql);
    return statement.step() ? statement.integer(0) : 0;
}

void Database::stopWhen(std::function<bool()> asked)
{
    constexpr int steps = 20000;
    m_stop = std::make_unique<std::function<bool()>>(std::move(asked));
    const auto ask = [](void *stop) { return (*static_cast<std::function<bool()> *>(stop))() ? 1 : 0; };
    sqlite3_progress_handler(m_database.get(), steps, ask, m_stop.get());
}

QByteArray sqlName(const QByteArray &name)
{
    return '"' + QByteArray(name).replace('"', "\"\"") + '"';
}

} // namespace zrsupply
