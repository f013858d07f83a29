#include "engine/workspace/map_workspace_text.h"

#include "engine/windows/coord_transform.h"
#include "engine/windows/coordsys.h"
#include "engine/windows/label_position.h"
#include "engine/windows/map_state.h"
#include "engine/workspace/workspace_format.h"

namespace vellant::engine {

namespace {

const char* displayWord(LayerDisplay display) {
    switch (display) {
    case LayerDisplay::Off:
        return "Off";
    case LayerDisplay::Global:
        return "Global";
    case LayerDisplay::Value:
        return "Value";
    case LayerDisplay::Graphic:
        break;
    }
    return "Graphic";
}

const char* lineWord(LabelLine line) {
    switch (line) {
    case LabelLine::Simple:
        return "Simple";
    case LabelLine::Arrow:
        return "Arrow";
    case LabelLine::None:
        break;
    }
    return "None";
}

// Lengths go in metres, the unit the host keeps them in, so that they read back unchanged.
std::string metresRange(double min, double max) {
    return "(" + workspaceNumber(min) + ", " + workspaceNumber(max) + ") Units \"m\"";
}

std::string point(const MapPoint& p) {
    return "(" + workspaceNumber(p.x) + ", " + workspaceNumber(p.y) + ")";
}

std::string labelEditText(std::int64_t row, const LabelEdit& edit) {
    std::string text = "      Object " + std::to_string(row);
    if (edit.visible) text += std::string(" Visibility ") + onOff(*edit.visible);
    if (edit.anchor) text += " Anchor " + point(*edit.anchor);
    if (edit.text) text += " Text " + workspaceString(*edit.text);
    if (edit.position) text += " Position " + labelPositionWords(*edit.position);
    if (edit.offset) text += " Offset " + std::to_string(*edit.offset);
    if (edit.angle) text += " Angle " + workspaceNumber(*edit.angle);
    if (edit.font) text += " " + *edit.font;
    if (edit.pen) text += " " + *edit.pen;
    if (edit.line) {
        text += std::string(" Line ") + lineWord(*edit.line);
        if (edit.calloutEnd) text += " " + point(*edit.calloutEnd);
    } else if (edit.calloutEnd) {
        text += " Callout " + point(*edit.calloutEnd);
    }
    return text + "\n";
}

std::string labelText(const LabelSettings& label) {
    std::string text = "    Label Line " + std::string(lineWord(label.line)) + " Position " +
                       labelPositionWords(label.position);
    if (label.fontGiven) text += " " + label.font;
    text += " " + label.pen + "\n";
    if (!label.expression.empty()) text += "      With " + label.expression + "\n";
    text += std::string("      Parallel ") + onOff(label.orientation == LabelOrientation::Parallel);
    if (label.orientation == LabelOrientation::Curved) text += " Follow Path";
    text += std::string(" Auto ") + onOff(label.autoLabel) + " Auto Retry " +
            onOff(label.autoRetry) + " Overlap " + onOff(label.overlap) + " Duplicates " +
            onOff(label.duplicates) + " PartialSegments " + onOff(label.partialSegments) +
            " Offset " + std::to_string(label.offset) + " Max";
    if (label.max) text += " " + std::to_string(*label.max);
    text += "\n      Visibility ";
    switch (label.visibility) {
    case LabelVisibility::Zoom:
        text += "Zoom " + metresRange(label.zoomMinMetres, label.zoomMaxMetres);
        break;
    case LabelVisibility::Off:
        text += "Off";
        break;
    case LabelVisibility::On:
        text += "On";
        break;
    }
    text += " LabelAlpha " + std::to_string(label.alpha) + "\n";
    for (const auto& [row, edit] : label.edits)
        text += labelEditText(row, edit);
    return text;
}

std::string layerText(int number, const Layer& layer, bool editable) {
    std::string text = "  Layer " + std::to_string(number) + "\n";
    text += std::string("    Display ") + displayWord(layer.display) + "\n";
    text += "    Global Line " + layer.globalLine.substr(layer.globalLine.find(' ') + 1) + "  " +
            layer.globalPen + "  " + layer.globalBrush + "  " + layer.globalSymbol + "  " +
            layer.globalFont + "\n";
    text += std::string("    Selectable ") + onOff(layer.selectable) + " Editable " +
            onOff(editable) + " Arrows " + onOff(layer.arrows) + " Nodes " + onOff(layer.nodes) +
            " Centroids " + onOff(layer.centroids) + "\n";
    text += "    Zoom " + metresRange(layer.zoom.minMetres, layer.zoom.maxMetres) + " " +
            onOff(layer.zoom.on) + " Alpha " + std::to_string(layer.alpha) + " Translucency " +
            std::to_string(layer.translucency) + "\n";
    return text + labelText(layer.label);
}

} // namespace

std::string mapViewText(const MapState& map, const std::string& sessionCoordSys) {
    double x = map.centreX;
    double y = map.centreY;
    CoordTransform(map.coordSys, parseCoordSys(sessionCoordSys)).apply(x, y);
    std::string text = "Set Map\n";
    text += "  " + map.coordSys.clause(true) + "\n";
    text += "  Center (" + workspaceNumber(x) + ", " + workspaceNumber(y) + ")\n";
    text += "  Zoom " + workspaceNumber(map.zoomMetres) + " Units \"m\"\n";
    text += std::string("  Preserve ") + (map.preserve == MapPreserve::Scale ? "Scale" : "Zoom");
    text += " Display ";
    switch (map.statusDisplay) {
    case MapStatusDisplay::Scale:
        text += "Scale";
        break;
    case MapStatusDisplay::Position:
        text += "Position";
        break;
    case MapStatusDisplay::Zoom:
        text += "Zoom";
        break;
    }
    text += "\n  Distance Units " + workspaceString(map.distanceUnits) + " Area Units " +
            workspaceString(map.areaUnits);
    if (map.xyUnits) text += " XY Units " + workspaceString(*map.xyUnits);
    text += std::string(" Distance Type ") + (map.cartesianDistance ? "Cartesian" : "Spherical");
    return text + "\n";
}

std::string mapLayersText(const MapState& map, const std::vector<int>& keptLayers) {
    const int editable = map.editableLayer();
    std::string text = "Set Map\n";
    for (std::size_t i = 0; i < keptLayers.size(); ++i) {
        const int number = keptLayers[i];
        text += layerText(static_cast<int>(i + 1), *map.layerAt(number), editable == number);
    }
    return text + layerText(0, map.cosmetic, editable == 0);
}

} // namespace vellant::engine
