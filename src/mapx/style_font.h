#pragma once
// One of a style's two fonts (SymbolFont, TextFont), as the desktop's font object offers it.
// Bold and Weight are one value: Bold sets the weight to 700 or 400, and reads true from a
// weight of 550 up.

#include "hostmodel/mapx_style.h"
#include "mapx/style_core.h"

#include <memory>

namespace vellant::mapx {

class StyleFont : public hostmodel::MXFont {
public:
    StyleFont(std::shared_ptr<StyleCore> core, FontData StyleData::*font)
        : core_(std::move(core)), font_(font) {}

    bool Bold() override { return font().weight >= kBoldFromWeight; }
    void setBold(bool value) override;
    std::int16_t Charset() override { return font().charset; }
    void setCharset(std::int16_t value) override { core_->assign(font().charset, value); }
    bool Italic() override { return font().italic; }
    void setItalic(bool value) override { core_->assign(font().italic, value); }
    std::string Name() override { return font().name; }
    void setName(const std::string& value) override { core_->assign(font().name, value); }
    double Size() override { return font().size; }
    void setSize(double value) override;
    bool Strikethrough() override { return font().strikethrough; }
    void setStrikethrough(bool value) override { core_->assign(font().strikethrough, value); }
    bool Underline() override { return font().underline; }
    void setUnderline(bool value) override { core_->assign(font().underline, value); }
    std::int16_t Weight() override { return font().weight; }
    void setWeight(std::int16_t value) override;

private:
    FontData& font() { return core_->data.*font_; }

    std::shared_ptr<StyleCore> core_;
    FontData StyleData::*font_;
};

} // namespace vellant::mapx
