#pragma once
// Where a replay runs: the toolkit the program gets, the queue of the user's steps that run
// inside whichever modal show is innermost, the answers waiting for message boxes and popup
// menus, and the user's hands. The scripted desk is headless; the Qt desk (app/replay/qt) is
// the real widgets on Qt's offscreen platform.

#include "app/replay/user_hands.h"
#include "platform/scripted_toolkit.h"
#include "platform/toolkit.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vellant::platform {
class Form;
class Timer;
} // namespace vellant::platform
namespace vellant::session {
struct Session;
}

namespace vellant::replay {

class ReplayDesk {
public:
    virtual ~ReplayDesk() = default;

    virtual platform::Toolkit& toolkit() = 0;
    virtual UserHands& hands() = 0;

    // The user's next step: it runs inside the innermost modal show, after the work the program
    // posted has run. A modal show that finds no step waiting closes its form, as nobody is
    // left to close it.
    virtual void addStep(std::function<void()> step) = 0;
    // The innermost form now shown modally, or nullptr.
    virtual platform::Form* modalForm() const = 0;
    // The answer for the next message box (vbOK..vbNo); without one a box takes its default.
    virtual void queueAnswer(int answer) = 0;
    // The item chosen in the next popup menu by control name; "" closes it without a choice.
    virtual void queuePopupChoice(std::string item) = 0;
    // The file chosen in the next open dialog; "" cancels it, as does a dialog with none waiting.
    virtual void queueOpenFile(std::string path) = 0;

    // Told of each message box once it is answered, and of each SetWindowPos call.
    std::function<void(const std::string& prompt)> onMessage;
    std::function<void(const platform::ScriptedToolkit::WindowPosCall& call)> onWindowPos;

    // ---- the desktop around the session ----
    // The screen's size in pixels; false when the desk's screen is the platform's own.
    virtual bool setScreen(int widthPixels, int heightPixels) = 0;
    // Places the host's main window (its handle is hwnd) as a placement record says; false for
    // a state this desktop cannot put a window in.
    virtual bool placeHostWindow(std::int32_t hwnd, const platform::WindowPlacement& placement) = 0;
    // Ticks every running timer once, now; answers how many ticked.
    virtual std::size_t tickTimers() = 0;
    virtual bool timerRunning(const platform::Timer& timer) const = 0;
    // The user drags the form's top edge: its bottom stays, its height becomes this.
    virtual void dragFormHeight(platform::Form& form, int heightTwips) = 0;
    virtual std::vector<platform::Form*> loadedForms() const = 0;

    // A snapshot of the session's grid was written; a desk with a screen may keep a picture.
    virtual void snapshotTaken(session::Session&) {}
};

} // namespace vellant::replay
