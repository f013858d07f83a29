#pragma once
// The host's windows: maps with their layers, and browsers.
//
// Window ids are opaque numbers from a counter that starts at kFirstWindowId and never goes
// back, so an id never equals a window number (1..NumWindows(), at most 32767), nor a code of
// a system window (1001..1013), nor an id of a closed window. Window numbers count the open
// windows in the order they were opened; WindowID(0) is the most recently opened one. The
// front window is the top of a separate stacking order.
//
// Titles: a map is titled by its layers' tables, "World,Cities Map", a browser
// "World Browser". A window whose title another open window already has takes ":2", ":3"...
// (the lowest free), as the host numbers repeated titles. Set Window Title fixes a title;
// Title Default goes back to the made one. Made titles follow Add Map and Remove Map.
//
// Errors are those of window_errors.h.

#include "engine/windows/coord_transform_cache.h"
#include "engine/windows/window.h"
#include "platform/observer_list.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Catalog;
class Engine;
struct SessionSettings;

// What changed, for a front end that mirrors the windows.
enum class WindowEvent { Opened, Closed, Front, Placement, Title, Contents, Tool };

// Where a new window goes (inches); what is not given follows the host's cascade.
struct NewWindowOptions {
    std::optional<double> x, y, width, height;
    WindowState state = WindowState::Normal;
};

// Set Next Document: taken by the next document window made, then forgotten.
struct NextDocument {
    std::optional<std::int64_t> parent;
    std::optional<int> style;
};

// Run Menu Command ids of the map tools.
enum MapTool : int {
    kToolSelect = 1701,
    kToolGrabber = 1702,
    kToolZoomIn = 1705,
    kToolZoomOut = 1706,
};

inline constexpr int kFirstWindowId = 40001;
inline constexpr int kCloneMapCommand = 811;

class WindowManager {
public:
    // The catalog learns each map's cosmetic table while the map is open; it must outlive
    // the manager.
    explicit WindowManager(Catalog& catalog);
    ~WindowManager();
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    // Map From: the first table becomes layer 1, the top. The map takes the coordinate system
    // of the first table and opens showing all its layers. Raises 405 for a table not open and
    // 642 for one that is not mappable. The new window is the front window.
    Window& openMap(const Catalog& catalog, const std::vector<std::string>& tables,
                    const NewWindowOptions& options);
    // Browse: 405 for a table not open.
    Window& openBrowser(const Catalog& catalog, const std::string& table,
                        std::vector<std::string> columns, const NewWindowOptions& options);
    // A copy of a map with every layer and setting, at the same place, as the front window.
    Window& cloneMap(int id);
    // A map's cosmetic table goes with it, and so do the queries made from that table and
    // the windows left with nothing to show.
    void close(int id);

    // NumWindows().
    int count() const { return static_cast<int>(windows_.size()); }
    // FrontWindow(): 0 when no window is open.
    int frontWindow() const { return order_.empty() ? 0 : order_.front(); }
    // WindowID(0): the most recently opened window still open; 0 when none.
    int mostRecentWindow() const;
    // The id of window number n (1..count()); 0 outside.
    int idAtNumber(int number) const;
    // Windows in the order they were opened.
    std::vector<int> ids() const;

    Window* find(int id);
    const Window* find(int id) const;
    // As find, but 590 for an id of no open window.
    Window& get(int id);
    // A map window: 590, or 313 for another kind.
    Window& getMap(int id);
    // A window as WindowInfo and WindowID name one: an id, a number 1..count() (or -1..-count()),
    // or 0 for the most recent window. 590 when nothing answers.
    Window& resolve(double which);
    // The topmost map window, for Set Map without Window: 313 "No Map window is open.".
    Window& topMap();

    void bringToFront(int id);
    // Title "text" fixes the title; nullopt goes back to the made title.
    void setTitle(int id, std::optional<std::string> title);
    // Tells observers (and mirrors in the frame) that placement, state or visibility changed.
    void placementChanged(int id);
    // After a change to a map's layers or view: the made title follows the layer list when it
    // may have changed, and observers hear of it. (The client's call-back is the statement's
    // business.)
    void mapChanged(int id, bool layerListChanged = true);

    // Create ... Into Window: the object joins the map's cosmetic layer (id 0: the topmost
    // map) and the client hears that the window changed.
    void addCosmeticObject(Engine& engine, int id, std::shared_ptr<const MapObject> object);

    // Add Map: the tables go on top in the order given, or with automatic set each by its
    // kind of objects: points above lines above regions above images.
    void addLayers(const Catalog& catalog, int id, const std::vector<std::string>& tables,
                   bool automatic);
    // Remove Map: layer numbers as they were before the removal; 600 for one the map lacks or
    // for the cosmetic layer.
    void removeLayers(int id, const std::vector<int>& numbers);
    // Close Table: its layers leave every map, and windows left with nothing to show close.
    void tableClosed(std::string_view table);

    NextDocument& nextDocument() { return nextDocument_; }

    // The tool a click in a map uses (kToolSelect ...).
    int mapTool() const { return mapTool_; }
    void setMapTool(int tool);

    // Run Menu Command: 811 clones the front map window; the map tools' ids choose the tool.
    // False for a command this host does not offer.
    bool runMenuCommand(Engine& engine, int id);

    // Transforms between the session's, the windows' and the tables' coordinate systems.
    CoordTransformCache& transforms() { return transforms_; }

    platform::ObserverList<WindowEvent, int> changed;

private:
    // Where a new window goes, and what Set Next Document asked of it.
    void place(Window& window, const NewWindowOptions& options) const;
    // The window joins the open ones, in front; Set Next Document is used up.
    Window& adopt(std::unique_ptr<Window> window);
    void retitle(Window& window);
    std::string madeTitle(const Window& window) const;
    void syncFrame(Window& window);
    int freeCosmeticNumber() const;

    Catalog& catalog_;
    std::vector<std::unique_ptr<Window>> windows_; // in the order they were opened
    std::vector<int> order_;                       // stacking order, front first
    int nextId_ = kFirstWindowId;
    NextDocument nextDocument_;
    int mapTool_ = kToolSelect;
    CoordTransformCache transforms_;
};

} // namespace vellant::engine
