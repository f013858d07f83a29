#pragma once
// The bounds check box: a transient top layer of the view map with one red rectangle per
// layer's extent, shown with the view zoomed to the whole map, and taken off again.

namespace vellant::session {
struct Session;
}

namespace vellant::mapchanges {

using session::Session;

// map_bounds: on, showbounds and a reload; off, the bounds layer leaves the view. Nothing in
// IMMEDIATE mode, and a message on the MapX host.
void mapboundsclick(Session& s);

// The rectangles go into the scratch table vlBounds (earlier ones stay), the table comes in on
// top, the view shows the whole map, and the bounds row is coloured.
void showbounds(Session& s);

} // namespace vellant::mapchanges
