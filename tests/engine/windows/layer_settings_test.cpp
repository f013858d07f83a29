// Every LayerInfo code after the Set Map clause that sets it, label positions, zoom ranges in
// other units, the editable layer, and the errors of layer statements.

#include "engine/windows/window_errors.h"
#include "window_test_support.h"

namespace vellant::engine::testing {
namespace {

class LayerSettings : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
        window = mapFrom("points, regions");
    }
    std::string layerInfo(const std::string& layer, int code) {
        return eval("LayerInfo(" + id(window) + ", " + layer + ", " + std::to_string(code) + ")");
    }
    void setMap(const std::string& clauses) { run("Set Map Window " + id(window) + " " + clauses); }
    int window = 0;
};

struct ClauseCase {
    const char* clauses; // after "Set Map Window <id> Layer 2 "
    int code;
    const char* before; // LayerInfo before the clause: proves the clause made the change
    const char* after;
};

class LayerInfoCodes : public LayerSettings, public ::testing::WithParamInterface<ClauseCase> {};

TEST_P(LayerInfoCodes, ClauseSetsWhatLayerInfoReads) {
    const ClauseCase& c = GetParam();
    EXPECT_EQ(layerInfo("2", c.code), c.before);
    setMap(std::string("Layer 2 ") + c.clauses);
    EXPECT_EQ(layerInfo("2", c.code), c.after);
    EXPECT_EQ(layerInfo("\"regions\"", c.code), c.after) << "a layer named reads the same";
}

INSTANTIATE_TEST_SUITE_P(
    SetMap, LayerInfoCodes,
    ::testing::Values(
        ClauseCase{"Editable On", 2, "F", "T"}, ClauseCase{"Selectable Off", 3, "T", "F"},
        ClauseCase{"Zoom (1, 20) Units \"mi\"", 4, "F", "T"},
        ClauseCase{"Zoom (1, 20) Units \"mi\"", 5, "0", "1"},
        ClauseCase{"Zoom (1, 20) Units \"mi\" Off", 6, "10000", "20"},
        ClauseCase{"Display Off", 9, "1", "0"}, ClauseCase{"Display Global", 9, "1", "2"},
        ClauseCase{"Display Value", 9, "1", "3"},
        ClauseCase{"Global Line (2,3,255)", 10, "Pen (1,2,0)", "Pen (2,3,255)"},
        ClauseCase{"Global Pen (3,2,65280)", 11, "Pen (1,2,0)", "Pen (3,2,65280)"},
        ClauseCase{"Global Brush (5,255,0)", 12, "Brush (2,16777215,16777215)", "Brush (5,255,0)"},
        ClauseCase{"Global Symbol (34,255,18)", 13, "Symbol (35,0,12)", "Symbol (34,255,18)"},
        ClauseCase{"Global Font (\"Courier\",1,10,0)", 14, "Font (\"Arial\",0,9,0)",
                   "Font (\"Courier\",1,10,0)"},
        ClauseCase{"Label With Name + \" \" + Str$(Value)", 15, "Name",
                   "Name + \" \" + Str$(Value)"},
        ClauseCase{"Label Line Arrow", 16, "0", "2"}, ClauseCase{"Label Line Simple", 16, "0", "1"},
        ClauseCase{"Label Font (\"Arial\",1,12,255)", 17, "T", "F"},
        ClauseCase{"Label Font (\"Arial\",1,12,255)", 18, "Font (\"Arial\",0,9,0)",
                   "Font (\"Arial\",1,12,255)"},
        ClauseCase{"Label Parallel On", 19, "F", "T"},
        ClauseCase{"Label Position Above Left", 20, "0", "1"},
        ClauseCase{"Arrows On", 21, "F", "T"}, ClauseCase{"Nodes On", 22, "F", "T"},
        ClauseCase{"Centroids On", 23, "F", "T"}, ClauseCase{"Label Visibility Off", 25, "3", "1"},
        ClauseCase{"Label Visibility Zoom (2, 30) Units \"mi\"", 25, "3", "2"},
        ClauseCase{"Label Visibility Zoom (2, 30) Units \"mi\"", 26, "0", "2"},
        ClauseCase{"Label Visibility Zoom (2, 30) Units \"mi\"", 27, "10000", "30"},
        ClauseCase{"Label Auto On", 28, "F", "T"}, ClauseCase{"Label Overlap On", 29, "F", "T"},
        ClauseCase{"Label Duplicates On", 30, "F", "T"}, ClauseCase{"Label Offset 7", 31, "2", "7"},
        ClauseCase{"Label Max 25", 32, "2147483647", "25"},
        ClauseCase{"Label PartialSegments On", 33, "F", "T"},
        ClauseCase{"Label Parallel On", 38, "0", "1"},
        ClauseCase{"Label Follow Path Fallback On", 38, "0", "2"},
        ClauseCase{"Alpha 128", 39, "255", "128"}, ClauseCase{"Translucency 40", 40, "0", "40"},
        ClauseCase{"Label LabelAlpha 99", 41, "255", "99"}));

TEST_F(LayerSettings, FixedCodesDescribeTheLayer) {
    EXPECT_EQ(layerInfo("1", 1), "points");
    EXPECT_EQ(layerInfo("2", 7), "F");
    EXPECT_EQ(layerInfo("2", 24), "0");
    EXPECT_EQ(layerInfo("0", 1), "Cosmetic1");
    EXPECT_EQ(layerInfo("0", 7), "T");
    EXPECT_EQ(layerInfo("0", 24), "1");
    EXPECT_EQ(layerInfo("0", 8), "");
    EXPECT_EQ(layerInfo("\"Cosmetic1\"", 24), "1");
    EXPECT_NE(layerInfo("2", 8).find("regions.tab"), std::string::npos);
    EXPECT_EQ(layerInfo("2", 42), "2");
    const int second = mapFrom("regions");
    EXPECT_EQ(eval("LayerInfo(" + id(second) + ", 0, 1)"), "Cosmetic2") << "one per map";
}

TEST_F(LayerSettings, LabelPositionWordsGiveTheirCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"Center", "0"},      {"Above Left", "1"},  {"Center Above", "2"}, {"Above", "2"},
        {"Above Right", "3"}, {"Center Left", "4"}, {"Left", "4"},         {"Center Right", "5"},
        {"Right", "5"},       {"Below Left", "6"},  {"Center Below", "7"}, {"Below", "7"},
        {"Below Right", "8"}, {"Right Below", "8"}, {"left above", "1"},
    };
    for (const auto& [words, code] : cases) {
        setMap(std::string("Layer 1 Label Position ") + words);
        EXPECT_EQ(layerInfo("1", 20), code) << words;
    }
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Label Position").code(),
              kMbSyntax);
}

TEST_F(LayerSettings, ZoomRangesAreKeptInTheirMeasureAndReportedInSessionUnits) {
    setMap("Layer 1 Zoom (0, 500) Units \"mi\"");
    EXPECT_EQ(layerInfo("1", 6), "500");
    run("Set Distance Units \"km\"");
    EXPECT_EQ(layerInfo("1", 6), "804.672");
    setMap("Layer 1 Zoom (10, 20)");
    EXPECT_EQ(layerInfo("1", 5), "10") << "a range without Units is in the session's units";
    run("Set Distance Units \"mi\"");
    EXPECT_NEAR(number("LayerInfo(" + id(window) + ", 1, 6)"), 20 / 1.609344, 1e-12);

    setMap("Layer 1 Zoom (0, 5) Units \"km\" Off");
    EXPECT_EQ(layerInfo("1", 4), "F") << "Off keeps the range but no layering";
    EXPECT_NEAR(number("LayerInfo(" + id(window) + ", 1, 6)"), 5 / 1.609344, 1e-12);
    setMap("Layer 1 Zoom On");
    EXPECT_EQ(layerInfo("1", 4), "T");

    setMap("Layer 1 Label Visibility Zoom( 1,2) Units \"km\"");
    run("Set Distance Units \"m\"");
    EXPECT_EQ(layerInfo("1", 26), "1000");
    EXPECT_EQ(layerInfo("1", 27), "2000");

    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Zoom (5, 1)").code(),
              kMbArgRange);
    EXPECT_EQ(
        runError("Set Map Window " + id(window) + " Layer 1 Zoom (0, 1) Units \"parsec\"").code(),
        kMbSyntax);
}

TEST_F(LayerSettings, OnlyOneLayerOfAMapIsEditable) {
    EXPECT_EQ(layerInfo("0", 2), "T") << "the cosmetic layer is editable until another is";
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 10)"), "0");
    setMap("Layer 2 Editable On");
    EXPECT_EQ(layerInfo("0", 2), "F");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 10)"), "2");
    setMap("Layer 1 Editable On");
    EXPECT_EQ(layerInfo("2", 2), "F");
    EXPECT_EQ(layerInfo("1", 2), "T");
    setMap("Layer 1 Editable Off");
    EXPECT_EQ(eval("MapperInfo(" + id(window) + ", 10)"), "-1");
}

TEST_F(LayerSettings, ManyLayersAndClausesInOneStatementAsAWorkspaceWritesThem) {
    run("Set Map Window " + id(window) +
        "\n  Layer 1\n    Display Graphic\n    Global Pen (1,2,0)  Brush (2,16777215,16777215)  "
        "Symbol (35,0,12)  Line (1,2,0)  Font (\"Arial\",0,9,0)\n    Zoom (0, 500) Units \"mi\"\n"
        "    Label Line Arrow Position Right Font (\"Arial\",513,9,0) Pen (1,2,0) \n"
        "      With Name\n      Parallel On Auto Off Overlap Off Duplicates On Offset 2\n"
        "      Visibility Zoom (1001, 10000) Units \"mi\"\n      Object 2 Line Arrow Anchor (3.5, "
        "-1)\n"
        "  Layer 2\n    Display Global\n    Global   Brush (5,255,16777215)\n");
    EXPECT_EQ(layerInfo("1", 4), "T");
    EXPECT_EQ(layerInfo("1", 16), "2");
    EXPECT_EQ(layerInfo("1", 20), "5");
    EXPECT_EQ(layerInfo("1", 18), "Font (\"Arial\",513,9,0)");
    EXPECT_EQ(layerInfo("1", 30), "T");
    EXPECT_EQ(layerInfo("1", 26), "1001");
    EXPECT_EQ(layerInfo("2", 9), "2");
    EXPECT_EQ(layerInfo("2", 12), "Brush (5,255,16777215)");
    const LabelEdit& edit = engine.windows().get(window).map->layers[0].label.edits.at(2);
    EXPECT_EQ(edit.line, LabelLine::Arrow);
    EXPECT_EQ(edit.anchor, (MapPoint{3.5, -1}));
}

TEST_F(LayerSettings, LabelDefaultAndBareMaxGoBackToTheDefaults) {
    setMap("Layer 1 Label Max 3 Offset 9 Auto On With Value");
    setMap("Layer 1 Label Max");
    EXPECT_EQ(layerInfo("1", 32), "2147483647");
    setMap("Layer 1 Label Default");
    EXPECT_EQ(layerInfo("1", 31), "2");
    EXPECT_EQ(layerInfo("1", 28), "F");
    EXPECT_EQ(layerInfo("1", 15), "Name");
}

TEST_F(LayerSettings, AStatementWithAnErrorChangesNothing) {
    const MbError e =
        runError("Set Map Window " + id(window) + " Layer 1 Selectable Off Layer 9 Nodes On");
    EXPECT_EQ(e.code(), kMbBadLayer);
    EXPECT_STREQ(e.what(), "Invalid layer: 9");
    EXPECT_EQ(layerInfo("1", 3), "T");
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Nodes On Sideways").code(),
              kMbSyntax);
    EXPECT_EQ(layerInfo("1", 22), "F");
}

TEST_F(LayerSettings, AFailedStatementPutsBackOtherLayersAndTheMapsOwnSettings) {
    const std::string w = id(window);
    setMap("Layer 2 Editable On");
    // Making layer 1 editable clears layer 2; the failure must undo both.
    runError("Set Map Window " + w + " Layer 1 Editable On Layer 9 Nodes On");
    EXPECT_EQ(layerInfo("1", 2), "F");
    EXPECT_EQ(layerInfo("2", 2), "T");
    runError("Set Map Window " + w + " Order 2, 1 Layer 9 Nodes On");
    EXPECT_EQ(layerInfo("1", 1), "points");
    const std::string zoom = eval("MapperInfo(" + w + ", 1)");
    runError("Set Map Window " + w + " Zoom 5 Layer 2 Arrows On Layer 9 Nodes On");
    EXPECT_EQ(eval("MapperInfo(" + w + ", 1)"), zoom);
    EXPECT_EQ(layerInfo("2", 21), "F");
}

TEST_F(LayerSettings, LabelExpressionsNameColumnsOfTheLayersTable) {
    const MbError e = runError("Set Map Window " + id(window) + " Layer 1 Label With Nonsense");
    EXPECT_EQ(e.code(), kMbUnknownVariable);
    EXPECT_EQ(layerInfo("1", 15), "Name");
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Label With Nowhere(Name)").code(),
              kMbUnknownFunction);
    setMap("Layer 1 Label With Value / 0");
    EXPECT_EQ(layerInfo("1", 15), "Value / 0") << "what a row's values make of it is no fault";
    setMap("Layer regions Label With ObjectInfo(obj, 1)");
    EXPECT_EQ(layerInfo("\"regions\"", 15), "ObjectInfo(obj, 1)");
}

TEST_F(LayerSettings, BadWindowsLayersAndCodesAreErrors) {
    run("Browse * From regions");
    const int browser = engine.windows().frontWindow();
    const MbError notMap = evalError("LayerInfo(" + id(browser) + ", 1, 1)");
    EXPECT_EQ(notMap.code(), kMbWantMapperWindow);
    EXPECT_EQ(std::string(notMap.what()), "Window " + id(browser) + " is not a Map window.");
    EXPECT_EQ(runError("Set Map Window " + id(browser) + " Layer 1 Nodes On").code(),
              kMbWantMapperWindow);
    EXPECT_EQ(evalError("LayerInfo(7, 1, 1)").code(), kMbBadWindow);
    EXPECT_EQ(evalError("LayerInfo(" + id(window) + ", 3, 1)").code(), kMbBadLayer);
    EXPECT_EQ(evalError("LayerInfo(" + id(window) + ", \"lines\", 1)").code(), kMbBadLayer);
    EXPECT_EQ(evalError("LayerInfo(" + id(window) + ", -1, 1)").code(), kMbBadLayer);
    const MbError code = evalError("LayerInfo(" + id(window) + ", 1, 44)");
    EXPECT_EQ(code.code(), kMbArgRange);
    EXPECT_STREQ(code.what(), "Argument 3 of LayerInfo out of range.");
    EXPECT_EQ(evalError("LayerInfo(" + id(window) + ", 1, 0)").code(), kMbArgRange);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Label Offset 201").code(),
              kMbArgRange);
    EXPECT_EQ(runError("Set Map Window " + id(window) + " Layer 1 Display Sideways").code(),
              kMbSyntax);
}

} // namespace
} // namespace vellant::engine::testing
