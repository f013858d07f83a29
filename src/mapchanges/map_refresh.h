#pragma once
// Loading the grid again from the maps as they now stand: the button RedrawNOW of both forms.

namespace vellant::session {
struct Session;
}

namespace vellant::mapchanges {

using session::Session;

// The docked form's RedrawNOW. In IMMEDIATE mode a click on another map restarts the session
// on that map, and a front window that is no map is told off; then the grid is loaded again
// with the user's map's layers, or, with the user's map gone, the session shuts down.
void RefreshMap(Session& s);

// The floating form's RedrawNOW (its form method RefreshMap): the grid is loaded again with
// the number of layers the user's map has, whatever the view map holds by now.
void refreshFromUserMap(Session& s);

} // namespace vellant::mapchanges
