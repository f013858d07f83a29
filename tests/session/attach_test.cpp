// Attaching to MapInfo: the commands of the attach in their order, and the three ways the
// attach refuses, each with its own message.

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/host/button_pad.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/windows/window_manager.h"
#include "session/attach.h"
#include "session/host_session.h"
#include "session/layer_form.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace vellant::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using AttachTest = HostSession;

std::string str(std::int64_t n) {
    return Str(n);
}

TEST_F(AttachTest, AttachSendsItsCommandsInOrderAndLoadsTheFormAroundThem) {
    const std::string m = str(userMap);
    int view = 0;
    std::int32_t frame = 0;
    std::string scaleZoom;
    std::size_t callsBeforeShow = 0;
    step([&](session::Session& s) {
        view = s.gViewWin;
        frame = s.layerForm().MapInfoFrame.hWnd();
        scaleZoom = Str(s.gScaleZoom);
        callsBeforeShow = recorder->calls.size();
        EXPECT_EQ(s.gFormReady, kTrue);
        EXPECT_EQ(s.gLayerCount, 4);
        EXPECT_EQ(s.layerForm().Caption(), "Vellant 1.00 Beta (01)");
        EXPECT_EQ(s.layerForm().LyrGrid.Cols(), 38);
        EXPECT_EQ(companion().global("hwnd"), CStr(s.layerForm().hWnd()));
        const engine::ButtonPad* pad = engine->host().findButtonPad("Callback");
        ASSERT_NE(pad, nullptr);
        EXPECT_FALSE(pad->visible);
        EXPECT_NE(pad->button(2001), nullptr);
        EXPECT_EQ(pad->button(2002), nullptr);
        // The view is a child of the form's frame; later windows open normally again.
        EXPECT_EQ(window(view).settings.parent, frame);
        EXPECT_FALSE(engine->windows().nextDocument().parent.has_value());
    });
    pressCancel();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    const std::string v = str(view);
    const std::vector<std::string> expected = {
        "eval systeminfo(9)",
        "eval WIndowInfo(Frontwindow(),3)",
        "eval WindowID(frontwindow())",
        "do Set Map Window " + m + " redraw off",
        "do statusbar hide",
        "eval WIndowInfo(" + m + ",6)",
        "eval WIndowInfo(" + m + ",7)",
        "eval WIndowInfo(" + m + ",5)",
        "eval WIndowInfo(" + m + ",4)",
        "do Set Next Document Parent " + str(frame) + " Style 1",
        "menu 811",
        "eval WindowID(0)",
        "do Set Map Window " + v + " redraw off",
        "do Set Next Document Style 0",
        "do set distance units Mapperinfo(" + v + ",12)",
        "eval Mapperinfo(" + v + ",9)",
        "do set event processing off",
        "do set progressbars off",
        "do create table vlStyle (stylex integer) File \"" + dir.file("vlstyle") + "\"",
        "do create map for vlstyle",
        "do set table vlStyle fastedit on undo off usermap off userbrowse off useredit off "
        "userdisplaymap off userremovemap off",
        "do Dim tobj as object",
        "do create table vlBounds (Name char(30)) File \"" + dir.file("vlbounds") + "\"",
        "do create map for vlBounds",
        "do set table vlBounds fastedit on undo off usermap off userbrowse off useredit off "
        "userdisplaymap off userremovemap off",
        "setcallback",
        "do Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ",
        "eval Mapperinfo(" + m + ",3)",
        "eval Mapperinfo(" + m + ",4)",
        "eval windowinfo(" + m + ",4)",
        "eval windowinfo(" + v + ",4)",
        "eval mapperinfo(" + v + ",1)",
        "do Set Map Window " + v + " zoom " + scaleZoom,
        "eval mapperinfo(" + v + ",12)",
        "eval mapperinfo(" + v + ",2)",
    };
    ASSERT_GE(recorder->calls.size(), expected.size());
    EXPECT_THAT(std::vector<std::string>(recorder->calls.begin(),
                                         recorder->calls.begin() +
                                             static_cast<std::ptrdiff_t>(expected.size())),
                ElementsAreArray(expected));
    // Both maps draw again just before the form shows; the host reports each change, and the
    // map panel's captions follow the view's zoom (the folded column groups opened the gate).
    const std::vector<std::string> captions = {"eval mapperinfo(" + v + ",1)",
                                               "eval mapperinfo(" + v + ",12)",
                                               "eval mapperinfo(" + v + ",2)"};
    std::vector<std::string> last;
    for (const std::string& call :
         {"do Set Map Window " + v + " redraw on", "do Set Map Window " + m + " redraw on"}) {
        last.push_back(call);
        last.insert(last.end(), captions.begin(), captions.end());
    }
    ASSERT_GE(callsBeforeShow, last.size());
    EXPECT_THAT(
        std::vector<std::string>(
            recorder->calls.begin() + static_cast<std::ptrdiff_t>(callsBeforeShow - last.size()),
            recorder->calls.begin() + static_cast<std::ptrdiff_t>(callsBeforeShow)),
        ElementsAreArray(last));
    EXPECT_EQ(toolkit.cursorCount(), 0);
}

TEST_F(AttachTest, WithoutMapInfoTheUserIsAskedToStartIt) {
    registry.revokeRunning(engine::MapInfoAutomation::kClassName);
    std::string notRunning;
    try {
        registry.GetObject(engine::MapInfoAutomation::kClassName);
    } catch (const RuntimeError& e) {
        notRunning = e.description();
    }

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), ElementsAre("Please start MapInfo (Professional or runtime) first"));
    EXPECT_THAT(logLines(), Contains("error from mapinfo_init " + notRunning));
    EXPECT_THAT(toolkit.modalShows(), IsEmpty());
    EXPECT_THAT(toolkit.loadedForms(), IsEmpty());
    EXPECT_EQ(toolkit.cursorCount(), 0);
    EXPECT_THAT(recorder->calls, IsEmpty());
}

// The runtime edition is bound by a name given as a file name; in the registry that finds an
// object only when one runs under exactly that name.
TEST_F(AttachTest, AHostRunningUnderTheRuntimeNameIsFoundByTheSecondLookup) {
    registry.revokeRunning(engine::MapInfoAutomation::kClassName);
    registry.registerRunning("MapInfo.Runtime", recorder);
    pressOK();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), IsEmpty());
    ASSERT_EQ(toolkit.modalShows().size(), 1U);
    EXPECT_FALSE(windowOpen(userMap));
}

TEST_F(AttachTest, ABrowserInFrontIsRefusedBeforeAnythingChanges) {
    run("Browse * From regions");
    const std::string before = hostState();

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), ElementsAre("Must have a Mapper as front window."));
    EXPECT_THAT(toolkit.modalShows(), IsEmpty());
    EXPECT_THAT(toolkit.loadedForms(), IsEmpty());
    EXPECT_THAT(recorder->callsStartingWith("do Set Map Window"), IsEmpty());
    EXPECT_THAT(recorder->callsStartingWith("menu"), IsEmpty());
    EXPECT_EQ(hostStateBesidesBoundsTable(), before);
    EXPECT_TRUE(engine->host().statusBarVisible());
    EXPECT_EQ(toolkit.cursorCount(), 0);
}

// Every call fails once the front window test has failed, and the user hears of the missing
// map window, not of the kind of the front window.
TEST_F(AttachTest, WithNoWindowAtAllTheUserIsAskedForAMap) {
    closeAllWindows();
    std::string noWindow;
    try {
        app->eval("WIndowInfo(Frontwindow(),3)");
    } catch (const RuntimeError& e) {
        noWindow = e.description();
    }
    ASSERT_FALSE(noWindow.empty());

    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(messages(), ElementsAre("Please bring the desired Map window to the front "));
    const std::vector<std::string> lines = logLines();
    EXPECT_THAT(lines, Contains("error from mapinfo_init " + noWindow));
    EXPECT_GT(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) {
                                return line.rfind("error from mapinfo_init ", 0) == 0;
                            }),
              5);
    // The procedure went on past the front window test.
    EXPECT_THAT(recorder->calls, Contains("do statusbar hide"));
    EXPECT_TRUE(engine->host().statusBarVisible());
    EXPECT_THAT(toolkit.modalShows(), IsEmpty());
    EXPECT_EQ(engine->windows().count(), 0);
    EXPECT_EQ(toolkit.cursorCount(), 0);
}

class AttachWithoutCompanionTest : public HostSession {
protected:
    AttachWithoutCompanionTest() { companionRuns = false; }
};

TEST_F(AttachWithoutCompanionTest, EitherFormEndsTheSessionWithALogLineAndClosesTheView) {
    const std::string noItem = RuntimeError(kErrSubscript).description();

    EXPECT_EQ(runMapInfoLayer(), "ok");
    writeSettings(0, kTrue);
    EXPECT_EQ(runMapInfoLayer(), "ok");

    EXPECT_THAT(logLines(), Contains("From load vllayer " + noItem));
    EXPECT_THAT(logLines(), Contains("From load docked " + noItem));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(toolkit.modalShows(), IsEmpty());
    EXPECT_THAT(toolkit.loadedForms(), IsEmpty());
    EXPECT_EQ(engine->windows().ids(), std::vector<int>{userMap});
    EXPECT_EQ(engine->host().findButtonPad("Callback"), nullptr);
    EXPECT_EQ(engine->host().callback(), nullptr);
}

// MapBasic programs that answer only to their names.
class NamedPrograms : public hostmodel::MapInfoApp {
public:
    class Program : public hostmodel::MBApplication {
    public:
        explicit Program(std::string name) : name_(std::move(name)) {}
        std::string Name() const override { return name_; }
        hostmodel::MBGlobal& MBGlobals(const std::string&) override { raiseError(kErrSubscript); }
        void Do(const std::string&) override {}

    private:
        std::string name_;
    };

    explicit NamedPrograms(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            programs_.push_back(std::make_unique<Program>(name));
    }
    void Do(const std::string&) override {}
    std::string eval(const std::string&) override { return ""; }
    void RunMenuCommand(int) override {}
    std::string LastErrorMessage() const override { return ""; }
    int LastErrorCode() const override { return 0; }
    void SetCallback(std::shared_ptr<hostmodel::MapInfoCallback>) override {}
    int MBApplicationsCount() const override { return static_cast<int>(programs_.size()); }
    hostmodel::MBApplication& MBApplications(int index) override {
        if (index < 1 || index > MBApplicationsCount()) raiseError(kErrSubscript);
        return *programs_[static_cast<std::size_t>(index - 1)];
    }

private:
    std::vector<std::unique_ptr<Program>> programs_;
};

TEST(FindCompanionTest, FindsTheFirstProgramOfThatNameInAnyLetterCase) {
    platform::ScriptedToolkit toolkit;
    TempDir dir;
    session::Session s(toolkit, dir.str());
    const auto numberOf = [&s](const std::vector<std::string>& names) {
        s.gMapInfo = std::make_shared<NamedPrograms>(names);
        return session::FindCompanion(s);
    };
    EXPECT_EQ(numberOf({"tools.mbx", "VELLANT.MBX", "vellant.mbx"}), 2);
    EXPECT_EQ(numberOf({"vellant.mbx.bak", "tools.mbx"}), 0);
    EXPECT_EQ(numberOf({}), 0);
}

} // namespace
} // namespace vellant::testing
