// Whole sessions replayed on the demo workspace: the transcript is the acceptance record, so
// these tests read it as a user of the runner would, in order.

#include "app/replay/replay_run.h"
#include "app/replay/replay_verbs.h"
#include "app/sample_tables/demo_data.h"
#include "support/session_fixture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

class Replay : public ::testing::Test {
protected:
    Replay() {
        workspace = samples::writeDemoData(data.str());
        std::filesystem::create_directories(appDir);
    }

    // The transcript of one run, a line each.
    std::vector<std::string> replay(const std::string& scriptText) {
        std::istringstream in(scriptText);
        std::ostringstream out;
        {
            ReplayRun run(workspace, appDir, out);
            run.run(readScript(in, replayVerbs()));
        }
        std::vector<std::string> lines;
        std::istringstream transcript(out.str());
        for (std::string line; std::getline(transcript, line);)
            lines.push_back(line);
        return lines;
    }

    testing::TempDir data;
    std::string appDir = data.file("app");
    std::string workspace;
};

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

} // namespace
} // namespace vellant::replay
