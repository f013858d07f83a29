#pragma once
// The small settings of the layer form's window: kept on top of other windows, MapInfo's
// status bar shown, and the captions of the map panel following the view map.

namespace vellant::session {

struct Session;

// Turns "Keep Vellant on top" over: on top of every window, or just under MapInfo's main
// window. Works on the session's form, floating or docked.
void vl_on_top(Session& s);
// The docked form's status bar item; it acts only on the MapInfo host.
void showMIstatusbar(Session& s);
// The floating form's status bar item.
void show_MI_statusbar_click(Session& s);

// The user did something in the frame of the view map, or MapInfo reports a change of a
// window: the panel's captions follow the view's zoom (setmapcaptions with gMap.zoom).
void captionsFollowViewZoom(Session& s);

} // namespace vellant::session
