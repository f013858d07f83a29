#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/tables/table_language_parts.h"

namespace vellant::engine {

void registerTableLanguage(Registry& registry) {
    registerTableStatements(registry);
    registerRowStatements(registry);
    registerSelectStatement(registry);
    registerTableFunctions(registry);
    registerObjectFunctions(registry);
}

} // namespace vellant::engine
