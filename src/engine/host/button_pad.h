#pragma once
// Button pads as Create ButtonPad makes them. A button remembers what pressing it reaches; the
// only target the embedded host serves is a method of the client's call-back object (Calling
// OLE "method"), which is how an automation client learns of a press.

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellant::engine {

struct PadButton {
    enum class Kind { PushButton, ToggleButton, ToolButton, Separator };
    Kind kind = Kind::PushButton;
    int id = 0;            // 0 when the definition gives no ID
    std::string oleMethod; // Calling OLE "method"; empty for a separator
    int icon = 0;
    std::string iconFile;
    int cursor = 0;
    std::string cursorFile;
    int drawMode = 0;
    std::string helpMessage;
    bool modifierKeys = true;
    bool enabled = true;
    bool checked = false;
};

struct PadPosition {
    double x = 0;
    double y = 0;
    std::string units; // as the Units clause named them; empty for the paper units
};

struct ButtonPad {
    std::string name;  // as Create ButtonPad names it; looked up in any letter case
    std::string title; // the Title clause; the name when there is none
    std::vector<PadButton> buttons;
    int width = 0; // buttons in a row; 0 leaves it to the host
    std::optional<PadPosition> position;
    std::optional<std::pair<int, int>> toolbarPosition; // row, column of a fixed pad
    bool visible = true;
    bool fixed = false;

    // nullptr when the pad has no button of that id (0 never matches).
    const PadButton* button(int id) const;
    PadButton* button(int id);
};

// The text a Calling OLE button hands to the client's method. The host's own layout is not
// documented; this one gives the values CommandInfo(1..8) would give a MapBasic handler, after
// "MI:": x, y, shift, control, x2, y2, tool button, and the id of the button pressed. A push
// button has no position and no tool, so a press of button 2002 gives "MI:0,0,F,F,0,0,0,2002".
std::string oleCommandText(int buttonId);

// Pad names compare in any letter case, as the host compares them.
bool samePadName(std::string_view a, std::string_view b);

} // namespace vellant::engine
