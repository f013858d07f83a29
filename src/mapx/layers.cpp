#include "mapx/layers.h"

#include "mapx/collection_item.h"
#include "mapx/layer_making.h"
#include "mapx/map.h"

namespace vellant::mapx {

Map& Layers::map() {
    if (map_ == nullptr) raiseError(kErrObjectNotSet);
    return *map_;
}

const std::shared_ptr<Layer>& Layers::at(const Variant& index) {
    return collectionItem(layers_, index, "Layers", [](Layer& l) { return l.Name(); });
}

std::shared_ptr<hostmodel::MXLayer> Layers::Item(const Variant& index) {
    return at(index);
}

std::shared_ptr<hostmodel::MXLayer> Layers::Add(const Variant& source, std::int32_t position) {
    Map& owner = map();
    if (source.type() == VarType::Object) {
        auto* info = dynamic_cast<const LayerInfo*>(source.toObject().get());
        if (info == nullptr) raiseError(kErrTypeMismatch);
        return insert(layerFromInfo(owner, *info), position);
    }
    return insert(layerFromFile(owner, source.toString()), position);
}

std::shared_ptr<hostmodel::MXLayer>
Layers::CreateLayer(const std::string& name, const std::string& fileSpec, std::int32_t position) {
    return insert(emptyLayer(map(), name, fileSpec), position);
}

std::shared_ptr<hostmodel::MXLayer> Layers::insert(std::shared_ptr<Layer> layer,
                                                   std::int32_t position) {
    if (position < 1) raiseError(kErrInvalidCall, "Layer position " + std::to_string(position));
    const bool first = layers_.empty();
    const auto at = std::min<std::size_t>(static_cast<std::size_t>(position) - 1, layers_.size());
    layers_.insert(layers_.begin() + static_cast<std::ptrdiff_t>(at), layer);
    map().layerAdded(*layer, first);
    return layer;
}

void Layers::take(std::size_t index) {
    std::shared_ptr<Layer> layer = layers_[index];
    layers_.erase(layers_.begin() + static_cast<std::ptrdiff_t>(index));
    if (map_ != nullptr) map_->layerRemoved(*layer);
    layer->detach();
}

void Layers::Remove(const Variant& index) {
    const Layer* layer = at(index).get();
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        if (layers_[i].get() == layer) {
            take(i);
            break;
        }
    }
    map().contentChanged();
}

void Layers::RemoveAll() {
    while (!layers_.empty())
        take(layers_.size() - 1);
    map().contentChanged();
}

bool Layers::Move(std::int32_t from, std::int32_t to) {
    const std::shared_ptr<Layer> layer = at(Variant(from));
    at(Variant(to));
    layers_.erase(layers_.begin() + (from - 1));
    layers_.insert(layers_.begin() + (to - 1), layer);
    map().contentChanged();
    return true;
}

void Layers::mapGone() {
    for (const auto& layer : layers_)
        layer->detach();
    layers_.clear();
    map_ = nullptr;
}

} // namespace vellant::mapx
