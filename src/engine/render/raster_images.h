#pragma once
// The images of raster tables, loaded once: with QImage where Qt reads the format, otherwise
// through GDAL (GeoTIFF, paletted and grey images, any raster GDAL opens), reduced to at most
// kLargestSide pixels a side. An image is loaded again when its file changes.

#include <QImage>
#include <filesystem>
#include <map>
#include <string>

namespace vellant::engine {

class RasterImages {
public:
    static constexpr int kLargestSide = 4096;

    // The image of the file; a null image with the reason in error when it cannot be read.
    const QImage& image(const std::string& path, std::string& error);

private:
    struct Loaded {
        std::filesystem::file_time_type modified;
        QImage image;
        std::string error;
    };
    std::map<std::string, Loaded> loaded_;
};

// Reads a raster through GDAL; a null image and the reason when it cannot.
QImage readWithGdal(const std::string& path, int largestSide, std::string& error);

} // namespace vellant::engine
