#include "engine/render/object_painter.h"

#include "engine/lang/style_clause.h"
#include "engine/render/symbol_shapes.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace vellant::engine {

namespace {

const std::string kPen = kInitialPen;
const std::string kBrush = kInitialBrush;
const std::string kSymbol = kInitialSymbol;
const std::string kFont = kInitialFont;

// Fonts larger than this many pixels are drawn at this size: a text object zoomed in far
// would otherwise ask for glyphs of thousands of pixels.
constexpr double kLargestTextPixels = 2000;

bool isLinear(ObjectKind kind) {
    return kind == ObjectKind::Line || kind == ObjectKind::Polyline || kind == ObjectKind::Arc;
}

bool isClosed(const std::vector<MapPoint>& part) {
    return part.size() >= 4 && part.front() == part.back();
}

double signedArea(const std::vector<MapPoint>& ring, MapPoint& centroid) {
    double area = 0, cx = 0, cy = 0;
    for (std::size_t i = 0, n = ring.size(); i < n; ++i) {
        const MapPoint& a = ring[i];
        const MapPoint& b = ring[(i + 1) % n];
        const double cross = a.x * b.y - b.x * a.y;
        area += cross;
        cx += (a.x + b.x) * cross;
        cy += (a.y + b.y) * cross;
    }
    area /= 2;
    if (area != 0) centroid = {cx / (6 * area), cy / (6 * area)};
    return area;
}

} // namespace

QPolygonF toPixels(const std::vector<MapPoint>& points, const ViewTransform& view) {
    // Within a pixel of the last point kept, a point moves the outline by less than the
    // anti-aliasing blurs it.
    constexpr double kMinStep = 1.0;
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QPointF p = view.toPixel(points[i]);
        if (!polygon.isEmpty() && i + 1 < points.size()) {
            const QPointF& last = polygon.back();
            if (std::abs(p.x() - last.x()) < kMinStep && std::abs(p.y() - last.y()) < kMinStep)
                continue;
        }
        polygon.push_back(p);
    }
    return polygon;
}

bool insideRings(const std::vector<std::vector<MapPoint>>& rings, MapPoint p) {
    bool inside = false;
    for (const auto& ring : rings) {
        const std::size_t n = ring.size();
        if (n < 3) continue;
        for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
            const MapPoint& a = ring[i];
            const MapPoint& b = ring[j];
            if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) {
                inside = !inside;
            }
        }
    }
    return inside;
}

std::optional<MapPoint> regionCentre(const std::vector<std::vector<MapPoint>>& rings) {
    double largest = -1;
    MapPoint centre;
    bool found = false;
    for (const auto& ring : rings) {
        if (ring.size() < 3) continue;
        MapPoint c = ring.front();
        const double area = std::abs(signedArea(ring, c));
        if (area > largest) {
            largest = area;
            centre = c;
            found = true;
        }
    }
    if (!found) return std::nullopt;
    if (insideRings(rings, centre)) return centre;
    // The widest span inside the region along the centroid's row.
    std::vector<double> crossings;
    for (const auto& ring : rings) {
        const std::size_t n = ring.size();
        for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
            const MapPoint& a = ring[i];
            const MapPoint& b = ring[j];
            if ((a.y > centre.y) != (b.y > centre.y)) {
                crossings.push_back((b.x - a.x) * (centre.y - a.y) / (b.y - a.y) + a.x);
            }
        }
    }
    std::sort(crossings.begin(), crossings.end());
    double best = -1;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        if (crossings[i + 1] - crossings[i] > best) {
            best = crossings[i + 1] - crossings[i];
            centre.x = (crossings[i] + crossings[i + 1]) / 2;
        }
    }
    return centre;
}

ObjectPainter::ObjectPainter(QPainter& painter, const ViewTransform& view,
                             const RenderOptions& options)
    : painter_(painter), view_(view), options_(options) {}

void ObjectPainter::setLayer(const Layer& layer) {
    layer_ = &layer;
    global_ = layer.display == LayerDisplay::Global;
}

const std::string& ObjectPainter::penClause(const MapObject& object) const {
    if (global_) return isLinear(object.kind) ? layer_->globalLine : layer_->globalPen;
    return object.pen.empty() ? kPen : object.pen;
}
const std::string& ObjectPainter::brushClause(const MapObject& object) const {
    if (global_) return layer_->globalBrush;
    return object.brush.empty() ? kBrush : object.brush;
}
const std::string& ObjectPainter::symbolClause(const MapObject& object) const {
    if (global_) return layer_->globalSymbol;
    return object.symbol.empty() ? kSymbol : object.symbol;
}
const std::string& ObjectPainter::fontClause(const MapObject& object) const {
    if (global_) return layer_->globalFont;
    return object.font.empty() ? kFont : object.font;
}

QRectF ObjectPainter::pixelBox(const std::vector<MapPoint>& corners) const {
    const QPointF a = view_.toPixel(corners.front());
    const QPointF b = view_.toPixel(corners.size() > 1 ? corners[1] : corners.front());
    return QRectF(a, b).normalized();
}

void ObjectPainter::draw(const MapGeometry& geometry, bool selected) {
    const MapObject& object = *geometry.object;
    const auto& parts = geometry.parts;
    auto firstNonEmpty = [&]() -> const std::vector<MapPoint>* {
        for (const auto& part : parts)
            if (!part.empty()) return &part;
        return nullptr;
    };
    switch (object.kind) {
    case ObjectKind::Region: {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        std::vector<QPolygonF> rings;
        for (const auto& ring : parts) {
            if (ring.size() < 2) continue;
            rings.push_back(toPixels(ring, view_));
            path.addPolygon(rings.back());
            path.closeSubpath();
        }
        drawArea(path, object, selected);
        if (layer_->nodes) drawNodes(rings);
        if (layer_->centroids) drawCentroid(geometry);
        break;
    }
    case ObjectKind::Rect:
    case ObjectKind::RoundedRect:
    case ObjectKind::Ellipse:
    case ObjectKind::Frame: {
        const auto* corners = firstNonEmpty();
        if (corners == nullptr) return;
        const QRectF box = pixelBox(*corners);
        QPainterPath path;
        if (object.kind == ObjectKind::Ellipse) {
            path.addEllipse(box);
        } else if (object.kind == ObjectKind::RoundedRect) {
            // The corner radius is not kept with the object: a tenth of the shorter side.
            const double radius = std::min(box.width(), box.height()) / 10;
            path.addRoundedRect(box, radius, radius);
        } else {
            path.addRect(box);
        }
        if (object.kind == ObjectKind::Frame) {
            painter_.strokePath(path, qtPen(styles_.pen(penClause(object)), options_.dpi));
        } else {
            drawArea(path, object, selected);
        }
        break;
    }
    case ObjectKind::Line:
    case ObjectKind::Polyline:
    case ObjectKind::Arc: {
        std::vector<QPolygonF> sections;
        for (const auto& section : parts) {
            if (section.size() >= 2) sections.push_back(toPixels(section, view_));
        }
        drawLines(sections, object, selected);
        if (layer_->nodes) drawNodes(sections);
        if (layer_->arrows) drawArrows(sections);
        break;
    }
    case ObjectKind::Point:
    case ObjectKind::MultiPoint:
        for (const auto& part : parts) {
            for (const MapPoint& p : part)
                drawPoint(view_.toPixel(p), object, selected);
        }
        break;
    case ObjectKind::Text:
        drawText(geometry, selected);
        break;
    case ObjectKind::Collection: {
        QPainterPath area;
        area.setFillRule(Qt::OddEvenFill);
        std::vector<QPolygonF> sections;
        for (const auto& part : parts) {
            if (isClosed(part)) {
                area.addPolygon(toPixels(part, view_));
                area.closeSubpath();
            } else if (part.size() >= 2) {
                sections.push_back(toPixels(part, view_));
            }
        }
        if (!area.isEmpty()) drawArea(area, object, selected);
        if (!sections.empty()) drawLines(sections, object, selected);
        for (const auto& part : parts) {
            if (part.size() == 1) drawPoint(view_.toPixel(part.front()), object, selected);
        }
        break;
    }
    }
}

void ObjectPainter::drawArea(const QPainterPath& path, const MapObject& object, bool selected) {
    const FillBrushes brushes = qtBrush(styles_.brush(brushClause(object)));
    const QPen pen = qtPen(styles_.pen(penClause(object)), options_.dpi);
    // Under a visible outline the fill is drawn without anti-aliasing: the smooth outline
    // covers its edge, and a smoothed fill of a detailed coast costs about twice a plain one.
    // A hatch is always filled so, as the host fills it (Qt smooths a texture fill span by
    // span, several times the cost of a solid one).
    const bool outlined = pen.style() != Qt::NoPen;
    if (outlined || brushes.fore.style() == Qt::TexturePattern) {
        painter_.setRenderHint(QPainter::Antialiasing, false);
        if (brushes.back.style() != Qt::NoBrush) painter_.fillPath(path, brushes.back);
        painter_.fillPath(path, brushes.fore);
        painter_.setRenderHint(QPainter::Antialiasing, true);
        painter_.strokePath(path, pen);
    } else {
        if (brushes.back.style() != Qt::NoBrush) painter_.fillPath(path, brushes.back);
        painter_.setPen(pen);
        painter_.setBrush(brushes.fore);
        painter_.drawPath(path);
    }
    if (selected) {
        painter_.setPen(QPen(options_.highlight, 2));
        painter_.setBrush(QBrush(options_.highlight, Qt::DiagCrossPattern));
        painter_.drawPath(path);
    }
    painter_.setBrush(Qt::NoBrush);
}

void ObjectPainter::drawLines(const std::vector<QPolygonF>& sections, const MapObject& object,
                              bool selected) {
    QPen pen = qtPen(styles_.pen(penClause(object)), options_.dpi);
    if (selected) {
        // The line in the highlight colour, at least a little heavier than it was.
        pen = QPen(options_.highlight, std::max(pen.widthF() + 1, 3.0), Qt::SolidLine, Qt::RoundCap,
                   Qt::RoundJoin);
    }
    if (pen.style() == Qt::NoPen) return;
    painter_.setPen(pen);
    painter_.setBrush(Qt::NoBrush);
    for (const QPolygonF& section : sections)
        painter_.drawPolyline(section);
}

void ObjectPainter::drawPoint(QPointF at, const MapObject& object, bool selected) {
    SymbolStyle symbol = styles_.symbol(symbolClause(object));
    if (selected) {
        symbol.color = options_.highlight.red() * 65536 + options_.highlight.green() * 256 +
                       options_.highlight.blue();
        if (symbol.kind == SymbolKind::Vector && symbol.shape <= 31) symbol.shape = 34;
        const double h = symbolPixelSize(symbol, options_.dpi) / 2 + 2;
        painter_.setPen(QPen(options_.highlight, 1.5));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(QRectF(at.x() - h, at.y() - h, 2 * h, 2 * h));
    }
    drawSymbol(painter_, at, symbol, options_.dpi);
}

void ObjectPainter::drawText(const MapGeometry& geometry, bool selected) {
    const MapObject& object = *geometry.object;
    if (geometry.parts.empty() || geometry.parts.front().empty()) return;
    const QRectF box = pixelBox(geometry.parts.front());
    const FontStyle& font = styles_.font(fontClause(object));
    // A text object on a map fills its box at the map's zoom, whatever point size its font
    // clause names: it grows and shrinks with the map, as the host draws it. The characters are
    // as tall as the box; a text too long for an unturned box is made smaller to fit it.
    const QString text = QString::fromStdString(object.text);
    double pixelSize = box.height();
    if (pixelSize < 0.5) return; // smaller than a pixel: the host shows nothing either
    pixelSize = std::min(pixelSize, kLargestTextPixels);
    const QFontMetricsF unscaled(qtFont(font, pixelSize));
    double scale = box.height() / unscaled.height();
    const double advance = unscaled.horizontalAdvance(text);
    if (object.angle == 0 && advance * scale > box.width() && box.width() > 0)
        scale = box.width() / advance;
    pixelSize = std::min(pixelSize * scale, kLargestTextPixels);
    if (pixelSize < 0.5) return;
    // The box's bottom is the bottom of the characters: the baseline sits a descent above it.
    // A turned text turns about the box's lower-left corner.
    const QFontMetricsF metrics(qtFont(font, pixelSize));
    const QPointF corner(box.left(), box.bottom());
    const QPointF baseline(0, -metrics.descent());
    painter_.save();
    painter_.translate(corner);
    if (object.angle != 0) painter_.rotate(-object.angle);
    drawStyledText(painter_, baseline, text, font, pixelSize);
    if (selected) {
        painter_.setPen(QPen(options_.highlight, 1.5));
        painter_.setBrush(Qt::NoBrush);
        const QRectF drawn(0, baseline.y() - metrics.ascent(), metrics.horizontalAdvance(text),
                           metrics.height());
        painter_.drawRect(drawn.adjusted(-2, -2, 2, 2));
    }
    painter_.restore();
}

void ObjectPainter::drawNodes(const std::vector<QPolygonF>& parts) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(Qt::NoBrush);
    for (const QPolygonF& part : parts) {
        for (const QPointF& p : part)
            painter_.fillRect(QRectF(p.x() - 2, p.y() - 2, 4, 4), Qt::black);
    }
}

void ObjectPainter::drawArrows(const std::vector<QPolygonF>& sections) {
    painter_.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    constexpr double kSize = 4;
    for (const QPolygonF& section : sections) {
        for (qsizetype i = 0; i + 1 < section.size(); ++i) {
            const QPointF a = section[i];
            const QPointF b = section[i + 1];
            const QPointF d = b - a;
            const double length = std::hypot(d.x(), d.y());
            if (length < 3 * kSize) continue; // too short to carry a chevron
            const QPointF u = d / length;
            const QPointF n(-u.y(), u.x());
            const QPointF tip = (a + b) / 2 + u * (kSize / 2);
            const QPointF back = tip - u * kSize;
            painter_.drawPolyline(QPolygonF({back + n * kSize, tip, back - n * kSize}));
        }
    }
}

void ObjectPainter::drawCentroid(const MapGeometry& geometry) {
    const auto centre = regionCentre(geometry.parts);
    if (!centre) return;
    // A small plus of two-pixel bars, on whole pixels so that it stays crisp.
    const QPointF p = view_.toPixel(*centre);
    const double x = std::round(p.x()), y = std::round(p.y());
    painter_.fillRect(QRectF(x - 3, y - 1, 6, 2), Qt::black);
    painter_.fillRect(QRectF(x - 1, y - 3, 2, 6), Qt::black);
}

} // namespace vellant::engine
