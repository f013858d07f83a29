#include "mapx/mapx_classes.h"

#include "mapx/feature.h"
#include "mapx/layer_info.h"
#include "mapx/map.h"
#include "mapx/rectangle.h"
#include "mapx/style.h"

namespace vellant::mapx {

void registerMapXClasses(platform::AutomationRegistry& registry, MapXRuntime& runtime) {
    registry.registerClass(Map::kClassName, [&runtime] { return std::make_shared<Map>(runtime); });
    registry.registerClass(Style::kClassName,
                           [&runtime] { return std::make_shared<Style>(runtime); });
    registry.registerClass(LayerInfo::kClassName, [] { return std::make_shared<LayerInfo>(); });
    registry.registerClass(Feature::kClassName, [] { return std::make_shared<Feature>(); });
    registry.registerClass(Rectangle::kClassName, [] { return std::make_shared<Rectangle>(); });
}

void unregisterMapXClasses(platform::AutomationRegistry& registry) {
    for (const char* name : {Map::kClassName, Style::kClassName, LayerInfo::kClassName,
                             Feature::kClassName, Rectangle::kClassName})
        registry.unregisterClass(name);
}

} // namespace vellant::mapx
