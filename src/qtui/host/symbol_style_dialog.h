#pragma once
// Symbol Style: a symbol of MapInfo's own set, a character of a TrueType font with its effects
// and rotation, or the bitmap the style came with; its colour and size in points.

#include "engine/tables/style_clause.h"
#include "qtui/host/style_dialog.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QListWidget;
class QRadioButton;
class QSpinBox;

namespace vellant::qtui {

class ColorButton;

class SymbolStyleDialog : public StyleDialog {
    Q_OBJECT
public:
    // The entry of the font list that stands for MapInfo's own symbols.
    static QString ownSymbolsName();

    SymbolStyleDialog(const engine::SymbolStyle& start, QWidget* parent = nullptr);

    engine::StyleDialogKind kind() const override { return engine::StyleDialogKind::Symbol; }
    std::string clause() const override;
    engine::SymbolStyle symbol() const;

    // The set the symbol comes from: MapInfo's own, a font, or the bitmap.
    QComboBox& symbolSet() const { return *set_; }
    // The symbols of the set; each item's data is its shape code.
    QListWidget& symbols() const { return *symbols_; }
    ColorButton& color() const { return *color_; }
    QSpinBox& pointSize() const { return *size_; }
    QDoubleSpinBox& rotation() const { return *rotation_; }
    QCheckBox& bold() const { return *bold_; }
    QCheckBox& shadow() const { return *shadow_; }
    QRadioButton& halo() const { return *halo_; }
    QRadioButton& border() const { return *border_; }

protected:
    void showSample(StylePreview& preview) const override;

private:
    enum class Set { Own, Font, Bitmap };
    Set currentSet() const;
    void fillSymbols(int select);
    void setChanged();

    engine::SymbolStyle start_;
    QComboBox* set_ = nullptr;
    QListWidget* symbols_ = nullptr;
    ColorButton* color_ = nullptr;
    QSpinBox* size_ = nullptr;
    QDoubleSpinBox* rotation_ = nullptr;
    QCheckBox* bold_ = nullptr;
    QCheckBox* shadow_ = nullptr;
    QRadioButton* plain_ = nullptr;
    QRadioButton* halo_ = nullptr;
    QRadioButton* border_ = nullptr;
    QButtonGroup* background_ = nullptr;
    QCheckBox* opaque_ = nullptr;
    QCheckBox* applyColor_ = nullptr;
};

} // namespace vellant::qtui
