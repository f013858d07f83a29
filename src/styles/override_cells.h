#pragma once
// The override of a layer's style in the grid: the column "style" shows whether a layer is
// drawn in one style of its own (on and off pictures by kind), the column "override" shows a
// sample of that style. A click turns the override off, or on with the host's style dialog.
// On the MapInfo host the dialog is the companion's: the click asks for it and ends, and the
// change is finished when the companion's button calls back (updateMicellfromPick).

#include <cstdint>

namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// Paints the style cell of the current layer for its kind and state (kinds 3, 4 and 6 have
// none). On a load (pick false) an override shows its sample; on a click (pick true) turning it
// on asks the companion for the style dialog and freezes the form's call-backs until it
// answers.
void setoridestylecell(Session& s, std::int16_t kind, bool on, bool pick);

// A click on the style cell of the row at hand, one of the rows first..last. Answers false
// when the walk of the click is to end here: a row set's first row turned on waits for the
// pick, which covers the whole set.
bool togglestyle(Session& s, std::int16_t first, std::int16_t last);

} // namespace vellant::styles
