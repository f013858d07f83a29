#include "base/basic_text.h"
#include "grid/grid_host.h"
#include "grid/header_cells.h"

namespace vellant::grid::testing {
namespace {

using HeaderProcedures = GridHost;

TEST_F(HeaderProcedures, TheHeaderShowsTheCatalogueWithEveryGroupUnfolded) {
    grid().setTop(900);
    run("set map window " + Str(userMap) + " Layer 3 Display Global Global Brush (2,255,0)");
    labelgrid(*session);
    EXPECT_EQ(grid().Rows(), kLayers + 2);
    EXPECT_EQ(grid().RowHeight(0), 350);
    EXPECT_EQ(grid().TextMatrix(0, col("readonly")), "RdOnly");
    EXPECT_EQ(grid().TextMatrix(0, col("label field")), "Field");
    EXPECT_EQ(grid().cellAt(0, col("visible")).picture.name, "VisiblePic");
    EXPECT_EQ(grid().cellAt(0, col("visible")).backColor, 0xFFFFC0u);
    EXPECT_EQ(grid().ColWidth(col("order")), 300 + 50);
    for (int i = 0; i <= 6; ++i) {
        EXPECT_TRUE(form->CollapseColsPic(i).Visible()) << i;
        EXPECT_EQ(form->CollapseColsPic(i).Top(), 900 - form->CollapseColsPic(i).Height());
    }
    EXPECT_EQ(session->gRowExpanded[kLayers], kTrue);
    // The view takes the override style the user's map draws a layer in.
    EXPECT_EQ(info(kRegions, 9), "2");
    EXPECT_EQ(session->gStyleValue, info(kRegions, 12, userMap));
    EXPECT_EQ(info(kLines, 9), "1");
}

TEST_F(HeaderProcedures, InImmediateModeNoStyleIsCopiedAndAFailureIsLogged) {
    run("set map window " + Str(userMap) + " Layer 3 Display Global Global Brush (2,255,0)");
    session->gImmediate = kTrue;
    labelgrid(*session);
    EXPECT_EQ(info(kRegions, 9), "1");

    session->gImmediate = kFalse;
    session->gLyr = nullptr;
    session->gRowExpanded[2] = kFalse;
    labelgrid(*session);
    EXPECT_TRUE(logged("Error from labelgrid " + RuntimeError(kErrObjectNotSet).description()));
    EXPECT_EQ(session->gRowExpanded[2], kFalse); // the layers after the failure are not reached
}

TEST_F(HeaderProcedures, GlyphsFollowTheirHeadsAndShowTheFold) {
    labelgrid(*session);
    grid().setLeft(120);
    const int visible = col("visible");
    for (const char* member : {"show nodes", "show directions", "show centroids"})
        grid().setColWidth(col(member), 0);
    setcolglyph(*session, static_cast<std::int16_t>(visible), false);
    EXPECT_FALSE(form->CollapseColsPic(0).Visible());
    EXPECT_TRUE(form->ExpandColsPic(0).Visible());
    EXPECT_EQ(form->ExpandColsPic(0).Left(), grid().ColPos(visible) + 120);
    EXPECT_EQ(form->ExpandColsPic(0).Top(), grid().Top() - form->ExpandColsPic(0).Height());
    EXPECT_EQ(form->CollapseColsPic(1).Left(), grid().ColPos(col("editable")) + 120);
    EXPECT_EQ(session->gGlyphColPos, grid().ColPos(grid().Cols() - 1));

    grid().setColWidth(0, 2000);
    setcolglyph(*session, 0, false); // places only
    EXPECT_TRUE(form->CollapseColsPic(1).Visible());
    EXPECT_TRUE(form->ExpandColsPic(0).Visible());
    EXPECT_EQ(form->ExpandColsPic(6).Left(), grid().ColPos(col("user info")) + 120);
}

TEST_F(HeaderProcedures, SamplesGrowRowsAndColumnsOnlyWhenExpandRowIsChecked) {
    labelgrid(*session);
    const int style = col("style");
    const int r = row(kRegions);
    session->gColWidth[style] = 500;
    Resize_RowCol(*session, kRegions, style, 600, 900);
    Resize_RowCol(*session, kRegions, style, 300, 400);
    EXPECT_EQ(grid().RowHeight(r), 600);
    EXPECT_EQ(grid().ColWidth(style), 900);
    EXPECT_EQ(session->gColWidth[style], 900);

    form->Expand_Row.setChecked(false);
    session->gColWidth[style] = 0;
    Resize_RowCol(*session, kRegions, style, 800, 2000);
    EXPECT_EQ(grid().RowHeight(r), grid().defaultRowHeight());
    EXPECT_EQ(grid().ColWidth(style), 350);
    EXPECT_EQ(session->gColWidth[style], 0);

    Resize_RowCol(*session, kRegions, 99, 800, 2000);
    EXPECT_TRUE(logged("Error from Resize_RowCol " + RuntimeError(kErrSubscript).description()));
}

} // namespace
} // namespace vellant::grid::testing
