#include "error_number.h"
#include "platform/form.h"
#include "platform/scripted_toolkit.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace vellant::platform {
namespace {

using testing::raisedBy;

class TraceForm : public Form {
public:
    using Form::Form;
    std::string trace;
    std::function<void()> onLoad;
    bool cancelQuery = false;
    bool cancelUnload = false;
    int lastUnloadMode = -1;

protected:
    void Form_Load() override {
        trace += "load;";
        if (onLoad) onLoad();
    }
    void Form_Resize() override { trace += "resize;"; }
    void QueryUnload(bool& cancel, int unloadMode) override {
        trace += "query;";
        lastUnloadMode = unloadMode;
        cancel = cancelQuery;
    }
    void Form_Unload(bool& cancel) override {
        trace += "unload;";
        cancel = cancelUnload;
    }
};

TEST(Form, ModalShowLoadsRunsTheScriptAndReturnsWhenHidden) {
    ScriptedToolkit tk;
    TraceForm f("vlLayerControl", tk);
    bool visibleDuringStep = false;
    tk.addStep([&] {
        visibleDuringStep = f.Visible() && f.IsModal();
        f.Hide();
    });
    tk.addStep([] {}); // stays for the next show
    f.Show(vbModal);
    EXPECT_TRUE(visibleDuringStep);
    EXPECT_EQ(f.trace, "load;resize;");
    EXPECT_TRUE(f.Loaded());
    EXPECT_FALSE(f.Visible());
    EXPECT_FALSE(f.IsModal());
    EXPECT_EQ(tk.pendingSteps(), 1u);
}

TEST(Form, ModalShowFromInsideFormLoadIsTheSessionLoop) {
    ScriptedToolkit tk;
    TraceForm f("vlLayerControl", tk);
    f.onLoad = [&] {
        f.Show(vbModal);
        f.trace += "after-show;";
    };
    tk.addStep([&] { f.Hide(); });
    f.Load();
    EXPECT_EQ(f.trace, "load;resize;after-show;");
    f.Unload();
    EXPECT_FALSE(f.Loaded());
}

TEST(Form, FormThatUnloadsItselfDuringLoadMakesShowFail) {
    ScriptedToolkit tk;
    TraceForm editor("EditCell", tk);
    editor.onLoad = [&] { editor.Unload(); };
    const auto e = raisedBy([&] { editor.Show(vbModal); });
    EXPECT_EQ(e.number, 364);
    EXPECT_FALSE(editor.Loaded());
    EXPECT_TRUE(tk.modalShows().empty());
}

TEST(Form, ModalShowOfAVisibleFormIsError400) {
    ScriptedToolkit tk;
    TraceForm f("vlFeedback", tk);
    f.Show();
    EXPECT_EQ(raisedBy([&] { f.Show(vbModal); }).number, 400);
    EXPECT_EQ(raisedBy([&] { f.Show(7); }).number, 5);
}

TEST(Form, QueryUnloadAndFormUnloadCanEachKeepTheFormLoaded) {
    ScriptedToolkit tk;
    TraceForm f("vlLayerDocked", tk);
    f.Load();
    f.cancelQuery = true;
    f.Unload();
    EXPECT_TRUE(f.Loaded());
    f.cancelQuery = false;
    f.cancelUnload = true;
    f.userClose();
    EXPECT_TRUE(f.Loaded());
    EXPECT_EQ(f.lastUnloadMode, vbFormControlMenu);
    f.cancelUnload = false;
    f.trace.clear();
    f.Unload();
    EXPECT_EQ(f.trace, "query;unload;");
    EXPECT_EQ(f.lastUnloadMode, vbFormCode);
    EXPECT_FALSE(f.Loaded());
    EXPECT_TRUE(tk.loadedForms().empty());
    f.Unload(); // nothing left to unload
    EXPECT_EQ(f.trace, "query;unload;");
}

TEST(Form, UnloadFromAStepEndsTheModalShow) {
    ScriptedToolkit tk;
    TraceForm f("VLInfo", tk);
    tk.addStep([&] { f.Unload(); });
    f.Show(vbModal);
    EXPECT_FALSE(f.Loaded());
    ASSERT_EQ(tk.modalShows().size(), 1u);
    EXPECT_FALSE(tk.modalShows()[0].endedByToolkit);
}

TEST(Form, ResizeFollowsSizeChangesWhileLoadedOnly) {
    ScriptedToolkit tk;
    TraceForm f("vlLayerDocked", tk);
    f.setWidth(5000); // not loaded yet
    f.Load();
    f.setWidth(6000);
    f.setWidth(6000);
    f.setHeight(2000);
    f.setLeft(10);
    EXPECT_EQ(f.trace, "load;resize;resize;");
}

TEST(Form, ModalOwnerIsKnownOnlyDuringTheShow) {
    ScriptedToolkit tk;
    TraceForm owner("vlLayerControl", tk);
    TraceForm editor("EditCell", tk);
    Form* ownerSeen = nullptr;
    tk.addStep([&] {
        ownerSeen = editor.Owner();
        editor.Hide();
    });
    editor.Show(vbModal, &owner);
    EXPECT_EQ(ownerSeen, &owner);
    EXPECT_EQ(editor.Owner(), nullptr);
}

} // namespace
} // namespace vellant::platform
