// The map: its classes by name, its view, when it asks to be painted, its drawing by the
// renderer, and the map control of a form.

#include "base/runtime_error.h"
#include "mapx/feature.h"
#include "mapx/layer_info.h"
#include "mapx/map_display.h"
#include "mapx/rectangle.h"
#include "mapx/style.h"
#include "mapx_fixture.h"

namespace vellant::mapx::testing {
namespace {

class MapTest : public MapXTest {
protected:
    // The colour of the picture at a point of the map.
    QColor colourAt(QImage& picture, double x, double y) {
        auto view = map->Bounds();
        const double px = (x - view->XMin()) / (view->XMax() - view->XMin()) * picture.width();
        const double py = (view->YMax() - y) / (view->YMax() - view->YMin()) * picture.height();
        return picture.pixelColor(static_cast<int>(px), static_cast<int>(py));
    }
    QImage draw() {
        QImage image(ownMap().pixelSize(), QImage::Format_ARGB32_Premultiplied);
        const engine::RenderReport report = ownMap().draw(image);
        EXPECT_TRUE(report.problems.empty());
        return image;
    }
};

TEST_F(MapTest, TheClassesAreCreatedByTheirNames) {
    EXPECT_TRUE(create<Map>("mapx.map.4"));
    EXPECT_TRUE(create<LayerInfo>("MapX.LayerInfo.4"));
    EXPECT_TRUE(create<Feature>("MapX.Feature.4"));
    EXPECT_TRUE(create<Rectangle>("MapX.Rectangle.4"));
    EXPECT_TRUE(create<Style>("MapX.Style.4"));
    unregisterMapXClasses(registry);
    EXPECT_THROW(registry.CreateObject("MapX.Map.4"), RuntimeError);
}

TEST_F(MapTest, TheFirstLayerGivesTheMapItsCoordinateSystemAndView) {
    add("lines.tab"); // UTM zone 31, in metres
    EXPECT_NE(ownMap().coordSysClause().find("Projection 8"), std::string::npos);
    auto view = map->Bounds();
    EXPECT_LE(view->XMin(), 500000);
    EXPECT_GE(view->XMax(), 503000);
    EXPECT_NEAR(map->CenterX(), 501500, 1);
    // A later layer changes neither.
    map->setCenterX(501000);
    add("regions.tab");
    EXPECT_EQ(map->CenterX(), 501000);
}

TEST_F(MapTest, ZoomIsTheViewsWidthInMapUnitAndBoundsFitsTheView) {
    add("regions.tab");
    map->setmapunit(mx::miUnitDegree);
    auto box = create<hostmodel::MXRectangle>("MapX.Rectangle.4");
    box->Set(30, -5, 10, 5); // wider than the view's shape: the width decides
    map->setBounds(*box);
    EXPECT_NEAR(map->zoom(), 20, 1e-4);
    EXPECT_NEAR(map->CenterX(), 20, 1e-9);
    EXPECT_NEAR(map->CenterY(), 0, 1e-9);
    map->setzoom(20);
    auto view = map->Bounds();
    EXPECT_NEAR(view->XMax() - view->XMin(), 20, 1e-6);
    EXPECT_THROW(map->setCenterY(std::nan("")), RuntimeError);
}

TEST_F(MapTest, AutoRedrawHoldsBackPaintingAndRefreshPaintsNow) {
    auto layer = add("regions.tab");
    std::vector<MapChange> heard;
    ownMap().changed.add([&](MapChange change) { heard.push_back(change); });
    map->setAutoRedraw(false);
    layer->setVisible(kFalse);
    map->Layers()->Move(1, 1);
    map->setzoom(50);
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(layer->Visible()); // the value applies at once
    map->setAutoRedraw(true);
    EXPECT_EQ(heard, (std::vector<MapChange>{MapChange::Picture}));
    map->setAutoRedraw(true); // nothing is waiting
    map->Refresh();
    map->setCurrentTool(mx::miZoomInTool);
    EXPECT_EQ(heard,
              (std::vector<MapChange>{MapChange::Picture, MapChange::Picture, MapChange::Tool}));
    EXPECT_EQ(map->CurrentTool(), mx::miZoomInTool);
}

TEST_F(MapTest, TheRendererDrawsTheLayersAsTheyAreSet) {
    auto regions = add("regions.tab");
    QImage picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(255, 0, 0)); // the table's own red

    regions->Style()->setRegionColor(0x00FF00); // OLE green
    regions->setoverridestyle(kTrue);
    picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(0, 255, 0));

    // Zoom layering: shown only within the limits, which are in MapUnit (miles).
    regions->setZoomLayer(kTrue);
    regions->setZoomMin(map->zoom() * 2);
    regions->setZoomMax(map->zoom() * 3);
    picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(Qt::white));
    regions->setZoomMin(0);
    picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(0, 255, 0));

    regions->setVisible(kFalse);
    picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(Qt::white));
}

TEST_F(MapTest, ALayerAboveCoversTheOneBelowUntilMoved) {
    add("regions.tab");
    auto scratch = map->Layers()->CreateLayer("Cover", "", 1);
    auto box = create<hostmodel::MXRectangle>("MapX.Rectangle.4");
    box->Set(1, 1, 9, 9);
    auto blue = create<hostmodel::MXStyle>("MapX.Style.4");
    blue->setRegionColor(0xFF0000);
    scratch->AddFeature(*map->FeatureFactory()->CreateRegion(*box, *blue));
    QImage picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(0, 0, 255));
    map->Layers()->Move(1, 2);
    picture = draw();
    EXPECT_EQ(colourAt(picture, 5, 5), QColor(255, 0, 0));
}

TEST_F(MapTest, TheMapControlShowsItsMapAtItsSize) {
    MapDisplay display(runtime);
    std::vector<MapChange> heard;
    display.changed.add([&](MapChange change) { heard.push_back(change); });
    display.Move(0, 0, 200 * 15, 100 * 15);
    EXPECT_EQ(display.map().pixelSize(), QSize(200, 100));
    display.map().Layers()->Add(Variant(table("regions.tab")), 1);
    const QImage picture = display.picture();
    EXPECT_EQ(picture.size(), QSize(200, 100));
    EXPECT_EQ(display.map().Layers()->Count(), 1);

    display.map().setVisible(false);
    EXPECT_FALSE(display.Visible());
    display.setVisible(true);
    EXPECT_TRUE(display.map().Visible());
    EXPECT_GE(std::count(heard.begin(), heard.end(), MapChange::Picture), 2);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), MapChange::Visible), 2);
}

TEST_F(MapTest, AMapThatGoesTakesItsLayersTablesWithIt) {
    add("regions.tab");
    add("points.tab");
    auto held = map->Layers()->Item(Variant(1));
    auto layers = map->Layers();
    const int before = static_cast<int>(engine.renderer().geometry().size());
    EXPECT_GT(before, 0);
    map.reset();
    EXPECT_EQ(engine.renderer().geometry().size(), 0u);
    EXPECT_THROW(held->Bounds(), RuntimeError);
    EXPECT_EQ(layers->Count(), 0);
    EXPECT_THROW(layers->Add(Variant(table("regions.tab")), 1), RuntimeError);
}

} // namespace
} // namespace vellant::mapx::testing
