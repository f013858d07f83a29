#pragma once
// A replay of the demo workspace, as the acceptance tests run it: a fresh demo and application
// folder for each test, a script in, the transcript out a line each.

#include "app/replay/replay_run.h"
#include "app/replay/replay_verbs.h"
#include "app/sample_tables/demo_data.h"
#include "support/session_fixture.h"
#include "transcript_lines.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {

class DemoReplay : public ::testing::Test {
protected:
    DemoReplay() {
        workspace = samples::writeDemoData(data.str());
        std::filesystem::create_directories(appDir);
    }

    // The script through RunMapInfoLayer.
    std::vector<std::string> replay(const std::string& scriptText) {
        return transcriptOf(scriptText, &ReplayRun::run);
    }
    // The script through a MapX application's RunLayer; its answer is kept in result.
    std::vector<std::string> replayMapX(const std::string& scriptText) {
        return transcriptOf(scriptText, &ReplayRun::runMapX);
    }

    testing::TempDir data;
    std::string appDir = data.file("app");
    std::string workspace;
    std::string result;

private:
    std::vector<std::string> transcriptOf(const std::string& scriptText,
                                          std::string (ReplayRun::*call)(std::vector<ScriptLine>)) {
        std::istringstream in(scriptText);
        std::ostringstream out;
        {
            ReplayRun run(workspace, appDir, out);
            result = (run.*call)(readScript(in, replayVerbs()));
        }
        return transcriptLines(out.str());
    }
};

} // namespace vellant::replay
