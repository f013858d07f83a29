#include "engine/windows/map_state.h"

#include <algorithm>
#include <cctype>

namespace vellant::engine {

namespace {

bool sameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

} // namespace

Layer* MapState::layerAt(int number) {
    return const_cast<Layer*>(static_cast<const MapState&>(*this).layerAt(number));
}

const Layer* MapState::layerAt(int number) const {
    if (number == 0) return &cosmetic;
    if (number < 0 || number > layerCount()) return nullptr;
    return &layers[static_cast<std::size_t>(number - 1)];
}

int MapState::findLayer(std::string_view name) const {
    for (int i = 0; i < layerCount(); ++i)
        if (sameName(layers[static_cast<std::size_t>(i)].name, name)) return i + 1;
    if (sameName(cosmetic.name, name)) return 0;
    return -1;
}

bool MapState::hasCosmeticObjects() const {
    return std::ranges::any_of(cosmeticObjects,
                               [](const auto& object) { return object != nullptr; });
}

int MapState::editableLayer() const {
    if (cosmetic.editable) return 0;
    for (int i = 0; i < layerCount(); ++i)
        if (layers[static_cast<std::size_t>(i)].editable) return i + 1;
    return -1;
}

void MapState::setEditable(int number, bool on) {
    Layer* target = layerAt(number);
    if (!target) return;
    if (on) {
        cosmetic.editable = false;
        for (Layer& layer : layers)
            layer.editable = false;
    }
    target->editable = on;
}

} // namespace vellant::engine
