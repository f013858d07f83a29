#pragma once
// Writes a table's rows (deleted rows left out) to a MapInfo TAB through GDAL's MapInfo
// driver, replacing the .tab, .dat, .map, .id and .ind files at that path.

#include <filesystem>
#include <string>

namespace vellant::engine {

class Table;

// The file is written in charset (a MapInfo name, "WindowsCyrillic"); without one, names and
// text that are plain ASCII are written Neutral and others in the first Windows code page that
// holds them all, as MapInfo cannot keep UTF-8 in a TAB.
// Raises MbError 825 "Unable to write table <path>: <reason>".
void writeTabFile(const std::filesystem::path& path, const Table& table,
                  const std::string& charset = {});

// Removes the files of a TAB table at that path; missing files are no error.
void removeTabFiles(const std::filesystem::path& path);

} // namespace vellant::engine
