#pragma once
// The MapX host's view map is filled layer by layer: each layer of the user's map is made again
// in the view, from the same file or as a copy of the same features.

#include <cstdint>
#include <string>

namespace vellant::hostmodel {
class MXMap;
class MXLayer;
} // namespace vellant::hostmodel
namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

// A new layer at `position` of `map` from `layer` of another map: by its file when useFile is
// set and it has one, otherwise by its features; boundsOnly makes a temporary layer holding
// only the rectangle of the source's bounds. An empty name takes the source's. A failure is
// logged and leaves the layer missing.
void createlayer(Session& s, hostmodel::MXMap& map, std::int16_t position,
                 hostmodel::MXLayer& layer, bool useFile, bool boundsOnly, const std::string& name);

} // namespace vellant::grid
