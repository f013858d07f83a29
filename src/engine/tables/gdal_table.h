#pragma once
// A table read from a file through GDAL/OGR: MapInfo TAB and MIF/MID, shapefiles, GeoJSON,
// TopoJSON, any single-layer vector format GDAL reads. The table reads its header when opened
// and its rows only when asked, one feature at a time.
//
// Rows: for native TAB files and shapefiles a row number is the feature id (TAB ids start at
// 1, shapefile ids at 0), so any row is read directly and deleted records stay as rows without
// an object, as MapInfo numbers them. Other formats are read in order; their row n is the n-th
// feature, and moving backwards starts the reading again.
// The row count comes from the format's header where it has one, otherwise from GDAL's count.

#include "engine/tables/gdal_support.h"
#include "engine/tables/table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class GdalTable : public Table {
public:
    // Raises MbError 825 "Unable to open table <path>: <reason>" when GDAL cannot read it.
    static std::unique_ptr<GdalTable> open(const std::string& path, const std::string& name);
    ~GdalTable() override;

    const std::string& name() const override { return name_; }
    TableType type() const override { return view_ ? TableType::View : TableType::Base; }
    std::string path() const override { return path_; }
    std::int64_t rowCount() const override { return rowCount_; }
    const std::vector<ColumnDef>& columns() const override { return columns_; }
    bool isMappable() const override { return mappable_; }
    bool isRaster() const override { return false; }
    bool isSeamless() const override { return seamless_; }
    std::optional<Bounds> bounds() const override;
    std::string coordSysClause() const override { return coordSys_; }
    std::optional<Bounds> coordSysBounds() const override;

    std::shared_ptr<const MapObject> object(std::int64_t row) const override;
    MbValue value(std::int64_t row, std::size_t column) const override;
    bool rowExists(std::int64_t row) const override;
    // Drop Table: GDAL deletes the dataset's files. The table reads nothing afterwards.
    void deleteFiles() override;

    // The GDAL driver's short name ("MapInfo File", "ESRI Shapefile", "GeoJSON").
    const std::string& driverName() const { return driver_; }

private:
    GdalTable() = default;

    struct LoadedRow {
        std::int64_t row = 0;
        bool exists = false;
        std::shared_ptr<const MapObject> object;
        std::vector<MbValue> values;
    };
    const LoadedRow& load(std::int64_t row) const;
    OgrFeaturePtr readFeature(std::int64_t row) const;
    OgrFeaturePtr readInOrder(std::int64_t row) const;
    MbValue fieldValue(OGRFeatureH feature, int field, const ColumnDef& column) const;

    std::string name_;
    std::string path_;
    std::string driver_;
    GdalDatasetPtr dataset_;
    OGRLayerH layer_ = nullptr;
    std::vector<ColumnDef> columns_;
    std::vector<int> fieldIndexes_; // OGR field of each column
    bool mappable_ = false;
    bool view_ = false;     // a TAB of "Create View" over other tables
    bool seamless_ = false; // a TAB of "\IsSeamless" tables
    std::string coordSys_;
    std::int64_t rowCount_ = 0;
    // Direct access: feature id = row + fidOffset. Otherwise rows are read in order.
    std::optional<std::int64_t> fidOffset_;

    mutable std::optional<std::optional<Bounds>> bounds_;
    mutable LoadedRow loaded_;
    mutable std::int64_t nextInOrder_ = 1; // the row the next sequential read gives
};

} // namespace vellant::engine
