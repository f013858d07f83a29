#include "qtui/host/host_main_window.h"

#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "engine/mb_value_text.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_writer.h"
#include "qtui/host/browser_view.h"
#include "qtui/host/host_status_bar.h"
#include "qtui/host/info_panel.h"
#include "qtui/host/map_tool_icons.h"
#include "qtui/host/map_window_view.h"
#include "qtui/host/style_dialog_host.h"
#include "qtui/host/workspace_progress.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

namespace vellant::qtui {

namespace {

constexpr double kTwipsPerInch = 1440.0;

// Applies or reports one change with the matching guard held.
struct Guard {
    int& depth;
    explicit Guard(int& d) : depth(d) { ++depth; }
    ~Guard() { --depth; }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
};

bool samePlacement(const engine::WindowPlacement& a, const engine::WindowPlacement& b,
                   double inchesPerPixel) {
    // A pixel is the finest step the screen has; less than half of one is rounding.
    const double tolerance = inchesPerPixel / 2;
    return std::abs(a.x - b.x) < tolerance && std::abs(a.y - b.y) < tolerance &&
           std::abs(a.width - b.width) < tolerance && std::abs(a.height - b.height) < tolerance;
}

} // namespace

HostMainWindow::HostMainWindow(engine::Engine& engine, QWidget* parent)
    : QMainWindow(parent), engine_(engine), mdi_(new QMdiArea(this)),
      status_(new HostStatusBar(this)), info_(new InfoPanel(engine, this)) {
    setObjectName("HostMainWindow");
    setWindowTitle(tr("Vellant"));
    mdi_->setBackground(QColor(96, 110, 128));
    mdi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(mdi_);
    setStatusBar(status_);
    addDockWidget(Qt::RightDockWidgetArea, info_);
    info_->hide();

    createActions();
    createMenus();
    createToolBar();
    connect(mdi_, &QMdiArea::subWindowActivated, this, &HostMainWindow::subWindowActivated);

    styleDialogs_ = new StyleDialogHost(
        engine_, [this] { return dialogParent(); }, this);
    native_.add(engine_.host().mainWindow().hWnd(), this);
    windowsToken_ = engine_.windows().changed.add(
        [this](engine::WindowEvent event, int id) { windowEvent(event, id); });
    hostToken_ = engine_.host().changed.add([this](engine::HostChange c) { hostChanged(c); });
    mainWindowToken_ =
        engine_.host().mainWindow().subscribe([this](platform::Control&, platform::Property p) {
            mainWindowControlChanged(static_cast<int>(p));
        });

    // Windows the engine opened before this window was made.
    for (int id : engine_.windows().ids())
        windowOpened(id);
    if (const int front = engine_.windows().frontWindow()) windowToFront(front);
    showStatusBar();
    toolChanged();
    updateActions();
}

HostMainWindow::~HostMainWindow() {
    // Nothing of the engine may reach a window that is going, and nothing of its children's
    // teardown may reach the engine.
    ++applying_;
    disconnect(mdi_, nullptr, this, nullptr);
    engine_.windows().changed.remove(windowsToken_);
    engine_.host().changed.remove(hostToken_);
    engine_.host().mainWindow().unsubscribe(mainWindowToken_);
    for (auto& [id, view] : views_) {
        if (view.subWindow) view.subWindow->removeEventFilter(this);
        // Views living in another widget go with this window, since they draw its engine.
        if (!view.subWindow && view.widget) delete view.widget.data();
    }
}

QWidget* HostMainWindow::viewFor(int windowId) const {
    const auto it = views_.find(windowId);
    return it == views_.end() ? nullptr : it->second.widget.data();
}

MapWindowView* HostMainWindow::mapView(int windowId) const {
    return qobject_cast<MapWindowView*>(viewFor(windowId));
}

BrowserView* HostMainWindow::browserView(int windowId) const {
    return qobject_cast<BrowserView*>(viewFor(windowId));
}

QMdiSubWindow* HostMainWindow::subWindowFor(int windowId) const {
    const auto it = views_.find(windowId);
    return it == views_.end() ? nullptr : it->second.subWindow.data();
}

double HostMainWindow::dpi() const {
    const int logical = logicalDpiX();
    return logical > 0 ? logical : 96.0;
}

int HostMainWindow::idOf(const QObject* subWindow) const {
    for (const auto& [id, view] : views_)
        if (view.subWindow && view.subWindow.data() == subWindow) return id;
    return 0;
}

int HostMainWindow::frontMapId() const {
    try {
        return engine_.windows().topMap().id();
    } catch (const engine::MbError&) {
        return 0;
    }
}

QWidget* HostMainWindow::dialogParent() {
    if (const std::int64_t owner = engine_.host().applicationWindow()) {
        if (QWidget* widget = native_.find(owner)) return widget;
    }
    return this;
}

void HostMainWindow::setErrorReporter(std::function<void(int, const QString&)> reporter) {
    errorReporter_ = std::move(reporter);
}

void HostMainWindow::reportError(int code, const QString& text) {
    if (errorReporter_) {
        errorReporter_(code, text);
        return;
    }
    QMessageBox box(QMessageBox::Warning, tr("Vellant"), text, QMessageBox::Ok, dialogParent());
    if (code != 0) box.setInformativeText(tr("MapBasic error %1").arg(code));
    box.exec();
}

// ---- engine -> Qt -------------------------------------------------------------------------

void HostMainWindow::windowEvent(engine::WindowEvent event, int id) {
    switch (event) {
    case engine::WindowEvent::Opened:
        windowOpened(id);
        break;
    case engine::WindowEvent::Closed:
        windowClosed(id);
        break;
    case engine::WindowEvent::Front:
        windowToFront(id);
        break;
    case engine::WindowEvent::Placement:
        if (reporting_ == 0) applyPlacement(id);
        break;
    case engine::WindowEvent::Title:
        applyTitle(id);
        break;
    case engine::WindowEvent::Contents:
        contentsChanged(id);
        break;
    case engine::WindowEvent::Tool:
        toolChanged();
        break;
    }
    updateActions();
    updateWindowTitle();
}

void HostMainWindow::updateWindowTitle() {
    const engine::Window* front = engine_.windows().find(engine_.windows().frontWindow());
    setWindowTitle(front == nullptr
                       ? tr("Vellant")
                       : tr("Vellant - [%1]").arg(QString::fromStdString(front->title())));
}

void HostMainWindow::windowOpened(int id) {
    engine::Window* window = engine_.windows().find(id);
    if (window == nullptr || views_.contains(id)) return;
    Guard applying(applying_);

    QWidget* view = nullptr;
    if (window->type() == engine::WindowType::Map) {
        auto* map = new MapWindowView(engine_, id);
        connect(map, &MapWindowView::viewChanged, this, [this](int) { updateMapStatus(); });
        connect(map, &MapWindowView::selectionChanged, this, &HostMainWindow::repaintMaps);
        connect(map, &MapWindowView::cursorMoved, this, [this](int mapId, double x, double y) {
            if (const engine::Window* w = engine_.windows().find(mapId))
                status_->showCursor(*w, x, y);
        });
        connect(map, &MapWindowView::cursorLeft, this, [this](int) { status_->clearCursor(); });
        connect(map, &MapWindowView::infoRequested, this,
                [this](int, const QString& table, qint64 row) {
                    info_->showRecord(table.toStdString(), row);
                });
        view = map;
    } else {
        view = new BrowserView(engine_, id);
    }

    QWidget* owner = window->settings.parent != 0 ? native_.find(window->settings.parent) : nullptr;
    if (owner != nullptr && window->settings.documentStyle == 1) {
        // A child document: no frame of its own, filling the widget it was given.
        view->setParent(owner);
        if (owner->layout() == nullptr) {
            auto* layout = new QVBoxLayout(owner);
            layout->setContentsMargins(0, 0, 0, 0);
        }
        owner->layout()->addWidget(view);
        views_[id] = {view, nullptr};
        view->setVisible(window->settings.visible);
    } else if (owner != nullptr) {
        // A popup document: a window of its own that stays with its owner.
        view->setParent(owner, Qt::Window);
        views_[id] = {view, nullptr};
        applyPlacement(id);
    } else {
        QMdiSubWindow* sub = mdi_->addSubWindow(view);
        sub->setAttribute(Qt::WA_DeleteOnClose, false);
        sub->setWindowIcon(window->type() == engine::WindowType::Map
                               ? zoomEntireIcon()
                               : style()->standardIcon(QStyle::SP_FileDialogDetailedView));
        sub->installEventFilter(this);
        views_[id] = {view, sub};
        applyPlacement(id);
    }
    native_.add(window->handle(), view);
    applyTitle(id);
}

void HostMainWindow::windowClosed(int id) {
    const auto it = views_.find(id);
    if (it == views_.end()) return;
    const View view = it->second;
    views_.erase(it);
    Guard applying(applying_);
    if (view.widget) native_.remove(native_.handleOf(view.widget));
    // Deleted later: the close may come from inside the sub-window's own event handling.
    if (view.subWindow) {
        view.subWindow->removeEventFilter(this);
        view.subWindow->hide();
        mdi_->removeSubWindow(view.subWindow);
        view.subWindow->deleteLater();
    } else if (view.widget) {
        view.widget->hide();
        view.widget->deleteLater();
    }
    updateMapStatus();
}

void HostMainWindow::windowToFront(int id) {
    const auto it = views_.find(id);
    if (it == views_.end()) return;
    Guard applying(applying_);
    if (QMdiSubWindow* sub = it->second.subWindow) {
        if (mdi_->activeSubWindow() != sub) mdi_->setActiveSubWindow(sub);
    } else if (it->second.widget) {
        it->second.widget->raise();
    }
    updateMapStatus();
}

void HostMainWindow::applyPlacement(int id) {
    const auto it = views_.find(id);
    const engine::Window* window = engine_.windows().find(id);
    if (it == views_.end() || window == nullptr) return;
    QWidget* frame = it->second.subWindow ? static_cast<QWidget*>(it->second.subWindow.data())
                                          : it->second.widget.data();
    if (frame == nullptr) return;
    Guard applying(applying_);
    if (!frame->isWindow() && it->second.subWindow == nullptr) {
        // A child document fills its owner; only its visibility is the engine's to say.
        frame->setVisible(window->settings.visible);
        return;
    }
    const double d = dpi();
    const engine::WindowPlacement& p = window->placement;
    const QRect box(static_cast<int>(std::lround(p.x * d)), static_cast<int>(std::lround(p.y * d)),
                    static_cast<int>(std::lround(p.width * d)),
                    static_cast<int>(std::lround(p.height * d)));
    if (!window->settings.visible) {
        frame->setGeometry(box);
        frame->hide();
        return;
    }
    switch (window->state) {
    case engine::WindowState::Minimized:
        frame->showMinimized();
        break;
    case engine::WindowState::Maximized:
        frame->showMaximized();
        break;
    case engine::WindowState::Normal:
        if (frame->isMinimized() || frame->isMaximized()) frame->showNormal();
        frame->setGeometry(box);
        frame->show();
        break;
    }
}

void HostMainWindow::applyTitle(int id) {
    const auto it = views_.find(id);
    const engine::Window* window = engine_.windows().find(id);
    if (it == views_.end() || window == nullptr || !it->second.widget) return;
    const QString title = QString::fromStdString(window->title());
    it->second.widget->setWindowTitle(title);
    if (it->second.subWindow) it->second.subWindow->setWindowTitle(title);
}

void HostMainWindow::contentsChanged(int id) {
    if (MapWindowView* map = mapView(id)) {
        map->contentsChanged();
        applyTitle(id); // a made title follows the layer list
        if (id == frontMapId()) updateMapStatus();
    } else if (BrowserView* browser = browserView(id)) {
        browser->contentsChanged();
    }
}

void HostMainWindow::toolChanged() {
    const int tool = engine_.windows().mapTool();
    for (QAction* action : tools_->actions())
        action->setChecked(action->data().toInt() == tool);
    for (auto& [id, view] : views_)
        if (auto* map = qobject_cast<MapWindowView*>(view.widget.data())) map->toolChanged();
}

void HostMainWindow::hostChanged(engine::HostChange change) {
    if (change == engine::HostChange::StatusBar) showStatusBar();
}

void HostMainWindow::showStatusBar() {
    const engine::HostServices& host = engine_.host();
    status_->setVisible(host.statusBarVisible());
    status_->setHostMessage(QString::fromStdString(host.statusBarMessage()));
}

void HostMainWindow::updateMapStatus() {
    const int id = frontMapId();
    const MapWindowView* view = mapView(id);
    const engine::Window* window = engine_.windows().find(id);
    if (view == nullptr || window == nullptr) {
        status_->showMap(nullptr, {}, dpi());
        return;
    }
    status_->showMap(window, QSizeF(view->size()), view->dpi());
}

void HostMainWindow::mainWindowControlChanged(int property) {
    if (reporting_ != 0) return;
    const platform::Control& control = engine_.host().mainWindow();
    Guard applying(applying_);
    const double pixelsPerTwip = dpi() / kTwipsPerInch;
    auto pixels = [&](int twips) { return static_cast<int>(std::lround(twips * pixelsPerTwip)); };
    switch (static_cast<platform::Property>(property)) {
    case platform::Property::Left:
    case platform::Property::Top:
    case platform::Property::Width:
    case platform::Property::Height:
        if (control.Width() > 0 && control.Height() > 0)
            setGeometry(pixels(control.Left()), pixels(control.Top()), pixels(control.Width()),
                        pixels(control.Height()));
        break;
    case platform::Property::Visible:
        setVisible(control.Visible());
        break;
    case platform::Property::Value: // the window state: 0 normal, 1 minimized, 2 maximized
        setWindowState(control.Value() == 1   ? Qt::WindowMinimized
                       : control.Value() == 2 ? Qt::WindowMaximized
                                              : Qt::WindowNoState);
        break;
    default:
        break;
    }
}

// ---- Qt -> engine -------------------------------------------------------------------------

void HostMainWindow::syncMainWindowControl() {
    if (applying_ != 0) return;
    platform::Control& control = engine_.host().mainWindow();
    Guard reporting(reporting_);
    const double twipsPerPixel = kTwipsPerInch / dpi();
    auto twips = [&](int px) { return static_cast<int>(std::lround(px * twipsPerPixel)); };
    const QRect box = geometry();
    const int left = control.Left(), top = control.Top();
    const int width = control.Width(), height = control.Height(), state = control.Value();
    control.Move(twips(box.x()), twips(box.y()), twips(box.width()), twips(box.height()));
    control.setVisible(isVisible());
    const Qt::WindowStates states = windowState();
    control.setValue(states.testFlag(Qt::WindowMinimized)   ? 1
                     : states.testFlag(Qt::WindowMaximized) ? 2
                                                            : 0);
    if (left != control.Left() || top != control.Top() || width != control.Width() ||
        height != control.Height() || state != control.Value())
        adviseWindowChanged();
}

bool HostMainWindow::companionListens() {
    engine::HostServices& host = engine_.host();
    return advisesCompanion_ && host.companion() != nullptr &&
           host.findButtonPad(engine::Companion::kPadName) != nullptr;
}

void HostMainWindow::adviseWindowChanged() {
    if (advicePending_ || !companionListens()) return;
    advicePending_ = true;
    QTimer::singleShot(0, this, [this] {
        advicePending_ = false;
        if (companionListens()) engine_.host().companion()->hostWindowMoved();
    });
}

void HostMainWindow::closeEvent(QCloseEvent* event) {
    // A client's window that sits on this one goes first, as the host's own would.
    if (companionListens()) engine_.host().companion()->hostClosing();
    QMainWindow::closeEvent(event);
}

void HostMainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    syncMainWindowControl();
}

void HostMainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    syncMainWindowControl();
}

void HostMainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) syncMainWindowControl();
}

void HostMainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    syncMainWindowControl();
}

void HostMainWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    syncMainWindowControl();
}

bool HostMainWindow::eventFilter(QObject* watched, QEvent* event) {
    const int id = idOf(watched);
    if (id == 0 || applying_ != 0) return QMainWindow::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Close:
        // The engine closes the window; the view goes when it says so.
        event->ignore();
        subWindowClosing(id);
        return true;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        subWindowGeometryChanged(id);
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

void HostMainWindow::subWindowActivated(QMdiSubWindow* subWindow) {
    if (applying_ != 0 || subWindow == nullptr) return;
    const int id = idOf(subWindow);
    if (id == 0 || engine_.windows().frontWindow() == id) return;
    Guard reporting(reporting_);
    engine_.windows().bringToFront(id);
}

void HostMainWindow::subWindowGeometryChanged(int id) {
    QMdiSubWindow* sub = subWindowFor(id);
    engine::Window* window = engine_.windows().find(id);
    if (sub == nullptr || window == nullptr || !sub->isVisible()) return;
    const engine::WindowState state = sub->isMinimized()   ? engine::WindowState::Minimized
                                      : sub->isMaximized() ? engine::WindowState::Maximized
                                                           : engine::WindowState::Normal;
    engine::WindowPlacement placement = window->placement;
    if (state == engine::WindowState::Normal) {
        const double d = dpi();
        const QRect box = sub->geometry();
        placement = {box.x() / d, box.y() / d, box.width() / d, box.height() / d};
        if (samePlacement(placement, window->placement, 1 / d)) placement = window->placement;
    }
    if (placement == window->placement && state == window->state) return;
    // A map that keeps its scale shows more ground in a wider window, as Set Window has it.
    if (window->map && window->map->preserve == engine::MapPreserve::Scale &&
        window->placement.width > 0)
        window->map->zoomMetres *= placement.width / window->placement.width;
    window->placement = placement;
    window->state = state;
    Guard reporting(reporting_);
    engine_.windows().placementChanged(id);
    if (id == frontMapId()) updateMapStatus();
}

void HostMainWindow::subWindowClosing(int id) {
    runStatement("Close Window " + std::to_string(id));
}

void HostMainWindow::repaintMaps() {
    for (auto& [id, view] : views_)
        if (auto* map = qobject_cast<MapWindowView*>(view.widget.data())) map->contentsChanged();
}

// ---- statements and files -----------------------------------------------------------------

bool HostMainWindow::reportingErrors(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const engine::MbError& e) {
        reportError(e.code(), QString::fromStdString(e.what()));
    } catch (const std::exception& e) {
        reportError(0, QString::fromStdString(e.what()));
    }
    return false;
}

bool HostMainWindow::runStatement(const std::string& statement) {
    return reportingErrors([&] { engine_.run(statement); });
}

bool HostMainWindow::openWorkspace(const std::filesystem::path& file) {
    return reportingErrors([&] { loadWorkspaceWithProgress(engine_, file, dialogParent()); });
}

bool HostMainWindow::openTable(const std::filesystem::path& file) {
    BusyCursor busy;
    engine::Catalog& catalog = engine_.catalog();
    const int before = catalog.count();
    if (!runStatement("Open Table " + engine::quotedMbString(file.string()) + " Interactive"))
        return false;
    const engine::Table* table = nullptr;
    if (catalog.count() > before) {
        table = &catalog.at(catalog.count());
    } else {
        // Opened before: Interactive took the open table; show it again.
        std::error_code error;
        for (int n = 1; n <= catalog.count() && table == nullptr; ++n)
            if (std::filesystem::equivalent(catalog.at(n).path(), file, error))
                table = &catalog.at(n);
    }
    if (table == nullptr) return true;
    return runStatement((table->isMappable() ? "Map From " : "Browse * From ") + table->name());
}

bool HostMainWindow::saveWorkspace(const std::filesystem::path& file) {
    std::vector<std::string> leftOut;
    const bool saved = reportingErrors([&] {
        BusyCursor busy;
        leftOut = engine::saveWorkspace(engine_, file);
    });
    if (!saved) return false;
    if (!leftOut.empty()) {
        QStringList lines;
        for (const std::string& line : leftOut)
            lines << QString::fromStdString(line);
        auto* box = new QMessageBox(QMessageBox::Information, tr("Vellant"),
                                    tr("The workspace was saved without:"), QMessageBox::Ok,
                                    dialogParent());
        box->setInformativeText(lines.join('\n'));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
    return true;
}

void HostMainWindow::closeAll() {
    engine::Catalog& catalog = engine_.catalog();
    // Last opened first, so queries go before the tables they came from.
    while (catalog.count() > 0) {
        const int count = catalog.count();
        if (!runStatement("Close Table " + catalog.at(count).name())) return;
        if (catalog.count() >= count) return;
    }
    for (int id : engine_.windows().ids()) {
        if (engine_.windows().find(id) != nullptr &&
            !runStatement("Close Window " + std::to_string(id)))
            return;
    }
}

void HostMainWindow::tile() {
    mdi_->tileSubWindows();
}

void HostMainWindow::cascade() {
    mdi_->cascadeSubWindows();
}

} // namespace vellant::qtui
