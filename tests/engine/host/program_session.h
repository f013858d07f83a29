#pragma once
// A host as the program finds it when a session starts: four tables on a map (points, regions,
// text, mixed: layers 1 to 4), a clone of that map as the view, the companion running, the
// program's call-back set, and a folder of its own for the scratch tables. Commands are written
// as the program writes them and filled in as it fills them: numbers through Str, with the
// leading blank.

#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "platform/control.h"
#include "recording_callback.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellant::engine::testing {

using Fills = std::vector<std::pair<std::string, std::string>>;

// How the program sends a string: Do, eval, the companion's Do, or RunMenuCommand.
enum class Via { Do, Eval, Companion, Menu };

struct Answer {
    std::string text; // what eval answered
    int error = 0;    // the host's error number, 0 when the call succeeded
    std::string message;
};

class ProgramSession {
public:
    static constexpr int kLayer = 2; // the layer the facade works on: regions
    static constexpr const char* kLayerTable = "regions";

    ProgramSession();
    ~ProgramSession();
    ProgramSession(const ProgramSession&) = delete;
    ProgramSession& operator=(const ProgramSession&) = delete;

    // The command with its placeholders filled: first those of the row, then the session's own.
    std::string fill(std::string_view text, const Fills& rowFills) const;
    Answer send(Via via, const std::string& text);
    // A call whose failure is the test's failure.
    std::string eval(const std::string& expression);
    void run(const std::string& statement);

    std::shared_ptr<Engine> engine;
    std::shared_ptr<MapInfoAutomation> app;
    std::shared_ptr<RecordingCallback> callback = std::make_shared<RecordingCallback>();
    platform::Control frame{"MapInfoFrame"};   // the form's frame: the view map's parent
    platform::Control frame2{"MapInfoframe2"}; // the frame of the style samples
    int mapWin = 0;
    int viewWin = 0;
    int spareWin = 0;             // a second clone, when a row makes one
    int styleWin = 0;             // the map of style samples, when a row makes one
    std::filesystem::path appDir; // the program's application directory, empty at first

    // The folder of the test tables, written once per run.
    static const std::filesystem::path& tableFolder();
};

} // namespace vellant::engine::testing
