#pragma once
// Samples into the grid's cells on the MapInfo host: one sample for a whole range of rows, put
// into the current column of each, and, for a style the user picked, given to the layers too.

#include <cstdint>
#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// Samples the style once and puts it into the current column for the layers gPendFirst to
// gPendLast (a group click keeps to the clicked row's group). In the column "override" each
// layer takes the style as its override; a picked style also gives the label column its
// visibility and, for text, the label font. An empty style leaves the cells alone.
void updateMicell(Session& s, std::int16_t kind, std::string style, bool pick);

// The end of a style pick, when the companion's button calls back: the style chosen in the
// host's dialog (in "currstyle") reaches the cells and layers waiting for it, and the grid and
// the map draw again.
void updateMicellfromPick(Session& s);

} // namespace vellant::styles
