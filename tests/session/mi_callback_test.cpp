// MapInfo's calls into the program during a session: the companion's advice words, the docked
// pad's button, and the report of changed windows.

#include "base/basic_text.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/windows/window_manager.h"
#include "session/host_session.h"
#include "session/layer_form.h"

#include <gmock/gmock.h>

namespace vellant::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CallbackTest : public HostSession {
protected:
    void expectSessionGoesOn() {
        step([](session::Session& s) { EXPECT_TRUE(s.layerForm().Visible()); });
    }
    void expectEndedByProgram() {
        ASSERT_EQ(toolkit.modalShows().size(), 1U);
        EXPECT_FALSE(toolkit.modalShows().front().endedByToolkit);
    }
};

TEST_F(CallbackTest, ExitVlCancelsTheSession) {
    const std::string before = hostState();
    step([&](session::Session&) { companion().giveAdvice("exit vl"); });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    expectEndedByProgram();
    EXPECT_EQ(hostStateBesidesBoundsTable(), before);
    EXPECT_THAT(messages(), IsEmpty());
}

// The advice word stays in the global, and the tests go in order: a leftover "resize" wins
// over a press of 2002, which ends the session only once the word is gone.
TEST_F(CallbackTest, TheDockedPadsButtonEndsTheSessionUnlessAResizeIsLeftOver) {
    writeSettings(0, kTrue);
    step([&](session::Session&) {
        companion().setGlobal("VLadvice", "resize");
        engine->host().pressButton("Callback", 2002);
    });
    expectSessionGoesOn();
    step([&](session::Session&) {
        companion().setGlobal("VLadvice", "");
        engine->host().pressButton("Callback", 2002);
    });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    expectEndedByProgram();
    EXPECT_EQ(toolkit.modalShows().front().form, "vlLayerDocked");
    EXPECT_EQ(toolkit.modalShows().front().stepsRun, 3U);
    EXPECT_EQ(engine->windows().ids(), std::vector<int>{userMap});
    EXPECT_THAT(messages(), IsEmpty());
}

// MapInfo is going away: the session lets go of it at once and asks it nothing more, so the
// host keeps the hidden status bar and the pad.
TEST_F(CallbackTest, ExitMapInfoLetsGoOfTheHostWithoutSavingAnything) {
    std::size_t callsAtExit = 0;
    std::size_t logAtExit = 0;
    step([&](session::Session& s) {
        logAtExit = logText().size();
        companion().hostClosing();
        callsAtExit = recorder->calls.size();
        EXPECT_EQ(s.gMapInfo, nullptr);
        EXPECT_EQ(s.gMBGlobals, nullptr);
        EXPECT_EQ(s.gCallback, nullptr);
        EXPECT_FALSE(s.layerForm().Visible());
        app->close();
    });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    expectEndedByProgram();
    EXPECT_EQ(recorder->calls.size(), callsAtExit);
    EXPECT_EQ(logText().size(), logAtExit);
    EXPECT_FALSE(engine->host().statusBarVisible());
    EXPECT_NE(engine->host().findButtonPad("Callback"), nullptr);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(dir.file("Vellant.prf")));
}

TEST_F(CallbackTest, AnUnknownWordIsReportedAndTheSessionGoesOn) {
    step([&](session::Session&) { companion().giveAdvice("jump"); });
    expectSessionGoesOn();
    pressOK();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), ElementsAre("Unknown update advice from Vellant.mbx"));
    EXPECT_FALSE(windowOpen(userMap));
}

// The word is lower-cased first; the style answer gives the host's dialogs back and opens
// the gate that the style request closed.
TEST_F(CallbackTest, StyleInAnyCaseEndsTheStyleDialogWait) {
    step([&](session::Session& s) {
        s.gFormReady = kFalse;
        // The load's samples gave the host's window back too; only the advice's calls count.
        recorder->calls.clear();
        companion().giveAdvice("Style");
        EXPECT_EQ(s.gFormReady, kTrue);
        // Nothing was chosen: the pick's end only draws the grid and the map again.
        EXPECT_THAT(recorder->calls,
                    ElementsAre("do Set Application Window 0",
                                "do Set Map Window " + Str(s.gViewWin) + " redraw on",
                                // The host reports the change, and the captions follow.
                                "eval mapperinfo(" + Str(s.gViewWin) + ",1)",
                                "eval mapperinfo(" + Str(s.gViewWin) + ",12)",
                                "eval mapperinfo(" + Str(s.gViewWin) + ",2)"));
    });
    expectSessionGoesOn();
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(CallbackTest, AFailedCommandInRunCommandIsLoggedWithTheHostsLastError) {
    int code = 0;
    std::string message;
    step([&](session::Session&) {
        recorder->rewrite = [](const std::string& command) {
            return command == "Set Application Window 0" ? "Set Application Window Nowhere"
                                                         : command;
        };
        companion().giveAdvice("style");
        recorder->rewrite = nullptr;
        code = app->LastErrorCode();
        message = app->LastErrorMessage();
    });
    expectSessionGoesOn();
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    ASSERT_NE(code, 0);
    EXPECT_THAT(logLines(), Contains("Error from RUnCommand " + message + "\r\n" + "   :" +
                                     CStr(code) + " = " + message));
}

TEST_F(CallbackTest, ChangesOfTheUserMapAreNotedOnlyWhileTheFormIsReady) {
    writeSettings(kTrue, 0);
    const std::string zoom = "Set Map Window " + std::to_string(userMap) + " Zoom ";
    step([&](session::Session& s) {
        run("Set Event Processing On");
        run(zoom + "40 Units \"mi\"");
        EXPECT_EQ(s.gMapChanged, kTrue);
        s.gMapChanged = kFalse;
        s.layerForm().OK.Click();
        run("Set Event Processing On");
        run(zoom + "80 Units \"mi\"");
        EXPECT_EQ(s.gMapChanged, kFalse);
    });

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_TRUE(windowOpen(userMap));
}

} // namespace
} // namespace vellant::testing
