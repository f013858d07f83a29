#pragma once
// Module-wide state of the column catalogue, the header and the grid's rows. Session inherits it.

#include "base/bounded_array.h"
#include "base/fixed_array.h"
#include "base/int16.h"

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

    // Layers of the map, not counting MapInfo's cosmetic layer.
    std::int16_t gLayerCount = 0;
    // The layer that setpropandcell and the facades work on; 0 is the cosmetic layer.
    std::int16_t gLayer = 0;
    // 0 a plain layer, 1 cosmetic (MapInfo), 2 raster, 3 thematic, 4 grid.
    std::int16_t gLayerType = 0;
    // 0 region, 1 line, 2 symbol, 3 mixed, 4 unknown, 5 text, 6 empty.
    std::int16_t gFeatureType = 0;
    // Which cells answer a click, by row and column; made anew by every load.
    BoundedTable<bool> gCellState;
    // Each layer's override of style at load, 0..gLayerCount.
    BoundedArray<bool> gOrigOverride;
    // setpropandcell writes the value to the layer as well as painting the cell.
    Flag gApplyToLayer = kFalse;
    // ColPos of the last column when the glyphs were last placed; a change means a scroll.
    std::int32_t gGlyphColPos = 0;
};

} // namespace vellant::grid
