#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"

namespace vellant::engine {

void registerCoreLanguage(Registry& registry) {
    registerVariableStatements(registry);
    registerCreateStatements(registry);
    registerStringFunctions(registry);
    registerNumberFunctions(registry);
    registerStyleFunctions(registry);

    // Run Command text: the text is a statement of its own, with its own end.
    registry.addStatement({"run", "command"}, [](Engine& engine, Cursor& cursor) {
        const std::string command = cursor.stringExpression();
        cursor.expectEnd();
        engine.run(command);
    });
}

} // namespace vellant::engine
