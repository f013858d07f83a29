#include "qtui/host/style_dialog_host.h"

#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "qtui/host/style_dialog.h"

#include <QMetaObject>

namespace vellant::qtui {

StyleDialogHost::StyleDialogHost(engine::Engine& engine, std::function<QWidget*()> parent,
                                 QObject* owner)
    : QObject(owner), engine_(engine), parent_(std::move(parent)) {
    hostToken_ = engine_.host().changed.add([this](engine::HostChange c) { hostChanged(c); });
    watch(engine_.host().companion());
}

StyleDialogHost::~StyleDialogHost() {
    engine_.host().changed.remove(hostToken_);
    if (watched_ && watched_ == engine_.host().companion())
        watched_->styleDialogRequested.remove(requestToken_);
}

StyleDialog* StyleDialogHost::openDialog() const {
    return open_;
}

void StyleDialogHost::hostChanged(engine::HostChange change) {
    if (change != engine::HostChange::Applications) return;
    engine::Companion* running = engine_.host().companion();
    // A companion that ended took its requests and its subscribers with it.
    if (running != watched_) watch(running);
}

void StyleDialogHost::watch(engine::Companion* companion) {
    watched_ = companion;
    if (!companion) return;
    requestToken_ = companion->styleDialogRequested.add([this] {
        // Asked for inside the client's call: the dialog waits for the message loop.
        if (posted_) return;
        posted_ = true;
        QMetaObject::invokeMethod(this, &StyleDialogHost::showWaiting, Qt::QueuedConnection);
    });
    if (companion->styleDialogPending() && !posted_) {
        posted_ = true;
        QMetaObject::invokeMethod(this, &StyleDialogHost::showWaiting, Qt::QueuedConnection);
    }
}

void StyleDialogHost::showWaiting() {
    posted_ = false;
    if (open_) return; // the open dialog's loop takes the next one when it ends
    while (engine::Companion* companion = engine_.host().companion()) {
        std::optional<engine::StyleDialogRequest> request = companion->takeStyleDialogRequest();
        if (!request) return;
        std::unique_ptr<StyleDialog> dialog =
            StyleDialog::create(request->kind, request->startClause, parent_ ? parent_() : nullptr);
        open_ = dialog.get();
        emit dialogOpened(dialog.get());
        const bool chosen = dialog->exec() == QDialog::Accepted;
        const std::string clause = dialog->clause();
        open_ = nullptr;
        dialog.reset();
        // The host may have lost its companion while the dialog was open.
        companion = engine_.host().companion();
        if (!companion) return;
        companion->styleDialogClosed(chosen ? std::optional<std::string>(clause) : std::nullopt);
    }
}

} // namespace vellant::qtui
