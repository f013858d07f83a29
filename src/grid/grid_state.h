#pragma once
// Module-wide state of the column catalogue and the header. Session inherits it.

#include "base/fixed_array.h"

#include <cstdint>
#include <string>

namespace vellant::grid {

struct GridState {
    // 39 columns with the MapX host, 38 with the MapInfo host (no "label dataset").
    std::int16_t gColCount = 0;
    // The lower-case key under which getcolnum last found each column.
    ColumnArray<std::string> gColKey;
    ColumnArray<std::string> gColTip;
    ColumnArray<std::uint16_t> gColType;
    // The head column of each column's group (the head holds its own number), 0 for none.
    ColumnArray<std::int16_t> gColGroup;
    // For a head column, which pair of expand/collapse glyphs (1 to 7) it owns.
    ColumnArray<std::int16_t> gColGroupPic;
    // The width a column comes back to when its group unfolds.
    ColumnArray<std::uint16_t> gColWidth;
    // Loop variable shared by the column loops; no value survives a call.
    std::int32_t gColIter = 0;
};

} // namespace vellant::grid
