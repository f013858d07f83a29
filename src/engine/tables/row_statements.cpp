// Statements that add, remove and move between rows.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <vector>

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
    if (step > 0 && row >= 1) row = std::max(row, table.firstRow());
    if (step < 0 && row < table.firstRow()) row = 0;
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

// Update t Set column = expression [, column = expression ...] [Where RowId = n]
// Columns by name or number (Col1, COL2); the expressions read the row's own columns. Every
// row's new values are worked out before any is kept, so an error changes nothing.
void update(Engine& engine, Cursor& cursor) {
    Table& table = engine.catalog().get(readTableName(cursor));
    cursor.expectWord("set");
    const std::size_t assignments = cursor.mark();
    // Where RowId = n, found first so that only its row is worked on.
    std::optional<std::int64_t> onlyRow;
    int depth = 0;
    for (std::size_t ahead = 0; !cursor.atEnd(); ++ahead) {
        const Token& token = cursor.peek(ahead);
        if (token.kind == Token::Kind::End) break;
        if (token.kind == Token::Kind::Symbol && token.text == "(") ++depth;
        if (token.kind == Token::Kind::Symbol && token.text == ")") --depth;
        if (depth == 0 && cursor.peekWord("where", ahead)) {
            for (std::size_t i = 0; i <= ahead; ++i)
                cursor.advance();
            cursor.expectWord("rowid");
            cursor.expectSymbol("=");
            const double row = cursor.numberExpression();
            cursor.expectEnd();
            onlyRow = static_cast<std::int64_t>(row);
            break;
        }
    }
    checkEditable(table);

    std::int64_t row = 0;
    const NameResolver resolver = [&table, &row](std::string_view name) -> std::optional<MbValue> {
        if (name == "rowid") return MbValue::integer(static_cast<std::int32_t>(row));
        if (name == "obj" || name == "object") return MbValue::object(table.object(row));
        if (const auto column = findColumn(table.columns(), name)) return table.value(row, *column);
        return std::nullopt;
    };
    struct Change {
        std::int64_t row;
        std::vector<std::size_t> columns;
        std::vector<MbValue> values;
    };
    std::vector<Change> changes;
    // t.column in an expression reads the table's current row: the row being updated.
    struct CurrentRow {
        Table& table;
        std::int64_t saved;
        ~CurrentRow() { table.currentRow = saved; }
    } current{table, table.currentRow};
    const std::int64_t first = onlyRow ? *onlyRow : 1;
    const std::int64_t last = onlyRow ? *onlyRow : table.rowCount();
    for (row = first; row <= last; ++row) {
        if (!table.rowExists(row)) continue;
        cursor.reset(assignments);
        cursor.setNameResolver(&resolver);
        table.currentRow = row;
        Change change{row, {}, {}};
        try {
            do {
                const std::string name = cursor.identifier();
                const auto column = findColumn(table.columns(), name);
                if (!column) raiseNoField(name);
                cursor.expectSymbol("=");
                change.columns.push_back(*column);
                // Converted now only to find a value the column cannot keep before any row
                // changes; the table converts it again as it keeps it.
                change.values.push_back(
                    valueForColumn(table.columns()[*column], cursor.expression()));
            } while (cursor.acceptSymbol(","));
            if (!cursor.peekWord("where")) cursor.expectEnd();
        } catch (...) {
            cursor.setNameResolver(nullptr);
            throw;
        }
        cursor.setNameResolver(nullptr);
        changes.push_back(std::move(change));
    }
    // The Where clause was read before the rows were.
    while (!cursor.atEnd())
        cursor.advance();
    for (Change& change : changes)
        table.updateRow(change.row, change.columns, std::move(change.values));
}

} // namespace

void registerRowStatements(Registry& registry) {
    registry.addStatement({"update"}, update);
    registry.addStatement({"insert"}, insertInto);
    registry.addStatement({"delete"}, deleteFrom);
    registry.addStatement({"fetch"}, fetchFrom);
}

} // namespace vellant::engine
