#pragma once
// What every MapInfo facade member does the same way: build the MapBasic text with numbers in
// the host's wire format, turn eval's text into the member's type, and trap a failure in one of
// the three ways the members report it (a log line, a message box, or silently). Internal to the
// host model.

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "base/int16.h"
#include "base/runtime_error.h"
#include "hostmodel/facade_context.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace vellant::hostmodel::detail {

inline constexpr const char* kLineBreak = "\r\n";

// A logical answer of eval.
inline bool isT(const std::string& text) {
    return text == "T";
}

// eval's text stored in a variable of the member's type: the leading number, checked for the
// type's range as an assignment of the runtime is (error 6).
inline std::int16_t toInteger(const std::string& text) {
    return CInt(Val(text));
}
inline std::int32_t toLong(const std::string& text) {
    return CLng(Val(text));
}
inline float toSingle(const std::string& text) {
    const double value = Val(text);
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max()))
        raiseError(kErrOverflow);
    return static_cast<float>(value);
}

// The word a flag let sends: -1 the first, 0 the second, any other value nothing.
inline std::string flagWord(Flag value, const char* onWord, const char* offWord) {
    if (value == kTrue) return onWord;
    if (value == kFalse) return offWord;
    return {};
}

// "LayerInfo(<window>,<layer>,<code>)".
inline std::string layerInfo(std::int32_t window, std::int16_t layer, const char* code) {
    return "LayerInfo(" + Str(window) + "," + Str(layer) + "," + code + ")";
}

// The start of every layer let: "set map window <view> Layer <gLayer> ".
inline std::string setLayer(const FacadeContext& context) {
    return "set map window " + Str(context.viewWindow()) + " Layer " + Str(context.currentLayer()) +
           " ";
}

// A get that writes "<label><error text>" to the log and answers what it had by then.
template <class T, class Body>
T loggedGet(FacadeContext& context, const std::string& label, Body&& body) {
    T result{};
    onErrorGoTo([&] { result = body(); },
                [&](const RuntimeError& e) { context.log(label + e.description()); });
    return result;
}

// A get whose failure answers the empty value and reports nothing.
template <class T, class Body> T silentGet(Body&& body) {
    T result{};
    onErrorGoTo([&] { result = body(); }, [](const RuntimeError&) {});
    return result;
}

// A let whose failure shows "<label><error text>".
template <class Body> void shownLet(FacadeContext& context, const std::string& label, Body&& body) {
    onErrorGoTo(std::forward<Body>(body),
                [&](const RuntimeError& e) { context.showMessage(label + e.description()); });
}

// A check after a zoom range change: the host's last error, when there is one, goes to the log.
inline void checkLastError(FacadeContext& context) {
    const std::string message = context.mapInfo().LastErrorMessage();
    if (!message.empty()) context.log(message);
}

} // namespace vellant::hostmodel::detail
