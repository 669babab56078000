// SPDX-License-Identifier: LGPL-2.1-or-later
#include "supplies.h"

#include <zrsupplydatabase.h>

std::unique_ptr<QObject> makeSupplies()
{
    return std::make_unique<ZrSupplyDatabase>();
}
