// Adding, removing and ordering layers: what the numbers refer to afterwards, and what the
// client hears.

#include "engine/host/host_services.h"
#include "engine/host/recording_callback.h"
#include "engine/windows/window_errors.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class LayerList : public WindowTest {
protected:
    void SetUp() override {
        for (const char* table : {"regions", "points", "lines", "text", "mixed", "raster"})
            open(table);
    }
    std::string names(int window) {
        std::string out;
        const int count = static_cast<int>(number("MapperInfo(" + id(window) + ", 9)"));
        for (int n = 1; n <= count; ++n) {
            if (n > 1) out += ",";
            out += eval("LayerInfo(" + id(window) + ", " + std::to_string(n) + ", 1)");
        }
        return out;
    }
};

TEST_F(LayerList, OrderPutsTheListedLayersFirst) {
    const int window = mapFrom("regions, points, lines, text, mixed");
    run("Set Map Window " + id(window) + " Order 1,5,2,3,4");
    EXPECT_EQ(names(window), "regions,mixed,points,lines,text");
    run("Set Map Window " + id(window) + " Order 1,3,4,5,2");
    EXPECT_EQ(names(window), "regions,points,lines,text,mixed");
    run("Set Map Window " + id(window) + " Order 4");
    EXPECT_EQ(names(window), "text,regions,points,lines,mixed") << "unlisted layers keep order";
    run("Set Map Window " + id(window) + " Order mixed, \"lines\"");
    EXPECT_EQ(names(window), "mixed,lines,text,regions,points");

    EXPECT_EQ(runError("Set Map Window " + id(window) + " Order 1,1").code(), kMbBadLayer);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Order 0,1").code(), kMbBadLayer);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Order 6").code(), kMbBadLayer);
    EXPECT_EQ(names(window), "mixed,lines,text,regions,points");
}

TEST_F(LayerList, LayerSettingsTravelWithTheirLayer) {
    const int window = mapFrom("regions, points");
    run("Set Map Window " + id(window) + " Layer 2 Nodes On Label Position Above");
    run("Set Map Window " + id(window) + " Order 2, 1");
    EXPECT_EQ(eval("LayerInfo(" + id(window) + ", 1, 22)"), "T");
    EXPECT_EQ(eval("LayerInfo(" + id(window) + ", 1, 20)"), "2");
    EXPECT_EQ(eval("LayerInfo(" + id(window) + ", 2, 22)"), "F");
}

TEST_F(LayerList, AddMapPutsNewLayersOnTopInTheOrderGiven) {
    const int window = mapFrom("regions");
    run("Add map window " + id(window) + " layer points, lines");
    EXPECT_EQ(names(window), "points,lines,regions");
    run("Add Map Layer \"text\"");
    EXPECT_EQ(names(window), "text,points,lines,regions") << "without Window: the topmost map";
    EXPECT_EQ(runError("Add Map Window " + id(window) + " Layer mixed, nowhere").code(),
              kMbTableNotFound);
    EXPECT_EQ(names(window), "text,points,lines,regions") << "a bad name adds nothing";
    run("Add Map Window " + id(window) + " Layer regions");
    EXPECT_EQ(names(window), "regions,text,points,lines,regions") << "a table may show twice";
    EXPECT_EQ(eval("LayerInfo(" + id(window) + ", \"regions\", 20)"),
              eval("LayerInfo(" + id(window) + ", 1, 20)"));
}

TEST_F(LayerList, AddMapAutoStacksByKindOfObject) {
    const int window = mapFrom("points, regions");
    run("Add Map Auto Window " + id(window) + " Layer lines");
    EXPECT_EQ(names(window), "points,lines,regions");
    run("Add Map Window " + id(window) + " Auto Layer raster");
    EXPECT_EQ(names(window), "points,lines,regions,raster");
    EXPECT_EQ(eval("LayerInfo(" + id(window) + ", 4, 24)"), "2") << "an image layer";
    run("Add Map Auto Layer text");
    EXPECT_EQ(names(window), "text,points,lines,regions,raster");
    run("Add Map Auto Layer mixed");
    EXPECT_EQ(names(window), "text,points,lines,mixed,regions,raster")
        << "mixed begins with a region";
}

TEST_F(LayerList, RemoveMapTakesLayersByTheirNumbersBeforeRemoval) {
    const int window = mapFrom("regions, points, lines, text");
    run("Remove Map Window " + id(window) + " Layer 1, 3");
    EXPECT_EQ(names(window), "points,text");
    run("remove map window " + id(window) + " layer text");
    EXPECT_EQ(names(window), "points");
    EXPECT_EQ(runError("Remove Map Window " + id(window) + " Layer 0").code(), kMbBadLayer);
    EXPECT_EQ(runError("Remove Map Window " + id(window) + " Layer 2").code(), kMbBadLayer);
    EXPECT_EQ(runError("Remove Map Window " + id(window) + " Layer regions").code(), kMbBadLayer);
    run("Remove Map Window " + id(window) + " Layer 1 Interactive");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 9)"), "0");
    EXPECT_EQ(eval("WindowInfo(" + id(window) + ", 1)"), "Map");
}

TEST_F(LayerList, StatementsThatChangeAMapTellTheClient) {
    auto callback = std::make_shared<RecordingCallback>();
    engine.host().setCallback(callback);
    const int window = mapFrom("regions");
    EXPECT_TRUE(callback->changedWindows.empty()) << "a new window is no change of contents";
    run("Set Map Window " + id(window) + " Layer 1 Nodes On");
    run("Add Map Window " + id(window) + " Layer points");
    run("Set Map Window " + id(window) + " Order 2, 1");
    run("Remove Map Window " + id(window) + " Layer points");
    run("Set Window " + id(window) + " Width 2");
    EXPECT_EQ(callback->changedWindows, (std::vector<std::int32_t>(4, window)));
    EXPECT_NE(runError("Set Map Window " + id(window) + " Layer 7 Nodes On").code(), 0);
    EXPECT_EQ(callback->changedWindows.size(), 4u) << "a failed statement tells nothing";
}

} // namespace
} // namespace vellant::engine::testing
