#include "engine/tables/catalog.h"

#include "engine/tables/column_type.h"
#include "engine/tables/table_errors.h"

#include <algorithm>
#include <cctype>
#include <limits>

namespace vellant::engine {

namespace {

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

std::string lowerName(std::string_view name) {
    std::string lower(name);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

} // namespace

Catalog::Catalog() = default;
Catalog::~Catalog() = default;

Table* Catalog::find(std::string_view name) const {
    std::string key = lowerName(name);
    if (const auto hit = foundByName_.find(key);
        hit != foundByName_.end() && sameName(hit->second->name(), name))
        return hit->second;
    Table* table = scan(name);
    if (table != nullptr) foundByName_[std::move(key)] = table;
    return table;
}

Table* Catalog::scan(std::string_view name) const {
    for (const auto& table : tables_) {
        if (sameName(table->name(), name)) return table.get();
    }
    for (Table* table : attached_) {
        if (sameName(table->name(), name)) return table;
    }
    return nullptr;
}

Table& Catalog::get(std::string_view name) const {
    Table* table = find(name);
    if (table == nullptr) raiseTableNotOpen(name);
    return *table;
}

Table& Catalog::at(int number) const {
    if (number < 1 || number > count()) raiseTableNotOpen(std::to_string(number));
    return *tables_[static_cast<std::size_t>(number - 1)];
}

int Catalog::count() const {
    return static_cast<int>(tables_.size());
}

Table& Catalog::add(std::unique_ptr<Table> table) {
    if (find(table->name()) != nullptr) raiseAlreadyOpen(table->name());
    tables_.push_back(std::move(table));
    return *tables_.back();
}

std::vector<std::string> Catalog::remove(std::string_view name) {
    const Table& table = get(name);
    if (isAttached(table)) raiseCannotClose(table.name());
    return closeFamily(table);
}

void Catalog::attach(Table& table) {
    if (find(table.name()) != nullptr) raiseAlreadyOpen(table.name());
    attached_.push_back(&table);
}

std::vector<std::string> Catalog::detach(const Table& table) {
    if (!isAttached(table)) return {};
    return closeFamily(table);
}

bool Catalog::isAttached(const Table& table) const {
    return std::find(attached_.begin(), attached_.end(), &table) != attached_.end();
}

std::vector<std::string> Catalog::closeFamily(const Table& table) {
    // Queries of queries go too: collect the whole family before anything is destroyed.
    std::vector<const Table*> closing{&table};
    for (bool grew = true; grew;) {
        grew = false;
        for (const auto& candidate : tables_) {
            const Table* base = candidate->baseTable();
            if (base != nullptr &&
                std::find(closing.begin(), closing.end(), base) != closing.end() &&
                std::find(closing.begin(), closing.end(), candidate.get()) == closing.end()) {
                closing.push_back(candidate.get());
                grew = true;
            }
        }
    }
    std::vector<std::string> names;
    for (const Table* closed : closing)
        names.push_back(closed->name());
    for (const Table* closed : closing)
        tableClosing.notify(*closed);
    std::erase_if(tables_, [&](const std::unique_ptr<Table>& candidate) {
        return std::find(closing.begin(), closing.end(), candidate.get()) != closing.end();
    });
    std::erase(attached_, &table);
    foundByName_.clear();
    return names;
}

MbValue Catalog::columnValue(std::string_view tableName, std::string_view column) const {
    const Table& table = get(tableName);
    const std::int64_t row = table.currentRow;
    if (sameName(column, "obj") || sameName(column, "object")) {
        if (!table.isMappable()) raiseNoField(column);
        return MbValue::object(table.object(row));
    }
    if (sameName(column, "rowid")) {
        return MbValue::integer(static_cast<std::int32_t>(
            std::clamp<std::int64_t>(row, 0, std::numeric_limits<std::int32_t>::max())));
    }
    const std::optional<std::size_t> index = findColumn(table.columns(), column);
    if (!index) raiseNoField(column);
    return table.value(row, *index);
}

std::string Catalog::nextQueryName() {
    std::string name;
    do {
        name = "Query" + std::to_string(++queriesMade_);
    } while (find(name) != nullptr);
    return name;
}

} // namespace vellant::engine
