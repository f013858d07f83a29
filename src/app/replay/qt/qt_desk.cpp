#include "app/replay/qt/qt_desk.h"

#include "app/replay/qt/qt_hands.h"
#include "platform/form.h"
#include "qtui/forms/form_view.h"
#include "qtui/host/host_main_window.h"
#include "session/session.h"

#include <QApplication>
#include <QPainter>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace vellant::replay {

namespace {

void settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

QtDesk::QtDesk(engine::Engine& engine, std::filesystem::path shotsDir, QSize hostSize)
    : window_(std::make_unique<qtui::HostMainWindow>(engine)),
      toolkit_(std::make_unique<qtui::QtToolkit>(window_->nativeWindows())),
      hands_(std::make_unique<QtHands>(*toolkit_, [this] { raiseUnhandled(); })),
      shotsDir_(std::move(shotsDir)) {
    toolkit_->setAutomation(this);
    toolkit_->onMessage = [this](const std::string& prompt, int, const std::string&, int) {
        if (onMessage) onMessage(prompt);
    };
    // A run-time error that leaves a handler ends the program on the desktop; the runner
    // reports it as the scripted desk does, from the step that caused it.
    toolkit_->onUnhandledError = [this](const std::exception&) {
        if (!unhandled_) unhandled_ = std::current_exception();
    };
    toolkit_->onModalShow = [this](platform::Form&) { schedulePump(); };
    window_->setErrorReporter([](int code, const QString& text) {
        std::fprintf(stderr, "vellant-replay: host error %d: %s\n", code,
                     text.toStdString().c_str());
    });
    window_->resize(hostSize);
    window_->move(0, 0);
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
    if (toolkit_->inDialog()) {
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
    QRect area;
    for (QWidget* w : windows)
        area = area.united(w->frameGeometry());
    if (area.isEmpty()) return {};
    QImage picture(area.size(), QImage::Format_RGB32);
    picture.fill(QColor(96, 110, 128));
    QPainter painter(&picture);
    for (QWidget* w : windows)
        painter.drawPixmap(w->geometry().topLeft() - area.topLeft(), w->grab());
    return picture;
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
qtDeskMaker(std::filesystem::path shotsDir, QSize hostSize) {
    return [shotsDir, hostSize](engine::Engine& engine) -> std::unique_ptr<ReplayDesk> {
        return std::make_unique<QtDesk>(engine, shotsDir, hostSize);
    };
}

} // namespace vellant::replay
