#include "supplies.h"

#include <zrsupplydatabase.h>

std::unique_ptr<QObject> makeSupplies()
{
    return std::make_unique<ZrSupplyDatabase>();
}
