#pragma once
// How a workspace writes values: numbers in the shortest form that reads back to the same
// double, strings in double quotes with inner quotes doubled, switches as On and Off.

#include <string>
#include <string_view>

namespace vellant::engine {

std::string workspaceNumber(double value);
std::string workspaceString(std::string_view text);
inline const char* onOff(bool on) {
    return on ? "On" : "Off";
}

} // namespace vellant::engine
