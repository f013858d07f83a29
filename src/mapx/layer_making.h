#pragma once
// The layers Layers.Add and CreateLayer make: from a table file, from a LayerInfo, or empty.
// Each gets a table of its own; a file that cannot be opened is the engine's error 825 as a
// run-time error, and no layer is made.

#include "mapx/layer.h"
#include "mapx/layer_info.h"

#include <memory>
#include <string>

namespace vellant::mapx {

class Map;

// The table file's layer, named after the file ("World" for ".../world.tab").
std::shared_ptr<Layer> layerFromFile(Map& map, const std::string& fileSpec);
// Type 0, 2 or 3 opens "FileSpec" (named "Name" when given); type 6 makes a temporary layer
// named "Name" with a copy of the "Features" given. Any other type is error 380.
std::shared_ptr<Layer> layerFromInfo(Map& map, const LayerInfo& info);
// A layer with no features: a temporary one when fileSpec is empty, otherwise a new table
// written to that file. It takes the map's coordinate system.
std::shared_ptr<Layer> emptyLayer(Map& map, const std::string& name, const std::string& fileSpec);

} // namespace vellant::mapx
