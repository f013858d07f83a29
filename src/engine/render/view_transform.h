#pragma once
// Where a map window's view lands on a picture. The view is the window's centre and zoom at
// the window's own size (its placement, in inches); on a picture of another shape the box
// grows in x or in y so that the whole view shows and map units stay square.

#include "engine/map_object.h"
#include "engine/tables/table.h"

#include <QPointF>
#include <QSizeF>

namespace vellant::engine {

struct MapState;

class ViewTransform {
public:
    ViewTransform(const MapState& map, double windowWidthInches, double windowHeightInches,
                  QSizeF pixels);

    QPointF toPixel(double x, double y) const {
        return {(x - box_.minX) * scale_, (box_.maxY - y) * scale_};
    }
    QPointF toPixel(const MapPoint& p) const { return toPixel(p.x, p.y); }
    MapPoint toMap(QPointF pixel) const {
        return {box_.minX + pixel.x() / scale_, box_.maxY - pixel.y() / scale_};
    }
    // The map area the picture shows, in the map's coordinate system.
    const Bounds& box() const { return box_; }
    double pixelsPerMapUnit() const { return scale_; }
    QSizeF pixels() const { return pixels_; }

private:
    Bounds box_;
    double scale_ = 1;
    QSizeF pixels_;
};

} // namespace vellant::engine
