#pragma once
// How the popup's layer operations walk a selection of rows: from the layer of the anchor row
// to the layer of the other end, one at a time. The count and the step come from the signed
// length RowSel - Row + 1, which is only the number of rows for a selection made downward; the
// operations keep that formula, odd results of an upward selection included.

#include "base/runtime_error.h"

#include <cstdlib>

namespace vellant::mapchanges {

struct RowWalk {
    // The absolute value of RowSel - Row + 1.
    int count = 0;
    // +1 or -1.
    int step = 0;
};

// Row one above RowSel gives a length of 0, and the division 0 / 0 raises error 6 as the
// runtime's floating division does.
inline RowWalk rowWalk(int row, int rowSel) {
    const int length = rowSel - row + 1;
    const int count = std::abs(length);
    if (count == 0) raiseError(kErrOverflow);
    return {count, length / count};
}

} // namespace vellant::mapchanges
