// Select and the Where clause it shares with Delete.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/tables/query_table.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"

#include <cctype>
#include <optional>

namespace vellant::engine {

namespace {

// While alive, the table's cursor stands on the row being tested, so that "table.column"
// in the expression reads that row too; the row Fetch left is put back afterwards.
class RowVisit {
public:
    explicit RowVisit(Table& table) : table_(table), saved_(table.currentRow) {}
    ~RowVisit() { table_.currentRow = saved_; }
    RowVisit(const RowVisit&) = delete;
    RowVisit& operator=(const RowVisit&) = delete;

private:
    Table& table_;
    std::int64_t saved_;
};

// Resets the cursor's name resolver when the statement ends, also by an error.
class ResolverScope {
public:
    ResolverScope(Cursor& cursor, const NameResolver& resolver) : cursor_(cursor) {
        cursor_.setNameResolver(&resolver);
    }
    ~ResolverScope() { cursor_.setNameResolver(nullptr); }
    ResolverScope(const ResolverScope&) = delete;
    ResolverScope& operator=(const ResolverScope&) = delete;

private:
    Cursor& cursor_;
};

} // namespace

std::vector<std::int64_t> rowsWhere(Cursor& cursor, Table& table) {
    std::vector<std::int64_t> rows;
    const bool filtered = cursor.acceptWord("where");
    RowVisit visit(table);
    const NameResolver resolver = [&table](std::string_view name) -> std::optional<MbValue> {
        if (name == "rowid") return MbValue::integer(static_cast<std::int32_t>(table.currentRow));
        if ((name == "obj" || name == "object") && table.isMappable()) {
            return MbValue::object(table.object(table.currentRow));
        }
        if (const auto column = findColumn(table.columns(), name)) {
            return table.value(table.currentRow, *column);
        }
        return std::nullopt;
    };
    ResolverScope scope(cursor, resolver);
    const std::size_t start = cursor.mark();
    std::size_t end = start;
    for (std::int64_t row = table.firstRow(); row <= table.rowCount(); ++row) {
        if (!table.rowExists(row)) continue;
        table.currentRow = row;
        if (filtered) {
            cursor.reset(start);
            const bool keep = cursor.expression().asLogical();
            end = cursor.mark();
            if (!keep) continue;
        }
        rows.push_back(row);
    }
    if (filtered && end == start) {
        // No row to test: the expression is still read, against blank values.
        table.currentRow = 0;
        cursor.expression();
        end = cursor.mark();
    }
    cursor.reset(end);
    return rows;
}

namespace {

bool isObjectName(std::string name) {
    for (char& c : name)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name == "obj" || name == "object";
}

// Select {* | column [, column ...]} From table [Where expression] [Into name] [NoSelect]
// The result is a query table named by Into, or Query1, Query2, ...; an Into name held by an
// earlier query replaces that query.
void selectStatement(Engine& engine, Cursor& cursor) {
    std::vector<std::string> names;
    if (!cursor.acceptSymbol("*")) {
        do {
            names.push_back(cursor.identifier());
        } while (cursor.acceptSymbol(","));
    }
    cursor.expectWord("from");
    Table& table = engine.catalog().get(readTableName(cursor));
    std::vector<std::size_t> columns;
    if (names.empty()) {
        for (std::size_t i = 0; i < table.columns().size(); ++i)
            columns.push_back(i);
    }
    for (const std::string& name : names) {
        if (isObjectName(name) && table.isMappable()) continue;
        const auto column = findColumn(table.columns(), name);
        if (!column) raiseNoField(name);
        columns.push_back(*column);
    }
    std::vector<std::int64_t> rows = rowsWhere(cursor, table);
    std::string into;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("into")) {
            into = readTableName(cursor);
        } else if (cursor.acceptWord("noselect")) {
        } else {
            cursor.syntaxError();
        }
    }
    Catalog& catalog = engine.catalog();
    if (into.empty()) into = catalog.nextQueryName();
    if (const Table* present = catalog.find(into)) {
        // A query that the new one reads from cannot make way for it.
        bool feedsSelect = false;
        for (const Table* t = &table; t != nullptr; t = t->baseTable())
            feedsSelect |= t == present;
        if (present->type() != TableType::Result || feedsSelect) raiseAlreadyOpen(into);
        closeTable(engine, present->name());
    }
    catalog.add(std::make_unique<QueryTable>(into, table, std::move(columns), std::move(rows)));
}

} // namespace

void registerSelectStatement(Registry& registry) {
    registry.addStatement({"select"}, selectStatement);
}

} // namespace vellant::engine
