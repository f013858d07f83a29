#pragma once
// The host's current selection: rows of one base table, as the select tool leaves it. Maps
// draw the selected objects highlighted in every layer of that table.

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

struct Selection {
    std::string table;              // the base table's name; "" for no selection
    std::vector<std::int64_t> rows; // base rows, ascending

    bool empty() const { return table.empty() || rows.empty(); }
    bool contains(std::int64_t row) const {
        return std::binary_search(rows.begin(), rows.end(), row);
    }
};

} // namespace vellant::engine
