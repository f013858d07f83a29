#pragma once
// The layer groups and user expressions of a map, kept in Vellant.prf under the map's title:
// read back after the grid's first load (groups come back collapsed), written at OK.

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::prefs {

using session::Session;

// The title of the map the session works on; the stored preferences go by it, once
// mapprefname has cut the window number off.
std::string maptitle(Session& s);

void getmapprefs(Session& s, const std::string& title);
void writemapprefs(Session& s, const std::string& title);

} // namespace vellant::prefs
