// The grid view paints the grid model as the grid control shows it and hands the user's mouse
// and keys to the model in the control's order.

#include "platform/flexgrid.h"
#include "qtui/grid/grid_painter.h"
#include "qtui/grid/grid_view.h"
#include "qtui/ole_colors.h"

#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace vellant::qtui {
namespace {

using platform::FlexGrid;

class GridViewTest : public ::testing::Test {
protected:
    GridViewTest() {
        grid.setRows(6);
        grid.setCols(4);
        for (int c = 0; c < grid.Cols(); ++c)
            grid.setColWidth(c, 1500); // 100 pixels at 96 dpi
        view = std::make_unique<GridView>(grid);
        view->setScale(TwipScale(15));
        view->resize(460, 200);
        view->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        settle();
    }

    static void settle() {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    QImage picture() {
        settle();
        return view->viewport()->grab().toImage();
    }

    QColor colourAt(int row, int col, QPoint offset = {}) {
        const QRect rect = view->cellRect(row, col);
        return picture().pixelColor(rect.center() + offset);
    }

    QPoint middle(int row, int col) const { return view->cellRect(row, col).center(); }

    FlexGrid grid;
    std::unique_ptr<GridView> view;
    std::string trace;
};

TEST_F(GridViewTest, CellsStandAtTheirTwipsWithTheirOwnBackColours) {
    grid.setRowHeight(2, 0); // a collapsed row takes no room
    grid.setRow(1);
    grid.setCol(2);
    grid.setCellBackColor(0x0000FF); // red in the grid's byte order
    grid.setRow(3);
    grid.setCol(3);
    grid.setCellBackColor(0x80000011); // the palette's gray text
    grid.setRow(4);
    grid.setCol(1);

    EXPECT_EQ(view->cellRect(1, 2), QRect(200, 16, 100, 16));
    EXPECT_TRUE(view->cellRect(2, 1).isEmpty());
    EXPECT_EQ(view->cellRect(3, 1).top(), view->cellRect(1, 1).bottom() + 1);
    EXPECT_EQ(colourAt(1, 2), QColor(255, 0, 0));
    EXPECT_EQ(colourAt(3, 3), oleColour(0x80000011, view->palette()));
    // The grid's own white, and the fixed cells in the button face.
    EXPECT_EQ(colourAt(5, 2), view->palette().color(QPalette::Base));
    EXPECT_EQ(colourAt(5, 0), view->palette().color(QPalette::Button));
}

TEST_F(GridViewTest, TheSelectionIsTintedButTheCurrentCellIsNot) {
    grid.setRow(2);
    grid.setCol(1);
    grid.setRowSel(3);
    grid.setColSel(3);
    const QColor white = view->palette().color(QPalette::Base);
    EXPECT_EQ(colourAt(2, 1), white);
    EXPECT_NE(colourAt(3, 3), white);
    EXPECT_NE(colourAt(2, 2), white);
    EXPECT_EQ(colourAt(4, 2), white);
}

TEST_F(GridViewTest, CellPicturesAreDrawnWhereTheirAlignmentPutsThem) {
    grid.setRow(1);
    grid.setCol(1);
    grid.setCellPicture({"Image1", nullptr, 240, 240}); // the check box, ticked in green
    grid.setCellPictureAlignment(platform::flexAlignCenterCenter);
    const QRect cell = view->cellRect(1, 1);
    const QRect placed = pictureRect(cell.adjusted(0, 0, -1, -1), QSize(16, 16), 4);
    EXPECT_NEAR(placed.center().x(), cell.center().x(), 1);
    const QImage image = picture();
    int green = 0;
    for (int y = placed.top(); y <= placed.bottom(); ++y)
        for (int x = placed.left(); x <= placed.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.green() > 100 && c.red() < 100 && c.blue() < 100) ++green;
        }
    EXPECT_GT(green, 6);
    // Left of the picture the cell is its plain white.
    EXPECT_EQ(image.pixelColor(cell.left() + 3, cell.center().y()),
              view->palette().color(QPalette::Base));
}

// A style sample saved larger than its row is shrunk whole into the cell: its far corner shows.
TEST_F(GridViewTest, ABitmapLargerThanItsCellIsShrunkWhole) {
    auto sample = std::make_shared<vellant::Bitmap>(60, 60);
    for (int y = 50; y < 60; ++y)
        for (int x = 50; x < 60; ++x)
            sample->set(x, y, 0xFF0000);
    grid.setRow(2);
    grid.setCol(2);
    grid.setCellPicture({"", sample, 60 * platform::kTwipsPerPixel, 60 * platform::kTwipsPerPixel});
    grid.setCellPictureAlignment(platform::flexAlignCenterCenter);
    const QRect cell = view->cellRect(2, 2);
    ASSERT_LT(cell.height(), 60);
    const QImage image = picture();
    int red = 0;
    for (int y = cell.top(); y <= cell.bottom(); ++y)
        for (int x = cell.left(); x <= cell.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() > 180 && c.green() < 100 && c.blue() < 100) ++red;
        }
    EXPECT_GT(red, 0);
}

// A sample made as high as the row stands a pixel over the cell, under the grid line: it is cut
// there rather than shrunk, so its one-pixel lines all stay.
TEST_F(GridViewTest, ABitmapAPixelOverItsCellKeepsEveryLine) {
    grid.setRow(2);
    grid.setCol(2);
    const QRect cell = view->cellRect(2, 2);
    const int height = cell.height() + 1;
    auto sample = std::make_shared<vellant::Bitmap>(8, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < 8; ++x)
            sample->set(x, y, y % 2 == 0 ? 0x0000FF : 0xFFFFFF);
    grid.setCellPicture(
        {"", sample, 8 * platform::kTwipsPerPixel, height * platform::kTwipsPerPixel});
    grid.setCellPictureAlignment(platform::flexAlignLeftTop);
    grid.setRow(1); // the current cell's focus frame would cover the cell's edge
    const QImage image = picture();
    // Rows alternate blue and white as drawn: none is dropped or blended away.
    for (int y = cell.top(); y < cell.bottom(); ++y) {
        const bool blue = (y - cell.top()) % 2 == 0;
        EXPECT_EQ(image.pixelColor(cell.left() + 3, y).blue() > 200 &&
                      image.pixelColor(cell.left() + 3, y).red() < 60,
                  blue)
            << "row " << y - cell.top();
    }
}

TEST_F(GridViewTest, PictureAlignmentCodesPlaceByColumnAndLine) {
    const QRect cell(10, 20, 100, 30);
    const QSize size(16, 16);
    EXPECT_EQ(pictureRect(cell, size, 0).topLeft(), QPoint(10, 20));    // left top
    EXPECT_EQ(pictureRect(cell, size, 1).topLeft(), QPoint(10, 27));    // left centre
    EXPECT_EQ(pictureRect(cell, size, 5).bottomLeft(), QPoint(52, 49)); // centre bottom
    EXPECT_EQ(pictureRect(cell, size, 6).topRight(), QPoint(109, 20));  // right top
    EXPECT_EQ(pictureRect(cell, size, 9), cell);                        // stretched
}

TEST_F(GridViewTest, TheMouseReachesTheModelInTheControlsOrder) {
    grid.onMouseDown = [&](int b, int, float, float) { trace += "down" + std::to_string(b) + ";"; };
    grid.onMouseUp = [&](int b, int, float, float) { trace += "up" + std::to_string(b) + ";"; };
    grid.onClick = [&] { trace += "click;"; };
    grid.onDblClick = [&] { trace += "dbl;"; };
    QWidget* port = view->viewport();

    QTest::mouseClick(port, Qt::LeftButton, {}, middle(3, 2));
    EXPECT_EQ(trace, "down1;up1;click;");
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 2);
    // The pixel's twips: the middle of row 3 lies in the model's row 3.
    EXPECT_EQ(grid.MouseRow(), 3);

    trace.clear();
    QTest::mouseClick(port, Qt::LeftButton, {}, middle(2, 2));
    QTest::mouseDClick(port, Qt::LeftButton, {}, middle(2, 2));
    QTest::mouseRelease(port, Qt::LeftButton, {}, middle(2, 2));
    EXPECT_EQ(trace, "down1;up1;click;dbl;up1;");

    // A right press comes with its release at once: the menu it opens takes the real one.
    trace.clear();
    QTest::mousePress(port, Qt::RightButton, {}, middle(4, 1));
    EXPECT_EQ(trace, "down2;up2;");
    QTest::mouseRelease(port, Qt::RightButton, {}, middle(4, 1));
    EXPECT_EQ(trace, "down2;up2;");
}

TEST_F(GridViewTest, APressInTheFirstColumnDraggedDownSelectsWholeRows) {
    QWidget* port = view->viewport();
    QTest::mousePress(port, Qt::LeftButton, {}, middle(2, 0));
    QTest::mouseMove(port, middle(4, 0));
    QTest::mouseRelease(port, Qt::LeftButton, {}, middle(4, 0));
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.RowSel(), 4);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.ColSel(), 3);
}

TEST_F(GridViewTest, KeysTypeCharactersAndArrowsMoveTheCurrentCellOverHiddenRows) {
    std::vector<int> keys;
    grid.onKeyPress = [&](int& key) { keys.push_back(key); };
    QTest::keyClick(view.get(), 'a');
    QTest::keyClick(view.get(), Qt::Key_Return);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_EQ(keys, (std::vector<int>{'a', 13, 27}));

    grid.setRow(1);
    grid.setCol(1);
    grid.setRowHeight(2, 0);
    QTest::keyClick(view.get(), Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 3);
    QTest::keyClick(view.get(), Qt::Key_Right);
    QTest::keyClick(view.get(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.RowSel(), 4);
}

TEST_F(GridViewTest, ADragShowsTheDragCursorUntilTheDrop) {
    grid.onMouseDown = [&](int, int, float, float) { grid.Drag(platform::vbBeginDrag); };
    bool dropped = false;
    grid.onDragDrop = [&](platform::Control&, float, float) { dropped = true; };
    QWidget* port = view->viewport();
    QTest::mousePress(port, Qt::LeftButton, {}, middle(2, 1));
    EXPECT_EQ(port->cursor().shape(), Qt::DragMoveCursor);
    QTest::mouseRelease(port, Qt::LeftButton, {}, middle(3, 1));
    EXPECT_TRUE(dropped);
    EXPECT_NE(port->cursor().shape(), Qt::DragMoveCursor);
}

TEST_F(GridViewTest, TheToolTipIsTheModelsText) {
    grid.setToolTipText("Layer visibility");
    QHelpEvent help(QEvent::ToolTip, middle(1, 1), view->viewport()->mapToGlobal(middle(1, 1)));
    QApplication::sendEvent(view->viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Layer visibility"));
    QToolTip::hideText();
}

TEST_F(GridViewTest, AThousandRowsScrollByTheBarAndOnlyTheCellsInViewArePainted) {
    grid.setRows(1001);
    grid.setCols(40);
    for (int r = 10; r < 20; ++r)
        grid.setRowHeight(r, 0);
    settle();
    QScrollBar* bar = view->verticalScrollBar();
    // The hidden rows are no steps of the bar; its end shows the last rows whole.
    const int rowsInView = (view->viewport()->height() - 16) / 16;
    EXPECT_EQ(bar->maximum(), 1000 - 10 - rowsInView);
    bar->setValue(bar->maximum());
    EXPECT_EQ(grid.TopRow(), 1001 - rowsInView);
    bar->setValue(9);
    EXPECT_EQ(grid.TopRow(), 20); // the ninth row on the bar is the first after the hidden ones
    view->horizontalScrollBar()->setValue(5);
    EXPECT_EQ(grid.LeftCol(), 6);
    view->viewport()->repaint();
    // What a 460 by 200 window shows of 40,000 cells.
    EXPECT_LT(view->lastPaintedCells(), 120);
    EXPECT_GT(view->lastPaintedCells(), 0);
}

TEST_F(GridViewTest, RedrawOffKeepsTheCellsUnpaintedUntilItComesBack) {
    grid.setRedraw(false);
    settle();
    const int before = view->paintCount();
    for (int r = 1; r < grid.Rows(); ++r)
        grid.setTextMatrix(r, 1, "x");
    settle();
    EXPECT_EQ(view->paintCount(), before);
    grid.setRedraw(true);
    settle();
    EXPECT_GT(view->paintCount(), before);
}

TEST_F(GridViewTest, AViewOutlivesItsGrid) {
    auto owned = std::make_unique<FlexGrid>();
    GridView orphan(*owned);
    orphan.show();
    orphan.detach();
    owned.reset();
    orphan.repaint();
    QTest::mouseClick(orphan.viewport(), Qt::LeftButton);
    EXPECT_EQ(orphan.grid(), nullptr);
}

} // namespace
} // namespace vellant::qtui
