// The user's mouse and keys on the grid, turned into the real control's selection changes and
// events.

#include "base/runtime_error.h"
#include "platform/flexgrid.h"

#include <algorithm>

namespace vellant::platform {

void FlexGrid::setDragMode(int mode) {
    if (mode != vbManual && mode != vbAutomatic) raiseError(kErrInvalidProperty);
    dragMode_ = mode;
}

void FlexGrid::Drag(int action) {
    switch (action) {
    case vbCancelDrag:
        dragging_ = false;
        return;
    case vbBeginDrag:
        dragging_ = true;
        return;
    case vbEndDrag:
        if (!dragging_) return;
        // Cleared first: the drop handler ends the drag again itself.
        dragging_ = false;
        if (onDragDrop) onDragDrop(*this, mouseX_, mouseY_);
        return;
    default:
        raiseError(kErrInvalidCall);
    }
}

void FlexGrid::mouseDown(int button, int shift, float x, float y) {
    if (!Enabled()) return;
    setMousePosition(x, y);
    if (dragMode_ == vbAutomatic && button == vbLeftButton) {
        // An automatic drag takes the press whole: the grid itself sees no mouse events.
        Drag(vbBeginDrag);
        return;
    }
    if (onMouseDown) onMouseDown(button, shift, x, y);
    selecting_ = SelectMode::None;
    if (button != vbLeftButton || !Enabled()) return;
    if (rows_ <= kFixedRows || cols_ <= kFixedCols) return;

    const Hit r = rowAt(y);
    const Hit c = colAt(x);
    if (!r.inside || !c.inside) return; // the empty area beyond the cells

    const int lastRow = rows_ - 1;
    const int lastCol = cols_ - 1;
    if (shift & vbShiftMask) {
        selecting_ = SelectMode::Cells;
        changeSel(std::max(r.index, kFixedRows), std::max(c.index, kFixedCols));
    } else if (r.index < kFixedRows && c.index < kFixedCols) {
        select(kFixedRows, kFixedCols, lastRow, lastCol);
    } else if (c.index < kFixedCols) {
        selecting_ = SelectMode::WholeRows;
        select(r.index, kFixedCols, r.index, lastCol);
    } else if (r.index < kFixedRows) {
        selecting_ = SelectMode::WholeCols;
        select(kFixedRows, c.index, lastRow, c.index);
    } else {
        selecting_ = SelectMode::Cells;
        select(r.index, c.index, r.index, c.index);
    }
}

void FlexGrid::mouseMove(int button, int shift, float x, float y) {
    if (!Enabled()) return;
    setMousePosition(x, y);
    if (onMouseMove) onMouseMove(button, shift, x, y);
    if (dragging_) {
        if (onDragOver) onDragOver(*this, x, y, vbOver);
        return;
    }
    if ((button & vbLeftButton) && selecting_ != SelectMode::None) extendTo(x, y);
}

void FlexGrid::extendTo(float x, float y) {
    // Past the edge of the cells the selection stops at the last row or column in view.
    const int r = std::max(rowAt(y).index, kFixedRows);
    const int c = std::max(colAt(x).index, kFixedCols);
    switch (selecting_) {
    case SelectMode::Cells:
        changeSel(r, c);
        break;
    case SelectMode::WholeRows:
        changeSel(r, cols_ - 1);
        break;
    case SelectMode::WholeCols:
        changeSel(rows_ - 1, c);
        break;
    case SelectMode::None:
        break;
    }
}

void FlexGrid::mouseUp(int button, int shift, float x, float y) {
    if (!Enabled()) return;
    setMousePosition(x, y);
    if (button == vbLeftButton) selecting_ = SelectMode::None;
    if (dragging_) {
        // The release ends a drag with a drop where the mouse is; the drag has taken the mouse,
        // so neither MouseUp nor Click follows.
        Drag(vbEndDrag);
        return;
    }
    if (onMouseUp) onMouseUp(button, shift, x, y);
    if (button != vbLeftButton) return;
    if (releaseEndsDoubleClick_) {
        releaseEndsDoubleClick_ = false;
        return;
    }
    Click();
}

void FlexGrid::click(float x, float y) {
    mouseDown(vbLeftButton, 0, x, y);
    mouseUp(vbLeftButton, 0, x, y);
}

void FlexGrid::doubleClickPress(float x, float y) {
    if (!Enabled()) return;
    setMousePosition(x, y);
    releaseEndsDoubleClick_ = true;
    fire(onDblClick);
}

void FlexGrid::doubleClick(float x, float y) {
    click(x, y);
    doubleClickPress(x, y);
    mouseUp(vbLeftButton, 0, x, y);
}

void FlexGrid::keyPress(int keyAscii) {
    if (!Enabled()) return;
    int key = keyAscii;
    if (onKeyPress) onKeyPress(key);
}

} // namespace vellant::platform
