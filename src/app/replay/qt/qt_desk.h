#pragma once
// The replay on the real widgets: the host's main window on the engine, the Qt toolkit, and a
// user whose hands are QTest's mouse and key events. Steps run inside the innermost modal
// show's event loop, never inside a message box or a menu that waits for its answer; those
// are answered from the script's queues with a click on the real button or item. Each snapshot
// can leave a picture of the forms on the screen.

#include "app/replay/replay_desk.h"
#include "qtui/toolkit/desk_automation.h"
#include "qtui/toolkit/qt_toolkit.h"

#include <QObject>
#include <deque>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {
class Engine;
}
namespace vellant::qtui {
class HostMainWindow;
}

namespace vellant::replay {

class QtHands;

class QtDesk : public QObject, public ReplayDesk, public qtui::DeskAutomation {
    Q_OBJECT
public:
    // shotsDir empty: no pictures. The host's window shows at once.
    QtDesk(engine::Engine& engine, std::filesystem::path shotsDir);
    ~QtDesk() override;

    qtui::QtToolkit& qt() { return *toolkit_; }
    qtui::HostMainWindow& hostWindow() { return *window_; }

    // ---- ReplayDesk ----
    platform::Toolkit& toolkit() override { return *toolkit_; }
    UserHands& hands() override;
    void addStep(std::function<void()> step) override;
    platform::Form* modalForm() const override { return toolkit_->modalForm(); }
    void queueAnswer(int answer) override { answers_.push_back(answer); }
    void queuePopupChoice(std::string item) override { choices_.push_back(std::move(item)); }
    void queueOpenFile(std::string path) override { openFiles_.push_back(std::move(path)); }
    void snapshotTaken(session::Session& session) override;
    bool setScreen(int widthPixels, int heightPixels) override;
    bool placeHostWindow(std::int32_t hwnd, const platform::WindowPlacement& placement) override;
    std::size_t tickTimers() override;
    bool timerRunning(const platform::Timer& timer) const override;
    void dragFormHeight(platform::Form& form, int heightTwips) override;
    std::vector<platform::Form*> loadedForms() const override;

    // ---- DeskAutomation ----
    std::optional<int> messageBoxAnswer(const std::string& prompt, const std::vector<int>& buttons,
                                        int defaultAnswer) override;
    std::optional<std::string> popupChoice(const std::string& menuName) override;
    std::optional<std::string> openFileChoice(const platform::OpenDialogRequest&) override;
    void click(QWidget& widget, QPoint at) override;
    void key(QWidget& widget, int qtKey) override;

    // The forms on the screen now, painted into one picture as they stand (with the host's
    // window under a docked form).
    QImage screenPicture(const session::Session& session) const;

private:
    void schedulePump();
    void pump();
    void raiseUnhandled();
    void settle();

    std::unique_ptr<qtui::HostMainWindow> window_;
    std::unique_ptr<qtui::QtToolkit> toolkit_;
    std::unique_ptr<QtHands> hands_;
    std::deque<std::function<void()>> steps_;
    std::deque<int> answers_;
    std::deque<std::string> choices_;
    std::deque<std::string> openFiles_;
    bool pumpPending_ = false;
    // The modal depth each running step began at: a step runs only inside a modal show deeper
    // than the one of the step under way, so that the events an action lets run never start
    // the next step in the middle of it.
    std::vector<std::size_t> stepDepths_;
    int settling_ = 0;
    std::exception_ptr unhandled_;
    std::filesystem::path shotsDir_;
    int shots_ = 0;
};

// A desk maker for ReplayRun.
std::function<std::unique_ptr<ReplayDesk>(engine::Engine&)>
qtDeskMaker(std::filesystem::path shotsDir = {});

} // namespace vellant::replay
