#pragma once
// Column types as ColumnInfo(..., COL_INFO_TYPE) numbers them, their names in Create Table, and
// values converted to a column's type.

#include "engine/mb_value.h"
#include "engine/tables/table.h"

#include <optional>
#include <string>
#include <string_view>

namespace vellant::engine {

enum ColumnType : int {
    kColChar = 1,
    kColDecimal = 2,
    kColInteger = 3,
    kColSmallInt = 4,
    kColDate = 5,
    kColLogical = 6,
    kColGraphic = 7,
    kColFloat = 8,
    kColTime = 37,
    kColDateTime = 38,
};

// "char", "integer", "smallint", "decimal", "float", "date", "logical", "time", "datetime"
// in any letter case; nullopt for another word. Char and Decimal take their widths apart.
std::optional<int> columnTypeFromName(std::string_view name);

// A row's value where it has none: "" for text and dates, 0, F.
MbValue blankValue(const ColumnDef& column);

// The value as the column keeps it: text cut to a Char column's width, numbers rounded to an
// integer column, Decimal to its places. Raises MbError 1045 for a value that cannot convert.
MbValue valueForColumn(const ColumnDef& column, const MbValue& value);

// Index of a column by name in any letter case, or "COLn" (1-based); nullopt when none.
std::optional<std::size_t> findColumn(const std::vector<ColumnDef>& columns, std::string_view name);

} // namespace vellant::engine
