// Style work replayed on the demo workspace with the regions drawn in one red style: the load's
// samples, the picks of every kind through the host's dialog, a cancelled pick, turning an
// override off, the label font of a row set, and picks that the session does not live to see
// finished. The transcript is read as the host saw it.

#include "app/replay/replay_run.h"
#include "app/replay/replay_verbs.h"
#include "app/sample_tables/demo_data.h"
#include "support/session_fixture.h"
#include "transcript_lines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

// Rows of the demo map: 1 the cosmetic layer, 2 text, 3 points, 4 lines, 5 mixed, 6 Query1,
// 7 regions (overridden), 8 empty, 9 raster. Column 14 is "style", 15 "override", 19 the label
// style.
class StyleReplay : public ::testing::Test {
protected:
    StyleReplay() {
        const std::filesystem::path demo = samples::writeDemoData(data.str());
        workspace = (demo.parent_path() / "overridden.wor").string();
        std::filesystem::copy_file(demo, workspace);
        std::ofstream(workspace, std::ios::app)
            << "Set Map\n  Layer 6 Display Global Global Brush (2,16711680,16777215)\n";
        std::filesystem::create_directories(appDir);
        std::filesystem::create_directories(temporary);
    }

    std::vector<std::string> replay(const std::string& scriptText) {
        std::istringstream in(scriptText);
        std::ostringstream out;
        {
            ReplayRun run(workspace, appDir, out);
            run.useTemporaryFolder(temporary);
            run.run(readScript(in, replayVerbs()));
        }
        return transcriptLines(out.str());
    }

    int samplesLeft() const {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(temporary))
            count += entry.path().extension() == ".bmp" ? 1 : 0;
        return count;
    }

    testing::TempDir data;
    std::string appDir = data.file("app");
    std::string temporary = data.file("temp");
    std::string workspace;
};

// The lines of one step: from its "> " line to the next step's.
std::vector<std::string> stepLines(const std::vector<std::string>& lines, const std::string& step) {
    auto at = std::find(lines.begin(), lines.end(), "> " + step);
    if (at == lines.end()) {
        ADD_FAILURE() << "no step " << step;
        return {};
    }
    auto end =
        std::find_if(at + 1, lines.end(), [](const std::string& l) { return l.starts_with("> "); });
    return {at + 1, end};
}

// What the host was told and asked to do: the program's commands, its companion messages, the
// dialogs and call-backs; evaluations, the fetches that go with them, and answers left out.
std::vector<std::string> actions(const std::vector<std::string>& lines) {
    std::vector<std::string> kept;
    for (const std::string& line : lines)
        if ((line.starts_with("do ") && !line.starts_with("do Fetch ")) ||
            line.starts_with("companion ") || line.starts_with("dialog ") ||
            line.starts_with("callback RunCommand"))
            kept.push_back(line);
    return kept;
}

// Patterns where <n> stands for a number and <file> for a sample's path.
void expectMatching(const std::vector<std::string>& lines,
                    const std::vector<std::string>& patterns) {
    ASSERT_EQ(lines.size(), patterns.size()) << ::testing::PrintToString(lines);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string expression;
        for (std::size_t at = 0; at < patterns[i].size();) {
            if (patterns[i].compare(at, 3, "<n>") == 0) {
                expression += "[0-9]+";
                at += 3;
            } else if (patterns[i].compare(at, 6, "<file>") == 0) {
                expression += "[^\"]+/rad[0-9A-F]{5}\\.tmp\\.bmp";
                at += 6;
            } else {
                const char c = patterns[i][at++];
                if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) expression += '\\';
                expression += c;
            }
        }
        EXPECT_TRUE(std::regex_match(lines[i], std::regex(expression)))
            << "line " << i << ": " << lines[i] << "\n  expected " << patterns[i];
    }
}

std::size_t countOf(const std::vector<std::string>& lines, const std::string& prefix) {
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(), [&](const std::string& l) { return l.starts_with(prefix); }));
}

bool has(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST_F(StyleReplay, ALoadDrawsEverySampleInOneWindowAndLeavesNoFileBehind) {
    const auto lines = replay("snapshot\npress OK\n");
    const std::vector<std::string> load(lines.begin(),
                                        std::find(lines.begin(), lines.end(), "> snapshot"));
    // The scratch objects come after the attachment, before the call-back.
    const auto init = std::find(load.begin(), load.end(), "do set progressbars off");
    ASSERT_NE(init, load.end());
    expectMatching(
        {init + 1, init + 9},
        {"do create table vlStyle (stylex integer) File \"" + appDir + "/vlstyle\"",
         "do create map for vlstyle",
         "do set table vlStyle fastedit on undo off usermap off userbrowse off useredit off "
         "userdisplaymap off userremovemap off",
         "do Dim tobj as object",
         "do create table vlBounds (Name char(30)) File \"" + appDir + "/vlbounds\"",
         "do create map for vlBounds",
         "do set table vlBounds fastedit on undo off usermap off userbrowse off useredit off "
         "userdisplaymap off userremovemap off",
         "setcallback"});

    EXPECT_EQ(countOf(load, "do map from vlStyle min"), 1U);
    EXPECT_EQ(countOf(load, "do Close window"), 1U);
    // The regions' override, and the label fonts of the seven layers that show labels.
    EXPECT_EQ(countOf(load, "do Save Window"), 8U);
    std::vector<std::string> regionSample;
    for (const std::string& line : load)
        if (line.find("Global Global Brush (2,16711680,16777215)") != std::string::npos ||
            (line.starts_with("do Save Window") && line.find("Width  8") != std::string::npos))
            regionSample.push_back(line);
    expectMatching(regionSample,
                   {"do set map window  <n> Layer  6 Display Global Global Brush "
                    "(2,16711680,16777215)",
                    "do Set Map Layer 1 Display Global Global Brush (2,16711680,16777215)",
                    "do Save Window  <n> As \"<file>\" Type \"BMP\"Width  8 Units \"mm\" Height 4 "
                    "Units \"mm\"",
                    "do set map window  <n> Layer  6 Display Global Global Brush "
                    "(2,16711680,16777215)"});

    const auto shown = stepLines(lines, "snapshot");
    for (const char* cell : {"cell 7 14 click 1 back 0xFFFFFF pic RgnStylePic text ",
                             "cell 7 15 click 1 back 0xFFFFFF pic bitmap text ",
                             "cell 6 14 click 1 back 0xFFFFFF pic RgnStyleOffPic text ",
                             "cell 4 14 click 1 back 0xFFFFFF pic LineStyleOffPic text ",
                             "cell 3 14 click 1 back 0xFFFFFF pic SymStyleOffPic text ",
                             "cell 2 14 click 1 back 0xFFFFFF pic TxtStyleOffPic text ",
                             "cell 2 19 click 1 back 0xFFFFFF pic bitmap text ",
                             "cell 1 14 click 0 back 0x80000011 pic - text ",
                             "cell 1 15 click 0 back 0x80000011 pic - text "})
        EXPECT_TRUE(has(shown, cell)) << cell;
    EXPECT_EQ(samplesLeft(), 0);
}

TEST_F(StyleReplay, APickOnALineSendsTheDialogThenTheSampleAndTheOverrideAsALine) {
    const auto lines = replay("style Pen (3,2,255)\nclick 4 style\npress OK\n");
    expectMatching(
        actions(stepLines(lines, "click 4 style")),
        {"do Set Map Window  <n> redraw off",
         "do Set Application Window <n>",
         "companion Dialog 1 Pen (1,2,0)",
         "do Set Map Window  <n> redraw on",
         "dialog open 1 Pen (1,2,0)",
         "dialog ok Pen (3,2,255)",
         "callback RunCommand MI:0,0,F,F,0,0,0,2001",
         "do Set Application Window 0",
         "do Set Application Window <n>",
         "do Set Next Document Parent <n> Style 1",
         "do map from vlStyle min",
         "do set window  <n> width 8 units \"mm\" height 4 units \"mm\" title \" \" sysmenuclose "
         "on",
         "do Create Line into variable tobj (1,1) (2,1)",
         "do insert into vlStyle (obj) Values (tobj)",
         "do Set Map Layer 1 Display Global Global Line (3,2,255)",
         "do set Window  <n>Width  8 Units \"mm\" Height 4 Units \"mm\"",
         "do Set Map Window  <n> Zoom Entire",
         "do Save Window  <n> As \"<file>\" Type \"BMP\"Width  8 Units \"mm\" Height 4 Units "
         "\"mm\"",
         "do Delete from vlstyle",
         "do Set Application Window 0",
         "do set map window  <n> Layer  3 Display Global Global Line (3,2,255)",
         "do Close window  <n>",
         "do Set Map Window  <n> redraw on"});
    EXPECT_TRUE(has(lines, "    Global Pen (1,2,0)  Brush (2,16777215,16777215)  Symbol (35,0,12)  "
                           "Line (3,2,255)  Font (\"Arial\",0,9,0)"));
    EXPECT_EQ(samplesLeft(), 0);
}

TEST_F(StyleReplay, RegionSymbolAndTextPicksReachTheHostAndTheSymbolsRowGrows) {
    const auto lines = replay("style Brush (5,255,16777215)\nclick 6 style\n"
                              "style Symbol (35,16711680,24)\nclick 3 style\n"
                              "style Font (\"Arial\",1,14,255)\nclick 2 style\n"
                              "snapshot\npress OK\n");
    EXPECT_TRUE(has(actions(stepLines(lines, "click 6 style")),
                    "do set map window  40002 Layer  5 Display Global Global Brush "
                    "(5,255,16777215)"));
    const auto text = actions(stepLines(lines, "click 2 style"));
    EXPECT_TRUE(has(text, "do Create Text into variable tobj \"Ab\" (1,1) (2,2) Font "
                          "(\"Arial\",1,14,255)"));
    EXPECT_TRUE(has(text, "do Set Map Layer 1 Display Graphic"));
    EXPECT_TRUE(has(text, "do set map window  40002 Layer  1 Label Font (\"Arial\",1,14,255)"));
    const auto shown = stepLines(lines, "snapshot");
    ASSERT_FALSE(shown.empty());
    // 24 points of symbol ask for 480 twips of row; 14 of text for 280.
    EXPECT_TRUE(shown[1].starts_with("rowheights 350 240 280 480 ")) << shown[1];
    EXPECT_TRUE(has(lines, "    Global Pen (1,2,0)  Brush (2,16777215,16777215)  Symbol "
                           "(35,16711680,24)  Line (1,2,0)  Font (\"Arial\",0,9,0)"));
    EXPECT_TRUE(has(lines, "    Label Line None Position Center Font (\"Arial\",1,14,255) Pen "
                           "(1,2,0)"));
}

TEST_F(StyleReplay, ACancelledPickAndTurningAnOverrideOffChangeNoSample) {
    const auto lines = replay("click 4 style\nclick 7 style\npress OK\n");
    expectMatching(actions(stepLines(lines, "click 4 style")),
                   {"do Set Map Window  <n> redraw off", "do Set Application Window <n>",
                    "companion Dialog 1 Pen (1,2,0)", "do Set Map Window  <n> redraw on",
                    "dialog open 1 Pen (1,2,0)", "dialog cancel",
                    "callback RunCommand MI:0,0,F,F,0,0,0,2001", "do Set Application Window 0",
                    "do Set Map Window  <n> redraw on"});
    expectMatching(actions(stepLines(lines, "click 7 style")),
                   {"do Set Map Window  <n> redraw off",
                    "do set map window  <n> Layer  6 Display Graphic",
                    "do Set Map Window  <n> redraw on"});
}

TEST_F(StyleReplay, TheLabelFontOfARowSetIsPickedOnceForAllItsRows) {
    const auto lines = replay("select 3 5\nstyle Font (\"Courier New\",2,12,16711680)\n"
                              "click 4 19\npress OK\n");
    const auto click = actions(stepLines(lines, "click 4 19"));
    EXPECT_EQ(countOf(click, "companion Dialog 5 Font(\"Arial\",0,9,0)"), 1U);
    EXPECT_EQ(countOf(click, "do Save Window"), 1U);
    for (const char* layer : {" 2", " 3", " 4"})
        EXPECT_TRUE(has(click, std::string("do set map window  40002 Layer ") + layer +
                                   " Label Font (\"Courier New\",2,12,16711680)"))
            << layer;
    EXPECT_EQ(countOf(lines, "    Label Line None Position Center Font (\"Courier New\""), 3U);
}

TEST_F(StyleReplay, APickWaitingWhenTheSessionEndsOrTheViewClosesEndsQuietly) {
    const auto ended = replay("style wait\nclick 4 style\nadvice exit vl\n");
    EXPECT_TRUE(has(ended, "result ok"));
    EXPECT_TRUE(has(ended, "dialog cancel"));
    EXPECT_EQ(countOf(ended, "unhandled"), 0U);
    EXPECT_EQ(countOf(ended, "do Save Window"), 8U) << "the load's samples only";

    const auto closed = replay("style wait\nclick 4 style\nhost Close Window 40002\n"
                               "style Pen (1,2,255)\npress OK\n");
    const auto pick = stepLines(closed, "style Pen (1,2,255)");
    EXPECT_EQ(countOf(pick, "msgbox overridestyle:"), 1U);
    EXPECT_TRUE(has(closed, "result ok"));
    EXPECT_EQ(countOf(closed, "unhandled"), 0U);
    EXPECT_EQ(samplesLeft(), 0);
}

} // namespace
} // namespace vellant::replay
