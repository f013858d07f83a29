#pragma once
// Opening a workspace: its statements run through the engine in the file's order, as though a
// client had sent each with Do. Table files named by a relative path are looked for in the
// workspace's folder, and so are files named by a Windows drive or network path, which cannot
// exist here under that name. The first statement that fails stops the load; what ran before
// it stays, as it does in the host.
//
// Errors:
//   825 "Unable to open workspace <file>."          (missing or unreadable file)
//   825 "Workspace <file> is too large."            (more than kMaxWorkspaceBytes)
//   643 the header errors of parseWorkspaceText
//   a failing statement's own code, its message prefixed with "Workspace line <n>: "

#include "engine/workspace/workspace_text.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace vellant::engine {

class Engine;

inline constexpr std::size_t kMaxWorkspaceBytes = 64u << 20;

void loadWorkspace(Engine& engine, const std::filesystem::path& file);

// The same for a workspace's text; folder stands for the workspace's folder. A statement the
// filter refuses is passed over (a harness that must not touch files uses it).
using WorkspaceStatementFilter = std::function<bool(const WorkspaceStatement&)>;
void loadWorkspaceText(Engine& engine, std::string_view text, const std::filesystem::path& folder,
                       const WorkspaceStatementFilter& filter = {});

// An "Open Table" statement with its file name made to point into folder where the file name
// is relative or foreign; any other statement as it is.
std::string withTableFileInFolder(std::string_view statement, const std::filesystem::path& folder);

} // namespace vellant::engine
