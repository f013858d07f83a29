// The information form: each topic's text exactly as the user reads it, the way the form opens
// over the layer form, and the product brief.

#include "prefs/settings.h"
#include "support/session_fixture.h"
#include "support/support_buttons.h"
#include "support/vl_info.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace vellant::testing {
namespace {

const std::string kBreak = "\r\n";
const std::string kGap = kBreak + kBreak;

struct TopicCase {
    std::string control;
    std::string text;
};

class InfoForm : public SessionFixture {
protected:
    InfoForm() { prefs::getotherprefs(*session); }

    // Opens the form from the layer form's button; the steps run while it is shown.
    void openWhile(std::function<void(support::VLInfo&)> whileShown) {
        toolkit.addStep([this, whileShown] { whileShown(support::infoForm(*session)); });
        form->Info.onClick = [this] { support::Info_Click(*session); };
        form->Info.Click();
    }

    std::string textAfterClicking(const std::string& control) {
        std::string text;
        openWhile([&](support::VLInfo& info) {
            info.findControl(control)->Click();
            text = info.Info.Text();
            info.Exit.Click();
        });
        return text;
    }
};

class InfoTopic : public InfoForm, public ::testing::WithParamInterface<TopicCase> {};

TEST_P(InfoTopic, AClickShowsTheTopicsTextWordForWord) {
    EXPECT_EQ(textAfterClicking(GetParam().control), GetParam().text);
}

const std::string kIfNotImmediate = "If the IMMEDIATE option is not set, you have the option of "
                                    "exiting and ACCEPTing changes or exiting without changes.";

INSTANTIATE_TEST_SUITE_P(
    Topics, InfoTopic,
    ::testing::Values(
        TopicCase{"cell",
                  "           What happens when you click on a CELL? " + kGap +
                      " A TOGGLE cell will cycle through two or more settings with each click. If "
                      "a single row or cell has been selected, the cycle is ON / OFF  or NO "
                      "OVERRIDE / OVERRIDE for style settings." +
                      kGap +
                      " A TOGGLE cell will cycle through 4 possible settings if multiple layers "
                      "are selected. These are:" +
                      kGap + "   1. Toggle the original setting. " + kBreak +
                      "   2. Toggle the setting of the clicked row of the set and apply this to "
                      "all rows. " +
                      kBreak + "   3. Apply the original setting of the clicked row to all rows. " +
                      kBreak + "   4. Restore the original setting o each row. " + kGap +
                      " A cell that accepts text will show a green background box for text "
                      "entry. " +
                      kGap +
                      " A cell that accepts a selection from a list will show a list box. Type "
                      "data or pick from the list. " +
                      kGap +
                      " A cell that has a gray background or is view-only will not resppond to "
                      "a click. "},
        TopicCase{"OK", "           EXIT Vellant and ACCEPT changes " + kGap + kIfNotImmediate +
                            kGap +
                            "When you exit and ACCEPT changes, defined groups are save and "
                            "restored when you next open run Vellant on a Map window of the same "
                            "name and with matching layer names."},
        TopicCase{"Cancel", "           EXIT Vellant and Ignore changes " + kGap + kIfNotImmediate},
        TopicCase{"MapImmediate",
                  "           IMMEDIATE Button " + kGap +
                      "With this option checked, changes are made directly to your Mapper. "
                      "Otherwise, they are made to the view Mapper and applied to your Map when "
                      "you exit with the ACCEPT button."},
        TopicCase{"Check1",
                  "           DOCKING mode " + kGap +
                      " In FLOATING mode, Vellant window is independent of MapInfo. You may use "
                      "immediate updates or see your changes in the map viewer before accepting "
                      "them. " +
                      kGap +
                      " In DOCKED mode, Vellant window is attached to the bottom of the MapInfo "
                      "window. You may resize the top and bottom position of the form. Changes "
                      "are made to your Mapper immediately. "},
        TopicCase{"RedrawNOW", "           REDRAW now " + kGap +
                                   "If you make changes to the Mapper whilst Vellant is running, "
                                   "REDRAW will cause Vellant to update the grid for these "
                                   "changes."},
        TopicCase{"Label2",
                  "           Keep Vellant on top " + kGap +
                      " Use this with DOCKED mode to ensure you can readily switch between "
                      "MapInfo and Vellant. Turn off if it impacts on other applications you may "
                      "wish to switch to. Click the Vellant toolbar button at any time to start "
                      "Vellant or bring it into the foreground. "},
        TopicCase{"Label3", "           Show MapInfo Status bar " + kGap +
                                " Vellant in DOCKED mode attaches to the base of the MapInfo "
                                "window. Your preferred status bar setting may need to be reset."},
        TopicCase{
            "Limits",
            "           KNOWN LIMITATIONS in Vellant 1.00 Beta (01)" + kGap + " MapInfo and MapX" +
                kBreak + "=================" + kGap +
                "Currently does not support style overrides for layers containing multiple feature "
                "types. The style of the first feature type present in the layer will be used." +
                kGap + "Currently does not support style overrides for raster layers." + kGap +
                "You may only add a single layer at a time. Multiple layers may be removed." +
                kGap +
                "Add and Remove Layer on collapsed layer groups has no affect currently. The "
                "master layer may need to be double-clicked to clean the display" +
                kGap + "Only adjacent layers (rows) in the grid may be selected. CTRL-click does " +
                "nothing." + kGap + "Label line style click currently does nothing." + kGap +
                " MapInfo" + kBreak + "========" + kGap +
                "Will only support a single instance of MapInfo. If a second MapInfo/Vellant is "
                "started, both Vellant applications will terminate. [Will support concurrent "
                "MapInfo/Mapx Vellant operations.]" +
                kGap +
                "If Vellant is terminated using the 'Exit Vellant' Tool Button on the MapInfo "
                "tool bar, the Vellant task is not removed from the system. You can restart "
                "Vellant successfully." +
                kGap +
                "[If Vellant is terminated by shutting down MapInfo or using one of Vellant's exit "
                "buttons, Vellant will terminate correctly." +
                kGap +
                "Currently does not support style overrides for MapInfo region borders (MapX "
                "supported)." +
                kGap + "Initial sizing of label style override sample is not correct for MapInfo." +
                kGap +
                "[Sizing of style override sample for MapX is correct and fits neatly within the "
                "cell.]" +
                kGap +
                "With the 'immediate' option set, changes made in MapInfo will only be shown in "
                "an active instance of Vellant if the 'Refresh' button is clicked." +
                kGap +
                "In the current version, there is no equivalent to the THEMATIC and HOTLINK "
                "buttons in MapInfo Layer Control." +
                kGap + " MapX" + kBreak + "=====" + kGap +
                "Feature style override settings function for a single selected layer. Only the "
                "first of grouped or multiple selected layers will change."},
        TopicCase{"OpEnv",
                  "           Operating Environment " + kGap +
                      "MapInfo Professional version 5.5, 6.0, 6.5, 7.0(Beta) tested and "
                      "supported. Should function on earlier versions back to 3.0" +
                      kGap +
                      "Run as a tool from MapInfo tools directory, from a MapBasic or MapX "
                      "application." +
                      kGap +
                      "Windows operating systems: Win98, Win/NT, Win 2000. Not tested on Windows "
                      "XP." +
                      kGap +
                      "Because of some differences in the map and layer object between MapInfo "
                      "and MapX, some attribute columns are applicable to one or other product. "
                      "Columns appear grayed if not applicable. Tested on all MapInfo table types "
                      "with the exception of server layers (in version 1)." +
                      kGap + "Disk space requirement: 2 Mb" + kGap +
                      "MapX version 4.51 is the minimum supported version." + kGap +
                      "Installer makes no changes to registry. Installs msflexgrid, comdlg32, "
                      "msmapi32 controls and supporting DLLs as the only system directory "
                      "additions. Vellant ActiveX executables are added to the installation "
                      "directory. A preferences file accumulates accessed map information in the "
                      "installation directory (which must be writeable)."}),
    [](const ::testing::TestParamInfo<TopicCase>& c) { return c.param.control; });

// The sample is code to copy: its lines follow one another, and it calls the server by its
// class name.
TEST_F(InfoForm, TheMapXSampleCallsTheServerByItsClassName) {
    const std::string text = textAfterClicking("MapXInfo");
    EXPECT_EQ(text.rfind(" MapX Sample Code " + kGap, 0), 0U) << text;
    for (const std::string& line :
         {std::string("CreateObject(\"VellantX.vllayer\")"), std::string(".RunLayer(Map1)"),
          std::string("Map1.Title.Caption = \"Map 1\""
                      " ' Set the map title to allow Vellant preferences to be retained, "),
          std::string("Map1.Title.Visible = False ' but dont show on map! "),
          std::string(kBreak + "    ' user clicked OK" + kBreak),
          std::string(kBreak + "    ' user clicked CANCEL" + kBreak),
          std::string("Map1.AutoRedraw = True" + kBreak)})
        EXPECT_NE(text.find(line), std::string::npos) << line;
    EXPECT_EQ(text.find(kGap, 20), std::string::npos) << "one block of code";
}

TEST_F(InfoForm, ATopicReplacesTheTextBeforeIt) {
    std::string welcome;
    std::string afterTwo;
    std::string redrawAlone;
    openWhile([&](support::VLInfo& info) {
        welcome = info.Info.Text();
        info.Limits.Click();
        info.RedrawNOW.Click();
        afterTwo = info.Info.Text();
        info.Exit.Click();
    });
    redrawAlone = textAfterClicking("RedrawNOW");

    EXPECT_EQ(welcome, kGap + "           Vellant Information " + kGap);
    EXPECT_EQ(afterTwo, redrawAlone);
}

// The layer form steps down from the top while the form it owns is shown, and goes back up
// only when the user keeps it on top.
TEST_F(InfoForm, ItOpensModallyOverTheLayerFormWhichStepsDownMeanwhile) {
    for (Flag onTop : {kTrue, kFalse}) {
        session->gOnTop = onTop;
        const std::size_t before = toolkit.windowPosCalls().size();
        platform::Form* owner = nullptr;
        bool modal = false;
        openWhile([&](support::VLInfo& info) {
            owner = info.Owner();
            modal = toolkit.modalForm() == &info;
            EXPECT_TRUE(toolkit.isTopmost(info.hWnd()));
            EXPECT_FALSE(toolkit.isTopmost(form->hWnd()));
            info.Exit.Click();
        });

        EXPECT_EQ(owner, form.get());
        EXPECT_TRUE(modal);
        EXPECT_FALSE(toolkit.modalShows().back().endedByToolkit);
        const auto& calls = toolkit.windowPosCalls();
        ASSERT_GE(calls.size(), before + 1);
        EXPECT_EQ(calls[before].hwnd, form->hWnd());
        EXPECT_EQ(calls[before].insertAfter, platform::HWND_NOTOPMOST);
        EXPECT_EQ(toolkit.isTopmost(form->hWnd()), onTop == kTrue) << onTop;
    }
}

TEST_F(InfoForm, TheProductBriefIsAskedForInTheCurrentDirectory) {
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.str());
    openWhile([](support::VLInfo& info) {
        info.ProdBrief.Click();
        info.Exit.Click();
    });
    std::filesystem::current_path(previous);

    ASSERT_EQ(toolkit.launchedDocuments().size(), 1U);
    EXPECT_EQ(std::filesystem::path(toolkit.launchedDocuments().front()),
              std::filesystem::path(dir.str()) / "vellantpb.pdf");
}

TEST_F(InfoForm, ABriefThatCannotBeOpenedChangesNothing) {
    toolkit.setLaunchSucceeds(false);
    std::string before;
    std::string after;
    openWhile([&](support::VLInfo& info) {
        info.OpEnv.Click();
        before = info.Info.Text();
        info.ProdBrief.Click();
        after = info.Info.Text();
        info.Exit.Click();
    });

    EXPECT_EQ(after, before);
    EXPECT_TRUE(toolkit.messages().empty());
}

} // namespace
} // namespace vellant::testing
