#pragma once
// A graphic object as tables and variables hold it: its kind, its coordinates and its styles.

#include <string>
#include <vector>

namespace vellant::engine {

struct MapPoint {
    double x = 0;
    double y = 0;
    bool operator==(const MapPoint&) const = default;
};

// The kind of an object, numbered as ObjectInfo(obj, 1) numbers it.
enum class ObjectKind : int {
    Arc = 1,
    Ellipse = 2,
    Line = 3,
    Polyline = 4,
    Point = 5,
    Frame = 6,
    Region = 7,
    Rect = 8,
    RoundedRect = 9,
    Text = 10,
    MultiPoint = 11,
    Collection = 12,
};

struct MapObject {
    ObjectKind kind = ObjectKind::Point;
    // Regions: one ring a polygon; polylines: one part a section; lines, points, rects and
    // text: their defining points.
    std::vector<std::vector<MapPoint>> parts;
    std::string text; // text objects
    double angle = 0; // text objects: degrees, counter-clockwise about the box's first corner
    // Style clauses in canonical form ("Pen (1,2,0)"); empty where the object has none.
    std::string pen;
    std::string brush;
    std::string symbol;
    std::string font;
};

} // namespace vellant::engine
