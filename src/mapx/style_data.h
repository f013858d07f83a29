#pragma once
// The values a MapX Style holds, as plain data, and their defaults: a thin black solid line, a
// solid white region with a thin black border, the classic star symbol and 9-point Arial
// text. Colours are OLE colours (0x00BBGGRR).

#include "hostmodel/mapx_constants.h"

#include <cstdint>
#include <string>

namespace vellant::mapx {

namespace mx = hostmodel::mapx;

struct FontData {
    std::string name = "Arial";
    double size = 9; // points
    std::int16_t weight = 400;
    std::int16_t charset = 0;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
    bool operator==(const FontData&) const = default;
};

inline constexpr std::int16_t kNormalWeight = 400;
inline constexpr std::int16_t kBoldWeight = 700;
// A weight from here up reads as bold, as the desktop's font object has it.
inline constexpr std::int16_t kBoldFromWeight = 550;

inline constexpr std::int32_t kOleBlack = 0;
inline constexpr std::int32_t kOleWhite = 0xFFFFFF;

struct StyleData {
    std::int16_t lineStyle = mx::miPenSolid;
    std::int32_t lineColor = kOleBlack;
    bool lineInterleaved = false;
    std::int16_t lineWidth = 1;
    std::int16_t lineWidthUnit = mx::miStyleUnitPixel;

    std::int32_t regionBackColor = kOleWhite;
    std::int32_t regionBorderColor = kOleBlack;
    std::int16_t regionBorderStyle = mx::miPenSolid;
    std::int16_t regionBorderWidth = 1;
    std::int16_t regionBorderWidthUnit = mx::miStyleUnitPixel;
    std::int32_t regionColor = kOleWhite;
    std::int16_t regionPattern = mx::miPatternSolid;
    bool regionTransparent = false;

    std::int16_t symbolType = mx::miSymbolTypeVector;
    std::int32_t symbolBitmapColor = kOleBlack;
    std::string symbolBitmapName;
    bool symbolBitmapOverrideColor = false;
    std::int16_t symbolBitmapSize = 12;
    bool symbolBitmapTransparent = false;
    std::int16_t symbolCharacter = 35;
    FontData symbolFont{"MapInfo Symbols", 12};
    std::int32_t symbolFontBackColor = kOleWhite;
    std::int32_t symbolFontColor = kOleBlack;
    bool symbolFontHalo = false;
    bool symbolFontOpaque = false;
    double symbolFontRotation = 0;
    bool symbolFontShadow = false;
    std::int32_t symbolVectorColor = kOleBlack;
    std::int16_t symbolVectorSize = 12;

    FontData textFont;
    bool textFontAllCaps = false;
    std::int32_t textFontBackColor = kOleWhite;
    std::int32_t textFontColor = kOleBlack;
    bool textFontDblSpace = false;
    bool textFontHalo = false;
    bool textFontOpaque = false;
    double textFontRotation = 0;
    bool textFontShadow = false;

    bool operator==(const StyleData&) const = default;
};

} // namespace vellant::mapx
