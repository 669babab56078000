// SPDX-License-Identifier: LGPL-2.1-or-later
// Asks the library about bad files in a process of its own, under the limits that the test sets.

#include "child.h"

#include <QtCore/QCoreApplication>

#include <zrsupplyguard.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <grp.h>
#include <iterator>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Verb
{
    QLatin1StringView name;
    qsizetype arguments;
    int (*run)(const QStringList &arguments);
};

constexpr Verb verbs[] = {
    {"serve"_L1, 1, child::serve},   {"hold"_L1, 1, child::hold},       {"journal"_L1, 1, child::leaveJournal},
    {"damage"_L1, 3, child::damage}, {"files"_L1, 4, child::failFiles}, {"memory"_L1, 4, child::failMemory},
};

/// Root may read everything, so a test of permissions asks as nobody. Whoever is not root stays who they are.
bool dropPrivileges()
{
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0)
        return true;
    return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0;
}

} // namespace

void child::tell(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    std::putchar('\n');
    std::fflush(stdout);
}

long child::peakKibibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.removeAll(u"--unprivileged"_s) > 0 && !dropPrivileges()) {
        std::perror("trust_child: cannot become nobody");
        return 2;
    }
    if (arguments.removeAll(u"--guard"_s) > 0 && !ZrSupplyGuard::install()) {
        std::fprintf(stderr, "trust_child: no guard\n");
        return 2;
    }
    const auto *verb = std::find_if(std::begin(verbs), std::end(verbs), [&arguments](const Verb &known) {
        return arguments.value(0) == known.name && arguments.size() == known.arguments + 1;
    });
    if (verb != std::end(verbs))
        return verb->run(arguments.mid(1));
    std::fprintf(stderr, "trust_child: unknown verb or a wrong number of arguments\n");
    return 2;
}
