// Toggle cells over a loaded grid on the embedded host: the four steps a row set walks through,
// a second column taking over the cycle, one row flipping at every click, and the columns that
// are not plain on/off (override on showing again, label zoom, label line, orientation).

#include "../session/recording_mapinfo.h"
#include "base/basic_text.h"
#include "clicking_grid.h"
#include "interaction/grid_click.h"
#include "interaction/label_orientation.h"
#include "interaction/toggle_cycle.h"
#include "platform/form.h"
#include "platform/toolkit.h"

#include <vector>

namespace vellant::grid::testing {
namespace {

// LayerInfo codes.
constexpr int kDisplayMode = 9;
constexpr int kAutolabel = 28;
constexpr int kZoomLayered = 4;
constexpr int kLabelVisibility = 25; // 1 off, 2 by zoom, 3 on
constexpr int kLabelLine = 16;
constexpr int kLabelPosition = 20;

class ToggleCycle : public ClickingGrid {
protected:
    bool shown(int layer) { return info(layer, kDisplayMode) != "0"; }
    std::vector<bool> shownRows() { return {shown(kRegions), shown(kLines), shown(kPoints)}; }
    std::vector<bool> flagRows(int code) {
        return {info(kRegions, code) == "T", info(kLines, code) == "T", info(kPoints, code) == "T"};
    }
};

using Rows = std::vector<bool>;

TEST_F(ToggleCycle, ARowSetWalksFlipEachThenModelFlippedThenModelOriginalThenEachOriginal) {
    setViewLayer(kLines, "Display Off");
    load();
    selectRows(kRegions, kPoints);
    EXPECT_EQ(session->gSelFirst, kRegions);
    EXPECT_EQ(session->gSelLast, kPoints);
    EXPECT_EQ(visibleStatusPicture(), 0);
    EXPECT_EQ(form->ToggleStatusPic(0).Top(), grid().Top());

    struct Step {
        Rows after;
        int nextPicture;
    };
    // The model row is regions, shown at the start; lines starts hidden.
    const Step steps[] = {
        {{false, true, false}, 1},
        {{false, false, false}, 2},
        {{true, true, true}, 3},
        {{true, false, true}, 0},
    };
    int n = 0;
    for (const Step& step : steps) {
        click(kRegions, "visible");
        EXPECT_EQ(shownRows(), step.after) << "step " << n;
        EXPECT_EQ(picture(kLines, "visible"), step.after[1] ? "Image1" : "Image2") << "step " << n;
        EXPECT_EQ(visibleStatusPicture(), step.nextPicture) << "step " << n;
        EXPECT_EQ(session->gToggleStep, step.nextPicture) << "step " << n;
        ++n;
    }
    // Round again from a click on another row: the model stays the row of the very first
    // click, so step 1 takes regions' setting, not lines'.
    click(kLines, "visible");
    EXPECT_EQ(shownRows(), (Rows{false, true, false}));
    click(kLines, "visible");
    EXPECT_EQ(shownRows(), (Rows{false, false, false}));
    EXPECT_EQ(session->gToggleRow, kRegions);

    interaction::endToggleCycle(*session);
    EXPECT_EQ(visibleStatusPicture(), -1);
    EXPECT_EQ(session->gSelFirst, 0);
    EXPECT_EQ(session->gSelLast, 0);
    EXPECT_EQ(session->gToggleStep, 0);
    EXPECT_EQ(session->gToggleRow, 0);
}

TEST_F(ToggleCycle, AnotherColumnMidCycleTakesUpTheStepAndTheFirstColumnsSavedSettings) {
    setViewLayer(kRegions, "Label Auto On");
    load();
    ASSERT_EQ(flagRows(kAutolabel), (Rows{true, false, false}));
    ASSERT_EQ(flagRows(kZoomLayered), (Rows{false, false, false}));
    selectRows(kRegions, kPoints);

    click(kRegions, "autolabel"); // step 0: each flips, regions' "on" is the model's
    EXPECT_EQ(flagRows(kAutolabel), (Rows{false, true, true}));
    click(kLines, "visible"); // step 1: the opposite of the model's saved "on", on all
    EXPECT_EQ(shownRows(), (Rows{false, false, false}));
    click(kPoints, "visible"); // step 2: the model's saved "on", on all
    EXPECT_EQ(shownRows(), (Rows{true, true, true}));
    click(kLines, "zoom layer"); // step 3: the autolabel originals, in another column
    EXPECT_EQ(flagRows(kZoomLayered), (Rows{true, false, false}));
    EXPECT_EQ(flagRows(kAutolabel), (Rows{false, true, true}));
}

TEST_F(ToggleCycle, WithoutARowSetEveryClickFlipsTheRowAndNoPictureShows) {
    load();
    click(kLines, "visible");
    EXPECT_FALSE(shown(kLines));
    click(kLines, "visible");
    EXPECT_TRUE(shown(kLines));
    EXPECT_EQ(picture(kLines, "visible"), "Image1");
    EXPECT_EQ(session->gToggleStep, 0);
    EXPECT_EQ(visibleStatusPicture(), -1);
}

TEST_F(ToggleCycle, ALayerOverriddenAtLoadGetsItsGlobalDisplayBackWhenShownAgain) {
    setViewLayer(kRegions, "Display Off");
    setViewLayer(kLines, "Display Off");
    load();
    session->gOrigOverride[kRegions] = true;
    session->gStyleValue = "Brush (2,255,0)";

    click(kRegions, "visible");
    EXPECT_EQ(info(kRegions, kDisplayMode), "2");
    EXPECT_EQ(session->gStyleValue, "");

    session->gStyleValue = "Brush (2,255,0)";
    click(kLines, "visible");
    EXPECT_EQ(info(kLines, kDisplayMode), "1");
    EXPECT_EQ(session->gStyleValue, "Brush (2,255,0)");
}

TEST_F(ToggleCycle, LabelZoomCyclesAlwaysByZoomNoLabelsOnEveryClickOfItsOwn) {
    setViewLayer(kRegions, "Label Visibility On");
    load();
    ASSERT_EQ(info(kRegions, kLabelVisibility), "3");
    struct State {
        const char* visibility;
        const char* picture;
    };
    const State cycle[] = {
        {"1", "Image2"},        // no labels
        {"2", "LabelVisZmPic"}, // by zoom
        {"3", "LabelVisOnPic"}, // always
        {"1", "Image2"},
    };
    selectRows(kRegions, kLines);
    for (const State& state : cycle) {
        click(kRegions, "label zoom");
        EXPECT_EQ(info(kRegions, kLabelVisibility), state.visibility);
        EXPECT_EQ(picture(kRegions, "label zoom"), state.picture);
    }
}

TEST_F(ToggleCycle, LabelLineStepsNoneSimpleArrowAndThenSendsNoKeyword) {
    load();
    ASSERT_EQ(info(kLines, kLabelLine), "0");
    click(kLines, "label line");
    EXPECT_EQ(info(kLines, kLabelLine), "1");
    EXPECT_EQ(picture(kLines, "label line"), "Linestylelinepic");
    click(kLines, "label line");
    EXPECT_EQ(info(kLines, kLabelLine), "2");
    EXPECT_EQ(picture(kLines, "label line"), "Linestylearrowpic");

    auto recorder = std::make_shared<vellant::testing::RecordingMapInfo>(app);
    session->gMapInfo = recorder;
    click(kLines, "label line");
    const std::string bare =
        "do set map window " + Str(view) + " Layer " + Str(kLines) + " Label Line ";
    EXPECT_EQ(recorder->callsStartingWith(bare).front(), bare);
    EXPECT_EQ(info(kLines, kLabelLine), "2");
}

TEST_F(ToggleCycle, LabelOrientOpensThePickerAtTheLayersPositionAndTheFormReturnsOnTop) {
    load();
    session->gOnTop = kTrue;
    const std::string position = info(kLines, kLabelPosition);
    int offered = -1;
    bool formTopmost = true;
    toolkit.addStep([&] {
        interaction::Label_Orientation& picker = interaction::labelOrientationForm(*session);
        for (int i = 0; i <= 8; ++i)
            if (picker.LabOrient(i).Value()) offered = i;
        formTopmost = toolkit.isTopmost(form->hWnd());
        picker.LabOrient_DblClick(1);
    });
    click(kLines, "label orient");
    EXPECT_EQ(offered, Val(position));
    EXPECT_FALSE(formTopmost);
    EXPECT_TRUE(toolkit.isTopmost(form->hWnd()));
    EXPECT_EQ(picture(kLines, "label orient"), "LabelOrient1");
    EXPECT_EQ(toolkit.modalShows().size(), 1u);
}

TEST_F(ToggleCycle, FailuresAreLoggedUnderEachProceduresName) {
    load();
    onLayer(kLines);
    session->gRow = 1001; // past the layer arrays
    interaction::togglecell(*session, "visible", true);
    EXPECT_NE(log().find("\"Error from togglecell "), std::string::npos) << log();
    EXPECT_TRUE(shown(kLines));

    session->gRow = kLines;
    session->gCol = col("visible");
    session->gLyr.reset();
    interaction::dotoggles(*session);
    EXPECT_NE(log().find("\"dotoggles "), std::string::npos) << log();
}

} // namespace
} // namespace vellant::grid::testing
