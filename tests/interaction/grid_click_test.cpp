// The click on a grid cell over a loaded grid on the embedded host: which clicks count, which
// rows a click covers (a row set, a collapsed group, the clicked row), the per-cell gate, the
// cell editor opening once for a set, and what a finished click leaves behind. The host is
// reached through a recorder, so the MapBasic the click sends can be read back.

#include "../session/recording_mapinfo.h"
#include "base/basic_text.h"
#include "clicking_grid.h"
#include "interaction/edit_cell.h"
#include "interaction/grid_click.h"
#include "interaction/toggle_cycle.h"
#include "platform/form.h"
#include "platform/toolkit.h"

#include <algorithm>

namespace vellant::grid::testing {
namespace {

constexpr int kDisplayMode = 9; // LayerInfo: 0 off, 1 graphic, 2 global
constexpr int kZoomMax = 6;

class GridClick : public ClickingGrid {
protected:
    GridClick() {
        recorder = std::make_shared<vellant::testing::RecordingMapInfo>(app);
        session->gMapInfo = recorder;
        load();
        recorder->calls.clear();
    }

    bool shown(int layer, int window = 0) { return info(layer, kDisplayMode, window) != "0"; }

    std::string displayOff(int layer) {
        return "do set map window " + Str(view) + " Layer " + Str(layer) + " Display Off";
    }
    std::string redraw(const std::string& onoff) {
        return "do Set Map Window " + Str(view) + " redraw " + onoff;
    }
    std::vector<std::string> layerCommands() {
        return recorder->callsStartingWith("do set map window " + Str(view) + " Layer");
    }
    bool sent(const std::string& call) {
        const auto& calls = recorder->calls;
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }
    // How often the form stepped down from topmost for a modal form.
    long modalOpenings() {
        const auto& calls = toolkit.windowPosCalls();
        return std::count_if(calls.begin(), calls.end(), [&](const auto& call) {
            return call.hwnd == form->hWnd() && call.insertAfter == platform::HWND_NOTOPMOST;
        });
    }
    bool menuItemsEnabled() {
        return form->Group_selected.Enabled() || form->Ungroup_layers.Enabled() ||
               form->View_Entire.Enabled() || form->Remove_layer.Enabled() ||
               form->Add_Layer.Enabled();
    }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder;
};

TEST_F(GridClick, ARowSetOfThreeLayersIsSwitchedOffInTheViewAndTheUserMapStaysAsItWas) {
    for (int layer : {kRaster, kRegions, kLines})
        ASSERT_TRUE(shown(layer)) << layer;
    selectRows(kRaster, kLines);

    click(kRaster, "visible");

    for (int layer : {kRaster, kRegions, kLines}) {
        EXPECT_TRUE(sent("eval LayerInfo(" + Str(view) + "," + Str(layer) + ",9)")) << layer;
        EXPECT_TRUE(sent(displayOff(layer))) << layer;
        EXPECT_FALSE(shown(layer)) << layer;
        EXPECT_TRUE(shown(layer, userMap)) << layer;
        EXPECT_EQ(picture(layer, "visible"), "Image2") << layer;
    }
    EXPECT_TRUE(shown(kQuery));
    EXPECT_TRUE(shown(kPoints));
    EXPECT_EQ(layerCommands().size(), 3u) << "only the three layers are written";
    // The view map drew nothing between the first command and the last.
    EXPECT_EQ(recorder->calls.front(), redraw("off"));
    EXPECT_EQ(recorder->calls.back(), redraw("on"));

    // The set is put back and the status picture tells the step of the next click.
    EXPECT_EQ(grid().Row(), row(kRaster));
    EXPECT_EQ(grid().Col(), 0);
    EXPECT_EQ(grid().RowSel(), row(kLines));
    EXPECT_EQ(grid().ColSel(), grid().Cols() - 1);
    EXPECT_EQ(session->gToggleStep, 1);
    EXPECT_EQ(visibleStatusPicture(), 1);
    EXPECT_EQ(form->ToggleStatusPic(1).Top(), grid().RowPos(row(kRaster)) + grid().Top());

    EXPECT_TRUE(grid().Redraw());
    EXPECT_TRUE(session->gFormReady);
    EXPECT_FALSE(session->gInClick);
    EXPECT_EQ(session->gClickRow, 0);
    EXPECT_FALSE(menuItemsEnabled()) << "the selection handlers enable them again";
    EXPECT_EQ(log().find("From"), std::string::npos) << log();
}

TEST_F(GridClick, AClickAnywhereActsOnTheRowSetAlsoFromARowOutsideIt) {
    selectRows(kRegions, kLines);
    click(kPoints, "visible");
    EXPECT_FALSE(shown(kRegions));
    EXPECT_FALSE(shown(kLines));
    EXPECT_TRUE(shown(kPoints));
    EXPECT_EQ(grid().Row(), row(kRegions));
    EXPECT_EQ(grid().RowSel(), row(kLines));
}

TEST_F(GridClick, AClickOnTheHeaderTheLayerNamesOrPastTheLastColumnDoesNothingAndLeavesRedrawOff) {
    struct Miss {
        const char* where;
        float x;
        float y;
    };
    const int last = grid().Cols() - 1;
    const float inRow = static_cast<float>(grid().RowPos(row(kRegions)) + 10);
    const Miss misses[] = {
        {"header", static_cast<float>(grid().ColPos(col("visible")) + 10), 10},
        {"layer names", 10, inRow},
        {"past the last column",
         static_cast<float>(grid().ColPos(last) + grid().ColWidth(last) + 10), inRow},
    };
    for (const Miss& miss : misses) {
        recorder->calls.clear();
        session->gFormReady = kTrue;
        grid().setRow(row(kRegions));
        grid().setCol(col("visible"));
        session->gMouseX = miss.x;
        session->gMouseY = miss.y;
        interaction::Layergridclick(*session);

        EXPECT_TRUE(shown(kRegions)) << miss.where;
        EXPECT_TRUE(layerCommands().empty()) << miss.where;
        EXPECT_FALSE(sent(redraw("on"))) << miss.where;
        EXPECT_TRUE(sent(redraw("off"))) << miss.where;
        EXPECT_FALSE(session->gFormReady) << miss.where;
    }
    EXPECT_EQ(session->gCol, 0);
    EXPECT_EQ(session->gClickRow, kRegions);

    // The next click that counts turns the drawing on again.
    click(kRegions, "visible");
    EXPECT_FALSE(shown(kRegions));
    EXPECT_TRUE(session->gFormReady);
    EXPECT_EQ(recorder->calls.back(), redraw("on"));
}

TEST_F(GridClick, AGreyedCellDoesNothingAndDropsItsRowOutOfASet) {
    // The cosmetic layer is always shown: its cell only shows that.
    ASSERT_FALSE(clickable(0, "visible"));
    const std::string before = picture(0, "visible");
    click(0, "visible");
    EXPECT_TRUE(layerCommands().empty());
    EXPECT_EQ(picture(0, "visible"), before);
    EXPECT_TRUE(session->gFormReady);

    // A raster has no nodes: the rows around it are switched, it is passed over.
    ASSERT_FALSE(clickable(kRaster, "show nodes"));
    ASSERT_EQ(info(kQuery, 22), "F");
    selectRows(kQuery, kRegions);
    recorder->calls.clear();
    click(kQuery, "show nodes");
    EXPECT_EQ(info(kQuery, 22), "T");
    EXPECT_EQ(info(kRegions, 22), "T");
    EXPECT_EQ(info(kRaster, 22), "F");
    EXPECT_EQ(layerCommands().size(), 2u);
}

TEST_F(GridClick, AClickInACollapsedGroupActsOnTheGroupsLayersOnly) {
    for (int layer : {kRegions, kPoints}) {
        session->gLayerGroup[layer] = " roads";
        session->gRowExpanded[layer] = kFalse;
    }
    click(kPoints, "visible");
    EXPECT_TRUE(session->gGroupClick);
    EXPECT_FALSE(shown(kRegions));
    EXPECT_FALSE(shown(kPoints));
    EXPECT_TRUE(shown(kLines));
    EXPECT_EQ(layerCommands().size(), 2u);
    // There is no row set, so no status picture.
    EXPECT_EQ(visibleStatusPicture(), -1);
    EXPECT_EQ(session->gToggleStep, 0);

    // Unfolded, the group answers for the clicked row alone.
    for (int layer : {kRegions, kPoints})
        session->gRowExpanded[layer] = kTrue;
    click(kPoints, "visible");
    EXPECT_FALSE(session->gGroupClick);
    EXPECT_TRUE(shown(kPoints));
    EXPECT_FALSE(shown(kRegions));
}

TEST_F(GridClick, TheEditorOpensOnceForARowSetWithTheClickedRowsTextAndItsResultGoesToEveryRow) {
    session->gOnTop = kTrue;
    selectRows(kRegions, kPoints);
    click(kRegions, "visible");
    ASSERT_EQ(visibleStatusPicture(), 1);
    grid().setTextMatrix(row(kLines), col("zoom max"), "7000");
    std::string startText;
    bool formTopmost = true;
    toolkit.addStep([&] {
        interaction::EditCell& editor = interaction::editCellForm(*session);
        startText = editor.ecell.Text();
        formTopmost = toolkit.isTopmost(form->hWnd());
        editor.ecell.setText("5000");
        editor.ecell_KeyDown(13);
    });
    click(kLines, "zoom max");

    EXPECT_EQ(startText, "7000");
    EXPECT_EQ(modalOpenings(), 1);
    EXPECT_FALSE(formTopmost);
    EXPECT_TRUE(toolkit.isTopmost(form->hWnd()));
    for (int layer : {kRegions, kLines, kPoints}) {
        EXPECT_EQ(text(layer, "zoom max"), "5000") << layer;
        EXPECT_EQ(Val(info(layer, kZoomMax)), 5000) << layer;
    }
    EXPECT_FALSE(interaction::editCellForm(*session).Loaded());
    EXPECT_TRUE(session->gCellText.empty());
    // Any finished click moves the cycle on, though only a toggle shows the next picture.
    EXPECT_EQ(session->gToggleStep, 2);
    EXPECT_EQ(visibleStatusPicture(), -1);
}

// A collapsed group opens the editor at the clicked row. The group's rows above it take the
// walk without the editor and an empty text: their cells are blanked, and nothing is written
// to their layers. Esc hands back the starting text, which the rows from the clicked one on
// keep, and their layers take it.
TEST_F(GridClick, InACollapsedGroupTheEditorOpensAtTheClickedRowAndEscKeepsItsText) {
    for (int layer : {kRegions, kLines, kPoints}) {
        session->gLayerGroup[layer] = "G";
        session->gRowExpanded[layer] = kFalse;
    }
    setViewLayer(kRegions, "Zoom (0, 9000) Units \"mi\" Off");
    load();
    grid().setTextMatrix(row(kLines), col("zoom max"), "7000");
    grid().setTextMatrix(row(kPoints), col("zoom max"), "8000");
    grid().setTextMatrix(row(kText), col("zoom max"), "6000");
    std::string startText;
    toolkit.addStep([&] {
        interaction::EditCell& editor = interaction::editCellForm(*session);
        startText = editor.ecell.Text();
        editor.ecell_KeyDown(27);
    });
    click(kLines, "zoom max");

    EXPECT_EQ(startText, "7000");
    EXPECT_EQ(modalOpenings(), 1);
    EXPECT_EQ(text(kRegions, "zoom max"), "");
    EXPECT_EQ(Val(info(kRegions, kZoomMax)), 9000);
    for (int layer : {kLines, kPoints}) {
        EXPECT_EQ(text(layer, "zoom max"), "7000") << layer;
        EXPECT_EQ(Val(info(layer, kZoomMax)), 7000) << layer;
    }
    // Rows outside the group are passed over.
    EXPECT_EQ(text(kText, "zoom max"), "6000");
    EXPECT_EQ(log().find("From"), std::string::npos) << log();
}

TEST_F(GridClick, InTheSelfTestATextCellTakesTheCannedValueAndTheGroupColumnNamesTheGroup) {
    session->gSelfTest = kTrue;
    click(kLines, "group");
    EXPECT_EQ(text(kLines, "group"), "23");
    EXPECT_EQ(session->gLayerGroup[kLines], "23");
    EXPECT_EQ(session->gLayerGroup[kRegions], "");
    EXPECT_EQ(modalOpenings(), 1);
    EXPECT_EQ(log().find("From"), std::string::npos) << log();
}

TEST_F(GridClick, TheOverrideAndTheLabelAndStyleColumnsOfAPlainLayerOpenNoEditor) {
    // The override is changed through the style column: its toggle bit does not count.
    ASSERT_TRUE(clickable(kRegions, "override"));
    click(kRegions, "override");
    EXPECT_TRUE(layerCommands().empty());
    EXPECT_TRUE(session->gFormReady);
    // The two style columns go to the host's style dialogs, never to the cell editor.
    for (const char* key : {"label properties", "style"}) {
        ASSERT_TRUE(clickable(kRegions, key)) << key;
        click(kRegions, key);
        EXPECT_EQ(modalOpenings(), 0) << key;
    }
}

TEST_F(GridClick, AFailureIsLoggedAndLeavesTheClickWhereItStood) {
    // A key typed while the header row is current: the mouse position of the last click
    // counts, but the header row has no layer.
    session->gMouseX = static_cast<float>(grid().ColPos(col("visible")) + 10);
    session->gMouseY = static_cast<float>(grid().RowPos(row(kRegions)) + 10);
    grid().setRow(0);
    grid().setCol(col("visible"));
    interaction::Layergridclick(*session);
    EXPECT_NE(log().find("\"From Layergridclick "), std::string::npos) << log();
    EXPECT_FALSE(session->gFormReady);
    EXPECT_FALSE(sent(redraw("on")));
}

} // namespace
} // namespace vellant::grid::testing
