#include "error_number.h"
#include "platform/flexgrid.h"

#include <gtest/gtest.h>

namespace vellant::platform {
namespace {

using testing::raisedBy;

// Columns 1000 | 500 | hidden | 700 | default; rows 350 | 240 | hidden | 240 | 240 | 240.
class GridLayout : public ::testing::Test {
protected:
    void SetUp() override {
        g.setRows(6);
        g.setCols(5);
        g.setColWidth(0, 1000);
        g.setColWidth(1, 500);
        g.setColWidth(2, 0);
        g.setColWidth(3, 700);
        g.setRowHeight(0, 350);
        g.setRowHeight(2, 0);
    }
    int colUnder(float x) {
        g.setMousePosition(x, 400);
        return g.MouseCol();
    }
    int rowUnder(float y) {
        g.setMousePosition(1100, y);
        return g.MouseRow();
    }
    FlexGrid g;
};

TEST_F(GridLayout, DefaultSizesReadBackAsTwips) {
    EXPECT_EQ(g.ColWidth(4), 960);
    EXPECT_EQ(g.RowHeight(5), 240);
    g.setColWidth(1, -1);
    EXPECT_EQ(g.ColWidth(1), 960);
    g.setDefaultSizes(1200, 300);
    EXPECT_EQ(g.ColWidth(1), 1200);
    EXPECT_EQ(g.RowHeight(1), 300);
    EXPECT_EQ(g.ColWidth(3), 700); // set widths stay as set
}

TEST_F(GridLayout, PositionsAddUpWidthsAndSkipHiddenColumns) {
    EXPECT_EQ(g.ColPos(0), 0);
    EXPECT_EQ(g.ColPos(1), 1000);
    EXPECT_EQ(g.ColPos(2), 1500);
    EXPECT_EQ(g.ColPos(3), 1500);
    EXPECT_EQ(g.ColPos(4), 2200);
    EXPECT_EQ(g.RowPos(0), 0);
    EXPECT_EQ(g.RowPos(1), 350);
    EXPECT_EQ(g.RowPos(3), 590);
    EXPECT_EQ(g.RowPos(5), 1070);
}

TEST_F(GridLayout, ScrollingShiftsScrollableCellsButNotTheFixedOnes) {
    int scrolls = 0;
    g.onScroll = [&] { ++scrolls; };
    g.setLeftCol(3);
    g.setTopRow(4);
    g.setTopRow(4);
    EXPECT_EQ(scrolls, 2);
    EXPECT_EQ(g.ColPos(0), 0);
    EXPECT_EQ(g.ColPos(3), 1000);
    EXPECT_EQ(g.ColPos(4), 1700);
    EXPECT_EQ(g.ColPos(1), 500); // scrolled out to the left
    EXPECT_EQ(g.RowPos(0), 0);
    EXPECT_EQ(g.RowPos(4), 350);
    EXPECT_EQ(g.RowPos(1), -130);
    g.setRow(5);
    g.setCol(4);
    EXPECT_EQ(g.CellLeft(), 1700);
    EXPECT_EQ(g.CellTop(), 590);
    EXPECT_EQ(g.CellWidth(), 960);
    EXPECT_EQ(g.CellHeight(), 240);
}

TEST_F(GridLayout, MouseColumnNeverFallsOnAHiddenColumn) {
    EXPECT_EQ(colUnder(0), 0);
    EXPECT_EQ(colUnder(999), 0);
    EXPECT_EQ(colUnder(1000), 1);
    EXPECT_EQ(colUnder(1499), 1);
    EXPECT_EQ(colUnder(1500), 3);
    EXPECT_EQ(colUnder(2199), 3);
    EXPECT_EQ(colUnder(2200), 4);
    EXPECT_EQ(colUnder(-30), 0);
    EXPECT_EQ(colUnder(50000), 4); // beyond the last column: the last one
    g.setColWidth(4, 0);
    EXPECT_EQ(colUnder(50000), 3);
    g.setColWidth(0, 0);
    EXPECT_EQ(colUnder(0), 1);
}

TEST_F(GridLayout, MouseRowNeverFallsOnAHiddenRow) {
    EXPECT_EQ(rowUnder(349), 0);
    EXPECT_EQ(rowUnder(350), 1);
    EXPECT_EQ(rowUnder(589.5f), 1);
    EXPECT_EQ(rowUnder(590), 3);
    EXPECT_EQ(rowUnder(1309), 5);
    EXPECT_EQ(rowUnder(90000), 5);
}

TEST_F(GridLayout, HitTestingFollowsTheScrolledView) {
    g.setLeftCol(3);
    g.setTopRow(4);
    EXPECT_EQ(colUnder(1000), 3);
    EXPECT_EQ(colUnder(1700), 4);
    EXPECT_EQ(rowUnder(350), 4);
    EXPECT_EQ(rowUnder(600), 5);
    EXPECT_EQ(rowUnder(200), 0);
}

TEST_F(GridLayout, IndexesOutsideTheGridAreSubscriptErrors) {
    const auto col = raisedBy([&] { g.ColPos(5); });
    EXPECT_EQ(col.number, 381);
    EXPECT_EQ(col.description, "Invalid Col value");
    const auto row = raisedBy([&] { g.RowHeight(6); });
    EXPECT_EQ(row.number, 381);
    EXPECT_EQ(row.description, "Invalid Row value");
    EXPECT_EQ(raisedBy([&] { g.setColWidth(-1, 100); }).number, 381);
    EXPECT_EQ(raisedBy([&] { g.setTopRow(0); }).number, 381);
    EXPECT_EQ(raisedBy([&] { g.setTopRow(6); }).number, 381);
    EXPECT_EQ(raisedBy([&] { g.setLeftCol(5); }).number, 381);
    EXPECT_EQ(raisedBy([&] { g.setColWidth(1, -2); }).number, 380);
    EXPECT_EQ(g.ColWidth(1), 500);
}

TEST_F(GridLayout, ShrinkingKeepsTheScrollPositionInside) {
    g.setTopRow(5);
    g.setLeftCol(4);
    int scrolls = 0;
    g.onScroll = [&] { ++scrolls; };
    g.setRows(3);
    g.setCols(2);
    EXPECT_EQ(g.TopRow(), 2);
    EXPECT_EQ(g.LeftCol(), 1);
    EXPECT_EQ(scrolls, 0); // a reshape is no scroll by the user or the program
    EXPECT_EQ(g.RowPos(2), 350);
}

} // namespace
} // namespace vellant::platform
