#pragma once
// A raster table: a MapInfo TAB of type RASTER that registers an image (its file, control
// points and CoordSys). GDAL reads the registration (GDALReadTabFile) and the image's size;
// the table has no rows and no columns, and its bounds are the image's corners on the map.

#include "engine/tables/table.h"

#include <memory>
#include <optional>
#include <string>

namespace vellant::engine {

class RasterTable : public Table {
public:
    // True when the file is a TAB header of type RASTER (read from its first 64 KiB).
    static bool isRasterTab(const std::string& path);
    // Raises MbError 825 when the header, its image or its registration cannot be read.
    static std::unique_ptr<RasterTable> open(const std::string& path, const std::string& name);

    const std::string& name() const override { return name_; }
    TableType type() const override { return TableType::Image; }
    std::string path() const override { return path_; }
    std::int64_t rowCount() const override { return 0; }
    const std::vector<ColumnDef>& columns() const override { return columns_; }
    bool isMappable() const override { return true; }
    bool isRaster() const override { return true; }
    std::optional<Bounds> bounds() const override { return bounds_; }
    std::string coordSysClause() const override { return coordSys_; }
    std::shared_ptr<const MapObject> object(std::int64_t) const override { return nullptr; }
    MbValue value(std::int64_t row, std::size_t column) const override;

    // The registered image file.
    const std::string& imagePath() const { return imagePath_; }
    int imageWidth() const { return width_; }
    int imageHeight() const { return height_; }

private:
    std::string name_;
    std::string path_;
    std::string imagePath_;
    std::vector<ColumnDef> columns_;
    std::optional<Bounds> bounds_;
    std::string coordSys_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace vellant::engine
