#pragma once
// Format$(number, pattern): "#" an optional digit, "0" a digit always shown, "." the decimal
// point, "," groups thousands, "%" shows a percentage, ";" separates the pattern for
// negative numbers; other characters before and after the digits are shown as they are.
// Format$(1234.5, "#,###.00") is "1,234.50"; Format$(0.256, "0.0%") is "25.6%".

#include <string>
#include <string_view>

namespace vellant::engine {

std::string formatNumber(double value, std::string_view pattern);

} // namespace vellant::engine
