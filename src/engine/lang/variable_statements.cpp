#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/mb_error.h"

#include <algorithm>
#include <cctype>

namespace vellant::engine {

namespace {

bool sameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

// Dim a, b As Float, c As String: names gather until an As clause types them. The whole
// statement is read and checked before anything is declared, so a failing Dim declares nothing.
void dim(Engine& engine, Cursor& cursor) {
    std::vector<std::pair<std::string, VariableType>> declared;
    std::size_t untyped = 0;
    while (true) {
        declared.emplace_back(cursor.identifier(), VariableType::Integer);
        ++untyped;
        if (cursor.acceptSymbol(",")) continue;
        cursor.expectWord("as");
        const std::string typeName = cursor.identifier();
        const auto type = variableTypeFromName(typeName);
        if (!type) raiseMb(kMbSyntax, "Unrecognized variable type: " + typeName + ".");
        for (std::size_t i = declared.size() - untyped; i < declared.size(); ++i) {
            declared[i].second = *type;
        }
        untyped = 0;
        if (!cursor.acceptSymbol(",")) break;
    }
    cursor.expectEnd();
    for (std::size_t i = 0; i < declared.size(); ++i) {
        const std::string& name = declared[i].first;
        bool taken = engine.variables().find(name) != nullptr;
        for (std::size_t j = 0; j < i && !taken; ++j)
            taken = sameName(name, declared[j].first);
        if (taken) raiseMb(kMbSyntax, "Variable " + name + " already defined.");
    }
    for (const auto& [name, type] : declared)
        engine.variables().declare(name, type);
}

void undim(Engine& engine, Cursor& cursor) {
    std::vector<std::string> names;
    do {
        names.push_back(cursor.identifier());
    } while (cursor.acceptSymbol(","));
    cursor.expectEnd();
    for (const std::string& name : names) {
        if (engine.variables().find(name) == nullptr) {
            raiseMb(kMbUnknownVariable, "Variable or Field " + name + " not defined.");
        }
    }
    for (const std::string& name : names)
        engine.variables().undeclare(name);
}

} // namespace

void registerVariableStatements(Registry& registry) {
    registry.addStatement({"dim"}, dim);
    registry.addStatement({"undim"}, undim);
}

} // namespace vellant::engine
