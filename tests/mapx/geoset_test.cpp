// Geosets: reading the metadata text, and a map opened from one.

#include "base/runtime_error.h"
#include "mapx/geoset.h"
#include "mapx_fixture.h"

#include <fstream>

namespace vellant::mapx::testing {
namespace {

constexpr const char* kGeoset = R"(!GEOSET
!VERSION 400

begin_metadata
"\GEOSET" = ""
"\GEOSET\NAME" = "Samples"
"\GEOSET\CENTER" = "15,6"
"\GEOSET\ZOOMLEVEL" = "40"
"\GEOSET\MAPUNIT" = "degrees"
"\TABLE" = ""
"\TABLE\2\FILE" = "REGIONS.TAB"
"\TABLE\2\ISVISIBLE" = "FALSE"
"\Table\1\File" = "subfolder\..\points.tab"
"\TABLE\1\AUTOLABEL" = "TRUE"
"\TABLE\1\ZOOM\ISVISIBLE" = "TRUE"
"\TABLE\1\ZOOM\MIN" = "1"
"\TABLE\1\ZOOM\MAX" = "not a number"
"\TABLE\3\ISVISIBLE" = "TRUE"
"\TABLE\0\FILE" = "nothing.tab"
"\TABLE\99999999999999999999\FILE" = "nothing.tab"
"\TABLE\4" "=" broken
end_metadata
)";

class GeosetTest : public MapXTest {
protected:
    std::string write(const std::string& name, const std::string& text) {
        const std::string path = table(name);
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
};

TEST_F(GeosetTest, ReadsTheTablesInOrderAndPassesOverWhatItCannotUse) {
    const Geoset geoset = parseGeoset(kGeoset);
    EXPECT_EQ(geoset.name, "Samples");
    EXPECT_EQ(geoset.centreX, 15);
    EXPECT_EQ(geoset.zoom, 40);
    EXPECT_EQ(geoset.mapUnit, mx::miUnitDegree);
    ASSERT_EQ(geoset.tables.size(), 2u); // table 3 names no file
    EXPECT_EQ(geoset.tables[0].file, "subfolder\\..\\points.tab");
    EXPECT_TRUE(geoset.tables[0].autoLabel);
    EXPECT_TRUE(geoset.tables[0].zoomLayer);
    EXPECT_EQ(geoset.tables[0].zoomMin, 1);
    EXPECT_EQ(geoset.tables[0].zoomMax, 0);
    EXPECT_EQ(geoset.tables[1].file, "REGIONS.TAB");
    EXPECT_FALSE(geoset.tables[1].visible);
    EXPECT_THROW(parseGeoset("!WORKSPACE\n"), RuntimeError);
    EXPECT_THROW(parseGeoset(""), RuntimeError);
}

TEST_F(GeosetTest, AMapOpensTheGeosetInPlaceOfItsLayers) {
    std::filesystem::create_directories(folder() / "subfolder");
    const std::string file = write("samples.gst", kGeoset);
    add("lines.tab");
    map->setGeoset(file);
    EXPECT_EQ(map->Geoset(), file);
    EXPECT_EQ(names(), (std::vector<std::string>{"points", "regions"}));
    auto points = map->Layers()->Item(Variant(1));
    EXPECT_TRUE(points->Autolabel());
    EXPECT_TRUE(points->ZoomLayer());
    EXPECT_FALSE(map->Layers()->Item(Variant(2))->Visible());
    EXPECT_EQ(map->mapunit().toDouble(), mx::miUnitDegree);
    EXPECT_NEAR(map->zoom(), 40, 1e-4);
    EXPECT_EQ(map->CenterY(), 6);
}

TEST_F(GeosetTest, AGeosetThatCannotBeOpenedChangesNothing) {
    add("lines.tab");
    const std::string broken =
        write("broken.gst", "!GEOSET\n\"\\TABLE\\1\\FILE\" = \"regions.tab\"\n"
                            "\"\\TABLE\\2\\FILE\" = \"gone.tab\"\n");
    EXPECT_THROW(map->setGeoset(broken), RuntimeError);
    EXPECT_THROW(map->setGeoset(table("nowhere.gst")), RuntimeError);
    EXPECT_EQ(names(), (std::vector<std::string>{"lines"}));
    EXPECT_EQ(map->Geoset(), "");
    map->setGeoset(""); // an empty name leaves the layers as they are
    EXPECT_EQ(map->Layers()->Count(), 1);
}

} // namespace
} // namespace vellant::mapx::testing
