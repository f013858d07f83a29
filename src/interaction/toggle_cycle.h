#pragma once
// On/off cells. One row flips; a row set walks a cycle of four settings (flip each row, flip
// the model row's setting onto all, the model row's original onto all, every row's original
// back), with a status picture beside the grid telling which step the next click applies.

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

// Applies the cycle's current step to gRow for the column of the key; value is the row's
// present setting.
void togglecell(Session& s, const std::string& prop, bool value);

// The toggle of the clicked column for gRow: reads the setting and hands it to togglecell, or
// runs the column's own action (orientation picker, label zoom cycle, label line step).
void dotoggles(Session& s);

// A row set was selected (LyrGrid Row..RowSel): the cycle starts at step 0.
void startToggleCycle(Session& s);
// The row set is given up.
void endToggleCycle(Session& s);

} // namespace vellant::interaction
