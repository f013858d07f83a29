#pragma once
// The catalog of open tables, in the order they were opened.

#include "engine/tables/table.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

class Catalog {
public:
    Catalog();
    ~Catalog();

    // By name in any letter case; nullptr when no such table is open.
    Table* find(std::string_view name) const;
    // As find, but raises MbError 405 "Table <name> is not open."
    Table& get(std::string_view name) const;
    // TableInfo(n, ...) numbering: 1 is the first table opened. Raises 405 "Table <n> is not
    // open." for a number outside 1..count().
    Table& at(int number) const;
    int count() const;

    // Adds a table; raises 643 "Table <name> is already open." when the name is taken.
    Table& add(std::unique_ptr<Table> table);
    // Closes the table and the queries made from it; 405 when it is not open. Answers the
    // names of all tables closed, the named one first.
    std::vector<std::string> remove(std::string_view name);

    // The value of "table.column" for the table's current row (Fetch). "obj" (or "object") is
    // the object, an Object value without one where the row has none; "rowid" is the row
    // number; "COLn" is the n-th column. Before the first Fetch and past the end the columns
    // read blank. An unknown column raises 319 "Field <name> does not exist."
    MbValue columnValue(std::string_view table, std::string_view column) const;

    // The name Select gives a result without Into: Query1, Query2, ... not in use.
    std::string nextQueryName();

private:
    std::vector<std::unique_ptr<Table>> tables_;
    int queriesMade_ = 0;
};

} // namespace vellant::engine
