#pragma once
// A client call-back that remembers what the host told it, and can act while being told, as
// the program's own call-back sends commands back from inside RunCommand.

#include "hostmodel/mapinfo_app.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vellant::engine::testing {

class RecordingCallback : public hostmodel::MapInfoCallback {
public:
    void RunCommand(const std::string& command) override {
        commands.push_back(command);
        if (onRunCommand) onRunCommand(command);
    }
    void WindowContentsChanged(std::int32_t windowId) override {
        changedWindows.push_back(windowId);
        if (onWindowContentsChanged) onWindowContentsChanged(windowId);
    }

    std::vector<std::string> commands;
    std::vector<std::int32_t> changedWindows;
    std::function<void(const std::string&)> onRunCommand;
    std::function<void(std::int32_t)> onWindowContentsChanged;
};

} // namespace vellant::engine::testing
