#pragma once
// Session-wide state of the public methods and the host attachment.

#include "base/int16.h"
#include "hostmodel/map_object.h"
#include "hostmodel/mapinfo_app.h"
#include "platform/toolkit.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::interaction {
class Label_Orientation;
class EditCell;
} // namespace vellant::interaction

namespace vellant::support {
class VLInfo;
class vlFeedback;
} // namespace vellant::support

namespace vellant::session {

class LayerForm;
class vlLayerControl;
class vlLayerDocked;
class MICallback;

struct SessionState {
    // -1 the MapInfo host, 0 the MapX host; fixed for a session.
    Flag gIsMapInfo = kFalse;
    // The form of this session; every late-bound form call goes through it.
    LayerForm* gLayerForm = nullptr;
    std::unique_ptr<vlLayerControl> gFloatingForm;
    std::unique_ptr<vlLayerDocked> gDockedForm;
    // The label orientation picker: one instance, hidden after use and kept until shutdown.
    std::unique_ptr<interaction::Label_Orientation> gLabelOrient;
    // The cell editor: made on first use, unloaded by every caller after use.
    std::unique_ptr<interaction::EditCell> gEditCell;
    // The information form and the problem report: made on first reference, unloaded at the end.
    std::unique_ptr<support::VLInfo> gInfoForm;
    std::unique_ptr<support::vlFeedback> gFeedbackForm;
    Flag gFormReady = kFalse;
    Flag gAccepted = kFalse;
    Flag gShuttingDown = kFalse;
    // The session is to close and open again at once; any log line clears it.
    Flag gRestart = kFalse;
    std::string gComputerName;

    // MapInfo's automation object, the companion program and its globals, and the call-back
    // object handed to MapInfo. gMBGlobals is the companion whose globals are read.
    std::shared_ptr<hostmodel::MapInfoApp> gMapInfo;
    hostmodel::MBApplication* gMBApp = nullptr;
    hostmodel::MBApplication* gMBGlobals = nullptr;
    std::shared_ptr<MICallback> gCallback;

    // The host objects: the caller's MapX objects, or the one instance of each facade.
    std::shared_ptr<hostmodel::IMap> gMap;
    std::shared_ptr<hostmodel::ILayer> gLyr;
    std::shared_ptr<hostmodel::ILayer> gViewLyr;
    std::shared_ptr<hostmodel::IStyle> gStyle;
    std::shared_ptr<hostmodel::ILabelProps> gLabelProps;
    std::shared_ptr<hostmodel::ILabelProps> gViewLabelProps;
    std::shared_ptr<platform::AutomationObject> gLabelStyle;

    // MapInfo window ids: the user's map, the view map (the user's own in IMMEDIATE mode), and
    // the clone that is made but not worked on in IMMEDIATE mode.
    std::int32_t gMapWin = 0;
    std::int32_t gViewWin = 0;
    std::int32_t gSpareWin = 0;
    std::int32_t gMIHwnd = 0;

    // How the two maps relate: the user's centre, both window widths, the view's zoom, and the
    // zoom that gives the view the user's scale.
    float gCenterX = 0;
    float gCenterY = 0;
    float gMapWidth = 0;
    float gViewWidth = 0;
    float gViewZoom = 0;
    float gScaleZoom = 0;
    // Where the user's map window stood when the session began.
    float gMapLeft = 0;
    float gMapTop = 0;
    float gMapHeightSaved = 0;
    float gMapWidthSaved = 0;
    // MapInfo reported a change of the user's map in IMMEDIATE mode.
    Flag gMapChanged = kFalse;

    // The form's size at the end of the last layout (at load before the first). Kept wider than
    // 16 bits: a docked form spans the screen, and a wide screen passes 32767 twips.
    std::int32_t gFormWidthSaved = 0;
    std::int32_t gFormHeightSaved = 0;
    // The form's size differs from the saved one: the user has dragged the docked form's edge.
    Flag gFormSized = kFalse;
    // The docked form's height at the last tick of its timer.
    std::int32_t gDockedFormHeight = 0;
    // Set around the docked form's first layout; nothing reads it.
    Flag gResizing = kFalse;
    // Where MapInfo's main window stands, as the desktop last told it. A query that fails leaves
    // the last answer in place; before the first, the record is all zeros but its length.
    platform::WindowPlacement gMIPlacement{.length = 44,
                                           .flags = 0,
                                           .showCmd = 0,
                                           .ptMinPosition = {},
                                           .ptMaxPosition = {},
                                           .rcNormalPosition = {}};
};

} // namespace vellant::session
