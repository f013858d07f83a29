#include "engine/render/raster_images.h"

#include <algorithm>
#include <cmath>
#include <cpl_error.h>
#include <gdal.h>
#include <memory>
#include <system_error>
#include <vector>

namespace vellant::engine {

namespace {

struct DatasetCloser {
    void operator()(void* dataset) const { GDALClose(static_cast<GDALDatasetH>(dataset)); }
};

// GDAL reports through its error handler; a raster that does not open is the renderer's
// problem to report, not a message on the console.
struct QuietErrors {
    QuietErrors() { CPLPushErrorHandler(CPLQuietErrorHandler); }
    ~QuietErrors() { CPLPopErrorHandler(); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
};

} // namespace

QImage readWithGdal(const std::string& path, int largestSide, std::string& error) {
    QuietErrors quiet;
    std::unique_ptr<void, DatasetCloser> dataset(GDALOpen(path.c_str(), GA_ReadOnly));
    if (!dataset) {
        const char* message = CPLGetLastErrorMsg();
        error = message != nullptr && *message != '\0' ? message : "the file cannot be read";
        return {};
    }
    auto* ds = static_cast<GDALDatasetH>(dataset.get());
    const int width = GDALGetRasterXSize(ds);
    const int height = GDALGetRasterYSize(ds);
    const int bands = GDALGetRasterCount(ds);
    if (width <= 0 || height <= 0 || bands <= 0) {
        error = "the file holds no image";
        return {};
    }
    const double reduce =
        std::max(1.0, static_cast<double>(std::max(width, height)) / std::max(1, largestSide));
    const int outWidth = std::max(1, static_cast<int>(std::lround(width / reduce)));
    const int outHeight = std::max(1, static_cast<int>(std::lround(height / reduce)));
    const auto pixels = static_cast<std::size_t>(outWidth) * static_cast<std::size_t>(outHeight);

    auto readBand = [&](int number, std::vector<unsigned char>& out) {
        out.assign(pixels, 0);
        GDALRasterBandH band = GDALGetRasterBand(ds, number);
        return band != nullptr && GDALRasterIO(band, GF_Read, 0, 0, width, height, out.data(),
                                               outWidth, outHeight, GDT_Byte, 0, 0) == CE_None;
    };

    QImage image(outWidth, outHeight, QImage::Format_ARGB32);
    std::vector<unsigned char> r, g, b, a;
    GDALRasterBandH first = GDALGetRasterBand(ds, 1);
    GDALColorTableH palette = first != nullptr ? GDALGetRasterColorTable(first) : nullptr;
    bool ok = readBand(1, r);
    if (ok && bands >= 3) ok = readBand(2, g) && readBand(3, b);
    if (ok && bands >= 4) ok = readBand(4, a);
    if (!ok) {
        error = "its pixels cannot be read";
        return {};
    }
    for (int y = 0; y < outHeight; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < outWidth; ++x) {
            const std::size_t i = static_cast<std::size_t>(y) * static_cast<std::size_t>(outWidth) +
                                  static_cast<std::size_t>(x);
            if (palette != nullptr) {
                const GDALColorEntry* entry = GDALGetColorEntry(palette, r[i]);
                line[x] = entry != nullptr ? qRgba(entry->c1, entry->c2, entry->c3, entry->c4)
                                           : qRgb(r[i], r[i], r[i]);
            } else if (bands >= 3) {
                line[x] = qRgba(r[i], g[i], b[i], bands >= 4 ? a[i] : 255);
            } else {
                line[x] = qRgb(r[i], r[i], r[i]);
            }
        }
    }
    return image;
}

const QImage& RasterImages::image(const std::string& path, std::string& error) {
    std::error_code ec;
    const auto modified = std::filesystem::last_write_time(path, ec);
    auto found = loaded_.find(path);
    if (found != loaded_.end() && !ec && found->second.modified == modified) {
        error = found->second.error;
        return found->second.image;
    }
    Loaded entry;
    entry.modified = modified;
    if (ec) {
        entry.error = "the file does not exist";
    } else {
        entry.image = QImage(QString::fromStdString(path));
        if (entry.image.isNull()) {
            entry.image = readWithGdal(path, kLargestSide, entry.error);
        } else if (std::max(entry.image.width(), entry.image.height()) > kLargestSide) {
            entry.image = entry.image.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio);
        }
    }
    auto& kept = loaded_[path];
    kept = std::move(entry);
    error = kept.error;
    return kept.image;
}

} // namespace vellant::engine
