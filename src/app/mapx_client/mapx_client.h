#pragma once
// The MapX application a replay plays when it runs with --mapx: MapX installed over the
// embedded engine, and one map of its own built from the workspace's front map window, which
// it hands to RunLayer. The client's map is described property by property, so that the
// transcript can say what the session changed in it.

#include "hostmodel/mapx_map.h"
#include "mapx/mapx_runtime.h"
#include "mapx/style_picker.h"
#include "platform/automation.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vellant::engine {
class Engine;
}
namespace vellant::platform {
class Toolkit;
}

namespace vellant::mapxclient {

// One value of the client's map: "layer 2 Visible" and "T".
using MapXValue = std::pair<std::string, std::string>;

class MapXClient {
public:
    // Registers the MapX classes in the registry for as long as the client lives.
    MapXClient(engine::Engine& engine, platform::Toolkit& toolkit,
               platform::AutomationRegistry& registry, mapx::StylePicker& picker);
    ~MapXClient();
    MapXClient(const MapXClient&) = delete;
    MapXClient& operator=(const MapXClient&) = delete;

    // The front map window's layers, top first, each opened from its table's file and set as the
    // window has it (shown, selectable, zoom range, labels); the window's title becomes the map's.
    // A layer MapX cannot open from a file (a query has none) is left out, its table named in
    // leftOut with the reason. Error 5 when the front window is no map.
    std::shared_ptr<hostmodel::MXMap> openFrontMap(std::vector<std::string>& leftOut);

    // Every value of the map the session may change, layer by layer, in a fixed order.
    static std::vector<MapXValue> describe(hostmodel::MXMap& map);

private:
    // The view takes in every layer's features, as a client opening its map would show it.
    void showWholeMap(hostmodel::MXMap& map);

    engine::Engine& engine_;
    platform::AutomationRegistry& registry_;
    mapx::MapXRuntime runtime_;
};

} // namespace vellant::mapxclient
