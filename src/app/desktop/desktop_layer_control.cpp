#include "app/desktop/desktop_layer_control.h"

#include "engine/windows/window_manager.h"
#include "qtui/host/host_main_window.h"
#include "session/session.h"

#include <QDir>
#include <QStandardPaths>
#include <filesystem>

namespace vellant::desktop {

DesktopLayerControl::DesktopLayerControl(std::shared_ptr<engine::Engine> engine,
                                         qtui::HostMainWindow& window, std::string appDir)
    : engine_(std::move(engine)), host_(std::make_shared<engine::MapInfoAutomation>(engine_)),
      toolkit_(window.nativeWindows()) {
    std::filesystem::create_directories(appDir);
    host_->registerRunning(registry_);
    layer_ = std::make_unique<session::vlLayer>(toolkit_, registry_, std::move(appDir));
}

DesktopLayerControl::~DesktopLayerControl() {
    layer_.reset();
    host_->close();
}

std::string DesktopLayerControl::start(int mapWindowId) {
    if (session::Session* running = layer_->currentSession()) {
        if (running->gLayerForm != nullptr)
            toolkit_.SetForegroundWindow(running->gLayerForm->hWnd());
        return "";
    }
    engine_->windows().bringToFront(mapWindowId);
    // The companion is what starts the tool in the host; it runs before the first call.
    engine_->run("Run Application \"vellant.mbx\"");
    return layer_->RunMapInfoLayer();
}

std::string DesktopLayerControl::defaultAppDir() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return (folder.isEmpty() ? QDir::homePath() + "/.vellant" : folder).toStdString();
}

} // namespace vellant::desktop
