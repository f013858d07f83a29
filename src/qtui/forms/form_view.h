#pragma once
// A form of the program on the screen: a window that mirrors a platform::Form and holds a view
// of each of its controls. The window follows the form's caption, place and size (twips, the
// window's outer edge), visibility and enabled state; what the user does to the window comes
// back to the model: a move or a resize by hand changes Left, Top, Width and Height, the close
// box asks the form to unload, keys go to the form's key events.
//
// The form view does not decide how a form is shown (owner, modality, window order): its host,
// the toolkit, does that when the form appears.

#include "platform/form.h"
#include "qtui/forms/control_kinds.h"
#include "qtui/twips.h"

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vellant::qtui {

class ControlView;
class FormView;
class GridView;
class NativeWindows;

class FormViewHost {
public:
    virtual ~FormViewHost() = default;
    // Runs the user's input into the model. A run-time error that leaves the program's
    // handlers is reported here and does not pass into Qt's event loop.
    virtual void guardInput(const std::function<void()>& work) = 0;
    // The program showed the form: the host gives the window its owner and modality and shows
    // it.
    virtual void formAppearing(FormView& view) = 0;
    // The program hid the form: a modal show of it ends.
    virtual void formHidden(FormView& view) = 0;
    // Where window handles are registered, so that the host's windows can find the form's
    // frames (the view map lands in one).
    virtual NativeWindows& nativeWindows() = 0;
};

class FormView : public QWidget {
    Q_OBJECT
public:
    FormView(platform::Form& form, FormViewHost& host, const TwipScale& scale);
    ~FormView() override;

    platform::Form* form() const { return form_; }
    FormViewHost& host() const { return host_; }
    const TwipScale& scale() const { return scale_; }

    // The view of a control, by model or by name and index; nullptr when there is none.
    ControlView* viewOf(const platform::Control& control) const;
    QWidget* widgetOf(const std::string& name, int index = -1) const;
    GridView* gridView() const;
    // The other option buttons of the set a control belongs to (its container's).
    std::vector<ControlView*> optionSet(const ControlView& option) const;

    // The model is going away (the form unloads): nothing is observed or sent to it any more,
    // and the window leaves the handle registry.
    void detach();
    // The model's place and size, applied to the window again.
    void applyGeometry();
    // Gives the window its frame flags again after a change of them (a changed parent or
    // topmost state hides a window; the form's visibility decides whether it comes back).
    void restoreVisibility();

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    void formChanged(platform::Property property);
    void applyVisible();
    void reportGeometry();
    QSize frameExtra() const;

    platform::Form* form_;
    std::int32_t hwnd_;
    FormViewHost& host_;
    TwipScale scale_;
    std::vector<std::unique_ptr<ControlView>> controls_;
    int token_ = 0;
    std::shared_ptr<bool> alive_;
    int applying_ = 0;
    // The frame rectangle last given to the window, to tell the echo of our own change from a
    // move or resize by the user.
    QRect applied_;
    // The frame's share of the window when the place was given: a frame that comes or changes
    // afterwards (the window shows) is no resize by the user.
    QSize appliedFrame_;
};

} // namespace vellant::qtui
