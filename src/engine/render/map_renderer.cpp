#include "engine/render/map_renderer.h"

#include "engine/engine.h"
#include "engine/lang/style_clause.h"
#include "engine/render/geometry_cache.h"
#include "engine/render/gui_application.h"
#include "engine/render/label_painter.h"
#include "engine/render/object_painter.h"
#include "engine/render/raster_images.h"
#include "engine/render/style_painter.h"
#include "engine/render/symbol_shapes.h"
#include "engine/tables/catalog.h"
#include "engine/tables/query_table.h"
#include "engine/tables/raster_table.h"
#include "engine/windows/window.h"
#include "engine/windows/window_manager.h"

#include <QPainter>
#include <algorithm>
#include <cctype>
#include <cmath>

namespace vellant::engine {

namespace {

// How far from a line or point a click still counts, in pixels.
constexpr double kHitPixels = 3;
// Symbols and wide pens reach past an object's bounds; objects this many pixels outside the
// picture are still drawn.
constexpr double kCullMarginPixels = 64;

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

bool meets(const Bounds& a, const Bounds& b) {
    return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

Bounds grown(const Bounds& b, double by) {
    return {b.minX - by, b.minY - by, b.maxX + by, b.maxY + by};
}

// Whether a layer's table is the selection's table or reads through to it (a query of it).
bool showsSelectionTable(const Table& table, const Selection& selection) {
    if (selection.empty()) return false;
    for (const Table* t = &table; t != nullptr; t = t->baseTable()) {
        if (sameName(t->name(), selection.table)) return true;
    }
    return false;
}

// Whether a row of the layer's table stands for a selected base row.
bool isSelected(const Table& table, std::int64_t row, const Selection& selection) {
    const Table* t = &table;
    while (t != nullptr && row > 0) {
        if (sameName(t->name(), selection.table)) return selection.contains(row);
        const auto* query = dynamic_cast<const QueryTable*>(t);
        if (query == nullptr) return false;
        row = query->baseRow(row);
        t = query->baseTable();
    }
    return false;
}

double distanceToSegment(MapPoint p, MapPoint a, MapPoint b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0;
    t = std::clamp(t, 0.0, 1.0);
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

bool nearLine(const std::vector<MapPoint>& line, MapPoint p, double tolerance) {
    if (line.size() == 1) return std::hypot(p.x - line[0].x, p.y - line[0].y) <= tolerance;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        if (distanceToSegment(p, line[i], line[i + 1]) <= tolerance) return true;
    }
    return false;
}

bool inBox(const std::vector<MapPoint>& corners, MapPoint p, bool ellipse) {
    if (corners.empty()) return false;
    const MapPoint a = corners.front();
    const MapPoint b = corners.size() > 1 ? corners[1] : a;
    const double minX = std::min(a.x, b.x), maxX = std::max(a.x, b.x);
    const double minY = std::min(a.y, b.y), maxY = std::max(a.y, b.y);
    if (p.x < minX || p.x > maxX || p.y < minY || p.y > maxY) return false;
    if (!ellipse) return true;
    const double rx = (maxX - minX) / 2, ry = (maxY - minY) / 2;
    if (rx <= 0 || ry <= 0) return false;
    const double u = (p.x - (minX + rx)) / rx, v = (p.y - (minY + ry)) / ry;
    return u * u + v * v <= 1;
}

// Whether a point (map units) falls on an object: regions by odd-even containment, boxes by
// their box, lines within the tolerance, points within their symbol.
bool hits(const MapGeometry& geometry, MapPoint p, double tolerance, double symbolRadius) {
    const auto& parts = geometry.parts;
    switch (geometry.object->kind) {
    case ObjectKind::Region:
        if (insideRings(parts, p)) return true;
        return std::any_of(parts.begin(), parts.end(),
                           [&](const auto& ring) { return nearLine(ring, p, tolerance); });
    case ObjectKind::Rect:
    case ObjectKind::RoundedRect:
    case ObjectKind::Frame:
    case ObjectKind::Text:
        return !parts.empty() && inBox(parts.front(), p, false);
    case ObjectKind::Ellipse:
        return !parts.empty() && inBox(parts.front(), p, true);
    case ObjectKind::Line:
    case ObjectKind::Polyline:
    case ObjectKind::Arc:
        return std::any_of(parts.begin(), parts.end(),
                           [&](const auto& line) { return nearLine(line, p, tolerance); });
    case ObjectKind::Point:
    case ObjectKind::MultiPoint:
        for (const auto& part : parts) {
            for (const MapPoint& q : part) {
                if (std::hypot(p.x - q.x, p.y - q.y) <= std::max(tolerance, symbolRadius))
                    return true;
            }
        }
        return false;
    case ObjectKind::Collection: {
        std::vector<std::vector<MapPoint>> rings;
        for (const auto& part : parts) {
            if (part.size() >= 4 && part.front() == part.back()) {
                rings.push_back(part);
            } else if (part.size() == 1) {
                if (std::hypot(p.x - part[0].x, p.y - part[0].y) <=
                    std::max(tolerance, symbolRadius))
                    return true;
            } else if (nearLine(part, p, tolerance)) {
                return true;
            }
        }
        return insideRings(rings, p);
    }
    }
    return false;
}

// A raster table's image drawn into its bounds on the map. The registration is taken as a
// box: a rotated or sheared registration, or one in another projection, is drawn into the
// box of its transformed corners rather than warped.
void drawRaster(QPainter& painter, const ViewTransform& view, const RasterTable& raster,
                const CoordSys& mapCoordSys, CoordTransformCache& transforms, RasterImages& images,
                RenderReport& report) {
    const auto bounds = raster.bounds();
    if (!bounds) {
        report.problems.emplace_back(kMbCantAccessFile,
                                     "Image table " + raster.name() + " has no registration.");
        return;
    }
    Bounds box = *bounds;
    try {
        const CoordSys tableCoordSys = parseCoordSys(raster.coordSysClause());
        const CoordTransform& transform = transforms.between(tableCoordSys, mapCoordSys);
        if (transform.isIdentity() && tableCoordSys.earth && mapCoordSys.earth &&
            !tableCoordSys.sameSystem(mapCoordSys)) {
            raiseMb(kMbCmdNotSupported, "Table " + raster.name() +
                                            " cannot be shown: its CoordSys cannot be "
                                            "transformed to the map's.");
        }
        if (!transform.isIdentity()) {
            const MapPoint corners[] = {{box.minX, box.minY},
                                        {box.maxX, box.minY},
                                        {box.maxX, box.maxY},
                                        {box.minX, box.maxY}};
            bool first = true;
            for (MapPoint c : corners) {
                if (!transform.apply(c.x, c.y)) {
                    raiseMb(kMbCmdNotSupported,
                            "Table " + raster.name() + " lies outside the map's projection.");
                }
                if (first) {
                    box = {c.x, c.y, c.x, c.y};
                    first = false;
                }
                box = {std::min(box.minX, c.x), std::min(box.minY, c.y), std::max(box.maxX, c.x),
                       std::max(box.maxY, c.y)};
            }
        }
    } catch (const MbError& error) {
        report.problems.push_back(error);
        return;
    }
    if (!meets(box, view.box())) return;
    std::string error;
    const QImage& image = images.image(raster.imagePath(), error);
    if (image.isNull()) {
        report.problems.emplace_back(kMbCantAccessFile,
                                     "Unable to open image " + raster.imagePath() + ": " + error);
        return;
    }
    const QRectF target =
        QRectF(view.toPixel(box.minX, box.maxY), view.toPixel(box.maxX, box.minY)).normalized();
    painter.drawImage(target, image);
}

} // namespace

MapRenderer::MapRenderer(Engine& engine)
    : engine_(engine), geometry_(std::make_unique<GeometryCache>(engine.windows().transforms())),
      images_(std::make_unique<RasterImages>()) {
    // A closed table's address may be taken by the next table opened: its geometry goes now.
    closingToken_ =
        engine.catalog().tableClosing.add([this](const Table& table) { geometry_->forget(table); });
}

MapRenderer::~MapRenderer() {
    engine_.catalog().tableClosing.remove(closingToken_);
}

ViewTransform MapRenderer::transformFor(const Window& window, QSizeF pixels) {
    return ViewTransform(*window.map, window.placement.width, window.placement.height, pixels);
}

bool MapRenderer::layerShows(const Layer& layer, double zoomMetres) {
    if (layer.display == LayerDisplay::Off) return false;
    if (layer.zoom.on && (zoomMetres < layer.zoom.minMetres || zoomMetres > layer.zoom.maxMetres))
        return false;
    return true;
}

const Table* MapRenderer::layerTable(const Layer& layer, RenderReport& report) const {
    const Table* table = engine_.catalog().find(layer.name);
    if (table == nullptr) {
        report.problems.emplace_back(kMbTableNotFound, "Table " + layer.name + " is not open.");
    }
    return table;
}

LayerGeometry MapRenderer::cosmeticGeometry(const Window& window) {
    LayerGeometry geometry;
    const auto& objects = window.map->cosmeticObjects;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (!objects[i]) continue;
        MapGeometry g;
        g.row = static_cast<std::int64_t>(i + 1);
        g.object = objects[i];
        g.parts = objects[i]->parts;
        bool first = true;
        for (const auto& part : g.parts) {
            for (const MapPoint& p : part) {
                if (first) {
                    g.bounds = {p.x, p.y, p.x, p.y};
                    first = false;
                }
                g.bounds = {std::min(g.bounds.minX, p.x), std::min(g.bounds.minY, p.y),
                            std::max(g.bounds.maxX, p.x), std::max(g.bounds.maxY, p.y)};
            }
        }
        if (first) continue;
        geometry.objects.push_back(std::move(g));
    }
    return geometry;
}

RenderReport MapRenderer::draw(const Window& window, QImage& image, const RenderOptions& options) {
    ensureGuiApplication();
    RenderReport report;
    image.fill(options.background);
    if (!window.map) {
        report.problems.emplace_back(kMbWantMapperWindow, "Window " + std::to_string(window.id()) +
                                                              " is not a Map window.");
        return report;
    }
    // A window sized to nothing has no picture to paint on.
    if (image.isNull()) return report;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const MapState& map = *window.map;
    const ViewTransform view = transformFor(window, QSizeF(image.size()));
    const Bounds visible = grown(view.box(), kCullMarginPixels / view.pixelsPerMapUnit());
    const Selection& selection = engine_.catalog().selection();
    ObjectPainter objects(painter, view, options);

    struct Drawn {
        const Layer* layer;
        const Table* table;
        const LayerGeometry* geometry;
    };
    std::vector<Drawn> drawn; // bottom first
    auto drawLayer = [&](const Layer& layer, const Table& table, const LayerGeometry& geometry) {
        objects.setLayer(layer);
        const bool withSelection = showsSelectionTable(table, selection);
        for (const MapGeometry& object : geometry.objects) {
            if (!meets(object.bounds, visible)) continue;
            objects.draw(object, withSelection && isSelected(table, object.row, selection));
        }
        drawn.push_back({&layer, &table, &geometry});
    };

    // Bottom of the list first; layers[0] is the top.
    for (auto it = map.layers.rbegin(); it != map.layers.rend(); ++it) {
        const Layer& layer = *it;
        if (!layerShows(layer, map.zoomMetres)) continue;
        const Table* table = layerTable(layer, report);
        if (table == nullptr) continue;
        if (const auto* raster = dynamic_cast<const RasterTable*>(table)) {
            drawRaster(painter, view, *raster, map.coordSys, engine_.windows().transforms(),
                       *images_, report);
            continue;
        }
        const LayerGeometry& geometry = geometry_->geometry(*table, map.coordSys);
        if (geometry.problem) report.problems.push_back(*geometry.problem);
        drawLayer(layer, *table, geometry);
    }

    LayerGeometry cosmetic;
    const Table* cosmeticTable = window.cosmeticTable();
    if (layerShows(map.cosmetic, map.zoomMetres) && map.hasCosmeticObjects()) {
        cosmetic = cosmeticGeometry(window);
        if (cosmeticTable != nullptr) {
            drawLayer(map.cosmetic, *cosmeticTable, cosmetic);
        } else {
            objects.setLayer(map.cosmetic);
            for (const MapGeometry& object : cosmetic.objects) {
                if (meets(object.bounds, visible)) objects.draw(object, false);
            }
        }
    }

    // Labels go over every object. The top layer's labels are placed first, so where labels
    // would overlap, the upper layer's win.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::NoBrush);
    LabelPainter labels(engine_, painter, view, options, map.zoomMetres);
    for (auto it = drawn.rbegin(); it != drawn.rend(); ++it) {
        if (it->layer->label.visibility == LabelVisibility::Off) continue;
        labels.drawLayer(*it->layer, *it->table, *it->geometry, report);
    }
    return report;
}

QImage MapRenderer::picture(const Window& window, QSize pixels, const RenderOptions& options) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    draw(window, image, options);
    return image;
}

std::optional<MapHit> MapRenderer::objectAt(const Window& window, QSize pixels, QPointF pixel,
                                            bool selectableOnly, const RenderOptions& options) {
    if (!window.map || pixels.isEmpty()) return std::nullopt;
    const MapState& map = *window.map;
    const ViewTransform view = transformFor(window, QSizeF(pixels));
    const double perPixel = 1 / view.pixelsPerMapUnit();
    const MapPoint at = view.toMap(pixel);
    const double tolerance = kHitPixels * perPixel;
    StyleBook styles;

    auto search = [&](const Layer& layer,
                      const LayerGeometry& geometry) -> std::optional<std::int64_t> {
        const bool global = layer.display == LayerDisplay::Global;
        for (auto it = geometry.objects.rbegin(); it != geometry.objects.rend(); ++it) {
            const std::string& clause =
                global ? layer.globalSymbol
                       : (it->object->symbol.empty() ? std::string(kInitialSymbol)
                                                     : it->object->symbol);
            const double radius =
                symbolPixelSize(styles.symbol(clause), options.dpi) / 2 * perPixel;
            if (!meets(it->bounds, grown({at.x, at.y, at.x, at.y}, tolerance + radius))) continue;
            if (hits(*it, at, tolerance, radius)) return it->row;
        }
        return std::nullopt;
    };
    auto eligible = [&](const Layer& layer) {
        return layerShows(layer, map.zoomMetres) && (!selectableOnly || layer.selectable);
    };

    // The cosmetic layer is drawn last, so it is the topmost.
    if (eligible(map.cosmetic) && map.hasCosmeticObjects()) {
        if (auto row = search(map.cosmetic, cosmeticGeometry(window))) {
            return MapHit{0, map.cosmetic.name, *row};
        }
    }
    for (std::size_t i = 0; i < map.layers.size(); ++i) {
        const Layer& layer = map.layers[i];
        if (!eligible(layer)) continue;
        const Table* table = engine_.catalog().find(layer.name);
        if (table == nullptr || table->isRaster()) continue;
        const LayerGeometry& geometry = geometry_->geometry(*table, map.coordSys);
        if (auto row = search(layer, geometry)) {
            return MapHit{static_cast<int>(i + 1), table->name(), *row};
        }
    }
    return std::nullopt;
}

} // namespace vellant::engine
