// TableInfo, ColumnInfo and the functions that count tables and rows.

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/tables/gdal_support.h"
#include "engine/tables/table.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"
#include "engine/windows/window_manager.h"

#include <cmath>
#include <ogr_srs_api.h>

namespace vellant::engine {

namespace {

using Args = std::vector<MbValue>;

MbValue smallInt(std::int64_t value) {
    return MbValue::smallInt(
        static_cast<std::int16_t>(std::clamp<std::int64_t>(value, -32768, 32767)));
}

MbValue integer(std::int64_t value) {
    return MbValue::integer(
        static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX)));
}

int numberOf(const Catalog& catalog, const Table& table) {
    for (int i = 1; i <= catalog.count(); ++i) {
        if (&catalog.at(i) == &table) return i;
    }
    return 0;
}

// How many windows and queries use the table: map layers, browsers and queries made from it.
int referenceCount(Engine& engine, const Table& table) {
    int count = 0;
    for (int i = 1; i <= engine.catalog().count(); ++i) {
        if (engine.catalog().at(i).baseTable() == &table) ++count;
    }
    auto same = [&](const std::string& name) { return engine.catalog().find(name) == &table; };
    for (int id : engine.windows().ids()) {
        const Window* window = engine.windows().find(id);
        if (window == nullptr) continue;
        if (window->map) {
            for (const Layer& layer : window->map->layers) {
                if (same(layer.name)) ++count;
            }
        } else if (!window->browseTable.empty() && same(window->browseTable)) {
            ++count;
        }
    }
    return count;
}

// The name GDAL gives the table's coordinate system ("WGS 84"); "" when it has none.
std::string coordSysName(const Table& table) {
    const std::string clause = table.coordSysClause();
    if (clause.empty()) return {};
    GdalErrorScope quiet;
    OGRSpatialReferenceH srs = OSRNewSpatialReference(nullptr);
    std::string name;
    if (OSRImportFromMICoordSys(srs, clause.c_str()) == OGRERR_NONE) {
        // GDAL calls a system it has no name for "unnamed"; the host then has none either.
        const char* found = OSRGetName(srs);
        if (found != nullptr && std::string_view(found) != "unnamed") name = found;
    }
    OSRDestroySpatialReference(srs);
    return name;
}

MbValue boundsPart(const std::optional<Bounds>& bounds, int which) {
    if (!bounds) return MbValue::number(0);
    const double parts[4] = {bounds->minX, bounds->minY, bounds->maxX, bounds->maxY};
    return MbValue::number(parts[which]);
}

MbValue tableInfo(Engine& engine, Table& table, int code) {
    switch (code) {
    case 1:
        return MbValue::string(table.name());
    case 2:
        return smallInt(numberOf(engine.catalog(), table));
    case 3:
        return smallInt(static_cast<int>(table.type()));
    case 4:
        return smallInt(static_cast<std::int64_t>(table.columns().size()));
    case 5:
        return MbValue::logical(table.isMappable());
    case 6:
        return MbValue::logical(table.readOnly);
    case 7:
        return MbValue::logical(table.path().empty());
    case 8:
        return integer(table.rowCount());
    case 9:
        return MbValue::logical(table.edited);
    case 10:
        return MbValue::logical(table.fastEdit);
    case 11:
        return MbValue::logical(!table.undoOff);
    case 12: {
        const Table* base = table.baseTable();
        return MbValue::string(base != nullptr && base->isMappable() ? base->name() : "");
    }
    case 13:
        return MbValue::logical(table.userMap);
    case 14:
        return MbValue::logical(table.userBrowse);
    case 15:
        return MbValue::logical(table.userClose);
    case 16:
        return MbValue::logical(table.userEdit);
    case 17:
        return MbValue::logical(table.userRemoveMap);
    case 18:
        return MbValue::logical(table.userDisplayMap);
    case 19:
        return MbValue::string(table.path());
    case 20:
    case 21:
    case 22:
    case 23:
        return boundsPart(table.bounds(), code - 20);
    case 24:
        return MbValue::logical(table.isSeamless());
    case 25:
    case 26:
    case 27:
    case 28:
        return boundsPart(table.coordSysBounds(), code - 25);
    case 29:
    case 37:
        return MbValue::string(table.coordSysClause());
    case 30:
        return MbValue::string(coordSysName(table));
    case 31:
        return smallInt(referenceCount(engine, table));
    case 32:
    case 33:
    case 36:
        return MbValue::logical(false);
    case 34:
    case 35:
        return MbValue::string("");
    default:
        raiseArgRange(2, "TableInfo");
    }
}

bool isObjectColumn(std::string_view name) {
    std::string lower(name);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower == "obj" || lower == "object";
}

MbValue columnInfo(const Table& table, const std::string& columnName, int code) {
    if (table.isMappable() && isObjectColumn(columnName)) {
        switch (code) {
        case 1:
            return MbValue::string("OBJ");
        case 2:
            return smallInt(0);
        case 3:
            return smallInt(kColGraphic);
        case 4:
        case 5:
            return smallInt(0);
        case 6:
            return MbValue::logical(false);
        case 7:
            return MbValue::logical(table.isEditable());
        default:
            raiseArgRange(3, "ColumnInfo");
        }
    }
    const std::optional<std::size_t> index = findColumn(table.columns(), columnName);
    if (!index) raiseNoField(columnName);
    const ColumnDef& column = table.columns()[*index];
    switch (code) {
    case 1:
        return MbValue::string(column.name);
    case 2:
        return smallInt(static_cast<std::int64_t>(*index) + 1);
    case 3:
        return smallInt(column.type);
    case 4:
        return smallInt(column.type == kColChar || column.type == kColDecimal ? column.width : 0);
    case 5:
        return smallInt(column.type == kColDecimal ? column.decimals : 0);
    case 6:
        return MbValue::logical(false);
    case 7:
        return MbValue::logical(table.isEditable());
    default:
        raiseArgRange(3, "ColumnInfo");
    }
}

int codeArgument(const MbValue& value, int position, const char* function) {
    const double code = value.asNumber();
    if (!(code >= -32768 && code <= 32767)) raiseArgRange(position, function);
    return static_cast<int>(std::lround(code));
}

} // namespace

Table& tableArgument(Engine& engine, const MbValue& argument, int position, const char* function) {
    Catalog& catalog = engine.catalog();
    if (!argument.isNumber()) return catalog.get(argument.asString());
    const double number = argument.asNumber();
    if (number == 0 && catalog.count() > 0) return catalog.at(catalog.count());
    if (!(number >= 1 && number <= catalog.count())) raiseArgRange(position, function);
    return catalog.at(static_cast<int>(number));
}

void registerTableFunctions(Registry& registry) {
    registry.addFunction("TableInfo", 2, 2, [](Engine& engine, Args& a) {
        Table& table = tableArgument(engine, a[0], 1, "TableInfo");
        return tableInfo(engine, table, codeArgument(a[1], 2, "TableInfo"));
    });
    registry.addFunction("ColumnInfo", 3, 3, [](Engine& engine, Args& a) {
        const Table& table = tableArgument(engine, a[0], 1, "ColumnInfo");
        return columnInfo(table, a[1].asString(), codeArgument(a[2], 3, "ColumnInfo"));
    });
    registry.addFunction("NumTables", 0, 0,
                         [](Engine& engine, Args&) { return smallInt(engine.catalog().count()); });
    registry.addFunction("NumCols", 1, 1, [](Engine& engine, Args& a) {
        const Table& table = tableArgument(engine, a[0], 1, "NumCols");
        return smallInt(static_cast<std::int64_t>(table.columns().size()));
    });
    // True once Fetch has moved past the last row (or found no row at all).
    registry.addFunction("EOT", 1, 1, [](Engine& engine, Args& a) {
        const Table& table = tableArgument(engine, a[0], 1, "EOT");
        return MbValue::logical(table.currentRow > table.rowCount());
    });
}

} // namespace vellant::engine
