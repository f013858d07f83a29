// GDAL's own MapInfo test files, where the machine has them. They are read in place and never
// copied into the repository; without the folder the tests are skipped.

#include "base/basic_text.h"
#include "engine/tables/gdal_table.h"
#include "engine/tables/table_fixture.h"
#include "engine/tables/table_opener.h"
#include "engine/tables/table_path.h"

#include <cpl_conv.h>
#include <gdal.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>

namespace vellant::engine::testing {
namespace {

const std::filesystem::path kMitabData = "/work/shared/data/gdal-mitab";

std::vector<std::filesystem::path> mapInfoFiles() {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(kMitabData, error)) {
        std::string ext = entry.path().extension().string();
        for (char& c : ext)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (ext == ".tab" || ext == ".mif") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

class GdalMitabData : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(kMitabData)) {
            GTEST_SKIP() << kMitabData << " is not on this machine";
        }
        GDALAllRegister();
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }
    void TearDown() override {
        if (std::filesystem::is_directory(kMitabData)) CPLPopErrorHandler();
    }
};

TEST_F(GdalMitabData, EveryFileGdalReadsOpensWithGdalsCountExtentAndCoordSys) {
    int compared = 0;
    for (const std::filesystem::path& path : mapInfoFiles()) {
        SCOPED_TRACE(path.string());
        GDALDatasetH dataset = GDALOpenEx(path.c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr);
        if (dataset == nullptr) {
            // What GDAL refuses the engine refuses too, with an error and not a crash.
            EXPECT_EQ(raisedBy([&] { openTableFile(path.string(), ""); }).code(),
                      kMbCantAccessFile);
            continue;
        }
        OGRLayerH layer = GDALDatasetGetLayer(dataset, 0);
        GIntBig count = OGR_L_GetFeatureCount(layer, FALSE);
        if (count < 0) count = OGR_L_GetFeatureCount(layer, TRUE);
        OGREnvelope extent;
        const bool hasExtent = OGR_L_GetExtent(layer, &extent, TRUE) == OGRERR_NONE;
        std::string coordSys;
        if (OGRSpatialReferenceH srs = OGR_L_GetSpatialRef(layer)) {
            char* text = nullptr;
            if (OSRExportToMICoordSys(srs, &text) == OGRERR_NONE)
                coordSys = "CoordSys " + std::string(text);
            CPLFree(text);
        }
        GDALClose(dataset);

        const auto table = openTableFile(path.string(), "");
        EXPECT_EQ(table->rowCount(), count);
        // Where GDAL gives no coordinate system for a TAB with a .MAP (one without objects),
        // the engine reads the header's; the files with a known one are checked below.
        const bool tabWithMap =
            LCase(path.extension().string()) == ".tab" &&
            findFileIgnoringCase(std::filesystem::path(path).replace_extension(".map"));
        if (coordSys.empty() && tabWithMap)
            EXPECT_FALSE(table->coordSysClause().empty());
        else
            EXPECT_EQ(table->coordSysClause(), coordSys);
        if (hasExtent && count > 0) {
            ASSERT_TRUE(table->bounds().has_value());
            EXPECT_DOUBLE_EQ(table->bounds()->minX, extent.MinX);
            EXPECT_DOUBLE_EQ(table->bounds()->maxY, extent.MaxY);
        }
        // Every row reads, whatever its kind of object.
        for (std::int64_t row = 1; row <= table->rowCount(); ++row) {
            table->object(row);
            for (std::size_t c = 0; c < table->columns().size(); ++c)
                table->value(row, c);
        }
        ++compared;
    }
    EXPECT_GT(compared, 10);
}

TEST_F(GdalMitabData, AllGeomsGivesEachMapInfoObjectItsKind) {
    const auto table = openTableFile((kMitabData / "all_geoms.tab").string(), "");
    ASSERT_EQ(table->rowCount(), 16);
    using K = ObjectKind;
    const std::vector<K> kinds{K::Point,  K::Point,      K::Point,    K::Line,
                               K::Line,   K::Line,       K::Polyline, K::Region,
                               K::Region, K::Region,     K::Polyline, K::Polyline,
                               K::Text,   K::MultiPoint, K::Region,   K::Collection};
    for (std::int64_t row = 1; row <= 16; ++row) {
        const auto object = table->object(row);
        ASSERT_NE(object, nullptr) << row;
        EXPECT_EQ(object->kind, kinds[static_cast<std::size_t>(row - 1)]) << row;
    }
    EXPECT_EQ(table->object(1)->symbol, "Symbol (35,0,12)");
    EXPECT_EQ(table->object(2)->symbol, "Symbol (\"bla\",0,1,2)");
    EXPECT_EQ(table->object(3)->symbol, "Symbol (99,1,2,\"foo\",0,30)");
    EXPECT_EQ(table->object(8)->brush, "Brush (1,2,3)");
    EXPECT_EQ(table->object(7)->pen, "Pen (1,2,3)");
    EXPECT_EQ(table->object(13)->text, "text");
    EXPECT_EQ(table->object(13)->font, "Font (\"bla\",1,0,65535,65535)");
}

TEST_F(GdalMitabData, DeletedRecordsStayAsRowsWithoutObjects) {
    const auto table = openTableFile((kMitabData / "compr_symb_deleted_records.tab").string(), "");
    EXPECT_EQ(table->rowCount(), 10000);
    EXPECT_FALSE(table->rowExists(1));
    EXPECT_EQ(table->object(1), nullptr);
    EXPECT_TRUE(table->rowExists(6));
    EXPECT_EQ(table->object(6)->kind, ObjectKind::Point);
}

TEST_F(GdalMitabData, ATableWithoutMapIsNotMappable) {
    const auto table = openTableFile((kMitabData / "aspatial-table.tab").string(), "");
    EXPECT_FALSE(table->isMappable());
    EXPECT_EQ(table->coordSysClause(), "");
    EXPECT_FALSE(table->bounds().has_value());
}

// A map file with no objects: GDAL reports no geometry, MapInfo opens a mappable table.
TEST_F(GdalMitabData, ATableWithAnEmptyMapIsMappableInTheHeadersCoordSys) {
    const auto lambert = openTableFile((kMitabData / "lambert93_francais.TAB").string(), "");
    EXPECT_TRUE(lambert->isMappable());
    EXPECT_EQ(lambert->rowCount(), 0);
    EXPECT_EQ(lambert->coordSysClause(),
              "CoordSys Earth Projection 3, 33, \"m\", 3, 46.5, 44, 49, 700000, 6600000");
    // GDAL writes a .MAP for its tables without geometry too, in a non-earth system.
    const auto aspatial = openTableFile((kMitabData / "aspatial.tab").string(), "");
    EXPECT_TRUE(aspatial->isMappable());
    EXPECT_EQ(aspatial->coordSysClause().rfind("CoordSys NonEarth Units \"m\" Bounds (", 0), 0u)
        << aspatial->coordSysClause();
    EXPECT_EQ(aspatial->rowCount(), 3);
    EXPECT_EQ(aspatial->object(1), nullptr);
}

TEST_F(GdalMitabData, ViewAndSeamlessTabsSayWhatTheyAre) {
    const auto view =
        openTableFile((kMitabData / "view_first_table_second_table.tab").string(), "");
    EXPECT_EQ(view->type(), TableType::View);
    EXPECT_FALSE(view->isSeamless());
    const auto seamless = openTableFile((kMitabData / "seamless.tab").string(), "");
    EXPECT_EQ(seamless->type(), TableType::Base);
    EXPECT_TRUE(seamless->isSeamless());
    EXPECT_TRUE(seamless->isMappable());
    const auto part = openTableFile((kMitabData / "seamless_part1.tab").string(), "");
    EXPECT_FALSE(part->isSeamless());
}

} // namespace
} // namespace vellant::engine::testing
