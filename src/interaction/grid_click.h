#pragma once
// The one procedure behind every action on a grid cell: it decides whether the click counts,
// which rows it covers (the row set, the clicked row's collapsed group, or the clicked row), and
// walks them, sending each to the toggle, the cell editor or nothing by the clicked column. It
// puts the row selection back afterwards and moves the toggle cycle on.

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

// Reads gMouseX/gMouseY (the last mouse-down), gCellText (a typed character) and the grid's
// current cell.
void Layergridclick(Session& s);

} // namespace vellant::interaction
