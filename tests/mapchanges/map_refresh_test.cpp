// RedrawNOW of the docked form in whole sessions: the grid loaded again from the user's map, the
// restart on another map in IMMEDIATE mode, and the end of a session whose map has gone.

#include "base/basic_text.h"
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

class MapRefresh : public HostSession {
protected:
    void pressRedrawNow() {
        step([](session::Session& s) { s.layerForm().RedrawNOW.Click(); });
    }
    std::string mapperLayers(int window) { return "eval Mapperinfo(" + Str(window) + ",9)"; }
};

TEST_F(MapRefresh, ABrowserInFrontIsToldOffAndTheGridIsLoadedAgainAllTheSame) {
    writeSettings(kTrue, kTrue);
    step([&](session::Session&) { run("Browse * From points"); });
    step([&](session::Session& s) {
        recorder->calls.clear();
        s.layerForm().RedrawNOW.Click();
        EXPECT_EQ(s.gLayerCount, 4);
        EXPECT_EQ(s.gRestart, kFalse);
    });
    pressOK();

    EXPECT_EQ(runMapInfoLayer(), "ok");
    EXPECT_THAT(messages(), ElementsAre("Click on a map first"));
    EXPECT_THAT(recorder->calls, Contains(mapperLayers(userMap)));
}

TEST_F(MapRefresh, AnotherMapInFrontInImmediateModeRestartsTheSessionOnIt) {
    writeSettings(kTrue, kTrue);
    int otherMap = 0;
    int restartedOn = 0;
    step([&](session::Session&) {
        run("Map From regions");
        otherMap = std::stoi(eval("FrontWindow()"));
    });
    pressRedrawNow();
    // This step runs in the form of the session that follows.
    step([&](session::Session& s) { restartedOn = s.gMapWin; });
    pressOK();

    EXPECT_EQ(runMapInfoLayer(), "ok");
    EXPECT_NE(otherMap, 0);
    EXPECT_EQ(restartedOn, otherMap);
    EXPECT_THAT(messages(), IsEmpty());
    // Accepted in IMMEDIATE mode: the first map stays as it was worked on.
    EXPECT_TRUE(windowOpen(userMap));
}

TEST_F(MapRefresh, TheUserMapGoneEndsTheSessionWithALogLine) {
    writeSettings(kFalse, kTrue);
    int view = 0;
    step([&](session::Session& s) {
        view = s.gViewWin;
        run("Close Window " + std::to_string(userMap));
    });
    pressRedrawNow();
    step([](session::Session&) { ADD_FAILURE() << "the session went on"; });

    EXPECT_EQ(runMapInfoLayer(), "ok");
    EXPECT_THAT(logLines(), Contains("no map - shutdown"));
    EXPECT_FALSE(windowOpen(view));
    EXPECT_EQ(engine->host().findButtonPad("Callback"), nullptr);
    EXPECT_TRUE(engine->windows().ids().empty());
}

} // namespace
} // namespace vellant::testing
