#include "prefs/setting_controls.h"
#include "prefs/settings.h"
#include "support/session_fixture.h"

namespace vellant::prefs {
namespace {

class SettingControls : public testing::SessionFixture {
protected:
    void SetUp() override { getotherprefs(*session); }
};

TEST_F(SettingControls, DockedAndSavedPositionStandAsReadAfterTheirFlips) {
    for (std::int16_t saved : {std::int16_t{-1}, std::int16_t{0}}) {
        session->gDocked = -1;
        session->gSaveUserPosition = saved;
        updatecontrolsfromprefs(*session);
        EXPECT_EQ(session->gDocked, -1);
        EXPECT_EQ(session->gSaveUserPosition, saved);
        EXPECT_EQ(form->Docked.Value(), 1);
        EXPECT_EQ(form->Docked.ToolTipText(), "Vellant is docked");
        EXPECT_EQ(form->Save_user_position.Checked(), saved != 0);
    }
}

TEST_F(SettingControls, FloatingLeavesTheSavePositionItemAtItsFormDefault) {
    session->gDocked = 0;
    session->gSaveUserPosition = -1;
    updatecontrolsfromprefs(*session);
    EXPECT_EQ(session->gDocked, 0);
    EXPECT_EQ(session->gSaveUserPosition, -1);
    EXPECT_EQ(form->Docked.Value(), 0);
    EXPECT_EQ(form->Docked.ToolTipText(), "Vellant is floating");
    EXPECT_FALSE(form->Save_user_position.Checked());
}

TEST_F(SettingControls, ImmediateModeLocksCancelAndBoundsOnBothHosts) {
    session->gImmediate = -1;
    session->gIsMapInfo = -1;
    updatecontrolsfromprefs(*session);
    EXPECT_EQ(form->MapImmediate.Value(), 1);
    EXPECT_FALSE(form->Cancel.Enabled());
    EXPECT_FALSE(form->map_bounds.Enabled());

    session::vlLayerControl mapxForm(toolkit);
    session->gLayerForm = &mapxForm;
    session->gIsMapInfo = 0;
    updatecontrolsfromprefs(*session);
    EXPECT_EQ(mapxForm.MapImmediate.Value(), 0);
    EXPECT_FALSE(mapxForm.Cancel.Enabled());
    EXPECT_FALSE(mapxForm.map_bounds.Enabled());
}

TEST_F(SettingControls, TheDockedButtonTurnsTheSettingOver) {
    docked_change(*session);
    EXPECT_EQ(session->gDocked, -1);
    EXPECT_EQ(form->Docked.Value(), 1);
    docked_change(*session);
    EXPECT_EQ(session->gDocked, 0);
    EXPECT_EQ(form->Docked.Value(), 0);
    EXPECT_EQ(form->Docked.ToolTipText(), "Vellant is floating");
}

TEST_F(SettingControls, WithoutAFormEachProcedureLogsItsOwnLine) {
    session->gLayerForm = nullptr;
    updatecontrolsfromprefs(*session);
    save_user_position_click(*session);
    const std::string notSet = "Object variable or With block variable not set";
    EXPECT_EQ(log(), "\"Error from getotherprefs #99 File not found\"\r\n"
                     "\"Error from updatecontrolsfromprefs " +
                         notSet +
                         "\"\r\n"
                         "\"Error from save_user_position_click " +
                         notSet + "\"\r\n");
}

TEST_F(SettingControls, RemovingStoredMapsAsksAndChangesNothingOnNo) {
    session->gMapPrefCount = 3;
    session->gMapPrefSlot = 2;
    toolkit.queueAnswer(platform::vbNo);
    remove_group_prefs_clicK(*session);
    ASSERT_EQ(toolkit.messages().size(), 1u);
    EXPECT_EQ(toolkit.messages()[0].prompt, "Your current stored map preferences count is  3\r\n"
                                            "Do you wish to remove these references?");
    EXPECT_EQ(toolkit.messages()[0].buttons & 7, platform::vbYesNo);
    EXPECT_EQ(session->gMapPrefCount, 3);
    EXPECT_EQ(session->gMapPrefSlot, 2);
}

TEST_F(SettingControls, RemovingStoredMapsWritesNothingUntilTheNextAccept) {
    session->gMapPrefCount = 3;
    writeprefs(*session);
    const auto before = testing::readBytes(dir.file("Vellant.prf"));
    toolkit.queueAnswer(platform::vbYes);
    remove_group_prefs_clicK(*session);
    EXPECT_EQ(session->gMapPrefCount, 0);
    EXPECT_EQ(session->gMapPrefSlot, 0);
    EXPECT_EQ(testing::readBytes(dir.file("Vellant.prf")), before);
    writeprefs(*session);
    EXPECT_EQ(testing::readBytes(dir.file("Vellant.prf"))[800], 0);
}

} // namespace
} // namespace vellant::prefs
