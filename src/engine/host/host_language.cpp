// Statements of the host's session: event processing, progress bars, the status bar, the
// owner of dialogs, and starting the companion program.
//
// Errors besides the parser's syntax errors:
//   642 "Button <id> not found."  (Run Menu Command ID of a button no pad has)
//   642 "Menu command <n> is not supported." (Run Menu Command of a number outside 32 bits;
//        the engine gives the same for commands it does not offer)
//   825 "Unable to run <file>: the embedded host runs no MapBasic program but vellant.mbx."

#include "engine/host/host_language.h"

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"

#include <limits>
#include <optional>
#include <string>

namespace vellant::engine {

namespace {

// "StatusBar" followed by any of Show, Hide and Message "text", in any order; nothing changes
// when a clause fails.
void statusBar(Engine& engine, Cursor& cursor) {
    std::optional<bool> visible;
    std::optional<std::string> message;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("show")) {
            visible = true;
        } else if (cursor.acceptWord("hide")) {
            visible = false;
        } else if (cursor.acceptWord("message")) {
            message = cursor.stringExpression();
        } else {
            cursor.syntaxError("Show, Hide or Message");
        }
    }
    if (!visible && !message) cursor.syntaxError("Show, Hide or Message");
    HostServices& host = engine.host();
    if (visible) host.setStatusBarVisible(*visible);
    if (message) host.setStatusBarMessage(std::move(*message));
}

std::string fileNameOf(std::string_view path) {
    const std::size_t slash = path.find_last_of("/\\");
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

// "Run Menu Command <n>" runs a menu command of the host; "Run Menu Command ID <n>" presses
// the custom button of that id, which is how a MapBasic program presses its own buttons (the
// companion hands its advice to the client so).
void runMenuCommand(Engine& engine, Cursor& cursor) {
    const bool custom = cursor.acceptWord("id");
    const std::int64_t id = cursor.expression().asInteger();
    cursor.expectEnd();
    if (custom) {
        engine.host().pressButton(id);
    } else {
        if (id < std::numeric_limits<int>::min() || id > std::numeric_limits<int>::max())
            raiseMb(kMbCmdNotSupported,
                    "Menu command " + std::to_string(id) + " is not supported.");
        engine.runMenuCommand(static_cast<int>(id));
    }
}

void runApplication(Engine& engine, Cursor& cursor) {
    const std::string file = cursor.stringExpression();
    cursor.expectEnd();
    if (LCase(fileNameOf(file)) != "vellant.mbx")
        raiseMb(kMbCantAccessFile,
                "Unable to run " + file +
                    ": the embedded host runs no MapBasic program but vellant.mbx.");
    engine.host().startCompanion(engine);
}

} // namespace

void registerHostLanguage(Registry& registry) {
    registry.addStatement({"set", "event", "processing"}, [](Engine& engine, Cursor& cursor) {
        const bool on = cursor.onOff();
        cursor.expectEnd();
        engine.host().setEventProcessing(on);
    });
    registry.addStatement({"set", "progressbars"}, [](Engine& engine, Cursor& cursor) {
        const bool on = cursor.onOff();
        cursor.expectEnd();
        engine.host().setProgressBars(on);
    });
    registry.addStatement({"statusbar"}, statusBar);
    registry.addStatement({"set", "application", "window"}, [](Engine& engine, Cursor& cursor) {
        const std::int64_t hwnd = cursor.expression().asInteger();
        cursor.expectEnd();
        engine.host().setApplicationWindow(hwnd);
    });
    registry.addStatement({"run", "application"}, runApplication);
    registry.addStatement({"run", "menu", "command"}, runMenuCommand);
    registerButtonPadLanguage(registry);
    registerSystemInfo(registry);
}

} // namespace vellant::engine
