#pragma once
// Open Table: the file a name refers to, opened as the kind of table it holds.

#include "engine/tables/table.h"

#include <memory>
#include <string>
#include <string_view>

namespace vellant::engine {

// written: the path as the statement gives it (see table_path.h); alias: the name to open it
// under, or empty for the file's base name. Raises MbError 825 for a missing or unreadable file.
std::unique_ptr<Table> openTableFile(std::string_view written, const std::string& alias);

} // namespace vellant::engine
