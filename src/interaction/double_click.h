#pragma once
// A double click on the header folds or unfolds a column group (feature counts and the values
// of user expressions are worked out only when their group unfolds); in the first column it
// collapses a layer group onto the clicked row, or expands it again.

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

// Reads gMouseX/gMouseY and the grid's current cell.
void dblclick(Session& s);

} // namespace vellant::interaction
