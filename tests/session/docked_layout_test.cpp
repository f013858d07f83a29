// The docked form on MapInfo's bottom edge: its place for each way MapInfo's main window can
// stand, the height it chooses, its timer, and the window items. Every form length is in
// twips; MapInfo's window is placed in pixels of a 1920 by 1080 screen.

#include "base/int16.h"
#include "interaction/toggle_cycle.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/window_settings.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace vellant::testing {
namespace {

constexpr std::int32_t kMapInfoWindow = 0x7000;
constexpr platform::WindowRect kMapInfoRect{100, 50, 1300, 950};

class DockedLayout : public SessionFixture {
protected:
    DockedLayout() {
        docked = std::make_unique<session::vlLayerDocked>(toolkit);
        docked->session = session.get();
        session->gLayerForm = docked.get();
        session->gIsMapInfo = kTrue;
        session->gMIHwnd = kMapInfoWindow;
        session->gFormReady = kTrue;
        session->gOnTop = kTrue;
        // A header and five layers of the default 240.
        docked->LyrGrid.setRows(6);
        prefs::getotherprefs(*session);
        placeMapInfo(platform::SW_SHOWNORMAL);
    }

    void placeMapInfo(int showCmd, platform::WindowRect normal = kMapInfoRect) {
        platform::WindowPlacement placement;
        placement.showCmd = showCmd;
        placement.rcNormalPosition = normal;
        toolkit.setWindowPlacement(kMapInfoWindow, placement);
    }

    // As the load leaves the form: laid out once, the timer at its first rate, no tick yet.
    void settleAsLoaded() {
        docked->Resize_LayerForm();
        docked->Timer1.setInterval(100);
        docked->Timer1.setEnabled(true);
        session->gDockedFormHeight = 0;
    }

    struct Geometry {
        int left, top, width, height;
        int gridLeft, gridTop, gridWidth, gridHeight;
        bool operator==(const Geometry&) const = default;
    };
    Geometry geometry() const {
        const platform::FlexGrid& grid = docked->LyrGrid;
        return {docked->Left(), docked->Top(), docked->Width(), docked->Height(),
                grid.Left(),    grid.Top(),    grid.Width(),    grid.Height()};
    }

    std::unique_ptr<session::vlLayerDocked> docked;
};

struct PlaceCase {
    std::string name;
    int showCmd;
    bool statusBar;
    int left, top, width;
};

class DockedPlace : public DockedLayout, public ::testing::WithParamInterface<PlaceCase> {};

// Four rows of 240 and the grid's border make the height 1000 in every case.
TEST_P(DockedPlace, TheFormSpansMapInfosBottomEdgeAboveItsStatusBar) {
    const PlaceCase& c = GetParam();
    session->gShowMIStatusbar = toFlag(c.statusBar);
    placeMapInfo(c.showCmd);

    docked->Resize_LayerForm();

    EXPECT_EQ(docked->Left(), c.left);
    EXPECT_EQ(docked->Top(), c.top);
    EXPECT_EQ(docked->Width(), c.width);
    EXPECT_EQ(docked->Height(), 1000);
    const platform::FlexGrid& grid = docked->LyrGrid;
    EXPECT_EQ(grid.Left(), docked->ToggleStatusPic(0).Left());
    EXPECT_EQ(grid.Top(), 20);
    EXPECT_EQ(grid.Height(), 960);
    EXPECT_EQ(grid.Width(), c.width - 1500 - 25 - grid.Left());
    EXPECT_EQ(docked->Buttonframe.Left(), c.width - 1500 - 25);
    EXPECT_EQ(docked->Buttonframe.Top(), 20);
    EXPECT_FALSE(docked->Mapframe.Visible());
    EXPECT_FALSE(docked->MapPropsFrame.Visible());
    EXPECT_FALSE(docked->MapButtonFrame.Visible());
    // Put back in sight, the form takes the window order the user chose.
    EXPECT_TRUE(toolkit.isTopmost(docked->hWnd()));
    EXPECT_TRUE(docked->VL_on_top.Checked());
    EXPECT_EQ(session->gFormWidthSaved, c.width);
    EXPECT_EQ(session->gFormHeightSaved, 1000);
}

INSTANTIATE_TEST_SUITE_P(
    ShowStates, DockedPlace,
    ::testing::Values(
        PlaceCase{"Normal", 1, false, 1500, 950 * 15 - 1000, 1200 * 15},
        PlaceCase{"RestoredWithStatusBar", 9, true, 1500, 950 * 15 - 1000 - 300, 1200 * 15},
        PlaceCase{"Maximised", 3, false, 0, 1080 * 15 - 1000, 1920 * 15},
        PlaceCase{"MaximisedWithStatusBar", 3, true, 0, 1080 * 15 - 1000 - 300, 1920 * 15}),
    [](const ::testing::TestParamInfo<PlaceCase>& c) { return c.param.name; });

TEST_F(DockedLayout, MinimisedMapInfoTakesTheFormOutOfSightAndLeavesTheLayoutAlone) {
    for (int minimised : {platform::SW_SHOWMINIMIZED, platform::SW_MINIMIZE}) {
        placeMapInfo(platform::SW_SHOWNORMAL);
        docked->Resize_LayerForm();
        const Geometry before = geometry();
        const auto saved = std::make_pair(session->gFormWidthSaved, session->gFormHeightSaved);
        placeMapInfo(minimised, {0, 0, 400, 300});
        const std::size_t calls = toolkit.windowPosCalls().size();

        docked->Resize_LayerForm();

        ASSERT_EQ(toolkit.windowPosCalls().size(), calls + 1) << minimised;
        const auto& sink = toolkit.windowPosCalls().back();
        EXPECT_EQ(sink.hwnd, docked->hWnd());
        EXPECT_EQ(sink.insertAfter, platform::HWND_BOTTOM);
        EXPECT_EQ(sink.flags, platform::SWP_NOMOVE);
        EXPECT_EQ(geometry(), before) << minimised;
        EXPECT_EQ(std::make_pair(session->gFormWidthSaved, session->gFormHeightSaved), saved);
    }
}

TEST_F(DockedLayout, AnUnhandledShowStateIsLoggedAndTheFormKeepsItsPlace) {
    for (int showCmd : {4, 5, 7, 8}) {
        placeMapInfo(platform::SW_SHOWNORMAL);
        docked->Resize_LayerForm();
        const Geometry before = geometry();
        placeMapInfo(showCmd, {0, 0, 400, 300});

        docked->Resize_LayerForm();

        EXPECT_EQ(geometry(), before) << showCmd;
        EXPECT_NE(log().find("\"Vellant: unhandled MI window position " + std::to_string(showCmd) +
                             "\"\r\n"),
                  std::string::npos);
    }
}

struct HeightCase {
    std::string name;
    bool savePosition;
    std::int16_t dockedHeight;
    int rowHeight;
    int height;
};

class DockedHeight : public DockedLayout, public ::testing::WithParamInterface<HeightCase> {};

TEST_P(DockedHeight, TheFormTakesTheRememberedHeightOrFourRowsAndNeverLessThan140) {
    const HeightCase& c = GetParam();
    session->gSaveUserPosition = toFlag(c.savePosition);
    session->gDockedHeight = c.dockedHeight;
    for (int row = 0; row < docked->LyrGrid.Rows(); ++row)
        docked->LyrGrid.setRowHeight(row, c.rowHeight);

    docked->Resize_LayerForm();

    EXPECT_EQ(docked->Height(), c.height);
    EXPECT_EQ(docked->LyrGrid.Height(), c.height - 40);
    EXPECT_EQ(docked->Top(), 950 * 15 - c.height);
}

INSTANTIATE_TEST_SUITE_P(
    Heights, DockedHeight,
    ::testing::Values(HeightCase{"Remembered", true, 3000, 240, 3000},
                      HeightCase{"FourRowsWhenNotRemembered", false, 3000, 240, 1000},
                      HeightCase{"RememberedButTooLow", true, 100, 240, 140},
                      HeightCase{"FourTinyRows", false, 0, 20, 140}),
    [](const ::testing::TestParamInfo<HeightCase>& c) { return c.param.name; });

TEST_F(DockedLayout, NothingMovesWhileTheFormIsNotReady) {
    session->gFormReady = kFalse;
    const Geometry before = geometry();

    docked->Resize_LayerForm();
    docked->Timer1_Timer();

    EXPECT_EQ(geometry(), before);
    EXPECT_TRUE(toolkit.windowPosCalls().empty());
    EXPECT_EQ(docked->Timer1.Interval(), 0);
}

TEST_F(DockedLayout, TheFirstTickFitsTheFormAndSlowsTheTimerThenTicksDoNothing) {
    settleAsLoaded();
    placeMapInfo(platform::SW_SHOWNORMAL, {100, 50, 1300, 900});

    ASSERT_EQ(toolkit.fireTimers(), 1U);

    EXPECT_EQ(docked->Timer1.Interval(), 1000);
    EXPECT_EQ(docked->Top(), 900 * 15 - 1000);
    EXPECT_EQ(session->gDockedFormHeight, 1000);
    const std::size_t calls = toolkit.windowPosCalls().size();
    const Geometry settled = geometry();

    toolkit.fireTimers();

    EXPECT_EQ(toolkit.windowPosCalls().size(), calls);
    EXPECT_EQ(geometry(), settled);
}

// A toggle cycle puts the first status picture just left of the grid; resizes after it keep
// the grid where it was instead of following the picture.
TEST_F(DockedLayout, AToggleCycleDoesNotWalkTheGridLeftOnLaterResizes) {
    settleAsLoaded();
    const Geometry settled = geometry();
    docked->LyrGrid.setRow(2);
    docked->LyrGrid.setRowSel(3);
    interaction::startToggleCycle(*session);
    ASSERT_EQ(docked->ToggleStatusPic(0).Left(), settled.gridLeft - 480);

    docked->Resize_LayerForm();
    docked->Resize_LayerForm();

    EXPECT_EQ(geometry(), settled);
}

// The user drags the top edge; the bottom edge then is no longer on MapInfo's, and the next
// tick takes the new height as the user's and puts the form back.
TEST_F(DockedLayout, ATickAfterTheUserDragsTheHeightKeepsItAsTheUsersHeight) {
    settleAsLoaded();
    toolkit.fireTimers();
    docked->setHeight(2500);

    toolkit.fireTimers();

    EXPECT_EQ(session->gDockedHeight, 2500);
    EXPECT_EQ(docked->Height(), 2500);
    EXPECT_EQ(docked->Top(), 950 * 15 - 2500);
    EXPECT_EQ(docked->LyrGrid.Height(), 2460);
    EXPECT_EQ(session->gDockedFormHeight, 2500);
}

TEST_F(DockedLayout, OnTopTurnsOverBetweenTopmostAndJustUnderMapInfo) {
    session->gOnTop = kFalse;
    docked->VL_on_top.setChecked(false);

    docked->VL_on_top.Click();

    EXPECT_TRUE(toolkit.isTopmost(docked->hWnd()));
    EXPECT_EQ(session->gOnTop, kTrue);
    EXPECT_TRUE(docked->VL_on_top.Checked());

    docked->VL_on_top.Click();

    EXPECT_FALSE(toolkit.isTopmost(docked->hWnd()));
    EXPECT_EQ(session->gOnTop, kFalse);
    EXPECT_FALSE(docked->VL_on_top.Checked());
    const auto& behind = toolkit.windowPosCalls().back();
    EXPECT_EQ(behind.insertAfter, kMapInfoWindow);
    EXPECT_EQ(behind.flags, platform::SWP_NOMOVE | platform::SWP_NOSIZE);
    EXPECT_EQ(behind.x + behind.y + behind.cx + behind.cy, 0);
}

// Without MapInfo the docked item does nothing; the floating form's item has no such test, and
// the command it sends fails into its handler.
TEST_F(DockedLayout, TheStatusBarItemsOnTheMapXHost) {
    session->gIsMapInfo = kFalse;

    docked->show_MI_statusbar.Click();

    EXPECT_FALSE(docked->show_MI_statusbar.Checked());
    EXPECT_EQ(session->gShowMIStatusbar, kFalse);

    session->gLayerForm = form.get();
    form->session = session.get();
    form->show_MI_statusbar.Click();

    EXPECT_NE(log().find("\"Error from show_MI_statusbar Object variable or With block variable "
                         "not set\"\r\n"),
              std::string::npos);
}

} // namespace
} // namespace vellant::testing
