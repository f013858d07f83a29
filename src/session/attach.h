#pragma once
// Attaching to a running MapInfo: finding it, checking the front window, making the view map.

namespace vellant::session {

struct Session;

// True when the session can go on; false after the user was told why not.
bool mapinfo_init(Session& s);
// The item number of the companion "vellant.mbx" among the running MapBasic programs, or 0.
int FindCompanion(Session& s);

// Reads how the user's map and the view map relate (the user's centre, both window widths, the
// view's zoom) and works out the zoom that gives the view the user's scale. Errors reach the
// caller.
void readMapFigures(Session& s);

} // namespace vellant::session
