// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// SQLite's C interface for whoever writes catalogues or reads them whole. Qt SQL would do the same at several times
/// the cost: every text goes through UTF-16 and every value through QVariant, a million rows times eight columns, and
/// a script such as catalogue.sql cannot be run in one piece.
namespace zrsupply {

/// What SQLite complains about, on its way to where it is known which file is concerned.
struct DatabaseError
{
    int code = 0; ///< Extended result code.
    QString message;
};

/// A value of a row. The bytes belong to whoever made the value.
struct SqlValue
{
    enum class Kind { Null, Integer, Real, Text, Blob };

    Kind kind = Kind::Null;
    qint64 integer = 0;
    double real = 0.0;
    QByteArrayView bytes = {};
    QByteArrayView fileName = {}; ///< Of a blob: how the sources call the file that holds it.

    static SqlValue fromInteger(qint64 number) { return {Kind::Integer, number, 0.0, {}, {}}; }
    static SqlValue fromReal(double number) { return {Kind::Real, 0, number, {}, {}}; }
    static SqlValue fromText(QByteArrayView text) { return {Kind::Text, 0, 0.0, text, {}}; }
    static SqlValue fromBlob(QByteArrayView bytes, QByteArrayView fileName)
    {
        return {Kind::Blob, 0, 0.0, bytes, fileName};
    }
};

using Row = std::vector<SqlValue>;

class Statement
{
public:
    Statement(sqlite3 *database, QByteArrayView sql);

    /// Placeholders count from 1. The value's bytes have to live until the next `step()` or `insert()` is done.
    void bind(int placeholder, const SqlValue &value);
    /// Whether there is a row. Throws DatabaseError.
    bool step();
    void reset();
    /// Runs an INSERT with these values. False when the key is there already; throws DatabaseError for anything else.
    bool insert(const Row &row);

    /// Columns count from 0. The bytes are valid until the next `step()`.
    SqlValue value(int column) const;
    qint64 integer(int column) const;
    QByteArray text(int column) const;

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

class Database
{
public:
    /// A private database without a name. It grows on disk in the system's folder for temporary files and is gone
    /// when it is closed, however the process ends.
    static Database temporary();
    /// Throws DatabaseError.
    static Database readOnly(const QString &path);

    /// Runs all statements of a script. Throws DatabaseError.
    void run(const QByteArray &script);
    Statement prepare(QByteArrayView sql) const { return {m_database.get(), sql}; }
    /// First column of the first row as a number, 0 without a row.
    qint64 number(QByteArrayView sql) const;

    /// Asked every few thousand steps; a true answer ends the running statement with an error.
    void stopWhen(std::function<bool()> asked);

private:
    Database(const QByteArray &name, int flags);

    struct Closer
    {
        void operator()(sqlite3 *database) const;
    };
    std::unique_ptr<sqlite3, Closer> m_database;
    std::unique_ptr<std::function<bool()>> m_stop; // at a fixed address, for SQLite
};

/// `name` as an SQL identifier, quotes included.
QByteArray sqlName(const QByteArray &name);

} // namespace zrsupply
