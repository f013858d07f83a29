// The host's session statements as a client sends them, and SystemInfo.

#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

int errorCodeOf(Engine& engine, const std::string& statement) {
    try {
        engine.run(statement);
    } catch (const MbError& e) {
        return e.code();
    }
    return 0;
}

TEST(HostStatements, EventProcessingAndProgressBarsFollowOnAndOffInAnyCase) {
    Engine engine;
    engine.run("set event processing off");
    engine.run("set progressbars off");
    EXPECT_FALSE(engine.host().eventProcessing());
    EXPECT_FALSE(engine.host().progressBars());
    engine.run("Set  Event Processing ON");
    engine.run("Set progressbars on");
    EXPECT_TRUE(engine.host().eventProcessing());
    EXPECT_TRUE(engine.host().progressBars());

    EXPECT_EQ(errorCodeOf(engine, "set event processing maybe"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "set event processing"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "set event processing off now"), kMbSyntax);
    EXPECT_TRUE(engine.host().eventProcessing());
}

TEST(HostStatements, StatusBarShowsHidesAndCarriesAMessage) {
    Engine engine;
    engine.run("statusbar hide");
    EXPECT_FALSE(engine.host().statusBarVisible());
    engine.run("Statusbar show");
    EXPECT_TRUE(engine.host().statusBarVisible());
    engine.run("StatusBar Hide Message \"Loading \" + \"layers\"");
    EXPECT_FALSE(engine.host().statusBarVisible());
    EXPECT_EQ(engine.host().statusBarMessage(), "Loading layers");

    EXPECT_EQ(errorCodeOf(engine, "statusbar"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "statusbar show vanish"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "statusbar show message"), kMbSyntax);
    EXPECT_FALSE(engine.host().statusBarVisible()) << "a refused statement changes nothing";
}

TEST(HostStatements, ApplicationWindowIsWhatSystemInfoSevenAnswers) {
    Engine engine;
    EXPECT_EQ(engine.evaluate("SystemInfo(7)").toEvalText(), "0");
    engine.run("Set Application Window 65601");
    EXPECT_EQ(engine.host().applicationWindow(), 65601);
    EXPECT_EQ(engine.evaluate("systeminfo(7)").toEvalText(), "65601");
    engine.run("Set Application Window &H1F");
    EXPECT_EQ(engine.host().applicationWindow(), 31);
    engine.run("Set Application Window 0");
    EXPECT_EQ(engine.host().applicationWindow(), 0);
}

TEST(HostStatements, SystemInfoNineIsTheMainWindowOfThisHost) {
    Engine first;
    Engine second;
    const std::string handle = first.evaluate("systeminfo(9)").toEvalText();
    EXPECT_EQ(handle, std::to_string(first.host().mainWindow().hWnd()));
    EXPECT_NE(handle, "0");
    EXPECT_NE(handle, second.evaluate("SystemInfo(9)").toEvalText());
}

TEST(HostStatements, SystemInfoAnswersEveryDefinedCodeAndRefusesOthers) {
    Engine engine;
    for (int code = 1; code <= 18; ++code)
        EXPECT_NO_THROW(engine.evaluate("SystemInfo(" + std::to_string(code) + ")")) << code;
    EXPECT_EQ(engine.evaluate("SystemInfo(3)").toEvalText(), "950");
    EXPECT_EQ(engine.evaluate("SystemInfo(4)").toEvalText(), "F");
    for (const char* bad : {"SystemInfo(0)", "SystemInfo(19)", "SystemInfo(-9)"}) {
        try {
            engine.evaluate(bad);
            ADD_FAILURE() << bad;
        } catch (const MbError& e) {
            EXPECT_EQ(e.code(), kMbArgRange);
            EXPECT_STREQ(e.what(), "Argument 1 of SystemInfo out of range.");
        }
    }
}

TEST(HostStatements, RunApplicationStartsOnlyTheCompanion) {
    Engine engine;
    EXPECT_EQ(errorCodeOf(engine, "Run Application \"tools.mbx\""), kMbCantAccessFile);
    EXPECT_EQ(engine.host().applicationCount(), 0);
    engine.run("Run Application \"C:\\apps\\VELLANT.MBX\"");
    ASSERT_EQ(engine.host().applicationCount(), 1);
    Companion* companion = engine.host().companion();
    companion->setGlobal("VLadvice", "kept");
    engine.run("run application \"/opt/vellant/vellant.mbx\"");
    EXPECT_EQ(engine.host().companion(), companion);
    EXPECT_EQ(companion->global("vladvice"), "kept");
}

} // namespace
} // namespace vellant::engine
