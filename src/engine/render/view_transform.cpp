#include "engine/render/view_transform.h"

#include "engine/windows/map_state.h"
#include "engine/windows/map_view.h"

#include <algorithm>

namespace vellant::engine {

ViewTransform::ViewTransform(const MapState& map, double windowWidthInches,
                             double windowHeightInches, QSizeF pixels)
    : pixels_(pixels) {
    const Bounds view = viewBounds(map, windowWidthInches, windowHeightInches);
    const double width = std::max(view.maxX - view.minX, 1e-12);
    const double height = std::max(view.maxY - view.minY, 1e-12);
    const double pxWidth = std::max(pixels.width(), 1.0);
    const double pxHeight = std::max(pixels.height(), 1.0);
    scale_ = std::min(pxWidth / width, pxHeight / height);
    const double halfWidth = pxWidth / scale_ / 2;
    const double halfHeight = pxHeight / scale_ / 2;
    const double cx = (view.minX + view.maxX) / 2;
    const double cy = (view.minY + view.maxY) / 2;
    box_ = Bounds{cx - halfWidth, cy - halfHeight, cx + halfWidth, cy + halfHeight};
}

} // namespace vellant::engine
