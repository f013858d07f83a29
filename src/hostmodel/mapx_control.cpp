#include "hostmodel/mapx_control.h"

#include "base/runtime_error.h"

namespace vellant::hostmodel {

MXMap& MapXControl::map() const {
    if (!map_) raiseError(kErrObjectNotSet);
    return *map_;
}

void MapXControl::setMap(std::shared_ptr<MXMap> map) {
    map_ = std::move(map);
    notify(platform::Property::Picture);
}

} // namespace vellant::hostmodel
