#include "engine/tables/column_type.h"
#include "engine/tables/gdal_table.h"
#include "engine/tables/raster_table.h"
#include "engine/tables/table_fixture.h"
#include "engine/tables/table_opener.h"

#include <cpl_conv.h>
#include <fstream>
#include <gdal.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>

namespace vellant::engine::testing {
namespace {

// What GDAL itself says about a vector file, asked independently of the engine.
struct GdalFacts {
    std::int64_t count = 0;
    OGREnvelope extent;
    bool hasExtent = false;
    std::string coordSys;
};

GdalFacts askGdal(const std::string& path) {
    GDALAllRegister();
    GdalFacts facts;
    GDALDatasetH dataset = GDALOpenEx(path.c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr);
    EXPECT_NE(dataset, nullptr) << path;
    if (dataset == nullptr) return facts;
    OGRLayerH layer = GDALDatasetGetLayer(dataset, 0);
    facts.count = OGR_L_GetFeatureCount(layer, FALSE);
    if (facts.count < 0) facts.count = OGR_L_GetFeatureCount(layer, TRUE);
    facts.hasExtent = OGR_L_GetExtent(layer, &facts.extent, TRUE) == OGRERR_NONE;
    if (OGRSpatialReferenceH srs = OGR_L_GetSpatialRef(layer)) {
        char* text = nullptr;
        if (OSRExportToMICoordSys(srs, &text) == OGRERR_NONE) facts.coordSys = text;
        CPLFree(text);
    }
    GDALClose(dataset);
    return facts;
}

class GdalTableTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { folder_ = std::make_unique<TableFolder>("gdal"); }
    static void TearDownTestSuite() { folder_.reset(); }
    static std::string file(const std::string& name) { return folder_->file(name); }
    static std::unique_ptr<TableFolder> folder_;
};
std::unique_ptr<TableFolder> GdalTableTest::folder_;

TEST_F(GdalTableTest, CountsExtentsAndCoordSysAgreeWithGdal) {
    for (const samples::SampleTable& expected : samples::vectorSampleTables()) {
        SCOPED_TRACE(expected.file);
        const auto table = GdalTable::open(file(expected.file), expected.name);
        const GdalFacts gdal = askGdal(file(expected.file));
        EXPECT_EQ(table->rowCount(), expected.rows);
        EXPECT_EQ(table->rowCount(), gdal.count);
        ASSERT_EQ(table->bounds().has_value(), gdal.hasExtent);
        if (gdal.hasExtent) {
            EXPECT_DOUBLE_EQ(table->bounds()->minX, gdal.extent.MinX);
            EXPECT_DOUBLE_EQ(table->bounds()->minY, gdal.extent.MinY);
            EXPECT_DOUBLE_EQ(table->bounds()->maxX, gdal.extent.MaxX);
            EXPECT_DOUBLE_EQ(table->bounds()->maxY, gdal.extent.MaxY);
        }
        // GDAL reports a TAB without objects without its coordinate system; the engine reads
        // it from the .MAP header, and it is the one the table was written in.
        const bool emptyTab = expected.rows == 0 && expected.file.ends_with(".tab");
        EXPECT_EQ(table->coordSysClause(), emptyTab                ? expected.coordSys
                                           : gdal.coordSys.empty() ? ""
                                                                   : "CoordSys " + gdal.coordSys);
        if (expected.rows > 0) {
            EXPECT_EQ(table->coordSysClause(), expected.coordSys);
        }
    }
}

TEST_F(GdalTableTest, TheFirstObjectHasTheKindItWasWrittenAs) {
    for (const samples::SampleTable& expected : samples::vectorSampleTables()) {
        if (expected.rows == 0) continue;
        SCOPED_TRACE(expected.file);
        const auto table = GdalTable::open(file(expected.file), expected.name);
        const auto object = table->object(1);
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->kind, expected.firstKind);
    }
}

TEST_F(GdalTableTest, ObjectsCarryTheirMapInfoStyles) {
    const auto regions = GdalTable::open(file("regions.tab"), "regions");
    EXPECT_EQ(regions->object(1)->brush, "Brush (2,16711680,16777215)");
    EXPECT_EQ(regions->object(1)->pen, "Pen (1,2,0)");
    EXPECT_EQ(regions->object(2)->brush, "Brush (5,65280)");
    EXPECT_EQ(regions->object(2)->pen, "Pen (2,2,255)");
    // A region with a hole keeps both rings.
    EXPECT_EQ(regions->object(3)->parts.size(), 2u);

    const auto points = GdalTable::open(file("points.tab"), "points");
    EXPECT_EQ(points->object(3)->symbol, "Symbol (34,16711680,12)");
    EXPECT_EQ(points->object(3)->parts, (std::vector<std::vector<MapPoint>>{{{0, 5}}}));

    const auto text = GdalTable::open(file("text.tab"), "text");
    const auto label = text->object(2);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->kind, ObjectKind::Text);
    EXPECT_EQ(label->text, "Beta");
    EXPECT_EQ(label->font, "Font (\"Arial\",0,0,0)");

    const auto mixed = GdalTable::open(file("mixed.tab"), "mixed");
    EXPECT_EQ(mixed->object(2)->kind, ObjectKind::Line);
    EXPECT_EQ(mixed->object(3)->kind, ObjectKind::Point);
    const auto lines = GdalTable::open(file("lines.tab"), "lines");
    EXPECT_EQ(lines->object(3)->kind, ObjectKind::Polyline);
    EXPECT_EQ(lines->object(3)->parts.size(), 2u);
}

TEST_F(GdalTableTest, ColumnsAndValuesComeWithMapBasicTypes) {
    for (const char* name : {"regions.tab", "regions.mif"}) {
        SCOPED_TRACE(name);
        const auto table = GdalTable::open(file(name), "t");
        ASSERT_EQ(table->columns().size(), 2u);
        EXPECT_EQ(table->columns()[0].name, "Name");
        EXPECT_EQ(table->columns()[0].type, kColChar);
        EXPECT_EQ(table->columns()[0].width, 20);
        EXPECT_EQ(table->columns()[1].type, kColInteger);
        EXPECT_EQ(table->value(2, 0).toEvalText(), table->rowCount() == 3 ? "Beta" : "South");
        EXPECT_EQ(table->value(2, 1).toEvalText(), "2");
    }
}

TEST_F(GdalTableTest, RowsReadInAnyOrderAndRowsOutsideTheTableAreBlank) {
    // MIF is read in order: going back must start the reading again and still be right.
    const auto table = GdalTable::open(file("regions.mif"), "r");
    EXPECT_EQ(table->value(2, 0).toEvalText(), "South");
    EXPECT_EQ(table->value(1, 0).toEvalText(), "North");
    EXPECT_EQ(table->value(2, 0).toEvalText(), "South");
    EXPECT_FALSE(table->rowExists(0));
    EXPECT_FALSE(table->rowExists(3));
    EXPECT_EQ(table->object(3), nullptr);
    EXPECT_EQ(table->value(3, 0).toEvalText(), "");
    EXPECT_EQ(raisedBy([&] { table->value(1, 7); }).code(), kMbNoField);
}

// GDAL cannot tell a TAB without objects from one without a map; the .MAP file beside it can.
TEST_F(GdalTableTest, AnEmptyTabHasNoRowsNoBoundsButItsMap) {
    const auto table = GdalTable::open(file("empty.tab"), "empty");
    EXPECT_EQ(table->rowCount(), 0);
    EXPECT_TRUE(table->isMappable());
    EXPECT_EQ(table->coordSysClause(), "CoordSys Earth Projection 1, 104");
    EXPECT_FALSE(table->bounds().has_value());
    EXPECT_FALSE(table->rowExists(1));
}

TEST_F(GdalTableTest, TabFilesGiveTheCoordSysBoundsOfTheirMapHeader) {
    const auto regions = GdalTable::open(file("regions.tab"), "regions");
    const auto bounds = regions->coordSysBounds();
    ASSERT_TRUE(bounds.has_value());
    // GDAL gives a longitude/latitude TAB it writes the range -1000..1000 on both axes.
    EXPECT_NEAR(bounds->minX, -1000, 1e-6);
    EXPECT_NEAR(bounds->maxX, 1000, 1e-6);
    EXPECT_NEAR(bounds->minY, -1000, 1e-6);
    EXPECT_NEAR(bounds->maxY, 1000, 1e-6);
    const auto lines = GdalTable::open(file("lines.tab"), "lines");
    ASSERT_TRUE(lines->coordSysBounds().has_value());
    EXPECT_LT(lines->coordSysBounds()->minX, 500000);
    EXPECT_GT(lines->coordSysBounds()->maxX, 503000);
}

TEST_F(GdalTableTest, TheRasterTableHasItsImageCornersAsBounds) {
    const samples::SampleTable& expected = samples::rasterSampleTable();
    ASSERT_TRUE(RasterTable::isRasterTab(file(expected.file)));
    EXPECT_FALSE(RasterTable::isRasterTab(file("regions.tab")));
    const auto table = openTableFile(file(expected.file), "");
    EXPECT_EQ(table->name(), "raster");
    EXPECT_EQ(table->type(), TableType::Image);
    EXPECT_TRUE(table->isRaster());
    EXPECT_EQ(table->rowCount(), 0);
    ASSERT_TRUE(table->bounds().has_value());
    EXPECT_DOUBLE_EQ(table->bounds()->minX, expected.minX);
    EXPECT_DOUBLE_EQ(table->bounds()->minY, expected.minY);
    EXPECT_DOUBLE_EQ(table->bounds()->maxX, expected.maxX);
    EXPECT_DOUBLE_EQ(table->bounds()->maxY, expected.maxY);
    EXPECT_EQ(table->coordSysClause(), expected.coordSys);
}

TEST_F(GdalTableTest, OpeningFindsFilesWrittenInAnotherCaseOrWithoutExtension) {
    const std::string upper = (folder_->path() / "REGIONS.TAB").string();
    EXPECT_EQ(openTableFile(upper, "")->rowCount(), 3);
    EXPECT_EQ(openTableFile((folder_->path() / "points").string(), "")->name(), "points");
    std::string windowsStyle = folder_->path().string() + "\\lines";
    EXPECT_EQ(openTableFile(windowsStyle, "Roads")->name(), "Roads");
}

// Damaged files: a copy of a good table with one of its files spoilt.
class DamagedTabTest : public GdalTableTest {
protected:
    std::string damaged(const std::string& extension, const std::string& content, bool truncate) {
        const std::filesystem::path dir = folder_->path() / "damaged";
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
        for (const char* ext : {".tab", ".dat", ".map", ".id"}) {
            std::filesystem::copy_file(folder_->path() / (std::string("regions") + ext),
                                       dir / (std::string("regions") + ext));
        }
        const std::filesystem::path spoilt = dir / ("regions" + extension);
        if (truncate) {
            std::filesystem::resize_file(spoilt, std::filesystem::file_size(spoilt) / 3);
        } else {
            std::ofstream(spoilt, std::ios::binary | std::ios::trunc) << content;
        }
        return (dir / "regions.tab").string();
    }

    // Opening and reading every row either works or raises MbError 825.
    static void readAll(const std::string& path) {
        try {
            const auto table = openTableFile(path, "");
            for (std::int64_t row = 1; row <= table->rowCount(); ++row) {
                table->object(row);
                for (std::size_t c = 0; c < table->columns().size(); ++c)
                    table->value(row, c);
            }
            ADD_FAILURE() << "the damaged table read without an error";
        } catch (const MbError& error) {
            EXPECT_EQ(error.code(), kMbCantAccessFile) << error.what();
        }
    }
};

TEST_F(DamagedTabTest, GarbageHeaderIsAnError) {
    readAll(damaged(".tab", "!table\nthis is not a table header \x01\x02\x03\n", false));
    readAll(damaged(".tab", "", false));
}

TEST_F(DamagedTabTest, TruncatedMapIsAnError) {
    readAll(damaged(".map", "", true));
}

TEST_F(DamagedTabTest, TruncatedDatIsAnError) {
    readAll(damaged(".dat", "", true));
}

TEST_F(DamagedTabTest, MissingFileIsAnError) {
    const MbError error = raisedBy([] { openTableFile("/nonexistent/folder/nothing.tab", ""); });
    EXPECT_EQ(error.code(), kMbCantAccessFile);
    EXPECT_NE(std::string(error.what()).find("nothing.tab"), std::string::npos);
}

TEST_F(DamagedTabTest, RasterTabWithoutItsImageIsAnError) {
    const std::filesystem::path dir = folder_->path() / "raster_alone";
    std::filesystem::create_directories(dir);
    std::filesystem::copy_file(folder_->path() / "raster.tab", dir / "raster.tab",
                               std::filesystem::copy_options::overwrite_existing);
    EXPECT_EQ(raisedBy([&] { openTableFile((dir / "raster.tab").string(), ""); }).code(),
              kMbCantAccessFile);
}

} // namespace
} // namespace vellant::engine::testing

namespace vellant::engine::testing {
namespace {

// Other formats GDAL reads, written here by GDAL (TopoJSON, which GDAL only reads, by hand).
class OtherFormats : public ::testing::Test {
protected:
    OtherFormats() : folder_("formats") {}

    std::string write(const char* driverName, const std::string& file) {
        GDALAllRegister();
        const std::string path = (folder_.path() / file).string();
        GDALDatasetH dataset = GDALCreate(GDALGetDriverByName(driverName), path.c_str(), 0, 0, 0,
                                          GDT_Unknown, nullptr);
        EXPECT_NE(dataset, nullptr);
        OGRSpatialReferenceH srs = OSRNewSpatialReference(nullptr);
        OSRImportFromEPSG(srs, 4326);
        OSRSetAxisMappingStrategy(srs, OAMS_TRADITIONAL_GIS_ORDER);
        OGRLayerH layer = GDALDatasetCreateLayer(dataset, "places", srs, wkbPoint, nullptr);
        OSRDestroySpatialReference(srs);
        OGRFieldDefnH field = OGR_Fld_Create("label", OFTString);
        OGR_L_CreateField(layer, field, TRUE);
        OGR_Fld_Destroy(field);
        const double xs[] = {5, 6, 7};
        const char* labels[] = {"first", "second", "third"};
        for (int i = 0; i < 3; ++i) {
            OGRFeatureH feature = OGR_F_Create(OGR_L_GetLayerDefn(layer));
            OGR_F_SetFID(feature, 100 - i * 10); // ids that are not row numbers
            OGR_F_SetFieldString(feature, 0, labels[i]);
            OGRGeometryH point = OGR_G_CreateGeometry(wkbPoint);
            OGR_G_SetPoint_2D(point, 0, xs[i], 50);
            OGR_F_SetGeometryDirectly(feature, point);
            EXPECT_EQ(OGR_L_CreateFeature(layer, feature), OGRERR_NONE);
            OGR_F_Destroy(feature);
        }
        GDALClose(dataset);
        return path;
    }

    static void expectPlaces(const Table& table) {
        EXPECT_EQ(table.rowCount(), 3);
        EXPECT_EQ(table.value(3, 0).toEvalText(), "third");
        EXPECT_EQ(table.value(1, 0).toEvalText(), "first");
        ASSERT_NE(table.object(2), nullptr);
        EXPECT_EQ(table.object(2)->kind, ObjectKind::Point);
        EXPECT_EQ(table.object(2)->parts[0][0], (MapPoint{6, 50}));
        EXPECT_EQ(table.coordSysClause(), "CoordSys Earth Projection 1, 104");
        ASSERT_TRUE(table.bounds().has_value());
        EXPECT_DOUBLE_EQ(table.bounds()->maxX, 7);
    }

    TableFolder folder_;
};

TEST_F(OtherFormats, ShapefileRowsAreItsRecordsFromOne) {
    const auto table = openTableFile(write("ESRI Shapefile", "places.shp"), "");
    EXPECT_EQ(table->name(), "places");
    expectPlaces(*table);
    EXPECT_FALSE(table->rowExists(4));
}

TEST_F(OtherFormats, GeoJsonRowsFollowTheFileWhateverTheIds) {
    const auto table = openTableFile(write("GeoJSON", "places.geojson"), "");
    expectPlaces(*table);
}

TEST_F(OtherFormats, TopoJsonOpens) {
    const std::filesystem::path path = folder_.path() / "shapes.topojson";
    std::ofstream(path) << R"({"type":"Topology","objects":{"shapes":{"type":"GeometryCollection",
        "geometries":[{"type":"Point","coordinates":[1,2],"properties":{"name":"a"}},
                      {"type":"LineString","arcs":[0],"properties":{"name":"b"}}]}},
        "arcs":[[[0,0],[1,1],[2,0]]]})";
    const auto table = openTableFile(path.string(), "");
    EXPECT_EQ(table->rowCount(), 2);
    ASSERT_NE(table->object(2), nullptr);
    EXPECT_EQ(table->object(2)->kind, ObjectKind::Polyline);
}

} // namespace
} // namespace vellant::engine::testing
