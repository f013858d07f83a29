#pragma once
// One replay: a workspace opened in the embedded host, the companion started, the program
// attached through a recording host object, and a script run as the user inside the session's
// modal show. Everything lands in the transcript in the order it happens; the verbs of the
// script (replay_verbs.h) act through the members below.

#include "app/mapx_client/mapx_client.h"
#include "app/replay/recording_host.h"
#include "app/replay/replay_desk.h"
#include "app/replay/script.h"
#include "app/replay/style_dialogs.h"
#include "app/replay/transcript.h"
#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "platform/automation.h"
#include "session/vl_layer.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vellant::replay {

class ReplayRun;

// MapX's style pickers in a replay: the pick blocks inside the click that opened it, so it is
// answered by the script's next line when that is a `style` line (a clause, or "cancel");
// otherwise the user closes the picker without a choice.
class ScriptStylePicker : public mapx::StylePicker {
public:
    explicit ScriptStylePicker(ReplayRun& replay) : replay_(replay) {}
    std::optional<std::string> pick(const mapx::StylePickRequest& request) override;

private:
    ReplayRun& replay_;
};

class ReplayRun {
public:
    // Opens the workspace; its errors (engine::MbError: 825 for a file that cannot be read, a
    // failing statement's own) pass to the caller before anything is written. appDir is the
    // program's application directory and must exist.
    // The desk is made once the workspace is open (a desk with a screen shows its windows);
    // without a maker the run is headless on the scripted desk.
    using DeskMaker = std::function<std::unique_ptr<ReplayDesk>(engine::Engine&)>;
    ReplayRun(const std::filesystem::path& workspace, std::string appDir, std::ostream& out,
              const DeskMaker& makeDesk = {});
    ~ReplayRun();
    ReplayRun(const ReplayRun&) = delete;
    ReplayRun& operator=(const ReplayRun&) = delete;

    // Where the program's style samples go: the system's temporary folder unless set here.
    void useTemporaryFolder(const std::filesystem::path& folder);

    // Runs the script through one call of RunMapInfoLayer and answers its result. The
    // transcript ends with "result <answer>" and the host's state. Lines the session did not
    // live to see run after the call, in their order.
    std::string run(std::vector<ScriptLine> script);
    // The same as a MapX application: the workspace's front map window becomes the client's
    // own map, handed to RunLayer. The transcript then tells, as "mapx" lines, every value the
    // session changed in that map, and ends with the map as the client finds it ("client").
    std::string runMapX(std::vector<ScriptLine> script);

    // ---- for the verbs ----
    Transcript& transcript() { return transcript_; }
    ReplayDesk& desk() { return *desk_; }
    engine::Engine& engine() { return *engine_; }
    session::vlLayer& layer() { return *layer_; }
    StyleDialogs& styleDialogs() { return styleDialogs_; }
    const std::filesystem::path& workspaceFolder() const { return folder_; }
    // A line of the script that could not be done: "error script line <n>: <why>". The script
    // goes on with its next line.
    void refuse(const ScriptLine& line, const std::string& why);
    // The line after the one running, or nullptr at the end; a verb that takes it as part of
    // its own action (a right click and the menu item chosen) consumes it, echoed as run.
    const ScriptLine* upcoming() const;
    void consumeUpcoming();

private:
    void runLine(const ScriptLine& line);
    // Queues the user's next step: it runs inside whichever modal show is innermost then.
    void scheduleNext();
    void takeStep();
    // The script has run out while a form is still shown: nobody else will close it.
    void scriptEnded();
    void writeState();
    void runScriptAround(const std::function<std::string()>& call, std::vector<ScriptLine> script,
                         std::string& result);

    std::filesystem::path folder_; // the workspace's folder: the final state names files by it
    Transcript transcript_;
    std::shared_ptr<engine::Engine> engine_;
    std::shared_ptr<engine::MapInfoAutomation> host_;
    StyleDialogs styleDialogs_;
    platform::AutomationRegistry registry_;
    std::unique_ptr<ReplayDesk> desk_;
    std::shared_ptr<RecordingHost> recorder_;
    std::unique_ptr<session::vlLayer> layer_;
    ScriptStylePicker mapxPicker_{*this};
    std::unique_ptr<mapxclient::MapXClient> mapx_;
    std::vector<ScriptLine> script_;
    std::size_t next_ = 0; // the first line not yet run
};

} // namespace vellant::replay
