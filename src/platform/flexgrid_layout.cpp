// Sizes, positions, scrolling and hit testing of the grid.

#include "base/runtime_error.h"
#include "platform/flexgrid.h"

#include <algorithm>

namespace vellant::platform {

int FlexGrid::ColWidth(int col) const {
    checkCol(col);
    const int width = colWidths_[static_cast<std::size_t>(col)];
    return width < 0 ? defaultColWidth_ : width;
}

void FlexGrid::setColWidth(int col, int twips) {
    checkCol(col);
    if (twips < -1) raiseError(kErrInvalidProperty);
    int& width = colWidths_[static_cast<std::size_t>(col)];
    if (width == twips) return;
    width = twips;
    changed(GridChange::Kind::Layout);
}

int FlexGrid::RowHeight(int row) const {
    checkRow(row);
    const int height = rowHeights_[static_cast<std::size_t>(row)];
    return height < 0 ? defaultRowHeight_ : height;
}

void FlexGrid::setRowHeight(int row, int twips) {
    checkRow(row);
    if (twips < -1) raiseError(kErrInvalidProperty);
    int& height = rowHeights_[static_cast<std::size_t>(row)];
    if (height == twips) return;
    height = twips;
    changed(GridChange::Kind::Layout);
}

void FlexGrid::setDefaultSizes(int colWidth, int rowHeight) {
    if (colWidth < 0 || rowHeight < 0) raiseError(kErrInvalidProperty);
    if (colWidth == defaultColWidth_ && rowHeight == defaultRowHeight_) return;
    defaultColWidth_ = colWidth;
    defaultRowHeight_ = rowHeight;
    changed(GridChange::Kind::Layout);
}

int FlexGrid::ColPos(int col) const {
    checkCol(col);
    if (col < kFixedCols) {
        int pos = 0;
        for (int c = 0; c < col; ++c)
            pos += ColWidth(c);
        return pos;
    }
    int pos = ColPos(kFixedCols - 1) + ColWidth(kFixedCols - 1);
    if (col >= leftCol_)
        for (int c = leftCol_; c < col; ++c)
            pos += ColWidth(c);
    else
        for (int c = col; c < leftCol_; ++c)
            pos -= ColWidth(c);
    return pos;
}

int FlexGrid::RowPos(int row) const {
    checkRow(row);
    if (row < kFixedRows) {
        int pos = 0;
        for (int r = 0; r < row; ++r)
            pos += RowHeight(r);
        return pos;
    }
    int pos = RowPos(kFixedRows - 1) + RowHeight(kFixedRows - 1);
    if (row >= topRow_)
        for (int r = topRow_; r < row; ++r)
            pos += RowHeight(r);
    else
        for (int r = row; r < topRow_; ++r)
            pos -= RowHeight(r);
    return pos;
}

void FlexGrid::setTopRow(int row) {
    if (row < kFixedRows || row > std::max(kFixedRows, rows_ - 1))
        throw RuntimeError(381, "Invalid Row value");
    if (row == topRow_) return;
    topRow_ = row;
    changed(GridChange::Kind::Scroll);
    fire(onScroll);
}

void FlexGrid::setLeftCol(int col) {
    if (col < kFixedCols || col > std::max(kFixedCols, cols_ - 1))
        throw RuntimeError(381, "Invalid Col value");
    if (col == leftCol_) return;
    leftCol_ = col;
    changed(GridChange::Kind::Scroll);
    fire(onScroll);
}

void FlexGrid::setMousePosition(float x, float y) {
    mouseX_ = x;
    mouseY_ = y;
}

int FlexGrid::MouseRow() const {
    return rowAt(mouseY_).index;
}

int FlexGrid::MouseCol() const {
    return colAt(mouseX_).index;
}

namespace {

// Walks the rows (or columns) in the order they are drawn: the fixed ones, then the scrollable
// ones from the first in view. Those of size 0 take no room and so are never hit.
template <class SizeOf> auto hitTest(double at, int fixed, int first, int count, SizeOf sizeOf) {
    struct Result {
        int index = 0;
        bool inside = false;
    };
    int firstShown = -1, lastShown = -1;
    double pos = 0;
    const auto visit = [&](int i) {
        const int size = sizeOf(i);
        if (size <= 0) return false;
        if (firstShown < 0) firstShown = i;
        lastShown = i;
        if (at >= pos && at < pos + size) return true;
        pos += size;
        return false;
    };
    for (int i = 0; i < fixed && i < count; ++i)
        if (visit(i)) return Result{i, true};
    for (int i = first; i < count; ++i)
        if (visit(i)) return Result{i, true};
    if (firstShown < 0) return Result{};
    return Result{at < 0 ? firstShown : lastShown, false};
}

} // namespace

FlexGrid::Hit FlexGrid::rowAt(double y) const {
    const auto r = hitTest(y, kFixedRows, topRow_, rows_, [this](int i) { return RowHeight(i); });
    return Hit{r.index, r.inside};
}

FlexGrid::Hit FlexGrid::colAt(double x) const {
    const auto c = hitTest(x, kFixedCols, leftCol_, cols_, [this](int i) { return ColWidth(i); });
    return Hit{c.index, c.inside};
}

} // namespace vellant::platform
