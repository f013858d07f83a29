// The automation object as a client drives it: errors and the last error, call-backs during a
// call, the running programs, registration as the running host.

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/host/mapinfo_automation.h"
#include "platform/automation.h"
#include "program_session.h"
#include "recording_callback.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace vellant::engine {
namespace {

using testing::RecordingCallback;

constexpr const char* kDockedPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" Pushbutton "
    "ID 2002 Calling OLE \"RunCommand\" hide ";

int errorNumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

class AutomationTest : public ::testing::Test {
protected:
    std::shared_ptr<Engine> engine = std::make_shared<Engine>();
    std::shared_ptr<MapInfoAutomation> app = std::make_shared<MapInfoAutomation>(engine);
    std::shared_ptr<RecordingCallback> callback = std::make_shared<RecordingCallback>();
};

TEST_F(AutomationTest, ARefusedCallRaisesAndKeepsTheHostsErrorUntilTheNextCall) {
    try {
        app->Do("xyzzy now");
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 1);
        EXPECT_EQ(e.description(), "Unrecognized command: xyzzy.");
    }
    EXPECT_EQ(app->LastErrorCode(), 1);
    EXPECT_EQ(app->LastErrorMessage(), "Unrecognized command: xyzzy.");
    EXPECT_EQ(app->LastErrorMessage(), "Unrecognized command: xyzzy.") << "reading keeps it";

    EXPECT_EQ(app->eval("1 + 2"), "3");
    EXPECT_EQ(app->LastErrorCode(), 0);
    EXPECT_EQ(app->LastErrorMessage(), "");

    EXPECT_EQ(errorNumberOf([&] { app->eval("SystemInfo(99)"); }), 644);
    EXPECT_EQ(app->LastErrorMessage(), "Argument 1 of SystemInfo out of range.");
    app->Do("statusbar hide");
    EXPECT_EQ(app->LastErrorMessage(), "");

    EXPECT_NE(errorNumberOf([&] { app->RunMenuCommand(-5); }), 0);
    EXPECT_NE(app->LastErrorCode(), 0);
    EXPECT_FALSE(app->LastErrorMessage().empty());
}

TEST_F(AutomationTest, EvalAnswersTextAsTheHostPrintsIt) {
    EXPECT_EQ(app->eval("1 = 1"), "T");
    EXPECT_EQ(app->eval("SystemInfo(9)"), std::to_string(engine->host().mainWindow().hWnd()));
}

TEST_F(AutomationTest, CallbacksArriveDuringTheDoThatCausesThem) {
    app->SetCallback(callback);
    app->Do(kDockedPad);
    bool insideDo = false;
    std::string answerInside;
    callback->onRunCommand = [&](const std::string&) {
        EXPECT_TRUE(insideDo);
        answerInside = app->eval("SystemInfo(7)"); // the client calls back in, as it may
    };
    insideDo = true;
    app->Do("Set Application Window 77");
    app->Do("Run Menu Command ID 2002");
    insideDo = false;
    ASSERT_EQ(callback->commands.size(), 1u);
    EXPECT_NE(callback->commands[0].find("2002"), std::string::npos);
    EXPECT_EQ(answerInside, "77");
}

TEST_F(AutomationTest, AFailureInsideACallbackDoesNotOutliveTheCallThatSucceeded) {
    app->SetCallback(callback);
    app->Do(kDockedPad);
    int innerError = 0;
    callback->onRunCommand = [&](const std::string&) {
        innerError = errorNumberOf([&] { app->Do("no such statement"); });
        throw RuntimeError(5, "the client's own failure");
    };
    app->Do("Run Menu Command ID 2001");
    EXPECT_EQ(innerError, 1);
    EXPECT_EQ(app->LastErrorCode(), 0);
    EXPECT_EQ(app->LastErrorMessage(), "");
}

TEST_F(AutomationTest, AMapChangeIsToldDuringTheDoThatMadeItUnlessEventsAreOff) {
    const std::filesystem::path folder = testing::ProgramSession::tableFolder();
    app->Do("Open Table \"" + (folder / "points.tab").string() + "\"");
    app->Do("Map From points");
    const std::string map = app->eval("FrontWindow()");
    app->SetCallback(callback);
    bool insideDo = false;
    callback->onWindowContentsChanged = [&](std::int32_t) { EXPECT_TRUE(insideDo); };

    insideDo = true;
    app->Do("Set Map Window " + map + " Zoom 100 Units \"km\"");
    app->Do("set event processing off");
    app->Do("Set Map Window " + map + " Zoom 50 Units \"km\"");
    app->Do("set event processing on");
    app->Do("Set Map Window " + map + " Layer 1 Display Off");
    insideDo = false;
    EXPECT_EQ(callback->changedWindows,
              (std::vector<std::int32_t>{std::stoi(map), std::stoi(map)}));
}

TEST_F(AutomationTest, TheCompanionIsItemOneOnceItRuns) {
    EXPECT_EQ(app->MBApplicationsCount(), 0);
    EXPECT_EQ(errorNumberOf([&] { app->MBApplications(1); }), kErrSubscript);
    app->Do("Run Application \"vellant.mbx\"");
    ASSERT_EQ(app->MBApplicationsCount(), 1);
    EXPECT_EQ(app->MBApplications(1).Name(), "vellant.mbx");
    EXPECT_EQ(errorNumberOf([&] { app->MBApplications(0); }), kErrSubscript);
    EXPECT_EQ(errorNumberOf([&] { app->MBApplications(2); }), kErrSubscript);
}

TEST(AutomationRegistration, TheHostRunsUnderItsClassNameUntilItCloses) {
    platform::AutomationRegistry registry;
    auto engine = std::make_shared<Engine>();
    auto app = std::make_shared<MapInfoAutomation>(engine);
    app->registerRunning(registry);

    auto found = platform::AutomationRegistry::as<hostmodel::MapInfoApp>(
        registry.GetObject("mapinfo.application"));
    EXPECT_EQ(found.get(), app.get());
    EXPECT_EQ(found->eval("2 * 3"), "6");

    app->close();
    EXPECT_FALSE(registry.isRunning("MapInfo.Application"));
    EXPECT_EQ(errorNumberOf([&] { found->Do("statusbar show"); }), kErrServerGone);
    EXPECT_EQ(errorNumberOf([&] { found->eval("1"); }), kErrServerGone);
    EXPECT_EQ(errorNumberOf([&] { found->LastErrorCode(); }), kErrServerGone);
    EXPECT_EQ(errorNumberOf([&] { app->registerRunning(registry); }), kErrServerGone);
}

TEST(AutomationRegistration, ClosingAnOldHostLeavesANewerOneRegistered) {
    platform::AutomationRegistry registry;
    auto older = std::make_shared<MapInfoAutomation>(std::make_shared<Engine>());
    auto newer = std::make_shared<MapInfoAutomation>(std::make_shared<Engine>());
    older->registerRunning(registry);
    newer->registerRunning(registry);
    older->close();
    ASSERT_TRUE(registry.isRunning("MapInfo.Application"));
    EXPECT_EQ(registry.GetObject("MapInfo.Application").get(), newer.get());
}

TEST(AutomationRegistration, AProgramHoldingTheCompanionAfterTheHostWentGetsAnError) {
    auto app = std::make_shared<MapInfoAutomation>(std::make_shared<Engine>());
    app->Do("Run Application \"vellant.mbx\"");
    hostmodel::MBApplication& companion = app->MBApplications(1);
    hostmodel::MBGlobal& advice = companion.MBGlobals("VLadvice");
    app->close();
    EXPECT_EQ(errorNumberOf([&] { companion.Name(); }), kErrServerGone);
    EXPECT_EQ(errorNumberOf([&] { advice.Value(); }), kErrServerGone);
    EXPECT_EQ(errorNumberOf([&] { companion.Do("Dialog 1 Pen (1,2,0)"); }), kErrServerGone);
}

} // namespace
} // namespace vellant::engine
