// The workspace statements of the language:
//   Run Application "file.wor"        opens a workspace (other files go to the host's own
//                                     Run Application, which runs only its companion)
//   Save Workspace As "file.wor"      saves the session as a workspace
// File names take backslashes as separators and are relative to the current directory; inside
// a workspace, the loader makes them relative to the workspace's folder.

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"
#include "engine/tables/table_path.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_writer.h"

#include <filesystem>

namespace vellant::engine {

namespace {

std::filesystem::path fileFromText(const std::string& written) {
    std::string slashed = written;
    for (char& c : slashed)
        if (c == '\\') c = '/';
    return std::filesystem::path(slashed);
}

void saveWorkspaceStatement(Engine& engine, Cursor& cursor) {
    cursor.expectWord("as");
    const std::string written = cursor.stringExpression();
    cursor.expectEnd();
    if (written.empty()) raiseMb(kMbCantAccessFile, "Unable to write workspace: no file name.");
    saveWorkspace(engine, fileFromText(written));
}

} // namespace

void registerWorkspaceLanguage(Registry& registry) {
    const Registry::StatementMatch previous = registry.findStatement({"run", "application"});
    StatementHandler runOther;
    if (previous.handler != nullptr && previous.wordCount == 2) runOther = *previous.handler;
    registry.addStatement({"run", "application"}, [runOther](Engine& engine, Cursor& cursor) {
        const std::size_t start = cursor.mark();
        const std::string written = cursor.stringExpression();
        const std::filesystem::path file = fileFromText(written);
        if (LCase(file.extension().string()) == ".wor") {
            cursor.expectEnd();
            const std::optional<std::filesystem::path> found = findFileIgnoringCase(file);
            loadWorkspace(engine, found ? *found : file);
            return;
        }
        cursor.reset(start);
        if (!runOther) raiseMb(kMbCantAccessFile, "Unable to run " + written + ".");
        runOther(engine, cursor);
    });
    registry.addStatement({"save", "workspace"}, saveWorkspaceStatement);
}

} // namespace vellant::engine
