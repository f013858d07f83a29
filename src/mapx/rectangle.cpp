#include "mapx/rectangle.h"

#include <algorithm>

namespace vellant::mapx {

void Rectangle::Set(double x1, double y1, double x2, double y2) {
    box_ = {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

} // namespace vellant::mapx
