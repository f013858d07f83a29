#pragma once
// The catalog of open tables, in the order they were opened, and of the tables that belong to
// something else (a map window's cosmetic layer): those answer to their name like any other,
// but are not counted or numbered, as the host keeps them out of NumTables() and TableInfo(n).

#include "engine/tables/selection.h"
#include "engine/tables/table.h"
#include "platform/observer_list.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vellant::engine {

class Catalog {
public:
    Catalog();
    ~Catalog();

    // By name in any letter case, attached tables included; nullptr when no such table is open.
    Table* find(std::string_view name) const;
    // As find, but raises MbError 405 "Table <name> is not open."
    Table& get(std::string_view name) const;
    // TableInfo(n, ...) numbering: 1 is the first table opened. Raises 405 "Table <n> is not
    // open." for a number outside 1..count().
    Table& at(int number) const;
    int count() const;

    // Adds a table; raises 643 "Table <name> is already open." when the name is taken.
    Table& add(std::unique_ptr<Table> table);
    // Closes the table and the queries made from it; 405 when it is not open, 642 for an
    // attached table, which only its owner withdraws. Answers the names of all tables closed,
    // the named one first.
    std::vector<std::string> remove(std::string_view name);

    // A table owned elsewhere joins by name; it must stay alive until detached. Its name is
    // read at each look-up, so an owner may rename it in place.
    void attach(Table& table);
    // The owner withdraws it: the queries made from it close. Answers the names gone, the
    // attached table first, as remove does.
    std::vector<std::string> detach(const Table& table);

    // The value of "table.column" for the table's current row (Fetch). "obj" (or "object") is
    // the object, an Object value without one where the row has none; "rowid" is the row
    // number; "COLn" is the n-th column. Before the first Fetch and past the end the columns
    // read blank. An unknown column raises 319 "Field <name> does not exist."
    MbValue columnValue(std::string_view table, std::string_view column) const;

    // The name Select gives a result without Into: Query1, Query2, ... not in use.
    std::string nextQueryName();

    // The current selection. Closing its table clears it.
    Selection& selection() { return selection_; }
    const Selection& selection() const { return selection_; }

    // Each table about to close (removed, or detached by its owner), while it still exists:
    // whoever keeps something about a table lets it go here.
    platform::ObserverList<const Table&> tableClosing;

private:
    bool isAttached(const Table& table) const;
    // Removes the table and the queries made from it, however deep; answers their names.
    std::vector<std::string> closeFamily(const Table& table);

    Table* scan(std::string_view name) const;

    std::vector<std::unique_ptr<Table>> tables_;
    std::vector<Table*> attached_;
    // Tables found before, by lower-case name. A program asks about the same few tables
    // thousands of times in a large map, and a scan of every open table made that quadratic.
    // Tables can be renamed behind the catalog's back (a cosmetic table follows its layer), so a
    // hit counts only while the table still bears the name; closing clears the lot.
    mutable std::unordered_map<std::string, Table*> foundByName_;
    int queriesMade_ = 0;
    Selection selection_;
};

} // namespace vellant::engine
