#include "engine/tables/map_header.h"

#include "engine/tables/table_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>

namespace vellant::engine {

namespace {

constexpr std::size_t kMagicAt = 0x100;
constexpr std::size_t kVersionAt = 0x104;
constexpr std::size_t kPrecisionAt = 0x160;
constexpr std::size_t kQuadrantAt = 0x161;
constexpr std::size_t kScaleAt = 0x170; // x scale, y scale, x displacement, y displacement
constexpr std::size_t kHeaderBytes = 0x190;
constexpr std::int32_t kMagic = 42424242;
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

// MapInfo's integer-to-coordinate rule, quadrant by quadrant (quadrant 0 is an old form of 3).
double toCoordinate(double n, double scale, double displacement, bool negated) {
    return negated ? -(n + displacement) / scale : (n - displacement) / scale;
}

} // namespace

std::optional<Bounds> readCoordSysBounds(const std::filesystem::path& tabFile) {
    const std::optional<std::filesystem::path> mapFile =
        findFileIgnoringCase(std::filesystem::path(tabFile).replace_extension(".map"));
    if (!mapFile) return std::nullopt;
    std::ifstream file(*mapFile, std::ios::binary);
    Header header{};
    file.read(reinterpret_cast<char*>(header.data()), static_cast<std::streamsize>(header.size()));
    if (file.gcount() != static_cast<std::streamsize>(header.size())) return std::nullopt;
    if (static_cast<std::int32_t>(littleEndian(header, kMagicAt, 4)) != kMagic) return std::nullopt;

    const auto version = static_cast<std::int16_t>(littleEndian(header, kVersionAt, 2));
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
    return Bounds{std::min(x0, x1), std::min(y0, y1), std::max(x0, x1), std::max(y0, y1)};
}

} // namespace vellant::engine
