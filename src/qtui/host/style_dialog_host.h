#pragma once
// The host's style dialogs on the desktop. When the companion queues one for its client, the
// dialog opens once the call that asked for it has returned (the client must first freeze its
// grid and get back to its message loop), seeded with the client's clause; its ending goes back
// to the companion, which stores the choice in "currstyle" (nothing for Cancel) and presses the
// button that calls the client back, so that the client's wait always ends.

#include <QObject>
#include <QPointer>
#include <functional>

namespace vellant::engine {
class Companion;
class Engine;
enum class HostChange;
} // namespace vellant::engine

namespace vellant::qtui {

class StyleDialog;

class StyleDialogHost : public QObject {
    Q_OBJECT
public:
    // parent answers the widget the dialogs belong to at the time they open.
    StyleDialogHost(engine::Engine& engine, std::function<QWidget*()> parent,
                    QObject* owner = nullptr);
    ~StyleDialogHost() override;

    // The dialog open now, if any.
    StyleDialog* openDialog() const;

signals:
    // A dialog has just opened, before it runs: a test answers it from here.
    void dialogOpened(vellant::qtui::StyleDialog* dialog);

private:
    void hostChanged(engine::HostChange change);
    void watch(engine::Companion* companion);
    void showWaiting();

    engine::Engine& engine_;
    std::function<QWidget*()> parent_;
    int hostToken_ = 0;
    engine::Companion* watched_ = nullptr;
    int requestToken_ = 0;
    bool posted_ = false;
    QPointer<StyleDialog> open_;
};

} // namespace vellant::qtui
