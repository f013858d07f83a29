#include "mapx/feature_factory.h"

#include "base/runtime_error.h"
#include "mapx/feature.h"
#include "mapx/map.h"
#include "mapx/style.h"
#include "mapx/style_clauses.h"

namespace vellant::mapx {

std::shared_ptr<hostmodel::MXFeature>
FeatureFactory::CreateRegion(hostmodel::MXRectangle& rectangle, hostmodel::MXStyle& style) {
    if (map_ == nullptr) raiseError(kErrObjectNotSet);
    auto* drawn = dynamic_cast<Style*>(&style);
    if (drawn == nullptr) raiseError(kErrTypeMismatch);
    const double x1 = rectangle.XMin(), y1 = rectangle.YMin();
    const double x2 = rectangle.XMax(), y2 = rectangle.YMax();
    auto object = std::make_shared<engine::MapObject>();
    object->kind = engine::ObjectKind::Region;
    object->parts = {{{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}, {x1, y1}}};
    object->brush = engine::formatBrush(regionBrush(drawn->data()));
    object->pen = engine::formatPen(borderPen(drawn->data()));
    return std::make_shared<Feature>(FeatureRecord{std::move(object), {}}, map_->coordSysClause());
}

} // namespace vellant::mapx
