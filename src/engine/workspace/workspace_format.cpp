#include "engine/workspace/workspace_format.h"

#include <charconv>
#include <cmath>

namespace vellant::engine {

std::string workspaceNumber(double value) {
    if (!std::isfinite(value)) return "0"; // nothing the host keeps is infinite; never write one
    if (value == 0) return "0";            // and never "-0"
    // Plain digits for the magnitudes maps have, as a person editing the file expects them.
    const double magnitude = std::fabs(value);
    const bool plain = magnitude >= 1e-6 && magnitude < 1e15;
    char buffer[64];
    const auto result =
        plain ? std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed)
              : std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string workspaceString(std::string_view text) {
    std::string quoted = "\"";
    for (char c : text) {
        quoted += c;
        if (c == '"') quoted += '"';
    }
    quoted += '"';
    return quoted;
}

} // namespace vellant::engine
