#include "grid/layer_rows.h"

#include "base/runtime_error.h"
#include "session/session.h"

namespace vellant::grid {

namespace {

// MapInfo's cosmetic layer 0 takes the first row under the header on that host.
int rowOffset(const Session& s) {
    return s.gIsMapInfo ? 1 : 0;
}

std::uint16_t checkedUnsigned16(int value) {
    if (value < 0 || value > 0xFFFF) raiseError(kErrOverflow);
    return static_cast<std::uint16_t>(value);
}

} // namespace

std::uint16_t LayerToRow(const Session& s, std::uint16_t layer) {
    return checkedUnsigned16(layer + rowOffset(s));
}

std::uint16_t RowToLayer(const Session& s, std::uint16_t row) {
    return checkedUnsigned16(row - rowOffset(s));
}

} // namespace vellant::grid
