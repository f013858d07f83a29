#pragma once
// The grid control the layer grid is built on: rows and columns of cells with text, picture,
// background and bold font, one fixed header row and one fixed header column, a current cell
// with a rectangular selection, column widths and row heights in twips, scrolling, and the
// mouse and keyboard events of the real control in the real control's order.
//
// Cell properties (Text, CellPicture, CellBackColor, CellPictureAlignment, CellFontBold) act on
// the current cell Row/Col. Assigning Row, Col, RowSel or ColSel so that the selection changes
// fires SelChange before the assignment returns: the program's re-entrancy guards count on it.

#include "platform/control.h"
#include "platform/observer_list.h"
#include "platform/picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vellant::platform {

// A colour as the grid takes it: 0x00BBGGRR, or a system colour such as 0x80000011 (gray text).
using OleColor = std::uint32_t;

inline constexpr int flexAlignLeftTop = 0;
inline constexpr int flexAlignLeftCenter = 1;
inline constexpr int flexAlignCenterCenter = 4;
inline constexpr int flexAlignRightCenter = 7;
inline constexpr int flexPicAlignTile = 10;
inline constexpr int flexPictureColor = 0;
inline constexpr int flexPictureMonochrome = 1;

inline constexpr int vbLeftButton = 1;
inline constexpr int vbRightButton = 2;
inline constexpr int vbShiftMask = 1;

inline constexpr int vbManual = 0;
inline constexpr int vbAutomatic = 1;
inline constexpr int vbCancelDrag = 0;
inline constexpr int vbBeginDrag = 1;
inline constexpr int vbEndDrag = 2;
inline constexpr int vbEnter = 0;
inline constexpr int vbLeave = 1;
inline constexpr int vbOver = 2;

struct GridCell {
    std::string text;
    Picture picture;
    OleColor backColor = 0; // 0: the grid's own background
    int pictureAlignment = flexAlignLeftCenter;
    bool fontBold = false;
};

// What a view has to repaint.
struct GridChange {
    enum class Kind {
        Cell,      // one cell's content or look: row, col
        Layout,    // rows, columns, widths or heights
        Selection, // Row, Col, RowSel or ColSel
        Scroll,    // TopRow or LeftCol
        Redraw,    // Redraw switched
        Refresh,   // an explicit Refresh
        Look,      // a grid-wide look: ForeColor, PictureType
    };
    Kind kind;
    int row = -1;
    int col = -1;
};

class FlexGrid : public Control {
public:
    static constexpr int kFixedRows = 1;
    static constexpr int kFixedCols = 1;

    explicit FlexGrid(std::string name = "LyrGrid", int index = -1);

    // Shape. Cells that still fit keep their content when the grid grows or shrinks; new cells
    // start empty. At least the fixed row and column stay.
    int Rows() const { return rows_; }
    void setRows(int rows);
    int Cols() const { return cols_; }
    void setCols(int cols);
    int FixedRows() const { return kFixedRows; }
    int FixedCols() const { return kFixedCols; }

    // Current cell and selection. Setting Row or Col collapses the selection onto the new
    // current cell. Fixed cells may be made current, to reach their properties.
    int Row() const { return row_; }
    void setRow(int row);
    int Col() const { return col_; }
    void setCol(int col);
    int RowSel() const { return rowSel_; }
    void setRowSel(int row);
    int ColSel() const { return colSel_; }
    void setColSel(int col);

    // The current cell.
    std::string Text() const { return current().text; }
    void setText(const std::string& text);
    const vellant::platform::Picture& CellPicture() const { return current().picture; }
    void setCellPicture(const vellant::platform::Picture& picture);
    OleColor CellBackColor() const { return current().backColor; }
    void setCellBackColor(OleColor color);
    int CellPictureAlignment() const { return current().pictureAlignment; }
    void setCellPictureAlignment(int alignment);
    bool CellFontBold() const { return current().fontBold; }
    void setCellFontBold(bool bold);

    // Any cell.
    std::string TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const std::string& text);
    // Read access for views and snapshots, without moving the current cell.
    const GridCell& cellAt(int row, int col) const;

    // Grid-wide look.
    int PictureType() const { return pictureType_; }
    void setPictureType(int type);
    OleColor ForeColor() const { return foreColor_; }
    void setForeColor(OleColor color);
    bool Redraw() const { return redraw_; }
    void setRedraw(bool redraw);
    void Refresh();
    int refreshCount() const { return refreshCount_; }

    // Sizes in twips. -1 sets the default, which reads back as the default's value.
    int ColWidth(int col) const;
    void setColWidth(int col, int twips);
    int RowHeight(int row) const;
    void setRowHeight(int row, int twips);
    int defaultColWidth() const { return defaultColWidth_; }
    int defaultRowHeight() const { return defaultRowHeight_; }
    // The front end sets the defaults from its font; the model starts with the usual ones.
    void setDefaultSizes(int colWidth, int rowHeight);

    // Positions relative to the scrolled origin: the fixed row and column at 0, the first
    // scrolled-in row and column right after them, rows and columns scrolled out before them
    // at negative positions.
    int ColPos(int col) const;
    int RowPos(int row) const;
    int CellLeft() const { return ColPos(col_); }
    int CellTop() const { return RowPos(row_); }
    int CellWidth() const { return ColWidth(col_); }
    int CellHeight() const { return RowHeight(row_); }

    // Scrolling: the first scrollable row and column in view. Changes fire Scroll.
    int TopRow() const { return topRow_; }
    void setTopRow(int row);
    int LeftCol() const { return leftCol_; }
    void setLeftCol(int col);

    // The mouse, in twips relative to the grid. MouseRow and MouseCol name the row and column
    // under it; a row or column of size 0 is never under it. Beyond the last row or column they
    // name the last one, before the first the first one.
    void setMousePosition(float x, float y);
    float mouseX() const { return mouseX_; }
    float mouseY() const { return mouseY_; }
    int MouseRow() const;
    int MouseCol() const;

    // Dragging the grid as a whole onto a drop target (the layer "order" handle).
    int DragMode() const { return dragMode_; }
    void setDragMode(int mode);
    // vbBeginDrag starts a drag, vbCancelDrag drops nothing, vbEndDrag drops on the grid at the
    // mouse position (DragDrop).
    void Drag(int action = vbBeginDrag);
    bool Dragging() const { return dragging_; }

    // Events. The grid's Click is Control::onClick.
    std::function<void()> onSelChange;
    std::function<void()> onRowColChange;
    std::function<void()> onEnterCell;
    std::function<void()> onLeaveCell;
    std::function<void()> onScroll;
    std::function<void()> onDblClick;
    std::function<void(int button, int shift, float x, float y)> onMouseDown;
    std::function<void(int button, int shift, float x, float y)> onMouseMove;
    std::function<void(int button, int shift, float x, float y)> onMouseUp;
    // The handler may change the key, or set it to 0 to swallow it.
    std::function<void(int& keyAscii)> onKeyPress;
    std::function<void(Control& source, float x, float y)> onDragDrop;
    std::function<void(Control& source, float x, float y, int state)> onDragOver;

    // User input, as the front end and scripts deliver it. A disabled grid takes none.
    // A left press picks the cell under the mouse: in the fixed column it selects that whole
    // row, in the fixed row that whole column, in the corner everything; with Shift it extends
    // the selection from the current cell. Moving with the left button down extends the
    // selection in the same manner. Order of events: MouseDown, then the cell and selection
    // events; on release MouseUp, then Click.
    void mouseDown(int button, int shift, float x, float y);
    void mouseMove(int button, int shift, float x, float y);
    void mouseUp(int button, int shift, float x, float y);
    // A left press and release.
    void click(float x, float y);
    // The second press of a double click: DblClick, and its release gives MouseUp without a
    // Click. A desktop delivers a double click as a click and then this press and a release.
    void doubleClickPress(float x, float y);
    // MouseDown, MouseUp, Click, DblClick, MouseUp, as a double click of the left button gives.
    void doubleClick(float x, float y);
    void keyPress(int keyAscii);

    // Views subscribe to repaint.
    int subscribeGrid(std::function<void(const GridChange&)> observer) {
        return gridObservers_.add(std::move(observer));
    }
    void unsubscribeGrid(int token) { gridObservers_.remove(token); }

private:
    enum class SelectMode { None, Cells, WholeRows, WholeCols };

    void checkRow(int row) const;
    void checkCol(int col) const;
    GridCell& cell(int row, int col);
    const GridCell& current() const;
    void changedCell(int row, int col);
    void changed(GridChange::Kind kind);
    // Moves the current cell and the selection at once and fires the events that the change
    // calls for: LeaveCell, EnterCell and RowColChange when the current cell moves, SelChange
    // when anything moves.
    void select(int row, int col, int rowSel, int colSel);
    void changeSel(int rowSel, int colSel);
    void reshape(int rows, int cols);
    void extendTo(float x, float y);
    static void fire(const std::function<void()>& handler) {
        if (handler) handler();
    }

    struct Hit {
        int index = 0;
        bool inside = false; // false: the nearest row or column, the point lies outside them all
    };
    Hit rowAt(double y) const;
    Hit colAt(double x) const;

    int rows_ = 0;
    int cols_ = 0;
    std::vector<GridCell> cells_;
    std::vector<int> colWidths_;
    std::vector<int> rowHeights_;
    int defaultColWidth_ = 960;
    int defaultRowHeight_ = 240;

    int row_ = 1, col_ = 1, rowSel_ = 1, colSel_ = 1;
    int topRow_ = 1, leftCol_ = 1;

    int pictureType_ = flexPictureColor;
    OleColor foreColor_ = 0x80000008; // the system's window-text colour
    bool redraw_ = true;
    int refreshCount_ = 0;

    float mouseX_ = 0, mouseY_ = 0;
    int dragMode_ = vbManual;
    bool dragging_ = false;
    SelectMode selecting_ = SelectMode::None;
    bool releaseEndsDoubleClick_ = false;

    ObserverList<const GridChange&> gridObservers_;
};

} // namespace vellant::platform
