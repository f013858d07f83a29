#pragma once
// What a MapX application sets on a layer it opens so that its map looks as the workspace's map
// window does: shown or not, selectable, zoom range, automatic labels, the labels' field, font,
// visibility and placement. A MapX label shows a field of a dataset, so a label expression that
// names no column of the table leaves the layer without a label field.

#include "hostmodel/mapx_map.h"

#include <string>

namespace vellant::engine {
class Engine;
}

namespace vellant::mapxclient {

// layerAt is "<window>,<layer>" as LayerInfo takes them.
void takeWorkspaceLayerSettings(engine::Engine& engine, hostmodel::MXMap& map,
                                hostmodel::MXLayer& layer, const std::string& layerAt);

} // namespace vellant::mapxclient
