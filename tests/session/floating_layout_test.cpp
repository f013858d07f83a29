// The floating form lays itself out from its grid: the grid as big as its rows and columns but
// never wider than the screen, the map panel under it, the buttons at the right, the form on
// the screen. Every length is in twips.

#include "session/layer_form.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>
#include <vector>

namespace vellant::testing {
namespace {

class FloatingLayout : public SessionFixture {
protected:
    FloatingLayout() { form->session = session.get(); }

    // A header row of 300 and body rows of 240; column 0 and the others as given.
    void shapeGrid(int bodyRows, const std::vector<int>& colWidths) {
        platform::FlexGrid& grid = form->LyrGrid;
        grid.setRows(bodyRows + 1);
        grid.setCols(static_cast<int>(colWidths.size()));
        grid.setRowHeight(0, 300);
        for (int row = 1; row <= bodyRows; ++row)
            grid.setRowHeight(row, 240);
        int col = 0;
        for (int width : colWidths)
            grid.setColWidth(col++, width);
    }

    void useScreen(int widthPixels, int heightPixels) {
        platform::ScreenMetrics screen;
        screen.Width = widthPixels * 15;
        screen.Height = heightPixels * 15;
        toolkit.setScreen(screen);
    }
};

TEST_F(FloatingLayout, ANarrowGridPutsThePanelUnderItAndTheButtonsBesideThePanel) {
    shapeGrid(4, {1500, 1000, 2000, 800});

    form->Resize_LayerForm();

    const platform::FlexGrid& grid = form->LyrGrid;
    EXPECT_EQ(grid.Left(), 540);
    // The last row ends at 300 + 4 * 240; 200 of border below it.
    EXPECT_EQ(grid.Height(), 1460);
    EXPECT_EQ(grid.Width(), 5450);
    EXPECT_EQ(form->Mapframe.Top(), 1860);
    EXPECT_EQ(form->Mapframe.Left(), 540);
    EXPECT_EQ(form->MapPropsFrame.Top(), 1860);
    EXPECT_EQ(form->MapPropsFrame.Left(), 540 + 5400 + 20);
    EXPECT_EQ(form->MapButtonFrame.Top(), 2060);
    EXPECT_EQ(form->MapButtonFrame.Left(), 0);
    // The panel is wider than the grid, so the form is as wide as the panel and the buttons
    // keep clear of it rather than standing under the grid's right edge.
    EXPECT_EQ(form->Width(), 9320 + 2 * 540);
    EXPECT_EQ(form->Buttonframe.Left(), 540 + 5400 + 2400 + 10);
    EXPECT_EQ(form->Buttonframe.Top(), 1860);
    // The message goes left of where the buttons first stood, under the grid's right edge.
    EXPECT_EQ(form->msg.Left(), 5450 + 540 - 1500 - 3000);
    EXPECT_EQ(form->msg.Top(), 1860);
    EXPECT_EQ(form->Height(), 1860 + 3300 + 600);
    EXPECT_EQ(session->gFormWidthSaved, form->Width());
    EXPECT_EQ(session->gFormHeightSaved, form->Height());
}

TEST_F(FloatingLayout, AWideGridSetsTheFormsWidthAndTheButtonsKeepToItsRightEdge) {
    shapeGrid(2, std::vector<int>(10, 1200));

    form->Resize_LayerForm();

    EXPECT_EQ(form->LyrGrid.Width(), 12000 + 150);
    EXPECT_EQ(form->LyrGrid.Height(), 300 + 240 + 240 + 200);
    EXPECT_EQ(form->Width(), 12150 + 2 * 540);
    EXPECT_EQ(form->Buttonframe.Left(), form->Width() - 2 * 540 - 1500);
    // The form stayed where it was: it is on the screen.
    EXPECT_EQ(form->Left(), 1200);
}

TEST_F(FloatingLayout, AGridWiderThanTheScreenIsCutAndTheFormStaysOnIt) {
    useScreen(1280, 1024);
    shapeGrid(3, std::vector<int>(25, 1000));
    form->setLeft(-300);

    form->Resize_LayerForm();

    EXPECT_EQ(form->LyrGrid.Width(), 1280 * 15 - 2 * 540);
    EXPECT_EQ(form->Width(), 1280 * 15);
    // Off the left edge it comes back to 10; as wide as the screen it cannot go further left.
    EXPECT_EQ(form->Left(), 10);
}

TEST_F(FloatingLayout, AFormPastTheScreensRightEdgeComesBackInside) {
    useScreen(1280, 1024);
    shapeGrid(2, std::vector<int>(10, 1200));
    form->setLeft(8000);

    form->Resize_LayerForm();

    EXPECT_EQ(form->Width(), 13230);
    EXPECT_EQ(form->Left(), 19200 - 13230 - 500);
}

} // namespace
} // namespace vellant::testing
