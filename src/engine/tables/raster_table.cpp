#include "engine/tables/raster_table.h"

#include "engine/tables/gdal_support.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_path.h"

#include <algorithm>
#include <cctype>
#include <cpl_conv.h>
#include <fstream>
#include <gdal.h>
#include <ogr_srs_api.h>

namespace vellant::engine {

namespace {

constexpr std::size_t kHeaderLimit = 64 * 1024;

std::string readHeader(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(kHeaderLimit, '\0');
    file.read(text.data(), static_cast<std::streamsize>(kHeaderLimit));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

std::string lowered(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// The lines of a header, trimmed, without the line ends of either platform.
std::vector<std::string> headerLines(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    for (char c : text) {
        if (c == '\n' || c == '\r') {
            lines.push_back(line);
            line.clear();
        } else {
            line += c;
        }
    }
    lines.push_back(line);
    for (std::string& l : lines) {
        const auto first = l.find_first_not_of(" \t");
        const auto last = l.find_last_not_of(" \t");
        l = first == std::string::npos ? std::string() : l.substr(first, last - first + 1);
    }
    return lines;
}

// The quoted text after a keyword at the start of a line: File "x.tif" gives x.tif.
std::optional<std::string> quotedAfter(const std::string& line, const std::string& keyword) {
    const std::string lower = lowered(line);
    if (lower.rfind(keyword, 0) != 0) return std::nullopt;
    const auto open = line.find('"', keyword.size());
    if (open == std::string::npos) return std::nullopt;
    const auto close = line.find('"', open + 1);
    if (close == std::string::npos) return std::nullopt;
    return line.substr(open + 1, close - open - 1);
}

} // namespace

bool RasterTable::isRasterTab(const std::string& path) {
    for (const std::string& line : headerLines(readHeader(path))) {
        const std::optional<std::string> type = quotedAfter(line, "type");
        if (type && lowered(*type) == "raster") return true;
    }
    return false;
}

std::unique_ptr<RasterTable> RasterTable::open(const std::string& path, const std::string& name) {
    ensureGdalRegistered();
    GdalErrorScope quiet;
    std::optional<std::string> imageName;
    std::string headerCoordSys;
    for (const std::string& line : headerLines(readHeader(path))) {
        if (!imageName) imageName = quotedAfter(line, "file");
        if (lowered(line).rfind("coordsys", 0) == 0) headerCoordSys = line;
    }
    if (!imageName || imageName->empty()) raiseCannotOpen(path, "the raster table names no image.");

    std::string written = *imageName;
    std::replace(written.begin(), written.end(), '\\', '/');
    std::filesystem::path image(written);
    if (image.is_relative()) image = std::filesystem::path(path).parent_path() / image;
    const std::optional<std::filesystem::path> found = findFileIgnoringCase(image);
    if (!found) raiseCannotOpen(path, "its image " + *imageName + " is missing.");

    double transform[6] = {0, 1, 0, 0, 0, 1};
    char* wkt = nullptr;
    int gcpCount = 0;
    GDAL_GCP* gcps = nullptr;
    const int registered = GDALReadTabFile(path.c_str(), transform, &wkt, &gcpCount, &gcps);
    if (gcps != nullptr) {
        GDALDeinitGCPs(gcpCount, gcps);
        CPLFree(gcps);
    }
    std::string coordSys;
    if (wkt != nullptr && *wkt != '\0') {
        OGRSpatialReferenceH srs = OSRNewSpatialReference(wkt);
        coordSys = coordSysClauseOf(srs);
        OSRDestroySpatialReference(srs);
    }
    CPLFree(wkt);
    if (!registered) raiseCannotOpen(path, "its control points do not register the image.");

    GdalDatasetPtr dataset(
        GDALOpenEx(found->c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr));
    if (!dataset) {
        raiseCannotOpen(path, GdalErrorScope::lastMessage("its image cannot be read."));
    }
    auto table = std::make_unique<RasterTable>();
    table->name_ = name;
    table->path_ = path;
    table->imagePath_ = found->string();
    table->width_ = GDALGetRasterXSize(static_cast<GDALDatasetH>(dataset.get()));
    table->height_ = GDALGetRasterYSize(static_cast<GDALDatasetH>(dataset.get()));
    table->coordSys_ = coordSys.empty() ? headerCoordSys : coordSys;

    Bounds bounds{1e300, 1e300, -1e300, -1e300};
    for (const auto& [px, py] : {std::pair<double, double>{0, 0},
                                 {table->width_, 0},
                                 {0, table->height_},
                                 {table->width_, table->height_}}) {
        const double x = transform[0] + px * transform[1] + py * transform[2];
        const double y = transform[3] + px * transform[4] + py * transform[5];
        bounds.minX = std::min(bounds.minX, x);
        bounds.minY = std::min(bounds.minY, y);
        bounds.maxX = std::max(bounds.maxX, x);
        bounds.maxY = std::max(bounds.maxY, y);
    }
    table->bounds_ = bounds;
    return table;
}

MbValue RasterTable::value(std::int64_t /*row*/, std::size_t column) const {
    raiseNoField("COL" + std::to_string(column + 1));
}

} // namespace vellant::engine
