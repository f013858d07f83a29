#pragma once
// Moving a layer of the view map to another place, as the drag of a row asks for.

#include <cstdint>

namespace vellant::session {
struct Session;
}

namespace vellant::mapchanges {

using session::Session;

// True when the map was changed; false for a layer number below 1 or a move onto itself.
bool MoveLayers(Session& s, std::int16_t from, std::int16_t to);

} // namespace vellant::mapchanges
