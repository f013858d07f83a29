// ObjectInfo and StyleAttr: what a graphic object and a style value tell about themselves.

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/lang/style_clause.h"
#include "engine/map_object.h"
#include "engine/tables/style_clause.h"
#include "engine/tables/table_errors.h"
#include "engine/tables/table_language_parts.h"

#include <cmath>

namespace vellant::engine {

namespace {

using Args = std::vector<MbValue>;
using Part = std::vector<MapPoint>;

bool isClosed(const Part& part) {
    return part.size() >= 4 && part.front() == part.back();
}

bool isArea(ObjectKind kind) {
    return kind == ObjectKind::Region || kind == ObjectKind::Rect ||
           kind == ObjectKind::RoundedRect || kind == ObjectKind::Ellipse ||
           kind == ObjectKind::Collection;
}

bool isSymbolKind(ObjectKind kind) {
    return kind == ObjectKind::Point || kind == ObjectKind::MultiPoint;
}

// Nodes of a part as the host counts them: a ring does not count its closing node twice.
std::int64_t nodeCount(const MapObject& object, const Part& part) {
    const bool ring = object.kind == ObjectKind::Region && isClosed(part);
    return static_cast<std::int64_t>(part.size()) - (ring ? 1 : 0);
}

MbValue styleOr(MbType type, const std::string& clause, const char* initial) {
    return MbValue::style(type, clause.empty() ? std::string(initial) : clause);
}

// The parts of a collection, sorted into its region, polyline and multipoint.
std::shared_ptr<const MapObject> collectionPart(const MapObject& object, ObjectKind kind) {
    auto part = std::make_shared<MapObject>();
    part->kind = kind;
    for (const Part& p : object.parts) {
        const ObjectKind partKind = isClosed(p)     ? ObjectKind::Region
                                    : p.size() == 1 ? ObjectKind::MultiPoint
                                                    : ObjectKind::Polyline;
        if (partKind == kind) part->parts.push_back(p);
    }
    if (part->parts.empty()) raiseMb(kMbFetchFailed, "ObjectInfo: could not fetch object.");
    part->pen = object.pen;
    part->brush = object.brush;
    part->symbol = object.symbol;
    return part;
}

MbValue objectInfo(const MapObject& object, int code) {
    const ObjectKind kind = object.kind;
    const bool text = kind == ObjectKind::Text;
    switch (code) {
    case 1:
        return MbValue::smallInt(static_cast<std::int16_t>(kind));
    case 2:
        if (text) return styleOr(MbType::Font, object.font, kInitialFont);
        if (isSymbolKind(kind)) return styleOr(MbType::Symbol, object.symbol, kInitialSymbol);
        return styleOr(MbType::Pen, object.pen, kInitialPen);
    case 3:
        if (text) return MbValue::string(object.text);
        if (isArea(kind)) return styleOr(MbType::Brush, object.brush, kInitialBrush);
        break;
    case 4:
        if (kind == ObjectKind::Polyline) return MbValue::logical(false);
        if (text) return MbValue::number(1);
        break;
    case 5:
    case 6:
        if (text) return MbValue::smallInt(0);
        break;
    case 8:
        if (kind == ObjectKind::Collection) {
            return MbValue::object(collectionPart(object, ObjectKind::Region));
        }
        break;
    case 9:
        if (kind == ObjectKind::Collection) {
            return MbValue::object(collectionPart(object, ObjectKind::Polyline));
        }
        break;
    case 10:
        if (kind == ObjectKind::Collection) {
            return MbValue::object(collectionPart(object, ObjectKind::MultiPoint));
        }
        break;
    case 11:
        return MbValue::logical(!object.parts.empty());
    case 12:
    case 14:
    case 15:
        return MbValue::logical(false);
    case 13:
        return MbValue::string("");
    case 20: {
        std::int64_t nodes = 0;
        for (const Part& part : object.parts)
            nodes += nodeCount(object, part);
        return MbValue::integer(static_cast<std::int32_t>(nodes));
    }
    case 21:
        if (kind == ObjectKind::Region || kind == ObjectKind::Polyline) {
            return MbValue::smallInt(static_cast<std::int16_t>(object.parts.size()));
        }
        break;
    default:
        // 21 + n: the nodes of polygon or section n.
        if (code > 21 && (kind == ObjectKind::Region || kind == ObjectKind::Polyline)) {
            const std::size_t n = static_cast<std::size_t>(code - 21);
            if (n <= object.parts.size()) {
                return MbValue::integer(
                    static_cast<std::int32_t>(nodeCount(object, object.parts[n - 1])));
            }
        }
        break;
    }
    raiseArgRange(2, "ObjectInfo");
}

} // namespace

void registerObjectFunctions(Registry& registry) {
    registry.addFunction("ObjectInfo", 2, 2, [](Engine&, Args& a) {
        const std::shared_ptr<const MapObject> object = a[0].asObject();
        if (!object) raiseMb(kMbFetchFailed, "ObjectInfo: could not fetch object.");
        const double code = a[1].asNumber();
        if (!(code >= 1 && code <= 32767)) raiseArgRange(2, "ObjectInfo");
        return objectInfo(*object, static_cast<int>(std::lround(code)));
    });
    registry.addFunction("StyleAttr", 2, 2, [](Engine&, Args& a) {
        const double code = a[1].asNumber();
        if (!(code >= 1 && code <= 32767)) raiseArgRange(2, "StyleAttr");
        return styleAttribute(a[0], static_cast<int>(std::lround(code)));
    });
}

} // namespace vellant::engine
