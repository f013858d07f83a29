// Window statements and functions made of random pieces of their own grammar: each ends in
// success or a MapBasic error, never a crash, a hang or a map left half changed.

#include "window_test_support.h"

#include <random>

namespace vellant::engine::testing {
namespace {

class HostileStatements : public WindowTest {};

TEST_F(HostileStatements, RandomClauseSoupEndsInSuccessOrAnError) {
    open("regions");
    open("points");
    const int window = mapFrom("regions, points");
    const std::vector<std::string> heads = {
        "Set Map Window " + id(window) + " ",
        "Set Map ",
        "Set Window " + id(window) + " ",
        "Add Map Window " + id(window) + " ",
        "Remove Map Window " + id(window) + " ",
        "Map From ",
        "Browse ",
        "Close Window ",
        "Set Next Document ",
        "Set CoordSys ",
    };
    const std::vector<std::string> pieces = {
        "Layer",      "1",          "0",        "2",           "7",          "-1",       "regions",
        "\"points\"", "Display",    "Global",   "Graphic",     "Off",        "On",       "Pen",
        "Brush",      "Symbol",     "Font",     "Line",        "(1,2,0)",    "(2,255)",  "(",
        ")",          ",",          "Zoom",     "Entire",      "Units",      "\"km\"",   "\"mi\"",
        "Label",      "Position",   "Center",   "Above",       "Right",      "With",     "Name",
        "+",          "Visibility", "Max",      "Offset",      "Object",     "Anchor",   "Order",
        "Center",     "(1, 2)",     "CoordSys", "Earth",       "Projection", "NonEarth", "Bounds",
        "Scale",      "For",        "Pan",      "North",       "Redraw",     "Width",    "Height",
        "Title",      "Printer",    "Name",     "Front",       "*",          "From",     "Parent",
        "Style",      "Table",      "Window",   "Interactive", "Auto",       "\"",       "1e308",
        "Follow",     "Path",       "Default",  "Distance",    "Type",       "XY",       "Area",
        "Preserve",   "Min",        "Max",
    };
    std::mt19937 random(7);
    int failures = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string statement = heads[random() % heads.size()];
        const int length = static_cast<int>(random() % 12);
        for (int i = 0; i < length; ++i)
            statement += pieces[random() % pieces.size()] + " ";
        try {
            engine.run(statement);
        } catch (const MbError& e) {
            ++failures;
            EXPECT_NE(std::string(e.what()), "") << statement;
        }
        ASSERT_LE(engine.windows().count(), 3000);
    }
    EXPECT_GT(failures, 1000) << "the soup is mostly wrong; a parser that takes it all is lax";
}

TEST_F(HostileStatements, FunctionsRefuseWrongTypesAndValues) {
    open("regions");
    const int window = mapFrom("regions");
    const std::vector<std::string> expressions = {"LayerInfo(\"x\", 1, 1)",
                                                  "LayerInfo(" + id(window) + ", 1.5, 1)",
                                                  "LayerInfo(" + id(window) + ", 1, 1.5)",
                                                  "LayerInfo(" + id(window) + ", 1, 1e10)",
                                                  "MapperInfo(" + id(window) + ", -32769)",
                                                  "WindowInfo(1e300, 1)",
                                                  "WindowID(-5)",
                                                  "WindowID(0.5)",
                                                  "MapperInfo(1e300, 1)",
                                                  "LayerInfo(" + id(window) + ", \"\", 1)",
                                                  "Distance(0, 0, 1, 1, \"\")"};
    for (const std::string& expression : expressions) {
        EXPECT_NE(evalError(expression).code(), 0) << expression;
    }
}

} // namespace
} // namespace vellant::engine::testing
