#pragma once
// What widget each control of a form is. The models are property bags without a kind, so the
// views keep a table by form and control name, as a form designer's file would: which controls
// are buttons, check boxes, option buttons, labels, frames, pictures, text boxes, and which
// frame holds them (a control in a frame is placed relative to the frame).

#include <string>
#include <string_view>

namespace vellant::platform {
class Control;
class Form;
} // namespace vellant::platform

namespace vellant::qtui {

enum class ControlKind {
    None,          // not on the screen: menu items, timers
    Grid,          // the grid control
    Frame,         // a frame, with its caption as a title when it has one
    Panel,         // a frame without a border: only a holder of controls
    MapFrame,      // a frame that holds another program's window (the view map)
    MapControl,    // a MapX map control: its map drawn by the renderer
    Button,        // a push button: its caption, and its picture where the art has one
    ToolButton,    // a button that is only a picture
    CheckBox,      // Value 0 or 1
    OptionButton,  // Value 0 or 1, one of a frame's set
    PictureOption, // an option button in graphical style: its picture, pressed while chosen
    Label,         // a caption
    Picture,       // a picture box: its Picture drawn to its size
    TextBox,       // a line of text
    ComboBox,      // a text with a list to pick from
    TextArea,      // read-only text of several lines with a scroll bar
};

struct ControlDesign {
    ControlKind kind = ControlKind::None;
    // The frame the control stands in, by name; empty for the form itself.
    std::string_view container;
    // The art on a button or picture option; by default the control's own name.
    std::string_view art;
};

// The design of one control of a form; controls a form's table does not name get a kind from
// their model type (the grid, a combo box, a menu item, a timer) and are labels otherwise.
ControlDesign designOf(const platform::Form& form, const platform::Control& control);

// How the form's window looks on the desktop.
enum class WindowKind {
    Main,      // a window of its own with a title bar
    Tool,      // a small window that stays with its owner
    Borderless // no frame at all: the cell editor lying over its cell
};
WindowKind windowKindOf(const platform::Form& form);

} // namespace vellant::qtui
