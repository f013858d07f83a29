// Changes to the view map's layer list and the map panel, replayed on the demo workspace: what
// the host is sent, and what the user's map holds after OK or Cancel.

#include "demo_replay.h"
#include "prefs/record_file.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace vellant::replay {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// Rows of the demo map: 1 the cosmetic layer, then the layers 1 to 8 in rows 2 to 9: text,
// points, lines, mixed, Query1, regions, empty, raster. The view is window 40002.
class MapChangesReplay : public DemoReplay {
protected:
    void dockTheForm() {
        prefs::RecordFile settings;
        settings.open(appDir + "/Vellant.prf", prefs::RecordFile::Access::ReadWrite);
        for (int record = 1; record <= 9; ++record)
            settings.writeInt16(record, record == 2 ? -1 : 0);
        settings.close();
    }

    // The lines that begin with one of the prefixes, in order.
    static std::vector<std::string> linesOf(const std::vector<std::string>& lines,
                                            const std::vector<std::string>& prefixes) {
        std::vector<std::string> found;
        for (const std::string& line : lines)
            if (std::any_of(prefixes.begin(), prefixes.end(),
                            [&](const std::string& p) { return line.starts_with(p); }))
                found.push_back(line);
        return found;
    }
    // The host's tables and windows as the transcript's end shows them.
    static std::vector<std::string> state(const std::vector<std::string>& lines) {
        const auto at = std::find(lines.begin(), lines.end(), "state");
        return {at, lines.end()};
    }
    static std::string mapOf(const std::vector<std::string>& lines) {
        const std::vector<std::string> maps = linesOf(state(lines), {"Map From"});
        return maps.size() == 1 ? maps.front() : "";
    }
};

TEST_F(MapChangesReplay, DragsBothWaysSendTheWholeOrderAndOkKeepsIt) {
    const auto lines = replay("drag 9 3\ndrag 3 7\npress OK\n");
    EXPECT_THAT(linesOf(lines, {"do Set Map Window  40002 Order"}),
                ElementsAre("do Set Map Window  40002 Order 1,2,8,3,4,5,6,7",
                            "do Set Map Window  40002 Order 1,3,4,5,6,2,7,8"));
    // Query1 stands fifth too, but a workspace cannot hold a query.
    EXPECT_EQ(mapOf(lines), "Map From text,raster,lines,mixed,points,regions,empty");
    EXPECT_THAT(lines, Not(Contains(::testing::StartsWith("unhandled"))));
}

TEST_F(MapChangesReplay, RemovingARowSetAndInsertingATableChangeOnlyTheViewUntilOk) {
    const std::string script = "select 3 5\nmenu Remove_layer\nselect 4 4\nmenu Add_Layer\n"
                               "pick 1\nsnapshot\n";
    const auto accepted = replay(script + "press OK\n");
    EXPECT_THAT(
        linesOf(accepted, {"do Remove map", "do Add map", "do Set Map Window  40002 Order"}),
        ElementsAre("do Remove map window  40002 layer  2, 3, 4",
                    "do Add map window  40002 layer regions",
                    // The new layer is not counted yet: it goes to row 4 by an order
                    // of the five layers before it.
                    "do Set Map Window  40002 Order 2,3,1,4,5"));
    EXPECT_THAT(accepted, Contains(::testing::MatchesRegex("cell 4 0 .* text regions")));
    EXPECT_EQ(mapOf(accepted), "Map From text,regions,regions,empty,raster");

    const auto baseline = replay("press Cancel\n");
    const auto cancelled = replay(script + "press Cancel\n");
    EXPECT_EQ(state(cancelled), state(baseline));
}

TEST_F(MapChangesReplay, AChooserClosedWithEscOrATableTheHostRefusesAddsNothing) {
    const auto lines = replay("select 4 4\nmenu Add_Layer\nesc\n"
                              "select 4 4\nmenu Add_Layer\ntype nosuch\nsnapshot\npress OK\n");
    EXPECT_THAT(linesOf(lines, {"do Add map", "error", "do Set Map Window  40002 Order", "log"}),
                ElementsAre("log Error from getotherprefs #99 File not found",
                            "log Error from getmapprefs File not found",
                            "do Add map window  40002 layer nosuch",
                            "error 405 Table nosuch is not open."));
    // The grid was not loaded again: its last row is still the raster's.
    EXPECT_THAT(lines, Contains(::testing::MatchesRegex("cell 9 0 .* text raster")));
    EXPECT_EQ(mapOf(lines), "Map From text,points,lines,mixed,regions,empty,raster");
}

TEST_F(MapChangesReplay, ATableInsertedAtTheCosmeticRowStaysOnTop) {
    const auto lines = replay("select 1 1\nmenu Add_Layer\npick 1\nsnapshot\npress OK\n");
    EXPECT_THAT(linesOf(lines, {"do Add map", "do Set Map Window  40002 Order"}),
                ElementsAre("do Add map window  40002 layer regions"));
    EXPECT_THAT(lines, Contains(::testing::MatchesRegex("cell 2 0 .* text regions")));
    EXPECT_EQ(mapOf(lines), "Map From regions,text,points,lines,mixed,regions,empty,raster");
}

TEST_F(MapChangesReplay, ViewEntireOnTheDockedFormZoomsToOneLayerOrToARange) {
    dockTheForm();
    const auto lines = replay("select 3 3\nmenu View_Entire\nselect 3 5\nmenu View_Entire\n"
                              "panel\npress OK\n");
    const std::vector<std::string> zooms = linesOf(lines, {"do Set map window"});
    ASSERT_EQ(zooms.size(), 2U);
    EXPECT_EQ(zooms[0], "do Set map window  40002 zoom entire layer  2");
    // points, lines and mixed: lines lies in metres, so the union is mostly its box.
    EXPECT_THAT(zooms[1], ::testing::MatchesRegex("do Set map window  40002 center \\( "
                                                  "[0-9.]+, [0-9.]+\\) zoom  [0-9.E+]+ units "
                                                  "\"km\""));
    EXPECT_THAT(lines, Contains(::testing::StartsWith("panel ZoomWidth 0 shown ")));
}

TEST_F(MapChangesReplay, BoundsOnAndOffLeaveTheViewsLayersAsTheyWere) {
    const auto plain = replay("press OK\n");
    const auto lines = replay("press map_bounds\nsnapshot\npress map_bounds\npress OK\n");
    EXPECT_THAT(linesOf(lines, {"do add Map", "do remove map", "do insert into vlBounds"}),
                ::testing::SizeIs(10));
    EXPECT_THAT(lines, Contains(::testing::MatchesRegex("cell 2 0 .* text vlBounds")));
    EXPECT_EQ(mapOf(lines), mapOf(plain));
}

TEST_F(MapChangesReplay, TheCaptionsFollowAZoomOfTheView) {
    const auto lines = replay("host Set Map Window 40002 Zoom 100\npanel\npress Map_custom\n"
                              "press ZoomIn\npanel\npress Cancel\n");
    EXPECT_THAT(lines, Contains("panel ZoomWidth 0 shown 100 mi"));
    EXPECT_THAT(lines, Contains(::testing::MatchesRegex("panel ZoomScale 0 shown 1: [0-9.]+")));
    EXPECT_THAT(lines, Contains("menu 1705"));
    EXPECT_THAT(lines, Contains("panel ZoomIn 0 shown "));
}

} // namespace
} // namespace vellant::replay
