#include "engine/tables/memory_table.h"

#include "engine/tables/column_type.h"
#include "engine/tables/map_header.h"
#include "engine/tables/tab_writer.h"
#include "engine/tables/table_errors.h"

#include <algorithm>

namespace vellant::engine {

namespace {

void widen(Bounds& bounds, bool& any, const MapObject& object) {
    for (const auto& part : object.parts) {
        for (const MapPoint& p : part) {
            if (!any) {
                bounds = {p.x, p.y, p.x, p.y};
                any = true;
            }
            bounds.minX = std::min(bounds.minX, p.x);
            bounds.minY = std::min(bounds.minY, p.y);
            bounds.maxX = std::max(bounds.maxX, p.x);
            bounds.maxY = std::max(bounds.maxY, p.y);
        }
    }
}

} // namespace

MemoryTable::MemoryTable(std::string name, std::vector<ColumnDef> columns,
                         std::filesystem::path file, std::string charset)
    : name_(std::move(name)), columns_(std::move(columns)), file_(std::move(file)),
      charset_(std::move(charset)) {
    if (!file_.empty()) writeFile();
}

const MemoryTable::Row* MemoryTable::rowAt(std::int64_t row) const {
    if (row < 1 || row > rowCount()) return nullptr;
    const Row& found = rows_[static_cast<std::size_t>(row - 1)];
    return found.deleted ? nullptr : &found;
}

std::optional<Bounds> MemoryTable::bounds() const {
    if (!mappable_) return std::nullopt;
    Bounds bounds;
    bool any = false;
    for (std::size_t i = firstLive_; i < rows_.size(); ++i) {
        const Row& row = rows_[i];
        if (!row.deleted && row.object) widen(bounds, any, *row.object);
    }
    if (!any) return std::nullopt;
    return bounds;
}

std::optional<Bounds> MemoryTable::coordSysBounds() const {
    if (mappable_ && !file_.empty()) {
        if (const std::optional<Bounds> bounds = readCoordSysBounds(file_)) return bounds;
    }
    return Table::coordSysBounds();
}

std::shared_ptr<const MapObject> MemoryTable::object(std::int64_t row) const {
    const Row* found = rowAt(row);
    return found != nullptr ? found->object : nullptr;
}

MbValue MemoryTable::value(std::int64_t row, std::size_t column) const {
    if (column >= columns_.size()) raiseNoField("COL" + std::to_string(column + 1));
    const Row* found = rowAt(row);
    return found != nullptr ? found->values[column] : blankValue(columns_[column]);
}

bool MemoryTable::rowExists(std::int64_t row) const {
    return rowAt(row) != nullptr;
}

void MemoryTable::checkWritable() const {
    if (readOnly) raiseReadOnly(name_);
}

std::int64_t MemoryTable::insertRow(std::vector<MbValue> values,
                                    std::shared_ptr<const MapObject> object) {
    checkWritable();
    Row row;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        row.values.push_back(i < values.size() ? valueForColumn(columns_[i], values[i])
                                               : blankValue(columns_[i]));
    }
    if (object && !mappable_) {
        raiseMb(kMbCmdNotSupported, "Table " + name_ + " is not mappable.");
    }
    row.object = std::move(object);
    rows_.push_back(std::move(row));
    edited = true;
    rowsChanged();
    return rowCount();
}

void MemoryTable::deleteRow(std::int64_t row) {
    checkWritable();
    if (row < 1 || row > rowCount()) return;
    Row& found = rows_[static_cast<std::size_t>(row - 1)];
    if (found.deleted) return;
    found.deleted = true;
    found.object.reset();
    found.values.clear();
    while (firstLive_ < rows_.size() && rows_[firstLive_].deleted)
        ++firstLive_;
    edited = true;
    rowsChanged();
}

void MemoryTable::updateRow(std::int64_t row, const std::vector<std::size_t>& columns,
                            std::vector<MbValue> values) {
    checkWritable();
    if (rowAt(row) == nullptr) return;
    // Every value is converted before any is kept, so a value that cannot convert changes
    // nothing.
    std::vector<MbValue> kept = rows_[static_cast<std::size_t>(row - 1)].values;
    for (std::size_t i = 0; i < columns.size() && i < values.size(); ++i)
        kept.at(columns[i]) = valueForColumn(columns_.at(columns[i]), values[i]);
    rows_[static_cast<std::size_t>(row - 1)].values = std::move(kept);
    edited = true;
    rowsChanged();
}

void MemoryTable::deleteObject(std::int64_t row) {
    checkWritable();
    if (rowAt(row) == nullptr) return;
    rows_[static_cast<std::size_t>(row - 1)].object.reset();
    edited = true;
    rowsChanged();
}

void MemoryTable::makeMappable(const std::string& coordSysClause) {
    checkWritable();
    if (mappable_) {
        raiseMb(kMbCmdNotSupported, "Table " + name_ + " is already mappable.");
    }
    mappable_ = true;
    coordSys_ = coordSysClause;
    rowsChanged();
    if (!file_.empty()) {
        try {
            writeFile();
        } catch (...) {
            mappable_ = false;
            coordSys_.clear();
            throw;
        }
    }
}

void MemoryTable::commit() {
    if (!file_.empty()) writeFile();
    edited = false;
    rowsChanged();
}

void MemoryTable::deleteFiles() {
    if (!file_.empty()) removeTabFiles(file_);
}

void MemoryTable::writeFile() {
    writeTabFile(file_, *this, charset_);
}

} // namespace vellant::engine
