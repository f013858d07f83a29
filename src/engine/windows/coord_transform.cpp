#include "engine/windows/coord_transform.h"

#include <ogr_spatialref.h>

namespace vellant::engine {

namespace {

// GIS order (x = longitude) whatever the authority says, as MapBasic gives x first.
bool importSystem(const CoordSys& cs, OGRSpatialReference& srs) {
    if (srs.importFromMICoordSys(cs.clause().c_str()) != OGRERR_NONE) return false;
    srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return true;
}

} // namespace

void CoordTransform::Deleter::operator()(OGRCoordinateTransformation* t) const {
    OGRCoordinateTransformation::DestroyCT(t);
}

CoordTransform::CoordTransform(const CoordSys& from, const CoordSys& to) {
    if (!from.earth || !to.earth || from.sameSystem(to)) return;
    OGRSpatialReference source;
    OGRSpatialReference target;
    if (!importSystem(from, source) || !importSystem(to, target)) return;
    transform_.reset(OGRCreateCoordinateTransformation(&source, &target));
}

CoordTransform CoordTransform::toLongLat(const CoordSys& from) {
    CoordTransform result;
    if (!from.earth || from.isLongLat()) return result;
    OGRSpatialReference source;
    if (!importSystem(from, source)) return result;
    std::unique_ptr<OGRSpatialReference> geographic(source.CloneGeogCS());
    if (!geographic) return result;
    geographic->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    result.transform_.reset(OGRCreateCoordinateTransformation(&source, geographic.get()));
    return result;
}

CoordTransform::~CoordTransform() = default;
CoordTransform::CoordTransform(CoordTransform&&) noexcept = default;
CoordTransform& CoordTransform::operator=(CoordTransform&&) noexcept = default;

bool CoordTransform::apply(double& x, double& y) const {
    if (!transform_) return true;
    double tx = x;
    double ty = y;
    if (!transform_->Transform(1, &tx, &ty)) return false;
    x = tx;
    y = ty;
    return true;
}

} // namespace vellant::engine
