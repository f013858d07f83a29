#pragma once
// The MapX Style: lines, regions, symbols and text, the four pickers and the four samples.
// A layer's or a label's style is live: whoever draws with it hears of every change, and its map
// repaints. A style made by "MapX.Style.4" belongs to nobody until a let copies it somewhere.

#include "hostmodel/mapx_style.h"
#include "mapx/mapx_runtime.h"
#include "mapx/style_clauses.h"
#include "mapx/style_core.h"
#include "mapx/style_font.h"

#include <memory>

namespace vellant::mapx {

class Style : public hostmodel::MXStyle {
public:
    static constexpr const char* kClassName = "MapX.Style.4";

    explicit Style(MapXRuntime& runtime);

    const StyleData& data() const { return core_->data; }
    // All values at once; whoever draws with the style hears of it once.
    void setData(const StyleData& data);
    // The values of another style, as a let of a Style property copies them.
    void assign(hostmodel::MXStyle& other);
    void setListener(PartListener* listener) { core_->listener = listener; }

    std::int16_t LineStyle() override { return data().lineStyle; }
    void setLineStyle(std::int16_t value) override { set(&StyleData::lineStyle, value); }
    std::int32_t LineColor() override { return data().lineColor; }
    void setLineColor(std::int32_t value) override { set(&StyleData::lineColor, value); }
    bool LineInterleaved() override { return data().lineInterleaved; }
    void setLineInterleaved(bool value) override { set(&StyleData::lineInterleaved, value); }
    std::int16_t LineWidth() override { return data().lineWidth; }
    void setLineWidth(std::int16_t value) override { set(&StyleData::lineWidth, value); }
    std::int16_t LineWidthUnit() override { return data().lineWidthUnit; }
    void setLineWidthUnit(std::int16_t value) override { set(&StyleData::lineWidthUnit, value); }

    std::int32_t RegionBackColor() override { return data().regionBackColor; }
    void setRegionBackColor(std::int32_t value) override {
        set(&StyleData::regionBackColor, value);
    }
    std::int32_t RegionBorderColor() override { return data().regionBorderColor; }
    void setRegionBorderColor(std::int32_t value) override {
        set(&StyleData::regionBorderColor, value);
    }
    std::int16_t RegionBorderStyle() override { return data().regionBorderStyle; }
    void setRegionBorderStyle(std::int16_t value) override {
        set(&StyleData::regionBorderStyle, value);
    }
    std::int16_t RegionBorderWidth() override { return data().regionBorderWidth; }
    void setRegionBorderWidth(std::int16_t value) override {
        set(&StyleData::regionBorderWidth, value);
    }
    std::int16_t RegionBorderWidthUnit() override { return data().regionBorderWidthUnit; }
    void setRegionBorderWidthUnit(std::int16_t value) override {
        set(&StyleData::regionBorderWidthUnit, value);
    }
    std::int32_t RegionColor() override { return data().regionColor; }
    void setRegionColor(std::int32_t value) override { set(&StyleData::regionColor, value); }
    std::int16_t RegionPattern() override { return data().regionPattern; }
    void setRegionPattern(std::int16_t value) override { set(&StyleData::regionPattern, value); }
    bool RegionTransparent() override { return data().regionTransparent; }
    void setRegionTransparent(bool value) override { set(&StyleData::regionTransparent, value); }

    std::int16_t SymbolType() override { return data().symbolType; }
    void setSymbolType(std::int16_t value) override { set(&StyleData::symbolType, value); }
    std::int32_t SymbolBitmapColor() override { return data().symbolBitmapColor; }
    void setSymbolBitmapColor(std::int32_t value) override {
        set(&StyleData::symbolBitmapColor, value);
    }
    std::string SymbolBitmapName() override { return data().symbolBitmapName; }
    void setSymbolBitmapName(const std::string& value) override;
    bool SymbolBitmapOverrideColor() override { return data().symbolBitmapOverrideColor; }
    void setSymbolBitmapOverrideColor(bool value) override {
        set(&StyleData::symbolBitmapOverrideColor, value);
    }
    std::int16_t SymbolBitmapSize() override { return data().symbolBitmapSize; }
    void setSymbolBitmapSize(std::int16_t value) override {
        set(&StyleData::symbolBitmapSize, value);
    }
    bool SymbolBitmapTransparent() override { return data().symbolBitmapTransparent; }
    void setSymbolBitmapTransparent(bool value) override {
        set(&StyleData::symbolBitmapTransparent, value);
    }
    std::int16_t SymbolCharacter() override { return data().symbolCharacter; }
    void setSymbolCharacter(std::int16_t value) override {
        set(&StyleData::symbolCharacter, value);
    }
    std::shared_ptr<hostmodel::MXFont> SymbolFont() override { return symbolFont_; }
    std::int32_t SymbolFontBackColor() override { return data().symbolFontBackColor; }
    void setSymbolFontBackColor(std::int32_t value) override {
        set(&StyleData::symbolFontBackColor, value);
    }
    std::int32_t SymbolFontColor() override { return data().symbolFontColor; }
    void setSymbolFontColor(std::int32_t value) override {
        set(&StyleData::symbolFontColor, value);
    }
    bool SymbolFontHalo() override { return data().symbolFontHalo; }
    void setSymbolFontHalo(bool value) override { set(&StyleData::symbolFontHalo, value); }
    bool SymbolFontOpaque() override { return data().symbolFontOpaque; }
    void setSymbolFontOpaque(bool value) override { set(&StyleData::symbolFontOpaque, value); }
    double SymbolFontRotation() override { return data().symbolFontRotation; }
    void setSymbolFontRotation(double value) override {
        set(&StyleData::symbolFontRotation, value);
    }
    bool SymbolFontShadow() override { return data().symbolFontShadow; }
    void setSymbolFontShadow(bool value) override { set(&StyleData::symbolFontShadow, value); }
    std::int32_t SymbolVectorColor() override { return data().symbolVectorColor; }
    void setSymbolVectorColor(std::int32_t value) override {
        set(&StyleData::symbolVectorColor, value);
    }
    std::int16_t SymbolVectorSize() override { return data().symbolVectorSize; }
    void setSymbolVectorSize(std::int16_t value) override {
        set(&StyleData::symbolVectorSize, value);
    }

    std::shared_ptr<hostmodel::MXFont> TextFont() override { return textFont_; }
    bool TextFontAllCaps() override { return data().textFontAllCaps; }
    void setTextFontAllCaps(bool value) override { set(&StyleData::textFontAllCaps, value); }
    std::int32_t TextFontBackColor() override { return data().textFontBackColor; }
    void setTextFontBackColor(std::int32_t value) override {
        set(&StyleData::textFontBackColor, value);
    }
    std::int32_t TextFontColor() override { return data().textFontColor; }
    void setTextFontColor(std::int32_t value) override { set(&StyleData::textFontColor, value); }
    bool TextFontDblSpace() override { return data().textFontDblSpace; }
    void setTextFontDblSpace(bool value) override { set(&StyleData::textFontDblSpace, value); }
    bool TextFontHalo() override { return data().textFontHalo; }
    void setTextFontHalo(bool value) override { set(&StyleData::textFontHalo, value); }
    bool TextFontOpaque() override { return data().textFontOpaque; }
    void setTextFontOpaque(bool value) override { set(&StyleData::textFontOpaque, value); }
    double TextFontRotation() override { return data().textFontRotation; }
    void setTextFontRotation(double value) override { set(&StyleData::textFontRotation, value); }
    bool TextFontShadow() override { return data().textFontShadow; }
    void setTextFontShadow(bool value) override { set(&StyleData::textFontShadow, value); }

    bool PickRegion() override { return pick(PickKind::Region); }
    bool PickLine() override { return pick(PickKind::Line); }
    bool PickSymbol() override { return pick(PickKind::Symbol); }
    bool PickText() override { return pick(PickKind::Text); }

    void ExportRegionSample(const std::string& destination, std::int16_t format, double width,
                            double height) override;
    void ExportLineSample(const std::string& destination, std::int16_t format, double width,
                          double height) override;
    void ExportSymbolSample(const std::string& destination, std::int16_t format, double width,
                            double height) override;
    void ExportTextSample(const std::string& destination, std::int16_t format, double width,
                          double height, const std::string& text, std::int32_t backColor) override;

private:
    template <class T> void set(T StyleData::*field, const T& value) {
        core_->assign(core_->data.*field, value);
    }
    bool pick(PickKind kind);

    MapXRuntime& runtime_;
    std::shared_ptr<StyleCore> core_;
    std::shared_ptr<StyleFont> symbolFont_;
    std::shared_ptr<StyleFont> textFont_;
};

} // namespace vellant::mapx
