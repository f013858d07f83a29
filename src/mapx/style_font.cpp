#include "mapx/style_font.h"

#include "base/runtime_error.h"

#include <cmath>

namespace vellant::mapx {

namespace {

// The desktop's fonts run from 1 to 2048 points and weigh from 1 to 1000.
constexpr double kLargestPointSize = 2048;
constexpr std::int16_t kHeaviestWeight = 1000;

} // namespace

void StyleFont::setBold(bool value) {
    core_->assign(font().weight, value ? kBoldWeight : kNormalWeight);
}

void StyleFont::setSize(double value) {
    if (!std::isfinite(value) || value <= 0 || value > kLargestPointSize)
        raiseError(kErrInvalidProperty);
    core_->assign(font().size, value);
}

void StyleFont::setWeight(std::int16_t value) {
    if (value < 0 || value > kHeaviestWeight) raiseError(kErrInvalidProperty);
    core_->assign(font().weight, value);
}

} // namespace vellant::mapx
