#pragma once
// The demo: the sample tables, an empty point layer, and a workspace "demo.wor" that opens
// them, selects the regions whose value is above 1 into a query table, and shows every kind of
// layer in one map window, the query among them. It is what scripts/run replays and what the
// end-to-end tests open.

#include <string>

namespace vellant::samples {

inline constexpr const char* kDemoWorkspace = "demo.wor";

// The workspace text; table files are named relative to the workspace's folder.
std::string demoWorkspaceText();

// Writes the sample tables, the empty layer and demo.wor into dir (made if missing) and
// answers the workspace's path. Throws std::runtime_error when a file cannot be written.
std::string writeDemoData(const std::string& dir);

} // namespace vellant::samples
