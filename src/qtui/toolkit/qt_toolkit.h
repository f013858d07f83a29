#pragma once
// The program's toolkit on Qt Widgets: each loaded form gets a view (a real window with real
// widgets), a modal show runs a local event loop until the form is hidden, so that every other
// window, the host's main window included, stays usable as it would beside a separate program.
// Message boxes, popup menus, the open dialog, timers, the mouse pointer, window order and
// placement, the screen, the clipboard, mail and documents are the desktop's own.
//
// Window handles are resolved through NativeWindows: the host's main window, its map windows,
// and every form and control view register there.

#include "platform/event_loop.h"
#include "platform/toolkit.h"
#include "qtui/forms/form_view.h"
#include "qtui/twips.h"

#include <QObject>
#include <QPointer>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QEventLoop;
class QTimer;
class QWidget;

namespace vellant::qtui {

class DeskAutomation;
class NativeWindows;

class QtToolkit : public QObject, public platform::Toolkit, public FormViewHost {
    Q_OBJECT
public:
    // The registry outlives the toolkit.
    explicit QtToolkit(NativeWindows& windows);
    ~QtToolkit() override;

    // ---- for the desktop program, the replay runner and the tests ----
    FormView* viewOf(const platform::Form& form) const;
    // The innermost form now shown modally, or nullptr.
    platform::Form* modalForm() const { return modal_.empty() ? nullptr : modal_.back(); }
    // How many modal shows are running, one inside the other.
    std::size_t modalDepth() const { return modal_.size(); }
    // Answers blocking things instead of a person; nullptr gives them back to the person.
    void setAutomation(DeskAutomation* automation) { automation_ = automation; }
    // Told of each message box once it has its answer (the replay's transcript).
    std::function<void(const std::string& prompt, int buttons, const std::string& title,
                       int answer)>
        onMessage;
    // A run-time error left a handler that the user's input ran. By default the user sees it
    // in a message box, and the program goes on.
    std::function<void(const std::exception& error)> onUnhandledError;
    // The mail composer's command line (xdg-email by default), looked for on the PATH.
    void setMailProgram(std::string program) { mailProgram_ = std::move(program); }
    // Runs the work the program posted, now.
    void runPostedTasks();
    // Told of each SetWindowPos call, as the program made it, before it acts.
    std::function<void(std::int32_t hwnd, std::int32_t insertAfter, int x, int y, int cx, int cy,
                       int flags)>
        onWindowPos;
    // Ticks every running timer once, now; answers how many ticked.
    std::size_t fireTimers();
    // Timers that tick only through fireTimers, never by the clock (a replay's script says
    // when time passes).
    void setTimersByHand(bool byHand) { timersByHand_ = byHand; }
    bool isTimerRunning(const platform::Timer& timer) const;
    std::vector<platform::Form*> loadedForms() const;
    // Told when a modal show of a form begins, before its loop runs.
    std::function<void(platform::Form& form)> onModalShow;
    // True while a message box, a popup menu or the open dialog waits for its answer.
    bool inDialog() const { return dialogDepth_ > 0; }
    // The widget of a control of any loaded form; nullptr when it has none.
    QWidget* widgetOf(const platform::Control& control) const;
    // The forms loaded now, with their views.
    std::vector<FormView*> formViews() const;
    const TwipScale& scale() const { return scale_; }

    // ---- Toolkit ----
    void formLoaded(platform::Form& form) override;
    void formUnloaded(platform::Form& form) override;
    void showModal(platform::Form& form) override;
    void showModeless(platform::Form& form) override;
    void ZOrder(platform::Form& form, int position) override;
    void PopupMenu(platform::Form& form, platform::MenuItem& menu) override;
    int MsgBox(const std::string& prompt, int buttons = platform::vbOKOnly,
               const std::string& title = "") override;
    int MousePointer() const override { return pointer_; }
    void setMousePointer(int pointer) override;
    int ShowCursor(bool show) override;
    bool SetWindowPos(std::int32_t hwnd, std::int32_t insertAfter, int x, int y, int cx, int cy,
                      int flags) override;
    bool SetForegroundWindow(std::int32_t hwnd) override;
    bool GetWindowPlacement(std::int32_t hwnd, platform::WindowPlacement& placement) override;
    platform::ScreenMetrics Screen() const override;
    platform::Picture ClipboardGetPicture() const override;
    void ClipboardSetPicture(const platform::Picture& picture) override;
    void ClipboardClear() override;
    void startTimer(platform::Timer& timer) override;
    void stopTimer(platform::Timer& timer) override;
    std::string ShowOpen(const platform::OpenDialogRequest& request) override;
    bool mailSessionOpen() const override { return mailSession_; }
    void mailSignOn() override;
    void mailSignOff() override { mailSession_ = false; }
    void composeMail(const platform::MailMessage& message) override;
    bool launchDocument(const std::string& path) override;
    std::string ComputerName() const override;
    void post(std::function<void()> task) override;
    void DoEvents() override;

    // ---- FormViewHost ----
    void guardInput(const std::function<void()>& work) override;
    void formAppearing(FormView& view) override;
    void formHidden(FormView& view) override;
    NativeWindows& nativeWindows() override { return windows_; }

private:
    QWidget* windowOf(std::int32_t hwnd) const;
    // The window in front that a dialog should belong to.
    QWidget* dialogParent() const;
    void applyCursor();
    void setTopmost(QWidget& window, bool topmost);
    void placeInOrder(QWidget& window, std::int32_t insertAfter);
    // A window the program shrank to nothing comes back at its form's place and size.
    void raiseFromSink(QWidget& window);
    void endModalLoop(const platform::Form& form);
    void report(const std::exception& error);

    NativeWindows& windows_;
    TwipScale scale_;
    DeskAutomation* automation_ = nullptr;
    std::map<const platform::Form*, QPointer<FormView>> views_;
    std::vector<platform::Form*> modal_;
    std::map<const platform::Form*, QEventLoop*> loops_;
    std::map<platform::Timer*, std::unique_ptr<QTimer>> timers_;
    std::set<QWidget*> sunk_;
    platform::EventLoop posted_;
    bool postPending_ = false;
    int dialogDepth_ = 0;
    bool timersByHand_ = false;
    int pointer_ = platform::vbDefault;
    int cursorCount_ = 0;
    bool cursorOverridden_ = false;
    bool mailSession_ = false;
    std::string mailProgram_ = "xdg-email";
};

} // namespace vellant::qtui
