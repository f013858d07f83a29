// Whole sessions replayed on the demo workspace: the transcript is the acceptance record, so
// these tests read it as a user of the runner would, in order.

#include "demo_replay.h"
#include "prefs/record_file.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

using Replay = DemoReplay;

// Where the first line from `from` on begins with the prefix; fails the test when none does.
std::size_t findFrom(const std::vector<std::string>& lines, std::size_t from,
                     const std::string& prefix) {
    for (std::size_t i = from; i < lines.size(); ++i)
        if (lines[i].starts_with(prefix)) return i;
    ADD_FAILURE() << "no line '" << prefix << "' after line " << from;
    return lines.size();
}

// Each prefix is found after the one before it.
void expectInOrder(const std::vector<std::string>& lines,
                   const std::vector<std::string>& prefixes) {
    std::size_t at = 0;
    for (const std::string& prefix : prefixes)
        at = std::min(findFrom(lines, at, prefix) + 1, lines.size());
}

std::size_t countOf(const std::vector<std::string>& lines, const std::string& prefix) {
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(), [&](const std::string& l) { return l.starts_with(prefix); }));
}

TEST_F(Replay, TheDemoAttachesShowsTheGridAndAccepts) {
    const auto lines = replay("snapshot\npress OK\n");
    expectInOrder(lines, {"eval systeminfo(9)",
                          "eval WIndowInfo(Frontwindow(),3)",
                          "= 1",
                          "eval WindowID(frontwindow())",
                          "do statusbar hide",
                          "do Set Next Document Parent ",
                          "menu 811",
                          "eval WindowID(0)",
                          "do Set Next Document Style 0",
                          "do set event processing off",
                          "setcallback",
                          "do Create Buttonpad \"Callback\" As Pushbutton ID 2001",
                          "do Set Map Window ",
                          "callback WindowContentsChanged ",
                          "> snapshot",
                          "grid rows 10 cols 38 ",
                          "> press OK",
                          "do Alter Buttonpad \"Callback\" Destroy",
                          "setcallback nothing",
                          "result ok",
                          "state",
                          "!Workspace",
                          "Map From "});

    // Row 1 is the cosmetic layer, then the map's layers from the top.
    const std::size_t grid = findFrom(lines, 0, "grid rows");
    const std::vector<std::string> names = {"Cosmetic", "text",    "points", "lines", "mixed",
                                            "Query1",   "regions", "empty",  "raster"};
    for (std::size_t row = 1; row <= names.size(); ++row)
        EXPECT_TRUE(lines[findFrom(lines, grid, "cell " + std::to_string(row) + " 0 ")].find(
                        "text " + names[row - 1]) != std::string::npos)
            << "row " << row;
    EXPECT_EQ(countOf(lines, "unhandled"), 0u);
    EXPECT_EQ(countOf(lines, "error script"), 0u);
    // The query has no file, so the saved state names it as left out.
    EXPECT_EQ(countOf(lines, "! left out: Table Query1"), 1u);
}

TEST_F(Replay, ButtonsAndAdviceReachTheProgramThroughItsCallBack) {
    const auto lines = replay("button 2001\n"
                              "advice exit vl\n"
                              "snapshot\n"
                              "host xyzzy\n");
    // VLadvice is still empty at the first press: the program does not know the word.
    expectInOrder(lines,
                  {"> button 2001", "callback RunCommand MI:0,0,F,F,0,0,0,2001",
                   "msgbox Unknown update advice from Vellant.mbx", "> advice exit vl",
                   "callback RunCommand ", "do Alter Buttonpad \"Callback\" Destroy", "result ok",
                   // The session is over: the rest of the script runs after it.
                   "> snapshot", "error script line 3: no layer form is loaded", "> host xyzzy",
                   "error 1 Unrecognized command: xyzzy.", "state"});
}

TEST_F(Replay, AStepTheFormRefusesIsNotedAndTheScriptGoesOn) {
    const auto lines = replay("press Nothing\n"
                              "press mapimmediate\n"
                              "press Cancel\n");
    expectInOrder(
        lines,
        {"> press Nothing", "error script line 1: the form vlLayerControl has no control",
         "> press mapimmediate", "msgbox Warning: Map changes are made immediately with no undo.",
         // The message disabled Cancel.
         "> press Cancel", "error script line 3: Cancel cannot be clicked: it is disabled",
         // Nobody closed the form: the runner does when the script has run out.
         "hide vlLayerControl", "result ok"});
}

TEST_F(Replay, AnswersAheadOfTheSessionServeTheMessagesOfItsLoad) {
    // The front window is a browser: the load tells the user so and ends.
    std::ofstream(workspace, std::ios::app) << "Browse * From regions\n";
    const auto lines = replay("answer ok\nsnapshot\n");
    expectInOrder(lines, {"> answer ok", "eval WIndowInfo(Frontwindow(),3)", "= 2",
                          "msgbox Must have a Mapper as front window.", "result ok", "> snapshot",
                          "error script line 2: no layer form is loaded"});
    EXPECT_EQ(countOf(lines, "menu 811"), 0u);
}

// The line after the first one that begins with the prefix: the host's answer to an eval.
std::string answerTo(const std::vector<std::string>& lines, const std::string& evalPrefix) {
    const std::size_t at = findFrom(lines, 0, evalPrefix);
    return at + 1 < lines.size() ? lines[at + 1].substr(2) : "";
}

// Lines from the first with one prefix up to the first with the other after it.
std::vector<std::string> between(const std::vector<std::string>& lines, const std::string& from,
                                 const std::string& to) {
    const std::size_t first = findFrom(lines, 0, from);
    const std::size_t last = findFrom(lines, first, to);
    if (last >= lines.size()) return {};
    return {lines.begin() + static_cast<long>(first), lines.begin() + static_cast<long>(last)};
}

// Rows 3 to 5 hold layers 2 to 4 (row 1 is the cosmetic layer). The click goes to the view
// map alone, one layer after the other, and the picture beside the grid moves on a step.
TEST_F(Replay, TheRoadOfOneClickTurnsTheSelectedLayersOffInTheViewOnly) {
    const auto lines = replay("select 3 5\n"
                              "click 3 visible\n"
                              "snapshot\n"
                              "press OK\n");
    const std::string userMap = answerTo(lines, "eval WindowID(frontwindow())");
    const std::string view = answerTo(lines, "eval WindowID(0)");
    ASSERT_NE(userMap, view);

    std::vector<std::string> road = {"> select 3 5", "> click 3 visible"};
    for (const char* layer : {"2", "3", "4"}) {
        road.push_back("eval LayerInfo( " + view + ", " + layer + ",9)");
        road.push_back("do set map window  " + view + " Layer  " + layer + " Display Off");
    }
    road.insert(road.end(), {"> snapshot", "togglestatus 1", "> press OK"});
    expectInOrder(lines, road);

    const auto click = between(lines, "> click 3 visible", "> press OK");
    EXPECT_EQ(countOf(click, "do set map window  " + view + " Layer "), 3u);
    for (const std::string& line : click)
        EXPECT_EQ(line.find(userMap), std::string::npos) << line;
    EXPECT_EQ(countOf(lines, "unhandled"), 0u);
    EXPECT_EQ(countOf(lines, "error script"), 0u);
}

// The user's other actions, each through the grid's own events: a layer dragged upward,
// a column group unfolded, rows grouped from the grid's menu and collapsed, a zoom typed in the
// editor, an expression picked from its list, and a label placed with the picker.
TEST_F(Replay, TheUsersActionsReachTheViewMapThroughTheGrid) {
    const auto lines = replay("drag 9 2\n"
                              "select 3 4\n"
                              "rclick 3 visible\n"
                              "menu Group_selected\n"
                              "dblclick 3 layer\n"
                              "dblclick 0 zoom_layer\n"
                              "click 7 zoom max\n"
                              "type 5000\n"
                              "dblclick 0 user info\n"
                              "click 2 user info\n"
                              "pick 32\n"
                              "dblclick 0 label properties\n"
                              "click 5 label orient\n"
                              "orient 8\n"
                              "snapshot\n"
                              "press OK\n");
    const std::string view = answerTo(lines, "eval WindowID(0)");
    expectInOrder(lines,
                  {"> drag 9 2", "do Set Map Window  " + view + " Order 1,8,2,3,4,5,6,7",
                   "> type 5000", "do set map window  " + view + " Layer  6 Zoom ( 0, 5000) Off",
                   "> pick 32", "eval LayerInfo( " + view + ", 1, 1)", "= text", "> orient 8",
                   "do set map window  " + view + " Layer  4 Label Position Center Right",
                   "> snapshot", "rowheights 350 240 240 240 0 ", "> press OK"});
    // The two grouped rows carry the name of the anchor's row; the second is folded away.
    EXPECT_EQ(countOf(lines, "cell 3 2 click 1 back 0xFFFFC0 pic - text Group  3"), 1u);
    EXPECT_EQ(countOf(lines, "cell 4 2 click 1 back 0xFFFFFF pic - text Group  3"), 1u);
    // The pick wrote its expression and, beside it, its value for the top layer. The raster
    // dragged up lands below the row it was dropped on.
    EXPECT_EQ(countOf(lines, "cell 2 36 click 1 back 0xFFFFFF pic - text LayerInfo(%MAPID%,"
                             "%LAYERNUM%, 1)"),
              1u);
    EXPECT_EQ(countOf(lines, "cell 2 37 click 1 back 0xFFFFFF pic - text text"), 1u);
    EXPECT_EQ(countOf(lines, "unhandled"), 0u);
    EXPECT_EQ(countOf(lines, "error script"), 0u);
}

TEST_F(Replay, ActionsTheGridCannotTakeAreRefusedWithTheirReason) {
    const auto lines = replay("click 3 zoom max\n"
                              "click 40 visible\n"
                              "click 3 nosuchcolumn\n"
                              "type 12\n"
                              "orient 3\n"
                              "menu Ungroup_layers\n");
    expectInOrder(lines, {"error script line 1: column 18 is folded",
                          "error script line 2: the grid has no row 40",
                          "error script line 3: no column 'nosuchcolumn'",
                          "error script line 4: no cell editor is open",
                          "error script line 5: the orientation picker is not open",
                          "hide vlLayerControl"});
    EXPECT_EQ(countOf(lines, "unhandled"), 0u);
}

// A docked session: the form follows MapInfo's main window as the script moves it, takes the
// height the user drags it to at the timer's tick, and steps down for the information form.
TEST_F(Replay, TheDockedFormFollowsMapInfosWindowAndTheUsersHeight) {
    prefs::RecordFile settings;
    settings.open(appDir + "/Vellant.prf", prefs::RecordFile::Access::ReadWrite);
    for (int record = 1; record <= 9; ++record)
        settings.writeInt16(record, record == 2 ? -1 : 0);
    settings.close();

    const auto lines = replay("screen 1600 900\n"
                              "hostwindow normal 100 50 1300 850\n"
                              "geometry\n"
                              "tick\n"
                              "formheight 3000\n"
                              "tick\n"
                              "geometry\n"
                              "hostwindow maximized\n"
                              "advice resize\n"
                              "geometry\n"
                              "hostwindow minimized\n"
                              "advice resize\n"
                              "hostwindow showcmd 7\n"
                              "advice resize\n"
                              "hostwindow sideways\n"
                              "press Info\n"
                              "press Limits\n"
                              "press Exit\n"
                              "press Cancel\n"
                              "tick\n");
    expectInOrder(
        lines,
        {"> screen 1600 900", "> hostwindow normal 100 50 1300 850",
         // Not kept on top: the form goes just under MapInfo's window.
         "windowpos vlLayerDocked MapInfo 0 0 0 0 3", "> geometry",
         "geometry vlLayerDocked 1500 11750 18000 1000", "geometry LyrGrid 540 20 15935 960",
         "geometry Buttonframe 16475 20 1500 3000", "geometry Mapframe 120 0 5400 3300 hidden",
         "timer Timer1 interval 100 on", "> tick", "> formheight 3000", "> tick", "> geometry",
         "geometry vlLayerDocked 1500 9750 18000 3000", "geometry LyrGrid 540 20 15935 2960",
         "timer Timer1 interval 1000 on", "> hostwindow maximized", "> advice resize", "> geometry",
         "geometry vlLayerDocked 0 10500 24000 3000", "geometry Buttonframe 22475 20 1500 3000",
         "> hostwindow minimized", "> advice resize", "windowpos vlLayerDocked bottom 0 0 0 0 2",
         "> hostwindow showcmd 7", "log Vellant: unhandled MI window position 7",
         "> hostwindow sideways", "error script line 15: expected normal|restored", "> press Info",
         "windowpos vlLayerDocked notopmost 0 0 0 0 3", "windowpos VLInfo topmost 0 0 0 0 3",
         "> press Limits", "> press Exit", "> press Cancel", "result ok", "> tick",
         "error script line 20: no timer is running", "state"});
    EXPECT_EQ(countOf(lines, "unhandled"), 0u);
    // The form never went back on top: the user does not keep it there.
    EXPECT_EQ(countOf(lines, "windowpos vlLayerDocked topmost"), 0u);
}

} // namespace
} // namespace vellant::replay
