#pragma once
// A MapX layer as the engine layer the renderer draws: its table, its display (off, in its
// objects' own styles, or in the layer's style when OverrideStyle is set), its toggles, its
// zoom range and its labels, with zoom limits turned from MapUnit into metres.

#include "engine/windows/layer.h"

#include <filesystem>
#include <vector>

namespace vellant::mapx {

class Layer;
class Map;

engine::Layer engineLayerOf(Layer& layer, double metresPerMapUnit,
                            const std::filesystem::path& bitmapFolder);

// The map's layers, top first, as the renderer takes them.
std::vector<engine::Layer> engineLayersOf(Map& map);

} // namespace vellant::mapx
