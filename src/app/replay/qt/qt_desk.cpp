#include "app/replay/qt/qt_desk.h"

#include "app/replay/qt/desk_picture.h"
#include "app/replay/qt/qt_hands.h"
#include "platform/form.h"
#include "qtui/forms/form_view.h"
#include "qtui/host/host_main_window.h"
#include "session/session.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace vellant::replay {

void QtDesk::settle() {
    // Only what the last action set off runs here: the script's next step waits.
    ++settling_;
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    --settling_;
}

QtDesk::QtDesk(engine::Engine& engine, std::filesystem::path shotsDir)
    : window_(std::make_unique<qtui::HostMainWindow>(engine)),
      toolkit_(std::make_unique<qtui::QtToolkit>(window_->nativeWindows())),
      hands_(std::make_unique<QtHands>(*toolkit_, [this] { raiseUnhandled(); })),
      shotsDir_(std::move(shotsDir)) {
    toolkit_->setAutomation(this);
    toolkit_->setTimersByHand(true);
    toolkit_->onMessage = [this](const std::string& prompt, int, const std::string&, int) {
        if (onMessage) onMessage(prompt);
    };
    // A run-time error that leaves a handler ends the program on the desktop; the runner
    // reports it as the scripted desk does, from the step that caused it.
    toolkit_->onUnhandledError = [this](const std::exception&) {
        if (!unhandled_) unhandled_ = std::current_exception();
    };
    toolkit_->onModalShow = [this](platform::Form&) { schedulePump(); };
    toolkit_->onWindowPos = [this](std::int32_t hwnd, std::int32_t after, int x, int y, int cx,
                                   int cy, int flags) {
        if (onWindowPos) onWindowPos({hwnd, after, x, y, cx, cy, flags});
    };
    // The script speaks for the companion: it gives the advice a moved window would bring.
    window_->setAdvisesCompanion(false);
    window_->setErrorReporter([](int code, const QString& text) {
        std::fprintf(stderr, "vellant-replay: host error %d: %s\n", code,
                     text.toStdString().c_str());
    });
    window_->show();
    if (!QTest::qWaitForWindowExposed(window_.get()))
        throw std::runtime_error("the host's window does not show");
    // Every move and resize of the host's window is over before a session can hear of one.
    settle();
    if (!shotsDir_.empty()) std::filesystem::create_directories(shotsDir_);
}

QtDesk::~QtDesk() {
    toolkit_->setAutomation(nullptr);
    toolkit_.reset();
    window_.reset();
    settle();
}

void QtDesk::raiseUnhandled() {
    if (std::exception_ptr error = std::exchange(unhandled_, nullptr))
        std::rethrow_exception(error);
}

UserHands& QtDesk::hands() {
    return *hands_;
}

// ---- the user's steps ----

void QtDesk::addStep(std::function<void()> step) {
    steps_.push_back(std::move(step));
    schedulePump();
}

void QtDesk::schedulePump() {
    if (pumpPending_) return;
    pumpPending_ = true;
    QTimer::singleShot(0, this, [this] {
        pumpPending_ = false;
        pump();
    });
}

void QtDesk::pump() {
    if (!toolkit_) return; // the desk is closing
    platform::Form* form = toolkit_->modalForm();
    // Steps run inside a modal show, and not while a box or a menu waits for its answer: that
    // comes first.
    if (form == nullptr) return;
    if (!stepDepths_.empty() && toolkit_->modalDepth() <= stepDepths_.back()) return;
    if (toolkit_->inDialog() || settling_ > 0) {
        QTimer::singleShot(1, this, [this] { schedulePump(); });
        return;
    }
    toolkit_->runPostedTasks();
    if (!form->Loaded() || !form->Visible()) return;
    if (steps_.empty()) {
        // Nobody is left to close the form.
        form->Hide();
        return;
    }
    std::function<void()> step = std::move(steps_.front());
    steps_.pop_front();
    stepDepths_.push_back(toolkit_->modalDepth());
    struct Leave {
        std::vector<std::size_t>& depths;
        ~Leave() { depths.pop_back(); }
    } leave{stepDepths_};
    step();
    toolkit_->runPostedTasks();
    schedulePump();
}

// ---- answers ----

std::optional<int> QtDesk::messageBoxAnswer(const std::string& prompt,
                                            const std::vector<int>& buttons, int defaultAnswer) {
    if (answers_.empty()) return defaultAnswer;
    const int answer = answers_.front();
    answers_.pop_front();
    if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end())
        throw std::invalid_argument("script answers " + std::to_string(answer) +
                                    " to a message box without that button: " + prompt);
    return answer;
}

std::optional<std::string> QtDesk::popupChoice(const std::string&) {
    if (choices_.empty()) return std::string();
    std::string choice = std::move(choices_.front());
    choices_.pop_front();
    return choice;
}

std::optional<std::string> QtDesk::openFileChoice(const platform::OpenDialogRequest&) {
    if (openFiles_.empty()) return std::string();
    std::string file = std::move(openFiles_.front());
    openFiles_.pop_front();
    return file;
}

void QtDesk::click(QWidget& widget, QPoint at) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
}

void QtDesk::key(QWidget& widget, int qtKey) {
    QTest::keyClick(&widget, static_cast<Qt::Key>(qtKey));
}

// ---- pictures ----

QImage QtDesk::screenPicture(const session::Session& session) const {
    std::vector<QWidget*> windows;
    const platform::Form* layerForm = session.gLayerForm;
    if (layerForm != nullptr && layerForm->Name() == "vlLayerDocked")
        windows.push_back(window_.get());
    qtui::FormView* main = layerForm != nullptr ? toolkit_->viewOf(*layerForm) : nullptr;
    if (main != nullptr && main->isVisible()) windows.push_back(main);
    for (qtui::FormView* view : toolkit_->formViews())
        if (view != main && view->isVisible()) windows.push_back(view);
    return desktopPicture(windows);
}

void QtDesk::snapshotTaken(session::Session& session) {
    if (shotsDir_.empty()) return;
    settle();
    const QImage picture = screenPicture(session);
    char name[32];
    std::snprintf(name, sizeof name, "snapshot-%02d.png", ++shots_);
    if (!picture.isNull()) picture.save(QString::fromStdString((shotsDir_ / name).string()));
}

std::function<std::unique_ptr<ReplayDesk>(engine::Engine&)>
qtDeskMaker(std::filesystem::path shotsDir) {
    return [shotsDir](engine::Engine& engine) -> std::unique_ptr<ReplayDesk> {
        return std::make_unique<QtDesk>(engine, shotsDir);
    };
}

// ---- the desktop around the session ----

bool QtDesk::setScreen(int widthPixels, int heightPixels) {
    // The screen is the platform's; a script may only name the one there is.
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr && screen->geometry().size() == QSize(widthPixels, heightPixels);
}

bool QtDesk::placeHostWindow(std::int32_t, const platform::WindowPlacement& placement) {
    const platform::WindowRect& r = placement.rcNormalPosition;
    const QRect normal(r.left, r.top, r.right - r.left, r.bottom - r.top);
    const auto placeNormally = [&] {
        window_->showNormal();
        const QSize frame = window_->frameGeometry().size() - window_->geometry().size();
        window_->resize(normal.size() - frame);
        window_->move(normal.topLeft());
    };
    switch (placement.showCmd) {
    case platform::SW_SHOWNORMAL:
    case platform::SW_RESTORE:
        placeNormally();
        break;
    case platform::SW_SHOWMAXIMIZED:
        if (!window_->isMaximized() && !window_->isMinimized()) placeNormally();
        window_->showMaximized();
        break;
    case platform::SW_SHOWMINIMIZED:
    case platform::SW_MINIMIZE:
        if (!window_->isMaximized() && !window_->isMinimized()) placeNormally();
        window_->showMinimized();
        break;
    default:
        return false;
    }
    settle();
    return true;
}

std::size_t QtDesk::tickTimers() {
    const std::size_t ticked = toolkit_->fireTimers();
    raiseUnhandled();
    return ticked;
}

bool QtDesk::timerRunning(const platform::Timer& timer) const {
    return toolkit_->isTimerRunning(timer);
}

void QtDesk::dragFormHeight(platform::Form& form, int heightTwips) {
    qtui::FormView* view = toolkit_->viewOf(form);
    if (view == nullptr) return;
    // The frame's top edge dragged, as the window manager resizes a window.
    const QRect frame = view->frameGeometry();
    const QRect client = view->geometry();
    const int height = toolkit_->scale().pixels(heightTwips);
    const int top = frame.bottom() + 1 - height;
    view->setGeometry(QRect(client.left(), top + (client.top() - frame.top()), client.width(),
                            height - (frame.height() - client.height())));
    settle();
    raiseUnhandled();
}

std::vector<platform::Form*> QtDesk::loadedForms() const {
    return toolkit_->loadedForms();
}

} // namespace vellant::replay
