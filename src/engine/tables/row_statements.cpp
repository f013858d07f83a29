// Statements that add, remove and move between rows.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"

#include <cctype>

namespace vellant::engine {

namespace {

bool isObjectName(std::string name) {
    for (char& c : name)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name == "obj" || name == "object";
}

void checkEditable(const Table& table) {
    if (table.readOnly) raiseReadOnly(table.name());
    if (!table.isEditable()) raiseNotEditable(table.name());
}

// Insert Into t [(column, ...)] Values (expression, ...)
// Without a column list the values go to the columns in order; "Obj" names the object.
// Columns not named are left blank.
void insertInto(Engine& engine, Cursor& cursor) {
    cursor.expectWord("into");
    Table& table = engine.catalog().get(readTableName(cursor));
    constexpr std::size_t kObject = static_cast<std::size_t>(-1);
    std::vector<std::size_t> targets;
    if (cursor.acceptSymbol("(")) {
        do {
            const std::string name = cursor.identifier();
            if (isObjectName(name)) {
                if (!table.isMappable()) raiseNoField(name);
                targets.push_back(kObject);
                continue;
            }
            const auto column = findColumn(table.columns(), name);
            if (!column) raiseNoField(name);
            targets.push_back(*column);
        } while (cursor.acceptSymbol(","));
        cursor.expectSymbol(")");
    } else {
        for (std::size_t i = 0; i < table.columns().size(); ++i)
            targets.push_back(i);
    }
    cursor.expectWord("values");
    cursor.expectSymbol("(");
    std::vector<MbValue> given;
    do {
        given.push_back(cursor.expression());
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    cursor.expectEnd();
    if (given.size() != targets.size()) {
        raiseMb(kMbSyntax, "Insert: " + std::to_string(given.size()) + " values for " +
                               std::to_string(targets.size()) + " columns.");
    }
    checkEditable(table);
    std::vector<MbValue> values;
    for (const ColumnDef& column : table.columns())
        values.push_back(blankValue(column));
    std::shared_ptr<const MapObject> object;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (targets[i] == kObject) {
            object = given[i].asObject();
        } else {
            values[targets[i]] = valueForColumn(table.columns()[targets[i]], given[i]);
        }
    }
    table.insertRow(std::move(values), std::move(object));
}

// Delete [Object] From t [Where expression]: rows keep their numbers; Object keeps the rows
// and removes only their objects.
void deleteFrom(Engine& engine, Cursor& cursor) {
    const bool objectsOnly = cursor.acceptWord("object");
    cursor.expectWord("from");
    Table& table = engine.catalog().get(readTableName(cursor));
    checkEditable(table);
    const std::vector<std::int64_t> rows = rowsWhere(cursor, table);
    cursor.expectEnd();
    for (std::int64_t row : rows) {
        if (objectsOnly) {
            table.deleteObject(row);
        } else {
            table.deleteRow(row);
        }
    }
}

// The next row that exists from row on, going by step; 0 or rowCount() + 1 when none.
std::int64_t existingRow(const Table& table, std::int64_t row, int step) {
    while (row >= 1 && row <= table.rowCount() && !table.rowExists(row))
        row += step;
    if (row < 1) return 0;
    if (row > table.rowCount()) return table.rowCount() + 1;
    return row;
}

// Fetch {First | Last | Next | Prev | Rec n} From t. Deleted rows are passed over; moving
// past the last row sets EOT, before the first leaves the cursor before row 1.
void fetchFrom(Engine& engine, Cursor& cursor) {
    enum class Move { First, Last, Next, Prev, Record } move;
    double record = 0;
    if (cursor.acceptWord("first")) {
        move = Move::First;
    } else if (cursor.acceptWord("last")) {
        move = Move::Last;
    } else if (cursor.acceptWord("next")) {
        move = Move::Next;
    } else if (cursor.acceptWord("prev")) {
        move = Move::Prev;
    } else if (cursor.acceptWord("rec")) {
        move = Move::Record;
        record = cursor.numberExpression();
    } else {
        cursor.syntaxError("First, Last, Next, Prev or Rec");
    }
    cursor.expectWord("from");
    Table& table = engine.catalog().get(readTableName(cursor));
    cursor.expectEnd();
    const std::int64_t count = table.rowCount();
    std::int64_t row = 0;
    switch (move) {
    case Move::First:
        row = existingRow(table, 1, 1);
        break;
    case Move::Last:
        row = existingRow(table, count, -1);
        if (row == 0) row = count + 1;
        break;
    case Move::Next:
        row = existingRow(table, std::min(table.currentRow, count) + 1, 1);
        break;
    case Move::Prev:
        row = existingRow(table, std::min(table.currentRow, count + 1) - 1, -1);
        break;
    case Move::Record:
        row = record >= 1 && record <= static_cast<double>(count)
                  ? static_cast<std::int64_t>(record)
                  : count + 1;
        break;
    }
    table.currentRow = row;
}

} // namespace

void registerRowStatements(Registry& registry) {
    registry.addStatement({"insert"}, insertInto);
    registry.addStatement({"delete"}, deleteFrom);
    registry.addStatement({"fetch"}, fetchFrom);
}

} // namespace vellant::engine
