#include "engine/windows/map_extent.h"

#include "engine/mb_error.h"
#include "engine/windows/coord_transform.h"

#include <algorithm>

namespace vellant::engine {

namespace {

void include(std::optional<Bounds>& box, double x, double y) {
    if (!box) {
        box = Bounds{x, y, x, y};
        return;
    }
    box->minX = std::min(box->minX, x);
    box->minY = std::min(box->minY, y);
    box->maxX = std::max(box->maxX, x);
    box->maxY = std::max(box->maxY, y);
}

void include(std::optional<Bounds>& box, const std::optional<Bounds>& other) {
    if (!other) return;
    include(box, other->minX, other->minY);
    include(box, other->maxX, other->maxY);
}

// A box of another projection is bent in this one: its corners and the middles of its edges
// give a fair hull.
std::optional<Bounds> reproject(const Bounds& box, const CoordTransform& transform) {
    if (transform.isIdentity()) return box;
    std::optional<Bounds> out;
    const double xs[] = {box.minX, (box.minX + box.maxX) / 2, box.maxX};
    const double ys[] = {box.minY, (box.minY + box.maxY) / 2, box.maxY};
    for (double x : xs) {
        for (double y : ys) {
            double px = x;
            double py = y;
            if (transform.apply(px, py)) include(out, px, py);
        }
    }
    return out;
}

} // namespace

std::optional<Bounds> cosmeticExtent(const MapState& map) {
    std::optional<Bounds> box;
    for (const auto& object : map.cosmeticObjects) {
        if (!object) continue; // deleted
        for (const auto& part : object->parts)
            for (const MapPoint& p : part)
                include(box, p.x, p.y);
    }
    return box;
}

std::optional<Bounds> layerExtent(const Catalog& catalog, const MapState& map, int number) {
    if (number == 0) return cosmeticExtent(map);
    const Layer* layer = map.layerAt(number);
    if (!layer) return std::nullopt;
    const Table* table = catalog.find(layer->name);
    if (!table) return std::nullopt;
    return tableExtent(*table, map.coordSys);
}

std::optional<Bounds> tableExtent(const Table& table, const CoordSys& mapSystem) {
    const std::optional<Bounds> box = table.bounds();
    if (!box) return std::nullopt;
    try {
        const CoordSys tableSystem = parseCoordSys(table.coordSysClause());
        return reproject(*box, CoordTransform(tableSystem, mapSystem));
    } catch (const MbError&) {
        // A clause we cannot read: take the box as it stands rather than lose the layer.
        return box;
    }
}

std::optional<Bounds> mapExtent(const Catalog& catalog, const MapState& map) {
    std::optional<Bounds> box = cosmeticExtent(map);
    for (int n = 1; n <= map.layerCount(); ++n)
        include(box, layerExtent(catalog, map, n));
    return box;
}

} // namespace vellant::engine
