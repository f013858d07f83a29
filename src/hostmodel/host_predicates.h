#pragma once
// Small questions the grid asks of the host model: which layer a facade get reads, whether a
// window is a map or still open, what a layer holds, whether a cell applies to it, and the
// switch that stops the view map drawing during a batch of changes.

#include "hostmodel/facade_context.h"

#include <cstdint>
#include <string>

namespace vellant::hostmodel {

class ILayer;

// The layer a facade get reads: the clicked row's while a click is dispatched and no toggle
// walk is on, otherwise gLayer.
std::int16_t CurrentLayerIndex(const FacadeContext& context);

// False on the MapX host; on the MapInfo host whether the window is a map window.
bool isMapper(FacadeContext& context, std::int32_t windowId);

// Whether a window of that id is open in MapInfo; false for 0 without asking.
bool IsWindowOpen(FacadeContext& context, std::int32_t windowId);

// The layer's main feature type when gLayerType is 0, otherwise 4 without asking.
std::int16_t GetFeatureType(FacadeContext& context, ILayer& layer);

// True when a cell does not apply: not capable, a raster or thematic layer, or the cosmetic
// layer for every column but "editable" and "selectable".
bool isgraycell(FacadeContext& context, bool capable, const std::string& key);

// The layer's table is read-only; always false on the MapX host.
bool IsLayerReadonly(FacadeContext& context);

// "on" or "off": starts or stops the drawing of the view map.
void MapRedraw(FacadeContext& context, const std::string& onoff);

} // namespace vellant::hostmodel
