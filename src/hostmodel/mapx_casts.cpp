#include "base/runtime_error.h"
#include "hostmodel/mapx_map.h"

namespace vellant::hostmodel {

namespace {

template <class Wanted, class Given> Wanted& as(Given& object) {
    auto* typed = dynamic_cast<Wanted*>(&object);
    if (typed == nullptr) raiseError(kErrTypeMismatch);
    return *typed;
}

} // namespace

MXMap& asMXMap(IMap& map) {
    return as<MXMap>(map);
}

MXLayer& asMXLayer(ILayer& layer) {
    return as<MXLayer>(layer);
}

MXLabelProperties& asMXLabelProperties(ILabelProps& labels) {
    return as<MXLabelProperties>(labels);
}

MXStyle& asMXStyle(IStyle& style) {
    return as<MXStyle>(style);
}

} // namespace vellant::hostmodel
