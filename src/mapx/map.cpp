#include "mapx/map.h"

#include "engine/engine.h"
#include "engine/render/geometry_cache.h"
#include "engine/windows/geodesy.h"
#include "engine/windows/map_view.h"
#include "mapx/geoset.h"
#include "mapx/map_drawing.h"
#include "mapx/map_units.h"
#include "mapx/mapx_errors.h"
#include "mapx/rectangle.h"

#include <cmath>

namespace vellant::mapx {

namespace {

namespace mx = hostmodel::mapx;

constexpr double kScreenDpi = 96;
// A new map shows the whole Earth.
constexpr double kEquatorMetres = 40075016.686;

bool finite(double value) {
    return std::isfinite(value);
}

} // namespace

Map::Map(MapXRuntime& runtime)
    : runtime_(runtime), window_(0, engine::WindowType::Map),
      layers_(std::make_shared<mapx::Layers>(*this)),
      datasets_(
          std::make_shared<mapx::Datasets>([this](std::int16_t type, hostmodel::MXLayer& source) {
              return addDataset(type, source);
          })),
      featureFactory_(std::make_shared<mapx::FeatureFactory>(*this)), mapUnit_(mx::miUnitMile),
      currentTool_(mx::miArrowTool) {
    window_.map.emplace();
    window_.map->coordSys = engine::longLatCoordSys();
    window_.map->zoomMetres = kEquatorMetres;
    setPixelSize(pixelSize_);
}

Map::~Map() {
    layers_->mapGone();
    datasets_->stopAdding();
    datasets_->clear();
    featureFactory_->mapGone();
}

std::string Map::coordSysClause() const {
    return coordSys().clause();
}

double Map::metresPerMapUnit() const {
    if (const std::optional<double> metres = unitMetres(mapUnit_)) return *metres;
    // Degrees: a degree of longitude where the map is centred, on a map of the Earth.
    const engine::MapState& state = *window_.map;
    return engine::metresPerDegreeLongitude(state.coordSys.isLongLat() ? state.centreY : 0);
}

const engine::LayerGeometry& Map::geometryOf(const engine::Table& table) {
    return runtime_.engine().renderer().geometry().geometry(table, coordSys());
}

double Map::widthInches() const {
    return pixelSize_.width() / kScreenDpi;
}

double Map::heightInches() const {
    return pixelSize_.height() / kScreenDpi;
}

void Map::contentChanged() {
    if (!autoRedraw_) {
        repaintWaiting_ = true;
        return;
    }
    repaintWaiting_ = false;
    changed.notify(MapChange::Picture);
}

void Map::layerAdded(Layer& layer, bool firstLayer) {
    if (firstLayer) {
        engineCall([&] {
            engine::Table& table = layer.table();
            const std::string clause = table.coordSysClause();
            if (!clause.empty()) window_.map->coordSys = engine::parseCoordSys(clause);
            const engine::LayerGeometry& geometry = geometryOf(table);
            std::optional<engine::Bounds> box = geometry.bounds;
            if (!box) box = table.bounds();
            if (box) engine::fitView(*window_.map, *box, widthInches(), heightInches());
        });
    }
    contentChanged();
}

void Map::layerRemoved(Layer& layer) {
    for (const auto& dataset : layer.datasets().all())
        datasets_->remove(*dataset);
}

void Map::editableTaken(const Layer& layer) {
    for (const auto& other : layerList())
        if (other.get() != &layer) other->clearEditable();
}

std::shared_ptr<Dataset> Map::addDataset(std::int16_t type, hostmodel::MXLayer& source) {
    auto* layer = dynamic_cast<Layer*>(&source);
    if (layer == nullptr) raiseError(kErrTypeMismatch);
    if (type != mx::miDataSetLayer)
        raiseError(kErrInvalidProperty,
                   "Dataset type " + std::to_string(type) + " is not supported.");
    std::vector<std::string> fields;
    for (const engine::ColumnDef& column : layer->table().columns())
        fields.push_back(column.name);
    // The layer's name, made unique among the map's datasets.
    std::string name = layer->Name();
    for (int n = 2; datasets_->hasName(name); ++n)
        name = layer->Name() + "_" + std::to_string(n);
    auto dataset = std::make_shared<Dataset>(name, type, fields);
    datasets_->append(dataset);
    layer->datasets().append(dataset);
    return dataset;
}

void Map::setPixelSize(QSize pixels) {
    const QSize size(std::max(1, pixels.width()), std::max(1, pixels.height()));
    const bool resized = size != pixelSize_;
    pixelSize_ = size;
    window_.placement.width = widthInches();
    window_.placement.height = heightInches();
    if (resized) contentChanged();
}

engine::RenderReport Map::draw(QImage& image) {
    window_.map->layers = engineLayersOf(*this);
    return runtime_.engine().renderer().draw(window_, image);
}

QImage Map::picture(QSize pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    draw(image);
    return image;
}

float Map::zoom() {
    return static_cast<float>(window_.map->zoomMetres / metresPerMapUnit());
}

std::shared_ptr<hostmodel::MXFeatureFactory> Map::FeatureFactory() {
    return featureFactory_;
}

void Map::setGeoset(const std::string& value) {
    if (!value.empty()) openGeoset(*this, value);
    geoset_ = value;
}

void Map::setAutoRedraw(bool value) {
    autoRedraw_ = value;
    if (autoRedraw_ && repaintWaiting_) contentChanged();
}

void Map::Refresh() {
    repaintWaiting_ = false;
    changed.notify(MapChange::Picture);
}

void Map::setzoom(double value) {
    if (!finite(value) || value <= 0) raiseError(kErrInvalidProperty);
    window_.map->zoomMetres = value * metresPerMapUnit();
    contentChanged();
}

void Map::setCenterX(double value) {
    if (!finite(value)) raiseError(kErrInvalidProperty);
    window_.map->centreX = value;
    contentChanged();
}

void Map::setCenterY(double value) {
    if (!finite(value)) raiseError(kErrInvalidProperty);
    window_.map->centreY = value;
    contentChanged();
}

void Map::setmapunit(std::int16_t value) {
    if (!isUnitCode(value)) raiseError(kErrInvalidProperty);
    // The view stays as it is; only the unit it is told in changes.
    mapUnit_ = value;
}

void Map::setCurrentTool(std::int32_t value) {
    if (currentTool_ == value) return;
    currentTool_ = value;
    changed.notify(MapChange::Tool);
}

std::shared_ptr<hostmodel::MXRectangle> Map::Bounds() {
    return std::make_shared<Rectangle>(
        engine::viewBounds(*window_.map, widthInches(), heightInches()));
}

void Map::setBounds(hostmodel::MXRectangle& value) {
    const engine::Bounds box{value.XMin(), value.YMin(), value.XMax(), value.YMax()};
    if (!finite(box.minX) || !finite(box.minY) || !finite(box.maxX) || !finite(box.maxY))
        raiseError(kErrInvalidProperty);
    engine::fitView(*window_.map, box, widthInches(), heightInches());
    contentChanged();
}

void Map::setVisible(bool value) {
    if (visible_ == value) return;
    visible_ = value;
    changed.notify(MapChange::Visible);
}

} // namespace vellant::mapx
