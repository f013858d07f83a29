#include "app/mapx_client/workspace_layer_settings.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/engine.h"
#include "hostmodel/mapx_constants.h"
#include "mapx/style.h"
#include "mapx/style_clauses.h"

namespace vellant::mapxclient {

namespace {

// LayerInfo's codes.
constexpr int kDisplay = 9;
constexpr int kSelectable = 3;
constexpr int kZoomLayered = 4;
constexpr int kZoomMin = 5;
constexpr int kZoomMax = 6;
constexpr int kLabelExpression = 15;
constexpr int kLabelFont = 18;
constexpr int kLabelParallel = 19;
constexpr int kLabelPosition = 20;
constexpr int kLabelVisibility = 25;
constexpr int kLabelZoomMin = 26;
constexpr int kLabelZoomMax = 27;
constexpr int kLabelAuto = 28;
constexpr int kLabelOverlap = 29;
constexpr int kLabelDuplicates = 30;
constexpr int kLabelOffset = 31;
// LayerInfo's label visibility.
constexpr int kLabelsOff = 1;
constexpr int kLabelsByZoom = 2;

Flag flag(bool on) {
    return on ? kTrue : kFalse;
}

// The label expression as a column of the layer's table, through a dataset of the layer.
void takeLabelField(hostmodel::MXMap& map, hostmodel::MXLayer& layer,
                    hostmodel::MXLabelProperties& labels, const std::string& expression) {
    if (expression.empty()) return;
    try {
        const auto dataset = map.Datasets()->Add(hostmodel::mapx::miDataSetLayer, layer);
        const auto field = dataset->Fields()->Item(Variant(expression));
        labels.setDataset(dataset);
        labels.setDataField(field);
    } catch (const RuntimeError&) {
        // An expression that is no plain column has no MapX field.
    }
}

void takeLabelFont(engine::Engine& engine, hostmodel::MXLabelProperties& labels,
                   const std::string& font) {
    auto* style = dynamic_cast<mapx::Style*>(labels.Style().get());
    if (style == nullptr || font.empty()) return;
    mapx::StyleData data = style->data();
    try {
        mapx::takePickerClauses(engine, data, mapx::PickKind::Text, font);
    } catch (const RuntimeError&) {
        return; // a font the workspace wrote and MapX cannot read keeps MapX's own
    }
    style->setData(data);
}

} // namespace

void takeWorkspaceLayerSettings(engine::Engine& engine, hostmodel::MXMap& map,
                                hostmodel::MXLayer& layer, const std::string& layerAt) {
    const auto info = [&](int code) {
        return engine.evaluate("LayerInfo(" + layerAt + "," + std::to_string(code) + ")")
            .toEvalText();
    };
    const auto on = [&](int code) { return info(code) == "T"; };
    const auto number = [&](int code) { return Val(info(code)); };

    layer.setVisible(flag(number(kDisplay) != 0)); // off, or drawn in any display mode
    layer.setSelectable(flag(on(kSelectable)));
    layer.setZoomMin(number(kZoomMin));
    layer.setZoomMax(number(kZoomMax));
    layer.setZoomLayer(flag(on(kZoomLayered)));
    if (layer.Type() != hostmodel::mapx::miLayerTypeNormal) return;

    layer.setAutolabel(flag(on(kLabelAuto)));
    const auto labels = layer.LabelProperties();
    const double visibility = number(kLabelVisibility);
    labels->setVisible(flag(visibility != kLabelsOff));
    labels->setLabelZoomMin(number(kLabelZoomMin));
    labels->setLabelZoomMax(number(kLabelZoomMax));
    labels->setLabelZoom(flag(visibility == kLabelsByZoom));
    labels->setOverlap(flag(on(kLabelOverlap)));
    labels->setDuplicate(flag(on(kLabelDuplicates)));
    labels->setOffset(static_cast<std::int32_t>(number(kLabelOffset)));
    labels->setParallel(flag(on(kLabelParallel)));
    // MapX numbers the nine anchors in MapBasic's order.
    labels->setPosition(static_cast<std::int32_t>(number(kLabelPosition)));
    takeLabelFont(engine, *labels, info(kLabelFont));
    takeLabelField(map, layer, *labels, info(kLabelExpression));
}

} // namespace vellant::mapxclient
