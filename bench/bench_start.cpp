// SPDX-License-Identifier: LGPL-2.1-or-later
// Process start to first answer, beside an empty QCoreApplication that has loaded the same driver, and beside one
// that has asked the same by QSqlQuery alone. Wall time of a whole process, names start/<program>; the counter is the
// process's private memory in kB.

#include "catalogues.h"

#include <benchmark/benchmark.h>

#include <QtCore/QCoreApplication>

#include <cstdio>
#include <string>

namespace {

long runProbe(const std::string &command)
{
    std::FILE *output = ::popen(command.c_str(), "r");
    long kilobytes = -1;
    if (!output || std::fscanf(output, "%ld", &kilobytes) != 1)
        kilobytes = -1;
    if (output && ::pclose(output) != 0)
        kilobytes = -1;
    return kilobytes;
}

void start(benchmark::State &state, const std::string &program)
{
    const Catalogue &catalogue = Catalogue::ofRolls(1000);
    const std::string command = "exec " + QCoreApplication::applicationDirPath().toStdString() + '/' + program +
                                " '" + catalogue.path.toStdString() + "' '" + catalogue.rolls.front().toStdString() +
                                '\'';
    for (auto _ : state) {
        const long kilobytes = runProbe(command);
        if (kilobytes < 0)
            state.SkipWithError("the probe failed");
        state.counters["private_kB"] = double(kilobytes);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const char *program : {"start_empty", "start_bare", "start_library"}) {
        benchmark::RegisterBenchmark((std::string("start/") + program).c_str(), [program](benchmark::State &s) {
            start(s, program);
        })->UseRealTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
