#pragma once
// A whole session against the embedded host: MapInfo running with four tables on a map (points,
// regions, text, mixed: layers 1 to 4), the companion running, the public class over a fresh
// application directory, and a scripted user whose steps run inside the layer form's modal
// show. The host is found through a recorder, so tests see every call the program makes.

#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/mapinfo_automation.h"
#include "engine/windows/window.h"
#include "platform/automation.h"
#include "platform/scripted_toolkit.h"
#include "session/recording_mapinfo.h"
#include "session/session.h"
#include "session/vl_layer.h"
#include "support/session_fixture.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace vellant::testing {

class HostSession : public ::testing::Test {
protected:
    HostSession();
    ~HostSession() override;
    // Starts the companion unless the test said it is not to run.
    void SetUp() override;

    // ---- the host ----
    void run(const std::string& statement);
    std::string eval(const std::string& expression);
    engine::Window& window(int id);
    bool windowOpen(int id);
    // Every table and window of the host as a workspace writes them: what a user would find.
    std::string hostState();
    // The same without the scratch table vlBounds: a session makes it and leaves it open for
    // the next, the one trace a session leaves in the host.
    std::string hostStateBesidesBoundsTable();
    engine::Companion& companion();
    // MapInfo's main window: its handle and where the desktop says it stands (normal, at
    // 0,0 to 1600,1000 pixels, until a test moves it).
    std::int32_t mainWindow();
    void placeMainWindow(int showCmd, platform::WindowRect normal = {0, 0, 1600, 1000});
    // The host in its state before the session: no window at all, or a browser in front.
    void closeAllWindows();

    // ---- the settings the session will read ----
    void writeSettings(std::int16_t immediate, std::int16_t docked);
    // One more setting, by its record, after writeSettings.
    void writeSetting(int record, std::int16_t value);
    std::int16_t storedSetting(int record);

    // ---- the user ----
    // A step of the script, run inside the innermost modal show, with the session under way.
    void step(std::function<void(session::Session&)> action);
    void pressOK();
    void pressCancel();
    std::string runMapInfoLayer() { return layer.RunMapInfoLayer(); }

    // ---- what happened ----
    // The log's lines, each without its quotes and line end.
    std::vector<std::string> logLines() const;
    std::string logText() const { return readText(dir.file("Vellant.log")); }
    std::vector<std::string> messages() const;
    // The Do, eval and menu calls made from the first one starting with `from` on.
    std::vector<std::string> callsFrom(const std::string& from) const;

    TempDir dir;
    platform::ScriptedToolkit toolkit;
    platform::AutomationRegistry registry;
    std::shared_ptr<engine::Engine> engine = std::make_shared<engine::Engine>();
    std::shared_ptr<engine::MapInfoAutomation> app;
    std::shared_ptr<RecordingMapInfo> recorder;
    session::vlLayer layer{toolkit, registry, dir.str()};
    // The session of the call under way; valid inside steps only.
    session::Session* live = nullptr;
    int userMap = 0;
    bool companionRuns = true;
};

} // namespace vellant::testing
