#pragma once
// The header block of a MapInfo TAB's .MAP file. MapInfo stores coordinates as integers in
// -1e9..1e9; the header's scale, displacement and origin quadrant map that range onto the
// coordinate system, and that image is the table's bounds (TableInfo 25-28). The header also
// holds the coordinate system itself (projection, datum or ellipsoid and shift, units and six
// projection parameters at fixed places), which is the only place it is kept for a TAB whose
// map has no objects yet: GDAL reports such a table as one without a map.

#include "engine/tables/table.h"

#include <filesystem>
#include <optional>
#include <string>

namespace vellant::engine {

// nullopt when the .MAP beside the .tab is missing, too short or not a MapInfo map file.
std::optional<Bounds> readCoordSysBounds(const std::filesystem::path& tabFile);

// The CoordSys clause the .MAP beside the .tab holds ("CoordSys Earth Projection 1, 104");
// nullopt when there is no .MAP. A .MAP that is there but damaged (too short, another kind of
// file, a header block larger than the file, unknown units, scales that are not numbers)
// raises MbError 825 "Unable to open table <tab>: its map file <map> is damaged (<what>)."
std::optional<std::string> readMapFileCoordSys(const std::filesystem::path& tabFile);

} // namespace vellant::engine
