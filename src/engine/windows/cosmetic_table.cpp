#include "engine/windows/cosmetic_table.h"

#include "engine/mb_error.h"
#include "engine/tables/table_errors.h"
#include "engine/windows/map_extent.h"
#include "engine/windows/map_state.h"

namespace vellant::engine {

CosmeticTable::CosmeticTable(MapState& map) : map_(map) {
    edited = map_.hasCosmeticObjects();
}

const std::string& CosmeticTable::name() const {
    return map_.cosmetic.name;
}

std::int64_t CosmeticTable::rowCount() const {
    return static_cast<std::int64_t>(map_.cosmeticObjects.size());
}

const std::vector<ColumnDef>& CosmeticTable::columns() const {
    static const std::vector<ColumnDef> kNone;
    return kNone;
}

std::optional<Bounds> CosmeticTable::bounds() const {
    return cosmeticExtent(map_);
}

std::string CosmeticTable::coordSysClause() const {
    return map_.coordSys.clause();
}

std::optional<Bounds> CosmeticTable::coordSysBounds() const {
    return map_.coordSys.bounds;
}

std::shared_ptr<const MapObject> CosmeticTable::object(std::int64_t row) const {
    if (row < 1 || row > rowCount()) return nullptr;
    return map_.cosmeticObjects[static_cast<std::size_t>(row - 1)];
}

MbValue CosmeticTable::value(std::int64_t /*row*/, std::size_t column) const {
    raiseNoField("COL" + std::to_string(column + 1));
}

bool CosmeticTable::rowExists(std::int64_t row) const {
    return object(row) != nullptr;
}

std::int64_t CosmeticTable::insertRow(std::vector<MbValue> /*values*/,
                                      std::shared_ptr<const MapObject> object) {
    if (readOnly) raiseReadOnly(name());
    if (!object) raiseMb(kMbCmdNotSupported, "Table " + name() + " takes only objects.");
    map_.cosmeticObjects.push_back(std::move(object));
    edited = true;
    rowsChanged();
    return rowCount();
}

void CosmeticTable::deleteRow(std::int64_t row) {
    if (readOnly) raiseReadOnly(name());
    if (!rowExists(row)) return;
    // The slot stays empty so that later rows keep their numbers, as deleted rows do in any
    // table until it is packed.
    map_.cosmeticObjects[static_cast<std::size_t>(row - 1)].reset();
    edited = true;
    rowsChanged();
}

void CosmeticTable::deleteObject(std::int64_t row) {
    deleteRow(row);
}

void CosmeticTable::makeMappable(const std::string& /*coordSysClause*/) {
    raiseMb(kMbCmdNotSupported, "Table " + name() + " is already mappable.");
}

} // namespace vellant::engine
