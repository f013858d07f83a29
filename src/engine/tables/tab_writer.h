#pragma once
// Writes a table's rows (deleted rows left out) to a MapInfo TAB through GDAL's MapInfo
// driver, replacing the .tab, .dat, .map, .id and .ind files at that path.

#include <filesystem>

namespace vellant::engine {

class Table;

// Raises MbError 825 "Unable to write table <path>: <reason>".
void writeTabFile(const std::filesystem::path& path, const Table& table);

// Removes the files of a TAB table at that path; missing files are no error.
void removeTabFiles(const std::filesystem::path& path);

} // namespace vellant::engine
