#include "app/desktop/mapx_client_window.h"

#include "engine/workspace/workspace_loader.h"

#include <QCoreApplication>
#include <QStatusBar>
#include <QStringList>
#include <QToolBar>
#include <filesystem>

namespace vellant::desktop {

MapXClientWindow::MapXClientWindow(std::shared_ptr<engine::Engine> engine,
                                   const std::string& workspace, std::string appDir,
                                   QWidget* parent)
    : QMainWindow(parent), engine_(std::move(engine)) {
    engine::loadWorkspace(*engine_, workspace);
    client_ = std::make_unique<mapxclient::MapXClient>(*engine_, toolkit_, registry_, picker_);
    std::vector<std::string> leftOut;
    map_ = client_->openFrontMap(leftOut);
    std::filesystem::create_directories(appDir);
    layer_ = std::make_unique<session::vlLayer>(toolkit_, registry_, std::move(appDir));

    setWindowTitle("MapX application - " + QString::fromStdString(map_->Title()->Caption()));
    mapControl_ = new qtui::MapPictureWidget(this);
    mapControl_->setMap(std::dynamic_pointer_cast<mapx::Map>(map_));
    setCentralWidget(mapControl_);
    auto* tools = addToolBar("Map");
    layers_ = new QPushButton("Layers", tools);
    layers_->setToolTip("Layer Control for this map");
    tools->addWidget(layers_);
    connect(layers_, &QPushButton::clicked, this, [this] { runLayers(); });
    native_.addNew(this);
    // Each left-out layer with its reason, so that the user knows what the map lacks.
    QStringList missing;
    for (const std::string& layer : leftOut)
        missing << QString::fromStdString(layer);
    statusBar()->showMessage(missing.isEmpty() ? QString("Ready")
                                               : "Left out of the map: " + missing.join("; "));
}

MapXClientWindow::~MapXClientWindow() {
    // The maps on the screen go while MapX and its engine are still there: this window's own
    // control, and the layer form's views that were left to be deleted later.
    mapControl_->setMap(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    layer_.reset();
    map_.reset();
    client_.reset();
}

std::string MapXClientWindow::runLayers() {
    // One session at a time: the form is modal, so the button is reached only between them.
    layers_->setEnabled(false);
    const std::string answer = layer_->RunLayer(map_);
    map_->setAutoRedraw(true);
    layers_->setEnabled(true);
    statusBar()->showMessage("RunLayer answered \"" + QString::fromStdString(answer) + "\"");
    return answer;
}

} // namespace vellant::desktop
