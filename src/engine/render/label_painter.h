#pragma once
// The labels of a map's layers with automatic labels on: the label expression evaluated per
// object, placed at the anchor position with its offset, parallel to lines when asked, in the
// label font; a label that would overlap one already placed is left out unless the layer
// allows overlap. Labels are drawn after all layers, so no object covers them.
//
// Anchors: a region's interior point near its centroid, the middle of a line's longest
// section, a point itself; text objects get no label. Labels edited by hand (Set Map ... Label
// Object n) override the layer's settings for their row; a label moved away from its object by
// an edit gets the layer's call-out line. Anchors of edits are in the map's coordinates, as a
// workspace writes them after the map's CoordSys.

#include "engine/mb_error.h"
#include "engine/render/geometry_cache.h"
#include "engine/render/map_renderer.h"
#include "engine/render/view_transform.h"
#include "engine/windows/layer.h"

#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class Engine;

// Where a label goes relative to its object, before the text is measured: the anchor in
// pixels and the angle of the text in degrees, counter-clockwise as the host measures angles.
struct LabelAnchor {
    QPointF pixel;
    double angle = 0;
};

// A label that was drawn.
struct PlacedLabel {
    std::string layer;
    std::int64_t row = 0;
    std::string text;
    QPolygonF outline; // the text box (with its halo or box margin) in pixels
};

class LabelPainter {
public:
    // zoomMetres: the map's zoom, for label zoom ranges.
    LabelPainter(Engine& engine, QPainter& painter, const ViewTransform& view,
                 const RenderOptions& options, double zoomMetres);

    // One layer's labels; a label expression that cannot be evaluated is reported once.
    void drawLayer(const Layer& layer, const Table& table, const LayerGeometry& geometry,
                   RenderReport& report);

    // Every label drawn so far, in drawing order.
    const std::vector<PlacedLabel>& placed() const { return placed_; }

    // Whether the layer's labels show at the map's zoom (label visibility and auto labels
    // aside from labels turned on one by one).
    static bool labelsVisibleAt(const LabelSettings& label, double zoomMetres);

    // The anchor of an object in map coordinates (nullopt for objects without a label: text,
    // no points, coordinates that are not finite), and, for lines, the angle of the section
    // there in map units (degrees, counter-clockwise).
    struct MapAnchor {
        MapPoint point;
        std::optional<double> lineAngle;
    };
    static std::optional<MapAnchor> anchorOf(const MapGeometry& object);

private:
    struct Candidate;
    // The text of each labelled row, or nullopt after reporting the expression's error.
    std::optional<std::vector<std::string>> labelTexts(const Layer& layer, const Table& table,
                                                       const std::vector<const MapGeometry*>& rows,
                                                       RenderReport& report);
    bool place(const Layer& layer, const Candidate& candidate);

    Engine& engine_;
    QPainter& painter_;
    const ViewTransform& view_;
    RenderOptions options_;
    double zoomMetres_;
    std::vector<QPolygonF> taken_; // the outlines of labels placed so far
    std::vector<PlacedLabel> placed_;
};

} // namespace vellant::engine
