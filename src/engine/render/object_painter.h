#pragma once
// Draws the objects of one layer in map coordinates onto a picture: each object in its own
// style clauses (the host's initial style where it has none) or, with Display Global, in the
// layer's global styles; regions filled odd-even over all their rings; the layer's node,
// centroid and direction-arrow toggles; selected objects highlighted.

#include "engine/render/geometry_cache.h"
#include "engine/render/map_renderer.h"
#include "engine/render/style_painter.h"
#include "engine/render/view_transform.h"
#include "engine/windows/layer.h"

#include <QPainter>
#include <QPolygonF>
#include <optional>

namespace vellant::engine {

// A ring or section in pixels; points within a pixel of the one kept before are left out
// (they change nothing on the picture and a detailed coastline has thousands of them).
QPolygonF toPixels(const std::vector<MapPoint>& points, const ViewTransform& view);

// The point inside a region where its centroid mark goes: the centroid of its largest ring
// when that lies inside the region, otherwise the middle of the widest span across the region
// at the centroid's height.
std::optional<MapPoint> regionCentre(const std::vector<std::vector<MapPoint>>& rings);

// Odd-even containment over all rings of a region.
bool insideRings(const std::vector<std::vector<MapPoint>>& rings, MapPoint p);

class ObjectPainter {
public:
    ObjectPainter(QPainter& painter, const ViewTransform& view, const RenderOptions& options);

    // The layer whose objects follow: its display mode and toggles.
    void setLayer(const Layer& layer);
    void draw(const MapGeometry& geometry, bool selected);

    // The clauses an object is drawn with under the current layer.
    const std::string& penClause(const MapObject& object) const;
    const std::string& brushClause(const MapObject& object) const;
    const std::string& symbolClause(const MapObject& object) const;
    const std::string& fontClause(const MapObject& object) const;
    StyleBook& styles() { return styles_; }

private:
    void drawArea(const QPainterPath& path, const MapObject& object, bool selected);
    void drawLines(const std::vector<QPolygonF>& sections, const MapObject& object, bool selected);
    void drawPoint(QPointF at, const MapObject& object, bool selected);
    void drawText(const MapGeometry& geometry, bool selected);
    void drawNodes(const std::vector<QPolygonF>& parts);
    void drawArrows(const std::vector<QPolygonF>& sections);
    void drawCentroid(const MapGeometry& geometry);
    QRectF pixelBox(const std::vector<MapPoint>& corners) const;

    QPainter& painter_;
    const ViewTransform& view_;
    RenderOptions options_;
    const Layer* layer_ = nullptr;
    bool global_ = false;
    StyleBook styles_;
};

} // namespace vellant::engine
