// Button pads: the statements that make and alter them, and what a press reaches.

#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "recording_callback.h"

#include <gtest/gtest.h>
#include <memory>

namespace vellant::engine {
namespace {

using testing::RecordingCallback;

constexpr const char* kFloatingPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ";
constexpr const char* kDockedPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" Pushbutton "
    "ID 2002 Calling OLE \"RunCommand\" hide ";

int errorCodeOf(Engine& engine, const std::string& statement) {
    try {
        engine.run(statement);
    } catch (const MbError& e) {
        return e.code();
    }
    return 0;
}

class ButtonPadTest : public ::testing::Test {
protected:
    ButtonPadTest() { engine.host().setCallback(callback); }

    Engine engine;
    std::shared_ptr<RecordingCallback> callback = std::make_shared<RecordingCallback>();
};

TEST_F(ButtonPadTest, TheClientsPadsAreHiddenAndCallRunCommand) {
    engine.run(kFloatingPad);
    const ButtonPad* pad = engine.host().findButtonPad("CALLBACK");
    ASSERT_NE(pad, nullptr);
    EXPECT_FALSE(pad->visible);
    ASSERT_EQ(pad->buttons.size(), 1u);
    EXPECT_EQ(pad->buttons[0].id, 2001);
    EXPECT_EQ(pad->buttons[0].oleMethod, "RunCommand");

    engine.run(kDockedPad);
    ASSERT_EQ(engine.host().buttonPads().size(), 1u) << "the second pad takes the first's place";
    pad = engine.host().findButtonPad("Callback");
    ASSERT_EQ(pad->buttons.size(), 2u);
    EXPECT_EQ(pad->buttons[1].id, 2002);
}

TEST_F(ButtonPadTest, APressHandsRunCommandTheButtonsId) {
    engine.run(kDockedPad);
    engine.host().pressButton("callback", 2002);
    ASSERT_EQ(callback->commands.size(), 1u);
    EXPECT_NE(callback->commands[0].find("2002"), std::string::npos);
    EXPECT_EQ(callback->commands[0], oleCommandText(2002));

    engine.run("Run Menu Command ID 2001");
    ASSERT_EQ(callback->commands.size(), 2u);
    EXPECT_NE(callback->commands[1].find("2001"), std::string::npos);
    EXPECT_EQ(callback->commands[1].find("2002"), std::string::npos);
}

TEST_F(ButtonPadTest, PressesThatReachNobodyOrNothing) {
    engine.run(kFloatingPad);
    EXPECT_THROW(engine.host().pressButton("Callback", 2002), MbError);
    EXPECT_THROW(engine.host().pressButton("Elsewhere", 2001), MbError);
    EXPECT_EQ(errorCodeOf(engine, "Run Menu Command ID 7"), kMbCmdNotSupported);

    engine.host().setCallback(nullptr);
    EXPECT_NO_THROW(engine.host().pressButton("Callback", 2001));
    EXPECT_TRUE(callback->commands.empty());
}

TEST_F(ButtonPadTest, DestroyRemovesThePadOnce) {
    engine.run(kDockedPad);
    engine.run("Alter Buttonpad \"Callback\" Destroy");
    EXPECT_EQ(engine.host().findButtonPad("Callback"), nullptr);
    EXPECT_EQ(errorCodeOf(engine, "Alter Buttonpad \"Callback\" Destroy"), kMbCmdNotSupported);
}

TEST_F(ButtonPadTest, AClientMayDestroyThePadFromInsideThePress) {
    engine.run(kDockedPad);
    callback->onRunCommand = [this](const std::string&) {
        engine.run("Alter Buttonpad \"Callback\" Destroy");
        engine.host().setCallback(nullptr);
    };
    engine.host().pressButton("Callback", 2002);
    EXPECT_EQ(callback->commands.size(), 1u);
    EXPECT_TRUE(engine.host().buttonPads().empty());
}

TEST_F(ButtonPadTest, DisabledButtonsDoNothingAndToggleButtonsFlipTheirCheck) {
    engine.run("Create ButtonPad \"Tools\" As ToggleButton Calling OLE \"RunCommand\" ID 7 "
               "HelpMsg \"Switch\" Separator PushButton Calling OLE \"RunCommand\" ID 8 Disable "
               "Title \"My tools\" Width 2 Position (1.5, 2) Units \"in\" Show Fixed");
    const ButtonPad& pad = engine.host().buttonPad("tools");
    EXPECT_EQ(pad.title, "My tools");
    EXPECT_EQ(pad.width, 2);
    ASSERT_TRUE(pad.position.has_value());
    EXPECT_DOUBLE_EQ(pad.position->x, 1.5);
    EXPECT_TRUE(pad.fixed);
    ASSERT_EQ(pad.buttons.size(), 3u);
    EXPECT_EQ(pad.buttons[1].kind, PadButton::Kind::Separator);

    engine.host().pressButton("Tools", 8);
    EXPECT_TRUE(callback->commands.empty());
    engine.run("Alter Button ID 8 Enable");
    engine.host().pressButton("Tools", 8);
    EXPECT_EQ(callback->commands.size(), 1u);

    engine.host().pressButton("Tools", 7);
    EXPECT_TRUE(engine.host().buttonPad("Tools").button(7)->checked);
    engine.host().pressButton("Tools", 7);
    EXPECT_FALSE(engine.host().buttonPad("Tools").button(7)->checked);
}

TEST_F(ButtonPadTest, AlterAddsAndRemovesButtons) {
    engine.run(kFloatingPad);
    engine.run("Alter ButtonPad \"Callback\" Add PushButton Calling OLE \"RunCommand\" ID 2002 "
               "Show");
    EXPECT_NE(engine.host().buttonPad("Callback").button(2002), nullptr);
    EXPECT_TRUE(engine.host().buttonPad("Callback").visible);
    engine.run("Alter ButtonPad \"Callback\" Remove ID 2001 Hide");
    EXPECT_EQ(engine.host().buttonPad("Callback").button(2001), nullptr);
    EXPECT_FALSE(engine.host().buttonPad("Callback").visible);
}

TEST_F(ButtonPadTest, AStatementThatFailsChangesNothing) {
    engine.run(kDockedPad);
    EXPECT_EQ(errorCodeOf(engine, "Alter ButtonPad \"Callback\" Remove ID 2002 Title"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "Alter ButtonPad \"Callback\" Remove ID 2003"),
              kMbCmdNotSupported);
    EXPECT_EQ(engine.host().buttonPad("Callback").buttons.size(), 2u);

    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad \"Other\" As PushButton ID 5"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad \"Other\" As"), kMbSyntax);
    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad \"Other\" As PushButton Calling DDE "
                                  "\"srv\", \"topic\""),
              kMbCmdNotSupported);
    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad \"Other\" As PushButton Calling 801"),
              kMbCmdNotSupported);
    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad ID 3 As PushButton Calling OLE \"X\""),
              kMbCmdNotSupported);
    EXPECT_EQ(errorCodeOf(engine, "Create ButtonPad \"Other\" As PushButton Calling OLE \"X\" "
                                  "ID 99999999999"),
              kMbArgRange);
    EXPECT_EQ(engine.host().findButtonPad("Other"), nullptr);
}

TEST_F(ButtonPadTest, AMethodTheCallbackLacksIsAnError) {
    engine.run("Create ButtonPad \"Tools\" As PushButton Calling OLE \"OnTool\" ID 4");
    EXPECT_THROW(engine.host().pressButton("Tools", 4), MbError);
    EXPECT_TRUE(callback->commands.empty());
}

TEST_F(ButtonPadTest, WindowChangesReachTheClientOnlyWhileEventsAreProcessed) {
    engine.windowContentsChanged(5);
    engine.run("set event processing off");
    engine.windowContentsChanged(6);
    engine.run("set event processing on");
    engine.windowContentsChanged(7);
    EXPECT_EQ(callback->changedWindows, (std::vector<std::int32_t>{5, 7}));
}

} // namespace
} // namespace vellant::engine
