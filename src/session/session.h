#pragma once
// The Session: all module-wide state of one session, gathered from the subsystems that own it,
// plus the platform services it runs on. Procedures are free functions taking Session&.

#include "grid/grid_state.h"
#include "platform/toolkit.h"
#include "prefs/prefs_state.h"
#include "session/layer_form.h"
#include "session/session_state.h"

#include <string>
#include <vector>

namespace vellant::session {

struct Session : SessionState, prefs::PrefsState, grid::GridState {
    // The application directory holds Vellant.prf and Vellant.log; the host hands it over.
    Session(platform::Toolkit& toolkit, std::string appPath);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    platform::Toolkit& toolkit;
    const std::string appPath;
    // Machines whose log lines are also shown in a message box; none by default.
    std::vector<std::string> developerMachines;

    // The current form and the map, with the runtime's error 91 when there is none.
    LayerForm& layerForm() const;
    hostmodel::IMap& map() const;
};

} // namespace vellant::session
