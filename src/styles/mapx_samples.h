#pragma once
// Samples into the grid's cells on the MapX host: the style object draws its own sample onto
// the clipboard, and the cell takes the picture from there. The user's clipboard is
// overwritten by every sample.

#include <cstdint>

namespace vellant::hostmodel {
class MXStyle;
}
namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// The sample of the style in the cell of gLayer and column, by kind (0 region, 1 line,
// 2 symbol, 5 text); symbols and text first make their row and column room for their size.
void updateMXcell(Session& s, std::int16_t kind, std::int16_t column, hostmodel::MXStyle& style);

// The text sample of a label style in the current column of the row of the layer given.
void exportLabelSample(Session& s, std::int16_t layer, hostmodel::MXStyle& style);

// MapX's own picker of the kind, on the style; it blocks until the user has chosen.
void pickMXStyle(std::int16_t kind, hostmodel::MXStyle& style);

} // namespace vellant::styles
