#include "engine/windows/map_view.h"

#include "engine/windows/geodesy.h"
#include "engine/windows/units.h"

#include <algorithm>

namespace vellant::engine {

namespace {

double aspect(double widthInches, double heightInches) {
    return widthInches > 0 ? heightInches / widthInches : 1.0;
}

} // namespace

double metresPerMapUnit(const MapState& map) {
    const std::string unit = map.coordSys.coordinateUnit();
    if (unit == "degree") return metresPerDegreeLongitude(map.centreY);
    return distanceUnitMetres(unit);
}

double viewWidthInMapUnits(const MapState& map) {
    return map.zoomMetres / metresPerMapUnit(map);
}

Bounds viewBounds(const MapState& map, double widthInches, double heightInches) {
    const double width = viewWidthInMapUnits(map);
    const double height = width * aspect(widthInches, heightInches);
    return Bounds{map.centreX - width / 2, map.centreY - height / 2, map.centreX + width / 2,
                  map.centreY + height / 2};
}

void fitView(MapState& map, const Bounds& box, double widthInches, double heightInches) {
    map.centreX = (box.minX + box.maxX) / 2;
    map.centreY = (box.minY + box.maxY) / 2;
    const double a = aspect(widthInches, heightInches);
    const double width = std::max(box.maxX - box.minX, a > 0 ? (box.maxY - box.minY) / a : 0.0);
    if (width <= 0) return;
    map.zoomMetres = width * metresPerMapUnit(map);
}

void panView(MapState& map, double eastMetres, double northMetres) {
    // North and south move by the same ground measure as east and west at the centre, which
    // for longitude/latitude is a degree of latitude, the length of a degree at the equator.
    const double east = metresPerMapUnit(map);
    const double north =
        map.coordSys.isLongLat() ? metresPerDegreeLongitude(0) : metresPerMapUnit(map);
    map.centreX += eastMetres / east;
    map.centreY += northMetres / north;
}

} // namespace vellant::engine
