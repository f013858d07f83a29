#pragma once
// The pieces registerTableLanguage puts together, one file each, and what they share.

#include <cstdint>
#include <string>
#include <vector>

namespace vellant::engine {

class Cursor;
class Engine;
class MbValue;
class Registry;
class Table;

// TableInfo, ColumnInfo, NumTables, NumCols, EOT.
void registerTableFunctions(Registry& registry);
// ObjectInfo, StyleAttr.
void registerObjectFunctions(Registry& registry);
// Open Table, Close Table, Create Table, Drop Table, Set Table, Create Map, Commit Table.
void registerTableStatements(Registry& registry);
// Insert, Delete, Fetch.
void registerRowStatements(Registry& registry);
// Select.
void registerSelectStatement(Registry& registry);

// A table named in a statement: a bare name (also one followed by a column list in
// parentheses), a String variable holding it, or a string expression.
std::string readTableName(Cursor& cursor);

// The table a function argument names: its name, or its number (0 the most recently opened).
// Raises 405 for a name not open and 644 "Argument <n> of <function> out of range." for a
// number outside the open tables.
Table& tableArgument(Engine& engine, const MbValue& argument, int position, const char* function);

// The rows of a table, in order, that exist and for which a Where expression starting at the
// cursor holds; every existing row when the cursor is at no Where. Bare names in the
// expression are the table's columns (and RowID, Obj) at each row. The cursor ends after the
// expression.
std::vector<std::int64_t> rowsWhere(Cursor& cursor, Table& table);

// Close Table and Drop Table: the table and the queries made from it leave the catalog and
// every window that shows them.
void closeTable(Engine& engine, const std::string& name);

} // namespace vellant::engine
