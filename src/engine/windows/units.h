#pragma once
// Units of measure the host knows by name: distance units (Set Distance Units, Set Map
// Distance Units, the Units of Zoom clauses, Distance()), paper units (window positions and
// sizes) and area units (Set Map Area Units). Names are compared in any letter case and given
// back in the host's own spelling ("mi", "survey ft", "sq km").
//
// An unknown name raises MbError 1 "Unrecognized distance unit: <name>" (or "paper unit",
// "area unit"). "degree" is a unit of coordinates only (XY Units of a longitude/latitude map):
// asking for it as a distance unit is the same error.

#include <string>
#include <string_view>

namespace vellant::engine {

// Metres in one unit of a distance unit ("mi" 1609.344).
double distanceUnitMetres(std::string_view name);
// The host's spelling of a distance unit name; raises for an unknown one.
std::string distanceUnitName(std::string_view name);
// True for a name the host knows as a distance unit.
bool isDistanceUnit(std::string_view name);

// Inches in one unit of a paper unit ("in", "cm", "mm", "pt", "pica").
double paperUnitInches(std::string_view name);
std::string paperUnitName(std::string_view name);

// Square metres in one unit of an area unit ("sq mi", "acre", "hectare" ...).
double areaUnitSquareMetres(std::string_view name);
std::string areaUnitName(std::string_view name);

// The unit of coordinates of a map: a distance unit, or "degree".
bool isCoordinateUnit(std::string_view name);
std::string coordinateUnitName(std::string_view name);

// value given in one distance unit, in another.
double convertDistance(double value, std::string_view fromUnit, std::string_view toUnit);

} // namespace vellant::engine
