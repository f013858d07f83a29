#include "engine/tables/table.h"

#include "engine/tables/table_errors.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdlib>

namespace vellant::engine {

std::uint64_t Table::nextSerial() {
    static std::atomic<std::uint64_t> counter{0};
    return ++counter;
}

std::optional<Bounds> boundsInClause(std::string_view clause) {
    std::string lower(clause);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto at = lower.find("bounds");
    if (at == std::string::npos) return std::nullopt;
    // "(x1, y1) (x2, y2)": four numbers between parentheses and commas.
    double numbers[4];
    const char* text = lower.c_str() + at + 6;
    for (double& number : numbers) {
        while (*text == ' ' || *text == '(' || *text == ')' || *text == ',' || *text == '\t')
            ++text;
        char* end = nullptr;
        number = std::strtod(text, &end);
        if (end == text) return std::nullopt;
        text = end;
    }
    return Bounds{std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
                  std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

std::optional<Bounds> Table::coordSysBounds() const {
    return boundsInClause(coordSysClause());
}

bool Table::rowExists(std::int64_t row) const {
    return row >= 1 && row <= rowCount();
}

std::int64_t Table::insertRow(std::vector<MbValue> /*values*/,
                              std::shared_ptr<const MapObject> /*object*/) {
    raiseNotEditable(name());
}

void Table::deleteRow(std::int64_t /*row*/) {
    raiseNotEditable(name());
}

void Table::updateRow(std::int64_t /*row*/, const std::vector<std::size_t>& /*columns*/,
                      std::vector<MbValue> /*values*/) {
    raiseNotEditable(name());
}

void Table::deleteObject(std::int64_t /*row*/) {
    raiseNotEditable(name());
}

void Table::makeMappable(const std::string& /*coordSysClause*/) {
    raiseNotEditable(name());
}

void Table::commit() {}

} // namespace vellant::engine
