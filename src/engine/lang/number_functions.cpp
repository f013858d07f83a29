// The numeric functions of MapBasic. A result that is not a real number (Sqr(-1), Log(0))
// gives 911 "Floating point error: ..." rather than a NaN the client could not read.

#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/function_args.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"

#include <cmath>
#include <limits>

namespace vellant::engine {

namespace {

MbValue real(double value, const char* function) {
    if (std::isnan(value)) {
        raiseMb(kMbFloatDomain,
                std::string("Floating point error: invalid argument to ") + function + ".");
    }
    if (std::isinf(value)) raiseMb(kMbFloatRange, "Floating point overflow.");
    return MbValue::number(value);
}

// Int and Fix give whole numbers; they stay Integer when they fit.
MbValue whole(double value, const char* function) {
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max()) {
        return MbValue::integer(static_cast<std::int32_t>(value));
    }
    return real(value, function);
}

// Round(2.345, 0.01) is 2.35 although 2.345 / 0.01 is 234.4999...: a quotient this close to
// a half rounds away from zero, as the decimal number the user wrote would.
double roundTo(double value, double step) {
    const double quotient = value / step;
    double rounded = std::round(quotient);
    const double fraction = std::fabs(quotient - std::trunc(quotient));
    if (std::fabs(fraction - 0.5) < 1e-9 * std::max(1.0, std::fabs(quotient))) {
        rounded = std::trunc(quotient) + (quotient < 0 ? -1 : 1);
    }
    return rounded * step;
}

void registerRounding(Registry& r) {
    r.addFunction("Int", 1, 1,
                  [](Engine&, Args& a) { return whole(std::floor(a[0].asNumber()), "Int"); });
    r.addFunction("Fix", 1, 1,
                  [](Engine&, Args& a) { return whole(std::trunc(a[0].asNumber()), "Fix"); });
    r.addFunction("Round", 2, 2, [](Engine&, Args& a) {
        const double step = a[1].asNumber();
        if (step <= 0) outOfRange(2, "Round");
        return real(roundTo(a[0].asNumber(), step), "Round");
    });
    r.addFunction("Abs", 1, 1, [](Engine&, Args& a) {
        if (a[0].type() == MbType::SmallInt || a[0].type() == MbType::Integer) {
            return whole(std::fabs(a[0].asNumber()), "Abs");
        }
        return real(std::fabs(a[0].asNumber()), "Abs");
    });
    r.addFunction("Sgn", 1, 1, [](Engine&, Args& a) {
        const double v = a[0].asNumber();
        return MbValue::integer(v > 0 ? 1 : (v < 0 ? -1 : 0));
    });
    r.addFunction("Minimum", 2, 2,
                  [](Engine&, Args& a) { return a[1].asNumber() < a[0].asNumber() ? a[1] : a[0]; });
    r.addFunction("Maximum", 2, 2,
                  [](Engine&, Args& a) { return a[1].asNumber() > a[0].asNumber() ? a[1] : a[0]; });
}

void registerAnalytic(Registry& r) {
    r.addFunction("Sqr", 1, 1, [](Engine&, Args& a) {
        const double v = a[0].asNumber();
        if (v < 0) outOfRange(1, "Sqr");
        return real(std::sqrt(v), "Sqr");
    });
    r.addFunction("Exp", 1, 1,
                  [](Engine&, Args& a) { return real(std::exp(a[0].asNumber()), "Exp"); });
    r.addFunction("Log", 1, 1, [](Engine&, Args& a) {
        const double v = a[0].asNumber();
        if (v <= 0) outOfRange(1, "Log");
        return real(std::log(v), "Log");
    });
    r.addFunction("Sin", 1, 1,
                  [](Engine&, Args& a) { return real(std::sin(a[0].asNumber()), "Sin"); });
    r.addFunction("Cos", 1, 1,
                  [](Engine&, Args& a) { return real(std::cos(a[0].asNumber()), "Cos"); });
    r.addFunction("Tan", 1, 1,
                  [](Engine&, Args& a) { return real(std::tan(a[0].asNumber()), "Tan"); });
    r.addFunction("Atn", 1, 1,
                  [](Engine&, Args& a) { return real(std::atan(a[0].asNumber()), "Atn"); });
}

} // namespace

void registerNumberFunctions(Registry& registry) {
    registerRounding(registry);
    registerAnalytic(registry);
}

} // namespace vellant::engine
