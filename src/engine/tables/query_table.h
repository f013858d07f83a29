#pragma once
// The result of Select: chosen rows and columns of another table, read through to it. Its
// rows keep the order of the base table; closing the base table closes the query.

#include "engine/tables/table.h"

#include <string>
#include <vector>

namespace vellant::engine {

class QueryTable : public Table {
public:
    // columns: indexes into the base table's columns; rows: base rows, in order.
    QueryTable(std::string name, const Table& base, std::vector<std::size_t> columns,
               std::vector<std::int64_t> rows);

    const std::string& name() const override { return name_; }
    TableType type() const override { return TableType::Result; }
    std::string path() const override { return {}; }
    std::int64_t rowCount() const override { return static_cast<std::int64_t>(rows_.size()); }
    const std::vector<ColumnDef>& columns() const override { return columnDefs_; }
    bool isMappable() const override { return base_.isMappable(); }
    bool isRaster() const override { return false; }
    std::optional<Bounds> bounds() const override;
    std::string coordSysClause() const override { return base_.coordSysClause(); }
    std::optional<Bounds> coordSysBounds() const override { return base_.coordSysBounds(); }

    std::shared_ptr<const MapObject> object(std::int64_t row) const override;
    MbValue value(std::int64_t row, std::size_t column) const override;
    bool rowExists(std::int64_t row) const override;
    const Table* baseTable() const override { return &base_; }

    // The base row a query row stands for; 0 outside the query's rows.
    std::int64_t baseRow(std::int64_t row) const;

private:
    std::string name_;
    const Table& base_;
    std::vector<std::size_t> columns_;
    std::vector<ColumnDef> columnDefs_;
    std::vector<std::int64_t> rows_;
};

} // namespace vellant::engine
