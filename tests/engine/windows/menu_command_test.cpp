// Run Menu Command: 811 clones the front map with everything it has; the tool commands pick
// the map tool; anything else is refused.

#include "engine/windows/window_errors.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class MenuCommands : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
    }
};

TEST_F(MenuCommands, CloneCopiesEveryLayerAndSettingIntoANewFrontWindow) {
    const int source = mapFrom("points, regions Position (1.5, 2) Width 5 Height 3");
    run("Set Map Window " + id(source) +
        " Center (4, 5) Zoom 321 Units \"km\" Distance Units \"km\" Area Units \"sq km\" "
        "XY Units \"m\" Preserve Scale Display Scale");
    run("Set Map Window " + id(source) +
        " Layer 1 Display Global Global Symbol (34,255,18) Selectable Off Editable On Nodes On "
        "Zoom (2, 900) Units \"km\" Label With Value Line Arrow Position Below Right "
        "Font (\"Arial\",1,12,255) Pen (2,2,255) Parallel On Auto On Overlap On Duplicates On "
        "PartialSegments On Offset 7 Max 44 Visibility Zoom (1, 50) Units \"km\" "
        "Object 3 Anchor (1, 2) Layer 2 Arrows On Centroids On Alpha 90");
    run("Set Window " + id(source) +
        " ScrollBars On Autoscroll Off Enhanced On Smooth Text "
        "Antialias Printer Name \"Plotter\" Orientation Landscape Copies 2");
    run("Set Map Window " + id(source) + " redraw off");
    run("Set Next Document Parent 4660 Style 1");

    engine.runMenuCommand(811);

    const int clone = engine.windows().frontWindow();
    EXPECT_NE(clone, source);
    EXPECT_EQ(eval("WindowID(0)"), id(clone));
    EXPECT_EQ(eval("NumWindows()"), "2");
    const Window& a = engine.windows().get(source);
    const Window& b = engine.windows().get(clone);
    ASSERT_TRUE(b.map.has_value());
    EXPECT_EQ(b.map->layers, a.map->layers);
    EXPECT_EQ(b.map->centreX, a.map->centreX);
    EXPECT_EQ(b.map->centreY, a.map->centreY);
    EXPECT_EQ(b.map->zoomMetres, a.map->zoomMetres);
    EXPECT_EQ(b.map->coordSys.clause(true), a.map->coordSys.clause(true));
    EXPECT_EQ(b.map->distanceUnits, "km");
    EXPECT_EQ(b.map->areaUnits, "sq km");
    EXPECT_EQ(b.map->xyUnits, a.map->xyUnits);
    EXPECT_EQ(b.map->preserve, MapPreserve::Scale);
    EXPECT_EQ(b.map->statusDisplay, MapStatusDisplay::Scale);
    EXPECT_EQ(b.map->editableLayer(), 1);
    EXPECT_TRUE(b.map->redraw) << "a new window draws";
    EXPECT_EQ(b.placement, a.placement) << "the clone takes the same place";
    EXPECT_EQ(b.settings.printer, a.settings.printer);
    EXPECT_TRUE(b.settings.scrollBars);
    EXPECT_FALSE(b.settings.autoscroll);
    EXPECT_EQ(b.settings.smoothText, "Antialias");
    EXPECT_EQ(b.settings.parent, 4660) << "Set Next Document goes to the clone";
    EXPECT_EQ(b.settings.documentStyle, 1);
    EXPECT_EQ(a.settings.parent, 0);
    EXPECT_EQ(eval("LayerInfo(" + id(clone) + ", 0, 1)"), "Cosmetic2");
    EXPECT_EQ(eval("WindowInfo(" + id(clone) + ", 1)"), "points,regions Map:2");
    for (int code = 1; code <= 43; ++code) {
        EXPECT_EQ(eval("LayerInfo(" + id(clone) + ", 1, " + std::to_string(code) + ")"),
                  eval("LayerInfo(" + id(source) + ", 1, " + std::to_string(code) + ")"))
            << "LayerInfo code " << code;
    }
    for (int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 17, 20}) {
        EXPECT_EQ(eval("MapperInfo(" + id(clone) + ", " + std::to_string(code) + ")"),
                  eval("MapperInfo(" + id(source) + ", " + std::to_string(code) + ")"))
            << "MapperInfo code " << code;
    }

    // The next document after the clone is an ordinary one again.
    engine.runMenuCommand(811);
    EXPECT_EQ(engine.windows().get(engine.windows().frontWindow()).settings.parent, 0);
}

TEST_F(MenuCommands, TheCloneIsIndependentOfItsSource) {
    const int source = mapFrom("regions");
    engine.runMenuCommand(811);
    const int clone = engine.windows().frontWindow();
    run("Set Map Window " + id(clone) + " Layer 1 Display Off");
    EXPECT_EQ(eval("LayerInfo(" + id(source) + ", 1, 9)"), "1");
    run("Close Window " + id(source));
    EXPECT_EQ(eval("LayerInfo(" + id(clone) + ", 1, 9)"), "0");
}

TEST_F(MenuCommands, ACustomTitleIsCloned) {
    const int source = mapFrom("regions");
    run("Set Window " + id(source) + " Title \"Europe\"");
    engine.runMenuCommand(811);
    EXPECT_EQ(eval("WindowInfo(FrontWindow(), 1)"), "Europe");
}

TEST_F(MenuCommands, CloneNeedsAMapInFront) {
    EXPECT_EQ(runError("Run Menu Command 811").code(), kMbWantMapperWindow);
    mapFrom("regions");
    run("Browse * From points");
    const int browser = engine.windows().frontWindow();
    try {
        engine.runMenuCommand(811);
        FAIL() << "cloned a browser";
    } catch (const MbError& e) {
        EXPECT_EQ(e.code(), kMbWantMapperWindow);
        EXPECT_EQ(std::string(e.what()), "Window " + id(browser) + " is not a Map window.");
    }
    EXPECT_EQ(eval("NumWindows()"), "2");
}

TEST_F(MenuCommands, ToolCommandsPickTheMapToolAndOthersAreRefused) {
    EXPECT_EQ(engine.windows().mapTool(), kToolSelect);
    for (int tool : {kToolGrabber, kToolZoomIn, kToolZoomOut, kToolSelect}) {
        engine.runMenuCommand(tool);
        EXPECT_EQ(engine.windows().mapTool(), tool);
    }
    run("Run Menu Command 1705");
    EXPECT_EQ(engine.windows().mapTool(), kToolZoomIn);
    EXPECT_FALSE(engine.windows().runMenuCommand(engine, 99999));
    EXPECT_FALSE(engine.windows().runMenuCommand(engine, 1800));
    try {
        engine.runMenuCommand(4242);
        FAIL() << "an unknown command ran";
    } catch (const MbError& e) {
        EXPECT_EQ(e.code(), kMbCmdNotSupported);
    }
    EXPECT_EQ(engine.windows().mapTool(), kToolZoomIn);
}

} // namespace
} // namespace vellant::engine::testing
