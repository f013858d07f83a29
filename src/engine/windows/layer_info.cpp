// LayerInfo(window_id, layer, attribute).

#include "engine/engine.h"
#include "engine/lang/registry.h"
#include "engine/tables/catalog.h"
#include "engine/windows/info_values.h"
#include "engine/windows/units.h"
#include "engine/windows/window_language_parts.h"
#include "engine/windows/window_manager.h"

namespace vellant::engine {

namespace {

constexpr const char* kFunction = "LayerInfo";

int layerNumber(const MapState& map, const MbValue& layer) {
    if (layer.type() == MbType::String) {
        const int number = map.findLayer(layer.asString());
        if (number < 0) raiseInvalidLayer(layer.asString());
        return number;
    }
    const double number = layer.asNumber();
    if (number != std::floor(number) || !map.layerAt(static_cast<int>(number))) {
        raiseInvalidLayer(layer.toEvalText());
    }
    return static_cast<int>(number);
}

MbValue style(MbType type, const std::string& clause) {
    return MbValue::style(type, clause);
}

MbValue layerInfo(Engine& engine, const Layer& layer, int number, int code) {
    const double unit = distanceUnitMetres(engine.settings().distanceUnits);
    const LabelSettings& label = layer.label;
    switch (code) {
    case 1:
        return MbValue::string(layer.name);
    case 2:
        return MbValue::logical(layer.editable);
    case 3:
        return MbValue::logical(layer.selectable);
    case 4:
        return MbValue::logical(layer.zoom.on);
    case 5:
        return MbValue::number(layer.zoom.minMetres / unit);
    case 6:
        return MbValue::number(layer.zoom.maxMetres / unit);
    case 7:
        return MbValue::logical(layer.kind == LayerKind::Cosmetic);
    case 8: {
        const Table* table =
            layer.kind == LayerKind::Cosmetic ? nullptr : engine.catalog().find(layer.name);
        return MbValue::string(table ? table->path() : std::string());
    }
    case 9:
        return smallInt(static_cast<int>(layer.display));
    case 10:
        return style(MbType::Pen, layer.globalLine);
    case 11:
        return style(MbType::Pen, layer.globalPen);
    case 12:
        return style(MbType::Brush, layer.globalBrush);
    case 13:
        return style(MbType::Symbol, layer.globalSymbol);
    case 14:
        return style(MbType::Font, layer.globalFont);
    case 15:
        return MbValue::string(label.expression);
    case 16:
        return smallInt(static_cast<int>(label.line));
    case 17:
        return MbValue::logical(!label.fontGiven);
    case 18:
        return style(MbType::Font, label.font);
    case 19:
        return MbValue::logical(label.orientation == LabelOrientation::Parallel);
    case 20:
        return smallInt(label.position);
    case 21:
        return MbValue::logical(layer.arrows);
    case 22:
        return MbValue::logical(layer.nodes);
    case 23:
        return MbValue::logical(layer.centroids);
    case 24:
        return smallInt(static_cast<int>(layer.kind));
    case 25:
        return smallInt(static_cast<int>(label.visibility));
    case 26:
        return MbValue::number(label.zoomMinMetres / unit);
    case 27:
        return MbValue::number(label.zoomMaxMetres / unit);
    case 28:
        return MbValue::logical(label.autoLabel);
    case 29:
        return MbValue::logical(label.overlap);
    case 30:
        return MbValue::logical(label.duplicates);
    case 31:
        return smallInt(label.offset);
    case 32:
        return MbValue::integer(label.max.value_or(kNoLabelLimit));
    case 33:
        return MbValue::logical(label.partialSegments);
    case 34:
        return MbValue::string(layer.hotlinkExpression);
    case 35:
        return smallInt(layer.hotlinkMode);
    case 36:
        return MbValue::logical(layer.hotlinkRelative);
    case 37:
        return smallInt(layer.hotlinkExpression.empty() ? 0 : 1);
    case 38:
        return smallInt(static_cast<int>(label.orientation));
    case 39:
        return smallInt(layer.alpha);
    case 40:
        return smallInt(layer.translucency);
    case 41:
        return smallInt(label.alpha);
    case 42:
        return smallInt(number); // no group layers: the list is the layers
    case 43:
        return smallInt(0);
    default:
        raiseArgumentOutOfRange(3, kFunction);
    }
}

} // namespace

void registerLayerInfo(Registry& registry) {
    registry.addFunction(kFunction, 3, 3, [](Engine& engine, std::vector<MbValue>& args) {
        const Window& window = engine.windows().getMap(windowIdArgument(args[0]));
        const MapState& map = *window.map;
        const int number = layerNumber(map, args[1]);
        const int code = attributeCode(args[2], 3, kFunction);
        return layerInfo(engine, *map.layerAt(number), number, code);
    });
}

} // namespace vellant::engine
