// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ways.h"

#include "catalogues.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlQueryModel>

#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

class Raw : public Utf8Way
{
public:
    explicit Raw(const Catalogue &catalogue)
        : m_file(rawConnection(catalogue))
    {
    }
    void ask(size_t n) override
    {
        for (const std::string &text : question(n)) {
            sqlite3_stmt *statement = nullptr;
            sqlite3_prepare_v2(m_file, text.c_str(), int(text.size()) + 1, &statement, nullptr);
            if (sqlite3_step(statement) == SQLITE_ROW) {
                auto value = sqlite3_column_text(statement, 0);
                benchmark::DoNotOptimize(value);
            }
            sqlite3_finalize(statement);
        }
    }

private:
    sqlite3 *m_file;
};

class SqliteCpp : public Utf8Way
{
public:
    explicit SqliteCpp(const Catalogue &catalogue)
        : m_file(catalogue.path.toStdString())
    {
    }
    void ask(size_t n) override
    {
        for (const std::string &text : question(n)) {
            SQLite::Statement statement(m_file, text);
            if (statement.executeStep()) {
                auto value = statement.getColumn(0).getText();
                benchmark::DoNotOptimize(value);
            }
        }
    }

private:
    SQLite::Database m_file;
};

/// Ways on a connection of Qt's.
class QtWay : public Way
{
public:
    QtWay(const Catalogue &catalogue, QString connectionName)
        : m_connectionName(std::move(connectionName) + catalogue.path)
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connectionName);
        connection.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        connection.setDatabaseName(catalogue.path);
        if (!connection.open())
            qFatal("%s does not open", qPrintable(catalogue.path));
    }
    ~QtWay() override { QSqlDatabase::removeDatabase(m_connectionName); }
    Q_DISABLE_COPY_MOVE(QtWay)

    void prepare(const std::vector<Question> &questions) override { m_questions = questions; }

protected:
    const Question &question(size_t n) const { return m_questions[n % m_questions.size()]; }

    QString m_connectionName;

private:
    std::vector<Question> m_questions;
};

class Naive : public QtWay
{
public:
    explicit Naive(const Catalogue &catalogue)
        : QtWay(catalogue, u"naive"_s)
        , m_name(m_connectionName.toLatin1())
    {
    }
    void ask(size_t n) override
    {
        for (const Text &text : question(n)) {
            // As one writes it: name and text start as char literals, and the values are filled in one by one.
            QSqlDatabase connection = QSqlDatabase::database(QString::fromLatin1(m_name));
            QVariant value(-1);
            if (connection.isOpen()) {
                QString filled = QString::fromUtf8(text.statement.data(), text.statement.size());
                for (const QString &entry : text.values)
                    filled = filled.arg(entry);
                QSqlQuery query(filled, connection);
                if (query.next())
                    value = query.value(0);
            }
            benchmark::DoNotOptimize(value);
        }
    }

private:
    QByteArray m_name;
};

/// What is left when nothing is the library's own: the texts are filled before the clock starts.
class Bare : public QtWay
{
public:
    explicit Bare(const Catalogue &catalogue)
        : QtWay(catalogue, u"bare"_s)
    {
    }
    void prepare(const std::vector<Question> &questions) override
    {
        for (const Question &question : questions) {
            m_texts.emplace_back();
            for (const Text &text : question)
                m_texts.back().append(text.filled());
        }
    }
    void ask(size_t n) override
    {
        for (const QString &text : m_texts[n % m_texts.size()]) {
            const QSqlDatabase connection = QSqlDatabase::database(m_connectionName, true);
            QVariant value(-1);
            if (connection.isOpen()) {
                QSqlQuery query(text, connection);
                if (query.next())
                    value = query.value(0);
            }
            benchmark::DoNotOptimize(value);
        }
    }

private:
    std::vector<QStringList> m_texts;
};

class Model : public QtWay
{
public:
    explicit Model(const Catalogue &catalogue)
        : QtWay(catalogue, u"model"_s)
    {
    }
    void ask(size_t n) override
    {
        for (const Text &text : question(n)) {
            QSqlQueryModel model;
            model.setQuery(text.filled(), QSqlDatabase::database(m_connectionName));
            auto value = model.data(model.index(0, 0));
            benchmark::DoNotOptimize(value);
        }
    }
};

template <typename Made>
WayRow row(const char *name)
{
    return {name,
            [](const Catalogue &catalogue) -> std::unique_ptr<Way> { return std::make_unique<Made>(catalogue); }};
}

} // namespace

const std::vector<WayRow> &ways()
{
    static const std::vector<WayRow> all = {
        row<Raw>("raw"),       row<Naive>("naive"),     row<SqliteCpp>("SQLiteCpp"),
        {"SOCI", makeSociWay}, row<Bare>("bare shape"), row<Model>("QSqlQueryModel"),
    };
    return all;
}
