#pragma once
// The objects of a table in a map's coordinates, read from the table once. An entry is made
// again when the table's revision or the map's coordinate system changes, so a redraw reads
// nothing from the table.

#include "engine/map_object.h"
#include "engine/mb_error.h"
#include "engine/tables/table.h"
#include "engine/windows/coordsys.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {

class CoordTransformCache;

struct MapGeometry {
    std::int64_t row = 0;
    // The object as the table holds it: kind, text and styles (its coordinates in the table's
    // system).
    std::shared_ptr<const MapObject> object;
    // The coordinates in the map's system: one ring a polygon, one section a polyline, the
    // defining points otherwise.
    std::vector<std::vector<MapPoint>> parts;
    Bounds bounds;
};

struct LayerGeometry {
    std::vector<MapGeometry> objects; // in row order
    std::optional<Bounds> bounds;     // of all objects; none when there are none
    // Set when the table could not be read or transformed; objects then holds what was read.
    std::optional<MbError> problem;
};

class GeometryCache {
public:
    explicit GeometryCache(CoordTransformCache& transforms);
    ~GeometryCache();

    // The objects of the table in the map's coordinate system.
    const LayerGeometry& geometry(const Table& table, const CoordSys& mapCoordSys);
    // Drops everything kept for that table (it closed).
    void forget(const Table& table);

    // How many tables have geometry kept.
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry;
    void read(const Table& table, const CoordSys& mapCoordSys, LayerGeometry& out);
    CoordTransformCache& transforms_;
    std::map<const Table*, std::unique_ptr<Entry>> entries_;
};

} // namespace vellant::engine
