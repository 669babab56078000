// SPDX-License-Identifier: LGPL-2.1-or-later
#include "catalogues.h"
#include "ways.h"

#include <benchmark/benchmark.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

namespace {

class Soci : public Utf8Way
{
public:
    explicit Soci(const Catalogue &catalogue)
        : m_session(soci::sqlite3, catalogue.path.toStdString())
    {
    }
    void ask(size_t n) override
    {
        for (const std::string &text : question(n)) {
            std::string value;
            soci::indicator indicator = soci::i_null;
            m_session << text, soci::into(value, indicator);
            benchmark::DoNotOptimize(value);
        }
    }

private:
    soci::session m_session;
};

} // namespace

std::unique_ptr<Way> makeSociWay(const Catalogue &catalogue)
{
    return std::make_unique<Soci>(catalogue);
}
