#pragma once
// The MapX host's record of the structural changes made to the view map, in the order they were
// made, so that the commit can make them again on the user's map. The MapInfo host needs none:
// there the view window itself replaces the user's window.

#include "mapchanges/mapchanges_state.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {
class MXMap;
}

namespace vellant::session {
struct Session;
}

namespace vellant::mapchanges {

using session::Session;

// Appends an entry. The count grows first: past the last entry the write raises error 9 and the
// count stays one too high, so the view map and the journal part ways from there on.
void journalLayerOp(Session& s, const std::string& kind, std::int16_t from, std::int16_t to = 0,
                    const std::string& file = "");

// The view map on the MapX host: the map of the form's MapDisplay control, error 91 while it
// holds none; the MapX branches reach the view map only through here.
hostmodel::MXMap& mapDisplay(Session& s);

// Rows and layer numbers follow the map again only by a new load, inside a redraw bracket.
void reloadGridAfterLayerChange(Session& s);

} // namespace vellant::mapchanges
