// A saved workspace opens back to the same state: every information function answers the same
// for every window and layer, also from a copy of the folder elsewhere. What a workspace cannot
// hold is named, and the rest still opens.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_writer.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vellant::engine {
namespace {

class WorkspaceRoundTrip : public ::testing::Test {
protected:
    WorkspaceRoundTrip() {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-wor-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr) std::abort();
        folder = templ;
        samples::writeSampleTables((folder / "data").string());
    }
    ~WorkspaceRoundTrip() override { std::filesystem::remove_all(folder); }

    void run(Engine& engine, const std::string& statement) {
        try {
            engine.run(statement);
        } catch (const MbError& e) {
            ADD_FAILURE() << statement << ": " << e.what();
        }
    }

    // The answer or the error number, so that a failing function must fail the same way.
    static std::string answer(Engine& engine, const std::string& expression) {
        try {
            return engine.evaluate(expression).toEvalText();
        } catch (const MbError& e) {
            return "error " + std::to_string(e.code());
        }
    }

    // Everything the functions tell of the windows and their layers, window by number.
    static std::vector<std::string> snapshot(Engine& engine) {
        std::vector<std::string> facts;
        const int windows = std::stoi(answer(engine, "NumWindows()"));
        facts.push_back("windows " + std::to_string(windows));
        facts.push_back("front is " + answer(engine, "WindowInfo(FrontWindow(),1)"));
        for (int n = 1; n <= windows; ++n) {
            const std::string w = "WindowID(" + std::to_string(n) + ")";
            for (int code : {1, 3, 4, 5, 6, 7, 9, 16, 17, 18, 19, 20})
                facts.push_back(
                    w + " info " + std::to_string(code) + " = " +
                    answer(engine, "WindowInfo(" + w + "," + std::to_string(code) + ")"));
            if (answer(engine, "WindowInfo(" + w + ",3)") != "1") continue;
            for (int code = 1; code <= 29; ++code)
                facts.push_back(
                    w + " mapper " + std::to_string(code) + " = " +
                    answer(engine, "MapperInfo(" + w + "," + std::to_string(code) + ")"));
            const int layers = std::stoi(answer(engine, "MapperInfo(" + w + ",9)"));
            for (int layer = 0; layer <= layers; ++layer)
                for (int code = 1; code <= 43; ++code)
                    facts.push_back(w + " layer " + std::to_string(layer) + " code " +
                                    std::to_string(code) + " = " +
                                    answer(engine, "LayerInfo(" + w + "," + std::to_string(layer) +
                                                       "," + std::to_string(code) + ")"));
        }
        return facts;
    }

    void expectSameState(Engine& original, Engine& loaded) {
        const std::vector<std::string> before = snapshot(original);
        const std::vector<std::string> after = snapshot(loaded);
        ASSERT_EQ(before.size(), after.size());
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ(after[i], before[i]);
    }

    std::filesystem::path folder;
};

TEST_F(WorkspaceRoundTrip, EveryWindowAndLayerAnswersTheSameAfterSaveAndLoad) {
    Engine original;
    for (const char* table : {"points", "regions", "lines", "text", "mixed"})
        run(original, "Open Table \"" + (folder / "data" / table).string() + "\"");
    run(original, "Set ProgressBars Off"); // session state a workspace leaves alone
    run(original, "Map From text, points, regions");
    run(original, "Set Map Center (5, 4) Zoom 900 Units \"km\" Distance Units \"km\" "
                  "Area Units \"sq km\" Preserve Scale Display Position");
    run(original,
        "Set Map Layer 1 Display Off Selectable Off Label Line Arrow Position Above Right "
        "Font (\"Times\",1,12,255,16777215) Pen (2,2,65280) With Name + \"!\" Parallel On "
        "Auto On Overlap On Duplicates On PartialSegments On Offset 7 Max 20 "
        "Visibility Zoom (5, 800) Units \"mi\" Label Object 1 Anchor (2.5, 3.5) Text \"moved\" "
        "Position Below Line Simple (3, 3)");
    run(original, "Set Map Layer 2 Display Global Global Symbol (36,255,14) Line (3,2,255) "
                  "Zoom (1, 5000) Units \"km\" Off Nodes On Arrows On Centroids On Editable On");
    run(original, "Set Map Layer regions Zoom (0.5, 300) Units \"mi\" Label Visibility Off "
                  "Follow Path Alpha 128 Translucency 40");
    run(original, "Map From lines, mixed Position (1, 1.5) Units \"in\" Width 5 Height 3 Max");
    run(original, "Set Map CoordSys Earth Projection 1, 104 Zoom Entire");
    run(original, "Set Map Layer 0 Selectable Off");
    run(original, "Browse Name, Value From regions");
    run(original, "Set Window FrontWindow() Title \"Regions table\" ScrollBars On");
    run(original, "Map From mixed"); // a window closed again leaves a gap in the ids
    run(original, "Close Window FrontWindow()");
    run(original, "Set Window WindowID(1) Front");

    const std::filesystem::path file = folder / "session.wor";
    const std::vector<std::string> leftOut = saveWorkspace(original, file);
    EXPECT_TRUE(leftOut.empty()) << leftOut.front();

    Engine loaded;
    loadWorkspace(loaded, file);
    expectSameState(original, loaded);
    EXPECT_TRUE(loaded.host().progressBars());

    // The workspace names its tables relative to itself: a copy of the folder opens too.
    const std::filesystem::path moved = folder / "moved";
    std::filesystem::create_directories(moved);
    std::filesystem::copy(folder / "data", moved / "data",
                          std::filesystem::copy_options::recursive);
    std::filesystem::copy(file, moved / "session.wor");
    std::filesystem::remove_all(folder / "data");
    Engine fromCopy;
    loadWorkspace(fromCopy, moved / "session.wor");
    const std::vector<std::string> copied = snapshot(fromCopy);
    const std::vector<std::string> first = snapshot(loaded);
    ASSERT_EQ(copied.size(), first.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        const bool fileOfATable = first[i].find(" code 8 = ") != std::string::npos &&
                                  first[i].find(" layer 0 ") == std::string::npos;
        if (fileOfATable) // the layer's file: now in the copy
            EXPECT_NE(copied[i].find((moved / "data").string()), std::string::npos) << copied[i];
        else
            EXPECT_EQ(copied[i], first[i]);
    }
}

TEST_F(WorkspaceRoundTrip, WhatAWorkspaceCannotHoldIsNamedAndTheRestOpens) {
    Engine original;
    run(original, "Open Table \"" + (folder / "data" / "points").string() + "\"");
    run(original, "Open Table \"" + (folder / "data" / "regions").string() + "\"");
    run(original, "Select * From points Where Value > 2 Into big");
    run(original, "Map From big, regions");
    run(original, "Map From big");
    run(original, "Dim tobj As Object");
    run(original, "Create Point Into Window FrontWindow() (1, 1)");

    const SavedWorkspace saved = workspaceFor(original, folder);
    ASSERT_EQ(saved.leftOut.size(), 5u);
    EXPECT_EQ(saved.leftOut[0], "Table big: it has no file.");

    Engine loaded;
    loadWorkspaceText(loaded, saved.text, folder);
    EXPECT_EQ(answer(loaded, "NumWindows()"), "1");
    EXPECT_EQ(answer(loaded, "MapperInfo(FrontWindow(),9)"), "1");
    EXPECT_EQ(answer(loaded, "LayerInfo(FrontWindow(),1,1)"), "regions");
}

TEST_F(WorkspaceRoundTrip, AFileThatCannotBeWrittenIsAnError) {
    Engine engine;
    try {
        saveWorkspace(engine, folder / "no such folder" / "x.wor");
        FAIL() << "no error";
    } catch (const MbError& e) {
        EXPECT_EQ(e.code(), kMbCantAccessFile);
    }
}

} // namespace
} // namespace vellant::engine
