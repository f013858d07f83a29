#pragma once
// The facade classes as the desktop's object system offers them: creatable by their class names
// ("Vellant.Mapper", ...), each new object bound to the session that registered the classes.

#include "hostmodel/facade_context.h"
#include "platform/automation.h"

namespace vellant::hostmodel {

void registerFacadeClasses(platform::AutomationRegistry& registry, FacadeContext& context);
void unregisterFacadeClasses(platform::AutomationRegistry& registry);

} // namespace vellant::hostmodel
