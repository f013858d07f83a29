#pragma once
// The layer grid on the desktop. Map > Layer Control and the tool bar's button start a session
// of the program on the front map window, as the companion "vellant.mbx" starts it in the host:
// the companion runs, the host's automation object is found running under
// "MapInfo.Application", and RunMapInfoLayer is called on the Qt toolkit. The session's modal
// show runs its own event loop, so the host's window stays usable; a second start while a
// session runs brings its form to the front instead.

#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "platform/automation.h"
#include "qtui/toolkit/qt_toolkit.h"
#include "session/vl_layer.h"

#include <memory>
#include <string>

namespace vellant::qtui {
class HostMainWindow;
}

namespace vellant::desktop {

class DesktopLayerControl {
public:
    // The engine and window outlive this object; appDir holds Vellant.prf and Vellant.log and
    // is made if missing.
    DesktopLayerControl(std::shared_ptr<engine::Engine> engine, qtui::HostMainWindow& window,
                        std::string appDir);
    ~DesktopLayerControl();
    DesktopLayerControl(const DesktopLayerControl&) = delete;
    DesktopLayerControl& operator=(const DesktopLayerControl&) = delete;

    // Runs a whole session on the map window (it comes to the front first) and returns when
    // the session is over; answers what RunMapInfoLayer answered, or "" when a session was
    // already running and was brought to the front.
    std::string start(int mapWindowId);
    bool running() const { return layer_->currentSession() != nullptr; }

    qtui::QtToolkit& toolkit() { return toolkit_; }
    session::vlLayer& layer() { return *layer_; }
    platform::AutomationRegistry& registry() { return registry_; }

    // The application directory the desktop uses: the user's data folder for Vellant.
    static std::string defaultAppDir();

private:
    std::shared_ptr<engine::Engine> engine_;
    std::shared_ptr<engine::MapInfoAutomation> host_;
    platform::AutomationRegistry registry_;
    qtui::QtToolkit toolkit_;
    std::unique_ptr<session::vlLayer> layer_;
};

} // namespace vellant::desktop
