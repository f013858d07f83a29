#include "engine/windows/window_workspace.h"

#include "engine/engine.h"
#include "engine/mb_value_text.h"
#include "engine/windows/label_position.h"
#include "engine/windows/units.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_format.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vellant::engine {

namespace {

// Every digit the value needs, so that what is written reads back to the same number.
std::string num(double value) {
    return workspaceNumber(value);
}

std::string onOff(bool on) {
    return on ? "On" : "Off";
}

std::string inches(double value) {
    return num(value) + " Units \"in\"";
}

std::string placement(const Window& window) {
    const WindowPlacement& p = window.placement;
    return "  Position (" + num(p.x) + "," + num(p.y) + ") Units \"in\"\n  Width " +
           inches(p.width) + " Height " + inches(p.height) + "\n";
}

std::string range(double minMetres, double maxMetres, const std::string& units) {
    const double unit = distanceUnitMetres(units);
    return "(" + num(minMetres / unit) + ", " + num(maxMetres / unit) + ") Units " +
           quotedMbString(units);
}

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
    return line == LabelLine::Arrow ? "Arrow" : line == LabelLine::Simple ? "Simple" : "None";
}

std::string labelEdit(std::int64_t row, const LabelEdit& edit) {
    std::string text = "      Object " + std::to_string(row);
    if (edit.visible) text += " Visibility " + onOff(*edit.visible);
    if (edit.anchor) text += " Anchor (" + num(edit.anchor->x) + ", " + num(edit.anchor->y) + ")";
    if (edit.text) text += " Text " + quotedMbString(*edit.text);
    if (edit.position) text += " Position " + labelPositionWords(*edit.position);
    if (edit.offset) text += " Offset " + std::to_string(*edit.offset);
    if (edit.angle) text += " Angle " + num(*edit.angle);
    if (edit.font) text += " " + *edit.font;
    if (edit.pen) text += " " + *edit.pen;
    if (edit.line) {
        text += std::string(" Line ") + lineWord(*edit.line);
        if (edit.calloutEnd) {
            text += " (" + num(edit.calloutEnd->x) + ", " + num(edit.calloutEnd->y) + ")";
        }
    } else if (edit.calloutEnd) {
        text += " Callout (" + num(edit.calloutEnd->x) + ", " + num(edit.calloutEnd->y) + ")";
    }
    return text + "\n";
}

std::string labelClauses(const LabelSettings& label, const std::string& units) {
    std::string text = std::string("    Label Line ") + lineWord(label.line) + " Position " +
                       labelPositionWords(label.position);
    if (label.fontGiven) text += " " + label.font;
    text += " " + label.pen + "\n";
    if (!label.expression.empty()) text += "      With " + label.expression + "\n";
    text += "      Parallel " + onOff(label.orientation == LabelOrientation::Parallel);
    if (label.orientation == LabelOrientation::Curved) text += " Follow Path";
    text += " Auto " + onOff(label.autoLabel) + " Auto Retry " + onOff(label.autoRetry) +
            " Overlap " + onOff(label.overlap) + " Duplicates " + onOff(label.duplicates) +
            " PartialSegments " + onOff(label.partialSegments) + " Offset " +
            std::to_string(label.offset);
    text += label.max ? " Max " + std::to_string(*label.max) : " Max";
    if (label.alpha != 255) text += " LabelAlpha " + std::to_string(label.alpha);
    text += "\n      Visibility ";
    switch (label.visibility) {
    case LabelVisibility::Off:
        text += "Off";
        break;
    case LabelVisibility::Zoom:
        text += "Zoom " + range(label.zoomMinMetres, label.zoomMaxMetres, units);
        break;
    case LabelVisibility::On:
        text += "On";
        break;
    }
    text += "\n";
    for (const auto& [row, edit] : label.edits)
        text += labelEdit(row, edit);
    return text;
}

std::string layerClauses(const Layer& layer, int number, const std::string& units) {
    std::string text = "  Layer " + std::to_string(number) + "\n    Display " +
                       displayWord(layer.display) + "\n    Global " + layer.globalPen + "  " +
                       layer.globalBrush + "  " + layer.globalSymbol + "  " + "Line" +
                       layer.globalLine.substr(3) + "  " + layer.globalFont + "\n";
    text += "    Selectable " + onOff(layer.selectable) + " Editable " + onOff(layer.editable);
    text += " Arrows " + onOff(layer.arrows) + " Nodes " + onOff(layer.nodes) + " Centroids " +
            onOff(layer.centroids);
    if (layer.alpha != 255) text += " Alpha " + std::to_string(layer.alpha);
    if (layer.translucency != 0) text += " Translucency " + std::to_string(layer.translucency);
    text += "\n    Zoom " + range(layer.zoom.minMetres, layer.zoom.maxMetres, units) + " " +
            onOff(layer.zoom.on) + "\n";
    return text + labelClauses(layer.label, units);
}

std::string viewClauses(Engine& engine, const MapState& map) {
    double x = map.centreX;
    double y = map.centreY;
    engine.windows()
        .transforms()
        .between(map.coordSys, parseCoordSys(engine.settings().coordSys))
        .apply(x, y);
    const char* preserve = map.preserve == MapPreserve::Scale ? "Scale" : "Zoom";
    const char* display = map.statusDisplay == MapStatusDisplay::Scale  ? "Scale"
                          : map.statusDisplay == MapStatusDisplay::Zoom ? "Zoom"
                                                                        : "Position";
    return "Set Map\n  " + map.coordSys.clause(true) + "\n  Center (" + num(x) + "," + num(y) +
           ")\n  Zoom " + num(map.zoomMetres / distanceUnitMetres(map.distanceUnits)) + " Units " +
           quotedMbString(map.distanceUnits) + "\n  Preserve " + preserve + " Display " + display +
           "\n  Distance Units " + quotedMbString(map.distanceUnits) + " Area Units " +
           quotedMbString(map.areaUnits) + " XY Units " + quotedMbString(map.xyUnitName()) +
           "\n  Distance Type " + (map.cartesianDistance ? "Cartesian" : "Spherical") + "\n";
}

std::string windowClauses(const Window& window) {
    const WindowSettings& s = window.settings;
    std::string text = "Set Window FrontWindow() ScrollBars " + onOff(s.scrollBars) +
                       " Autoscroll " + onOff(s.autoscroll) + " Smart Pan " + onOff(s.smartPan) +
                       " SysMenuClose " + onOff(s.sysMenuClose) + "\n  Snap Mode " +
                       onOff(s.snapMode) + " Snap Tolerance " + std::to_string(s.snapThreshold) +
                       "\n  Enhanced " + onOff(s.enhancedRendering) + " Smooth Text " +
                       s.smoothText + " Image " + s.smoothImage + " Vector " + s.smoothVector +
                       "\n";
    const PrinterSettings& p = s.printer;
    text += "Set Window FrontWindow() Printer\n ";
    if (!p.name.empty()) text += " Name " + quotedMbString(p.name);
    text += std::string(" Orientation ") + (p.orientation == 2 ? "Landscape" : "Portrait") +
            " Copies " + std::to_string(p.copies) + "\n  Papersize " + std::to_string(p.paperSize) +
            " Border " + onOff(p.border) + " TrueColor " + onOff(p.trueColor) + "\n  Left Margin " +
            inches(p.leftMargin) + " Right Margin " + inches(p.rightMargin) + "\n  Top Margin " +
            inches(p.topMargin) + " Bottom Margin " + inches(p.bottomMargin) + "\n";
    if (window.hasCustomTitle())
        text += "Set Window FrontWindow() Title " + quotedMbString(window.title()) + "\n";
    if (window.state == WindowState::Maximized) text += "Set Window FrontWindow() Max\n";
    if (window.state == WindowState::Minimized) text += "Set Window FrontWindow() Min\n";
    return text;
}

} // namespace

std::string windowWorkspaceText(Engine& engine, const Window& window) {
    std::vector<int> all;
    if (window.type() != WindowType::Browser)
        for (int n = 1; n <= window.map->layerCount(); ++n)
            all.push_back(n);
    return windowWorkspaceText(engine, window, all);
}

std::string windowWorkspaceText(Engine& engine, const Window& window,
                                const std::vector<int>& keptLayers) {
    std::string text;
    if (window.type() == WindowType::Browser) {
        text = "Browse ";
        for (std::size_t i = 0; i < window.browseColumns.size(); ++i) {
            if (i) text += ", ";
            text += window.browseColumns[i];
        }
        text += " From " + window.browseTable + "\n" + placement(window);
        return text + windowClauses(window);
    }
    const MapState& map = *window.map;
    const auto layer = [&map](int n) -> const Layer& {
        return map.layers[static_cast<std::size_t>(n - 1)];
    };
    const auto isThematic = [&](int n) { return layer(n).kind == LayerKind::Thematic; };
    // Map From names the tables; thematic layers are made after it by Shade, each above the
    // layer it shades (the nearest other layer below it), and go with that layer.
    std::vector<int> kept, tablesLayers, thematic;
    for (std::size_t i = 0; i < keptLayers.size(); ++i) {
        const int n = keptLayers[i];
        if (isThematic(n)) {
            bool shaded = false;
            for (std::size_t k = i + 1; k < keptLayers.size() && !shaded; ++k)
                shaded = !isThematic(keptLayers[k]);
            if (!shaded) continue;
            thematic.push_back(n);
        } else {
            tablesLayers.push_back(n);
        }
        kept.push_back(n);
    }
    std::string tables;
    for (int n : tablesLayers) {
        if (!tables.empty()) tables += ",";
        tables += layer(n).name;
    }
    // A map of no layers cannot be made with Map From; its view and window still are written
    // after a Map From of nothing, which the host refuses, as it refuses to save such a map.
    text = "Map From " + tables + "\n" + placement(window);
    text += viewClauses(engine, map);
    const std::string& units = map.distanceUnits;
    text += "Set Map\n";
    int written = 0;
    for (int n : tablesLayers)
        text += layerClauses(layer(n), ++written, units);
    text += layerClauses(map.cosmetic, 0, units);
    if (!thematic.empty()) {
        // Shade puts a thematic layer directly above the layer it shades. So the layers shaded
        // are taken from the bottom one up, each with its thematic layers from the top one
        // down; the number of the layer shaded is the one it has among those made so far.
        std::vector<std::pair<int, int>> shades; // (layer shaded, thematic layer)
        for (int t : thematic)
            shades.emplace_back(*std::find_if(kept.begin(), kept.end(),
                                              [&](int n) { return n > t && !isThematic(n); }),
                                t);
        std::sort(shades.begin(), shades.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first > b.first : a.second < b.second;
        });
        std::vector<int> made = tablesLayers;
        for (const auto& [shadedLayer, t] : shades) {
            // Clang before 16 does not let a lambda capture a structured binding.
            const int shaded = shadedLayer;
            const auto number =
                1 + std::count_if(made.begin(), made.end(), [&](int n) { return n < shaded; });
            std::string clauses;
            for (char c : layer(t).thematicClauses)
                clauses += c == '\n' ? std::string("\n  ") : std::string(1, c);
            text += "Shade " + std::to_string(number) + " " + clauses + "\n";
            made.push_back(t);
        }
        text += "Set Map\n";
        for (std::size_t i = 0; i < kept.size(); ++i)
            if (isThematic(kept[i]))
                text += layerClauses(layer(kept[i]), static_cast<int>(i + 1), units);
    }
    return text + windowClauses(window);
}

} // namespace vellant::engine
