// The toolkit's forms, modal shows, timers and posted work.

#include "qtui/toolkit/qt_toolkit.h"

#include "base/runtime_error.h"
#include "platform/form.h"
#include "platform/timer.h"
#include "qtui/forms/control_view.h"
#include "qtui/host/native_windows.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>

namespace vellant::qtui {

QtToolkit::QtToolkit(NativeWindows& windows) : windows_(windows), scale_(TwipScale::of()) {}

QtToolkit::~QtToolkit() {
    for (auto& [form, view] : views_)
        if (view) {
            view->detach();
            delete view.data();
        }
    if (cursorOverridden_) QGuiApplication::restoreOverrideCursor();
}

FormView* QtToolkit::viewOf(const platform::Form& form) const {
    const auto it = views_.find(&form);
    return it == views_.end() ? nullptr : it->second.data();
}

QWidget* QtToolkit::widgetOf(const platform::Control& control) const {
    if (const auto* form = dynamic_cast<const platform::Form*>(&control))
        if (FormView* view = viewOf(*form)) return view;
    for (const auto& [form, view] : views_)
        if (view)
            if (ControlView* controlView = view->viewOf(control)) return controlView->widget();
    return nullptr;
}

std::vector<FormView*> QtToolkit::formViews() const {
    std::vector<FormView*> views;
    for (const auto& [form, view] : views_)
        if (view) views.push_back(view.data());
    return views;
}

void QtToolkit::report(const std::exception& error) {
    if (onUnhandledError) {
        onUnhandledError(error);
        return;
    }
    const auto* runtime = dynamic_cast<const RuntimeError*>(&error);
    const QString text = runtime != nullptr
                             ? QStringLiteral("Run-time error '%1':\n\n%2")
                                   .arg(runtime->number())
                                   .arg(QString::fromStdString(runtime->description()))
                             : QString::fromStdString(error.what());
    QMessageBox::critical(dialogParent(), QStringLiteral("Vellant"), text);
}

void QtToolkit::guardInput(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        report(error);
    }
}

// ---- forms ----

void QtToolkit::formLoaded(platform::Form& form) {
    if (viewOf(form) != nullptr) return;
    views_[&form] = new FormView(form, *this, scale_);
}

void QtToolkit::formUnloaded(platform::Form& form) {
    const auto it = views_.find(&form);
    endModalLoop(form);
    if (it == views_.end()) return;
    QPointer<FormView> view = it->second;
    views_.erase(it);
    if (!view) return;
    view->detach();
    view->hide();
    sunk_.erase(view.data());
    // Deleted later: the unload may come from inside an event of the window itself.
    view->deleteLater();
}

void QtToolkit::endModalLoop(const platform::Form& form) {
    const auto loop = loops_.find(&form);
    if (loop != loops_.end()) loop->second->quit();
}

void QtToolkit::showModal(platform::Form& form) {
    modal_.push_back(&form);
    QEventLoop loop;
    loops_[&form] = &loop;
    struct Leave {
        QtToolkit& toolkit;
        const platform::Form& form;
        ~Leave() {
            toolkit.loops_.erase(&form);
            toolkit.modal_.pop_back();
        }
    } leave{*this, form};
    if (onModalShow) onModalShow(form);
    runPostedTasks();
    while (form.Loaded() && form.Visible()) {
        loop.exec();
        if (form.Loaded() && form.Visible()) {
            // Only the application's end stops a modal loop with its form still up: the
            // program is told as a user closing the form would tell it, and unwinds.
            guardInput([&form] { form.Hide(); });
            break;
        }
    }
}

void QtToolkit::showModeless(platform::Form& form) {
    if (FormView* view = viewOf(form)) {
        view->raise();
        view->activateWindow();
    }
}

void QtToolkit::formAppearing(FormView& view) {
    platform::Form& form = *view.form();
    FormView* owner = form.Owner() != nullptr ? viewOf(*form.Owner()) : nullptr;
    if (owner != nullptr && view.parentWidget() != owner)
        view.setParent(owner, view.windowFlags());
    else if (owner == nullptr && view.parentWidget() != nullptr)
        view.setParent(nullptr, view.windowFlags());
    view.setWindowModality(form.IsModal() && owner != nullptr ? Qt::WindowModal : Qt::NonModal);
    view.applyGeometry();
    view.show();
    view.raise();
    view.activateWindow();
}

void QtToolkit::formHidden(FormView& view) {
    if (view.form() != nullptr) endModalLoop(*view.form());
    // A hidden form belongs to no owner: the owner may go before it shows again.
    if (view.parentWidget() != nullptr) view.setParent(nullptr, view.windowFlags());
}

void QtToolkit::ZOrder(platform::Form& form, int position) {
    FormView* view = viewOf(form);
    if (view == nullptr) return;
    if (position == 0)
        view->raise();
    else
        view->lower();
}

// ---- timers and posted work ----

void QtToolkit::startTimer(platform::Timer& timer) {
    std::unique_ptr<QTimer>& qtimer = timers_[&timer];
    if (!qtimer) {
        qtimer = std::make_unique<QTimer>();
        connect(qtimer.get(), &QTimer::timeout, this,
                [this, &timer] { guardInput([&timer] { timer.Tick(); }); });
    }
    if (timersByHand_)
        qtimer->setInterval(timer.Interval());
    else
        qtimer->start(timer.Interval());
}

void QtToolkit::stopTimer(platform::Timer& timer) {
    const auto it = timers_.find(&timer);
    if (it == timers_.end()) return;
    it->second->stop();
    // The tick that stops its own timer is still running inside it.
    it->second.release()->deleteLater();
    timers_.erase(it);
}

std::size_t QtToolkit::fireTimers() {
    std::vector<platform::Timer*> due;
    for (const auto& [timer, qtimer] : timers_)
        due.push_back(timer);
    std::size_t ticked = 0;
    for (platform::Timer* timer : due) {
        // A tick may stop the others.
        if (!isTimerRunning(*timer)) continue;
        guardInput([timer] { timer->Tick(); });
        ++ticked;
    }
    return ticked;
}

bool QtToolkit::isTimerRunning(const platform::Timer& timer) const {
    // A timer the program started stays in the table until it stops it.
    for (const auto& [running, qtimer] : timers_)
        if (running == &timer) return true;
    return false;
}

std::vector<platform::Form*> QtToolkit::loadedForms() const {
    std::vector<platform::Form*> forms;
    for (const auto& [form, view] : views_)
        forms.push_back(const_cast<platform::Form*>(form));
    return forms;
}

void QtToolkit::post(std::function<void()> task) {
    posted_.post(std::move(task));
    if (postPending_) return;
    postPending_ = true;
    QTimer::singleShot(0, this, [this] { runPostedTasks(); });
}

void QtToolkit::runPostedTasks() {
    postPending_ = false;
    while (!posted_.empty())
        guardInput([this] { posted_.runPending(); });
}

void QtToolkit::DoEvents() {
    QCoreApplication::processEvents();
}

} // namespace vellant::qtui
