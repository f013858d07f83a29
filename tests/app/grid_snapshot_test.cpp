// The grid as a snapshot writes it: shape, current cell and selection, sizes, and one line for
// each cell that shows something or answers a click.

#include "app/replay/grid_snapshot.h"
#include "app/replay/transcript.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace vellant::replay {
namespace {

TEST(GridSnapshot, WritesShapeSizesAndEveryCellThatShowsSomething) {
    platform::FlexGrid grid;
    grid.setRows(3);
    grid.setCols(3);
    grid.setColWidth(1, 350);
    grid.setRowHeight(2, 500);
    grid.setTextMatrix(0, 1, "Name");
    grid.setRow(1);
    grid.setCol(1);
    grid.setCellPicture({"Image1 Gray", nullptr, 240, 240});
    grid.setCellBackColor(0x80000011);
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellPicture({"", std::make_shared<Bitmap>(), 240, 240});
    grid.setText("two\tlines\r\nhere");
    grid.setRowSel(1);
    // The click states were dimensioned for a smaller grid: cells outside answer no click.
    BoundedTable<bool> click;
    click.redim(1, 2);
    click(1, 2) = true;

    std::ostringstream out;
    Transcript transcript(out);
    writeGridSnapshot(transcript, grid, click);
    EXPECT_EQ(out.str(), "grid rows 3 cols 3 row 2 col 2 rowsel 1 colsel 2\n"
                         "rowheights 240 240 500\n"
                         "colwidths 960 350 960\n"
                         "cell 0 1 click 0 back 0x0 pic - text Name\n"
                         "cell 1 1 click 0 back 0x80000011 pic Image1\\x20Gray text \n"
                         "cell 1 2 click 1 back 0x0 pic - text \n"
                         "cell 2 2 click 0 back 0x0 pic bitmap text two\\tlines\\r\\nhere\n");
    EXPECT_EQ(transcript.count("cell"), 4u);
}

TEST(GridSnapshot, TranscriptLinesNeverBreak) {
    EXPECT_EQ(oneLine("a\nb\rc\td\x01"
                      "e\x7f"),
              "a\\nb\\rc\\td\\x01e\\x7F");
    EXPECT_EQ(oneLine("C:\\data \"x\""), "C:\\data \"x\"");
}

} // namespace
} // namespace vellant::replay
