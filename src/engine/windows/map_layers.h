#pragma once
// Changes to the list of a map's layers that keep the rest of the map as it is.

#include "engine/windows/map_state.h"

#include <vector>

namespace vellant::engine {

// The layers named come first, in that order, the others after them in their present
// order. 600 for a number the map lacks, the cosmetic layer (0), or one named twice.
void reorderLayers(MapState& map, const std::vector<int>& numbers);

// Numbers as they were before the removal; 600 for one the map lacks or 0. A number named
// twice goes once.
void removeLayers(MapState& map, const std::vector<int>& numbers);

} // namespace vellant::engine
