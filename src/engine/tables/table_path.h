#pragma once
// File names as statements and workspaces write them. Workspaces come from Windows: folders may
// be separated by backslashes and names written in another letter case than the file has.

#include <filesystem>
#include <optional>
#include <string_view>

namespace vellant::engine {

// The path with backslashes turned into slashes, relative to the current directory when it
// is not absolute, and ".tab" added when the last name has no extension.
std::filesystem::path tablePathFromText(std::string_view written);

// The existing file a name refers to: the path of tablePathFromText, or the same path with each
// name matched in any letter case; nullopt when there is none.
std::optional<std::filesystem::path> findTableFile(std::string_view written);

// The existing file at path, or at the same path with each name matched in any letter case.
std::optional<std::filesystem::path> findFileIgnoringCase(const std::filesystem::path& path);

// The table's default name: the file's base name ("world" for "/data/World.TAB" is "World").
std::string defaultTableName(const std::filesystem::path& file);

} // namespace vellant::engine
