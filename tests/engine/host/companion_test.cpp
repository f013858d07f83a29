// The companion program through the client's eyes: its globals, its messages, the style
// dialog that spans two calls, and its advice words.

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/host/mapinfo_automation.h"
#include "recording_callback.h"

#include <gtest/gtest.h>
#include <memory>

namespace vellant::engine {
namespace {

using testing::RecordingCallback;

constexpr const char* kFloatingPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ";

class CompanionTest : public ::testing::Test {
protected:
    CompanionTest() {
        app->Do("Run Application \"vellant.mbx\"");
        app->SetCallback(callback);
        app->Do(kFloatingPad);
        // The client reads the companion's globals from inside RunCommand, as its call-back
        // does.
        callback->onRunCommand = [this](const std::string&) {
            adviceSeen.push_back(mbApp().MBGlobals("VLadvice").Value());
            styleSeen.push_back(mbApp().MBGlobals("currstyle").Value());
        };
    }

    hostmodel::MBApplication& mbApp() { return app->MBApplications(1); }
    Companion& companion() { return *engine->host().companion(); }

    int errorNumberOf(const std::string& message) {
        try {
            mbApp().Do(message);
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    }

    std::shared_ptr<Engine> engine = std::make_shared<Engine>();
    std::shared_ptr<MapInfoAutomation> app = std::make_shared<MapInfoAutomation>(engine);
    std::shared_ptr<RecordingCallback> callback = std::make_shared<RecordingCallback>();
    std::vector<std::string> adviceSeen;
    std::vector<std::string> styleSeen;
};

TEST_F(CompanionTest, GlobalsAreFoundInAnyCaseAndKeepWhatTheClientWrites) {
    mbApp().MBGlobals("hwnd").setValue("66000");
    EXPECT_EQ(mbApp().MBGlobals("HWND").Value(), "66000");
    EXPECT_EQ(mbApp().MBGlobals("vladvice").Value(), "");
    EXPECT_EQ(mbApp().MBGlobals("CurrStyle").Value(), "");
    try {
        mbApp().MBGlobals("gLayer");
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), kErrSubscript);
    }
}

TEST_F(CompanionTest, TheStyleDialogShowsOnlyAfterTheRequestingCallReturned) {
    int requestsSeenDuringDo = 0;
    companion().styleDialogRequested.add([&] { ++requestsSeenDuringDo; });
    mbApp().Do("Dialog 1 Pen (1,2,0)");
    EXPECT_EQ(requestsSeenDuringDo, 1);
    EXPECT_TRUE(callback->commands.empty()) << "nothing is pressed before the dialog closed";

    auto request = companion().takeStyleDialogRequest();
    ASSERT_TRUE(request.has_value());
    EXPECT_EQ(request->kind, StyleDialogKind::Line);
    EXPECT_EQ(request->startClause, "Pen (1,2,0)");
    EXPECT_FALSE(companion().styleDialogPending());

    companion().styleDialogClosed(std::string("Pen (2,2,255)"));
    ASSERT_EQ(callback->commands.size(), 1u);
    EXPECT_NE(callback->commands[0].find("2001"), std::string::npos);
    EXPECT_EQ(adviceSeen, std::vector<std::string>{"style"});
    EXPECT_EQ(styleSeen, std::vector<std::string>{"Pen (2,2,255)"});
}

TEST_F(CompanionTest, ACancelledDialogLeavesNoStyleButStillWakesTheClient) {
    mbApp().MBGlobals("currstyle").setValue("Brush (2,255,0)");
    mbApp().Do("Dialog 5 Font(\"Arial\",0,9,0)");
    const auto request = companion().takeStyleDialogRequest();
    ASSERT_TRUE(request.has_value());
    EXPECT_EQ(request->kind, StyleDialogKind::Text);
    companion().styleDialogClosed(std::nullopt);
    EXPECT_EQ(styleSeen, std::vector<std::string>{""});
    EXPECT_EQ(adviceSeen, std::vector<std::string>{"style"});
}

TEST_F(CompanionTest, RequestsQueueInOrder) {
    mbApp().Do("Dialog 0 Brush (2,16777215,16777215)");
    mbApp().Do("dialog   2   Symbol (35,0,12)");
    EXPECT_EQ(companion().takeStyleDialogRequest()->kind, StyleDialogKind::Region);
    const auto second = companion().takeStyleDialogRequest();
    EXPECT_EQ(second->kind, StyleDialogKind::Symbol);
    EXPECT_EQ(second->startClause, "Symbol (35,0,12)");
    EXPECT_FALSE(companion().takeStyleDialogRequest().has_value());
}

TEST_F(CompanionTest, MessagesTheCompanionDoesNotKnowAreRefused) {
    EXPECT_EQ(errorNumberOf("Dialog 3 Pen (1,2,0)"), 644);
    EXPECT_EQ(errorNumberOf("Dialog x Pen (1,2,0)"), 1);
    EXPECT_EQ(errorNumberOf("Dialog"), 1);
    EXPECT_EQ(errorNumberOf("Dialog 12345678901234567890"), 1);
    EXPECT_EQ(errorNumberOf("drop table"), 1);
    EXPECT_EQ(errorNumberOf(""), 1);
    try {
        mbApp().Do("hello there");
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 1);
        EXPECT_EQ(e.description(), "Unrecognized command: hello there.");
    }
    EXPECT_FALSE(companion().styleDialogPending());
}

TEST_F(CompanionTest, AdviceWordsAreStoredThenButton2001IsPressed) {
    EXPECT_TRUE(companion().giveAdvice("exit vl"));
    EXPECT_TRUE(companion().hostWindowMoved());
    EXPECT_TRUE(companion().hostClosing());
    EXPECT_EQ(adviceSeen, (std::vector<std::string>{"exit vl", "resize", "exit mapinfo"}));

    app->Do("Alter Buttonpad \"Callback\" Destroy");
    EXPECT_FALSE(companion().hostWindowMoved());
    EXPECT_EQ(callback->commands.size(), 3u);
    EXPECT_EQ(mbApp().MBGlobals("VLadvice").Value(), "resize");
}

} // namespace
} // namespace vellant::engine
