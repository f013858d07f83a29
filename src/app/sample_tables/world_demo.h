#pragma once
// The world demo the desktop program opens by default: the countries of Natural Earth (from the
// world-atlas TopoJSON in data/world-atlas, read with GDAL) coloured by world region, an ocean,
// a graticule and the largest cities, as MapInfo tables with a style on every object, and a
// workspace "world.wor" that maps them in the Robinson projection with labelled cities.

#include <string>

namespace vellant::samples {

inline constexpr const char* kWorldWorkspace = "world.wor";

// The country outlines the demo is built from.
std::string worldAtlasPath();

// The workspace text; table files are named relative to the workspace's folder.
std::string worldWorkspaceText();

// Writes the world tables and world.wor into dir (made if missing) and answers the workspace's
// path. Throws std::runtime_error when the outlines cannot be read or a file cannot be written.
std::string writeWorldDemo(const std::string& dir);

} // namespace vellant::samples
