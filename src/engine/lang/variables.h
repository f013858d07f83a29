#pragma once
// The variables of the MapBasic session: Dim makes one, assignment converts the value to the
// declared type, UnDim removes it. Names are case-insensitive. Errors:
//      1 "Variable <name> already defined." (Dim of a name in use)
//   1034 "Variable or Field <name> not defined." (use, assignment or UnDim of an unknown name)
//   1045 "Type mismatch: ..." (a value that does not convert to the declared type)
// A fresh variable holds 0, "", F, no object, or the host's default style (Pen (1,2,0),
// Brush (2,16777215,16777215), Symbol (35,0,12), Font ("Arial",0,9,0)).
// Alias variables hold the text of a column reference ("world.pop"); an expression reads the
// column through them. Date variables hold their value as text, as the host prints a date.

#include "engine/mb_value.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vellant::engine {

enum class VariableType {
    SmallInt,
    Integer,
    Float,
    String,
    Logical,
    Object,
    Pen,
    Brush,
    Symbol,
    Font,
    Alias,
    Date,
};

// The type named in a Dim statement ("float", "Object"); nullopt for an unknown name.
std::optional<VariableType> variableTypeFromName(std::string_view name);

struct Variable {
    std::string name; // as declared
    VariableType type = VariableType::Integer;
    MbValue value;
};

class Variables {
public:
    void declare(std::string_view name, VariableType type);
    // nullptr when no variable has that name.
    const Variable* find(std::string_view name) const;
    void assign(std::string_view name, const MbValue& value);
    void undeclare(std::string_view name);
    std::size_t count() const { return variables_.size(); }

private:
    std::map<std::string, Variable, std::less<>> variables_; // by lower-case name
};

// The value as a variable of that type holds it (the conversion of an assignment).
MbValue convertForVariable(VariableType type, const MbValue& value, std::string_view name);

} // namespace vellant::engine
