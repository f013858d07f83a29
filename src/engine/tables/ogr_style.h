#pragma once
// OGR feature style strings ("PEN(w:1px,c:#000000,id:\"mapinfo-pen-2,ogr-pen-0\")") as
// MapInfo styles, and back. GDAL's MapInfo driver puts the MapInfo numbers into the ids
// ("mapinfo-pen-2", "mapinfo-brush-5", "mapinfo-sym-35", "font-sym-N",
// "mapinfo-custom-sym-S-file.bmp"); styles from other formats are mapped through the OGR ids
// and the explicit parameters. A text object comes from GDAL as a point with a LABEL tool.
//
// Reading never fails: a part that cannot be read is left out, as a feature without that style.

#include "engine/tables/style_clause.h"

#include <optional>
#include <string>
#include <string_view>

namespace vellant::engine {

struct OgrLabel {
    std::string text;
    double angle = 0;  // degrees, counter-clockwise
    double height = 0; // ground units of the text box (GDAL reports 69% of it as "s:")
    FontStyle font;    // size 0: a text object's size comes from its box
};

struct OgrStyle {
    std::optional<PenStyle> pen;
    std::optional<BrushStyle> brush;
    std::optional<SymbolStyle> symbol;
    std::optional<OgrLabel> label;
};

OgrStyle readOgrStyle(std::string_view styleString);

// Style strings GDAL's MapInfo driver reads back to the same MapInfo numbers.
std::string ogrPenString(const PenStyle& pen);
std::string ogrBrushString(const BrushStyle& brush);
std::string ogrSymbolString(const SymbolStyle& symbol);
std::string ogrLabelString(const OgrLabel& label);

} // namespace vellant::engine
