// SPDX-License-Identifier: LGPL-2.1-or-later
#include "fuzzhost.h"

#include "quietlog.h"

#include <QtCore/QCoreApplication>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void answerNull(sqlite3_context *context, int, sqlite3_value **)
{
    sqlite3_result_null(context);
}

int boundConnection(sqlite3 *connection, char **, const void *)
{
    constexpr int steps = 200'000;
    sqlite3_progress_handler(
        connection, steps, [](void *) { return 1; }, nullptr);
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, 1 << 20);
    for (const int arguments : {1, 2})
        sqlite3_create_function(connection, "fts3_tokenizer", arguments, SQLITE_UTF8, nullptr, answerNull, nullptr,
                                nullptr);
    return SQLITE_OK;
}

} // namespace

namespace fuzzhost {

void start(int *argc, char **argv)
{
    // Intentional: never destroyed. Since Qt 6.8 the application, as it ends, closes what Qt's registry of
    // connections holds, and at the end of the process the registry is gone before a static application is.
    [[maybe_unused]] static auto *const application = new QCoreApplication(*argc, argv);
    static const QuietLog quiet;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void boundStatements()
{
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(boundConnection));
}

QString textOf(const std::uint8_t *data, std::size_t size)
{
    if (size > 0 && data[0] == 0xFF) {
        QString text(qsizetype((size - 1) / 2), Qt::Uninitialized);
        std::memcpy(text.data(), data + 1, size_t(text.size()) * 2);
        return text;
    }
    return QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
}

void require(const QString &broken)
{
    if (broken.isEmpty())
        return;
    std::fprintf(stderr, "%s\n", qPrintable(broken));
    std::abort();
}

} // namespace fuzzhost
