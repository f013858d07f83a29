#include "engine/windows/map_layers.h"

#include "engine/windows/window_errors.h"

#include <algorithm>
#include <functional>
#include <string>

namespace vellant::engine {

void reorderLayers(MapState& map, const std::vector<int>& numbers) {
    std::vector<bool> listed(static_cast<std::size_t>(map.layerCount()) + 1, false);
    for (int n : numbers) {
        if (n < 1 || n > map.layerCount() || listed[static_cast<std::size_t>(n)]) {
            raiseInvalidLayer(std::to_string(n));
        }
        listed[static_cast<std::size_t>(n)] = true;
    }
    std::vector<Layer> reordered;
    reordered.reserve(map.layers.size());
    for (int n : numbers)
        reordered.push_back(std::move(map.layers[static_cast<std::size_t>(n - 1)]));
    for (int n = 1; n <= map.layerCount(); ++n) {
        if (!listed[static_cast<std::size_t>(n)]) {
            reordered.push_back(std::move(map.layers[static_cast<std::size_t>(n - 1)]));
        }
    }
    map.layers = std::move(reordered);
}

void removeLayers(MapState& map, const std::vector<int>& numbers) {
    for (int n : numbers)
        if (n < 1 || n > map.layerCount()) raiseInvalidLayer(std::to_string(n));
    std::vector<int> sorted = numbers;
    std::ranges::sort(sorted, std::greater<>());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (int n : sorted)
        map.layers.erase(map.layers.begin() + (n - 1));
}

} // namespace vellant::engine
