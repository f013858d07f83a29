#pragma once
// The user's hands on the real widgets: QTest's mouse and key events, sent to the widget the
// toolkit shows for each control, at the pixel of the model's twips.

#include "app/replay/user_hands.h"

#include <functional>

class QWidget;

namespace vellant::qtui {
class QtToolkit;
}

namespace vellant::replay {

class QtHands : public UserHands {
public:
    // afterAction runs when an action is over: a run-time error that left one of the
    // program's handlers during it is raised from there, as from the scripted hands.
    QtHands(qtui::QtToolkit& toolkit, std::function<void()> afterAction)
        : toolkit_(toolkit), afterAction_(std::move(afterAction)) {}

    void click(platform::FlexGrid& grid, float x, float y) override;
    void rightClick(platform::FlexGrid& grid, float x, float y) override;
    void doubleClick(platform::FlexGrid& grid, float x, float y) override;
    void drag(platform::FlexGrid& grid, float fromX, float fromY, float toX, float toY) override;
    void keyToGrid(platform::FlexGrid& grid, int character) override;
    void press(platform::Control& control) override;
    void doubleClick(platform::Control& control) override;
    void keyToControl(platform::Control& control, int character) override;
    void typeAndEnter(platform::Control& box, const std::string& text) override;
    void pick(platform::ComboBox& box, int index) override;

private:
    // The widget of a control; a run-time error when the control has none on the screen.
    QWidget& widgetOf(const platform::Control& control) const;
    // The widget that takes a control's keys: a combo box's text, a form's focused control.
    QWidget& keyTarget(const platform::Control& control) const;

    void act(const std::function<void()>& action);

    qtui::QtToolkit& toolkit_;
    std::function<void()> afterAction_;
};

// One character as a key click on a widget.
void typeCharacter(QWidget& widget, int character);

} // namespace vellant::replay
