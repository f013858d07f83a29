// Set Window, Close Window, Browse and Set Next Document.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

#include <cmath>

namespace vellant::engine {

namespace {

// The host's own windows that Close Window names by word; none of them is a document
// window, and closing one that is not open does nothing.
constexpr std::string_view kSystemWindows[] = {
    "help",    "info",      "layercontrol", "legend",     "mapbasic",
    "message", "movemapto", "ruler",        "statistics", "tablelist",
};
constexpr int kFirstSystemWindowCode = 1001;
constexpr int kLastSystemWindowCode = 1013;

std::int64_t readHandle(Cursor& cursor) {
    const double value = cursor.numberExpression();
    if (value != std::floor(value) || std::fabs(value) > 9.2e18)
        raiseValueOutOfRange("Handle", value);
    return static_cast<std::int64_t>(value);
}

void readPrinter(Cursor& cursor, PrinterSettings& printer) {
    while (true) {
        if (cursor.acceptWord("default")) {
            printer = PrinterSettings{};
        } else if (cursor.acceptWord("name")) {
            printer.name = cursor.stringExpression();
        } else if (cursor.acceptWord("orientation")) {
            if (cursor.acceptWord("landscape")) {
                printer.orientation = 2;
            } else {
                cursor.expectWord("portrait");
                printer.orientation = 1;
            }
        } else if (cursor.acceptWord("copies")) {
            const double copies = cursor.numberExpression();
            if (copies < 1 || copies > 32767) raiseValueOutOfRange("Copies", copies);
            printer.copies = static_cast<int>(copies);
        } else if (cursor.acceptWord("papersize")) {
            const double size = cursor.numberExpression();
            if (size < 1 || size > 32767) raiseValueOutOfRange("Papersize", size);
            printer.paperSize = static_cast<int>(size);
        } else if (cursor.acceptWord("border")) {
            printer.border = cursor.onOff();
        } else if (cursor.acceptWord("truecolor")) {
            printer.trueColor = cursor.onOff();
        } else if (cursor.peekWord("left") || cursor.peekWord("right") || cursor.peekWord("top") ||
                   cursor.peekWord("bottom")) {
            const std::string side = cursor.peek().lower;
            cursor.advance();
            cursor.expectWord("margin");
            const double inches = readMargin(cursor);
            (side == "left"    ? printer.leftMargin
             : side == "right" ? printer.rightMargin
             : side == "top"   ? printer.topMargin
                               : printer.bottomMargin) = inches;
        } else {
            return;
        }
    }
}

// Enhanced On|Off [Smooth {Text|Image|Vector} <mode> ...].
void readEnhanced(Cursor& cursor, WindowSettings& window) {
    window.enhancedRendering = cursor.onOff();
    if (!cursor.acceptWord("smooth")) return;
    bool any = false;
    while (true) {
        if (cursor.acceptWord("text")) {
            window.smoothText = cursor.identifier();
        } else if (cursor.acceptWord("image")) {
            window.smoothImage = cursor.identifier();
        } else if (cursor.acceptWord("vector")) {
            window.smoothVector = cursor.identifier();
        } else {
            break;
        }
        any = true;
    }
    if (!any) cursor.syntaxError("Text, Image or Vector");
}

// Changes go to a copy of the window's settings that replaces them once the whole statement
// has been read; only the stacking order and the title go through the manager afterwards.
void setWindow(Engine& engine, Cursor& cursor) {
    WindowManager& windows = engine.windows();
    Window& window = windows.get(readWindowId(cursor));
    WindowPlacement placement = window.placement;
    WindowState state = window.state;
    WindowSettings settings = window.settings;
    bool front = false;
    bool titleGiven = false;
    std::optional<std::string> title;

    while (!cursor.atEnd()) {
        if (cursor.acceptWord("position")) {
            const MapPoint p = readWindowPosition(cursor);
            placement.x = p.x;
            placement.y = p.y;
        } else if (cursor.acceptWord("width")) {
            placement.width = readWindowSize(cursor, "Width");
        } else if (cursor.acceptWord("height")) {
            placement.height = readWindowSize(cursor, "Height");
        } else if (cursor.acceptWord("front")) {
            front = true;
        } else if (cursor.acceptWord("title")) {
            titleGiven = true;
            if (cursor.acceptWord("default")) {
                title.reset();
            } else {
                title = cursor.stringExpression();
            }
        } else if (cursor.acceptWord("min")) {
            state = WindowState::Minimized;
        } else if (cursor.acceptWord("max")) {
            state = WindowState::Maximized;
        } else if (cursor.acceptWord("restore")) {
            state = WindowState::Normal;
        } else if (cursor.acceptWord("scrollbars")) {
            settings.scrollBars = cursor.onOff();
        } else if (cursor.acceptWord("autoscroll")) {
            settings.autoscroll = cursor.onOff();
        } else if (cursor.acceptWord("smart")) {
            cursor.expectWord("pan");
            settings.smartPan = cursor.onOff();
        } else if (cursor.acceptWord("sysmenuclose")) {
            settings.sysMenuClose = cursor.onOff();
        } else if (cursor.acceptWord("snap")) {
            if (cursor.acceptWord("tolerance")) {
                const double pixels = cursor.numberExpression();
                if (pixels < 1 || pixels > 50) raiseValueOutOfRange("Snap tolerance", pixels);
                settings.snapThreshold = static_cast<int>(pixels);
            } else {
                cursor.expectWord("mode");
                settings.snapMode = cursor.onOff();
            }
        } else if (cursor.acceptWord("show")) {
            settings.visible = true;
        } else if (cursor.acceptWord("hide")) {
            settings.visible = false;
        } else if (cursor.acceptWord("parent")) {
            settings.parent = readHandle(cursor);
        } else if (cursor.acceptWord("enhanced")) {
            readEnhanced(cursor, settings);
        } else if (cursor.acceptWord("printer")) {
            readPrinter(cursor, settings.printer);
        } else {
            cursor.syntaxError();
        }
    }

    // A map that keeps its scale shows more ground in a wider window.
    if (window.map && window.map->preserve == MapPreserve::Scale && window.placement.width > 0) {
        window.map->zoomMetres *= placement.width / window.placement.width;
    }
    window.placement = placement;
    window.state = state;
    window.settings = settings;
    const int id = window.id();
    windows.placementChanged(id);
    if (titleGiven) windows.setTitle(id, title);
    if (front) windows.bringToFront(id);
}

void closeWindow(Engine& engine, Cursor& cursor) {
    for (std::string_view name : kSystemWindows) {
        if (cursor.peekWord(name) && !engine.variables().find(name)) {
            cursor.advance();
            cursor.acceptWord("interactive");
            cursor.expectEnd();
            return;
        }
    }
    const int id = readWindowId(cursor);
    cursor.acceptWord("interactive");
    cursor.expectEnd();
    WindowManager& windows = engine.windows();
    if (!windows.find(id) && id >= kFirstSystemWindowCode && id <= kLastSystemWindowCode) return;
    windows.close(id);
}

void browse(Engine& engine, Cursor& cursor) {
    std::vector<std::string> columns;
    if (cursor.acceptSymbol("*")) {
        columns.emplace_back("*");
    } else {
        do {
            columns.push_back(readExpressionText(cursor));
        } while (cursor.acceptSymbol(","));
    }
    cursor.expectWord("from");
    const std::string table = cursor.nameOrString();
    const NewWindowOptions options = readNewWindowOptions(cursor);
    cursor.expectEnd();
    engine.windows().openBrowser(engine.catalog(), table, std::move(columns), options);
}

void setNextDocument(Engine& engine, Cursor& cursor) {
    NextDocument next = engine.windows().nextDocument();
    bool any = false;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("parent")) {
            next.parent = readHandle(cursor);
        } else if (cursor.acceptWord("style")) {
            const double style = cursor.numberExpression();
            if (style < 0 || style > 3 || style != std::floor(style)) {
                raiseValueOutOfRange("Style", style);
            }
            next.style = static_cast<int>(style);
        } else {
            cursor.syntaxError("Parent or Style");
        }
        any = true;
    }
    if (!any) cursor.syntaxError("Parent or Style");
    engine.windows().nextDocument() = next;
}

} // namespace

void registerWindowStatements(Registry& registry) {
    registry.addStatement({"set", "window"}, setWindow);
    registry.addStatement({"close", "window"}, closeWindow);
    registry.addStatement({"browse"}, browse);
    registry.addStatement({"set", "next", "document"}, setNextDocument);
}

} // namespace vellant::engine
