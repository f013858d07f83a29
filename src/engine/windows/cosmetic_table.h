#pragma once
// The table behind a map window's cosmetic layer: "Cosmetic<n>", temporary, mappable, without
// columns, one row per object of the layer. It is a view of the window's map, not a copy: its
// name is the cosmetic layer's name and its rows are the map's cosmetic objects, so Create ...
// Into Window, Insert and Delete all change the same objects. The window owns it and the
// catalog knows it by name for as long as the window is open.

#include "engine/tables/table.h"

#include <memory>
#include <string>
#include <vector>

namespace vellant::engine {

struct MapState;

class CosmeticTable : public Table {
public:
    // map must outlive the table. A map that already has objects (a clone) starts edited.
    explicit CosmeticTable(MapState& map);

    const std::string& name() const override;
    TableType type() const override { return TableType::Base; }
    std::string path() const override { return {}; }
    std::int64_t rowCount() const override;
    const std::vector<ColumnDef>& columns() const override;
    bool isMappable() const override { return true; }
    bool isRaster() const override { return false; }
    std::optional<Bounds> bounds() const override;
    std::string coordSysClause() const override;
    std::optional<Bounds> coordSysBounds() const override;
    bool isEditable() const override { return !readOnly; }

    std::shared_ptr<const MapObject> object(std::int64_t row) const override;
    MbValue value(std::int64_t row, std::size_t column) const override;
    bool rowExists(std::int64_t row) const override;

    // A row is its object: one without an object is refused.
    std::int64_t insertRow(std::vector<MbValue> values,
                           std::shared_ptr<const MapObject> object) override;
    void deleteRow(std::int64_t row) override;
    // The row has nothing but its object, so losing the object loses the row.
    void deleteObject(std::int64_t row) override;
    void makeMappable(const std::string& coordSysClause) override;

private:
    MapState& map_;
};

} // namespace vellant::engine
