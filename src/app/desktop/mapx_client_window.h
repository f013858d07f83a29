#pragma once
// A MapX application on the desktop, as `vellant --mapx` shows it: a window with its map
// control (the client's own map, drawn by the renderer), a "Layers" button that calls RunLayer
// with that map on the Qt toolkit, and the answer in its status bar. The map is built from the
// workspace's front map window.

#include "app/mapx_client/mapx_client.h"
#include "engine/engine.h"
#include "platform/automation.h"
#include "qtui/host/native_windows.h"
#include "qtui/mapx/dialog_style_picker.h"
#include "qtui/mapx/map_picture_widget.h"
#include "qtui/toolkit/qt_toolkit.h"
#include "session/vl_layer.h"

#include <QApplication>
#include <QMainWindow>
#include <QPushButton>
#include <memory>
#include <string>

namespace vellant::desktop {

class MapXClientWindow : public QMainWindow {
public:
    // The workspace is opened in the engine first; error 5 (a RuntimeError) when it has no map
    // window in front, an MbError when it does not open.
    MapXClientWindow(std::shared_ptr<engine::Engine> engine, const std::string& workspace,
                     std::string appDir, QWidget* parent = nullptr);
    ~MapXClientWindow() override;

    // The client's part: RunLayer with its map, then AutoRedraw on again; answers the word.
    std::string runLayers();

    hostmodel::MXMap& map() { return *map_; }
    QPushButton& layersButton() { return *layers_; }
    qtui::MapPictureWidget& mapControl() { return *mapControl_; }
    qtui::QtToolkit& toolkit() { return toolkit_; }
    qtui::DialogStylePicker& picker() { return picker_; }

private:
    std::shared_ptr<engine::Engine> engine_;
    qtui::NativeWindows native_;
    qtui::QtToolkit toolkit_{native_};
    platform::AutomationRegistry registry_;
    // MapX's pickers are the host's style dialogs, over the window in front.
    qtui::DialogStylePicker picker_{[] { return QApplication::activeWindow(); }};
    std::unique_ptr<mapxclient::MapXClient> client_;
    std::shared_ptr<hostmodel::MXMap> map_;
    std::unique_ptr<session::vlLayer> layer_;
    qtui::MapPictureWidget* mapControl_ = nullptr;
    QPushButton* layers_ = nullptr;
};

} // namespace vellant::desktop
