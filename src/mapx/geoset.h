#pragma once
// Geosets: the files a MapX map is opened from, naming its tables and how each shows. A
// geoset is text in MapInfo's metadata form, "!GEOSET" first and then lines of
// "\KEY\PATH" = "value" between begin_metadata and end_metadata:
//
//   "\GEOSET\NAME" = "World"            "\TABLE\1\FILE" = "world.tab"   (1 the top layer)
//   "\GEOSET\CENTER" = "10.5,44"        "\TABLE\1\ISVISIBLE" = "TRUE"
//   "\GEOSET\ZOOMLEVEL" = "2000"        "\TABLE\1\AUTOLABEL" = "FALSE"
//   "\GEOSET\MAPUNIT" = "miles"         "\TABLE\1\ZOOM\ISVISIBLE" = "TRUE",
//                                       "\TABLE\1\ZOOM\MIN" = "0", "\TABLE\1\ZOOM\MAX" = "500"
//
// Keys match in any letter case; keys this reader has no use for, and values it cannot read,
// are passed over. Table files are named relative to the geoset's folder.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::mapx {

class Map;

struct GeosetTable {
    std::string file;
    bool visible = true;
    bool autoLabel = false;
    bool zoomLayer = false;
    double zoomMin = 0;
    double zoomMax = 0;
};

struct Geoset {
    std::string name;
    std::optional<double> centreX, centreY;
    std::optional<double> zoom;          // in mapUnit
    std::optional<std::int16_t> mapUnit; // a MapUnit code
    std::vector<GeosetTable> tables;     // top first
};

// Raises a run-time error (380) for text that does not begin "!GEOSET".
Geoset parseGeoset(std::string_view text);

// Opens the geoset's tables on the map in place of its layers and takes its view. Nothing
// changes when the file cannot be read or a table cannot be opened: that is a run-time error.
void openGeoset(Map& map, const std::filesystem::path& file);

} // namespace vellant::mapx
