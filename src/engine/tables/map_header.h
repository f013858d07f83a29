#pragma once
// The coordinate system bounds of a MapInfo TAB (TableInfo 25-28), read from the header block
// of its .MAP file. MapInfo stores coordinates as integers in -1e9..1e9; the header's scale,
// displacement and origin quadrant map that range onto the coordinate system, and that image
// is the table's bounds. Only the first 400 bytes are read.

#include "engine/tables/table.h"

#include <filesystem>
#include <optional>

namespace vellant::engine {

// nullopt when the .MAP beside the .tab is missing, too short or not a MapInfo map file.
std::optional<Bounds> readCoordSysBounds(const std::filesystem::path& tabFile);

} // namespace vellant::engine
