#pragma once
// One control of a form on the screen: the widget its kind calls for, kept in line with the
// model's properties (place and size in twips, visibility, enabled state, caption, tool-tip,
// value, picture, text, back colour), and the user's clicks, keys and typing handed back to the
// model, which runs the program's handlers.

#include "platform/control.h"
#include "qtui/forms/control_kinds.h"
#include "qtui/twips.h"

#include <QObject>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <memory>

class QWidget;

namespace vellant::qtui {

class FormView;

class ControlView : public QObject {
    Q_OBJECT
public:
    // The widget is made as a child of `parent`; the form view places it in its container.
    ControlView(platform::Control& control, const ControlDesign& design, FormView& form,
                QWidget* parent);
    ~ControlView() override;

    platform::Control* control() const { return control_; }
    const ControlDesign& design() const { return design_; }
    QWidget* widget() const { return widget_; }

    // Applies every property, as when the view is new.
    void applyAll();
    // The model is going away: no more observing, no more input.
    void detach();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeWidget(QWidget* parent);
    void wireInput();
    void apply(platform::Property property);
    void applyGeometry();
    void applyVisible();
    bool isColumnGlyph() const;
    void applyValue();
    void applyPicture();
    // A map control shows the map its control holds now.
    void showControlMap();
    void applyText();
    void applyBackColour();
    void applyCaption();
    // The user chose this option button: the others of its set let go first, as the desktop's
    // option buttons do, and only then does the choice reach the model.
    void chooseOption();
    bool keyEvent(QEvent* event);
    void input(const std::function<void()>& work);

    platform::Control* control_;
    // Kept apart: the control may be gone by the time the view lets go of its handle.
    std::int32_t hwnd_;
    ControlDesign design_;
    FormView& form_;
    QPointer<QWidget> widget_;
    int token_ = 0;
    std::shared_ptr<bool> alive_;
    int applying_ = 0;
};

} // namespace vellant::qtui
