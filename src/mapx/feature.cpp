#include "mapx/feature.h"

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/windows/coordsys.h"
#include "engine/windows/window_manager.h"
#include "hostmodel/mapx_constants.h"
#include "mapx/map.h"
#include "mapx/mapx_errors.h"

namespace vellant::mapx {

namespace mx = hostmodel::mapx;

std::int16_t featureTypeOf(engine::ObjectKind kind) {
    using K = engine::ObjectKind;
    switch (kind) {
    case K::Region:
    case K::Rect:
    case K::RoundedRect:
    case K::Ellipse:
        return mx::miFeatureTypeRegion;
    case K::Line:
    case K::Polyline:
    case K::Arc:
        return mx::miFeatureTypeLine;
    case K::Point:
    case K::MultiPoint:
        return mx::miFeatureTypeSymbol;
    case K::Text:
        return mx::miFeatureTypeText;
    case K::Frame:
    case K::Collection:
        break;
    }
    return mx::miFeatureTypeMixed;
}

std::int16_t Feature::Type() {
    if (!record_.object) return mx::miFeatureTypeNull;
    return featureTypeOf(record_.object->kind);
}

void Feature::Attach(hostmodel::MXMap& map) {
    auto* attached = dynamic_cast<Map*>(&map);
    if (attached == nullptr) raiseError(kErrTypeMismatch);
    coordSys_ = attached->coordSysClause();
}

std::shared_ptr<hostmodel::MXFeature> Features::Item(std::int32_t index) {
    if (index < 1 || index > Count()) raiseBadIndex("Features", std::to_string(index));
    return std::make_shared<Feature>(records_[static_cast<std::size_t>(index) - 1], coordSys_);
}

std::shared_ptr<Features> featuresOf(const engine::Table& table) {
    return engineCall([&] {
        std::vector<FeatureRecord> records;
        for (std::int64_t row = 1; row <= table.rowCount(); ++row) {
            if (!table.rowExists(row)) continue;
            auto object = table.object(row);
            if (!object) continue;
            FeatureRecord record{std::move(object), {}};
            for (std::size_t column = 0; column < table.columns().size(); ++column)
                record.values.push_back(table.value(row, column));
            records.push_back(std::move(record));
        }
        return std::make_shared<Features>(table.columns(), table.coordSysClause(),
                                          std::move(records));
    });
}

std::shared_ptr<Features> noFeaturesOf(const engine::Table& table) {
    return std::make_shared<Features>(table.columns(), table.coordSysClause(),
                                      std::vector<FeatureRecord>{});
}

std::shared_ptr<const engine::MapObject>
objectInCoordSys(MapXRuntime& runtime, std::shared_ptr<const engine::MapObject> object,
                 const std::string& from, const std::string& to) {
    if (!object || from == to || from.empty() || to.empty()) return object;
    return engineCall([&]() -> std::shared_ptr<const engine::MapObject> {
        const engine::CoordTransform& transform = runtime.engine().windows().transforms().between(
            engine::parseCoordSys(from), engine::parseCoordSys(to));
        if (transform.isIdentity()) return object;
        auto moved = std::make_shared<engine::MapObject>(*object);
        for (auto& part : moved->parts) {
            for (engine::MapPoint& p : part) {
                if (!transform.apply(p.x, p.y))
                    raiseError(kErrInvalidCall, "A feature lies outside the layer's projection.");
            }
        }
        return moved;
    });
}

} // namespace vellant::mapx
