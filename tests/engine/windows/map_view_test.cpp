// The view of a map through Set Map and MapperInfo: centre, zoom, scale, bounds, units and
// coordinate systems, including maps in another projection than the session's.

#include "engine/windows/window_errors.h"
#include "window_test_support.h"

#include <cmath>

namespace vellant::engine::testing {
namespace {

constexpr double kMetresPerDegree = 6378137.0 * 3.14159265358979323846 / 180.0;

class MapView : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
        open("lines");
    }
    double mapperInfo(int window, int code) {
        return number("MapperInfo(" + id(window) + ", " + std::to_string(code) + ")");
    }
};

TEST_F(MapView, ANewMapShowsAllItsLayers) {
    // regions (0,0)-(30,12) and points (-10,-5)-(10,5) in a window 6 by 4 inches.
    const int window = mapFrom("points, regions");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 10);
    EXPECT_DOUBLE_EQ(mapperInfo(window, 4), 3.5);
    const double zoomMetres = 40 * kMetresPerDegree * std::cos(3.5 * 3.14159265358979323846 / 180);
    EXPECT_NEAR(mapperInfo(window, 1), zoomMetres / 1609.344, 1e-9);
    EXPECT_DOUBLE_EQ(mapperInfo(window, 5), -10);
    EXPECT_DOUBLE_EQ(mapperInfo(window, 7), 30);
    EXPECT_NEAR(mapperInfo(window, 8) - mapperInfo(window, 6), 40.0 * 4 / 6, 1e-9)
        << "degrees are drawn the same size in x and y";
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 9)"), "2");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 17)"), "CoordSys Earth Projection 1, 104");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 11)"), "degree");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 12)"), "mi");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 13)"), "sq mi");
}

TEST_F(MapView, CentreAndZoomAsTheClientSendsThem) {
    const int window = mapFrom("regions");
    run("Set Map Window " + id(window) + " center ( 1.5,2) zoom 12");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 3)"), "1.5");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 4)"), "2");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 1)"), "12");
    run("Set map window " + id(window) + " center (0,0) zoom 20 units \"km\"");
    EXPECT_NEAR(mapperInfo(window, 1), 20 / 1.609344, 1e-12);
    run("Set Distance Units \"km\"");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 1)"), "20");
    run("Set Map Window " + id(window) + " Zoom 3");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 1)"), "3") << "Zoom without Units: session";
    // 3 km wide at the equator: the bounds span that many degrees.
    EXPECT_NEAR(mapperInfo(window, 7) - mapperInfo(window, 5), 3000 / kMetresPerDegree, 1e-12);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Zoom 0").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Zoom -4").code(), kMbArgRange);
}

TEST_F(MapView, ScaleIsGroundPerPaperUnit) {
    const int window = mapFrom("regions Width 6 Height 4");
    run("Set Map Window " + id(window) + " Scale 1 Units \"in\" For 10 Units \"mi\"");
    EXPECT_NEAR(mapperInfo(window, 1), 60, 1e-9) << "six inches of window at 10 mi an inch";
    EXPECT_NEAR(mapperInfo(window, 2), 10, 1e-9);
    run("Set Paper Units \"cm\"");
    EXPECT_NEAR(mapperInfo(window, 2), 10 / 2.54, 1e-9);
    run("Set Window " + id(window) + " Width 12 Units \"in\"");
    EXPECT_NEAR(mapperInfo(window, 1), 60, 1e-9) << "the zoom stays unless told to preserve scale";
    run("Set Map Window " + id(window) + " Preserve Scale");
    run("Set Window " + id(window) + " Width 6 Units \"in\"");
    EXPECT_NEAR(mapperInfo(window, 1), 30, 1e-9);
}

TEST_F(MapView, ZoomEntireFitsTheMapOrOneLayer) {
    const int window = mapFrom("points, regions");
    run("Set Map Window " + id(window) + " Center (100, 50) Zoom 1");
    run("Set Map Window " + id(window) + " Zoom Entire Layer 2");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 15);
    EXPECT_DOUBLE_EQ(mapperInfo(window, 4), 6);
    run("Set map window " + id(window) + " zoom entire layer points");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 0);
    run("Set Map Window " + id(window) + " Zoom Entire");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 10);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Zoom Entire Layer 3").code(),
              kMbBadLayer);
}

TEST_F(MapView, AProjectedMapReportsInTheSessionCoordinateSystem) {
    // lines are in UTM zone 31 north: metres around 3 E, 45 N.
    const int window = mapFrom("lines");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 11)"), "m");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 17)"),
              "CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, 500000, 0");
    const double x = mapperInfo(window, 3);
    const double y = mapperInfo(window, 4);
    EXPECT_NEAR(x, 3.019, 0.01);
    EXPECT_NEAR(y, 45.17, 0.01);
    EXPECT_NEAR(mapperInfo(window, 1) * 1609.344, 2500 * 6 / 4, 1e-6)
        << "the lines, 2.5 km tall, fill the height of a window 6 by 4";

    run("Set Map Window " + id(window) + " Center (3.01, 45.16)");
    EXPECT_NEAR(mapperInfo(window, 3), 3.01, 1e-9);
    EXPECT_NEAR(mapperInfo(window, 4), 45.16, 1e-9);
    EXPECT_LT(mapperInfo(window, 5), 3.01);
    EXPECT_GT(mapperInfo(window, 8), 45.16);

    run("Set CoordSys Window " + id(window));
    EXPECT_NEAR(mapperInfo(window, 3), engine.windows().get(window).map->centreX, 1e-6)
        << "in the window's own system the centre is in metres";
}

TEST_F(MapView, ANewProjectionKeepsThePlaceInTheMiddle) {
    const int window = mapFrom("regions");
    run("Set Map Window " + id(window) + " Center (3, 45) Zoom 10 Units \"km\"");
    run("Set Map Window " + id(window) +
        " CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, 500000, 0");
    EXPECT_NEAR(mapperInfo(window, 3), 3, 1e-9);
    EXPECT_NEAR(mapperInfo(window, 4), 45, 1e-9);
    EXPECT_NEAR(mapperInfo(window, 1) * 1.609344, 10, 1e-9);
    EXPECT_NEAR(engine.windows().get(window).map->centreX, 500000, 1e-3);
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 11)"), "m");
    run("Set Map Window " + id(window) + " CoordSys Table regions");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 17)"), "CoordSys Earth Projection 1, 104");
}

TEST_F(MapView, WindowUnitsAndSettings) {
    const int window = mapFrom("regions");
    run("Set Map Window " + id(window) +
        " Distance Units \"km\" Area Units \"sq km\" XY Units \"m\" Display Position "
        "Distance Type Cartesian");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 12)"), "km");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 13)"), "sq km");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 11)"), "m");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 15)"), "2");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 20)"), "1");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 1)"), eval("MapperInfo(" + id(window) + ", 1)"));
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Distance Units \"furlong\"").code(),
              kMbSyntax);
    EXPECT_EQ(runError("set map window " + id(window) + " distance units \"mi").code(), kMbSyntax)
        << "the string the client leaves open";
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 12)"), "km");

    run("Set Map Window " + id(window) + " redraw off");
    EXPECT_FALSE(engine.windows().get(window).map->redraw);
    run("Set Map Window " + id(window) + " redraw on");
    EXPECT_TRUE(engine.windows().get(window).map->redraw);

    EXPECT_EQ(evalError("MapperInfo(" + id(window) + ", 30)").code(), kMbArgRange);
    EXPECT_STREQ(evalError("MapperInfo(" + id(window) + ", 0)").what(),
                 "Argument 2 of MapperInfo out of range.");
}

TEST_F(MapView, PanMovesTheCentreByGroundDistance) {
    const int window = mapFrom("regions");
    run("Set Map Window " + id(window) + " Center (0, 0)");
    run("Set Map Window " + id(window) + " Pan 111.319490793 Units \"km\" North");
    EXPECT_NEAR(mapperInfo(window, 4), 1, 1e-6);
    run("Set Map Window " + id(window) + " Pan 1 Units \"km\" West");
    EXPECT_LT(mapperInfo(window, 3), 0);
}

TEST_F(MapView, ObjectsCreatedIntoAWindowJoinItsCosmeticLayer) {
    const int window = mapFrom("regions");
    run("Create Point Into Window " + id(window) + " (100, 40)");
    run("Create Line Into Window " + id(window) + " (100, 40) (104, 44)");
    EXPECT_EQ(engine.windows().get(window).map->cosmeticObjects.size(), 2u);
    run("Set Map Window " + id(window) + " Zoom Entire Layer 0");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 102);
    EXPECT_DOUBLE_EQ(mapperInfo(window, 4), 42);
    run("Set Map Window " + id(window) + " Zoom Entire");
    EXPECT_DOUBLE_EQ(mapperInfo(window, 3), 52) << "the cosmetic objects count with the layers";
    EXPECT_EQ(runError("Create Point Into Window 12 (1, 1)").code(), kMbBadWindow);
}

TEST_F(MapView, SetMapWithoutWindowWorksOnTheTopmostMap) {
    const int back = mapFrom("regions");
    run("Browse * From points");
    run("Set Map Layer 1 Display Off");
    EXPECT_EQ(eval("LayerInfo(" + id(back) + ", 1, 9)"), "0");
    run("Close Window " + id(back));
    EXPECT_EQ(runError("Set Map Layer 1 Display Graphic").code(), kMbWantMapperWindow);
}

} // namespace
} // namespace vellant::engine::testing
