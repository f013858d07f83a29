#pragma once
// A map's FeatureFactory: new features in the map's coordinate system.

#include "hostmodel/mapx_data.h"

namespace vellant::mapx {

class Map;

class FeatureFactory : public hostmodel::MXFeatureFactory {
public:
    explicit FeatureFactory(Map& map) : map_(&map) {}

    std::shared_ptr<hostmodel::MXFeature> CreateRegion(hostmodel::MXRectangle& rectangle,
                                                       hostmodel::MXStyle& style) override;

    // The map has gone; making a feature is then error 91.
    void mapGone() { map_ = nullptr; }

private:
    Map* map_;
};

} // namespace vellant::mapx
