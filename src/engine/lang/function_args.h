#pragma once
// Argument checks the built-in functions share.

#include "engine/mb_error.h"
#include "engine/mb_value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vellant::engine {

using Args = std::vector<MbValue>;

// The host's longest string (MAX_STRING_LENGTH).
inline constexpr std::int64_t kMaxStringLength = 32767;

// 644 "Argument <n> of <function> out of range."; n counts from 1.
[[noreturn]] inline void outOfRange(std::size_t n, const char* function) {
    raiseMb(kMbArgRange, "Argument " + std::to_string(n) + " of " + function + " out of range.");
}

// A count of characters: 0 or more.
inline std::size_t countArg(const Args& args, std::size_t index, const char* function) {
    const std::int64_t n = args[index].asInteger();
    if (n < 0) outOfRange(index + 1, function);
    return static_cast<std::size_t>(n);
}

// A count that builds a string, so no more than the host's longest string.
inline std::size_t boundedCountArg(const Args& args, std::size_t index, const char* function) {
    const std::int64_t n = args[index].asInteger();
    if (n < 0 || n > kMaxStringLength) outOfRange(index + 1, function);
    return static_cast<std::size_t>(n);
}

// A position in a string: 1 or more.
inline std::size_t positionArg(const Args& args, std::size_t index, const char* function) {
    const std::int64_t n = args[index].asInteger();
    if (n < 1) outOfRange(index + 1, function);
    return static_cast<std::size_t>(n);
}

} // namespace vellant::engine
