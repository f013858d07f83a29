#include "engine/host/host_services.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/host/companion.h"
#include "engine/mb_error.h"
#include "hostmodel/mapinfo_app.h"

#include <algorithm>
#include <limits>

namespace vellant::engine {

HostServices::HostServices() = default;
HostServices::~HostServices() = default;

void HostServices::setStatusBarVisible(bool visible) {
    if (statusBarVisible_ == visible) return;
    statusBarVisible_ = visible;
    changed.notify(HostChange::StatusBar);
}

void HostServices::setStatusBarMessage(std::string message) {
    if (statusBarMessage_ == message) return;
    statusBarMessage_ = std::move(message);
    changed.notify(HostChange::StatusBar);
}

void HostServices::setApplicationWindow(std::int64_t hwnd) {
    if (applicationWindow_ == hwnd) return;
    applicationWindow_ = hwnd;
    changed.notify(HostChange::ApplicationWindow);
}

void HostServices::createButtonPad(ButtonPad pad) {
    if (ButtonPad* existing = findButtonPad(pad.name))
        *existing = std::move(pad);
    else
        pads_.push_back(std::move(pad));
    changed.notify(HostChange::ButtonPads);
}

ButtonPad* HostServices::findButtonPad(std::string_view name) {
    const auto it = std::find_if(pads_.begin(), pads_.end(),
                                 [name](const ButtonPad& p) { return samePadName(p.name, name); });
    return it == pads_.end() ? nullptr : &*it;
}

ButtonPad& HostServices::buttonPad(std::string_view name) {
    ButtonPad* pad = findButtonPad(name);
    if (!pad) raiseMb(kMbCmdNotSupported, "ButtonPad " + std::string(name) + " not found.");
    return *pad;
}

void HostServices::destroyButtonPad(std::string_view name) {
    const ButtonPad& pad = buttonPad(name);
    pads_.erase(pads_.begin() + (&pad - pads_.data()));
    changed.notify(HostChange::ButtonPads);
}

void HostServices::pressButton(std::string_view padName, int buttonId) {
    PadButton* button = buttonPad(padName).button(buttonId);
    if (!button) raiseMb(kMbCmdNotSupported, "Button " + std::to_string(buttonId) + " not found.");
    if (!button->enabled) return;
    if (button->kind == PadButton::Kind::ToggleButton) {
        button->checked = !button->checked;
        changed.notify(HostChange::ButtonPads);
    }
    // The call-back may destroy the pad or replace the call-back: keep what the call needs.
    const std::string method = LCase(button->oleMethod);
    const std::shared_ptr<hostmodel::MapInfoCallback> callback = callback_;
    if (!callback) return;
    if (method != "runcommand")
        raiseMb(kMbCmdNotSupported,
                "The call-back object has no method " + button->oleMethod + ".");
    try {
        callback->RunCommand(oleCommandText(buttonId));
    } catch (const RuntimeError&) {
        // The client's failure is the client's; the host goes on.
    }
}

void HostServices::pressButton(std::int64_t buttonId) {
    for (const ButtonPad& pad : pads_) {
        if (buttonId > 0 && buttonId <= std::numeric_limits<int>::max() &&
            pad.button(static_cast<int>(buttonId))) {
            const std::string name = pad.name; // the press may destroy the pad
            pressButton(name, static_cast<int>(buttonId));
            return;
        }
    }
    raiseMb(kMbCmdNotSupported, "Button " + std::to_string(buttonId) + " not found.");
}

void HostServices::setCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) {
    callback_ = std::move(callback);
}

void HostServices::windowContentsChanged(int windowId) {
    if (!eventProcessing_) return;
    const std::shared_ptr<hostmodel::MapInfoCallback> callback = callback_;
    if (!callback) return;
    try {
        callback->WindowContentsChanged(windowId);
    } catch (const RuntimeError&) {
        // As above: the host does not care what the client answers.
    }
}

Companion& HostServices::startCompanion(Engine& engine) {
    if (!companion_) {
        companion_ = std::make_unique<Companion>(engine);
        changed.notify(HostChange::Applications);
    }
    return *companion_;
}

} // namespace vellant::engine
