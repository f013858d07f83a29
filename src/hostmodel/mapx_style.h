#pragma once
// The MapX host's style objects as the program sees them: a Style with every property the
// style and label copies walk, its two font objects, the four pickers and the four samples.
// A layer's or a label's Style is live: a write changes what the map draws.
//
// Colours are OLE colours, 0x00BBGGRR (255 is red). Property lets take their value as the
// client's typed variable holds it; a picker or a sample raises a run-time error for what it
// cannot do.

#include "hostmodel/map_object.h"

#include <cstdint>
#include <string>

namespace vellant::hostmodel {

// A font as a style holds it: the desktop's standard font object.
class MXFont : public platform::AutomationObject {
public:
    virtual bool Bold() = 0;
    virtual void setBold(bool value) = 0;
    virtual std::int16_t Charset() = 0;
    virtual void setCharset(std::int16_t value) = 0;
    virtual bool Italic() = 0;
    virtual void setItalic(bool value) = 0;
    virtual std::string Name() = 0;
    virtual void setName(const std::string& value) = 0;
    // Points.
    virtual double Size() = 0;
    virtual void setSize(double value) = 0;
    virtual bool Strikethrough() = 0;
    virtual void setStrikethrough(bool value) = 0;
    virtual bool Underline() = 0;
    virtual void setUnderline(bool value) = 0;
    // 400 normal, 700 bold; Bold follows it and sets it.
    virtual std::int16_t Weight() = 0;
    virtual void setWeight(std::int16_t value) = 0;
};

class MXStyle : public IStyle {
public:
    // Lines. LineStyle (IStyle) is the pen pattern.
    virtual void setLineStyle(std::int16_t value) = 0;
    virtual std::int32_t LineColor() = 0;
    virtual void setLineColor(std::int32_t value) = 0;
    virtual bool LineInterleaved() = 0;
    virtual void setLineInterleaved(bool value) = 0;
    virtual std::int16_t LineWidth() = 0;
    virtual void setLineWidth(std::int16_t value) = 0;
    virtual std::int16_t LineWidthUnit() = 0;
    virtual void setLineWidthUnit(std::int16_t value) = 0;

    // Regions.
    virtual std::int32_t RegionBackColor() = 0;
    virtual void setRegionBackColor(std::int32_t value) = 0;
    virtual std::int32_t RegionBorderColor() = 0;
    virtual void setRegionBorderColor(std::int32_t value) = 0;
    virtual std::int16_t RegionBorderStyle() = 0;
    virtual void setRegionBorderStyle(std::int16_t value) = 0;
    virtual std::int16_t RegionBorderWidth() = 0;
    virtual void setRegionBorderWidth(std::int16_t value) = 0;
    virtual std::int16_t RegionBorderWidthUnit() = 0;
    virtual void setRegionBorderWidthUnit(std::int16_t value) = 0;
    virtual std::int32_t RegionColor() = 0;
    virtual void setRegionColor(std::int32_t value) = 0;
    virtual std::int16_t RegionPattern() = 0;
    virtual void setRegionPattern(std::int16_t value) = 0;
    virtual bool RegionTransparent() = 0;
    virtual void setRegionTransparent(bool value) = 0;

    // Symbols: the kind, then what each kind reads.
    virtual std::int16_t SymbolType() = 0;
    virtual void setSymbolType(std::int16_t value) = 0;
    virtual std::int32_t SymbolBitmapColor() = 0;
    virtual void setSymbolBitmapColor(std::int32_t value) = 0;
    virtual std::string SymbolBitmapName() = 0;
    // Raises a run-time error for a bitmap the host cannot find.
    virtual void setSymbolBitmapName(const std::string& value) = 0;
    virtual bool SymbolBitmapOverrideColor() = 0;
    virtual void setSymbolBitmapOverrideColor(bool value) = 0;
    virtual std::int16_t SymbolBitmapSize() = 0;
    virtual void setSymbolBitmapSize(std::int16_t value) = 0;
    virtual bool SymbolBitmapTransparent() = 0;
    virtual void setSymbolBitmapTransparent(bool value) = 0;
    virtual std::int16_t SymbolCharacter() = 0;
    virtual void setSymbolCharacter(std::int16_t value) = 0;
    virtual std::shared_ptr<MXFont> SymbolFont() = 0;
    virtual std::int32_t SymbolFontBackColor() = 0;
    virtual void setSymbolFontBackColor(std::int32_t value) = 0;
    virtual std::int32_t SymbolFontColor() = 0;
    virtual void setSymbolFontColor(std::int32_t value) = 0;
    virtual bool SymbolFontHalo() = 0;
    virtual void setSymbolFontHalo(bool value) = 0;
    virtual bool SymbolFontOpaque() = 0;
    virtual void setSymbolFontOpaque(bool value) = 0;
    virtual double SymbolFontRotation() = 0;
    virtual void setSymbolFontRotation(double value) = 0;
    virtual bool SymbolFontShadow() = 0;
    virtual void setSymbolFontShadow(bool value) = 0;
    virtual std::int32_t SymbolVectorColor() = 0;
    virtual void setSymbolVectorColor(std::int32_t value) = 0;
    virtual std::int16_t SymbolVectorSize() = 0;
    virtual void setSymbolVectorSize(std::int16_t value) = 0;

    // Text.
    virtual std::shared_ptr<MXFont> TextFont() = 0;
    virtual bool TextFontAllCaps() = 0;
    virtual void setTextFontAllCaps(bool value) = 0;
    virtual std::int32_t TextFontBackColor() = 0;
    virtual void setTextFontBackColor(std::int32_t value) = 0;
    virtual std::int32_t TextFontColor() = 0;
    virtual void setTextFontColor(std::int32_t value) = 0;
    virtual bool TextFontDblSpace() = 0;
    virtual void setTextFontDblSpace(bool value) = 0;
    virtual bool TextFontHalo() = 0;
    virtual void setTextFontHalo(bool value) = 0;
    virtual bool TextFontOpaque() = 0;
    virtual void setTextFontOpaque(bool value) = 0;
    virtual double TextFontRotation() = 0;
    virtual void setTextFontRotation(double value) = 0;
    virtual bool TextFontShadow() = 0;
    virtual void setTextFontShadow(bool value) = 0;

    // The pickers block until the user has chosen; true when a style was chosen, false when
    // the user cancelled and the style is unchanged.
    virtual bool PickRegion() = 0;
    virtual bool PickLine() = 0;
    virtual bool PickSymbol() = 0;
    virtual bool PickText() = 0;

    // A sample of the style, width by height pixels, to a file or to the clipboard
    // (destination "CLIPBOARD"); format 1 is a BMP picture.
    virtual void ExportRegionSample(const std::string& destination, std::int16_t format,
                                    double width, double height) = 0;
    virtual void ExportLineSample(const std::string& destination, std::int16_t format, double width,
                                  double height) = 0;
    virtual void ExportSymbolSample(const std::string& destination, std::int16_t format,
                                    double width, double height) = 0;
    // The text on a ground of backColor.
    virtual void ExportTextSample(const std::string& destination, std::int16_t format, double width,
                                  double height, const std::string& text,
                                  std::int32_t backColor) = 0;
};

} // namespace vellant::hostmodel
