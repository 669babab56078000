// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Catalogue;

/// An SQL text as a host has it before it asks: the statement, and the values for %1, %2 and %3.
struct Text
{
    QLatin1StringView statement;
    QStringList values;

    QString filled() const
    {
        QString text = statement;
        for (const QString &value : values)
            text = text.arg(value);
        return text;
    }
};
using Question = std::vector<Text>;

/// Another way to ask SQLite the same texts: what the library is compared with.
class Way
{
public:
    virtual ~Way() = default;
    /// Runs the texts in turn and takes the first column of the first row of each. They are those handed to
    /// `prepare`.
    virtual void ask(size_t n) = 0;
    /// The questions, made before the clock starts; a way that takes UTF-8 gets its texts ready filled.
    virtual void prepare(const std::vector<Question> &questions) = 0;
};

/// Ways that take UTF-8 texts.
class Utf8Way : public Way
{
public:
    void prepare(const std::vector<Question> &questions) override
    {
        for (const Question &question : questions) {
            m_questions.emplace_back();
            for (const Text &text : question)
                m_questions.back().push_back(text.filled().toStdString());
        }
    }

protected:
    const std::vector<std::string> &question(size_t n) const { return m_questions[n % m_questions.size()]; }

private:
    std::vector<std::vector<std::string>> m_questions;
};

struct WayRow
{
    const char *name;
    std::function<std::unique_ptr<Way>(const Catalogue &)> make;
};

/// raw: the SQLite C interface, the floor, and the first. naive: QSqlQuery as one would write it. bare shape: the
/// same steps with a ready text, which is what of a lookup is Qt's and SQLite's. The others are libraries.
const std::vector<WayRow> &ways();

/// In a file of its own: SOCI's header brings the C interface in a namespace.
std::unique_ptr<Way> makeSociWay(const Catalogue &catalogue);
