#pragma once
// Line Style: the line's pattern, colour and width, in pixels or points, and whether crossing
// lines interleave.

#include "engine/tables/style_clause.h"
#include "qtui/host/style_dialog.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;

namespace vellant::qtui {

class ColorButton;

class LineStyleDialog : public StyleDialog {
    Q_OBJECT
public:
    LineStyleDialog(const engine::PenStyle& start, QWidget* parent = nullptr);

    engine::StyleDialogKind kind() const override { return engine::StyleDialogKind::Line; }
    std::string clause() const override;
    engine::PenStyle pen() const;

    QComboBox& pattern() const { return *pattern_; }
    ColorButton& color() const { return *color_; }
    QDoubleSpinBox& lineWidth() const { return *width_; }
    // 0 pixels, 1 points.
    QComboBox& widthUnits() const { return *units_; }
    QCheckBox& interleaved() const { return *interleaved_; }

protected:
    void showSample(StylePreview& preview) const override;

private:
    void unitsChanged();
    void repaintPatterns();

    QComboBox* pattern_ = nullptr;
    ColorButton* color_ = nullptr;
    QDoubleSpinBox* width_ = nullptr;
    QComboBox* units_ = nullptr;
    QCheckBox* interleaved_ = nullptr;
};

} // namespace vellant::qtui
