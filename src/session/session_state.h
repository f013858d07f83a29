#pragma once
// Session-wide state of the public methods and the host attachment.

#include "base/int16.h"
#include "hostmodel/map_object.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::session {

class LayerForm;
class vlLayerControl;
class vlLayerDocked;

struct SessionState {
    // -1 the MapInfo host, 0 the MapX host; fixed for a session.
    Flag gIsMapInfo = kFalse;
    // The form of this session; every late-bound form call goes through it.
    LayerForm* gLayerForm = nullptr;
    std::unique_ptr<vlLayerControl> gFloatingForm;
    std::unique_ptr<vlLayerDocked> gDockedForm;
    Flag gFormReady = kFalse;
    Flag gAccepted = kFalse;
    Flag gShuttingDown = kFalse;
    // The session is to close and open again at once; any log line clears it.
    Flag gRestart = kFalse;
    std::string gComputerName;

    // The map object: the MapX map of the caller, or the Mapper facade.
    std::shared_ptr<hostmodel::IMap> gMap;
};

} // namespace vellant::session
