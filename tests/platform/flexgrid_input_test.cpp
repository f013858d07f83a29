#include "platform/flexgrid.h"

#include <gtest/gtest.h>
#include <string>

namespace vellant::platform {
namespace {

// Columns 1000 | 500 | 500 | 500 | 500, rows 350 | 240 ...: the middle of cell (r, c) is at
// x = 1250 + 500 * (c - 1) for c >= 1, y = 470 + 240 * (r - 1) for r >= 1.
float midX(int c) {
    return c == 0 ? 500.0f : 1250.0f + 500.0f * static_cast<float>(c - 1);
}
float midY(int r) {
    return r == 0 ? 175.0f : 470.0f + 240.0f * static_cast<float>(r - 1);
}

std::string where(const FlexGrid& g) {
    return std::to_string(g.Row()) + "," + std::to_string(g.Col()) + "-" +
           std::to_string(g.RowSel()) + "," + std::to_string(g.ColSel());
}

class GridInput : public ::testing::Test {
protected:
    void SetUp() override {
        g.setRows(6);
        g.setCols(5);
        g.setRowHeight(0, 350);
        g.setColWidth(0, 1000);
        for (int c = 1; c < 5; ++c)
            g.setColWidth(c, 500);
        g.onMouseDown = [&](int b, int, float, float) { trace += "down" + btn(b) + ";"; };
        g.onMouseUp = [&](int b, int, float, float) { trace += "up" + btn(b) + ";"; };
        g.onMouseMove = [&](int, int, float, float) { trace += "move;"; };
        g.onClick = [&] { trace += "click;"; };
        g.onDblClick = [&] { trace += "dbl;"; };
        g.onRowColChange = [&] { trace += "rowcol;"; };
        g.onSelChange = [&] {
            ++selChanges;
            trace += "sel " + where(g) + ";";
        };
    }
    static std::string btn(int b) { return b == vbLeftButton ? "" : "(" + std::to_string(b) + ")"; }
    FlexGrid g;
    std::string trace;
    int selChanges = 0;
};

TEST_F(GridInput, PressOnTheFixedColumnSelectsTheWholeRowInTheControlsOrder) {
    g.click(midX(0), midY(3));
    EXPECT_EQ(trace, "down;rowcol;sel 3,1-3,4;up;click;");
    EXPECT_EQ(g.MouseRow(), 3);
    EXPECT_EQ(g.MouseCol(), 0);
}

TEST_F(GridInput, DraggingDownTheFixedColumnTakesInMoreWholeRows) {
    g.mouseDown(vbLeftButton, 0, midX(0), midY(2));
    selChanges = 0;
    g.mouseMove(vbLeftButton, 0, midX(0), midY(2) + 50); // same row: nothing new
    g.mouseMove(vbLeftButton, 0, midX(0), midY(3));
    g.mouseMove(vbLeftButton, 0, midX(2), midY(4)); // off the column: still whole rows
    EXPECT_EQ(selChanges, 2);
    EXPECT_EQ(where(g), "2,1-4,4");
    g.mouseMove(vbLeftButton, 0, midX(0), midY(0)); // up over the header: stops at row 1
    EXPECT_EQ(where(g), "2,1-1,4");
    g.mouseUp(vbLeftButton, 0, midX(0), midY(0));
    selChanges = 0;
    g.mouseMove(0, 0, midX(0), midY(5)); // button up: no more extension
    EXPECT_EQ(selChanges, 0);
}

TEST_F(GridInput, PressOnACellMovesTheCurrentCellAndDragSpansARectangle) {
    g.mouseDown(vbLeftButton, 0, midX(3), midY(4));
    EXPECT_EQ(where(g), "4,3-4,3");
    g.mouseMove(vbLeftButton, 0, midX(1), midY(2));
    EXPECT_EQ(where(g), "4,3-2,1");
    g.mouseMove(vbLeftButton, 0, midX(0), midY(2)); // the fixed column is not taken in
    EXPECT_EQ(where(g), "4,3-2,1");
}

TEST_F(GridInput, ShiftPressExtendsFromTheCurrentCell) {
    g.click(midX(2), midY(2));
    trace.clear();
    g.mouseDown(vbLeftButton, vbShiftMask, midX(4), midY(5));
    EXPECT_EQ(where(g), "2,2-5,4");
    EXPECT_EQ(trace, "down;sel 2,2-5,4;"); // the current cell stays
}

TEST_F(GridInput, PressOnTheHeaderRowSelectsTheColumnAndTheCornerEverything) {
    g.click(midX(2), midY(0));
    EXPECT_EQ(where(g), "1,2-5,2");
    g.click(midX(0), midY(0));
    EXPECT_EQ(where(g), "1,1-5,4");
}

TEST_F(GridInput, PressOnAHiddenColumnsPlaceHitsTheNextShownColumn) {
    g.setColWidth(2, 0);
    g.click(1600, midY(1)); // where column 2 would be
    EXPECT_EQ(g.Col(), 3);
}

TEST_F(GridInput, PressBeyondTheCellsChangesNothingButStillClicks) {
    g.click(midX(4) + 2000, midY(2));
    g.click(midX(2), midY(5) + 1000);
    EXPECT_EQ(trace, "down;up;click;down;up;click;");
    EXPECT_EQ(where(g), "1,1-1,1");
    EXPECT_EQ(g.MouseRow(), 5);
}

TEST_F(GridInput, RightPressNeitherSelectsNorClicks) {
    g.mouseDown(vbRightButton, 0, midX(3), midY(3));
    g.mouseUp(vbRightButton, 0, midX(3), midY(3));
    EXPECT_EQ(trace, "down(2);up(2);");
    EXPECT_EQ(where(g), "1,1-1,1");
}

TEST_F(GridInput, DoubleClickGivesTheDesktopsSequence) {
    g.doubleClick(midX(2), midY(2));
    EXPECT_EQ(trace, "down;rowcol;sel 2,2-2,2;up;click;dbl;up;");
    // Only the release of the second press goes without a click; the next click is whole.
    trace.clear();
    g.click(midX(2), midY(2));
    EXPECT_EQ(trace, "down;up;click;");
}

TEST_F(GridInput, HandlersSeeThePressedCellAndMayReselectInsideTheEvents) {
    // The click code puts a row set back from inside the click; the selection events it
    // causes must run before the click handler returns.
    bool busy = false;
    int whileBusy = 0;
    g.onSelChange = [&] {
        if (busy) ++whileBusy;
    };
    g.onClick = [&] {
        EXPECT_EQ(g.Row(), 3);
        EXPECT_EQ(g.Col(), 2);
        busy = true;
        g.setRow(2);
        g.setCol(0);
        g.setRowSel(4);
        g.setColSel(g.Cols() - 1);
        busy = false;
    };
    g.click(midX(2), midY(3));
    EXPECT_EQ(whileBusy, 4);
    EXPECT_EQ(where(g), "2,0-4,4");
}

TEST_F(GridInput, ManualDragStartedOnPressEndsWithADropInsteadOfARelease) {
    std::string drops;
    g.onMouseDown = [&](int, int, float x, float) {
        trace += "down;";
        if (x >= static_cast<float>(g.ColWidth(0)) && x <= static_cast<float>(g.ColPos(2))) {
            g.setDragMode(vbManual);
            g.Drag(vbBeginDrag);
        }
    };
    g.onDragOver = [&](Control&, float, float, int state) {
        trace += "over" + std::to_string(state) + ";";
    };
    g.onDragDrop = [&](Control& source, float, float y) {
        drops += source.Name() + "@" + std::to_string(static_cast<int>(y));
        g.Drag(vbEndDrag); // the drop handler ends the drag once more
    };
    g.mouseDown(vbLeftButton, 0, midX(1), midY(4));
    EXPECT_TRUE(g.Dragging());
    trace.clear();
    g.mouseMove(vbLeftButton, 0, midX(1), midY(2));
    EXPECT_EQ(where(g), "4,1-4,1"); // a drag does not stretch the selection
    g.mouseUp(vbLeftButton, 0, midX(1), midY(2));
    EXPECT_EQ(trace, "move;over2;");
    EXPECT_EQ(drops, "LyrGrid@710");
    EXPECT_FALSE(g.Dragging());
}

TEST_F(GridInput, AutomaticDragTakesThePressWhole) {
    int drops = 0;
    g.onDragDrop = [&](Control&, float, float) { ++drops; };
    g.setDragMode(vbAutomatic);
    g.click(midX(2), midY(2));
    EXPECT_EQ(trace, "");
    EXPECT_EQ(drops, 1);
}

TEST_F(GridInput, DisabledGridTakesNoInput) {
    int keys = 0;
    g.onKeyPress = [&](int&) { ++keys; };
    g.setEnabled(false);
    g.click(midX(2), midY(2));
    g.keyPress('a');
    EXPECT_EQ(trace, "");
    EXPECT_EQ(keys, 0);
    g.setEnabled(true);
    int seen = 0;
    g.onKeyPress = [&](int& k) { seen = k; };
    g.keyPress(13);
    EXPECT_EQ(seen, 13);
}

} // namespace
} // namespace vellant::platform
