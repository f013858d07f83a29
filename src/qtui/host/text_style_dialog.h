#pragma once
// Text Style: the font, its size in points and colour, a halo or a box in the background
// colour, and the effects (bold, italic, underline, strikeout, shadow, all caps, expanded).

#include "engine/tables/style_clause.h"
#include "qtui/host/style_dialog.h"

class QButtonGroup;
class QCheckBox;
class QFontComboBox;
class QRadioButton;
class QSpinBox;

namespace vellant::qtui {

class ColorButton;

class TextStyleDialog : public StyleDialog {
    Q_OBJECT
public:
    TextStyleDialog(const engine::FontStyle& start, QWidget* parent = nullptr);

    engine::StyleDialogKind kind() const override { return engine::StyleDialogKind::Text; }
    std::string clause() const override;
    engine::FontStyle fontStyle() const;

    QFontComboBox& family() const { return *family_; }
    QSpinBox& pointSize() const { return *size_; }
    ColorButton& color() const { return *color_; }
    QRadioButton& halo() const { return *halo_; }
    QRadioButton& box() const { return *box_; }
    ColorButton& background() const { return *back_; }
    // The effects by their style bit: 1 bold, 2 italic, 4 underline, 8 strikeout, 32 shadow,
    // 512 all caps, 1024 expanded.
    QCheckBox& effect(int bit) const;

protected:
    void showSample(StylePreview& preview) const override;

private:
    QFontComboBox* family_ = nullptr;
    QSpinBox* size_ = nullptr;
    ColorButton* color_ = nullptr;
    QRadioButton* plain_ = nullptr;
    QRadioButton* halo_ = nullptr;
    QRadioButton* box_ = nullptr;
    QButtonGroup* backgroundChoice_ = nullptr;
    ColorButton* back_ = nullptr;
    std::vector<std::pair<int, QCheckBox*>> effects_;
    // Style bits the dialog has no control for, kept as they came.
    int otherBits_ = 0;
};

} // namespace vellant::qtui
