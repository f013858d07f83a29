// The map panel on the embedded host: the zoom options and their captions, the tools, the
// drawing switch, and the bounds layer coming and going.

#include "../grid/grid_host.h"
#include "base/basic_text.h"
#include "mapchanges/map_panel.h"
#include "session/recording_mapinfo.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace vellant::grid::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kNameCode = 1; // LayerInfo: the layer's name

class MapPanel : public GridHost {
protected:
    MapPanel() {
        session->gMapInfo = recorder;
        form->session = session.get();
        load();
        recorder->calls.clear();
        session::Session& s = *session;
        s.gCenterX = 5;
        s.gCenterY = 2.5F;
        s.gViewZoom = 300;
        s.gScaleZoom = 150;
    }
    ~MapPanel() override { form->session = nullptr; }

    std::vector<std::string> sent(const std::string& prefix) const {
        return recorder->callsStartingWith("do " + prefix);
    }
    std::string mapper(int code) { return eval("Mapperinfo(" + Str(view) + "," + Str(code) + ")"); }
    std::string names() {
        std::string all;
        const int count = std::stoi(mapper(9));
        for (int layer = 1; layer <= count; ++layer)
            all += (layer > 1 ? "," : "") + info(layer, kNameCode);
        return all;
    }
    bool toolsShown() {
        return form->ZoomIn.Visible() && form->ZoomOut.Visible() && form->Pan.Visible() &&
               form->SelectTool.Visible();
    }
    bool toolsHidden() {
        return !form->ZoomIn.Visible() && !form->ZoomOut.Visible() && !form->Pan.Visible() &&
               !form->SelectTool.Visible();
    }

    std::shared_ptr<vellant::testing::RecordingMapInfo> recorder =
        std::make_shared<vellant::testing::RecordingMapInfo>(app);
};

TEST_F(MapPanel, TheZoomOptionsCentreTheViewAtTheirZoomAndTheCaptionsSayIt) {
    const std::string v = Str(view);
    form->Map_SameScale.select();
    EXPECT_EQ(mapper(1), "150");
    EXPECT_EQ(form->ZoomWidth.Caption(), "150 mi");
    EXPECT_EQ(form->ScaleUnits.Caption(), "paperunit:mi");
    EXPECT_EQ(form->ZoomScale.Caption(), "1: " + mapper(2));
    EXPECT_EQ(form->ZoomScale.ToolTipText(), "Scale is shown in form paperunits:mapunits");
    EXPECT_TRUE(toolsHidden());

    form->Map_custom.select();
    EXPECT_TRUE(toolsShown());
    EXPECT_TRUE(form->MapButtonFrame.Visible());

    form->map_samezoom.select();
    EXPECT_EQ(mapper(1), "300");
    EXPECT_EQ(mapper(3), "5");
    EXPECT_EQ(mapper(4), "2.5");
    EXPECT_EQ(form->ZoomWidth.Caption(), "300 mi");
    EXPECT_TRUE(toolsHidden());
    EXPECT_EQ(form->Map_SameScale.Value(), 0);

    // Custom moved nothing: two zooms in all.
    EXPECT_THAT(sent("Set Map Window " + v + " center"),
                ElementsAre("do Set Map Window " + v + " center ( 5, 2.5) zoom  150",
                            "do Set Map Window " + v + " center ( 5, 2.5) zoom  300"));
    EXPECT_EQ(log(), "");
}

TEST_F(MapPanel, TheToolsRunTheirMenuCommandsAndRedrawFollowsItsCheck) {
    form->Map_custom.select();
    form->ZoomIn.Click();
    form->Pan.Click();
    EXPECT_THAT(recorder->callsStartingWith("menu"), ElementsAre("menu 1705", "menu 1702"));
    EXPECT_EQ(session->gMapTool, 1702);

    form->RedrawMAP.setValue(0);
    form->RedrawMAP.setValue(1);
    const std::string v = Str(view);
    EXPECT_THAT(sent("Set Map Window " + v + " redraw"),
                ElementsAre("do Set Map Window " + v + " redraw off",
                            "do Set Map Window " + v + " redraw on"));
}

TEST_F(MapPanel, BoundsOnAndOffLeaveTheLayersAndKeepTheRectangles) {
    const std::string before = names();
    session->gLayerGroup[3] = " g";

    form->map_bounds.setValue(1);
    EXPECT_EQ(info(1, kNameCode), "vlBounds");
    EXPECT_EQ(session->gLayerCount, kLayers + 1);
    EXPECT_EQ(eval("TableInfo(\"vlBounds\",8)"), Str(kLayers).substr(1));
    EXPECT_EQ(grid().TextMatrix(row(1), 0), "vlBounds");
    EXPECT_THAT(sent("Set Map Window " + Str(view) + " Zoom Entire"), ::testing::SizeIs(1));
    // One rectangle per layer, its corners the table's bounds.
    EXPECT_THAT(sent("Create Region"),
                ::testing::Contains("do Create Region into variable tobj 1 4 (-10,-5) (10,-5) "
                                    "(10,5) (-10,5)  pen (1, 2, 255 )   brush (01, 0, 0) "));

    form->map_bounds.setValue(0);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(session->gLayerCount, kLayers);
    EXPECT_EQ(eval("TableInfo(\"vlBounds\",8)"), Str(kLayers).substr(1));
    EXPECT_EQ(grid().TextMatrix(row(1), 0), "qregions");

    // A second use puts the rectangles in again, on top of the first.
    form->map_bounds.setValue(1);
    EXPECT_EQ(eval("TableInfo(\"vlBounds\",8)"), Str(2 * kLayers).substr(1));
    form->map_bounds.setValue(0);
    // Each pass shifts the groups upward on and off.
    EXPECT_EQ(session->gLayerGroup[3], "");
    EXPECT_EQ(log(), "");
}

TEST_F(MapPanel, BoundsDoNothingInImmediateMode) {
    session->gImmediate = kTrue;
    form->map_bounds.setValue(1);
    EXPECT_THAT(sent(""), IsEmpty());
    EXPECT_EQ(session->gLayerCount, kLayers);
}

TEST_F(MapPanel, ALayerThatHasGoneStopsTheBoundsAndTheRowsSoFarStay) {
    // The user closed a table behind the program's back: its layer left the view, and the
    // count the grid holds names a layer that is no more.
    run("Close Table text");
    form->map_bounds.setValue(1);
    EXPECT_NE(info(1, kNameCode), "vlBounds");
    EXPECT_EQ(eval("TableInfo(\"vlBounds\",8)"), "7");
    EXPECT_EQ(form->map_bounds.Value(), 1);
    EXPECT_TRUE(logged("Error from showbounds Invalid layer: 8")) << log();
}

} // namespace
} // namespace vellant::grid::testing
