#pragma once
// What the host offers besides tables and windows: button pads, the call-back to the client,
// the running MapBasic programs, event processing, the status bar, the main window.
//
// Call-backs run synchronously on the caller's thread, also from inside a statement that is
// being run, as the real host calls its client back during an automation call. The host does
// not care what the client's call-back answers: a RuntimeError it raises is dropped there, as
// a failed automation call-back is ignored by the real host.

#include "engine/host/button_pad.h"
#include "platform/control.h"
#include "platform/observer_list.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::hostmodel {
class MapInfoCallback;
}

namespace vellant::engine {

class Engine;
class Companion;

// What changed, for a front end that mirrors the host's state.
enum class HostChange { StatusBar, ButtonPads, ApplicationWindow, Applications };

class HostServices {
public:
    HostServices();
    ~HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;

    // Set Event Processing. While it is off the host tells the client of no window change;
    // changes made meanwhile are not told later either.
    bool eventProcessing() const { return eventProcessing_; }
    void setEventProcessing(bool on) { eventProcessing_ = on; }
    // Set ProgressBars.
    bool progressBars() const { return progressBars_; }
    void setProgressBars(bool on) { progressBars_ = on; }

    // StatusBar Show / Hide / Message.
    bool statusBarVisible() const { return statusBarVisible_; }
    const std::string& statusBarMessage() const { return statusBarMessage_; }
    void setStatusBarVisible(bool visible);
    void setStatusBarMessage(std::string message);

    // Set Application Window: the window that owns the host's dialogs; 0 gives them back to
    // the host's own main window. SystemInfo(7).
    std::int64_t applicationWindow() const { return applicationWindow_; }
    void setApplicationWindow(std::int64_t hwnd);

    // The host's main window. Its handle is SystemInfo(9); a front end mirrors the rest.
    platform::Control& mainWindow() { return mainWindow_; }
    const platform::Control& mainWindow() const { return mainWindow_; }

    // Button pads, in the order they were made. A pad made under the name of one that exists
    // takes its place, so that a client that lost its session can make its pad again.
    void createButtonPad(ButtonPad pad);
    // nullptr when there is no pad of that name (any letter case).
    ButtonPad* findButtonPad(std::string_view name);
    // As findButtonPad, but MbError 642 "ButtonPad <name> not found." when there is none.
    ButtonPad& buttonPad(std::string_view name);
    void destroyButtonPad(std::string_view name);
    const std::vector<ButtonPad>& buttonPads() const { return pads_; }

    // The user (or a MapBasic program) presses a button: a Calling OLE button calls that
    // method of the client's call-back with oleCommandText(id), before this returns. Nothing
    // happens when no call-back is set or the button is disabled. MbError 642 for a pad or
    // button that does not exist, and for a method the call-back object does not have (it
    // answers RunCommand only). A toggle button changes its check mark first.
    void pressButton(std::string_view padName, int buttonId);
    // The same for the first pad that has a button of that id ("Run Menu Command ID <id>").
    void pressButton(std::int64_t buttonId);

    // The client's call-back object (SetCallback); nullptr takes it back.
    void setCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback);
    const std::shared_ptr<hostmodel::MapInfoCallback>& callback() const { return callback_; }
    // What a window shows has changed: tells the call-back unless event processing is off.
    void windowContentsChanged(int windowId);

    // The running MapBasic programs. The companion is the only program the embedded host
    // runs; it starts on "Run Application \"vellant.mbx\"" or when a front end starts it, and
    // runs until the host ends. Starting it again leaves the running one as it is.
    Companion& startCompanion(Engine& engine);
    Companion* companion() { return companion_.get(); }
    int applicationCount() const { return companion_ ? 1 : 0; }

    platform::ObserverList<HostChange> changed;

private:
    bool eventProcessing_ = true;
    bool progressBars_ = true;
    bool statusBarVisible_ = true;
    std::string statusBarMessage_;
    std::int64_t applicationWindow_ = 0;
    platform::Control mainWindow_{"MapInfo"};
    std::vector<ButtonPad> pads_;
    std::shared_ptr<hostmodel::MapInfoCallback> callback_;
    std::unique_ptr<Companion> companion_;
};

} // namespace vellant::engine
