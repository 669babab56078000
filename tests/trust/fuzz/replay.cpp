// SPDX-License-Identifier: LGPL-2.1-or-later
// Hands the files of a corpus to a target, one after another: what fuzzing has found stays tested without a fuzzer.

#include "fuzztarget.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER...\n", argv[0]);
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QFile::decodeName(argv[i]));
        const QStringList names = folder.entryList(QDir::Files, QDir::Name);
        if (names.isEmpty()) {
            std::fprintf(stderr, "%s holds no file: nothing is replayed\n", argv[i]);
            return 1;
        }
        for (const QString &name : names) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
                return 1;
            }
            // The name stands on standard error when an input ends the process.
            std::fprintf(stderr, "%s\n", qPrintable(name));
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   std::size_t(bytes.size()));
        }
        std::printf("%s: %lld inputs\n", argv[i], static_cast<long long>(names.size()));
    }
    return 0;
}
