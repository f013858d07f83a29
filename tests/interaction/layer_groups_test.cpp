// Making and unmaking layer groups from the popup menu over a loaded grid on the embedded host:
// the name a selection gets, how a selection that touches groups extends or clears them, and
// the refusals that go to the log only.

#include "../grid/grid_host.h"
#include "interaction/layer_groups.h"

namespace vellant::grid::testing {
namespace {

class LayerGroups : public GridHost {
protected:
    LayerGroups() { load(); }

    // Rows from an anchor to the far end, as the user drags them, upward or downward.
    void select(int anchorLayer, int endLayer) {
        grid().setRow(row(anchorLayer));
        grid().setCol(col("group"));
        grid().setRowSel(row(endLayer));
    }
    void name(int layer, const std::string& text) {
        grid().setTextMatrix(row(layer), col("group"), text);
    }
    std::string cellName(int layer) { return text(layer, "group"); }
    std::string groupOf(int layer) { return session->gLayerGroup[layer]; }
    void expectGroup(int layer, const std::string& expected) {
        EXPECT_EQ(cellName(layer), expected) << layer;
        EXPECT_EQ(groupOf(layer), expected) << layer;
    }
};

TEST_F(LayerGroups, ANewGroupIsNamedAfterTheAnchorsGridRow) {
    select(kRegions, kPoints); // grid rows 4 to 6
    interaction::groupSelectedLayers(*session);
    for (int layer : {kRegions, kLines, kPoints})
        expectGroup(layer, "Group  4");
    expectGroup(kRaster, "");
    expectGroup(kText, "");

    select(kMixed, kText); // upward: the anchor is the lower row
    interaction::groupSelectedLayers(*session);
    expectGroup(kText, "Group  8");
    expectGroup(kMixed, "Group  8");
    EXPECT_EQ(row(kMixed), 8);
}

TEST_F(LayerGroups, ASelectionTouchingGroupsExtendsTheOneMetFirstFromTheAnchor) {
    name(kLines, "  Roads ");
    name(kText, "Labels");
    name(kPoints, "   "); // blanks are no name
    select(kRegions, kText);
    interaction::groupSelectedLayers(*session);
    for (int layer : {kRegions, kLines, kPoints, kText})
        expectGroup(layer, "Roads ");

    name(kMixed, "Other");
    select(kMixed, kPoints);
    interaction::groupSelectedLayers(*session);
    for (int layer : {kPoints, kText, kMixed})
        expectGroup(layer, "Other");
    expectGroup(kLines, "Roads ");
}

TEST_F(LayerGroups, UngroupingClearsOnlyTheFirstNameMetAsTheCellHasIt) {
    for (int layer : {kRaster, kRegions})
        name(layer, "A");
    for (int layer : {kLines, kPoints})
        name(layer, "B");
    for (int layer : {kRaster, kRegions, kLines, kPoints})
        session->gLayerGroup[layer] = cellName(layer);
    select(kRegions, kLines);
    interaction::ungroupLayers(*session);
    expectGroup(kRegions, "");
    expectGroup(kLines, "B");
    expectGroup(kRaster, "A"); // a member outside the selection keeps its name

    // One row is enough to ungroup; leading blanks are part of the name compared.
    name(kText, "  B");
    select(kText, kPoints);
    interaction::ungroupLayers(*session);
    expectGroup(kText, "");
    EXPECT_EQ(cellName(kPoints), "B");
    select(kPoints, kPoints);
    interaction::ungroupLayers(*session);
    expectGroup(kPoints, "");
    expectGroup(kLines, "B");
}

TEST_F(LayerGroups, RefusalsGoToTheLogAndChangeNothing) {
    name(kLines, "   ");
    select(kLines, kLines);
    interaction::groupSelectedLayers(*session);
    EXPECT_TRUE(logged("Select multiple layers to group"));
    select(kRaster, 0); // down to the cosmetic layer
    interaction::groupSelectedLayers(*session);
    EXPECT_EQ(cellName(kRaster), "");
    EXPECT_EQ(cellName(0), "");

    select(0, kLines);
    interaction::ungroupLayers(*session);
    EXPECT_TRUE(logged("No group name in selected layer"));
    select(kRegions, kPoints);
    interaction::ungroupLayers(*session);
    EXPECT_TRUE(logged("No group name in selected layers"));
    EXPECT_EQ(cellName(kLines), "   ");

    const std::string text = log();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4) << text;
}

} // namespace
} // namespace vellant::grid::testing
