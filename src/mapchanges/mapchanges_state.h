#pragma once
// Module-wide state of the changes to the view map: the journal of layer operations that the
// MapX host's commit replays on the user's map, and the map tool last chosen. Session
// inherits it.

#include "base/fixed_array.h"

#include <cstdint>
#include <string>

namespace vellant::mapchanges {

// Entries the journal holds.
constexpr long kLayerOpCapacity = 200;

template <class T> using LayerOpArray = FixedArray<T, 0, kLayerOpCapacity - 1>;

struct MapChangesState {
    // Entries in use; emptied when the floating form loads. It grows before the bound is
    // checked, so an operation past the last entry leaves it one too high.
    std::int16_t gLayerOpCount = 0;
    // "remove", "add" or "move".
    LayerOpArray<std::string> gLayerOpKind;
    // The layer removed, the position of an add, the source of a move.
    LayerOpArray<std::int16_t> gLayerOpFrom;
    // Where a move puts the layer.
    LayerOpArray<std::int16_t> gLayerOpTo;
    // The table file an add opened.
    LayerOpArray<std::string> gLayerOpFile;

    // The map tool the user chose last, by MapInfo's menu command number; nothing reads it.
    std::int16_t gMapTool = 0;
};

} // namespace vellant::mapchanges
