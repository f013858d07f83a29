#pragma once
// The user's hands in a replay: how a mouse press, a key or a piece of typing reaches a
// control. On the scripted desk they call the controls' input methods; on the Qt desk they are
// real mouse and key events on the real widgets. Either way the same handlers of the program
// run in the same order, so the transcripts agree.

#include <string>

namespace vellant::platform {
class ComboBox;
class Control;
class FlexGrid;
} // namespace vellant::platform

namespace vellant::replay {

class UserHands {
public:
    virtual ~UserHands() = default;

    // On the grid, at a point in twips from its top left corner.
    virtual void click(platform::FlexGrid& grid, float x, float y) = 0;
    virtual void rightClick(platform::FlexGrid& grid, float x, float y) = 0;
    virtual void doubleClick(platform::FlexGrid& grid, float x, float y) = 0;
    // A left press, a move with the button down and a release.
    virtual void drag(platform::FlexGrid& grid, float fromX, float fromY, float toX, float toY) = 0;
    // One character typed (13 Enter, 27 Esc, 8 Backspace) while the grid has the keys.
    virtual void keyToGrid(platform::FlexGrid& grid, int character) = 0;

    // A left click on a button, a check box or an option button.
    virtual void press(platform::Control& control) = 0;
    // A double click on a control (the orientation picker's buttons).
    virtual void doubleClick(platform::Control& control) = 0;
    // One character typed while the control has the keys: into a text box or a combo box's
    // text it types itself; on any other control it is only a key.
    virtual void keyToControl(platform::Control& control, int character) = 0;
    // The text of a text box or a combo box typed afresh, then Enter.
    virtual void typeAndEnter(platform::Control& box, const std::string& text) = 0;
    // An item of a combo box's list (from 0) clicked.
    virtual void pick(platform::ComboBox& box, int index) = 0;
};

} // namespace vellant::replay
