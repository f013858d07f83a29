// The main window's menus, tool bar and the commands behind them.

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"
#include "qtui/host/host_main_window.h"
#include "qtui/host/map_tool_icons.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStyle>
#include <QToolBar>

namespace vellant::qtui {

namespace {

struct ToolInfo {
    int id;
    const char* text;
    const char* shortcut;
    const char* tip;
};

constexpr ToolInfo kTools[] = {
    {engine::kToolSelect, "&Select", "S", "Select the object under a click; Shift adds or removes"},
    {engine::kToolGrabber, "&Grabber", "G", "Drag the map"},
    {engine::kToolZoomIn, "Zoom &In", "Z", "Click to zoom in, or drag a box to fill the window"},
    {engine::kToolZoomOut, "Zoom &Out", "Shift+Z", "Click to zoom out"},
    {kToolInfo, "In&fo", "I", "Show the record of the object under a click"},
};

const char* kLayerControlPending =
    "The layer grid's window comes with the program's Qt front; it is not installed in this "
    "build.";

} // namespace

void HostMainWindow::createActions() {
    QStyle* look = style();
    openTableAction_ =
        new QAction(look->standardIcon(QStyle::SP_DialogOpenButton), tr("&Open Table..."), this);
    openTableAction_->setShortcut(QKeySequence::Open);
    openTableAction_->setStatusTip(tr("Open a table and show it in a map or a browser"));
    connect(openTableAction_, &QAction::triggered, this, &HostMainWindow::chooseOpenTable);

    openWorkspaceAction_ =
        new QAction(look->standardIcon(QStyle::SP_DirOpenIcon), tr("Open &Workspace..."), this);
    openWorkspaceAction_->setShortcut(QKeySequence(tr("Ctrl+Shift+O")));
    openWorkspaceAction_->setStatusTip(tr("Open the tables and windows of a workspace"));
    connect(openWorkspaceAction_, &QAction::triggered, this, &HostMainWindow::chooseOpenWorkspace);

    saveWorkspaceAction_ = new QAction(look->standardIcon(QStyle::SP_DialogSaveButton),
                                       tr("&Save Workspace As..."), this);
    saveWorkspaceAction_->setShortcut(QKeySequence::Save);
    saveWorkspaceAction_->setStatusTip(tr("Save the open tables and windows as a workspace"));
    connect(saveWorkspaceAction_, &QAction::triggered, this, &HostMainWindow::chooseSaveWorkspace);

    closeWindowAction_ = new QAction(tr("&Close Window"), this);
    closeWindowAction_->setShortcut(QKeySequence(tr("Ctrl+W")));
    closeWindowAction_->setStatusTip(tr("Close the front window"));
    connect(closeWindowAction_, &QAction::triggered, this, &HostMainWindow::closeFrontWindow);

    closeAllAction_ = new QAction(tr("Close &All"), this);
    closeAllAction_->setStatusTip(tr("Close every table and window"));
    connect(closeAllAction_, &QAction::triggered, this, &HostMainWindow::closeAll);

    exitAction_ = new QAction(tr("E&xit"), this);
    exitAction_->setShortcut(QKeySequence(tr("Ctrl+Q")));
    exitAction_->setMenuRole(QAction::QuitRole);
    connect(exitAction_, &QAction::triggered, this, &QWidget::close);

    layerControlAction_ = new QAction(layerControlIcon(), tr("&Layer Control..."), this);
    layerControlAction_->setShortcut(QKeySequence(tr("Ctrl+L")));
    connect(layerControlAction_, &QAction::triggered, this, &HostMainWindow::startLayerControl);

    zoomEntireAction_ = new QAction(zoomEntireIcon(), tr("Zoom &Entire Map"), this);
    zoomEntireAction_->setShortcut(QKeySequence(tr("Ctrl+E")));
    zoomEntireAction_->setStatusTip(tr("Show every layer of the front map"));
    connect(zoomEntireAction_, &QAction::triggered, this, &HostMainWindow::zoomEntire);

    tools_ = new QActionGroup(this);
    tools_->setExclusive(true);
    for (const ToolInfo& tool : kTools) {
        auto* action = new QAction(toolIcon(tool.id), tr(tool.text), tools_);
        action->setCheckable(true);
        action->setData(tool.id);
        action->setShortcut(QKeySequence(tr(tool.shortcut)));
        action->setStatusTip(tr(tool.tip));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->text().remove('&'),
                                                         action->shortcut().toString()));
        connect(action, &QAction::triggered, this, [this, id = tool.id] {
            try {
                engine_.runMenuCommand(id);
            } catch (const engine::MbError& e) {
                reportError(e.code(), QString::fromStdString(e.what()));
            }
        });
    }

    tileAction_ = new QAction(tr("&Tile"), this);
    tileAction_->setShortcut(QKeySequence(tr("Shift+F4")));
    connect(tileAction_, &QAction::triggered, this, &HostMainWindow::tile);
    cascadeAction_ = new QAction(tr("&Cascade"), this);
    cascadeAction_->setShortcut(QKeySequence(tr("Shift+F5")));
    connect(cascadeAction_, &QAction::triggered, this, &HostMainWindow::cascade);

    aboutAction_ = new QAction(tr("&About Vellant"), this);
    aboutAction_->setShortcut(QKeySequence::HelpContents);
    aboutAction_->setMenuRole(QAction::AboutRole);
    connect(aboutAction_, &QAction::triggered, this, &HostMainWindow::about);

    setLayerControl({});
}

void HostMainWindow::createMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(openTableAction_);
    file->addAction(openWorkspaceAction_);
    file->addAction(saveWorkspaceAction_);
    file->addSeparator();
    file->addAction(closeWindowAction_);
    file->addAction(closeAllAction_);
    file->addSeparator();
    file->addAction(exitAction_);

    QMenu* map = menuBar()->addMenu(tr("&Map"));
    map->addAction(layerControlAction_);
    map->addAction(zoomEntireAction_);
    map->addSeparator();
    map->addActions(tools_->actions());

    windowMenu_ = menuBar()->addMenu(tr("&Window"));
    connect(windowMenu_, &QMenu::aboutToShow, this, &HostMainWindow::rebuildWindowMenu);
    rebuildWindowMenu();

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(aboutAction_);
}

void HostMainWindow::createToolBar() {
    QToolBar* bar = addToolBar(tr("Main"));
    bar->setObjectName("MainToolBar");
    bar->setIconSize(QSize(24, 24));
    bar->addAction(openTableAction_);
    bar->addAction(openWorkspaceAction_);
    bar->addAction(saveWorkspaceAction_);
    bar->addSeparator();
    bar->addActions(tools_->actions());
    bar->addSeparator();
    bar->addAction(zoomEntireAction_);
    bar->addAction(layerControlAction_);
}

void HostMainWindow::rebuildWindowMenu() {
    windowMenu_->clear();
    windowMenu_->addAction(tileAction_);
    windowMenu_->addAction(cascadeAction_);
    const std::vector<int> ids = engine_.windows().ids();
    if (!ids.empty()) windowMenu_->addSeparator();
    const int front = engine_.windows().frontWindow();
    int number = 0;
    for (int id : ids) {
        const engine::Window* window = engine_.windows().find(id);
        if (window == nullptr) continue;
        ++number;
        QAction* action = windowMenu_->addAction(
            QStringLiteral("&%1 %2").arg(number).arg(QString::fromStdString(window->title())));
        action->setCheckable(true);
        action->setChecked(id == front);
        connect(action, &QAction::triggered, this,
                [this, id] { runStatement("Set Window " + std::to_string(id) + " Front"); });
    }
}

void HostMainWindow::updateActions() {
    const bool anyWindow = engine_.windows().count() > 0;
    const bool anyMap = frontMapId() != 0;
    closeWindowAction_->setEnabled(anyWindow);
    closeAllAction_->setEnabled(anyWindow || engine_.catalog().count() > 0);
    saveWorkspaceAction_->setEnabled(anyWindow || engine_.catalog().count() > 0);
    zoomEntireAction_->setEnabled(anyMap);
    layerControlAction_->setEnabled(anyMap && static_cast<bool>(layerControl_));
    tileAction_->setEnabled(anyWindow);
    cascadeAction_->setEnabled(anyWindow);
}

void HostMainWindow::setLayerControl(std::function<void(int)> start) {
    layerControl_ = std::move(start);
    layerControlAction_->setStatusTip(layerControl_ ? tr("Change the layers of the front map")
                                                    : tr(kLayerControlPending));
    layerControlAction_->setToolTip(layerControlAction_->statusTip());
    updateActions();
}

void HostMainWindow::startLayerControl() {
    const int id = frontMapId();
    if (id == 0 || !layerControl_) return;
    try {
        layerControl_(id);
    } catch (const engine::MbError& e) {
        reportError(e.code(), QString::fromStdString(e.what()));
    } catch (const std::exception& e) {
        reportError(0, QString::fromStdString(e.what()));
    }
}

void HostMainWindow::chooseOpenTable() {
    const QString file = QFileDialog::getOpenFileName(
        dialogParent(), tr("Open Table"), {},
        tr("Tables (*.tab *.TAB *.shp *.geojson *.json *.mif *.MIF);;All files (*)"));
    if (!file.isEmpty()) openTable(file.toStdString());
}

void HostMainWindow::chooseOpenWorkspace() {
    const QString file = QFileDialog::getOpenFileName(
        dialogParent(), tr("Open Workspace"), {}, tr("Workspaces (*.wor *.WOR);;All files (*)"));
    if (!file.isEmpty()) openWorkspace(file.toStdString());
}

void HostMainWindow::chooseSaveWorkspace() {
    QString file = QFileDialog::getSaveFileName(dialogParent(), tr("Save Workspace As"), {},
                                                tr("Workspaces (*.wor)"));
    if (file.isEmpty()) return;
    if (!file.endsWith(".wor", Qt::CaseInsensitive)) file += ".wor";
    saveWorkspace(file.toStdString());
}

void HostMainWindow::closeFrontWindow() {
    if (const int front = engine_.windows().frontWindow())
        runStatement("Close Window " + std::to_string(front));
}

void HostMainWindow::zoomEntire() {
    if (const int id = frontMapId())
        runStatement("Set Map Window " + std::to_string(id) + " Zoom Entire");
}

void HostMainWindow::about() {
    QMessageBox::about(dialogParent(), tr("About Vellant"),
                       tr("<h3>Vellant</h3><p>Maps and tables of the embedded MapBasic host, "
                          "read through GDAL.</p><p>Version %1</p>")
                           .arg(QApplication::applicationVersion()));
}

} // namespace vellant::qtui
