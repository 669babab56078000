// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes as the choices of a sequence of calls: the object and the model of it say and keep the same.

#include "fuzzhost.h"
#include "fuzztarget.h"

#include "callsequence.h"

namespace {

/// A byte a choice, two where one is not enough; zeros behind the last one.
class ByteSource : public ChoiceSource
{
public:
    ByteSource(const std::uint8_t *data, std::size_t size)
        : m_next(data)
        , m_end(data + size)
    {
    }
    int below(int limit) override
    {
        int choice = 0;
        for (int range = 1; range < limit && m_next != m_end; range *= 256)
            choice = choice * 256 + *m_next++;
        return choice % limit;
    }
    bool isEmpty() const { return m_next == m_end; }

private:
    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzzhost::start(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static CallSequences sequences;
    ByteSource choices(data, size);
    fuzzhost::require(sequences.play(sequences.steps(choices, int(size / 8) + 1)));
    return 0;
}
