#include "platform/scripted_toolkit.h"

#include "base/runtime_error.h"
#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/message_box.h"
#include "platform/timer.h"

#include <algorithm>
#include <stdexcept>

namespace vellant::platform {

// ---- the script ----

void ScriptedToolkit::addStep(Step step) {
    steps_.push_back(std::move(step));
}

void ScriptedToolkit::showModal(Form& form) {
    modalStack_.push_back(&form);
    struct Leave {
        std::vector<Form*>& stack;
        ~Leave() { stack.pop_back(); }
    } leave{modalStack_};
    // Nested shows append their own records, so this one is kept by position.
    const std::size_t record = modalShows_.size();
    modalShows_.push_back(ModalShow{form.Name()});
    placeInOrder(form.hWnd(), HWND_TOP);
    foreground_ = form.hWnd();

    loop_.runPending();
    while (form.Loaded() && form.Visible()) {
        if (steps_.empty()) {
            // Nobody is left to close the form; closing it here keeps a test from hanging.
            modalShows_[record].endedByToolkit = true;
            form.Hide();
            break;
        }
        Step step = std::move(steps_.front());
        steps_.pop_front();
        ++modalShows_[record].stepsRun;
        step();
        loop_.runPending();
    }
}

void ScriptedToolkit::showModeless(Form& form) {
    placeInOrder(form.hWnd(), HWND_TOP);
    foreground_ = form.hWnd();
}

void ScriptedToolkit::formLoaded(Form& form) {
    loadedForms_.push_back(&form);
    placeInOrder(form.hWnd(), HWND_TOP);
}

void ScriptedToolkit::formUnloaded(Form& form) {
    std::erase(loadedForms_, &form);
    forget(form.hWnd());
}

void ScriptedToolkit::PopupMenu(Form&, MenuItem& menu) {
    popups_.push_back(menu.Name());
    if (popupChoices_.empty()) return;
    const std::string choice = std::move(popupChoices_.front());
    popupChoices_.pop_front();
    if (choice.empty()) return;
    MenuItem* item = menu.findItem(choice);
    if (!item)
        throw std::invalid_argument("script chooses '" + choice + "', which menu '" + menu.Name() +
                                    "' does not have");
    // A gray or hidden item cannot be chosen; the menu just closes.
    if (item->Enabled() && item->Visible()) item->Click();
}

// ---- message boxes and dialogs ----

int ScriptedToolkit::MsgBox(const std::string& prompt, int buttons, const std::string& title) {
    const std::vector<int> offered = messageBoxButtons(buttons);
    int answer = messageBoxDefault(buttons);
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
        if (std::find(offered.begin(), offered.end(), answer) == offered.end())
            throw std::invalid_argument("script answers " + std::to_string(answer) +
                                        " to a message box without that button: " + prompt);
    }
    messages_.push_back(Message{prompt, buttons, title, answer});
    if (onMessage) onMessage(messages_.back());
    return answer;
}

std::string ScriptedToolkit::ShowOpen(const OpenDialogRequest& request) {
    openDialogs_.push_back(request);
    if (openFiles_.empty()) return "";
    std::string path = std::move(openFiles_.front());
    openFiles_.pop_front();
    return path;
}

// ---- window order ----

void ScriptedToolkit::forget(std::int32_t hwnd) {
    std::erase(windowOrder_, hwnd);
    topmost_.erase(hwnd);
    if (foreground_ == hwnd) foreground_ = 0;
}

void ScriptedToolkit::placeInOrder(std::int32_t hwnd, std::int32_t insertAfter) {
    std::erase(windowOrder_, hwnd);
    // Topmost windows lead the order; the first ordinary one stands here.
    const auto firstOrdinary = [this] {
        return std::find_if(windowOrder_.begin(), windowOrder_.end(),
                            [this](std::int32_t w) { return !topmost_.contains(w); });
    };
    switch (insertAfter) {
    case HWND_TOPMOST:
        topmost_.insert(hwnd);
        windowOrder_.insert(windowOrder_.begin(), hwnd);
        return;
    case HWND_NOTOPMOST:
        topmost_.erase(hwnd);
        windowOrder_.insert(firstOrdinary(), hwnd);
        return;
    case HWND_TOP:
        windowOrder_.insert(topmost_.contains(hwnd) ? windowOrder_.begin() : firstOrdinary(), hwnd);
        return;
    case HWND_BOTTOM:
        topmost_.erase(hwnd);
        windowOrder_.push_back(hwnd);
        return;
    default:
        break;
    }
    const auto after = std::find(windowOrder_.begin(), windowOrder_.end(), insertAfter);
    if (after == windowOrder_.end()) {
        placeInOrder(hwnd, HWND_TOP);
        return;
    }
    // A window placed behind another joins that window's level.
    if (topmost_.contains(insertAfter))
        topmost_.insert(hwnd);
    else
        topmost_.erase(hwnd);
    windowOrder_.insert(after + 1, hwnd);
}

bool ScriptedToolkit::SetWindowPos(std::int32_t hwnd, std::int32_t insertAfter, int x, int y,
                                   int cx, int cy, int flags) {
    windowPosCalls_.push_back(WindowPosCall{hwnd, insertAfter, x, y, cx, cy, flags});
    if (onWindowPos) onWindowPos(windowPosCalls_.back());
    if (!(flags & SWP_NOZORDER)) placeInOrder(hwnd, insertAfter);
    return true;
}

void ScriptedToolkit::ZOrder(Form& form, int position) {
    const std::int32_t hwnd = form.hWnd();
    if (position == 0) {
        placeInOrder(hwnd, HWND_TOP);
        return;
    }
    // To the back of its own level.
    std::erase(windowOrder_, hwnd);
    if (topmost_.contains(hwnd)) {
        const auto end = std::find_if(windowOrder_.begin(), windowOrder_.end(),
                                      [this](std::int32_t w) { return !topmost_.contains(w); });
        windowOrder_.insert(end, hwnd);
    } else {
        windowOrder_.push_back(hwnd);
    }
}

bool ScriptedToolkit::SetForegroundWindow(std::int32_t hwnd) {
    foreground_ = hwnd;
    placeInOrder(hwnd, HWND_TOP);
    return true;
}

void ScriptedToolkit::setWindowPlacement(std::int32_t hwnd, const WindowPlacement& placement) {
    // A window with a placement stands on the desktop: the first one comes in at the top of
    // the ordinary windows, so that other windows can be put behind it.
    if (std::find(windowOrder_.begin(), windowOrder_.end(), hwnd) == windowOrder_.end())
        placeInOrder(hwnd, HWND_TOP);
    placements_[hwnd] = placement;
}

bool ScriptedToolkit::GetWindowPlacement(std::int32_t hwnd, WindowPlacement& placement) {
    const auto it = placements_.find(hwnd);
    if (it == placements_.end()) return false;
    placement = it->second;
    return true;
}

int ScriptedToolkit::ShowCursor(bool show) {
    cursorCount_ += show ? 1 : -1;
    return cursorCount_;
}

// ---- timers ----

void ScriptedToolkit::startTimer(Timer& timer) {
    if (!isTimerRunning(timer)) timers_.push_back(&timer);
}

void ScriptedToolkit::stopTimer(Timer& timer) {
    std::erase(timers_, &timer);
}

bool ScriptedToolkit::isTimerRunning(const Timer& timer) const {
    return std::find(timers_.begin(), timers_.end(), &timer) != timers_.end();
}

std::size_t ScriptedToolkit::fireTimers() {
    // A tick may stop, start or destroy timers; only those still running get their tick.
    const std::vector<Timer*> due = timers_;
    std::size_t ticked = 0;
    for (Timer* timer : due) {
        if (!isTimerRunning(*timer)) continue;
        timer->Tick();
        ++ticked;
    }
    return ticked;
}

// ---- mail and shell ----

void ScriptedToolkit::failNextSignOn(int number, std::string description) {
    signOnError_ = number;
    signOnErrorText_ = std::move(description);
}

void ScriptedToolkit::mailSignOn() {
    if (signOnError_ != 0) {
        const int number = signOnError_;
        signOnError_ = 0;
        throw RuntimeError(number, signOnErrorText_);
    }
    ++signOns_;
    mailSession_ = true;
}

bool ScriptedToolkit::launchDocument(const std::string& path) {
    launched_.push_back(path);
    return launchSucceeds_;
}

} // namespace vellant::platform
