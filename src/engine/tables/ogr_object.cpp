#include "engine/tables/ogr_object.h"

#include "engine/mb_error.h"
#include "engine/tables/ogr_style.h"

#include <algorithm>
#include <cmath>
#include <ogr_geometry.h>

namespace vellant::engine {

namespace {

using Part = std::vector<MapPoint>;

Part pointsOf(const OGRSimpleCurve& curve) {
    Part part;
    part.reserve(static_cast<std::size_t>(std::max(curve.getNumPoints(), 0)));
    for (int i = 0; i < curve.getNumPoints(); ++i)
        part.push_back({curve.getX(i), curve.getY(i)});
    return part;
}

// All rings, sections and points of a linear geometry, in order.
void collectParts(const OGRGeometry& geometry, std::vector<Part>& parts) {
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint: {
        const auto& point = *geometry.toPoint();
        if (!point.IsEmpty()) parts.push_back({{point.getX(), point.getY()}});
        break;
    }
    case wkbLineString:
    case wkbLinearRing:
        if (!geometry.IsEmpty()) parts.push_back(pointsOf(*geometry.toSimpleCurve()));
        break;
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon()) {
            if (ring != nullptr && !ring->IsEmpty()) parts.push_back(pointsOf(*ring));
        }
        break;
    case wkbMultiPoint:
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
        for (const OGRGeometry* member : *geometry.toGeometryCollection()) {
            if (member != nullptr) collectParts(*member, parts);
        }
        break;
    default:
        break;
    }
}

ObjectKind kindOf(const OGRGeometry& geometry, const std::vector<Part>& parts, bool isLabel) {
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
        return isLabel ? ObjectKind::Text : ObjectKind::Point;
    case wkbLineString:
        return parts.size() == 1 && parts[0].size() == 2 ? ObjectKind::Line : ObjectKind::Polyline;
    case wkbMultiLineString:
        return ObjectKind::Polyline;
    case wkbPolygon:
    case wkbMultiPolygon:
        return ObjectKind::Region;
    case wkbMultiPoint:
        return ObjectKind::MultiPoint;
    default:
        return ObjectKind::Collection;
    }
}

// A text's box: the lower-left corner GDAL gives and the opposite corner, as wide as its
// characters at an average width of 0.6 of the height (GDAL does not pass the width on).
Part textBox(const MapPoint& corner, const OgrLabel& label) {
    const double height = label.height;
    const double width =
        height * 0.6 * static_cast<double>(std::max<std::size_t>(label.text.size(), 1));
    return {corner, {corner.x + width, corner.y + height}};
}

OGRLineString* lineString(const Part& part) {
    auto* line = new OGRLineString();
    for (const MapPoint& p : part)
        line->addPoint(p.x, p.y);
    return line;
}

OGRPolygon* polygon(const Part& ring) {
    auto* result = new OGRPolygon();
    auto* linear = new OGRLinearRing();
    for (const MapPoint& p : ring)
        linear->addPoint(p.x, p.y);
    linear->closeRings();
    result->addRingDirectly(linear);
    return result;
}

Part corners(const Part& part) {
    const MapPoint a = part.front();
    const MapPoint b = part.size() > 1 ? part[1] : part.front();
    return {{a.x, a.y}, {b.x, a.y}, {b.x, b.y}, {a.x, b.y}, {a.x, a.y}};
}

// An ellipse inside the box of its two defining points, as a ring of 72 sides.
Part ellipseRing(const Part& part) {
    const Part box = corners(part);
    const double cx = (box[0].x + box[2].x) / 2, cy = (box[0].y + box[2].y) / 2;
    const double rx = std::abs(box[2].x - box[0].x) / 2, ry = std::abs(box[2].y - box[0].y) / 2;
    Part ring;
    for (int i = 0; i <= 72; ++i) {
        const double angle = 2 * M_PI * i / 72;
        ring.push_back({cx + rx * std::cos(angle), cy + ry * std::sin(angle)});
    }
    return ring;
}

std::string joinStyles(std::initializer_list<std::string> styles) {
    std::string out;
    for (const std::string& style : styles) {
        if (style.empty()) continue;
        if (!out.empty()) out += ';';
        out += style;
    }
    return out;
}

template <typename Style, typename Parse, typename Write>
std::string ogrStyleOf(const std::string& clause, Parse parse, Write write) {
    if (clause.empty()) return {};
    const Style style = parse(clause);
    return write(style);
}

std::string penOf(const MapObject& o) {
    return ogrStyleOf<PenStyle>(o.pen, parsePen, ogrPenString);
}
std::string brushOf(const MapObject& o) {
    return ogrStyleOf<BrushStyle>(o.brush, parseBrush, ogrBrushString);
}
std::string symbolOf(const MapObject& o) {
    return ogrStyleOf<SymbolStyle>(o.symbol, parseSymbol, ogrSymbolString);
}

} // namespace

std::shared_ptr<const MapObject> objectFromGeometry(const OGRGeometry* geometry,
                                                    const char* style) {
    if (geometry == nullptr || geometry->IsEmpty()) return nullptr;
    std::unique_ptr<OGRGeometry> linear;
    if (geometry->hasCurveGeometry()) {
        linear.reset(geometry->getLinearGeometry());
        if (!linear) return nullptr;
        geometry = linear.get();
    }
    const OgrStyle styles = readOgrStyle(style != nullptr ? style : "");
    auto object = std::make_shared<MapObject>();
    collectParts(*geometry, object->parts);
    if (object->parts.empty()) return nullptr;
    object->kind = kindOf(*geometry, object->parts, styles.label.has_value());
    if (styles.pen) object->pen = formatPen(*styles.pen);
    if (styles.brush) object->brush = formatBrush(*styles.brush);
    if (styles.symbol) object->symbol = formatSymbol(*styles.symbol);
    if (object->kind == ObjectKind::Text) {
        object->text = styles.label->text;
        object->angle = styles.label->angle;
        object->font = formatFont(styles.label->font);
        object->parts = {textBox(object->parts[0][0], *styles.label)};
    }
    return object;
}

OgrShape shapeFromObject(const MapObject& object) {
    std::vector<Part> parts;
    for (const Part& part : object.parts) {
        if (!part.empty()) parts.push_back(part);
    }
    if (parts.empty()) raiseMb(kMbInvalidFormat, "The object has no points to write.");
    OgrShape shape;
    switch (object.kind) {
    case ObjectKind::Point:
        shape.geometry = std::make_unique<OGRPoint>(parts[0][0].x, parts[0][0].y);
        shape.style = symbolOf(object);
        break;
    case ObjectKind::Text: {
        const Part& box = parts[0];
        OgrLabel label;
        label.text = object.text;
        label.angle = object.angle;
        label.height = box.size() > 1 ? std::abs(box[1].y - box[0].y) : 0;
        if (!object.font.empty()) label.font = parseFont(object.font);
        const MapPoint corner{std::min(box.front().x, box.back().x),
                              std::min(box.front().y, box.back().y)};
        shape.geometry = std::make_unique<OGRPoint>(corner.x, corner.y);
        shape.style = ogrLabelString(label);
        break;
    }
    case ObjectKind::MultiPoint: {
        auto multi = std::make_unique<OGRMultiPoint>();
        for (const Part& part : parts) {
            for (const MapPoint& p : part) {
                multi->addGeometryDirectly(new OGRPoint(p.x, p.y));
            }
        }
        shape.geometry = std::move(multi);
        shape.style = symbolOf(object);
        break;
    }
    case ObjectKind::Line:
    case ObjectKind::Polyline:
    case ObjectKind::Arc:
        if (parts.size() == 1) {
            shape.geometry.reset(lineString(parts[0]));
        } else {
            auto multi = std::make_unique<OGRMultiLineString>();
            for (const Part& part : parts)
                multi->addGeometryDirectly(lineString(part));
            shape.geometry = std::move(multi);
        }
        shape.style = penOf(object);
        break;
    case ObjectKind::Region:
    case ObjectKind::Rect:
    case ObjectKind::RoundedRect:
    case ObjectKind::Ellipse:
    case ObjectKind::Frame: {
        std::vector<Part> rings = parts;
        if (object.kind == ObjectKind::Rect || object.kind == ObjectKind::RoundedRect ||
            object.kind == ObjectKind::Frame) {
            rings = {corners(parts[0])};
        } else if (object.kind == ObjectKind::Ellipse) {
            rings = {ellipseRing(parts[0])};
        }
        if (rings.size() == 1) {
            shape.geometry.reset(polygon(rings[0]));
        } else {
            // MapInfo's region keeps every ring as a polygon of its own; GDAL's driver writes
            // each ring of a multipolygon as one part of the same region.
            auto multi = std::make_unique<OGRMultiPolygon>();
            for (const Part& ring : rings)
                multi->addGeometryDirectly(polygon(ring));
            shape.geometry = std::move(multi);
        }
        shape.style = joinStyles({penOf(object), brushOf(object)});
        break;
    }
    case ObjectKind::Collection: {
        auto collection = std::make_unique<OGRGeometryCollection>();
        for (const Part& part : parts) {
            const bool closed = part.size() >= 4 && part.front() == part.back();
            if (part.size() == 1) {
                collection->addGeometryDirectly(new OGRPoint(part[0].x, part[0].y));
            } else if (closed) {
                collection->addGeometryDirectly(polygon(part));
            } else {
                collection->addGeometryDirectly(lineString(part));
            }
        }
        shape.geometry = std::move(collection);
        shape.style = joinStyles({penOf(object), brushOf(object), symbolOf(object)});
        break;
    }
    }
    return shape;
}

} // namespace vellant::engine
