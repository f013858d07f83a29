#pragma once
// Converts points between coordinate systems with GDAL, as the host does when a map shows
// tables of another projection or a statement gives a point in the session's CoordSys.
// Between two clauses of the same system, and where either side is NonEarth (a plan with no
// place on the Earth), points pass unchanged, as the host treats them.

#include "engine/windows/coordsys.h"

#include <memory>

class OGRCoordinateTransformation;

namespace vellant::engine {

class CoordTransform {
public:
    CoordTransform(const CoordSys& from, const CoordSys& to);
    // To longitude/latitude on the datum of an Earth system (for distances on the sphere).
    static CoordTransform toLongLat(const CoordSys& from);
    ~CoordTransform();
    CoordTransform(CoordTransform&&) noexcept;
    CoordTransform& operator=(CoordTransform&&) noexcept;

    bool isIdentity() const { return !transform_; }
    // False, with x and y untouched, for a point the projection cannot take.
    bool apply(double& x, double& y) const;

private:
    CoordTransform() = default;
    struct Deleter {
        void operator()(OGRCoordinateTransformation* t) const;
    };
    std::unique_ptr<OGRCoordinateTransformation, Deleter> transform_;
};

} // namespace vellant::engine
