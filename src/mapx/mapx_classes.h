#pragma once
// The MapX classes as the desktop's object system offers them: "MapX.Map.4",
// "MapX.LayerInfo.4", "MapX.Feature.4", "MapX.Rectangle.4" and "MapX.Style.4", each new object
// made with the runtime given. A client registers them, as installing MapX would.

#include "mapx/mapx_runtime.h"
#include "platform/automation.h"

namespace vellant::mapx {

void registerMapXClasses(platform::AutomationRegistry& registry, MapXRuntime& runtime);
void unregisterMapXClasses(platform::AutomationRegistry& registry);

} // namespace vellant::mapx
