#pragma once
// A layer of a map window and its labels: everything Set Map sets for one layer and LayerInfo
// reads back. Zoom limits are kept in metres, whatever units they came in, and reported in the
// session's distance units. Styles are clauses in canonical form ("Pen (1,2,0)").

#include "engine/lang/style_clause.h"
#include "engine/map_object.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vellant::engine {

// LayerInfo(..., 9).
enum class LayerDisplay : int { Off = 0, Graphic = 1, Global = 2, Value = 3 };
// LayerInfo(..., 24).
enum class LayerKind : int { Normal = 0, Cosmetic = 1, Image = 2, Thematic = 3, Grid = 4, Wms = 5 };
// LayerInfo(..., 16).
enum class LabelLine : int { None = 0, Simple = 1, Arrow = 2 };
// LayerInfo(..., 25).
enum class LabelVisibility : int { Off = 1, Zoom = 2, On = 3 };
// LayerInfo(..., 38).
enum class LabelOrientation : int { Horizontal = 0, Parallel = 1, Curved = 2 };

// 10000 miles: the range a layer reports before a Zoom clause gives it one.
inline constexpr double kDefaultZoomMaxMetres = 16093440.0;

struct ZoomRange {
    bool on = false;
    double minMetres = 0;
    double maxMetres = kDefaultZoomMaxMetres;
    bool operator==(const ZoomRange&) const = default;
};

// One label moved or changed by hand (Set Map ... Label Object <row> ...).
struct LabelEdit {
    std::optional<bool> visible;
    std::optional<MapPoint> anchor;
    std::optional<int> position;
    std::optional<int> offset;
    std::optional<double> angle;
    std::optional<std::string> text;
    std::optional<std::string> font;
    std::optional<std::string> pen;
    std::optional<LabelLine> line;
    std::optional<MapPoint> calloutEnd;
    bool operator==(const LabelEdit&) const = default;
};

struct LabelSettings {
    std::string expression; // Label With, as written
    LabelLine line = LabelLine::None;
    int position = 0; // LayerInfo 20: 0 centre ... 8 below right
    std::string font = kInitialFont;
    bool fontGiven = false;        // LayerInfo 17 is T until a Label Font clause is given
    std::string pen = kInitialPen; // the call-out line
    LabelOrientation orientation = LabelOrientation::Horizontal;
    bool autoLabel = false;
    bool autoRetry = false;
    bool overlap = false;
    bool duplicates = false;
    bool partialSegments = false;
    int offset = 2;         // points, 0..200
    std::optional<int> max; // none: no limit
    LabelVisibility visibility = LabelVisibility::On;
    double zoomMinMetres = 0;
    double zoomMaxMetres = kDefaultZoomMaxMetres;
    int alpha = 255;
    std::map<std::int64_t, LabelEdit> edits; // by row
    bool operator==(const LabelSettings&) const = default;
};

struct Layer {
    std::string name; // the table's alias; "Cosmetic<n>" for the cosmetic layer
    LayerKind kind = LayerKind::Normal;
    LayerDisplay display = LayerDisplay::Graphic;
    std::string globalLine = kInitialPen;
    std::string globalPen = kInitialPen;
    std::string globalBrush = kInitialBrush;
    std::string globalSymbol = kInitialSymbol;
    std::string globalFont = kInitialFont;
    bool selectable = true;
    bool editable = false;
    bool nodes = false;
    bool arrows = false;
    bool centroids = false;
    ZoomRange zoom;
    LabelSettings label;
    int alpha = 255;
    int translucency = 0;
    std::string hotlinkExpression;
    int hotlinkMode = 0;
    bool hotlinkRelative = false;
    // A thematic layer's Shade statement from With to the end, as written.
    std::string thematicClauses;
    bool operator==(const Layer&) const = default;
};

// The largest number of labels Label Max takes; LayerInfo 32 answers it for "no limit".
inline constexpr int kNoLabelLimit = 2147483647;

} // namespace vellant::engine
