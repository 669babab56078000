// SPDX-License-Identifier: LGPL-2.1-or-later
#include "build/cataloguewriter.h"
#include "build/interrupt.h"
#include "build/sourcewriter.h"
#include "cli/commandline.h"
#include "cli/output.h"
#include "generate/generator.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Passes rows on and counts them where they go.
class CountingSink : public RowSink
{
public:
    CountingSink(RowSink &target, Progress &progress)
        : m_target(target)
        , m_progress(progress)
    {
    }

    void beginTable(const SourceTable &table) override
    {
        m_progress.stage(QString::fromUtf8(table.name));
        m_target.beginTable(table);
    }
    bool addRow(const Row &row) override
    {
        m_progress.tick();
        ++m_rows;
        return m_target.addRow(row);
    }
    void endTable() override { m_target.endTable(); }

    qint64 rows() const { return m_rows; }

private:
    RowSink &m_target;
    Progress &m_progress;
    qint64 m_rows = 0;
};

qint64 numberOf(const Invocation &call, const QString &option, qint64 otherwise, qint64 least, qint64 most)
{
    const qint64 number = call.has(option) ? call.value(option).toLongLong() : otherwise;
    if (number < least || number > most)
        throw usageFailure(call.command(),
                           u"--%1 is %2 to %3, not %4"_s.arg(option).arg(least).arg(most).arg(number));
    return number;
}

GeneratorSettings settingsOf(const Invocation &call)
{
    if (!call.has(u"rolls"_s))
        throw usageFailure(call.command(), u"the number of rolls is not given: --rolls N"_s);
    GeneratorSettings settings;
    settings.rolls = numberOf(call, u"rolls"_s, 0, 1, GeneratorSettings::mostRolls);
    settings.ribbons = int(numberOf(call, u"ribbons"_s, settings.ribbons, 1, GeneratorSettings::mostRibbons));
    settings.languages = int(numberOf(call, u"languages"_s, settings.languages, 1, GeneratorSettings::mostLanguages));
    settings.seed = quint64(numberOf(call, u"seed"_s, 1, 0, std::numeric_limits<int>::max()));
    return settings;
}

bool namesFile(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "sqlite"_L1 || suffix == "sqlite3"_L1 || suffix == "db"_L1;
}

Status generate(const Invocation &call, Output &out)
{
    const GeneratorSettings settings = settingsOf(call);
    if (!call.has(u"output"_s))
        throw usageFailure(call.command(), u"the place to write is not named: -o FILE or -o DIR"_s);
    const QString output = call.value(u"output"_s);

    Progress progress(!call.json());
    qint64 rows = 0;
    QByteArray checksum;
    try {
        if (namesFile(output)) {
            CatalogueWriter writer(output, progress);
            CountingSink sink(writer, progress);
            generateCatalogue(settings, sink);
            writer.publish();
            rows = sink.rows();
            checksum = writer.checksum();
        } else {
            SourceWriter writer(output);
            CountingSink sink(writer, progress);
            generateCatalogue(settings, sink);
            writer.publish();
            rows = sink.rows();
            checksum = writer.checksum();
        }
    } catch (const DatabaseError &error) {
        throw writingFailed(error);
    }
    progress.clear();

    Answer answer(output);
    answer.addJson(u"output"_s, output);
    answer.add(u"rows"_s, u"Rows"_s, {rows, QLocale::c().toString(rows)});
    answer.add(u"checksum"_s, u"Checksum"_s, {QString::fromLatin1(checksum), QString::fromLatin1(checksum)});
    out.write(answer);
    return Status::Ok;
}

Status run(const Invocation &call, Output &out)
{
    return cleaningUpAfterSignals([&] { return generate(call, out); });
}

} // namespace

Command catalogueGenerateCommand()
{
    return {
        u"catalogue generate"_s,
        u"Make up a catalogue of any size, for benchmarks and stress tests"_s,
        u"Every row follows from its number and the seed: the same options give the same catalogue, and memory does "
        "not grow with its size. Supply ids say what the rows say, no two rolls share one, all names are there in all "
        "languages, every roll has a ribbon that prints on it. The last part of the name tells what is written: "
        "a catalogue file when it is .sqlite, .sqlite3 or .db, else a folder with sources."_s,
        {},
        {{u"rolls"_s, u"Number of rolls, 1 to 1000000"_s, Value::Integer, u"N"_s},
         {u"ribbons"_s, u"Number of ribbons, 1 to 100000; 30 when not given"_s, Value::Integer, u"N"_s},
         {u"languages"_s, u"Number of languages, 1 to 100; 6 when not given"_s, Value::Integer, u"N"_s},
         {u"seed"_s, u"Where chance begins; 1 when not given"_s, Value::Integer, u"N"_s},
         {u"output"_s, u"Catalogue file or folder to write"_s, Value::File, u"FILE|DIR"_s, {}, {}, u"o"_s}},
        {{u"catalogue generate --rolls 100000 --ribbons 1000 --languages 10 -o big.sqlite"_s,
          u"A catalogue file of 100,000 rolls."_s},
         {u"catalogue generate --rolls 200 --seed 7 -o sources"_s, u"The sources of a small one."_s}},
        {{Status::Ok, u"written"_s},
         {Status::Failed, u"the output cannot be written"_s},
         {Status::Usage, u"a wrong call"_s}},
        run,
    };
}

} // namespace zrsupply
