// The layer grid's own events on the embedded host, driven as the user drives them: whole rows
// selected in the first column make a row set and the menu follows; a layer picked up by its
// "order" handle and dropped moves in the view map and the grid reloads; the tool-tip follows
// the mouse; the right button opens the popup menu; keys reach the click. Both forms.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "grid/layer_rows.h"
#include "interaction/edit_cell.h"
#include "platform/flexgrid.h"
#include "session/host_session.h"
#include "session/layer_form.h"
#include "session/recording_mapinfo.h"

#include <memory>
#include <string>
#include <vector>

namespace vellant::grid::testing {
namespace {

using platform::vbLeftButton;
using platform::vbRightButton;

constexpr int kNameCode = 1; // LayerInfo: the layer's name
constexpr int kEnter = 13;
constexpr int kTab = 9;
constexpr const char* kAllRows = " - edit will be applied to all selected rows";

class GridEvents : public GridHost {
protected:
    explicit GridEvents(bool dockedForm = false) {
        if (dockedForm) {
            docked = std::make_unique<session::vlLayerDocked>(toolkit);
            session->gLayerForm = docked.get();
            docked->LyrGrid.setCols(session->gColCount);
        }
        layerForm().session = session.get();
        session->gMapInfo = recorder;
        load();
        // As every session starts: the form's load turns the cleared check over.
        layerForm().show_tooltips.setChecked(false);
        layerForm().show_tooltips.Click();
    }

    session::LayerForm& layerForm() {
        return docked ? static_cast<session::LayerForm&>(*docked) : *form;
    }
    platform::FlexGrid& g() { return layerForm().LyrGrid; }

    float xIn(const std::string& key) {
        const int c = col(key);
        return static_cast<float>(g().ColPos(c) + g().ColWidth(c) / 2);
    }
    float yIn(int layer) {
        const int r = row(layer);
        return static_cast<float>(g().RowPos(r) + g().RowHeight(r) / 2);
    }
    // Where a drop lands on grid row `rows` by the drop's own measure: the header and that many
    // heights of the first data row.
    float dropY(double rows) {
        return static_cast<float>(g().RowHeight(0) + rows * g().RowHeight(1));
    }
    float firstColumnX() { return static_cast<float>(g().ColWidth(0) / 2); }

    // Press in the first column on one layer's row, drag to another's, release.
    void selectRows(int from, int to) {
        g().mouseDown(vbLeftButton, 0, firstColumnX(), yIn(from));
        g().mouseMove(vbLeftButton, 0, firstColumnX(), yIn(to));
        g().mouseUp(vbLeftButton, 0, firstColumnX(), yIn(to));
    }
    void dragLayer(int layer, float dropAtY) {
        g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(layer));
        g().mouseUp(vbLeftButton, 0, xIn("order"), dropAtY);
    }
    void moveTo(float x, float y) { g().mouseMove(0, 0, x, y); }

    std::vector<std::string> orders() const {
        return recorder->callsStartingWith("do Set Map Window " + Str(view) + " Order ");
    }
    std::string order(const std::string& list) const {
        return "do Set Map Window " + Str(view) + " Order " + list;
    }
    std::string tipOf(const std::string& key) { return session->gColTip[col(key)]; }
    std::string tip() { return g().ToolTipText(); }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder =
        std::make_shared<vellant::testing::RecordingMapInfo>(app);
    std::unique_ptr<session::vlLayerDocked> docked;
};

class DockedGridEvents : public GridEvents {
protected:
    DockedGridEvents() : GridEvents(true) {}
};

TEST_F(GridEvents, WholeRowsDraggedInTheFirstColumnMakeARowSetThatAClickInsideKeeps) {
    layerForm().View_Entire.setEnabled(true);
    selectRows(kRaster, kLines);
    EXPECT_EQ(session->gSelFirst, kRaster);
    EXPECT_EQ(session->gSelLast, kLines);
    EXPECT_TRUE(layerForm().Group_selected.Enabled());
    EXPECT_TRUE(layerForm().Remove_layer.Enabled());
    EXPECT_FALSE(layerForm().Ungroup_layers.Enabled());
    EXPECT_FALSE(layerForm().Add_Layer.Enabled());
    // The floating form has no handler for it and leaves it alone.
    EXPECT_TRUE(layerForm().View_Entire.Enabled());
    EXPECT_TRUE(layerForm().ToggleStatusPic(0).Visible());

    g().mouseDown(vbLeftButton, 0, xIn("visible"), yIn(kRegions));
    EXPECT_EQ(session->gSelFirst, kRaster);
    EXPECT_EQ(session->gSelLast, kLines);
    g().mouseUp(vbLeftButton, 0, xIn("visible"), yIn(kRegions));
    EXPECT_EQ(session->gSelFirst, kRaster);
    EXPECT_EQ(session->gSelLast, kLines);
}

TEST_F(GridEvents, APressOutsideTheSetEndsItAndOffersTheWholeMenu) {
    selectRows(kRaster, kLines);
    ASSERT_EQ(session->gSelFirst, kRaster);
    g().mouseDown(vbLeftButton, 0, xIn("visible"), yIn(kText));
    EXPECT_EQ(session->gSelFirst, 0);
    EXPECT_EQ(session->gSelLast, 0);
    for (int i = 0; i <= 3; ++i)
        EXPECT_FALSE(layerForm().ToggleStatusPic(i).Visible()) << i;
    for (platform::MenuItem* item : {&layerForm().Group_selected, &layerForm().Ungroup_layers,
                                     &layerForm().Remove_layer, &layerForm().Add_Layer})
        EXPECT_TRUE(item->Enabled()) << item->Name();
}

TEST_F(GridEvents, ASelectionAnchoredOnTheCosmeticRowNeverMakesASet) {
    selectRows(0, kRegions);
    EXPECT_EQ(g().Row(), row(0));
    EXPECT_EQ(g().RowSel(), row(kRegions));
    EXPECT_EQ(session->gSelFirst, 0);
    EXPECT_FALSE(layerForm().ToggleStatusPic(0).Visible());
}

TEST_F(GridEvents, ALayerDroppedUpwardLandsUnderTheDropRowAndTheGridReloads) {
    g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(kPoints));
    EXPECT_EQ(session->gDragLayer, kPoints);
    EXPECT_TRUE(g().Dragging());
    EXPECT_EQ(tip(), "Move points to before ...");
    // The floating form names the layer whose number is the grid row under the mouse.
    moveTo(xIn("order"), yIn(kRaster));
    EXPECT_EQ(tip(), "Move points to before regions");

    // Two and a half rows down rounds to the even row 2, the row of layer 1.
    recorder->calls.clear();
    g().mouseUp(vbLeftButton, 0, xIn("order"), dropY(2.5));
    EXPECT_FALSE(g().Dragging());
    EXPECT_EQ(orders(), std::vector<std::string>{order("1,5,2,3,4,6,7,8")});
    EXPECT_EQ(info(kRaster, kNameCode), "points");
    EXPECT_EQ(g().TextMatrix(row(kRaster), 0), "points");
    EXPECT_EQ(g().TextMatrix(row(kRegions), 0), "raster");
    EXPECT_TRUE(g().Redraw());
    const auto redraws = recorder->callsStartingWith("do Set Map Window " + Str(view) + " redraw");
    ASSERT_GE(redraws.size(), 2u);
    EXPECT_EQ(redraws.front(), "do Set Map Window " + Str(view) + " redraw off");
    EXPECT_EQ(redraws.back(), "do Set Map Window " + Str(view) + " redraw on");
    EXPECT_EQ(log(), "");
}

TEST_F(GridEvents, ALayerDroppedDownwardTakesTheDropRowsPlace) {
    // Three and a half rows down rounds to the even row 4, the row of layer 3.
    dragLayer(kRaster, dropY(3.5));
    EXPECT_EQ(orders(), std::vector<std::string>{order("1,3,2,4,5,6,7,8")});
    EXPECT_EQ(g().TextMatrix(row(kRegions), 0), "raster");
}

TEST_F(GridEvents, DropsThatMoveNothing) {
    dragLayer(kPoints, dropY(row(kPoints)));
    EXPECT_TRUE(orders().empty());
    EXPECT_EQ(log(), "");

    // Below the last row there is no row to take: the drop fails into the log.
    dragLayer(kPoints, dropY(g().Rows() + 1));
    EXPECT_TRUE(orders().empty());
    EXPECT_TRUE(logged("From lyrgrid_dragdrop Invalid Row value")) << log();

    // A press outside the handle picks nothing up, so its release drops nothing.
    g().mouseDown(vbLeftButton, 0, xIn("visible"), yIn(kPoints));
    EXPECT_EQ(session->gDragLayer, 0);
    EXPECT_FALSE(g().Dragging());
    EXPECT_EQ(info(kPoints, kNameCode), "points");
}

TEST_F(GridEvents, TheTipFollowsTheColumnAndTellsOfTheSelectedRows) {
    moveTo(xIn("visible"), yIn(kLines));
    EXPECT_EQ(tip(), tipOf("visible"));

    selectRows(kRaster, kLines);
    moveTo(xIn("selectable"), yIn(kRegions));
    EXPECT_EQ(tip(), tipOf("selectable") + kAllRows);
    moveTo(xIn("editable"), yIn(kText));
    EXPECT_EQ(tip(), tipOf("editable"));
}

TEST_F(GridEvents, SwitchedOffTheTipIsClearedAndOnlyAPressOnTheHandleSetsOne) {
    layerForm().show_tooltips.Click();
    EXPECT_FALSE(layerForm().show_tooltips.Checked());
    EXPECT_FALSE(session->gShowTips);
    EXPECT_EQ(tip(), "");
    moveTo(xIn("visible"), yIn(kLines));
    EXPECT_EQ(tip(), "");

    g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(kLines));
    EXPECT_EQ(tip(), "Move lines to before ...");
    moveTo(xIn("order"), yIn(kRaster));
    EXPECT_EQ(tip(), "Move lines to before ...");

    layerForm().show_tooltips.Click();
    EXPECT_TRUE(session->gShowTips);
    moveTo(xIn("order"), yIn(kRaster));
    EXPECT_EQ(tip(), "Move lines to before regions");
}

TEST_F(GridEvents, ARightPressOpensThePopupMenuAndThenPicksTheLayerUp) {
    toolkit.queuePopupChoice("show_tooltips");
    g().mouseDown(vbRightButton, 0, xIn("order"), yIn(kLines));
    EXPECT_EQ(toolkit.popups(), std::vector<std::string>{"layers_popup"});
    // The choice ran before the press went on.
    EXPECT_FALSE(session->gShowTips);
    EXPECT_EQ(session->gDragLayer, kLines);
    EXPECT_TRUE(g().Dragging());
    EXPECT_EQ(tip(), "Move lines to before ...");

    g().mouseUp(vbRightButton, 0, xIn("order"), yIn(kLines));
    g().mouseDown(vbRightButton, 0, xIn("visible"), yIn(kLines));
    EXPECT_EQ(toolkit.popups().size(), 2u);
    EXPECT_EQ(session->gDragLayer, 0);
    EXPECT_FALSE(g().Dragging());
}

TEST_F(GridEvents, ThePopupMenuHoldsItsItemsInOrderAndGroupsTheSelectedRows) {
    std::vector<std::string> items;
    for (const platform::MenuItem* item : layerForm().layers_popup.Items())
        items.push_back(item->isSeparator() ? "-" : item->Name() + " " + item->Caption());
    EXPECT_EQ(items, (std::vector<std::string>{
                         "Expand_Row Expand row height to fit",
                         "show_tooltips Show tool tips",
                         "-",
                         "View_Entire View Entire Selected",
                         "-",
                         "Add_Layer Insert Layer",
                         "Remove_layer Remove layer",
                         "-",
                         "Group_selected Group selected layers",
                         "Ungroup_layers Ungroup layers",
                         "remove_group_prefs Remove saved map group details",
                         "-",
                         "VL_on_top Keep Vellant on top",
                         "show_MI_statusbar Show MapInfo status bar",
                         "Save_user_position Save user position",
                         "self_test Self test",
                     }));

    toolkit.queuePopupChoice("Expand_Row");
    g().mouseDown(vbRightButton, 0, xIn("visible"), yIn(kRegions));
    EXPECT_FALSE(layerForm().Expand_Row.Checked());

    selectRows(kRaster, kLines);
    toolkit.queuePopupChoice("Group_selected");
    g().mouseDown(vbRightButton, 0, xIn("visible"), yIn(kRegions));
    EXPECT_NE(session->gLayerGroup[kRaster], "");
    EXPECT_EQ(session->gLayerGroup[kLines], session->gLayerGroup[kRaster]);
    EXPECT_EQ(session->gLayerGroup[kText], "");
}

TEST_F(GridEvents, AKeyOnTheFloatingFormGoesToTheClickWithTheKeyInFrontOfTheText) {
    g().setTextMatrix(row(kLines), col("group"), "roads");
    g().setRow(row(kLines));
    g().setCol(col("group"));
    session->gMouseX = xIn("group");
    session->gMouseY = yIn(kLines);

    std::string opened;
    toolkit.addStep([&] {
        opened = interaction::editCellForm(*session).ecell.Text();
        interaction::editCellForm(*session).ecell_KeyDown(kTab);
    });
    g().keyPress(kEnter);
    EXPECT_EQ(opened, "\rroads");
    EXPECT_EQ(session->gCellText, "");
}

TEST_F(GridEvents, AScrollPlacesTheColumnGlyphsAgain) {
    session->gGlyphColPos = -1;
    g().setLeftCol(5);
    EXPECT_EQ(session->gGlyphColPos, g().ColPos(g().Cols() - 1));
}

TEST_F(DockedGridEvents, TheDockedFormOffersViewEntireAndNamesTheMapOverTheLayerNames) {
    selectRows(kRaster, kLines);
    EXPECT_TRUE(layerForm().View_Entire.Enabled());
    g().mouseDown(vbLeftButton, 0, xIn("visible"), yIn(kText));
    EXPECT_TRUE(layerForm().View_Entire.Enabled());
    g().mouseUp(vbLeftButton, 0, xIn("visible"), yIn(kText));

    session->gMapPrefName = "Tasmania roads";
    // A move within the column of the last tip leaves the tip alone, so come from elsewhere.
    moveTo(xIn("visible"), yIn(kLines));
    moveTo(firstColumnX(), static_cast<float>(g().RowHeight(0) / 2));
    EXPECT_EQ(tip(), "Tasmania roads");
    moveTo(xIn("visible"), yIn(kLines));
    moveTo(firstColumnX(), yIn(kLines));
    EXPECT_EQ(tip(), session->gColTip[0]);
}

TEST_F(DockedGridEvents, TheDockedFormNamesTheLayerUnderTheMouseAndLogsDropsAsItsOwn) {
    g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(kPoints));
    moveTo(xIn("order"), yIn(kRaster));
    EXPECT_EQ(tip(), "Move points to before raster");
    g().mouseUp(vbLeftButton, 0, xIn("order"), dropY(g().Rows() + 1));
    EXPECT_TRUE(logged("From lyrgridDragdrop Invalid Row value")) << log();
    EXPECT_TRUE(orders().empty());
}

TEST_F(DockedGridEvents, OnlyPrintableKeysReachTheDockedFormsClick) {
    g().setTextMatrix(row(kLines), col("group"), "roads");
    g().setRow(row(kLines));
    g().setCol(col("group"));
    session->gMouseX = xIn("group");
    session->gMouseY = yIn(kLines);

    std::vector<std::string> opened;
    auto take = [&] {
        opened.push_back(interaction::editCellForm(*session).ecell.Text());
        interaction::editCellForm(*session).ecell_KeyDown(kTab);
    };
    toolkit.addStep(take);
    g().keyPress(kEnter);
    toolkit.addStep(take);
    g().keyPress('x');
    EXPECT_EQ(opened, (std::vector<std::string>{"roads", "xroads"}));
    EXPECT_EQ(session->gLayerGroup[kLines], "xroads");
}

// Without the host's layer object the handle cannot name the layer it picks up.
TEST_F(GridEvents, AFailedPressIsLoggedUnderTheFloatingFormsName) {
    session->gLyr.reset();
    g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(kLines));
    EXPECT_NE(log().find("\"From lyrgrid_mousedown "), std::string::npos) << log();
}

TEST_F(DockedGridEvents, AFailedPressIsLoggedUnderTheDockedFormsName) {
    session->gLyr.reset();
    g().mouseDown(vbLeftButton, 0, xIn("order"), yIn(kLines));
    EXPECT_NE(log().find("\"From mousedown "), std::string::npos) << log();
}

// In a whole session the form's load has switched the tips on, and a drag changes the view map
// alone: the user's map keeps its order when the session is cancelled.
class SessionGridEvents : public vellant::testing::HostSession {
protected:
    std::string names(int window) {
        std::string all;
        for (int n = 1; n <= 4; ++n)
            all += (n > 1 ? "," : "") +
                   eval("LayerInfo(" + Str(window) + "," + Str(n) + "," + Str(kNameCode) + ")");
        return all;
    }
};

TEST_F(SessionGridEvents, ADragInTheFloatingFormMovesTheViewsLayerOnly) {
    step([&](session::Session& s) {
        EXPECT_TRUE(s.gShowTips);
        platform::FlexGrid& grid = s.layerForm().LyrGrid;
        const float x = static_cast<float>(grid.ColPos(1) + grid.ColWidth(1) / 2);
        const int mixed = LayerToRow(s, 4);
        grid.mouseDown(vbLeftButton, 0, x, static_cast<float>(grid.RowPos(mixed) + 10));
        grid.mouseUp(vbLeftButton, 0, x,
                     static_cast<float>(grid.RowHeight(0) + 2.5 * grid.RowHeight(1)));
        EXPECT_EQ(names(s.gViewWin), "points,mixed,regions,text");
        EXPECT_EQ(grid.TextMatrix(LayerToRow(s, 2), 0), "mixed");
    });
    pressCancel();
    runMapInfoLayer();
    EXPECT_EQ(names(userMap), "points,regions,text,mixed");
}

} // namespace
} // namespace vellant::grid::testing
