#include "engine/tables/query_table.h"

#include "engine/tables/column_type.h"

#include <algorithm>

namespace vellant::engine {

QueryTable::QueryTable(std::string name, const Table& base, std::vector<std::size_t> columns,
                       std::vector<std::int64_t> rows)
    : name_(std::move(name)), base_(base), columns_(std::move(columns)), rows_(std::move(rows)) {
    for (std::size_t index : columns_)
        columnDefs_.push_back(base_.columns().at(index));
    readOnly = true;
}

std::int64_t QueryTable::baseRow(std::int64_t row) const {
    if (row < 1 || row > rowCount()) return 0;
    return rows_[static_cast<std::size_t>(row - 1)];
}

std::optional<Bounds> QueryTable::bounds() const {
    std::optional<Bounds> result;
    for (std::int64_t row : rows_) {
        const auto object = base_.object(row);
        if (!object) continue;
        for (const auto& part : object->parts) {
            for (const MapPoint& p : part) {
                if (!result) result = Bounds{p.x, p.y, p.x, p.y};
                result->minX = std::min(result->minX, p.x);
                result->minY = std::min(result->minY, p.y);
                result->maxX = std::max(result->maxX, p.x);
                result->maxY = std::max(result->maxY, p.y);
            }
        }
    }
    return result;
}

std::shared_ptr<const MapObject> QueryTable::object(std::int64_t row) const {
    const std::int64_t base = baseRow(row);
    return base == 0 ? nullptr : base_.object(base);
}

MbValue QueryTable::value(std::int64_t row, std::size_t column) const {
    if (column >= columns_.size()) return blankValue(ColumnDef{});
    const std::int64_t base = baseRow(row);
    return base == 0 ? blankValue(columnDefs_[column]) : base_.value(base, columns_[column]);
}

bool QueryTable::rowExists(std::int64_t row) const {
    const std::int64_t base = baseRow(row);
    return base != 0 && base_.rowExists(base);
}

} // namespace vellant::engine
