// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes as a catalogue file: every lookup comes back, whatever the file says.

#include "fuzzhost.h"
#include "fuzztarget.h"

#include "slotcall.h"

#include "support/metamethods.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

namespace {

QString harmlessText(const QByteArray &parameter)
{
    if (parameter == "ribbonIds")
        return u"12"_s;
    if (parameter == "supplyId" || parameter == "trimmedId")
        return u"4B000912C10404900400"_s;
    return parameter.contains("ibbon") ? u"RIB-TWO"_s : u"CONT-4"_s;
}

/// Whether a method asks nothing that another one does not ask: the shorter form of the one before, or a list of what
/// others answer singly.
bool repeatsAnother(int index)
{
    const QMetaMethod method = methodAt(index);
    const bool isList = method.returnMetaType() == QMetaType::fromType<QVariantList>() ||
                        method.returnMetaType() == QMetaType::fromType<QStringList>();
    return method.name() == methodAt(index - 1).name() || (isList && method.parameterCount() > 0);
}

/// So many methods of the interface that every text is asked.
void askEverything(ZrSupplyDatabase &database)
{
    for (int index = signalCount; index < methodCount; ++index) {
        const QMetaMethod method = methodAt(index);
        if (method.name() == "setup" || repeatsAnother(index))
            continue;
        const QByteArrayList names = method.parameterNames();
        const QVariantList arguments =
            slotcall::arguments(index, [&](int parameter) { return harmlessText(names.at(parameter)); });
        slotcall::byIndex(database, index, arguments);
    }
    database.isSupplyIdShared();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzzhost::start(argc, *argv);
    fuzzhost::boundStatements();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"catalogue.sqlite"_s);
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            fuzzhost::require(u"no file in the temporary folder"_s);
        file.write(reinterpret_cast<const char *>(data), qsizetype(size));
    }
    {
        ZrSupplyDatabase database;
        database.setup(path);
        askEverything(database);
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) ||
        file.readAll() != QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)))
        fuzzhost::require(u"the file has other bytes"_s);
    return 0;
}
