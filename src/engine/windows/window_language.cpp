#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/windows/window_language_parts.h"

namespace vellant::engine {

void registerWindowLanguage(Registry& registry) {
    registerMapStatements(registry);
    registerWindowStatements(registry);
    registerSessionStatements(registry);
    registerLayerInfo(registry);
    registerMapperInfo(registry);
    registerWindowInfo(registry);
    registerWindowFunctions(registry);
    registerThematicStatements(registry);
}

} // namespace vellant::engine
