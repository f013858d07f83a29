#pragma once
// Signed 16-bit arithmetic of the classic runtime: a result outside -32768..32767 raises run-time
// error 6 instead of wrapping. Record numbers of the preference file are computed this way, and
// the limit on map slots is where that arithmetic overflows.

#include "base/runtime_error.h"

#include <cstdint>

namespace vellant {

class Int16 {
public:
    constexpr Int16() = default;
    // Checked: a value outside the range raises error 6.
    Int16(long long value) : value_(check(value)) {} // NOLINT(google-explicit-constructor)

    std::int16_t value() const { return value_; }
    operator std::int16_t() const { return value_; } // NOLINT(google-explicit-constructor)

    friend Int16 operator+(Int16 a, Int16 b) {
        return Int16(static_cast<long long>(a.value_) + b.value_);
    }
    friend Int16 operator-(Int16 a, Int16 b) {
        return Int16(static_cast<long long>(a.value_) - b.value_);
    }
    friend Int16 operator*(Int16 a, Int16 b) {
        return Int16(static_cast<long long>(a.value_) * b.value_);
    }

private:
    static std::int16_t check(long long v) {
        if (v < -32768 || v > 32767) raiseError(kErrOverflow);
        return static_cast<std::int16_t>(v);
    }
    std::int16_t value_ = 0;
};

// 16-bit flags: -1 true, 0 false, tested as numbers as the program's flags are.
using Flag = std::int16_t;
constexpr Flag kTrue = -1;
constexpr Flag kFalse = 0;
inline Flag toFlag(bool b) {
    return b ? kTrue : kFalse;
}

} // namespace vellant
