#include "base/basic_text.h"
#include "grid/grid_host.h"
#include "grid/load_grid.h"

namespace vellant::grid::testing {
namespace {

using LoadGrid = GridHost;

TEST_F(LoadGrid, EveryLayerHasARowUnderTheCosmeticLayerAndTheGridIsShownAfter) {
    load();
    ASSERT_EQ(grid().Rows(), kLayers + 2);
    const char* names[] = {"Cosmetic2", "qregions", "raster", "regions", "lines",
                           "points",    "text",     "mixed",  "scratch"};
    // The table without objects and the cosmetic layer are of no known kind.
    const char* types[] = {"Unknown", "Region", "Raster", "Region", "Line",
                           "Symbol",  "Text",   "Region", "Unknown"};
    for (int layer = 0; layer <= kLayers; ++layer) {
        EXPECT_EQ(text(layer, "layer"), names[layer]);
        EXPECT_EQ(text(layer, "order"), Str(layer));
        EXPECT_EQ(text(layer, "Type"), types[layer]);
    }
    EXPECT_EQ(grid().ColWidth(0), (9 + 2) * 85);
    EXPECT_EQ(session->gCellState.rowUpperBound(), kLayers + 1);
    EXPECT_EQ(session->gCellState.colUpperBound(), 37);

    EXPECT_TRUE(grid().Redraw());
    EXPECT_EQ(grid().Row(), 0);
    EXPECT_EQ(grid().Col(), 0);
    EXPECT_FALSE(form->Group_selected.Enabled());
    EXPECT_EQ(toolkit.MousePointer(), 0);
    EXPECT_EQ(toolkit.cursorCount(), 0);
    EXPECT_EQ(session->gApplyToLayer, kFalse); // painting only
}

TEST_F(LoadGrid, TheCosmeticAndRasterLayersAreGrayButForWhatTheyCanDo) {
    load();
    EXPECT_TRUE(gray(0, "group"));
    EXPECT_EQ(picture(0, "visible"), "Image1Gray");
    EXPECT_EQ(picture(0, "selectable"), "Image1");
    EXPECT_TRUE(clickable(0, "selectable"));
    EXPECT_TRUE(clickable(0, "editable"));
    for (const char* key : {"visible", "show nodes", "zoom layer", "style", "label orient"}) {
        EXPECT_FALSE(clickable(0, key)) << key;
    }
    // A raster shows its stored states in gray and keeps its zoom layering.
    EXPECT_EQ(picture(kRaster, "show nodes"), "Image2gray");
    EXPECT_EQ(picture(kRaster, "selectable"), "Image1Gray");
    for (const char* key : {"selectable", "autolabel", "label field", "label orient"})
        EXPECT_FALSE(clickable(kRaster, key)) << key;
    EXPECT_TRUE(clickable(kRaster, "zoom layer"));
    EXPECT_TRUE(cell(kRaster, "editable").picture.empty());
}

TEST_F(LoadGrid, KindAndVisibilityDecideWhichTogglesAreLive) {
    setViewLayer(kRegions, "Selectable On");
    setViewLayer(kRegions, "Display Off");
    load();
    EXPECT_TRUE(clickable(kLines, "show directions"));
    EXPECT_FALSE(clickable(kLines, "show centroids"));
    EXPECT_TRUE(clickable(kLines, "label rotate"));
    EXPECT_TRUE(clickable(kPoints, "show centroids"));
    EXPECT_FALSE(clickable(kText, "show centroids"));
    EXPECT_FALSE(clickable(kPoints, "label partial"));

    // The hidden layer: selectable and editable in gray, its nodes still live.
    EXPECT_EQ(picture(kRegions, "visible"), "Image2");
    EXPECT_EQ(picture(kRegions, "selectable"), "Image1Gray");
    EXPECT_FALSE(clickable(kRegions, "editable"));
    EXPECT_TRUE(clickable(kRegions, "show nodes"));
    EXPECT_EQ(picture(kRegions, "show directions"), "Image2gray");
}

TEST_F(LoadGrid, ShowsZoomLimitsTablesAndTheirState) {
    setViewLayer(kLines, "Zoom (10, 5000) On");
    setViewLayer(kRegions, "Display Global Global Brush (2,255,0)");
    run("Insert Into scratch (a) Values (5)");
    load();
    EXPECT_EQ(picture(kLines, "zoom layer"), "Image1");
    EXPECT_EQ(text(kLines, "zoom min"), "10");
    EXPECT_EQ(text(kLines, "zoom max"), "5000");
    EXPECT_EQ(text(kLines, "table path"), folder() + "/lines.tab");
    EXPECT_EQ(text(kLines, "coordsys"), eval("TableInfo(\"lines\",29)"));
    EXPECT_EQ(text(kQuery, "table path"), "");
    EXPECT_TRUE(session->gOrigOverride[kRegions]);
    EXPECT_FALSE(session->gOrigOverride[kLines]);

    EXPECT_EQ(cell(kQuery, "layer").picture.name, "QueryTabPic");
    EXPECT_EQ(cell(kQuery, "layer").pictureAlignment, 7);
    EXPECT_EQ(cell(kScratch, "layer").picture.name, "EditedPic");
    // A query is read-only, which takes every editing column with it.
    EXPECT_EQ(picture(kQuery, "readonly"), "Image1Gray");
    EXPECT_EQ(picture(kQuery, "editable"), "Image2gray");
    EXPECT_TRUE(gray(kQuery, "fastedit"));
    EXPECT_TRUE(cell(kQuery, "undo").picture.empty());
    EXPECT_EQ(picture(kRegions, "undo"), "Image1");
}

TEST_F(LoadGrid, AReloadRebuildsTheCellsButNotTheHeaderOrThePictures) {
    load();
    grid().setTextMatrix(0, col("Type"), "Type");
    grid().setTextMatrix(row(kLines), col("user eval"), "stale");
    grid().setRow(row(kLines));
    grid().setCol(col("info"));
    grid().setCellPicture({"Sample", nullptr, 240, 240});
    session->gCellState(row(kLines), col("user eval")) = false;
    run("Remove Map Window " + Str(view) + " Layer scratch");
    session->gLayerCount = kLayers - 1;
    load();
    EXPECT_EQ(grid().Rows(), kLayers + 1);
    EXPECT_EQ(grid().TextMatrix(0, col("Type")), "Type");
    EXPECT_EQ(text(kLines, "user eval"), "");
    EXPECT_TRUE(clickable(kLines, "user eval"));
    EXPECT_EQ(picture(kLines, "info"), "Sample");
}

TEST_F(LoadGrid, AFailedLoadLeavesTheGridFrozenAndSaysWhereInTheLog) {
    session->gLabelProps = nullptr;
    load();
    EXPECT_TRUE(logged("From load_grid .005 " + RuntimeError(kErrObjectNotSet).description()));
    EXPECT_FALSE(grid().Redraw());
    EXPECT_EQ(toolkit.MousePointer(), 0);
    EXPECT_EQ(toolkit.cursorCount(), 0);
}

TEST_F(LoadGrid, LayerGroupsMoveUpForBothCallersWordsAndDownForLowerCaseAdd) {
    load();
    const auto shift = [&](const char* word) {
        for (int layer = 1; layer <= kLayers; ++layer)
            session->gLayerGroup[layer] = "g" + std::to_string(layer);
        shiftlayergroups(*session, word);
    };
    for (const char* word : {"Sub", "Add"}) {
        shift(word);
        EXPECT_EQ(session->gLayerGroup[1], "g2") << word;
        EXPECT_EQ(grid().TextMatrix(row(7), 2), "g8") << word;
        EXPECT_EQ(session->gLayerGroup[8], "g8") << word;
    }
    shift("add");
    EXPECT_EQ(session->gLayerGroup[1], "g1");
    EXPECT_EQ(grid().TextMatrix(row(8), 2), "g7");
    EXPECT_EQ(session->gLayer, 1);

    session->gLayerCount = 1;
    shift("Sub");
    EXPECT_EQ(session->gLayerGroup[1], "g1");
}

} // namespace
} // namespace vellant::grid::testing
