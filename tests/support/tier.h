// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QtGlobal>

/// How much a test with random or exhaustive input does, by the environment variable ZR_TIER: "quick" (or unset) in
/// every test run, "ci" in continuous integration, "verify" where everything is asked for.
enum class Tier { Quick, Ci, Verify };

inline Tier tier()
{
    const QByteArray name = qgetenv("ZR_TIER");
    if (name == "verify")
        return Tier::Verify;
    if (name == "ci")
        return Tier::Ci;
    return Tier::Quick;
}

template <typename Number>
Number byTier(Number quick, Number ci, Number verify)
{
    switch (tier()) {
    case Tier::Verify:
        return verify;
    case Tier::Ci:
        return ci;
    case Tier::Quick:
        break;
    }
    return quick;
}
