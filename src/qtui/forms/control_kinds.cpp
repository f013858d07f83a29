#include "qtui/forms/control_kinds.h"

#include "platform/combo_box.h"
#include "platform/flexgrid.h"
#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/timer.h"

#include <array>

namespace vellant::qtui {

namespace {

struct Entry {
    std::string_view name;
    ControlDesign design;
};

using K = ControlKind;

// Both layer forms: the grid, the buttons at its right in their frame, the map panel under it
// (the view map's frame, the zoom options and captions beside it, the tool strip at its left)
// and the pictures beside and above the grid.
constexpr std::array kLayerForm = {
    Entry{"LyrGrid", {K::Grid, {}, {}}},
    Entry{"Buttonframe", {K::Frame, {}, {}}},
    Entry{"OK", {K::Button, "Buttonframe", "OK"}},
    Entry{"Cancel", {K::Button, "Buttonframe", "Cancel"}},
    Entry{"Docked", {K::CheckBox, "Buttonframe", {}}},
    Entry{"MapImmediate", {K::CheckBox, "Buttonframe", {}}},
    Entry{"RedrawMAP", {K::CheckBox, "Buttonframe", {}}},
    Entry{"RedrawNOW", {K::Button, "Buttonframe", "Redraw"}},
    Entry{"Info", {K::Button, "Buttonframe", "Info"}},
    Entry{"Feedback", {K::Button, "Buttonframe", "-"}},
    Entry{"msg", {K::Label, {}, {}}},
    Entry{"Mapframe", {K::Frame, {}, {}}},
    Entry{"MapInfoFrame", {K::MapFrame, "Mapframe", {}}},
    Entry{"MapDisplay", {K::MapControl, "Mapframe", {}}},
    Entry{"MapInfoframe2", {K::MapFrame, {}, {}}},
    Entry{"MapPropsFrame", {K::Frame, {}, {}}},
    Entry{"MapbyCaption", {K::Label, "MapPropsFrame", {}}},
    Entry{"Map_custom", {K::OptionButton, "MapPropsFrame", {}}},
    Entry{"Map_SameScale", {K::OptionButton, "MapPropsFrame", {}}},
    Entry{"map_samezoom", {K::OptionButton, "MapPropsFrame", {}}},
    Entry{"ScaleUnits", {K::Label, "MapPropsFrame", {}}},
    Entry{"ZoomWidth", {K::Label, "MapPropsFrame", {}}},
    Entry{"ZoomScale", {K::Label, "MapPropsFrame", {}}},
    Entry{"map_bounds", {K::CheckBox, "MapPropsFrame", {}}},
    Entry{"MapButtonFrame", {K::Panel, {}, {}}},
    Entry{"SelectTool", {K::ToolButton, "MapButtonFrame", {}}},
    Entry{"Pan", {K::ToolButton, "MapButtonFrame", {}}},
    Entry{"ZoomIn", {K::ToolButton, "MapButtonFrame", {}}},
    Entry{"ZoomOut", {K::ToolButton, "MapButtonFrame", {}}},
    Entry{"ToggleStatusPic", {K::Picture, {}, {}}},
    Entry{"CollapseColsPic", {K::Picture, {}, {}}},
    Entry{"ExpandColsPic", {K::Picture, {}, {}}},
    Entry{"LabelOrient", {K::Picture, {}, {}}},
};

constexpr std::array kEditCell = {
    Entry{"ecell", {K::TextBox, {}, {}}},
    Entry{"EditList", {K::ComboBox, {}, {}}},
};

constexpr std::array kLabelOrientation = {
    Entry{"LabOrient", {K::PictureOption, {}, "LabelOrient"}},
};

// The information form: copies of the layer form's controls, each opening its topic.
constexpr std::array kInfoForm = {
    Entry{"Info", {K::TextArea, {}, {}}},       Entry{"Label1", {K::Label, {}, {}}},
    Entry{"cell", {K::Button, {}, "Image1"}},   Entry{"OK", {K::Button, {}, "OK"}},
    Entry{"Cancel", {K::Button, {}, "Cancel"}}, Entry{"MapImmediate", {K::CheckBox, {}, {}}},
    Entry{"Check1", {K::CheckBox, {}, {}}},     Entry{"RedrawNOW", {K::Button, {}, "Redraw"}},
    Entry{"Label2", {K::Label, {}, {}}},        Entry{"Label3", {K::Label, {}, {}}},
};

template <std::size_t N>
const ControlDesign* find(const std::array<Entry, N>& table, const std::string& name) {
    for (const Entry& entry : table)
        if (entry.name == name) return &entry.design;
    return nullptr;
}

const ControlDesign* tableEntry(const std::string& form, const std::string& control) {
    if (form == "vlLayerControl" || form == "vlLayerDocked") return find(kLayerForm, control);
    if (form == "EditCell") return find(kEditCell, control);
    if (form == "Label_Orientation") return find(kLabelOrientation, control);
    if (form == "VLInfo") return find(kInfoForm, control);
    return nullptr;
}

} // namespace

ControlDesign designOf(const platform::Form& form, const platform::Control& control) {
    if (dynamic_cast<const platform::MenuItem*>(&control) != nullptr ||
        dynamic_cast<const platform::Timer*>(&control) != nullptr)
        return {K::None, {}, {}};
    if (const ControlDesign* design = tableEntry(form.Name(), control.Name())) return *design;
    if (dynamic_cast<const platform::FlexGrid*>(&control) != nullptr) return {K::Grid, {}, {}};
    if (dynamic_cast<const platform::ComboBox*>(&control) != nullptr) return {K::ComboBox, {}, {}};
    // The layer forms' image controls: the pictures the grid's cells are painted from.
    if (control.Name().ends_with("Pic") || control.Name().ends_with("pic") ||
        control.Name().starts_with("Image"))
        return {K::Picture, {}, {}};
    // A form's other controls are buttons when they answer a click.
    if (control.onClick) return {K::Button, {}, "-"};
    return {K::Label, {}, {}};
}

WindowKind windowKindOf(const platform::Form& form) {
    const std::string& name = form.Name();
    if (name == "EditCell") return WindowKind::Borderless;
    if (name == "vlLayerControl" || name == "vlLayerDocked") return WindowKind::Main;
    return WindowKind::Tool;
}

} // namespace vellant::qtui
