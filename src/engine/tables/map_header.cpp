#include "engine/tables/map_header.h"

#include "engine/tables/gdal_support.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <ogr_srs_api.h>
#include <sstream>

namespace vellant::engine {

namespace {

constexpr std::size_t kMagicAt = 0x100;
constexpr std::size_t kVersionAt = 0x104;
constexpr std::size_t kBlockSizeAt = 0x106;
constexpr std::size_t kPrecisionAt = 0x160;
constexpr std::size_t kQuadrantAt = 0x161;
constexpr std::size_t kDatumAt = 0x16a;      // MapInfo's datum number, written from version 500
constexpr std::size_t kProjectionAt = 0x16d; // then the ellipsoid and the units, a byte each
constexpr std::size_t kScaleAt = 0x170;      // x scale, y scale, x displacement, y displacement
constexpr std::size_t kParametersAt = 0x190; // six projection parameters
constexpr std::size_t kShiftAt = 0x1c0;      // datum shift x, y, z
constexpr std::size_t kBoundsBytes = 0x190;
constexpr std::size_t kHeaderBytes = 0x200;
constexpr std::int32_t kMagic = 42424242;
constexpr int kDatumVersion = 500;
constexpr int kLastProjection = 35; // MapInfo's projection numbers run from 0 (non-earth)
constexpr double kIntegerLimit = 1e9;

using Header = std::array<unsigned char, kHeaderBytes>;

std::uint64_t littleEndian(const Header& header, std::size_t at, std::size_t bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes; i-- > 0;)
        value = (value << 8) | header[at + i];
    return value;
}

double readDouble(const Header& header, std::size_t at) {
    const std::uint64_t bits = littleEndian(header, at, 8);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

int readInt16(const Header& header, std::size_t at) {
    return static_cast<std::int16_t>(littleEndian(header, at, 2));
}

// MapInfo's integer-to-coordinate rule, quadrant by quadrant (quadrant 0 is an old form of 3).
double toCoordinate(double n, double scale, double displacement, bool negated) {
    return negated ? -(n + displacement) / scale : (n - displacement) / scale;
}

struct MapFile {
    std::filesystem::path path;
    Header header{};
    std::size_t headerBytes = 0; // how much of the header the file holds
    std::uintmax_t fileBytes = 0;
};

std::optional<MapFile> readMapFile(const std::filesystem::path& tabFile) {
    const std::optional<std::filesystem::path> found =
        findFileIgnoringCase(std::filesystem::path(tabFile).replace_extension(".map"));
    if (!found) return std::nullopt;
    MapFile map;
    map.path = *found;
    std::error_code error;
    map.fileBytes = std::filesystem::file_size(*found, error);
    std::ifstream file(*found, std::ios::binary);
    file.read(reinterpret_cast<char*>(map.header.data()),
              static_cast<std::streamsize>(map.header.size()));
    map.headerBytes = static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0));
    return map;
}

bool isMapInfoMap(const MapFile& map, std::size_t needed) {
    return map.headerBytes >= needed &&
           static_cast<std::int32_t>(littleEndian(map.header, kMagicAt, 4)) == kMagic;
}

std::optional<Bounds> boundsOf(const Header& header) {
    const int version = readInt16(header, kVersionAt);
    const int quadrant = header[kQuadrantAt];
    double scaleX = readDouble(header, kScaleAt), scaleY = readDouble(header, kScaleAt + 8);
    double displX = readDouble(header, kScaleAt + 16), displY = readDouble(header, kScaleAt + 24);
    if (version <= 100) {
        scaleX = scaleY = std::pow(10.0, header[kPrecisionAt]);
        displX = displY = 0;
    }
    if (!std::isfinite(scaleX) || !std::isfinite(scaleY) || !std::isfinite(displX) ||
        !std::isfinite(displY) || scaleX == 0 || scaleY == 0) {
        return std::nullopt;
    }
    const bool negateX = quadrant == 0 || quadrant == 2 || quadrant == 3;
    const bool negateY = quadrant == 0 || quadrant == 3 || quadrant == 4;
    const double x0 = toCoordinate(-kIntegerLimit, scaleX, displX, negateX);
    const double x1 = toCoordinate(kIntegerLimit, scaleX, displX, negateX);
    const double y0 = toCoordinate(-kIntegerLimit, scaleY, displY, negateY);
    const double y1 = toCoordinate(kIntegerLimit, scaleY, displY, negateY);
    const Bounds bounds{std::min(x0, x1), std::min(y0, y1), std::max(x0, x1), std::max(y0, y1)};
    if (!std::isfinite(bounds.minX) || !std::isfinite(bounds.minY) || !std::isfinite(bounds.maxX) ||
        !std::isfinite(bounds.maxY)) {
        return std::nullopt;
    }
    return bounds;
}

// MapInfo's numbers for the units of a coordinate system.
const char* unitName(int code) {
    switch (code) {
    case 0:
        return "mi";
    case 1:
        return "km";
    case 2:
        return "in";
    case 3:
        return "ft";
    case 4:
        return "yd";
    case 5:
        return "mm";
    case 6:
        return "cm";
    case 7:
        return "m";
    case 8:
        return "survey ft";
    case 9:
        return "nmi";
    case 13:
        return "degree";
    case 30:
        return "li";
    case 31:
        return "ch";
    case 32:
        return "rd";
    default:
        return nullptr;
    }
}

std::string number(double value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(17);
    out << value;
    return out.str();
}

[[noreturn]] void damaged(const std::filesystem::path& tabFile, const MapFile& map,
                          const std::string& what) {
    raiseCannotOpen(tabFile.string(),
                    "its map file " + map.path.string() + " is damaged (" + what + ").");
}

// The clause in the form GDAL writes it, which is also how the tables GDAL opens name theirs.
std::optional<std::string> canonicalClause(const std::string& clause) {
    GdalErrorScope quiet;
    OGRSpatialReferenceH srs = OSRNewSpatialReference(nullptr);
    std::optional<std::string> canonical;
    if (OSRImportFromMICoordSys(srs, clause.c_str()) == OGRERR_NONE) {
        std::string exported = coordSysClauseOf(srs);
        if (!exported.empty()) canonical = std::move(exported);
    }
    OSRDestroySpatialReference(srs);
    return canonical;
}

} // namespace

std::optional<Bounds> readCoordSysBounds(const std::filesystem::path& tabFile) {
    const std::optional<MapFile> map = readMapFile(tabFile);
    if (!map || !isMapInfoMap(*map, kBoundsBytes)) return std::nullopt;
    return boundsOf(map->header);
}

std::optional<std::string> readMapFileCoordSys(const std::filesystem::path& tabFile) {
    ensureGdalRegistered();
    const std::optional<MapFile> map = readMapFile(tabFile);
    if (!map) return std::nullopt;
    if (!isMapInfoMap(*map, kHeaderBytes)) damaged(tabFile, *map, "no MapInfo map header");
    const Header& header = map->header;
    const int version = readInt16(header, kVersionAt);
    const int blockSize = readInt16(header, kBlockSizeAt);
    if (version <= 0) damaged(tabFile, *map, "version " + std::to_string(version));
    // The header is one block; a block size the file cannot hold is a file cut short.
    if (blockSize < 512 || blockSize % 512 != 0 ||
        static_cast<std::uintmax_t>(blockSize) > map->fileBytes) {
        damaged(tabFile, *map,
                "a block of " + std::to_string(blockSize) + " bytes in a file of " +
                    std::to_string(map->fileBytes));
    }
    const std::optional<Bounds> bounds = boundsOf(header);
    if (!bounds) damaged(tabFile, *map, "its scale is not a number");

    const int projection = header[kProjectionAt];
    if (projection > kLastProjection)
        damaged(tabFile, *map, "unknown projection " + std::to_string(projection));
    const int ellipsoid = header[kProjectionAt + 1];
    const char* units = unitName(header[kProjectionAt + 2]);
    if (units == nullptr)
        damaged(tabFile, *map, "unknown units " + std::to_string(header[kProjectionAt + 2]));
    std::array<double, 6> parameters{};
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        parameters[i] = readDouble(header, kParametersAt + 8 * i);
        if (!std::isfinite(parameters[i])) damaged(tabFile, *map, "a parameter is not a number");
    }

    if (projection == 0) {
        return "CoordSys NonEarth Units \"" + std::string(units) + "\" Bounds (" +
               number(bounds->minX) + ", " + number(bounds->minY) + ") (" + number(bounds->maxX) +
               ", " + number(bounds->maxY) + ")";
    }
    // Files older than version 500 name no datum, only its ellipsoid and shift: MapInfo's
    // custom datum 999 says exactly that.
    const int datum = version >= kDatumVersion ? readInt16(header, kDatumAt) : 0;
    std::string clause = "Earth Projection " + std::to_string(projection) + ", ";
    if (datum > 0) {
        clause += std::to_string(datum);
    } else {
        clause += "999, " + std::to_string(ellipsoid);
        for (std::size_t i = 0; i < 3; ++i) {
            const double shift = readDouble(header, kShiftAt + 8 * i);
            if (!std::isfinite(shift)) damaged(tabFile, *map, "a datum shift is not a number");
            clause += ", " + number(shift);
        }
    }
    if (projection != 1) {
        // GDAL reads as many parameters as the projection takes and leaves the rest.
        clause += ", \"" + std::string(units) + "\"";
        for (double parameter : parameters)
            clause += ", " + number(parameter);
    }
    const std::optional<std::string> canonical = canonicalClause(clause);
    if (!canonical) damaged(tabFile, *map, "projection " + std::to_string(projection));
    return canonical;
}

} // namespace vellant::engine
