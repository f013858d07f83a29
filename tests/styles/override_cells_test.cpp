// The style cells through the user's clicks: what a load shows, turning an override off, and the
// pick that spans two calls, on one row, a row set and a collapsed group, answered or cancelled
// in the host's dialog.

#include "base/basic_text.h"
#include "engine/host/companion.h"
#include "hostmodel/mapinfo_app.h"
#include "interaction/double_click.h"
#include "styles/style_grid.h"

#include <algorithm>

namespace vellant::grid::testing {
namespace {

class StyleCells : public StyleGrid {
protected:
    StyleCells() {
        load();
        recorder->calls.clear();
    }
    std::string overrideCommand(int layer, const std::string& style) {
        return "do set map window " + Str(view) + " Layer " + Str(layer) +
               " Display Global Global " + style;
    }
    bool sent(const std::string& call) {
        return std::find(recorder->calls.begin(), recorder->calls.end(), call) !=
               recorder->calls.end();
    }
};

TEST_F(StyleCells, ALoadShowsEachKindsStyleCellAndTheOverridesSample) {
    EXPECT_EQ(picture(kRegions, "style"), "RgnStylePic");
    EXPECT_EQ(picture(kLines, "style"), "LineStyleOffPic");
    EXPECT_EQ(picture(kPoints, "style"), "SymStyleOffPic");
    EXPECT_EQ(picture(kText, "style"), "TxtStyleOffPic");
    EXPECT_GT(pixelsNear(bitmap(kRegions, "override"), kRed), 20);
    EXPECT_TRUE(cell(kLines, "override").picture.empty());
    // Labels shown have their font's sample; the cosmetic layer has no style at all.
    EXPECT_TRUE(cell(kLines, "label properties").picture.bitmap);
    EXPECT_TRUE(gray(0, "style"));
    EXPECT_TRUE(gray(0, "override"));
    EXPECT_TRUE(cell(kRaster, "style").picture.empty());
    EXPECT_EQ(session->gStyleWin, 0);
    EXPECT_EQ(samplesLeft(), 0);
}

TEST_F(StyleCells, AClickOnAnOverriddenRowTurnsItOffWithoutADialog) {
    click(kRegions, "style");
    EXPECT_FALSE(companion().styleDialogPending());
    EXPECT_TRUE(
        sent("do set map window " + Str(view) + " Layer " + Str(kRegions) + " Display Graphic"));
    EXPECT_EQ(display(kRegions), 1);
    EXPECT_EQ(picture(kRegions, "style"), "RgnStyleOffPic");
    EXPECT_FALSE(session->gOrigOverride[kRegions]);
    EXPECT_TRUE(session->gFormReady);
}

TEST_F(StyleCells, APickOnOneRowDrawsItsSampleAndGivesTheLayerTheStyleAsALine) {
    click(kLines, "style");
    const engine::StyleDialogRequest request = takeDialog();
    EXPECT_EQ(request.kind, engine::StyleDialogKind::Line);
    EXPECT_EQ(request.startClause, "Pen (1,2,0)");
    // One row does not wait: the grid and the form's call-backs are back before the dialog.
    EXPECT_TRUE(session->gFormReady);
    EXPECT_TRUE(grid().Redraw());

    answerDialog("Pen (3,2,255)");
    EXPECT_TRUE(sent(overrideCommand(kLines, "Line (3,2,255)")));
    EXPECT_EQ(display(kLines), 2);
    EXPECT_EQ(picture(kLines, "style"), "LinestylePic");
    EXPECT_GT(pixelsNear(bitmap(kLines, "override"), kBlue), 10);
    EXPECT_EQ(session->gStyleWin, 0);
    EXPECT_EQ(samplesLeft(), 0);
    EXPECT_EQ(log(), "");
}

TEST_F(StyleCells, ASymbolGrowsItsRowAndATextStyleIsTheLabelFontToo) {
    click(kPoints, "style");
    answerDialog("Symbol (35,65280,24)");
    EXPECT_EQ(grid().RowHeight(row(kPoints)), 24 * 20);
    EXPECT_GE(grid().ColWidth(col("override")), 24 * 40);

    click(kText, "style");
    answerDialog("Font (\"DejaVu Sans\",1,14,255)");
    EXPECT_EQ(info(kText, 14), "Font (\"DejaVu Sans\",1,14,255)");
    EXPECT_EQ(info(kText, 18), "Font (\"DejaVu Sans\",1,14,255)");
    EXPECT_EQ(grid().RowHeight(row(kText)), 14 * 20);
}

TEST_F(StyleCells, ACancelledPickLeavesTheLayerAsItWasThoughTheCellShowsOn) {
    click(kLines, "style");
    answerDialog(std::nullopt);
    EXPECT_EQ(display(kLines), 1);
    EXPECT_TRUE(cell(kLines, "override").picture.empty());
    // Cell and layer disagree until the next load.
    EXPECT_EQ(picture(kLines, "style"), "LinestylePic");
    EXPECT_TRUE(session->gFormReady);
    EXPECT_TRUE(grid().Redraw());
}

TEST_F(StyleCells, ARowSetWaitsForOnePickThatCoversEveryRow) {
    selectRows(kRegions, kPoints);
    click(kLines, "style"); // the clicked row has no override: the set's first row asks
    EXPECT_EQ(takeDialog().kind, engine::StyleDialogKind::Line);
    // The walk ended at the first row: the grid stays frozen until the pick comes back.
    EXPECT_FALSE(session->gFormReady);
    EXPECT_FALSE(grid().Redraw());
    EXPECT_EQ(recorder->callsStartingWith("do Save Window").size(), 0U);

    answerDialog("Pen (2,2,65280)");
    for (int layer : {kRegions, kLines, kPoints}) {
        EXPECT_TRUE(sent(overrideCommand(layer, "Line (2,2,65280)"))) << layer;
        EXPECT_TRUE(cell(layer, "override").picture.bitmap) << layer;
    }
    EXPECT_EQ(recorder->callsStartingWith("do Save Window").size(), 1U);
    EXPECT_TRUE(session->gFormReady);
    EXPECT_TRUE(grid().Redraw());
}

TEST_F(StyleCells, ARowSetWhoseClickedRowHasAnOverrideTurnsEveryRowOff) {
    setViewLayer(kLines, "Display Global Global Line (1,2,255)");
    selectRows(kRegions, kPoints);
    click(kRegions, "style");
    EXPECT_FALSE(companion().styleDialogPending());
    for (int layer : {kRegions, kLines, kPoints})
        EXPECT_EQ(display(layer), 1) << layer;
    EXPECT_TRUE(session->gFormReady);
}

TEST_F(StyleCells, APickForACollapsedGroupReachesOnlyTheGroupsRows) {
    for (int layer : {kLines, kText})
        session->gLayerGroup[layer] = "ways";
    session->gRowExpanded[kLines] = kFalse;
    session->gRowExpanded[kText] = kFalse;
    click(kLines, "style");
    answerDialog("Pen (1,2,255)");
    EXPECT_EQ(display(kLines), 2);
    EXPECT_EQ(display(kText), 2);
    for (int layer : {kQuery, kPoints, kMixed})
        EXPECT_EQ(display(layer), 1) << layer;
    EXPECT_FALSE(cell(kPoints, "override").picture.bitmap);
}

TEST_F(StyleCells, TheLabelFontPickedForARowSetReachesEveryRow) {
    selectRows(kLines, kText);
    click(kPoints, "label properties");
    const engine::StyleDialogRequest request = takeDialog();
    EXPECT_EQ(request.kind, engine::StyleDialogKind::Text);
    EXPECT_EQ(recorder->callsStartingWith("companion").size(), 0U);
    EXPECT_FALSE(session->gFormReady);

    const std::string font = "Font (\"DejaVu Serif\",2,12,16711680)";
    answerDialog(font);
    for (int layer : {kLines, kPoints, kText}) {
        EXPECT_EQ(info(layer, 18), font) << layer;
        EXPECT_EQ(info(layer, 25), info(kLines, 25)) << layer;
    }
    EXPECT_TRUE(session->gFormReady);
}

TEST_F(StyleCells, ALabelCellClickedOnOneRowHidesOrShowsItsLabelsAndAsksForAFontWhenShown) {
    ASSERT_EQ(info(kLines, 25), "3");
    click(kLines, "label properties");
    EXPECT_EQ(info(kLines, 25), "1");
    EXPECT_EQ(picture(kLines, "label properties"), "TxtStyleOffPic");
    EXPECT_FALSE(companion().styleDialogPending());

    click(kLines, "label properties");
    EXPECT_EQ(info(kLines, 25), "3");
    EXPECT_EQ(takeDialog().startClause, "Font(\"Arial\",0,9,0)");
    answerDialog("Font (\"Arial\",0,18,0)");
    EXPECT_EQ(info(kLines, 18), "Font (\"Arial\",0,18,0)");
    EXPECT_TRUE(cell(kLines, "label properties").picture.bitmap);
    EXPECT_EQ(grid().RowHeight(row(kLines)), 18 * 20);
}

// A host whose layer shows in a display mode the program does not know.
class UnknownDisplayMode : public vellant::testing::RecordingMapInfo {
public:
    UnknownDisplayMode(std::shared_ptr<hostmodel::MapInfoApp> host, std::string asked)
        : RecordingMapInfo(std::move(host)), asked_(std::move(asked)) {}
    std::string eval(const std::string& expression) override {
        return expression == asked_ ? "7" : RecordingMapInfo::eval(expression);
    }

private:
    std::string asked_;
};

TEST_F(StyleCells, AStyleTypeTheProgramDoesNotKnowIsLoggedAndCountsAsNoOverride) {
    session->gMapInfo = std::make_shared<UnknownDisplayMode>(app, "LayerInfo(" + Str(view) + "," +
                                                                      Str(kLines) + ",9)");
    click(kLines, "style");
    EXPECT_TRUE(logged("style type 7 not yet supported")) << log();
    EXPECT_EQ(takeDialog().kind, engine::StyleDialogKind::Line);
}

TEST_F(StyleCells, AViewClosedWhileAPickWaitsIsToldInAMessageAndTheSessionGoesOn) {
    click(kLines, "style");
    run("Close Window " + Str(view));
    answerDialog("Pen (1,2,255)");
    ASSERT_FALSE(toolkit.messages().empty());
    EXPECT_EQ(toolkit.messages().back().prompt.rfind("overridestyle:", 0), 0U);
    EXPECT_EQ(samplesLeft(), 0);
    EXPECT_TRUE(session->gFormReady);
}

} // namespace
} // namespace vellant::grid::testing
