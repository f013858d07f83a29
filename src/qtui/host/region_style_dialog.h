#pragma once
// Region Style: the fill's pattern, its foreground colour and its background colour, which a
// transparent fill does without.

#include "engine/tables/style_clause.h"
#include "qtui/host/style_dialog.h"

class QCheckBox;
class QComboBox;

namespace vellant::qtui {

class ColorButton;

class RegionStyleDialog : public StyleDialog {
    Q_OBJECT
public:
    RegionStyleDialog(const engine::BrushStyle& start, QWidget* parent = nullptr);

    engine::StyleDialogKind kind() const override { return engine::StyleDialogKind::Region; }
    std::string clause() const override;
    engine::BrushStyle brush() const;

    QComboBox& pattern() const { return *pattern_; }
    ColorButton& foreground() const { return *fore_; }
    ColorButton& background() const { return *back_; }
    QCheckBox& transparent() const { return *transparent_; }

protected:
    void showSample(StylePreview& preview) const override;

private:
    void repaintPatterns();

    QComboBox* pattern_ = nullptr;
    ColorButton* fore_ = nullptr;
    ColorButton* back_ = nullptr;
    QCheckBox* transparent_ = nullptr;
};

} // namespace vellant::qtui
