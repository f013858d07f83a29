// Workspaces nobody should write: each load ends with an error or succeeds, never a crash or
// a hang, and a failure names the line it stopped at.

#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace vellant::engine {
namespace {

// Runs a load that is expected to fail; answers the error, or code 0 when it did not fail.
MbError loadFailure(std::string_view text) {
    Engine engine;
    try {
        loadWorkspaceText(engine, text, std::filesystem::temp_directory_path());
    } catch (const MbError& e) {
        return e;
    }
    return MbError(0, "");
}

TEST(HostileWorkspace, AFailingStatementStopsTheLoadAndNamesItsLine) {
    Engine engine;
    try {
        loadWorkspaceText(engine,
                          "!Workspace\n!Version 600\n\nstatusbar hide\nxyzzy\n  more\n"
                          "statusbar show\n",
                          ".");
        FAIL() << "no error";
    } catch (const MbError& e) {
        EXPECT_EQ(e.code(), kMbSyntax);
        EXPECT_EQ(std::string(e.what()), "Workspace line 5: Unrecognized command: xyzzy.");
    }
    EXPECT_FALSE(engine.host().statusBarVisible()) << "what ran before the failure stays";
}

TEST(HostileWorkspace, BinaryGarbageEndsInAnError) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 200; ++round) {
        std::string text = round % 2 ? "!Workspace\n" : "";
        const int length = static_cast<int>(random() % 400);
        for (int i = 0; i < length; ++i)
            text += static_cast<char>(random() % 256);
        const MbError failure = loadFailure(text);
        const std::string message = failure.what();
        if (round % 2 == 0) {
            EXPECT_EQ(failure.code(), kMbInvalidFormat) << round;
        } else if (failure.code() != kMbInvalidFormat && failure.code() != 0) {
            EXPECT_EQ(message.rfind("Workspace line ", 0), 0u) << round << ": " << message;
        }
    }
}

TEST(HostileWorkspace, HugeLinesAndDeepNestingEndInAnError) {
    EXPECT_NE(loadFailure("!Workspace\nDim " + std::string(4u << 20, 'a') + " As\n").code(), 0);
    const std::string deep = "!Workspace\nDim x As Integer\nx = " + std::string(200000, '(') + "1" +
                             std::string(200000, ')') + "\n";
    EXPECT_NE(loadFailure(deep).code(), 0);
    EXPECT_NE(loadFailure("!Workspace\n" + std::string(100000, '"') + "\n").code(), 0);
}

TEST(HostileWorkspace, ACommandThatRunsItselfStops) {
    const MbError failure = loadFailure("!Workspace\nDim s As String\n"
                                        "s = \"Run Command s\"\nRun Command s\n");
    EXPECT_NE(failure.code(), 0);
    EXPECT_EQ(std::string(failure.what()).rfind("Workspace line 4: ", 0), 0u) << failure.what();
}

TEST(HostileWorkspace, FilesThatAreNotThereOrNotFilesAreRefused) {
    Engine engine;
    const auto codeOf = [&](const std::filesystem::path& file) {
        try {
            loadWorkspace(engine, file);
        } catch (const MbError& e) {
            return e.code();
        }
        return 0;
    };
    const auto folder = std::filesystem::temp_directory_path() / "vellant_hostile_wor";
    std::filesystem::create_directories(folder);
    EXPECT_EQ(codeOf(folder / "missing.wor"), kMbCantAccessFile);
    EXPECT_EQ(codeOf(folder), kMbCantAccessFile);
    EXPECT_EQ(codeOf("/dev/zero"), kMbCantAccessFile);
    std::ofstream(folder / "empty.wor").close();
    EXPECT_EQ(codeOf(folder / "empty.wor"), kMbInvalidFormat);
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace vellant::engine
