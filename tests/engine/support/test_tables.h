#pragma once
// Small MapInfo tables written with GDAL's own MapInfo driver, so that the engine is tested
// against files it did not write itself. Every table has a known row count, extent and
// coordinate system; tests ask GDAL for the same facts and compare.

#include "engine/map_object.h"

#include <string>
#include <vector>

namespace vellant::engine::testing {

struct TestTable {
    std::string file;       // file name inside the folder, e.g. "regions.tab"
    std::string name;       // the table's default alias (the file's base name)
    int rows = 0;           // rows written
    ObjectKind firstKind{}; // ObjectInfo(obj, 1) of the first row (unused when rows is 0)
    double minX = 0, minY = 0, maxX = 0, maxY = 0; // extent of the objects written
    std::string coordSys;                          // the CoordSys clause the table was written in
};

// The vector tables writeTestTables makes: regions.tab, lines.tab, points.tab, text.tab,
// mixed.tab, empty.tab and regions.mif.
const std::vector<TestTable>& vectorTestTables();

// The raster table: raster.tab, a 4 by 2 pixel GeoTIFF "raster.tif" registered by a hand-written
// raster TAB header (GDAL writes no raster TAB itself).
const TestTable& rasterTestTable();

// Writes all test tables into dir, creating the folder if needed; existing files are replaced.
// Throws std::runtime_error when GDAL cannot write a table.
void writeTestTables(const std::string& dir);

} // namespace vellant::engine::testing
