// The unit tables, CoordSys clauses and Distance().

#include "engine/windows/coordsys.h"
#include "engine/windows/geodesy.h"
#include "engine/windows/units.h"
#include "window_test_support.h"

#include <cmath>

namespace vellant::engine::testing {
namespace {

TEST(Units, DistanceUnitsByTheHostsNames) {
    const std::pair<const char*, double> metres[] = {
        {"mi", 1609.344},
        {"km", 1000},
        {"m", 1},
        {"ft", 0.3048},
        {"in", 0.0254},
        {"yd", 0.9144},
        {"mm", 0.001},
        {"cm", 0.01},
        {"nmi", 1852},
        {"survey ft", 1200.0 / 3937},
        {"li", 0.66 * 1200.0 / 3937},
        {"ch", 66 * 1200.0 / 3937},
        {"rd", 16.5 * 1200.0 / 3937},
        {"pt", 0.0254 / 72},
        {"pica", 0.0254 / 6},
    };
    for (const auto& [name, value] : metres) {
        EXPECT_DOUBLE_EQ(distanceUnitMetres(name), value) << name;
        EXPECT_EQ(distanceUnitName(name), name);
    }
    EXPECT_EQ(distanceUnitName("Survey  FT"), "survey ft");
    EXPECT_EQ(distanceUnitName("KM"), "km");
    EXPECT_DOUBLE_EQ(convertDistance(1, "mi", "ft"), 5280);
}

TEST(Units, UnknownAndAngularNamesAreErrors) {
    for (const char* name : {"", "miles", "furlong", "degree", "sq mi"}) {
        try {
            distanceUnitMetres(name);
            FAIL() << "took " << name;
        } catch (const MbError& e) {
            EXPECT_EQ(e.code(), kMbSyntax);
            EXPECT_EQ(std::string(e.what()), std::string("Unrecognized distance unit: ") + name);
        }
    }
    EXPECT_EQ(coordinateUnitName("Degree"), "degree");
    EXPECT_THROW(paperUnitInches("km"), MbError);
    EXPECT_DOUBLE_EQ(paperUnitInches("pica"), 1.0 / 6);
    EXPECT_DOUBLE_EQ(areaUnitSquareMetres("hectare"), 1e4);
    EXPECT_DOUBLE_EQ(areaUnitSquareMetres("sq mi"), 1609.344 * 1609.344);
    EXPECT_THROW(areaUnitName("mi"), MbError);
}

TEST(CoordSysClause, ReadsAndWritesTheHostsForm) {
    const CoordSys robinson = parseCoordSys("CoordSys Earth Projection 12, 62, \"m\", 0");
    EXPECT_EQ(robinson.clause(), "CoordSys Earth Projection 12, 62, \"m\", 0");
    EXPECT_FALSE(robinson.isLongLat());
    EXPECT_EQ(robinson.coordinateUnit(), "m");

    const CoordSys plan =
        parseCoordSys("coordsys  nonearth units \"FT\" bounds (-1.5, -2) (100,200.25)");
    EXPECT_FALSE(plan.earth);
    EXPECT_EQ(plan.clause(), "CoordSys NonEarth Units \"ft\"");
    EXPECT_EQ(plan.clause(true), "CoordSys NonEarth Units \"ft\" Bounds (-1.5, -2) (100, 200.25)");

    const CoordSys longLat = parseCoordSys("Earth Projection 1, 104");
    EXPECT_TRUE(longLat.isLongLat());
    EXPECT_EQ(longLat.coordinateUnit(), "degree");
    EXPECT_TRUE(parseCoordSys("CoordSys Earth").isLongLat());
    EXPECT_TRUE(longLat.sameSystem(parseCoordSys("CoordSys Earth Projection 1, 104 Bounds (0, 0) "
                                                 "(1, 1)")));
    EXPECT_FALSE(longLat.sameSystem(parseCoordSys("CoordSys Earth Projection 1, 74")));
}

TEST(CoordSysClause, MalformedClausesAreErrors) {
    for (const char* text :
         {"CoordSys", "CoordSys Mars", "CoordSys NonEarth", "CoordSys NonEarth Units",
          "CoordSys Earth Projection", "CoordSys Earth Projection 1,",
          "CoordSys Earth Projection 1, 104 Bounds (0, 0)",
          "CoordSys Earth Projection 1, 104 extra"}) {
        EXPECT_THROW(parseCoordSys(text), MbError) << text;
    }
}

TEST(Geodesy, GreatCircles) {
    EXPECT_DOUBLE_EQ(greatCircleMetres(0, 0, 0, 0), 0);
    EXPECT_NEAR(greatCircleMetres(0, 0, 180, 0), 6378137.0 * 3.14159265358979323846, 1e-6);
    EXPECT_NEAR(greatCircleMetres(0, -90, 0, 90), 6378137.0 * 3.14159265358979323846, 1e-6);
    EXPECT_NEAR(greatCircleMetres(10, 50, 11, 50), greatCircleMetres(-11, 50, -10, 50), 1e-9);
}

class DistanceFunction : public WindowTest {};

TEST_F(DistanceFunction, MeasuresAlongTheSphereInTheUnitAsked) {
    // The client's Degtokm: one degree of longitude at 33 south.
    const double km = number("Distance(150, -33, 151, -33, \"km\")");
    EXPECT_NEAR(km, greatCircleMetres(150, -33, 151, -33) / 1000, 1e-9);
    EXPECT_NEAR(km, 93.36, 0.01);
    EXPECT_NEAR(number("Distance(150, -33, 151, -33, \"mi\")"), km / 1.609344, 1e-9);
    EXPECT_EQ(eval("Distance(1, 2, 1, 2, \"m\")"), "0");
    EXPECT_EQ(evalError("Distance(0, 0, 1, 1, \"parsec\")").code(), kMbSyntax);
    EXPECT_EQ(evalError("Distance(0, 0, 1, \"x\", \"km\")").code(), kMbTypeMismatch);
    EXPECT_EQ(evalError("Distance(0, 0, 1, 1)").code(), kMbWrongArgCount);
}

TEST_F(DistanceFunction, FollowsTheSessionCoordinateSystem) {
    run("Set CoordSys NonEarth Units \"ft\" Bounds (0, 0) (1000, 1000)");
    EXPECT_DOUBLE_EQ(number("Distance(0, 0, 3, 4, \"ft\")"), 5);
    EXPECT_DOUBLE_EQ(number("Distance(0, 0, 3, 4, \"in\")"), 60);

    // Projected points are taken back to the globe: 1 km east along UTM 31's central meridian.
    run("Set CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, 500000, 0");
    const double metres = number("Distance(500000, 5000000, 501000, 5000000, \"m\")");
    EXPECT_NEAR(metres, 1000 / 0.9996, 5) << "the scale factor of the projection undone";
}

} // namespace
} // namespace vellant::engine::testing
