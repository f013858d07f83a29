#pragma once
// The numbers of the MapX-style object model, under the names a MapX client knows them by.
// Where MapX gives two readings of one number the one chosen here is noted.

#include <cstdint>

namespace vellant::hostmodel::mapx {

// Layer Type. A temporary layer that holds features is a normal layer (0): its FileSpec, which
// holds "~", tells it apart from a layer opened from a file.
inline constexpr std::int16_t miLayerTypeNormal = 0;
inline constexpr std::int16_t miLayerTypeRaster = 2;
inline constexpr std::int16_t miLayerTypeThematic = 3;
inline constexpr std::int16_t miLayerTypeSeamless = 4;
inline constexpr std::int16_t miLayerTypeUnknown = 5;
inline constexpr std::int16_t miLayerTypeUserDraw = 6;
inline constexpr std::int16_t miLayerTypeDrilldown = 7;

// LayerInfo Type: how Layers.Add makes the layer.
inline constexpr std::int16_t miLayerInfoTypeTab = 0;
inline constexpr std::int16_t miLayerInfoTypeRaster = 2;
inline constexpr std::int16_t miLayerInfoTypeShape = 3;
inline constexpr std::int16_t miLayerInfoTypeTemp = 6;

// Feature types, as GetFeatureType answers them.
inline constexpr std::int16_t miFeatureTypeRegion = 0;
inline constexpr std::int16_t miFeatureTypeLine = 1;
inline constexpr std::int16_t miFeatureTypeSymbol = 2;
inline constexpr std::int16_t miFeatureTypeMixed = 3;
inline constexpr std::int16_t miFeatureTypeUnknown = 4;
inline constexpr std::int16_t miFeatureTypeText = 5;
inline constexpr std::int16_t miFeatureTypeNull = 6;

// Map CurrentTool.
inline constexpr std::int32_t miArrowTool = 1000;
inline constexpr std::int32_t miPanTool = 1001;
inline constexpr std::int32_t miCenterTool = 1002;
inline constexpr std::int32_t miZoomInTool = 1003;
inline constexpr std::int32_t miZoomOutTool = 1004;
inline constexpr std::int32_t miSelectTool = 1007;

// Map MapUnit and CoordSys Units.
inline constexpr std::int16_t miUnitMile = 0;
inline constexpr std::int16_t miUnitKilometer = 1;
inline constexpr std::int16_t miUnitInch = 2;
inline constexpr std::int16_t miUnitFoot = 3;
inline constexpr std::int16_t miUnitYard = 4;
inline constexpr std::int16_t miUnitMillimeter = 5;
inline constexpr std::int16_t miUnitCentimeter = 6;
inline constexpr std::int16_t miUnitMeter = 7;
inline constexpr std::int16_t miUnitSurveyFoot = 8;
inline constexpr std::int16_t miUnitNauticalMile = 9;
inline constexpr std::int16_t miUnitTwip = 10;
inline constexpr std::int16_t miUnitPoint = 11;
inline constexpr std::int16_t miUnitPica = 12;
inline constexpr std::int16_t miUnitDegree = 13;
inline constexpr std::int16_t miUnitLink = 30;
inline constexpr std::int16_t miUnitChain = 31;
inline constexpr std::int16_t miUnitRod = 32;

// Label LineType.
inline constexpr std::int32_t miLabelLineNone = 0;
inline constexpr std::int32_t miLabelLineSimple = 1;
inline constexpr std::int32_t miLabelLineArrow = 2;

// Style: the unit of line and border widths, and the kind of point symbol.
inline constexpr std::int16_t miStyleUnitPixel = 0;
inline constexpr std::int16_t miStyleUnitTenthsOfPoint = 1;
inline constexpr std::int16_t miSymbolTypeTrueTypeFont = 0;
inline constexpr std::int16_t miSymbolTypeBitmap = 1;
inline constexpr std::int16_t miSymbolTypeVector = 2;
// Fill patterns take MapInfo's brush numbers (2 solid, 3.. hatches); 0 and 1 fill nothing.
inline constexpr std::int16_t miPatternNoFill = 0;
inline constexpr std::int16_t miPatternHollow = 1;
inline constexpr std::int16_t miPatternSolid = 2;
// Line styles take MapInfo's pen patterns: 1 no line, 2 solid, 3.. dashes.
inline constexpr std::int16_t miPenNone = 1;
inline constexpr std::int16_t miPenSolid = 2;

// A dataset bound to a layer's own table.
inline constexpr std::int16_t miDataSetLayer = 6;

// Export...Sample formats; the destination "CLIPBOARD" puts the picture on the clipboard.
inline constexpr std::int16_t miFormatBMP = 1;
inline constexpr const char* kClipboardDestination = "CLIPBOARD";

} // namespace vellant::hostmodel::mapx
