#include "mapx/layer.h"

#include "engine/engine.h"
#include "engine/render/geometry_cache.h"
#include "engine/tables/catalog.h"
#include "engine/tables/memory_table.h"
#include "engine/windows/coordsys.h"
#include "engine/windows/map_extent.h"
#include "mapx/feature.h"
#include "mapx/map.h"
#include "mapx/map_units.h"
#include "mapx/mapx_errors.h"
#include "mapx/rectangle.h"

#include <set>

namespace vellant::mapx {

namespace {

namespace mx = hostmodel::mapx;

class LayerCoordSys : public hostmodel::MXCoordSys {
public:
    LayerCoordSys(std::int16_t type, std::int16_t units) : type_(type), units_(units) {}
    std::int16_t Type() override { return type_; }
    std::int16_t Units() override { return units_; }

private:
    std::int16_t type_;
    std::int16_t units_;
};

} // namespace

Layer::Layer(Map& map, std::string name, std::string fileSpec, std::int16_t type,
             std::unique_ptr<engine::Table> table)
    : map_(&map), name_(std::move(name)), fileSpec_(std::move(fileSpec)), type_(type),
      table_(std::move(table)), style_(std::make_shared<mapx::Style>(map.runtime())),
      labels_(std::make_shared<mapx::LabelProperties>(map.runtime())),
      datasets_(std::make_shared<mapx::Datasets>()) {
    map.runtime().engine().catalog().attach(*table_);
    style_->setListener(this);
    labels_->setListener(this);
}

Layer::~Layer() {
    detach();
    style_->setListener(nullptr);
    labels_->setListener(nullptr);
}

void Layer::detach() {
    if (map_ == nullptr) return;
    map_->runtime().engine().catalog().detach(*table_);
    table_.reset();
    datasets_->clear();
    map_ = nullptr;
}

engine::Table& Layer::table() {
    if (!table_) raiseError(kErrObjectNotSet, "The layer " + name_ + " is no longer on a map.");
    return *table_;
}

void Layer::setEditable(Flag value) {
    const bool editable = value != kFalse;
    if (editable && map_ != nullptr) map_->editableTaken(*this);
    set(data_.editable, editable);
}

std::int16_t Layer::PredominantFeatureType() {
    if (type_ != mx::miLayerTypeNormal) return mx::miFeatureTypeUnknown;
    engine::Table& own = table();
    const engine::LayerGeometry& geometry = map_->geometryOf(own);
    if (geometry.problem) raiseError(geometry.problem->code(), geometry.problem->what());
    std::set<std::int16_t> kinds;
    for (const engine::MapGeometry& object : geometry.objects) {
        kinds.insert(featureTypeOf(object.object->kind));
        if (kinds.size() > 1) return mx::miFeatureTypeMixed;
    }
    return kinds.empty() ? mx::miFeatureTypeNull : *kinds.begin();
}

std::shared_ptr<hostmodel::MXCoordSys> Layer::CoordSys() {
    const std::string clause = table().coordSysClause();
    if (clause.empty()) return std::make_shared<LayerCoordSys>(0, mx::miUnitMeter);
    return engineCall([&] {
        const engine::CoordSys system = engine::parseCoordSys(clause);
        std::int16_t type = 0;
        if (system.earth) {
            type = 1;
            if (!system.projection.empty()) {
                if (const auto* number = std::get_if<double>(&system.projection.front()))
                    type = static_cast<std::int16_t>(*number);
            }
        }
        const std::int16_t units = unitCode(system.coordinateUnit()).value_or(mx::miUnitMeter);
        return std::make_shared<LayerCoordSys>(type, units);
    });
}

std::shared_ptr<hostmodel::MXFeatures> Layer::AllFeatures() {
    return featuresOf(table());
}

std::shared_ptr<hostmodel::MXFeatures> Layer::NoFeatures() {
    return noFeaturesOf(table());
}

std::shared_ptr<hostmodel::MXRectangle> Layer::Bounds() {
    engine::Table& own = table();
    // A raster has no objects; its bounds are those of its image.
    if (own.isRaster())
        return std::make_shared<Rectangle>(
            engine::tableExtent(own, map_->coordSys()).value_or(engine::Bounds{}));
    const engine::LayerGeometry& geometry = map_->geometryOf(own);
    if (geometry.problem) raiseError(geometry.problem->code(), geometry.problem->what());
    return std::make_shared<Rectangle>(geometry.bounds.value_or(engine::Bounds{}));
}

void Layer::AddFeature(hostmodel::MXFeature& feature) {
    auto* given = dynamic_cast<Feature*>(&feature);
    if (given == nullptr) raiseError(kErrTypeMismatch);
    if (!given->record().object) raiseError(kErrInvalidCall, "The feature has no object.");
    engine::Table& own = table();
    auto object = objectInCoordSys(map_->runtime(), given->record().object, given->coordSys(),
                                   own.coordSysClause());
    engineCall([&] {
        own.insertRow({}, std::move(object));
        // A layer of a file keeps its file up to date, as the host saves a layer's edits.
        if (!own.path().empty()) own.commit();
    });
    partChanged();
}

void Layer::partChanged() {
    if (map_ != nullptr) map_->contentChanged();
}

} // namespace vellant::mapx
