// The layer forms' windows in whole sessions on the embedded host: where each form stands
// after its load, how the docked form follows MapInfo's main window on the companion's advice,
// and the window settings that the preference file carries.

#include "engine/host/host_services.h"
#include "platform/control.h"
#include "session/host_session.h"
#include "session/layer_form.h"

#include <gmock/gmock.h>
#include <vector>

namespace vellant::testing {
namespace {

using ::testing::Contains;
using ::testing::Not;

constexpr int kRecordSavePosition = 3;
constexpr int kRecordStatusBar = 4;
constexpr int kRecordDockedHeight = 5;
constexpr int kRecordOnTop = 8;

class WindowSession : public HostSession {
protected:
    void dockedSettings() { writeSettings(0, kTrue); }
};

TEST_F(WindowSession, TheFloatingFormIsLaidOutFromItsGridAtLoad) {
    step([](session::Session& s) {
        const session::LayerForm& form = s.layerForm();
        const platform::FlexGrid& grid = form.LyrGrid;
        const int last = grid.Rows() - 1;
        EXPECT_EQ(grid.Height(), grid.RowPos(last) + grid.RowHeight(last) + 200);
        EXPECT_EQ(form.Mapframe.Top(), grid.Height() + 400);
        EXPECT_EQ(form.Height(), form.Mapframe.Top() + form.Mapframe.Height() + 600);
        EXPECT_TRUE(form.Mapframe.Visible());
        EXPECT_EQ(s.gFormHeightSaved, form.Height());
    });
    pressCancel();

    runMapInfoLayer();

    ASSERT_EQ(toolkit.modalShows().size(), 1U);
    EXPECT_EQ(toolkit.modalShows().front().stepsRun, 2U);
}

// The settings say: on top, status bar kept, height 2000 remembered.
TEST_F(WindowSession, TheDockedFormOpensOnMapInfosEdgeWithTheStoredWindowSettings) {
    dockedSettings();
    writeSetting(kRecordSavePosition, kTrue);
    writeSetting(kRecordStatusBar, kTrue);
    writeSetting(kRecordDockedHeight, 2000);
    writeSetting(kRecordOnTop, kTrue);
    placeMainWindow(platform::SW_SHOWNORMAL, {40, 30, 1240, 830});
    step([this](session::Session& s) {
        session::LayerForm& form = s.layerForm();
        EXPECT_EQ(form.Name(), "vlLayerDocked");
        EXPECT_EQ(form.Left(), 40 * 15);
        EXPECT_EQ(form.Width(), 1200 * 15);
        EXPECT_EQ(form.Height(), 2000);
        EXPECT_EQ(form.Top(), 830 * 15 - 2000 - 300);
        EXPECT_TRUE(toolkit.isTopmost(form.hWnd()));
        EXPECT_TRUE(form.VL_on_top.Checked());
        EXPECT_TRUE(form.show_MI_statusbar.Checked());
        EXPECT_TRUE(form.Save_user_position.Checked());
        EXPECT_TRUE(toolkit.isTimerRunning(form.Timer1));
        EXPECT_EQ(form.Timer1.Interval(), 100);
        EXPECT_EQ(s.gResizing, kFalse);
    });
    // The user no longer wants the status bar: MapInfo hides it and the form drops onto the
    // edge.
    step([](session::Session& s) { s.layerForm().show_MI_statusbar.Click(); });
    step([](session::Session& s) {
        EXPECT_EQ(s.gShowMIStatusbar, kFalse);
        EXPECT_EQ(s.layerForm().Top(), 830 * 15 - 2000);
    });
    pressOK();

    runMapInfoLayer();

    EXPECT_THAT(callsFrom("do Statusbar show"), Contains("do Statusbar hide"));
    EXPECT_EQ(storedSetting(kRecordStatusBar), 0);
    EXPECT_EQ(storedSetting(kRecordDockedHeight), 2000);
}

TEST_F(WindowSession, NotOnTopTheDockedFormGoesJustUnderMapInfo) {
    dockedSettings();
    step([this](session::Session& s) {
        EXPECT_FALSE(toolkit.isTopmost(s.layerForm().hWnd()));
        EXPECT_FALSE(s.layerForm().VL_on_top.Checked());
        ASSERT_FALSE(toolkit.windowPosCalls().empty());
        EXPECT_EQ(toolkit.windowPosCalls().back().insertAfter, mainWindow());
    });
    pressCancel();

    runMapInfoLayer();

    EXPECT_THAT(recorder->calls, Not(Contains("do Statusbar show")));
}

// The companion says "resize" when MapInfo's window moves; a second word finds the form where
// the first put it, and nothing of it changes.
TEST_F(WindowSession, TwoResizeAdvicesInARowMoveNothingTheSecondTime) {
    dockedSettings();
    std::vector<platform::Property> changes;
    std::vector<std::pair<platform::Control*, int>> watched;
    step([&](session::Session&) {
        placeMainWindow(platform::SW_SHOWNORMAL, {200, 100, 1000, 700});
        companion().giveAdvice("resize");
    });
    step([&](session::Session& s) {
        session::LayerForm& form = s.layerForm();
        EXPECT_EQ(form.Left(), 200 * 15);
        EXPECT_EQ(form.Width(), 800 * 15);
        EXPECT_EQ(form.Top(), 700 * 15 - form.Height());
        for (platform::Control* control :
             {static_cast<platform::Control*>(&form),
              static_cast<platform::Control*>(&form.LyrGrid), &form.Buttonframe})
            watched.emplace_back(control,
                                 control->subscribe([&](platform::Control&, platform::Property p) {
                                     changes.push_back(p);
                                 }));
        companion().giveAdvice("resize");
        for (auto& [control, token] : watched)
            control->unsubscribe(token);
    });
    pressCancel();

    runMapInfoLayer();

    EXPECT_TRUE(changes.empty()) << changes.size() << " properties changed";
    ASSERT_EQ(toolkit.modalShows().size(), 1U);
    EXPECT_EQ(toolkit.modalShows().front().stepsRun, 3U);
}

} // namespace
} // namespace vellant::testing
