// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/// The engine and the command speak of the kit's names as if they were their own.
namespace ZrSupplyKit {
}
namespace zrsupply {
using namespace ZrSupplyKit;
}
