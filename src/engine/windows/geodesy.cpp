#include "engine/windows/geodesy.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellant::engine {

namespace {

double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

} // namespace

double greatCircleMetres(double lon1, double lat1, double lon2, double lat2) {
    // Haversine: well conditioned for the short distances maps mostly measure.
    const double dLat = radians(lat2 - lat1);
    const double dLon = radians(lon2 - lon1);
    const double a =
        std::sin(dLat / 2) * std::sin(dLat / 2) +
        std::cos(radians(lat1)) * std::cos(radians(lat2)) * std::sin(dLon / 2) * std::sin(dLon / 2);
    const double c =
        2 * std::atan2(std::sqrt(std::clamp(a, 0.0, 1.0)), std::sqrt(std::clamp(1 - a, 0.0, 1.0)));
    return kEarthRadiusMetres * c;
}

double metresPerDegreeLongitude(double latitude) {
    const double equator = kEarthRadiusMetres * std::numbers::pi / 180.0;
    return equator * std::max(std::cos(radians(latitude)), 0.01);
}

} // namespace vellant::engine
