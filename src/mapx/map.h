#pragma once
// The MapX Map: layers over the engine's tables, a view (centre and zoom), datasets, a title,
// and its drawing by the engine's renderer. The map keeps an engine map window of its own,
// outside the host's window list (no MapBasic statement sees it), and fills its layer list
// from the MapX layers before each drawing (map_drawing.h).
//
// The map takes the coordinate system of the first layer put on it while it is empty, and
// then shows that whole layer. Zoom is the width of the view in MapUnit (by default miles).
//
// Painting: a change that alters the picture is announced at once while AutoRedraw is true;
// while it is false the announcement waits until AutoRedraw is set true again. Refresh
// announces always.

#include "engine/render/map_renderer.h"
#include "engine/windows/window.h"
#include "hostmodel/mapx_map.h"
#include "mapx/dataset.h"
#include "mapx/feature_factory.h"
#include "mapx/layers.h"
#include "mapx/mapx_runtime.h"
#include "mapx/title.h"
#include "platform/observer_list.h"

#include <QImage>
#include <QSize>
#include <memory>
#include <string>

namespace vellant::engine {
struct LayerGeometry;
}

namespace vellant::mapx {

// What a view of the map is to show again.
enum class MapChange {
    Picture, // the map is to be drawn again
    Tool,    // CurrentTool
    Visible, // the control was shown or hidden
};

class Map : public hostmodel::MXMap {
public:
    static constexpr const char* kClassName = "MapX.Map.4";

    explicit Map(MapXRuntime& runtime);
    ~Map() override;
    Map(const Map&) = delete;
    Map& operator=(const Map&) = delete;

    MapXRuntime& runtime() { return runtime_; }
    const std::vector<std::shared_ptr<Layer>>& layerList() const { return layers_->all(); }
    const engine::CoordSys& coordSys() const { return window_.map->coordSys; }
    std::string coordSysClause() const;
    // The ground length of one MapUnit at the map's centre.
    double metresPerMapUnit() const;
    // The objects of a layer's table in the map's coordinates, as the renderer keeps them.
    const engine::LayerGeometry& geometryOf(const engine::Table& table);

    // Told by the map's parts.
    void contentChanged();
    // A layer joined the map; on an empty map it decides the coordinate system and the view.
    void layerAdded(Layer& layer, bool firstLayer);
    // A layer leaves: its datasets go with it.
    void layerRemoved(Layer& layer);
    // At most one layer is editable.
    void editableTaken(const Layer& layer);
    // Datasets.Add of the map's collection.
    std::shared_ptr<Dataset> addDataset(std::int16_t type, hostmodel::MXLayer& source);

    // The control's size, which the view's zoom and Bounds refer to.
    QSize pixelSize() const { return pixelSize_; }
    void setPixelSize(QSize pixels);

    // Draws the map over the whole image, the view fitted to the image's size. Layers that
    // cannot be drawn are left out and reported.
    engine::RenderReport draw(QImage& image);
    QImage picture(QSize pixels);

    platform::ObserverList<MapChange> changed;

    float zoom() override;
    Variant mapunit() override { return Variant(mapUnit_); }

    std::shared_ptr<hostmodel::MXLayers> Layers() override { return layers_; }
    std::shared_ptr<hostmodel::MXDatasets> Datasets() override { return datasets_; }
    std::shared_ptr<hostmodel::MXTitle> Title() override { return title_; }
    std::shared_ptr<hostmodel::MXFeatureFactory> FeatureFactory() override;
    std::string Geoset() override { return geoset_; }
    void setGeoset(const std::string& value) override;
    bool AutoRedraw() override { return autoRedraw_; }
    void setAutoRedraw(bool value) override;
    void Refresh() override;
    void setzoom(double value) override;
    double CenterX() override { return window_.map->centreX; }
    void setCenterX(double value) override;
    double CenterY() override { return window_.map->centreY; }
    void setCenterY(double value) override;
    void setmapunit(std::int16_t value) override;
    std::int32_t CurrentTool() override { return currentTool_; }
    void setCurrentTool(std::int32_t value) override;
    std::shared_ptr<hostmodel::MXRectangle> Bounds() override;
    void setBounds(hostmodel::MXRectangle& value) override;
    bool Visible() override { return visible_; }
    void setVisible(bool value) override;

private:
    double widthInches() const;
    double heightInches() const;

    MapXRuntime& runtime_;
    engine::Window window_;
    std::shared_ptr<mapx::Layers> layers_;
    std::shared_ptr<mapx::Datasets> datasets_;
    std::shared_ptr<mapx::Title> title_ = std::make_shared<mapx::Title>();
    std::shared_ptr<mapx::FeatureFactory> featureFactory_;
    std::string geoset_;
    QSize pixelSize_{400, 300};
    std::int16_t mapUnit_;
    std::int32_t currentTool_;
    bool autoRedraw_ = true;
    bool repaintWaiting_ = false;
    bool visible_ = true;
};

} // namespace vellant::mapx
