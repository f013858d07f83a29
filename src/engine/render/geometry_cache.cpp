#include "engine/render/geometry_cache.h"

#include "engine/windows/coord_transform_cache.h"

#include <algorithm>

namespace vellant::engine {

namespace {

// The revisions of a table and of every table it reads through (a query shows its base
// table's objects, so an edit of the base makes the query's geometry stale too).
std::vector<std::uint64_t> revisionsOf(const Table& table) {
    std::vector<std::uint64_t> revisions;
    for (const Table* t = &table; t != nullptr; t = t->baseTable()) {
        revisions.push_back(t->serial());
        revisions.push_back(t->revision());
    }
    return revisions;
}

void extend(Bounds& bounds, const MapPoint& p, bool& first) {
    if (first) {
        bounds = {p.x, p.y, p.x, p.y};
        first = false;
        return;
    }
    bounds.minX = std::min(bounds.minX, p.x);
    bounds.minY = std::min(bounds.minY, p.y);
    bounds.maxX = std::max(bounds.maxX, p.x);
    bounds.maxY = std::max(bounds.maxY, p.y);
}

} // namespace

struct GeometryCache::Entry {
    std::uint64_t serial = 0;
    std::vector<std::uint64_t> revisions;
    std::string mapCoordSys;
    LayerGeometry geometry;
};

GeometryCache::GeometryCache(CoordTransformCache& transforms) : transforms_(transforms) {}
GeometryCache::~GeometryCache() = default;

const LayerGeometry& GeometryCache::geometry(const Table& table, const CoordSys& mapCoordSys) {
    auto& entry = entries_[&table];
    std::vector<std::uint64_t> revisions = revisionsOf(table);
    std::string clause = mapCoordSys.clause();
    if (entry && entry->serial == table.serial() && entry->revisions == revisions &&
        entry->mapCoordSys == clause) {
        return entry->geometry;
    }
    entry = std::make_unique<Entry>();
    entry->serial = table.serial();
    entry->revisions = std::move(revisions);
    entry->mapCoordSys = std::move(clause);
    read(table, mapCoordSys, entry->geometry);
    return entry->geometry;
}

void GeometryCache::read(const Table& table, const CoordSys& mapCoordSys, LayerGeometry& out) {
    if (table.isRaster()) return;
    try {
        if (!table.isMappable()) {
            raiseMb(kMbCmdNotSupported, "Table " + table.name() + " is not mappable.");
        }
        const CoordSys tableCoordSys = parseCoordSys(table.coordSysClause());
        const CoordTransform& transform = transforms_.between(tableCoordSys, mapCoordSys);
        // GDAL makes no transformation for a system it does not know; the host cannot place
        // such a table on the map at all.
        if (transform.isIdentity() && tableCoordSys.earth && mapCoordSys.earth &&
            !tableCoordSys.sameSystem(mapCoordSys)) {
            raiseMb(kMbCmdNotSupported, "Table " + table.name() + " cannot be shown in " +
                                            mapCoordSys.clause() + ": its " +
                                            tableCoordSys.clause() + " cannot be transformed.");
        }
        const std::int64_t rows = table.rowCount();
        std::size_t dropped = 0;
        bool anyBounds = false;
        Bounds all;
        for (std::int64_t row = table.firstRow(); row <= rows; ++row) {
            if (!table.rowExists(row)) continue;
            std::shared_ptr<const MapObject> object = table.object(row);
            if (!object) continue;
            MapGeometry geometry;
            geometry.row = row;
            bool first = true;
            geometry.parts.reserve(object->parts.size());
            for (const auto& part : object->parts) {
                std::vector<MapPoint> points;
                points.reserve(part.size());
                for (MapPoint p : part) {
                    if (!transform.apply(p.x, p.y)) {
                        ++dropped;
                        continue;
                    }
                    extend(geometry.bounds, p, first);
                    points.push_back(p);
                }
                geometry.parts.push_back(std::move(points));
            }
            if (first) continue; // nothing of it could be placed
            geometry.object = std::move(object);
            bool firstAll = !anyBounds;
            extend(all, {geometry.bounds.minX, geometry.bounds.minY}, firstAll);
            extend(all, {geometry.bounds.maxX, geometry.bounds.maxY}, firstAll);
            anyBounds = true;
            out.objects.push_back(std::move(geometry));
        }
        if (anyBounds) out.bounds = all;
        if (out.objects.empty() && dropped > 0) {
            raiseMb(kMbCmdNotSupported, "No object of table " + table.name() +
                                            " could be transformed to the map's CoordSys.");
        }
    } catch (const MbError& error) {
        out.problem = error;
    }
}

void GeometryCache::forget(const Table& table) {
    entries_.erase(&table);
}

} // namespace vellant::engine
