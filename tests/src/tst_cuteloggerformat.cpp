// SPDX-License-Identifier: LGPL-2.1-or-later
// The logger that is built where no CuteLogger is installed: how an appender turns a record into text.

#include <AbstractStringAppender.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TextAppender : public AbstractStringAppender
{
public:
    QString text(Logger::LogLevel level, const char *function, const QString &category, const QString &message) const
    {
        const QDateTime time(QDate(2024, 2, 29), QTime(13, 5, 7, 42));
        return formattedString(time, level, "roll.cpp", 12, function, category, message);
    }

protected:
    void append(const QDateTime &, Logger::LogLevel, const char *, int, const char *, const QString &,
                const QString &) override
    {
    }
};

} // namespace

class TestCuteLoggerFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void format_data();
    void format();
    void functionName_data();
    void functionName();
};

void TestCuteLoggerFormat::format_data()
{
    QTest::addColumn<QString>("format"); // null: not set
    QTest::addColumn<Logger::LogLevel>("level");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QString &format, const QString &text,
                        const QString &message = u"text"_s, Logger::LogLevel level = Logger::Info,
                        const QString &category = u"rolls"_s) {
        QTest::addRow("%s", name) << format << level << category << message << text;
    };
    row("not set", QString(), u"2024-02-29T13:05:07.042 [Info   ] <Roll::load> text"_s);
    row("every value", u"%{type}|%{file}|%{line}|%{function}|%{category}|%{message}"_s,
        u"Info|roll.cpp|12|Roll::load|rolls|text"_s);
    row("time format with colons", u"%{time:dd.MM.yyyy hh:mm}"_s, u"29.02.2024 13:05"_s);
    row("widths", u"[%{type:6}][%{type:-6}][%{type:2}]"_s, u"[  Info][Info  ][Info]"_s);
    row("placeholder in the message", u"%{message}"_s, u"%{type}"_s, u"%{type}"_s);
    row("unknown placeholder", u"%{colour} %{message}"_s, u"%{colour} text"_s);
    row("open placeholder", u"%{message} %{type"_s, u"text %{type"_s);
    row("no placeholder", u"100 %"_s, u"100 %"_s);
    row("category shown", u"%{if-category}%{category}: %{endif}%{message}"_s, u"rolls: text"_s);
    row("category left out", u"%{if-category}%{category}: %{endif}%{message}"_s, u"text"_s, u"text"_s, Logger::Info,
        u""_s);
    const QString conditions = u"%{if-debug}D%{endif}%{if-info}I%{endif}%{if-warning}W%{endif}%{if-critical}C%{endif}"
                               "%{if-fatal}F%{endif}"_s;
    row("condition of trace", conditions, u"D"_s, u""_s, Logger::Trace);
    row("condition of debug", conditions, u"D"_s, u""_s, Logger::Debug);
    row("condition of info", conditions, u"I"_s, u""_s, Logger::Info);
    row("condition of warning", conditions, u"W"_s, u""_s, Logger::Warning);
    row("condition of error", conditions, u"C"_s, u""_s, Logger::Error);
    row("condition of fatal", conditions, u"F"_s, u""_s, Logger::Fatal);
}

void TestCuteLoggerFormat::format()
{
    QFETCH(const QString, format);
    QFETCH(const Logger::LogLevel, level);
    QFETCH(const QString, category);
    QFETCH(const QString, message);
    TextAppender appender;
    if (!format.isNull()) {
        appender.setFormat(format);
        QCOMPARE(appender.format(), format);
    }
    QTEST(appender.text(level, "bool Roll::load(int)", category, message), "text");
}

void TestCuteLoggerFormat::functionName_data()
{
    QTest::addColumn<QString>("name");
    const auto row = [](const char *function, const QString &name) { QTest::addRow("%s", function) << name; };
    row("bool ZrSupplyDatabase::setup(QString, QString)", u"ZrSupplyDatabase::setup"_s);
    row("main", u"main"_s);
    row("Roll::Roll(const Roll&)", u"Roll::Roll"_s);
    row("const char* Roll::name(int) const", u"Roll::name"_s);
    row("virtual std::map<int, QString> ns::Roll::all()", u"ns::Roll::all"_s);
    row("void Roll::each(void (*)(int))", u"Roll::each"_s);
    row("T List<T>::at(int) [with T = int]", u"List<T>::at"_s);
    row("T List<T>::at(int) [with T = QList<int>]", u"List<T>::at"_s);
    row("bool Roll::operator<(const Roll&) const", u"Roll::operator<"_s);
    row("void Roll::operator()(int)", u"Roll::operator()"_s);
    row("Roll::operator bool() const", u"Roll::operator bool"_s);
    row("(anonymous namespace)::load()", u"(anonymous namespace)::load"_s);
    row("Roll::load()::<lambda(int)>", u"Roll::load()::<lambda(int)>"_s);
}

void TestCuteLoggerFormat::functionName()
{
    QTEST(AbstractStringAppender::stripFunctionName(QTest::currentDataTag()), "name");
}

QTEST_GUILESS_MAIN(TestCuteLoggerFormat)

#include "tst_cuteloggerformat.moc"
