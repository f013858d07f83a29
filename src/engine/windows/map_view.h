#pragma once
// The geometry of a map view. The zoom is the width of the window measured on the ground
// across the centre: for a longitude/latitude map a degree counts the metres of a degree of
// longitude at the centre's latitude, and the map is drawn with degrees of equal size in x
// and y; for any other system a map unit counts its unit's length.

#include "engine/tables/table.h"
#include "engine/windows/map_state.h"

#include <optional>

namespace vellant::engine {

// Metres on the ground in one horizontal map unit at the map's centre.
double metresPerMapUnit(const MapState& map);

// The view's width in map units.
double viewWidthInMapUnits(const MapState& map);

// The visible box in map coordinates for a window of that size (inches).
Bounds viewBounds(const MapState& map, double widthInches, double heightInches);

// Centres the view on the box and zooms so that all of it shows in a window of that size. A
// box of no size (one point) only moves the centre.
void fitView(MapState& map, const Bounds& box, double widthInches, double heightInches);

// Moves the centre by a distance in metres: dx east, dy north.
void panView(MapState& map, double eastMetres, double northMetres);

} // namespace vellant::engine
