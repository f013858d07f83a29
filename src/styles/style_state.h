#pragma once
// Module-wide state of styles and labels. Session inherits it.

#include <cstdint>
#include <string>

namespace vellant::styles {

struct StyleState {
    // The style at hand: MapBasic text on the MapInfo host.
    std::string gStyleValue;
    // The border pen of the last region style read.
    std::string gBorderPen;
    // The rows and kind of a style pick that waits for the companion.
    std::int32_t gPendFirst = 0;
    std::int32_t gPendLast = 0;
    std::int32_t gPendCol = 0;
};

} // namespace vellant::styles
