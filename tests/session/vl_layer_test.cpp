// The public class: one session per call, the restart loop, the MapX entry without MapX, and
// ExitLayer.

#include "base/runtime_error.h"
#include "engine/windows/window_manager.h"
#include "session/closing.h"
#include "session/host_session.h"
#include "session/layer_form.h"

#include <gmock/gmock.h>

namespace vellant::testing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class VlLayerTest : public HostSession {
protected:
    // The toolkit's record of which forms were shown, in order.
    std::vector<std::string> shownForms() const {
        std::vector<std::string> forms;
        for (const auto& show : toolkit.modalShows())
            forms.push_back(show.form);
        return forms;
    }
};

TEST_F(VlLayerTest, TheProgramsClassesExistOnlyWhileASessionRuns) {
    step([&](session::Session& s) {
        EXPECT_EQ(layer.currentSession(), &s);
        EXPECT_TRUE(registry.isRegistered("Vellant.Mapper"));
        EXPECT_TRUE(registry.isRegistered("Vellant.MIPropsLabelStyle"));
    });
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(layer.currentSession(), nullptr);
    EXPECT_FALSE(registry.isRegistered("Vellant.Mapper"));
    EXPECT_FALSE(registry.isRegistered("Vellant.MIProps"));
}

TEST_F(VlLayerTest, RunLayerWithoutMapXAnswersNothingAndShowsNothing) {
    const std::string logBefore = logText();

    EXPECT_EQ(layer.RunLayer(nullptr), "");

    EXPECT_THAT(toolkit.modalShows(), IsEmpty());
    EXPECT_THAT(toolkit.loadedForms(), IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(recorder->calls, IsEmpty());
    // Only the settings reader's own line about the missing settings file.
    EXPECT_EQ(logLines().size(), 1U);
    EXPECT_EQ(logLines().front().rfind("Error from getotherprefs ", 0), 0U);
}

// Undocking ends the docked session with the setting written, and the loop opens the floating
// form at once on what is then MapInfo's front window: the clone the OK made.
TEST_F(VlLayerTest, UndockingRestartsOnTheFrontWindowInTheFloatingForm) {
    writeSettings(0, kTrue);
    step([](session::Session& s) {
        ASSERT_EQ(s.gLayerForm, s.gDockedForm.get());
        s.layerForm().Docked.setValue(0);
    });
    int secondMap = 0;
    step([&](session::Session& s) {
        EXPECT_EQ(s.gLayerForm, s.gFloatingForm.get());
        EXPECT_EQ(s.gDockedForm, nullptr);
        secondMap = s.gMapWin;
    });
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(shownForms(), (std::vector<std::string>{"vlLayerDocked", "vlLayerControl"}));
    EXPECT_EQ(storedSetting(2), 0);
    EXPECT_NE(secondMap, userMap);
    EXPECT_EQ(engine->windows().ids(), std::vector<int>{secondMap});
}

TEST_F(VlLayerTest, ARestartGetsANewFormThatReadsEverythingAfresh) {
    std::string designTip;
    step([&](session::Session& s) {
        designTip = s.layerForm().map_bounds.ToolTipText();
        s.layerForm().map_bounds.setToolTipText("first pass");
        s.gRestart = kTrue;
        session::okclick(s);
    });
    step([&](session::Session& s) {
        EXPECT_EQ(s.layerForm().map_bounds.ToolTipText(), designTip);
        EXPECT_EQ(s.gFormReady, kTrue);
    });
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(shownForms(), (std::vector<std::string>{"vlLayerControl", "vlLayerControl"}));
}

// The second pass cannot make the program's map class; its load fails, and the loop ends
// with the view it had made closed again.
TEST_F(VlLayerTest, AFailingLoadDuringARestartEndsTheLoop) {
    std::string cannotCreate;
    step([&](session::Session& s) {
        registry.unregisterClass("Vellant.Mapper");
        try {
            registry.CreateObject("Vellant.Mapper");
        } catch (const RuntimeError& e) {
            cannotCreate = e.description();
        }
        s.gRestart = kTrue;
        session::okclick(s);
    });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(shownForms(), std::vector<std::string>{"vlLayerControl"});
    EXPECT_THAT(logLines(), Contains("From load vllayer " + cannotCreate));
    EXPECT_EQ(engine->windows().count(), 1);
    EXPECT_FALSE(windowOpen(userMap));
}

TEST_F(VlLayerTest, ExitLayerEndsAFloatingSession) {
    const std::string before = hostState();
    EXPECT_EQ(layer.ExitLayer(), "OK");
    step([&](session::Session&) { EXPECT_EQ(layer.ExitLayer(), "OK"); });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    ASSERT_EQ(toolkit.modalShows().size(), 1U);
    EXPECT_FALSE(toolkit.modalShows().front().endedByToolkit);
    EXPECT_EQ(hostStateBesidesBoundsTable(), before);
}

TEST_F(VlLayerTest, ExitLayerLeavesADockedSessionRunning) {
    writeSettings(0, kTrue);
    step([&](session::Session& s) {
        EXPECT_EQ(layer.ExitLayer(), "OK");
        EXPECT_TRUE(s.layerForm().Visible());
    });
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_EQ(toolkit.modalShows().front().stepsRun, 2U);
}

} // namespace
} // namespace vellant::testing
