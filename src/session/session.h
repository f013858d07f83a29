#pragma once
// The Session: all module-wide state of one session, gathered from the subsystems that own it,
// plus the platform services it runs on. Procedures are free functions taking Session&. The
// session is also what the host facades read (FacadeContext): they sit below the program and
// learn the windows, the current layer and where to report failures through it.

#include "grid/grid_state.h"
#include "hostmodel/facade_context.h"
#include "interaction/click_state.h"
#include "mapchanges/mapchanges_state.h"
#include "platform/automation.h"
#include "platform/toolkit.h"
#include "prefs/prefs_state.h"
#include "session/layer_form.h"
#include "session/session_state.h"
#include "styles/style_state.h"

#include <functional>
#include <string>
#include <vector>

namespace vellant::session {

struct Session : SessionState,
                 prefs::PrefsState,
                 grid::GridState,
                 interaction::ClickState,
                 mapchanges::MapChangesState,
                 styles::StyleState,
                 hostmodel::FacadeContext {
    // The application directory holds Vellant.prf and Vellant.log; the host hands it over. The
    // registry is where running hosts are found and the program's classes are created; without
    // one the session keeps a registry of its own.
    Session(platform::Toolkit& toolkit, std::string appPath,
            platform::AutomationRegistry* registry = nullptr);
    ~Session() override;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    platform::Toolkit& toolkit;
    const std::string appPath;
    platform::AutomationRegistry& registry;
    // Machines whose log lines are also shown in a message box; none by default.
    std::vector<std::string> developerMachines;
    // Told every line the log gets, after it is written (the replay runner's transcript).
    std::function<void(const std::string&)> onLogLine;

    // The current form and the map, with the runtime's error 91 when there is none.
    LayerForm& layerForm() const;
    hostmodel::IMap& map() const;
    hostmodel::MapInfoApp& mapInfoApp() const;
    hostmodel::ILayer& lyr() const;
    hostmodel::ILabelProps& labelProps() const;
    hostmodel::ILabelProps& viewLabelProps() const;
    // Lets go of the host objects, the companion and the call-back: what a session holds of
    // MapInfo besides the automation object itself.
    void releaseHostObjects();

    // FacadeContext.
    hostmodel::MapInfoApp& mapInfo() override { return mapInfoApp(); }
    bool isMapInfoHost() const override { return gIsMapInfo != kFalse; }
    std::int32_t viewWindow() const override { return gViewWin; }
    std::int32_t userMapWindow() const override { return gMapWin; }
    std::int16_t currentLayer() const override { return gLayer; }
    std::int16_t currentLayerType() const override { return gLayerType; }
    std::int32_t clickRow() const override { return gClickRow; }
    std::int32_t toggleRow() const override { return gToggleRow; }
    hostmodel::IMap& mapObject() override { return map(); }
    hostmodel::ILayer& layerObject() override { return lyr(); }
    hostmodel::MXMap& viewMap() override { return layerForm().MapDisplay.map(); }
    const std::string& styleValue() const override { return gStyleValue; }
    void setBorderPen(const std::string& pen) override { gBorderPen = pen; }
    std::int32_t& colIter() override { return gColIter; }
    void log(const std::string& line) override;
    void showMessage(const std::string& text) override;

private:
    platform::AutomationRegistry ownRegistry_;
};

} // namespace vellant::session
