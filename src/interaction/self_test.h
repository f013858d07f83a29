#pragma once
// The developer's self test: clicks every cell of the grid as the mouse would, with the cell
// editor and the orientation picker taking canned input, and types into the cells.

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

void selftestclick(Session& s);

} // namespace vellant::interaction
