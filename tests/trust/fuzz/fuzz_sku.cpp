// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes as a SKU, id or name, in a slot that the first byte chooses: nothing is written and nothing else is opened.

#include "fuzzhost.h"
#include "fuzztarget.h"

#include "hostilehost.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Temporary files and the refused analysis of a SELECT are known; no input gets further than that.
QString harmOf(const SqliteWatch &watch)
{
    const SqliteWatch::Counts &counts = watch.counts();
    if (counts.writes + counts.truncations + counts.deletions + counts.writableOpens + counts.otherOpens != 0 ||
        counts.attachments != 0 || watch.attachedDatabases() != 0)
        return watch.misdeeds();
    return QString();
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
    static HostileHost host;
    static const QList<TextPlace> places = HostileHost::places();
    static const QList<int> users = HostileHost::users();
    if (size == 0)
        return 0;
    const std::size_t length = std::min<std::size_t>(size - 1, 4096);
    host.hand(places.at(data[0] % places.size()), fuzzhost::textOf(data + 1, length));
    slotcall::byIndex(host.database(), users.at(data[0] % users.size()), {});
    fuzzhost::require(harmOf(host.watch()));
    if (host.database().supplyMaterial(u"CONT-4"_s) != 1)
        fuzzhost::require(u"the connection answers no more"_s);
    return 0;
}
