#pragma once
// Where the grid's rows and columns stand on the screen. Pixel edges come from the model's
// running sums of twips, so that rounding never piles up down a long grid, and only the rows
// and columns in view are walked: a grid of a thousand rows costs what its window shows.

#include "platform/flexgrid.h"
#include "qtui/twips.h"

#include <vector>

namespace vellant::qtui {

// One row or column on the screen, in pixels from the grid's top or left.
struct GridBand {
    int index = 0;
    int start = 0;
    int size = 0;
    int end() const { return start + size; }
};

enum class GridAxis { Rows, Cols };

// The fixed row (or column) and the scrolled ones from TopRow (LeftCol) on that are at least
// partly inside `extent` pixels, in drawing order; those of size 0 are left out.
std::vector<GridBand> bandsInView(const platform::FlexGrid& grid, GridAxis axis,
                                  const TwipScale& scale, int extent);

// The band of one row or column when it is in view.
const GridBand* findBand(const std::vector<GridBand>& bands, int index);

// Scrolling in whole rows (columns): the scrolled ones that take room, the position of the
// first one in view among them, and the last position that still fills the view.
struct GridScrollRange {
    std::vector<int> indices;
    int position = 0;
    int maximum = 0;
    int pageStep = 1;
};
GridScrollRange scrollRange(const platform::FlexGrid& grid, GridAxis axis, const TwipScale& scale,
                            int extent);

} // namespace vellant::qtui
