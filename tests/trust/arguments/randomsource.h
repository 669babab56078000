// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/qglobal.h>

#include <cstddef>
#include <iterator>
#include <random>

/// Where the choices of a generated test come from: a seeded generator, or the bytes of a fuzzer.
class ChoiceSource
{
public:
    ChoiceSource() = default;
    virtual ~ChoiceSource() = default;
    Q_DISABLE_COPY_MOVE(ChoiceSource)

    /// 0 to `limit` - 1.
    virtual int below(int limit) = 0;

    bool chance(int percent) { return below(100) < percent; }
    template <typename List>
    const auto &oneOf(const List &list)
    {
        return *std::next(std::begin(list), below(int(std::size(list))));
    }
};

/// The same choices for the same seed, in every run and on every machine.
class RandomSource : public ChoiceSource
{
public:
    explicit RandomSource(unsigned seed)
        : m_engine(seed)
    {
    }
    int below(int limit) override { return int(m_engine() % unsigned(limit)); }

private:
    std::mt19937 m_engine;
};

/// The seed of a test: ZR_SEED of the environment, so that a failure can be repeated and other input tried.
inline unsigned testSeed()
{
    bool given = false;
    const int seed = qEnvironmentVariableIntValue("ZR_SEED", &given);
    return given ? unsigned(seed) : 20261121u;
}
