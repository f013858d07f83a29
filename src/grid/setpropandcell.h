#pragma once
// The one route from a value to a grid cell and, when gApplyToLayer is set, to the layer: the
// rule of the key's column decides whether the cell applies (gray when not), writes the layer
// object, and paints a picture for a toggle or text for the rest.

#include "base/variant.h"

#include <string>

namespace vellant::platform {
class Control;
}
namespace vellant::session {
struct Session;
}

namespace vellant::grid {

using session::Session;

// Gray: the system's gray-text colour; a live cell is white.
inline constexpr std::int32_t kGrayCellColor = static_cast<std::int32_t>(0x80000011);
inline constexpr std::int32_t kLiveCellColor = 0xFFFFFF;

// Works on the current row of LyrGrid for gLayer; leaves LyrGrid.Col on the key's column.
void setpropandcell(Session& s, const std::string& key, const Variant& value, bool& paint);

// The current cell's picture: Image1 when on, Image2 when off; the second form takes the two
// image controls to use instead (the gray pictures).
void imageon(Session& s, bool& on);
void imageon(Session& s, bool& on, platform::Control& onImage, platform::Control& offImage);

} // namespace vellant::grid
