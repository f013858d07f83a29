// Feeds arbitrary bytes to the replay script reader: a script is text a person wrote, so any
// input must end in a script or in a ScriptError naming a line, never in anything else.

#include "app/replay/replay_verbs.h"
#include "app/replay/script.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    try {
        const auto script = vellant::replay::readScript(in, vellant::replay::replayVerbs());
        for (const auto& line : script)
            if (line.verb == nullptr || line.number < 1) std::abort();
    } catch (const vellant::replay::ScriptError& e) {
        if (e.line() < 1) std::abort();
    }
    return 0;
}
