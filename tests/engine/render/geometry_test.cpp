// Where objects land: the drawn area against GDAL's own rasterization, reprojected layers
// against GDAL's transformation, the geometry kept between draws, problems reported without
// stopping the drawing, and the object under a pixel.

#include "engine/tables/table.h"
#include "render_test_support.h"

#include <cmath>
#include <gdal_alg.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

namespace vellant::engine::testing {
namespace {

// Polygons with a hole, a multipolygon and a many-pointed star, long/lat.
std::vector<std::string> agreementPolygons() {
    std::string star = "POLYGON((";
    for (int i = 0; i <= 40; ++i) {
        const double angle = 2 * M_PI * (i % 40) / 40;
        const double r = i % 2 == 0 ? 3.0 : 1.2;
        star += std::to_string(20 + r * std::cos(angle)) + " " +
                std::to_string(5 + r * std::sin(angle)) + (i < 40 ? "," : "");
    }
    star += "))";
    return {"POLYGON((0 0,10 0,10 8,0 8,0 0),(3 2,7 2,7 6,3 6,3 2))",
            "MULTIPOLYGON(((12 -6,18 -6,15 -1,12 -6)),((12 9,18 9,15 4.5,12 9)))", star,
            "POLYGON((-8 -5,-2 -7,-1 3,-6 6,-9 1,-8 -5))"};
}

// Writes the polygons as a MapInfo TAB with GDAL.
void writePolygons(const std::string& path, const std::vector<std::string>& wkts) {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("MapInfo File");
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    ASSERT_TRUE(dataset);
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    OGRLayer* layer = dataset->CreateLayer("shapes", &wgs84, wkbPolygon, nullptr);
    ASSERT_NE(layer, nullptr);
    OGRFieldDefn field("n", OFTInteger);
    layer->CreateField(&field);
    int n = 0;
    for (const std::string& wkt : wkts) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField("n", ++n);
        OGRGeometry* geometry = nullptr;
        ASSERT_EQ(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &geometry), OGRERR_NONE);
        feature.SetGeometryDirectly(geometry);
        ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
    }
}

// GDAL's rasterization of the same polygons on the picture's grid: 1 inside, 0 outside.
std::vector<unsigned char> gdalMask(const std::vector<std::string>& wkts, const Bounds& box,
                                    QSize size) {
    GDALDriver* mem = GetGDALDriverManager()->GetDriverByName("MEM");
    std::unique_ptr<GDALDataset> raster(
        mem->Create("", size.width(), size.height(), 1, GDT_Byte, nullptr));
    double transform[6] = {box.minX, (box.maxX - box.minX) / size.width(),  0, box.maxY,
                           0,        -(box.maxY - box.minY) / size.height()};
    raster->SetGeoTransform(transform);
    GDALDriver* memory = GetGDALDriverManager()->GetDriverByName("Memory");
    std::unique_ptr<GDALDataset> vector(memory->Create("", 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* layer = vector->CreateLayer("shapes", nullptr, wkbUnknown, nullptr);
    for (const std::string& wkt : wkts) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRGeometry* geometry = nullptr;
        OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &geometry);
        feature.SetGeometryDirectly(geometry);
        EXPECT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
    }
    int band = 1;
    double burn = 1;
    OGRLayerH layers[] = {OGRLayer::ToHandle(layer)};
    EXPECT_EQ(GDALRasterizeLayers(GDALDataset::ToHandle(raster.get()), 1, &band, 1, layers, nullptr,
                                  nullptr, &burn, nullptr, nullptr, nullptr),
              CE_None);
    std::vector<unsigned char> mask(static_cast<std::size_t>(size.width() * size.height()));
    EXPECT_EQ(raster->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, size.width(), size.height(),
                                                 mask.data(), size.width(), size.height(), GDT_Byte,
                                                 0, 0),
              CE_None);
    return mask;
}

TEST_F(RenderTest, DrawnAreaAgreesWithGdalsRasterization) {
    const auto wkts = agreementPolygons();
    writePolygons(folder() + "/shapes.tab", wkts);
    run("Open Table \"" + folder() + "/shapes.tab\"");
    run("Map From shapes");
    const int id = engine.windows().frontWindow();
    run("Set Map Window " + std::to_string(id) +
        " Layer 1 Display Global Global Pen (1,1,0) Global Brush (2,255,255)");
    const QSize size(400, 300);
    const QImage image = draw(id, size);
    ASSERT_TRUE(report.problems.empty());
    const Bounds box = MapRenderer::transformFor(engine.windows().getMap(id), QSizeF(size)).box();
    const auto mask = gdalMask(wkts, box, size);
    int both = 0, either = 0, gdalCount = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool drawn = image.pixelColor(x, y).red() < 128;
            const bool gdal = mask[static_cast<std::size_t>(y * size.width() + x)] != 0;
            both += drawn && gdal;
            either += drawn || gdal;
            gdalCount += gdal;
        }
    }
    ASSERT_GT(gdalCount, 5000) << "the polygons cover a good part of the picture";
    EXPECT_GE(static_cast<double>(both) / either, 0.98);
}

TEST_F(RenderTest, AReprojectedLayerLandsWhereGdalTransformsIt) {
    makeTable("places", "CoordSys Earth Projection 1, 104");
    add("places", 1, "Create Point into variable tobj (10,50) Symbol (32,16711680,8)");
    add("places", 2, "Create Point into variable tobj (14,53) Symbol (32,65280,8)");
    const int id = mapFrom("places");
    const std::string mercator = "CoordSys Earth Projection 10, 104, \"m\", 0";
    draw(id); // keeps the long/lat geometry, which the new system must replace
    run("Set Map Window " + std::to_string(id) + " " + mercator);

    OGRSpatialReference from, to;
    from.importFromMICoordSys("Earth Projection 1, 104");
    to.importFromMICoordSys(("Earth Projection 10, 104, \"m\", 0"));
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    to.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRCoordinateTransformation> transform(
        OGRCreateCoordinateTransformation(&from, &to));
    ASSERT_TRUE(transform);
    double x[] = {10, 14}, y[] = {50, 53};
    ASSERT_TRUE(transform->Transform(2, x, y));
    MapState& state = map(id);
    state.centreX = (x[0] + x[1]) / 2;
    state.centreY = (y[0] + y[1]) / 2;
    state.zoomMetres = (x[1] - x[0]) * 2;
    const QImage image = draw(id);
    EXPECT_TRUE(report.problems.empty());
    EXPECT_EQ(colourAt(image, id, x[0], y[0]), kRed);
    EXPECT_EQ(colourAt(image, id, x[1], y[1]), kGreen);
    EXPECT_EQ(countColour(image, id, x[0] - 1e5, y[0] - 1e5, x[0] + 1e5, y[0] + 1e5, kGreen), 0);
}

// A table that counts its object reads.
class CountingTable : public Table {
public:
    explicit CountingTable(std::string name) : name_(std::move(name)) {}
    const std::string& name() const override { return name_; }
    TableType type() const override { return TableType::Base; }
    std::string path() const override { return {}; }
    std::int64_t rowCount() const override { return static_cast<std::int64_t>(objects_.size()); }
    const std::vector<ColumnDef>& columns() const override { return columns_; }
    bool isMappable() const override { return true; }
    bool isRaster() const override { return false; }
    std::optional<Bounds> bounds() const override { return Bounds{0, 0, 100, 100}; }
    std::string coordSysClause() const override { return kPlan; }
    std::shared_ptr<const MapObject> object(std::int64_t row) const override {
        ++reads;
        return row >= 1 && row <= rowCount() ? objects_[static_cast<std::size_t>(row - 1)]
                                             : nullptr;
    }
    MbValue value(std::int64_t, std::size_t) const override { return MbValue::integer(0); }

    void add(MapObject object) {
        objects_.push_back(std::make_shared<const MapObject>(std::move(object)));
        rowsChanged();
    }
    mutable int reads = 0;

private:
    std::string name_;
    std::vector<ColumnDef> columns_;
    std::vector<std::shared_ptr<const MapObject>> objects_;
};

MapObject square(double x, double y, double side, int colour) {
    MapObject object;
    object.kind = ObjectKind::Region;
    object.parts = {{{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}};
    object.brush = "Brush (2," + std::to_string(colour) + ")";
    return object;
}

TEST_F(RenderTest, GeometryIsReadOnceAndAgainAfterTheTableChanges) {
    auto owned = std::make_unique<CountingTable>("counted");
    CountingTable& table = *owned;
    for (int i = 0; i < 5; ++i)
        table.add(square(i * 20.0, 40, 10, kRed));
    engine.catalog().add(std::move(owned));
    const int id = mapFrom("counted");
    draw(id);
    const int firstReads = table.reads;
    EXPECT_EQ(firstReads, 5);
    draw(id);
    const QImage again = draw(id);
    EXPECT_EQ(table.reads, firstReads) << "a redraw reads nothing from the table";
    EXPECT_EQ(colourAt(again, id, 25, 45), kRed);
    EXPECT_EQ(colourAt(again, id, 35, 65), 0xFFFFFF);

    table.add(square(30, 60, 10, kGreen));
    const QImage changed = draw(id);
    EXPECT_EQ(table.reads, firstReads + 6);
    EXPECT_EQ(colourAt(changed, id, 35, 65), kGreen);
}

TEST_F(RenderTest, InsertIntoATableShowsOnTheNextDrawAndClosingForgetsIt) {
    makeTable("t");
    add("t", 1,
        "Create Region into variable tobj 1 4 (5,30) (45,30) (45,70) (5,70) Brush "
        "(2,16711680)");
    const int id = mapFrom("t");
    EXPECT_EQ(colourAt(draw(id), id, 70, 50), 0xFFFFFF);
    add("t", 2,
        "Create Region into variable tobj 1 4 (55,30) (95,30) (95,70) (55,70) Brush "
        "(2,65280)");
    EXPECT_EQ(colourAt(draw(id), id, 70, 50), kGreen);
    run("Delete From t Where n = 2");
    EXPECT_EQ(colourAt(draw(id), id, 70, 50), 0xFFFFFF);
    EXPECT_EQ(engine.renderer().geometry().size(), 1u);
    run("Close Table t");
    EXPECT_EQ(engine.renderer().geometry().size(), 0u);
}

TEST_F(RenderTest, ALayerThatCannotBeTransformedIsReportedAndTheRestDrawn) {
    makeTable("good");
    add("good", 1,
        "Create Region into variable tobj 1 4 (5,30) (45,30) (45,70) (5,70) Brush "
        "(2,16711680)");
    makeTable("lost", "CoordSys Earth Projection 1, 104");
    add("lost", 1, "Create Point into variable tobj (1,1)");
    run("Map From good");
    const int id = engine.windows().frontWindow();
    // Lambert's conic without its parameters: GDAL makes the transformation, but no point
    // goes through it.
    map(id).coordSys = parseCoordSys("CoordSys Earth Projection 3, 104, \"m\"");
    run("Add Map Window " + std::to_string(id) + " Layer lost");
    // good is a plan: it passes unchanged, so it still shows at its coordinates.
    show(id, 50, 50, 100);
    const QImage image = draw(id);
    ASSERT_EQ(report.problems.size(), 1u);
    EXPECT_NE(std::string(report.problems[0].what()).find("lost"), std::string::npos);
    EXPECT_EQ(colourAt(image, id, 25, 50), kRed);
}

TEST_F(RenderTest, ALayerOfAClosedTableIsReportedNotDrawn) {
    makeTable("t");
    add("t", 1, "Create Point into variable tobj (50,50) Symbol (32,16711680,24)");
    const int id = mapFrom("t");
    map(id).layers.front().name = "gone";
    const QImage image = draw(id);
    ASSERT_EQ(report.problems.size(), 1u);
    EXPECT_EQ(report.problems[0].code(), kMbTableNotFound);
    EXPECT_EQ(countNotWhite(image), 0);
}

TEST_F(RenderTest, ObjectAtFindsTheTopmostObjectUnderAPixel) {
    makeTable("regions");
    makeTable("lines");
    add("regions", 1,
        "Create Region into variable tobj 2 4 (10,20) (90,20) (90,80) (10,80) 4 (30,30) (70,30) "
        "(70,70) (30,70)");
    add("lines", 1, "Create Line into variable tobj (0,25) (100,25)");
    add("lines", 2, "Create Point into variable tobj (50,50) Symbol (32,0,12)");
    const int id = mapFrom("lines, regions");
    auto hit = [&](double x, double y, bool selectableOnly = false) {
        return engine.renderer().objectAt(engine.windows().getMap(id), kPicture, pixelOf(id, x, y),
                                          selectableOnly);
    };
    auto inRegion = hit(20, 60);
    ASSERT_TRUE(inRegion);
    EXPECT_EQ(inRegion->layer, 2);
    EXPECT_EQ(inRegion->table, "regions");
    EXPECT_EQ(inRegion->row, 1);
    EXPECT_FALSE(hit(40, 40)) << "the region's hole";
    EXPECT_FALSE(hit(95, 50));

    auto onLine = hit(50, 25.5); // 1.5 pixels off the line, inside the region
    ASSERT_TRUE(onLine);
    EXPECT_EQ(onLine->layer, 1);
    EXPECT_EQ(onLine->row, 1);
    auto onPoint = hit(51, 51);
    ASSERT_TRUE(onPoint);
    EXPECT_EQ(onPoint->row, 2);

    run("Set Map Window " + std::to_string(id) + " Layer 1 Selectable Off");
    EXPECT_EQ(hit(50, 25.5, true)->layer, 2) << "the region under the line";
    EXPECT_EQ(hit(50, 25.5, false)->layer, 1);
    run("Set Map Window " + std::to_string(id) + " Layer 2 Display Off");
    EXPECT_FALSE(hit(20, 60));

    run("Create Point Into Window " + std::to_string(id) + " (20,60) Symbol (32,0,12)");
    auto cosmetic = hit(20, 60);
    ASSERT_TRUE(cosmetic);
    EXPECT_EQ(cosmetic->layer, 0);
    EXPECT_EQ(cosmetic->row, 1);
}

} // namespace
} // namespace vellant::engine::testing
