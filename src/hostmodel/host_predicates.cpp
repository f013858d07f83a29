#include "hostmodel/host_predicates.h"

#include "base/basic_text.h"
#include "hostmodel/mapper.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"

namespace vellant::hostmodel {

MXMap& FacadeContext::viewMap() {
    raiseError(kErrObjectNotSet);
}

std::int16_t CurrentLayerIndex(const FacadeContext& context) {
    // While a click is dispatched, gets read the clicked row's layer even when the walk has
    // moved gLayer on; a toggle walk reads gLayer again.
    if (context.clickRow() != 0 && context.toggleRow() == 0) return Int16(context.clickRow());
    return context.currentLayer();
}

bool isMapper(FacadeContext& context, std::int32_t windowId) {
    if (!context.isMapInfoHost()) return false;
    auto* mapper = dynamic_cast<Mapper*>(&context.mapObject());
    if (mapper == nullptr) raiseError(kErrTypeMismatch);
    return mapper->wintype(windowId) == 1;
}

bool IsWindowOpen(FacadeContext& context, std::int32_t windowId) {
    if (windowId == 0) return false;
    MapInfoApp& mapInfo = context.mapInfo();
    const double windows = Val(mapInfo.eval("NumWindows()"));
    for (std::int32_t n = 1; n <= windows; ++n) {
        if (Val(mapInfo.eval("windowinfo(" + Str(n) + ",13)")) == windowId) return true;
    }
    return false;
}

std::int16_t GetFeatureType(FacadeContext& context, ILayer& layer) {
    if (context.currentLayerType() != 0) return 4;
    return layer.PredominantFeatureType();
}

bool isgraycell(FacadeContext& context, bool capable, const std::string& key) {
    if (!capable || context.currentLayerType() > 1) return true;
    const std::string lowered = LCase(key);
    return context.currentLayer() == 0 && lowered != "editable" && lowered != "selectable";
}

bool IsLayerReadonly(FacadeContext& context) {
    if (!context.isMapInfoHost()) return false;
    return asMIProps(context.layerObject()).Readonly();
}

void MapRedraw(FacadeContext& context, const std::string& onoff) {
    if (!context.isMapInfoHost()) {
        // Letter case counts: "ON" is no word of this switch.
        if (onoff == "on") context.viewMap().setAutoRedraw(true);
        if (onoff == "off") context.viewMap().setAutoRedraw(false);
        return;
    }
    context.mapInfo().Do("Set Map Window " + Str(context.viewWindow()) + " redraw " + onoff);
}

} // namespace vellant::hostmodel
