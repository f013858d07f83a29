#include "app/replay/replay_run.h"

#include "app/replay/scripted_desk.h"
#include "app/replay/window_verbs.h"
#include "base/runtime_error.h"
#include "engine/host/host_services.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_writer.h"
#include "platform/file_system_object.h"
#include "platform/form.h"
#include "session/session.h"

#include <utility>

namespace vellant::replay {

namespace {

// In pixels of the default screen, 1920 by 1080.
constexpr platform::WindowRect kMainWindowAtStart{0, 0, 1600, 1000};

} // namespace

std::optional<std::string> ScriptStylePicker::pick(const mapx::StylePickRequest& request) {
    replay_.transcript().write("pick", std::to_string(static_cast<int>(request.kind)) + " " +
                                           request.startClauses);
    const ScriptLine* next = replay_.upcoming();
    if (next == nullptr || next->verb->name != "style") {
        replay_.transcript().write("picked", "cancel");
        return std::nullopt;
    }
    const std::string answer = next->argument;
    replay_.consumeUpcoming();
    replay_.transcript().write("picked", answer);
    if (answer == "cancel") return std::nullopt;
    return answer;
}

ReplayRun::ReplayRun(const std::filesystem::path& workspace, std::string appDir, std::ostream& out,
                     const DeskMaker& makeDesk)
    : folder_(std::filesystem::absolute(workspace).parent_path()), transcript_(out),
      engine_(std::make_shared<engine::Engine>()),
      host_(std::make_shared<engine::MapInfoAutomation>(engine_)),
      styleDialogs_(*engine_, transcript_) {
    engine::loadWorkspace(*engine_, workspace);
    // The companion is running before the tool is called: it is what calls it.
    engine_->run("Run Application \"vellant.mbx\"");

    host_->registerRunning(registry_);
    recorder_ = std::make_shared<RecordingHost>(host_, transcript_);
    registry_.registerRunning(engine::MapInfoAutomation::kClassName, recorder_);

    desk_ = makeDesk ? makeDesk(*engine_) : std::make_unique<ScriptedDesk>();
    desk_->onMessage = [this](const std::string& prompt) { transcript_.write("msgbox", prompt); };
    desk_->onWindowPos = [this](const platform::ScriptedToolkit::WindowPosCall& call) {
        writeWindowPos(*this, call);
    };
    // MapInfo's main window stands where a desktop would have it until the script moves it.
    platform::WindowPlacement placement;
    placement.showCmd = platform::SW_SHOWNORMAL;
    placement.rcNormalPosition = kMainWindowAtStart;
    desk_->placeHostWindow(engine_->host().mainWindow().hWnd(), placement);
    layer_ = std::make_unique<session::vlLayer>(desk_->toolkit(), registry_, std::move(appDir));
    layer_->onSessionStart = [this](session::Session& s) {
        s.onLogLine = [this](const std::string& line) { transcript_.write("log", line); };
    };
}

ReplayRun::~ReplayRun() {
    layer_.reset();
    desk_.reset();
    host_->close();
}

void ReplayRun::useTemporaryFolder(const std::filesystem::path& folder) {
    platform::registerFileSystemObject(registry_, folder);
}

void ReplayRun::refuse(const ScriptLine& line, const std::string& why) {
    transcript_.write("error", "script line " + std::to_string(line.number) + ": " + why);
}

const ScriptLine* ReplayRun::upcoming() const {
    return next_ < script_.size() ? &script_[next_] : nullptr;
}

void ReplayRun::consumeUpcoming() {
    if (next_ < script_.size()) transcript_.write(">", script_[next_++].text());
}

void ReplayRun::runLine(const ScriptLine& line) {
    transcript_.write(">", line.text());
    try {
        line.verb->run(*this, line);
    } catch (const RuntimeError& e) {
        // On the desktop a run-time error that leaves an event handler ends the program.
        transcript_.write("unhandled", std::to_string(e.number()) + " " + e.description());
    }
    // A style dialog the line asked for opens now that the call which asked has returned.
    styleDialogs_.serve();
}

void ReplayRun::scheduleNext() {
    desk_->addStep([this] { takeStep(); });
}

void ReplayRun::takeStep() {
    if (next_ >= script_.size()) {
        scriptEnded();
        return;
    }
    const ScriptLine& line = script_[next_++];
    // Queued before the line runs, so that a modal form the line opens finds its first step.
    scheduleNext();
    runLine(line);
}

void ReplayRun::scriptEnded() {
    styleDialogs_.cancelOpen();
    platform::Form* form = desk_->modalForm();
    if (!form) return;
    transcript_.write("hide", form->Name());
    form->Hide();
    // An outer modal form, or the next session of a restart, is closed the same way.
    scheduleNext();
}

void ReplayRun::runScriptAround(const std::function<std::string()>& call,
                                std::vector<ScriptLine> script, std::string& result) {
    script_ = std::move(script);
    next_ = 0;
    while (next_ < script_.size() && script_[next_].verb->aheadOfSession)
        runLine(script_[next_++]);
    scheduleNext();

    result = call();
    transcript_.write("result", result);
    while (next_ < script_.size())
        runLine(script_[next_++]);
    styleDialogs_.cancelOpen();
}

std::string ReplayRun::run(std::vector<ScriptLine> script) {
    std::string result;
    runScriptAround([this] { return layer_->RunMapInfoLayer(); }, std::move(script), result);
    writeState();
    transcript_.flush();
    return result;
}

std::string ReplayRun::runMapX(std::vector<ScriptLine> script) {
    mapx_ = std::make_unique<mapxclient::MapXClient>(*engine_, desk_->toolkit(), registry_,
                                                     mapxPicker_);
    std::vector<std::string> leftOut;
    const std::shared_ptr<hostmodel::MXMap> map = mapx_->openFrontMap(leftOut);
    for (const std::string& table : leftOut)
        transcript_.write("!", "not in the client's map: " + table);
    const std::vector<mapxclient::MapXValue> before = mapxclient::MapXClient::describe(*map);
    std::string result;
    runScriptAround([&] { return layer_->RunLayer(map); }, std::move(script), result);

    const std::vector<mapxclient::MapXValue> after = mapxclient::MapXClient::describe(*map);
    for (const mapxclient::MapXValue& value : after) {
        std::string was = "(none)";
        for (const mapxclient::MapXValue& old : before)
            if (old.first == value.first) was = old.second;
        if (was != value.second)
            transcript_.write("mapx", value.first + " " + was + " -> " + value.second);
    }
    // As the client does after the call, whatever the session left.
    map->setAutoRedraw(true);
    transcript_.write("client");
    for (const mapxclient::MapXValue& value : after)
        transcript_.writeBlock(value.first + " " + value.second + "\n");
    writeState();
    transcript_.flush();
    return result;
}

void ReplayRun::writeState() {
    const engine::SavedWorkspace state = engine::workspaceFor(*engine_, folder_);
    transcript_.write("state");
    transcript_.writeBlock(state.text);
    for (const std::string& leftOut : state.leftOut)
        transcript_.write("!", "left out: " + leftOut);
}

} // namespace vellant::replay
