#pragma once
// Filling the grid from the map: a row per layer, every attribute cell painted through
// setpropandcell.

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

// rebuild is true for the first load of a form; it matters on the MapX host only, where that
// load also fills the view map.
void load_grid(Session& s, bool& rebuild);

// Keeps the layer groups of the rows in step when a scratch layer comes or goes at the top of
// the map: "Add" or "Sub" (both shift upward, as the callers pass them).
void shiftlayergroups(Session& s, const std::string& word);

} // namespace vellant::grid
