// Feeds arbitrary bytes to the embedded host's interpreter, once as a statement (Do) and once as
// an expression (eval), each in a fresh engine. An MbError is the expected answer to nonsense;
// anything else escaping, a crash or a hang is a fault.

#include "engine/engine.h"
#include "engine/mb_error.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace {

// Statements may name files; relative names land in a scratch folder, not the source tree.
void enterScratchFolder() {
    static const bool entered = [] {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-mbfuzz-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr || chdir(templ.c_str()) != 0) std::abort();
        return true;
    }();
    (void)entered;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    enterScratchFolder();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    {
        vellant::engine::Engine engine;
        try {
            engine.run(text);
        } catch (const vellant::engine::MbError&) {
        }
    }
    {
        vellant::engine::Engine engine;
        try {
            (void)engine.evaluate(text).toEvalText();
        } catch (const vellant::engine::MbError&) {
        }
    }
    return 0;
}
