#pragma once
// Small conversions the information functions (LayerInfo, MapperInfo, WindowInfo) share.

#include "engine/mb_value.h"
#include "engine/windows/window_errors.h"

#include <cmath>
#include <cstdint>

namespace vellant::engine {

// An attribute code argument: a whole number, or 644 for the argument.
inline int attributeCode(const MbValue& value, int argument, const char* function) {
    const double code = value.asNumber();
    if (code != std::floor(code) || code < -32768 || code > 32767) {
        raiseArgumentOutOfRange(argument, function);
    }
    return static_cast<int>(code);
}

// A window id argument: a whole number, or 590.
inline int windowIdArgument(const MbValue& value) {
    const double id = value.asNumber();
    if (id != std::floor(id) || std::fabs(id) > 2147483647.0) raiseInvalidWindowId(id);
    return static_cast<int>(id);
}

inline MbValue smallInt(int value) {
    return MbValue::smallInt(static_cast<std::int16_t>(value));
}

} // namespace vellant::engine
