// A MapX application's session replayed on the demo workspace: the client's map is built from
// the front map window, and the transcript says what the session changed in it.

#include "demo_replay.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class MapXReplay : public DemoReplay {
protected:
    static std::vector<std::string> withPrefix(const std::vector<std::string>& lines,
                                               const std::string& prefix) {
        std::vector<std::string> found;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
                     [&](const std::string& l) { return l.starts_with(prefix); });
        return found;
    }
};

TEST_F(MapXReplay, OneClickTurnsLayersTwoToFourOffAndOkCarriesItToTheClientsMap) {
    const auto lines = replayMapX("select 2 4\nclick 2 visible\nsnapshot\npress OK\n");

    EXPECT_EQ(result, "ok");
    // The query has no file of its own, so the client's map cannot hold it.
    EXPECT_THAT(lines, Contains(StartsWith("! not in the client's map: Query1")));
    EXPECT_THAT(withPrefix(lines, "grid rows"), ElementsAre(StartsWith("grid rows 8 cols 39 ")));
    // The commit binds a new dataset for each of the six layers whose labels show a field.
    EXPECT_THAT(withPrefix(lines, "mapx"),
                ElementsAre("mapx Datasets.Count 6 -> 12", "mapx layer 2 Visible T -> F",
                            "mapx layer 3 Visible T -> F", "mapx layer 4 Visible T -> F"));
    EXPECT_THAT(lines, Contains("layer 1 Visible T"));

    EXPECT_THAT(withPrefix(lines, "unhandled"), IsEmpty());
    EXPECT_THAT(withPrefix(lines, "error"), IsEmpty());
}

// The application sets each layer as the workspace's map window has it, labels included, and a
// label expression that is no column leaves the labels without a field.
TEST_F(MapXReplay, TheClientsMapTakesTheWorkspacesLayerSettings) {
    std::ofstream(workspace, std::ios::app)
        << "Set Map\n"
           "  Layer 2 Selectable Off Zoom (10, 500) Units \"mi\" On\n"
           "  Layer 2 Label Position Right Auto On Font (\"Courier New\",1,10,255)"
           " Visibility Zoom (0, 800) Units \"mi\"\n"
           "  Layer 3 Label With Name + \"!\"\n";
    const auto lines = replayMapX("press Cancel\n");

    for (const char* expected :
         {"layer 2 Selectable F", "layer 2 ZoomLayer T", "layer 2 ZoomMin 10",
          "layer 2 ZoomMax 500", "layer 2 AutoLabel T", "layer 2 LabelProperties.Position 5",
          "layer 2 LabelProperties.LabelZoom T", "layer 2 LabelProperties.LabelZoomMax 800",
          "layer 2 LabelProperties.DataField Name",
          "layer 2 LabelProperties.Style.TextFont Courier New 10",
          "layer 2 LabelProperties.Style.TextFontColor 16711680",
          "layer 3 LabelProperties.DataField ", "layer 1 Selectable T", "layer 1 AutoLabel F"})
        EXPECT_THAT(lines, Contains(expected));
}

// The bounds layer is the MapInfo host's alone. A picker closed without a choice still turns
// the override on, with the layer's own style, as the click does not ask the picker's answer.
TEST_F(MapXReplay, BoundsAreRefusedAndACancelledPickerKeepsTheStyle) {
    const auto lines = replayMapX("press map_bounds\nclick 5 style\nstyle cancel\npress OK\n");

    EXPECT_THAT(withPrefix(lines, "msgbox"),
                ElementsAre("msgbox Not available for MapX in this version"));
    EXPECT_THAT(withPrefix(lines, "picked"), ElementsAre("picked cancel"));
    EXPECT_THAT(withPrefix(lines, "mapx layer"), ElementsAre("mapx layer 5 OverrideStyle F -> T"));
}

TEST_F(MapXReplay, CancelLeavesTheClientsMapAsItWas) {
    const auto lines = replayMapX("select 2 4\nclick 2 visible\npress Cancel\n");

    EXPECT_EQ(result, "cancel");
    EXPECT_THAT(withPrefix(lines, "mapx"), IsEmpty());
    EXPECT_THAT(lines, Contains("layer 2 Visible T"));
}

// The view's layer operations are journalled and replayed on the client's map at OK, the first
// of them included: the two maps end with the same layers.
TEST_F(MapXReplay, ARemovedLayerIsRemovedFromTheClientsMapAtOk) {
    const auto lines = replayMapX("select 3 3\nmenu Remove_layer\npress OK\n");

    EXPECT_EQ(result, "ok");
    EXPECT_THAT(withPrefix(lines, "msgbox"), IsEmpty());
    EXPECT_THAT(withPrefix(lines, "layer 3 Name"), ElementsAre("layer 3 Name mixed"));
    EXPECT_THAT(withPrefix(lines, "layer 7 Name"), IsEmpty());
}

// What the lines of one form hold in their marked part, in the order written.
std::vector<std::string> captured(const std::vector<std::string>& lines, const std::string& form) {
    std::vector<std::string> found;
    const std::regex pattern(form);
    std::smatch match;
    for (const std::string& line : lines)
        if (std::regex_match(line, match, pattern)) found.push_back(match[1]);
    return found;
}
// The layer names of the snapshot's rows, top to bottom, and those of the client's map by number.
std::vector<std::string> viewLayers(const std::vector<std::string>& lines) {
    return captured(lines, R"(cell [1-9][0-9]* 0 .* text (.*))");
}
std::vector<std::string> clientLayers(const std::vector<std::string>& lines) {
    return captured(lines, R"(layer [0-9]+ Name (.*))");
}

TEST_F(MapXReplay, ARemovalAnInsertionAndADragLeaveTheClientsMapWithTheViewsLayersInOrder) {
    // The first insertion's file dialog is cancelled, which adds nothing and says nothing.
    const std::string script = "select 4 4\nfile cancel\nmenu Add_Layer\n"
                               "select 3 3\nmenu Remove_layer\n"
                               "select 4 4\nfile lines.tab\nmenu Add_Layer\n"
                               "drag 2 6\nsnapshot\n";
    const auto accepted = replayMapX(script + "press OK\n");

    EXPECT_EQ(result, "ok");
    const std::vector<std::string> expected = {"text",    "mixed",  "lines", "regions",
                                               "nothing", "points", "raster"};
    EXPECT_EQ(viewLayers(accepted), expected);
    EXPECT_EQ(clientLayers(accepted), expected);
    EXPECT_THAT(withPrefix(accepted, "msgbox"), IsEmpty());
    EXPECT_THAT(withPrefix(accepted, "error"), IsEmpty());

    const auto before = clientLayers(replayMapX("press Cancel\n"));
    const auto cancelled = replayMapX(script + "press Cancel\n");
    EXPECT_EQ(viewLayers(cancelled), expected);
    EXPECT_EQ(clientLayers(cancelled), before);
    EXPECT_THAT(withPrefix(cancelled, "mapx"), IsEmpty());
}

// The clicked row's labels are off, so the click on the set turns them on with a font picked
// once, and every row of the set is given the clicked row's labels.
TEST_F(MapXReplay, TheLabelFontPickedOnARowSetReachesEveryRowOfTheSet) {
    const auto lines = replayMapX("click 3 19\nselect 2 4\nclick 3 19\n"
                                  "style Font (\"Courier New\",2,12,16711680)\npress OK\n");

    EXPECT_THAT(withPrefix(lines, "pick"),
                ElementsAre("pick 5 Font (\"Arial\",0,9,0)",
                            "picked Font (\"Courier New\",2,12,16711680)"));
    for (const char* layer : {"2", "3", "4"}) {
        const std::string prefix = std::string("layer ") + layer + " LabelProperties.";
        EXPECT_THAT(lines, Contains(prefix + "Visible T"));
        EXPECT_THAT(lines, Contains(prefix + "Style.TextFont Courier New 12"));
        EXPECT_THAT(lines, Contains(prefix + "Style.TextFontColor 255"))
            << "red, as MapX writes it";
    }
    EXPECT_THAT(lines, Contains("layer 5 LabelProperties.Style.TextFont Arial 9"));
}

} // namespace
} // namespace vellant::replay
