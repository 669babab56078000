// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A catalogue file in a folder of its own: the schema, the rows of tests/data/fixture.sql, and what a test adds.
class FixtureCatalogue
{
public:
    /// Rows of the fixture or none; stops the test program when the scripts do not run.
    enum class Rows { Fixture, None };
    explicit FixtureCatalogue(Rows rows = Rows::Fixture);

    QString path() const;
    /// Runs a script of one or more SQL statements on the file, over a connection of its own.
    void run(const QString &sql) const;
    /// The file as it is on disk.
    QByteArray bytes() const;

private:
    QTemporaryDir m_folder;
};

/// What `QSqlDatabase::removeDatabase` and a failed open print is not under test: silences Qt's messages while it
/// lives.
class QuietQt
{
public:
    QuietQt();
    ~QuietQt();
    Q_DISABLE_COPY_MOVE(QuietQt)

private:
    QtMessageHandler m_previous;
};
