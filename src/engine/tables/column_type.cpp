#include "engine/tables/column_type.h"

#include "engine/mb_error.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

namespace vellant::engine {

namespace {

std::string lowered(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

} // namespace

std::optional<int> columnTypeFromName(std::string_view name) {
    const std::string word = lowered(name);
    if (word == "char") return kColChar;
    if (word == "decimal") return kColDecimal;
    if (word == "integer") return kColInteger;
    if (word == "smallint") return kColSmallInt;
    if (word == "date") return kColDate;
    if (word == "logical") return kColLogical;
    if (word == "float") return kColFloat;
    if (word == "time") return kColTime;
    if (word == "datetime") return kColDateTime;
    return std::nullopt;
}

MbValue blankValue(const ColumnDef& column) {
    switch (column.type) {
    case kColInteger:
        return MbValue::integer(0);
    case kColSmallInt:
        return MbValue::smallInt(0);
    case kColDecimal:
    case kColFloat:
        return MbValue::number(0);
    case kColLogical:
        return MbValue::logical(false);
    default:
        return MbValue::string("");
    }
}

MbValue valueForColumn(const ColumnDef& column, const MbValue& value) {
    switch (column.type) {
    case kColInteger: {
        const double number = std::round(value.asNumber());
        if (!(number >= std::numeric_limits<std::int32_t>::min() &&
              number <= std::numeric_limits<std::int32_t>::max())) {
            raiseMb(kMbTypeMismatch, "Type mismatch: value out of range for " + column.name + ".");
        }
        return MbValue::integer(static_cast<std::int32_t>(number));
    }
    case kColSmallInt: {
        const double number = std::round(value.asNumber());
        if (!(number >= std::numeric_limits<std::int16_t>::min() &&
              number <= std::numeric_limits<std::int16_t>::max())) {
            raiseMb(kMbTypeMismatch, "Type mismatch: value out of range for " + column.name + ".");
        }
        return MbValue::smallInt(static_cast<std::int16_t>(number));
    }
    case kColDecimal: {
        const double scale = std::pow(10.0, std::clamp(column.decimals, 0, 15));
        return MbValue::number(std::round(value.asNumber() * scale) / scale);
    }
    case kColFloat:
        return MbValue::number(value.asNumber());
    case kColLogical:
        return MbValue::logical(value.asLogical());
    case kColChar: {
        std::string text = value.asString();
        if (column.width > 0 && text.size() > static_cast<std::size_t>(column.width)) {
            text.resize(static_cast<std::size_t>(column.width));
        }
        return MbValue::string(std::move(text));
    }
    default:
        return MbValue::string(value.asString());
    }
}

std::optional<std::size_t> findColumn(const std::vector<ColumnDef>& columns,
                                      std::string_view name) {
    const std::string wanted = lowered(name);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (lowered(columns[i].name) == wanted) return i;
    }
    if (wanted.size() > 3 && wanted.compare(0, 3, "col") == 0 && wanted.size() <= 8) {
        std::size_t number = 0;
        for (std::size_t i = 3; i < wanted.size(); ++i) {
            if (!std::isdigit(static_cast<unsigned char>(wanted[i]))) return std::nullopt;
            number = number * 10 + static_cast<std::size_t>(wanted[i] - '0');
        }
        if (number >= 1 && number <= columns.size()) return number - 1;
    }
    return std::nullopt;
}

} // namespace vellant::engine
