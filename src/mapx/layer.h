#pragma once
// A layer of a MapX map over a table of its own in the engine's catalog: a file opened by its
// FileSpec, or a temporary table in memory (its FileSpec holds "~" and names no file). The
// table joins the catalog under a name of its own while the layer is on a map, so the renderer
// draws it; the layer's Name is the client's and need not be unique.
//
// Values are kept as given (no cross-checks), except that at most one layer of a map is
// editable. Zoom limits are in the map's MapUnit. A layer taken off its map keeps its values;
// what needs the table (features, bounds, datasets) is then error 91.

#include "engine/tables/table.h"
#include "hostmodel/mapx_map.h"
#include "mapx/dataset.h"
#include "mapx/label_properties.h"
#include "mapx/style.h"

#include <memory>
#include <string>

namespace vellant::mapx {

class Map;

struct LayerData {
    bool visible = true;
    bool selectable = true;
    bool editable = false;
    bool autoLabel = false;
    bool showNodes = false;
    bool showLineDirection = false;
    bool showCentroids = false;
    bool zoomLayer = false;
    double zoomMin = 0;
    double zoomMax = 10000;
    bool overrideStyle = false;
};

class Layer : public hostmodel::MXLayer, public PartListener {
public:
    // The table must not be in the catalog yet; the layer adds it under its own name.
    Layer(Map& map, std::string name, std::string fileSpec, std::int16_t type,
          std::unique_ptr<engine::Table> table);
    ~Layer() override;
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    // The layer leaves its map: its table leaves the catalog and is closed.
    void detach();
    Map* map() const { return map_; }
    // The layer's table; error 91 for a layer that has left its map.
    engine::Table& table();
    const LayerData& data() const { return data_; }
    const mapx::Style& style() const { return *style_; }
    const mapx::LabelProperties& labels() const { return *labels_; }
    mapx::Datasets& datasets() { return *datasets_; }
    // Editable without taking it from the others (the map does that).
    void clearEditable() { data_.editable = false; }

    std::string Name() override { return name_; }
    void setName(const std::string& value) override { name_ = value; }
    std::int16_t Type() override { return type_; }
    std::string FileSpec() override { return fileSpec_; }

    bool Visible() override { return data_.visible; }
    void setVisible(Flag value) override { set(data_.visible, value != kFalse); }
    bool Selectable() override { return data_.selectable; }
    void setSelectable(Flag value) override { set(data_.selectable, value != kFalse); }
    bool Shownodes() override { return data_.showNodes; }
    void setShownodes(Flag value) override { set(data_.showNodes, value != kFalse); }
    bool Showlinedirection() override { return data_.showLineDirection; }
    void setShowlinedirection(Flag value) override {
        set(data_.showLineDirection, value != kFalse);
    }
    bool ShowCentroids() override { return data_.showCentroids; }
    void setShowCentroids(Flag value) override { set(data_.showCentroids, value != kFalse); }
    bool Autolabel() override { return data_.autoLabel; }
    void setAutolabel(Flag value) override { set(data_.autoLabel, value != kFalse); }
    bool Editable() override { return data_.editable; }
    void setEditable(Flag value) override;
    bool ZoomLayer() override { return data_.zoomLayer; }
    void setZoomLayer(Flag value) override { set(data_.zoomLayer, value != kFalse); }
    double ZoomMin() override { return data_.zoomMin; }
    void setZoomMin(double value) override { set(data_.zoomMin, value); }
    double ZoomMax() override { return data_.zoomMax; }
    void setZoomMax(double value) override { set(data_.zoomMax, value); }
    bool overridestyle() override { return data_.overrideStyle; }
    void setoverridestyle(Flag value) override { set(data_.overrideStyle, value != kFalse); }
    // Over all features: 6 for none, 3 for more than one kind; 4 for a layer of no features
    // (a raster).
    std::int16_t PredominantFeatureType() override;

    std::shared_ptr<hostmodel::MXStyle> Style() override { return style_; }
    std::shared_ptr<hostmodel::MXLabelProperties> LabelProperties() override { return labels_; }
    std::shared_ptr<hostmodel::MXCoordSys> CoordSys() override;
    std::shared_ptr<hostmodel::MXFeatures> AllFeatures() override;
    std::shared_ptr<hostmodel::MXFeatures> NoFeatures() override;
    std::shared_ptr<hostmodel::MXRectangle> Bounds() override;
    std::shared_ptr<hostmodel::MXDatasets> Datasets() override { return datasets_; }
    void AddFeature(hostmodel::MXFeature& feature) override;

    void partChanged() override;

private:
    template <class T> void set(T& field, const T& value) {
        if (field == value) return;
        field = value;
        partChanged();
    }

    Map* map_;
    std::string name_;
    std::string fileSpec_;
    std::int16_t type_;
    std::unique_ptr<engine::Table> table_;
    LayerData data_;
    std::shared_ptr<mapx::Style> style_;
    std::shared_ptr<mapx::LabelProperties> labels_;
    std::shared_ptr<mapx::Datasets> datasets_;
};

} // namespace vellant::mapx
