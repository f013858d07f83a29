#pragma once
// The layer form: the controls the floating and the docked form share. The twins derive from
// it and differ only where a virtual member says so.

#include "hostmodel/mapx_control.h"
#include "platform/control_array.h"
#include "platform/flexgrid.h"
#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/option_button.h"
#include "platform/timer.h"

#include <memory>
#include <string>
#include <vector>

namespace vellant::session {

struct Session;

class LayerForm : public platform::Form {
public:
    LayerForm(std::string name, platform::Toolkit& toolkit);

    // The session whose Form_Load and Form_Unload this form runs; set before the form loads.
    Session* session = nullptr;

    // The Cancel of this form as mapinfo_init calls it late-bound: the floating form's own
    // Cancel_Click, the docked form's cencelclick.
    virtual void Cancel_Click() = 0;
    // The twins answer these buttons differently: docking restarts a docked session at once,
    // and the immediate setting is silent in a docked form that is still loading.
    virtual void Docked_Click() = 0;
    virtual void MapImmediate_Click() = 0;
    // Lays the form out: the floating form from the grid's content, the docked form on the
    // bottom edge of MapInfo's main window. Safe to run any number of times in a row.
    virtual void Resize_LayerForm() = 0;
    // The status bar item: the docked form acts only on the MapInfo host.
    virtual void show_MI_statusbar_click() = 0;

    platform::FlexGrid LyrGrid{"LyrGrid"};

    // The buttons at the grid's right, in their frame.
    platform::Control Buttonframe{"Buttonframe"};
    platform::Control OK{"OK"};
    platform::Control Cancel{"Cancel"};
    platform::Control Docked{"Docked"};
    platform::Control MapImmediate{"MapImmediate"};
    platform::Control RedrawMAP{"RedrawMAP"};
    platform::Control RedrawNOW{"RedrawNOW"};
    platform::Control Info{"Info"};
    // Opens the problem report.
    platform::Control Feedback{"Feedback"};
    // A line of text for the user, beside the buttons.
    platform::Control msg{"msg"};

    // The map panel under the grid: the view map in its frame, the zoom options and captions
    // beside it, and the strip of map tools at the left.
    platform::Control Mapframe{"Mapframe"};
    // The frame the view map window is a child of.
    platform::Control MapInfoFrame{"MapInfoFrame"};
    // The view map of the MapX host, in the same place; hidden on the MapInfo host.
    hostmodel::MapXControl MapDisplay{"MapDisplay"};
    // The picture box the window of style samples is a child of; never shown.
    platform::Control MapInfoframe2{"MapInfoframe2"};
    platform::Control MapPropsFrame{"MapPropsFrame"};
    platform::Control MapbyCaption{"MapbyCaption"};
    // How the view is zoomed: one option of the three is set.
    platform::OptionButton Map_custom{"Map_custom"};
    platform::OptionButton Map_SameScale{"Map_SameScale"};
    platform::OptionButton map_samezoom{"map_samezoom"};
    platform::Control ScaleUnits{"ScaleUnits"};
    platform::Control ZoomWidth{"ZoomWidth"};
    platform::Control ZoomScale{"ZoomScale"};
    platform::Control map_bounds{"map_bounds"};
    platform::Control MapButtonFrame{"MapButtonFrame"};
    platform::Control SelectTool{"SelectTool"};
    platform::Control Pan{"Pan"};
    platform::Control ZoomIn{"ZoomIn"};
    platform::Control ZoomOut{"ZoomOut"};

    // Pictures beside and above the grid.
    platform::ControlArray<platform::Control> ToggleStatusPic{"ToggleStatusPic", 0, 3};
    platform::ControlArray<platform::Control> CollapseColsPic{"CollapseColsPic", 0, 6};
    platform::ControlArray<platform::Control> ExpandColsPic{"ExpandColsPic", 0, 6};
    // The nine label orientations, by position code.
    platform::ControlArray<platform::Control> LabelOrient{"LabelOrient", 0, 8};

    // Menu items.
    platform::MenuItem layers_popup{"layers_popup"};
    platform::MenuItem Expand_Row{"Expand_Row"};
    platform::MenuItem show_tooltips{"show_tooltips"};
    platform::MenuItem Save_user_position{"Save_user_position"};
    platform::MenuItem remove_group_prefs{"remove_group_prefs"};
    platform::MenuItem self_test{"self_test"};
    platform::MenuItem Group_selected{"Group_selected"};
    platform::MenuItem Ungroup_layers{"Ungroup_layers"};
    platform::MenuItem View_Entire{"View_Entire"};
    platform::MenuItem Remove_layer{"Remove_layer"};
    platform::MenuItem Add_Layer{"Add_Layer"};
    platform::MenuItem show_MI_statusbar{"show_MI_statusbar"};
    platform::MenuItem VL_on_top{"VL_on_top"};
    // The popup menu's separators, top down.
    platform::MenuItem sep1{"sep1"};
    platform::MenuItem sep2{"sep2"};
    platform::MenuItem sep3{"sep3"};
    platform::MenuItem sep4{"sep4"};

    platform::Timer Timer1;

    // The form's image controls by name: the pictures that head the grid's columns and those
    // the cells show (Image1 on, Image2 off, their gray twins, the table marks...); error 340
    // for a name the form has no control of.
    platform::Control& imageControl(const std::string& name);

    // Where the first toggle status picture stands by design. The docked layout puts the grid
    // there: the picture's live place is no anchor, since a toggle cycle moves it just left of
    // the grid, and a layout that followed it would walk the grid leftwards on every resize.
    int toggleStatusDesignLeft() const { return toggleStatusDesignLeft_; }

protected:
    void Form_Unload(bool& cancel) override;

    // The immediate setting follows MapImmediate; showMessages is false for a change the
    // user should not hear of.
    void changeImmediate(bool showMessages);

private:
    void addImage(const std::string& name, int widthTwips, int heightTwips);
    // Design places and texts of the form, the grid, the buttons and the map panel.
    void designForm();
    void designButtons();
    void designMapPanel();
    void registerAll();
    // OK, Cancel, Docked and MapImmediate reach the session's procedures.
    void wireButtons();

    std::vector<std::unique_ptr<platform::Control>> images_;
    int toggleStatusDesignLeft_ = 0;
};

// The floating form, with the map panel under the grid.
class vlLayerControl : public LayerForm {
public:
    explicit vlLayerControl(platform::Toolkit& toolkit);
    // RedrawNOW: the grid is loaded again with the user's map's number of layers.
    void RefreshMap();
    void Cancel_Click() override;
    void Docked_Click() override;
    void MapImmediate_Click() override;
    void Resize_LayerForm() override;
    void show_MI_statusbar_click() override;

protected:
    void Form_Load() override;
};

// The form glued to the bottom edge of the host's main window.
class vlLayerDocked : public LayerForm {
public:
    explicit vlLayerDocked(platform::Toolkit& toolkit);
    void Cancel_Click() override;
    void Docked_Click() override;
    void MapImmediate_Click() override;
    void Resize_LayerForm() override;
    void show_MI_statusbar_click() override;
    // The timer notices a drag of the form's edge and puts the form back on MapInfo's edge.
    void Timer1_Timer();

protected:
    void Form_Load() override;
};

} // namespace vellant::session
