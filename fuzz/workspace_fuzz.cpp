// The workspace loader on arbitrary bytes: every input ends in success or an MbError. The
// harness passes over statements that write, delete or run other statements, so that a run
// never touches files beyond reading them.

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

bool readsOnly(const vellant::engine::WorkspaceStatement& statement) {
    static const std::set<std::string> writers = {
        "create", "drop", "save",   "commit", "kill",     "delete", "insert",
        "update", "pack", "export", "rename", "register", "run",    "alter"};
    std::size_t end = 0;
    while (end < statement.text.size() && statement.text[end] != ' ' &&
           statement.text[end] != '\t' && statement.text[end] != '\n')
        ++end;
    return !writers.contains(vellant::LCase(std::string_view(statement.text).substr(0, end)));
}

// Relative table names resolve here: a folder of the run's own, empty.
const std::filesystem::path& emptyFolder() {
    static const std::filesystem::path folder = [] {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-worfuzz-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr) std::abort();
        return std::filesystem::path(templ);
    }();
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    vellant::engine::Engine engine;
    try {
        vellant::engine::loadWorkspaceText(engine, text, emptyFolder(), readsOnly);
    } catch (const vellant::engine::MbError&) {
        // Refusing a workspace is the expected answer to most inputs.
    }
    return 0;
}
