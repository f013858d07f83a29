#include "qtui/host/map_navigation.h"

#include "engine/render/map_renderer.h"
#include "engine/windows/map_view.h"
#include "engine/windows/window.h"

#include <algorithm>
#include <cmath>

namespace vellant::qtui {

namespace {

constexpr double kMetresPerInch = 0.0254;
// Refinement steps of placePointAt; one suffices off longitude/latitude, three land within a
// fraction of a pixel for any move a mouse makes.
constexpr int kPlacementSteps = 4;

} // namespace

engine::MapPoint mapPointAt(const engine::Window& window, QPointF pixel, QSizeF pictureSize) {
    return engine::MapRenderer::transformFor(window, pictureSize).toMap(pixel);
}

void placePointAt(engine::Window& window, const engine::MapPoint& point, QPointF pixel,
                  QSizeF pictureSize) {
    engine::MapState& map = *window.map;
    for (int step = 0; step < kPlacementSteps; ++step) {
        const engine::ViewTransform view = engine::MapRenderer::transformFor(window, pictureSize);
        const QPointF landed = view.toPixel(point);
        const QPointF miss = pixel - landed;
        if (std::abs(miss.x()) < 1e-6 && std::abs(miss.y()) < 1e-6) return;
        const double scale = view.pixelsPerMapUnit();
        if (!(scale > 0) || !std::isfinite(scale)) return;
        map.centreX -= miss.x() / scale;
        map.centreY += miss.y() / scale;
    }
}

void zoomAbout(engine::Window& window, QPointF pixel, QSizeF pictureSize, double factor) {
    if (!(factor > 0)) return;
    const engine::MapPoint anchor = mapPointAt(window, pixel, pictureSize);
    window.map->zoomMetres /= factor;
    placePointAt(window, anchor, pixel, pictureSize);
}

void zoomAt(engine::Window& window, QPointF pixel, QSizeF pictureSize, double factor) {
    if (!(factor > 0)) return;
    const engine::MapPoint target = mapPointAt(window, pixel, pictureSize);
    window.map->zoomMetres /= factor;
    const QPointF middle(pictureSize.width() / 2, pictureSize.height() / 2);
    placePointAt(window, target, middle, pictureSize);
}

void zoomToPixels(engine::Window& window, const QRectF& box, QSizeF pictureSize) {
    const QRectF wanted = box.normalized();
    if (wanted.width() < 1 || wanted.height() < 1) return;
    // The picture grows to show all of it: the tighter of the two directions decides.
    const double factor =
        std::min(pictureSize.width() / wanted.width(), pictureSize.height() / wanted.height());
    zoomAt(window, wanted.center(), pictureSize, factor);
}

double scaleDenominator(const engine::Window& window, QSizeF pictureSize, double dpi) {
    const engine::ViewTransform view = engine::MapRenderer::transformFor(window, pictureSize);
    const double groundPerPixel = engine::metresPerMapUnit(*window.map) / view.pixelsPerMapUnit();
    const double screenPerPixel = kMetresPerInch / dpi;
    return groundPerPixel / screenPerPixel;
}

} // namespace vellant::qtui
