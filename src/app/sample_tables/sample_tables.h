#pragma once
// Small MapInfo tables written with GDAL's own MapInfo driver: one of each kind of layer a map
// can hold (regions, lines, points, text, mixed, empty, raster). The engine's tests read them
// to check the host against files it did not write itself, and the demo is built from them.
// Every table has a known row count, extent and coordinate system.

#include "engine/map_object.h"

#include <string>
#include <vector>

namespace vellant::samples {

struct SampleTable {
    std::string file;               // file name inside the folder, e.g. "regions.tab"
    std::string name;               // the table's default alias (the file's base name)
    int rows = 0;                   // rows written
    engine::ObjectKind firstKind{}; // ObjectInfo(obj, 1) of the first row (unused when rows is 0)
    double minX = 0, minY = 0, maxX = 0, maxY = 0; // extent of the objects written
    std::string coordSys;                          // the CoordSys clause the table was written in
};

// The vector tables writeSampleTables makes: regions.tab, lines.tab, points.tab, text.tab,
// mixed.tab, empty.tab and regions.mif.
const std::vector<SampleTable>& vectorSampleTables();

// The raster table: raster.tab, a 4 by 2 pixel GeoTIFF "raster.tif" registered by a hand-written
// raster TAB header (GDAL writes no raster TAB itself).
const SampleTable& rasterSampleTable();

// Writes all sample tables into dir, creating the folder if needed; existing files are replaced.
// Throws std::runtime_error when GDAL cannot write a table.
void writeSampleTables(const std::string& dir);

} // namespace vellant::samples
