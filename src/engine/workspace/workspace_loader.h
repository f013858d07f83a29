#pragma once
// Opening a workspace: its statements run through the engine in the file's order, as though a
// client had sent each with Do. The text is first converted from the charset its "!Charset"
// line names to UTF-8 (workspace_charset.h). Table files named by a relative path are looked
// for in the workspace's folder, folders separated by backslashes or slashes, and so are files
// named by a Windows drive or network path, which cannot exist here under that name; a name
// in another letter case than the file's finds the file (table_path.h). The first statement
// that fails stops the load, and the windows and tables the workspace had opened until then
// are closed again, so that a failed workspace leaves nothing half open.
//
// Errors:
//   825 "Unable to open workspace <file>."          (missing or unreadable file)
//   825 "Workspace <file> is too large."            (more than kMaxWorkspaceBytes)
//   643 the header errors of parseWorkspaceText and the charset errors of workspaceTextAsUtf8
//   643 "Workspace line <n> is longer than <k> characters." (and the same for a statement)
//   a failing statement's own code, its message prefixed with "Workspace line <n>: "; for a
//   table named by a Windows path and found in neither place, 825 "Unable to open table
//   <path as written>: the file is not there, nor in the workspace's folder <folder>."

#include "engine/workspace/workspace_text.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Engine;

inline constexpr std::size_t kMaxWorkspaceBytes = 64u << 20;
// Lines and statements longer than these are a damaged file, not a workspace.
inline constexpr std::size_t kMaxWorkspaceLineBytes = 64u << 10;
inline constexpr std::size_t kMaxWorkspaceStatementBytes = 4u << 20;

// Answers notes on what was read but is not shown: one line for each window of a kind the
// engine does not show (a layout, a legend, a graph), whose statements are kept as written
// for Save Workspace to write back.
std::vector<std::string> loadWorkspace(Engine& engine, const std::filesystem::path& file);

// The same for a workspace's text; folder stands for the workspace's folder. A statement the
// filter refuses is passed over (a harness that must not touch files uses it).
using WorkspaceStatementFilter = std::function<bool(const WorkspaceStatement&)>;
std::vector<std::string> loadWorkspaceText(Engine& engine, std::string_view text,
                                           const std::filesystem::path& folder,
                                           const WorkspaceStatementFilter& filter = {});

// An "Open Table" statement with its file name made to point into folder where the file name
// is relative or foreign; any other statement as it is.
std::string withTableFileInFolder(std::string_view statement, const std::filesystem::path& folder);

} // namespace vellant::engine
