// WindowInfo(window, attribute). Sizes and positions come in the session's paper units.

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/windows/info_values.h"
#include "engine/windows/units.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"
#include "engine/windows/window_workspace.h"

namespace vellant::engine {

namespace {

constexpr const char* kFunction = "WindowInfo";

MbValue windowInfo(Engine& engine, const Window& window, int code) {
    const double paper = paperUnitInches(engine.settings().paperUnits);
    const WindowSettings& s = window.settings;
    const PrinterSettings& printer = s.printer;
    switch (code) {
    case 1:
        return MbValue::string(window.title());
    case 3:
        return smallInt(static_cast<int>(window.type()));
    case 4:
        return MbValue::number(window.placement.width / paper);
    case 5:
        return MbValue::number(window.placement.height / paper);
    case 6:
        return MbValue::number(window.placement.x / paper);
    case 7:
        return MbValue::number(window.placement.y / paper);
    case 8:
        return MbValue::logical(engine.windows().frontWindow() == window.id());
    case 9:
        return smallInt(static_cast<int>(window.state));
    case 10:
        if (window.type() != WindowType::Browser) raiseArgumentOutOfRange(2, kFunction);
        return MbValue::string(window.browseTable);
    case 11:
        return MbValue::logical(s.visible);
    case 12:
        return MbValue::integer(window.handle());
    case 13:
        return MbValue::integer(window.id());
    case 14:
    case 15:
        return MbValue::string(windowWorkspaceText(engine, window));
    case 16:
        return MbValue::logical(s.sysMenuClose);
    case 17:
        return MbValue::logical(s.autoscroll);
    case 18:
        return MbValue::logical(s.smartPan);
    case 19:
        return MbValue::logical(s.snapMode);
    case 20:
        return smallInt(s.snapThreshold);
    case 21:
        return MbValue::string(printer.name);
    case 22:
        return smallInt(printer.orientation);
    case 23:
        return smallInt(printer.copies);
    case 24:
        return smallInt(printer.paperSize);
    case 25:
        return MbValue::number(printer.leftMargin / paper);
    case 26:
        return MbValue::number(printer.rightMargin / paper);
    case 27:
        return MbValue::number(printer.topMargin / paper);
    case 28:
        return MbValue::number(printer.bottomMargin / paper);
    case 29:
        return MbValue::logical(printer.border);
    case 30:
        return MbValue::logical(printer.trueColor);
    case 45:
        return MbValue::logical(s.enhancedRendering);
    case 46:
        return MbValue::string(s.smoothText);
    case 47:
        return MbValue::string(s.smoothImage);
    case 48:
        return MbValue::string(s.smoothVector);
    default:
        raiseArgumentOutOfRange(2, kFunction);
    }
}

} // namespace

void registerWindowInfo(Registry& registry) {
    registry.addFunction(kFunction, 2, 2, [](Engine& engine, std::vector<MbValue>& args) {
        const Window& window = engine.windows().resolve(args[0].asNumber());
        return windowInfo(engine, window, attributeCode(args[1], 2, kFunction));
    });
}

} // namespace vellant::engine
