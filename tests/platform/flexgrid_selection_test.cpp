#include "error_number.h"
#include "platform/flexgrid.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vellant::platform {
namespace {

using testing::raisedBy;

Picture namedPicture(const std::string& name) {
    Picture p;
    p.name = name;
    return p;
}

std::string where(const FlexGrid& g) {
    return std::to_string(g.Row()) + "," + std::to_string(g.Col()) + "-" +
           std::to_string(g.RowSel()) + "," + std::to_string(g.ColSel());
}

class GridSelection : public ::testing::Test {
protected:
    void SetUp() override {
        g.setRows(8);
        g.setCols(6);
        g.onLeaveCell = [&] { trace += "leave " + where(g) + ";"; };
        g.onEnterCell = [&] { trace += "enter;"; };
        g.onRowColChange = [&] { trace += "rowcol;"; };
        g.onSelChange = [&] {
            ++selChanges;
            trace += "sel " + where(g) + ";";
        };
    }
    FlexGrid g;
    std::string trace;
    int selChanges = 0;
};

TEST_F(GridSelection, RowAssignmentFiresCellEventsThenSelChangeWithTheNewState) {
    g.setRow(3);
    EXPECT_EQ(trace, "leave 1,1-1,1;enter;rowcol;sel 3,1-3,1;");
}

TEST_F(GridSelection, AssignmentThatChangesNothingFiresNothing) {
    g.setRow(1);
    g.setCol(1);
    g.setRowSel(1);
    g.setColSel(1);
    EXPECT_EQ(trace, "");
}

TEST_F(GridSelection, RowOrColCollapsesAWiderSelection) {
    g.setRowSel(4);
    g.setColSel(5);
    trace.clear();
    g.setRow(1); // same current cell, but the selection shrinks
    EXPECT_EQ(trace, "sel 1,1-1,1;");
    g.setRowSel(3);
    g.setColSel(3);
    g.setCol(2);
    EXPECT_EQ(where(g), "1,2-1,2");
}

TEST_F(GridSelection, SelAssignmentsMoveOnlyTheFarCorner) {
    g.setRowSel(5);
    g.setColSel(5);
    EXPECT_EQ(trace, "sel 1,1-5,1;sel 1,1-5,5;");
}

TEST_F(GridSelection, RestoringAWholeRowSetFiresOneSelChangePerAssignment) {
    // The shape the click code uses to put a row set back, with its busy guard.
    g.setRow(2);
    g.setCol(3);
    bool busy = false;
    int seenBusy = 0;
    g.onSelChange = [&] {
        ++selChanges;
        if (busy) ++seenBusy;
    };
    selChanges = 0;
    busy = true;
    g.setRow(4);
    g.setCol(0);
    g.setRowSel(6);
    g.setColSel(g.Cols() - 1);
    busy = false;
    EXPECT_EQ(selChanges, 4);
    EXPECT_EQ(seenBusy, 4);
    EXPECT_EQ(where(g), "4,0-6,5");
}

TEST_F(GridSelection, HandlerMayReassignTheSelectionFromInside) {
    // A handler that turns any press on column 0 into a whole-row selection.
    std::vector<std::string> states;
    g.onSelChange = [&] {
        states.push_back(where(g));
        if (g.Col() == 0) {
            g.setCol(1);
            g.setColSel(g.Cols() - 1);
        }
    };
    g.setRow(2);
    g.setCol(0);
    EXPECT_EQ(where(g), "2,1-2,5");
    EXPECT_EQ(states, (std::vector<std::string>{"2,1-2,1", "2,0-2,0", "2,1-2,1", "2,1-2,5"}));
}

TEST_F(GridSelection, FixedCellsCanBeMadeCurrentButNothingOutsideTheGrid) {
    g.setRow(0);
    g.setCol(0);
    EXPECT_EQ(where(g), "0,0-0,0");
    const auto row = raisedBy([&] { g.setRow(8); });
    EXPECT_EQ(row.number, 381);
    EXPECT_EQ(row.description, "Invalid Row value");
    const auto col = raisedBy([&] { g.setColSel(-1); });
    EXPECT_EQ(col.number, 381);
    EXPECT_EQ(col.description, "Invalid Col value");
    EXPECT_EQ(raisedBy([&] { g.TextMatrix(0, 6); }).number, 381);
    EXPECT_EQ(where(g), "0,0-0,0");
}

TEST(GridCells, CellPropertiesActOnTheCurrentCellOnly) {
    FlexGrid g;
    g.setRows(4);
    g.setCols(4);
    g.setRow(2);
    g.setCol(3);
    g.setText(" 7");
    g.setCellBackColor(0x80000011);
    g.setCellFontBold(true);
    g.setCellPictureAlignment(flexAlignRightCenter);
    g.setCellPicture(namedPicture("VisiblePic"));
    EXPECT_EQ(g.TextMatrix(2, 3), " 7");
    const GridCell& cell = g.cellAt(2, 3);
    EXPECT_EQ(cell.backColor, 0x80000011u); // a system colour is kept as given
    EXPECT_TRUE(cell.fontBold);
    EXPECT_EQ(cell.pictureAlignment, flexAlignRightCenter);
    EXPECT_EQ(cell.picture.name, "VisiblePic");
    const GridCell& other = g.cellAt(2, 2);
    EXPECT_EQ(other.backColor, 0u);
    EXPECT_FALSE(other.fontBold);
    EXPECT_TRUE(other.picture.empty());
    g.setCol(2);
    EXPECT_EQ(g.Text(), "");
    EXPECT_EQ(g.CellBackColor(), 0u);
}

TEST(GridCells, InvalidLookValuesAreRefused) {
    FlexGrid g;
    EXPECT_EQ(raisedBy([&] { g.setCellPictureAlignment(11); }).number, 380);
    EXPECT_EQ(raisedBy([&] { g.setPictureType(2); }).number, 380);
    EXPECT_EQ(raisedBy([&] { g.setRows(0); }).number, 380);
    EXPECT_EQ(raisedBy([&] { g.setDragMode(3); }).number, 380);
    EXPECT_EQ(g.CellPictureAlignment(), flexAlignLeftCenter);
}

TEST(GridCells, ReshapeKeepsWhatStillFitsAndClearsNewCells) {
    FlexGrid g;
    g.setRows(5);
    g.setCols(5);
    g.setTextMatrix(1, 1, "keep");
    g.setTextMatrix(4, 4, "lost");
    g.setTextMatrix(0, 3, "Vis");
    g.setColWidth(1, 400);
    g.setRows(3);
    g.setCols(4);
    g.setRows(5);
    g.setCols(5);
    EXPECT_EQ(g.TextMatrix(1, 1), "keep");
    EXPECT_EQ(g.TextMatrix(0, 3), "Vis");
    EXPECT_EQ(g.TextMatrix(4, 4), "");
    EXPECT_EQ(g.ColWidth(1), 400);
    EXPECT_EQ(g.ColWidth(4), 960);
}

TEST(GridCells, ShrinkingPullsTheSelectionInsideWithoutEvents) {
    FlexGrid g;
    g.setRows(10);
    g.setRow(9);
    g.setRowSel(5);
    int events = 0;
    g.onSelChange = [&] { ++events; };
    g.onRowColChange = [&] { ++events; };
    g.setRows(4);
    EXPECT_EQ(g.Row(), 3);
    EXPECT_EQ(g.RowSel(), 3);
    EXPECT_EQ(events, 0);
}

TEST(GridCells, ViewsHearOfEachKindOfChange) {
    FlexGrid g;
    std::vector<GridChange::Kind> kinds;
    std::vector<std::pair<int, int>> cells;
    g.subscribeGrid([&](const GridChange& c) {
        kinds.push_back(c.kind);
        if (c.kind == GridChange::Kind::Cell) cells.emplace_back(c.row, c.col);
    });
    g.setTextMatrix(1, 0, "Roads");
    g.setTextMatrix(1, 0, "Roads");
    g.setRedraw(false);
    g.setRows(3);
    g.setRow(2);
    g.Refresh();
    g.setRedraw(true);
    using K = GridChange::Kind;
    EXPECT_EQ(kinds,
              (std::vector{K::Cell, K::Redraw, K::Layout, K::Selection, K::Refresh, K::Redraw}));
    EXPECT_EQ(cells, (std::vector<std::pair<int, int>>{{1, 0}}));
    EXPECT_EQ(g.refreshCount(), 1);
}

} // namespace
} // namespace vellant::platform
