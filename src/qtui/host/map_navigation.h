#pragma once
// Moving a map window's view the way the mouse does: keep a map point under a pixel, zoom about
// a pixel, fit a box of pixels, and the scale a view shows at the screen's resolution. The
// view is the window's centre and zoom; pixels are those of a picture of the given size, as
// MapRenderer::transformFor lays the view on it.

#include "engine/map_object.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace vellant::engine {
class Window;
}

namespace vellant::qtui {

// Moves the centre so that the map point lands on the pixel. On a longitude/latitude map the
// width of a degree depends on the centre's latitude, so the move is refined until it lands.
void placePointAt(engine::Window& window, const engine::MapPoint& point, QPointF pixel,
                  QSizeF pictureSize);

// Zooms by factor (above 1 shows more detail) keeping the map point under the pixel where it is.
void zoomAbout(engine::Window& window, QPointF pixel, QSizeF pictureSize, double factor);

// Centres the view on the pixel and zooms by factor.
void zoomAt(engine::Window& window, QPointF pixel, QSizeF pictureSize, double factor);

// Shows the box of pixels as large as the window allows.
void zoomToPixels(engine::Window& window, const QRectF& box, QSizeF pictureSize);

// The map point under a pixel.
engine::MapPoint mapPointAt(const engine::Window& window, QPointF pixel, QSizeF pictureSize);

// n of the scale 1:n: ground metres shown by one metre of screen at dpi pixels an inch.
double scaleDenominator(const engine::Window& window, QSizeF pictureSize, double dpi);

} // namespace vellant::qtui
