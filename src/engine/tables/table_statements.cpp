// Statements that open, make, change and close whole tables.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/tables/charset.h"
#include "engine/tables/column_type.h"
#include "engine/tables/memory_table.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"
#include "engine/tables/table_opener.h"
#include "engine/tables/table_path.h"
#include "engine/windows/coordsys.h"
#include "engine/windows/window_manager.h"

#include <cctype>

namespace vellant::engine {

namespace {

bool isSymbol(const Token& token, std::string_view symbol) {
    return token.kind == Token::Kind::Symbol && token.text == symbol;
}

// Open Table "file" [As alias] [Interactive] [ReadOnly] [NoIndex] [DenyWrite]
//   [View Automatic] [Charset "name"]
// The same file opened again under the same name is left as it is. With Interactive, a name
// in use by another table makes the host pick a free one (name_2, name_3...), as it would after
// asking the user; without it the name in use is an error.
void openTable(Engine& engine, Cursor& cursor) {
    const std::string written = cursor.stringExpression();
    std::string alias;
    bool interactive = false, readOnly = false;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("as")) {
            alias = cursor.nameOrString();
        } else if (cursor.acceptWord("interactive")) {
            interactive = true;
        } else if (cursor.acceptWord("readonly")) {
            readOnly = true;
        } else if (cursor.acceptWord("noindex") || cursor.acceptWord("denywrite")) {
        } else if (cursor.acceptWord("view")) {
            cursor.expectWord("automatic");
        } else if (cursor.acceptWord("charset")) {
            cursor.stringExpression();
        } else {
            cursor.syntaxError();
        }
    }
    std::unique_ptr<Table> table = openTableFile(written, alias);
    Catalog& catalog = engine.catalog();
    if (const Table* present = catalog.find(table->name())) {
        if (present->path() == table->path()) return;
        if (!interactive) raiseAlreadyOpen(table->name());
        const std::string base = table->name();
        std::string free;
        for (int n = 2; free.empty() || catalog.find(free) != nullptr; ++n) {
            free = base + "_" + std::to_string(n);
        }
        table = openTableFile(written, free);
    }
    table->readOnly = readOnly;
    catalog.add(std::move(table));
}

void closeTableStatement(Engine& engine, Cursor& cursor) {
    const std::string name = readTableName(cursor);
    cursor.acceptWord("interactive");
    cursor.expectEnd();
    closeTable(engine, name);
}

ColumnDef readColumnDef(Cursor& cursor) {
    ColumnDef column;
    column.name = cursor.identifier();
    const std::string typeName = cursor.identifier();
    const std::optional<int> type = columnTypeFromName(typeName);
    if (!type) cursor.syntaxError("column type");
    column.type = *type;
    if (column.type == kColChar || column.type == kColDecimal) {
        cursor.expectSymbol("(");
        const double width = cursor.numberExpression();
        const int limit = column.type == kColChar ? 254 : 20;
        if (!(width >= 1 && width <= limit)) {
            raiseMb(kMbSyntax, "Invalid width for column " + column.name + ".");
        }
        column.width = static_cast<int>(width);
        if (column.type == kColDecimal) {
            cursor.expectSymbol(",");
            const double decimals = cursor.numberExpression();
            if (!(decimals >= 0 && decimals < width)) {
                raiseMb(kMbSyntax, "Invalid decimal places for column " + column.name + ".");
            }
            column.decimals = static_cast<int>(decimals);
        }
        cursor.expectSymbol(")");
    }
    return column;
}

// Create Table name (column type [, ...]) [File "path"] [Type {Native | DBF}]
//   [Charset "name"] [Version n]
void createTable(Engine& engine, Cursor& cursor) {
    const std::string name = readTableName(cursor);
    if (engine.catalog().find(name) != nullptr) raiseAlreadyOpen(name);
    std::vector<ColumnDef> columns;
    cursor.expectSymbol("(");
    do {
        ColumnDef column = readColumnDef(cursor);
        if (findColumn(columns, column.name)) {
            raiseMb(kMbSyntax, "Column " + column.name + " is defined twice.");
        }
        columns.push_back(std::move(column));
    } while (cursor.acceptSymbol(","));
    cursor.expectSymbol(")");
    std::filesystem::path file;
    std::string charset;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("file")) {
            file = tablePathFromText(cursor.stringExpression());
        } else if (cursor.acceptWord("type")) {
            if (!cursor.acceptWord("native") && !cursor.acceptWord("dbf")) {
                cursor.syntaxError("Native or DBF");
            }
        } else if (cursor.acceptWord("charset")) {
            charset = cursor.stringExpression();
            if (!iconvCharsetName(charset))
                raiseMb(kMbSyntax, "Unrecognized charset: " + charset + ".");
        } else if (cursor.acceptWord("version")) {
            cursor.numberExpression();
        } else {
            cursor.syntaxError();
        }
    }
    engine.catalog().add(
        std::make_unique<MemoryTable>(name, std::move(columns), file, std::move(charset)));
}

void dropTable(Engine& engine, Cursor& cursor) {
    const std::string name = readTableName(cursor);
    cursor.expectEnd();
    Table& table = engine.catalog().get(name);
    if (table.readOnly) raiseReadOnly(table.name());
    const std::string closing = table.name();
    try {
        table.deleteFiles();
    } catch (const MbError&) {
        // The files may be gone in part; the table cannot stay open over them.
        closeTable(engine, closing);
        throw;
    }
    closeTable(engine, closing);
}

// Set Table t [FastEdit On|Off] [Undo On|Off] [ReadOnly] [Seamless On|Off [Preserve]]
//   [UserMap|UserBrowse|UserClose|UserEdit|UserRemoveMap|UserDisplayMap On|Off]
// The user flags are also accepted with an underscore (User_Map). ReadOnly is never undone.
void setTable(Engine& engine, Cursor& cursor) {
    Table& table = engine.catalog().get(readTableName(cursor));
    struct Flag {
        const char* word;
        bool Table::*member;
    };
    static const Flag kUserFlags[] = {
        {"usermap", &Table::userMap},
        {"userbrowse", &Table::userBrowse},
        {"userclose", &Table::userClose},
        {"useredit", &Table::userEdit},
        {"userremovemap", &Table::userRemoveMap},
        {"userdisplaymap", &Table::userDisplayMap},
    };
    // Read every clause first so that a bad one leaves the table as it was.
    std::vector<std::pair<bool Table::*, bool>> changes;
    bool any = false;
    while (!cursor.atEnd()) {
        any = true;
        if (cursor.acceptWord("fastedit")) {
            changes.emplace_back(&Table::fastEdit, cursor.onOff());
        } else if (cursor.acceptWord("undo")) {
            changes.emplace_back(&Table::undoOff, !cursor.onOff());
        } else if (cursor.acceptWord("readonly")) {
            changes.emplace_back(&Table::readOnly, true);
        } else if (cursor.acceptWord("seamless")) {
            cursor.onOff();
            cursor.acceptWord("preserve");
        } else {
            const Token& word = cursor.peek();
            std::string key = word.lower;
            std::erase(key, '_');
            const Flag* flag = nullptr;
            for (const Flag& candidate : kUserFlags) {
                if (word.kind == Token::Kind::Identifier && key == candidate.word)
                    flag = &candidate;
            }
            if (flag == nullptr) cursor.syntaxError();
            cursor.advance();
            changes.emplace_back(flag->member, cursor.onOff());
        }
    }
    if (!any) cursor.syntaxError();
    for (const auto& [member, value] : changes)
        table.*member = value;
}

// Create Map For t [CoordSys ... | CoordSys Table other | Using other]: without a
// coordinate system the table takes the session's (Set CoordSys).
void createMap(Engine& engine, Cursor& cursor) {
    cursor.expectWord("for");
    Table& table = engine.catalog().get(readTableName(cursor));
    std::string clause = engine.settings().coordSys;
    if (cursor.acceptWord("using")) {
        clause = engine.catalog().get(readTableName(cursor)).coordSysClause();
        cursor.expectEnd();
    } else if (cursor.peekWord("coordsys")) {
        if (cursor.peekWord("table", 1)) {
            cursor.advance();
            cursor.advance();
            clause = engine.catalog().get(readTableName(cursor)).coordSysClause();
            cursor.expectEnd();
        } else {
            // The clause runs to the end of the statement.
            clause = parseCoordSys(cursor.source().substr(cursor.peek().position)).clause(true);
            while (!cursor.atEnd())
                cursor.advance();
        }
    } else {
        cursor.expectEnd();
    }
    if (clause.empty()) raiseMb(kMbSyntax, "Invalid CoordSys clause: the table has none.");
    if (table.readOnly) raiseReadOnly(table.name());
    table.makeMappable(clause);
}

void commitTable(Engine& engine, Cursor& cursor) {
    Table& table = engine.catalog().get(readTableName(cursor));
    cursor.acceptWord("interactive");
    cursor.expectEnd();
    table.commit();
}

} // namespace

std::string readTableName(Cursor& cursor) {
    const Token& token = cursor.peek();
    if (token.kind == Token::Kind::Identifier && isSymbol(cursor.peek(1), "(")) {
        return cursor.identifier();
    }
    return cursor.nameOrString();
}

void closeTable(Engine& engine, const std::string& name) {
    for (const std::string& closed : engine.catalog().remove(name)) {
        engine.windows().tableClosed(closed);
    }
}

void registerTableStatements(Registry& registry) {
    registry.addStatement({"open", "table"}, openTable);
    registry.addStatement({"close", "table"}, closeTableStatement);
    registry.addStatement({"create", "table"}, createTable);
    registry.addStatement({"drop", "table"}, dropTable);
    registry.addStatement({"set", "table"}, setTable);
    registry.addStatement({"create", "map"}, createMap);
    registry.addStatement({"commit", "table"}, commitTable);
}

} // namespace vellant::engine
