#include "qtui/grid/grid_axes.h"

#include <algorithm>

namespace vellant::qtui {

namespace {

int count(const platform::FlexGrid& grid, GridAxis axis) {
    return axis == GridAxis::Rows ? grid.Rows() : grid.Cols();
}
int fixedCount(const platform::FlexGrid& grid, GridAxis axis) {
    return axis == GridAxis::Rows ? grid.FixedRows() : grid.FixedCols();
}
int firstScrolled(const platform::FlexGrid& grid, GridAxis axis) {
    return axis == GridAxis::Rows ? grid.TopRow() : grid.LeftCol();
}
int sizeOf(const platform::FlexGrid& grid, GridAxis axis, int index) {
    return axis == GridAxis::Rows ? grid.RowHeight(index) : grid.ColWidth(index);
}

} // namespace

std::vector<GridBand> bandsInView(const platform::FlexGrid& grid, GridAxis axis,
                                  const TwipScale& scale, int extent) {
    std::vector<GridBand> bands;
    const int total = count(grid, axis);
    long long twips = 0;
    const auto add = [&](int index) {
        const int size = sizeOf(grid, axis, index);
        if (size <= 0) return true;
        const int start = scale.pixels(static_cast<double>(twips));
        twips += size;
        const int end = scale.pixels(static_cast<double>(twips));
        if (end > start) bands.push_back({index, start, end - start});
        return end < extent;
    };
    const int fixed = std::min(fixedCount(grid, axis), total);
    for (int i = 0; i < fixed; ++i)
        if (!add(i)) return bands;
    for (int i = std::max(firstScrolled(grid, axis), fixed); i < total; ++i)
        if (!add(i)) break;
    return bands;
}

const GridBand* findBand(const std::vector<GridBand>& bands, int index) {
    for (const GridBand& band : bands)
        if (band.index == index) return &band;
    return nullptr;
}

GridScrollRange scrollRange(const platform::FlexGrid& grid, GridAxis axis, const TwipScale& scale,
                            int extent) {
    GridScrollRange range;
    const int total = count(grid, axis);
    const int fixed = std::min(fixedCount(grid, axis), total);
    int fixedPixels = 0;
    for (int i = 0; i < fixed; ++i)
        fixedPixels += scale.pixels(std::max(0, sizeOf(grid, axis, i)));
    const int first = firstScrolled(grid, axis);
    for (int i = fixed; i < total; ++i) {
        if (sizeOf(grid, axis, i) <= 0) continue;
        if (i < first) ++range.position;
        range.indices.push_back(i);
    }
    const int room = std::max(1, extent - fixedPixels);
    // How many of the last ones fit whole: scrolling further would only show empty space.
    int fitting = 0;
    int used = 0;
    for (auto it = range.indices.rbegin(); it != range.indices.rend(); ++it) {
        used += scale.pixels(sizeOf(grid, axis, *it));
        if (used > room) break;
        ++fitting;
    }
    const int shown = static_cast<int>(range.indices.size());
    range.maximum = std::max(0, shown - std::max(fitting, 1));
    range.pageStep = std::max(1, fitting);
    range.position = std::min(range.position, range.maximum);
    return range;
}

} // namespace vellant::qtui
