#include "session/host_session.h"

#include "app/sample_tables/sample_tables.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_writer.h"
#include "prefs/record_file.h"
#include "session/layer_form.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vellant::testing {

namespace {

// The test tables, written once per run and removed at its end.
class TableFolder : public ::testing::Environment {
public:
    static const std::filesystem::path& path() {
        static const std::filesystem::path folder = [] {
            std::string templ =
                (std::filesystem::temp_directory_path() / "vellant-session-tables-XXXXXX").string();
            if (mkdtemp(templ.data()) == nullptr) throw std::runtime_error("no temporary folder");
            samples::writeSampleTables(templ);
            return std::filesystem::path(templ);
        }();
        return folder;
    }
    void TearDown() override { std::filesystem::remove_all(path()); }
};
[[maybe_unused]] ::testing::Environment* const tableFolder =
    ::testing::AddGlobalTestEnvironment(new TableFolder);

} // namespace

HostSession::HostSession() : app(std::make_shared<engine::MapInfoAutomation>(engine)) {
    app->registerRunning(registry);
    // The program finds the recorder where it looks for MapInfo.
    recorder = std::make_shared<RecordingMapInfo>(app);
    registry.registerRunning(engine::MapInfoAutomation::kClassName, recorder);
    for (const char* table : {"points", "regions", "text", "mixed"})
        run("Open Table \"" + (TableFolder::path() / table).string() + ".tab\"");
    run("Map From points, regions, text, mixed");
    userMap = std::stoi(eval("FrontWindow()"));
    layer.onSessionStart = [this](session::Session& s) { live = &s; };
    placeMainWindow(platform::SW_SHOWNORMAL);
}

std::int32_t HostSession::mainWindow() {
    return engine->host().mainWindow().hWnd();
}

void HostSession::placeMainWindow(int showCmd, platform::WindowRect normal) {
    platform::WindowPlacement placement;
    placement.showCmd = showCmd;
    placement.rcNormalPosition = normal;
    toolkit.setWindowPlacement(mainWindow(), placement);
}

void HostSession::SetUp() {
    if (companionRuns) run("Run Application \"vellant.mbx\"");
}

HostSession::~HostSession() {
    app->close();
}

void HostSession::run(const std::string& statement) {
    try {
        app->Do(statement);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "Do " << statement << ": " << e.number() << " " << e.description();
    }
}

std::string HostSession::eval(const std::string& expression) {
    try {
        return app->eval(expression);
    } catch (const RuntimeError& e) {
        ADD_FAILURE() << "eval " << expression << ": " << e.number() << " " << e.description();
        return "";
    }
}

engine::Window& HostSession::window(int id) {
    return engine->windows().get(id);
}

bool HostSession::windowOpen(int id) {
    return engine->windows().find(id) != nullptr;
}

std::string HostSession::hostState() {
    return engine::workspaceFor(*engine, TableFolder::path()).text;
}

std::string HostSession::hostStateBesidesBoundsTable() {
    std::string state = hostState();
    const std::size_t at = state.find("/vlbounds.tab\" As vlBounds Interactive\n");
    if (at == std::string::npos) return state;
    const std::size_t start = state.rfind('\n', at) + 1;
    state.erase(start, state.find('\n', at) + 1 - start);
    return state;
}

engine::Companion& HostSession::companion() {
    engine::Companion* running = engine->host().companion();
    if (!running) throw std::logic_error("the companion is not running");
    return *running;
}

void HostSession::closeAllWindows() {
    for (int id : engine->windows().ids())
        run("Close Window " + std::to_string(id));
}

void HostSession::writeSettings(std::int16_t immediate, std::int16_t docked) {
    prefs::RecordFile file;
    file.open(dir.file("Vellant.prf"), prefs::RecordFile::Access::ReadWrite);
    file.writeInt16(1, immediate);
    file.writeInt16(2, docked);
    for (std::int64_t record = 3; record <= 9; ++record)
        file.writeInt16(record, 0);
    file.close();
}

void HostSession::writeSetting(int record, std::int16_t value) {
    prefs::RecordFile file;
    file.open(dir.file("Vellant.prf"), prefs::RecordFile::Access::ReadWrite);
    file.writeInt16(record, value);
    file.close();
}

std::int16_t HostSession::storedSetting(int record) {
    prefs::RecordFile file;
    file.open(dir.file("Vellant.prf"), prefs::RecordFile::Access::Read);
    const std::int16_t value = file.readInt16(record);
    file.close();
    return value;
}

void HostSession::step(std::function<void(session::Session&)> action) {
    toolkit.addStep([this, action = std::move(action)] {
        ASSERT_NE(live, nullptr);
        action(*live);
    });
}

void HostSession::pressOK() {
    step([](session::Session& s) { s.layerForm().OK.Click(); });
}

void HostSession::pressCancel() {
    step([](session::Session& s) { s.layerForm().Cancel.Click(); });
}

std::vector<std::string> HostSession::logLines() const {
    std::vector<std::string> lines;
    const std::string text = logText();
    std::size_t at = 0;
    while (at < text.size()) {
        // A line is a quoted text ended by CR LF; the text itself may hold a line break.
        const std::size_t end = text.find("\"\r\n", at + 1);
        if (text[at] != '"' || end == std::string::npos) {
            ADD_FAILURE() << "log line not quoted: " << text.substr(at);
            break;
        }
        lines.push_back(text.substr(at + 1, end - at - 1));
        at = end + 3;
    }
    return lines;
}

std::vector<std::string> HostSession::messages() const {
    std::vector<std::string> prompts;
    for (const auto& message : toolkit.messages())
        prompts.push_back(message.prompt);
    return prompts;
}

std::vector<std::string> HostSession::callsFrom(const std::string& from) const {
    std::vector<std::string> found;
    bool started = false;
    for (const std::string& call : recorder->calls) {
        if (!started && call.rfind(from, 0) == 0) started = true;
        if (started) found.push_back(call);
    }
    return found;
}

} // namespace vellant::testing
