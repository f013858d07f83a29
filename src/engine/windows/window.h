#pragma once
// A document window of the host: a map or a browser. Positions and sizes are kept in inches
// and reported in the session's paper units.

#include "engine/windows/map_state.h"
#include "platform/control.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class CosmeticTable;
class Table;

// WindowInfo(..., 3).
enum class WindowType : int { Map = 1, Browser = 2 };
// WindowInfo(..., 9).
enum class WindowState : int { Normal = 0, Minimized = 1, Maximized = 2 };

struct WindowPlacement {
    double x = 0; // from the left of the host's client area
    double y = 0; // from its top
    double width = 6;
    double height = 4;
    bool operator==(const WindowPlacement&) const = default;
};

// Set Window ... Printer.
struct PrinterSettings {
    std::string name;    // empty: the default printer
    int orientation = 1; // 1 portrait, 2 landscape
    int copies = 1;
    int paperSize = 9; // A4
    double leftMargin = 0.25, rightMargin = 0.25, topMargin = 0.25, bottomMargin = 0.25;
    bool border = false;
    bool trueColor = true;
    bool operator==(const PrinterSettings&) const = default;
};

// What Set Window sets besides placement, state, title and stacking.
struct WindowSettings {
    bool visible = true;
    std::int64_t parent = 0; // Set Next Document Parent / Set Window Parent
    int documentStyle = 0;   // Set Next Document Style: 0 standard, 1 child, 2 and 3 popups
    bool scrollBars = false;
    bool autoscroll = true;
    bool smartPan = false;
    bool sysMenuClose = true;
    bool snapMode = false;
    int snapThreshold = 5;
    bool enhancedRendering = false;
    std::string smoothText = "None";
    std::string smoothImage = "Low";
    std::string smoothVector = "None";
    PrinterSettings printer;
    bool operator==(const WindowSettings&) const = default;
};

class Window {
public:
    Window(int id, WindowType type);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    int id() const { return id_; }
    WindowType type() const { return type_; }
    // The native-window handle (WindowInfo 12), from the desktop's one handle space, so that it
    // never names a form of the program.
    std::int32_t handle() const { return frame_->hWnd(); }
    // The frame a front end mirrors: Caption is the title, Left/Top/Width/Height the placement
    // in twips, Visible whether the window shows.
    platform::Control& frame() { return *frame_; }

    // The title as WindowInfo 1 gives it; see WindowManager for how it is made.
    const std::string& title() const { return title_; }
    bool hasCustomTitle() const { return customTitle_; }
    // Maps only: the table of the cosmetic layer, while the window is open; nullptr otherwise.
    Table* cosmeticTable() const;

    WindowPlacement placement;
    WindowState state = WindowState::Normal;
    WindowSettings settings;

    // Maps only.
    std::optional<MapState> map;
    // Browsers only: the table and the columns shown ("*" for all).
    std::string browseTable;
    std::vector<std::string> browseColumns;

private:
    friend class WindowManager;
    int id_;
    WindowType type_;
    std::unique_ptr<platform::Control> frame_;
    std::unique_ptr<CosmeticTable> cosmeticTable_;
    std::string title_;
    bool customTitle_ = false;
    std::string baseTitle_; // the title without its ":n" instance
    int titleInstance_ = 1;
};

} // namespace vellant::engine
