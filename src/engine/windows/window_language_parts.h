#pragma once
// The pieces registerWindowLanguage puts together, one file each.

namespace vellant::engine {

class Registry;

void registerMapStatements(Registry& registry);      // Map From, Set Map, Add Map, Remove Map
void registerWindowStatements(Registry& registry);   // Set Window, Close Window, Browse,
                                                     // Set Next Document
void registerSessionStatements(Registry& registry);  // Set Distance/Area/Paper Units,
                                                     // Set CoordSys
void registerLayerInfo(Registry& registry);          // LayerInfo
void registerMapperInfo(Registry& registry);         // MapperInfo
void registerWindowInfo(Registry& registry);         // WindowInfo
void registerWindowFunctions(Registry& registry);    // NumWindows, FrontWindow, WindowID,
                                                     // Distance
void registerThematicStatements(Registry& registry); // Shade

} // namespace vellant::engine
