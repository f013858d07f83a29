// The statements a window is saved as make the same window again.

#include "engine/windows/window_workspace.h"
#include "engine/workspace/workspace_loader.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class WindowWorkspace : public WindowTest {
protected:
    void openAll(Engine& target) {
        for (const char* table : {"regions", "points", "lines"}) {
            target.run("Open Table \"" + folder() + "/" + table + ".tab\"");
        }
    }
    void SetUp() override { openAll(engine); }

    // The text of a window replayed in a fresh host with the same tables open.
    int replay(Engine& target, const std::string& text) {
        openAll(target);
        loadWorkspaceText(target, "!Workspace\n!Version 950\n" + text, folder());
        return target.windows().frontWindow();
    }
};

TEST_F(WindowWorkspace, AMapComesBackWithEveryLayerSetting) {
    const int window = mapFrom("points, regions Position (0.5, 1) Width 5 Height 3");
    run("Set Map Window " + id(window) +
        " Center (4, 5) Zoom 321 Units \"km\" Distance Units \"km\" Preserve Scale "
        "Layer 1 Display Global Global Symbol (34,255,18) Selectable Off Nodes On "
        "Zoom (2, 900) Units \"km\" Label With Name + \"!\" Line Arrow Position Below Right "
        "Font (\"Arial\",1,12,255) Parallel On Auto On Duplicates On Offset 7 Max 44 "
        "Visibility Zoom (1, 50) Units \"km\" Object 3 Anchor (1, 2) Line Simple "
        "Layer 2 Editable On Arrows On Centroids On Display Off Label Follow Path "
        "Layer 0 Selectable Off");
    run("Set Window " + id(window) +
        " ScrollBars On Title \"Saved \"\"map\"\"\" Max Printer "
        "Name \"Plotter\" Orientation Landscape");
    const std::string text = eval("WindowInfo(" + id(window) + ", 14)");
    EXPECT_EQ(text.rfind("Map From points,regions\n", 0), 0u) << text;
    EXPECT_EQ(eval("WindowInfo(" + id(window) + ", 15)"), text);

    Engine copy;
    const int made = replay(copy, text);
    const Window& a = engine.windows().get(window);
    const Window& b = copy.windows().get(made);
    EXPECT_EQ(b.map->layers, a.map->layers) << text;
    EXPECT_EQ(b.map->cosmetic.selectable, false);
    EXPECT_EQ(b.map->editableLayer(), 2);
    EXPECT_NEAR(b.map->centreX, a.map->centreX, 1e-9);
    EXPECT_NEAR(b.map->centreY, a.map->centreY, 1e-9);
    EXPECT_NEAR(b.map->zoomMetres, a.map->zoomMetres, 1e-6);
    EXPECT_EQ(b.map->distanceUnits, "km");
    EXPECT_EQ(b.map->preserve, MapPreserve::Scale);
    EXPECT_EQ(b.placement, a.placement);
    EXPECT_EQ(b.state, WindowState::Maximized);
    EXPECT_EQ(b.title(), "Saved \"map\"");
    EXPECT_EQ(b.settings.printer, a.settings.printer);
    EXPECT_TRUE(b.settings.scrollBars);
}

TEST_F(WindowWorkspace, AProjectedMapKeepsItsViewWhateverTheSessionsUnits) {
    const int window = mapFrom("lines");
    run("Set Distance Units \"ft\"");
    const std::string text = eval("WindowInfo(" + id(window) + ", 14)");
    Engine copy;
    const int made = replay(copy, text);
    EXPECT_NEAR(copy.windows().get(made).map->centreX, engine.windows().get(window).map->centreX,
                1e-6);
    EXPECT_NEAR(copy.windows().get(made).map->zoomMetres,
                engine.windows().get(window).map->zoomMetres, 1e-6);
}

TEST_F(WindowWorkspace, ABrowserComesBack) {
    run("Browse Name, Value From points Position (1, 2) Width 3 Height 2");
    const int window = engine.windows().frontWindow();
    Engine copy;
    const int made = replay(copy, eval("WindowInfo(" + id(window) + ", 14)"));
    EXPECT_EQ(copy.windows().get(made).browseTable, "points");
    EXPECT_EQ(copy.windows().get(made).browseColumns, (std::vector<std::string>{"Name", "Value"}));
    EXPECT_EQ(copy.windows().get(made).placement, engine.windows().get(window).placement);
}

} // namespace
} // namespace vellant::engine::testing
