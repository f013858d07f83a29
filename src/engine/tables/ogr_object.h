#pragma once
// Graphic objects to and from OGR geometries. GDAL's MapInfo driver gives every object kind a
// geometry type: points (with a SYMBOL, or a LABEL for text), lines and polylines as
// LineString/MultiLineString, regions, rectangles and ellipses as Polygon/MultiPolygon, arcs as
// LineString, multipoints and collections as their own types. Reading gives the kind as
// ObjectInfo(obj, 1) numbers it: a line string of exactly two points is a Line, as MapInfo's
// writer makes it; shapes that only survive as polygons or line strings (rectangles, ellipses,
// arcs) come back as regions and polylines.
//
// Writing goes through GDAL's MapInfo writer, which has limits of its own: it writes a
// multipoint or a collection as one row per part, a line as a two-point polyline, and pen
// widths in points as pixels (its TAB version 300 has no point widths).

#include "engine/map_object.h"

#include <memory>
#include <string>

class OGRGeometry;

namespace vellant::engine {

// The object of a feature; nullptr for a feature without geometry or with an empty one.
// style is the feature's OGR style string (may be null).
std::shared_ptr<const MapObject> objectFromGeometry(const OGRGeometry* geometry, const char* style);

struct OgrShape {
    std::unique_ptr<OGRGeometry> geometry;
    std::string style; // OGR style string for GDAL's MapInfo driver
};

// The geometry and style GDAL writes back as the same MapInfo object. Raises MbError for an
// object without points.
OgrShape shapeFromObject(const MapObject& object);

} // namespace vellant::engine
