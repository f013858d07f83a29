#pragma once
// The pieces registerCoreLanguage puts together, one file each.

namespace vellant::engine {

class Registry;

void registerVariableStatements(Registry& registry); // Dim, UnDim
void registerCreateStatements(Registry& registry);   // Create Point/Line/Region/...
void registerStringFunctions(Registry& registry);    // Str$, Left$, InStr, Format$ ...
void registerNumberFunctions(Registry& registry);    // Int, Round, Sqr, Minimum ...
void registerStyleFunctions(Registry& registry);     // MakePen, MakeBrush, RGB ...

} // namespace vellant::engine
