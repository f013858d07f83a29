// The double click over a loaded grid on the embedded host: column groups fold to their head
// and unfold to the widths kept for them, the feature counts and the values of the user
// expressions are worked out only when their group unfolds, and a layer group collapses onto
// the clicked row and expands again.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "grid/header_cells.h"
#include "interaction/double_click.h"
#include "platform/toolkit.h"

namespace vellant::grid::testing {
namespace {

constexpr platform::OleColor kMasterColor = 0xFFFFC0;

class DoubleClick : public GridHost {
protected:
    DoubleClick() {
        labelgrid(*session);
        load();
        // The widths the groups come back to, as the form's load keeps them.
        for (int c = 0; c < grid().Cols(); ++c)
            session->gColWidth[c] = static_cast<std::uint16_t>(grid().ColWidth(c));
    }

    // On the header of a column, right of the layer names.
    void onHeader(const std::string& key) {
        session->gMouseX = static_cast<float>(grid().ColWidth(0) + 1);
        session->gMouseY = 10;
        grid().setCol(col(key));
        interaction::dblclick(*session);
    }

    // On a layer's name in the first column, as the grid leaves Row and Col after the press.
    void onLayerName(int layer) {
        session->gMouseX = 10;
        session->gMouseY = static_cast<float>(grid().RowPos(row(layer)) + 10);
        grid().setRow(row(layer));
        grid().setCol(1);
        interaction::dblclick(*session);
    }

    void group(const std::string& name, std::initializer_list<int> layers) {
        for (int layer : layers) {
            session->gLayerGroup[layer] = name;
            grid().setTextMatrix(row(layer), col("group"), name);
        }
    }

    int width(const std::string& key) { return grid().ColWidth(col(key)); }
    int height(int layer) { return grid().RowHeight(row(layer)); }
    platform::OleColor colour(int layer, const std::string& key) {
        return cell(layer, key).backColor;
    }
    bool finishedNormally() { return session->gFormReady == kTrue && grid().Redraw(); }
};

TEST_F(DoubleClick, AColumnGroupFoldsToItsHeadAndUnfoldsToTheKeptWidths) {
    const int headWidth = width("visible");
    session->gColWidth[col("show nodes")] = 777; // grown by text while folded
    onHeader("show directions");                 // a member's header folds its whole group
    for (const char* member : {"show nodes", "show directions", "show centroids"}) {
        EXPECT_EQ(width(member), 0) << member;
        EXPECT_EQ(grid().cellAt(0, col(member)).picture.name, "") << member;
    }
    EXPECT_EQ(width("visible"), headWidth);
    EXPECT_EQ(grid().cellAt(0, col("visible")).picture.name, "VisiblePic");
    EXPECT_GT(width("selectable"), 0); // the next column belongs to no group
    EXPECT_FALSE(form->CollapseColsPic(0).Visible());
    EXPECT_TRUE(form->ExpandColsPic(0).Visible());
    EXPECT_TRUE(finishedNormally());

    onHeader("visible");
    EXPECT_EQ(width("show nodes"), 777);
    EXPECT_EQ(width("show centroids"), session->gColWidth[col("show centroids")]);
    EXPECT_EQ(grid().cellAt(0, col("show nodes")).picture.name, "ShowNodesPic");
    EXPECT_TRUE(form->CollapseColsPic(0).Visible());
    EXPECT_FALSE(form->ExpandColsPic(0).Visible());
    // Other groups keep their state.
    EXPECT_GT(width("fastedit"), 0);
    EXPECT_TRUE(form->CollapseColsPic(1).Visible());
}

TEST_F(DoubleClick, FeatureCountsAppearOnlyWhenInfoUnfoldsAndStayUntilTheNext) {
    onHeader("info"); // folds: nothing is counted
    for (int layer = 0; layer <= kLayers; ++layer)
        EXPECT_EQ(text(layer, "info"), "") << layer;
    EXPECT_EQ(width("table path"), 0);

    onHeader("info");
    const std::string regions = eval("TableInfo(regions,8)");
    EXPECT_EQ(text(kRegions, "info"), " " + regions);
    EXPECT_EQ(text(kQuery, "info"), " " + eval("TableInfo(qregions,8)"));
    EXPECT_EQ(text(kScratch, "info"), " 0");
    EXPECT_EQ(text(0, "info"), " 0");
    long widest = 0;
    for (int layer = 0; layer <= kLayers; ++layer)
        widest = std::max(widest, Len(text(layer, "info")));
    EXPECT_EQ(width("info"), (widest + 2) * 85);
    EXPECT_GT(width("table path"), 0);
    EXPECT_EQ(toolkit.MousePointer(), platform::vbDefault);

    // A count read once is not read again until the group unfolds anew.
    run("Insert Into scratch (a) Values (1)");
    EXPECT_EQ(text(kScratch, "info"), " 0");
    onHeader("info");
    onHeader("info");
    EXPECT_EQ(text(kScratch, "info"), " 1");
}

TEST_F(DoubleClick, UserValuesAreEvaluatedWhenTheirGroupUnfoldsForRowsWithAnExpression) {
    const std::string expression = "TableInfo(%LAYERNAME%,8)";
    grid().setTextMatrix(row(kLines), col("user info"), expression);
    grid().setTextMatrix(row(kPoints), col("user info"), "  1 + 1  "); // no token: not sent
    onHeader("user info");
    EXPECT_EQ(width("user eval"), 0);
    EXPECT_EQ(text(kLines, "user eval"), "");

    onHeader("user info");
    EXPECT_EQ(text(kLines, "user eval"), eval("TableInfo(lines,8)"));
    EXPECT_EQ(text(kPoints, "user eval"), "");
    EXPECT_EQ(text(kRegions, "user eval"), "");
    EXPECT_EQ(width("user info"), (Len(expression) + 2) * 85);
    EXPECT_GT(width("user eval"), 0);
    EXPECT_EQ(grid().cellAt(0, col("user eval")).picture.name, "UserEvalPic");
    EXPECT_EQ(toolkit.MousePointer(), platform::vbDefault);
    EXPECT_TRUE(finishedNormally());
}

TEST_F(DoubleClick, ALayerGroupCollapsesOntoTheClickedRowAndExpandsToDefaultHeights) {
    group("Areas", {kRegions, kLines, kPoints});
    group("Other", {kText});
    grid().setRowHeight(row(kPoints), 600);
    onLayerName(kLines);

    EXPECT_EQ(height(kRegions), 0);
    EXPECT_EQ(height(kPoints), 0);
    EXPECT_GT(height(kLines), 0);
    EXPECT_GT(height(kText), 0);
    for (int layer : {kRegions, kLines, kPoints})
        EXPECT_EQ(session->gRowExpanded[layer], kFalse) << layer;
    EXPECT_EQ(session->gRowExpanded[kText], kTrue);
    // The walk had left the member above the master current, so that row takes the colour.
    EXPECT_EQ(colour(kRegions, "visible"), kMasterColor);
    EXPECT_EQ(colour(kRegions, "user eval"), kMasterColor);
    EXPECT_NE(colour(kLines, "visible"), kMasterColor);
    EXPECT_TRUE(finishedNormally());

    onLayerName(kLines);
    EXPECT_EQ(height(kRegions), grid().defaultRowHeight());
    EXPECT_EQ(height(kPoints), grid().defaultRowHeight());
    for (int layer : {kRegions, kLines, kPoints})
        EXPECT_EQ(session->gRowExpanded[layer], kTrue) << layer;
    EXPECT_EQ(colour(kRegions, "visible"), 0u);
}

TEST_F(DoubleClick, DoubleClicksOutsideAGroupChangeNothing) {
    group("Areas", {kRegions, kLines});
    const int selectable = width("selectable");
    onLayerName(kPoints); // no group
    onLayerName(0);       // the cosmetic layer
    onHeader("selectable");
    EXPECT_EQ(grid().Row(), 0);
    grid().setRow(row(kRegions)); // a data cell of a grouped row, not in the first column
    session->gMouseX = static_cast<float>(grid().ColPos(col("visible")) + 10);
    session->gMouseY = static_cast<float>(grid().RowPos(row(kRegions)) + 10);
    grid().setCol(col("visible"));
    interaction::dblclick(*session);

    EXPECT_EQ(width("selectable"), selectable);
    for (int layer = 1; layer <= kLayers; ++layer) {
        EXPECT_EQ(height(layer), grid().defaultRowHeight()) << layer;
        EXPECT_EQ(session->gRowExpanded[layer], kTrue) << layer;
    }
    EXPECT_TRUE(finishedNormally());
    EXPECT_EQ(log().find("dblclick"), std::string::npos) << log();
}

TEST_F(DoubleClick, AFailureIsLoggedAndLeavesTheGridFrozen) {
    onHeader("info");
    session->gLyr = nullptr;
    onHeader("info");
    EXPECT_TRUE(logged("From dblclick " + RuntimeError(kErrObjectNotSet).description())) << log();
    EXPECT_EQ(toolkit.MousePointer(), platform::vbDefault);
    EXPECT_FALSE(grid().Redraw());
    EXPECT_EQ(session->gFormReady, kFalse);
}

} // namespace
} // namespace vellant::grid::testing
