#pragma once
// A map's Layers: 1 is the top. Add, CreateLayer, Remove and Move renumber the layers below
// the change, and a client that replays the same calls on another map gets the same order.

#include "hostmodel/mapx_map.h"
#include "mapx/layer.h"

#include <memory>
#include <vector>

namespace vellant::mapx {

class Map;

class Layers : public hostmodel::MXLayers {
public:
    explicit Layers(Map& map) : map_(&map) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(layers_.size()); }
    std::shared_ptr<hostmodel::MXLayer> Item(const Variant& index) override;
    std::shared_ptr<hostmodel::MXLayer> Add(const Variant& source, std::int32_t position) override;
    std::shared_ptr<hostmodel::MXLayer> CreateLayer(const std::string& name,
                                                    const std::string& fileSpec,
                                                    std::int32_t position) override;
    void Remove(const Variant& index) override;
    void RemoveAll() override;
    bool Move(std::int32_t from, std::int32_t to) override;

    const std::vector<std::shared_ptr<Layer>>& all() const { return layers_; }
    // A layer made for this map goes in at position (1 the top; past the last appends).
    std::shared_ptr<hostmodel::MXLayer> insert(std::shared_ptr<Layer> layer, std::int32_t position);
    // The map has gone: its layers leave with it, and the collection can do nothing more.
    void mapGone();

private:
    Map& map();
    const std::shared_ptr<Layer>& at(const Variant& index);
    void take(std::size_t index);

    Map* map_;
    std::vector<std::shared_ptr<Layer>> layers_;
};

} // namespace vellant::mapx
