#pragma once
// The layer grid as the transcript shows it at a "snapshot": its shape, current cell and
// selection, every row height and column width, then a line for each cell that shows anything
// (text, back colour, picture) or answers a click:
//
//   grid rows 3 cols 38 row 1 col 2 rowsel 1 colsel 2
//   rowheights 350 240 240
//   colwidths 300 1200 ...
//   cell 1 2 click 1 back 0x0 pic Image1 text Alpha
//
// "click" is the session's gCellState for the cell (0 outside its dimensions); "back" the
// cell's back colour in hex (0 for the grid's own); "pic" the picture's name, "-" for none and
// "bitmap" for a loaded picture without one, blanks written \x20; the text runs to the end of
// the line.

#include "app/replay/transcript.h"
#include "base/bounded_array.h"
#include "platform/flexgrid.h"

namespace vellant::replay {

void writeGridSnapshot(Transcript& transcript, const platform::FlexGrid& grid,
                       const BoundedTable<bool>& clickState);

} // namespace vellant::replay
