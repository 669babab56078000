// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes as the text of a tag: the decoder agrees with the slow reading of it, and reads 24 characters.

#include "fuzzhost.h"
#include "fuzztarget.h"

#include "support/tagreference.h"

#include <tag/supplyc.h>

using namespace Qt::Literals::StringLiterals;
using TagReference::linesOf;
using TagReference::valuesOf;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzzhost::start(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // The second half goes to the record that the first one has filled.
    const QString first = fuzzhost::textOf(data, size / 2);
    const QString second = fuzzhost::textOf(data + size / 2, size - size / 2);
    SupplyC tag(first);
    TagRecord reference;
    for (const QString &text : {first, second}) {
        tag.decode(text);
        TagReference::decode(text, reference);
        if (valuesOf(tag) != valuesOf(reference))
            fuzzhost::require(linesOf(tag).join(u' ') + u" is not "_s + linesOf(reference).join(u' '));
        SupplyC cut(first);
        cut.decode(text.left(24));
        SupplyC whole(first);
        whole.decode(text);
        if (valuesOf(cut) != valuesOf(whole))
            fuzzhost::require(u"more than 24 characters are read"_s);
    }
    return 0;
}
