#pragma once
// Draws one map window as the host shows it: layers from the bottom of the list to the top,
// the cosmetic layer last, then the labels, into a QImage with QPainter (QtGui only, no
// widgets, so it runs headless). The screen's map windows and Save Window both draw here.
//
// Geometry is read from a table once and kept in the map's coordinates until the table or the
// map's coordinate system changes (see geometry_cache.h); only objects whose bounds meet the
// view are drawn.
//
// A layer that cannot be drawn (geometry that cannot be read, a coordinate system that cannot
// be transformed, a raster that does not open) is left out, the rest of the map is drawn, and
// the problem is reported as the host's error; Save Window raises the first one.

#include "engine/mb_error.h"
#include "engine/render/view_transform.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QSize>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class Engine;
class Window;
class GeometryCache;
class RasterImages;
class Table;
struct Layer;
struct LayerGeometry;

struct RenderOptions {
    // Points (pen widths, symbol and font sizes) become pixels at this resolution.
    double dpi = 96;
    // Screen windows show the map's background; style samples are saved on white as well.
    QColor background = Qt::white;
    // Selected objects: regions get a cross-hatched overlay and outline, lines and points
    // are drawn in this colour.
    QColor highlight = QColor(0, 0, 255);
};

struct RenderReport {
    // One entry a layer (or label set) that could not be drawn, in drawing order.
    std::vector<MbError> problems;
};

// The object a pixel of a picture falls on.
struct MapHit {
    int layer = 0;     // 1 the top; 0 the cosmetic layer
    std::string table; // the layer's table
    std::int64_t row = 0;
};

class MapRenderer {
public:
    explicit MapRenderer(Engine& engine);
    ~MapRenderer();
    MapRenderer(const MapRenderer&) = delete;
    MapRenderer& operator=(const MapRenderer&) = delete;

    // Draws the map window over the whole image, its view fitted to the image's size (see
    // ViewTransform). The window must be a map.
    RenderReport draw(const Window& window, QImage& image, const RenderOptions& options = {});

    // The picture as draw makes it, of that size.
    QImage picture(const Window& window, QSize pixels, const RenderOptions& options = {});

    // The view transform draw uses for a picture of that size.
    static ViewTransform transformFor(const Window& window, QSizeF pixels);

    // The topmost drawn object under a pixel of a picture of that size, on a visible layer
    // within its zoom range; selectableOnly skips layers that are not selectable.
    std::optional<MapHit> objectAt(const Window& window, QSize pixels, QPointF pixel,
                                   bool selectableOnly, const RenderOptions& options = {});

    GeometryCache& geometry() { return *geometry_; }

private:
    // The table a layer shows; nullptr (and a problem) when it is not open.
    const Table* layerTable(const Layer& layer, RenderReport& report) const;
    // Whether a layer shows at the map's zoom.
    static bool layerShows(const Layer& layer, double zoomMetres);
    // The cosmetic objects as geometry (they are in the map's system already).
    static LayerGeometry cosmeticGeometry(const Window& window);

    Engine& engine_;
    std::unique_ptr<GeometryCache> geometry_;
    std::unique_ptr<RasterImages> images_;
    int closingToken_ = 0;
};

} // namespace vellant::engine
