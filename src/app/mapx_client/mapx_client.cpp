#include "app/mapx_client/mapx_client.h"

#include "app/mapx_client/workspace_layer_settings.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "hostmodel/mapx_constants.h"
#include "mapx/mapx_classes.h"

#include <algorithm>

namespace vellant::mapxclient {

namespace {

// Of the width and height of everything, added on each side of the whole map.
constexpr double kWholeMapMargin = 0.05;

constexpr int kWindowName = 1;
constexpr int kWindowType = 3;
constexpr int kMapWindowType = 1;
constexpr int kMapLayerCount = 9;
constexpr int kLayerName = 1;
constexpr int kTableFile = 19;

std::string flag(bool value) {
    return value ? "T" : "F";
}

std::string number(double value) {
    return Trim(Str(value));
}

// The field the labels show, or "" for none.
std::string labelField(hostmodel::MXLabelProperties& labels) {
    try {
        return labels.DataField()->Name();
    } catch (const RuntimeError&) {
        return {};
    }
}

void describeLayer(hostmodel::MXLayer& layer, const std::string& at, std::vector<MapXValue>& out) {
    const auto add = [&](const std::string& name, const std::string& value) {
        out.emplace_back(at + " " + name, value);
    };
    add("Name", layer.Name());
    add("Visible", flag(layer.Visible()));
    add("ZoomLayer", flag(layer.ZoomLayer()));
    add("ZoomMin", number(layer.ZoomMin()));
    add("ZoomMax", number(layer.ZoomMax()));
    if (layer.Type() != 0) return;
    add("Selectable", flag(layer.Selectable()));
    add("AutoLabel", flag(layer.Autolabel()));
    add("Editable", flag(layer.Editable()));
    add("OverrideStyle", flag(layer.overridestyle()));
    const auto style = layer.Style();
    add("Style.LineColor", number(style->LineColor()));
    add("Style.LineWidth", number(style->LineWidth()));
    add("Style.RegionColor", number(style->RegionColor()));
    add("Style.RegionPattern", number(style->RegionPattern()));
    add("Style.SymbolCharacter", number(style->SymbolCharacter()));
    add("Style.SymbolFontColor", number(style->SymbolFontColor()));
    const auto labels = layer.LabelProperties();
    add("LabelProperties.Visible", flag(labels->Visible()));
    add("LabelProperties.LabelZoom", flag(labels->LabelZoom()));
    add("LabelProperties.LabelMax", number(labels->LabelMax()));
    add("LabelProperties.Position", number(labels->Position()));
    add("LabelProperties.LabelZoomMax", number(labels->LabelZoomMax()));
    add("LabelProperties.DataField", labelField(*labels));
    add("LabelProperties.Style.TextFont",
        labels->Style()->TextFont()->Name() + " " + number(labels->Style()->TextFont()->Size()));
    add("LabelProperties.Style.TextFontColor", number(labels->Style()->TextFontColor()));
}

} // namespace

MapXClient::MapXClient(engine::Engine& engine, platform::Toolkit& toolkit,
                       platform::AutomationRegistry& registry, mapx::StylePicker& picker)
    : engine_(engine), registry_(registry), runtime_(engine, &toolkit, &picker) {
    mapx::registerMapXClasses(registry_, runtime_);
}

MapXClient::~MapXClient() {
    mapx::unregisterMapXClasses(registry_);
}

std::shared_ptr<hostmodel::MXMap> MapXClient::openFrontMap(std::vector<std::string>& leftOut) {
    const auto eval = [&](const std::string& expression) {
        return engine_.evaluate(expression).toEvalText();
    };
    const std::string window = Trim(eval("FrontWindow()"));
    if (window == "0" || Val(eval("WindowInfo(" + window + "," + std::to_string(kWindowType) +
                                  ")")) != kMapWindowType)
        raiseError(kErrInvalidCall, "The workspace has no map window in front");
    auto map = std::dynamic_pointer_cast<hostmodel::MXMap>(registry_.CreateObject("MapX.Map.4"));
    // As a MapX client does before it calls the tool: the title keys the map's preferences.
    map->Title()->setCaption(
        eval("WindowInfo(" + window + "," + std::to_string(kWindowName) + ")"));
    map->Title()->setVisible(false);
    const int count = static_cast<int>(
        Val(eval("MapperInfo(" + window + "," + std::to_string(kMapLayerCount) + ")")));
    for (int i = 1; i <= count; ++i) {
        const std::string at = window + "," + std::to_string(i);
        const std::string table = eval("LayerInfo(" + at + "," + std::to_string(kLayerName) + ")");
        const std::string file =
            eval("TableInfo(" + table + "," + std::to_string(kTableFile) + ")");
        if (file.empty()) {
            leftOut.push_back(table + ": no file of its own");
            continue;
        }
        std::shared_ptr<hostmodel::MXLayer> layer;
        try {
            layer = map->Layers()->Add(Variant(file), map->Layers()->Count() + 1);
        } catch (const RuntimeError& e) {
            leftOut.push_back(table + ": " + e.description());
            continue;
        }
        try {
            takeWorkspaceLayerSettings(engine_, *map, *layer, at);
        } catch (const engine::MbError& e) {
            leftOut.push_back(table + ": its settings: " + e.what());
        }
    }
    showWholeMap(*map);
    return map;
}

void MapXClient::showWholeMap(hostmodel::MXMap& map) {
    const auto layers = map.Layers();
    bool any = false;
    double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    for (int i = 1; i <= layers->Count(); ++i) {
        try {
            const auto layer = layers->Item(Variant(i));
            // An empty layer's box is nothing; a raster's is its image.
            if (layer->Type() != hostmodel::mapx::miLayerTypeRaster &&
                layer->AllFeatures()->Count() == 0)
                continue;
            const auto bounds = layer->Bounds();
            xMin = any ? std::min(xMin, bounds->XMin()) : bounds->XMin();
            yMin = any ? std::min(yMin, bounds->YMin()) : bounds->YMin();
            xMax = any ? std::max(xMax, bounds->XMax()) : bounds->XMax();
            yMax = any ? std::max(yMax, bounds->YMax()) : bounds->YMax();
            any = true;
        } catch (const RuntimeError&) {
            // A layer whose table cannot be read has no extent to show.
        }
    }
    if (!any) return;
    // A margin keeps the symbols and labels of the outermost objects whole.
    const double marginX = (xMax - xMin) * kWholeMapMargin;
    const double marginY = (yMax - yMin) * kWholeMapMargin;
    xMin -= marginX;
    xMax += marginX;
    yMin -= marginY;
    yMax += marginY;
    auto rectangle = std::dynamic_pointer_cast<hostmodel::MXRectangle>(
        registry_.CreateObject("MapX.Rectangle.4"));
    if (!rectangle) return;
    rectangle->Set(xMin, yMin, xMax, yMax);
    map.setBounds(*rectangle);
}

std::vector<MapXValue> MapXClient::describe(hostmodel::MXMap& map) {
    std::vector<MapXValue> out;
    const auto layers = map.Layers();
    out.emplace_back("Layers.Count", std::to_string(layers->Count()));
    out.emplace_back("Datasets.Count", std::to_string(map.Datasets()->Count()));
    for (int i = 1; i <= layers->Count(); ++i)
        describeLayer(*layers->Item(Variant(i)), "layer " + std::to_string(i), out);
    return out;
}

} // namespace vellant::mapxclient
