// The same scripts replayed on the scripted toolkit and on the real widgets give the same
// transcript, line for line: the Qt toolkit and its views change nothing the program does.

#include "app/sample_tables/demo_data.h"
#include "support/session_fixture.h"

#include <QProcess>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

namespace vellant::replay {
namespace {

struct ScriptCase {
    const char* name;
    std::vector<const char*> sessions; // one script a session, over one application directory
};

std::string demoScript() {
    std::ifstream in(std::string(VELLANT_SOURCE_DIR) + "/data/demo.vls");
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The runner is run as its users run it, one process a session: window handles and the like
// are then numbered alike on both toolkits.
class BothToolkits : public ::testing::TestWithParam<ScriptCase> {
protected:
    BothToolkits() { workspace = samples::writeDemoData(data.file("data")); }

    std::string replay(bool qt) {
        const std::string appDir = data.file(qt ? "app-qt" : "app-scripted");
        std::string transcript;
        int count = 0;
        for (const char* session : GetParam().sessions) {
            const std::string script = data.file("session" + std::to_string(++count) + ".vls");
            std::ofstream(script) << (std::string(session) == "demo" ? demoScript() : session);
            QStringList arguments{"--appdir", QString::fromStdString(appDir)};
            if (qt)
                arguments << "--toolkit"
                          << "qt";
            arguments << QString::fromStdString(workspace) << QString::fromStdString(script);
            QProcess process;
            // The runner picks its own offscreen screen, the size the scripted desk assumes.
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.remove("QT_QPA_PLATFORM");
            process.setProcessEnvironment(environment);
            process.start(VELLANT_REPLAY, arguments);
            EXPECT_TRUE(process.waitForFinished(120000));
            EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
            transcript += process.readAllStandardOutput().toStdString();
        }
        // The scratch tables live in the application directory, which differs between the runs.
        for (std::size_t at = transcript.find(appDir); at != std::string::npos;
             at = transcript.find(appDir, at))
            transcript.replace(at, appDir.size(), "<appdir>");
        // So are the temporary names the style samples are saved under.
        static const std::regex temporaryName("rad[0-9A-F]{5}\\.tmp");
        return std::regex_replace(transcript, temporaryName, "<temporary name>");
    }

    vellant::testing::TempDir data;
    std::string workspace;
};

TEST_P(BothToolkits, GiveTheSameTranscript) {
    const std::string scripted = replay(false);
    const std::string qt = replay(true);
    EXPECT_GT(scripted.size(), 1000u);
    EXPECT_EQ(scripted.find("error script"), std::string::npos) << scripted;
    // Line by line, so that a difference names its place.
    std::istringstream a(scripted), b(qt);
    std::string lineA, lineB;
    for (int number = 1; std::getline(a, lineA); ++number) {
        ASSERT_TRUE(std::getline(b, lineB)) << "the Qt transcript ends before line " << number;
        ASSERT_EQ(lineA, lineB) << "line " << number;
    }
    EXPECT_FALSE(std::getline(b, lineB)) << "the Qt transcript goes on: " << lineB;
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, BothToolkits,
    ::testing::Values(
        ScriptCase{"TheDemo", {"demo"}},
        ScriptCase{"EditorPickerMenuAndInformation",
                   {"drag 9 2\nselect 3 4\nrclick 3 visible\nmenu Group_selected\n"
                    "dblclick 3 layer\ndblclick 0 zoom_layer\nclick 7 zoom max\ntype 5000\n"
                    "dblclick 0 user info\nclick 2 user info\npick 32\n"
                    "dblclick 0 label properties\nclick 5 label orient\norient 8\n"
                    "click 6 label orient\nesc\nclick 6 group\ntype Roads\nclick 7 group\nkey W\n"
                    "key e\nenter\ngeometry\nsnapshot\npress Info\n"
                    "press Limits\npress Exit\npress OK\n"}},
        ScriptCase{"TheDockedFormOnItsHost",
                   {"press Docked\npress OK\n",
                    "geometry\nhostwindow maximized\ntick\ngeometry\n"
                    "hostwindow normal 100 50 900 650\nformheight 2400\ntick\ngeometry\n"
                    "advice resize\ngeometry\npress Cancel\n"}}),
    [](const ::testing::TestParamInfo<ScriptCase>& param) { return param.param.name; });

} // namespace
} // namespace vellant::replay
