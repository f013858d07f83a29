#pragma once
// Saving the host's tables and windows as a workspace that opens back to the same state: the
// tables (Open Table), then each window in the order it was opened (Map From or Browse with its
// place and size, Set Window, the map's view in one Set Map and its layers in another), and at
// the end the front window brought to the front again. Every setting is written out, not only
// those that differ from the host's defaults, so a later change of a default cannot change
// what a saved workspace shows.
//
// The statements of windows the engine keeps but does not show (layouts, legends, graphs) are
// written back as the workspace they came from had them, after the shown windows.
//
// What a workspace cannot hold is left out and named in the answer: tables without a file
// (query results), their layers, and maps left with no layer; objects in cosmetic layers, as
// the host leaves them out too (they are saved as a table, not in the workspace). Map centres
// are written in the session's coordinate system, as Set Map reads them.
//
// Errors: 825 "Unable to write workspace <file>."

#include <filesystem>
#include <string>
#include <vector>

namespace vellant::engine {

class Engine;

struct SavedWorkspace {
    std::string text;
    std::vector<std::string> leftOut; // one line for each thing that could not be written
};

// The workspace for a file in folder: table files inside that folder are named relative to it.
SavedWorkspace workspaceFor(Engine& engine, const std::filesystem::path& folder);

// Writes the workspace to file and answers what was left out.
std::vector<std::string> saveWorkspace(Engine& engine, const std::filesystem::path& file);

} // namespace vellant::engine
