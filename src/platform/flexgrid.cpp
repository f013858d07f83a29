#include "platform/flexgrid.h"

#include "base/runtime_error.h"

#include <algorithm>
#include <utility>

namespace vellant::platform {

namespace {

constexpr int kErrGridSubscript = 381;

} // namespace

FlexGrid::FlexGrid(std::string name, int index) : Control(std::move(name), index) {
    reshape(2, 2);
}

void FlexGrid::checkRow(int row) const {
    if (row < 0 || row >= rows_) throw RuntimeError(kErrGridSubscript, "Invalid Row value");
}

void FlexGrid::checkCol(int col) const {
    if (col < 0 || col >= cols_) throw RuntimeError(kErrGridSubscript, "Invalid Col value");
}

GridCell& FlexGrid::cell(int row, int col) {
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) + col];
}

const GridCell& FlexGrid::cellAt(int row, int col) const {
    checkRow(row);
    checkCol(col);
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) + col];
}

const GridCell& FlexGrid::current() const {
    return cellAt(row_, col_);
}

void FlexGrid::changed(GridChange::Kind kind) {
    gridObservers_.notify(GridChange{kind});
}

void FlexGrid::changedCell(int row, int col) {
    gridObservers_.notify(GridChange{GridChange::Kind::Cell, row, col});
}

// ---- shape ----

void FlexGrid::setRows(int rows) {
    if (rows < kFixedRows) raiseError(kErrInvalidProperty);
    if (rows != rows_) reshape(rows, cols_);
}

void FlexGrid::setCols(int cols) {
    if (cols < kFixedCols) raiseError(kErrInvalidProperty);
    if (cols != cols_) reshape(rows_, cols);
}

void FlexGrid::reshape(int rows, int cols) {
    std::vector<GridCell> next(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
    const int keepRows = std::min(rows, rows_);
    const int keepCols = std::min(cols, cols_);
    for (int r = 0; r < keepRows; ++r)
        for (int c = 0; c < keepCols; ++c)
            next[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) + c] =
                std::move(cell(r, c));
    cells_ = std::move(next);
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    colWidths_.resize(static_cast<std::size_t>(cols), -1);
    rows_ = rows;
    cols_ = cols;

    // A shrinking grid pulls the current cell, the selection and the scroll position inside
    // without cell events: the program reshapes with Redraw off and places the current cell
    // itself afterwards.
    const auto clampRow = [&](int r) { return std::min(r, rows_ - 1); };
    const auto clampCol = [&](int c) { return std::min(c, cols_ - 1); };
    const int lastTop = std::max(kFixedRows, rows_ - 1);
    const int lastLeft = std::max(kFixedCols, cols_ - 1);
    const bool selMoves = clampRow(row_) != row_ || clampCol(col_) != col_ ||
                          clampRow(rowSel_) != rowSel_ || clampCol(colSel_) != colSel_;
    const bool scrolls = topRow_ > lastTop || leftCol_ > lastLeft;
    row_ = clampRow(row_);
    col_ = clampCol(col_);
    rowSel_ = clampRow(rowSel_);
    colSel_ = clampCol(colSel_);
    topRow_ = std::min(topRow_, lastTop);
    leftCol_ = std::min(leftCol_, lastLeft);

    changed(GridChange::Kind::Layout);
    if (selMoves) changed(GridChange::Kind::Selection);
    if (scrolls) changed(GridChange::Kind::Scroll);
}

// ---- current cell and selection ----

void FlexGrid::setRow(int row) {
    checkRow(row);
    select(row, col_, row, col_);
}

void FlexGrid::setCol(int col) {
    checkCol(col);
    select(row_, col, row_, col);
}

void FlexGrid::setRowSel(int row) {
    checkRow(row);
    changeSel(row, colSel_);
}

void FlexGrid::setColSel(int col) {
    checkCol(col);
    changeSel(rowSel_, col);
}

void FlexGrid::select(int row, int col, int rowSel, int colSel) {
    const bool moves = row != row_ || col != col_;
    if (!moves && rowSel == rowSel_ && colSel == colSel_) return;
    if (moves) fire(onLeaveCell);
    row_ = row;
    col_ = col;
    rowSel_ = rowSel;
    colSel_ = colSel;
    changed(GridChange::Kind::Selection);
    if (moves) {
        fire(onEnterCell);
        fire(onRowColChange);
    }
    fire(onSelChange);
}

void FlexGrid::changeSel(int rowSel, int colSel) {
    if (rowSel == rowSel_ && colSel == colSel_) return;
    rowSel_ = rowSel;
    colSel_ = colSel;
    changed(GridChange::Kind::Selection);
    fire(onSelChange);
}

// ---- cells ----

void FlexGrid::setText(const std::string& text) {
    setTextMatrix(row_, col_, text);
}

std::string FlexGrid::TextMatrix(int row, int col) const {
    return cellAt(row, col).text;
}

void FlexGrid::setTextMatrix(int row, int col, const std::string& text) {
    checkRow(row);
    checkCol(col);
    GridCell& target = cell(row, col);
    if (target.text == text) return;
    target.text = text;
    changedCell(row, col);
}

void FlexGrid::setCellPicture(const vellant::platform::Picture& picture) {
    GridCell& target = cell(row_, col_);
    // A picture with the same name may come with another size, which the view must see.
    if (target.picture == picture && target.picture.widthTwips == picture.widthTwips &&
        target.picture.heightTwips == picture.heightTwips)
        return;
    target.picture = picture;
    changedCell(row_, col_);
}

void FlexGrid::setCellBackColor(OleColor color) {
    GridCell& target = cell(row_, col_);
    if (target.backColor == color) return;
    target.backColor = color;
    changedCell(row_, col_);
}

void FlexGrid::setCellPictureAlignment(int alignment) {
    if (alignment < flexAlignLeftTop || alignment > flexPicAlignTile)
        raiseError(kErrInvalidProperty);
    GridCell& target = cell(row_, col_);
    if (target.pictureAlignment == alignment) return;
    target.pictureAlignment = alignment;
    changedCell(row_, col_);
}

void FlexGrid::setCellFontBold(bool bold) {
    GridCell& target = cell(row_, col_);
    if (target.fontBold == bold) return;
    target.fontBold = bold;
    changedCell(row_, col_);
}

// ---- grid-wide look ----

void FlexGrid::setPictureType(int type) {
    if (type != flexPictureColor && type != flexPictureMonochrome) raiseError(kErrInvalidProperty);
    if (type == pictureType_) return;
    pictureType_ = type;
    changed(GridChange::Kind::Look);
}

void FlexGrid::setForeColor(OleColor color) {
    if (color == foreColor_) return;
    foreColor_ = color;
    changed(GridChange::Kind::Look);
}

void FlexGrid::setRedraw(bool redraw) {
    if (redraw == redraw_) return;
    redraw_ = redraw;
    changed(GridChange::Kind::Redraw);
}

void FlexGrid::Refresh() {
    ++refreshCount_;
    changed(GridChange::Kind::Refresh);
}

} // namespace vellant::platform
