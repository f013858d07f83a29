#pragma once
// Measures on the Earth as the host takes them: distances along great circles of a sphere of
// the WGS 84 equatorial radius, and the length of a degree where a map is centred.

namespace vellant::engine {

inline constexpr double kEarthRadiusMetres = 6378137.0;

// Great-circle distance between two points given in degrees of longitude and latitude.
double greatCircleMetres(double lon1, double lat1, double lon2, double lat2);

// Metres in one degree of longitude at a latitude (never less than a hundredth of the
// equator's, so that a map centred on a pole keeps a finite width).
double metresPerDegreeLongitude(double latitude);

} // namespace vellant::engine
