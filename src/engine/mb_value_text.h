#pragma once
// How the host turns numbers and objects into text and text into numbers; MbValue uses these,
// and so do functions such as Str$ and Val that must agree with eval.

#include "engine/map_object.h"
#include "engine/mb_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace vellant::engine {

// A whole string read as a number: blanks around it, an optional sign, digits with an
// optional fraction and exponent. An empty string is 0; anything else is nullopt.
std::optional<double> parseMbNumber(std::string_view text);

// Up to 15 significant digits, no trailing zeros, no exponent for magnitudes from 1E-10 to
// below 1E+21 ("0.1", "1234567.5", "-3"); beyond that "1.5E+25" and "2E-12".
std::string formatMbFloat(double value);

// A MapBasic string literal: the text in double quotes, each quote inside doubled.
std::string quotedMbString(const std::string& text);

// The MapBasic name of a value type ("Float", "Pen"), also the keyword of a style clause.
const char* mbTypeName(MbType type);

// The name the host's browser shows for an object's kind ("Region", "Rectangle").
const char* objectKindName(ObjectKind kind);

} // namespace vellant::engine
