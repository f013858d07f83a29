#pragma once
// The panel beside the view map: how the view is zoomed (the user's scale, the user's zoom
// width, or freely with the map tools), the captions that show zoom and scale, the drawing
// switch, and the bounds check box (map_bounds.h).

namespace vellant::session {
struct Session;
class LayerForm;
} // namespace vellant::session

namespace vellant::mapchanges {

using session::LayerForm;
using session::Session;

// Rewrites the captions: the zoom with the map's unit, and the view's scale.
void setmapcaptions(Session& s, float zoom);

// The zoom options: "Scale" gives the view the user's scale, "Zoom" the user's zoom width, both
// about the centre the user's map had at the start; either hides the tools. "Custom" shows them.
void Map_SameScale_Click(Session& s, LayerForm& form, bool docked);
void map_samezoom_Click(Session& s, LayerForm& form, bool docked);
void Map_custom_Click(LayerForm& form);

// MapInfo's menu commands of the map tools.
constexpr int kSelectToolCommand = 1701;
constexpr int kPanToolCommand = 1702;
constexpr int kZoomInToolCommand = 1705;
constexpr int kZoomOutToolCommand = 1706;

// A map tool of the view, by MapInfo's menu command: the command runs, or on the MapX host the
// control's current tool changes.
void chooseMapTool(Session& s, int menuCommand);

// The check box RedrawMAP turns the view map's drawing on or off.
void RedrawMAP_Click(Session& s, LayerForm& form);

// The panel's controls, the popup's layer operations and RedrawNOW reach their handlers; the
// docked form's differ where the flag says so.
void wireMapPanel(LayerForm& form, bool docked);

} // namespace vellant::mapchanges
