#include "error_number.h"
#include "platform/form.h"
#include "platform/menu_item.h"
#include "platform/scripted_toolkit.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace vellant::platform {
namespace {

using testing::raisedBy;

TEST(ScriptedToolkit, ScriptThatRunsOutClosesTheFormAndSaysSo) {
    ScriptedToolkit tk;
    Form f("vlLayerControl", tk);
    int ran = 0;
    tk.addStep([&] { ++ran; });
    tk.addStep([&] { ++ran; });
    f.Show(vbModal);
    EXPECT_EQ(ran, 2);
    EXPECT_FALSE(f.Visible());
    ASSERT_EQ(tk.modalShows().size(), 1u);
    EXPECT_EQ(tk.modalShows()[0].form, "vlLayerControl");
    EXPECT_EQ(tk.modalShows()[0].stepsRun, 2u);
    EXPECT_TRUE(tk.modalShows()[0].endedByToolkit);
}

TEST(ScriptedToolkit, NestedModalShowTakesTheNextStepsThenTheOuterGoesOn) {
    ScriptedToolkit tk;
    Form layers("vlLayerControl", tk);
    Form editor("EditCell", tk);
    std::string trace;
    tk.addStep([&] {
        trace += "click;";
        editor.Show(vbModal, &layers);
        trace += "editor-closed;";
    });
    tk.addStep([&] {
        trace += tk.modalForm() == &editor ? "type-in-editor;" : "wrong-form;";
        editor.Hide();
    });
    tk.addStep([&] {
        trace += tk.modalForm() == &layers ? "ok;" : "wrong-form;";
        layers.Hide();
    });
    layers.Show(vbModal);
    EXPECT_EQ(trace, "click;type-in-editor;editor-closed;ok;");
    ASSERT_EQ(tk.modalShows().size(), 2u);
    EXPECT_EQ(tk.modalShows()[0].stepsRun, 2u); // the outer show counts its own steps
    EXPECT_EQ(tk.modalShows()[1].stepsRun, 1u);
    EXPECT_FALSE(tk.modalShows()[0].endedByToolkit);
    EXPECT_EQ(tk.modalForm(), nullptr);
}

TEST(ScriptedToolkit, WorkPostedDuringAStepRunsBeforeTheNextStep) {
    ScriptedToolkit tk;
    Form f("vlLayerControl", tk);
    std::string trace;
    tk.addStep([&] {
        trace += "do;";
        tk.post([&] { trace += "host-dialog;"; });
        trace += "returned;";
    });
    tk.addStep([&] {
        trace += "next;";
        f.Hide();
    });
    f.Show(vbModal);
    EXPECT_EQ(trace, "do;returned;host-dialog;next;");
}

TEST(ScriptedToolkit, MessageBoxesTakeQueuedAnswersThenTheirDefaultButton) {
    ScriptedToolkit tk;
    tk.queueAnswer(vbNo);
    EXPECT_EQ(tk.MsgBox("Restart now?", vbYesNo + vbQuestion, "Vellant"), vbNo);
    EXPECT_EQ(tk.MsgBox("Restart now?", vbYesNo + vbQuestion), vbYes);
    EXPECT_EQ(tk.MsgBox("Discard?", vbYesNoCancel + vbDefaultButton3), vbCancel);
    EXPECT_EQ(tk.MsgBox("Go on?", vbOKCancel + vbDefaultButton2), vbCancel);
    // A default button the box does not have falls back to its first.
    EXPECT_EQ(tk.MsgBox("Close map to remove last layer", vbOKOnly + vbDefaultButton2), vbOK);
    ASSERT_EQ(tk.messages().size(), 5u);
    EXPECT_EQ(tk.messages()[0].prompt, "Restart now?");
    EXPECT_EQ(tk.messages()[0].buttons, vbYesNo + vbQuestion);
    EXPECT_EQ(tk.messages()[0].title, "Vellant");
    EXPECT_EQ(tk.messages()[0].answer, vbNo);
}

TEST(ScriptedToolkit, AnswerTheBoxCannotGiveIsAScriptFault) {
    ScriptedToolkit tk;
    tk.queueAnswer(vbYes);
    EXPECT_THROW(tk.MsgBox("No objects in layers"), std::invalid_argument);
    EXPECT_EQ(raisedBy([&] { tk.MsgBox("x", 6); }).number, 5);
}

TEST(ScriptedToolkit, TopmostWindowsStayAheadOfOrdinaryOnes) {
    ScriptedToolkit tk;
    const std::int32_t layers = 0x20001, info = 0x20002, host = 0x20003;
    const int flags = SWP_NOMOVE | SWP_NOSIZE;
    tk.SetWindowPos(host, HWND_TOP, 0, 0, 0, 0, flags);
    tk.SetWindowPos(layers, HWND_TOPMOST, 0, 0, 0, 0, flags);
    tk.SetWindowPos(info, HWND_TOP, 0, 0, 0, 0, flags);
    EXPECT_EQ(tk.windowOrder(), (std::vector{layers, info, host}));
    // Off topmost while a modal form shows, then back.
    tk.SetWindowPos(layers, HWND_NOTOPMOST, 0, 0, 0, 0, flags);
    EXPECT_FALSE(tk.isTopmost(layers));
    tk.SetForegroundWindow(info);
    EXPECT_EQ(tk.windowOrder().front(), info);
    EXPECT_EQ(tk.foregroundWindow(), info);
    tk.SetWindowPos(layers, HWND_TOPMOST, 0, 0, 0, 0, flags);
    tk.SetForegroundWindow(host);
    EXPECT_EQ(tk.windowOrder(), (std::vector{layers, host, info}));
    tk.SetWindowPos(layers, HWND_BOTTOM, 0, 0, 0, 0, 2);
    EXPECT_EQ(tk.windowOrder().back(), layers);
    EXPECT_FALSE(tk.isTopmost(layers));
    tk.SetWindowPos(host, HWND_TOPMOST, 0, 0, 0, 0, flags | SWP_NOZORDER);
    EXPECT_FALSE(tk.isTopmost(host));
    EXPECT_EQ(tk.windowPosCalls().size(), 7u);
    EXPECT_EQ(tk.windowPosCalls()[3].insertAfter, HWND_NOTOPMOST);
}

// The host's main window is another program's: the script says where it stands, and a form can
// then be put just behind it, leaving the topmost level.
TEST(ScriptedToolkit, AWindowWithAPlacementStandsOnTheDesktop) {
    ScriptedToolkit tk;
    const std::int32_t mapinfo = 0x20011, docked = 0x20012;
    WindowPlacement placement;
    EXPECT_FALSE(tk.GetWindowPlacement(mapinfo, placement));
    placement.showCmd = SW_SHOWMAXIMIZED;
    placement.rcNormalPosition = {10, 20, 810, 620};
    tk.setWindowPlacement(mapinfo, placement);
    WindowPlacement answer;
    ASSERT_TRUE(tk.GetWindowPlacement(mapinfo, answer));
    EXPECT_EQ(answer.showCmd, SW_SHOWMAXIMIZED);
    EXPECT_EQ(answer.rcNormalPosition.right, 810);

    std::vector<std::int32_t> told;
    tk.onWindowPos = [&](const ScriptedToolkit::WindowPosCall& call) { told.push_back(call.hwnd); };
    tk.SetWindowPos(docked, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    tk.SetWindowPos(docked, mapinfo, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_FALSE(tk.isTopmost(docked));
    EXPECT_EQ(tk.windowOrder(), (std::vector{mapinfo, docked}));
    EXPECT_EQ(told, (std::vector{docked, docked}));
}

TEST(ScriptedToolkit, PopupChoiceClicksTheItemUnlessItIsGray) {
    ScriptedToolkit tk;
    Form f("vlLayerControl", tk);
    MenuItem popup("layers_popup"), group("Group_selected"), remove("Remove_layer");
    popup.addItem(group);
    popup.addItem(remove);
    int groups = 0, removes = 0;
    group.onClick = [&] { ++groups; };
    remove.onClick = [&] { ++removes; };
    remove.setEnabled(false);
    tk.queuePopupChoice("Group_selected");
    tk.queuePopupChoice("Remove_layer");
    tk.queuePopupChoice("");
    for (int i = 0; i < 4; ++i)
        f.PopupMenu(popup);
    EXPECT_EQ(groups, 1);
    EXPECT_EQ(removes, 0);
    EXPECT_EQ(tk.popups().size(), 4u);
    tk.queuePopupChoice("View_Entire");
    EXPECT_THROW(f.PopupMenu(popup), std::invalid_argument);
}

TEST(ScriptedToolkit, CancelledMailLogonLeavesNoSession) {
    ScriptedToolkit tk;
    tk.failNextSignOn(32003, "Login has failed");
    const auto e = raisedBy([&] { tk.mailSignOn(); });
    EXPECT_EQ(e.number, 32003);
    EXPECT_FALSE(tk.mailSessionOpen());
    tk.mailSignOn();
    EXPECT_TRUE(tk.mailSessionOpen());
    MailMessage m;
    m.MsgSubject = "Vellant PROBLEM REPORT [CMP: " + tk.ComputerName() + "]";
    tk.composeMail(m);
    tk.mailSignOff();
    EXPECT_FALSE(tk.mailSessionOpen());
    ASSERT_EQ(tk.mails().size(), 1u);
    EXPECT_EQ(tk.mails()[0].MsgSubject, "Vellant PROBLEM REPORT [CMP: HEADLESS]");
}

TEST(ScriptedToolkit, UnloadedFormLeavesTheWindowOrder) {
    ScriptedToolkit tk;
    Form f("VLInfo", tk);
    f.Show();
    EXPECT_EQ(tk.foregroundWindow(), f.hWnd());
    ASSERT_EQ(tk.loadedForms().size(), 1u);
    f.Unload();
    EXPECT_TRUE(tk.windowOrder().empty());
    EXPECT_EQ(tk.foregroundWindow(), 0);
    EXPECT_TRUE(tk.loadedForms().empty());
}

} // namespace
} // namespace vellant::platform
