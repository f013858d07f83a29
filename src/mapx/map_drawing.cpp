#include "mapx/map_drawing.h"

#include "mapx/map.h"
#include "mapx/style_clauses.h"

namespace vellant::mapx {

namespace {

engine::LabelSettings labelSettingsOf(Layer& layer, double metresPerMapUnit) {
    const LabelProperties& labels = layer.labels();
    const LabelData& data = labels.data();
    engine::LabelSettings out;
    out.expression = labels.dataFieldName();
    out.autoLabel = layer.data().autoLabel;
    if (!data.visible)
        out.visibility = engine::LabelVisibility::Off;
    else if (data.labelZoom)
        out.visibility = engine::LabelVisibility::Zoom;
    else
        out.visibility = engine::LabelVisibility::On;
    out.zoomMinMetres = data.labelZoomMin * metresPerMapUnit;
    out.zoomMaxMetres = data.labelZoomMax * metresPerMapUnit;
    out.line = static_cast<engine::LabelLine>(data.lineType);
    out.offset = data.offset;
    out.max = data.labelMax < 0 ? std::optional<int>() : std::optional<int>(data.labelMax);
    out.overlap = data.overlap;
    out.duplicates = data.duplicate;
    out.partialSegments = data.partialSegments;
    out.orientation =
        data.parallel ? engine::LabelOrientation::Parallel : engine::LabelOrientation::Horizontal;
    out.position = data.position;
    out.font = engine::formatFont(textFont(labels.style().data()));
    out.fontGiven = true;
    return out;
}

} // namespace

engine::Layer engineLayerOf(Layer& layer, double metresPerMapUnit,
                            const std::filesystem::path& bitmapFolder) {
    const LayerData& data = layer.data();
    const StyleData& style = layer.style().data();
    engine::Layer out;
    out.name = layer.table().name();
    out.kind = layer.table().isRaster() ? engine::LayerKind::Image : engine::LayerKind::Normal;
    if (!data.visible)
        out.display = engine::LayerDisplay::Off;
    else if (data.overrideStyle)
        out.display = engine::LayerDisplay::Global;
    else
        out.display = engine::LayerDisplay::Graphic;
    out.globalLine = engine::formatPen(linePen(style));
    out.globalPen = engine::formatPen(borderPen(style));
    out.globalBrush = engine::formatBrush(regionBrush(style));
    out.globalSymbol = engine::formatSymbol(pointSymbol(style, bitmapFolder));
    out.globalFont = engine::formatFont(textFont(style));
    out.selectable = data.selectable;
    out.editable = data.editable;
    out.nodes = data.showNodes;
    out.arrows = data.showLineDirection;
    out.centroids = data.showCentroids;
    out.zoom.on = data.zoomLayer;
    out.zoom.minMetres = data.zoomMin * metresPerMapUnit;
    out.zoom.maxMetres = data.zoomMax * metresPerMapUnit;
    out.label = labelSettingsOf(layer, metresPerMapUnit);
    return out;
}

std::vector<engine::Layer> engineLayersOf(Map& map) {
    const double metres = map.metresPerMapUnit();
    std::vector<engine::Layer> layers;
    for (const auto& layer : map.layerList())
        layers.push_back(engineLayerOf(*layer, metres, map.runtime().symbolFolder()));
    return layers;
}

} // namespace vellant::mapx
