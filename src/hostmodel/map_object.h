#pragma once
// The map object as both hosts offer it to the grid code: MapX's own Map, or the Mapper facade
// over a MapInfo map window. The members grow as the program comes to use them.

#include "base/variant.h"
#include "platform/automation.h"

namespace vellant::hostmodel {

class IMap : public platform::AutomationObject {
public:
    // The map's distance unit: MapX gives a unit code, MapInfo a unit name such as "mi".
    virtual Variant mapunit() = 0;
};

} // namespace vellant::hostmodel
