#pragma once
// The layer form: the controls the floating and the docked form share. The twins derive from
// it and differ only where a virtual member says so.

#include "platform/control_array.h"
#include "platform/flexgrid.h"
#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/timer.h"

#include <memory>
#include <string>
#include <vector>

namespace vellant::session {

class LayerForm : public platform::Form {
public:
    LayerForm(std::string name, platform::Toolkit& toolkit);

    platform::FlexGrid LyrGrid{"LyrGrid"};

    platform::Control OK{"OK"};
    platform::Control Cancel{"Cancel"};
    platform::Control Docked{"Docked"};
    platform::Control MapImmediate{"MapImmediate"};
    platform::Control map_bounds{"map_bounds"};

    // Pictures beside and above the grid.
    platform::ControlArray<platform::Control> ToggleStatusPic{"ToggleStatusPic", 0, 3};
    platform::ControlArray<platform::Control> CollapseColsPic{"CollapseColsPic", 0, 6};
    platform::ControlArray<platform::Control> ExpandColsPic{"ExpandColsPic", 0, 6};

    // Menu items.
    platform::MenuItem layers_popup{"layers_popup"};
    platform::MenuItem Expand_Row{"Expand_Row"};
    platform::MenuItem show_tooltips{"show_tooltips"};
    platform::MenuItem Save_user_position{"Save_user_position"};
    platform::MenuItem remove_group_prefs{"remove_group_prefs"};
    platform::MenuItem self_test{"self_test"};

    platform::Timer Timer1;

    // The image controls whose pictures head the grid's columns, by name; error 340 for a name
    // the form has no control of.
    platform::Control& imageControl(const std::string& name);

private:
    void addHeaderImage(const std::string& name, int widthTwips, int heightTwips);
    void registerAll();

    std::vector<std::unique_ptr<platform::Control>> headerImages_;
};

// The floating form, with the map panel under the grid.
class vlLayerControl : public LayerForm {
public:
    explicit vlLayerControl(platform::Toolkit& toolkit);
};

// The form glued to the bottom edge of the host's main window.
class vlLayerDocked : public LayerForm {
public:
    explicit vlLayerDocked(platform::Toolkit& toolkit);
};

} // namespace vellant::session
