#pragma once
// The host's main window on the desktop. It mirrors the engine: every document window of the
// host is a sub-window here (a map view or a browser), opened, closed, stacked, placed and
// titled as the engine says, and the user's moves, resizes, activations and closings go back to
// the engine, the closings as "Close Window" statements so that the client hears of them as it
// would of a MapBasic program's. The host's status bar, main window geometry and application
// window follow the engine's host services the same way.
//
// A map whose window was given a registered native parent ("Set Next Document Parent <hwnd>
// Style 1") becomes a plain child of that widget, filling it, instead of a sub-window.

#include "qtui/host/native_windows.h"

#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

class QAction;
class QActionGroup;
class QMdiArea;
class QMdiSubWindow;
class QMenu;

namespace vellant::engine {
class Engine;
class MbError;
class Window;
enum class WindowEvent;
enum class HostChange;
} // namespace vellant::engine

namespace vellant::qtui {

class BrowserView;
class HostStatusBar;
class InfoPanel;
class MapWindowView;
class StyleDialogHost;

class HostMainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit HostMainWindow(engine::Engine& engine, QWidget* parent = nullptr);
    ~HostMainWindow() override;

    engine::Engine& engine() { return engine_; }
    NativeWindows& nativeWindows() { return native_; }
    QMdiArea& mdiArea() const { return *mdi_; }
    HostStatusBar& hostStatusBar() const { return *status_; }
    InfoPanel& infoPanel() const { return *info_; }
    // Opens the style dialogs the companion queues for its client.
    StyleDialogHost& styleDialogs() const { return *styleDialogs_; }

    // The views of open engine windows; nullptr for another id.
    QWidget* viewFor(int windowId) const;
    MapWindowView* mapView(int windowId) const;
    BrowserView* browserView(int windowId) const;
    // The sub-window holding a view; nullptr for a view with a native parent.
    QMdiSubWindow* subWindowFor(int windowId) const;

    // The layer grid's session on a map window, installed by the program; while none is
    // installed the Layer Control action is disabled.
    void setLayerControl(std::function<void(int mapWindowId)> start);

    // Where the host's dialogs go: the registered widget of "Set Application Window" while it is
    // set, this window otherwise.
    QWidget* dialogParent();

    // Statements and files as the menus run them. Errors are reported (reportError) and answered
    // with false; nothing throws.
    bool runStatement(const std::string& statement);
    bool openWorkspace(const std::filesystem::path& file);
    bool openTable(const std::filesystem::path& file);
    bool saveWorkspace(const std::filesystem::path& file);
    void closeAll();

    // How a host error reaches the user: a message box with the MapBasic number and text unless
    // another reporter is installed (a headless run prints it instead).
    void setErrorReporter(std::function<void(int code, const QString& text)> reporter);
    void reportError(int code, const QString& text);

    // Whether the companion hears of this window's moves and closing (on by default; a replay
    // gives the companion's advice from its script instead).
    void setAdvisesCompanion(bool advises) { advisesCompanion_ = advises; }

    // Lays the open sub-windows side by side to fill the area.
    void tile();
    void cascade();

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Runs the work, reporting an error it raises; false when it raised one.
    bool reportingErrors(const std::function<void()>& work);
    struct View {
        QPointer<QWidget> widget;          // MapWindowView or BrowserView
        QPointer<QMdiSubWindow> subWindow; // none for a view with a native parent
    };

    // menus and actions (host_main_window_actions.cpp)
    void createActions();
    void createMenus();
    void createToolBar();
    void rebuildWindowMenu();
    void updateActions();
    void chooseOpenTable();
    void chooseOpenWorkspace();
    void chooseSaveWorkspace();
    void closeFrontWindow();
    void zoomEntire();
    void startLayerControl();
    void about();

    // engine -> Qt
    void windowEvent(engine::WindowEvent event, int id);
    void hostChanged(engine::HostChange change);
    void mainWindowControlChanged(int property);
    void windowOpened(int id);
    void windowClosed(int id);
    void windowToFront(int id);
    void applyPlacement(int id);
    void applyTitle(int id);
    void contentsChanged(int id);
    void toolChanged();
    void showStatusBar();
    void updateMapStatus();
    void updateWindowTitle();

    // Qt -> engine
    void subWindowActivated(QMdiSubWindow* subWindow);
    void subWindowGeometryChanged(int id);
    void subWindowClosing(int id);
    void syncMainWindowControl();
    void repaintMaps();
    // The companion tells a client of the main window: "resize" once a burst of moves and
    // resizes is over, "exit mapinfo" when the window closes. Only a client that listens (its
    // button pad "Callback" is up) is told.
    void adviseWindowChanged();
    bool companionListens();

    int idOf(const QObject* subWindow) const;
    int frontMapId() const;
    double dpi() const;

    engine::Engine& engine_;
    NativeWindows native_;
    QMdiArea* mdi_;
    HostStatusBar* status_;
    InfoPanel* info_;
    StyleDialogHost* styleDialogs_;
    std::map<int, View> views_;
    std::function<void(int)> layerControl_;
    std::function<void(int, const QString&)> errorReporter_;

    int windowsToken_ = 0;
    int hostToken_ = 0;
    int mainWindowToken_ = 0;
    // Set while the engine's state is being applied to the widgets, so that the widgets' own
    // notifications of the change do not go back to the engine.
    int applying_ = 0;
    // Set while this window changes the engine, so that the engine's echo is not re-applied.
    int reporting_ = 0;
    bool advicePending_ = false;
    bool advisesCompanion_ = true;

    QAction* openTableAction_ = nullptr;
    QAction* openWorkspaceAction_ = nullptr;
    QAction* saveWorkspaceAction_ = nullptr;
    QAction* closeAllAction_ = nullptr;
    QAction* closeWindowAction_ = nullptr;
    QAction* exitAction_ = nullptr;
    QAction* layerControlAction_ = nullptr;
    QAction* zoomEntireAction_ = nullptr;
    QAction* tileAction_ = nullptr;
    QAction* cascadeAction_ = nullptr;
    QAction* aboutAction_ = nullptr;
    QActionGroup* tools_ = nullptr;
    QMenu* windowMenu_ = nullptr;
};

} // namespace vellant::qtui
