// Shade makes a thematic layer above the layer it shades; a workspace saves it as the Shade
// statement it was, and opens back to the same layers.

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_writer.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace vellant::engine {
namespace {

std::string eval(Engine& engine, const std::string& expression) {
    return engine.evaluate(expression).toEvalText();
}

// Each layer's kind and name, top first: "3:A 0:A 3:B 0:B".
std::string layers(Engine& engine) {
    std::string text;
    const int count = static_cast<int>(engine.evaluate("MapperInfo(FrontWindow(), 9)").asNumber());
    for (int n = 1; n <= count; ++n) {
        const std::string layer = "LayerInfo(FrontWindow(), " + std::to_string(n);
        text +=
            (n > 1 ? " " : "") + eval(engine, layer + ", 24)") + ":" + eval(engine, layer + ", 1)");
    }
    return text;
}

class ThematicLayers : public ::testing::Test {
protected:
    void SetUp() override {
        folder_ = std::filesystem::temp_directory_path() /
                  ("vellant_thematic_" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder_);
        for (const char* name : {"A", "B"}) {
            const std::string file = (folder_ / (std::string(name) + ".tab")).string();
            engine_.run(std::string("Create Table ") + name +
                        " (Name Char(10), Pop Integer) File \"" + file + "\"");
            engine_.run(std::string("Create Map For ") + name +
                        " CoordSys Earth Projection 1, 104");
            engine_.run(std::string("Commit Table ") + name);
        }
        engine_.run("Map From A, B");
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path folder_;
    Engine engine_;
};

TEST_F(ThematicLayers, ShadeGoesAboveTheLayerItShadesAndTakesItsNumber) {
    engine_.run("Shade 2 With Pop Ranges 0: 10 Brush (2,255,16777215)");
    EXPECT_EQ(layers(engine_), "0:A 3:B 0:B");
    EXPECT_EQ(eval(engine_, "LayerInfo(FrontWindow(), 2, 9)"), "3");
    // By name, the table's own layer is shaded, not the thematic one that bears its name.
    engine_.run("Shade Window FrontWindow() B With Name Values \"x\" Brush (2,255,16777215)");
    engine_.run("Shade A With Pop Graduated 0:0 100:24");
    EXPECT_EQ(layers(engine_), "3:A 0:A 3:B 3:B 0:B");
}

TEST_F(ThematicLayers, WhatIsNotAShadeIsRefusedAndChangesNothing) {
    const auto code = [&](const std::string& statement) {
        try {
            engine_.run(statement);
        } catch (const MbError& e) {
            return e.code();
        }
        return 0;
    };
    EXPECT_EQ(code("Shade 3 With Pop Ranges 0:1"), 600) << "no layer 3";
    EXPECT_EQ(code("Shade 0 With Pop Ranges 0:1"), 600) << "the cosmetic layer";
    EXPECT_EQ(code("Shade C With Pop Ranges 0:1"), 600);
    EXPECT_EQ(code("Shade 1 Pop Ranges 0:1"), kMbSyntax) << "no With";
    EXPECT_EQ(code("Shade 1 With Pop"), kMbSyntax) << "no method";
    EXPECT_EQ(code("Shade Window 99999 1 With Pop Ranges 0:1"), 590);
    engine_.run("Shade 1 With Pop Ranges 0:1");
    EXPECT_EQ(code("Shade 1 With Pop Ranges 0:1"), 600) << "a thematic layer is not shaded";
    EXPECT_EQ(layers(engine_), "3:A 0:A 0:B");
}

TEST_F(ThematicLayers, AWorkspaceWritesTheShadesBackInAnOrderThatRebuildsTheLayers) {
    engine_.run("Shade 2 With Pop Ranges 0: 10 Brush (2,255,16777215)");
    engine_.run("Shade 3 With Name Values \"x\" Brush (2,65280,16777215)");
    engine_.run("Shade 1 With Pop Graduated 0:0 100:24");
    engine_.run("Set Map Layer 1 Label With Col1 Auto On");
    const std::string before = layers(engine_);
    ASSERT_EQ(before, "3:A 0:A 3:B 3:B 0:B");
    const std::string text = workspaceFor(engine_, folder_).text;
    EXPECT_NE(text.find("Map From A,B\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Shade 2 With Pop Ranges"), std::string::npos) << text;
    EXPECT_NE(text.find("Shade 3 With Name Values"), std::string::npos) << text;
    EXPECT_NE(text.find("Shade 1 With Pop Graduated"), std::string::npos) << text;

    Engine loaded;
    loadWorkspaceText(loaded, text, folder_);
    EXPECT_EQ(layers(loaded), before);
    EXPECT_EQ(eval(loaded, "LayerInfo(FrontWindow(), 1, 15)"), "Col1");
    EXPECT_EQ(eval(loaded, "LayerInfo(FrontWindow(), 4, 9)"), "3");
    EXPECT_EQ(workspaceFor(loaded, folder_).text, text);
}

} // namespace
} // namespace vellant::engine
