#pragma once
// The only mapping between layer numbers and grid rows. Row 0 is the header; on the MapInfo host
// the cosmetic layer 0 stands in row 1, so layer n is in row n + 1; on the MapX host layer n is
// in row n.

#include <cstdint>

namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

std::uint16_t LayerToRow(const Session& s, std::uint16_t layer);
std::uint16_t RowToLayer(const Session& s, std::uint16_t row);

} // namespace vellant::grid
