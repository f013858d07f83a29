// What a map window shows, read from the pixels: fills, pen and brush patterns, symbols, text,
// the layer toggles, layers off or outside their zoom, the selection and raster tables.

#include "engine/tables/selection.h"
#include "render_test_support.h"

#include <fstream>
#include <gdal_priv.h>

namespace vellant::engine::testing {
namespace {

const std::string kSquare = "Create Region into variable tobj 1 4 (20,30) (80,30) (80,70) (20,70)";

TEST_F(RenderTest, ARegionIsFilledWithItsBrushInsideAndLeavesTheBackgroundOutside) {
    makeTable("t");
    add("t", 1, kSquare + " Pen (3,2,0) Brush (2,16711680,16777215)");
    const int id = mapFrom("t");
    const QImage image = draw(id);
    EXPECT_TRUE(report.problems.empty());
    EXPECT_EQ(colourAt(image, id, 50, 50), kRed);
    EXPECT_EQ(colourAt(image, id, 21, 31), kRed);
    EXPECT_EQ(colourAt(image, id, 10, 50), 0xFFFFFF);
    EXPECT_EQ(colourAt(image, id, 50, 75), 0xFFFFFF);
    EXPECT_EQ(colourAt(image, id, 20, 50), 0) << "the black border";
}

TEST_F(RenderTest, RingsOfOneRegionFillOddEven) {
    makeTable("t");
    // An outer square, a hole, and an island inside the hole.
    add("t", 1,
        "Create Region into variable tobj 3 4 (10,20) (90,20) (90,80) (10,80) 4 (30,30) (70,30) "
        "(70,70) (30,70) 4 (45,45) (55,45) (55,55) (45,55) Pen (1,1,0) Brush (2,16711680)");
    const int id = mapFrom("t");
    const QImage image = draw(id);
    EXPECT_EQ(colourAt(image, id, 20, 50), kRed);
    EXPECT_EQ(colourAt(image, id, 35, 50), 0xFFFFFF) << "the hole";
    EXPECT_EQ(colourAt(image, id, 50, 50), kRed) << "the island in the hole";
}

struct StyleCase {
    const char* name;
    std::string create;
    double probeX1, probeY1, probeX2, probeY2; // the box of map coordinates read
    std::vector<int> present;                  // colours some pixel of the box has
    std::vector<int> absent;                   // colours no pixel of it has
};

std::ostream& operator<<(std::ostream& out, const StyleCase& c) {
    return out << c.name;
}

class StyleDrawing : public RenderTest, public ::testing::WithParamInterface<StyleCase> {};

TEST_P(StyleDrawing, ShowsTheStyle) {
    const StyleCase& c = GetParam();
    makeTable("t");
    add("t", 1, c.create);
    const int id = mapFrom("t");
    const QImage image = draw(id);
    for (int colour : c.present) {
        EXPECT_GT(countColour(image, id, c.probeX1, c.probeY1, c.probeX2, c.probeY2, colour), 0)
            << "colour " << colour;
    }
    for (int colour : c.absent) {
        EXPECT_EQ(countColour(image, id, c.probeX1, c.probeY1, c.probeX2, c.probeY2, colour), 0)
            << "colour " << colour;
    }
}

const std::string kLine = "Create Line into variable tobj (10,50) (90,50) ";
const std::string kBox = "Create Region into variable tobj 1 4 (20,30) (80,30) (80,70) (20,70) ";

INSTANTIATE_TEST_SUITE_P(
    Styles, StyleDrawing,
    ::testing::Values(
        // The line at y 50 is 3 pixels wide: the row along its middle is read.
        StyleCase{"SolidPen", kLine + "Pen (3,2,16711680)", 20, 49.9, 80, 50.1, {kRed}, {0xFFFFFF}},
        StyleCase{"NoPen", kLine + "Pen (3,1,16711680)", 20, 49.9, 80, 50.1, {0xFFFFFF}, {kRed}},
        StyleCase{
            "DashedPen", kLine + "Pen (3,5,16711680)", 20, 49.9, 80, 50.1, {kRed, 0xFFFFFF}, {}},
        StyleCase{
            "WidePenInPoints", kLine + "Pen (70,2,16711680)", 20, 49, 80, 51, {kRed}, {0xFFFFFF}},
        StyleCase{"BrushNoneDrawsNoFill",
                  kBox + "Pen (1,2,0) Brush (1,16711680,65280)",
                  30,
                  40,
                  70,
                  60,
                  {0xFFFFFF},
                  {kRed, kGreen}},
        StyleCase{"SolidBrush",
                  kBox + "Pen (1,2,0) Brush (2,16711680,65280)",
                  30,
                  40,
                  70,
                  60,
                  {kRed},
                  {kGreen, 0xFFFFFF}},
        StyleCase{"HatchOnBackColour",
                  kBox + "Pen (1,2,0) Brush (3,16711680,65280)",
                  30,
                  40,
                  70,
                  60,
                  {kRed, kGreen},
                  {0xFFFFFF}},
        StyleCase{"HatchWithoutBackColourIsTransparent",
                  kBox + "Pen (1,2,0) Brush (8,16711680)",
                  30,
                  40,
                  70,
                  60,
                  {kRed, 0xFFFFFF},
                  {kGreen}},
        StyleCase{"LargePaletteBrush",
                  kBox + "Pen (1,2,0) Brush (15,16711680,65280)",
                  30,
                  40,
                  70,
                  60,
                  {kRed, kGreen},
                  {0xFFFFFF}},
        StyleCase{"VectorSymbol",
                  "Create Point into variable tobj (50,50) Symbol (32,16711680,24)",
                  48,
                  48,
                  52,
                  52,
                  {kRed},
                  {0xFFFFFF}},
        // Symbol 47 is an arrow pointing up and to the right: its head is north-east of the
        // point, and nothing of it south-east.
        StyleCase{"ArrowSymbolHeadPointsNorthEast",
                  "Create Point into variable tobj (50,50) Symbol (47,16711680,24)",
                  52,
                  52,
                  53.5,
                  53.5,
                  {kRed},
                  {}},
        StyleCase{"ArrowSymbolLeavesSouthEastEmpty",
                  "Create Point into variable tobj (50,50) Symbol (47,16711680,24)",
                  53,
                  45,
                  54.5,
                  46.5,
                  {0xFFFFFF},
                  {kRed}},
        // Symbol 50 is an X: ink on its diagonals, none straight above the point.
        StyleCase{"CrossSymbolInksItsCentre",
                  "Create Point into variable tobj (50,50) Symbol (50,16711680,24)",
                  49.5,
                  49.5,
                  50.5,
                  50.5,
                  {kRed},
                  {}},
        StyleCase{"CrossSymbolLeavesAboveEmpty",
                  "Create Point into variable tobj (50,50) Symbol (50,16711680,24)",
                  49.7,
                  52.5,
                  50.3,
                  53.5,
                  {0xFFFFFF},
                  {kRed}},
        StyleCase{"BlankSymbol",
                  "Create Point into variable tobj (50,50) Symbol (31,16711680,24)",
                  45,
                  45,
                  55,
                  55,
                  {0xFFFFFF},
                  {kRed}},
        StyleCase{"FontSymbol",
                  "Create Point into variable tobj (50,50) Symbol (77,16711680,36,\"DejaVu Sans\","
                  "0,0)",
                  44,
                  44,
                  56,
                  56,
                  {kRed, 0xFFFFFF},
                  {}},
        StyleCase{"MissingBitmapSymbolIsASquare",
                  "Create Point into variable tobj (50,50) Symbol (\"nowhere.bmp\",16711680,24,0)",
                  49,
                  49,
                  51,
                  51,
                  {kRed},
                  {0xFFFFFF}},
        StyleCase{"TextInItsForeColour",
                  "Create Text into variable tobj \"HHHH\" (20,40) (80,60) Font (\"DejaVu "
                  "Sans\",1,0,16711680)",
                  20,
                  40,
                  80,
                  60,
                  {kRed, 0xFFFFFF},
                  {}},
        StyleCase{"TextBoxInItsBackColour",
                  "Create Text into variable tobj \"HHHH\" (20,40) (80,60) Font (\"DejaVu "
                  "Sans\",0,0,16711680,65280)",
                  20,
                  40,
                  80,
                  60,
                  {kRed, kGreen},
                  {}}),
    [](const ::testing::TestParamInfo<StyleCase>& tested) {
        return std::string(tested.param.name);
    });

// A style sample makes a text of two letters in a square box: it must show whole, not one
// giant letter cut off by the box.
TEST_F(RenderTest, ATextTooLongForItsBoxIsMadeSmallerToFitIt) {
    makeTable("t");
    add("t", 1,
        "Create Text into variable tobj \"Abcdef\" (40,40) (50,50) Font (\"DejaVu "
        "Sans\",1,0,16711680)");
    const int id = mapFrom("t");
    const QImage image = draw(id);
    EXPECT_GT(countColour(image, id, 40, 40, 50, 50, kRed), 10) << "inside the box";
    EXPECT_EQ(countColour(image, id, 51, 30, 95, 60, kRed), 0) << "past its right edge";
}

TEST_F(RenderTest, TextTurnsByItsAngleAboutItsLowerLeftCorner) {
    makeTable("t");
    add("t", 1,
        "Create Text into variable tobj \"IIIIIIII\" (30,30) (70,40) Font (\"DejaVu "
        "Sans\",1,0,16711680) Angle 90");
    const int id = mapFrom("t");
    const QImage image = draw(id);
    EXPECT_EQ(countColour(image, id, 40, 30, 70, 40, kRed), 0) << "not along the box";
    EXPECT_GT(countColour(image, id, 20, 30, 30, 70, kRed), 20) << "up from the corner";
}

TEST_F(RenderTest, GlobalDisplayDrawsEveryObjectInTheLayersStyles) {
    makeTable("t");
    add("t", 1, kSquare + " Pen (1,2,0) Brush (2,16711680)");
    const int id = mapFrom("t");
    run("Set Map Window " + std::to_string(id) +
        " Layer 1 Display Global Global Pen (1,1,0) Global Brush (2,65280,65280)");
    const QImage image = draw(id);
    EXPECT_EQ(colourAt(image, id, 50, 50), kGreen);
    EXPECT_EQ(countColour(image, id, 10, 20, 90, 80, kRed), 0);
}

TEST_F(RenderTest, ALayerOffOrOutsideItsZoomDrawsNothing) {
    makeTable("t");
    add("t", 1, kSquare + " Brush (2,16711680)");
    const int id = mapFrom("t");
    const std::string layer = "Set Map Window " + std::to_string(id) + " Layer 1 ";
    ASSERT_GT(countNotWhite(draw(id)), 1000);

    run(layer + "Zoom (10, 50) Units \"m\""); // the map is 100 m wide
    EXPECT_EQ(countNotWhite(draw(id)), 0);
    run(layer + "Zoom (50, 200) Units \"m\"");
    EXPECT_GT(countNotWhite(draw(id)), 1000);
    run(layer + "Display Off");
    EXPECT_EQ(countNotWhite(draw(id)), 0);
    EXPECT_TRUE(report.problems.empty());
}

TEST_F(RenderTest, LayersAreDrawnFromTheBottomOfTheListUpAndTheCosmeticLayerLast) {
    makeTable("top");
    makeTable("bottom");
    add("top", 1, kSquare + " Pen (1,1,0) Brush (2,16711680)");
    add("bottom", 1,
        "Create Region into variable tobj 1 4 (0,20) (100,20) (100,80) (0,80) Pen "
        "(1,1,0) Brush (2,65280)");
    const int id = mapFrom("top, bottom");
    run("Create Region Into Window " + std::to_string(id) +
        " 1 4 (45,45) (55,45) (55,55) (45,55) Pen (1,1,0) Brush (2,255)");
    const QImage image = draw(id);
    EXPECT_EQ(colourAt(image, id, 10, 50), kGreen);
    EXPECT_EQ(colourAt(image, id, 30, 50), kRed);
    EXPECT_EQ(colourAt(image, id, 50, 50), 255) << "the cosmetic object on top";
}

TEST_F(RenderTest, NodesCentroidsAndArrowsMarkTheObjects) {
    makeTable("t");
    add("t", 1, kSquare + " Pen (1,1,0) Brush (2,16711680)");
    add("t", 2, "Create Line into variable tobj (10,20) (90,20) Pen (1,1,0)");
    const int id = mapFrom("t");
    const QImage plain = draw(id);
    EXPECT_EQ(colourAt(plain, id, 20.3, 69.7), kRed);
    EXPECT_EQ(colourAt(plain, id, 50, 50), kRed);
    run("Set Map Window " + std::to_string(id) + " Layer 1 Nodes On Centroids On Arrows On");
    const QImage marked = draw(id);
    EXPECT_EQ(colourAt(marked, id, 20.3, 69.7), 0) << "a node";
    EXPECT_EQ(colourAt(marked, id, 50, 50), 0) << "the centroid";
    EXPECT_GT(countDark(marked, id, 45, 18, 55, 22), 3) << "the arrow on the line";
    EXPECT_EQ(countDark(plain, id, 45, 18, 55, 22), 0);
}

TEST_F(RenderTest, SelectedObjectsAreHighlightedAlsoThroughAQuery) {
    makeTable("t");
    add("t", 1,
        "Create Region into variable tobj 1 4 (5,30) (45,30) (45,70) (5,70) Brush "
        "(2,16711680)");
    add("t", 2,
        "Create Region into variable tobj 1 4 (55,30) (95,30) (95,70) (55,70) Brush "
        "(2,16711680)");
    const int id = mapFrom("t");
    engine.catalog().selection() = Selection{"T", {2}};
    const QImage image = draw(id);
    EXPECT_EQ(countColour(image, id, 10, 35, 40, 65, 255), 0);
    EXPECT_GT(countColour(image, id, 60, 35, 90, 65, 255), 50);

    run("Select * From t Where n = 2 Into q");
    run("Map From q");
    const int queryMap = engine.windows().frontWindow();
    show(queryMap, 50, 50, 100);
    const QImage query = draw(queryMap);
    EXPECT_GT(countColour(query, queryMap, 60, 35, 90, 65, 255), 50);
    engine.catalog().selection() = Selection{};
    EXPECT_EQ(countColour(draw(queryMap), queryMap, 60, 35, 90, 65, 255), 0);
}

TEST_F(RenderTest, ARasterTableIsDrawnIntoItsRegistration) {
    // A 4 by 2 grey image registered over x 10..14, y 48..50.
    const std::string tif = folder() + "/grey.tif";
    {
        GDALAllRegister();
        GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
        std::unique_ptr<GDALDataset> dataset(
            driver->Create(tif.c_str(), 4, 2, 1, GDT_Byte, nullptr));
        std::vector<unsigned char> pixels{0, 60, 120, 180, 240, 200, 100, 10};
        ASSERT_EQ(dataset->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, 4, 2, pixels.data(), 4, 2,
                                                      GDT_Byte, 0, 0),
                  CE_None);
    }
    std::ofstream(folder() + "/grey.tab")
        << "!table\n!version 300\n\nDefinition Table\n  File \"grey.tif\"\n  Type \"RASTER\"\n"
        << "  (10,50) (0,0) Label \"Pt 1\",\n  (14,50) (4,0) Label \"Pt 2\",\n"
        << "  (10,48) (0,2) Label \"Pt 3\"\n  " << kPlan << "\n  Units \"m\"\n";
    run("Open Table \"" + folder() + "/grey.tab\"");
    const int id = mapFrom("grey");
    show(id, 12, 49, 4);
    const QImage image = draw(id);
    EXPECT_TRUE(report.problems.empty());
    EXPECT_EQ(colourAt(image, id, 10.5, 49.5), 0);
    EXPECT_EQ(colourAt(image, id, 11.5, 49.5), 60 * 65793);
    EXPECT_EQ(colourAt(image, id, 13.5, 48.5), 10 * 65793);

    // The image cannot be read any more: the problem is reported, the rest of the map drawn.
    makeTable("t");
    add("t", 1,
        "Create Region into variable tobj 1 4 (11,48.5) (13,48.5) (13,49.5) (11,49.5) "
        "Pen (1,1,0) Brush (2,16711680)");
    run("Add Map Window " + std::to_string(id) + " Layer t");
    show(id, 12, 49, 4);
    std::ofstream(tif, std::ios::trunc) << "this is no image";
    const QImage broken = draw(id);
    ASSERT_EQ(report.problems.size(), 1u);
    EXPECT_EQ(report.problems[0].code(), kMbCantAccessFile);
    EXPECT_EQ(colourAt(broken, id, 12, 49), kRed);
    EXPECT_EQ(colourAt(broken, id, 10.5, 49.5), 0xFFFFFF);
}

} // namespace
} // namespace vellant::engine::testing
