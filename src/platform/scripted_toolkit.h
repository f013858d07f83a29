#pragma once
// The toolkit without a desktop, for tests and the headless replay runner. The user is a
// script: a queue of actions that run one by one inside whichever modal show is innermost,
// with queued work of the event loop run between them. Message boxes, dialogs and popup menus
// take their answers from queues. Everything the program asks of the desktop is recorded.

#include "platform/event_loop.h"
#include "platform/toolkit.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vellant::platform {

class ScriptedToolkit : public Toolkit {
public:
    using Step = std::function<void()>;

    struct ModalShow {
        std::string form;
        std::size_t stepsRun = 0;
        // The script ran out while the form was still up, so the toolkit hid it.
        bool endedByToolkit = false;
    };

    struct Message {
        std::string prompt;
        int buttons = vbOKOnly;
        std::string title;
        int answer = vbOK;
    };

    struct WindowPosCall {
        std::int32_t hwnd, insertAfter;
        int x, y, cx, cy, flags;
    };

    // ---- the script ----
    void addStep(Step step);
    std::size_t pendingSteps() const { return steps_.size(); }
    // The innermost form now shown modally, or nullptr.
    Form* modalForm() const { return modalStack_.empty() ? nullptr : modalStack_.back(); }
    const std::vector<ModalShow>& modalShows() const { return modalShows_; }

    // ---- answers ----
    // The answer for the next message box; without one a box takes its default button. An
    // answer the box has no button for is a fault of the script and throws
    // std::invalid_argument.
    void queueAnswer(int answer) { answers_.push_back(answer); }
    const std::vector<Message>& messages() const { return messages_; }
    // Told of each message box once it has its answer, before MsgBox returns (the replay
    // runner's transcript keeps them in order with everything else).
    std::function<void(const Message&)> onMessage;
    // The item chosen in the next popup menu, by control name; "" closes it without a choice.
    void queuePopupChoice(std::string itemName) { popupChoices_.push_back(std::move(itemName)); }
    const std::vector<std::string>& popups() const { return popups_; }
    // The next open dialog's choice; without one the user cancels.
    void queueOpenFile(std::string path) { openFiles_.push_back(std::move(path)); }
    const std::vector<OpenDialogRequest>& openDialogs() const { return openDialogs_; }

    // ---- recorded state ----
    const std::vector<WindowPosCall>& windowPosCalls() const { return windowPosCalls_; }
    // Told of each SetWindowPos call as it is recorded (the replay runner's transcript).
    std::function<void(const WindowPosCall&)> onWindowPos;
    // Windows front first; topmost ones lead.
    const std::vector<std::int32_t>& windowOrder() const { return windowOrder_; }
    bool isTopmost(std::int32_t hwnd) const { return topmost_.contains(hwnd); }
    std::int32_t foregroundWindow() const { return foreground_; }
    // What GetWindowPlacement answers for a window (the host's main window, say); a window
    // without one answers false. A window new to the toolkit joins the window order.
    void setWindowPlacement(std::int32_t hwnd, const WindowPlacement& placement);
    int cursorCount() const { return cursorCount_; }
    const std::vector<Form*>& loadedForms() const { return loadedForms_; }
    const std::vector<MailMessage>& mails() const { return mails_; }
    int signOns() const { return signOns_; }
    // The next sign-on fails with this error, as a cancelled logon does (32003).
    void failNextSignOn(int number, std::string description);
    const std::vector<std::string>& launchedDocuments() const { return launched_; }
    void setLaunchSucceeds(bool succeeds) { launchSucceeds_ = succeeds; }
    void setComputerName(std::string name) { computerName_ = std::move(name); }
    void setScreen(const ScreenMetrics& screen) { screen_ = screen; }
    EventLoop& eventLoop() { return loop_; }

    // ---- timers ----
    // Ticks every running timer once, in the order they started; answers how many ticked.
    std::size_t fireTimers();
    bool isTimerRunning(const Timer& timer) const;

    // ---- Toolkit ----
    void formLoaded(Form& form) override;
    void formUnloaded(Form& form) override;
    void showModal(Form& form) override;
    void showModeless(Form& form) override;
    void ZOrder(Form& form, int position) override;
    void PopupMenu(Form& form, MenuItem& menu) override;
    int MsgBox(const std::string& prompt, int buttons = vbOKOnly,
               const std::string& title = "") override;
    int MousePointer() const override { return mousePointer_; }
    void setMousePointer(int pointer) override { mousePointer_ = pointer; }
    int ShowCursor(bool show) override;
    bool SetWindowPos(std::int32_t hwnd, std::int32_t insertAfter, int x, int y, int cx, int cy,
                      int flags) override;
    bool SetForegroundWindow(std::int32_t hwnd) override;
    bool GetWindowPlacement(std::int32_t hwnd, WindowPlacement& placement) override;
    ScreenMetrics Screen() const override { return screen_; }
    Picture ClipboardGetPicture() const override { return clipboard_; }
    void ClipboardSetPicture(const Picture& picture) override { clipboard_ = picture; }
    void ClipboardClear() override { clipboard_ = Picture{}; }
    void startTimer(Timer& timer) override;
    void stopTimer(Timer& timer) override;
    std::string ShowOpen(const OpenDialogRequest& request) override;
    bool mailSessionOpen() const override { return mailSession_; }
    void mailSignOn() override;
    void mailSignOff() override { mailSession_ = false; }
    void composeMail(const MailMessage& message) override { mails_.push_back(message); }
    bool launchDocument(const std::string& path) override;
    std::string ComputerName() const override { return computerName_; }
    void post(std::function<void()> task) override { loop_.post(std::move(task)); }
    void DoEvents() override { loop_.runPending(); }

private:
    void forget(std::int32_t hwnd);
    void placeInOrder(std::int32_t hwnd, std::int32_t insertAfter);

    std::deque<Step> steps_;
    std::vector<Form*> modalStack_;
    std::vector<ModalShow> modalShows_;
    EventLoop loop_;

    std::deque<int> answers_;
    std::vector<Message> messages_;
    std::deque<std::string> popupChoices_;
    std::vector<std::string> popups_;
    std::deque<std::string> openFiles_;
    std::vector<OpenDialogRequest> openDialogs_;

    std::vector<Form*> loadedForms_;
    std::vector<WindowPosCall> windowPosCalls_;
    std::vector<std::int32_t> windowOrder_;
    std::set<std::int32_t> topmost_;
    std::int32_t foreground_ = 0;
    std::map<std::int32_t, WindowPlacement> placements_;

    int mousePointer_ = vbDefault;
    int cursorCount_ = 0;
    ScreenMetrics screen_;
    Picture clipboard_;
    std::vector<Timer*> timers_;

    bool mailSession_ = false;
    int signOns_ = 0;
    int signOnError_ = 0;
    std::string signOnErrorText_;
    std::vector<MailMessage> mails_;
    std::vector<std::string> launched_;
    bool launchSucceeds_ = true;
    std::string computerName_ = "HEADLESS";
};

} // namespace vellant::platform
