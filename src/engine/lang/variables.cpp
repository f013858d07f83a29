#include "engine/lang/variables.h"

#include "base/basic_text.h"
#include "engine/lang/style_clause.h"
#include "engine/mb_error.h"

#include <algorithm>
#include <cctype>
#include <limits>

namespace vellant::engine {

namespace {

MbValue initialValue(VariableType type) {
    switch (type) {
    case VariableType::SmallInt:
        return MbValue::smallInt(0);
    case VariableType::Integer:
        return MbValue::integer(0);
    case VariableType::Float:
        return MbValue::number(0);
    case VariableType::Logical:
        return MbValue::logical(false);
    case VariableType::Object:
        return MbValue::object(nullptr);
    case VariableType::Pen:
        return MbValue::style(MbType::Pen, kInitialPen);
    case VariableType::Brush:
        return MbValue::style(MbType::Brush, kInitialBrush);
    case VariableType::Symbol:
        return MbValue::style(MbType::Symbol, kInitialSymbol);
    case VariableType::Font:
        return MbValue::style(MbType::Font, kInitialFont);
    case VariableType::String:
    case VariableType::Alias:
    case VariableType::Date:
        return MbValue::string("");
    }
    return MbValue();
}

[[noreturn]] void notDefined(std::string_view name) {
    raiseMb(kMbUnknownVariable, "Variable or Field " + std::string(name) + " not defined.");
}

std::int64_t integerInRange(const MbValue& value, std::int64_t low, std::int64_t high,
                            std::string_view name) {
    const std::int64_t number = value.asInteger();
    if (number < low || number > high) {
        raiseMb(kMbFloatRange, "Floating point overflow: " + std::to_string(number) +
                                   " does not fit variable " + std::string(name) + ".");
    }
    return number;
}

MbValue styleOf(MbType wanted, const MbValue& value, std::string_view name) {
    if (value.type() != wanted) {
        raiseMb(kMbTypeMismatch, "Type mismatch: variable " + std::string(name) +
                                     " cannot hold the value " + value.toEvalText() + ".");
    }
    return value;
}

} // namespace

std::optional<VariableType> variableTypeFromName(std::string_view name) {
    static const std::map<std::string, VariableType, std::less<>> kTypes = {
        {"smallint", VariableType::SmallInt}, {"integer", VariableType::Integer},
        {"float", VariableType::Float},       {"string", VariableType::String},
        {"logical", VariableType::Logical},   {"object", VariableType::Object},
        {"pen", VariableType::Pen},           {"brush", VariableType::Brush},
        {"symbol", VariableType::Symbol},     {"font", VariableType::Font},
        {"alias", VariableType::Alias},       {"date", VariableType::Date},
    };
    const auto found = kTypes.find(LCase(name));
    if (found == kTypes.end()) return std::nullopt;
    return found->second;
}

MbValue convertForVariable(VariableType type, const MbValue& value, std::string_view name) {
    switch (type) {
    case VariableType::SmallInt:
        return MbValue::smallInt(static_cast<std::int16_t>(
            integerInRange(value, std::numeric_limits<std::int16_t>::min(),
                           std::numeric_limits<std::int16_t>::max(), name)));
    case VariableType::Integer:
        return MbValue::integer(static_cast<std::int32_t>(
            integerInRange(value, std::numeric_limits<std::int32_t>::min(),
                           std::numeric_limits<std::int32_t>::max(), name)));
    case VariableType::Float:
        return MbValue::number(value.asNumber());
    case VariableType::Logical:
        return MbValue::logical(value.asLogical());
    case VariableType::Object:
        return MbValue::object(value.asObject());
    case VariableType::Pen:
        return styleOf(MbType::Pen, value, name);
    case VariableType::Brush:
        return styleOf(MbType::Brush, value, name);
    case VariableType::Symbol:
        return styleOf(MbType::Symbol, value, name);
    case VariableType::Font:
        return styleOf(MbType::Font, value, name);
    case VariableType::String:
    case VariableType::Alias:
    case VariableType::Date:
        return MbValue::string(value.asString());
    }
    return value;
}

void Variables::declare(std::string_view name, VariableType type) {
    std::string key = LCase(name);
    if (variables_.count(key) != 0) {
        raiseMb(kMbSyntax, "Variable " + std::string(name) + " already defined.");
    }
    variables_.emplace(std::move(key), Variable{std::string(name), type, initialValue(type)});
}

const Variable* Variables::find(std::string_view name) const {
    // Callers mostly pass lower-case token text; fold only a name that needs it.
    const bool folded = std::none_of(name.begin(), name.end(), [](char c) {
        return std::isupper(static_cast<unsigned char>(c)) != 0;
    });
    const auto found = folded ? variables_.find(name) : variables_.find(LCase(name));
    return found == variables_.end() ? nullptr : &found->second;
}

void Variables::assign(std::string_view name, const MbValue& value) {
    auto found = variables_.find(LCase(name));
    if (found == variables_.end()) notDefined(name);
    Variable& variable = found->second;
    variable.value = convertForVariable(variable.type, value, variable.name);
}

void Variables::undeclare(std::string_view name) {
    const auto found = variables_.find(LCase(name));
    if (found == variables_.end()) notDefined(name);
    variables_.erase(found);
}

} // namespace vellant::engine
