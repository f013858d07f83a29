#include "hostmodel/mi_props_style.h"

#include "hostmodel/facade_calls.h"

namespace vellant::hostmodel {

std::int16_t MIPropsStyle::LineStyle() {
    const std::string pen = detail::layerInfo(context_.viewWindow(), context_.currentLayer(), "10");
    return detail::toInteger(context_.mapInfo().eval("Styleattr(" + pen + ",2)"));
}

} // namespace vellant::hostmodel
